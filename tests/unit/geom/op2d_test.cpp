#include "geom/op2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>

#include "geom/ap2d.h"
#include "ring_shapes.h"

namespace {

void fill(Tvx_pp2d* pp, std::initializer_list<Tvx_point2d> pts) {
  pp->clear();
  for (const Tvx_point2d& p : pts) pp->add(p.x, p.y);
}

// A 4 x 4 square, clockwise, with a 2 x 2 hole in its middle, counter-clockwise: area 16 - 4 = 12.
void square_with_hole(Tvx_op2d* op) {
  op->clear();
  fill(op->add(), {{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}});
  fill(op->add(), {{1, 1}, {3, 1}, {3, 3}, {1, 3}, {1, 1}});
}

TEST(Op2d, NewObjectHasNoPartsAllTypeBitsAndNoPointer) {
  Tvx_op2d op;
  EXPECT_EQ(op.get_size(), 0);
  EXPECT_EQ(op.get_vector_type(), 0xFFFFFFFFu);
  EXPECT_EQ(static_cast<int>(op.get_vector_type()), -1);
  EXPECT_EQ(op.get_attached(), nullptr);
  EXPECT_FALSE(op.get_rect().defined);
  EXPECT_EQ(op.get_pnt_count(), 0);
}

TEST(Op2d, TypeCodeAndAttachedPointer) {
  Tvx_op2d op;
  int anything = 0;
  op.set_vector_type(5);
  op.set_attached(&anything);
  EXPECT_EQ(op.get_vector_type(), 5u);
  EXPECT_EQ(op.get_attached(), &anything);
}

TEST(Op2d, AddInsDelSetSize) {
  Tvx_op2d op;
  Tvx_pp2d* a = op.add();
  a->add(1, 1);
  Tvx_pp2d* b = op.ins(0);
  b->add(2, 2);
  ASSERT_EQ(op.get_size(), 2);
  EXPECT_EQ(op.get(0), b);
  EXPECT_EQ(op.get(1), a);
  op.set_size(4);
  EXPECT_EQ(op.get_size(), 4);
  EXPECT_EQ(op.get(1), a);  // existing parts are kept
  EXPECT_EQ(op.get(3)->get_size(), 0);
  op.del(0);
  EXPECT_EQ(op.get(0), a);
  op.set_size(1);
  EXPECT_EQ(op.get_size(), 1);
  EXPECT_EQ(op.get(0), a);
  op.clear();
  EXPECT_EQ(op.get_size(), 0);
}

TEST(Op2d, AssignIsADeepCopy) {
  Tvx_op2d src;
  square_with_hole(&src);
  src.set_vector_type(3);
  int tag = 0;
  src.set_attached(&tag);
  Tvx_op2d dst;
  dst.add()->add(9, 9);
  dst.assign(&src);
  ASSERT_EQ(dst.get_size(), 2);
  EXPECT_NE(dst.get(0), src.get(0));
  EXPECT_EQ(dst.get(1)->get(2), vx_point2d(3, 3));
  EXPECT_EQ(dst.get_vector_type(), 3u);
  EXPECT_EQ(dst.get_attached(), &tag);
  src.get(0)->set(0, vx_point2d(-1, -1));
  EXPECT_EQ(dst.get(0)->get(0), vx_point2d(0, 0));
  dst.assign(&dst);
  EXPECT_EQ(dst.get_size(), 2);
}

TEST(Op2d, AddCopyOfPartObjectAndArray) {
  Tvx_op2d op;
  Tvx_pp2d pp;
  pp.add(1, 2);
  Tvx_pp2d* copy = op.add_copy(&pp);
  EXPECT_NE(copy, &pp);
  EXPECT_EQ(copy->get(0), vx_point2d(1, 2));
  Tvx_op2d other;
  square_with_hole(&other);
  op.add_copy(&other);
  EXPECT_EQ(op.get_size(), 3);
  op.add_copy(&op);  // itself: its parts as they were
  EXPECT_EQ(op.get_size(), 6);
  Tvx_ap2d ap;
  ap.add_copy(&other);
  ap.add_copy(&other);
  op.add_copy(&ap);
  EXPECT_EQ(op.get_size(), 10);
  EXPECT_EQ(op.get(9)->get(0), vx_point2d(1, 1));
}

TEST(Op2d, DelEmptySwapsFromTheEnd) {
  Tvx_op2d op;
  op.add();             // empty
  op.add()->add(1, 1);  // A
  op.add();             // empty
  op.add()->add(2, 2);  // B
  op.add();             // empty
  op.del_empty();
  ASSERT_EQ(op.get_size(), 2);
  EXPECT_EQ(op.get(0)->get(0), vx_point2d(2, 2));  // B took the first empty's place
  EXPECT_EQ(op.get(1)->get(0), vx_point2d(1, 1));
}

TEST(Op2d, DelEmptyOnAllEmptyAndNoneEmpty) {
  Tvx_op2d op;
  op.set_size(3);
  op.del_empty();
  EXPECT_EQ(op.get_size(), 0);
  square_with_hole(&op);
  op.del_empty();
  EXPECT_EQ(op.get_size(), 2);
  EXPECT_EQ(op.get(0)->get_size(), 5);
}

TEST(Op2d, RectangleIsTheUnionOfTheParts) {
  Tvx_op2d op;
  op.add();  // an empty part has no rectangle
  fill(op.add(), {{1, 1}, {2, 3}});
  fill(op.add(), {{-1, 2}, {0, 0}});
  const Tvx_rect2d r = op.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, -1.0);
  EXPECT_EQ(r.ymin, 0.0);
  EXPECT_EQ(r.xmax, 2.0);
  EXPECT_EQ(r.ymax, 3.0);
  EXPECT_EQ(op.get_pnt_count(), 4);
  const Tvx_rect2d_ext e = op.get_rect_ext();
  EXPECT_EQ(e.count, 4u);
  EXPECT_EQ(e.sum_x, 2.0);
  EXPECT_EQ(e.sum_y, 6.0);
  EXPECT_EQ(e.rect.xmin, -1.0);
}

TEST(Op2d, MeansCountTheRepeatedVertexOfARing) {
  Tvx_op2d op;
  fill(op.add(), {{0, 0}, {0, 3}, {3, 0}, {0, 0}});
  EXPECT_DOUBLE_EQ(op.get_x_mean(), 0.75);
  EXPECT_DOUBLE_EQ(op.get_y_mean(), 0.75);
  fill(op.add(), {{4, 4}});
  EXPECT_DOUBLE_EQ(op.get_x_mean(), 7.0 / 5);
}

TEST(Op2d, MeansWithoutVerticesAreNaN) {
  Tvx_op2d op;
  EXPECT_TRUE(std::isnan(op.get_x_mean()));
  op.add();
  EXPECT_TRUE(std::isnan(op.get_y_mean()));
}

TEST(Op2d, ClosedWhenEveryPartIsClosed) {
  Tvx_op2d op;
  EXPECT_FALSE(op.is_closed());
  EXPECT_FALSE(op.close());
  square_with_hole(&op);
  EXPECT_TRUE(op.is_closed());
  fill(op.add(), {{0, 0}, {1, 0}});
  EXPECT_FALSE(op.is_closed());
  EXPECT_TRUE(op.close());
  EXPECT_TRUE(op.is_closed());
  EXPECT_EQ(op.get(2)->get_size(), 3);
}

TEST(Op2d, CloseStopsAtAPartOfOneVertex) {
  Tvx_op2d op;
  fill(op.add(), {{0, 0}, {1, 0}, {1, 1}});
  fill(op.add(), {{5, 5}});
  fill(op.add(), {{0, 0}, {2, 0}, {2, 2}});
  EXPECT_FALSE(op.close());
  EXPECT_TRUE(op.get(0)->is_closed());   // closed before the stop
  EXPECT_FALSE(op.get(2)->is_closed());  // never reached
}

TEST(Op2d, AreaOfASquareWithAHole) {
  Tvx_op2d op;
  square_with_hole(&op);
  EXPECT_EQ(op.calc_area(), 12.0);
  op.get(1)->reverse();  // a hole turned like its ring adds itself
  EXPECT_EQ(op.calc_area(), 20.0);
}

TEST(Op2d, IncludeWithAHole) {
  Tvx_op2d op;
  square_with_hole(&op);
  EXPECT_TRUE(op.include(0.5, 0.5));
  EXPECT_TRUE(op.include(vx_point2d(3.5, 2)));
  EXPECT_FALSE(op.include(2, 2));  // in the hole
  EXPECT_FALSE(op.include(5, 2));  // outside the rectangle
  EXPECT_TRUE(op.include(0, 2));   // on the outer boundary
  EXPECT_FALSE(op.include(1, 2));  // on the hole's boundary: two parts take it, an even sum
}

TEST(Op2d, IncludeOfAnEmptyObjectIsFalse) {
  Tvx_op2d op;
  EXPECT_FALSE(op.include(0, 0));
}

TEST(Op2d, DeleteObjDeletesAndNulls) {
  Tvx_op2d* op = new Tvx_op2d();
  square_with_hole(op);
  Tvx_op2d::delete_obj(&op);
  EXPECT_EQ(op, nullptr);
  Tvx_op2d::delete_obj(&op);
}

}  // namespace

namespace {

using vxk_test::box;
using vxk_test::ring;

void add_pts(Tvx_op2d* op, const ring& r) {
  vxk_test::add_ring(op, r);
}

TEST(Op2dOrient, RingsBecomeOuterRingsEachFollowedByItsHoles) {
  Tvx_op2d op;
  add_pts(&op, box(1, 1, 2, 2));           // hole of the large ring, given clockwise
  add_pts(&op, box(20, 0, 22, 2, false));  // small outer ring, counter-clockwise
  add_pts(&op, {{5, 5}, {5, 6}, {6, 6}});  // open: dropped
  add_pts(&op, box(0, 0, 10, 10, false));  // large outer ring, counter-clockwise
  op.set_vector_type(7);
  ASSERT_TRUE(op.orient());
  ASSERT_EQ(op.get_size(), 3);
  EXPECT_EQ(vxk_test::vertices(op.get(0)), vxk_test::reversed(box(20, 0, 22, 2, false)));
  EXPECT_EQ(vxk_test::vertices(op.get(1)), vxk_test::reversed(box(0, 0, 10, 10, false)));
  EXPECT_EQ(vxk_test::vertices(op.get(2)), vxk_test::reversed(box(1, 1, 2, 2)));
  EXPECT_EQ(op.get(0)->get_clock_wise(), vx_cw_clockwise);
  EXPECT_EQ(op.get(2)->get_clock_wise(), vx_cw_counter_clockwise);
  EXPECT_EQ(op.get_vector_type(), 7u);
  EXPECT_DOUBLE_EQ(op.calc_area(), 4.0 + 100.0 - 1.0);
}

TEST(Op2dOrient, FailedDivisionLeavesTheObjectAsItWas) {
  Tvx_op2d op;
  for (int i = 0; i < 10000; ++i) add_pts(&op, box(0, 0, 1, 1, i % 2 == 0));
  EXPECT_FALSE(op.orient());
  ASSERT_EQ(op.get_size(), 10000);
  EXPECT_EQ(vxk_test::vertices(op.get(1)), box(0, 0, 1, 1, false));
}

TEST(Op2dOrient, NothingLeftWhenNoRingHasArea) {
  Tvx_op2d op;
  add_pts(&op, {{0, 0}, {1, 1}, {0, 0}});
  EXPECT_TRUE(op.orient());
  EXPECT_EQ(op.get_size(), 0);
}

TEST(Op2dRefpnt, PolygonGetsAnInsidePointOfItsLargestPart) {
  Tvx_op2d op;
  add_pts(&op, box(0, 0, 52, 52));
  add_pts(&op, box(100, 0, 101, 1));
  Tvx_point2d p = vx_point2d(-1, -1);
  ASSERT_TRUE(op.calc_pgn_refpnt(&p));
  EXPECT_DOUBLE_EQ(p.x, 26.0);
  EXPECT_DOUBLE_EQ(p.y, 25.0);
}

TEST(Op2dRefpnt, PolygonWithNoHeightFallsBackToTheRectangleMiddle) {
  Tvx_op2d op;
  add_pts(&op, {{0, 3}, {4, 3}, {10, 3}, {0, 3}});
  Tvx_point2d p = vx_point2d(-1, -1);
  ASSERT_TRUE(op.calc_pgn_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(5, 3));
  Tvx_op2d empty;
  EXPECT_FALSE(empty.calc_pgn_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(5, 3));
}

// Rings of no area: the division keeps none, so the scan lines run over the source, where each line
// meets the lines out and back twice at one x: no stretch has any width, and the fallback applies.
TEST(Op2dRefpnt, PolygonOfNoAreaFallsBackToTheRectangleMiddle) {
  Tvx_op2d op;
  add_pts(&op, {{0, 0}, {0, 10}, {0, 0}});
  add_pts(&op, {{4, 0}, {6, 10}, {4, 0}});
  Tvx_point2d p = vx_point2d(-1, -1);
  ASSERT_TRUE(op.calc_pgn_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(3, 5));
}

TEST(Op2dRefpnt, LineGetsItsPointNearestToTheRectangleMiddle) {
  Tvx_op2d op;
  add_pts(&op, {{0, 0}, {2, 0}, {10, 8}});  // middle (5, 4): the foot on the second segment
  Tvx_point2d p = vx_point2d(-1, -1);
  ASSERT_TRUE(op.calc_pln_refpnt(&p));
  EXPECT_DOUBLE_EQ(p.x, 5.5);
  EXPECT_DOUBLE_EQ(p.y, 3.5);
  Tvx_op2d corner;  // middle (5, 5), as near to both legs: the first leg wins
  add_pts(&corner, {{0, 0}, {10, 0}, {10, 10}});
  ASSERT_TRUE(corner.calc_pln_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(5, 0));
  Tvx_op2d empty;
  empty.add();
  EXPECT_FALSE(empty.calc_pln_refpnt(&p));
}

TEST(Op2dRefpnt, PointsGetTheVertexNearestToTheRectangleMiddle) {
  Tvx_op2d op;
  add_pts(&op, {{0, 0}, {10, 10}});
  add_pts(&op, {{4, 4}, {6, 6}});  // both as near as each other: the first stays
  Tvx_point2d p = vx_point2d(-1, -1);
  ASSERT_TRUE(op.calc_pnt_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(4, 4));
  Tvx_op2d empty;
  EXPECT_FALSE(empty.calc_pnt_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(4, 4));
}

TEST(Op2dRefpnt, PolygonRingsWithNaNAreLeftOutAndAloneGiveTheRectangleMiddle) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Tvx_op2d op;
  add_pts(&op, {{nan, 0}, {0, 60}, {60, 60}, {60, 0}, {nan, 0}});
  add_pts(&op, box(0, 0, 52, 52));
  Tvx_point2d p = vx_point2d(-1, -1);
  ASSERT_TRUE(op.calc_pgn_refpnt(&p));
  EXPECT_EQ(p, vx_point2d(26, 25));

  Tvx_op2d bad;
  add_pts(&bad, {{0, 0}, {0, nan}, {6, 6}, {6, 0}, {0, 0}});
  ASSERT_TRUE(bad.calc_pgn_refpnt(&p));  // no ring is kept: the middle of the rectangle
  EXPECT_EQ(p, vx_point2d(3, 3));
}

}  // namespace
