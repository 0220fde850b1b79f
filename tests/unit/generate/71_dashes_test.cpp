// The dashes of the coordinate labels, measured on the written lines at every edge of a sheet against
// the lattice: how far each stands off the frame along its row or column, how far it is shifted from the
// line of its parallel or meridian, and how long it is; with its label record. GDAL measures the same
// against the scene projection in the generation checks.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"
#include "stdlist/generate/11_step_files.h"

namespace {

namespace traits = vx::stdlist::traits;
using vx::stdlist::custom_params;
using vxk_test::cp1251;
using vxk_test::line;
using vxk_test::sheet_probe;
using vxk_test::written_lines;
using vxk_test::written_table;

// The sizes of a scale, in metres.
struct sizes {
  double left, right, upper, lower, shift_top, shift_btm, merid_west, merid_east, merid_dy, corner_dy;
  explicit sizes(Tvx_stdlist_scale s)
      : left(traits::dx_left_paral_dash(s, false)),
        right(traits::dx_right_paral_dash(s, false)),
        upper(traits::dx_upper_paral_dash(s, false)),
        lower(traits::dx_lower_paral_dash(s, false)),
        shift_top(traits::paral_dash_shift_top(s, false)),
        shift_btm(traits::paral_dash_shift_btm(s, false)),
        merid_west(traits::merid_dash_left_length(s, false)),
        merid_east(traits::merid_dash_right_length(s, false)),
        merid_dy(traits::merid_dash_dy(s, false)),
        corner_dy(traits::merid_corner_dash_dy(s, false)) {}
};

// A file of labels beside the generator's other files, written by `draw`, then read back.
template <typename Draw>
std::pair<std::vector<line>, vxk_test::table> labels(const std::wstring& path, Draw draw,
                                                     int type = VX_SHP_POLYLINE) {
  Tvx_dbf_field fields[vx::stdlist::LABEL_COLUMNS];
  vx::stdlist::init_label_fields(fields);
  Tvx_shp_basic* shp = vx_shp_file_create_w(path.c_str(), type);
  void* table = vx_dbf_create_w(traits::dbf_path(path).c_str(), vx::stdlist::LABEL_COLUMNS, 0, fields, 0);
  EXPECT_TRUE(shp && table);
  draw(shp, table);
  vx_dbf_close(table);
  vx_shp_file_close(shp);
  return {written_lines(path), written_table(path)};
}

// Where a point stands against the chord from v towards w: how far along it, and how far off its line.
struct place {
  double along, off;
};

place against(Tvx_vtx_d2 v, Tvx_vtx_d2 w, Tvx_vtx_d2 p) {
  const double dx = w.x - v.x, dy = w.y - v.y, len = std::hypot(dx, dy);
  return {(dx * (p.x - v.x) + dy * (p.y - v.y)) / len, std::fabs(dx * (p.y - v.y) - dy * (p.x - v.x)) / len};
}

// North of the straight line through v and w.
bool north_of(Tvx_vtx_d2 v, Tvx_vtx_d2 w, Tvx_vtx_d2 p) {
  return p.y > v.y + (p.x - v.x) * (w.y - v.y) / (w.x - v.x);
}

constexpr double EPS = 1e-6;  // metres

// A parallel's dash at the lattice vertex (ix, iy), whose row leads outwards to the column `outer`: it
// starts `offset` out along the row, `shift` north or south of the row's chord, runs eastwards parallel
// to it over `extent` in x.
void expect_paral_dash(const sheet_probe& g, const line& dash, int ix, int outer, int iy, double offset,
                       double shift, bool north, double extent) {
  ASSERT_EQ(dash.size(), 2u);
  const Tvx_vtx_d2 v = g.grid.get_vtx(ix, iy), w = g.grid.get_vtx(outer, iy);
  const place start = against(v, w, dash[0]), end = against(v, w, dash[1]);
  EXPECT_NEAR(start.along, offset, EPS);
  EXPECT_NEAR(start.off, shift, EPS);
  EXPECT_NEAR(end.off, shift, EPS);  // parallel to the row's chord
  EXPECT_EQ(north_of(v, w, dash[0]), north);
  EXPECT_NEAR(dash[1].x - dash[0].x, extent, 1e-9);
}

// A meridian's dash across the column ix at the row iy, whose column leads outwards to the row `outer`:
// it crosses the column `offset` out, perpendicular to it, from the first end at `first` on one side to
// the second at `second` on the other; west_first says which side the first end lies on.
void expect_merid_dash(const sheet_probe& g, const line& dash, int ix, int iy, int outer, double offset,
                       double first, double second, bool west_first) {
  ASSERT_EQ(dash.size(), 2u);
  const Tvx_vtx_d2 v = g.grid.get_vtx(ix, iy), w = g.grid.get_vtx(ix, outer);
  const place a = against(v, w, dash[0]), b = against(v, w, dash[1]);
  EXPECT_NEAR(a.along, offset, EPS);
  EXPECT_NEAR(b.along, offset, EPS);
  EXPECT_NEAR(a.off, first, EPS);
  EXPECT_NEAR(b.off, second, EPS);
  EXPECT_NEAR(std::hypot(dash[1].x - dash[0].x, dash[1].y - dash[0].y), first + second, EPS);
  EXPECT_EQ(dash[0].x < dash[1].x, west_first);
}

std::vector<std::string> texts(const vxk_test::table& t) {
  std::vector<std::string> out;
  for (size_t r = 0; r < t.rows.size(); ++r) out.push_back(t.at(r, "TEXT"));
  return out;
}

std::string deg(int d) {
  char text[16];
  std::snprintf(text, sizeof text, "%02d", d);
  return text + cp1251("°");  // the blank after the sign is trimmed by the reader
}

void check_parallels(Tvx_stdlist_scale scale, const vx::stdlist::stdlist_string& s, int lat_main,
                     const std::vector<std::string>& expected_texts, const char* name) {
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir(name), vxk_test::GK7,
                                  scale == VX_STDLIST_SC_MLN ? 6 : 3, scale == VX_STDLIST_SC_MLN ? 6 : 20,
                                  lat_main, scale == VX_STDLIST_SC_MLN ? 6 : 20);
  sheet_probe g(p);
  g.init_grid();
  const auto [lines, t] = labels(g.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) {
    EXPECT_TRUE(g.draw_two_paral_dashes(shp, dbf));
  });
  const sizes z(scale);
  const int x0 = static_cast<int>(g.ix_min), x1 = static_cast<int>(g.ix_max);
  const size_t inner = g.main_y.size();
  ASSERT_EQ(lines.size(), 4 * inner + 8);
  ASSERT_EQ(t.rows.size(), lines.size());
  EXPECT_EQ(texts(t), expected_texts);
  // each inner parallel: left degrees, left minutes, right minutes, right degrees; then the corners: left
  // bottom and left top (degrees, minutes), right bottom and right top (minutes, degrees)
  std::vector<int> rows;
  for (double y : g.main_y) rows.push_back(g.grid.find_y(y));
  const int y0 = static_cast<int>(g.iy_min), y1 = static_cast<int>(g.iy_max);
  size_t k = 0;
  const auto left = [&](int iy, bool degrees_first) {
    expect_paral_dash(g, lines[k++], x0, x0 - 1, iy, z.left, degrees_first ? z.shift_btm : z.shift_top,
                      degrees_first, degrees_first ? z.upper : z.lower);
    expect_paral_dash(g, lines[k++], x0, x0 - 1, iy, z.left, degrees_first ? z.shift_top : z.shift_btm,
                      !degrees_first, degrees_first ? z.lower : z.upper);
  };
  const auto right = [&](int iy) {
    expect_paral_dash(g, lines[k++], x1, x1 + 1, iy, z.right, z.shift_btm, false, z.lower);
    expect_paral_dash(g, lines[k++], x1, x1 + 1, iy, z.right, z.shift_top, true, z.upper);
  };
  for (int iy : rows) left(iy, true), right(iy);
  left(y0, true), left(y1, true), right(y0), right(y1);
  for (size_t r = 0; r < t.rows.size(); ++r) {
    EXPECT_EQ(t.at(r, "ID"), std::to_string(r + 1));
    EXPECT_EQ(t.at(r, "L_CODE"), "400912");
    EXPECT_EQ(t.at(r, "FONT"), "Times New Roman");
    EXPECT_EQ(t.at(r, "SIZE"), "8.00");
  }
}

TEST(Dashes, ParallelsOfN37AtBothSidesAndTheCorners) {
  const auto s = vxk_test::sheet(14, 37);
  check_parallels(VX_STDLIST_SC_MLN, s, 4,
                  {deg(53), "00'",   "00'",   deg(53), deg(54), "00'", "00'", deg(54), deg(55), "00'",
                   "00'",   deg(55), deg(52), "00'",   deg(56), "00'", "00'", deg(52), "00'",   deg(56)},
                  "dashes_paral_n37");
}

TEST(Dashes, ParallelsOfN37VIAtBothSidesAndTheCorners) {
  const auto s = vxk_test::sheet(14, 37, 6);  // 55 deg 20' to 56 deg, parallel at 55 deg 40'
  check_parallels(
      VX_STDLIST_SC_200, s, 2,
      {deg(55), "40'", "40'", deg(55), deg(55), "20'", deg(56), "00'", "20'", deg(55), "00'", deg(56)},
      "dashes_paral_n37vi");
}

TEST(Dashes, WithoutInnerParallelsOnlyTheCornersAreDrawn) {
  const auto s = vxk_test::sheet(14, 37);
  check_parallels(VX_STDLIST_SC_MLN, s, 1, {deg(52), "00'", deg(56), "00'", "00'", deg(52), "00'", deg(56)},
                  "dashes_paral_none");
}

void check_meridians(const vx::stdlist::stdlist_string& s, Tvx_stdlist_scale scale, int lon_main,
                     const std::vector<std::string>& expected_texts, const char* name) {
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir(name), vxk_test::GK7, lon_main, 2, 2, 2);
  sheet_probe g(p);
  g.init_grid();
  const auto [lines, t] = labels(
      g.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) { EXPECT_TRUE(g.draw_merid_dash(shp, dbf)); });
  const sizes z(scale);
  const int x0 = static_cast<int>(g.ix_min), x1 = static_cast<int>(g.ix_max);
  const int y0 = static_cast<int>(g.iy_min), y1 = static_cast<int>(g.iy_max);
  ASSERT_EQ(lines.size(), 4 + 2 * g.main_x.size());
  EXPECT_EQ(texts(t), expected_texts);
  // corners right top, left top, left bottom, right bottom: their first end at merid_dash_left_length on
  // the left of the outward direction (west at the top, east at the bottom)
  expect_merid_dash(g, lines[0], x1, y1, y1 + 1, z.corner_dy, z.merid_west, z.merid_east, true);
  expect_merid_dash(g, lines[1], x0, y1, y1 + 1, z.corner_dy, z.merid_west, z.merid_east, true);
  expect_merid_dash(g, lines[2], x0, y0, y0 - 1, z.corner_dy, z.merid_west, z.merid_east, false);
  expect_merid_dash(g, lines[3], x1, y0, y0 - 1, z.corner_dy, z.merid_west, z.merid_east, false);
  // inner meridians, bottom then top: west length to the west, drawn east to west at the bottom
  size_t k = 4;
  for (double x : g.main_x) {
    const int ix = g.grid.find_x(x);
    expect_merid_dash(g, lines[k++], ix, y0, y0 - 1, z.merid_dy, z.merid_east, z.merid_west, false);
    expect_merid_dash(g, lines[k++], ix, y1, y1 + 1, z.merid_dy, z.merid_west, z.merid_east, true);
  }
}

TEST(Dashes, MeridiansOfN37AtTheBottomTheTopAndTheCorners) {
  const auto s = vxk_test::sheet(14, 37);
  const std::string m = "00'";
  check_meridians(s, VX_STDLIST_SC_MLN, 3,
                  {deg(42) + " " + m, deg(36) + " " + m, deg(36) + " " + m, deg(42) + " " + m,
                   deg(38) + " " + m, deg(38) + " " + m, deg(40) + " " + m, deg(40) + " " + m},
                  "dashes_merid_n37");
}

TEST(Dashes, MeridiansOfN37VI) {
  const auto s = vxk_test::sheet(14, 37, 6);  // 41 to 42 degrees, meridians at 41 deg 20' and 40'
  check_meridians(s, VX_STDLIST_SC_200, 3,
                  {deg(42) + " 00'", deg(41) + " 00'", deg(41) + " 00'", deg(42) + " 00'", deg(41) + " 20'",
                   deg(41) + " 20'", deg(41) + " 40'", deg(41) + " 40'"},
                  "dashes_merid_n37vi");
}

TEST(Dashes, WithoutInnerMeridiansOnlyTheFourCornerLabels) {
  const auto s = vxk_test::sheet(14, 37);
  check_meridians(s, VX_STDLIST_SC_MLN, 1,
                  {deg(42) + " 00'", deg(36) + " 00'", deg(36) + " 00'", deg(42) + " 00'"},
                  "dashes_merid_none");
}

// A corner's latitude is the sheet's as get_list_ymin works it out from the designation (and
// get_list_ymax adds the height to the box's south edge); its longitude is the box's own.
TEST(Dashes, CornerLabelsTakeTheLatitudeFromTheDesignationAndTheLongitudeFromTheBox) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("dashes_corner_values"), vxk_test::GK7, 1, 1, 1, 1);
  sheet_probe g(p);
  g.init_grid();
  g.ymin = 10.0;
  g.xmin = 30.0;
  const auto [lines, t] = labels(g.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) {
    g.draw_two_paral_dashes(shp, dbf);
    g.draw_merid_dash(shp, dbf);
  });
  ASSERT_EQ(t.rows.size(), 12u);
  EXPECT_EQ(t.at(0, "TEXT"), deg(52));           // left bottom: from the designation, not the box's 10
  EXPECT_EQ(t.at(2, "TEXT"), deg(14));           // left top: 10 + 4
  EXPECT_EQ(t.at(9, "TEXT"), deg(30) + " 00'");  // left top meridian: the box's west edge
}

TEST(Dashes, ASouthernSheetShowsMagnitudesAndABoxItsSign) {
  const auto s = vxk_test::sheet(1, 37, 0, VX_STDLIST_TP_SGL, VX_STDLIST_SOUTH);  // -4 to 0
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("dashes_south"), vxk_test::GK7, 6, 6, 2, 6);
  sheet_probe g(p);
  g.init_grid();
  const auto [lines, t] =
      labels(g.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) { g.draw_two_paral_dashes(shp, dbf); });
  ASSERT_EQ(t.rows.size(), 12u);
  EXPECT_EQ(t.at(0, "TEXT"), deg(2));
  EXPECT_EQ(t.at(4, "TEXT"), deg(4));  // the south-west corner, -4

  custom_params c;
  c.set_output_dir(vxk_test::output_dir("dashes_box").c_str());
  c.set_scene_proj(vxk_test::GK7);
  c.set_box(36.5, 41.5, -6.5, -4.5);
  c.set_grid_steps(1, 1);
  vxk_test::box_probe b(c);
  b.init_grid();
  const auto [box_lines, box_table] =
      labels(b.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) { b.draw_two_paral_dashes(shp, dbf); });
  ASSERT_EQ(box_table.rows.size(), 12u);
  EXPECT_EQ(box_table.at(0, "TEXT"), "-05" + cp1251("°"));
  EXPECT_EQ(box_table.at(4, "TEXT"), "-06" + cp1251("°"));  // -6.5, its corner
  EXPECT_EQ(box_table.at(5, "TEXT"), "30'");
}

TEST(Dashes, AParallelDashThatCannotBeAddedEndsTheParallelsWithoutItsLabel) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("dashes_refused"));
  sheet_probe g(p);
  g.init_grid();
  bool drawn = true;
  const auto [lines, t] = labels(
      g.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) { drawn = g.draw_two_paral_dashes(shp, dbf); },
      VX_SHP_POINT);  // a point file refuses polylines
  EXPECT_FALSE(drawn);
  EXPECT_TRUE(t.rows.empty());
}

// A meridian's corner label is written before its dash, so a refused dash leaves its label.
TEST(Dashes, RefusedMeridianCornerDashesLeaveTheirLabels) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("dashes_merid_refused"));
  sheet_probe g(p);
  g.init_grid();
  bool drawn = true;
  const auto [lines, t] = labels(
      g.framedig_path, [&](Tvx_shp_basic* shp, void* dbf) { drawn = g.draw_merid_dash(shp, dbf); },
      VX_SHP_POINT);
  EXPECT_FALSE(drawn);
  EXPECT_EQ(t.rows.size(), 4u);
  EXPECT_EQ(vxk_test::written_lines(g.framedig_path).size(), 0u);
}

// The pair of dashes by itself: p1-p2 starts on the right of a to b, p3-p4 on its left, both eastwards.
TEST(Dashes, TwoParallelDashesBesideAChord) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  const sizes z(VX_STDLIST_SC_MLN);
  Tvx_vtx_d2 p1{}, p2{}, p3{}, p4{};
  // a chord running west, rising one in ten
  ASSERT_TRUE(g.get_two_paral_dashes({0, 0}, {-10, -1}, p1, p2, p3, p4, 100.0, 50.0, true));
  const double n = std::hypot(10.0, 1.0);
  EXPECT_NEAR(p1.x, -10 - 1 / n * z.shift_btm, 1e-9);  // right of going west: north
  EXPECT_NEAR(p1.y, -1 + 10 / n * z.shift_btm, 1e-9);
  EXPECT_NEAR(p3.y, -1 - 10 / n * z.shift_top, 1e-9);
  EXPECT_NEAR(p2.x - p1.x, 100.0, 1e-9);
  EXPECT_NEAR(p2.y - p1.y, 10.0, 1e-9);  // the chord's slope
  EXPECT_NEAR(p4.x - p3.x, 50.0, 1e-9);
  ASSERT_TRUE(g.get_two_paral_dashes({0, 0}, {-10, -1}, p1, p2, p3, p4, 100.0, 50.0, false));
  EXPECT_NEAR(p2.x - p1.x, 50.0, 1e-9);
  EXPECT_NEAR(p4.x - p3.x, 100.0, 1e-9);
}

}  // namespace
