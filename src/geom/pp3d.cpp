#include "geom/pp3d.h"

#include <algorithm>

#include "geom/owned_list.h"
#include "geom/point_walk.h"

void Tvx_pp3d::delete_obj(Tvx_pp3d** p) {
  vx::geom::delete_and_null(p);
}

// Every change of the vertices marks the box stale, except delete_double() and del_last().

void Tvx_pp3d::set(int i, const Tvx_point3d& p) {
  points[i] = p;
  dirty = true;
}

void Tvx_pp3d::set_x(int i, double v) {
  points[i].x = v;
  dirty = true;
}

void Tvx_pp3d::set_y(int i, double v) {
  points[i].y = v;
  dirty = true;
}

void Tvx_pp3d::set_z(int i, double v) {
  points[i].z = v;
  dirty = true;
}

void Tvx_pp3d::set_size(int n) {
  points.resize(n > 0 ? static_cast<std::size_t>(n) : 0, vx_point3d());
  dirty = true;
}

void Tvx_pp3d::clear() {
  points.clear();
  dirty = true;
}

void Tvx_pp3d::assign(const Tvx_pp3d* other) {
  if (other != this) points = other->points;
  dirty = true;
}

void Tvx_pp3d::calculate() {
  rect = vx_rect3d();
  for (const Tvx_point3d& p : points) vx_rect3d_extend(&rect, p);
  dirty = false;
}

Tvx_rect3d Tvx_pp3d::get_rect() {
  if (dirty) calculate();
  return rect;
}

Tvx_point3d Tvx_pp3d::get_first() const {
  return points.empty() ? vx_point3d() : points.front();
}

Tvx_point3d Tvx_pp3d::get_last() const {
  return points.empty() ? vx_point3d() : points.back();
}

void Tvx_pp3d::add(const Tvx_point3d& p) {
  points.push_back(p);
  dirty = true;
}

void Tvx_pp3d::add(const Tvx_segment3d& s) {
  points.push_back(vx_point3d(s.x1, s.y1, s.z1));
  points.push_back(vx_point3d(s.x2, s.y2, s.z2));
  dirty = true;
}

void Tvx_pp3d::add(const Tvx_pp3d* other, bool reversed) {
  const std::vector<Tvx_point3d> src = other->points;  // a copy: other may be this vector
  if (reversed)
    points.insert(points.end(), src.rbegin(), src.rend());
  else
    points.insert(points.end(), src.begin(), src.end());
  dirty = true;
}

void Tvx_pp3d::sort() {
  std::sort(points.begin(), points.end());
  dirty = true;
}

void Tvx_pp3d::reverse() {
  std::reverse(points.begin(), points.end());
  dirty = true;
}

void Tvx_pp3d::delete_double() {
  points.erase(std::unique(points.begin(), points.end()), points.end());
}

void Tvx_pp3d::del_last() {
  if (!points.empty()) points.pop_back();
}

bool Tvx_pp3d::is_closed() const {
  return vx::geom::is_ring(points);
}

bool Tvx_pp3d::close() {
  if (points.size() < 2) return false;
  if (is_closed()) return true;
  add(points.front());
  return true;
}

double Tvx_pp3d::calc_length() const {
  double sum = 0.0;
  for (std::size_t i = 1; i < points.size(); ++i) sum += vx_distance(points[i - 1], points[i]);
  return sum;
}

Tvx_pp3d* Tvx_pp3d::make_equal_dist(double step) const {
  if (!(step > Tvx_geom3d_func::f_delta)) return new Tvx_pp3d(points);
  const auto dist = [](const Tvx_point3d& a, const Tvx_point3d& b) { return vx_distance(a, b); };
  return new Tvx_pp3d(
      vx::geom::equal_dist(points, step, Tvx_geom3d_func::f_delta, dist, vx_point3d_alongway));
}

Tvx_pp3d* Tvx_pp3d::make_middle_sides(bool keep_first, bool keep_last) const {
  return new Tvx_pp3d(vx::geom::middle_sides(points, keep_first, keep_last, vx_point3d_middle));
}
