#include "geom/line2d.h"

#include <cmath>
#include <utility>

Tvx_line2d vx_line2d() {
  return Tvx_line2d{0.0, 0.0, 0.0};
}

Tvx_line2d vx_line2d(double a, double b, double c) {
  return Tvx_line2d{a, b, c};
}

Tvx_line2d vx_line2d(double x1, double y1, double x2, double y2) {
  return Tvx_line2d{y1 - y2, x2 - x1, x1 * y2 - y1 * x2};
}

Tvx_line2d vx_line2d(const Tvx_point2d& p, const Tvx_point2d& q) {
  return vx_line2d(p.x, p.y, q.x, q.y);
}

Tvx_line2d vx_line2d_ortho(const Tvx_line2d& l, const Tvx_point2d& p) {
  return Tvx_line2d{-l.b, l.a, l.b * p.x - l.a * p.y};
}

Tvx_point2d vx_line2d_normed_delta_along(const Tvx_line2d& l, const Tvx_point2d& p, double d) {
  return Tvx_point2d{p.x - d * l.b, p.y + d * l.a};
}

bool vx_line2d_norm(Tvx_line2d* l) {
  const double len = std::hypot(l->a, l->b);
  if (!(len > Tvx_geom2d_delta::f_delta)) return false;
  l->a /= len;
  l->b /= len;
  l->c /= len;
  return true;
}

double vx_line2d_apply(const Tvx_line2d& l, double x, double y) {
  return l.a * x + l.b * y + l.c;
}

Tvx_segment2d vx_segment2d() {
  return Tvx_segment2d{0.0, 0.0, 0.0, 0.0};
}

Tvx_segment2d vx_segment2d(double x1, double y1, double x2, double y2) {
  return Tvx_segment2d{x1, y1, x2, y2};
}

Tvx_segment2d vx_segment2d(const Tvx_point2d& p, const Tvx_point2d& q) {
  return Tvx_segment2d{p.x, p.y, q.x, q.y};
}

namespace {

// The value on the line through (u1, v1) and (u2, v2) at u; shared by get_y and get_x with the axes
// exchanged. A line without extent along u gives v1 and false.
bool value_at(double u1, double v1, double u2, double v2, double u, double* v) {
  const double du = u2 - u1;
  if (Tvx_geom2d_delta::abs_lt_delta(du)) {
    if (v) *v = v1;
    return false;
  }
  if (v) *v = v1 + (u - u1) * (v2 - v1) / du;
  const bool rising = u1 <= u2;
  return rising ? (u >= u1 && u <= u2) : (u >= u2 && u <= u1);
}

}  // namespace

bool vx_segment2d_get_y(const Tvx_segment2d& s, double x, double* y) {
  return value_at(s.x1, s.y1, s.x2, s.y2, x, y);
}

bool vx_segment2d_get_x(const Tvx_segment2d& s, double y, double* x) {
  return value_at(s.y1, s.x1, s.y2, s.x2, y, x);
}

Tvx_segment2d vx_segment2d_swap(const Tvx_segment2d& s) {
  return Tvx_segment2d{s.x2, s.y2, s.x1, s.y1};
}

bool vx_segment2d_distance_xy(const Tvx_segment2d& s, double x, double y, double& d, Tvx_point2d& p) {
  const double dx = s.x2 - s.x1, dy = s.y2 - s.y1;
  const double len = std::hypot(dx, dy);
  if (!(len > Tvx_geom2d_delta::f_delta)) return false;
  const double t = ((x - s.x1) * dx + (y - s.y1) * dy) / (len * len);
  if (t < 0.0 || t > 1.0) return false;
  p = Tvx_point2d{s.x1 + dx * t, s.y1 + dy * t};
  d = vx_distance(x, y, p.x, p.y);
  return true;
}

bool vx_segment2d_cross(const Tvx_segment2d& a, const Tvx_segment2d& b, Tvx_point2d& p) {
  return vx_cross_xy(a.x1, a.y1, a.x2, a.y2, b.x1, b.y1, b.x2, b.y2, p.x, p.y);
}

namespace {

// The segment with its start at the smaller end point, by x and then y.
Tvx_segment2d ordered(const Tvx_segment2d& s) {
  const Tvx_point2d p{s.x1, s.y1}, q{s.x2, s.y2};
  return q < p ? vx_segment2d_swap(s) : s;
}

}  // namespace

bool vx_segment2d_cross_ex(const Tvx_segment2d& a, const Tvx_segment2d& b, Tvx_point2d& p) {
  return vx_segment2d_cross(ordered(a), ordered(b), p);
}

double vx_segment2d_angle_between(const Tvx_segment2d& a, const Tvx_segment2d& b) {
  const double ax = a.x2 - a.x1, ay = a.y2 - a.y1;
  const double bx = b.x2 - b.x1, by = b.y2 - b.y1;
  const double lengths = std::hypot(ax, ay) * std::hypot(bx, by);
  if (lengths == 0.0) return 0.0;  // a point has no direction
  const double cosine = (ax * bx + ay * by) / lengths;
  if (cosine >= 1.0 || cosine <= -1.0) return 0.0;
  const double cross = ax * by - ay * bx;
  return cross < 0.0 ? -std::acos(cosine) : std::acos(cosine);
}
