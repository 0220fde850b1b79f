#include "geom/point2d.h"

#include <cmath>

Tvx_point2d vx_point2d() {
  return Tvx_point2d{0.0, 0.0};
}

Tvx_point2d vx_point2d(double x, double y) {
  return Tvx_point2d{x, y};
}

bool vx_point2d_equal(const Tvx_point2d& a, const Tvx_point2d& b) {
  return a.x == b.x && a.y == b.y;
}

bool operator==(const Tvx_point2d& a, const Tvx_point2d& b) {
  return vx_point2d_equal(a, b);
}

bool operator!=(const Tvx_point2d& a, const Tvx_point2d& b) {
  return !vx_point2d_equal(a, b);
}

int vx_point2d_compare(const Tvx_point2d& a, const Tvx_point2d& b) {
  if (a < b) return -1;
  if (b < a) return 1;
  return 0;
}

Tvx_point2d vx_point2d_middle(const Tvx_point2d& a, const Tvx_point2d& b) {
  return Tvx_point2d{(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

Tvx_point2d vx_point2d_alongway(const Tvx_point2d& a, const Tvx_point2d& b, double d) {
  const double len = vx_distance(a, b);
  if (len < Tvx_geom2d_delta::f_delta) return b;
  const double t = d / len;
  return Tvx_point2d{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

double vx_distance(const Tvx_point2d& a, const Tvx_point2d& b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

double vx_distance(double x1, double y1, double x2, double y2) {
  return std::hypot(x2 - x1, y2 - y1);
}

void vx_rotate_xy(double x, double y, double s, double c, double& x2, double& y2) {
  x2 = x * c - y * s;
  y2 = x * s + y * c;
}

void vx_rotate_xy_center(double x, double y, double cx, double cy, double s, double c, double& x2,
                         double& y2) {
  vx_rotate_xy(x - cx, y - cy, s, c, x2, y2);
  x2 += cx;
  y2 += cy;
}

namespace {

// Parameters t (along 1-2) and u (along 3-4) of the crossing of the two lines; false when the
// determinant of the directions is below the tolerance.
bool crossing_params(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4,
                     double& t, double& u) {
  const double dx1 = x2 - x1, dy1 = y2 - y1;
  const double dx2 = x4 - x3, dy2 = y4 - y3;
  const double det = dx1 * dy2 - dy1 * dx2;
  if (Tvx_geom2d_delta::abs_lt_delta(det)) return false;
  const double ex = x3 - x1, ey = y3 - y1;
  t = (ex * dy2 - ey * dx2) / det;
  u = (ex * dy1 - ey * dx1) / det;
  return t >= 0.0 && t <= 1.0 && u >= 0.0 && u <= 1.0;
}

}  // namespace

bool vx_is_crossing_xy(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                       double y4) {
  double t = 0.0, u = 0.0;
  return crossing_params(x1, y1, x2, y2, x3, y3, x4, y4, t, u);
}

bool vx_cross_xy(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4,
                 double& x, double& y) {
  double t = 0.0, u = 0.0;
  if (!crossing_params(x1, y1, x2, y2, x3, y3, x4, y4, t, u)) return false;
  x = x1 + (x2 - x1) * t;
  y = y1 + (y2 - y1) * t;
  return true;
}
