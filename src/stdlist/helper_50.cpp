#include "stdlist/helper_50.h"

#include <cstdio>

#include "stdlist/helper_100.h"
#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_50 {

const wchar_t* const LETTERS = L"?АБВГ";

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_50_letter_idx()) && helper_100::is_valid(sheet);
}

std::uint64_t index(wchar_t letter) {
  return grid_2x2::find(LETTERS, letter);
}

wchar_t letter_by_idx(std::uint64_t index) {
  return in_range(index) ? LETTERS[index] : INVALID_WCHAR;
}

wchar_t letter_by_idx_cyclic(std::uint64_t index) {
  return LETTERS[(index == 0 ? 0 : index - 1) % COUNT + 1];
}

void set(stdlist_string& sheet, wchar_t letter) {
  if (sheet.get_scale() != VX_STDLIST_SC_50) return;
  // The position as a search of the whole table gives it, plus one; a miss wraps to 0.
  sheet.set_50_letter_idx(std::wstring(LETTERS).find(letter) + 1);
}

wchar_t letter(const stdlist_string& sheet, int offset) {
  const std::uint64_t idx = sheet.get_50_letter_idx();
  if (!in_range(idx) || !helper_100::is_valid(sheet)) return INVALID_WCHAR;
  const std::int64_t x = wrap_mod(static_cast<std::int64_t>(idx) + offset, COUNT);
  return LETTERS[x == 0 ? 3 : x - 1];
}

bool supports_type(const stdlist_string& sheet, Tvx_stdlist_type type) {
  const std::uint64_t number100 = sheet.get_100_number();
  const bool odd = sheet.get_50_letter_idx() % 2 == 1;
  switch (type) {
    case VX_STDLIST_TP_SGL:
      return true;
    case VX_STDLIST_TP_DBL:
      return !helper_100::right_edge(number100) || odd;
    case VX_STDLIST_TP_QRP:
      if (helper_100::right_edge(number100)) return false;
      return !helper_100::right_edge(helper_100::next(number100, 1)) || odd;
    default:
      return false;
  }
}

void fill_str(const stdlist_string& sheet, std::wstring& out) {
  if (sheet.get_scale() != VX_STDLIST_SC_50) return;
  helper_mln::mln_part_str(sheet, out);
  recursive(sheet.get_mln_number(), sheet.get_100_number(), 0, sheet.get_50_letter_idx(), 0, 0,
            sheet.get_type(), out);
}

namespace {

std::wstring int_text(std::uint64_t value) {
  wchar_t buf[24];
  std::swprintf(buf, sizeof buf / sizeof buf[0], L"%d", static_cast<int>(value));
  return buf;
}

}  // namespace

void recursive(std::uint64_t number, std::uint64_t number100, std::uint64_t previous100,
               std::uint64_t letter50, std::uint64_t previous50, int step, int type, std::wstring& out) {
  for (; step < type; ++step) {
    const bool crossed = in_range(previous50) && previous50 % 2 == 0;
    if (step == 0) {
      out += L'-' + int_text(number100);
    } else {
      out += L',';
      if (helper_100::in_range(previous100) && helper_100::right_edge(previous100) && crossed) {
        out += helper_mln::get_next_list_num_str(number, 1) + L'-';
        number = helper_mln::next_number(number, 1, 1);
      }
      if (crossed) out += helper_100::str_by_int(number100);
    }
    if (step == 0 || crossed) out += L'-';
    out += letter_by_idx_cyclic(letter50);
    previous50 = letter50;
    if (!in_range(letter50)) {
      letter50 = INVALID_IDX;
    } else if (letter50 % 2 == 1) {
      letter50 += 1;
    } else {
      letter50 -= 1;
      previous100 = number100;
      number100 = helper_100::next(number100, 1);
    }
  }
}

}  // namespace vx::stdlist::helper_50
