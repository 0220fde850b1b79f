#include "geom/point3d.h"

#include <gtest/gtest.h>

namespace {

void expect_box(const Tvx_rect3d& r, double xmin, double ymin, double zmin, double xmax, double ymax,
                double zmax) {
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, xmin);
  EXPECT_EQ(r.ymin, ymin);
  EXPECT_EQ(r.zmin, zmin);
  EXPECT_EQ(r.xmax, xmax);
  EXPECT_EQ(r.ymax, ymax);
  EXPECT_EQ(r.zmax, zmax);
}

TEST(Geom3dFunc, ToleranceOfItsOwn) {
  Tvx_geom3d_func f;  // can be made, holds nothing
  (void)f;
  EXPECT_EQ(Tvx_geom3d_func::f_delta, 1e-06);
  EXPECT_EQ(Tvx_geom3d_func::get_delta(), 1e-06);
  EXPECT_TRUE(Tvx_geom3d_func::abs_lt_delta(-5e-07));
  EXPECT_FALSE(Tvx_geom3d_func::abs_lt_delta(1e-06));
}

TEST(Point3d, EqualityIsExactOnAllThree) {
  EXPECT_EQ(vx_point3d(), vx_point3d(0, 0, 0));
  EXPECT_TRUE(vx_point3d_equal(vx_point3d(1, 2, 3), vx_point3d(1, 2, 3)));
  EXPECT_FALSE(vx_point3d(1, 2, 3) == vx_point3d(1, 2, 3.0000000001));
}

TEST(Point3d, OrderByXThenYThenZ) {
  EXPECT_TRUE(vx_point3d(1, 9, 9) < vx_point3d(2, 0, 0));
  EXPECT_TRUE(vx_point3d(1, 1, 9) < vx_point3d(1, 2, 0));
  EXPECT_TRUE(vx_point3d(1, 1, 1) < vx_point3d(1, 1, 2));
  EXPECT_TRUE(vx_point3d(1, 1, 2) > vx_point3d(1, 1, 1));
  EXPECT_EQ(vx_point3d_compare(vx_point3d(1, 1, 1), vx_point3d(1, 1, 2)), -1);
  EXPECT_EQ(vx_point3d_compare(vx_point3d(1, 1, 2), vx_point3d(1, 1, 1)), 1);
  EXPECT_EQ(vx_point3d_compare(vx_point3d(1, 1, 1), vx_point3d(1, 1, 1)), 0);
}

TEST(Point3d, MiddleDistanceAlongway) {
  EXPECT_EQ(vx_point3d_middle(vx_point3d(0, 0, 0), vx_point3d(2, 4, 6)), vx_point3d(1, 2, 3));
  EXPECT_EQ(vx_distance(vx_point3d(0, 0, 0), vx_point3d(1, 2, 2)), 3.0);
  EXPECT_EQ(vx_distance(1, 1, 1, 3, 4, 7), 7.0);
  const Tvx_point3d p = vx_point3d_alongway(vx_point3d(0, 0, 0), vx_point3d(1, 2, 2), 1.5);
  EXPECT_DOUBLE_EQ(p.x, 0.5);
  EXPECT_DOUBLE_EQ(p.y, 1.0);
  EXPECT_DOUBLE_EQ(p.z, 1.0);
  const Tvx_point3d b = vx_point3d(0, 0, 5e-07);
  EXPECT_EQ(vx_point3d_alongway(vx_point3d(), b, 3.0), b);
}

TEST(Segment3d, Constructors) {
  const Tvx_segment3d s = vx_segment3d(vx_point3d(1, 2, 3), vx_point3d(4, 5, 6));
  EXPECT_EQ(s.x1, 1.0);
  EXPECT_EQ(s.z1, 3.0);
  EXPECT_EQ(s.x2, 4.0);
  EXPECT_EQ(s.z2, 6.0);
  EXPECT_EQ(vx_segment3d(1, 2, 3, 4, 5, 6).y2, 5.0);
  EXPECT_EQ(vx_segment3d().z2, 0.0);
}

TEST(Rect3d, ConstructorsPutEachPairInOrder) {
  EXPECT_FALSE(vx_rect3d().defined);
  expect_box(vx_rect3d(3, 2, 1, 0, 5, -1), 0, 2, -1, 3, 5, 1);
  expect_box(vx_rect3d(vx_point3d(1, 1, 9), vx_point3d(0, 2, 8)), 0, 1, 8, 1, 2, 9);
  expect_box(vx_rect3d(vx_segment3d(5, 5, 5, 4, 4, 4)), 4, 4, 4, 5, 5, 5);
}

TEST(Rect3d, DegeneratedOnAnyFlatExtent) {
  EXPECT_TRUE(vx_rect3d_is_degenerated(vx_rect3d()));
  EXPECT_FALSE(vx_rect3d_is_degenerated(vx_rect3d(0, 0, 0, 1, 1, 1)));
  EXPECT_TRUE(vx_rect3d_is_degenerated(vx_rect3d(0, 0, 0, 1, 1, 5e-07)));
  EXPECT_TRUE(vx_rect3d_is_degenerated(vx_rect3d(0, 0, 0, 0, 1, 1)));
}

TEST(Rect3d, CrossAndUnite) {
  const Tvx_rect3d a = vx_rect3d(0, 0, 0, 2, 2, 2);
  expect_box(vx_rect3d_cross(a, vx_rect3d(1, 1, 1, 3, 3, 3)), 1, 1, 1, 2, 2, 2);
  expect_box(vx_rect3d_cross(a, vx_rect3d(2, 0, 0, 3, 1, 1)), 2, 0, 0, 2, 1, 1);  // a shared face
  EXPECT_FALSE(vx_rect3d_cross(a, vx_rect3d(0, 0, 3, 1, 1, 4)).defined);          // apart in z only
  EXPECT_FALSE(vx_rect3d_cross(a, vx_rect3d()).defined);
  expect_box(vx_rect3d_unite(a, vx_rect3d(-1, 1, 1, 1, 1, 5)), -1, 0, 0, 2, 2, 5);
  expect_box(vx_rect3d_unite(vx_rect3d(), a), 0, 0, 0, 2, 2, 2);
  expect_box(vx_rect3d_unite(a, vx_rect3d()), 0, 0, 0, 2, 2, 2);
}

TEST(Rect3d, IncludeIsInclusive) {
  const Tvx_rect3d r = vx_rect3d(0, 0, 0, 2, 2, 2);
  EXPECT_TRUE(vx_rect3d_include(r, 2, 2, 2));
  EXPECT_TRUE(vx_rect3d_include(r, vx_point3d(1, 1, 0)));
  EXPECT_FALSE(vx_rect3d_include(r, 1, 1, 2.5));
  EXPECT_FALSE(vx_rect3d_include(vx_rect3d(), 0, 0, 0));
  EXPECT_TRUE(vx_rect3d_include(r, vx_rect3d(0, 0, 0, 1, 1, 1)));
  EXPECT_FALSE(vx_rect3d_include(r, vx_rect3d(0, 0, 0, 1, 1, 3)));
  EXPECT_FALSE(vx_rect3d_include(r, vx_rect3d()));
}

TEST(Rect3d, ExtendDefinesAnUndefinedBox) {
  Tvx_rect3d r = vx_rect3d();
  vx_rect3d_extend(&r, 1, 2, 3);
  expect_box(r, 1, 2, 3, 1, 2, 3);
  vx_rect3d_extend(&r, vx_point3d(0, 5, 2));
  expect_box(r, 0, 2, 2, 1, 5, 3);
}

}  // namespace
