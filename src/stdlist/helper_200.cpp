#include "stdlist/helper_200.h"

#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"

namespace vx::stdlist::helper_200 {

namespace {

const wchar_t* const ROMANS[COUNT + 1] = {
    L"?",   L"I",    L"II",    L"III",    L"IV",    L"V",    L"VI",   L"VII",   L"VIII",   L"IX",
    L"X",   L"XI",   L"XII",   L"XIII",   L"XIV",   L"XV",   L"XVI",  L"XVII",  L"XVIII",  L"XIX",
    L"XX",  L"XXI",  L"XXII",  L"XXIII",  L"XXIV",  L"XXV",  L"XXVI", L"XXVII", L"XXVIII", L"XXIX",
    L"XXX", L"XXXI", L"XXXII", L"XXXIII", L"XXXIV", L"XXXV", L"XXXVI"};

}  // namespace

bool in_range(std::uint64_t index) {
  return index >= 1 && index <= COUNT;
}

bool is_valid(const stdlist_string& sheet) {
  return in_range(sheet.get_200_roman_idx()) && helper_mln::is_valid(sheet);
}

std::wstring string(std::uint64_t index) {
  return in_range(index) ? ROMANS[index] : INVALID_CHR;
}
std::wstring letter_by_idx(std::uint64_t index) {
  return string(index);
}

std::uint64_t index(const std::wstring& text) {
  for (std::uint64_t i = 1; i <= COUNT; ++i) {
    if (text == ROMANS[i]) return i;
  }
  return INVALID_IDX;
}

}  // namespace vx::stdlist::helper_200
