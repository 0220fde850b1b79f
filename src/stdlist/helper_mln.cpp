#include "stdlist/helper_mln.h"

#include <cstdio>

#include "stdlist/level_common.h"
#include "support/ansi_code_page.h"

namespace vx::stdlist {

namespace helper_mln {

const wchar_t* const ZONE_LETTERS = L"?ABCDEFGHIJKLMNOPQRSTUVZ";

bool letter_in_range(std::uint64_t index) {
  return index >= 1 && index <= LETTER_COUNT;
}
bool number_in_range(std::uint64_t number) {
  return number >= 1 && number <= NUMBER_COUNT;
}
bool in_range(std::uint64_t number) {
  return number_in_range(number);
}
bool in_range(std::uint64_t letter_idx, std::uint64_t number) {
  return letter_in_range(letter_idx) && number_in_range(number);
}
bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_mln_letter_idx(), sheet.get_mln_number());
}
bool has_polar(std::uint64_t letter_idx) {
  return letter_idx == POLAR_LETTER_IDX;
}

wchar_t letter_by_idx(std::uint64_t index) {
  return letter_in_range(index) ? ZONE_LETTERS[index] : INVALID_WCHAR;
}

wchar_t letter_by_idx_cyclic(std::uint64_t index) {
  return index == 0 ? INVALID_WCHAR : ZONE_LETTERS[(index - 1) % LETTER_COUNT + 1];
}

std::uint64_t letter_idx(wchar_t letter) {
  for (std::uint64_t i = 1; i <= LETTER_COUNT; ++i) {
    if (ZONE_LETTERS[i] == letter) return i;
  }
  return INVALID_IDX;
}

wchar_t get_letter(const stdlist_string& sheet) {
  return letter_by_idx(sheet.get_mln_letter_idx());
}

bool set_letter(stdlist_string& sheet, wchar_t letter) {
  return sheet.set_mln_letter_idx(letter_idx(letter));
}

std::wstring number(std::uint64_t number) {
  return number_text_or_invalid(number, in_range(number));
}

std::uint64_t number(const std::wstring& text) {
  std::int64_t v = 0;
  if (!parse_decimal(text.c_str(), v) || v < 1 || v > static_cast<std::int64_t>(NUMBER_COUNT)) {
    return INVALID_IDX;
  }
  return static_cast<std::uint64_t>(v);
}

std::uint64_t get_next_list_num(std::uint64_t number, int offset) {
  if (offset < 0) offset += static_cast<int>(NUMBER_COUNT);
  std::uint64_t v = number + static_cast<std::uint64_t>(static_cast<std::int64_t>(offset));
  if (v >= NUMBER_COUNT + 1) v %= NUMBER_COUNT;
  return v;
}

std::wstring get_next_list_num_str(std::uint64_t number, int offset) {
  return number_text(get_next_list_num(number, offset));
}

std::uint64_t next_number(std::uint64_t number, int step, int type) {
  if (!in_range(number)) return INVALID_IDX;
  const std::int64_t n = NUMBER_COUNT;
  const std::int64_t v = wrap_mod(static_cast<std::int64_t>(number) + std::int64_t{step} * type, n);
  return v == 0 ? NUMBER_COUNT : static_cast<std::uint64_t>(v);
}

std::uint64_t next_letter_idx(Tvx_stdlist_hemisphere hemisphere, std::uint64_t index, int step) {
  if (!letter_in_range(index)) return INVALID_IDX;
  const std::int64_t n = LETTER_COUNT;
  const std::int64_t i = static_cast<std::int64_t>(index);
  if (hemisphere == VX_STDLIST_NORTH) {
    const std::int64_t x = wrap_mod(i + step, n);
    return x == 0 ? 1 : static_cast<std::uint64_t>(x);
  }
  if (step == i) return 1;
  const std::int64_t x = wrap_mod(i - step, n);
  return x == 0 ? LETTER_COUNT : static_cast<std::uint64_t>(x);
}

std::uint64_t next(std::uint64_t number, int step) {
  return in_range(number) ? line_cycle_next(number, step, NUMBER_COUNT) : INVALID_IDX;
}

bool left_edge(std::uint64_t number) {
  return (number - 1) % NUMBER_COUNT == 0;
}
bool right_edge(std::uint64_t number) {
  return number % NUMBER_COUNT == 0;
}
std::uint64_t line(std::uint64_t number) {
  return (number - 1) / NUMBER_COUNT + 1;
}
std::uint64_t line_min(std::uint64_t number) {
  return (number - 1) / NUMBER_COUNT * NUMBER_COUNT;
}
std::uint64_t line_max(std::uint64_t number) {
  return line_min(number) + NUMBER_COUNT;
}

void mln_part_str(const stdlist_string& sheet, std::wstring& out) {
  out += get_letter(sheet);
  out += L'-';
  out += number(sheet.get_mln_number());
}

void fill_str(const stdlist_string& sheet, std::wstring& out, int) {
  out += get_letter(sheet);
  out += L'-';
  if (sheet.get_scale() == VX_STDLIST_SC_MLN) recursive(sheet.get_mln_number(), 0, sheet.get_type(), out);
}

namespace {

std::wstring neighbour_band_string(const stdlist_string& sheet, int step) {
  if (!sheet.is_valid()) return INVALID_CHR;
  stdlist_string moved = sheet;
  moved.set_mln_letter_idx(next_letter_idx(sheet.get_hemisphere(), sheet.get_mln_letter_idx(), step));
  std::wstring out;
  return moved.get_output_string(out);
}

}  // namespace

std::wstring upper_list_string(const stdlist_string& sheet) {
  return neighbour_band_string(sheet, +1);
}
std::wstring lower_list_string(const stdlist_string& sheet) {
  return neighbour_band_string(sheet, -1);
}

void append_incremented_with_zero_check(int value, std::wstring& out) {
  if (value == 0) value = 1;
  if (out.size() >= 2) {
    const std::string c = strconv::wide_to_ansi(out.substr(out.size() - 2, 1));
    const int digit = (!c.empty() && c[0] >= '0' && c[0] <= '9') ? c[0] - '0' : 0;
    if (digit == value) ++value;
  }
  wchar_t buf[16];
  std::swprintf(buf, sizeof buf / sizeof buf[0], L"%d", value);
  out += buf;
}

}  // namespace helper_mln

std::wstring get_number(const stdlist_string& sheet) {
  return helper_mln::number(sheet.get_mln_number());
}

bool set_number(stdlist_string& sheet, const wchar_t* text) {
  return sheet.set_mln_number(text ? helper_mln::number(std::wstring(text)) : INVALID_IDX);
}

void recursive(std::uint64_t number, int index, int type, std::wstring& out) {
  for (; index < type; ++index) {
    if (index == 0) {
      out += helper_mln::number(number);
    } else {
      out += L',';
      out += helper_mln::get_next_list_num_str(number, index);
    }
  }
}

}  // namespace vx::stdlist
