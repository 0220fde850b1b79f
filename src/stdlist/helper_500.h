// The 1:500,000 level: four sheets "А" to "Г" in a million sheet, two by two.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/grid_2x2.h"
#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_500 {

extern const wchar_t* const LETTERS;  // "?АБВГ"
constexpr std::uint64_t COUNT = grid_2x2::COUNT;

using grid_2x2::in_range;
using grid_2x2::left_edge;
using grid_2x2::line;
using grid_2x2::line_max;
using grid_2x2::line_min;
using grid_2x2::next;
using grid_2x2::next_letter_idx;

bool is_valid(const stdlist_string& sheet);
// Position of the letter, INVALID_IDX on a miss.
std::uint64_t index(wchar_t letter);
wchar_t letter_by_idx(std::uint64_t index);
// "?" for 0, otherwise the letter at (index - 1) mod 4 + 1.
wchar_t letter_by_idx_cyclic(std::uint64_t index);
bool right_edge(std::uint64_t index);

// Offset 0: the record's letter ("?" out of range); otherwise the cyclic letter of index plus offset,
// "?" when that sum is 0.
wchar_t get(const stdlist_string& sheet, int offset);
// Only at 1:500,000: stores the letter's position through the record's range-checking setter.
bool set(stdlist_string& sheet, wchar_t letter);

// The designation at 1:500,000: "N-37-Б,38-А"; nothing at another scale.
void fill_str(const stdlist_string& sheet, std::wstring& out);
void recursive(std::uint64_t number, std::uint64_t index, std::uint64_t previous, int step, int type,
               std::wstring& out);
// The part of a later sheet that the older designation routine writes at `position`.
void output_str(const stdlist_string& sheet, int position, std::wstring& out);

}  // namespace vx::stdlist::helper_500
