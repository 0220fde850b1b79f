#include "stdlist/generate/22_stdlist_geom.h"

#include <cmath>

#include "stdlist/traits.h"

namespace vx::stdlist {

namespace {

// The unit direction from a to b; false when there is none to speak of.
bool direction(Tvx_vtx_d2 a, Tvx_vtx_d2 b, double& ux, double& uy) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double len = std::hypot(dx, dy);
  if (traits::delta > len) return false;
  ux = dx / len;
  uy = dy / len;
  return true;
}

}  // namespace

bool Tvx_stdlist_geom::get_orth(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2& p1, Tvx_vtx_d2& p2, double d1,
                                double d2) {
  double ux = 0.0, uy = 0.0;
  if (!direction(a, b, ux, uy)) return false;
  p1 = Tvx_vtx_d2{b.x - uy * d1, b.y + ux * d1};
  p2 = Tvx_vtx_d2{b.x + uy * d2, b.y - ux * d2};
  return true;
}

bool Tvx_stdlist_geom::get_point_on_orth(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2 c, double d, Tvx_vtx_d2& p) {
  double ux = 0.0, uy = 0.0;
  if (!direction(a, b, ux, uy)) return false;
  p = Tvx_vtx_d2{c.x - uy * d, c.y + ux * d};
  return true;
}

}  // namespace vx::stdlist
