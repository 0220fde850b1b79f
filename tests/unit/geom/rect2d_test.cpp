#include "geom/rect2d.h"

#include <gtest/gtest.h>

namespace {

void expect_rect(const Tvx_rect2d& r, double xmin, double ymin, double xmax, double ymax) {
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, xmin);
  EXPECT_EQ(r.ymin, ymin);
  EXPECT_EQ(r.xmax, xmax);
  EXPECT_EQ(r.ymax, ymax);
}

TEST(Rect2d, UndefinedIsAllZero) {
  const Tvx_rect2d r = vx_rect2d();
  EXPECT_FALSE(r.defined);
  EXPECT_EQ(r.xmin, 0.0);
  EXPECT_EQ(r.ymax, 0.0);
}

TEST(Rect2d, ConstructorsPutEachPairInOrder) {
  expect_rect(vx_rect2d(3, 4, 1, 2), 1, 2, 3, 4);
  expect_rect(vx_rect2d(vx_point2d(5, 0), vx_point2d(-1, 6)), -1, 0, 5, 6);
  expect_rect(vx_rect2d(vx_segment2d(2, 9, 1, 8)), 1, 8, 2, 9);
}

TEST(Rect2d, Degenerated) {
  EXPECT_TRUE(vx_rect2d_is_degenerated(vx_rect2d()));
  EXPECT_TRUE(vx_rect2d_is_degenerated(vx_rect2d(0, 0, 5, 5e-07)));
  EXPECT_TRUE(vx_rect2d_is_degenerated(vx_rect2d(0, 0, 0, 5)));
  EXPECT_FALSE(vx_rect2d_is_degenerated(vx_rect2d(0, 0, 1e-06, 1e-06)));
}

TEST(Rect2d, CrossingCountsTouching) {
  const Tvx_rect2d a = vx_rect2d(0, 0, 2, 2);
  EXPECT_TRUE(vx_rect2d_is_crossing(a, vx_rect2d(1, 1, 3, 3)));
  EXPECT_TRUE(vx_rect2d_is_crossing(a, vx_rect2d(2, 2, 3, 3)));  // corner touch
  EXPECT_FALSE(vx_rect2d_is_crossing(a, vx_rect2d(2.5, 0, 3, 1)));
  EXPECT_FALSE(vx_rect2d_is_crossing(a, vx_rect2d()));
  Tvx_rect2d undefined_here = a;
  undefined_here.defined = false;
  EXPECT_FALSE(vx_rect2d_is_crossing(undefined_here, a));
}

TEST(Rect2d, CrossIsDefinedOnlyWhenNotEmpty) {
  const Tvx_rect2d a = vx_rect2d(0, 0, 2, 2);
  expect_rect(vx_rect2d_cross(a, vx_rect2d(1, -1, 3, 1)), 1, 0, 2, 1);
  expect_rect(vx_rect2d_cross(a, vx_rect2d(2, 0, 4, 4)), 2, 0, 2, 2);  // a shared edge
  EXPECT_FALSE(vx_rect2d_cross(a, vx_rect2d(3, 3, 4, 4)).defined);
  EXPECT_FALSE(vx_rect2d_cross(a, vx_rect2d()).defined);
}

TEST(Rect2d, UniteIgnoresUndefined) {
  const Tvx_rect2d a = vx_rect2d(0, 0, 1, 1);
  expect_rect(vx_rect2d_unite(a, vx_rect2d(2, -1, 3, 0)), 0, -1, 3, 1);
  expect_rect(vx_rect2d_unite(vx_rect2d(), a), 0, 0, 1, 1);
  expect_rect(vx_rect2d_unite(a, vx_rect2d()), 0, 0, 1, 1);
  EXPECT_FALSE(vx_rect2d_unite(vx_rect2d(), vx_rect2d()).defined);
}

TEST(Rect2d, IncludeIsInclusive) {
  const Tvx_rect2d r = vx_rect2d(0, 0, 2, 1);
  EXPECT_TRUE(vx_rect2d_include(r, 0, 0));
  EXPECT_TRUE(vx_rect2d_include(r, vx_point2d(2, 1)));
  EXPECT_FALSE(vx_rect2d_include(r, 2.000001, 1));
  EXPECT_FALSE(vx_rect2d_include(vx_rect2d(), 0, 0));
  EXPECT_TRUE(vx_rect2d_include(r, vx_rect2d(0, 0, 2, 1)));
  EXPECT_TRUE(vx_rect2d_include(r, vx_rect2d(0.5, 0.5, 1, 1)));
  EXPECT_FALSE(vx_rect2d_include(r, vx_rect2d(0.5, 0.5, 3, 1)));
  EXPECT_FALSE(vx_rect2d_include(r, vx_rect2d()));
}

TEST(Rect2d, ExtendDefinesAnUndefinedRectangle) {
  Tvx_rect2d r = vx_rect2d();
  vx_rect2d_extend(&r, 3, 4);
  expect_rect(r, 3, 4, 3, 4);
  vx_rect2d_extend(&r, vx_point2d(1, 7));
  expect_rect(r, 1, 4, 3, 7);
}

TEST(Rect2d, EqualNeedsBothDefined) {
  EXPECT_TRUE(vx_rect2d_equal(vx_rect2d(0, 0, 1, 1), vx_rect2d(1, 1, 0, 0)));
  EXPECT_FALSE(vx_rect2d_equal(vx_rect2d(0, 0, 1, 1), vx_rect2d(0, 0, 1, 1.0000001)));
  EXPECT_FALSE(vx_rect2d_equal(vx_rect2d(), vx_rect2d()));
}

TEST(Rect2d, AddDeltaGrowsAndTurnsOver) {
  Tvx_rect2d r = vx_rect2d(0, 0, 4, 2);
  vx_rect2d_add_delta(&r, 1);
  expect_rect(r, -1, -1, 5, 3);
  vx_rect2d_add_delta(&r, -2);
  expect_rect(r, 1, 1, 3, 1);  // height exactly 0: still defined
  vx_rect2d_add_delta(&r, -0.5);
  EXPECT_FALSE(r.defined);
}

TEST(Rect2d, ExtUniteAddsSumsAndCounts) {
  const Tvx_rect2d_ext a{vx_rect2d(0, 0, 1, 1), 1.0, 2.0, 2u};
  const Tvx_rect2d_ext b{vx_rect2d(), 5.0, 6.0, 3u};
  const Tvx_rect2d_ext u = vx_rect2d_ext_unite(a, b);
  expect_rect(u.rect, 0, 0, 1, 1);
  EXPECT_EQ(u.sum_x, 6.0);
  EXPECT_EQ(u.sum_y, 8.0);
  EXPECT_EQ(u.count, 5u);
  EXPECT_FALSE(vx_rect2d_ext().rect.defined);
}

}  // namespace
