#include "reproj/reproj_xy.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

const char* const kKrassGeo = "+proj=longlat +ellps=krass +no_defs";
const char* const kKrassGk7 = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m";

// x' = 2x + 1, y' = 3y - 4: easy to undo in one's head.
Tvx_matrix3x3 scale_shift() {
  return Tvx_matrix3x3{{2, 0, 1, 0, 3, -4, 9, 9, 9}};
}

TEST(Matrix3x3, InitSingleGivesTheUnitMatrix) {
  Tvx_matrix3x3 m{{5, 5, 5, 5, 5, 5, 5, 5, 5}};
  vx_matrix3x3_init_single(m);
  const double unit[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(m.m[i], unit[i]) << i;
}

TEST(ReprojXy, AffineReadsTheFirstTwoRows) {
  Tvx_matrix3x3 m{{1, 2, 3, 4, 5, 6, 100, 100, 100}};
  double x = 10, y = 20;
  Tvx_reproj_xy::apply_affine(m, &x, &y);
  EXPECT_EQ(x, 10 * 1 + 20 * 2 + 3.0);
  EXPECT_EQ(y, 4 * 10 + 5 * 20 + 6.0);
}

TEST(ReprojXy, AffineFormsAgree) {
  const Tvx_matrix3x3 m = scale_shift();
  std::vector<double> x{1, 2, 3}, y{4, 5, 6};
  Tvx_reproj_xy::apply_affine_xy(m, 3, x.data(), y.data());
  Tvx_xy_array a;
  a.set_size(3);
  for (unsigned i = 0; i < 3; ++i) a.set_xy(i, i + 1.0, i + 4.0);
  Tvx_reproj_xy::apply_affine_array(m, &a);
  for (unsigned i = 0; i < 3; ++i) {
    EXPECT_EQ(x[i], 2 * (i + 1.0) + 1);
    EXPECT_EQ(y[i], 3 * (i + 4.0) - 4);
    EXPECT_EQ(a.get_x(i), x[i]);
    EXPECT_EQ(a.get_y(i), y[i]);
  }
}

TEST(ReprojXy, StartsWithReprojectionOnlyAndUnitMatrices) {
  Tvx_reproj_xy r;
  EXPECT_TRUE(r.get_use_reproj());
  EXPECT_FALSE(r.get_use_affine_before());
  EXPECT_FALSE(r.get_use_affine_after());
  r.set_use_reproj(false);
  r.set_use_affine_before(true);
  r.set_use_affine_after(true);
  double x = 12.5, y = -7.25;
  EXPECT_TRUE(r.apply(&x, &y));
  EXPECT_EQ(x, 12.5);
  EXPECT_EQ(y, -7.25);
}

TEST(ReprojXy, OnlyTheMatrixActsWhenReprojectionIsOff) {
  Tvx_reproj_xy r;  // never initialised: a transformation would fail
  r.set_use_reproj(false);
  r.set_affine_after(scale_shift());
  r.set_use_affine_after(true);
  double x = 1, y = 2;
  EXPECT_TRUE(r.apply(&x, &y));
  EXPECT_EQ(x, 3);
  EXPECT_EQ(y, 2);
  std::vector<double> bx{1, 2}, by{2, 3};
  EXPECT_TRUE(r.apply_xy(2, bx.data(), by.data()));
  EXPECT_EQ(bx[1], 5);
  EXPECT_EQ(by[1], 5);
}

TEST(ReprojXy, SettingAMatrixDoesNotSwitchItOn) {
  Tvx_reproj_xy r;
  r.set_use_reproj(false);
  r.set_affine_before(scale_shift());
  r.set_affine_after(scale_shift());
  double x = 1, y = 2;
  EXPECT_TRUE(r.apply(&x, &y));
  EXPECT_EQ(x, 1);
  EXPECT_EQ(y, 2);
  r.set_use_affine_before(true);
  EXPECT_TRUE(r.apply(&x, &y));
  EXPECT_EQ(x, 3);
  EXPECT_EQ(y, 2);
}

TEST(ReprojXy, ReprojectionIsNeededUnlessAllThreeAreOff) {
  Tvx_reproj_xy r;
  for (int bits = 0; bits < 8; ++bits) {
    r.set_use_reproj(bits & 1);
    r.set_use_affine_before(bits & 2);
    r.set_use_affine_after(bits & 4);
    EXPECT_EQ(r.rpj_is_needed(), bits != 0) << bits;
  }
}

TEST(ReprojXy, ChainRunsBeforeTransformationAfter) {
  // Before: a scale of 1000 turns kilo-degrees into degrees; after: metres to kilometres.
  Tvx_reproj_xy r;
  ASSERT_TRUE(r.init(kKrassGeo, kKrassGk7));
  r.set_affine_before(Tvx_matrix3x3{{0.001, 0, 0, 0, 0.001, 0, 0, 0, 1}});
  r.set_use_affine_before(true);
  r.set_affine_after(Tvx_matrix3x3{{0.001, 0, 0, 0, 0.001, 0, 0, 0, 1}});
  r.set_use_affine_after(true);
  double x = 39000, y = 0;
  EXPECT_TRUE(r.apply(&x, &y));
  EXPECT_NEAR(x, 7500, 1e-9);
  EXPECT_NEAR(y, 0, 1e-9);
}

TEST(ReprojXy, StepAfterRunsWhenTheTransformationFails) {
  Tvx_reproj_xy r;
  ASSERT_TRUE(r.init(kKrassGeo, kKrassGk7));
  r.set_affine_after(Tvx_matrix3x3{{0, 0, 5, 0, 0, 6, 0, 0, 1}});
  r.set_use_affine_after(true);
  double x = 129, y = 0;
  EXPECT_FALSE(r.apply(&x, &y));
  EXPECT_TRUE(std::isnan(x));  // 0 times infinity: the step ran on what the transformation left
  std::vector<double> bx{39, 129}, by{0, 0};
  EXPECT_FALSE(r.apply_xy(2, bx.data(), by.data()));
  EXPECT_EQ(bx[0], 5);
  EXPECT_EQ(by[0], 6);
}

TEST(ReprojXy, AllThreeFormsAgree) {
  Tvx_reproj_xy r;
  ASSERT_TRUE(r.init(kKrassGeo, kKrassGk7));
  double x = 37.6173, y = 55.7558;
  ASSERT_TRUE(r.apply(&x, &y));
  double bx = 37.6173, by = 55.7558;
  ASSERT_TRUE(r.apply_xy(1, &bx, &by));
  Tvx_xy_array a;
  a.set_size(1);
  a.set_xy(0, 37.6173, 55.7558);
  ASSERT_TRUE(r.apply_array(&a));
  EXPECT_NEAR(x, 7413187.972, 1e-3);
  EXPECT_DOUBLE_EQ(bx, x);
  EXPECT_DOUBLE_EQ(by, y);
  EXPECT_DOUBLE_EQ(a.get_x(0), x);
  EXPECT_DOUBLE_EQ(a.get_y(0), y);
}

TEST(ReprojXy, EmptyArrayPassesOnAnInitialisedObject) {
  Tvx_reproj_xy r;
  ASSERT_TRUE(r.init(kKrassGeo, kKrassGk7));
  Tvx_xy_array a;
  EXPECT_TRUE(r.apply_array(&a));
}

TEST(ReprojXy, ClearKeepsTheAffineSettings) {
  Tvx_reproj_xy r;
  ASSERT_TRUE(r.init(kKrassGeo, kKrassGk7));
  r.set_affine_after(scale_shift());
  r.set_use_affine_after(true);
  r.clear();
  EXPECT_TRUE(r.get_use_affine_after());
  EXPECT_TRUE(r.get_use_reproj());
  double x = 39, y = 0;
  EXPECT_FALSE(r.apply(&x, &y));
  r.set_use_reproj(false);
  x = 1;
  y = 2;
  EXPECT_TRUE(r.apply(&x, &y));
  EXPECT_EQ(x, 3);
}

TEST(ReprojXy, ConvertToLatLongKeepsTheEarth) {
  EXPECT_EQ(
      Tvx_reproj_xy::convert_to_latlong(
          "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
          "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"),
      "+proj=longlat +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +ellps=krass +lon_wrap=45 +no_defs");
  EXPECT_EQ(Tvx_reproj_xy::convert_to_latlong("+proj=utm +zone=37 +datum=WGS84"),
            "+proj=longlat +datum=WGS84 +lon_wrap=45 +no_defs");
  EXPECT_EQ(Tvx_reproj_xy::convert_to_latlong(""), "+proj=longlat +lon_wrap=45 +no_defs");
}

TEST(ReprojXy, ToAndFromLatLongOnTheSameEllipsoid) {
  Tvx_reproj_xy to, from;
  ASSERT_TRUE(from.init_from_latlong(kKrassGk7));
  ASSERT_TRUE(to.init_to_latlong(kKrassGk7));
  double x = 37.6173, y = 55.7558;
  ASSERT_TRUE(from.apply(&x, &y));
  EXPECT_NEAR(x, 7413187.972, 1e-3);
  EXPECT_NEAR(y, 6182348.166, 1e-3);
  ASSERT_TRUE(to.apply(&x, &y));
  EXPECT_NEAR(x, 37.6173, 1e-9);
  EXPECT_NEAR(y, 55.7558, 1e-9);
}

TEST(ReprojXy, WideFormsNarrowTheTexts) {
  Tvx_reproj_xy r;
  ASSERT_TRUE(r.init(L"+proj=longlat +ellps=krass",
                     L"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass"));
  double x = 39, y = 0;
  ASSERT_TRUE(r.apply(&x, &y));
  EXPECT_NEAR(x, 7500000, 1e-3);
  const wchar_t* gk = L"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass";
  ASSERT_TRUE(r.init_from_latlong(gk));
  x = 39;
  y = 0;
  ASSERT_TRUE(r.apply(&x, &y));
  EXPECT_NEAR(x, 7500000, 1e-3);
  ASSERT_TRUE(r.init_to_latlong(gk));
  ASSERT_TRUE(r.apply(&x, &y));
  EXPECT_NEAR(x, 39, 1e-9);
}

TEST(ReprojXy, WideTextThatCannotBeNarrowedFails) {
  Tvx_reproj_xy r;
  std::wstring bad = L"+proj=longlat +ellps=krass +nadgrids=x";
  bad += static_cast<wchar_t>(0xD800);
  EXPECT_FALSE(r.init(bad.c_str(), L"+proj=longlat +ellps=krass"));
  EXPECT_FALSE(r.init(nullptr, L"+proj=longlat +ellps=krass"));
  EXPECT_FALSE(r.init_to_latlong(bad.c_str()));
}

TEST(ReprojXy, DeleteObjIsNullSafe) {
  Tvx_reproj_xy::delete_obj(nullptr);
  Tvx_reproj_xy* p = nullptr;
  Tvx_reproj_xy::delete_obj(&p);
  p = new Tvx_reproj_xy;
  ASSERT_TRUE(p->init(kKrassGeo, kKrassGk7));
  Tvx_reproj_xy::delete_obj(&p);
  EXPECT_EQ(p, nullptr);
}

}  // namespace
