// The rule of one edge in the even-odd test of a point against a ring, shared by the plain test of the
// point vector and by the banded test of the algorithms: the ray runs from (x, y) towards negative x,
// an edge counts with its lower end only, a point on an edge is on the boundary, no tolerance is used.
#pragma once

#include <algorithm>

#include "geom/point2d.h"

namespace vx::geom {

enum class edge_hit { none, count, boundary };

// The edge from p to q. On equal y, p is taken as the lower end.
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
  return edge_hit::none;  // the upper end at y counts nothing, so a vertex on the ray counts once
}

}  // namespace vx::geom
