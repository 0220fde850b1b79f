#include "algo/pp2d_include_fast.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "algo/num_order.h"
#include "geom/pp2d.h"
#include "geom/ring_ray.h"

bool Tvx_fast_diap_end::less(const Tvx_fast_diap_end& other) const {
  return vx::algo::num_less(value, other.value);
}

void Tvx_fast_diap_ends::clear() {
  for (Tvx_fast_diap_end* end : ends) delete end;
  ends.clear();
  values.clear();
  order.clear();
  band_start.clear();
  band_edges.clear();
  indexed = packed = false;
}

void Tvx_fast_diap_ends::insert_new(end_set::const_iterator hint, double value) {
  auto end = std::make_unique<Tvx_fast_diap_end>(value);
  ends.insert(hint, end.get());
  end.release();
  indexed = packed = false;
}

void Tvx_fast_diap_ends::add_end(double value) {
  key.set_value(value);
  if (std::isnan(value) || ends.count(&key) != 0) return;
  insert_new(ends.end(), value);
}

// The values are merged into the tree in ascending order, each inserted at the place that the walk
// along the tree has reached, so that no value costs a search.
void Tvx_fast_diap_ends::add_ends(std::vector<double> more) {
  more.erase(std::remove_if(more.begin(), more.end(), [](double v) { return std::isnan(v); }), more.end());
  std::sort(more.begin(), more.end());
  more.erase(std::unique(more.begin(), more.end()), more.end());
  auto at = ends.cbegin();
  for (double v : more) {
    while (at != ends.cend() && (*at)->get_value() < v) ++at;
    if (at == ends.cend() || (*at)->get_value() != v) insert_new(at, v);
  }
}

void Tvx_fast_diap_ends::index() {
  if (indexed) return;
  values.clear();
  order.clear();
  values.reserve(ends.size());
  order.reserve(ends.size());
  for (Tvx_fast_diap_end* end : ends) {
    values.push_back(end->get_value());
    order.push_back(end);
  }
  indexed = true;
}

long Tvx_fast_diap_ends::position_of(double value) const {
  const auto it = std::lower_bound(values.begin(), values.end(), value);
  return it != values.end() && *it == value ? it - values.begin() : -1;
}

void Tvx_fast_diap_ends::add_diap(int number, double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return;
  index();
  const long lo = position_of(a < b ? a : b);
  const long hi = position_of(a < b ? b : a);
  if (lo < 0 || hi < 0) return;
  for (long k = lo; k < hi; ++k) order[k]->get_int_vec()->add(number);
  packed = false;
}

long Tvx_fast_diap_ends::band_at(double value) const {
  const auto above = std::upper_bound(values.begin(), values.end(), value, vx::algo::num_less_op<double>());
  if (above == values.end() || above == values.begin()) return -1;
  return above - values.begin() - 1;
}

Tvx_int_vec* Tvx_fast_diap_ends::get_int_vec_ptr(double value) {
  if (indexed) {
    const long k = band_at(value);
    return k < 0 ? nullptr : order[k]->get_int_vec();
  }
  key.set_value(value);
  const auto above = ends.upper_bound(&key);
  if (above == ends.end() || above == ends.begin()) return nullptr;
  return (*std::prev(above))->get_int_vec();
}

void Tvx_fast_diap_ends::pack() {
  index();
  band_start.assign(1, 0);
  band_edges.clear();
  for (const Tvx_fast_diap_end* end : order) {
    const Tvx_int_vec* list = end->get_int_vec();
    band_edges.insert(band_edges.end(), list->data(), list->data() + list->get_size());
    band_start.push_back(static_cast<uint32_t>(band_edges.size()));
  }
  packed = true;
}

bool Tvx_fast_diap_ends::get_band(double value, const int32_t*& list, unsigned& count) {
  if (packed) {
    const long k = band_at(value);
    if (k < 0) return false;
    list = band_edges.data() + band_start[k];
    count = band_start[k + 1] - band_start[k];
    return true;
  }
  const Tvx_int_vec* v = get_int_vec_ptr(value);
  if (!v) return false;
  list = v->data();
  count = v->get_size();
  return true;
}

void Tvx_pp2d_fast_edges::prepare(const Tvx_pp2d* target) {
  ring = target;
  ends->clear();
  const int n = ring ? ring->get_size() : 0;
  if (n < 2) return;
  std::vector<double> ys;  // the y of both ends of every edge
  ys.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) ys.push_back(ring->get(i).y);
  ends->add_ends(std::move(ys));
  for (int i = 1; i < n; ++i) ends->add_diap(i, ring->get(i - 1).y, ring->get(i).y);
  ends->pack();
}

bool Tvx_pp2d_fast_edges::include(double x, double y) {
  using vx::geom::edge_hit;
  const int32_t* list = nullptr;
  unsigned count = 0;
  if (!ends->get_band(y, list, count) || count == 0) return false;
  const int n = ring->get_size();
  bool inside = false;
  for (unsigned k = 0; k < count; ++k) {
    const int i = list[k];
    if (i < 1 || i >= n) continue;
    const edge_hit hit = vx::geom::ray_hit(ring->get(i - 1), ring->get(i), x, y);
    if (hit == edge_hit::boundary) return true;
    if (hit == edge_hit::count) inside = !inside;
  }
  return inside;
}

void Tvx_pp2d_include_fast::prepare(const Tvx_pp2d* target) {
  edges.reset();
  ring = target;
  if (!ring || ring->get_size() < MIN_BANDED_SIZE) return;
  edges = std::make_unique<Tvx_pp2d_fast_edges>();
  edges->prepare(ring);
}

bool Tvx_pp2d_include_fast::include(double x, double y) {
  if (edges) return edges->include(x, y);
  return ring && ring->include(x, y);
}
