#include "geom/dist2d.h"

#include <gtest/gtest.h>

#include <limits>

#include "ring_shapes.h"

namespace {

using vxk_test::add_ring;

TEST(Dist2d, FootOfAPerpendicularImprovesOnTheNearestVertex) {
  Tvx_op2d op;
  add_ring(&op, {{0, 0}, {10, 0}, {10, 10}});
  Tvx_dist2d d;
  ASSERT_TRUE(d.calc(&op, vx_point2d(4, 3)));
  EXPECT_EQ(d.get_point(), vx_point2d(4, 0));
  EXPECT_DOUBLE_EQ(d.get_distance(), 3.0);
  EXPECT_FALSE(d.is_vertex());
  EXPECT_EQ(d.get_idx1(), 0);
  EXPECT_EQ(d.get_idx2(), 1);
  EXPECT_EQ(d.get_part(), 0);
}

TEST(Dist2d, VertexWinsWhereNoFootFallsWithinASegment) {
  Tvx_op2d op;
  add_ring(&op, {{0, 0}, {10, 0}, {20, 5}});
  Tvx_dist2d d;
  ASSERT_TRUE(d.calc(&op, vx_point2d(-3, -4)));
  EXPECT_EQ(d.get_point(), vx_point2d(0, 0));
  EXPECT_DOUBLE_EQ(d.get_distance(), 5.0);
  EXPECT_TRUE(d.is_vertex());
  EXPECT_EQ(d.get_idx1(), 0);
}

TEST(Dist2d, EndsOfTheSegmentRatioAreIncludedAndShortSegmentsSkipped) {
  Tvx_op2d op;
  add_ring(&op, {{0, 0}, {0, 1e-7}, {5, 5}});
  Tvx_dist2d d;
  // The foot (0, 5e-8) on the tiny first segment would be nearer than either end by 1e-15.
  ASSERT_TRUE(d.calc(&op, vx_point2d(-1, 5e-8)));
  EXPECT_TRUE(d.is_vertex());
  EXPECT_EQ(d.get_idx1(), 0);
  op.get(0)->set(1, vx_point2d(0, 2e-6));
  ASSERT_TRUE(d.calc(&op, vx_point2d(-1, 5e-8)));
  EXPECT_FALSE(d.is_vertex());
  EXPECT_EQ(d.get_point().x, 0.0);
  EXPECT_NEAR(d.get_point().y, 5e-8, 1e-20);
}

TEST(Dist2d, FirstPartWithTheShortestDistanceWins) {
  Tvx_op2d op;
  add_ring(&op, {{0, 10}, {10, 10}});
  add_ring(&op, {{0, -10}, {10, -10}});
  add_ring(&op, {{0, 2}, {10, 2}});
  Tvx_dist2d d;
  ASSERT_TRUE(d.calc(&op, vx_point2d(5, 0)));
  EXPECT_EQ(d.get_part(), 2);
  op.get(1)->set(0, vx_point2d(0, -2));
  op.get(1)->set(1, vx_point2d(10, -2));
  ASSERT_TRUE(d.calc(&op, vx_point2d(5, 0)));
  EXPECT_EQ(d.get_part(), 1);
}

TEST(Dist2d, VerticesAloneAndNothingToFind) {
  Tvx_op2d op;
  add_ring(&op, {{0, 0}, {10, 0}});
  Tvx_dist2d d;
  ASSERT_TRUE(d.calc_vertex(&op, vx_point2d(4, 3)));
  EXPECT_EQ(d.get_point(), vx_point2d(0, 0));
  Tvx_op2d empty;
  empty.add();
  EXPECT_FALSE(d.calc(&empty, vx_point2d(0, 0)));
  Tvx_op2d nan;
  add_ring(&nan, {{std::numeric_limits<double>::quiet_NaN(), 0}});
  EXPECT_FALSE(d.calc(&nan, vx_point2d(0, 0)));
}

}  // namespace
