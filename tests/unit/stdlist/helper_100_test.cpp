#include "stdlist/helper_100.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace h = vx::stdlist::helper_100;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

stdlist_string sheet100(std::uint64_t number100, Tvx_stdlist_type type = 1,
                        Tvx_stdlist_scale scale = VX_STDLIST_SC_100, std::uint64_t number = 37) {
  return stdlist_string(1, scale, type, 14, number, 1, 1, number100, 1, 1, 1);
}

TEST(Helper100, Next) {
  EXPECT_EQ(h::next(12, 1), 1u);
  EXPECT_EQ(h::next(133, -1), 144u);
  EXPECT_EQ(h::next(11, 1), 12u);
  EXPECT_EQ(h::next(0, 1), INVALID_IDX);
  EXPECT_EQ(h::next(145, 1), INVALID_IDX);
}

TEST(Helper100, EdgesAndLines) {
  EXPECT_TRUE(h::left_edge(13));
  EXPECT_FALSE(h::left_edge(12));
  EXPECT_TRUE(h::right_edge(144));
  EXPECT_FALSE(h::right_edge(143));
  EXPECT_EQ(h::line(13), 2u);
  EXPECT_EQ(h::line_min(13), 12u);
  EXPECT_EQ(h::line_max(13), 24u);
}

TEST(Helper100, Texts) {
  EXPECT_EQ(h::int_by_str(L"144"), 144u);
  EXPECT_EQ(h::int_by_str(L"145"), INVALID_IDX);
  EXPECT_EQ(h::int_by_str(L"x"), INVALID_IDX);
  EXPECT_EQ(h::int_by_str(nullptr), INVALID_IDX);
  EXPECT_EQ(h::str_by_int(7), L"7");
  EXPECT_EQ(h::str_by_int(0), L"?");
  EXPECT_EQ(h::get(sheet100(99)), L"99");
}

TEST(Helper100, SetKeepsTheNumberOnABadText) {
  stdlist_string s = sheet100(12);
  h::set(s, L"145");
  EXPECT_EQ(s.get_100_number(), 12u);
  h::set(s, L"13");
  EXPECT_EQ(s.get_100_number(), 13u);
}

TEST(Helper100, ValidityNeedsTheMillionSheet) {
  EXPECT_TRUE(h::is_valid(sheet100(144)));
  EXPECT_FALSE(h::is_valid(sheet100(145)));
  EXPECT_FALSE(h::is_valid(sheet100(1, 1, VX_STDLIST_SC_100, 0)));
}

TEST(Helper100, SupportsType) {
  EXPECT_FALSE(h::supports_type(12, 2));
  EXPECT_TRUE(h::supports_type(11, 2));
  EXPECT_FALSE(h::supports_type(10, 4));
  EXPECT_TRUE(h::supports_type(9, 4));
  EXPECT_FALSE(h::supports_type(11, 4));
  EXPECT_TRUE(h::supports_type(12, 1));
  EXPECT_FALSE(h::supports_type(1, 3));
}

TEST(Helper100, FillStrAndRecursive) {
  std::wstring out;
  h::fill_str(sheet100(144, 4), out);
  EXPECT_EQ(out, L"N-37-144,38-133,134,135");
  out.clear();
  h::fill_str(sheet100(144, 4, VX_STDLIST_SC_50), out);
  EXPECT_EQ(out, L"");
  out.clear();
  h::recursive(60, 12, 0, 0, 2, out);
  EXPECT_EQ(out, L"-12,1-1");
}

TEST(Helper100, StrOfTheOlderRoutine) {
  EXPECT_EQ(h::str(sheet100(11), 1), L"N-12");
  EXPECT_EQ(h::str(sheet100(12), 1), L"N-38-1");  // an east-edge number writes the next column first
  EXPECT_EQ(h::str(sheet100(0), 1), L"?");
  EXPECT_EQ(h::str(sheet100(5, 1, VX_STDLIST_SC_100, 61), 1), L"?");
}

TEST(Helper100, OutputStrOfTheOlderRoutine) {
  std::wstring out;
  h::output_str(sheet100(11, 1), out);
  EXPECT_EQ(out, L"-11");
  out.clear();
  h::output_str(sheet100(11, 2), out);
  EXPECT_EQ(out, L"-11,N-12");
  out.clear();
  h::output_str(sheet100(11, 4), out);
  EXPECT_EQ(out, L"-11,N-12,N-1,N-2");
  out.clear();
  h::output_str(sheet100(11, 4, VX_STDLIST_SC_50), out);
  EXPECT_EQ(out, L"");
}

}  // namespace
