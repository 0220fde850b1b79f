#include "stdlist/helper_500.h"

#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_500 {

const wchar_t* const LETTERS = L"?АБВГ";

bool in_range(std::uint64_t index) {
  return index >= 1 && index <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_500_letter_idx()) && helper_mln::is_valid(sheet);
}

std::uint64_t index(wchar_t letter) {
  for (std::uint64_t i = 1; i <= COUNT; ++i) {
    if (LETTERS[i] == letter) return i;
  }
  return INVALID_IDX;
}

wchar_t letter_by_idx(std::uint64_t index) {
  return in_range(index) ? LETTERS[index] : INVALID_WCHAR;
}

}  // namespace vx::stdlist::helper_500
