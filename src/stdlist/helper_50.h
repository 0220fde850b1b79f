// The 1:50,000 level: four sheets "А" to "Г" in a 1:100,000 sheet, two by two.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/grid_2x2.h"
#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_50 {

extern const wchar_t* const LETTERS;  // "?АБВГ"
constexpr std::uint64_t COUNT = grid_2x2::COUNT;

using grid_2x2::in_range;
using grid_2x2::left_edge;
using grid_2x2::line;
using grid_2x2::line_max;
using grid_2x2::line_min;
using grid_2x2::next;
using grid_2x2::next_letter_idx;
using grid_2x2::right_edge;

bool is_valid(const stdlist_string& sheet);
std::uint64_t index(wchar_t letter);
wchar_t letter_by_idx(std::uint64_t index);
// Position (index - 1) mod 4 + 1, index 0 taken as 1: 0 gives "А".
wchar_t letter_by_idx_cyclic(std::uint64_t index);
// Only at 1:50,000: stores the position found plus one, range-checked; so "А" stores 2 and "Г" stores
// INVALID_IDX. The record's own letter setter does not go through here.
void set(stdlist_string& sheet, wchar_t letter);
// "?" if the letter or the 1:100,000 part is bad; otherwise the table read at (index + offset) mod 4
// minus one (3 for a remainder of 0), so that index 1 with offset 0 reads the mark "?".
wchar_t letter(const stdlist_string& sheet, int offset);
bool supports_type(const stdlist_string& sheet, Tvx_stdlist_type type);

// The designation at 1:50,000: "N-37-12-Б,38-1-А"; nothing at another scale.
void fill_str(const stdlist_string& sheet, std::wstring& out);
void recursive(std::uint64_t number, std::uint64_t number100, std::uint64_t previous100,
               std::uint64_t letter50, std::uint64_t previous50, int step, int type, std::wstring& out);

}  // namespace vx::stdlist::helper_50
