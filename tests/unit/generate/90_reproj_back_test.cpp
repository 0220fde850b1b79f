// The latlong set: what is copied back to geographic coordinates, what is skipped, and what fails.
#include <gtest/gtest.h>

#include "files/file_shp.h"
#include "generate_fixture.h"
#include "generate_probe.h"

namespace {

namespace fs = std::filesystem;
using vx::stdlist::custom_params;
using vx::stdlist::stdlist_params;
using vxk_test::box_probe;
using vxk_test::files_under;
using vxk_test::shape_set;
using vxk_test::sheet_probe;

// The projection files that the latlong set gets beside every path, its shape file there or not.
std::set<std::string> latlong_projection_files() {
  std::set<std::string> out;
  for (const char* f : {"latlong/HYPS/Hypsa", "latlong/HYPS/Hypsl", "latlong/HYPS/Hypsp",
                        "latlong/FRAME/Frame", "latlong/FRAME/FrameDig"}) {
    out.insert(std::string(f) + ".prj");
    out.insert(std::string(f) + ".pj4");
  }
  return out;
}

std::set<std::string> joined(std::set<std::string> a, const std::set<std::string>& b) {
  a.insert(b.begin(), b.end());
  return a;
}

Tvx_rect2d extent(const std::wstring& path) {
  Tvx_file_shp shp;
  shp.open(path, true);
  return shp.get_rect2d();
}

TEST(ReprojBack, TheAreaOfN37ComesBackToItsDegrees) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("back_n37");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  ASSERT_TRUE(g.execute());
  std::set<std::string> expected = latlong_projection_files();
  for (const char* set : {"", "latlong/"})
    expected = joined(expected,
                      vxk_test::shape_sets(
                          {"HYPS/Hypsa", "HYPS/Hypsl", "HYPS/Hypsp", "FRAME/Frame", "FRAME/FrameDig"}, set));
  EXPECT_EQ(files_under(dir), expected);
  const Tvx_rect2d r = extent(g.latlong_hypsa_path);
  EXPECT_NEAR(r.xmin, 36.0, 1e-7);
  EXPECT_NEAR(r.xmax, 42.0, 1e-7);
  EXPECT_NEAR(r.ymin, 52.0, 1e-7);
  EXPECT_NEAR(r.ymax, 56.0, 1e-7);
  EXPECT_GT(extent(g.hypsa_path).xmin, 7000000.0);  // the scene set is in metres
}

TEST(ReprojBack, AFreeBoxGetsProjectionFilesBesideItsAbsentPoints) {
  custom_params c;
  const std::wstring dir = vxk_test::output_dir("back_box");
  c.set_output_dir(dir.c_str());
  c.set_scene_proj(vxk_test::GK7);
  c.set_box(36.5, 41.5, 52.5, 55.5);
  c.set_grid_steps(1, 1);
  box_probe g(c);
  EXPECT_TRUE(g.execute());
  const auto files = files_under(dir);
  EXPECT_TRUE(files.count("latlong/HYPS/Hypsp.prj"));
  EXPECT_TRUE(files.count("latlong/HYPS/Hypsp.pj4"));
  EXPECT_FALSE(files.count("latlong/HYPS/Hypsp.shp"));
  EXPECT_NEAR(extent(g.latlong_hypsa_path).xmin, 36.5, 1e-7);
}

TEST(ReprojBack, AGeographicSceneIsStillWrittenAndReprojected) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("back_geographic");
  auto p = vxk_test::sheet_params(s, dir, vxk_test::PULKOVO);
  sheet_probe g(p);
  ASSERT_TRUE(g.execute());
  EXPECT_TRUE(fs::exists(fs::path(dir) / "latlong/HYPS/Hypsa.shp"));
  EXPECT_NEAR(extent(g.hypsa_path).xmax, 42.0, 1e-9);
  EXPECT_NEAR(extent(g.latlong_hypsa_path).xmax, 42.0, 1e-9);
}

TEST(ReprojBack, FrameAdjHasNoLatlongCopy) {
  const auto s = vxk_test::sheet(14, 37, 6);
  const std::wstring dir = vxk_test::output_dir("back_frameadj");
  auto p = vxk_test::sheet_params(s, dir);
  p.set_lon_divs(3, 20);
  p.set_lat_divs(2, 20);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_a());
  // a scene "FrameAdj.shp" as the adjacent frame would leave it
  for (const char* ext : {".shp", ".shx", ".dbf"})
    fs::copy_file(fs::path(dir) / (std::string("HYPS/Hypsa") + ext),
                  fs::path(dir) / (std::string("FRAME/FrameAdj") + ext));
  ASSERT_TRUE(g.reproj_back());
  for (const std::string& f : files_under(dir)) EXPECT_NE(f.rfind("latlong/FRAME/FrameAdj", 0), 0u) << f;
}

TEST(ReprojBack, AMissingLatlongFrameFolderFailsAfterTheAreaIsCopied) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("back_no_latlong_frame", {"HYPS", "FRAME", "latlong/HYPS"});
  auto p = vxk_test::sheet_params(s, dir);
  EXPECT_FALSE(sheet_probe(p).execute());
  EXPECT_TRUE(files_under(dir).count("latlong/HYPS/Hypsa.shp"));
}

TEST(ReprojBack, AnEmptySceneShowsOnlyHere) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("back_empty_scene");
  auto p = vxk_test::sheet_params(s, dir, L"");
  sheet_probe g(p);
  EXPECT_FALSE(g.execute());
  const auto files = files_under(dir);
  EXPECT_TRUE(files.count("HYPS/Hypsa.shp"));
  EXPECT_FALSE(files.count("latlong/HYPS/Hypsa.shp"));
}

TEST(ReprojBack, AStyleLibraryWithoutItsGeographicSystemFailsTheRun) {
  vx_options_set_style_libs_path(vxk_test::scratch_dir("back_no_style").wstring().c_str());
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("back_no_geographic");
  auto p = vxk_test::sheet_params(s, dir);
  const bool result = sheet_probe(p).execute();
  vx_options_set_style_libs_path(nullptr);
  EXPECT_FALSE(result);
  EXPECT_FALSE(files_under(dir).count("latlong/HYPS/Hypsa.shp"));
}

TEST(ReprojBack, WithoutTheSceneAreaThereIsNothingToDo) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("back_no_area");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.reproj_back());
  EXPECT_TRUE(files_under(dir).empty());
}

}  // namespace
