// The generator's frame: paths, the scene's unit, the eight frame pieces, and the order of a run with
// its results when folders are missing.
#include <gtest/gtest.h>

#include "generate_fixture.h"
#include "generate_probe.h"

namespace {

using vx::stdlist::custom_params;
using vx::stdlist::stdlist_params;
using vxk_test::box_probe;
using vxk_test::files_under;
using vxk_test::sheet_probe;

custom_params box_params(const std::wstring& dir) {
  custom_params p;
  p.set_output_dir(dir.c_str());
  p.set_scene_proj(vxk_test::GK7);
  p.set_box(36, 42, 52, 56);
  p.set_grid_steps(1, 1);
  return p;
}

TEST(Skeleton, TenPathsByPlainConcatenation) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  EXPECT_EQ(g.hypsa_path, L"out/HYPS\\Hypsa.shp");
  EXPECT_EQ(g.hypsl_path, L"out/HYPS\\Hypsl.shp");
  EXPECT_EQ(g.hypsp_path, L"out/HYPS\\Hypsp.shp");
  EXPECT_EQ(g.frame_path, L"out/FRAME\\Frame.shp");
  EXPECT_EQ(g.framedig_path, L"out/FRAME\\FrameDig.shp");
  EXPECT_EQ(g.latlong_hypsa_path, L"out/latlong\\HYPS\\Hypsa.shp");
  EXPECT_EQ(g.latlong_hypsl_path, L"out/latlong\\HYPS\\Hypsl.shp");
  EXPECT_EQ(g.latlong_hypsp_path, L"out/latlong\\HYPS\\Hypsp.shp");
  EXPECT_EQ(g.latlong_frame_path, L"out/latlong\\FRAME\\Frame.shp");
  EXPECT_EQ(g.latlong_framedig_path, L"out/latlong\\FRAME\\FrameDig.shp");
  EXPECT_EQ(g.frameadj_path, L"");  // formed by init_grid
  g.init_grid();
  EXPECT_EQ(g.frameadj_path, L"out/FRAME\\FrameAdj.shp");
  EXPECT_EQ(g.latlong_frameadj_path, L"");
}

TEST(Skeleton, AnOutputDirectoryWithoutSeparatorIsNotMended) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"/tmp/out");
  sheet_probe g(p);
  EXPECT_EQ(g.hypsa_path, L"/tmp/outHYPS\\Hypsa.shp");
}

TEST(Skeleton, TheSceneSaysWhetherMarginsAreInDegrees) {
  const auto s = vxk_test::sheet(14, 37);
  auto metres = vxk_test::sheet_params(s, L"out/");
  EXPECT_FALSE(sheet_probe(metres).latlong);
  auto degrees = vxk_test::sheet_params(s, L"out/", vxk_test::PULKOVO);
  EXPECT_TRUE(sheet_probe(degrees).latlong);
}

TEST(Skeleton, TheEightFramePiecesAreCreatedEmpty) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  for (Tvx_pp2d* piece : {g.top_left_pv, g.top_right_pv, g.bottom_left_pv, g.bottom_right_pv, g.left_upper_pv,
                          g.right_upper_pv, g.left_lower_pv, g.right_lower_pv}) {
    ASSERT_NE(piece, nullptr);
    EXPECT_EQ(vx_pv_d2_get_size(piece), 0u);
  }
}

TEST(Skeleton, AMillionSheetRunLeavesTheEightPiecesEmpty) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("skeleton_pieces"));
  sheet_probe g(p);
  EXPECT_TRUE(g.execute());
  for (Tvx_pp2d* piece : {g.top_left_pv, g.bottom_right_pv, g.left_upper_pv, g.right_lower_pv})
    EXPECT_EQ(vx_pv_d2_get_size(piece), 0u);
}

TEST(Skeleton, TheParametersCopyIsTheGeneratorsOwn) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  p.set_output_dir(L"elsewhere/");
  EXPECT_EQ(g.params().get_output_dir(), L"out/");
  EXPECT_EQ(g.params().get_scale(), VX_STDLIST_SC_200);
  EXPECT_EQ(g.get_list_name(), L"N-37-VI");
  custom_params c = box_params(L"box/");
  box_probe b(c);
  EXPECT_EQ(b.params().get_output_dir(), L"box/");
  EXPECT_EQ(b.params().get_scale(), 1);
}

TEST(Skeleton, ValidTellsASetCoordinate) {
  EXPECT_FALSE(vx::stdlist::base_generate::valid(vx::stdlist::traits::MAX));
  EXPECT_TRUE(vx::stdlist::base_generate::valid(0.0));
  EXPECT_TRUE(vx::stdlist::base_generate::valid(1e308));
}

TEST(Skeleton, AMissingHypsFolderEndsTheRunAtTheAreaAndNothingIsWritten) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir =
      vxk_test::output_dir("skeleton_no_hyps", {"FRAME", "latlong/HYPS", "latlong/FRAME"});
  auto p = vxk_test::sheet_params(s, dir);
  EXPECT_FALSE(sheet_probe(p).execute());
  EXPECT_TRUE(files_under(dir).empty());

  const std::wstring box_dir =
      vxk_test::output_dir("skeleton_no_hyps_box", {"FRAME", "latlong/HYPS", "latlong/FRAME"});
  custom_params c = box_params(box_dir);
  EXPECT_TRUE(box_probe(c).execute());  // a free box answers true all the same
  EXPECT_TRUE(files_under(box_dir).empty());
}

TEST(Skeleton, AMissingLatlongHypsFolderLeavesTheSceneSetAndFalse) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("skeleton_no_latlong", {"HYPS", "FRAME", "latlong/FRAME"});
  auto p = vxk_test::sheet_params(s, dir);
  EXPECT_FALSE(sheet_probe(p).execute());
  EXPECT_EQ(files_under(dir), vxk_test::shape_sets({"HYPS/Hypsa", "HYPS/Hypsl", "HYPS/Hypsp", "FRAME/Frame",
                                                    "FRAME/FrameDig"}));
}

TEST(Skeleton, NoDebugFileIsEverWritten) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("skeleton_debug");
  auto p = vxk_test::sheet_params(s, dir);
  EXPECT_TRUE(sheet_probe(p).execute());
  for (const std::string& f : files_under(dir)) EXPECT_EQ(f.find("debug_save_shp"), std::string::npos) << f;
}

}  // namespace
