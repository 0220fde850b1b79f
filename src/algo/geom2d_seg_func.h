// Conversions between a sampled function (Tvx_segment_func) and plane point vectors, x being the
// variable and y the value.
#pragma once

class Tvx_segment_func;
class Tvx_pp2d;
class Tvx_op2d;

class Tvx_geom2d_seg_func {
 public:
  // The defined samples in order; the points on both sides of a gap simply follow each other.
  static void func2pp(Tvx_segment_func* func, Tvx_pp2d* pp);
  // Each run of defined samples as a part of its own; an undefined sample ends a part.
  static void func2op(Tvx_segment_func* func, Tvx_op2d* op);
  // A defined sample for each vertex; of vertices with the same x the last y stays.
  static void pp2func(const Tvx_pp2d* pp, Tvx_segment_func* func);
  // The parts taken from left to right by the x of their first vertex, whatever their order in the
  // object. With gaps, each vertex of a later part whose x differs from the x of the last vertex of the
  // part before adds first an undefined sample halfway between the two, which a defined sample at the
  // same x overrides; so every vertex of a later part, not only its first, makes such a midpoint.
  // Without gaps the parts flow into one function.
  static void op2func(const Tvx_op2d* op, Tvx_segment_func* func, bool gaps);
};
