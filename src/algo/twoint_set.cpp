#include "algo/twoint_set.h"

Tvx_idx_twoint Tvx_twoint_set_exec::make_twoint(int a, int b) const {
  if (unordered && a > b) return Tvx_idx_twoint{-1, b, a};
  return Tvx_idx_twoint{-1, a, b};
}

int Tvx_twoint_set_exec::walked(int number, const Tvx_idx_twoint& e, int* a, int* b) const {
  if (number < 0) return number;
  if (a) *a = e.a;
  if (b) *b = e.b;
  return number;
}

int Tvx_twoint_set_exec::get_first(int* a, int* b) {
  Tvx_idx_twoint e{};
  return walked(set.get_first(e), e, a, b);
}

int Tvx_twoint_set_exec::get_next(int* a, int* b) {
  Tvx_idx_twoint e{};
  return walked(set.get_next(e), e, a, b);
}
