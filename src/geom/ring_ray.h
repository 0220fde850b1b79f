// The even-odd test of a point against one edge of a ring, along the ray from the point towards
// negative x, with no tolerance. Tvx_pp2d::include walks a ring's edges with it, the polygon division
// runs it for many points at once, and the banded fast inclusion uses it for the edges of a band.
#pragma once

#include <algorithm>

#include "geom/point2d.h"

namespace vx::geom {

// What one edge contributes: nothing, one crossing of the ray, or the point lies on the edge.
enum class edge_hit { none, count, boundary };

// The edge p-q taken with its lower end l and upper end u by y:
// 1. an edge wholly above or below y counts nothing;
// 2. with y strictly between l.y and u.y the crossing x counts if the point lies east of it, and a
//    point on it is on the boundary;
// 3. a horizontal edge at y holds the point when x lies between its ends, inclusive;
// 4. a lower end at y counts if the point lies east of it, and is the boundary if x equals it; an
//    upper end at y counts nothing, so that a vertex on the ray counts once.
inline edge_hit ray_hit(const Tvx_point2d& p, const Tvx_point2d& q, double x, double y) {
  const Tvx_point2d& lo = p.y <= q.y ? p : q;
  const Tvx_point2d& up = p.y <= q.y ? q : p;
  if (up.y < y || lo.y > y) return edge_hit::none;
  if (lo.y < y && y < up.y) {
    const double xc = lo.x + (y - lo.y) * (up.x - lo.x) / (up.y - lo.y);
    if (x == xc) return edge_hit::boundary;
    return x > xc ? edge_hit::count : edge_hit::none;
  }
  if (lo.y == up.y) {  // horizontal at y
    const bool between = x >= std::min(lo.x, up.x) && x <= std::max(lo.x, up.x);
    return between ? edge_hit::boundary : edge_hit::none;
  }
  if (lo.y == y) {
    if (x == lo.x) return edge_hit::boundary;
    return x > lo.x ? edge_hit::count : edge_hit::none;
  }
  return edge_hit::none;
}

}  // namespace vx::geom
