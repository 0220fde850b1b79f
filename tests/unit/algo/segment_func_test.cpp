#include "algo/segment_func.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <vector>

#include "seg_func_samples.h"

namespace {

using vxk_test::sample;
using vxk_test::samples_of;

// Samples 0 -> 0, 2 -> 4, 3 -> undefined (value 9), 5 -> 1.
Tvx_segment_func sample_func() {
  Tvx_segment_func f;
  f.add(2.0, 4.0, true);
  f.add(0.0, 0.0, true);
  f.add(5.0, 1.0, true);
  f.add(3.0, 9.0, false);
  return f;
}

TEST(SegmentFunc, InterpolatesBetweenDefinedNeighbours) {
  Tvx_segment_func f = sample_func();
  double v = -1;
  bool d = false;
  f.get(0.5, v, d);
  EXPECT_TRUE(d);
  EXPECT_DOUBLE_EQ(v, 1.0);
  f.get(2.0, v, d);
  EXPECT_TRUE(d);
  EXPECT_EQ(v, 4.0);
}

TEST(SegmentFunc, UndefinedSampleGivesItsValueNotDefined) {
  Tvx_segment_func f = sample_func();
  double v = -1;
  bool d = true;
  f.get(3.0, v, d);
  EXPECT_FALSE(d);
  EXPECT_EQ(v, 9.0);
}

TEST(SegmentFunc, NextToAGapOrOutsideLeavesTheValue) {
  Tvx_segment_func f = sample_func();
  double v = -1;
  bool d = true;
  f.get(2.5, v, d);
  EXPECT_FALSE(d);
  EXPECT_EQ(v, -1);
  f.get(4.0, v, d);
  EXPECT_FALSE(d);
  EXPECT_EQ(v, -1);
  d = true;
  f.get(-0.1, v, d);
  EXPECT_FALSE(d);
  d = true;
  f.get(5.1, v, d);
  EXPECT_FALSE(d);
  EXPECT_EQ(v, -1);
  Tvx_segment_func empty;
  d = true;
  empty.get(1.0, v, d);
  EXPECT_FALSE(d);
  d = true;
  f.get(std::nan(""), v, d);
  EXPECT_FALSE(d);
  EXPECT_EQ(v, -1);
}

TEST(SegmentFunc, AddSetAndSetAdd) {
  Tvx_segment_func f;
  EXPECT_TRUE(f.add(1.0, 1.0, true));
  EXPECT_FALSE(f.add(1.0, 2.0, false));  // kept as it was
  EXPECT_FALSE(f.set(2.0, 5.0, true));   // not there: nothing added
  EXPECT_EQ(samples_of(f), (std::vector<sample>{{1.0, 1.0, true}}));
  EXPECT_TRUE(f.set(1.0, 3.0, false));
  f.set_add(1.0, 4.0, true);
  f.set_add(2.0, 5.0, true);
  EXPECT_EQ(samples_of(f), (std::vector<sample>{{1.0, 4.0, true}, {2.0, 5.0, true}}));
  f.clear();
  EXPECT_TRUE(samples_of(f).empty());
}

TEST(SegmentFunc, WalkBothWays) {
  Tvx_segment_func f = sample_func();
  double x = 0, v = 0;
  bool d = false;
  EXPECT_TRUE(f.get_last_pnt(x, v, d));
  EXPECT_EQ(x, 5.0);
  EXPECT_FALSE(f.get_next_pnt(x, v, d));  // at the last
  EXPECT_TRUE(f.get_prev_pnt(x, v, d));   // from the end back to the last
  EXPECT_EQ(x, 5.0);
  EXPECT_TRUE(f.get_prev_pnt(x, v, d));
  EXPECT_EQ(x, 3.0);
  EXPECT_FALSE(d);
  EXPECT_TRUE(f.get_first_pnt(x, v, d));
  EXPECT_EQ(x, 0.0);
  EXPECT_FALSE(f.get_prev_pnt(x, v, d));  // at the first
  EXPECT_TRUE(f.get_next_pnt(x, v, d));   // the cursor stayed at the first
  EXPECT_EQ(x, 2.0);
  EXPECT_TRUE(f.get_find_pnt(3.0, v, d));
  EXPECT_EQ(v, 9.0);
  EXPECT_TRUE(f.get_next_pnt(x, v, d));
  EXPECT_EQ(x, 5.0);
  EXPECT_FALSE(f.get_find_pnt(2.5, v, d));
  Tvx_segment_func empty;
  EXPECT_FALSE(empty.get_first_pnt(x, v, d));
  EXPECT_FALSE(empty.get_last_pnt(x, v, d));
  EXPECT_FALSE(empty.get_prev_pnt(x, v, d));
  EXPECT_FALSE(empty.get_next_pnt(x, v, d));
}

TEST(SegmentFunc, SamplesAtTheSameXGiveTheirValue) {
  Tvx_segment_func f;
  f.add(1.0, 2.0, true);
  f.add(1.0 + 1e-300, 3.0, true);  // the same double: kept as it was
  double v = 0;
  bool d = false;
  f.get(1.0, v, d);
  EXPECT_EQ(v, 2.0);
}

TEST(XIdx, OrderByXThenIndex) {
  EXPECT_TRUE(vx_x_idx(1.0, 5) < vx_x_idx(2.0, 0));
  EXPECT_TRUE(vx_x_idx(1.0, 0) < vx_x_idx(1.0, 1));
  EXPECT_FALSE(vx_x_idx(1.0, 1) < vx_x_idx(1.0, 1));
  const Tvx_segment_func_val val = vx_segment_func_val(2.5, false);
  EXPECT_EQ(val.value, 2.5);
  EXPECT_FALSE(val.defined);
}

}  // namespace
