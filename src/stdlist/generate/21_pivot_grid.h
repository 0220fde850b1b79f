// The lattice from which everything of a sheet is drawn: one point at every crossing of a list of
// longitudes with a list of latitudes, transformed into the scene projection in one batch. After that
// nothing is projected again: every vertex written is a lattice vertex, or a point at a given distance
// from one along the straight chord to its neighbour.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "services/flat_types.h"

namespace vx::stdlist {

class pivot_grid {
 public:
  pivot_grid();
  ~pivot_grid();
  pivot_grid(const pivot_grid&) = delete;
  pivot_grid& operator=(const pivot_grid&) = delete;

  // Appends the value unless the list holds one closer than grid_delta already.
  void add_x(double x);
  void add_y(double y);
  void add_vec_x(const std::vector<double>& xs);
  void add_vec_y(const std::vector<double>& ys);
  // The index of the first entry closer to the value than grid_delta, -1 if none. Indices are final
  // only after generate, which sorts the lists.
  int find_x(double x) const;
  int find_y(double y) const;

  // Sorts both lists, builds the lattice (rows south to north, columns west to east, the column index
  // changing fastest) and transforms it from the source to the target projection in one batch. A
  // transformation that cannot be built leaves the lattice as it stands; the answer is true all the
  // same. A lattice larger than a point vector can hold throws std::bad_alloc.
  bool generate(const std::wstring& source, const std::wstring& target);

  // Lattice vertices; the indices are not checked (outside the lattice reads (0, 0)).
  Tvx_vtx_d2 get_vtx(int ix, int iy) const;
  Tvx_vtx_d2 get_prev_vtx_x(int ix, int iy) const { return get_vtx(ix - 1, iy); }
  Tvx_vtx_d2 get_next_vtx_x(int ix, int iy) const { return get_vtx(ix + 1, iy); }
  Tvx_vtx_d2 get_prev_vtx_y(int ix, int iy) const { return get_vtx(ix, iy - 1); }
  Tvx_vtx_d2 get_next_vtx_y(int ix, int iy) const { return get_vtx(ix, iy + 1); }
  // The point at the distance d (scene units) from the vertex along the chord of its row towards the
  // western neighbour for a negative d, the eastern one otherwise; beyond the neighbour when d is longer
  // than the chord. calc_vtx_y does the same along the column, south for a negative d.
  Tvx_vtx_d2 calc_vtx_x(int ix, int iy, double d) const;
  Tvx_vtx_d2 calc_vtx_y(int ix, int iy, double d) const;

  // Takes a path and writes nothing: the place where a picture of the lattice could be saved.
  void debug_save_shp(const wchar_t*) const {}

  const std::vector<double>& xs() const { return grid_x; }
  const std::vector<double>& ys() const { return grid_y; }

 private:
  // Orders NaN after every number, so that sorting stays well defined whatever was added.
  struct before {
    bool operator()(double a, double b) const;
  };
  using entries = std::set<double, before>;

  static void add(std::vector<double>& list, entries& index, double value, double delta);
  static int find(const std::vector<double>& list, bool sorted, double value, double delta);
  Tvx_vtx_d2 along(int ix, int iy, int jx, int jy, double d) const;

  std::vector<double> grid_x;
  std::vector<double> grid_y;
  Tvx_pp2d* grid_pv;
  double grid_delta;
  // The entries in order, for the test of add while the lists are still in order of arrival.
  entries index_x;
  entries index_y;
  bool sorted = false;
};

}  // namespace vx::stdlist
