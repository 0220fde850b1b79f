// The perpendicular at the end of a chord, and the cutting of a line into pieces by length.
#include "stdlist/generate/22_stdlist_geom.h"

#include <gtest/gtest.h>

#include <vector>

#include "generate_readback.h"

namespace {

using vx::stdlist::Tvx_stdlist_geom;
using vx::stdlist::Tvx_stdlist_geom_exec;
using vxk_test::line;

// A point vector of its own, destroyed with it.
struct pv {
  Tvx_pp2d* h = vx_pv_d2_create();
  explicit pv(const line& l = {}) {
    for (const Tvx_vtx_d2& v : l) vx_pv_d2_add_vtx(h, v);
  }
  ~pv() { vx_pv_d2_destroy(h); }
  pv(const pv&) = delete;
  pv& operator=(const pv&) = delete;
  line get() const { return vxk_test::points(h); }
};

// Along the x axis, vertices at 0, 10, 20 and 40.
const line SIDE = {{0, 0}, {10, 0}, {20, 0}, {40, 0}};

line cut(const line& l, double l1, double l2) {
  pv in(l), out;
  Tvx_stdlist_geom_exec::cut_l12(in.h, l1, l2, out.h);
  return out.get();
}

TEST(StdlistGeom, AStretchInsideOneSegmentGetsItsTwoCutPointsInOrder) {
  EXPECT_EQ(cut(SIDE, 22.0, 30.0), (line{{22, 0}, {30, 0}}));
  EXPECT_EQ(cut(SIDE, 5.0, 25.0), (line{{5, 0}, {10, 0}, {20, 0}, {25, 0}}));
}

TEST(StdlistGeom, FromZeroTheFirstVertexComesInAsACutPoint) {
  EXPECT_EQ(cut(SIDE, 0.0, 15.0), (line{{0, 0}, {10, 0}, {15, 0}}));
}

TEST(StdlistGeom, ACutOnAVertexGivesItTwiceAndTheNextSegmentAThirdTime) {
  EXPECT_EQ(cut(SIDE, 10.0, 30.0), (line{{10, 0}, {10, 0}, {10, 0}, {20, 0}, {30, 0}}));
}

TEST(StdlistGeom, ALineOfOneVertexOrNoneGivesNothing) {
  EXPECT_TRUE(cut({{1, 1}}, 0.0, 5.0).empty());
  EXPECT_TRUE(cut({}, 0.0, 5.0).empty());
  pv out(line{{7, 7}});
  pv in;
  Tvx_stdlist_geom_exec::cut_l12(in.h, 0.0, 1.0, out.h);
  EXPECT_TRUE(out.get().empty());  // cleared
}

TEST(StdlistGeom, ASegmentShorterThanAMicroUnitIsNotCutButCounts) {
  const line l = {{0, 0}, {0, 0}, {10, 0}};
  EXPECT_EQ(cut(l, 0.0, 5.0), (line{{0, 0}, {0, 0}, {5, 0}}));
}

struct three {
  line first, middle, last;
};

three cut3(const line& l, double length) {
  pv in(l), a(line{{9, 9}}), b(line{{9, 9}}), c(line{{9, 9}});
  Tvx_stdlist_geom::cut_into3(in.h, length, a.h, b.h, c.h);
  return {a.get(), b.get(), c.get()};
}

TEST(StdlistGeom, CutIntoThreeAboutTheMiddle) {
  const three t = cut3(SIDE, 10.0);
  EXPECT_EQ(t.first, (line{{0, 0}, {10, 0}, {15, 0}}));
  EXPECT_EQ(t.middle, (line{{15, 0}, {20, 0}, {25, 0}}));
  EXPECT_EQ(t.last, (line{{25, 0}, {40, 0}}));
}

TEST(StdlistGeom, ANameOfNoWidthLeavesTheCutPointTwiceWhereThePiecesMeet) {
  const three t = cut3({{0, 0}, {10, 0}, {30, 0}}, 0.0);
  EXPECT_EQ(t.first, (line{{0, 0}, {10, 0}, {15, 0}}));
  EXPECT_EQ(t.middle, (line{{15, 0}, {15, 0}}));
  EXPECT_EQ(t.last, (line{{15, 0}, {30, 0}}));
}

TEST(StdlistGeom, ANameWiderThanTheSideTakesAllButTheFirstVertex) {
  const three t = cut3(SIDE, 100.0);
  EXPECT_EQ(t.first, (line{{0, 0}}));
  EXPECT_EQ(t.middle, (line{{10, 0}, {20, 0}, {40, 0}}));
  EXPECT_TRUE(t.last.empty());
}

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
