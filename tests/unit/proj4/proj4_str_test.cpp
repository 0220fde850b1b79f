#include "proj4/proj4_str.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string composed(const char* text) {
  Tvx_proj4_str s;
  s.set(text);
  s.decompose();
  s.compose();
  return s.get();
}

std::string for_proj4(const char* text) {
  Tvx_proj4_str s;
  s.set(text);
  s.decompose();
  s.compose_for_proj4();
  return s.get();
}

bool texts_equal(const char* a, const char* b) {
  Tvx_proj4_str x, y;
  x.set(a);
  x.decompose();
  y.set(b);
  y.decompose();
  return x.equal(&y);
}

TEST(Proj4Str, SetDoesNotParse) {
  Tvx_proj4_str s;
  s.set("+proj=longlat +datum=WGS84");
  EXPECT_STREQ(s.get(), "+proj=longlat +datum=WGS84");
  EXPECT_FALSE(s.get_proj()->get_def());
  EXPECT_TRUE(s.get_is_lon_wrap());
}

TEST(Proj4Str, GeographicWgs84GetsTheTail) {
  EXPECT_EQ(composed("+proj=longlat +datum=WGS84 +no_defs"),
            "+proj=longlat +datum=WGS84 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, ParametersComeOutInTheirOwnOrder) {
  EXPECT_EQ(composed("+units=m +ellps=krass +k_0=1 +y_0=0 +x_0=7500000 +lat_0=0 +lon_0=39 +proj=tmerc"),
            "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +ellps=krass +units=m "
            "+lon_wrap=45 +no_defs");
}

TEST(Proj4Str, AllTwentyOneInOrder) {
  const char* all =
      "+nadgrids=@null +units=m +ellps=krass +rf=298.3 +b=6356863 +a=6378245 "
      "+towgs84=1,2,3,4,5,6,7 +datum=WGS84 +alpha=30 +k_0=0.9 +south +lat_2=60 +lat_ts=45 +lat_1=50 "
      "+y_0=10 +x_0=20 +lat_0=5 +lonc=7 +lon_0=9 +zone=3 +proj=omerc";
  EXPECT_EQ(composed(all),
            "+proj=omerc +zone=3 +lon_0=9 +lonc=7 +lat_0=5 +x_0=20 +y_0=10 +lat_1=50 +lat_ts=45 "
            "+lat_2=60 +south +k_0=0.9 +alpha=30 +datum=WGS84 +towgs84=1,2,3,4,5,6,7 +a=6378245 "
            "+b=6356863 +rf=298.3 +ellps=krass +units=m +nadgrids=@null +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, GettersReachTheirParameters) {
  Tvx_proj4_str s;
  s.set("+proj=tmerc +lon_0=39 +k=0.9996 +ellps=krass +nadgrids=a.gsb +lat_ts=1 +lonc=2");
  s.decompose();
  EXPECT_STREQ(s.get_proj()->get_str(), "tmerc");
  EXPECT_EQ(s.get_lon_0()->get_dbl(), 39.0);
  EXPECT_EQ(s.get_k(), s.get_k_0());
  EXPECT_EQ(s.get_k_0()->get_dbl(), 0.9996);
  EXPECT_STREQ(s.get_ellipse()->get_str(), "krass");
  EXPECT_STREQ(s.get_nadgrids()->get_str(), "a.gsb");
  EXPECT_EQ(s.get_lat_ts()->get_dbl(), 1.0);
  EXPECT_EQ(s.get_lonc()->get_dbl(), 2.0);
  EXPECT_FALSE(s.get_units()->get_def());
  EXPECT_FALSE(s.get_datum()->get_def());
}

TEST(Proj4Str, ComposingTwiceGivesTheSameText) {
  Tvx_proj4_str s;
  s.set("+proj=utm +zone=37 +ellps=WGS84 +towgs84=1,2,3 +units=m");
  s.decompose();
  s.compose();
  const std::string first = s.get();
  s.compose();
  EXPECT_EQ(first, s.get());
}

TEST(Proj4Str, ParseComposeParseLosesNothingFurther) {
  const char* texts[] = {
      "+proj=tmerc +lat_0=0 +lon_0=40.123456789012 +k=1 +x_0=1234567.123456789 +y_0=0 +ellps=krass "
      "+towgs84=23.92,-141.27,-80.9 +units=m +no_defs",
      "+proj=merc +a=6378137 +b=6378137 +nadgrids=@null +wktext",
      "+R=6371000 +proj=longlat +pm=greenwich",
      "+proj=utm +zone=37 +south +datum=WGS84 +axis=neu",
      "garbage text",
      ""};
  for (const char* t : texts) {
    const std::string once = composed(t);
    EXPECT_EQ(composed(once.c_str()), once) << t;
  }
}

TEST(Proj4Str, ExponentPlusIsCutOnTheNextParse) {
  // Twelve significant digits write 1e12 as "1e+12"; the plus sign of the exponent splits the text
  // when it is parsed again, like any plus sign in a value. Real PROJ values stay far below.
  const std::string once = composed("+proj=tmerc +x_0=1000000000000");
  EXPECT_EQ(once, "+proj=tmerc +x_0=1e+12 +lon_wrap=45 +no_defs");
  EXPECT_EQ(composed(once.c_str()), "+proj=tmerc +x_0=1 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, SphereRadiusGoesToProjAsR) {
  EXPECT_EQ(for_proj4("+R=6371000 +proj=longlat"), "+proj=longlat +R=6371000 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, ROtherNameFillsBothSemiAxes) {
  Tvx_proj4_str s;
  s.set("+R=6371000 +proj=longlat");
  s.decompose();
  EXPECT_TRUE(s.get_a()->get_def() && s.get_b()->get_def());
  EXPECT_EQ(s.get_a()->get_dbl(), 6371000.0);
  EXPECT_EQ(s.get_b()->get_dbl(), 6371000.0);
  EXPECT_TRUE(s.is_sphere());
}

TEST(Proj4Str, OwnNameWinsOverOtherName) {
  Tvx_proj4_str s;
  s.set("+proj=longlat +R=1 +a=2 +rf=300");
  s.decompose();
  EXPECT_EQ(s.get_a()->get_dbl(), 2.0);
  EXPECT_EQ(s.get_b()->get_dbl(), 1.0);
}

TEST(Proj4Str, FirstPieceOfANameWins) {
  Tvx_proj4_str s;
  s.set("+proj=tmerc +lon_0=39 +lon_0=45");
  s.decompose();
  EXPECT_EQ(s.get_lon_0()->get_dbl(), 39.0);
}

TEST(Proj4Str, UtmZoneIsAnInteger) {
  Tvx_proj4_str s;
  s.set("+proj=utm +zone=37 +ellps=WGS84");
  s.decompose();
  EXPECT_TRUE(s.get_zone()->get_def());
  EXPECT_EQ(s.get_zone()->get_int(), 37);
  s.compose();
  EXPECT_STREQ(s.get(), "+proj=utm +zone=37 +ellps=WGS84 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, EqualSemiAxesMakeASphere) {
  const char* t = "+proj=merc +a=6378137 +b=6378137";
  Tvx_proj4_str s;
  s.set(t);
  s.decompose();
  EXPECT_TRUE(s.is_sphere());
  EXPECT_EQ(composed(t), "+proj=merc +a=6378137 +b=6378137 +lon_wrap=45 +no_defs");
  EXPECT_EQ(for_proj4(t), "+proj=merc +R=6378137 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, SphereDropsDatumShiftInBothComposes) {
  const char* t = "+proj=merc +a=6378137 +b=6378137 +rf=0 +towgs84=1,2,3 +ellps=sphere";
  EXPECT_EQ(composed(t), "+proj=merc +a=6378137 +b=6378137 +rf=0 +ellps=sphere +lon_wrap=45 +no_defs");
  EXPECT_EQ(for_proj4(t), "+proj=merc +R=6378137 +ellps=sphere +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, ThreeWaysToBeASphere) {
  auto sphere = [](const char* t) {
    Tvx_proj4_str s;
    s.set(t);
    s.decompose();
    return s.is_sphere();
  };
  EXPECT_TRUE(sphere("+proj=longlat +ellps=SPHERE"));
  EXPECT_TRUE(sphere("+proj=longlat +a=6371000 +b=6371000.0000009"));
  EXPECT_FALSE(sphere("+proj=longlat +a=6371000 +b=6371000.000002"));
  EXPECT_TRUE(sphere("+proj=longlat +a=6371000 +rf=0"));
  EXPECT_FALSE(sphere("+proj=longlat +rf=0"));
  EXPECT_FALSE(sphere("+proj=longlat +a=6378245 +rf=298.3"));
  EXPECT_FALSE(sphere("+proj=longlat +ellps=krass"));
}

TEST(Proj4Str, SphereByEllipsoidNameKeepsEllipsoidForProj) {
  EXPECT_EQ(for_proj4("+proj=longlat +ellps=sphere +towgs84=1,2,3"),
            "+proj=longlat +ellps=sphere +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, KIsWrittenAsK0) {
  EXPECT_EQ(composed("+proj=merc +k=0.9996 +ellps=GRS80"),
            "+proj=merc +k_0=0.9996 +ellps=GRS80 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, SouthIsTrueWhateverItsValue) {
  for (const char* t : {"+proj=utm +south", "+proj=utm +south=no"}) {
    Tvx_proj4_str s;
    s.set(t);
    s.decompose();
    EXPECT_TRUE(s.get_south()->get_def()) << t;
    EXPECT_TRUE(s.get_south()->get_bool()) << t;
  }
  EXPECT_EQ(composed("+proj=utm +south=no"), "+proj=utm +south +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, NameWithoutPlusStillMatchesIgnoringCase) {
  Tvx_proj4_str s;
  s.set("PROJ=UTM");
  s.decompose();
  EXPECT_TRUE(s.get_proj()->get_def());
  EXPECT_STREQ(s.get_proj()->get_str(), "UTM");
}

TEST(Proj4Str, EmptyTextComposesToEmpty) {
  EXPECT_EQ(composed(""), "");
  EXPECT_EQ(for_proj4(""), "");
  EXPECT_EQ(composed("/home/user/data/zone7.prj"), "");
  EXPECT_EQ(composed("+no_defs +wktext +init=epsg:4326"), "");
}

TEST(Proj4Str, DatumAloneComposesButIsNotValid) {
  Tvx_proj4_str s;
  s.set("+datum=WGS84");
  s.decompose();
  EXPECT_FALSE(s.is_valid());
  s.compose();
  EXPECT_STREQ(s.get(), "+datum=WGS84 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, ValidityNeedsProjAndAnEarth) {
  auto valid = [](const char* t) {
    Tvx_proj4_str s;
    s.set(t);
    s.decompose();
    return s.is_valid();
  };
  EXPECT_TRUE(valid("+proj=longlat +datum=WGS84"));
  EXPECT_TRUE(valid("+proj=longlat +ellps=krass"));
  EXPECT_TRUE(valid("+proj=longlat +a=6378245 +b=6356863"));
  EXPECT_TRUE(valid("+proj=longlat +a=6378245 +rf=298.3"));
  EXPECT_TRUE(valid("+proj=longlat +R=6371000"));
  EXPECT_FALSE(valid("+proj=longlat +a=6378245"));
  EXPECT_FALSE(valid("+proj=longlat"));
  EXPECT_FALSE(valid("+ellps=krass"));
}

TEST(Proj4Str, LeadingPlusInAValueCutsIt) {
  Tvx_proj4_str s;
  s.set("+proj=tmerc +x_0=+500000 +ellps=krass");
  s.decompose();
  EXPECT_FALSE(s.get_x_0()->get_def());
  s.compose();
  EXPECT_STREQ(s.get(), "+proj=tmerc +ellps=krass +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, ValuesAreTrimmedOfBlanks) {
  Tvx_proj4_str s;
  s.set("+proj = tmerc\t+lon_0=\t39\r\n+ellps=krass\n");
  s.decompose();
  EXPECT_STREQ(s.get_proj()->get_str(), "tmerc");
  EXPECT_EQ(s.get_lon_0()->get_dbl(), 39.0);
  EXPECT_STREQ(s.get_ellipse()->get_str(), "krass");
}

TEST(Proj4Str, DecomposeReplacesTheWholeState) {
  Tvx_proj4_str s;
  s.set("+proj=tmerc +lon_0=39 +ellps=krass");
  s.decompose();
  s.set("+proj=longlat +datum=WGS84");
  s.decompose();
  EXPECT_FALSE(s.get_lon_0()->get_def());
  EXPECT_FALSE(s.get_ellipse()->get_def());
  EXPECT_TRUE(s.get_datum()->get_def());
}

TEST(Proj4Str, EqualIgnoresNadgrids) {
  EXPECT_TRUE(texts_equal("+proj=longlat +ellps=krass +nadgrids=a.gsb", "+proj=longlat +ellps=krass"));
}

TEST(Proj4Str, EqualIgnoresCaseOfValues) {
  EXPECT_TRUE(texts_equal("+proj=longlat +ellps=krass", "+proj=longlat +ELLPS=KRASS"));
}

TEST(Proj4Str, EqualSeesEachCompared) {
  const char* base = "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +towgs84=1,2,3 +zone=7";
  EXPECT_TRUE(texts_equal(base, base));
  EXPECT_FALSE(texts_equal(base, "+proj=tmerc +lon_0=39 +x_0=7500001 +ellps=krass +towgs84=1,2,3 +zone=7"));
  EXPECT_FALSE(texts_equal(base, "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +towgs84=1,2,4 +zone=7"));
  EXPECT_FALSE(texts_equal(base, "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +towgs84=1,2,3 +zone=8"));
  EXPECT_FALSE(texts_equal(base, "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +towgs84=1,2,3"));
  EXPECT_FALSE(texts_equal(base, (std::string(base) + " +south").c_str()));
  EXPECT_TRUE(texts_equal(base, (std::string(base) + " +no_defs +lon_wrap=45").c_str()));
}

TEST(Proj4Str, LongitudeIsCutToTwelveDigits) {
  EXPECT_EQ(composed("+proj=tmerc +lon_0=40.123456789012"),
            "+proj=tmerc +lon_0=40.123456789 +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, LongLatNames) {
  auto long_lat = [](const char* t) {
    Tvx_proj4_str s;
    s.set(t);
    s.decompose();
    return s.get_is_long_lat();
  };
  EXPECT_TRUE(long_lat("+proj=longlat"));
  EXPECT_TRUE(long_lat("+proj=LatLong"));
  EXPECT_FALSE(long_lat("+proj=lonlat"));
  EXPECT_FALSE(long_lat("+proj=tmerc"));
  EXPECT_FALSE(long_lat(""));
}

TEST(Proj4Str, SetIsLongLatKeepsTheEarth) {
  Tvx_proj4_str s;
  s.set(
      "+proj=tmerc +zone=7 +lon_0=39 +lonc=1 +lat_0=0 +x_0=7500000 +y_0=0 +lat_1=1 +lat_ts=2 +lat_2=3 "
      "+south +k=1 +alpha=4 +datum=WGS84 +towgs84=1,2,3 +a=6378245 +b=6356863 +rf=298.3 +ellps=krass "
      "+units=m +nadgrids=x.gsb");
  s.decompose();
  s.set_is_long_lat();
  EXPECT_TRUE(s.get_is_long_lat());
  s.compose();
  EXPECT_STREQ(s.get(),
               "+proj=longlat +datum=WGS84 +towgs84=1,2,3,0,0,0,0 +a=6378245 +b=6356863 +rf=298.3 "
               "+ellps=krass +nadgrids=x.gsb +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, SetIsLongLatOnEmptyDefinesProj) {
  Tvx_proj4_str s;
  s.set_is_long_lat();
  s.compose();
  EXPECT_STREQ(s.get(), "+proj=longlat +lon_wrap=45 +no_defs");
}

TEST(Proj4Str, LonWrapCanBeSwitchedOff) {
  Tvx_proj4_str s;
  s.set("+proj=longlat +datum=WGS84");
  s.decompose();
  s.set_is_lon_wrap(false);
  EXPECT_FALSE(s.get_is_lon_wrap());
  s.compose();
  EXPECT_STREQ(s.get(), "+proj=longlat +datum=WGS84 +no_defs");
  s.compose_for_proj4();
  EXPECT_STREQ(s.get(), "+proj=longlat +datum=WGS84 +no_defs");
}

TEST(Proj4Str, SetAllUndefinedKeepsValues) {
  Tvx_proj4_str s;
  s.set("+proj=tmerc +lon_0=39");
  s.decompose();
  s.set_all_undefined();
  EXPECT_FALSE(s.get_proj()->get_def());
  EXPECT_EQ(s.get_lon_0()->get_dbl(), 39.0);
  s.compose();
  EXPECT_STREQ(s.get(), "");
}

}  // namespace
