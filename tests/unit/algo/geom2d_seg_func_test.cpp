#include "algo/geom2d_seg_func.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <tuple>
#include <vector>

#include "algo/segment_func.h"
#include "geom/op2d.h"
#include "geom/pp2d.h"

#include "pp2d_build.h"
#include "seg_func_samples.h"

namespace {

using vxk_test::sample;
using vxk_test::samples_of;

using vxk_test::vertices;

void add_part(Tvx_op2d& op, std::initializer_list<Tvx_point2d> pts) {
  Tvx_pp2d* part = op.add();
  for (const Tvx_point2d& p : pts) part->add(p.x, p.y);
}

Tvx_segment_func func_of(std::initializer_list<sample> samples) {
  Tvx_segment_func f;
  for (const sample& s : samples) f.add(std::get<0>(s), std::get<1>(s), std::get<2>(s));
  return f;
}

TEST(Geom2dSegFunc, Func2ppLeavesGapsOut) {
  Tvx_segment_func f = func_of({{0, 1, true}, {1, 2, true}, {2, 9, false}, {3, 4, true}});
  Tvx_pp2d pp;
  pp.add(7, 7);
  Tvx_geom2d_seg_func::func2pp(&f, &pp);
  EXPECT_EQ(vertices(pp), (std::vector<Tvx_point2d>{{0, 1}, {1, 2}, {3, 4}}));
}

TEST(Geom2dSegFunc, Func2opMakesAPartOfEachRun) {
  Tvx_segment_func f = func_of({{0, 1, true}, {1, 2, true}, {2, 9, false}, {3, 4, true}});
  Tvx_op2d op;
  add_part(op, {{7, 7}});
  Tvx_geom2d_seg_func::func2op(&f, &op);
  ASSERT_EQ(op.get_size(), 2);
  EXPECT_EQ(vertices(*op.get(0)), (std::vector<Tvx_point2d>{{0, 1}, {1, 2}}));
  EXPECT_EQ(vertices(*op.get(1)), (std::vector<Tvx_point2d>{{3, 4}}));
  Tvx_segment_func gaps = func_of({{0, 1, false}, {1, 2, false}});
  Tvx_geom2d_seg_func::func2op(&gaps, &op);
  EXPECT_EQ(op.get_size(), 0);
}

TEST(Geom2dSegFunc, Pp2funcKeepsTheLastYOfAnX) {
  Tvx_pp2d pp;
  for (const Tvx_point2d& p : {vx_point2d(2, 1), vx_point2d(0, 5), vx_point2d(2, 3)}) pp.add(p);
  Tvx_segment_func f = func_of({{9, 9, true}});
  Tvx_geom2d_seg_func::pp2func(&pp, &f);
  EXPECT_EQ(samples_of(f), (std::vector<sample>{{0, 5, true}, {2, 3, true}}));
}

TEST(Geom2dSegFunc, Op2funcWithoutGapsFlowsTogether) {
  Tvx_op2d op;
  add_part(op, {{5, 1}, {7, 1}});
  add_part(op, {{0, 0}, {3, 0}});
  add_part(op, {});
  Tvx_segment_func f;
  Tvx_geom2d_seg_func::op2func(&op, &f, false);
  EXPECT_EQ(samples_of(f), (std::vector<sample>{{0, 0, true}, {3, 0, true}, {5, 1, true}, {7, 1, true}}));
}

TEST(Geom2dSegFunc, Op2funcWithGapsAddsAMidpointForEveryVertexOfALaterPart) {
  Tvx_op2d op;
  add_part(op, {{0, 0}, {3, 0}});
  add_part(op, {{5, 1}, {7, 1}});
  Tvx_segment_func f;
  Tvx_geom2d_seg_func::op2func(&op, &f, true);
  // (5, 1) adds the gap at 4; (7, 1) adds one at (3 + 7) / 2 = 5, over the defined sample there.
  EXPECT_EQ(samples_of(f), (std::vector<sample>{
                               {0, 0, true}, {3, 0, true}, {4, 0.5, false}, {5, 0.5, false}, {7, 1, true}}));
}

TEST(Geom2dSegFunc, Op2funcTakesPartsFromLeftToRight) {
  Tvx_op2d right_to_left, left_to_right;
  add_part(right_to_left, {{10, 2}, {12, 3}});
  add_part(right_to_left, {{5, 1}, {6, 1}});
  add_part(right_to_left, {{0, 0}, {1, 0}, {2, 0}});
  add_part(left_to_right, {{0, 0}, {1, 0}, {2, 0}});
  add_part(left_to_right, {{5, 1}, {6, 1}});
  add_part(left_to_right, {{10, 2}, {12, 3}});
  for (bool gaps : {false, true}) {
    Tvx_segment_func a, b;
    Tvx_geom2d_seg_func::op2func(&right_to_left, &a, gaps);
    Tvx_geom2d_seg_func::op2func(&left_to_right, &b, gaps);
    EXPECT_EQ(samples_of(a), samples_of(b)) << "gaps " << gaps;
  }
}

TEST(Geom2dSegFunc, Op2funcNoMidpointWhereThePartsMeet) {
  Tvx_op2d op;
  add_part(op, {{0, 0}, {3, 0}});
  add_part(op, {{3, 5}, {3, 6}});  // every x equals the last x before: no gap
  Tvx_segment_func f;
  Tvx_geom2d_seg_func::op2func(&op, &f, true);
  EXPECT_EQ(samples_of(f), (std::vector<sample>{{0, 0, true}, {3, 6, true}}));
}

}  // namespace
