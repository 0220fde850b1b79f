// Dense and tridiagonal matrices of doubles.
//
// Tvx_dbl_mtx: nx columns by ny rows, the element of column x and row y at y * nx + x in one zeroed
// block, null for an empty matrix. A shape whose block cannot be had (more than
// vx::algo::max_elements elements, or the memory refused) is reported through the environment as a
// failed allocation and leaves an empty 0 by 0 matrix, for which is_valid() is false.
//
// Tvx_dbl_mtx_3diag: a tridiagonal matrix of `size` rows. main[r] is the diagonal of row r, top[r] the
// element right of it, btm[r] the one left of it. The arrays hold `size` elements each, so that the
// element left of the diagonal in the last row, btm[size - 1], has its place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

class Tvx_dbl_mtx {
 public:
  Tvx_dbl_mtx() = default;
  Tvx_dbl_mtx(unsigned nx, unsigned ny) { set_nxny(nx, ny); }
  // nx by ny, filled row by row from the values (the rest zero, any surplus ignored).
  Tvx_dbl_mtx(unsigned nx, unsigned ny, std::initializer_list<double> by_rows);
  Tvx_dbl_mtx(const Tvx_dbl_mtx& other);
  Tvx_dbl_mtx& operator=(const Tvx_dbl_mtx& other);
  ~Tvx_dbl_mtx() { clear(); }
  void swap(Tvx_dbl_mtx& other);

  void clear();
  // Nothing for an unchanged shape; otherwise the elements are dropped and new zeroed ones made.
  void set_nxny(unsigned nx, unsigned ny);
  unsigned get_nx() const { return nx; }
  unsigned get_ny() const { return ny; }
  // Column x, row y; indices are not checked.
  double get(unsigned x, unsigned y) const { return elements[index(x, y)]; }
  void set(unsigned x, unsigned y, double value) { elements[index(x, y)] = value; }
  void swap_rows(unsigned a, unsigned b);
  // The matrix has elements.
  bool is_valid() const { return elements != nullptr; }

  // The first element of row y, for the solvers' inner loops.
  double* row(unsigned y) { return elements + index(0, y); }
  const double* row(unsigned y) const { return elements + index(0, y); }

 private:
  std::size_t index(unsigned x, unsigned y) const { return static_cast<std::size_t>(y) * nx + x; }

  uint32_t nx = 0;
  uint32_t ny = 0;
  double* elements = nullptr;
};

class Tvx_dbl_mtx_3diag {
 public:
  Tvx_dbl_mtx_3diag() = default;
  Tvx_dbl_mtx_3diag(const Tvx_dbl_mtx_3diag&) = delete;
  Tvx_dbl_mtx_3diag& operator=(const Tvx_dbl_mtx_3diag&) = delete;
  ~Tvx_dbl_mtx_3diag() { drop(); }

  void clear();
  // Nothing for an unchanged size. Otherwise the arrays are dropped; for n of at least 2 new zeroed
  // ones are made and n is stored, while for a smaller n the arrays stay missing and the old size
  // stands. Without arrays every get gives 0.0 and every set stores nothing. An allocation that fails
  // leaves no arrays and the size 0.
  void set_size(unsigned n);
  unsigned get_size() const { return size; }
  bool has_arrays() const { return main != nullptr; }

  // By row index; indices are not checked.
  void set_top(unsigned i, double v) { put(top, i, v); }
  double get_top(unsigned i) const { return take(top, i); }
  void set_btm(unsigned i, double v) { put(btm, i, v); }
  double get_btm(unsigned i) const { return take(btm, i); }
  void set_main(unsigned i, double v) { put(main, i, v); }
  double get_main(unsigned i) const { return take(main, i); }

  // Column x, row y. With d = y - x: 0 is main[y], -1 top[y], 1 btm[y]; any other d gives 0.0 and
  // stores nothing.
  double get(unsigned x, unsigned y) const;
  void set(unsigned x, unsigned y, double value);

 private:
  static void put(double* a, unsigned i, double v) {
    if (a) a[i] = v;
  }
  static double take(const double* a, unsigned i) { return a ? a[i] : 0.0; }
  double* diagonal_of(unsigned x, unsigned y) const;
  void drop();

  uint32_t size = 0;
  double* top = nullptr;
  double* btm = nullptr;
  double* main = nullptr;
};
