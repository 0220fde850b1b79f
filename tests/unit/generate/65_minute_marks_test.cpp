// The minute marks in "Frame.shp": ticks across the band at every mark, bars over every second interval,
// the 1:200,000 band further out with the ticks carrying the edges and main lines across, and a free
// box's marks at whole steps. Positions are checked on the lattice; GDAL counts and measures the same
// marks in the generation checks.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"

namespace {

namespace traits = vx::stdlist::traits;
using vxk_test::line;
using vxk_test::sheet_probe;
using vxk_test::written_lines;
using vxk_test::written_table;

// A frame table with no records beside a new shape file of the type.
void* frame_files(const std::wstring& path, int type, Tvx_shp_basic*& shp) {
  Tvx_dbf_field fields[2];
  vx_dbf_field_init(&fields[0], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[1], "L_CODE", VX_DBF_NUMERIC, 8, 0);
  shp = vx_shp_file_create_w(path.c_str(), type);
  return vx_dbf_create_w(traits::dbf_path(path).c_str(), 2, 0, fields, 0);
}

// Lines drawn by one call into a frame file of their own.
template <typename Draw>
std::vector<line> drawn(const std::wstring& path, Draw draw) {
  Tvx_shp_basic* shp = nullptr;
  void* table = frame_files(path, VX_SHP_POLYLINE, shp);
  EXPECT_TRUE(shp && table);
  EXPECT_TRUE(draw(shp, table));
  vx_dbf_close(table);
  vx_shp_file_close(shp);
  const auto t = written_table(path);
  const auto lines = written_lines(path);
  EXPECT_EQ(t.rows.size(), lines.size());
  for (size_t r = 0; r < t.rows.size(); ++r) {
    EXPECT_EQ(t.at(r, "ID"), std::to_string(r + 1));
    EXPECT_EQ(t.at(r, "L_CODE"), "400901");
  }
  return lines;
}

size_t frame_records(const std::wstring& path) {
  return written_lines(path).size();
}

TEST(MinuteMarks, AMillionSheetTicksEveryMarkAndBarsEverySecondInterval) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("marks_n37"));
  sheet_probe g(p);
  g.init_grid();
  const double f = 1000.0;
  std::vector<double> mx, my;
  g.get_marks_x(mx);
  g.get_marks_y(my);
  ASSERT_EQ(mx.size(), 37u);  // 6 * 6 intervals, both edges included
  ASSERT_EQ(my.size(), 25u);
  EXPECT_EQ(mx.front(), g.xmin);
  EXPECT_EQ(my.back(), g.ymax);
  const auto lines = drawn(
      g.frame_path, [&](Tvx_shp_basic* shp, void* dbf) { return g.generate_min_scale_marks(shp, dbf); });
  ASSERT_EQ(lines.size(), 2u * 37u + 2u * 25u + 2u * 18u + 2u * 12u);
  const int x0 = static_cast<int>(g.ix_min), x1 = static_cast<int>(g.ix_max);
  const int y0 = static_cast<int>(g.iy_min), y1 = static_cast<int>(g.iy_max);
  size_t k = 0;
  for (double x : mx) {  // below, then above
    const int ix = g.grid.find_x(x);
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_y(ix, y0, -0.0), g.grid.calc_vtx_y(ix, y0, -f)}));
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_y(ix, y1, 0.0), g.grid.calc_vtx_y(ix, y1, f)}));
  }
  for (double y : my) {  // left, then right
    const int iy = g.grid.find_y(y);
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_x(x0, iy, -0.0), g.grid.calc_vtx_x(x0, iy, -f)}));
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_x(x1, iy, 0.0), g.grid.calc_vtx_x(x1, iy, f)}));
  }
  for (size_t b = 0; b < 18; ++b) {  // bars from mark 2b to 2b + 1 on the band's middle: from each corner
    const int a = g.grid.find_x(mx[2 * b]), c = g.grid.find_x(mx[2 * b + 1]);
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_y(a, y0, -0.5 * f), g.grid.calc_vtx_y(c, y0, -0.5 * f)}));
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_y(a, y1, 0.5 * f), g.grid.calc_vtx_y(c, y1, 0.5 * f)}));
  }
  EXPECT_EQ(lines[2 * 37 + 2 * 25][0], g.grid.calc_vtx_y(x0, y0, -0.5 * f));  // a bar begins at the corner
  for (size_t b = 0; b < 12; ++b) {
    const int a = g.grid.find_y(my[2 * b]), c = g.grid.find_y(my[2 * b + 1]);
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_x(x0, a, -0.5 * f), g.grid.calc_vtx_x(x0, c, -0.5 * f)}));
    EXPECT_EQ(lines[k++], (line{g.grid.calc_vtx_x(x1, a, 0.5 * f), g.grid.calc_vtx_x(x1, c, 0.5 * f)}));
  }
  // a tick is a millimetre of the map long
  EXPECT_NEAR(std::hypot(lines[0][1].x - lines[0][0].x, lines[0][1].y - lines[0][0].y), f, 1e-6);
}

TEST(MinuteMarks, A200kSheetHasItsBandBetweenTheSecondAndThirdFrameAndTicksFromTheEdge) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("marks_n37vi"), vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  const double m = 1400.0, w = (8.2 - 7.0) * 200.0;
  EXPECT_EQ(w, 1.1999999999999993 * 200.0);
  const auto lines = drawn(
      g.frame_path, [&](Tvx_shp_basic* shp, void* dbf) { return g.generate_min_scale_marks_200(shp, dbf); });
  // 61 and 41 marks, 30 and 20 bars, and the edges and main lines: 4 meridians and 3 parallels
  ASSERT_EQ(lines.size(), 2u * 61u + 2u * 41u + 2u * 30u + 2u * 20u + 2u * 4u + 2u * 3u);
  const int y0 = static_cast<int>(g.iy_min), x1 = static_cast<int>(g.ix_max);
  const int ix = g.grid.find_x(g.xmin);
  EXPECT_EQ(lines[0], (line{g.grid.calc_vtx_y(ix, y0, -m), g.grid.calc_vtx_y(ix, y0, -(m + w))}));
  const size_t bars = 2 * 61 + 2 * 41;
  EXPECT_EQ(lines[bars][0], g.grid.calc_vtx_y(ix, y0, -(m + 0.5 * w)));
  const size_t special = bars + 2 * 30 + 2 * 20;
  ASSERT_EQ(g.all_x.size(), 4u);
  for (size_t k = 0; k < 4; ++k) {
    const int i = g.grid.find_x(g.all_x[k]);
    EXPECT_EQ(lines[special + 2 * k], (line{g.grid.get_vtx(i, y0), g.grid.calc_vtx_y(i, y0, -m)}));
  }
  const int iy = g.grid.find_y(g.all_y[2]);
  EXPECT_EQ(lines.back(), (line{g.grid.get_vtx(x1, iy), g.grid.calc_vtx_x(x1, iy, m)}));
}

TEST(MinuteMarks, TwoMarksMakeOneBarOnEachSideAndOneMarkNone) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("marks_bars"));
  sheet_probe g(p);
  g.init_grid();
  const auto two = drawn(g.frame_path, [&](Tvx_shp_basic* shp, void* dbf) {
    return g.long_dashes(shp, dbf, {g.xmin, g.xmax}, 500.0, true);
  });
  EXPECT_EQ(two.size(), 2u);
  const auto one = drawn(g.frame_path, [&](Tvx_shp_basic* shp, void* dbf) {
    return g.long_dashes(shp, dbf, {g.xmin}, 500.0, true);
  });
  EXPECT_TRUE(one.empty());
  // an even count of marks: the last interval is a bar
  const auto four = drawn(g.frame_path, [&](Tvx_shp_basic* shp, void* dbf) {
    return g.long_dashes(shp, dbf, {52.0, 53.0, 54.0, 56.0}, 500.0, false);
  });
  ASSERT_EQ(four.size(), 4u);
  EXPECT_EQ(four[3][1], g.grid.calc_vtx_x(static_cast<int>(g.ix_max), g.grid.find_y(56.0), 500.0));
}

// A point file refuses polylines: the first mark ends the marks with false, and leaves no record.
TEST(MinuteMarks, AMarkThatCannotBeAddedEndsTheMarksWithFalse) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("marks_refused"));
  sheet_probe g(p);
  g.init_grid();
  Tvx_shp_basic* shp = nullptr;
  void* table = frame_files(g.frame_path, VX_SHP_POINT, shp);
  ASSERT_TRUE(shp && table);
  EXPECT_FALSE(g.short_dashes(shp, table, {g.xmin}, 0.0, 1.0, true));
  EXPECT_FALSE(g.long_dashes(shp, table, {g.xmin, g.xmax}, 1.0, true));
  EXPECT_FALSE(g.special_200_dashes(shp, table, {g.ymin}, 1.0, false));
  EXPECT_FALSE(g.generate_min_scale_marks(shp, table));
  EXPECT_EQ(vx_dbf_get_nr(table), 0);
  vx_dbf_close(table);
  vx_shp_file_close(shp);
}

vx::stdlist::custom_params box(const std::wstring& dir, double step) {
  vx::stdlist::custom_params cp;
  cp.set_output_dir(dir.c_str());
  cp.set_scene_proj(vxk_test::GK7);
  cp.set_box(36.0, 42.0, 52.0, 56.0);
  cp.set_grid_steps(step, step);
  return cp;
}

// A box is marked as a 1:1,000,000 sheet, at whole steps from its edge.
TEST(MinuteMarks, AFreeBoxWithAFractionalStepHasMarksAtWholeSteps) {
  auto cp = box(vxk_test::output_dir("marks_box"), 1.5);
  vxk_test::box_probe g(cp);
  g.init_grid();
  EXPECT_EQ(g.main_x, (std::vector<double>{37.5, 39.0, 40.5}));
  std::vector<double> mx, my;
  g.get_marks_x(mx);
  g.get_marks_y(my);
  EXPECT_EQ(mx, (std::vector<double>{36, 37, 38, 39, 40, 41, 42}));
  EXPECT_EQ(my, (std::vector<double>{52, 53, 54, 55, 56}));
  ASSERT_TRUE(g.generate_frame());
  EXPECT_EQ(frame_records(g.frame_path), 5u + 2u * 7u + 2u * 5u + 2u * 3u + 2u * 2u);
}

TEST(MinuteMarks, AFreeBoxWithAStepBelowOneHasLinesAndNoMarks) {
  auto cp = box(vxk_test::output_dir("marks_box_small"), 0.5);
  vxk_test::box_probe g(cp);
  g.init_grid();
  EXPECT_FALSE(g.main_x.empty());
  ASSERT_TRUE(g.generate_frame());
  EXPECT_EQ(frame_records(g.frame_path), 5u);
}

}  // namespace
