#include "stdlist/grid_2x2.h"

#include "stdlist/level_common.h"

namespace vx::stdlist::grid_2x2 {

bool in_range(std::uint64_t index) {
  return index >= 1 && index <= COUNT;
}

std::uint64_t find(const wchar_t* table, wchar_t letter) {
  for (std::uint64_t i = 1; i <= COUNT; ++i) {
    if (table[i] == letter) return i;
  }
  return INVALID_IDX;
}

std::uint64_t next_letter_idx(std::uint64_t index) {
  static const std::uint64_t table[COUNT + 1] = {1, 2, 1, 4, 3};
  return index <= COUNT ? table[index] : INVALID_IDX;
}

bool left_edge(std::uint64_t index) {
  return index % 2 == 1;
}
bool right_edge(std::uint64_t index) {
  return index % 2 == 0;
}
std::uint64_t line(std::uint64_t index) {
  return (index - 1) / ROW + 1;
}
std::uint64_t line_min(std::uint64_t index) {
  return (index - 1) & ~std::uint64_t{1};
}
std::uint64_t line_max(std::uint64_t index) {
  return (index + 1) & ~std::uint64_t{1};
}

std::uint64_t next(std::uint64_t index, int step) {
  return in_range(index) ? line_cycle_next(index, step, ROW) : INVALID_IDX;
}

}  // namespace vx::stdlist::grid_2x2
