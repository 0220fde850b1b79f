#include "stdlist/grid_2x2.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace g = vx::stdlist::grid_2x2;

TEST(Grid2x2, NextWrapsInsideTheRow) {
  EXPECT_EQ(g::next(2, 1), 1u);
  EXPECT_EQ(g::next(1, -1), 2u);
  EXPECT_EQ(g::next(4, 1), 3u);
  EXPECT_EQ(g::next(3, -1), 4u);
  EXPECT_EQ(g::next(1, 1), 2u);
  EXPECT_EQ(g::next(0, 1), vx::stdlist::INVALID_IDX);
  EXPECT_EQ(g::next(5, 1), vx::stdlist::INVALID_IDX);
}

TEST(Grid2x2, NextLetterTable) {
  EXPECT_EQ(g::next_letter_idx(0), 1u);
  EXPECT_EQ(g::next_letter_idx(1), 2u);
  EXPECT_EQ(g::next_letter_idx(2), 1u);
  EXPECT_EQ(g::next_letter_idx(3), 4u);
  EXPECT_EQ(g::next_letter_idx(4), 3u);
  EXPECT_EQ(g::next_letter_idx(5), 0u);
}

TEST(Grid2x2, EdgesAndLines) {
  EXPECT_TRUE(g::left_edge(1));
  EXPECT_TRUE(g::left_edge(3));
  EXPECT_TRUE(g::right_edge(2));
  EXPECT_TRUE(g::right_edge(4));
  EXPECT_FALSE(g::right_edge(3));
  EXPECT_EQ(g::line(1), 1u);
  EXPECT_EQ(g::line(4), 2u);
  EXPECT_EQ(g::line_min(3), 2u);
  EXPECT_EQ(g::line_min(4), 2u);
  EXPECT_EQ(g::line_max(3), 4u);
  EXPECT_EQ(g::line_max(1), 2u);
}

TEST(Grid2x2, FindSkipsTheMark) {
  EXPECT_EQ(g::find(L"?abcd", L'c'), 3u);
  EXPECT_EQ(g::find(L"?abcd", L'?'), 0u);
  EXPECT_EQ(g::find(L"?abcd", L'x'), 0u);
}

}  // namespace
