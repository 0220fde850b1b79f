// The 1:25,000 level: four sheets "а" to "г" (small letters) in a 1:50,000 sheet, two by two.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/grid_2x2.h"
#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_25 {

extern const wchar_t* const LETTERS;  // "?абвг"
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
// Position in LETTERS if 1 to 4; INVALID_IDX when not found, and 0 for "?" as well.
std::uint64_t index(wchar_t letter);
wchar_t letter_by_idx(std::uint64_t index);
// "?" for 0, otherwise the letter at (index - 1) mod 4 + 1.
wchar_t letter_by_idx_cyclic(std::uint64_t index);
// Only at 1:25,000: stores the letter's position unchecked; a letter not found leaves the record as
// it was.
void set(stdlist_string& sheet, wchar_t letter);
// "?" if the letter or the 1:50,000 part is bad; otherwise the cyclic letter of index plus offset.
wchar_t letter(const stdlist_string& sheet, int offset);
// The record's letter as a one-character text, "?" when it or its parent is bad.
std::wstring get(const stdlist_string& sheet);
bool supports_type(const stdlist_string& sheet, Tvx_stdlist_type type);

// The designation at 1:25,000: "N-37-12-Б-б,38-1-А-а"; nothing at another scale.
void fill_str(const stdlist_string& sheet, std::wstring& out);
void recursive(std::uint64_t number, std::uint64_t number100, std::uint64_t previous100,
               std::uint64_t letter50, std::uint64_t previous50, std::uint64_t letter25,
               std::uint64_t previous25, int step, int type, std::wstring& out);

}  // namespace vx::stdlist::helper_25
