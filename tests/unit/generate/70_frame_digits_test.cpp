// The frame digits, "FrameDig.shp": the table of the labels and the order of their records (the dashes
// they stand on are measured in the dashes' tests, and by GDAL in the generation checks).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"

namespace {

using vxk_test::cp1251;
using vxk_test::sheet_probe;
using vxk_test::written_lines;
using vxk_test::written_table;

// The degrees as the table reader gives them, without the blank that ends them.
std::string deg(int d) {
  return cp1251((d < 10 ? "0" : "") + std::to_string(d) + "\u00B0");
}

// Whole degrees and minutes.
std::string deg_min(int d) {
  return deg(d) + " 00'";
}

std::vector<std::string> column(const vxk_test::table& t, const std::string& name) {
  std::vector<std::string> out;
  for (size_t r = 0; r < t.rows.size(); ++r) out.push_back(t.at(r, name));
  return out;
}

TEST(FrameDigits, N37ParallelsThenCornersThenMeridiansWithOneFontAndSize) {
  const auto s = vxk_test::sheet(14, 37);
  // two parts each way: one inner meridian (39) and one inner parallel (54)
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("framedig_n37"), vxk_test::GK7, 2, 3, 2, 4);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame_dig());
  const auto t = written_table(g.framedig_path);
  EXPECT_EQ(t.columns, (std::vector<std::string>{"ID", "L_CODE", "TEXT", "FONT", "SIZE"}));
  const std::vector<std::string> expected = {
      // the inner parallel: left degrees, left minutes, right minutes, right degrees
      deg(54), "00'", "00'", deg(54),
      // the corners' parallels: left bottom, left top, right bottom, right top
      deg(52), "00'", deg(56), "00'", "00'", deg(52), "00'", deg(56),
      // the corners' meridians: right top, left top, left bottom, right bottom
      deg_min(42), deg_min(36), deg_min(36), deg_min(42),
      // the inner meridian, bottom and top
      deg_min(39), deg_min(39)};
  EXPECT_EQ(column(t, "TEXT"), expected);
  EXPECT_EQ(written_lines(g.framedig_path).size(), expected.size());
  for (size_t r = 0; r < t.rows.size(); ++r) {
    EXPECT_EQ(t.at(r, "ID"), std::to_string(r + 1));
    EXPECT_EQ(t.at(r, "L_CODE"), "400912");
    EXPECT_EQ(t.at(r, "FONT"), "Times New Roman");
    EXPECT_EQ(t.at(r, "SIZE"), "8.00");
  }
}

TEST(FrameDigits, WithoutInnerLinesOnlyTheCornersAreLabelled) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("framedig_corners"), vxk_test::GK7, 1, 1, 1, 1);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame_dig());
  const auto t = written_table(g.framedig_path);
  EXPECT_EQ(column(t, "TEXT"),
            (std::vector<std::string>{deg(55), "20'", deg(56), "00'", "20'", deg(55), "00'", deg(56),
                                      deg_min(42), deg_min(41), deg_min(41), deg_min(42)}));
}

TEST(FrameDigits, AFreeBoxLabelsItsSignedDegrees) {
  vx::stdlist::custom_params cp;
  const std::wstring dir = vxk_test::output_dir("framedig_box");
  cp.set_output_dir(dir.c_str());
  cp.set_scene_proj(vxk_test::GK7);
  cp.set_box(37.5, 40.0, -2.5, 1.0);
  cp.set_grid_steps(5.0, 2.0);
  vxk_test::box_probe g(cp);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame_dig());
  const auto texts = column(written_table(g.framedig_path), "TEXT");
  // the inner parallel at 0, then the corners at -2.5 and 1
  ASSERT_EQ(texts.size(), 4u + 8u + 4u);
  EXPECT_EQ(texts[0], deg(0));
  EXPECT_EQ(texts[4], cp1251("-02\u00B0"));
  EXPECT_EQ(texts[5], "30'");
}

TEST(FrameDigits, AMissingFolderFailsTheStep) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("framedig_missing", {"HYPS"});
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.generate_frame_dig());
  EXPECT_TRUE(vxk_test::files_under(dir).empty());
}

TEST(FrameDigits, ARunWritesThemInBothSets) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("framedig_run"));
  sheet_probe g(p);
  ASSERT_TRUE(g.execute());
  const size_t labels = 4 * 3 + 8 + 4 + 2 * 5;  // 3 inner parallels, 5 inner meridians
  EXPECT_EQ(written_lines(g.framedig_path).size(), labels);
  EXPECT_EQ(written_lines(g.latlong_framedig_path).size(), labels);
  EXPECT_EQ(written_table(g.latlong_framedig_path).rows.size(), labels);
}

}  // namespace
