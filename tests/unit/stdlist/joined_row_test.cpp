#include "stdlist/joined_row.h"

#include <gtest/gtest.h>

namespace {

std::wstring plain(std::uint64_t i) {
  return std::to_wstring(i);
}

TEST(JoinedRow, WritesTheNextColumnAfterAnEastEdgePosition) {
  const vx::stdlist::row_level level{3, 9, &plain};
  std::wstring out;
  vx::stdlist::append_row_join(level, 37, 2, 0, 0, 4, out);
  EXPECT_EQ(out, L"-2,3,38-1,2");
}

TEST(JoinedRow, StartsLaterWithThePreviousPosition) {
  const vx::stdlist::row_level level{3, 9, &plain};
  std::wstring out;
  vx::stdlist::append_row_join(level, 60, 7, 9, 1, 2, out);
  EXPECT_EQ(out, L",1-7");
}

}  // namespace
