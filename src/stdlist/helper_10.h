// The 1:10,000 level: four numbered sheets in a 1:25,000 sheet.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_10 {

constexpr std::uint64_t COUNT = 4;

bool in_range(std::uint64_t number);
bool is_valid(const stdlist_string& sheet);
// One character parsed base 10; INVALID_IDX outside 1 to 4.
std::uint64_t int_by_char(wchar_t digit);
// The number's text, "?" when out of range.
std::wstring get(const stdlist_string& sheet);

}  // namespace vx::stdlist::helper_10
