#include "geom/pp2d.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "algo/chord_simplify2d.h"
#include "geom/owned_list.h"
#include "geom/point_walk.h"
#include "geom/ring_ray.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

}  // namespace

void Tvx_pp2d::delete_obj(Tvx_pp2d** p) {
  vx::geom::delete_and_null(p);
}

// Changes of the vertices. Most mark both the rectangle and the statistics stale; add(Tvx_point2d)
// and close() mark only the rectangle, delete_double() and del_last() neither. Callers rely on this
// unevenness (the statistics after a single add are the old ones), so it stays.

void Tvx_pp2d::set(int i, const Tvx_point2d& p) {
  points[i] = p;
  mark_dirty();
}

void Tvx_pp2d::set_size(int n) {
  const std::size_t size = n > 0 ? static_cast<std::size_t>(n) : 0;
  if (size == points.size()) return;
  points.resize(size, vx_point2d());
  mark_dirty();
}

void Tvx_pp2d::clear() {
  points.clear();
  mark_dirty();
}

void Tvx_pp2d::assign(const Tvx_pp2d* other) {
  if (other != this) points = other->points;
  mark_dirty();
}

void Tvx_pp2d::assign_points(std::vector<Tvx_point2d> pts) {
  points = std::move(pts);
  mark_dirty();
}

void Tvx_pp2d::add(const Tvx_point2d& p) {
  points.push_back(p);
  rect_dirty = true;
}

void Tvx_pp2d::add(double x, double y) {
  points.push_back(vx_point2d(x, y));
  mark_dirty();
}

void Tvx_pp2d::add(const Tvx_pp2d* other, bool reversed) {
  const std::vector<Tvx_point2d> src = other->points;  // a copy: other may be this vector
  if (reversed)
    points.insert(points.end(), src.rbegin(), src.rend());
  else
    points.insert(points.end(), src.begin(), src.end());
  mark_dirty();
}

void Tvx_pp2d::ins(const Tvx_point2d& p, int i) {
  points.insert(points.begin() + i, p);
  mark_dirty();
}

void Tvx_pp2d::ins(const Tvx_pp2d* other, int i) {
  const std::vector<Tvx_point2d> src = other->points;
  points.insert(points.begin() + i, src.begin(), src.end());
  mark_dirty();
}

void Tvx_pp2d::del(int i) {
  points.erase(points.begin() + i);
  mark_dirty();
}

void Tvx_pp2d::del(int, int) {}

void Tvx_pp2d::del_last() {
  if (!points.empty()) points.pop_back();
}

void Tvx_pp2d::sort() {
  std::sort(points.begin(), points.end());
  mark_dirty();
}

void Tvx_pp2d::reverse() {
  std::reverse(points.begin(), points.end());
  mark_dirty();
}

void Tvx_pp2d::delete_double() {
  points.erase(std::unique(points.begin(), points.end()), points.end());
}

Tvx_point2d Tvx_pp2d::get_first() const {
  return points.empty() ? vx_point2d() : points.front();
}

Tvx_point2d Tvx_pp2d::get_last() const {
  return points.empty() ? vx_point2d() : points.back();
}

bool Tvx_pp2d::is_closed() const {
  return vx::geom::is_ring(points);
}

bool Tvx_pp2d::close() {
  if (points.size() < 2) return false;
  if (is_closed()) return true;
  add(points.front());
  return true;
}

// Twice the area under the polygon line: positive for a clockwise ring, negative for a counter-clockwise
// one, with y upwards.
double Tvx_pp2d::orientation_sum() const {
  double sum = 0.0;
  for (std::size_t i = 1; i < points.size(); ++i)
    sum += (points[i].x - points[i - 1].x) * (points[i].y + points[i - 1].y);
  return sum;
}

Tvx_clock_wise Tvx_pp2d::orientation_of(double sum) const {
  if (!is_closed()) return vx_cw_unknown;
  if (sum > 0.0) return vx_cw_clockwise;
  if (sum < 0.0) return vx_cw_counter_clockwise;
  return vx_cw_unknown;
}

void Tvx_pp2d::calculate() {
  rect = vx_rect2d();
  for (const Tvx_point2d& p : points) vx_rect2d_extend(&rect, p);
  clock_wise = orientation_of(orientation_sum());
  rect_dirty = false;
}

// Refreshes the statistics and the orientation but not the rectangle, and still clears rect_dirty: a
// get_rect() after it gives the rectangle from before the change. The class has always worked so.
void Tvx_pp2d::calculate_ext() {
  ext = vx_rect2d_ext();
  for (const Tvx_point2d& p : points) {
    vx_rect2d_extend(&ext.rect, p);
    ext.sum_x += p.x;
    ext.sum_y += p.y;
  }
  ext.count = static_cast<unsigned int>(points.size());
  clock_wise = orientation_of(orientation_sum());
  rect_dirty = false;
  ext_dirty = false;
}

Tvx_rect2d Tvx_pp2d::get_rect() {
  if (rect_dirty) calculate();
  return rect;
}

Tvx_rect2d_ext Tvx_pp2d::get_rect_and_stat() {
  if (ext_dirty) calculate_ext();
  return ext;
}

Tvx_clock_wise Tvx_pp2d::get_clock_wise() {
  if (rect_dirty) calculate();
  return clock_wise;
}

bool Tvx_pp2d::make_clock_wise(Tvx_clock_wise target) {
  const Tvx_clock_wise now = get_clock_wise();
  const bool opposite = (target == vx_cw_clockwise && now == vx_cw_counter_clockwise) ||
                        (target == vx_cw_counter_clockwise && now == vx_cw_clockwise);
  if (opposite) {
    reverse();
    calculate();
  }
  return clock_wise == target;
}

double Tvx_pp2d::calc_length() const {
  return calc_length(get_size());
}

double Tvx_pp2d::calc_length(int k) const {
  const int segments = std::min(k, get_size() - 1);
  double sum = 0.0;
  for (int i = 1; i <= segments; ++i) sum += vx_distance(points[i - 1], points[i]);
  return sum;
}

double Tvx_pp2d::calc_trend_angle() const {
  if (points.size() < 2 || points.front() == points.back()) return 0.0;
  const Tvx_point2d a = points.front(), b = points.back();
  const double angle = std::atan2(b.y - a.y, b.x - a.x) * 180.0 / kPi;
  return angle < 0.0 ? angle + 180.0 : angle;
}

double Tvx_pp2d::calc_area() const {
  if (!is_closed()) return 0.0;
  return std::fabs(orientation_sum()) * 0.5;
}

double Tvx_pp2d::calc_signed_area() {
  const double area = calc_area();
  return get_clock_wise() == vx_cw_clockwise ? area : -area;
}

int Tvx_pp2d::vtx_at_length(double l, Tvx_point2d& p) const {
  double rest = l;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double d = vx_distance(points[i - 1], points[i]);
    if (rest - d < 0.0) {
      p = vx_point2d_alongway(points[i - 1], points[i], rest);
      return static_cast<int>(i);
    }
    rest -= d;
  }
  return 0;
}

bool Tvx_pp2d::split_at_length(double l, Tvx_pp2d* a, Tvx_pp2d* b) const {
  Tvx_point2d p = vx_point2d();
  const int k = vtx_at_length(l, p);
  if (k == 0) return false;
  std::vector<Tvx_point2d> head(points.begin(), points.begin() + k);
  if (p != points[k - 1]) head.push_back(p);
  std::vector<Tvx_point2d> tail;
  if (p != points[k]) tail.push_back(p);
  tail.insert(tail.end(), points.begin() + k, points.end());
  // Filled last, since a or b may be this very vector.
  if (a) a->assign_points(std::move(head));
  if (b) b->assign_points(std::move(tail));
  return true;
}

bool Tvx_pp2d::include(double x, double y) const {
  using vx::geom::edge_hit;
  if (!is_closed()) return false;
  bool inside = false;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const vx::geom::edge_hit hit = vx::geom::ray_hit(points[i - 1], points[i], x, y);
    if (hit == vx::geom::edge_hit::boundary) return true;
    if (hit == vx::geom::edge_hit::count) inside = !inside;
  }
  return inside;
}

Tvx_pp2d* Tvx_pp2d::make_equal_dist(double step) const {
  if (!(step > Tvx_geom2d_delta::f_delta)) return new Tvx_pp2d(points);
  const auto dist = [](const Tvx_point2d& a, const Tvx_point2d& b) { return vx_distance(a, b); };
  return new Tvx_pp2d(
      vx::geom::equal_dist(points, step, Tvx_geom2d_delta::f_delta, dist, vx_point2d_alongway));
}

Tvx_pp2d* Tvx_pp2d::densify(double step) const {
  if (!(step > Tvx_geom2d_delta::f_delta) || points.size() < 2) return new Tvx_pp2d(points);
  std::vector<Tvx_point2d> out;
  out.reserve(points.size());
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Tvx_point2d a = points[i - 1], b = points[i];
    out.push_back(a);
    const double d = vx_distance(a, b);
    if (!(d > step) || !std::isfinite(d)) continue;
    const double k = std::trunc(d / step);
    for (double j = 1.0; j <= k; j += 1.0) {
      const double t = j / (k + 1.0);
      out.push_back(vx_point2d(a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t));
    }
  }
  out.push_back(points.back());
  return new Tvx_pp2d(std::move(out));
}

Tvx_pp2d* Tvx_pp2d::make_middle_sides(bool keep_first, bool keep_last) const {
  return new Tvx_pp2d(vx::geom::middle_sides(points, keep_first, keep_last, vx_point2d_middle));
}

Tvx_pp2d* Tvx_pp2d::simple_simplify(double d) const {
  std::unique_ptr<Tvx_pp2d> r(make_equal_dist(d));
  for (int i = 0; i < 5; ++i) r.reset(r->make_middle_sides(true, true));
  Tvx_chord_simplify2d::execute(r.get(), d);
  return r.release();
}

Tvx_pp2d* Tvx_pp2d::chord_simplify(double d) const {
  Tvx_pp2d* r = new Tvx_pp2d(points);
  Tvx_chord_simplify2d::execute(r, d);
  return r;
}
