// Rings for the tests of the polygon division, the inside points and the probe of the GDAL checks.
#pragma once

#include <cmath>
#include <vector>

#include "geom/op2d.h"

namespace vxk_test {

using ring = std::vector<Tvx_point2d>;

// A closed axis-parallel rectangle, clockwise (y upwards) or counter-clockwise, from its lower left
// corner.
inline ring box(double x0, double y0, double x1, double y1, bool cw = true) {
  if (cw) return {{x0, y0}, {x0, y1}, {x1, y1}, {x1, y0}, {x0, y0}};
  return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}};
}

// A closed regular polygon of n corners about (cx, cy), clockwise or not, starting at angle a0.
inline ring regular(double cx, double cy, double r, int n, bool cw = true, double a0 = 0.0) {
  ring out;
  for (int i = 0; i < n; ++i) {
    const double a = a0 + (cw ? -1.0 : 1.0) * 2.0 * M_PI * i / n;
    out.push_back({cx + r * std::cos(a), cy + r * std::sin(a)});
  }
  out.push_back(out.front());
  return out;
}

inline ring reversed(ring r) {
  return ring(r.rbegin(), r.rend());
}

inline Tvx_pp2d* add_ring(Tvx_op2d* op, const ring& r) {
  Tvx_pp2d* pp = op->add();
  for (const Tvx_point2d& p : r) pp->add(p.x, p.y);
  return pp;
}

inline ring vertices(const Tvx_pp2d* pp) {
  ring out;
  for (int i = 0; i < pp->get_size(); ++i) out.push_back(pp->get(i));
  return out;
}

}  // namespace vxk_test
