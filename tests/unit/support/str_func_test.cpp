#include "support/str_func.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/ansi_code_page.h"

namespace {

TEST(StrFunc, TrimRemovesBlanksTabsAndLineEnds) {
  EXPECT_STREQ(Tvx_str_func::trim(" \t a b \r\n"), "a b");
  EXPECT_STREQ(Tvx_str_func::trim("   "), "");
  EXPECT_STREQ(Tvx_str_func::trim(""), "");
  EXPECT_STREQ(Tvx_str_func::trim("x"), "x");
}

TEST(StrFunc, ResultsShareOneBuffer) {
  const char* first = Tvx_str_func::trim(" a ");
  const char* second = Tvx_str_func::int2str(7);
  EXPECT_EQ(first, second);
  EXPECT_STREQ(second, "7");
}

TEST(StrFunc, Str2IntReadsLeadingNumber) {
  int n = -5;
  EXPECT_TRUE(Tvx_str_func::str2int("12x", n));
  EXPECT_EQ(n, 12);
  n = -5;
  EXPECT_FALSE(Tvx_str_func::str2int("x", n));
  EXPECT_EQ(n, -5);
  EXPECT_FALSE(Tvx_str_func::str2int("", n));
}

TEST(StrFunc, Str2DblScansLikeLg) {
  double d = 0;
  EXPECT_TRUE(Tvx_str_func::str2dbl("12d30", d));
  EXPECT_DOUBLE_EQ(d, 12.0);
  EXPECT_TRUE(Tvx_str_func::str2dbl(" -1.5e3", d));
  EXPECT_DOUBLE_EQ(d, -1500.0);
  d = 3;
  EXPECT_FALSE(Tvx_str_func::str2dbl("x", d));
  EXPECT_DOUBLE_EQ(d, 3.0);
}

TEST(StrFunc, NumbersToText) {
  EXPECT_STREQ(Tvx_str_func::int2str(-42), "-42");
  EXPECT_STREQ(Tvx_str_func::dbl2str(0.5), "0.5");
  EXPECT_STREQ(Tvx_str_func::dbl2str(1e20), "1e+20");
  EXPECT_STREQ(Tvx_str_func::int2str_format(7, "%03d"), "007");
  EXPECT_STREQ(Tvx_str_func::dbl2str_format(39.0, "%.12lg"), "39");
  EXPECT_STREQ(Tvx_str_func::dbl2str_format(1.0 / 3.0, "%.12lg"), "0.333333333333");
}

TEST(StrFunc, LongFormattedTextIsNotCut) {
  const std::string text = Tvx_str_func::dbl2str_format(1e300, "%.0f");
  EXPECT_EQ(text.size(), 301u);
}

TEST(StrFunc, TrimStricmp) {
  EXPECT_EQ(Tvx_str_func::trim_stricmp(nullptr, nullptr), 0);
  EXPECT_EQ(Tvx_str_func::trim_stricmp(nullptr, "a"), -1);
  EXPECT_EQ(Tvx_str_func::trim_stricmp("a", nullptr), 1);
  EXPECT_EQ(Tvx_str_func::trim_stricmp(" LCC\t", "lcc"), 0);
  EXPECT_LT(Tvx_str_func::trim_stricmp("a", " b "), 0);
  const std::string a = vx::strconv::wide_to_ansi(L" Датум ");
  const std::string b = vx::strconv::wide_to_ansi(L"дАТУМ");
  EXPECT_EQ(Tvx_str_func::trim_stricmp(a.c_str(), b.c_str()), 0);
}

TEST(StrFunc, DivideKeepsEmptyTokens) {
  Tvx_str_vec list;
  EXPECT_TRUE(Tvx_str_func::divide("a  b", " ", &list));
  ASSERT_EQ(list.get_size(), 3u);
  EXPECT_STREQ(list.get(0), "a");
  EXPECT_STREQ(list.get(1), "");
  EXPECT_STREQ(list.get(2), "b");
}

TEST(StrFunc, DivideEmptyTextGivesOneEmptyToken) {
  Tvx_str_vec list;
  list.add("old");
  EXPECT_TRUE(Tvx_str_func::divide("", "+", &list));
  ASSERT_EQ(list.get_size(), 1u);
  EXPECT_STREQ(list.get(0), "");
}

TEST(StrFunc, DivideByPlusLikeAProjString) {
  Tvx_str_vec list;
  Tvx_str_func::divide("+proj=tmerc +lon_0=39,", "+,", &list);
  ASSERT_EQ(list.get_size(), 4u);
  EXPECT_STREQ(list.get(0), "");
  EXPECT_STREQ(list.get(1), "proj=tmerc ");
  EXPECT_STREQ(list.get(2), "lon_0=39");
  EXPECT_STREQ(list.get(3), "");
}

TEST(StrVec, SizeSetGetAssign) {
  Tvx_str_vec v;
  EXPECT_EQ(v.get_size(), 0u);
  v.set_size(2);
  v.set(1, "b");
  v.add("c");
  EXPECT_EQ(v.get_size(), 3u);
  EXPECT_STREQ(v.get(0), "");
  EXPECT_STREQ(v.get(1), "b");
  EXPECT_STREQ(v.get(2), "c");
  Tvx_str_vec w;
  w.assign(v);
  EXPECT_STREQ(w.get(2), "c");
  v.clear();
  EXPECT_EQ(v.get_size(), 0u);
  EXPECT_EQ(w.get_size(), 3u);
}

TEST(StrVec, IndexPastTheEndIsHarmless) {
  Tvx_str_vec v;
  v.add("a");
  v.set(5, "x");
  EXPECT_EQ(v.get_size(), 1u);
  EXPECT_STREQ(v.get(1), "");
}

TEST(StrVec, GetReturnsTheScratchCopy) {
  Tvx_str_vec v;
  v.add("a");
  v.add("b");
  const char* first = v.get(0);
  const char* second = v.get(1);
  EXPECT_EQ(first, second);
  EXPECT_STREQ(second, "b");
}

}  // namespace
