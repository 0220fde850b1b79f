// The 1:25,000 level: four sheets "а" to "г" (small letters) in a 1:50,000 sheet, two by two.
#pragma once

#include <cstdint>

#include "stdlist/stdlist_string.h"

namespace vx::stdlist::helper_25 {

extern const wchar_t* const LETTERS;  // "?абвг"
constexpr std::uint64_t COUNT = 4;

bool in_range(std::uint64_t index);
bool is_valid(const stdlist_string& sheet);
// Position in LETTERS if 1 to 4; INVALID_IDX when not found, and 0 for "?" as well.
std::uint64_t index(wchar_t letter);
wchar_t letter_by_idx(std::uint64_t index);

}  // namespace vx::stdlist::helper_25
