#include "stdlist/helper_10.h"

#include "stdlist/helper_25.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_10 {

bool in_range(std::uint64_t number) {
  return number >= 1 && number <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_10_number()) && helper_25::is_valid(sheet);
}

std::uint64_t int_by_char(wchar_t digit) {
  const wchar_t text[2] = {digit, L'\0'};
  std::int64_t v = 0;
  if (!parse_decimal(text, v) || v < 1 || v > static_cast<std::int64_t>(COUNT)) return INVALID_IDX;
  return static_cast<std::uint64_t>(v);
}

std::wstring get(const stdlist_string& sheet) {
  return number_text_or_invalid(sheet.get_10_number(), in_range(sheet.get_10_number()));
}

}  // namespace vx::stdlist::helper_10
