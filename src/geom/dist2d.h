// The point of an object nearest to a given point, with where it lies: in which part, and at a vertex
// or on a segment.
#pragma once

#include "geom/op2d.h"

class Tvx_dist2d {
 public:
  // The nearest point of the parts of op to p: in each part the nearest vertex, improved by the foot
  // of a perpendicular wherever that falls within a segment (the ratio along it from 0 to 1, inclusive,
  // and the segment at least as long as the tolerance); over several parts the first with the shortest
  // distance, and in a part the first vertex or segment in a tie. False when op has no vertex (a NaN
  // distance counts as none).
  bool calc(Tvx_op2d* op, const Tvx_point2d& p);
  // The same with vertices alone.
  bool calc_vertex(Tvx_op2d* op, const Tvx_point2d& p);

  Tvx_point2d get_point() const { return point; }
  double get_distance() const { return distance; }
  int get_part() const { return part; }
  // At a vertex, get_idx1() and get_idx2() are its index; on a segment, the indices of its two ends.
  bool is_vertex() const { return vertex; }
  int get_idx1() const { return idx1; }
  int get_idx2() const { return idx2; }

 private:
  bool find(Tvx_op2d* op, const Tvx_point2d& p, bool with_segments);
  void try_vertices(const Tvx_pp2d* pp, int k, const Tvx_point2d& p);
  void try_segments(const Tvx_pp2d* pp, int k, const Tvx_point2d& p);
  void take(const Tvx_point2d& q, double d, int k, int i, int j);

  bool found = false;
  Tvx_point2d point{0.0, 0.0};
  double distance = 0.0;
  int part = -1;
  bool vertex = false;
  int idx1 = -1;
  int idx2 = -1;
};
