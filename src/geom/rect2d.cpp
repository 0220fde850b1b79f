#include "geom/rect2d.h"

#include <algorithm>

Tvx_rect2d vx_rect2d() {
  return Tvx_rect2d{false, 0.0, 0.0, 0.0, 0.0};
}

Tvx_rect2d vx_rect2d(double x1, double y1, double x2, double y2) {
  return Tvx_rect2d{true, std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

Tvx_rect2d vx_rect2d(const Tvx_point2d& p, const Tvx_point2d& q) {
  return vx_rect2d(p.x, p.y, q.x, q.y);
}

Tvx_rect2d vx_rect2d(const Tvx_segment2d& s) {
  return vx_rect2d(s.x1, s.y1, s.x2, s.y2);
}

bool vx_rect2d_is_degenerated(const Tvx_rect2d& r) {
  return !r.defined || r.xmax - r.xmin < Tvx_geom2d_delta::f_delta ||
         r.ymax - r.ymin < Tvx_geom2d_delta::f_delta;
}

bool vx_rect2d_is_crossing(const Tvx_rect2d& a, const Tvx_rect2d& b) {
  if (!a.defined || !b.defined) return false;
  return a.xmin <= b.xmax && b.xmin <= a.xmax && a.ymin <= b.ymax && b.ymin <= a.ymax;
}

Tvx_rect2d vx_rect2d_cross(const Tvx_rect2d& a, const Tvx_rect2d& b) {
  if (!vx_rect2d_is_crossing(a, b)) return vx_rect2d();
  return Tvx_rect2d{true, std::max(a.xmin, b.xmin), std::max(a.ymin, b.ymin), std::min(a.xmax, b.xmax),
                    std::min(a.ymax, b.ymax)};
}

Tvx_rect2d vx_rect2d_unite(const Tvx_rect2d& a, const Tvx_rect2d& b) {
  if (!a.defined) return b;
  if (!b.defined) return a;
  return Tvx_rect2d{true, std::min(a.xmin, b.xmin), std::min(a.ymin, b.ymin), std::max(a.xmax, b.xmax),
                    std::max(a.ymax, b.ymax)};
}

bool vx_rect2d_include(const Tvx_rect2d& r, double x, double y) {
  return r.defined && x >= r.xmin && x <= r.xmax && y >= r.ymin && y <= r.ymax;
}

bool vx_rect2d_include(const Tvx_rect2d& r, const Tvx_point2d& p) {
  return vx_rect2d_include(r, p.x, p.y);
}

bool vx_rect2d_include(const Tvx_rect2d& r, const Tvx_rect2d& s) {
  return s.defined && vx_rect2d_include(r, s.xmin, s.ymin) && vx_rect2d_include(r, s.xmax, s.ymax);
}

void vx_rect2d_extend(Tvx_rect2d* r, double x, double y) {
  if (!r->defined) {
    *r = Tvx_rect2d{true, x, y, x, y};
    return;
  }
  r->xmin = std::min(r->xmin, x);
  r->ymin = std::min(r->ymin, y);
  r->xmax = std::max(r->xmax, x);
  r->ymax = std::max(r->ymax, y);
}

void vx_rect2d_extend(Tvx_rect2d* r, const Tvx_point2d& p) {
  vx_rect2d_extend(r, p.x, p.y);
}

bool vx_rect2d_equal(const Tvx_rect2d& a, const Tvx_rect2d& b) {
  if (!a.defined || !b.defined) return false;
  return a.xmin == b.xmin && a.ymin == b.ymin && a.xmax == b.xmax && a.ymax == b.ymax;
}

void vx_rect2d_add_delta(Tvx_rect2d* r, double d) {
  if (!r->defined) return;
  r->xmin -= d;
  r->ymin -= d;
  r->xmax += d;
  r->ymax += d;
  if (r->xmin > r->xmax || r->ymin > r->ymax) r->defined = false;
}

Tvx_rect2d_ext vx_rect2d_ext() {
  return Tvx_rect2d_ext{vx_rect2d(), 0.0, 0.0, 0u};
}

Tvx_rect2d_ext vx_rect2d_ext_unite(const Tvx_rect2d_ext& a, const Tvx_rect2d_ext& b) {
  return Tvx_rect2d_ext{vx_rect2d_unite(a.rect, b.rect), a.sum_x + b.sum_x, a.sum_y + b.sum_y,
                        a.count + b.count};
}
