#include "stdlist/helper_500.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace h = vx::stdlist::helper_500;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

stdlist_string sheet500(std::uint64_t number, std::uint64_t letter, Tvx_stdlist_type type = 1,
                        Tvx_stdlist_scale scale = VX_STDLIST_SC_500) {
  return stdlist_string(1, scale, type, 14, number, letter, 1, 1, 1, 1, 1);
}

TEST(Helper500, LettersAndIndices) {
  EXPECT_EQ(h::index(L'Б'), 2u);
  EXPECT_EQ(h::index(L'б'), INVALID_IDX);
  EXPECT_EQ(h::index(L'?'), INVALID_IDX);
  EXPECT_EQ(h::letter_by_idx(4), L'Г');
  EXPECT_EQ(h::letter_by_idx(5), L'?');
  EXPECT_EQ(h::letter_by_idx_cyclic(0), L'?');
  EXPECT_EQ(h::letter_by_idx_cyclic(5), L'А');
}

TEST(Helper500, ValidityNeedsTheMillionSheet) {
  EXPECT_TRUE(h::is_valid(sheet500(37, 1)));
  EXPECT_FALSE(h::is_valid(sheet500(37, 5)));
  EXPECT_FALSE(h::is_valid(sheet500(0, 1)));
}

TEST(Helper500, GridFunctionsAreThoseOfTheLetterLevels) {
  EXPECT_EQ(h::next(2, 1), 1u);
  EXPECT_EQ(h::next(3, -1), 4u);
  EXPECT_TRUE(h::left_edge(3));
  EXPECT_TRUE(h::right_edge(4));
  EXPECT_EQ(h::line(3), 2u);
  EXPECT_EQ(h::line_min(3), 2u);
  EXPECT_EQ(h::line_max(3), 4u);
  EXPECT_EQ(h::next_letter_idx(4), 3u);
  EXPECT_TRUE(h::in_range(4));
}

TEST(Helper500, GetWithOffset) {
  EXPECT_EQ(h::get(sheet500(37, 4), 1), L'А');
  EXPECT_EQ(h::get(sheet500(37, 4), 0), L'Г');
  EXPECT_EQ(h::get(sheet500(37, 2), 1), L'В');
  EXPECT_EQ(h::get(sheet500(37, 9), 0), L'?');
  EXPECT_EQ(h::get(sheet500(37, 1), -1), L'?');  // index plus offset is 0
}

TEST(Helper500, SetOnlyAt500) {
  stdlist_string s = sheet500(37, 1);
  EXPECT_TRUE(h::set(s, L'В'));
  EXPECT_EQ(s.get_500_letter_idx(), 3u);
  EXPECT_FALSE(h::set(s, L'x'));
  EXPECT_EQ(s.get_500_letter_idx(), INVALID_IDX);
  stdlist_string m = sheet500(37, 1, 1, VX_STDLIST_SC_MLN);
  EXPECT_FALSE(h::set(m, L'В'));
  EXPECT_EQ(m.get_500_letter_idx(), 1u);
}

TEST(Helper500, FillStr) {
  std::wstring out;
  h::fill_str(sheet500(37, 2, 4), out);
  EXPECT_EQ(out, L"N-37-Б,38-А,Б,39-А");
  out.clear();
  h::fill_str(sheet500(37, 2, 4, VX_STDLIST_SC_MLN), out);
  EXPECT_EQ(out, L"");
}

TEST(Helper500, OutputStrOfTheOlderRoutine) {
  std::wstring out;
  h::output_str(sheet500(37, 1), 1, out);  // odd letter: the letter of index plus position
  EXPECT_EQ(out, L"Б");
  out.clear();
  h::output_str(sheet500(37, 2), 1, out);  // even letter: next column first, position plus 2
  EXPECT_EQ(out, L"38-А");
  out.clear();
  h::output_str(sheet500(37, 3), 0, out);
  EXPECT_EQ(out, L"В");
}

}  // namespace
