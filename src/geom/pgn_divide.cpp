#include "geom/pgn_divide.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "geom/corner_index.h"
#include "geom/owned_list.h"
#include "geom/ring_ray.h"

namespace {

// Counts the steps of comparison of one division and stops it when they run out.
class work_meter {
 public:
  void spend(unsigned long long n) {
    used += n;
    if (used > Tvx_op2d_divide_exe::WORK_LIMIT) throw 1;
  }

 private:
  unsigned long long used = 0;
};

// Finds the first vertex of ring b for which is_vertex_of_a is false; false when there is none.
template <class Pred>
bool first_vertex_not_in(const Tvx_pp2d* b, Pred&& is_vertex_of_a, Tvx_point2d& out) {
  for (int i = 0; i < b->get_size(); ++i) {
    const Tvx_point2d p = b->get(i);
    if (is_vertex_of_a(p)) continue;
    out = p;
    return true;
  }
  return false;
}

// Decides, for one outer ring at a time, which of the rings whose rectangles lie within its rectangle
// lie in it, by the rule of include_pp2d_div_attr; its buffers serve every outer ring in turn.
class containment {
 public:
  containment(const Tvx_pp2d_div_attr_vec& attrs, const std::vector<Tvx_rect2d>& rects, work_meter& meter)
      : attrs(attrs), rects(rects), meter(meter) {}

  // The positions in `within` of the rings that lie in `outer`, by descending position.
  const std::vector<unsigned int>& held(const Tvx_pp2d* outer, const std::vector<unsigned int>& within);

 private:
  void collect_shared(const Tvx_pp2d* outer, const std::vector<unsigned int>& within);
  bool is_shared(const Tvx_point2d& p);
  void include_all(const Tvx_pp2d* outer);

  const Tvx_pp2d_div_attr_vec& attrs;
  const std::vector<Tvx_rect2d>& rects;
  work_meter& meter;
  std::vector<Tvx_point2d> shared;   // the outer ring's vertices that an inner ring may share, sorted
  std::vector<Tvx_point2d> probes;   // the deciding vertex of each inner ring ...
  std::vector<unsigned int> owners;  // ... and the ring's position
  std::vector<std::uint32_t> by_y;   // the probes in rising y
  std::vector<double> ys;
  std::vector<char> odd, on_edge;
  std::vector<unsigned int> inner;
};

const std::vector<unsigned int>& containment::held(const Tvx_pp2d* outer,
                                                   const std::vector<unsigned int>& within) {
  collect_shared(outer, within);
  probes.clear();
  owners.clear();
  for (unsigned int b : within) {
    Tvx_point2d p = vx_point2d();
    const auto shared_with_outer = [this](const Tvx_point2d& v) { return is_shared(v); };
    if (!first_vertex_not_in(attrs.get(static_cast<int>(b))->get_pp_ptr(), shared_with_outer, p)) continue;
    probes.push_back(p);
    owners.push_back(b);
  }
  include_all(outer);
  inner.clear();
  for (std::size_t k = 0; k < owners.size(); ++k)
    if (odd[k]) inner.push_back(owners[k]);
  std::sort(inner.rbegin(), inner.rend());
  return inner;
}

// A vertex of an inner ring lies in that ring's rectangle, so only the outer ring's vertices within
// the union of those rectangles can be shared. Exact comparison: the rings here have no NaN, since a
// NaN makes a ring's area NaN and drops it.
void containment::collect_shared(const Tvx_pp2d* outer, const std::vector<unsigned int>& within) {
  Tvx_rect2d box = vx_rect2d();
  for (unsigned int b : within) box = vx_rect2d_unite(box, rects[b]);
  shared.clear();
  for (int i = 0; i < outer->get_size(); ++i)
    if (vx_rect2d_include(box, outer->get(i))) shared.push_back(outer->get(i));
  std::sort(shared.begin(), shared.end());
}

bool containment::is_shared(const Tvx_point2d& p) {
  meter.spend(1);
  return std::binary_search(shared.begin(), shared.end(), p);
}

// Tvx_pp2d::include of every probe in the outer ring, for all probes in one pass over the ring's edges:
// an edge looks only at the probes whose y lies within its own span, the only ones it can count for.
void containment::include_all(const Tvx_pp2d* outer) {
  const std::size_t n = probes.size();
  meter.spend(n);  // sorting the probes
  by_y.resize(n);
  std::iota(by_y.begin(), by_y.end(), 0u);
  std::sort(by_y.begin(), by_y.end(),
            [this](std::uint32_t a, std::uint32_t b) { return probes[a].y < probes[b].y; });
  ys.resize(n);
  for (std::size_t k = 0; k < n; ++k) ys[k] = probes[by_y[k]].y;
  odd.assign(n, 0);
  on_edge.assign(n, 0);
  if (n == 0) return;
  for (int i = 1; i < outer->get_size(); ++i) {
    const Tvx_point2d p = outer->get(i - 1), q = outer->get(i);
    const double lo = std::min(p.y, q.y), hi = std::max(p.y, q.y);
    if (hi < ys.front() || lo > ys.back()) continue;
    const auto first = std::lower_bound(ys.begin(), ys.end(), lo);
    const auto last = std::upper_bound(first, ys.end(), hi);
    meter.spend(static_cast<unsigned long long>(last - first));
    for (auto k = first; k != last; ++k) {
      const std::uint32_t j = by_y[static_cast<std::size_t>(k - ys.begin())];
      const vx::geom::edge_hit hit = vx::geom::ray_hit(p, q, probes[j].x, probes[j].y);
      if (hit == vx::geom::edge_hit::boundary) on_edge[j] = 1;
      if (hit == vx::geom::edge_hit::count) odd[j] = !odd[j];
    }
  }
  for (std::size_t j = 0; j < n; ++j) odd[j] = odd[j] || on_edge[j];
}

}  // namespace

bool Tvx_pp2d_div_attr::pp_include_pp(const Tvx_pp2d* a, const Tvx_pp2d* b) {
  const auto is_vertex_of_a = [a](const Tvx_point2d& p) {
    for (int i = 0; i < a->get_size(); ++i)
      if (a->get(i) == p) return true;
    return false;
  };
  Tvx_point2d p = vx_point2d();
  return first_vertex_not_in(b, is_vertex_of_a, p) && a->include(p);
}

bool Tvx_pp2d_div_attr::include_pp2d_div_attr(const Tvx_pp2d_div_attr* other) const {
  if (!(square > other->square)) return false;
  if (!vx_rect2d_include(pp->get_rect(), other->pp->get_rect())) return false;
  return pp_include_pp(pp, other->pp);
}

bool vx_pp2d_div_attr_ptr_less(const Tvx_pp2d_div_attr* a, const Tvx_pp2d_div_attr* b) {
  return a->get_square() < b->get_square();
}

void Tvx_pp2d_div_attr_vec::set_size(int n) {
  vx::geom::resize_owned(items, n);
}

Tvx_pp2d_div_attr* Tvx_pp2d_div_attr_vec::add() {
  items.push_back(std::make_unique<Tvx_pp2d_div_attr>());
  return items.back().get();
}

void Tvx_pp2d_div_attr_vec::sort() {
  std::stable_sort(items.begin(), items.end(),
                   [](const auto& a, const auto& b) { return vx_pp2d_div_attr_ptr_less(a.get(), b.get()); });
}

Tvx_op2d_divide_exe::Tvx_op2d_divide_exe() : attrs(std::make_unique<Tvx_pp2d_div_attr_vec>()) {}

Tvx_op2d_divide_exe::~Tvx_op2d_divide_exe() = default;

int Tvx_op2d_divide_exe::execute(Tvx_op2d* src, Tvx_ap2d* res, Tvx_a_arc* arc_list) {
  source = src;
  result = res;
  arcs = arc_list;
  fill_vec();
  proc_vec();
  divd_vec();
  return 0;
}

// One attribute for each closed ring of some area, smallest first.
void Tvx_op2d_divide_exe::fill_vec() {
  attrs->clear();
  for (int i = 0; i < source->get_size(); ++i) {
    Tvx_pp2d* pp = source->get(i);
    if (!pp->is_closed()) continue;
    const double area = pp->calc_area();
    if (!(area > 0.0)) continue;
    Tvx_pp2d_div_attr* attr = attrs->add();
    attr->set_index(static_cast<unsigned int>(i));
    attr->set_pp_ptr(pp);
    attr->set_square(area);
  }
  attrs->sort();
}

// Every ring learns the rings it contains (by descending position) and counts the rings it lies in:
// the relation of include_pp2d_div_attr over all pairs. Only the rings whose rectangles lie within a
// ring's rectangle are looked at, and all of them are tested against that ring in one pass.
void Tvx_op2d_divide_exe::proc_vec() {
  const int n = attrs->get_size();
  std::vector<Tvx_rect2d> rects(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) rects[i] = attrs->get(i)->get_pp_ptr()->get_rect();
  const vx::geom::corner_index index(rects);
  work_meter meter;
  containment test(*attrs, rects, meter);
  std::vector<unsigned int> within;
  for (int a = n - 1; a >= 1; --a) {
    Tvx_pp2d_div_attr* outer = attrs->get(a);
    within.clear();
    index.corners_in(rects[a], [&](std::uint32_t b) {
      meter.spend(1);
      if (static_cast<int>(b) < a && attrs->get(static_cast<int>(b))->get_square() < outer->get_square() &&
          vx_rect2d_include(rects[a], rects[b]))
        within.push_back(b);
    });
    if (within.empty()) continue;
    for (unsigned int b : test.held(outer->get_pp_ptr(), within)) {
      outer->add_include(b);
      attrs->get(static_cast<int>(b))->add_inside();
    }
  }
}

// Each outer ring not yet used, smallest first, makes an object with the holes it contains that no
// smaller outer ring has taken.
void Tvx_op2d_divide_exe::divd_vec() {
  for (int r = 0; r < attrs->get_size(); ++r) {
    Tvx_pp2d_div_attr* ring = attrs->get(r);
    if (ring->get_used() || ring->is_hole()) continue;
    Tvx_op2d* object = result->add();
    Tvx_o_arc_t* object_arcs = arcs ? arcs->add() : nullptr;
    add_ring(object, object_arcs, ring, vx_cw_clockwise);
    ring->set_used(true);
    for (unsigned int k = 0; k < ring->get_include_size(); ++k) {
      Tvx_pp2d_div_attr* hole = attrs->get(static_cast<int>(ring->get_include(k)));
      if (hole->get_used() || !hole->is_hole()) continue;
      add_ring(object, object_arcs, hole, vx_cw_counter_clockwise);
      hole->set_used(true);
    }
  }
}

// Appends a copy of the ring, turned round if it runs against `keep`; a ring of unknown orientation
// is left out.
void Tvx_op2d_divide_exe::add_ring(Tvx_op2d* object, Tvx_o_arc_t* object_arcs, Tvx_pp2d_div_attr* ring,
                                   Tvx_clock_wise keep) {
  const Tvx_clock_wise now = ring->get_pp_ptr()->get_clock_wise();
  if (now == vx_cw_unknown) return;
  const bool turned = now != keep;
  Tvx_pp2d* copy = object->add_copy(ring->get_pp_ptr());
  if (turned) copy->reverse();
  if (object_arcs) object_arcs->add()->add(vx_arc(ring->get_index(), turned));
}

namespace {

int run_division(Tvx_op2d* source, Tvx_ap2d* result, Tvx_a_arc* arcs) {
  if (!source || !result) return 1;
  try {
    Tvx_op2d_divide_exe exe;
    return exe.execute(source, result, arcs);
  } catch (...) {
    return 1;
  }
}

}  // namespace

int Tvx_op2d_pgn_divide::execute(Tvx_op2d* source, Tvx_ap2d* result) {
  return run_division(source, result, nullptr);  // the arcs would be thrown away: none are made
}

int Tvx_op2d_pgn_divide::execute_with_arcs(Tvx_op2d* source, Tvx_ap2d* result, Tvx_a_arc* arcs) {
  return arcs ? run_division(source, result, arcs) : 1;
}
