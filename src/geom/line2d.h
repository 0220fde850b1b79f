// Plane lines (a * x + b * y + c = 0) and segments, with the free functions on them.
#pragma once

#include "geom/point2d.h"

struct Tvx_line2d {
  double a;
  double b;
  double c;
};

struct Tvx_segment2d {
  double x1;
  double y1;
  double x2;
  double y2;
};

Tvx_line2d vx_line2d();
Tvx_line2d vx_line2d(double a, double b, double c);
// The line through two points: a = y1 - y2, b = x2 - x1, c = x1 * y2 - y1 * x2.
Tvx_line2d vx_line2d(double x1, double y1, double x2, double y2);
Tvx_line2d vx_line2d(const Tvx_point2d& p, const Tvx_point2d& q);

// The line through p at right angles to l.
Tvx_line2d vx_line2d_ortho(const Tvx_line2d& l, const Tvx_point2d& p);
// p moved by d along a line that has been normed.
Tvx_point2d vx_line2d_normed_delta_along(const Tvx_line2d& l, const Tvx_point2d& p, double d);
// Scales the line so that (a, b) has the length 1; false, with no change, when that length is not
// above the tolerance.
bool vx_line2d_norm(Tvx_line2d* l);
// a * x + b * y + c: zero on the line, the signed distance on a normed one.
double vx_line2d_apply(const Tvx_line2d& l, double x, double y);

Tvx_segment2d vx_segment2d();
Tvx_segment2d vx_segment2d(double x1, double y1, double x2, double y2);
Tvx_segment2d vx_segment2d(const Tvx_point2d& p, const Tvx_point2d& q);

// y on the line of s at x; true when x falls within the segment. A vertical segment gives y1 and false.
bool vx_segment2d_get_y(const Tvx_segment2d& s, double x, double* y);
// x on the line of s at y; true when y falls within the segment. A horizontal one gives x1 and false.
bool vx_segment2d_get_x(const Tvx_segment2d& s, double y, double* x);
Tvx_segment2d vx_segment2d_swap(const Tvx_segment2d& s);
// The foot p of the perpendicular from (x, y) and its distance d. False, with the outputs untouched,
// when the segment is not longer than the tolerance or the foot falls outside it (no clamping).
bool vx_segment2d_distance_xy(const Tvx_segment2d& s, double x, double y, double& d, Tvx_point2d& p);
// The crossing point of two segments, as vx_cross_xy.
bool vx_segment2d_cross(const Tvx_segment2d& a, const Tvx_segment2d& b, Tvx_point2d& p);
// The same with each segment's ends first put in order, so that the point does not depend on the
// directions of the segments.
bool vx_segment2d_cross_ex(const Tvx_segment2d& a, const Tvx_segment2d& b, Tvx_point2d& p);
// Signed angle in radians between the directions of a and b; 0 for parallel and opposite directions.
double vx_segment2d_angle_between(const Tvx_segment2d& a, const Tvx_segment2d& b);
