#include "services/small_geometry.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

TEST(SmallGeometry, VertexAndDistance) {
  const Tvx_vtx_d2 v = vx_vtx_d2_init_xy(1.5, -2.5);
  EXPECT_EQ(v.x, 1.5);
  EXPECT_EQ(v.y, -2.5);
  EXPECT_DOUBLE_EQ(vx_distance_xy(0, 0, 3, 4), 5.0);
}

TEST(SmallGeometry, CrossingSegmentsGiveThePointOthersLeaveTheOutputsAlone) {
  double x = 7, y = 7;
  EXPECT_TRUE(vx_cross_xy(0, 0, 2, 2, 0, 2, 2, 0, &x, &y));
  EXPECT_DOUBLE_EQ(x, 1.0);
  EXPECT_DOUBLE_EQ(y, 1.0);
  x = y = 7;
  EXPECT_FALSE(vx_cross_xy(0, 0, 1, 1, 3, 0, 4, -1, &x, &y));  // the lines cross, the segments do not
  EXPECT_EQ(x, 7.0);
  EXPECT_FALSE(vx_cross_xy(0, 0, 1, 0, 0, 1, 1, 1, &x, &y));  // parallel
  EXPECT_EQ(y, 7.0);
}

TEST(SmallGeometry, RoundToNearestHalvesAwayFromZeroAndSaturates) {
  EXPECT_EQ(vx_round(2.4), 2);
  EXPECT_EQ(vx_round(2.5), 3);
  EXPECT_EQ(vx_round(-2.5), -3);
  EXPECT_EQ(vx_round(1e300), INT_MAX);
  EXPECT_EQ(vx_round(-1e300), INT_MIN);
  EXPECT_EQ(vx_round(std::nan("")), 0);
}

}  // namespace
