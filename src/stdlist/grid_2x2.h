// The two by two grid of the letter levels (1:500,000, 1:50,000 and 1:25,000): positions 1 and 2 in the
// north row, 3 and 4 in the south row, so odd positions lie on the west side and even on the east.
#pragma once

#include <cstdint>

namespace vx::stdlist::grid_2x2 {

constexpr std::uint64_t COUNT = 4;
constexpr std::uint64_t ROW = 2;

bool in_range(std::uint64_t index);
// Position of a letter in a table that holds "?" at 0 and the four letters at 1 to 4; INVALID_IDX if
// the letter is not one of the four.
std::uint64_t find(const wchar_t* table, wchar_t letter);
// The next letter in the row, wrapping: 0 gives 1, 1 gives 2, 2 gives 1, 3 gives 4, 4 gives 3, and
// anything above 4 gives 0.
std::uint64_t next_letter_idx(std::uint64_t index);
bool left_edge(std::uint64_t index);
bool right_edge(std::uint64_t index);
std::uint64_t line(std::uint64_t index);
std::uint64_t line_min(std::uint64_t index);
std::uint64_t line_max(std::uint64_t index);
// Line-cycle rule with rows of 2.
std::uint64_t next(std::uint64_t index, int step);

}  // namespace vx::stdlist::grid_2x2
