// The area of a sheet, "Hypsa.shp", and the projection files beside a shape file, read back by the
// library's own readers (GDAL reads them in the generation checks).
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "files/file_dbf.h"
#include "files/file_shp.h"
#include "generate_fixture.h"
#include "generate_probe.h"
#include "support/ansi_code_page.h"

namespace {

using vx::stdlist::custom_params;
using vx::stdlist::stdlist_params;
using vxk_test::box_probe;
using vxk_test::sheet_probe;

std::string file_text(const std::wstring& path) {
  std::ifstream in(vx::strconv::wide_to_utf8(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

struct area_row {
  int id, code;
  std::string name;
};

area_row read_area_table(const std::wstring& shp) {
  Tvx_file_dbf t;
  EXPECT_EQ(t.open(vx::stdlist::traits::dbf_path(shp), true), 0);
  EXPECT_EQ(t.get_nr(), 1u);
  EXPECT_EQ(t.get_np(), 3u);
  EXPECT_STREQ(t.get_prp_name(0), "ID");
  EXPECT_STREQ(t.get_prp_name(1), "L_CODE");
  EXPECT_STREQ(t.get_prp_name(2), "NAME");
  EXPECT_EQ(t.get_prp_type(0), 'N');
  EXPECT_EQ(t.get_prp_len(0), 6u);
  EXPECT_EQ(t.get_prp_type(1), 'N');
  EXPECT_EQ(t.get_prp_len(1), 9u);
  EXPECT_EQ(t.get_prp_type(2), 'C');
  EXPECT_EQ(t.get_prp_len(2), 100u);
  t.set_rec(0);
  area_row r{t.get_int(0), t.get_int(1), t.get_str(2)};
  while (!r.name.empty() && r.name.back() == ' ') r.name.pop_back();
  return r;
}

TEST(Area, TheTableOfAStandardSheetHoldsItsDesignation) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("area_table"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_a());
  const area_row r = read_area_table(g.hypsa_path);
  EXPECT_EQ(r.id, 1);
  EXPECT_EQ(r.code, -1);
  EXPECT_EQ(r.name, "N-37-VI");
}

TEST(Area, TheTableOfAFreeBoxSaysBaseList) {
  custom_params c;
  c.set_output_dir(vxk_test::output_dir("area_box").c_str());
  c.set_scene_proj(vxk_test::GK7);
  c.set_box(36, 42, 52, 56);
  c.set_grid_steps(1, 1);
  box_probe g(c);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_a());
  EXPECT_EQ(read_area_table(g.hypsa_path).name, "Base list");
}

TEST(Area, ANameTheCodePageCannotHoldLeavesNameEmptyAndTheStepSucceeds) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("area_unconvertible"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_a_dbf(L"N-37 \x4E2D"));
  EXPECT_EQ(read_area_table(g.hypsa_path).name, "");
}

TEST(Area, OnePolygonRunningClockwiseOnTheLatticeWithItsCornersTwice) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("area_ring"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_a());
  Tvx_file_shp shp;
  shp.open(g.hypsa_path, true);
  ASSERT_EQ(shp.get_no(), 1u);
  EXPECT_EQ(shp.get_type(), SHP_POLYGON);
  shp.get_obj_type(0);
  Tvx_op2d o;
  ASSERT_TRUE(shp.get_polygon(&o));
  ASSERT_EQ(o.get_size(), 1);
  Tvx_pp2d* ring = o.get(0);
  const int columns = static_cast<int>(g.ix_max - g.ix_min + 1);
  const int rows = static_cast<int>(g.iy_max - g.iy_min + 1);
  ASSERT_EQ(ring->get_size(), 2 * columns + 2 * rows);
  EXPECT_TRUE(ring->is_closed());
  EXPECT_EQ(ring->get_clock_wise(), vx_cw_clockwise);
  // the north-west corner ends the west side and begins the north side
  EXPECT_EQ(ring->get(rows - 1).x, ring->get(rows).x);
  EXPECT_EQ(ring->get(rows - 1).y, ring->get(rows).y);
  const Tvx_vtx_d2 sw = g.grid.get_vtx(static_cast<int>(g.ix_min), static_cast<int>(g.iy_min));
  EXPECT_EQ(ring->get(0).x, sw.x);
  EXPECT_EQ(ring->get(0).y, sw.y);
  EXPECT_LT(sw.x, 7500000.0 - 200000.0);  // 3 degrees west of the zone's meridian, in metres
  EXPECT_GT(sw.y, 5700000.0);
}

TEST(ProjectionFiles, SceneFilesCarryTheSceneAndLatlongFilesPulkovo1942) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("area_prj");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  ASSERT_TRUE(g.crt_proj_scn(dir + L"HYPS\\Any.shp"));
  const std::string prj = file_text(dir + L"HYPS/Any.prj");
  EXPECT_EQ(prj.substr(0, 8), "PROJCS[\"");
  EXPECT_NE(prj.find("Transverse_Mercator"), std::string::npos);
  EXPECT_NE(prj.back(), '\n');  // no line end added
  EXPECT_EQ(file_text(dir + L"HYPS/Any.pj4"), vx::strconv::wide_to_utf8(vxk_test::GK7) + "\n");

  ASSERT_TRUE(g.crt_proj_latlong(dir + L"latlong\\HYPS\\Any.shp"));
  EXPECT_EQ(file_text(dir + L"latlong/HYPS/Any.prj"),
            vx::strconv::wide_to_utf8(vx::stdlist::traits::LATLON_PRJ_STR));
  EXPECT_EQ(file_text(dir + L"latlong/HYPS/Any.pj4"), vx::strconv::wide_to_utf8(vxk_test::PULKOVO) + "\n");
}

TEST(ProjectionFiles, TheLatlongPrjIsPulkovoWhateverTheGeographicTextSays) {
  const auto dir = vxk_test::scratch_dir("area_prj_other_geographic");
  std::filesystem::create_directories(dir / "std_list");
  std::ofstream(dir / "std_list" / "proj0.pj4") << "+proj=longlat +datum=WGS84 +no_defs\n";
  vx_options_set_style_libs_path(dir.wstring().c_str());
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring out = vxk_test::output_dir("area_prj_other_geographic_out");
  auto p = vxk_test::sheet_params(s, out);
  sheet_probe g(p);
  const bool written = g.crt_proj_latlong(out + L"latlong\\HYPS\\Any.shp");
  vx_options_set_style_libs_path(nullptr);
  ASSERT_TRUE(written);
  EXPECT_EQ(file_text(out + L"latlong/HYPS/Any.prj").substr(0, 26), "GEOGCS[\"GCS_Pulkovo_1942\",");
  EXPECT_EQ(file_text(out + L"latlong/HYPS/Any.pj4"), "+proj=longlat +datum=WGS84 +no_defs\n");
}

TEST(ProjectionFiles, AMissingFolderFailsTheProjectionFiles) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("area_prj_missing", {});
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  EXPECT_FALSE(g.crt_proj_scn(dir + L"HYPS\\Any.shp"));
  EXPECT_FALSE(g.crt_proj_latlong(dir + L"latlong\\HYPS\\Any.shp"));
}

TEST(Area, AMissingFolderFailsTheAreaBeforeAnyFile) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("area_missing", {"FRAME"});
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.generate_hyps_a());
  EXPECT_TRUE(vxk_test::files_under(dir).empty());
}

}  // namespace
