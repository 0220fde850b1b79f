// Planes in space, a * x + b * y + c * z + d = 0, and their crossing with a segment.
#pragma once

#include "geom/point3d.h"

struct Tvx_plane3d {
  double a;
  double b;
  double c;
  double d;
};

Tvx_plane3d vx_plane3d();
Tvx_plane3d vx_plane3d(double a, double b, double c, double d);
// The plane through three points, its normal the cross product (p2 - p1) x (p3 - p1).
Tvx_plane3d vx_plane3d(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                       double z3);
Tvx_plane3d vx_plane3d(const Tvx_point3d& p, const Tvx_point3d& q, const Tvx_point3d& r);
// Makes (a, b, c) a unit vector; false, with no change, when its length is below the tolerance. d is
// not divided, so that a normed plane with d other than 0 is no longer the same plane.
bool vx_plane3d_norm(Tvx_plane3d* plane);
double vx_plane3d_apply(const Tvx_plane3d& plane, double x, double y, double z);
double vx_plane3d_apply(const Tvx_plane3d& plane, const Tvx_point3d& p);
// The point where the segment meets the plane, end points included; false when it does not, with p
// left alone.
bool vx_plane3d_segment3d_cross(const Tvx_plane3d& plane, const Tvx_segment3d& s, Tvx_point3d& p);
