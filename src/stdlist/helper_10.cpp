#include "stdlist/helper_10.h"

#include "stdlist/helper_100.h"
#include "stdlist/helper_25.h"
#include "stdlist/helper_50.h"
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

int str(const stdlist_string& sheet, int offset) {
  const std::uint64_t number = sheet.get_10_number();
  if (!in_range(number) || !helper_25::is_valid(sheet)) return INVALID_WCHAR;
  const std::int64_t v = wrap_mod(static_cast<std::int64_t>(number) + offset, COUNT);
  return v == 0 ? static_cast<int>(COUNT) : static_cast<int>(v);
}

void set(stdlist_string& sheet, wchar_t digit) {
  if (sheet.get_scale() != VX_STDLIST_SC_10) return;
  const std::uint64_t number = int_by_char(digit);
  if (in_range(number)) sheet.set_10_number(number);
}

void output_str(const stdlist_string& sheet, std::wstring& out) {
  out += L'-';
  out += helper_100::get(sheet);
  out += L'-';
  out += helper_50::letter_by_idx(sheet.get_50_letter_idx());
  out += L'-';
  out += helper_25::letter_by_idx(sheet.raw_25_letter_idx());
  out += L'-';
  out += get(sheet);
}

}  // namespace vx::stdlist::helper_10
