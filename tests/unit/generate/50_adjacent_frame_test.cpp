// The frame of the adjacent sheets, "FrameAdj.shp": the neighbours' names on the middle stretches of the
// outer frame, the pieces left for the frame, and where a run writes the file (GDAL reads it in the
// generation checks, against the names that `vxk sheet --neighbours` prints).
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"

namespace {

namespace fs = std::filesystem;
namespace traits = vx::stdlist::traits;
using vxk_test::line;
using vxk_test::points;
using vxk_test::sheet_probe;
using vxk_test::written_lines;
using vxk_test::written_table;

constexpr double OUTER = 1960.0000000000002;  // 9.8 mm at 1:200,000
constexpr double SYMBOL = 260.0;              // a character of a name at 1:200,000

double length(const line& l) {
  double sum = 0.0;
  for (size_t i = 1; i < l.size(); ++i) sum += std::hypot(l[i].x - l[i - 1].x, l[i].y - l[i - 1].y);
  return sum;
}

struct n37vi {
  vx::stdlist::stdlist_string s = vxk_test::sheet(14, 37, 6);
  std::wstring dir;
  vx::stdlist::stdlist_params p;
  sheet_probe g;
  explicit n37vi(const std::string& name)
      : dir(vxk_test::output_dir(name)),
        p(vxk_test::sheet_params(s, dir, vxk_test::GK7, 3, 20, 2, 20)),
        g(p) {
    g.init_grid();
  }
};

TEST(AdjacentFrame, FourNamesLeftRightTopBottomWithTheirFontAndSize) {
  n37vi f("frameadj_n37vi");
  sheet_probe& g = f.g;
  EXPECT_EQ(g.left_name, L"N-37-V");
  EXPECT_EQ(g.right_name, L"N-38-I");
  EXPECT_EQ(g.top_name, L"O-37-XXXVI");
  EXPECT_EQ(g.bottom_name, L"N-37-XII");
  ASSERT_TRUE(g.generate_frame_adj());
  const auto t = written_table(g.frameadj_path);
  EXPECT_EQ(t.columns, (std::vector<std::string>{"ID", "L_CODE", "TEXT", "FONT", "SIZE"}));
  ASSERT_EQ(t.rows.size(), 4u);
  const char* names[] = {"N-37-V", "N-38-I", "O-37-XXXVI", "N-37-XII"};
  for (size_t r = 0; r < 4; ++r) {
    EXPECT_EQ(t.at(r, "ID"), std::to_string(r + 1));
    EXPECT_EQ(t.at(r, "L_CODE"), "400911");
    EXPECT_EQ(t.at(r, "TEXT"), names[r]);
    EXPECT_EQ(t.at(r, "FONT"), "Times New Roman");
    EXPECT_EQ(t.at(r, "SIZE"), "6.50");  // not the 8.00 of the digits
  }
  EXPECT_EQ(vxk_test::files_under(f.dir), vxk_test::shape_set("FRAME", "FrameAdj"));
}

// Each side as the outer frame runs it: offset from the edge's lattice vertices, south to north or
// west to east.
line side(sheet_probe& g, int k) {
  const int x0 = static_cast<int>(g.ix_min), x1 = static_cast<int>(g.ix_max);
  const int y0 = static_cast<int>(g.iy_min), y1 = static_cast<int>(g.iy_max);
  Tvx_pp2d* pv = vx_pv_d2_create();
  if (k == 0) g.draw_frame_corner_y_incr(pv, y0, y1, x0, -OUTER);
  if (k == 1) g.draw_frame_corner_y_incr(pv, y0, y1, x1, OUTER);
  if (k == 2) g.draw_frame_corner_x_incr(pv, x0, x1, y1, OUTER);
  if (k == 3) g.draw_frame_corner_x_incr(pv, x0, x1, y0, -OUTER);
  line l = points(pv);
  vx_pv_d2_destroy(pv);
  return l;
}

TEST(AdjacentFrame, EachNameStandsOnTheMiddleOfItsSideAsWideAsItsCharacters) {
  n37vi f("frameadj_middle");
  sheet_probe& g = f.g;
  EXPECT_DOUBLE_EQ(g.left_name_width, 6 * SYMBOL);
  EXPECT_DOUBLE_EQ(g.top_name_width, 10 * SYMBOL);  // a longer name, a wider gap
  ASSERT_TRUE(g.generate_frame_adj());
  const auto lines = written_lines(g.frameadj_path);
  ASSERT_EQ(lines.size(), 4u);
  const double widths[] = {6 * SYMBOL, 6 * SYMBOL, 10 * SYMBOL, 8 * SYMBOL};
  Tvx_pp2d* firsts[] = {g.left_lower_pv, g.right_lower_pv, g.top_left_pv, g.bottom_left_pv};
  Tvx_pp2d* lasts[] = {g.left_upper_pv, g.right_upper_pv, g.top_right_pv, g.bottom_right_pv};
  for (int k = 0; k < 4; ++k) {
    const line whole = side(g, k);
    const double total = length(whole);
    EXPECT_NEAR(length(lines[k]), widths[k], 1e-6) << k;
    EXPECT_NEAR(length(points(firsts[k])), total / 2 - widths[k] / 2, 1e-6) << k;
    EXPECT_NEAR(length(points(lasts[k])), total / 2 - widths[k] / 2, 1e-6) << k;
    // the pieces meet the name's line at its ends, and keep the side's ends
    EXPECT_EQ(points(firsts[k]).front(), whole.front()) << k;
    EXPECT_EQ(points(firsts[k]).back(), lines[k].front()) << k;
    EXPECT_EQ(points(lasts[k]).front(), lines[k].back()) << k;
    EXPECT_EQ(points(lasts[k]).back(), whole.back()) << k;
  }
  // the names of the left and right sides run north
  EXPECT_GT(lines[0].back().y, lines[0].front().y);
  EXPECT_GT(lines[1].back().y, lines[1].front().y);
  EXPECT_GT(lines[2].back().x, lines[2].front().x);
  EXPECT_GT(lines[3].back().x, lines[3].front().x);
}

TEST(AdjacentFrame, TheFrameStepDrawsTheOuterFrameFromThePieces) {
  n37vi f("frameadj_frame");
  sheet_probe& g = f.g;
  ASSERT_TRUE(g.generate_frame_adj());
  ASSERT_TRUE(g.generate_frame());
  const auto lines = written_lines(g.frame_path);
  ASSERT_GE(lines.size(), 6u);
  Tvx_vtx_d2 nw{};
  ASSERT_TRUE(g.generate_corner(-OUTER, OUTER, nw));
  line a = points(g.left_upper_pv);
  a.push_back(nw);
  const line top = points(g.top_left_pv);
  a.insert(a.end(), top.begin(), top.end());
  EXPECT_EQ(lines[2], a);
  // the gap in the left side is the name's width
  const auto names = written_lines(g.frameadj_path);
  EXPECT_EQ(lines[3].front(), side(g, 0).front());  // south-west piece starts at the left side's start
  EXPECT_NEAR(std::hypot(names[0].front().x - names[0].back().x, names[0].front().y - names[0].back().y),
              6 * SYMBOL, 1.0);  // nearly straight over 1.5 km
}

TEST(AdjacentFrame, AMissingFolderFailsTheStep) {
  const auto s = vxk_test::sheet(14, 37, 6);
  const std::wstring dir = vxk_test::output_dir("frameadj_missing", {"HYPS"});
  auto p = vxk_test::sheet_params(s, dir, vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.generate_frame_adj());
  EXPECT_TRUE(vxk_test::files_under(dir).empty());
}

TEST(AdjacentFrame, A200kRunHasSixFilesInTheSceneSetAndFiveInTheLatlongSet) {
  n37vi f("frameadj_run");
  ASSERT_TRUE(f.g.execute());
  const std::vector<std::string> set = {"HYPS/Hypsa", "HYPS/Hypsl", "HYPS/Hypsp", "FRAME/Frame",
                                        "FRAME/FrameDig"};
  auto expected = vxk_test::shape_sets(set);
  const auto latlong = vxk_test::shape_sets(set, "latlong/");
  expected.insert(latlong.begin(), latlong.end());
  const auto adjacent = vxk_test::shape_set("FRAME", "FrameAdj");
  expected.insert(adjacent.begin(), adjacent.end());
  EXPECT_EQ(vxk_test::files_under(f.dir), expected);
}

TEST(AdjacentFrame, AMillionSheetHasNone) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("frameadj_mln");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  ASSERT_TRUE(g.execute());
  EXPECT_TRUE(g.left_name.empty());
  EXPECT_FALSE(fs::exists(fs::path(g.frameadj_path)));
}

}  // namespace
