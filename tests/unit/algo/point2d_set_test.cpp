#include "algo/point2d_set.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

namespace {

std::vector<std::pair<int, Tvx_point2d>> walk(Tvx_point2d_set& s) {
  std::vector<std::pair<int, Tvx_point2d>> out;
  Tvx_point2d p = vx_point2d();
  for (int n = s.get_first(&p); n >= 0; n = s.get_next(&p)) out.emplace_back(n, p);
  return out;
}

TEST(Point2dSet, FindAddGivesOneNumberPerPoint) {
  Tvx_point2d_set s;
  EXPECT_EQ(s.find_add(vx_point2d(1, 2)), 0);
  EXPECT_EQ(s.find_add(vx_point2d(1, 2)), 0);
  EXPECT_EQ(s.get_size(), 1u);
  EXPECT_EQ(s.find_add(vx_point2d(0, 5)), 1);
  EXPECT_EQ(s.find(vx_point2d(0, 5)), 1);
  EXPECT_EQ(s.find(vx_point2d(0, 6)), -1);
}

TEST(Point2dSet, AddWithoutFindLeavesGaps) {
  Tvx_point2d_set s;
  EXPECT_EQ(s.add(vx_point2d(1, 1)), 0);
  EXPECT_EQ(s.add(vx_point2d(1, 1)), 1);  // the number is given, the old member stays
  EXPECT_EQ(s.get_size(), 1u);
  EXPECT_EQ(s.find(vx_point2d(1, 1)), 0);
  EXPECT_EQ(s.add(vx_point2d(2, 2)), 2);
}

TEST(Point2dSet, WalkInOrderOfXThenY) {
  Tvx_point2d_set s;
  s.add(vx_point2d(2, 0));
  s.add(vx_point2d(1, 5));
  s.add(vx_point2d(1, -5));
  const auto members = walk(s);
  ASSERT_EQ(members.size(), 3u);
  EXPECT_EQ(members[0], std::make_pair(2, vx_point2d(1, -5)));
  EXPECT_EQ(members[1], std::make_pair(1, vx_point2d(1, 5)));
  EXPECT_EQ(members[2], std::make_pair(0, vx_point2d(2, 0)));
  Tvx_point2d p = vx_point2d(9, 9);
  EXPECT_EQ(s.get_next(&p), -1);  // past the end it stays there
  EXPECT_EQ(p, vx_point2d(9, 9));
}

TEST(Point2dSet, FindMovesTheWalk) {
  Tvx_point2d_set s;
  for (int i = 0; i < 4; ++i) s.add(vx_point2d(i, 0));
  Tvx_point2d p = vx_point2d();
  EXPECT_EQ(s.get_first(&p), 0);
  EXPECT_EQ(s.find(vx_point2d(2, 0)), 2);
  EXPECT_EQ(s.get_next(&p), 3);
  EXPECT_EQ(s.find(vx_point2d(7, 0)), -1);  // to the end
  EXPECT_EQ(s.get_next(&p), -1);
  s.clear();
  EXPECT_EQ(s.get_first(&p), -1);
  EXPECT_EQ(s.add(vx_point2d(0, 0)), 0);  // numbers start again
}

TEST(Point2dSet, FindNearestWithOneMemberGivesItWhateverTheDistance) {
  Tvx_point2d_set s;
  s.add(vx_point2d(1e6, -1e6));
  Tvx_point2d out = vx_point2d(5, 5);
  EXPECT_EQ(s.find_nearest(vx_point2d(0, 0), out), 0);
  EXPECT_EQ(out, vx_point2d(1e6, -1e6));
  EXPECT_EQ(s.find_nearest(vx_point2d(2e6, 0), out), 0);  // nothing at or above: from the last member
  EXPECT_EQ(out, vx_point2d(1e6, -1e6));
}

TEST(Point2dSet, FindNearestOnAnEmptySetGivesMinusOneAndZero) {
  Tvx_point2d_set s;
  Tvx_point2d out = vx_point2d(5, 5);
  EXPECT_EQ(s.find_nearest(vx_point2d(1, 1), out), -1);
  EXPECT_EQ(out, vx_point2d(0, 0));
}

TEST(Point2dSet, FindNearestEqualDistanceFirstMetWins) {
  Tvx_point2d_set s;
  s.add(vx_point2d(-1, 0));  // 0
  s.add(vx_point2d(1, 0));   // 1
  Tvx_point2d out = vx_point2d();
  // The sweep starts at (1, 0), the first member not below (0, 0), and meets it first.
  EXPECT_EQ(s.find_nearest(vx_point2d(0, 0), out), 1);
  s.add(vx_point2d(0, 1));  // 2, found first as the member not below (0, 0)
  EXPECT_EQ(s.find_nearest(vx_point2d(0, 0), out), 2);
}

TEST(Point2dSet, FindNearestAgreesWithASearchOfAll) {
  std::mt19937_64 rng(3);
  std::uniform_real_distribution<double> coord(-100, 100);
  Tvx_point2d_set s;
  std::vector<Tvx_point2d> all;
  for (int i = 0; i < 2000; ++i) {
    const Tvx_point2d p = vx_point2d(coord(rng), coord(rng));
    if (s.find_add(p) == static_cast<int>(all.size())) all.push_back(p);
  }
  for (int q = 0; q < 2000; ++q) {
    const Tvx_point2d p = vx_point2d(coord(rng) * 1.2, coord(rng) * 1.2);
    double best = INFINITY;
    for (const Tvx_point2d& m : all) best = std::min(best, vx_distance(m, p));
    Tvx_point2d out = vx_point2d();
    const int n = s.find_nearest(p, out);
    ASSERT_GE(n, 0);
    EXPECT_EQ(all[n], out);
    EXPECT_EQ(vx_distance(out, p), best) << q;
  }
}

TEST(Point2dSet, NanPointsKeepTheSetSound) {
  Tvx_point2d_set s;
  EXPECT_EQ(s.find_add(vx_point2d(std::nan(""), 1)), 0);
  EXPECT_EQ(s.find_add(vx_point2d(std::nan(""), 1)), 0);
  EXPECT_EQ(s.find_add(vx_point2d(1, 1)), 1);
  EXPECT_EQ(s.get_size(), 2u);
  Tvx_point2d out = vx_point2d();
  EXPECT_EQ(s.find_nearest(vx_point2d(1, 2), out), 1);
}

}  // namespace
