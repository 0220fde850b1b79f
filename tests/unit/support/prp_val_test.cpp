#include "support/prp_val.h"

#include <gtest/gtest.h>

namespace {

TEST(PrpVal, DivideStrSplitsAtFirstSeparator) {
  Tvx_prp_val p;
  EXPECT_TRUE(p.divide_str("lat_0=55", '='));
  EXPECT_STREQ(p.get_prp(), "lat_0");
  EXPECT_STREQ(p.get_val(), "55");
  EXPECT_TRUE(p.divide_str(" a = b=c \r\n", '='));
  EXPECT_STREQ(p.get_prp(), "a");
  EXPECT_STREQ(p.get_val(), "b=c");
}

TEST(PrpVal, DivideStrWithoutSeparator) {
  Tvx_prp_val p;
  p.set_val("old");
  EXPECT_FALSE(p.divide_str("no_defs ", '='));
  EXPECT_STREQ(p.get_prp(), "no_defs");
  EXPECT_STREQ(p.get_val(), "");
  EXPECT_FALSE(p.divide_str("", '='));
  EXPECT_STREQ(p.get_prp(), "");
}

TEST(PrpVal, NumbersInAndOut) {
  Tvx_prp_val p;
  int n = 0;
  double d = 0;
  p.set_val("12d30");
  EXPECT_TRUE(p.get_int(n));
  EXPECT_EQ(n, 12);
  EXPECT_TRUE(p.get_dbl(d));
  EXPECT_DOUBLE_EQ(d, 12.0);
  p.set_val("x");
  EXPECT_FALSE(p.get_int(n));
  EXPECT_FALSE(p.get_dbl(d));
  p.set_int(-3);
  EXPECT_STREQ(p.get_val(), "-3");
  p.set_dbl(2.5);
  EXPECT_STREQ(p.get_val(), "2.5");
}

TEST(PrpVal, GetBool) {
  Tvx_prp_val p;
  bool b = false;
  p.set_val("TRUE");
  EXPECT_TRUE(p.get_bool(b));
  EXPECT_TRUE(b);
  p.set_val("False");
  EXPECT_TRUE(p.get_bool(b));
  EXPECT_FALSE(b);
  b = true;
  p.set_val("1");
  EXPECT_FALSE(p.get_bool(b));
  EXPECT_TRUE(b);
  p.set_bool(true);
  EXPECT_STREQ(p.get_val(), "true");
  p.set_bool(false);
  EXPECT_STREQ(p.get_val(), "false");
}

TEST(PrpValVec, SetSizeAppendsAndDestroysFromTheEnd) {
  Tvx_prp_val_vec v;
  v.set_size(3);
  ASSERT_EQ(v.get_size(), 3u);
  v.get(0)->set_prp("first");
  Tvx_prp_val* first = v.get(0);
  v.set_size(1);
  EXPECT_EQ(v.get_size(), 1u);
  EXPECT_EQ(v.get(0), first);
  EXPECT_STREQ(v.get(0)->get_prp(), "first");
  EXPECT_EQ(v.get(1), nullptr);
  v.clear();
  EXPECT_EQ(v.get_size(), 0u);
}

TEST(PrpValVec, FindByNameIgnoresCaseButNotSpaces) {
  Tvx_prp_val_vec v;
  v.set_size(3);
  v.get(0)->divide_str("proj=tmerc", '=');
  v.get(1)->divide_str("Lon_0=39", '=');
  v.get(2)->divide_str("lon_0=40", '=');
  Tvx_prp_val* found = v.find_by_name("LON_0");
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->get_val(), "39");  // the first pair wins
  EXPECT_EQ(v.find_by_name(" lon_0 "), nullptr);
  EXPECT_EQ(v.find_by_name("zone"), nullptr);
}

}  // namespace
