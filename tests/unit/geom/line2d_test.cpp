#include "geom/line2d.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;

TEST(Line2d, ThroughTwoPoints) {
  const Tvx_line2d l = vx_line2d(1, 2, 4, 6);
  EXPECT_EQ(l.a, -4.0);  // y1 - y2
  EXPECT_EQ(l.b, 3.0);   // x2 - x1
  EXPECT_EQ(l.c, 1.0 * 6 - 2.0 * 4);
  EXPECT_EQ(vx_line2d_apply(l, 1, 2), 0.0);
  EXPECT_EQ(vx_line2d_apply(l, 4, 6), 0.0);
  const Tvx_line2d m = vx_line2d(vx_point2d(1, 2), vx_point2d(4, 6));
  EXPECT_EQ(m.a, l.a);
  EXPECT_EQ(m.b, l.b);
  EXPECT_EQ(m.c, l.c);
  const Tvx_line2d z = vx_line2d();
  EXPECT_EQ(z.a, 0.0);
  EXPECT_EQ(vx_line2d(1, 2, 3).c, 3.0);
}

TEST(Line2d, OrthogonalThroughAPoint) {
  const Tvx_line2d l = vx_line2d(0, 0, 2, 0);  // the x axis
  const Tvx_line2d o = vx_line2d_ortho(l, vx_point2d(1, 5));
  EXPECT_EQ(o.a, -l.b);
  EXPECT_EQ(o.b, l.a);
  EXPECT_EQ(vx_line2d_apply(o, 1, 5), 0.0);
  EXPECT_EQ(vx_line2d_apply(o, 1, -3), 0.0);  // vertical through x = 1
  EXPECT_NE(vx_line2d_apply(o, 2, 5), 0.0);
}

TEST(Line2d, NormAndMoveAlong) {
  Tvx_line2d l = vx_line2d(0, 0, 3, 4);
  EXPECT_TRUE(vx_line2d_norm(&l));
  EXPECT_DOUBLE_EQ(std::hypot(l.a, l.b), 1.0);
  EXPECT_DOUBLE_EQ(l.a, -0.8);
  EXPECT_DOUBLE_EQ(l.b, 0.6);
  // Along the line by (-b, a): from the second point towards the first.
  const Tvx_point2d p = vx_line2d_normed_delta_along(l, vx_point2d(0, 0), 5.0);
  EXPECT_DOUBLE_EQ(p.x, -3.0);
  EXPECT_DOUBLE_EQ(p.y, -4.0);
  EXPECT_DOUBLE_EQ(vx_line2d_apply(l, 0, 1), 0.6);  // signed distance on a normed line
}

TEST(Line2d, NormOfADegenerateLineFails) {
  Tvx_line2d l = vx_line2d(1e-07, 0, 5);
  EXPECT_FALSE(vx_line2d_norm(&l));
  EXPECT_EQ(l.a, 1e-07);
  EXPECT_EQ(l.c, 5.0);
}

TEST(Segment2d, ConstructorsAndSwap) {
  const Tvx_segment2d s = vx_segment2d(vx_point2d(1, 2), vx_point2d(3, 4));
  EXPECT_EQ(s.x1, 1.0);
  EXPECT_EQ(s.y2, 4.0);
  const Tvx_segment2d t = vx_segment2d_swap(s);
  EXPECT_EQ(t.x1, 3.0);
  EXPECT_EQ(t.y1, 4.0);
  EXPECT_EQ(t.x2, 1.0);
  EXPECT_EQ(t.y2, 2.0);
  EXPECT_EQ(vx_segment2d().x2, 0.0);
}

TEST(Segment2d, GetYWithinAndOutside) {
  const Tvx_segment2d s = vx_segment2d(2, 0, 0, 4);
  double y = 0;
  EXPECT_TRUE(vx_segment2d_get_y(s, 1, &y));
  EXPECT_DOUBLE_EQ(y, 2.0);
  EXPECT_TRUE(vx_segment2d_get_y(s, 0, &y));
  EXPECT_DOUBLE_EQ(y, 4.0);
  EXPECT_FALSE(vx_segment2d_get_y(s, 3, &y));  // on the line, beyond the segment
  EXPECT_DOUBLE_EQ(y, -2.0);
}

TEST(Segment2d, GetYOnVerticalGivesY1AndFalse) {
  double y = 0;
  EXPECT_FALSE(vx_segment2d_get_y(vx_segment2d(1, 7, 1, 9), 1, &y));
  EXPECT_EQ(y, 7.0);
}

TEST(Segment2d, GetXMirrorsGetY) {
  double x = 0;
  EXPECT_TRUE(vx_segment2d_get_x(vx_segment2d(0, 0, 4, 2), 1, &x));
  EXPECT_DOUBLE_EQ(x, 2.0);
  EXPECT_FALSE(vx_segment2d_get_x(vx_segment2d(3, 5, 8, 5), 5, &x));  // horizontal
  EXPECT_EQ(x, 3.0);
}

TEST(Segment2d, DistanceToTheFootOfThePerpendicular) {
  const Tvx_segment2d s = vx_segment2d(0, 0, 4, 0);
  double d = -1;
  Tvx_point2d p = vx_point2d(-9, -9);
  EXPECT_TRUE(vx_segment2d_distance_xy(s, 1, 3, d, p));
  EXPECT_DOUBLE_EQ(d, 3.0);
  EXPECT_EQ(p, vx_point2d(1, 0));
  EXPECT_TRUE(vx_segment2d_distance_xy(s, 4, -2, d, p));  // foot at the end
  EXPECT_DOUBLE_EQ(d, 2.0);
}

TEST(Segment2d, DistanceFailsOutsideAndOnAPoint) {
  double d = -1;
  Tvx_point2d p = vx_point2d(-9, -9);
  EXPECT_FALSE(vx_segment2d_distance_xy(vx_segment2d(0, 0, 4, 0), 5, 1, d, p));  // no clamping
  EXPECT_FALSE(vx_segment2d_distance_xy(vx_segment2d(1, 1, 1, 1 + 1e-06), 1, 1, d, p));
  EXPECT_EQ(d, -1.0);
  EXPECT_EQ(p, vx_point2d(-9, -9));
}

TEST(Segment2d, CrossAndCrossIndependentOfDirection) {
  const Tvx_segment2d a = vx_segment2d(0, 0, 3, 1), b = vx_segment2d(0, 1, 3, 0);
  Tvx_point2d p = vx_point2d(), q = vx_point2d(), r = vx_point2d();
  EXPECT_TRUE(vx_segment2d_cross(a, b, p));
  EXPECT_DOUBLE_EQ(p.x, 1.5);
  EXPECT_DOUBLE_EQ(p.y, 0.5);
  EXPECT_TRUE(vx_segment2d_cross_ex(a, b, q));
  EXPECT_TRUE(vx_segment2d_cross_ex(vx_segment2d_swap(b), vx_segment2d_swap(a), r));
  EXPECT_EQ(q.x, r.x);
  EXPECT_EQ(q.y, r.y);
  Tvx_point2d none = vx_point2d(5, 5);
  EXPECT_FALSE(vx_segment2d_cross(a, vx_segment2d(0, 2, 3, 3), none));
  EXPECT_EQ(none, vx_point2d(5, 5));
}

TEST(Segment2d, AngleBetweenIsSignedAndZeroWhenParallel) {
  const Tvx_segment2d x_axis = vx_segment2d(0, 0, 1, 0);
  EXPECT_DOUBLE_EQ(vx_segment2d_angle_between(x_axis, vx_segment2d(0, 0, 0, 2)), kPi / 2);
  EXPECT_DOUBLE_EQ(vx_segment2d_angle_between(x_axis, vx_segment2d(0, 0, 0, -2)), -kPi / 2);
  EXPECT_DOUBLE_EQ(vx_segment2d_angle_between(x_axis, vx_segment2d(0, 0, 1, 1)), kPi / 4);
  EXPECT_EQ(vx_segment2d_angle_between(x_axis, vx_segment2d(5, 5, 7, 5)), 0.0);
  EXPECT_EQ(vx_segment2d_angle_between(x_axis, vx_segment2d(0, 0, -3, 0)), 0.0);  // opposite too
}

}  // namespace
