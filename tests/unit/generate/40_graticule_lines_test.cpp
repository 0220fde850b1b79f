// The graticule lines, "Hypsl.shp": which lines, in which order, on which lattice vertices, and their
// table, read back by the library's own readers (GDAL reads them in the generation checks).
#include <gtest/gtest.h>

#include <string>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"

namespace {

using vx::stdlist::custom_params;
using vxk_test::box_probe;
using vxk_test::cp1251;
using vxk_test::line;
using vxk_test::sheet_probe;
using vxk_test::written_lines;
using vxk_test::written_table;

constexpr double POLAR = 66.56072222222222;

std::vector<std::string> column(const vxk_test::table& t, const std::string& name) {
  std::vector<std::string> out;
  for (size_t r = 0; r < t.rows.size(); ++r) out.push_back(t.at(r, name));
  return out;
}

// The lattice line of column ix from row y0 to y1, or of row iy from column x0 to x1.
template <typename G>
line column_line(const G& g, int ix) {
  line l;
  for (auto j = g.iy_min; j <= g.iy_max; ++j) l.push_back(g.grid.get_vtx(ix, static_cast<int>(j)));
  return l;
}

template <typename G>
line row_line(const G& g, int iy) {
  line l;
  for (auto i = g.ix_min; i <= g.ix_max; ++i) l.push_back(g.grid.get_vtx(static_cast<int>(i), iy));
  return l;
}

TEST(GraticuleLines, N37MeridiansThenParallelsThenTheRectangleOnTheLattice) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsl_n37"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  const auto lines = written_lines(g.hypsl_path);
  const auto t = written_table(g.hypsl_path);
  ASSERT_EQ(lines.size(), 5u + 3u + 1u);
  ASSERT_EQ(t.rows.size(), 9u);
  EXPECT_EQ(t.columns, (std::vector<std::string>{"ID", "L_CODE", "TEXT", "GRAD", "MIN", "INDICATION"}));
  EXPECT_EQ(column(t, "ID"), (std::vector<std::string>{"1", "2", "3", "4", "5", "6", "7", "8", "9"}));
  EXPECT_EQ(column(t, "L_CODE"), (std::vector<std::string>{"400012", "400012", "400012", "400012", "400012",
                                                           "400011", "400011", "400011", "400010"}));
  const std::string deg = cp1251("\u00B0");
  EXPECT_EQ(column(t, "GRAD"),
            (std::vector<std::string>{"37" + deg, "38" + deg, "39" + deg, "40" + deg, "41" + deg, "53" + deg,
                                      "54" + deg, "55" + deg, ""}));
  EXPECT_EQ(column(t, "MIN"),
            (std::vector<std::string>{"00'", "00'", "00'", "00'", "00'", "00'", "00'", "00'", ""}));
  for (int r = 0; r < 5; ++r) {
    EXPECT_EQ(t.at(r, "TEXT"), cp1251("Меридиан"));
    EXPECT_EQ(t.at(r, "INDICATION"), cp1251("в.д."));
    EXPECT_EQ(lines[r], column_line(g, g.grid.find_x(37.0 + r))) << r;
  }
  for (int r = 5; r < 8; ++r) {
    EXPECT_EQ(t.at(r, "TEXT"), cp1251("Параллель"));
    EXPECT_EQ(t.at(r, "INDICATION"), cp1251("с.ш."));
    EXPECT_EQ(lines[r], row_line(g, g.grid.find_y(53.0 + r - 5))) << r;
  }
  EXPECT_EQ(t.at(8, "TEXT"), cp1251("Рамка"));
  EXPECT_EQ(t.at(8, "INDICATION"), "");
  // each line has as many vertices as the lattice has rows or columns inside the box
  const size_t rows = static_cast<size_t>(g.iy_max - g.iy_min + 1);
  const size_t columns = static_cast<size_t>(g.ix_max - g.ix_min + 1);
  EXPECT_EQ(lines[0].size(), rows);
  EXPECT_EQ(lines[5].size(), columns);
}

TEST(GraticuleLines, TheRectangleRunsClockwiseWithItsFarCornersTwice) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsl_rectangle"), vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  const line rect = written_lines(g.hypsl_path).back();
  const size_t rows = static_cast<size_t>(g.iy_max - g.iy_min + 1);
  const size_t columns = static_cast<size_t>(g.ix_max - g.ix_min + 1);
  ASSERT_EQ(rect.size(), 2 * rows + 2 * columns);
  EXPECT_EQ(rect.front(), rect.back());
  const Tvx_vtx_d2 sw = g.grid.get_vtx(static_cast<int>(g.ix_min), static_cast<int>(g.iy_min));
  EXPECT_EQ(rect.front(), sw);
  EXPECT_EQ(rect[rows - 1], rect[rows]);                              // north-west
  EXPECT_EQ(rect[rows + columns - 1], rect[rows + columns]);          // north-east
  EXPECT_EQ(rect[2 * rows + columns - 1], rect[2 * rows + columns]);  // south-east
  EXPECT_GT(rect[rows].y, rect[0].y);                                 // up the west side first
  Tvx_pp2d* part = vx_pv_d2_create();
  g.add_box_ring(part);
  EXPECT_EQ(rect, vxk_test::points(part));
  vx_pv_d2_destroy(part);  // the area's ring, as a line
}

TEST(GraticuleLines, ADivisionBelowTwoGivesNoLinesInThatDirection) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsl_one_division"), vxk_test::GK7, 1, 1, 4, 6);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  const auto t = written_table(g.hypsl_path);
  EXPECT_EQ(column(t, "L_CODE"), (std::vector<std::string>{"400011", "400011", "400011", "400010"}));
  EXPECT_EQ(written_lines(g.hypsl_path).size(), 4u);
}

TEST(GraticuleLines, APolarSheetHasTheCircleAndItsTableOneRecordShort) {
  const auto s = vxk_test::sheet(17, 37);  // Q-37, 64 to 68 degrees north
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsl_polar"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  const auto lines = written_lines(g.hypsl_path);
  const auto t = written_table(g.hypsl_path);
  // 5 meridians, 3 parallels, the circle, the rectangle; the table was made for one line less, and the
  // rectangle's attributes fell past its end
  ASSERT_EQ(lines.size(), 10u);
  ASSERT_EQ(t.rows.size(), 9u);
  EXPECT_EQ(t.at(8, "ID"), "9");
  EXPECT_EQ(t.at(8, "L_CODE"), "400013");
  EXPECT_EQ(t.at(8, "TEXT"), cp1251("Северный полярный круг"));
  EXPECT_EQ(t.at(8, "GRAD"), cp1251("66°"));
  EXPECT_EQ(t.at(8, "MIN"), "33.64'");
  EXPECT_EQ(t.at(8, "INDICATION"), cp1251("с.ш."));
  EXPECT_EQ(lines[8], row_line(g, g.grid.find_y(POLAR)));
  EXPECT_EQ(lines[9].size(), lines[0].size() * 2 + lines[8].size() * 2);  // the rectangle
}

TEST(GraticuleLines, ASouthernSheetHasNoCircleAndSaysSouth) {
  const auto s = vxk_test::sheet(17, 37, 0, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsl_south"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  const auto t = written_table(g.hypsl_path);
  ASSERT_EQ(t.rows.size(), 9u);
  EXPECT_EQ(written_lines(g.hypsl_path).size(), 9u);
  for (int r = 5; r < 8; ++r) EXPECT_EQ(t.at(r, "INDICATION"), cp1251("ю.ш."));
  EXPECT_EQ(t.at(5, "GRAD"), cp1251("67°"));  // -67, a magnitude
  EXPECT_EQ(t.at(8, "L_CODE"), "400010");
}

custom_params box(const std::wstring& dir, double xmin, double xmax, double ymin, double ymax, double step) {
  custom_params c;
  c.set_output_dir(dir.c_str());
  c.set_scene_proj(vxk_test::GK7);
  c.set_box(xmin, xmax, ymin, ymax);
  c.set_grid_steps(step, step);
  return c;
}

TEST(GraticuleLines, ABoxEdgeOnTheCircleIsNoCircle) {
  custom_params c = box(vxk_test::output_dir("hypsl_polar_edge"), 36, 42, POLAR, 68, 1);
  box_probe g(c);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  for (const std::string& code : column(written_table(g.hypsl_path), "L_CODE")) EXPECT_NE(code, "400013");
}

TEST(GraticuleLines, ABoxSouthOfTheEquatorSaysNorthWithMinusDegrees) {
  custom_params c = box(vxk_test::output_dir("hypsl_box_south"), 36.5, 38.5, -6.5, -4.5, 1);
  box_probe g(c);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  const auto t = written_table(g.hypsl_path);
  // meridians 37, 38; parallels from -6 + 1 (cut towards zero skips -6): -5; the rectangle
  EXPECT_EQ(column(t, "L_CODE"), (std::vector<std::string>{"400012", "400012", "400011", "400010"}));
  EXPECT_EQ(t.at(2, "GRAD"), cp1251("-05°"));
  EXPECT_EQ(t.at(2, "INDICATION"), cp1251("с.ш."));
}

TEST(GraticuleLines, AMissingFolderFailsTheStepWithNothingWritten) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("hypsl_missing", {"FRAME"});
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.generate_hyps_l());
  EXPECT_TRUE(vxk_test::files_under(dir).empty());
}

TEST(GraticuleLines, TheFileHasItsProjectionFiles) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("hypsl_prj");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_hyps_l());
  EXPECT_EQ(vxk_test::files_under(dir), vxk_test::shape_set("HYPS", "Hypsl"));
}

TEST(GraticuleLines, PolarLineIsRefusedWithoutTheCircle) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("hypsl_no_polar"));
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.draw_hypsl_polar_line(nullptr, nullptr, 0));
}

}  // namespace
