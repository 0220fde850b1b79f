// The spatial point vector: a line or ring of vertices with z, held by value, with a bounding box
// that is computed on demand. Leaner than the plane one: no orientation, area or point location.
#pragma once

#include <utility>
#include <vector>

#include "geom/point3d.h"

class Tvx_pp3d {
 public:
  Tvx_pp3d() = default;

  static void delete_obj(Tvx_pp3d** p);

  // Vertices; indices are not checked, the caller keeps to get_size().
  int get_size() const { return static_cast<int>(points.size()); }
  Tvx_point3d get(int i) const { return points[i]; }
  void set(int i, const Tvx_point3d& p);
  double get_x(int i) const { return points[i].x; }
  double get_y(int i) const { return points[i].y; }
  double get_z(int i) const { return points[i].z; }
  void set_x(int i, double v);
  void set_y(int i, double v);
  void set_z(int i, double v);
  void set_size(int n);
  void clear();
  void assign(const Tvx_pp3d* other);

  Tvx_rect3d get_rect();
  Tvx_point3d get_first() const;
  Tvx_point3d get_last() const;

  void add(const Tvx_point3d& p);
  void add(const Tvx_segment3d& s);
  void add(const Tvx_pp3d* other, bool reversed);
  void sort();
  void reverse();
  // Removes each vertex equal to the vertex kept before it in x, y and z; the box is left as it was.
  void delete_double();
  // Drops the last vertex; the box is left as it was.
  void del_last();
  bool is_closed() const;
  bool close();
  double calc_length() const;

  // New point vectors that the caller owns.
  Tvx_pp3d* make_equal_dist(double step) const;
  Tvx_pp3d* make_middle_sides(bool keep_first, bool keep_last) const;

 private:
  // A vector built from computed vertices; its box is computed when first asked for.
  explicit Tvx_pp3d(std::vector<Tvx_point3d> pts) : dirty(true), points(std::move(pts)) {}

  void calculate();

  bool dirty = false;
  Tvx_rect3d rect{false, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
  std::vector<Tvx_point3d> points;
};
