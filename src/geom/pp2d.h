// The plane point vector: one line or ring, a sequence of vertices held by value, with a bounding
// rectangle, an orientation and sums of the coordinates that are computed on demand.
#pragma once

#include <utility>
#include <vector>

#include "geom/point2d.h"
#include "geom/rect2d.h"

// Orientation of a ring, with x to the right and y upwards. An open line is unknown.
enum Tvx_clock_wise { vx_cw_unknown = 0, vx_cw_clockwise = 1, vx_cw_counter_clockwise = 2 };

class Tvx_pp2d {
 public:
  Tvx_pp2d() = default;

  static void delete_obj(Tvx_pp2d** p);

  // Vertices; indices are not checked, the caller keeps to get_size().
  int get_size() const { return static_cast<int>(points.size()); }
  Tvx_point2d get(int i) const { return points[i]; }
  void set(int i, const Tvx_point2d& p);
  void set_size(int n);
  void clear();
  void assign(const Tvx_pp2d* other);

  void add(const Tvx_point2d& p);
  void add(double x, double y);
  void add(const Tvx_pp2d* other, bool reversed);
  void ins(const Tvx_point2d& p, int i);
  void ins(const Tvx_pp2d* other, int i);
  void del(int i);
  void del(int i, int j);  // kept empty on purpose: removes nothing
  void del_last();
  void sort();
  void reverse();
  void delete_double();

  Tvx_point2d get_first() const;
  Tvx_point2d get_last() const;
  bool is_closed() const;
  bool close();

  Tvx_rect2d get_rect();
  Tvx_rect2d_ext get_rect_and_stat();
  Tvx_clock_wise get_clock_wise();
  bool make_clock_wise(Tvx_clock_wise target);

  double calc_length() const;
  double calc_length(int k) const;
  double calc_trend_angle() const;
  double calc_area() const;
  double calc_signed_area();

  int vtx_at_length(double l, Tvx_point2d& p) const;
  bool split_at_length(double l, Tvx_pp2d* a, Tvx_pp2d* b) const;
  bool include(double x, double y) const;
  bool include(const Tvx_point2d& p) const { return include(p.x, p.y); }

  // New point vectors that the caller owns.
  Tvx_pp2d* make_equal_dist(double step) const;
  Tvx_pp2d* densify(double step) const;
  Tvx_pp2d* make_middle_sides(bool keep_first, bool keep_last) const;
  // Resampled every d (make_equal_dist), smoothed by five rounds of make_middle_sides(true, true),
  // then thinned by chords with the tolerance d.
  Tvx_pp2d* simple_simplify(double d) const;
  // A copy thinned by chords with the tolerance d (Tvx_chord_simplify2d).
  Tvx_pp2d* chord_simplify(double d) const;

 private:
  // A vector built from computed vertices; its state is computed when first asked for.
  explicit Tvx_pp2d(std::vector<Tvx_point2d> pts)
      : rect_dirty(true), ext_dirty(true), points(std::move(pts)) {}

  void assign_points(std::vector<Tvx_point2d> pts);

  void calculate();
  void calculate_ext();
  void mark_dirty() { rect_dirty = ext_dirty = true; }
  double orientation_sum() const;
  Tvx_clock_wise orientation_of(double sum) const;

  bool rect_dirty = false;
  bool ext_dirty = false;
  Tvx_clock_wise clock_wise = vx_cw_unknown;
  Tvx_rect2d rect{false, 0.0, 0.0, 0.0, 0.0};
  Tvx_rect2d_ext ext{{false, 0.0, 0.0, 0.0, 0.0}, 0.0, 0.0, 0u};
  std::vector<Tvx_point2d> points;
};
