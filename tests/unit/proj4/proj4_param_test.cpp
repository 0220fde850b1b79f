#include "proj4/proj4_param.h"

#include "proj4/pj_defs.h"

#include <gtest/gtest.h>

namespace {

template <class T>
T named(const char* name) {
  T p;
  p.set_name(name);
  return p;
}

TEST(Proj4Traits, Dbl2StrUsesTwelveSignificantDigits) {
  EXPECT_EQ(Tvx_proj4_traits::dbl2str(1234567.123456789), "1234567.12346");
  EXPECT_EQ(Tvx_proj4_traits::dbl2str(0.1), "0.1");
  EXPECT_EQ(Tvx_proj4_traits::dbl2str(500000), "500000");
  EXPECT_EQ(Tvx_proj4_traits::dbl2str(-1e-20), "-1e-20");
}

TEST(Proj4Param, StartsUndefinedWithInitialValues) {
  Tvx_proj4_param_str s;
  Tvx_proj4_param_dbl d;
  Tvx_proj4_param_int i;
  Tvx_proj4_param_bool b;
  Tvx_proj4_param_towgs84 t;
  EXPECT_FALSE(s.get_def() || d.get_def() || i.get_def() || b.get_def() || t.get_def());
  EXPECT_STREQ(s.get_str(), "");
  EXPECT_EQ(d.get_dbl(), 0.0);
  EXPECT_EQ(i.get_int(), 0);
  EXPECT_FALSE(b.get_bool());
  for (unsigned k = 0; k < 7; ++k) EXPECT_EQ(t.get_dbl(k), 0.0);
}

TEST(Proj4Param, NamesAndOtherNames) {
  Tvx_proj4_param_dbl p = named<Tvx_proj4_param_dbl>("k_0");
  EXPECT_STREQ(p.get_name(), "k_0");
  p.add_other_name("k");
  p.add_other_name("kk");
  ASSERT_EQ(p.get_other_names_count(), 2u);
  EXPECT_EQ(p.get_other_name(0), "k");
  EXPECT_EQ(p.get_other_name(1), "kk");
  p.clear_other_names();
  EXPECT_EQ(p.get_other_names_count(), 0u);
}

TEST(Proj4Param, UndefinedWritesNothing) {
  Tvx_proj4_param_dbl p = named<Tvx_proj4_param_dbl>("lat_0");
  p.set_dbl(5);
  EXPECT_STREQ(p.get_out_str(), "");
}

TEST(Proj4Param, DefinedDoubleWritesWithClosingBlank) {
  Tvx_proj4_param_dbl p = named<Tvx_proj4_param_dbl>("lat_0");
  p.set_dbl(0.1);
  p.set_def(true);
  EXPECT_STREQ(p.get_out_str(), "+lat_0=0.1 ");
}

TEST(Proj4Param, DoubleIsCutToTwelveDigits) {
  Tvx_proj4_param_dbl p = named<Tvx_proj4_param_dbl>("x_0");
  p.set_dbl(1234567.123456789);
  p.set_def(true);
  EXPECT_STREQ(p.get_out_str(), "+x_0=1234567.12346 ");
}

TEST(Proj4Param, OutputFormsOfEachKind) {
  Tvx_proj4_param_str s = named<Tvx_proj4_param_str>("ellps");
  s.val_from_str("krass");
  EXPECT_STREQ(s.get_out_str(), "+ellps=krass ");
  Tvx_proj4_param_int i = named<Tvx_proj4_param_int>("zone");
  i.val_from_str("37");
  EXPECT_STREQ(i.get_out_str(), "+zone=37 ");
  Tvx_proj4_param_towgs84 t = named<Tvx_proj4_param_towgs84>("towgs84");
  t.val_from_str("23.92,-141.27,-80.9,0,0.35,0.82,-0.12");
  EXPECT_STREQ(t.get_out_str(), "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 ");
}

TEST(Proj4Param, BoolNeverWritesEquals) {
  Tvx_proj4_param_bool p = named<Tvx_proj4_param_bool>("south");
  p.set_def(true);
  p.set_bool(false);
  EXPECT_STREQ(p.get_out_str(), "+south ");
  p.set_bool(true);
  EXPECT_STREQ(p.get_out_str(), "+south ");
}

TEST(Proj4Param, UndefiningKeepsTheValue) {
  Tvx_proj4_param_dbl p = named<Tvx_proj4_param_dbl>("lon_0");
  p.val_from_str("39");
  p.set_def(false);
  EXPECT_EQ(p.get_dbl(), 39.0);
  EXPECT_STREQ(p.get_out_str(), "");
}

TEST(Proj4Param, EmptyTextUndefinesStringAndDouble) {
  Tvx_proj4_param_str s;
  s.val_from_str("WGS84");
  s.val_from_str("");
  EXPECT_FALSE(s.get_def());
  EXPECT_STREQ(s.get_str(), "");
  Tvx_proj4_param_dbl d;
  d.val_from_str("3");
  d.val_from_str("");
  EXPECT_FALSE(d.get_def());
}

TEST(Proj4Param, DoubleReadsLeadingNumberOnly) {
  Tvx_proj4_param_dbl d;
  d.val_from_str("12d30");
  EXPECT_TRUE(d.get_def());
  EXPECT_EQ(d.get_dbl(), 12.0);
  d.val_from_str("x");
  EXPECT_FALSE(d.get_def());
}

TEST(Proj4Param, IntegerParse) {
  Tvx_proj4_param_int i;
  i.val_from_str("37");
  EXPECT_TRUE(i.get_def());
  EXPECT_EQ(i.get_int(), 37);
  i.val_from_str("zone");
  EXPECT_FALSE(i.get_def());
  EXPECT_EQ(i.get_int(), 37);
}

TEST(Proj4Param, BoolIsTrueWhateverTheText) {
  Tvx_proj4_param_bool b;
  b.val_from_str("no");
  EXPECT_TRUE(b.get_def());
  EXPECT_TRUE(b.get_bool());
  Tvx_proj4_param_bool c;
  c.val_from_str("");
  EXPECT_TRUE(c.get_def() && c.get_bool());
}

TEST(Proj4Param, TowgsFillsMissingAndBadPlacesWithZero) {
  Tvx_proj4_param_towgs84 t;
  for (unsigned k = 0; k < 7; ++k) t.set_dbl(k, 9.0);
  t.val_from_str("1,x,3");
  EXPECT_TRUE(t.get_def());
  const double want[7] = {1, 0, 3, 0, 0, 0, 0};
  for (unsigned k = 0; k < 7; ++k) EXPECT_EQ(t.get_dbl(k), want[k]) << k;
}

TEST(Proj4Param, TowgsIgnoresPlacesBeyondTheSeventh) {
  Tvx_proj4_param_towgs84 t;
  t.val_from_str("1,2,3,4,5,6,7,8,9");
  for (unsigned k = 0; k < 7; ++k) EXPECT_EQ(t.get_dbl(k), k + 1.0);
}

TEST(Proj4Param, TowgsIsDefinedEvenOnEmptyText) {
  Tvx_proj4_param_towgs84 t = named<Tvx_proj4_param_towgs84>("towgs84");
  t.val_from_str("");
  EXPECT_TRUE(t.get_def());
  EXPECT_STREQ(t.get_out_str(), "+towgs84=0,0,0,0,0,0,0 ");
}

TEST(Proj4Param, ThreeShiftsWriteAllSevenValues) {
  Tvx_proj4_param_towgs84 t = named<Tvx_proj4_param_towgs84>("towgs84");
  t.val_from_str("1,2,3");
  EXPECT_STREQ(t.get_out_str(), "+towgs84=1,2,3,0,0,0,0 ");
}

TEST(Proj4Param, UndefinedEqualsUndefinedOnly) {
  Tvx_proj4_param_dbl a, b;
  EXPECT_TRUE(a.equal(&b));
  a.set_dbl(1);
  b.set_dbl(1);
  b.set_def(true);
  EXPECT_FALSE(a.equal(&b));
  EXPECT_FALSE(b.equal(&a));
  a.set_def(true);
  EXPECT_TRUE(a.equal(&b));
}

TEST(Proj4Param, UndefinedAndDefinedDifferForEveryKind) {
  Tvx_proj4_param_str s1, s2;
  s2.val_from_str("x");
  EXPECT_FALSE(s1.equal(&s2));
  EXPECT_TRUE(s1.equal(&s1));
  Tvx_proj4_param_int i1, i2;
  i2.set_def(true);
  EXPECT_FALSE(i1.equal(&i2));
  EXPECT_FALSE(i2.equal(&i1));
  Tvx_proj4_param_bool b1, b2;
  b2.set_def(true);
  EXPECT_FALSE(b1.equal(&b2));
  Tvx_proj4_param_towgs84 t1, t2;
  t2.set_def(true);
  EXPECT_FALSE(t1.equal(&t2));
  EXPECT_TRUE(t1.equal(&t1));
}

TEST(Proj4Param, DoubleToleranceIsStrict) {
  // 0 and 0.000001 subtract to exactly 1e-6: not below the tolerance, so not equal.
  Tvx_proj4_param_dbl z, m;
  z.val_from_str("0");
  m.val_from_str("0.000001");
  ASSERT_EQ(m.get_dbl() - z.get_dbl(), 1e-6);
  EXPECT_FALSE(z.equal(&m));
  EXPECT_FALSE(m.equal(&z));
  // 2 and 2.000001 subtract to a little more than 1e-6.
  Tvx_proj4_param_dbl t, u;
  t.val_from_str("2");
  u.val_from_str("2.000001");
  ASSERT_GE(u.get_dbl() - t.get_dbl(), 1e-6);
  EXPECT_FALSE(t.equal(&u));
  // 1 and 1.000001 subtract to a little less than 1e-6 in doubles, and so are equal.
  Tvx_proj4_param_dbl a, b;
  a.val_from_str("1");
  b.val_from_str("1.000001");
  ASSERT_LT(b.get_dbl() - a.get_dbl(), 1e-6);
  EXPECT_TRUE(a.equal(&b));
}

TEST(Proj4Param, StringsCompareTrimmedIgnoringCase) {
  Tvx_proj4_param_str a, b;
  a.val_from_str("WGS84");
  b.val_from_str(" wgs84 ");
  EXPECT_TRUE(a.equal(&b));
  b.val_from_str("wgs72");
  EXPECT_FALSE(a.equal(&b));
}

TEST(Proj4Param, IntegersAndBoolsCompareByValue) {
  Tvx_proj4_param_int a, b;
  a.val_from_str("37");
  b.val_from_str("38");
  EXPECT_FALSE(a.equal(&b));
  b.set_int(37);
  EXPECT_TRUE(a.equal(&b));
  Tvx_proj4_param_bool c, d;
  c.set_def(true);
  d.set_def(true);
  d.set_bool(true);
  EXPECT_FALSE(c.equal(&d));
  c.set_bool(true);
  EXPECT_TRUE(c.equal(&d));
}

TEST(Proj4Param, ThreeShiftsEqualSevenWithZeros) {
  Tvx_proj4_param_towgs84 a, b;
  a.val_from_str("1,2,3");
  b.val_from_str("1,2,3,0,0,0,0");
  EXPECT_TRUE(a.equal(&b));
  b.val_from_str("1,2,3,0,0,0,0.00001");
  EXPECT_FALSE(a.equal(&b));
}

TEST(Proj4Param, SetParamTakesDefinitionAndValueButNotName) {
  Tvx_proj4_param_dbl src = named<Tvx_proj4_param_dbl>("lon_0");
  src.val_from_str("39");
  Tvx_proj4_param_dbl dst = named<Tvx_proj4_param_dbl>("lonc");
  dst.set_param(&src);
  EXPECT_TRUE(dst.get_def());
  EXPECT_EQ(dst.get_dbl(), 39.0);
  EXPECT_STREQ(dst.get_name(), "lonc");

  Tvx_proj4_param_str s1, s2;
  s1.set_str("krass");
  s2.val_from_str("WGS84");
  s2.set_param(&s1);
  EXPECT_FALSE(s2.get_def());
  EXPECT_STREQ(s2.get_str(), "krass");

  Tvx_proj4_param_int i1, i2;
  i1.val_from_str("7");
  i2.set_param(&i1);
  EXPECT_TRUE(i2.get_def());
  EXPECT_EQ(i2.get_int(), 7);

  Tvx_proj4_param_bool b1, b2;
  b1.val_from_str("");
  b2.set_param(&b1);
  EXPECT_TRUE(b2.get_def() && b2.get_bool());
}

// A catalogue definition that goes into the string brings its default; one that does not makes the
// parameter undefined and leaves its value alone.
TEST(Proj4Param, SetParamFromDefinitionTakesDefaultOnlyWhenWritten) {
  Tvx_pj_dbl_param def;
  def.set_default(39);
  def.set_use_proj4(true);
  Tvx_proj4_param_dbl lon_0 = named<Tvx_proj4_param_dbl>("lon_0");
  lon_0.set_param(&def);
  EXPECT_TRUE(lon_0.get_def());
  EXPECT_EQ(lon_0.get_dbl(), 39);
  EXPECT_STREQ(lon_0.get_name(), "lon_0");

  def.set_use_proj4(false);
  def.set_default(45);
  def.set_def_default(true);  // having a default does not write it
  lon_0.set_param(&def);
  EXPECT_FALSE(lon_0.get_def());
  EXPECT_EQ(lon_0.get_dbl(), 39);
}

TEST(Proj4Param, SetParamFromDefinitionOfEveryKind) {
  Tvx_pj_str_param datum_def;
  datum_def.set_use_proj4(true);
  datum_def.set_default("WGS84");
  Tvx_proj4_param_str datum = named<Tvx_proj4_param_str>("datum");
  datum.set_param(&datum_def);
  EXPECT_TRUE(datum.get_def());
  EXPECT_STREQ(datum.get_out_str(), "+datum=WGS84 ");

  Tvx_pj_int_param zone_def;
  zone_def.set_use_proj4(true);
  zone_def.set_default(37);
  Tvx_proj4_param_int zone = named<Tvx_proj4_param_int>("zone");
  zone.set_param(&zone_def);
  EXPECT_STREQ(zone.get_out_str(), "+zone=37 ");

  Tvx_pj_bool_param south_def;
  south_def.set_use_proj4(true);
  south_def.set_default(true);
  Tvx_proj4_param_bool south = named<Tvx_proj4_param_bool>("south");
  south.set_param(&south_def);
  EXPECT_TRUE(south.get_def() && south.get_bool());
  south_def.set_use_proj4(false);
  south.set_param(&south_def);
  EXPECT_FALSE(south.get_def());
  EXPECT_TRUE(south.get_bool());
  EXPECT_STREQ(south.get_out_str(), "");
}

}  // namespace
