// The 1:200,000 level: 6 by 6 sheets in a million sheet, numbered "I" to "XXXVI" row by row from the
// north-west.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_200 {

constexpr std::uint64_t COUNT = 36;

bool in_range(std::uint64_t index);
bool is_valid(const stdlist_string& sheet);
// The numeral, "?" outside 1 to 36.
std::wstring string(std::uint64_t index);
std::wstring letter_by_idx(std::uint64_t index);
// Exact search over the 36 numerals; INVALID_IDX when none matches.
std::uint64_t index(const std::wstring& text);

}  // namespace vx::stdlist::helper_200
