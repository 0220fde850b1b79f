// Plane rectangles with a defined flag, and the rectangle with the sums of the points over it.
//
// An undefined rectangle (all zero) stands for "no points yet": uniting ignores it, extending turns it
// into the point, and the tests of inclusion and crossing answer false on it.
#pragma once

#include "geom/line2d.h"
#include "geom/point2d.h"

struct Tvx_rect2d {
  bool defined;
  double xmin;
  double ymin;
  double xmax;
  double ymax;
};

// A rectangle with the sums of x and y and the number of the points it was built from.
struct Tvx_rect2d_ext {
  Tvx_rect2d rect;
  double sum_x;
  double sum_y;
  unsigned int count;
};

// Undefined, all zero.
Tvx_rect2d vx_rect2d();
// Defined, with each pair put in order.
Tvx_rect2d vx_rect2d(double x1, double y1, double x2, double y2);
Tvx_rect2d vx_rect2d(const Tvx_point2d& p, const Tvx_point2d& q);
Tvx_rect2d vx_rect2d(const Tvx_segment2d& s);

// True when undefined, or when the width or the height is below the tolerance.
bool vx_rect2d_is_degenerated(const Tvx_rect2d& r);
// Touching counts as crossing; false if either is undefined.
bool vx_rect2d_is_crossing(const Tvx_rect2d& a, const Tvx_rect2d& b);
// The common part; undefined when there is none.
Tvx_rect2d vx_rect2d_cross(const Tvx_rect2d& a, const Tvx_rect2d& b);
// The smallest rectangle over both; an undefined one is ignored.
Tvx_rect2d vx_rect2d_unite(const Tvx_rect2d& a, const Tvx_rect2d& b);
// Inclusive; false on an undefined rectangle.
bool vx_rect2d_include(const Tvx_rect2d& r, double x, double y);
bool vx_rect2d_include(const Tvx_rect2d& r, const Tvx_point2d& p);
// True when both are defined and s lies in r.
bool vx_rect2d_include(const Tvx_rect2d& r, const Tvx_rect2d& s);
// Grows r over the point; an undefined r becomes that point.
void vx_rect2d_extend(Tvx_rect2d* r, double x, double y);
void vx_rect2d_extend(Tvx_rect2d* r, const Tvx_point2d& p);
// Exact equality of the bounds of two defined rectangles.
bool vx_rect2d_equal(const Tvx_rect2d& a, const Tvx_rect2d& b);
// Moves each edge outwards by d; a negative d that turns the rectangle over leaves it undefined.
void vx_rect2d_add_delta(Tvx_rect2d* r, double d);

Tvx_rect2d_ext vx_rect2d_ext();
// As vx_rect2d_unite, with the sums and counts added.
Tvx_rect2d_ext vx_rect2d_ext_unite(const Tvx_rect2d_ext& a, const Tvx_rect2d_ext& b);
