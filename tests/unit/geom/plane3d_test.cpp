#include "geom/plane3d.h"

#include <gtest/gtest.h>

namespace {

TEST(Plane3d, Constructors) {
  const Tvx_plane3d z = vx_plane3d();
  EXPECT_EQ(z.a, 0.0);
  EXPECT_EQ(z.d, 0.0);
  const Tvx_plane3d p = vx_plane3d(1, 2, 3, 4);
  EXPECT_EQ(p.c, 3.0);
  EXPECT_EQ(p.d, 4.0);
}

TEST(Plane3d, ThroughThreePoints) {
  // x + y + z = 1
  const Tvx_plane3d p = vx_plane3d(1, 0, 0, 0, 1, 0, 0, 0, 1);
  EXPECT_EQ(p.a, 1.0);
  EXPECT_EQ(p.b, 1.0);
  EXPECT_EQ(p.c, 1.0);
  EXPECT_EQ(p.d, -1.0);
  // The xy plane, its normal up for a counter-clockwise triple.
  const Tvx_plane3d q = vx_plane3d(vx_point3d(0, 0, 5), vx_point3d(1, 0, 5), vx_point3d(0, 1, 5));
  EXPECT_EQ(q.a, 0.0);
  EXPECT_EQ(q.b, 0.0);
  EXPECT_EQ(q.c, 1.0);
  EXPECT_EQ(q.d, -5.0);
  EXPECT_EQ(vx_plane3d_apply(q, 7, -3, 5), 0.0);
  EXPECT_EQ(vx_plane3d_apply(q, vx_point3d(0, 0, 8)), 3.0);
}

TEST(Plane3d, NormDividesTheNormalButNotD) {
  Tvx_plane3d p = vx_plane3d(0, 3, 4, 10);
  EXPECT_TRUE(vx_plane3d_norm(&p));
  EXPECT_DOUBLE_EQ(p.b, 0.6);
  EXPECT_DOUBLE_EQ(p.c, 0.8);
  EXPECT_EQ(p.d, 10.0);
}

TEST(Plane3d, NormOfATinyNormalFails) {
  Tvx_plane3d p = vx_plane3d(5e-07, 0, 0, 1);
  EXPECT_FALSE(vx_plane3d_norm(&p));
  EXPECT_EQ(p.a, 5e-07);
}

TEST(Plane3d, SegmentCrossing) {
  const Tvx_plane3d ground = vx_plane3d(0, 0, 1, 0);
  Tvx_point3d p = vx_point3d(9, 9, 9);
  EXPECT_TRUE(vx_plane3d_segment3d_cross(ground, vx_segment3d(0, 0, -1, 2, 2, 1), p));
  EXPECT_EQ(p, vx_point3d(1, 1, 0));
  EXPECT_TRUE(vx_plane3d_segment3d_cross(ground, vx_segment3d(4, 0, 3, 0, 0, -1), p));
  EXPECT_DOUBLE_EQ(p.x, 1.0);
  EXPECT_DOUBLE_EQ(p.z, 0.0);
}

TEST(Plane3d, SegmentEndOnThePlane) {
  const Tvx_plane3d ground = vx_plane3d(0, 0, 1, 0);
  Tvx_point3d p = vx_point3d();
  EXPECT_TRUE(vx_plane3d_segment3d_cross(ground, vx_segment3d(1, 2, 0, 5, 5, 5), p));
  EXPECT_EQ(p, vx_point3d(1, 2, 0));
  EXPECT_TRUE(vx_plane3d_segment3d_cross(ground, vx_segment3d(5, 5, 5, 3, 4, 0), p));
  EXPECT_EQ(p, vx_point3d(3, 4, 0));
  EXPECT_TRUE(vx_plane3d_segment3d_cross(ground, vx_segment3d(1, 1, 0, 2, 2, 0), p));  // lying in it
  EXPECT_EQ(p, vx_point3d(1, 1, 0));
}

TEST(Plane3d, NoCrossingLeavesThePoint) {
  const Tvx_plane3d ground = vx_plane3d(0, 0, 1, 0);
  Tvx_point3d p = vx_point3d(7, 7, 7);
  EXPECT_FALSE(vx_plane3d_segment3d_cross(ground, vx_segment3d(0, 0, 1, 1, 1, 2), p));    // one side
  EXPECT_FALSE(vx_plane3d_segment3d_cross(ground, vx_segment3d(0, 0, -1, 9, 9, -1), p));  // parallel
  // Opposite sides, but the change along the segment is below the tolerance.
  EXPECT_FALSE(vx_plane3d_segment3d_cross(ground, vx_segment3d(0, 0, -1e-07, 1, 0, 1e-07), p));
  EXPECT_EQ(p, vx_point3d(7, 7, 7));
}

}  // namespace
