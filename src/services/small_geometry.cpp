#include "services/small_geometry.h"

#include <climits>
#include <cmath>

#include "geom/point2d.h"

Tvx_vtx_d2 vx_vtx_d2_init_xy(double x, double y) {
  return Tvx_vtx_d2{x, y};
}

double vx_distance_xy(double x1, double y1, double x2, double y2) {
  return vx_distance(x1, y1, x2, y2);
}

bool vx_cross_xy(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4,
                 double* x, double* y) {
  double cx = 0.0;
  double cy = 0.0;
  if (!vx_cross_xy(x1, y1, x2, y2, x3, y3, x4, y4, cx, cy)) return false;
  *x = cx;
  *y = cy;
  return true;
}

int vx_round(double value) {
  if (std::isnan(value)) return 0;
  const double r = std::round(value);
  if (r >= static_cast<double>(INT_MAX)) return INT_MAX;
  if (r <= static_cast<double>(INT_MIN)) return INT_MIN;
  return static_cast<int>(r);
}
