#include "reproj/xy_array.h"

#include <cstdlib>

void Tvx_xy_array::set_capacity(unsigned n) {
  if (n == f_capacity) return;
  if (n == 0) {
    clear();
    return;
  }
  const size_t bytes = static_cast<size_t>(n) * sizeof(double);
  f_x = static_cast<double*>(std::realloc(f_x, bytes));
  f_y = static_cast<double*>(std::realloc(f_y, bytes));
  f_capacity = n;
}

void Tvx_xy_array::set_size(unsigned n) {
  if (n > f_capacity) set_capacity(n);
  f_size = n;
}

void Tvx_xy_array::clear() {
  std::free(f_x);
  std::free(f_y);
  f_x = nullptr;
  f_y = nullptr;
}
