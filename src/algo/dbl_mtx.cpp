#include "algo/dbl_mtx.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "algo/num_vec.h"
#include "support/mem_main.h"

namespace {

// A zeroed block of count doubles, or null after the failure has been reported.
double* new_block(std::size_t count) {
  if (count > vx::algo::max_elements) {
    Tvx_mem_main::err_alloc(count * sizeof(double));
    return nullptr;
  }
  return static_cast<double*>(Tvx_mem_main::mem_calloc(count, sizeof(double)));
}

}  // namespace

Tvx_dbl_mtx::Tvx_dbl_mtx(const Tvx_dbl_mtx& other) {
  set_nxny(other.nx, other.ny);
  if (elements && other.elements)
    std::memcpy(elements, other.elements, sizeof(double) * static_cast<std::size_t>(nx) * ny);
}

Tvx_dbl_mtx::Tvx_dbl_mtx(unsigned nx, unsigned ny, std::initializer_list<double> by_rows) {
  set_nxny(nx, ny);
  const std::size_t count = static_cast<std::size_t>(this->nx) * this->ny;
  std::copy_n(by_rows.begin(), std::min(count, by_rows.size()), elements);
}

Tvx_dbl_mtx& Tvx_dbl_mtx::operator=(const Tvx_dbl_mtx& other) {
  if (this != &other) {
    Tvx_dbl_mtx copy(other);
    swap(copy);
  }
  return *this;
}

void Tvx_dbl_mtx::swap(Tvx_dbl_mtx& other) {
  std::swap(nx, other.nx);
  std::swap(ny, other.ny);
  std::swap(elements, other.elements);
}

void Tvx_dbl_mtx::clear() {
  Tvx_mem_main::free_and_null(elements);
  nx = ny = 0;
}

void Tvx_dbl_mtx::set_nxny(unsigned new_nx, unsigned new_ny) {
  if (new_nx == nx && new_ny == ny) return;
  clear();
  const std::size_t count = static_cast<std::size_t>(new_nx) * new_ny;
  if (count == 0) {
    nx = new_nx;
    ny = new_ny;
    return;
  }
  elements = new_block(count);
  if (!elements) return;
  nx = new_nx;
  ny = new_ny;
}

void Tvx_dbl_mtx::swap_rows(unsigned a, unsigned b) {
  if (a == b) return;
  std::swap_ranges(row(a), row(a) + nx, row(b));
}

void Tvx_dbl_mtx_3diag::drop() {
  Tvx_mem_main::free_and_null(top);
  Tvx_mem_main::free_and_null(btm);
  Tvx_mem_main::free_and_null(main);
}

void Tvx_dbl_mtx_3diag::clear() {
  drop();
  size = 0;
}

void Tvx_dbl_mtx_3diag::set_size(unsigned n) {
  if (n == size) return;
  drop();
  if (n < 2) return;  // the old size stands, without arrays
  top = new_block(n);
  btm = top ? new_block(n) : nullptr;
  main = btm ? new_block(n) : nullptr;
  if (!main) {
    clear();
    return;
  }
  size = n;
}

double* Tvx_dbl_mtx_3diag::diagonal_of(unsigned x, unsigned y) const {
  if (x == y) return main;
  if (x == uint64_t{y} + 1) return top;
  if (y == uint64_t{x} + 1) return btm;
  return nullptr;
}

double Tvx_dbl_mtx_3diag::get(unsigned x, unsigned y) const {
  return take(diagonal_of(x, y), y);
}

void Tvx_dbl_mtx_3diag::set(unsigned x, unsigned y, double value) {
  put(diagonal_of(x, y), y, value);
}
