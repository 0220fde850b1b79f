// Arcs: a record, parallel to the output of the polygon division, of where each output ring came from.
// An arc names a ring of the input object by its index and tells whether the ring was turned round.
// The three lists mirror the geometry's levels: arcs of one ring (Tvx_p_arc_t), rings of one object
// (Tvx_o_arc_t), objects of the whole output (Tvx_a_arc).
//
// Every access by index is checked: an index outside a list throws the int 1.
#pragma once

#include <memory>
#include <vector>

#include "geom/owned_list.h"

struct Tvx_arc {
  unsigned int index;
  bool reversed;
};

Tvx_arc vx_arc();
Tvx_arc vx_arc(unsigned int index, bool reversed);
// Turns the arc round: flips its reversed flag.
void vx_arc_reverse(Tvx_arc* arc);

// The arcs of one ring, by value.
class Tvx_p_arc_t {
 public:
  int get_size() const { return static_cast<int>(arcs.size()); }
  void set_size(int n);
  Tvx_arc get(int i) const;
  void set(int i, const Tvx_arc& arc);
  void clear() { arcs.clear(); }
  void assign(const Tvx_p_arc_t* other);
  void add(const Tvx_arc& arc) { arcs.push_back(arc); }
  // Throws 1 when i is not an index of the list.
  void test_idx(int i) const;
  // Turns the order of the arcs round, and each arc with it.
  void reverse();

 private:
  std::vector<Tvx_arc> arcs;
};

namespace vx::geom {

// A list of owned lists of arcs, the shape of both upper levels.
template <class T>
class owned_arc_list {
 public:
  owned_arc_list() = default;
  owned_arc_list(const owned_arc_list&) = delete;
  owned_arc_list& operator=(const owned_arc_list&) = delete;

  int get_size() const { return static_cast<int>(items.size()); }
  // Shrinking frees the surplus items, growing appends empty ones.
  void set_size(int n) { resize_owned(items, n); }
  // The item stays owned by the list.
  T* get(int i) const {
    test_idx(i);
    return items[static_cast<std::size_t>(i)].get();
  }
  void clear() { items.clear(); }
  // Deep copy.
  void assign(const owned_arc_list* other) {
    if (other == this) return;
    set_size(other->get_size());
    for (int i = 0; i < get_size(); ++i) get(i)->assign(other->get(i));
  }
  // Appends a new empty item and returns it.
  T* add() {
    items.push_back(std::make_unique<T>());
    return items.back().get();
  }
  void test_idx(int i) const {
    if (i < 0 || i >= get_size()) throw 1;
  }

 private:
  std::vector<std::unique_ptr<T>> items;
};

}  // namespace vx::geom

// The rings of one output object.
using Tvx_o_arc_t = vx::geom::owned_arc_list<Tvx_p_arc_t>;
// The objects of the whole output.
using Tvx_a_arc = vx::geom::owned_arc_list<Tvx_o_arc_t>;
