#include "geom/pp2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <memory>
#include <vector>

namespace {

Tvx_pp2d make(std::initializer_list<Tvx_point2d> pts) {
  Tvx_pp2d pp;
  for (const Tvx_point2d& p : pts) pp.add(p.x, p.y);
  return pp;
}

std::vector<Tvx_point2d> vertices(const Tvx_pp2d& pp) {
  std::vector<Tvx_point2d> out;
  for (int i = 0; i < pp.get_size(); ++i) out.push_back(pp.get(i));
  return out;
}

void expect_vertices(const Tvx_pp2d& pp, std::initializer_list<Tvx_point2d> want) {
  const std::vector<Tvx_point2d> got = vertices(pp);
  ASSERT_EQ(got.size(), want.size());
  std::size_t i = 0;
  for (const Tvx_point2d& p : want) {
    EXPECT_NEAR(got[i].x, p.x, 1e-12) << "vertex " << i;
    EXPECT_NEAR(got[i].y, p.y, 1e-12) << "vertex " << i;
    ++i;
  }
}

std::unique_ptr<Tvx_pp2d> own(Tvx_pp2d* p) {
  return std::unique_ptr<Tvx_pp2d>(p);
}

// Hand-computed shapes, y upwards.
const Tvx_pp2d kSquareCw = make({{0, 0}, {0, 2}, {2, 2}, {2, 0}, {0, 0}});  // area 4
const Tvx_pp2d kTriangleCw = make({{0, 0}, {0, 3}, {4, 0}, {0, 0}});        // area 6
const Tvx_pp2d kDegenerate = make({{0, 0}, {1, 0}, {2, 0}, {0, 0}});        // collinear ring
const Tvx_pp2d kOutAndBack = make({{0, 0}, {3, 4}, {0, 0}});                // length 10
const Tvx_pp2d kDiamond = make({{2, 0}, {0, 2}, {2, 4}, {4, 2}, {2, 0}});   // vertices on y = 2

// --- building and editing ----------------------------------------------------------------------------

TEST(Pp2d, NewVectorIsEmptyAndClean) {
  Tvx_pp2d pp;
  EXPECT_EQ(pp.get_size(), 0);
  EXPECT_FALSE(pp.get_rect().defined);
  EXPECT_EQ(pp.get_clock_wise(), vx_cw_unknown);
  const Tvx_rect2d_ext e = pp.get_rect_and_stat();
  EXPECT_FALSE(e.rect.defined);
  EXPECT_EQ(e.count, 0u);
  EXPECT_EQ(pp.get_first(), vx_point2d());
  EXPECT_EQ(pp.get_last(), vx_point2d());
}

TEST(Pp2d, AddSetInsDel) {
  Tvx_pp2d pp;
  pp.add(vx_point2d(1, 1));
  pp.add(2, 2);
  pp.ins(vx_point2d(0, 0), 0);
  expect_vertices(pp, {{0, 0}, {1, 1}, {2, 2}});
  pp.set(1, vx_point2d(5, 5));
  pp.del(0);
  expect_vertices(pp, {{5, 5}, {2, 2}});
  EXPECT_EQ(pp.get_first(), vx_point2d(5, 5));
  EXPECT_EQ(pp.get_last(), vx_point2d(2, 2));
  pp.del_last();
  expect_vertices(pp, {{5, 5}});
}

TEST(Pp2d, DelOfARangeDoesNothing) {
  Tvx_pp2d pp = make({{0, 0}, {1, 1}, {2, 2}});
  pp.del(0, 2);
  pp.del(1, 1);
  EXPECT_EQ(pp.get_size(), 3);
}

TEST(Pp2d, DelLastOnEmptyIsHarmless) {
  Tvx_pp2d pp;
  pp.del_last();
  EXPECT_EQ(pp.get_size(), 0);
}

TEST(Pp2d, SetSizeFillsWithZeroPoints) {
  Tvx_pp2d pp = make({{1, 1}});
  pp.set_size(3);
  expect_vertices(pp, {{1, 1}, {0, 0}, {0, 0}});
  pp.set_size(1);
  expect_vertices(pp, {{1, 1}});
}

TEST(Pp2d, AddOtherForwardAndReversed) {
  Tvx_pp2d pp = make({{0, 0}});
  const Tvx_pp2d other = make({{1, 0}, {2, 0}});
  pp.add(&other, false);
  pp.add(&other, true);
  expect_vertices(pp, {{0, 0}, {1, 0}, {2, 0}, {2, 0}, {1, 0}});
  pp.add(&pp, true);  // itself
  EXPECT_EQ(pp.get_size(), 10);
  EXPECT_EQ(pp.get(9), vx_point2d(0, 0));
}

TEST(Pp2d, InsOtherBeforeAnIndex) {
  Tvx_pp2d pp = make({{0, 0}, {3, 0}});
  const Tvx_pp2d other = make({{1, 0}, {2, 0}});
  pp.ins(&other, 1);
  expect_vertices(pp, {{0, 0}, {1, 0}, {2, 0}, {3, 0}});
}

TEST(Pp2d, AssignClearSortReverse) {
  Tvx_pp2d pp;
  pp.assign(&kTriangleCw);
  EXPECT_EQ(pp.get_size(), 4);
  pp.sort();
  expect_vertices(pp, {{0, 0}, {0, 0}, {0, 3}, {4, 0}});
  pp.reverse();
  expect_vertices(pp, {{4, 0}, {0, 3}, {0, 0}, {0, 0}});
  pp.clear();
  EXPECT_EQ(pp.get_size(), 0);
}

TEST(Pp2d, DeleteDoubleRemovesRepeatsOfTheKeptVertex) {
  Tvx_pp2d pp = make({{0, 0}, {0, 0}, {1, 0}, {1, 0}, {1, 0}, {0, 0}, {0, 0}});
  pp.delete_double();
  expect_vertices(pp, {{0, 0}, {1, 0}, {0, 0}});
}

TEST(Pp2d, DeleteObjDeletesAndNulls) {
  Tvx_pp2d* pp = new Tvx_pp2d();
  pp->add(1, 1);
  Tvx_pp2d::delete_obj(&pp);
  EXPECT_EQ(pp, nullptr);
  Tvx_pp2d::delete_obj(&pp);  // already null
  Tvx_pp2d::delete_obj(nullptr);
}

// --- lazy state --------------------------------------------------------------------------------------

TEST(Pp2d, RectangleFollowsChanges) {
  Tvx_pp2d pp = make({{1, 2}, {3, -1}});
  Tvx_rect2d r = pp.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, 1.0);
  EXPECT_EQ(r.ymin, -1.0);
  EXPECT_EQ(r.xmax, 3.0);
  EXPECT_EQ(r.ymax, 2.0);
  pp.add(vx_point2d(-5, 0));
  EXPECT_EQ(pp.get_rect().xmin, -5.0);
  pp.set(0, vx_point2d(1, 10));
  EXPECT_EQ(pp.get_rect().ymax, 10.0);
}

TEST(Pp2d, StatisticsSumTheVertices) {
  Tvx_pp2d pp = make({{1, 2}, {3, 4}, {5, 6}});
  const Tvx_rect2d_ext e = pp.get_rect_and_stat();
  EXPECT_EQ(e.sum_x, 9.0);
  EXPECT_EQ(e.sum_y, 12.0);
  EXPECT_EQ(e.count, 3u);
  EXPECT_EQ(e.rect.xmax, 5.0);
}

TEST(Pp2d, AddOfAPointLeavesTheOldStatistics) {
  Tvx_pp2d pp = make({{1, 1}});
  EXPECT_EQ(pp.get_rect_and_stat().count, 1u);
  pp.add(vx_point2d(2, 2));  // marks only the rectangle
  EXPECT_EQ(pp.get_rect_and_stat().count, 1u);
  EXPECT_EQ(pp.get_rect().xmax, 2.0);
  pp.add(3.0, 3.0);  // marks both
  EXPECT_EQ(pp.get_rect_and_stat().count, 3u);
}

TEST(Pp2d, CloseLeavesTheOldStatistics) {
  Tvx_pp2d pp = make({{0, 0}, {1, 0}, {1, 1}});
  EXPECT_EQ(pp.get_rect_and_stat().count, 3u);
  EXPECT_TRUE(pp.close());
  EXPECT_EQ(pp.get_size(), 4);
  EXPECT_EQ(pp.get_rect_and_stat().count, 3u);
}

TEST(Pp2d, StatisticsFirstLeaveTheOldRectangle) {
  Tvx_pp2d pp = make({{0, 0}, {1, 1}});
  EXPECT_EQ(pp.get_rect().xmax, 1.0);
  pp.add(5.0, 5.0);
  EXPECT_EQ(pp.get_rect_and_stat().rect.xmax, 5.0);
  EXPECT_EQ(pp.get_rect().xmax, 1.0);  // rect_dirty was cleared without a new rectangle
}

TEST(Pp2d, DelLastAndDeleteDoubleKeepTheOldState) {
  Tvx_pp2d pp = make({{0, 0}, {4, 4}});
  EXPECT_EQ(pp.get_rect().xmax, 4.0);
  EXPECT_EQ(pp.get_rect_and_stat().count, 2u);
  pp.del_last();
  EXPECT_EQ(pp.get_rect().xmax, 4.0);
  EXPECT_EQ(pp.get_rect_and_stat().count, 2u);
  Tvx_pp2d q = make({{0, 0}, {0, 0}, {1, 1}});
  EXPECT_EQ(q.get_rect_and_stat().count, 3u);
  q.delete_double();
  EXPECT_EQ(q.get_size(), 2);
  EXPECT_EQ(q.get_rect_and_stat().count, 3u);
}

TEST(Pp2d, SetSizeToTheSameSizeKeepsTheState) {
  Tvx_pp2d pp = make({{0, 0}, {4, 4}});
  EXPECT_EQ(pp.get_rect().xmax, 4.0);
  pp.del_last();  // state now stale but clean
  pp.set_size(1);
  EXPECT_EQ(pp.get_rect().xmax, 4.0);
  pp.set_size(2);  // a change of size marks dirty
  EXPECT_EQ(pp.get_rect().xmax, 0.0);
}

// --- closing and orientation ---------------------------------------------------------------------

TEST(Pp2d, ClosedNeedsThreeVerticesAndExactEquality) {
  EXPECT_TRUE(kSquareCw.is_closed());
  EXPECT_FALSE(make({{0, 0}, {0, 0}}).is_closed());
  EXPECT_FALSE(make({{0, 0}, {1, 0}, {1e-12, 0}}).is_closed());
  EXPECT_TRUE(kOutAndBack.is_closed());
}

TEST(Pp2d, ThreeVertexOutAndBackRingHasNoOrientation) {
  Tvx_pp2d pp = kOutAndBack;
  EXPECT_TRUE(pp.is_closed());
  EXPECT_EQ(pp.get_clock_wise(), vx_cw_unknown);  // its sum is 0
  EXPECT_EQ(pp.calc_area(), 0.0);
}

TEST(Pp2d, ThreeVertexRingTakesTheSignOfItsSum) {
  // Out to b and back: the two terms of the sum cancel exactly, whatever b is.
  for (const Tvx_point2d b : {vx_point2d(1, 1), vx_point2d(-3, 7), vx_point2d(0.1, -0.3)}) {
    Tvx_pp2d pp = make({{0.5, 0.25}, b, {0.5, 0.25}});
    EXPECT_TRUE(pp.is_closed());
    EXPECT_EQ(pp.get_clock_wise(), vx_cw_unknown);
  }
  Tvx_pp2d tri = make({{0, 0}, {0, 1}, {1, 0}});
  EXPECT_TRUE(tri.close());
  EXPECT_EQ(tri.get_clock_wise(), vx_cw_clockwise);
}

TEST(Pp2d, CloseOnTwoVerticesGivesARingOfAreaZero) {
  Tvx_pp2d pp = make({{0, 0}, {5, 5}});
  EXPECT_TRUE(pp.close());
  expect_vertices(pp, {{0, 0}, {5, 5}, {0, 0}});
  EXPECT_TRUE(pp.is_closed());
  EXPECT_EQ(pp.calc_area(), 0.0);
}

TEST(Pp2d, CloseOnFewerThanTwoFailsAndOnARingDoesNothing) {
  Tvx_pp2d one = make({{1, 1}});
  EXPECT_FALSE(one.close());
  EXPECT_EQ(one.get_size(), 1);
  Tvx_pp2d ring = kSquareCw;
  EXPECT_TRUE(ring.close());
  EXPECT_EQ(ring.get_size(), 5);
}

TEST(Pp2d, SquareOrientationAndArea) {
  Tvx_pp2d cw = kSquareCw;
  EXPECT_EQ(cw.get_clock_wise(), vx_cw_clockwise);
  EXPECT_EQ(cw.calc_area(), 4.0);
  EXPECT_EQ(cw.calc_signed_area(), 4.0);
  Tvx_pp2d ccw = kSquareCw;
  ccw.reverse();
  EXPECT_EQ(ccw.get_clock_wise(), vx_cw_counter_clockwise);
  EXPECT_EQ(ccw.calc_area(), 4.0);
  EXPECT_EQ(ccw.calc_signed_area(), -4.0);
}

TEST(Pp2d, TriangleOrientationAndArea) {
  Tvx_pp2d tri = kTriangleCw;
  EXPECT_EQ(tri.get_clock_wise(), vx_cw_clockwise);
  EXPECT_EQ(tri.calc_area(), 6.0);
  EXPECT_EQ(tri.calc_signed_area(), 6.0);
}

TEST(Pp2d, DegenerateRingHasNoOrientationAndNoArea) {
  Tvx_pp2d pp = kDegenerate;
  EXPECT_TRUE(pp.is_closed());
  EXPECT_EQ(pp.get_clock_wise(), vx_cw_unknown);
  EXPECT_EQ(pp.calc_area(), 0.0);
  EXPECT_FALSE(pp.make_clock_wise(vx_cw_clockwise));
  EXPECT_TRUE(pp.make_clock_wise(vx_cw_unknown));
}

TEST(Pp2d, MakeClockWiseTurnsTheRing) {
  Tvx_pp2d pp = kSquareCw;
  EXPECT_TRUE(pp.make_clock_wise(vx_cw_clockwise));
  expect_vertices(pp, {{0, 0}, {0, 2}, {2, 2}, {2, 0}, {0, 0}});
  EXPECT_TRUE(pp.make_clock_wise(vx_cw_counter_clockwise));
  expect_vertices(pp, {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}});
  EXPECT_EQ(pp.get_clock_wise(), vx_cw_counter_clockwise);
  EXPECT_FALSE(pp.make_clock_wise(vx_cw_unknown));
}

TEST(Pp2d, OpenLineIsNeverTurned) {
  Tvx_pp2d pp = make({{0, 0}, {0, 2}, {2, 2}});
  EXPECT_EQ(pp.get_clock_wise(), vx_cw_unknown);
  EXPECT_FALSE(pp.make_clock_wise(vx_cw_clockwise));
  EXPECT_FALSE(pp.make_clock_wise(vx_cw_counter_clockwise));
  EXPECT_TRUE(pp.make_clock_wise(vx_cw_unknown));
  expect_vertices(pp, {{0, 0}, {0, 2}, {2, 2}});
}

TEST(Pp2d, SignedAreaOfAnOpenLineIsNegativeZero) {
  Tvx_pp2d pp = make({{0, 0}, {0, 2}, {2, 2}});
  const double a = pp.calc_signed_area();
  EXPECT_EQ(a, 0.0);
  EXPECT_TRUE(std::signbit(a));
  EXPECT_EQ(pp.calc_area(), 0.0);
  Tvx_pp2d two = make({{0, 0}, {1, 1}});
  EXPECT_EQ(two.calc_area(), 0.0);
}

// --- lengths and angles --------------------------------------------------------------------------

TEST(Pp2d, LengthOfALineThatGoesOutAndBack) {
  EXPECT_EQ(kOutAndBack.calc_length(), 10.0);
  EXPECT_EQ(kOutAndBack.calc_length(1), 5.0);
  EXPECT_EQ(kOutAndBack.calc_length(2), 10.0);
  EXPECT_EQ(kOutAndBack.calc_length(7), 10.0);
  EXPECT_EQ(kOutAndBack.calc_length(0), 0.0);
  EXPECT_EQ(kOutAndBack.calc_length(-3), 0.0);
  EXPECT_EQ(kSquareCw.calc_length(), 8.0);
  EXPECT_EQ(Tvx_pp2d().calc_length(), 0.0);
  EXPECT_EQ(make({{1, 1}}).calc_length(), 0.0);
}

TEST(Pp2d, TrendAngleIsUndirected) {
  EXPECT_DOUBLE_EQ(make({{0, 0}, {1, 1}}).calc_trend_angle(), 45.0);
  EXPECT_DOUBLE_EQ(make({{0, 0}, {-1, -1}}).calc_trend_angle(), 45.0);
  EXPECT_DOUBLE_EQ(make({{0, 0}, {1, -1}}).calc_trend_angle(), 135.0);
  EXPECT_DOUBLE_EQ(make({{0, 0}, {0, -1}}).calc_trend_angle(), 90.0);
  EXPECT_DOUBLE_EQ(make({{0, 0}, {-1, 0}}).calc_trend_angle(), 180.0);
  EXPECT_DOUBLE_EQ(make({{0, 0}, {5, 9}, {2, 0}}).calc_trend_angle(), 0.0);  // first to last only
  EXPECT_EQ(kOutAndBack.calc_trend_angle(), 0.0);                            // first equals last
  EXPECT_EQ(make({{3, 3}}).calc_trend_angle(), 0.0);
}

// --- positions along the line --------------------------------------------------------------------

const Tvx_pp2d kElbow = make({{0, 0}, {10, 0}, {10, 10}});

TEST(Pp2d, VtxAtLengthInsideASegment) {
  Tvx_point2d p = vx_point2d(-1, -1);
  EXPECT_EQ(kElbow.vtx_at_length(5, p), 1);
  EXPECT_EQ(p, vx_point2d(5, 0));
  EXPECT_EQ(kElbow.vtx_at_length(15, p), 2);
  EXPECT_EQ(p, vx_point2d(10, 5));
}

TEST(Pp2d, VtxAtLengthOnAnInnerVertexGivesTheNextSegment) {
  Tvx_point2d p = vx_point2d(-1, -1);
  EXPECT_EQ(kElbow.vtx_at_length(10, p), 2);
  EXPECT_EQ(p, vx_point2d(10, 0));
  EXPECT_EQ(kElbow.vtx_at_length(0, p), 1);
  EXPECT_EQ(p, vx_point2d(0, 0));
}

TEST(Pp2d, VtxAtLengthAtOrBeyondTheEndFails) {
  Tvx_point2d p = vx_point2d(-1, -1);
  EXPECT_EQ(kElbow.vtx_at_length(20, p), 0);
  EXPECT_EQ(kElbow.vtx_at_length(25, p), 0);
  EXPECT_EQ(p, vx_point2d(-1, -1));
  EXPECT_EQ(make({{1, 1}}).vtx_at_length(-1, p), 0);
  EXPECT_EQ(p, vx_point2d(-1, -1));
}

TEST(Pp2d, VtxAtLengthNegativeExtrapolatesBackwards) {
  Tvx_point2d p = vx_point2d();
  EXPECT_EQ(kElbow.vtx_at_length(-3, p), 1);
  EXPECT_EQ(p, vx_point2d(-3, 0));
}

TEST(Pp2d, VtxAtLengthOnATinySegmentGivesItsEnd) {
  const Tvx_pp2d pp = make({{0, 0}, {5e-07, 0}, {5e-07, 10}});
  Tvx_point2d p = vx_point2d();
  EXPECT_EQ(pp.vtx_at_length(2e-07, p), 1);
  EXPECT_EQ(p, vx_point2d(5e-07, 0));
}

TEST(Pp2d, SplitAtLengthInsideASegment) {
  Tvx_pp2d a, b;
  EXPECT_TRUE(kElbow.split_at_length(5, &a, &b));
  expect_vertices(a, {{0, 0}, {5, 0}});
  expect_vertices(b, {{5, 0}, {10, 0}, {10, 10}});
}

TEST(Pp2d, SplitAtAVertexDoesNotRepeatIt) {
  Tvx_pp2d a = make({{9, 9}}), b = make({{9, 9}});
  EXPECT_TRUE(kElbow.split_at_length(10, &a, &b));
  expect_vertices(a, {{0, 0}, {10, 0}});
  expect_vertices(b, {{10, 0}, {10, 10}});
  EXPECT_TRUE(kElbow.split_at_length(0, &a, &b));
  expect_vertices(a, {{0, 0}});
  expect_vertices(b, {{0, 0}, {10, 0}, {10, 10}});
}

TEST(Pp2d, SplitAtATinySegmentEnd) {
  const Tvx_pp2d pp = make({{0, 0}, {5e-07, 0}, {5e-07, 10}});
  Tvx_pp2d a, b;
  EXPECT_TRUE(pp.split_at_length(2e-07, &a, &b));
  expect_vertices(a, {{0, 0}, {5e-07, 0}});
  expect_vertices(b, {{5e-07, 0}, {5e-07, 10}});
}

TEST(Pp2d, SplitFailsAndLeavesTheOutputs) {
  Tvx_pp2d a = make({{9, 9}}), b = make({{8, 8}});
  EXPECT_FALSE(kElbow.split_at_length(20, &a, &b));
  expect_vertices(a, {{9, 9}});
  expect_vertices(b, {{8, 8}});
}

TEST(Pp2d, SplitWithOneOutputOrIntoItself) {
  Tvx_pp2d b;
  EXPECT_TRUE(kElbow.split_at_length(15, nullptr, &b));
  expect_vertices(b, {{10, 5}, {10, 10}});
  Tvx_pp2d self = kElbow;
  EXPECT_TRUE(self.split_at_length(15, &self, nullptr));
  expect_vertices(self, {{0, 0}, {10, 0}, {10, 5}});
  EXPECT_EQ(self.get_rect().ymax, 5.0);
}

// --- point in ring ------------------------------------------------------------------------------

TEST(Pp2dInclude, SquareInsideOutside) {
  EXPECT_TRUE(kSquareCw.include(1, 1));
  EXPECT_TRUE(kSquareCw.include(vx_point2d(0.5, 1.5)));
  EXPECT_FALSE(kSquareCw.include(3, 1));
  EXPECT_FALSE(kSquareCw.include(-1, 1));
  EXPECT_FALSE(kSquareCw.include(1, 3));
  EXPECT_FALSE(kSquareCw.include(1, -1));
}

TEST(Pp2dInclude, OrientationDoesNotMatter) {
  Tvx_pp2d ccw = kSquareCw;
  ccw.reverse();
  EXPECT_TRUE(ccw.include(1, 1));
  EXPECT_FALSE(ccw.include(3, 1));
}

TEST(Pp2dInclude, OpenOrShortLinesIncludeNothing) {
  EXPECT_FALSE(make({{0, 0}, {0, 2}, {2, 2}, {2, 0}}).include(1, 1));
  EXPECT_FALSE(make({{0, 0}, {0, 0}}).include(0, 0));
  EXPECT_FALSE(Tvx_pp2d().include(0, 0));
}

// Rule 2: y strictly within an edge; the crossing itself is on the boundary.
TEST(Pp2dInclude, PointOnASlopedEdgeIsInside) {
  const Tvx_pp2d tri = make({{0, 0}, {2, 4}, {4, 0}, {0, 0}});
  EXPECT_TRUE(tri.include(1, 2));  // crossing x of the left edge at y = 2
  EXPECT_TRUE(tri.include(3, 2));  // the right edge
  EXPECT_TRUE(tri.include(2, 2));
  EXPECT_FALSE(tri.include(0.9, 2));
  EXPECT_FALSE(tri.include(3.1, 2));
}

TEST(Pp2dInclude, PointOnAVerticalEdgeIsInside) {
  EXPECT_TRUE(kSquareCw.include(0, 1));
  EXPECT_TRUE(kSquareCw.include(2, 1));
}

// Rule 3: a horizontal edge at y.
TEST(Pp2dInclude, PointOnAHorizontalEdgeIsInside) {
  EXPECT_TRUE(kSquareCw.include(1, 0));
  EXPECT_TRUE(kSquareCw.include(1, 2));
}

TEST(Pp2dInclude, CornersOfHorizontalEdgesAreInside) {
  EXPECT_TRUE(kSquareCw.include(0, 0));
  EXPECT_TRUE(kSquareCw.include(2, 0));
  EXPECT_TRUE(kSquareCw.include(0, 2));
  EXPECT_TRUE(kSquareCw.include(2, 2));
}

TEST(Pp2dInclude, HorizontalEdgeOnTheRayIsSkipped) {
  // An L: the edge (0,1)-(2,1) lies on the ray from (3, 1).
  const Tvx_pp2d l = make({{0, 0}, {0, 1}, {2, 1}, {2, 3}, {4, 3}, {4, 0}, {0, 0}});
  EXPECT_TRUE(l.include(3, 1));
  EXPECT_FALSE(l.include(5, 1));
  EXPECT_FALSE(l.include(-1, 1));
  EXPECT_TRUE(l.include(1, 1));  // on that edge
  EXPECT_FALSE(l.include(1, 2));
}

TEST(Pp2dInclude, OutsideOnTheLineOfAHorizontalEdge) {
  EXPECT_FALSE(kSquareCw.include(3, 2));
  EXPECT_FALSE(kSquareCw.include(-1, 0));
  EXPECT_FALSE(kSquareCw.include(3, 0));
}

// Rule 4: a vertex on the ray counts once, through the edge whose lower end it is.
TEST(Pp2dInclude, VertexOnTheRayCountsOnce) {
  EXPECT_TRUE(kDiamond.include(3, 2));  // ray through the left vertex (0, 2)
  EXPECT_FALSE(kDiamond.include(5, 2));
  EXPECT_FALSE(kDiamond.include(-1, 2));
  // A vertex in the middle of a straight side.
  const Tvx_pp2d sq = make({{0, 0}, {0, 1}, {0, 2}, {2, 2}, {2, 0}, {0, 0}});
  EXPECT_TRUE(sq.include(1, 1));
  EXPECT_FALSE(sq.include(3, 1));
}

TEST(Pp2dInclude, ValleyVertexOnTheRayCountsTwice) {
  // A square with a V notch from the top, whose bottom (2, 2) is the lower end of two edges.
  const Tvx_pp2d notch = make({{0, 0}, {0, 4}, {2, 2}, {4, 4}, {4, 0}, {0, 0}});
  EXPECT_TRUE(notch.include(3, 2));
  EXPECT_FALSE(notch.include(5, 2));
  EXPECT_TRUE(notch.include(2, 2));   // the vertex itself
  EXPECT_FALSE(notch.include(2, 3));  // in the notch
}

TEST(Pp2dInclude, LowerAndSideVerticesAreInside) {
  EXPECT_TRUE(kDiamond.include(2, 0));  // bottom: the lower end of both its edges
  EXPECT_TRUE(kDiamond.include(0, 2));  // left: the lower end of one edge
  EXPECT_TRUE(kDiamond.include(4, 2));  // right
}

TEST(Pp2dInclude, TopVertexCountsNothing) {
  // The peak is the upper end of both its edges, and upper ends count nothing: the ray from it meets
  // no edge, so the rules leave this one boundary point outside.
  EXPECT_FALSE(kDiamond.include(2, 4));
  EXPECT_FALSE(kTriangleCw.include(0, 3));
}

TEST(Pp2dInclude, DegenerateRingIncludesOnlyItsLine) {
  EXPECT_TRUE(kDegenerate.include(1, 0));  // on its horizontal edges
  EXPECT_FALSE(kDegenerate.include(1, 1));
  EXPECT_FALSE(kDegenerate.include(3, 0));
}

TEST(Pp2dInclude, OutAndBackRingIncludesOnlyItsLine) {
  EXPECT_TRUE(kOutAndBack.include(1.5, 2));  // both edges cross y = 2 at x = 1.5
  EXPECT_FALSE(kOutAndBack.include(2, 2));   // two crossings to the left: even
  EXPECT_FALSE(kOutAndBack.include(1, 2));
  EXPECT_TRUE(kOutAndBack.include(0, 0));  // lower end of both edges
}

TEST(Pp2dInclude, TriangleInsideAndOnTheHypotenuse) {
  EXPECT_TRUE(kTriangleCw.include(1, 1));
  EXPECT_TRUE(kTriangleCw.include(2, 1.5));  // on the edge (0,3)-(4,0)
  EXPECT_FALSE(kTriangleCw.include(3, 2));
}

// --- new lines --------------------------------------------------------------------------------------

TEST(Pp2dEqualDist, DropsAVertexEveryStep) {
  auto r = own(make({{0, 0}, {10, 0}}).make_equal_dist(3));
  expect_vertices(*r, {{0, 0}, {3, 0}, {6, 0}, {9, 0}});  // the last stretch is dropped
  EXPECT_EQ(r->get_rect().xmax, 9.0);
}

TEST(Pp2dEqualDist, CarriesTheRestOverVertices) {
  auto r = own(make({{0, 0}, {4, 0}, {4, 4}}).make_equal_dist(3));
  expect_vertices(*r, {{0, 0}, {3, 0}, {4, 2}});
  auto s = own(make({{0, 0}, {1, 0}, {5, 0}}).make_equal_dist(3));
  expect_vertices(*s, {{0, 0}, {3, 0}});
}

TEST(Pp2dEqualDist, TinySegmentGivesItsEnd) {
  auto r = own(make({{0, 0}, {2.9999998, 0}, {3.0000003, 0}, {9, 0}}).make_equal_dist(3));
  ASSERT_EQ(r->get_size(), 3);
  EXPECT_EQ(r->get(1), vx_point2d(3.0000003, 0));
  EXPECT_NEAR(r->get(2).x, 6.0000003, 1e-9);
}

TEST(Pp2dEqualDist, LineShorterThanStepGivesTheFirstVertex) {
  auto r = own(make({{1, 1}, {2, 1}}).make_equal_dist(5));
  expect_vertices(*r, {{1, 1}});
  auto ring = own(make({{0, 0}, {1, 0}, {1, 1}, {0, 0}}).make_equal_dist(10));
  expect_vertices(*ring, {{0, 0}});
}

TEST(Pp2dEqualDist, ClosedSourceGivesAClosedResult) {
  auto r = own(kSquareCw.make_equal_dist(3));
  expect_vertices(*r, {{0, 0}, {1, 2}, {2, 0}, {0, 0}});
  EXPECT_TRUE(r->is_closed());
}

TEST(Pp2dEqualDist, EmptyAndNonPositiveStep) {
  auto e = own(Tvx_pp2d().make_equal_dist(1));
  EXPECT_EQ(e->get_size(), 0);
  auto z = own(kElbow.make_equal_dist(0));  // no walk without a step: a copy
  expect_vertices(*z, {{0, 0}, {10, 0}, {10, 10}});
}

TEST(Pp2dDensify, AddsEqualFractions) {
  auto r = own(make({{0, 0}, {10, 0}}).densify(3));  // trunc(10 / 3) = 3 new vertices
  expect_vertices(*r, {{0, 0}, {2.5, 0}, {5, 0}, {7.5, 0}, {10, 0}});
  auto s = own(kElbow.densify(4));
  ASSERT_EQ(s->get_size(), 7);
  EXPECT_EQ(s->get(3), vx_point2d(10, 0));  // input vertices stay
  EXPECT_NEAR(s->get(4).y, 10.0 / 3, 1e-12);
  EXPECT_EQ(s->get_rect().ymax, 10.0);
}

TEST(Pp2dDensify, StepEqualToASegmentLeavesIt) {
  auto r = own(make({{0, 0}, {10, 0}}).densify(10));
  expect_vertices(*r, {{0, 0}, {10, 0}});
}

TEST(Pp2dDensify, CopyWhenNothingToDo) {
  auto tiny = own(kElbow.densify(1e-06));
  expect_vertices(*tiny, {{0, 0}, {10, 0}, {10, 10}});
  auto one = own(make({{1, 2}}).densify(1));
  expect_vertices(*one, {{1, 2}});
}

TEST(Pp2dMiddleSides, MidpointsWithOrWithoutEnds) {
  auto both = own(kElbow.make_middle_sides(true, true));
  expect_vertices(*both, {{0, 0}, {5, 0}, {10, 5}, {10, 10}});
  auto none = own(kElbow.make_middle_sides(false, false));
  expect_vertices(*none, {{5, 0}, {10, 5}});
  auto first = own(kElbow.make_middle_sides(true, false));
  expect_vertices(*first, {{0, 0}, {5, 0}, {10, 5}});
}

TEST(Pp2dMiddleSides, ShortSources) {
  auto one = own(make({{3, 4}}).make_middle_sides(false, true));
  expect_vertices(*one, {{3, 4}});
  auto zero = own(Tvx_pp2d().make_middle_sides(true, true));
  expect_vertices(*zero, {{0, 0}});
  auto nothing = own(make({{3, 4}}).make_middle_sides(false, false));
  EXPECT_EQ(nothing->get_size(), 0);
}

TEST(Pp2dChordSimplify, ThinsACopy) {
  const Tvx_pp2d source = make({{0, 0}, {1, 0.1}, {5, 3}, {10, 0}});
  auto r = own(source.chord_simplify(0.5));
  expect_vertices(*r, {{0, 0}, {5, 3}, {10, 0}});
  EXPECT_EQ(source.get_size(), 4);
  auto all = own(source.chord_simplify(0.0));
  EXPECT_EQ(all->get_size(), 4);
}

TEST(Pp2dSimpleSimplify, StraightLineComesDownToItsEnds) {
  // Resampled every 1 into 11 vertices, smoothed (still straight), thinned by chords to its ends.
  auto r = own(make({{0, 0}, {4, 0}, {10, 0}}).simple_simplify(1.0));
  expect_vertices(*r, {{0, 0}, {10, 0}});
}

TEST(Pp2dSimpleSimplify, ElbowIsRoundedAndThinned) {
  auto r = own(kElbow.simple_simplify(1.0));
  ASSERT_GE(r->get_size(), 3);
  EXPECT_LE(r->get_size(), 8);
  EXPECT_EQ(r->get_first(), vx_point2d(0, 0));
  EXPECT_EQ(r->get_last(), vx_point2d(10, 10));
  for (int i = 1; i + 1 < r->get_size(); ++i) {
    const Tvx_point2d p = r->get(i);
    EXPECT_LT(p.x, 10.0);  // the corner is cut, inside the elbow
    EXPECT_GT(p.y, 0.0);
    EXPECT_LT(std::min(10.0 - p.x, p.y), 2.0);
  }
  EXPECT_EQ(kElbow.get_size(), 3);
}

TEST(Pp2dSimpleSimplify, EmptyLineGivesTheZeroPointOfTheSmoothing) {
  auto r = own(Tvx_pp2d().simple_simplify(1.0));
  expect_vertices(*r, {{0, 0}});
}

}  // namespace
