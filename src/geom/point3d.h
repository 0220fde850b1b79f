// Spatial points, segments and boxes, with the free functions on them: the twins of the plane types.
// Heights travel with the vertices; the reprojection moves x and y and leaves z alone.
#pragma once

// The tolerance of the spatial geometry. It equals the plane one but is a value of its own.
class Tvx_geom3d_func {
 public:
  static constexpr double f_delta = 1e-06;

  static double get_delta() { return f_delta; }
  // True when the magnitude of v is strictly below the tolerance.
  static bool abs_lt_delta(double v) { return v < f_delta && v > -f_delta; }
};

struct Tvx_point3d {
  double x;
  double y;
  double z;

  // Ordered by x, then y, then z.
  bool operator<(const Tvx_point3d& o) const {
    if (x != o.x) return x < o.x;
    if (y != o.y) return y < o.y;
    return z < o.z;
  }
  bool operator>(const Tvx_point3d& o) const { return o < *this; }
};

struct Tvx_segment3d {
  double x1;
  double y1;
  double z1;
  double x2;
  double y2;
  double z2;
};

struct Tvx_rect3d {
  bool defined;
  double xmin;
  double ymin;
  double zmin;
  double xmax;
  double ymax;
  double zmax;
};

Tvx_point3d vx_point3d();
Tvx_point3d vx_point3d(double x, double y, double z);
// Exact comparison of the three coordinates.
bool vx_point3d_equal(const Tvx_point3d& a, const Tvx_point3d& b);
bool operator==(const Tvx_point3d& a, const Tvx_point3d& b);
bool operator!=(const Tvx_point3d& a, const Tvx_point3d& b);
// -1, 0 or 1, by x, then y, then z.
int vx_point3d_compare(const Tvx_point3d& a, const Tvx_point3d& b);
Tvx_point3d vx_point3d_middle(const Tvx_point3d& a, const Tvx_point3d& b);
// The point at the distance d from a towards b; b when they are nearer than the spatial tolerance.
Tvx_point3d vx_point3d_alongway(const Tvx_point3d& a, const Tvx_point3d& b, double d);
double vx_distance(double x1, double y1, double z1, double x2, double y2, double z2);
double vx_distance(const Tvx_point3d& a, const Tvx_point3d& b);

Tvx_segment3d vx_segment3d();
Tvx_segment3d vx_segment3d(double x1, double y1, double z1, double x2, double y2, double z2);
Tvx_segment3d vx_segment3d(const Tvx_point3d& p, const Tvx_point3d& q);

// Undefined, all zero.
Tvx_rect3d vx_rect3d();
// Defined, with each pair put in order.
Tvx_rect3d vx_rect3d(double x1, double y1, double z1, double x2, double y2, double z2);
Tvx_rect3d vx_rect3d(const Tvx_point3d& p, const Tvx_point3d& q);
Tvx_rect3d vx_rect3d(const Tvx_segment3d& s);
// Undefined, or an extent below the plane geometry's tolerance.
bool vx_rect3d_is_degenerated(const Tvx_rect3d& r);
// The common part; undefined when there is none (touching boxes share a face, edge or corner).
Tvx_rect3d vx_rect3d_cross(const Tvx_rect3d& a, const Tvx_rect3d& b);
// The smallest box over both; an undefined one is ignored.
Tvx_rect3d vx_rect3d_unite(const Tvx_rect3d& a, const Tvx_rect3d& b);
// Inclusive; false on an undefined box.
bool vx_rect3d_include(const Tvx_rect3d& r, double x, double y, double z);
bool vx_rect3d_include(const Tvx_rect3d& r, const Tvx_point3d& p);
// True when both are defined and two opposite corners of s lie in r.
bool vx_rect3d_include(const Tvx_rect3d& r, const Tvx_rect3d& s);
// Grows r over the point; an undefined r becomes that point.
void vx_rect3d_extend(Tvx_rect3d* r, double x, double y, double z);
void vx_rect3d_extend(Tvx_rect3d* r, const Tvx_point3d& p);
