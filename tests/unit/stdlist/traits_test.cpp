#include "stdlist/traits.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>

#include "support/ansi_code_page.h"

namespace {

namespace traits = vx::stdlist::traits;

TEST(Traits, ScaleOfTheSevenListedTexts) {
  EXPECT_EQ(traits::scale(L"1:1000000"), 1);
  EXPECT_EQ(traits::scale(L"1:500000"), 2);
  EXPECT_EQ(traits::scale(L"1:200000"), 4);
  EXPECT_EQ(traits::scale(L"1:100000"), 5);
  EXPECT_EQ(traits::scale(L"1:50000"), 6);
  EXPECT_EQ(traits::scale(L"1:25000"), 7);
  EXPECT_EQ(traits::scale(L"1:10000"), 8);
}

TEST(Traits, Scale300AndUnknownTextsGive0) {
  EXPECT_EQ(traits::scale(L"1:300000"), 0);
  EXPECT_EQ(traits::scale(L""), 0);
  EXPECT_EQ(traits::scale(L"1:200 000"), 0);
}

TEST(Traits, ScaleAndTypeTexts) {
  EXPECT_STREQ(traits::C_SC_300, L"1:300000");
  EXPECT_EQ(traits::listed_scale_text(3), nullptr);
  EXPECT_STREQ(traits::listed_scale_text(8), L"1:10000");
  EXPECT_STREQ(traits::type_text(4), L"Счетверенный лист");
  EXPECT_EQ(traits::type_text(0), nullptr);
}

using vx::strconv::ansi_to_wide;

TEST(Traits, NotSetMarkAndItsTolerance) {
  EXPECT_EQ(traits::MAX, DBL_MAX);
  EXPECT_EQ(traits::delta, 2.220446049250313e-15);
  EXPECT_EQ(traits::CELLS_X_1M, 6);
  EXPECT_EQ(traits::CELLS_Y_200K, 4);
}

TEST(Traits, WidthOfEveryTypeEvenTheOnesTheRecordRefuses) {
  EXPECT_EQ(traits::width(1, 1), 6.0);
  EXPECT_EQ(traits::width(1, 3), 18.0);
  EXPECT_EQ(traits::width(1, 4), 24.0);
  EXPECT_EQ(traits::width(4, 3), 3.0);
  EXPECT_EQ(traits::width(4, 1), 1.0);
  EXPECT_EQ(traits::width(2, 1), 0.0);
}

TEST(Traits, ScalesWithoutAGeometryGiveZero) {
  for (Tvx_stdlist_scale s : {0, 2, 3, 5, 6, 7, 8, 9}) {
    EXPECT_EQ(traits::height(s), 0.0) << s;
    EXPECT_EQ(traits::scale_factor(s), 0.0) << s;
    EXPECT_EQ(traits::get_pivot_points(s), 0) << s;
    EXPECT_EQ(traits::get_intrmdt_points(s), 0) << s;
    for (bool latlong : {false, true}) {
      EXPECT_EQ(traits::frame0_margin(s, latlong), 0.0);
      EXPECT_EQ(traits::frame1_margin(s, latlong), 0.0);
      EXPECT_EQ(traits::frame2_margin(s, latlong), 0.0);
      EXPECT_EQ(traits::frame3_margin(s, latlong), 0.0);
      EXPECT_EQ(traits::frame4_margin(s, latlong), 0.0);
      EXPECT_EQ(traits::get_symb_width(s, latlong), 0.0);
      EXPECT_EQ(traits::merid_dash_dy(s, latlong), 0.0);
    }
  }
}

TEST(Traits, SizesOfTheTwoDrawnScales) {
  EXPECT_EQ(traits::height(1), 4.0);
  EXPECT_EQ(traits::height(4), 0.6666666666666666);
  EXPECT_EQ(traits::scale_factor(1), 1000.0);
  EXPECT_EQ(traits::scale_factor(4), 200.0);
  EXPECT_EQ(traits::get_pivot_points(1), 25);
  EXPECT_EQ(traits::get_pivot_points(4), 9);
  EXPECT_EQ(traits::get_intrmdt_points(1), 10);
  EXPECT_EQ(traits::get_intrmdt_points(4), 2);
  EXPECT_EQ(traits::latlong_factor(true), 8.983000569721857e-06);
  EXPECT_EQ(traits::latlong_factor(false), 1.0);
  EXPECT_EQ(traits::get_symb_width(1, false), 1300.0);
  EXPECT_EQ(traits::get_symb_width(4, false), 260.0);
  EXPECT_EQ(traits::get_symb_width(4, true), 260.0 * 8.983000569721857e-06);
}

TEST(Traits, FrameOneMarginInMetresAndDegrees) {
  EXPECT_EQ(traits::frame0_margin(1, false), 0.0);
  EXPECT_EQ(traits::frame0_margin(4, true), 0.0);
  EXPECT_EQ(traits::frame1_margin(1, false), 1000.0);
  EXPECT_EQ(traits::frame1_margin(1, true), 0.008983000569721857);
  EXPECT_EQ(traits::frame1_margin(4, false), 200.0);
}

// Every metre value of the table, and its degree value stored beside it (not computed).
TEST(Traits, MarginsAndDashesBothColumnsOfBothScales) {
  struct row {
    double (*f)(Tvx_stdlist_scale, bool);
    double m200, d200, m1m, d1m;
  };
  const row rows[] = {
      {traits::frame2_margin, 1400.0, 0.0125762007976106, 7500.0, 0.06737250427291393},
      {traits::frame3_margin, 1639.9999999999998, 0.014732120934343843, 8500.0, 0.07635550484263579},
      {traits::frame4_margin, 1960.0000000000002, 0.01760668111665484, 9500.0, 0.08533850541235764},
      {traits::dx_upper_paral_dash, 634.802865146441, 0.005702434499271547, 3811.4325415325607,
       0.034238100692043416},
      {traits::dx_lower_paral_dash, 555.6824714888, 0.00499169595796834, 3165.81458664031,
       0.02843851423542367},
      {traits::merid_dash_left_length, 622.855526614744, 0.0055951115504346526, 4392.0, 0.039453338502218396},
      {traits::merid_dash_right_length, 690.232320737283, 0.006200357330423453, 3596.0, 0.032302870048719796},
      {traits::merid_corner_dash_dy, 732.543829110224, 0.0065804416342433725, 4307.08669329961,
       0.03869056221975182},
      {traits::merid_dash_dy, 363.510577815946, 0.0032654157276205643, 3060.47242196827, 0.027492225510159},
      {traits::dx_left_paral_dash, 835.856190859022, 0.007508496638692136, 5813.66666893264,
       0.05222417099919488},
      {traits::dx_right_paral_dash, 199.223339116669, 0.0017896233687869282, 1938.55166595654,
       0.017414010719722855},
      {traits::paral_dash_shift_top, 245.47946094320903, 0.002205142137507861, 1532.04778900269,
       0.013762386161452275},
      {traits::paral_dash_shift_btm, 264.170779077596, 0.0023730462589579117, 1460.24049136588,
       0.013117341165870624},
  };
  for (const row& r : rows) {
    EXPECT_EQ(r.f(4, false), r.m200);
    EXPECT_EQ(r.f(4, true), r.d200);
    EXPECT_EQ(r.f(1, false), r.m1m);
    EXPECT_EQ(r.f(1, true), r.d1m);
    EXPECT_NEAR(r.d1m, r.m1m * 8.983000569721857e-06, 1e-15);
    EXPECT_NEAR(r.d200, r.m200 * 8.983000569721857e-06, 1e-15);
  }
}

TEST(Traits, HemisphereSuffixes) {
  EXPECT_STREQ(traits::ind(1), traits::IND_PARAL_N);
  EXPECT_STREQ(traits::ind(2), traits::IND_PARAL_S);
  EXPECT_STREQ(traits::ind(0), traits::IND_PARAL_S);
  EXPECT_STREQ(traits::ind(0.5), traits::IND_PARAL_N);
  EXPECT_STREQ(traits::ind(0.0), traits::IND_PARAL_S);
  EXPECT_STREQ(traits::ind(-3.0), traits::IND_PARAL_S);
}

TEST(Traits, TableTextsAreWindows1251) {
  EXPECT_EQ(ansi_to_wide(traits::TXT_FRAME), L"Рамка");
  EXPECT_EQ(ansi_to_wide(traits::TXT_PARAL), L"Параллель");
  EXPECT_EQ(ansi_to_wide(traits::TXT_MERID), L"Меридиан");
  EXPECT_EQ(ansi_to_wide(traits::TXT_POLAR), L"Северный полярный круг");
  EXPECT_EQ(ansi_to_wide(traits::IND_PARAL_N), L"с.ш.");
  EXPECT_EQ(ansi_to_wide(traits::IND_PARAL_S), L"ю.ш.");
  EXPECT_EQ(ansi_to_wide(traits::IND_MERID), L"в.д.");
  EXPECT_EQ(ansi_to_wide(traits::POLAR_STR_GRD), L"66°");
  EXPECT_STREQ(traits::POLAR_STR_MIN, "33.64'");
  EXPECT_STREQ(traits::FONT, "Times New Roman");
  EXPECT_STREQ(traits::FONT_SIZE, "8.00");
  EXPECT_STREQ(traits::FONT_SIZE_ADJ, "6.50");
  EXPECT_STREQ(traits::IND_PARAL_N, "\xF1.\xF8.");  // byte by byte
}

TEST(Traits, FolderAndFileNames) {
  EXPECT_EQ(traits::hyps_dir, L"HYPS\\");
  EXPECT_EQ(traits::frame_dir, L"FRAME\\");
  EXPECT_EQ(traits::latlong_hyps_dir, L"latlong\\HYPS\\");
  EXPECT_EQ(traits::latlong_frame_dir, L"latlong\\FRAME\\");
  EXPECT_EQ(traits::hypsa_shp, L"Hypsa.shp");
  EXPECT_EQ(traits::hypsl_shp, L"Hypsl.shp");
  EXPECT_EQ(traits::hypsp_shp, L"Hypsp.shp");
  EXPECT_EQ(traits::frame_shp, L"Frame.shp");
  EXPECT_EQ(traits::framedig_shp, L"FrameDig.shp");
  EXPECT_EQ(traits::frameadj_shp, L"FrameAdj.shp");
}

TEST(Traits, LatlongPrjTextAsItStands) {
  EXPECT_STREQ(traits::LATLON_PRJ_STR,
               L"GEOGCS[\"GCS_Pulkovo_1942\",DATUM[\"D_Pulkovo_1942\",SPHEROID[\"Krasovsky_1940\", "
               L"6378245.0,298.3]], PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]");
}

TEST(Traits, DbfPathReplacesTheExtension) {
  EXPECT_EQ(traits::dbf_path(L"out\\HYPS\\Hypsa.shp"), L"out\\HYPS\\Hypsa.dbf");
}

TEST(Traits, StrNarrowsToWindows1251OrGivesNothing) {
  EXPECT_EQ(traits::str(nullptr), "");
  EXPECT_EQ(traits::str(L""), "");
  EXPECT_EQ(traits::str(L"N-37-VI"), "N-37-VI");
  EXPECT_EQ(traits::str(L"Рамка"), traits::TXT_FRAME);
  EXPECT_EQ(traits::str(L"N-37 \x4E2D"), "");  // a character the code page cannot hold
  EXPECT_EQ(traits::str(L"what?"), "what?");
}

TEST(Traits, ParentScaleIsArithmetic) {
  vx::stdlist::stdlist_string sheet;
  sheet.init(VX_STDLIST_SC_MLN, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH);
  EXPECT_EQ(traits::get_parent_scale(sheet), 0);
  sheet.init(VX_STDLIST_SC_100, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH);
  EXPECT_EQ(traits::get_parent_scale(sheet), 4);
}

TEST(Traits, StyleLibraryProjectionIsPulkovo1942) {
  const std::wstring text = traits::get_styllibs_proj();
  EXPECT_EQ(text, L"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs");
}

TEST(Traits, StyleLibraryProjectionIsEmptyWithoutItsFile) {
  vx_options_set_style_libs_path(L"/no/such/style/library/");
  EXPECT_EQ(traits::get_styllibs_proj(), L"");
  vx_options_set_style_libs_path(nullptr);
}

}  // namespace
