// The graticule points, "Hypsp.shp": the mesh, its order on the lattice, and its table, whose texts are
// worked out here from the coordinates by the rules of degree texts (GDAL reads the same files in the
// generation checks).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"

namespace {

using vxk_test::cp1251;
using vxk_test::sheet_probe;
using vxk_test::written_points;
using vxk_test::written_table;

// Degrees, minutes and seconds of the magnitude: the seconds rounded once, never carried into the
// degrees, so that a hair below a whole degree reads 60 minutes under the lower one.
std::string dms(double value) {
  const double a = std::fabs(value);
  const long t = static_cast<long>(std::trunc(a));
  const long d = std::lround(a * 3600.0) - 3600 * t;
  char text[64];
  std::snprintf(text, sizeof text, "%02ld\u00B0 %02ld'%02ld\"", t, d / 60, d % 60);
  return cp1251(text);
}

// The mesh of a sheet: n positions per axis from its box, every point on the lattice vertex of its
// position, column by column from the south-west corner, with its table.
void expect_mesh(sheet_probe& g, int n, double lat_step_minutes, double lon_step_minutes) {
  const auto points = written_points(g.hypsp_path);
  const auto t = written_table(g.hypsp_path);
  ASSERT_EQ(points.size(), static_cast<size_t>(n * n));
  ASSERT_EQ(t.rows.size(), static_cast<size_t>(n * n));
  EXPECT_EQ(t.columns, (std::vector<std::string>{"ID", "L_CODE", "LAT", "LON"}));
  for (int i = 0; i < n; ++i) {
    const double x = g.xmin + i * (g.xmax - g.xmin) / (n - 1);
    EXPECT_NEAR(x, g.xmin + i * lon_step_minutes / 60.0, 1e-9);
    for (int j = 0; j < n; ++j) {
      const double y = g.ymin + j * (g.ymax - g.ymin) / (n - 1);
      EXPECT_NEAR(y, g.ymin + j * lat_step_minutes / 60.0, 1e-9);
      const size_t r = static_cast<size_t>(i * n + j);
      EXPECT_EQ(points[r], g.grid.get_vtx(g.grid.find_x(x), g.grid.find_y(y))) << i << " " << j;
      EXPECT_EQ(t.at(r, "ID"), std::to_string(r));
      EXPECT_EQ(t.at(r, "L_CODE"), "-1");
      EXPECT_EQ(t.at(r, "LAT"), dms(y)) << y;
      EXPECT_EQ(t.at(r, "LON"), dms(x)) << x;
    }
  }
}

TEST(GraticulePoints, AMillionSheetHas25By25PointsTenMinutesApartAlongAMeridian) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsp_n37"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_p());
  expect_mesh(g, 25, 10.0, 15.0);
  const auto t = written_table(g.hypsp_path);
  // the corners carry the box's edges
  EXPECT_EQ(t.at(0, "LAT"), cp1251("52\u00B0 00'00\""));
  EXPECT_EQ(t.at(0, "LON"), cp1251("36\u00B0 00'00\""));
  EXPECT_EQ(t.at(624, "LAT"), cp1251("56\u00B0 00'00\""));
  EXPECT_EQ(t.at(624, "LON"), cp1251("42\u00B0 00'00\""));
  EXPECT_EQ(t.at(1, "LAT"), cp1251("52\u00B0 10'00\""));
  EXPECT_EQ(t.at(25, "LON"), cp1251("36\u00B0 15'00\""));
}

TEST(GraticulePoints, A200kSheetHasNinePointsFiveMinutesApartAlongAMeridian) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsp_n37vi"), vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_p());
  expect_mesh(g, 9, 5.0, 7.5);
  const auto t = written_table(g.hypsp_path);
  EXPECT_EQ(t.at(0, "LAT"), cp1251("55\u00B0 20'00\""));
  EXPECT_EQ(t.at(0, "LON"), cp1251("41\u00B0 00'00\""));
  EXPECT_EQ(t.at(9, "LON"), cp1251("41\u00B0 07'30\""));
  EXPECT_EQ(t.at(80, "LAT"), cp1251("56\u00B0 00'00\""));
}

// I-37-XXXI starts 40 minutes times 6 rows below 36 degrees, which the arithmetic leaves a hair below 32.
TEST(GraticulePoints, AValueJustBelowAWholeDegreeShowsSixtyMinutes) {
  const auto s = vxk_test::sheet(9, 37, 31);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsp_i37xxxi"), vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_LT(g.ymin, 32.0);
  ASSERT_GT(g.ymin, 32.0 - 0.5 / 3600.0);
  ASSERT_TRUE(g.generate_hyps_p());
  const auto t = written_table(g.hypsp_path);
  EXPECT_EQ(t.at(0, "LAT"), cp1251("31\u00B0 60'00\""));
  expect_mesh(g, 9, 5.0, 7.5);
}

TEST(GraticulePoints, ASouthernSheetShowsMagnitudes) {
  const auto s = vxk_test::sheet(2, 37, 0, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsp_south"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_p());
  expect_mesh(g, 25, 10.0, 15.0);
  EXPECT_EQ(written_table(g.hypsp_path).at(0, "LAT"), cp1251("08\u00B0 00'00\""));
}

TEST(GraticulePoints, AScaleWithoutPivotsGivesAnEmptyFile) {
  vx::stdlist::stdlist_string s;
  s.init(VX_STDLIST_SC_500, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH);
  s.set_mln_letter_idx(14);
  s.set_mln_number(37);
  const std::wstring dir = vxk_test::output_dir("hypsp_500k");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_TRUE(g.generate_hyps_p());
  EXPECT_TRUE(written_points(g.hypsp_path).empty());
  EXPECT_TRUE(written_table(g.hypsp_path).rows.empty());
  EXPECT_EQ(vxk_test::files_under(dir), vxk_test::shape_set("HYPS", "Hypsp"));
}

TEST(GraticulePoints, AMissingFolderFailsTheStepWithNothingWritten) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("hypsp_missing", {"FRAME"});
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.generate_hyps_p());
  EXPECT_TRUE(vxk_test::files_under(dir).empty());
}

// A sheet's run writes the points; a box's run does not.
TEST(GraticulePoints, OnlyAStandardSheetsRunWritesThem) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("hypsp_run");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  ASSERT_TRUE(g.execute());
  EXPECT_EQ(written_points(g.hypsp_path).size(), 625u);
  EXPECT_EQ(written_points(g.latlong_hypsp_path).size(), 625u);

  const std::wstring box_dir = vxk_test::output_dir("hypsp_box_run");
  vx::stdlist::custom_params cp;
  cp.set_output_dir(box_dir.c_str());
  cp.set_scene_proj(vxk_test::GK7);
  cp.set_box(36.0, 42.0, 52.0, 56.0);
  cp.set_grid_steps(1.0, 1.0);
  vxk_test::box_probe b(cp);
  ASSERT_TRUE(b.execute());
  EXPECT_FALSE(vxk_test::fs::exists(vxk_test::fs::path(b.hypsp_path)));
}

}  // namespace
