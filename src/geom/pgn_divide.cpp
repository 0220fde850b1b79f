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

// The vertices of a ring, sorted, to ask in log n whether a point is one of them. Exact comparison:
// the rings given here have no NaN, since a NaN makes a ring's area NaN and drops it.
class vertex_set {
 public:
  explicit vertex_set(const Tvx_pp2d* ring) {
    sorted.reserve(static_cast<std::size_t>(ring->get_size()));
    for (int i = 0; i < ring->get_size(); ++i) sorted.push_back(ring->get(i));
    std::sort(sorted.begin(), sorted.end());
  }
  bool has(const Tvx_point2d& p) const { return std::binary_search(sorted.begin(), sorted.end(), p); }

 private:
  std::vector<Tvx_point2d> sorted;
};

// Tvx_pp2d::include of each point in a closed ring, for all points in one pass over the ring's edges:
// an edge looks only at the points whose y lies within its own span, the only ones it can count for.
std::vector<bool> include_all(const Tvx_pp2d* ring, const std::vector<Tvx_point2d>& pts, work_meter& meter) {
  std::vector<std::uint32_t> by_y(pts.size());
  std::iota(by_y.begin(), by_y.end(), 0u);
  std::sort(by_y.begin(), by_y.end(), [&](std::uint32_t a, std::uint32_t b) { return pts[a].y < pts[b].y; });
  std::vector<double> ys(pts.size());
  for (std::size_t k = 0; k < by_y.size(); ++k) ys[k] = pts[by_y[k]].y;

  std::vector<bool> odd(pts.size(), false), on_edge(pts.size(), false);
  for (int i = 1; i < ring->get_size(); ++i) {
    const Tvx_point2d p = ring->get(i - 1), q = ring->get(i);
    const auto first = std::lower_bound(ys.begin(), ys.end(), std::min(p.y, q.y));
    const auto last = std::upper_bound(first, ys.end(), std::max(p.y, q.y));
    meter.spend(static_cast<unsigned long long>(last - first));
    for (auto k = first; k != last; ++k) {
      const std::uint32_t j = by_y[static_cast<std::size_t>(k - ys.begin())];
      const vx::geom::edge_hit hit = vx::geom::ray_hit(p, q, pts[j].x, pts[j].y);
      if (hit == vx::geom::edge_hit::boundary) on_edge[j] = true;
      if (hit == vx::geom::edge_hit::count) odd[j] = !odd[j];
    }
  }
  for (std::size_t j = 0; j < pts.size(); ++j) odd[j] = odd[j] || on_edge[j];
  return odd;
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
  for (int a = n - 1; a >= 1; --a) {
    Tvx_pp2d_div_attr* outer = attrs->get(a);
    std::vector<unsigned int> within;
    index.corners_in(rects[a], [&](std::uint32_t b) {
      meter.spend(1);
      if (static_cast<int>(b) < a && attrs->get(static_cast<int>(b))->get_square() < outer->get_square() &&
          vx_rect2d_include(rects[a], rects[b]))
        within.push_back(b);
    });
    if (within.empty()) continue;
    meter.spend(within.size());  // sorting the probes by y

    const vertex_set shared(outer->get_pp_ptr());
    const auto is_shared = [&](const Tvx_point2d& p) {
      meter.spend(1);
      return shared.has(p);
    };
    std::vector<Tvx_point2d> probes;
    std::vector<unsigned int> owners;
    for (unsigned int b : within) {
      Tvx_point2d p = vx_point2d();
      if (!first_vertex_not_in(attrs->get(static_cast<int>(b))->get_pp_ptr(), is_shared, p)) continue;
      probes.push_back(p);
      owners.push_back(b);
    }
    const std::vector<bool> held = include_all(outer->get_pp_ptr(), probes, meter);
    std::vector<unsigned int> inner;
    for (std::size_t k = 0; k < owners.size(); ++k)
      if (held[k]) inner.push_back(owners[k]);
    std::sort(inner.rbegin(), inner.rend());
    for (unsigned int b : inner) {
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
