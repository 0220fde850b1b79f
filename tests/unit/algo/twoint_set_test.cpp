#include "algo/twoint_set.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

std::vector<std::tuple<int, int, int>> walk(Tvx_twoint_set& s) {
  std::vector<std::tuple<int, int, int>> out;
  int a = 0, b = 0;
  for (int n = s.get_first(&a, &b); n >= 0; n = s.get_next(&a, &b)) out.emplace_back(n, a, b);
  return out;
}

TEST(TwointSet, UnorderedPairsAreOneMember) {
  Tvx_twoint_set s(true);
  EXPECT_EQ(s.find_add(3, 7), 0);
  EXPECT_EQ(s.find_add(7, 3), 0);
  EXPECT_EQ(s.find(7, 3), 0);
  EXPECT_EQ(s.get_size(), 1u);
  EXPECT_EQ(walk(s), (std::vector<std::tuple<int, int, int>>{{0, 3, 7}}));
}

TEST(TwointSet, OrderedPairsAreTwoMembers) {
  Tvx_twoint_set s(false);
  EXPECT_EQ(s.find_add(3, 7), 0);
  EXPECT_EQ(s.find_add(7, 3), 1);
  EXPECT_EQ(s.get_size(), 2u);
  EXPECT_EQ(walk(s), (std::vector<std::tuple<int, int, int>>{{0, 3, 7}, {1, 7, 3}}));
}

TEST(TwointSet, AddLeavesGapsFindAddDoesNot) {
  Tvx_twoint_set s(false);
  EXPECT_EQ(s.add(1, 2), 0);
  EXPECT_EQ(s.add(1, 2), 1);
  EXPECT_EQ(s.find_add(1, 2), 0);
  EXPECT_EQ(s.find_add(-1, 2), 2);
  EXPECT_EQ(walk(s), (std::vector<std::tuple<int, int, int>>{{2, -1, 2}, {0, 1, 2}}));
  EXPECT_EQ(s.find(5, 5), -1);
  int a = 9, b = 9;
  EXPECT_EQ(s.get_next(&a, &b), -1);  // find moved the cursor to the end
  EXPECT_EQ(a, 9);
  s.clear();
  EXPECT_EQ(s.get_size(), 0u);
  EXPECT_EQ(s.get_first(&a, &b), -1);
}

TEST(TwointSetExec, MakeTwointOrdersOnlyWhenUnordered) {
  const Tvx_idx_twoint u = Tvx_twoint_set_exec(true).make_twoint(9, 2);
  EXPECT_EQ(u.number, -1);
  EXPECT_EQ(u.a, 2);
  EXPECT_EQ(u.b, 9);
  const Tvx_idx_twoint o = Tvx_twoint_set_exec(false).make_twoint(9, 2);
  EXPECT_EQ(o.a, 9);
  EXPECT_EQ(o.b, 2);
}

}  // namespace
