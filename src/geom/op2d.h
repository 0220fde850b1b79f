// The plane object: the parts of one record, as a list of owned point vectors (the parts of a polyline
// or the rings of a polygon), with a caller's type code and a caller's pointer.
#pragma once

#include <memory>
#include <vector>

#include "geom/pp2d.h"

class Tvx_ap2d;

class Tvx_op2d {
 public:
  // The type code of a new object: all bits set.
  static constexpr unsigned int NO_VECTOR_TYPE = 0xFFFFFFFFu;

  Tvx_op2d() = default;
  Tvx_op2d(const Tvx_op2d&) = delete;
  Tvx_op2d& operator=(const Tvx_op2d&) = delete;

  static void delete_obj(Tvx_op2d** p);

  // Parts; indices are not checked. A part stays owned by the object.
  int get_size() const { return static_cast<int>(parts.size()); }
  Tvx_pp2d* get(int i) const { return parts[i].get(); }
  // Shrinking frees the surplus parts, growing appends empty ones.
  void set_size(int n);
  void clear() { parts.clear(); }
  // Deep copy of the parts, the type code and the caller's pointer.
  void assign(const Tvx_op2d* other);
  Tvx_pp2d* add();
  Tvx_pp2d* ins(int i);
  void del(int i);
  void del_empty();
  Tvx_pp2d* add_copy(const Tvx_pp2d* pp);
  void add_copy(const Tvx_op2d* op);
  void add_copy(const Tvx_ap2d* ap);

  unsigned int get_vector_type() const { return vector_type; }
  void set_vector_type(unsigned int n) { vector_type = n; }
  void* get_attached() const { return attached; }
  void set_attached(void* p) { attached = p; }

  Tvx_rect2d get_rect();
  Tvx_rect2d_ext get_rect_ext();
  int get_pnt_count() const;
  bool is_closed() const;
  bool close();
  // Even-odd over the parts: a point in a hole is outside, a point on a boundary inside.
  bool include(double x, double y);
  bool include(const Tvx_point2d& p) { return include(p.x, p.y); }
  // The sum of the parts' signed areas, so that a hole turned against its ring subtracts itself.
  double calc_area();
  // Means of the coordinates over all vertices of all parts; NaN when there are none.
  double get_x_mean();
  double get_y_mean();

  // Turns the object into its outer rings, each followed by its holes, the outer rings clockwise and
  // the holes counter-clockwise, through the polygon division (geom/pgn_divide.h); the rings that the
  // division drops (open, short, of no area, with NaN) are gone. False, with the object as it was,
  // when the division fails.
  bool orient();

  // Reference points, one for each kind of object, for a label or a symbol. Each is false, with *p
  // untouched, when the object's rectangle is undefined (no vertices).
  // A point object: the vertex nearest to the middle of the rectangle, the first in a tie.
  bool calc_pnt_refpnt(Tvx_point2d* p);
  // A line object: the point of the lines nearest to the middle of the rectangle (geom/dist2d.h).
  bool calc_pln_refpnt(Tvx_point2d* p);
  // A polygon object: an inside point of its largest polygon (geom/centroid2d.h); where there is none
  // (no height, a sliver between the scan lines, no ring that the division keeps), the middle of the
  // rectangle, which may lie outside.
  bool calc_pgn_refpnt(Tvx_point2d* p);

 private:
  std::vector<std::unique_ptr<Tvx_pp2d>> parts;
  unsigned int vector_type = NO_VECTOR_TYPE;
  void* attached = nullptr;
};
