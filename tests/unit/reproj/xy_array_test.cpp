#include "reproj/xy_array.h"

#include <gtest/gtest.h>

namespace {

TEST(XyArray, StartsEmpty) {
  Tvx_xy_array a;
  EXPECT_EQ(a.get_capacity(), 0u);
  EXPECT_EQ(a.get_size(), 0u);
  EXPECT_EQ(a.get_x_ptr(), nullptr);
  EXPECT_EQ(a.get_y_ptr(), nullptr);
}

TEST(XyArray, SetSizeGrowsToExactlyTheSize) {
  Tvx_xy_array a;
  a.set_size(5);
  EXPECT_EQ(a.get_capacity(), 5u);
  EXPECT_EQ(a.get_size(), 5u);
  ASSERT_NE(a.get_x_ptr(), nullptr);
  ASSERT_NE(a.get_y_ptr(), nullptr);
  a.set_size(6);
  EXPECT_EQ(a.get_capacity(), 6u);
}

TEST(XyArray, SetSizeNeverShrinks) {
  Tvx_xy_array a;
  a.set_size(100);
  double* x = a.get_x_ptr();
  a.set_size(3);
  EXPECT_EQ(a.get_size(), 3u);
  EXPECT_EQ(a.get_capacity(), 100u);
  EXPECT_EQ(a.get_x_ptr(), x);
}

TEST(XyArray, ValuesAreKeptAcrossGrowth) {
  Tvx_xy_array a;
  a.set_size(2);
  a.set_xy(0, 1.5, 2.5);
  a.set_x(1, 3.5);
  a.set_y(1, 4.5);
  a.set_size(1000);
  EXPECT_EQ(a.get_x(0), 1.5);
  EXPECT_EQ(a.get_y(0), 2.5);
  EXPECT_EQ(a.get_x(1), 3.5);
  EXPECT_EQ(a.get_y(1), 4.5);
  EXPECT_EQ(a.get_x_ptr()[1], 3.5);
  EXPECT_EQ(a.get_y_ptr()[0], 2.5);
}

TEST(XyArray, CapacityZeroFreesButKeepsTheField) {
  Tvx_xy_array a;
  a.set_capacity(8);
  EXPECT_EQ(a.get_capacity(), 8u);
  a.set_capacity(0);
  EXPECT_EQ(a.get_x_ptr(), nullptr);
  EXPECT_EQ(a.get_y_ptr(), nullptr);
  EXPECT_EQ(a.get_capacity(), 8u);
}

TEST(XyArray, SameCapacityDoesNothing) {
  Tvx_xy_array a;
  a.set_capacity(4);
  double* x = a.get_x_ptr();
  a.set_capacity(4);
  EXPECT_EQ(a.get_x_ptr(), x);
}

TEST(XyArray, ClearFreesAndLeavesCounts) {
  Tvx_xy_array a;
  a.set_size(7);
  a.clear();
  EXPECT_EQ(a.get_x_ptr(), nullptr);
  EXPECT_EQ(a.get_y_ptr(), nullptr);
  EXPECT_EQ(a.get_capacity(), 7u);
  EXPECT_EQ(a.get_size(), 7u);
  Tvx_xy_array b;
  b.set_size(3);
  b.clear_xy();
  EXPECT_EQ(b.get_x_ptr(), nullptr);
  EXPECT_EQ(b.get_size(), 3u);
}

}  // namespace
