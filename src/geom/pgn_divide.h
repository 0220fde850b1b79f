// The polygon division: the rings of one polygon record, a flat list with nothing to say which ring is
// an outer boundary and which a hole, become one object for each outer ring, holding that ring and its
// holes, the outer ring clockwise and the holes counter-clockwise.
//
// The rule is nesting alone, not the rings' orientation: a ring that lies in an even number of other
// rings is an outer ring, in an odd number a hole, so that an island in a lake is an outer ring of its
// own. A hole goes to the smallest outer ring that holds it. The output objects come in rising order
// of their outer rings' areas, each with its outer ring first and then its holes from the largest to
// the smallest. Beside the geometry the division can give arcs (geom/arc.h): for each output ring the
// index of the input ring it copies and whether it was turned round.
//
// What becomes of odd rings:
// - an open ring, a ring of fewer than 3 vertices and a closed ring of no area (fewer than three
//   distinct vertices, a line out and back) are dropped without a word;
// - a ring with a NaN coordinate has a NaN area and is dropped the same way;
// - a self-touching or self-crossing ring takes part by its even-odd area and its vertices;
// - two identical rings, or two with the same vertices in another order, do not contain each other
//   (their areas are equal) and both become outer rings;
// - a hole alone, with no ring round it, is an outer ring and is turned clockwise;
// - rings that touch at vertices are judged by a vertex they do not share; a vertex on the other
//   ring's edge counts as inside it.
// Rings of equal area keep their input order among themselves.
//
// The work is bounded. Rings far apart are never compared, so that a record of a million separate
// rings is divided in n log n. Rings that do nest are tested with one pass over the outer ring's edges
// for all the rings within it. Only a pathological record (thousands of rings nested in one another,
// or thousands with the same rectangle) needs more than WORK_LIMIT steps of comparison: its division
// stops with the result 1, as on any failure, and nothing is appended to the output.
#pragma once

#include <memory>
#include <vector>

#include "geom/ap2d.h"
#include "geom/arc.h"
#include "geom/op2d.h"

// What the division knows of one ring.
class Tvx_pp2d_div_attr {
 public:
  unsigned int get_index() const { return index; }
  void set_index(unsigned int v) { index = v; }
  bool get_used() const { return used; }
  void set_used(bool v) { used = v; }
  double get_square() const { return square; }
  void set_square(double v) { square = v; }
  Tvx_pp2d* get_pp_ptr() const { return pp; }
  void set_pp_ptr(Tvx_pp2d* v) { pp = v; }

  // The number of other rings that contain this one.
  void inside_set_zero() { inside = 0; }
  unsigned int get_inside() const { return inside; }
  void add_inside() { ++inside; }
  // A ring inside an odd number of rings is a hole.
  bool is_hole() const { return inside % 2 == 1; }

  // Positions, in the sorted attribute vector, of the rings that this one contains; not checked.
  void include_clear() { include.clear(); }
  void add_include(unsigned int pos) { include.push_back(pos); }
  unsigned int get_include_size() const { return static_cast<unsigned int>(include.size()); }
  unsigned int get_include(unsigned int i) const { return include[i]; }

  // True when ring b lies in ring a: the first vertex of b that is not a vertex of a decides, by
  // Tvx_pp2d::include of a (the boundary counts as inside); if every vertex of b is a vertex of a, b
  // does not lie in a.
  static bool pp_include_pp(const Tvx_pp2d* a, const Tvx_pp2d* b);
  // The same for other's ring in this ring, after two quick refusals: this ring's area must be
  // strictly greater, and other's rectangle must lie in this one's, edges included.
  bool include_pp2d_div_attr(const Tvx_pp2d_div_attr* other) const;

 private:
  unsigned int index = 0;
  bool used = false;
  double square = 0.0;
  Tvx_pp2d* pp = nullptr;
  unsigned int inside = 0;
  std::vector<unsigned int> include;
};

// Smaller area first.
bool vx_pp2d_div_attr_ptr_less(const Tvx_pp2d_div_attr* a, const Tvx_pp2d_div_attr* b);

// The attributes of all rings, owned.
class Tvx_pp2d_div_attr_vec {
 public:
  int get_size() const { return static_cast<int>(items.size()); }
  // Shrinking frees the surplus attributes, growing appends empty ones.
  void set_size(int n);
  Tvx_pp2d_div_attr* get(int i) const { return items[static_cast<std::size_t>(i)].get(); }
  // Appends a new empty attribute and returns it.
  Tvx_pp2d_div_attr* add();
  void clear() { items.clear(); }
  // Smallest ring first; rings of equal area keep their order.
  void sort();

 private:
  std::vector<std::unique_ptr<Tvx_pp2d_div_attr>> items;
};

// The engine of one division.
class Tvx_op2d_divide_exe {
 public:
  // Steps of comparison that one division may take; see the head of this file.
  static constexpr unsigned long long WORK_LIMIT = 1ull << 24;

  Tvx_op2d_divide_exe();
  ~Tvx_op2d_divide_exe();
  Tvx_op2d_divide_exe(const Tvx_op2d_divide_exe&) = delete;
  Tvx_op2d_divide_exe& operator=(const Tvx_op2d_divide_exe&) = delete;

  // Appends the division of source to result, and the arcs to arcs unless that is null. Gives 0; a
  // failure leaves by an exception (the int 1 when the work limit is reached).
  int execute(Tvx_op2d* source, Tvx_ap2d* result, Tvx_a_arc* arcs);

  // The attributes of the last division, smallest ring first, for a look at how it went.
  const Tvx_pp2d_div_attr_vec* get_attr_vec() const { return attrs.get(); }

 private:
  void fill_vec();
  void proc_vec();
  void divd_vec();
  void add_ring(Tvx_op2d* object, Tvx_o_arc_t* object_arcs, Tvx_pp2d_div_attr* ring, Tvx_clock_wise keep);

  Tvx_op2d* source = nullptr;
  Tvx_ap2d* result = nullptr;
  Tvx_a_arc* arcs = nullptr;
  std::unique_ptr<Tvx_pp2d_div_attr_vec> attrs;
};

class Tvx_op2d_pgn_divide {
 public:
  // Appends to result one object for each outer ring of source. Gives 0, or 1 when the division
  // failed (an exception left it, the work limit was reached, or an argument is null); the objects
  // appended before a failure stay. Neither result nor arcs is cleared first.
  static int execute(Tvx_op2d* source, Tvx_ap2d* result);
  // The same, filling arcs as well.
  static int execute_with_arcs(Tvx_op2d* source, Tvx_ap2d* result, Tvx_a_arc* arcs);
};
