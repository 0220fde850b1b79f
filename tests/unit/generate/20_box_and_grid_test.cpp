// The box of a sheet or a free box, the positions of each axis, and the lattice built from them.
#include "stdlist/generate/20_box_and_grid.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "generate_fixture.h"
#include "generate_probe.h"

namespace {

namespace axis = vx::stdlist::axis;
using vx::stdlist::custom_params;
using vx::stdlist::stdlist_params;
using vxk_test::box_probe;
using vxk_test::sheet_probe;

constexpr double TWO_THIRDS = 0.6666666666666666;

stdlist_params params(const vx::stdlist::stdlist_string& s, int mx = 6, int ax = 6, int my = 4, int ay = 6) {
  return vxk_test::sheet_params(s, L"out/", vxk_test::GK7, mx, ax, my, ay);
}

custom_params box(double xmin, double xmax, double ymin, double ymax, double dx, double dy) {
  custom_params p;
  p.set_output_dir(L"out/");
  p.set_scene_proj(vxk_test::GK7);
  p.set_box(xmin, xmax, ymin, ymax);
  p.set_grid_steps(dx, dy);
  return p;
}

struct box_of {
  double xmin, xmax, ymin, ymax;
};

box_of sheet_box(const vx::stdlist::stdlist_string& s) {
  auto p = params(s);
  sheet_probe g(p);
  g.init_box();
  return {g.xmin, g.xmax, g.ymin, g.ymax};
}

// ---- positions of one axis ----------------------------------------------------------------------------

TEST(Axis, CutsTowardsZeroLikeTheProcessor) {
  EXPECT_EQ(axis::cut32(-1.5), -1);
  EXPECT_EQ(axis::cut32(2147483647.9), INT32_MAX);
  EXPECT_EQ(axis::cut32(2147483648.0), INT32_MIN);
  EXPECT_EQ(axis::cut32(-2147483648.9), INT32_MIN);
  EXPECT_EQ(axis::cut32(std::nan("")), INT32_MIN);
  EXPECT_EQ(axis::cut_u64(2.5), 2u);
  EXPECT_EQ(axis::cut_u64(0.9), 0u);
  EXPECT_EQ(axis::cut_u64(-3.0), 0u);
  EXPECT_EQ(axis::cut_u64(1e30), UINT64_MAX);
}

TEST(Axis, SheetMainLinesAreTheInnerOnesOnly) {
  EXPECT_EQ(axis::sheet_main(36, 42, 6), (std::vector<double>{37, 38, 39, 40, 41}));
  EXPECT_TRUE(axis::sheet_main(36, 42, 1).empty());
  EXPECT_TRUE(axis::sheet_main(36, 42, 0).empty());
  EXPECT_EQ(axis::sheet_main_count(6), 5);
  EXPECT_EQ(axis::sheet_main_count(1), 0);
}

TEST(Axis, SheetMarksIncludeBothEdges) {
  EXPECT_EQ(axis::sheet_marks(52, 56, 1, 1), (std::vector<double>{52, 56}));
  const auto m = axis::sheet_marks(52, 56, 4, 6);
  ASSERT_EQ(m.size(), 25u);
  EXPECT_EQ(m.front(), 52.0);
  EXPECT_DOUBLE_EQ(m[1], 52.0 + 1.0 / 6);
  EXPECT_EQ(m.back(), 56.0);
  EXPECT_EQ(axis::sheet_marks_count(4, 6), 25);
  EXPECT_TRUE(axis::sheet_marks(52, 56, 0, 6).empty());  // the division by zero never happens
}

TEST(Axis, BoxMainLinesAreMultiplesAndLeaveTheFarEdgeOut) {
  EXPECT_EQ(axis::box_main(30, 36, 2), (std::vector<double>{32, 34}));
  EXPECT_EQ(axis::box_main(30.5, 36, 2), (std::vector<double>{32, 34}));
  EXPECT_EQ(axis::box_main(-7.5, 8, 5), (std::vector<double>{0, 5}));  // -5 is skipped: cut towards zero
  EXPECT_EQ(axis::box_main_count(-7.5, 8, 5), 2);
  EXPECT_EQ(axis::box_main_count(30, 36, 2), 2);
  EXPECT_EQ(axis::box_main_count(30, 37, 2), 3);
  EXPECT_EQ(axis::box_main_count(30, 31, 2), 0);
}

TEST(Axis, BoxMarksStartAtTheEdgeAtWholeSteps) {
  EXPECT_EQ(axis::box_marks(30.5, 36, 2.5), (std::vector<double>{30.5, 32.5, 34.5}));
  EXPECT_TRUE(axis::box_marks(30, 36, 0.5).empty());
  EXPECT_EQ(axis::box_marks_count(30.5, 36, 2.5), 3);
  EXPECT_EQ(axis::box_marks_count(30, 36, 0.5), 0);
  EXPECT_EQ(axis::box_marks(-7.5, 8, 5), (std::vector<double>{-7.5, -2.5, 2.5, 7.5}));
}

// ---- the box of a standard sheet ----------------------------------------------------------------------

TEST(SheetBox, N37) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = params(s);
  sheet_probe g(p);
  g.init_box();
  EXPECT_EQ(g.mid_meridian, 39.0);
  EXPECT_EQ(g.xmin, 36.0);
  EXPECT_EQ(g.xmax, 42.0);
  EXPECT_EQ(g.ymin, 52.0);
  EXPECT_EQ(g.ymax, 56.0);
}

TEST(SheetBox, ASouthernSheetOfLetterA) {
  const box_of b = sheet_box(vxk_test::sheet(1, 37, 0, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH));
  EXPECT_EQ(b.ymin, -4.0);
  EXPECT_EQ(b.ymax, 0.0);
}

TEST(SheetBox, DoubleAndQuadrupleMillionSheets) {
  const box_of d = sheet_box(vxk_test::sheet(14, 37, 0, VX_STDLIST_TP_DBL));
  EXPECT_EQ(d.xmin, 36.0);
  EXPECT_EQ(d.xmax, 48.0);  // 12 degrees around the middle meridian 42
  const box_of q = sheet_box(vxk_test::sheet(14, 37, 0, VX_STDLIST_TP_QRP));
  EXPECT_EQ(q.xmin, 36.0);
  EXPECT_EQ(q.xmax, 60.0);
}

TEST(SheetBox, RomanOneLiesNorthWestAndThirtySixSouthEastInTheNorth) {
  const box_of i = sheet_box(vxk_test::sheet(14, 37, 1));
  EXPECT_EQ(i.xmin, 36.0);
  EXPECT_EQ(i.xmax, 37.0);
  EXPECT_EQ(i.ymin, 56.0 - TWO_THIRDS);
  EXPECT_EQ(i.ymax, i.ymin + TWO_THIRDS);
  const box_of xxxvi = sheet_box(vxk_test::sheet(14, 37, 36));
  EXPECT_EQ(xxxvi.xmin, 41.0);
  EXPECT_NEAR(xxxvi.ymin, 52.0, 1e-12);
}

TEST(SheetBox, InTheSouthRomanOneLiesSouthWest) {
  const box_of i = sheet_box(vxk_test::sheet(14, 37, 1, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH));
  EXPECT_EQ(i.xmin, 36.0);
  EXPECT_EQ(i.ymin, -56.0);
  const box_of vii = sheet_box(vxk_test::sheet(14, 37, 7, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH));
  EXPECT_NEAR(vii.ymin, -56.0 + TWO_THIRDS, 1e-12);
}

TEST(SheetBox, ColumnAndRowOfTheRomanIndex) {
  // k = 6: column 6, row 0; k = 7: column 1, row 1; k = 36: column 6, row 5.
  const box_of vi = sheet_box(vxk_test::sheet(14, 37, 6));
  EXPECT_EQ(vi.xmin, 41.0);
  EXPECT_NEAR(vi.ymax, 56.0, 1e-12);
  const box_of vii = sheet_box(vxk_test::sheet(14, 37, 7));
  EXPECT_EQ(vii.xmin, 36.0);
  EXPECT_NEAR(vii.ymax, 56.0 - TWO_THIRDS, 1e-12);
  const box_of xxxvi = sheet_box(vxk_test::sheet(14, 37, 36));
  EXPECT_EQ(xxxvi.xmax, 42.0);
  EXPECT_NEAR(xxxvi.ymax, 52.0 + TWO_THIRDS, 1e-12);
}

TEST(SheetBox, TheTypeHasNoPartInXminAt200) {
  const box_of triple = sheet_box(vxk_test::sheet(14, 37, 6, VX_STDLIST_TP_TPL));
  EXPECT_EQ(triple.xmin, 41.0);
  EXPECT_EQ(triple.xmax, 44.0);
}

TEST(SheetBox, AScaleWithoutAGeometryGivesTheBoxZero) {
  auto s = vxk_test::sheet(14, 37);
  s.set_scale(VX_STDLIST_SC_500);
  auto p = params(s);
  sheet_probe g(p);
  g.init_box();
  EXPECT_EQ(g.xmin, 0.0);
  EXPECT_EQ(g.xmax, 0.0);
  EXPECT_EQ(g.ymin, 0.0);
  EXPECT_EQ(g.ymax, 0.0);
}

// ---- the grid ----------------------------------------------------------------------------------------

TEST(SheetGrid, OneAndOneGiveNoInnerLinesAndTheEdgesAsMarks) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = params(s, 1, 1, 1, 1);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_TRUE(g.main_x.empty());
  EXPECT_EQ(g.main_x_count, 0);
  EXPECT_EQ(g.all_x, (std::vector<double>{36, 42}));
  // the 25 pivot positions and the two outer columns
  EXPECT_EQ(g.grid.xs().size(), 27u);
  EXPECT_EQ(g.grid.ys().size(), 27u);
}

TEST(SheetGrid, N37WithDegreeLinesAndTenMinuteMarks) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = params(s);
  sheet_probe g(p);
  EXPECT_TRUE(g.init_grid());
  EXPECT_EQ(g.main_x, (std::vector<double>{37, 38, 39, 40, 41}));
  EXPECT_EQ(g.main_y, (std::vector<double>{53, 54, 55}));
  EXPECT_EQ(g.all_y, (std::vector<double>{52, 53, 54, 55, 56}));
  EXPECT_EQ(g.main_y_count, 3);
  EXPECT_FALSE(g.polar_circle);
  // x: 25 pivots every 15', 37 marks every 10', the edges and degrees shared, two outer columns
  const auto& xs = g.grid.xs();
  EXPECT_EQ(xs.front(), 35.0);
  EXPECT_EQ(xs.back(), 43.0);
  EXPECT_TRUE(std::is_sorted(xs.begin(), xs.end()));
  EXPECT_EQ(g.ix_min, 1);
  EXPECT_EQ(g.ix_max, static_cast<int64_t>(xs.size()) - 2);
  EXPECT_EQ(g.iy_min, 1);
  EXPECT_EQ(g.grid.find_x(39.0) >= 0, true);
  for (double x : g.main_x) EXPECT_GE(g.grid.find_x(x), 0) << x;
}

TEST(SheetGrid, TheOuterColumnsOfNumbers1And60GoToTheProjectionUnwrapped) {
  const auto n60 = vxk_test::sheet(14, 60);
  auto p60 = params(n60);
  sheet_probe g60(p60);
  g60.init_grid();
  EXPECT_EQ(g60.grid.xs().back(), 181.0);
  const auto n1 = vxk_test::sheet(14, 1);
  auto p1 = params(n1);
  sheet_probe g1(p1);
  g1.init_grid();
  EXPECT_EQ(g1.grid.xs().front(), -181.0);
}

TEST(SheetGrid, TheBandOfThePolarCircleHasItsRowInTheNorthOnly) {
  const auto north = vxk_test::sheet(17, 37);
  auto pn = params(north);
  sheet_probe gn(pn);
  gn.init_grid();
  EXPECT_TRUE(gn.polar_circle);
  EXPECT_GE(gn.grid.find_y(66.56072222222222), 0);

  const auto south = vxk_test::sheet(17, 37, 0, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH);
  auto ps = params(south);
  sheet_probe gs(ps);
  gs.init_grid();
  EXPECT_FALSE(gs.polar_circle);
  EXPECT_EQ(gs.grid.ys().size() + 1, gn.grid.ys().size());
  EXPECT_LT(gs.grid.find_y(-66.56072222222222), 0);
}

TEST(SheetGrid, An200SheetGetsItsNeighboursAndTheirWidths) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = params(s, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_EQ(g.left_name, L"N-37-V");
  EXPECT_EQ(g.right_name, L"N-38-I");
  EXPECT_EQ(g.top_name, L"O-37-XXXVI");
  EXPECT_EQ(g.bottom_name, L"N-37-XII");
  EXPECT_EQ(g.left_name_width, 6 * 260.0);
  EXPECT_EQ(g.top_name_width, 10 * 260.0);
  // 61 marks a minute apart, the 4 pivots between them, two outer columns; the main lines fall on
  // marks, or a last bit beside them, which keeps them apart
  EXPECT_GE(g.grid.xs().size(), 67u);
  EXPECT_LE(g.grid.xs().size(), 69u);
}

TEST(SheetGrid, AMillionSheetHasNoNeighbours) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = params(s);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_EQ(g.left_name, L"");
  EXPECT_EQ(g.bottom_name_width, 0.0);
}

TEST(BoxGrid, TheBoxComesFromTheParameters) {
  custom_params c = box(30.25, 36.75, 50.5, 54, 1, 0.5);
  box_probe g(c);
  g.init_grid();
  EXPECT_EQ(g.xmin, 30.25);
  EXPECT_EQ(g.ymax, 54.0);
  EXPECT_EQ(g.main_x, (std::vector<double>{31, 32, 33, 34, 35, 36}));
  EXPECT_EQ(g.main_y.front(), 51.0);
  EXPECT_EQ(g.main_y.size(), 6u);  // 51 to 53.5
  EXPECT_EQ(g.get_list_ymin(), 50.5);
  EXPECT_EQ(g.grid.xs().front(), 29.25);
}

TEST(BoxGrid, ABoxCrossingThePolarCircleHasItsRow) {
  custom_params c = box(30, 36, 64, 68, 1, 1);
  box_probe g(c);
  g.init_grid();
  EXPECT_TRUE(g.polar_circle);
  custom_params edge = box(30, 36, 66.56072222222222, 68, 1, 1);
  box_probe ge(edge);
  ge.init_grid();
  EXPECT_FALSE(ge.polar_circle);  // an edge on the circle does not count
}

}  // namespace
