#include "geom/point2d.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(Geom2dDelta, ToleranceIsOneMillionth) {
  EXPECT_EQ(Tvx_geom2d_delta::f_delta, 1e-06);
  EXPECT_EQ(Tvx_geom2d_delta::get_delta(), 1e-06);
  EXPECT_TRUE(Tvx_geom2d_delta::abs_lt_delta(0.0));
  EXPECT_TRUE(Tvx_geom2d_delta::abs_lt_delta(-9e-07));
  EXPECT_FALSE(Tvx_geom2d_delta::abs_lt_delta(1e-06));  // strictly below
  EXPECT_FALSE(Tvx_geom2d_delta::abs_lt_delta(-1e-06));
}

TEST(Point2d, ConstructorsAndExactEquality) {
  const Tvx_point2d zero = vx_point2d();
  EXPECT_EQ(zero.x, 0.0);
  EXPECT_EQ(zero.y, 0.0);
  const Tvx_point2d p = vx_point2d(1.5, -2.0);
  EXPECT_TRUE(vx_point2d_equal(p, vx_point2d(1.5, -2.0)));
  EXPECT_TRUE(p == vx_point2d(1.5, -2.0));
  EXPECT_FALSE(p == vx_point2d(1.5, -2.0 + 1e-12));  // no tolerance
}

TEST(Point2d, OrderIsByXThenY) {
  const Tvx_point2d a = vx_point2d(1, 5), b = vx_point2d(2, 0), c = vx_point2d(1, 6);
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(a < c);
  EXPECT_TRUE(b > c);
  EXPECT_FALSE(a < a);
  EXPECT_EQ(vx_point2d_compare(a, b), -1);
  EXPECT_EQ(vx_point2d_compare(b, a), 1);
  EXPECT_EQ(vx_point2d_compare(c, a), 1);
  EXPECT_EQ(vx_point2d_compare(a, vx_point2d(1, 5)), 0);
}

TEST(Point2d, MiddleAndDistance) {
  const Tvx_point2d m = vx_point2d_middle(vx_point2d(0, 0), vx_point2d(4, -2));
  EXPECT_EQ(m.x, 2.0);
  EXPECT_EQ(m.y, -1.0);
  EXPECT_EQ(vx_distance(vx_point2d(0, 0), vx_point2d(3, 4)), 5.0);
  EXPECT_EQ(vx_distance(1, 1, 4, 5), 5.0);
}

TEST(Point2d, AlongwayMovesTowardsTheSecondPoint) {
  const Tvx_point2d p = vx_point2d_alongway(vx_point2d(0, 0), vx_point2d(3, 4), 2.5);
  EXPECT_DOUBLE_EQ(p.x, 1.5);
  EXPECT_DOUBLE_EQ(p.y, 2.0);
  const Tvx_point2d behind = vx_point2d_alongway(vx_point2d(0, 0), vx_point2d(3, 4), -5);
  EXPECT_DOUBLE_EQ(behind.x, -3.0);
  EXPECT_DOUBLE_EQ(behind.y, -4.0);
}

TEST(Point2d, AlongwayOnCoincidentPointsGivesTheSecond) {
  const Tvx_point2d b = vx_point2d(5e-07, 0);
  const Tvx_point2d p = vx_point2d_alongway(vx_point2d(0, 0), b, 10.0);
  EXPECT_EQ(p, b);
}

TEST(Point2d, RotationAboutOriginAndCentre) {
  double x = 0, y = 0;
  vx_rotate_xy(1, 0, 1, 0, x, y);  // a quarter turn: sine 1, cosine 0
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, 1.0);
  vx_rotate_xy_center(3, 2, 2, 2, 1, 0, x, y);
  EXPECT_EQ(x, 2.0);
  EXPECT_EQ(y, 3.0);
}

TEST(Point2d, CrossingSegments) {
  double x = -1, y = -1;
  EXPECT_TRUE(vx_is_crossing_xy(0, 0, 2, 2, 0, 2, 2, 0));
  EXPECT_TRUE(vx_cross_xy(0, 0, 2, 2, 0, 2, 2, 0, x, y));
  EXPECT_DOUBLE_EQ(x, 1.0);
  EXPECT_DOUBLE_EQ(y, 1.0);
}

TEST(Point2d, CrossingIncludesEndPoints) {
  double x = -1, y = -1;
  EXPECT_TRUE(vx_cross_xy(0, 0, 1, 0, 1, -1, 1, 1, x, y));  // T at the end of the first
  EXPECT_DOUBLE_EQ(x, 1.0);
  EXPECT_DOUBLE_EQ(y, 0.0);
  EXPECT_TRUE(vx_is_crossing_xy(0, 0, 1, 1, 1, 1, 2, 0));  // shared end point
}

TEST(Point2d, NoCrossingLeavesOutputsAlone) {
  double x = 7, y = 8;
  EXPECT_FALSE(vx_cross_xy(0, 0, 1, 1, 3, 0, 2, 1, x, y));  // lines cross outside the segments
  EXPECT_EQ(x, 7.0);
  EXPECT_EQ(y, 8.0);
  EXPECT_FALSE(vx_cross_xy(0, 0, 2, 0, 0, 1, 2, 1, x, y));            // parallel
  EXPECT_FALSE(vx_cross_xy(0, 0, 2, 0, 1, 0, 3, 0, x, y));            // collinear, overlapping
  EXPECT_FALSE(vx_is_crossing_xy(0, 0, 1e-4, 0, 0, -1e-4, 0, 1e-4));  // determinant below tolerance
  EXPECT_EQ(x, 7.0);
}

}  // namespace
