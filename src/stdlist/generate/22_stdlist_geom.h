// Small geometry drawn on the lattice: the perpendicular at a point of a chord, on which the dashes of
// the coordinate labels stand.
#pragma once

#include "services/flat_types.h"

namespace vx::stdlist {

class Tvx_stdlist_geom {
 public:
  // Two points on the perpendicular at b to the line from a to b: p1 at the distance d1 on the left of
  // the direction a to b, p2 at d2 on its right. False, with nothing written, when a and b are closer
  // than traits::delta.
  static bool get_orth(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2& p1, Tvx_vtx_d2& p2, double d1, double d2);
  // The point at the distance d from c on the left of the direction a to b (on its right for a negative
  // d); false, with nothing written, when a and b are closer than traits::delta.
  static bool get_point_on_orth(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2 c, double d, Tvx_vtx_d2& p);
};

}  // namespace vx::stdlist
