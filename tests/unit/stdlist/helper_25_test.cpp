#include "stdlist/helper_25.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace h = vx::stdlist::helper_25;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

stdlist_string sheet25(std::uint64_t number100, std::uint64_t letter50, std::uint64_t letter25,
                       Tvx_stdlist_type type = 1, Tvx_stdlist_scale scale = VX_STDLIST_SC_25) {
  return stdlist_string(1, scale, type, 14, 37, 1, 1, number100, letter50, letter25, 1);
}

TEST(Helper25, IndexOfTheMarkIs0) {
  EXPECT_EQ(h::index(L'?'), 0u);
  EXPECT_EQ(h::index(L'г'), 4u);
  EXPECT_EQ(h::index(L'Г'), INVALID_IDX);
}

TEST(Helper25, Letters) {
  EXPECT_EQ(h::letter_by_idx(1), L'а');
  EXPECT_EQ(h::letter_by_idx(5), L'?');
  EXPECT_EQ(h::letter_by_idx_cyclic(0), L'?');
  EXPECT_EQ(h::letter_by_idx_cyclic(6), L'б');
  EXPECT_EQ(h::next(4, 1), 3u);
  EXPECT_EQ(h::next(3, -1), 4u);
  EXPECT_EQ(h::next_letter_idx(0), 1u);
  EXPECT_TRUE(h::left_edge(3));
  EXPECT_TRUE(h::right_edge(4));
  EXPECT_EQ(h::line(3), 2u);
  EXPECT_EQ(h::line_min(1), 0u);
  EXPECT_EQ(h::line_max(1), 2u);
  EXPECT_TRUE(h::in_range(1));
}

TEST(Helper25, ValidityNeedsThe50Sheet) {
  EXPECT_TRUE(h::is_valid(sheet25(12, 2, 4)));
  EXPECT_FALSE(h::is_valid(sheet25(12, 2, 9)));
  EXPECT_FALSE(h::is_valid(sheet25(12, 0, 1)));
}

TEST(Helper25, SetStoresThePositionUnchecked) {
  stdlist_string s = sheet25(12, 2, 4);
  h::set(s, L'б');
  EXPECT_EQ(s.raw_25_letter_idx(), 2u);
  h::set(s, L'x');  // not found: kept
  EXPECT_EQ(s.raw_25_letter_idx(), 2u);
  h::set(s, L'?');  // the mark is found at 0 and stored
  EXPECT_EQ(s.raw_25_letter_idx(), 0u);
  stdlist_string other = sheet25(12, 2, 4, 1, VX_STDLIST_SC_50);
  h::set(other, L'а');
  EXPECT_EQ(other.raw_25_letter_idx(), 4u);
}

TEST(Helper25, LetterWithOffset) {
  EXPECT_EQ(h::letter(sheet25(12, 2, 4), 1), L'а');
  EXPECT_EQ(h::letter(sheet25(12, 2, 1), 0), L'а');
  EXPECT_EQ(h::letter(sheet25(12, 2, 5), 0), L'?');
  EXPECT_EQ(h::letter(sheet25(0, 2, 1), 0), L'?');
}

TEST(Helper25, GetIsAOneCharacterText) {
  EXPECT_EQ(h::get(sheet25(12, 2, 3)), L"в");
  EXPECT_EQ(h::get(sheet25(12, 2, 0)), L"?");
  EXPECT_EQ(h::get(sheet25(12, 7, 3)), L"?");
}

TEST(Helper25, SupportsType) {
  EXPECT_TRUE(h::supports_type(sheet25(12, 2, 2), 1));
  EXPECT_FALSE(h::supports_type(sheet25(12, 2, 2), 2));
  EXPECT_TRUE(h::supports_type(sheet25(12, 2, 1), 2));
  EXPECT_TRUE(h::supports_type(sheet25(12, 1, 2), 2));
  EXPECT_FALSE(h::supports_type(sheet25(12, 2, 1), 4));
  EXPECT_TRUE(h::supports_type(sheet25(12, 1, 1), 4));
  EXPECT_FALSE(h::supports_type(sheet25(12, 1, 2), 4));
  EXPECT_TRUE(h::supports_type(sheet25(11, 2, 2), 4));
  EXPECT_FALSE(h::supports_type(sheet25(11, 2, 2), 3));
}

TEST(Helper25, FillStrStaysInsideOne50SheetThenCrosses) {
  std::wstring out;
  h::fill_str(sheet25(12, 2, 1, 2), out);
  EXPECT_EQ(out, L"N-37-12-Б-а,б");
  out.clear();
  h::fill_str(sheet25(12, 2, 1, 4), out);
  EXPECT_EQ(out, L"N-37-12-Б-а,б,38-1-А-а,б");
  out.clear();
  h::fill_str(sheet25(12, 2, 1, 4, VX_STDLIST_SC_10), out);
  EXPECT_EQ(out, L"");
}

TEST(Helper25, RecursiveOfAnInvalidLetterMarksIt) {
  std::wstring out;
  h::recursive(37, 5, 0, 1, 0, 0, 0, 0, 2, out);
  EXPECT_EQ(out, L"-5-А-?,?");
}

}  // namespace
