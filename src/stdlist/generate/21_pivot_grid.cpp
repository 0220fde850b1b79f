#include "stdlist/generate/21_pivot_grid.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <new>

#include "stdlist/traits.h"

namespace vx::stdlist {

namespace {

bool close_to(double entry, double value, double delta) {
  return std::fabs(entry - value) < delta;
}

}  // namespace

bool pivot_grid::before::operator()(double a, double b) const {
  return a < b || (std::isnan(b) && !std::isnan(a));
}

pivot_grid::pivot_grid() : grid_pv(vx_pv_d2_create()), grid_delta(traits::delta) {
  if (!grid_pv) throw std::bad_alloc();
}

pivot_grid::~pivot_grid() {
  vx_pv_d2_destroy(grid_pv);
}

// The entries closer to a value than delta lie next to each other in order, so the nearest entry on
// either side tells whether there is one.
void pivot_grid::add(std::vector<double>& list, entries& index, double value, double delta) {
  const auto above = index.lower_bound(value);
  if (above != index.end() && close_to(*above, value, delta)) return;
  if (above != index.begin() && close_to(*std::prev(above), value, delta)) return;
  list.push_back(value);
  index.insert(value);
}

int pivot_grid::find(const std::vector<double>& list, bool sorted, double value, double delta) {
  if (!sorted) {
    for (size_t i = 0; i < list.size(); ++i) {
      if (close_to(list[i], value, delta)) return static_cast<int>(i);
    }
    return -1;
  }
  auto i = std::lower_bound(list.begin(), list.end(), value, before());
  while (i != list.begin() && close_to(*std::prev(i), value, delta)) --i;
  return i != list.end() && close_to(*i, value, delta) ? static_cast<int>(i - list.begin()) : -1;
}

void pivot_grid::add_x(double x) {
  add(grid_x, index_x, x, grid_delta);
}

void pivot_grid::add_y(double y) {
  add(grid_y, index_y, y, grid_delta);
}

void pivot_grid::add_vec_x(const std::vector<double>& xs) {
  for (double x : xs) add_x(x);
}

void pivot_grid::add_vec_y(const std::vector<double>& ys) {
  for (double y : ys) add_y(y);
}

int pivot_grid::find_x(double x) const {
  return find(grid_x, sorted, x, grid_delta);
}

int pivot_grid::find_y(double y) const {
  return find(grid_y, sorted, y, grid_delta);
}

bool pivot_grid::generate(const std::wstring& source, const std::wstring& target) {
  std::sort(grid_x.begin(), grid_x.end(), before());
  std::sort(grid_y.begin(), grid_y.end(), before());
  sorted = true;
  const size_t nx = grid_x.size();
  const size_t ny = grid_y.size();
  if (ny != 0 && nx > static_cast<size_t>(INT_MAX) / ny) throw std::bad_alloc();
  const auto n = static_cast<uint32_t>(nx * ny);
  vx_pv_d2_set_size(grid_pv, n);
  if (vx_pv_d2_get_size(grid_pv) != n) throw std::bad_alloc();
  for (size_t iy = 0; iy < ny; ++iy) {
    for (size_t ix = 0; ix < nx; ++ix)
      vx_pv_d2_set_vtx(grid_pv, static_cast<uint32_t>(iy * nx + ix), Tvx_vtx_d2{grid_x[ix], grid_y[iy]});
  }
  Tvx_rpj_fb_d2* reprojector = vx_rpj_fb_d2_create();
  if (!reprojector) throw std::bad_alloc();
  vx_rpj_fb_d2_init_w(reprojector, source.c_str(), target.c_str());
  vx_rpj_fb_d2_apply_pv(reprojector, grid_pv, 1);
  vx_rpj_fb_d2_destroy(reprojector);
  return true;
}

Tvx_vtx_d2 pivot_grid::get_vtx(int ix, int iy) const {
  if (ix < 0 || iy < 0) return Tvx_vtx_d2{0.0, 0.0};
  const uint64_t i = static_cast<uint64_t>(iy) * grid_x.size() + static_cast<uint64_t>(ix);
  return i > UINT32_MAX ? Tvx_vtx_d2{0.0, 0.0} : vx_pv_d2_get_vtx(grid_pv, static_cast<uint32_t>(i));
}

// P plus |d| / |PQ| times the chord from P to Q, where Q is the neighbour (jx, jy) on the side of d. A
// chord of no length (two vertices that the projection put on one point, as at a pole) has no
// direction, and the answer is P.
Tvx_vtx_d2 pivot_grid::along(int ix, int iy, int jx, int jy, double d) const {
  const Tvx_vtx_d2 p = get_vtx(ix, iy);
  if (std::fabs(d) <= traits::delta) return p;
  const Tvx_vtx_d2 q = get_vtx(jx, jy);
  const double chord = std::hypot(q.x - p.x, q.y - p.y);
  if (chord == 0.0) return p;
  const double t = std::fabs(d) / chord;
  return Tvx_vtx_d2{p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)};
}

Tvx_vtx_d2 pivot_grid::calc_vtx_x(int ix, int iy, double d) const {
  return along(ix, iy, d < 0 ? ix - 1 : ix + 1, iy, d);
}

Tvx_vtx_d2 pivot_grid::calc_vtx_y(int ix, int iy, double d) const {
  return along(ix, iy, ix, d < 0 ? iy - 1 : iy + 1, d);
}

}  // namespace vx::stdlist
