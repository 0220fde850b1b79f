// Small geometry drawn on the lattice: the perpendicular at a point of a chord, on which the dashes of
// the coordinate labels stand, and the cutting of a frame side round the name of a neighbour.
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
  // Cuts the line into a first piece, a middle piece `length` long about the line's middle, and a last
  // piece. The last piece is cut at twice the line's length, beyond its end, so it takes every vertex
  // up to the last.
  static void cut_into3(const Tvx_pp2d* line, double length, Tvx_pp2d* first, Tvx_pp2d* middle,
                        Tvx_pp2d* last);
};

class Tvx_stdlist_geom_exec {
 public:
  // The stretch of the line from the length l1 to the length l2 along it: the cut points interpolated
  // in the segments where they fall, and every vertex whose length lies between them. A cut on a vertex
  // gives that point twice (or three times), as it falls; a line of fewer than two vertices gives
  // nothing.
  static void cut_l12(const Tvx_pp2d* line, double l1, double l2, Tvx_pp2d* out);
};

}  // namespace vx::stdlist
