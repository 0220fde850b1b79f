#include "stdlist/level_common.h"

#include <gtest/gtest.h>

namespace {

using vx::stdlist::line_cycle_next;

TEST(LineCycle, MovesInsideTheRowAndWraps) {
  EXPECT_EQ(line_cycle_next(7, 1, 6), 8u);
  EXPECT_EQ(line_cycle_next(12, 1, 6), 7u);
  EXPECT_EQ(line_cycle_next(7, -1, 6), 12u);
  EXPECT_EQ(line_cycle_next(9, -1, 6), 8u);
}

TEST(LineCycle, RowOf60) {
  EXPECT_EQ(line_cycle_next(1, -1, 60), 60u);
  EXPECT_EQ(line_cycle_next(60, 1, 60), 1u);
  EXPECT_EQ(line_cycle_next(30, 1, 60), 31u);
}

TEST(LineCycle, RowOf2) {
  EXPECT_EQ(line_cycle_next(2, 1, 2), 1u);
  EXPECT_EQ(line_cycle_next(1, -1, 2), 2u);
  EXPECT_EQ(line_cycle_next(4, 1, 2), 3u);
  EXPECT_EQ(line_cycle_next(3, -1, 2), 4u);
  EXPECT_EQ(line_cycle_next(1, 1, 2), 2u);
}

TEST(LineCycle, ZeroStepStays) {
  EXPECT_EQ(line_cycle_next(8, 0, 6), 8u);
  EXPECT_EQ(line_cycle_next(12, 0, 6), 12u);
}

TEST(LineCycle, LongerStepsFallBackToTheRemainder) {
  // 8 + 5 = 13 lies past the row 7..12: min + 13 mod 6 = 6 + 1.
  EXPECT_EQ(line_cycle_next(8, 5, 6), 7u);
}

TEST(NumberText, FormatsOrMarksInvalid) {
  EXPECT_EQ(vx::stdlist::number_text(37), L"37");
  EXPECT_EQ(vx::stdlist::number_text_or_invalid(37, false), L"?");
}

TEST(ParseDecimal, Base10AndFailures) {
  std::int64_t v = 0;
  EXPECT_TRUE(vx::stdlist::parse_decimal(L"12", v));
  EXPECT_EQ(v, 12);
  EXPECT_TRUE(vx::stdlist::parse_decimal(L"-3", v));
  EXPECT_EQ(v, -3);
  EXPECT_FALSE(vx::stdlist::parse_decimal(L"abc", v));
  EXPECT_FALSE(vx::stdlist::parse_decimal(L"", v));
  EXPECT_FALSE(vx::stdlist::parse_decimal(nullptr, v));
  EXPECT_FALSE(vx::stdlist::parse_decimal(L"99999999999999999999", v));
}

TEST(WrapMod, NeverNegative) {
  EXPECT_EQ(vx::stdlist::wrap_mod(-1, 60), 59);
  EXPECT_EQ(vx::stdlist::wrap_mod(61, 60), 1);
}

}  // namespace
