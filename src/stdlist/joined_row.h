// The printing of a joined sheet whose parts run along one row of a level that divides the million
// sheet directly (1:200,000 Roman numerals, 1:100,000 numbers).
#pragma once

#include <cstdint>
#include <string>

namespace vx::stdlist {

// How a level lays out its positions and writes one of them.
struct row_level {
  std::uint64_t row;    // positions in a row
  std::uint64_t count;  // positions in the million sheet
  std::wstring (*text)(std::uint64_t index);
};

// Appends the positions of a joined sheet from `step` to `type` - 1: the first after "-", each later
// one after ","; when the position before stood at the east edge of the million sheet, the next
// column and "-" come first. The column is not carried forward: rows are long enough that a joined
// sheet crosses the edge at most once.
void append_row_join(const row_level& level, std::uint64_t number, std::uint64_t index,
                     std::uint64_t previous, int step, int type, std::wstring& out);

}  // namespace vx::stdlist
