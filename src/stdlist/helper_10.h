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
// (number + offset) mod 4, 0 becoming 4, when the number and its 1:25,000 parent are good; otherwise
// the character code of "?".
int str(const stdlist_string& sheet, int offset);
// Only at 1:10,000, and only a number in range is stored.
void set(stdlist_string& sheet, wchar_t digit);
// "-", the 1:100,000 number, "-", the 1:50,000 letter, "-", the 1:25,000 letter, "-", the number: the
// text that designations at 1:10,000 are printed with (no million part, type not looked at).
void output_str(const stdlist_string& sheet, std::wstring& out);

}  // namespace vx::stdlist::helper_10
