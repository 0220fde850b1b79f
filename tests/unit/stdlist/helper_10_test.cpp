#include "stdlist/helper_10.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace h = vx::stdlist::helper_10;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

stdlist_string sheet10(std::uint64_t number10, Tvx_stdlist_scale scale = VX_STDLIST_SC_10,
                       std::uint64_t letter25 = 3) {
  return stdlist_string(1, scale, 1, 14, 37, 1, 1, 12, 2, letter25, number10);
}

TEST(Helper10, StrWrapsTheNumber) {
  EXPECT_EQ(h::str(sheet10(1), 3), 4);
  EXPECT_EQ(h::str(sheet10(1), 1), 2);
  EXPECT_EQ(h::str(sheet10(4), 1), 1);
  EXPECT_EQ(h::str(sheet10(5), 0), L'?');
  EXPECT_EQ(h::str(sheet10(1, VX_STDLIST_SC_10, 0), 0), L'?');
}

TEST(Helper10, TextsAndRange) {
  EXPECT_EQ(h::int_by_char(L'4'), 4u);
  EXPECT_EQ(h::int_by_char(L'0'), INVALID_IDX);
  EXPECT_EQ(h::int_by_char(L'x'), INVALID_IDX);
  EXPECT_EQ(h::get(sheet10(2)), L"2");
  EXPECT_EQ(h::get(sheet10(5)), L"?");
  EXPECT_TRUE(h::is_valid(sheet10(4)));
  EXPECT_FALSE(h::is_valid(sheet10(4, VX_STDLIST_SC_10, 7)));
}

TEST(Helper10, SetOnlyAtItsScaleAndOnlyInRange) {
  stdlist_string s = sheet10(1);
  h::set(s, L'3');
  EXPECT_EQ(s.get_10_number(), 3u);
  h::set(s, L'9');
  EXPECT_EQ(s.get_10_number(), 3u);
  stdlist_string other = sheet10(1, VX_STDLIST_SC_25);
  h::set(other, L'3');
  EXPECT_EQ(other.get_10_number(), 1u);
}

TEST(Helper10, OutputStrHasNoMillionPart) {
  std::wstring out;
  h::output_str(sheet10(4), out);
  EXPECT_EQ(out, L"-12-Б-в-4");
  out.clear();
  h::output_str(stdlist_string(1, 8, 2, 14, 37, 1, 1, 0, 5, 9, 7), out);
  EXPECT_EQ(out, L"-?-?-?-?");
}

}  // namespace
