#include "geom/arc.h"

#include <algorithm>

Tvx_arc vx_arc() {
  return Tvx_arc{0u, false};
}

Tvx_arc vx_arc(unsigned int index, bool reversed) {
  return Tvx_arc{index, reversed};
}

void vx_arc_reverse(Tvx_arc* arc) {
  arc->reversed = !arc->reversed;
}

void Tvx_p_arc_t::set_size(int n) {
  arcs.resize(n > 0 ? static_cast<std::size_t>(n) : 0, vx_arc());
}

Tvx_arc Tvx_p_arc_t::get(int i) const {
  test_idx(i);
  return arcs[static_cast<std::size_t>(i)];
}

void Tvx_p_arc_t::set(int i, const Tvx_arc& arc) {
  test_idx(i);
  arcs[static_cast<std::size_t>(i)] = arc;
}

void Tvx_p_arc_t::assign(const Tvx_p_arc_t* other) {
  if (other != this) arcs = other->arcs;
}

void Tvx_p_arc_t::test_idx(int i) const {
  if (i < 0 || i >= get_size()) throw 1;
}

void Tvx_p_arc_t::reverse() {
  std::reverse(arcs.begin(), arcs.end());
  for (Tvx_arc& arc : arcs) vx_arc_reverse(&arc);
}
