// Walks along a line of vertices that the plane and the spatial point vectors share. P is the point
// type (Tvx_point2d or Tvx_point3d); the distance, the step along a segment and the midpoint come as
// functions so that each family keeps its own metric and tolerance.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace vx::geom {

// A ring: at least 3 vertices and the last exactly equal to the first.
template <class P>
bool is_ring(const std::vector<P>& pts) {
  return pts.size() >= 3 && pts.front() == pts.back();
}

// Vertices dropped every `step` of length, starting at the first vertex. A stretch shorter than `step`
// at the end is dropped; the input vertices themselves do not survive. A closed source gives a closed
// result when there are at least 2 vertices to close. `step` must be above `delta`.
template <class P, class Dist, class Along>
std::vector<P> equal_dist(const std::vector<P>& src, double step, double delta, Dist dist, Along along) {
  std::vector<P> out;
  if (src.empty()) return out;
  out.push_back(src.front());
  double rest = step;
  for (std::size_t i = 1; i < src.size(); ++i) {
    const P& a = src[i - 1];
    const P& b = src[i];
    const double d = dist(a, b);
    if (!std::isfinite(d)) continue;  // a vertex at infinity: no length to walk
    if (d < rest) {
      rest -= d;
      continue;
    }
    if (d <= delta) {
      out.push_back(b);
      rest = step;
      continue;
    }
    double at = rest;
    out.push_back(along(a, b, at));
    while (d - at >= step) {
      at += step;
      out.push_back(along(a, b, at));
    }
    rest = step - (d - at);
  }
  if (is_ring(src) && out.size() >= 2 && !is_ring(out)) out.push_back(out.front());
  return out;
}

// The midpoints of the segments in order, between the first vertex (if keep_first) and the last (if
// keep_last). With fewer than 2 vertices: the first vertex, a zero point if there is none, when either
// flag is set; nothing otherwise.
template <class P, class Middle>
std::vector<P> middle_sides(const std::vector<P>& src, bool keep_first, bool keep_last, Middle middle) {
  std::vector<P> out;
  if (src.size() < 2) {
    if (keep_first || keep_last) out.push_back(src.empty() ? P{} : src.front());
    return out;
  }
  out.reserve(src.size() + 1);
  if (keep_first) out.push_back(src.front());
  for (std::size_t i = 1; i < src.size(); ++i) out.push_back(middle(src[i - 1], src[i]));
  if (keep_last) out.push_back(src.back());
  return out;
}

}  // namespace vx::geom
