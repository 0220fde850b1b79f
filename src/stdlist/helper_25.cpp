#include "stdlist/helper_25.h"

#include "stdlist/helper_50.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_25 {

const wchar_t* const LETTERS = L"?абвг";

bool in_range(std::uint64_t index) {
  return index >= 1 && index <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.raw_25_letter_idx()) && helper_50::is_valid(sheet);
}

std::uint64_t index(wchar_t letter) {
  for (std::uint64_t i = 0; i <= COUNT; ++i) {
    if (LETTERS[i] == letter) return i;
  }
  return INVALID_IDX;
}

wchar_t letter_by_idx(std::uint64_t index) {
  return in_range(index) ? LETTERS[index] : INVALID_WCHAR;
}

}  // namespace vx::stdlist::helper_25
