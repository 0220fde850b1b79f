// Ordering of numbers for the sorted containers of this module: exact comparison, with every NaN
// taken as equal to every other NaN and above all numbers. So a NaN cannot break the order of a tree or
// of a sort, and it sorts last.
#pragma once

#include <cmath>
#include <type_traits>

namespace vx::algo {

template <class T>
bool num_less(T a, T b) {
  if constexpr (std::is_floating_point_v<T>) {
    if (std::isnan(b)) return !std::isnan(a);
    if (std::isnan(a)) return false;
  }
  return a < b;
}

template <class T>
struct num_less_op {
  bool operator()(T a, T b) const { return num_less(a, b); }
};

}  // namespace vx::algo
