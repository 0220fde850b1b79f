#include "stdlist/helper_50.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace h = vx::stdlist::helper_50;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

stdlist_string sheet50(std::uint64_t number100, std::uint64_t letter50, Tvx_stdlist_type type = 1,
                       Tvx_stdlist_scale scale = VX_STDLIST_SC_50) {
  return stdlist_string(1, scale, type, 14, 37, 1, 1, number100, letter50, 1, 1);
}

TEST(Helper50, NextWrapsInsideTheRow) {
  EXPECT_EQ(h::next(2, 1), 1u);
  EXPECT_EQ(h::next(1, -1), 2u);
  EXPECT_EQ(h::next(4, 1), 3u);
  EXPECT_EQ(h::next(3, -1), 4u);
}

TEST(Helper50, CyclicLetterTakes0As1) {
  EXPECT_EQ(h::letter_by_idx_cyclic(0), L'А');
  EXPECT_EQ(h::letter_by_idx_cyclic(1), L'А');
  EXPECT_EQ(h::letter_by_idx_cyclic(4), L'Г');
  EXPECT_EQ(h::letter_by_idx_cyclic(5), L'А');
}

TEST(Helper50, LettersAndIndices) {
  EXPECT_EQ(h::index(L'В'), 3u);
  EXPECT_EQ(h::index(L'?'), INVALID_IDX);
  EXPECT_EQ(h::index(L'в'), INVALID_IDX);
  EXPECT_EQ(h::letter_by_idx(2), L'Б');
  EXPECT_EQ(h::letter_by_idx(0), L'?');
  EXPECT_TRUE(h::in_range(4));
  EXPECT_FALSE(h::in_range(5));
  EXPECT_EQ(h::next_letter_idx(2), 1u);
  EXPECT_TRUE(h::left_edge(1));
  EXPECT_TRUE(h::right_edge(2));
  EXPECT_EQ(h::line(2), 1u);
  EXPECT_EQ(h::line_min(2), 0u);
  EXPECT_EQ(h::line_max(2), 2u);
}

TEST(Helper50, ValidityNeedsThe100Sheet) {
  EXPECT_TRUE(h::is_valid(sheet50(12, 4)));
  EXPECT_FALSE(h::is_valid(sheet50(145, 4)));
  EXPECT_FALSE(h::is_valid(sheet50(12, 0)));
}

TEST(Helper50, SetStoresThePositionPlusOne) {
  stdlist_string s = sheet50(12, 1);
  h::set(s, L'А');
  EXPECT_EQ(s.get_50_letter_idx(), 2u);
  h::set(s, L'Г');
  EXPECT_EQ(s.get_50_letter_idx(), INVALID_IDX);
  h::set(s, L'x');
  EXPECT_EQ(s.get_50_letter_idx(), INVALID_IDX);
  h::set(s, L'?');  // the mark at position 0 stores 1
  EXPECT_EQ(s.get_50_letter_idx(), 1u);
  stdlist_string other = sheet50(12, 3, 1, VX_STDLIST_SC_25);
  h::set(other, L'А');  // only at 1:50,000
  EXPECT_EQ(other.get_50_letter_idx(), 3u);
}

TEST(Helper50, LetterReadsATableWithoutTheMark) {
  EXPECT_EQ(h::letter(sheet50(12, 1), 0), L'?');  // index 1 with offset 0 reads position 0
  EXPECT_EQ(h::letter(sheet50(12, 2), 0), L'А');
  EXPECT_EQ(h::letter(sheet50(12, 4), 0), L'В');  // remainder 0 reads position 3
  EXPECT_EQ(h::letter(sheet50(12, 1), 1), L'А');
  EXPECT_EQ(h::letter(sheet50(12, 5), 0), L'?');
  EXPECT_EQ(h::letter(sheet50(0, 2), 0), L'?');
}

TEST(Helper50, SupportsType) {
  EXPECT_TRUE(h::supports_type(sheet50(12, 2), 1));
  EXPECT_FALSE(h::supports_type(sheet50(12, 2), 2));  // east 50 sheet of an east-edge 100 sheet
  EXPECT_TRUE(h::supports_type(sheet50(12, 1), 2));
  EXPECT_TRUE(h::supports_type(sheet50(11, 2), 2));
  EXPECT_FALSE(h::supports_type(sheet50(12, 1), 4));
  EXPECT_TRUE(h::supports_type(sheet50(10, 2), 4));   // next 100 sheet is not at the edge either
  EXPECT_TRUE(h::supports_type(sheet50(11, 1), 4));   // next 100 sheet at the edge, odd letter
  EXPECT_FALSE(h::supports_type(sheet50(11, 2), 4));  // next 100 sheet at the edge, even letter
  EXPECT_FALSE(h::supports_type(sheet50(10, 1), 3));
}

TEST(Helper50, FillStrOnlyAtItsScale) {
  std::wstring out;
  h::fill_str(sheet50(11, 2, 4), out);
  EXPECT_EQ(out, L"N-37-11-Б,12-А,Б,38-1-А");
  out.clear();
  h::fill_str(sheet50(11, 2, 4, VX_STDLIST_SC_100), out);
  EXPECT_EQ(out, L"");
}

TEST(Helper50, RecursiveFromALaterStep) {
  std::wstring out;
  h::recursive(37, 12, 11, 1, 2, 1, 2, out);  // after 11-Б the row goes on at 12-А
  EXPECT_EQ(out, L",12-А");
}

}  // namespace
