#include "stdlist/helper_200.h"

#include <stdexcept>
#include <vector>

#include "stdlist/helper_mln.h"
#include "stdlist/joined_row.h"
#include "stdlist/level_common.h"

namespace vx::stdlist {

namespace helper_200 {

namespace {

const wchar_t* const ROMANS[COUNT + 1] = {
    L"?",   L"I",    L"II",    L"III",    L"IV",    L"V",    L"VI",   L"VII",   L"VIII",   L"IX",
    L"X",   L"XI",   L"XII",   L"XIII",   L"XIV",   L"XV",   L"XVI",  L"XVII",  L"XVIII",  L"XIX",
    L"XX",  L"XXI",  L"XXII",  L"XXIII",  L"XXIV",  L"XXV",  L"XXVI", L"XXVII", L"XXVIII", L"XXIX",
    L"XXX", L"XXXI", L"XXXII", L"XXXIII", L"XXXIV", L"XXXV", L"XXXVI"};

std::uint64_t checked(std::uint64_t index) {
  return in_range(index) ? index : INVALID_IDX;
}

// The designation of a single 1:200,000 record built from neighbour coordinates.
std::wstring designation(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                         std::uint64_t index, Tvx_stdlist_type type) {
  const stdlist_string sheet(hemisphere, VX_STDLIST_SC_200, type, letter, number, 1, index, 1, 1, 1, 1);
  std::wstring out;
  return sheet.get_output_string(out);
}

// Whether a walk of `type` columns from `index` (first column checked: index - k for west, index + k
// for east) meets the edge of the million sheet.
bool walk_crosses(std::uint64_t index, Tvx_stdlist_type type, int direction) {
  for (int k = 0; k < type; ++k) {
    const std::int64_t at =
        direction < 0 ? static_cast<std::int64_t>(index) - 1 - k : static_cast<std::int64_t>(index) + k;
    if (wrap_mod(at, ROW) == 0) return true;
  }
  return false;
}

}  // namespace

bool in_range(std::uint64_t index) {
  return index >= 1 && index <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_200_roman_idx()) && helper_mln::is_valid(sheet);
}

bool has_polar(std::uint64_t index) {
  return index >= 13 && index <= 18;
}

std::wstring string(std::uint64_t index) {
  return in_range(index) ? ROMANS[index] : INVALID_CHR;
}
std::wstring letter_by_idx(std::uint64_t index) {
  return string(index);
}

std::wstring letter_by_idx_cyclic(std::uint64_t index) {
  return index == 0 ? INVALID_CHR : ROMANS[(index - 1) % COUNT + 1];
}

std::uint64_t index(const std::wstring& text) {
  for (std::uint64_t i = 1; i <= COUNT; ++i) {
    if (text == ROMANS[i]) return i;
  }
  return INVALID_IDX;
}

bool roman_left_edge(std::uint64_t index) {
  return (index - 1) % ROW == 0;
}
bool roman_right_edge(std::uint64_t index) {
  return index % ROW == 0;
}
bool roman_up_edge(std::uint64_t index) {
  return index < 7;
}
bool roman_down_edge(std::uint64_t index) {
  return index > 30;
}

std::uint64_t get_left_roman_idx(std::uint64_t index) {
  return checked(roman_left_edge(index) ? index + 5 : index - 1);
}
std::uint64_t get_right_roman_idx(std::uint64_t index) {
  return checked(roman_right_edge(index) ? index - 5 : index + 1);
}
std::uint64_t get_up_roman_idx(std::uint64_t index) {
  return checked(index < 7 ? index + 30 : index - 6);
}
std::uint64_t get_down_roman_idx(std::uint64_t index) {
  return checked(index < 31 ? index + 6 : index - 30);
}

std::uint64_t line(std::uint64_t index) {
  return (index - 1) / ROW + 1;
}
std::uint64_t line_min(std::uint64_t index) {
  return (index - 1) / ROW * ROW;
}
std::uint64_t line_max(std::uint64_t index) {
  return line_min(index) + ROW;
}

std::uint64_t next_list_idx(std::uint64_t index, int step) {
  return in_range(index) ? line_cycle_next(index, step, ROW) : INVALID_IDX;
}

std::uint64_t next(std::uint64_t index, int step, int type) {
  for (int i = 0; i < type; ++i) index = next_list_idx(index, step);
  return index;
}

std::uint64_t next(std::uint64_t index, int step) {
  if (index < 7 && step > 0) return index + 30;
  const std::int64_t v = wrap_mod(static_cast<std::int64_t>(index) - 6 * std::int64_t{step}, COUNT);
  return (v == 0 && step <= 0) ? COUNT : static_cast<std::uint64_t>(v);
}

std::uint64_t upper(std::uint64_t index) {
  return index < 7 ? index + 30 : (index - 6) % COUNT;
}

std::uint64_t lower(std::uint64_t index) {
  const std::uint64_t v = (index + 6) % COUNT;
  return v == 0 ? COUNT : v;
}

std::wstring get_left_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                               std::uint64_t index, Tvx_stdlist_type type) {
  const std::uint64_t moved = next(index, -1, type);
  if (walk_crosses(index, type, -1)) number = helper_mln::next_number(number, -1, 1);
  return designation(hemisphere, letter, number, moved, type);
}

std::wstring get_right_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                                std::uint64_t index, Tvx_stdlist_type type) {
  const std::uint64_t moved = next(index, +1, type);
  if (walk_crosses(index, type, +1)) number = helper_mln::next_number(number, +1, 1);
  return designation(hemisphere, letter, number, moved, type);
}

std::wstring get_upper_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                                std::uint64_t index, Tvx_stdlist_type type) {
  std::uint64_t moved = INVALID_IDX;
  if (index < 7) {
    letter = helper_mln::next_letter_idx(hemisphere, letter, +1);
    if (in_range(index)) moved = index + 30;
  } else if (in_range(index)) {
    moved = (index - 6) % COUNT;
  }
  return designation(hemisphere, letter, number, moved, type);
}

std::wstring get_lower_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                                std::uint64_t index, Tvx_stdlist_type type) {
  const std::uint64_t moved = in_range(index) ? lower(index) : INVALID_IDX;
  if (index >= 31) letter = helper_mln::next_letter_idx(hemisphere, letter, -1);
  return designation(hemisphere, letter, number, moved, type);
}

bool all_filled(const std::wstring& left, const std::wstring& right, const std::wstring& upper,
                const std::wstring& lower) {
  return !left.empty() && !right.empty() && !upper.empty() && !lower.empty();
}

bool get_neighbor_list_str(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter, std::uint64_t number,
                           std::uint64_t index, std::wstring& left, std::wstring& right, std::wstring& upper,
                           std::wstring& lower, Tvx_stdlist_type type) {
  left = get_left_list_str(hemisphere, letter, number, index, type);
  right = get_right_list_str(hemisphere, letter, number, index, type);
  upper = get_upper_list_str(hemisphere, letter, number, index, type);
  lower = get_lower_list_str(hemisphere, letter, number, index, type);
  return all_filled(left, right, upper, lower);
}

std::wstring get_up_list_num_str(std::uint64_t letter, std::uint64_t number, std::uint64_t index) {
  std::wstring out(1, helper_mln::letter_by_idx(roman_up_edge(index) ? letter + 1 : letter));
  return out + L'-' + helper_mln::number(number);
}

std::wstring get_down_list_num_str(std::uint64_t letter, std::uint64_t number, std::uint64_t index) {
  std::wstring out(1, helper_mln::letter_by_idx(roman_down_edge(index) ? letter - 1 : letter));
  return out + L'-' + helper_mln::number(number);
}

void fill_str(const stdlist_string& sheet, std::wstring& out) {
  if (sheet.get_scale() != VX_STDLIST_SC_200) return;
  helper_mln::mln_part_str(sheet, out);
  recursive(sheet.get_mln_number(), sheet.get_200_roman_idx(), 0, 0, sheet.get_type(), out);
}

void recursive(std::uint64_t number, std::uint64_t index, std::uint64_t previous, int step, int type,
               std::wstring& out) {
  append_row_join(row_level{ROW, COUNT, &letter_by_idx_cyclic}, number, index, previous, step, type, out);
}

// Each pass of the loop is one sheet of the row; the counter lives in a static as it always has.
void fill_str_old(const stdlist_string& sheet, std::wstring& out) {
  static int counter = 0;
  if (sheet.get_scale() != VX_STDLIST_SC_200) return;
  for (;;) {
    if (counter > sheet.get_type() - 1) {
      counter = 0;
      return;
    }
    if (counter > 0) {
      out += L',';
      std::uint64_t last = 0;
      try {
        last = parse_out_last_roman(out);
      } catch (...) {
        counter = 0;  // a text without letter and number: leave the counter ready for the next call
        throw;
      }
      if (last % ROW == 0) out += helper_mln::get_next_list_num_str(sheet.get_mln_number(), 1) + L'-';
    } else {
      out += L'-';
    }
    out += string(next(sheet.get_200_roman_idx(), counter, 1));
    ++counter;
  }
}

}  // namespace helper_200

namespace {

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator) {
  std::vector<std::wstring> fields(1);
  for (wchar_t c : text) {
    if (c == separator) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

}  // namespace

std::uint64_t parse_out_last_roman(const std::wstring& text) {
  const std::vector<std::wstring> fields = split(text, L'-');
  if (fields.size() < 3) throw std::out_of_range("invalid vector<T> subscript");
  std::wstring list = fields[2];
  if (fields.size() >= 4) list = list.substr(0, list.size() < 2 ? 0 : list.size() - 2) + fields[3];
  std::vector<std::wstring> items = split(list, L',');
  if (items.size() > 4) items.resize(4);
  for (auto it = items.rbegin(); it != items.rend(); ++it) {
    const std::uint64_t i = helper_200::index(*it);
    if (i != INVALID_IDX) return i;
  }
  return INVALID_IDX;
}

}  // namespace vx::stdlist
