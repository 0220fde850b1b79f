// Plane points and the geometry's tolerance, with the free functions on them.
//
// The types are plain values, copied freely. Coordinates are in the units of the data; a geographic
// system gives degrees, longitude first.
#pragma once

// The tolerance of the plane geometry, in the units of the data. It is fixed: there is no setter.
class Tvx_geom2d_delta {
 public:
  static constexpr double f_delta = 1e-06;

  static double get_delta() { return f_delta; }
  // True when the magnitude of v is strictly below the tolerance.
  static bool abs_lt_delta(double v) { return v < f_delta && v > -f_delta; }
};

struct Tvx_point2d {
  double x;
  double y;

  // Ordered by x, then by y.
  bool operator<(const Tvx_point2d& o) const { return x < o.x || (x == o.x && y < o.y); }
  bool operator>(const Tvx_point2d& o) const { return o < *this; }
};

Tvx_point2d vx_point2d();
Tvx_point2d vx_point2d(double x, double y);

// Exact comparison of both coordinates.
bool vx_point2d_equal(const Tvx_point2d& a, const Tvx_point2d& b);
bool operator==(const Tvx_point2d& a, const Tvx_point2d& b);
bool operator!=(const Tvx_point2d& a, const Tvx_point2d& b);

// -1, 0 or 1, by x, then by y.
int vx_point2d_compare(const Tvx_point2d& a, const Tvx_point2d& b);

Tvx_point2d vx_point2d_middle(const Tvx_point2d& a, const Tvx_point2d& b);

// The point at the distance d from a towards b (behind a for a negative d). When a and b are nearer
// than the tolerance there is no direction, and the answer is b.
Tvx_point2d vx_point2d_alongway(const Tvx_point2d& a, const Tvx_point2d& b, double d);

double vx_distance(const Tvx_point2d& a, const Tvx_point2d& b);
double vx_distance(double x1, double y1, double x2, double y2);

// Rotation by the angle whose sine is s and cosine c, about the origin or about (cx, cy).
void vx_rotate_xy(double x, double y, double s, double c, double& x2, double& y2);
void vx_rotate_xy_center(double x, double y, double cx, double cy, double s, double c, double& x2,
                         double& y2);

// True when the segment 1-2 crosses the segment 3-4, end points included. Segments whose directions
// are parallel, or so short that the determinant falls below the tolerance, do not cross.
bool vx_is_crossing_xy(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                       double y4);
// The same, and gives the crossing point; x and y are left alone when there is none.
bool vx_cross_xy(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4,
                 double& x, double& y);
