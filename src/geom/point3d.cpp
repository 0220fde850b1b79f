#include "geom/point3d.h"

#include <algorithm>
#include <cmath>

#include "geom/point2d.h"

Tvx_point3d vx_point3d() {
  return Tvx_point3d{0.0, 0.0, 0.0};
}

Tvx_point3d vx_point3d(double x, double y, double z) {
  return Tvx_point3d{x, y, z};
}

bool vx_point3d_equal(const Tvx_point3d& a, const Tvx_point3d& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

bool operator==(const Tvx_point3d& a, const Tvx_point3d& b) {
  return vx_point3d_equal(a, b);
}

bool operator!=(const Tvx_point3d& a, const Tvx_point3d& b) {
  return !vx_point3d_equal(a, b);
}

int vx_point3d_compare(const Tvx_point3d& a, const Tvx_point3d& b) {
  if (a < b) return -1;
  if (b < a) return 1;
  return 0;
}

Tvx_point3d vx_point3d_middle(const Tvx_point3d& a, const Tvx_point3d& b) {
  return Tvx_point3d{(a.x + b.x) * 0.5, (a.y + b.y) * 0.5, (a.z + b.z) * 0.5};
}

Tvx_point3d vx_point3d_alongway(const Tvx_point3d& a, const Tvx_point3d& b, double d) {
  const double len = vx_distance(a, b);
  if (len < Tvx_geom3d_func::f_delta) return b;
  const double t = d / len;
  return Tvx_point3d{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t};
}

double vx_distance(double x1, double y1, double z1, double x2, double y2, double z2) {
  return std::hypot(x2 - x1, y2 - y1, z2 - z1);
}

double vx_distance(const Tvx_point3d& a, const Tvx_point3d& b) {
  return vx_distance(a.x, a.y, a.z, b.x, b.y, b.z);
}

Tvx_segment3d vx_segment3d() {
  return Tvx_segment3d{0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
}

Tvx_segment3d vx_segment3d(double x1, double y1, double z1, double x2, double y2, double z2) {
  return Tvx_segment3d{x1, y1, z1, x2, y2, z2};
}

Tvx_segment3d vx_segment3d(const Tvx_point3d& p, const Tvx_point3d& q) {
  return Tvx_segment3d{p.x, p.y, p.z, q.x, q.y, q.z};
}

Tvx_rect3d vx_rect3d() {
  return Tvx_rect3d{false, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
}

Tvx_rect3d vx_rect3d(double x1, double y1, double z1, double x2, double y2, double z2) {
  return Tvx_rect3d{true,
                    std::min(x1, x2),
                    std::min(y1, y2),
                    std::min(z1, z2),
                    std::max(x1, x2),
                    std::max(y1, y2),
                    std::max(z1, z2)};
}

Tvx_rect3d vx_rect3d(const Tvx_point3d& p, const Tvx_point3d& q) {
  return vx_rect3d(p.x, p.y, p.z, q.x, q.y, q.z);
}

Tvx_rect3d vx_rect3d(const Tvx_segment3d& s) {
  return vx_rect3d(s.x1, s.y1, s.z1, s.x2, s.y2, s.z2);
}

// Measured with the plane tolerance, on purpose: the two are equal, and this test has always used it.
bool vx_rect3d_is_degenerated(const Tvx_rect3d& r) {
  const double d = Tvx_geom2d_delta::f_delta;
  return !r.defined || r.xmax - r.xmin < d || r.ymax - r.ymin < d || r.zmax - r.zmin < d;
}

Tvx_rect3d vx_rect3d_cross(const Tvx_rect3d& a, const Tvx_rect3d& b) {
  if (!a.defined || !b.defined) return vx_rect3d();
  const Tvx_rect3d r{true,
                     std::max(a.xmin, b.xmin),
                     std::max(a.ymin, b.ymin),
                     std::max(a.zmin, b.zmin),
                     std::min(a.xmax, b.xmax),
                     std::min(a.ymax, b.ymax),
                     std::min(a.zmax, b.zmax)};
  const bool empty = r.xmin > r.xmax || r.ymin > r.ymax || r.zmin > r.zmax;
  return empty ? vx_rect3d() : r;
}

Tvx_rect3d vx_rect3d_unite(const Tvx_rect3d& a, const Tvx_rect3d& b) {
  if (!a.defined) return b;
  if (!b.defined) return a;
  return Tvx_rect3d{true,
                    std::min(a.xmin, b.xmin),
                    std::min(a.ymin, b.ymin),
                    std::min(a.zmin, b.zmin),
                    std::max(a.xmax, b.xmax),
                    std::max(a.ymax, b.ymax),
                    std::max(a.zmax, b.zmax)};
}

bool vx_rect3d_include(const Tvx_rect3d& r, double x, double y, double z) {
  return r.defined && x >= r.xmin && x <= r.xmax && y >= r.ymin && y <= r.ymax && z >= r.zmin && z <= r.zmax;
}

bool vx_rect3d_include(const Tvx_rect3d& r, const Tvx_point3d& p) {
  return vx_rect3d_include(r, p.x, p.y, p.z);
}

bool vx_rect3d_include(const Tvx_rect3d& r, const Tvx_rect3d& s) {
  return s.defined && vx_rect3d_include(r, s.xmin, s.ymin, s.zmin) &&
         vx_rect3d_include(r, s.xmax, s.ymax, s.zmax);
}

void vx_rect3d_extend(Tvx_rect3d* r, double x, double y, double z) {
  if (!r->defined) {
    *r = Tvx_rect3d{true, x, y, z, x, y, z};
    return;
  }
  r->xmin = std::min(r->xmin, x);
  r->ymin = std::min(r->ymin, y);
  r->zmin = std::min(r->zmin, z);
  r->xmax = std::max(r->xmax, x);
  r->ymax = std::max(r->ymax, y);
  r->zmax = std::max(r->zmax, z);
}

void vx_rect3d_extend(Tvx_rect3d* r, const Tvx_point3d& p) {
  vx_rect3d_extend(r, p.x, p.y, p.z);
}
