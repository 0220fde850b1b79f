// The perpendicular at the end of a chord.
#include "stdlist/generate/22_stdlist_geom.h"

#include <gtest/gtest.h>

namespace {

using vx::stdlist::Tvx_stdlist_geom;

TEST(StdlistGeom, TwoPointsOnThePerpendicularLeftAndRight) {
  Tvx_vtx_d2 p1{}, p2{};
  // going east from (0, 0) to (4, 0): left is north
  ASSERT_TRUE(Tvx_stdlist_geom::get_orth({0, 0}, {4, 0}, p1, p2, 2.0, 3.0));
  EXPECT_DOUBLE_EQ(p1.x, 4.0);
  EXPECT_DOUBLE_EQ(p1.y, 2.0);
  EXPECT_DOUBLE_EQ(p2.x, 4.0);
  EXPECT_DOUBLE_EQ(p2.y, -3.0);
  // going south: left is east
  ASSERT_TRUE(Tvx_stdlist_geom::get_orth({1, 1}, {1, -2}, p1, p2, 2.0, 3.0));
  EXPECT_DOUBLE_EQ(p1.x, 3.0);
  EXPECT_DOUBLE_EQ(p1.y, -2.0);
  EXPECT_DOUBLE_EQ(p2.x, -2.0);
  EXPECT_DOUBLE_EQ(p2.y, -2.0);
  // a slanting chord: both at their distances from b, at right angles
  ASSERT_TRUE(Tvx_stdlist_geom::get_orth({0, 0}, {3, 4}, p1, p2, 5.0, 10.0));
  EXPECT_DOUBLE_EQ(p1.x, 3.0 - 4.0);
  EXPECT_DOUBLE_EQ(p1.y, 4.0 + 3.0);
  EXPECT_DOUBLE_EQ(p2.x, 3.0 + 8.0);
  EXPECT_DOUBLE_EQ(p2.y, 4.0 - 6.0);
}

TEST(StdlistGeom, AChordShorterThanTheToleranceWritesNothing) {
  Tvx_vtx_d2 p1{7, 7}, p2{8, 8}, p{9, 9};
  EXPECT_FALSE(Tvx_stdlist_geom::get_orth({1, 1}, {1, 1}, p1, p2, 2.0, 3.0));
  EXPECT_FALSE(Tvx_stdlist_geom::get_orth({1, 1}, {1 + 1e-15, 1}, p1, p2, 2.0, 3.0));
  EXPECT_FALSE(Tvx_stdlist_geom::get_point_on_orth({1, 1}, {1, 1}, {0, 0}, 2.0, p));
  EXPECT_EQ(p1.x, 7.0);
  EXPECT_EQ(p2.y, 8.0);
  EXPECT_EQ(p.x, 9.0);
  EXPECT_TRUE(Tvx_stdlist_geom::get_orth({1, 1}, {1 + 1e-14, 1}, p1, p2, 2.0, 3.0));
}

TEST(StdlistGeom, APointAtRightAnglesToADirectionFromAnotherPoint) {
  Tvx_vtx_d2 p{};
  ASSERT_TRUE(Tvx_stdlist_geom::get_point_on_orth({0, 0}, {0, 10}, {5, 5}, 2.0, p));  // north: left is west
  EXPECT_DOUBLE_EQ(p.x, 3.0);
  EXPECT_DOUBLE_EQ(p.y, 5.0);
  ASSERT_TRUE(Tvx_stdlist_geom::get_point_on_orth({0, 0}, {0, 10}, {5, 5}, -2.0, p));
  EXPECT_DOUBLE_EQ(p.x, 7.0);
}

}  // namespace
