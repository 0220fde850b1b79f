// Thinning of a line by chords: the end vertices stay, and then, level by level, the vertex farthest
// from the chord of each stretch, as long as it lies beyond the tolerance. The stretches wait in a
// queue, so that the work is breadth-first and the depth of the line does not matter.
//
// Distances are measured to the infinite line through the chord, not clamped to it. A chord shorter
// than 1e-3 (squared length below 1e-06) has no direction, and the distance is then to the nearer of
// its ends: a closed ring is split at the vertex farthest from its start. A vertex whose distance is
// NaN never counts; a NaN tolerance leaves the line as it is.
#pragma once

#include "algo/num_vec.h"

class Tvx_pp2d;
class Tvx_op2d;

class Tvx_chord_simplify2d {
 public:
  Tvx_chord_simplify2d() = default;
  Tvx_chord_simplify2d(const Tvx_chord_simplify2d&) = delete;
  Tvx_chord_simplify2d& operator=(const Tvx_chord_simplify2d&) = delete;
  virtual ~Tvx_chord_simplify2d() = default;

  // Simplifies the line in place; true when its vertices changed.
  bool simplify(Tvx_pp2d* line, double tolerance);
  // Each part in turn; always false, even when vertices went.
  bool simplify(Tvx_op2d* object, double tolerance);
  // As simplify, with an object made for the call; false also if anything was thrown.
  static bool execute(Tvx_pp2d* line, double tolerance);
  // One object for all parts; always false.
  static bool execute(Tvx_op2d* object, double tolerance);
  static void delete_obj(Tvx_chord_simplify2d** p);

  // The steps of simplify, on the line it was last given (nothing without one).
  //
  // The vertex strictly between first and last farthest from their chord and beyond the tolerance;
  // of equal distances the first. False when there is none.
  bool find_max_dist(unsigned first, unsigned last, unsigned& index) const;
  // Fills the kept indices, walking the queue of stretches from (0, n - 1).
  void main_cycle();
  // Moves the kept vertices to the front of the line and cuts it; true when a vertex moved.
  bool make_new_pp();

 private:
  Tvx_pp2d* line = nullptr;  // not owned
  double tolerance = 0.0;
  double squared_tolerance = 0.0;
  Tvx_uint_vec kept;
  Tvx_uint_vec starts;
  Tvx_uint_vec ends;
};
