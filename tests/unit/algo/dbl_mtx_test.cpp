#include "algo/dbl_mtx.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "error_log.h"

namespace {

using vxk_test::error_log;

TEST(DblMtx, ShapeLayoutAndZeroes) {
  Tvx_dbl_mtx m;
  EXPECT_FALSE(m.is_valid());
  m.set_nxny(3, 2);
  ASSERT_TRUE(m.is_valid());
  EXPECT_EQ(m.get_nx(), 3u);
  EXPECT_EQ(m.get_ny(), 2u);
  for (unsigned y = 0; y < 2; ++y)
    for (unsigned x = 0; x < 3; ++x) EXPECT_EQ(m.get(x, y), 0.0);
  m.set(2, 1, 7.0);  // column 2, row 1: element 1 * 3 + 2
  EXPECT_EQ(m.row(1)[2], 7.0);
  EXPECT_EQ(m.row(0)[5], 7.0);
}

TEST(DblMtx, FilledRowByRow) {
  const Tvx_dbl_mtx m(2, 2, {1, 2, 3});  // the rest zero
  EXPECT_EQ(m.get(1, 0), 2.0);
  EXPECT_EQ(m.get(0, 1), 3.0);
  EXPECT_EQ(m.get(1, 1), 0.0);
  const Tvx_dbl_mtx more(1, 1, {5, 6});  // the surplus ignored
  EXPECT_EQ(more.get(0, 0), 5.0);
}

TEST(DblMtx, SameShapeKeepsElementsOtherShapeZeroes) {
  Tvx_dbl_mtx m(2, 2);
  m.set(1, 1, 4.0);
  m.set_nxny(2, 2);
  EXPECT_EQ(m.get(1, 1), 4.0);
  m.set_nxny(1, 4);
  EXPECT_EQ(m.get(0, 3), 0.0);
  m.clear();
  EXPECT_FALSE(m.is_valid());
  EXPECT_EQ(m.get_nx(), 0u);
}

TEST(DblMtx, SwapRowsAndCopy) {
  Tvx_dbl_mtx m(2, 3);
  for (unsigned y = 0; y < 3; ++y)
    for (unsigned x = 0; x < 2; ++x) m.set(x, y, 10.0 * y + x);
  m.swap_rows(0, 2);
  EXPECT_EQ(m.get(0, 0), 20.0);
  EXPECT_EQ(m.get(1, 2), 1.0);
  m.swap_rows(1, 1);
  EXPECT_EQ(m.get(1, 1), 11.0);
  Tvx_dbl_mtx copy(m);
  m.set(0, 0, -1.0);
  EXPECT_EQ(copy.get(0, 0), 20.0);
  copy = m;
  EXPECT_EQ(copy.get(0, 0), -1.0);
}

TEST(DblMtx, AbsurdShapeLeavesAnEmptyMatrixAndReports) {
  error_log log;
  Tvx_dbl_mtx m(2, 2);
  const unsigned huge = std::numeric_limits<unsigned>::max();
  m.set_nxny(huge, huge);
  EXPECT_FALSE(m.is_valid());
  EXPECT_EQ(m.get_nx(), 0u);
  EXPECT_EQ(m.get_ny(), 0u);
  EXPECT_EQ(log.errors.size(), 1u);  // reported as a failed allocation
}

TEST(DblMtx, EmptyShapeHasNoElements) {
  Tvx_dbl_mtx m(0, 5);
  EXPECT_FALSE(m.is_valid());
  EXPECT_EQ(m.get_ny(), 5u);
}

TEST(DblMtx3diag, DiagonalsByIndexAndByColumnRow) {
  Tvx_dbl_mtx_3diag a;
  a.set_size(4);
  ASSERT_EQ(a.get_size(), 4u);
  a.set(1, 1, 5.0);  // main[1]
  a.set(2, 1, 6.0);  // right of the diagonal in row 1: top[1]
  a.set(0, 1, 7.0);  // left of it: btm[1]
  a.set(3, 0, 9.0);  // outside the band: nothing
  EXPECT_EQ(a.get_main(1), 5.0);
  EXPECT_EQ(a.get_top(1), 6.0);
  EXPECT_EQ(a.get_btm(1), 7.0);
  EXPECT_EQ(a.get(1, 1), 5.0);
  EXPECT_EQ(a.get(2, 1), 6.0);
  EXPECT_EQ(a.get(0, 1), 7.0);
  EXPECT_EQ(a.get(3, 0), 0.0);
  EXPECT_EQ(a.get(0, 5), 0.0);
  a.set_btm(3, 2.0);  // the last row's element left of the diagonal has its place
  EXPECT_EQ(a.get(2, 3), 2.0);
}

TEST(DblMtx3diag, SmallSizeDropsArraysAndKeepsTheOldSize) {
  Tvx_dbl_mtx_3diag a;
  a.set_size(3);
  a.set_main(0, 1.0);
  a.set_size(3);  // unchanged: kept
  EXPECT_EQ(a.get_main(0), 1.0);
  a.set_size(1);
  EXPECT_EQ(a.get_size(), 3u);
  EXPECT_FALSE(a.has_arrays());
  a.set_main(0, 2.0);  // no arrays: stores nothing, reads zero
  EXPECT_EQ(a.get_main(0), 0.0);
  EXPECT_EQ(a.get(0, 0), 0.0);
  a.set_size(2);
  EXPECT_TRUE(a.has_arrays());
  EXPECT_EQ(a.get_size(), 2u);
  a.clear();
  EXPECT_EQ(a.get_size(), 0u);
}

TEST(DblMtx3diag, AbsurdSizeLeavesNoArrays) {
  error_log log;
  Tvx_dbl_mtx_3diag a;
  a.set_size(std::numeric_limits<unsigned>::max());
  EXPECT_FALSE(a.has_arrays());
  EXPECT_EQ(a.get_size(), 0u);
  EXPECT_EQ(log.errors.size(), 1u);
}

}  // namespace
