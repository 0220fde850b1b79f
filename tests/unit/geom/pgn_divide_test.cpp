#include "geom/pgn_divide.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>
#include <set>
#include <utility>

#include "ring_shapes.h"

namespace {

using vxk_test::add_ring;
using vxk_test::box;
using vxk_test::reversed;
using vxk_test::ring;
using vxk_test::vertices;

// The output as rings, with the arcs beside it; checks that both have the same shape.
struct division {
  int rc = -1;
  Tvx_ap2d out;
  Tvx_a_arc arcs;

  explicit division(Tvx_op2d* src) {
    rc = Tvx_op2d_pgn_divide::execute_with_arcs(src, &out, &arcs);
    EXPECT_EQ(arcs.get_size(), out.get_size());
    for (int i = 0; i < out.get_size() && i < arcs.get_size(); ++i)
      EXPECT_EQ(arcs.get(i)->get_size(), out.get(i)->get_size());
  }
  ring at(int obj, int part) const { return vertices(out.get(obj)->get(part)); }
  Tvx_arc arc(int obj, int part) const { return arcs.get(obj)->get(part)->get(0); }
  int parts(int obj) const { return out.get(obj)->get_size(); }
};

void expect_arc(const Tvx_arc& a, unsigned index, bool reversed_flag) {
  EXPECT_EQ(a.index, index);
  EXPECT_EQ(a.reversed, reversed_flag);
}

TEST(PgnDivide, EmptyObjectGivesNothing) {
  Tvx_op2d src;
  division d(&src);
  EXPECT_EQ(d.rc, 0);
  EXPECT_EQ(d.out.get_size(), 0);
}

TEST(PgnDivide, ClockwiseRingIsCopiedAndCounterClockwiseTurned) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 2, 2, true));
  add_ring(&src, box(10, 0, 13, 3, false));
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 2);
  EXPECT_EQ(d.at(0, 0), box(0, 0, 2, 2, true));  // smaller first
  expect_arc(d.arc(0, 0), 0, false);
  EXPECT_EQ(d.at(1, 0), reversed(box(10, 0, 13, 3, false)));
  expect_arc(d.arc(1, 0), 1, true);
  EXPECT_EQ(d.out.get(1)->get(0)->get_clock_wise(), vx_cw_clockwise);
  EXPECT_EQ(d.out.get(0)->get_vector_type(), Tvx_op2d::NO_VECTOR_TYPE);
  EXPECT_EQ(d.out.get(0)->get_attached(), nullptr);
}

TEST(PgnDivide, HoleGoesAfterItsRingTurnedCounterClockwise) {
  Tvx_op2d src;
  add_ring(&src, box(1, 1, 3, 3, true));   // the hole, given clockwise
  add_ring(&src, box(0, 0, 4, 4, false));  // the ring, given counter-clockwise
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  ASSERT_EQ(d.parts(0), 2);
  EXPECT_EQ(d.at(0, 0), box(0, 0, 4, 4, true));
  expect_arc(d.arc(0, 0), 1, true);
  EXPECT_EQ(d.at(0, 1), box(1, 1, 3, 3, false));
  expect_arc(d.arc(0, 1), 0, true);
  EXPECT_EQ(d.out.get(0)->get(1)->get_clock_wise(), vx_cw_counter_clockwise);
  EXPECT_DOUBLE_EQ(d.out.get(0)->calc_area(), 16.0 - 4.0);
}

TEST(PgnDivide, HolesComeFromTheLargerToTheSmaller) {
  Tvx_op2d src;
  add_ring(&src, box(1, 1, 2, 2, false));  // 1
  add_ring(&src, box(0, 0, 10, 10));
  add_ring(&src, box(3, 3, 6, 6, false));  // 9
  add_ring(&src, box(7, 1, 9, 3, false));  // 4
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  ASSERT_EQ(d.parts(0), 4);
  expect_arc(d.arc(0, 0), 1, false);
  expect_arc(d.arc(0, 1), 2, false);
  expect_arc(d.arc(0, 2), 3, false);
  expect_arc(d.arc(0, 3), 0, false);
}

// An island in a lake in an island in a lake in an island: the rings at even depths are outer rings,
// each in its own object, the smallest first, and each hole goes to the ring right round it.
TEST(PgnDivide, IslandsInLakesNestFiveDeep) {
  Tvx_op2d src;
  add_ring(&src, box(4, 4, 6, 6));    // 0: depth 4, outer
  add_ring(&src, box(1, 1, 9, 9));    // 1: depth 1, hole
  add_ring(&src, box(0, 0, 10, 10));  // 2: depth 0, outer
  add_ring(&src, box(3, 3, 7, 7));    // 3: depth 3, hole
  add_ring(&src, box(2, 2, 8, 8));    // 4: depth 2, outer
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 3);
  ASSERT_EQ(d.parts(0), 1);
  expect_arc(d.arc(0, 0), 0, false);
  ASSERT_EQ(d.parts(1), 2);
  expect_arc(d.arc(1, 0), 4, false);
  expect_arc(d.arc(1, 1), 3, true);
  ASSERT_EQ(d.parts(2), 2);
  expect_arc(d.arc(2, 0), 2, false);
  expect_arc(d.arc(2, 1), 1, true);
}

TEST(PgnDivide, RingNestedThreeDeepIsAnOuterRingOfItsOwn) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 10, 10));
  add_ring(&src, box(1, 1, 9, 9, false));
  add_ring(&src, box(2, 2, 8, 8));
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 2);
  EXPECT_EQ(d.at(0, 0), box(2, 2, 8, 8));
  EXPECT_EQ(d.parts(0), 1);
  EXPECT_EQ(d.parts(1), 2);
}

TEST(PgnDivide, ManyOuterRingsEachWithItsHoles) {
  Tvx_op2d src;
  for (int i = 0; i < 5; ++i) {
    add_ring(&src, box(i * 10 + 1, 1, i * 10 + 2, 2, false));
    add_ring(&src, box(i * 10, 0, i * 10 + 5 + i * 0.1, 5));
  }
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 5);
  for (int i = 0; i < 5; ++i) {
    ASSERT_EQ(d.parts(i), 2);
    expect_arc(d.arc(i, 0), static_cast<unsigned>(2 * i + 1), false);
    expect_arc(d.arc(i, 1), static_cast<unsigned>(2 * i), false);
  }
}

TEST(PgnDivide, OpenShortFlatAndNaNRingsDisappear) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Tvx_op2d src;
  add_ring(&src, {{0, 0}, {0, 5}, {5, 5}, {5, 0}});              // open
  add_ring(&src, {{0, 0}, {0, 0}});                              // short
  add_ring(&src, {{0, 0}, {3, 3}, {0, 0}});                      // out and back
  add_ring(&src, {{0, 0}, {1, 1}, {2, 2}, {0, 0}});              // on one line
  add_ring(&src, {{1, 1}, {1, 2}, {1, 2}, {1, 1}});              // two distinct vertices
  add_ring(&src, {{1, 1}, {1, nan}, {2, 2}, {2, 1}, {1, 1}});    // NaN
  add_ring(&src, {{nan, 1}, {1, 2}, {2, 2}, {2, 1}, {nan, 1}});  // NaN at the ends
  add_ring(&src, box(0, 0, 1, 1));
  src.add();  // empty
  division d(&src);
  EXPECT_EQ(d.rc, 0);
  ASSERT_EQ(d.out.get_size(), 1);
  ASSERT_EQ(d.parts(0), 1);
  expect_arc(d.arc(0, 0), 7, false);
}

TEST(PgnDivide, HoleAloneIsAnOuterRingTurnedClockwise) {
  Tvx_op2d src;
  add_ring(&src, box(1, 1, 3, 3, false));
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  EXPECT_EQ(d.at(0, 0), box(1, 1, 3, 3, true));
  expect_arc(d.arc(0, 0), 0, true);
}

TEST(PgnDivide, TwoIdenticalRingsAreBothOuterRings) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 4, 4));
  add_ring(&src, box(0, 0, 4, 4, false));
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 2);
  expect_arc(d.arc(0, 0), 0, false);  // equal areas keep their order
  expect_arc(d.arc(1, 0), 1, true);
}

TEST(PgnDivide, SameVerticesInAnotherOrderAreBothOuterRings) {
  Tvx_op2d src;
  add_ring(&src, {{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}});
  add_ring(&src, {{4, 4}, {4, 0}, {0, 0}, {0, 4}, {4, 4}});
  division d(&src);
  EXPECT_EQ(d.out.get_size(), 2);
  EXPECT_FALSE(Tvx_pp2d_div_attr::pp_include_pp(src.get(0), src.get(1)));
}

TEST(PgnDivide, HoleTouchingItsRingAtAVertexIsJudgedByAVertexNotShared) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 4, 4));
  add_ring(&src, {{0, 0}, {2, 1}, {1, 2}, {0, 0}});  // shares the corner (0, 0)
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  EXPECT_EQ(d.parts(0), 2);
}

TEST(PgnDivide, TwoHolesTouchingEachOtherAtAVertex) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 10, 10));
  add_ring(&src, box(1, 1, 5, 5, false));
  add_ring(&src, box(5, 5, 9, 8, false));  // touches the first hole at (5, 5)
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  ASSERT_EQ(d.parts(0), 3);
  expect_arc(d.arc(0, 1), 1, false);
  expect_arc(d.arc(0, 2), 2, false);
}

TEST(PgnDivide, VertexOnTheEdgeOfTheOtherRingCountsAsInside) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 4, 4));
  add_ring(&src, {{0, 2}, {2, 3}, {2, 1}, {0, 2}});  // its first vertex lies on the edge x = 0
  EXPECT_TRUE(Tvx_pp2d_div_attr::pp_include_pp(src.get(0), src.get(1)));
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  EXPECT_EQ(d.parts(0), 2);
}

TEST(PgnDivide, ARingWhollyOnTheOtherRingsVerticesIsNotInside) {
  Tvx_op2d src;
  add_ring(&src, {{0, 0}, {0, 4}, {2, 5}, {4, 4}, {4, 0}, {0, 0}});
  add_ring(&src, {{0, 0}, {0, 4}, {4, 4}, {0, 0}});  // all its vertices are vertices of the first
  EXPECT_FALSE(Tvx_pp2d_div_attr::pp_include_pp(src.get(0), src.get(1)));
  division d(&src);
  EXPECT_EQ(d.out.get_size(), 2);
}

TEST(PgnDivide, HoleInSeveralOuterRingsGoesToTheSmallest) {
  Tvx_op2d src;
  add_ring(&src, box(0, 0, 20, 20));  // 0: outer
  add_ring(&src, box(2, 2, 18, 18));  // 1: lake
  add_ring(&src, box(4, 4, 16, 16));  // 2: island
  add_ring(&src, box(6, 6, 8, 8));    // 3: pond on the island, also inside 0 and 1
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 2);
  expect_arc(d.arc(0, 0), 2, false);
  ASSERT_EQ(d.parts(0), 2);
  expect_arc(d.arc(0, 1), 3, true);
  ASSERT_EQ(d.parts(1), 2);
  expect_arc(d.arc(1, 1), 1, true);
}

TEST(PgnDivide, SelfTouchingAndSelfCrossingRingsTakePartByTheirSum) {
  Tvx_op2d src;
  // Two squares touching at (2, 2), drawn as one ring: area 8, clockwise.
  add_ring(&src, {{0, 0}, {0, 2}, {2, 2}, {2, 4}, {4, 4}, {4, 2}, {2, 2}, {2, 0}, {0, 0}});
  // A bow tie: its two lobes cancel, area 0, so it is dropped.
  add_ring(&src, {{10, 0}, {12, 2}, {12, 0}, {10, 2}, {10, 0}});
  add_ring(&src, box(0.5, 0.5, 1, 1, false));
  division d(&src);
  ASSERT_EQ(d.out.get_size(), 1);
  ASSERT_EQ(d.parts(0), 2);
  expect_arc(d.arc(0, 0), 0, false);
  expect_arc(d.arc(0, 1), 2, false);
}

TEST(PgnDivide, SourceIsOnlyReadAndResultIsAppendedTo) {
  Tvx_op2d src;
  const ring outer = box(0, 0, 4, 4, false), hole = box(1, 1, 2, 2, true);
  add_ring(&src, outer);
  add_ring(&src, hole);
  Tvx_ap2d out;
  out.add()->set_vector_type(42);
  Tvx_a_arc arcs;
  arcs.add();
  ASSERT_EQ(Tvx_op2d_pgn_divide::execute_with_arcs(&src, &out, &arcs), 0);
  ASSERT_EQ(src.get_size(), 2);
  EXPECT_EQ(vertices(src.get(0)), outer);
  EXPECT_EQ(vertices(src.get(1)), hole);
  ASSERT_EQ(out.get_size(), 2);
  EXPECT_EQ(out.get(0)->get_vector_type(), 42u);
  EXPECT_EQ(arcs.get_size(), 2);
  ASSERT_EQ(Tvx_op2d_pgn_divide::execute(&src, &out), 0);
  EXPECT_EQ(out.get_size(), 3);
}

TEST(PgnDivide, NullArgumentsFail) {
  Tvx_op2d src;
  Tvx_ap2d out;
  Tvx_a_arc arcs;
  EXPECT_EQ(Tvx_op2d_pgn_divide::execute(nullptr, &out), 1);
  EXPECT_EQ(Tvx_op2d_pgn_divide::execute(&src, nullptr), 1);
  EXPECT_EQ(Tvx_op2d_pgn_divide::execute_with_arcs(&src, &out, nullptr), 1);
}

TEST(PgnDivide, AttributeRecordAndVector) {
  Tvx_pp2d_div_attr a;
  EXPECT_FALSE(a.is_hole());
  a.add_inside();
  EXPECT_TRUE(a.is_hole());
  a.add_inside();
  EXPECT_FALSE(a.is_hole());
  EXPECT_EQ(a.get_inside(), 2u);
  a.inside_set_zero();
  EXPECT_EQ(a.get_inside(), 0u);
  a.add_include(5);
  a.add_include(2);
  ASSERT_EQ(a.get_include_size(), 2u);
  EXPECT_EQ(a.get_include(1), 2u);
  a.include_clear();
  EXPECT_EQ(a.get_include_size(), 0u);

  Tvx_pp2d_div_attr_vec v;
  for (double s : {3.0, 1.0, 2.0, 1.0}) v.add()->set_square(s);
  v.get(3)->set_index(9);
  v.sort();
  EXPECT_EQ(v.get(0)->get_square(), 1.0);
  EXPECT_EQ(v.get(1)->get_index(), 9u);  // equal areas keep their order
  EXPECT_EQ(v.get(3)->get_square(), 3.0);
  EXPECT_TRUE(vx_pp2d_div_attr_ptr_less(v.get(0), v.get(3)));
  v.set_size(2);
  EXPECT_EQ(v.get_size(), 2);
  v.clear();
  EXPECT_EQ(v.get_size(), 0);
}

TEST(PgnDivide, AttributeInclusionNeedsAStrictlyLargerAreaAndAnEnclosingRectangle) {
  Tvx_op2d src;
  Tvx_pp2d* big = add_ring(&src, box(0, 0, 4, 4));
  Tvx_pp2d* small = add_ring(&src, box(1, 1, 2, 2));
  Tvx_pp2d_div_attr a, b;
  a.set_pp_ptr(big);
  b.set_pp_ptr(small);
  a.set_square(16);
  b.set_square(1);
  EXPECT_TRUE(a.include_pp2d_div_attr(&b));
  EXPECT_FALSE(b.include_pp2d_div_attr(&a));
  b.set_square(16);
  EXPECT_FALSE(a.include_pp2d_div_attr(&b));
  // A ring poking out of the rectangle is refused before any vertex is looked at.
  Tvx_pp2d* out = add_ring(&src, {{1, 1}, {1, 5}, {2, 1}, {1, 1}});
  b.set_pp_ptr(out);
  b.set_square(2);
  EXPECT_FALSE(a.include_pp2d_div_attr(&b));
}

// Rings on a coarse grid, so that they share vertices and touch edges, in random sizes and places: the
// relation the division finds is the relation of include_pp2d_div_attr over all pairs.
TEST(PgnDivide, FastRelationEqualsThePairwiseTest) {
  std::mt19937 rng(11);
  std::uniform_int_distribution<int> coord(0, 24), size(1, 12), corners(3, 9);
  for (int round = 0; round < 40; ++round) {
    Tvx_op2d src;
    for (int k = 0; k < 60; ++k) {
      const int x = coord(rng), y = coord(rng), s = size(rng);
      if (k % 3 == 0) {
        add_ring(&src, box(x, y, x + s, y + size(rng), k % 2 == 0));
      } else {  // a star-shaped ring with its corners on the grid
        ring r;
        const int n = corners(rng);
        for (int i = 0; i < n; ++i) {
          const double a = -2.0 * M_PI * i / n;
          const double rad = s * (0.5 + 0.5 * (i % 2));
          r.push_back({std::round(x + rad * std::cos(a)), std::round(y + rad * std::sin(a))});
        }
        r.push_back(r.front());
        add_ring(&src, r);
      }
    }
    Tvx_op2d_divide_exe exe;
    Tvx_ap2d out;
    ASSERT_EQ(exe.execute(&src, &out, nullptr), 0);
    const Tvx_pp2d_div_attr_vec* attrs = exe.get_attr_vec();
    const int n = attrs->get_size();
    for (int a = 0; a < n; ++a) {
      std::vector<unsigned> want;
      for (int b = a - 1; b >= 0; --b)
        if (attrs->get(a)->include_pp2d_div_attr(attrs->get(b))) want.push_back(static_cast<unsigned>(b));
      std::vector<unsigned> got;
      for (unsigned k = 0; k < attrs->get(a)->get_include_size(); ++k)
        got.push_back(attrs->get(a)->get_include(k));
      ASSERT_EQ(got, want) << "round " << round << ", ring " << a;
      unsigned inside = 0;
      for (int c = a + 1; c < n; ++c)
        if (attrs->get(c)->include_pp2d_div_attr(attrs->get(a))) ++inside;
      ASSERT_EQ(attrs->get(a)->get_inside(), inside) << "round " << round << ", ring " << a;
    }
  }
}

TEST(PgnDivide, AMillionSeparateRingsAreDivided) {
  Tvx_op2d src;
  const int side = 1000;
  for (int i = 0; i < side; ++i)
    for (int j = 0; j < side; ++j)
      add_ring(&src,
               {{i * 2.0, j * 2.0}, {i * 2.0 + 1, j * 2.0}, {i * 2.0, j * 2.0 + 1}, {i * 2.0, j * 2.0}});
  Tvx_ap2d out;
  ASSERT_EQ(Tvx_op2d_pgn_divide::execute(&src, &out), 0);
  ASSERT_EQ(out.get_size(), side * side);
  EXPECT_EQ(out.get(side * side - 1)->get(0)->get_clock_wise(), vx_cw_clockwise);
}

TEST(PgnDivide, PathologicalNestingStopsAtTheWorkLimitWithNothingAppended) {
  Tvx_op2d nested, same;
  for (int i = 0; i < 10000; ++i) {
    add_ring(&nested, box(-i - 1.0, -i - 1.0, i + 1.0, i + 1.0));
    add_ring(&same, box(0, 0, 1, 1));
  }
  for (Tvx_op2d* src : {&nested, &same}) {
    Tvx_ap2d out;
    EXPECT_EQ(Tvx_op2d_pgn_divide::execute(src, &out), 1);
    EXPECT_EQ(out.get_size(), 0);
  }
  // Some hundreds deep is still well within the limit.
  Tvx_op2d deep;
  for (int i = 0; i < 500; ++i) add_ring(&deep, box(-i - 1.0, -i - 1.0, i + 1.0, i + 1.0));
  Tvx_ap2d out;
  ASSERT_EQ(Tvx_op2d_pgn_divide::execute(&deep, &out), 0);
  EXPECT_EQ(out.get_size(), 250);
}

}  // namespace
