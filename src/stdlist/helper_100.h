// The 1:100,000 level: 12 by 12 sheets in a million sheet, numbered 1 to 144 row by row from the
// north-west.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_100 {

constexpr std::uint64_t COUNT = 144;

bool in_range(std::uint64_t number);
bool is_valid(const stdlist_string& sheet);
// Number of a text, INVALID_IDX unless it parses to 1 to 144.
std::uint64_t int_by_str(const wchar_t* text);
// "%llu", "?" outside 1 to 144.
std::wstring str_by_int(std::uint64_t number);
std::wstring get(const stdlist_string& sheet);
// Stores the parsed number only when it is in range; otherwise nothing changes.
void set(stdlist_string& sheet, const wchar_t* text);

}  // namespace vx::stdlist::helper_100
