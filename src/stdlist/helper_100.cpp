#include "stdlist/helper_100.h"

#include "stdlist/helper_mln.h"
#include "stdlist/joined_row.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_100 {

bool in_range(std::uint64_t number) {
  return number >= 1 && number <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_100_number()) && helper_mln::is_valid(sheet);
}

bool left_edge(std::uint64_t number) {
  return (number - 1) % ROW == 0;
}
bool right_edge(std::uint64_t number) {
  return number % ROW == 0;
}
std::uint64_t line(std::uint64_t number) {
  return (number - 1) / ROW + 1;
}
std::uint64_t line_min(std::uint64_t number) {
  return (number - 1) / ROW * ROW;
}
std::uint64_t line_max(std::uint64_t number) {
  return line_min(number) + ROW;
}

std::uint64_t next(std::uint64_t number, int step) {
  return in_range(number) ? line_cycle_next(number, step, ROW) : INVALID_IDX;
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

bool supports_type(std::uint64_t number, Tvx_stdlist_type type) {
  switch (type) {
    case VX_STDLIST_TP_SGL:
      return true;
    case VX_STDLIST_TP_DBL:
      return !right_edge(number);
    case VX_STDLIST_TP_QRP:
      return !right_edge(number) && !right_edge(number + 1) && !right_edge(number + 2);
    default:
      return false;
  }
}

void fill_str(const stdlist_string& sheet, std::wstring& out) {
  if (sheet.get_scale() != VX_STDLIST_SC_100) return;
  helper_mln::mln_part_str(sheet, out);
  recursive(sheet.get_mln_number(), sheet.get_100_number(), 0, 0, sheet.get_type(), out);
}

void recursive(std::uint64_t number, std::uint64_t index, std::uint64_t previous, int step, int type,
               std::wstring& out) {
  append_row_join(row_level{ROW, COUNT, &str_by_int}, number, index, previous, step, type, out);
}

std::wstring str(const stdlist_string& sheet, int offset) {
  const std::uint64_t number = sheet.get_100_number();
  if (!in_range(number) || !helper_mln::is_valid(sheet)) return INVALID_CHR;
  std::wstring out;
  helper_mln::fill_str(sheet, out);
  if (right_edge(number)) out += helper_mln::get_next_list_num_str(sheet.get_mln_number(), 1) + L'-';
  return out + number_text(next(number, offset));
}

void output_str(const stdlist_string& sheet, std::wstring& out) {
  if (sheet.get_scale() != VX_STDLIST_SC_100) return;
  out += L'-';
  out += get(sheet);
  const int later = sheet.get_type() == VX_STDLIST_TP_QRP ? 3 : sheet.get_type() == VX_STDLIST_TP_DBL ? 1 : 0;
  for (int offset = 1; offset <= later; ++offset) out += L',' + str(sheet, offset);
}

}  // namespace vx::stdlist::helper_100
