#include "algo/num_set.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

std::vector<std::pair<double, int>> walk(Tvx_dbl_int_map& m) {
  std::vector<std::pair<double, int>> out;
  double k = 0.0;
  int v = 0;
  for (bool more = m.get_first(k, v); more; more = m.get_next(k, v)) out.emplace_back(k, v);
  return out;
}

TEST(IntegerSet, AddFindExact) {
  Tvx_integer_set s;
  EXPECT_TRUE(s.add(5));
  EXPECT_FALSE(s.add(5));
  EXPECT_TRUE(s.add(-2));
  EXPECT_EQ(s.get_size(), 2u);
  EXPECT_TRUE(s.find(-2));
  EXPECT_FALSE(s.find(4));
  s.clear();
  EXPECT_EQ(s.get_size(), 0u);
}

TEST(DblSet, ExactComparisonAndAssign) {
  Tvx_dbl_set s;
  s.add(0.1 + 0.2);
  EXPECT_FALSE(s.find(0.3));  // exact: 0.1 + 0.2 is not 0.3
  EXPECT_TRUE(s.find(0.1 + 0.2));
  s.add(std::numeric_limits<double>::quiet_NaN());
  s.add(std::numeric_limits<double>::quiet_NaN());  // one NaN member, the order stays sound
  EXPECT_EQ(s.get_size(), 2u);
  EXPECT_TRUE(s.find(std::numeric_limits<double>::quiet_NaN()));
  Tvx_dbl_set t;
  t.assign(&s);
  EXPECT_EQ(t.get_size(), 2u);
  EXPECT_TRUE(t.find(0.1 + 0.2));
}

TEST(DblIntMap, CountsValues) {
  Tvx_dbl_int_map m;
  int v = 0;
  double k = 0.0;
  EXPECT_FALSE(m.get_first(k, v));
  for (double x : {2.0, 1.0, 2.0, 2.0}) m.inc(x);
  EXPECT_EQ(walk(m), (std::vector<std::pair<double, int>>{{1.0, 1}, {2.0, 3}}));
  m.set(1.0, 10);
  m.set(0.5, -4);
  EXPECT_TRUE(m.find(1.0, v));
  EXPECT_EQ(v, 10);
  EXPECT_FALSE(m.find(3.0, v));
  EXPECT_EQ(v, 10);  // untouched
  EXPECT_EQ(m.get_size(), 3u);
  EXPECT_EQ(walk(m).front(), (std::pair<double, int>{0.5, -4}));
  EXPECT_FALSE(m.get_next(k, v));  // past the end stays past the end
  m.clear();
  EXPECT_EQ(m.get_size(), 0u);
  EXPECT_FALSE(m.get_next(k, v));
}

}  // namespace
