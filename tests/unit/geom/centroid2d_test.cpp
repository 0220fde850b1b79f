#include "geom/centroid2d.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "ring_shapes.h"

namespace {

using vxk_test::add_ring;
using vxk_test::box;
using vxk_test::ring;

const Tvx_point2d kUntouched{-777.0, -777.0};

// A square of height 52 has scan lines at whole y from 1 to 50. The weight is smallest on the lines 24
// and 25 (y = 25 and 26), and the tie goes to the earlier line: a little below the middle.
TEST(Centroid2d, SquareGivesThePointOnLine24) {
  Tvx_op2d op;
  add_ring(&op, box(0, 0, 52, 52));
  Tvx_point2d p = kUntouched;
  ASSERT_TRUE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_DOUBLE_EQ(p.x, 26.0);
  EXPECT_DOUBLE_EQ(p.y, 25.0);
}

TEST(Centroid2d, NoHeightGivesFalseAndLeavesThePoint) {
  Tvx_op2d op;
  add_ring(&op, {{0, 1}, {5, 1}, {9, 1}, {0, 1}});
  Tvx_point2d p = kUntouched;
  EXPECT_FALSE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_EQ(p.x, kUntouched.x);
  Tvx_op2d empty;
  EXPECT_FALSE(Tvx_centroid2d::execute(&empty, &p));
}

TEST(Centroid2d, OpenOrEmptyPartGivesFalseAtOnce) {
  Tvx_op2d op;
  add_ring(&op, box(0, 0, 10, 10));
  add_ring(&op, {{1, 1}, {1, 2}, {2, 2}});
  Tvx_point2d p = kUntouched;
  EXPECT_FALSE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_EQ(p.y, kUntouched.y);
  // The multipart form sees only what the division keeps.
  EXPECT_TRUE(Tvx_multipart_centroid2d::execute(&op, &p));
  EXPECT_TRUE(op.include(p));

  Tvx_op2d with_empty;
  add_ring(&with_empty, box(0, 0, 10, 10));
  with_empty.add();
  EXPECT_FALSE(Tvx_centroid2d::execute(&with_empty, &p));
}

TEST(Centroid2d, ThinPolygonsBetweenScanLinesHaveNoCrossings) {
  Tvx_op2d op;  // scan lines at y = 1 .. 50; both rings keep clear of them
  add_ring(&op, box(0, 0, 10, 0.5));
  add_ring(&op, box(0, 51.5, 10, 52));
  Tvx_point2d p = kUntouched;
  EXPECT_FALSE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_EQ(p.x, kUntouched.x);
}

TEST(Centroid2d, NonFiniteCoordinatesGiveFalse) {
  for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    Tvx_op2d op;
    add_ring(&op, {{0, 0}, {0, 10}, {bad, 10}, {10, 0}, {0, 0}});
    Tvx_point2d p = kUntouched;
    EXPECT_FALSE(Tvx_centroid2d::execute(&op, &p));
    EXPECT_EQ(p.x, kUntouched.x);
  }
}

TEST(Centroid2d, NullArgumentsGiveFalse) {
  Tvx_op2d op;
  add_ring(&op, box(0, 0, 1, 1));
  Tvx_point2d p = kUntouched;
  EXPECT_FALSE(Tvx_centroid2d::execute(nullptr, &p));
  EXPECT_FALSE(Tvx_centroid2d::execute(&op, nullptr));
  EXPECT_FALSE(Tvx_multipart_centroid2d::execute(nullptr, &p));
  EXPECT_FALSE(Tvx_multipart_centroid2d::execute(&op, nullptr));
}

// The U opens upwards; its middle is the gap, and the point must keep out of it.
TEST(Centroid2d, HorseshoePointLiesInTheShoe) {
  Tvx_op2d op;
  add_ring(&op, {{0, 0}, {0, 10}, {2, 10}, {2, 2}, {8, 2}, {8, 10}, {10, 10}, {10, 0}, {0, 0}});
  Tvx_point2d p = kUntouched;
  ASSERT_TRUE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_TRUE(op.include(p));
  EXPECT_FALSE(p.x > 2 && p.x < 8 && p.y > 2);
}

// A stretch near the middle line wins over a wider one near the top: on the first line the weight
// leaves 2 % of the width, on the middle lines 98 %.
TEST(Centroid2d, WidthIsWeighedByTheDistanceFromTheMiddleLine) {
  Tvx_op2d op;  // a T: a bar 100 wide at the bottom, a stem 10 wide above it
  add_ring(&op, {{0, 0}, {0, 1.5}, {45, 1.5}, {45, 52}, {55, 52}, {55, 1.5}, {100, 1.5}, {100, 0}, {0, 0}});
  Tvx_point2d p = kUntouched;
  ASSERT_TRUE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_DOUBLE_EQ(p.x, 50.0);
  EXPECT_DOUBLE_EQ(p.y, 25.0);
}

TEST(Centroid2d, InATieTheWesternmostStretchStays) {
  Tvx_op2d op;
  add_ring(&op, box(10, 0, 14, 52));
  add_ring(&op, box(0, 0, 4, 52));
  Tvx_point2d p = kUntouched;
  ASSERT_TRUE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_DOUBLE_EQ(p.x, 2.0);
}

TEST(Centroid2d, HolesAreLeftOutWhateverTheNesting) {
  Tvx_op2d op;
  add_ring(&op, box(0, 0, 52, 52));
  add_ring(&op, box(10, 10, 42, 42, false));
  add_ring(&op, box(20, 20, 32, 32));  // an island in the hole
  Tvx_point2d p = kUntouched;
  ASSERT_TRUE(Tvx_centroid2d::execute(&op, &p));
  EXPECT_TRUE(op.include(p));
  EXPECT_DOUBLE_EQ(p.x, 26.0);  // the island's middle, on line 24
}

TEST(Centroid2d, InstanceFormAndDeleteObj) {
  Tvx_op2d op;
  add_ring(&op, box(0, 0, 52, 52));
  auto* c = new Tvx_centroid2d();
  Tvx_point2d p = kUntouched;
  EXPECT_TRUE(c->exec(&op, &p));
  EXPECT_TRUE(c->do_exec());
  Tvx_centroid2d::delete_obj(&c);
  EXPECT_EQ(c, nullptr);
  Tvx_centroid2d::delete_obj(&c);
}

TEST(MultipartCentroid2d, PointLandsInTheLargerPolygonWithHolesCountingAgainstIt) {
  Tvx_op2d op;
  add_ring(&op, box(0, 0, 10, 10));        // 100 ...
  add_ring(&op, box(0.5, 0.5, 9.5, 9.5));  // ... less 81
  add_ring(&op, box(20, 0, 25, 5));        // 25
  Tvx_point2d p = kUntouched;
  ASSERT_TRUE(Tvx_multipart_centroid2d::execute(&op, &p));
  EXPECT_GT(p.x, 20.0);
  EXPECT_LT(p.x, 25.0);

  Tvx_multipart_centroid2d m;
  ASSERT_TRUE(m.exec(&op, &p));
  Tvx_op2d* big = m.find_big_op();
  ASSERT_NE(big, &op);
  EXPECT_DOUBLE_EQ(big->calc_area(), 25.0);
}

TEST(MultipartCentroid2d, TheSourceItselfWhenTheDivisionGivesNothing) {
  Tvx_op2d op;
  add_ring(&op, {{0, 0}, {0, 5}, {5, 5}});  // open: dropped by the division
  Tvx_multipart_centroid2d m;
  Tvx_point2d p = kUntouched;
  EXPECT_FALSE(m.exec(&op, &p));
  EXPECT_EQ(m.find_big_op(), &op);
  EXPECT_EQ(p.x, kUntouched.x);
}

}  // namespace

namespace {

// The scan-line rule written out plainly: 50 lists, every edge tested against every line.
bool reference_point(Tvx_op2d* op, Tvx_point2d* out) {
  double lo = 0, hi = 0;
  bool any = false;
  for (int k = 0; k < op->get_size(); ++k)
    for (int i = 0; i < op->get(k)->get_size(); ++i) {
      const double y = op->get(k)->get(i).y;
      lo = any ? std::min(lo, y) : y;
      hi = any ? std::max(hi, y) : y;
      any = true;
    }
  if (!any || !(hi > lo)) return false;
  const int n = 50;
  const double step = (hi - lo) / (n + 2);
  std::vector<std::vector<double>> xs(n);
  for (int k = 0; k < op->get_size(); ++k) {
    const Tvx_pp2d* pp = op->get(k);
    if (!pp->is_closed()) return false;
    for (int e = 1; e < pp->get_size(); ++e)
      for (int i = 0; i < n; ++i) {
        const double y = (i + 1) * step + lo;
        const Tvx_point2d a = pp->get(e - 1), b = pp->get(e);
        const Tvx_point2d l = a.y <= b.y ? a : b, u = a.y <= b.y ? b : a;
        if ((y > l.y && y > u.y) || (y < l.y && y < u.y)) continue;
        if (l.y < y && y < u.y)
          xs[i].push_back(l.x + (y - l.y) * (u.x - l.x) / (u.y - l.y));
        else if (y == l.y && u.y > y)
          xs[i].push_back(l.x);
      }
  }
  double best = 0;
  bool found = false;
  for (int i = 0; i < n; ++i) {
    std::sort(xs[i].begin(), xs[i].end());
    if (xs[i].empty() || xs[i].size() % 2) continue;
    const double w = std::fabs((i - n * 0.5 + 0.5) / (n * 0.5));
    for (std::size_t k = 0; k + 1 < xs[i].size(); k += 2) {
      const double score = (1.0 - w) * (xs[i][k + 1] - xs[i][k]);
      if (score > best) {
        best = score;
        *out = vx_point2d(xs[i][k] + (xs[i][k + 1] - xs[i][k]) * 0.5, (i + 1) * step + lo);
        found = true;
      }
    }
  }
  return found;
}

// Random rings, some on a grid of the scan lines' own spacing so that vertices and horizontal edges
// fall on the lines, some far from the origin so that neighbouring lines share a y.
TEST(Centroid2d, AgreesBitForBitWithThePlainRule) {
  std::mt19937 rng(3);
  std::uniform_int_distribution<int> grid(0, 52), corners(3, 40), rings(1, 4);
  std::uniform_real_distribution<double> u(-100, 100);
  int found[3] = {0, 0, 0};
  for (int round = 0; round < 3000; ++round) {
    Tvx_op2d op;
    const int kind = round % 3;
    const double base = kind == 2 ? 1e17 : 0.0;
    for (int r = rings(rng); r > 0; --r) {
      ring pts;
      for (int i = corners(rng); i > 0; --i)
        pts.push_back(kind == 0 ? vx_point2d(grid(rng), grid(rng))
                                : vx_point2d(u(rng), base + u(rng) * (base > 0 ? 0.2 : 8.0)));
      pts.push_back(pts.front());
      add_ring(&op, pts);
    }
    Tvx_point2d want = kUntouched, got = kUntouched;
    const bool ok_want = reference_point(&op, &want);
    const bool ok_got = Tvx_centroid2d::execute(&op, &got);
    ASSERT_EQ(ok_got, ok_want) << "round " << round;
    found[kind] += ok_got;
    EXPECT_EQ(got.x, want.x) << "round " << round;
    EXPECT_EQ(got.y, want.y) << "round " << round;
  }
  for (int n : found) EXPECT_GT(n, 500);
}

}  // namespace
