// The 1:50,000 level: four sheets "А" to "Г" in a 1:100,000 sheet, two by two.
#pragma once

#include <cstdint>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_50 {

extern const wchar_t* const LETTERS;  // "?АБВГ"
constexpr std::uint64_t COUNT = 4;

bool in_range(std::uint64_t index);
bool is_valid(const stdlist_string& sheet);
std::uint64_t index(wchar_t letter);
wchar_t letter_by_idx(std::uint64_t index);

}  // namespace vx::stdlist::helper_50
