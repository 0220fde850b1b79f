#include "proj4/proj4_str_correct.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string gdal(const char* text) {
  return Tvx_proj4_str_correct::patch_proj4_for_gdal(text);
}

TEST(Proj4StrCorrect, OneParallelConicGetsBothLatitudes) {
  EXPECT_EQ(gdal("+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80"),
            "+proj=lcc +lon_0=10 +lat_0=45 +lat_1=45 +lat_2=45 +ellps=GRS80 +no_defs");
}

TEST(Proj4StrCorrect, TwoParallelConicWithOriginKeepsItsValues) {
  EXPECT_EQ(gdal("+proj=lcc +lat_1=45 +lat_2=50 +lat_0=40 +lon_0=10 +ellps=GRS80"),
            "+proj=lcc +lon_0=10 +lat_0=40 +lat_1=45 +lat_2=50 +ellps=GRS80 +no_defs");
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=lcc +lat_1=45 +lat_2=50 +lat_0=40");
  EXPECT_FALSE(c.patch_lcc_1sp_for_gdal());
  EXPECT_FALSE(c.get_changed());
}

// Where only the origin is missing, it is put on the first parallel as well: PROJ would have put it on
// the equator, so the northings of the corrected text differ by a constant.
TEST(Proj4StrCorrect, TwoParallelConicWithoutOriginGetsItOnTheFirstParallel) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=lcc +lat_1=45 +lat_2=50 +lon_0=10");
  EXPECT_TRUE(c.patch_lcc_1sp_for_gdal());
  EXPECT_TRUE(c.get_changed());
  EXPECT_EQ(c.get_str()->get_lat_0()->get_dbl(), 45);
  EXPECT_EQ(c.get_str()->get_lat_2()->get_dbl(), 50);
}

TEST(Proj4StrCorrect, OtherProjectionsAreNotConics) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=tmerc +lat_1=45 +lon_0=39 +ellps=krass");
  EXPECT_FALSE(c.patch_lcc_1sp_for_gdal());
  EXPECT_FALSE(c.get_changed());
  EXPECT_FALSE(c.get_str()->get_lat_2()->get_def());
  EXPECT_FALSE(c.get_str()->get_lat_0()->get_def());
}

TEST(Proj4StrCorrect, ProjectionNameIsTrimmedAndCaseBlind) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+PROJ= LCC  +lat_1=30");
  EXPECT_TRUE(c.patch_lcc_1sp_for_gdal());
  EXPECT_EQ(c.get_str()->get_lat_2()->get_dbl(), 30);
}

// The first parallel's value is taken even when the text does not give it: the parser's 0.
TEST(Proj4StrCorrect, MissingFirstParallelGivesZeroLatitudes) {
  EXPECT_EQ(gdal("+proj=lcc +lon_0=10"), "+proj=lcc +lon_0=10 +lat_0=0 +lat_2=0 +no_defs");
}

// The name is the parser's value whether defined or not, so a corrector reused for a text without
// "+proj" still takes it for the conic it read before.
TEST(Proj4StrCorrect, NameIsTheValueTheParserLeft) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=lcc +lat_1=45");
  c.set_proj4("+lat_1=30 +ellps=GRS80");
  EXPECT_FALSE(c.get_str()->get_proj()->get_def());
  EXPECT_TRUE(c.patch_lcc_1sp_for_gdal());
  EXPECT_EQ(c.get_proj4(), "+lat_0=30 +lat_1=30 +lat_2=30 +ellps=GRS80 +lon_wrap=45 +no_defs");
}

TEST(Proj4StrCorrect, LonWrapIsLeftOut) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=longlat +datum=WGS84 +no_defs");
  EXPECT_EQ(c.get_proj4(), "+proj=longlat +datum=WGS84 +lon_wrap=45 +no_defs");
  EXPECT_TRUE(c.patch_lon_wrap_for_gdal());
  EXPECT_TRUE(c.get_changed());
  EXPECT_EQ(c.get_proj4(), "+proj=longlat +datum=WGS84 +no_defs");
  EXPECT_EQ(gdal("+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m +lon_wrap=180"),
            "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m +no_defs");
}

TEST(Proj4StrCorrect, LoadSrcForgetsPatches) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=lcc +lat_1=45");
  c.patch_lcc_1sp_for_gdal();
  EXPECT_TRUE(c.get_changed());
  c.load_src();
  EXPECT_FALSE(c.get_changed());
  EXPECT_FALSE(c.get_str()->get_lat_2()->get_def());
}

TEST(Proj4StrCorrect, SaveDstComposesWhatThePatchesMade) {
  Tvx_proj4_str_correct c;
  c.set_proj4("+proj=lcc +lat_1=45 +k=0.99");
  c.patch_lcc_1sp_for_gdal();
  c.save_dst();
  EXPECT_EQ(c.get_proj4(), "+proj=lcc +lat_0=45 +lat_1=45 +lat_2=45 +k_0=0.99 +lon_wrap=45 +no_defs");
}

// A sphere keeps "+a" and "+b": the GDAL form is composed as the library composes, not as it hands
// texts to PROJ.
TEST(Proj4StrCorrect, SphereKeepsBothSemiAxes) {
  EXPECT_EQ(gdal("+proj=merc +R=6371000"), "+proj=merc +a=6371000 +b=6371000 +no_defs");
}

TEST(Proj4StrCorrect, UnknownParametersAreDroppedAndNumbersShortened) {
  EXPECT_EQ(gdal("+proj=utm +zone=37 +datum=WGS84 +axis=neu +type=crs +lon_0=40.123456789012"),
            "+proj=utm +zone=37 +lon_0=40.123456789 +datum=WGS84 +no_defs");
}

TEST(Proj4StrCorrect, TextWithoutKnownParameterGivesEmpty) {
  EXPECT_EQ(gdal(""), "");
  EXPECT_EQ(gdal("/data/proj/zone7.pj4"), "");
  EXPECT_EQ(gdal(nullptr), "");
}

}  // namespace
