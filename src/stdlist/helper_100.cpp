#include "stdlist/helper_100.h"

#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_100 {

bool in_range(std::uint64_t number) {
  return number >= 1 && number <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_100_number()) && helper_mln::is_valid(sheet);
}

std::uint64_t int_by_str(const wchar_t* text) {
  std::int64_t v = 0;
  if (!parse_decimal(text, v) || v < 1 || v > static_cast<std::int64_t>(COUNT)) return INVALID_IDX;
  return static_cast<std::uint64_t>(v);
}

std::wstring str_by_int(std::uint64_t number) {
  return number_text_or_invalid(number, in_range(number));
}

std::wstring get(const stdlist_string& sheet) {
  return str_by_int(sheet.get_100_number());
}

void set(stdlist_string& sheet, const wchar_t* text) {
  const std::uint64_t number = int_by_str(text);
  if (in_range(number)) sheet.set_100_number(number);
}

}  // namespace vx::stdlist::helper_100
