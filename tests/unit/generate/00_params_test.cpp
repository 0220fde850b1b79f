// The parameter classes of generation and their flat functions.
#include "stdlist/generate/00_params.h"

#include <gtest/gtest.h>

#include "generate_fixture.h"
#include "stdlist/traits.h"

namespace {

using vx::stdlist::base_params;
using vx::stdlist::custom_params;
using vx::stdlist::stdlist_params;

TEST(Params, AFreshStandardSheetHasAllFourDivisionsZeroAndEmptyTexts) {
  const auto s = vxk_test::sheet(14, 37);
  const stdlist_params p(&s);
  EXPECT_EQ(p.get_main_x(), 0);
  EXPECT_EQ(p.get_addt_x(), 0);
  EXPECT_EQ(p.get_main_y(), 0);
  EXPECT_EQ(p.get_addt_y(), 0);
  EXPECT_EQ(p.get_output_dir(), L"");
  EXPECT_EQ(p.get_scene_proj(), L"");
}

TEST(Params, DivisionsAreStoredAsGiven) {
  const auto s = vxk_test::sheet(14, 37);
  stdlist_params p(&s);
  p.set_lon_divs(6, 10);
  p.set_lat_divs(-4, 0);
  int main = 0, additional = 0;
  p.get_lon_divs(main, additional);
  EXPECT_EQ(main, 6);
  EXPECT_EQ(additional, 10);
  p.get_lat_divs(main, additional);
  EXPECT_EQ(main, -4);
  EXPECT_EQ(additional, 0);
  EXPECT_EQ(p.get_main_y(), -4);
}

TEST(Params, AStandardSheetAsksItsDesignationAndACopySpeaksOfTheSameRecord) {
  auto s = vxk_test::sheet(14, 37, 6);
  stdlist_params p(&s);
  const stdlist_params copy(p);
  EXPECT_EQ(copy.get_scale(), VX_STDLIST_SC_200);
  EXPECT_TRUE(copy.scale_is_200());
  EXPECT_EQ(copy.get_hemisphere(), VX_STDLIST_NORTH);
  EXPECT_EQ(copy.get_mln_letter(), 14u);
  EXPECT_EQ(copy.get_mln_number(), 37u);
  EXPECT_EQ(copy.get_200_roman_idx(), 6u);
  EXPECT_EQ(copy.get_mid_meridian(), 39);
  std::wstring name;
  EXPECT_EQ(copy.get_output_string(name), L"N-37-VI");
  s.set_hemisphere(VX_STDLIST_SOUTH);
  EXPECT_EQ(copy.get_hemisphere(), VX_STDLIST_SOUTH);
  EXPECT_EQ(copy.sheet(), &s);
}

TEST(Params, NeighboursOfA200Sheet) {
  const auto s = vxk_test::sheet(14, 37, 6);
  const stdlist_params p(&s);
  std::wstring left, right, upper, lower;
  p.get_neighbors(VX_STDLIST_NORTH, 14, 37, 6, left, right, upper, lower, VX_STDLIST_TP_SGL);
  EXPECT_EQ(left, L"N-37-V");
  EXPECT_EQ(right, L"N-38-I");
  EXPECT_EQ(upper, L"O-37-XXXVI");
  EXPECT_EQ(lower, L"N-37-XII");
}

TEST(Params, IncludesPolarInBandQAtTheMillionAndInItsPolarRowAt200) {
  const auto q = vxk_test::sheet(17, 37);
  EXPECT_TRUE(stdlist_params(&q).includes_polar());
  const auto q14 = vxk_test::sheet(17, 37, 14);
  EXPECT_TRUE(stdlist_params(&q14).includes_polar());
  const auto q2 = vxk_test::sheet(17, 37, 2);
  EXPECT_FALSE(stdlist_params(&q2).includes_polar());
  const auto n = vxk_test::sheet(14, 37);
  EXPECT_FALSE(stdlist_params(&n).includes_polar());
}

TEST(Params, AFreeBoxCountsAsANorthernMillionSheet) {
  const custom_params p;
  EXPECT_EQ(p.get_scale(), 1);
  EXPECT_EQ(p.get_hemisphere(), 1);
  const base_params& base = p;
  EXPECT_EQ(base.get_scale(), 1);
}

TEST(Params, AFreshFreeBoxHasStepsZeroAndNoBox) {
  const custom_params p;
  EXPECT_EQ(p.get_x_step(), 0.0);
  EXPECT_EQ(p.get_y_step(), 0.0);
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  p.get_box(xmin, xmax, ymin, ymax);
  for (double v : {xmin, xmax, ymin, ymax}) EXPECT_FALSE(vx::stdlist::traits::is_set(v));
}

TEST(Params, BoxAndStepsInTheirOrder) {
  custom_params p;
  p.set_box(1, 2, 3, 4);
  p.set_grid_steps(0.5, 0.25);
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0, dx = 0, dy = 0;
  p.get_box(xmin, xmax, ymin, ymax);
  p.get_grid_steps(dx, dy);
  EXPECT_EQ(xmin, 1.0);
  EXPECT_EQ(xmax, 2.0);
  EXPECT_EQ(ymin, 3.0);
  EXPECT_EQ(ymax, 4.0);
  EXPECT_EQ(dx, 0.5);
  EXPECT_EQ(dy, 0.25);
  const custom_params copy(p);
  EXPECT_EQ(copy.get_y_step(), 0.25);
}

TEST(Params, SceneProjectionHandedItsOwnStringStaysAsItIs) {
  custom_params p;
  p.set_scene_proj(L"+proj=longlat");
  p.set_output_dir(L"out/");
  const base_params copy(p);
  p.set_scene_proj(copy.get_scene_proj());
  EXPECT_EQ(p.get_scene_proj(), L"+proj=longlat");
  EXPECT_EQ(copy.get_output_dir(), L"out/");
}

TEST(ParamsFlat, DestroyOfNullDoesNothing) {
  vx_stdlist_params_destroy(nullptr);
  vx_stdlist_custom_params_destroy(nullptr);
}

TEST(ParamsFlat, SettersStoreWhatTheyAreGiven) {
  Tvx_stdlist_string* s = vx_stdlist_create();
  Tvx_stdlist_params* p = vx_stdlist_params_create(s);
  ASSERT_NE(p, nullptr);
  vx_stdlist_params_set_output_dir(p, L"");
  vx_stdlist_params_set_output_dir(p, L"out\\");
  vx_stdlist_params_set_scene_proj(p, L"+proj=longlat");
  vx_stdlist_params_set_lon_divs(p, 6, 10);
  vx_stdlist_params_set_lat_divs(p, 4, 6);
  EXPECT_EQ(p->params.get_output_dir(), L"out\\");
  EXPECT_EQ(p->params.get_scene_proj(), L"+proj=longlat");
  EXPECT_EQ(p->params.get_addt_x(), 10);
  EXPECT_EQ(p->params.get_main_y(), 4);
  EXPECT_EQ(p->params.sheet(), &s->sheet);
  vx_stdlist_params_destroy(p);
  vx_stdlist_destroy(s);

  Tvx_stdlist_custom_params* c = vx_stdlist_custom_params_create();
  ASSERT_NE(c, nullptr);
  vx_stdlist_custom_params_set_box(c, 10, 20, 50, 55);
  vx_stdlist_custom_params_set_grid_steps(c, 2.5, 1);
  vx_stdlist_custom_params_set_output_dir(c, L"box/");
  vx_stdlist_custom_params_set_scene_proj(c, L"+proj=merc");
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  c->params.get_box(xmin, xmax, ymin, ymax);
  EXPECT_EQ(xmax, 20.0);
  EXPECT_EQ(ymin, 50.0);
  EXPECT_EQ(c->params.get_x_step(), 2.5);
  EXPECT_EQ(c->params.get_output_dir(), L"box/");
  EXPECT_EQ(c->params.get_scene_proj(), L"+proj=merc");
  vx_stdlist_custom_params_destroy(c);
}

TEST(ParamsFlat, ANullRecordIsTakenWithoutComplaint) {
  Tvx_stdlist_params* p = vx_stdlist_params_create(nullptr);
  ASSERT_NE(p, nullptr);
  EXPECT_EQ(p->params.sheet(), nullptr);
  vx_stdlist_params_destroy(p);
}

}  // namespace
