#include "stdlist/helper_500.h"

#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_500 {

const wchar_t* const LETTERS = L"?АБВГ";

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_500_letter_idx()) && helper_mln::is_valid(sheet);
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

bool right_edge(std::uint64_t index) {
  return grid_2x2::right_edge(index);
}

wchar_t get(const stdlist_string& sheet, int offset) {
  const std::uint64_t idx = sheet.get_500_letter_idx();
  if (offset == 0) return letter_by_idx(idx);
  return letter_by_idx_cyclic(idx + static_cast<std::uint64_t>(static_cast<std::int64_t>(offset)));
}

bool set(stdlist_string& sheet, wchar_t letter) {
  if (sheet.get_scale() != VX_STDLIST_SC_500) return false;
  return sheet.set_500_letter_idx(index(letter));
}

void fill_str(const stdlist_string& sheet, std::wstring& out) {
  if (sheet.get_scale() != VX_STDLIST_SC_500) return;
  helper_mln::mln_part_str(sheet, out);
  recursive(sheet.get_mln_number(), sheet.get_500_letter_idx(), 0, 0, sheet.get_type(), out);
}

void recursive(std::uint64_t number, std::uint64_t index, std::uint64_t previous, int step, int type,
               std::wstring& out) {
  for (; step < type; ++step) {
    if (step > 0) {
      out += L',';
      if (in_range(previous) && previous % 2 == 0) {
        out += helper_mln::get_next_list_num_str(number, 1) + L'-';
        number = helper_mln::next(number, 1);
      }
    } else {
      out += L'-';
    }
    out += letter_by_idx_cyclic(index);
    previous = index;
    index = next(index, 1);
  }
}

void output_str(const stdlist_string& sheet, int position, std::wstring& out) {
  const std::uint64_t idx = sheet.get_500_letter_idx();
  if (idx % 2 == 0) {
    out += helper_mln::get_next_list_num_str(sheet.get_mln_number(), position) + L'-';
    position += 2;
  }
  out += position == 0
             ? letter_by_idx(idx)
             : letter_by_idx_cyclic(idx + static_cast<std::uint64_t>(static_cast<std::int64_t>(position)));
}

}  // namespace vx::stdlist::helper_500
