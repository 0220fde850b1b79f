#include "stdlist/helper_25.h"

#include <cstdio>

#include "stdlist/helper_100.h"
#include "stdlist/helper_50.h"
#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_25 {

const wchar_t* const LETTERS = L"?абвг";

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.raw_25_letter_idx()) && helper_50::is_valid(sheet);
}

std::uint64_t index(wchar_t letter) {
  return grid_2x2::find(LETTERS, letter);
}

wchar_t letter_by_idx(std::uint64_t index) {
  return in_range(index) ? LETTERS[index] : INVALID_WCHAR;
}

wchar_t letter_by_idx_cyclic(std::uint64_t index) {
  return index == 0 ? INVALID_WCHAR : LETTERS[(index - 1) % COUNT + 1];
}

void set(stdlist_string& sheet, wchar_t letter) {
  if (sheet.get_scale() != VX_STDLIST_SC_25) return;
  const std::size_t position = std::wstring(LETTERS).find(letter);
  if (position != std::wstring::npos) sheet.set_25_letter_idx(position);
}

wchar_t letter(const stdlist_string& sheet, int offset) {
  if (!is_valid(sheet)) return INVALID_WCHAR;
  return letter_by_idx_cyclic(sheet.raw_25_letter_idx() + static_cast<std::uint64_t>(std::int64_t{offset}));
}

std::wstring get(const stdlist_string& sheet) {
  return std::wstring(1, is_valid(sheet) ? LETTERS[sheet.raw_25_letter_idx()] : INVALID_WCHAR);
}

bool supports_type(const stdlist_string& sheet, Tvx_stdlist_type type) {
  const bool east100 = helper_100::right_edge(sheet.get_100_number());
  const bool even50 = sheet.get_50_letter_idx() % 2 == 0;
  const bool even25 = sheet.raw_25_letter_idx() % 2 == 0;
  switch (type) {
    case VX_STDLIST_TP_SGL:
      return true;
    case VX_STDLIST_TP_DBL:
      return !(east100 && even50 && even25);
    case VX_STDLIST_TP_QRP:
      if (east100 && even50) return false;
      return !even25 || !east100;
    default:
      return false;
  }
}

void fill_str(const stdlist_string& sheet, std::wstring& out) {
  if (sheet.get_scale() != VX_STDLIST_SC_25) return;
  helper_mln::mln_part_str(sheet, out);
  recursive(sheet.get_mln_number(), sheet.get_100_number(), 0, sheet.get_50_letter_idx(), 0,
            sheet.raw_25_letter_idx(), 0, 0, sheet.get_type(), out);
}

namespace {

bool even_in_range(std::uint64_t index) {
  return in_range(index) && index % 2 == 0;
}

std::wstring int_text(std::uint64_t value) {
  wchar_t buf[24];
  std::swprintf(buf, sizeof buf / sizeof buf[0], L"%d", static_cast<int>(value));
  return buf;
}

}  // namespace

void recursive(std::uint64_t number, std::uint64_t number100, std::uint64_t previous100,
               std::uint64_t letter50, std::uint64_t previous50, std::uint64_t letter25,
               std::uint64_t previous25, int step, int type, std::wstring& out) {
  for (; step < type; ++step) {
    if (step == 0) {
      out += L'-' + int_text(number100) + L'-' + helper_50::letter_by_idx_cyclic(letter50) + L'-';
    } else {
      out += L',';
      if (helper_100::in_range(previous100) && helper_100::right_edge(previous100) &&
          even_in_range(previous50)) {
        out += helper_mln::get_next_list_num_str(number, 1) + L'-';
        number = helper_mln::next_number(number, 1, 1);
      }
      if (even_in_range(previous50)) {
        out += helper_100::str_by_int(number100) + L'-';
        previous50 = letter50;
      }
      if (even_in_range(previous25)) out += helper_50::letter_by_idx_cyclic(letter50) + std::wstring(L"-");
    }
    out += letter_by_idx_cyclic(letter25);
    // Move to the next 1:25,000 sheet; past an east-side one the 1:50,000 letter moves too, and past
    // an east-side 1:50,000 sheet the 1:100,000 number.
    std::uint64_t tested = previous50;
    if (letter25 % 2 == 0) {
      tested = letter50;
      letter50 = helper_50::next(letter50, 1);
    }
    if (even_in_range(tested)) {
      previous100 = number100;
      number100 = helper_100::next(number100, 1);
    }
    previous25 = letter25;
    previous50 = tested;
    letter25 = !in_range(letter25) ? INVALID_IDX : letter25 % 2 == 1 ? letter25 + 1 : letter25 - 1;
  }
}

}  // namespace vx::stdlist::helper_25
