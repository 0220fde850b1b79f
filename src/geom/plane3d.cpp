#include "geom/plane3d.h"

#include <cmath>

#include "geom/point2d.h"

Tvx_plane3d vx_plane3d() {
  return Tvx_plane3d{0.0, 0.0, 0.0, 0.0};
}

Tvx_plane3d vx_plane3d(double a, double b, double c, double d) {
  return Tvx_plane3d{a, b, c, d};
}

Tvx_plane3d vx_plane3d(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                       double z3) {
  const double a = (y2 - y1) * (z3 - z1) - (z2 - z1) * (y3 - y1);
  const double b = (z2 - z1) * (x3 - x1) - (z3 - z1) * (x2 - x1);
  const double c = (x2 - x1) * (y3 - y1) - (x3 - x1) * (y2 - y1);
  return Tvx_plane3d{a, b, c, -(a * x1 + b * y1 + c * z1)};
}

Tvx_plane3d vx_plane3d(const Tvx_point3d& p, const Tvx_point3d& q, const Tvx_point3d& r) {
  return vx_plane3d(p.x, p.y, p.z, q.x, q.y, q.z, r.x, r.y, r.z);
}

bool vx_plane3d_norm(Tvx_plane3d* plane) {
  const double len = std::sqrt(plane->a * plane->a + plane->b * plane->b + plane->c * plane->c);
  if (!(len >= Tvx_geom3d_func::f_delta)) return false;
  plane->a /= len;
  plane->b /= len;
  plane->c /= len;
  return true;
}

double vx_plane3d_apply(const Tvx_plane3d& plane, double x, double y, double z) {
  return plane.a * x + plane.b * y + plane.c * z + plane.d;
}

double vx_plane3d_apply(const Tvx_plane3d& plane, const Tvx_point3d& p) {
  return vx_plane3d_apply(plane, p.x, p.y, p.z);
}

bool vx_plane3d_segment3d_cross(const Tvx_plane3d& plane, const Tvx_segment3d& s, Tvx_point3d& p) {
  const double f1 = vx_plane3d_apply(plane, s.x1, s.y1, s.z1);
  if (f1 == 0.0) {
    p = vx_point3d(s.x1, s.y1, s.z1);
    return true;
  }
  const double f2 = vx_plane3d_apply(plane, s.x2, s.y2, s.z2);
  if (f2 == 0.0) {
    p = vx_point3d(s.x2, s.y2, s.z2);
    return true;
  }
  if (!((f1 < 0.0 && f2 > 0.0) || (f1 > 0.0 && f2 < 0.0))) return false;
  const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, dz = s.z2 - s.z1;
  const double den = plane.a * dx + plane.b * dy + plane.c * dz;
  // The plane geometry's tolerance, as the crossing has always used.
  if (Tvx_geom2d_delta::abs_lt_delta(den)) return false;
  const double t = f1 / den;
  if (t < -1.0 || t > 0.0) return false;
  p = vx_point3d(s.x1 - t * dx, s.y1 - t * dy, s.z1 - t * dz);
  return true;
}
