// The frames, "Frame.shp": which rings each scale draws with which codes, how a ring follows the
// lattice at its margin, its corners, and the broken outer frame of a 1:200,000 sheet joined from its
// eight pieces. Read back by the library's own readers; GDAL measures the margins in the generation
// checks.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "generate_readback.h"

namespace {

namespace traits = vx::stdlist::traits;
using vx::stdlist::base_generate;
using vx::stdlist::custom_params;
using vxk_test::line;
using vxk_test::points;
using vxk_test::sheet_probe;
using vxk_test::written_lines;
using vxk_test::written_table;

double apart(Tvx_vtx_d2 a, Tvx_vtx_d2 b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

// The codes of the frame lines, the first n records: the minute marks follow them in the file.
std::vector<std::string> codes(const std::wstring& shp, size_t n) {
  const auto t = written_table(shp);
  std::vector<std::string> out;
  for (size_t r = 0; r < t.rows.size(); ++r) {
    EXPECT_EQ(t.at(r, "ID"), std::to_string(r + 1));
    if (r < n) out.push_back(t.at(r, "L_CODE"));
  }
  return out;
}

TEST(Frames, AMillionSheetHasFiveRingsWithTheirCodes) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_n37"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame());
  EXPECT_EQ(codes(g.frame_path, 5),
            (std::vector<std::string>{"400901", "400901", "400903", "400902", "400903"}));
  const auto t = written_table(g.frame_path);
  EXPECT_EQ(t.columns, (std::vector<std::string>{"ID", "L_CODE"}));
  const auto lines = written_lines(g.frame_path);
  ASSERT_GE(lines.size(), 5u);
  // the first on the lattice, as the area's ring: closed, each corner twice
  Tvx_pp2d* ring = vx_pv_d2_create();
  g.add_box_ring(ring);
  EXPECT_EQ(lines[0], points(ring));
  vx_pv_d2_destroy(ring);
  EXPECT_EQ(lines[0].front(), lines[0].back());
  const size_t rows = static_cast<size_t>(g.iy_max - g.iy_min + 1);
  const size_t columns = static_cast<size_t>(g.ix_max - g.ix_min + 1);
  EXPECT_EQ(lines[0][rows - 1], lines[0][rows]);                              // north-west
  EXPECT_EQ(lines[0][rows + columns - 1], lines[0][rows + columns]);          // north-east
  EXPECT_EQ(lines[0][2 * rows + columns - 1], lines[0][2 * rows + columns]);  // south-east
  // the others: the four corners and the closing repeat besides the shifted vertices
  for (size_t k = 1; k < 5; ++k) {
    EXPECT_EQ(lines[k].size(), lines[0].size() + 5) << k;
    EXPECT_EQ(lines[k].front(), lines[k].back()) << k;
  }
}

// Each vertex of a side lies at the margin from its edge vertex, along its row or column.
TEST(Frames, ARingFollowsTheEdgeAtItsMarginAlongTheLattice) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_margins"));
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame());
  const auto lines = written_lines(g.frame_path);
  const int x0 = static_cast<int>(g.ix_min), x1 = static_cast<int>(g.ix_max);
  const int y0 = static_cast<int>(g.iy_min), y1 = static_cast<int>(g.iy_max);
  const int rows = y1 - y0 + 1, columns = x1 - x0 + 1;
  const double margins[] = {1000.0, 7500.0, 8500.0, 9500.0};
  for (int k = 0; k < 4; ++k) {
    const line& l = lines[k + 1];
    const double m = margins[k];
    for (int j = 0; j < rows; ++j) {
      EXPECT_EQ(l[1 + j], g.grid.calc_vtx_x(x0, y0 + j, -m));
      EXPECT_NEAR(apart(l[1 + j], g.grid.get_vtx(x0, y0 + j)), m, 1e-6);
      EXPECT_NEAR(apart(l[rows + columns + 3 + j], g.grid.get_vtx(x1, y1 - j)), m, 1e-6);
    }
    for (int i = 0; i < columns; ++i) {
      EXPECT_NEAR(apart(l[rows + 2 + i], g.grid.get_vtx(x0 + i, y1)), m, 1e-6);
      EXPECT_NEAR(apart(l[2 * rows + columns + 4 + i], g.grid.get_vtx(x1 - i, y0)), m, 1e-6);
    }
    // outwards: west of the west side, north of the north side
    EXPECT_LT(l[1].x, g.grid.get_vtx(x0, y0).x);
    EXPECT_GT(l[rows + 2].y, g.grid.get_vtx(x0, y1).y);
    // the corners, in order south-west, north-west, north-east, south-east, and south-west again
    Tvx_vtx_d2 c{};
    ASSERT_TRUE(g.generate_corner(-m, -m, c));
    EXPECT_EQ(l[0], c);
    ASSERT_TRUE(g.generate_corner(-m, m, c));
    EXPECT_EQ(l[rows + 1], c);
    ASSERT_TRUE(g.generate_corner(m, m, c));
    EXPECT_EQ(l[rows + columns + 2], c);
    ASSERT_TRUE(g.generate_corner(m, -m, c));
    EXPECT_EQ(l[2 * rows + columns + 3], c);
  }
}

// The corner lies on both shifted sides continued past it: on the line from the west side's first
// vertex to the shifted vertex of the row outside the sheet, and on the line from the south side's last
// vertex to the shifted vertex of the column outside.
TEST(Frames, TheCornerIsTheCrossingOfTheShiftedSides) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  g.init_grid();
  const int x0 = static_cast<int>(g.ix_min), y0 = static_cast<int>(g.iy_min);
  const double m = 9500.0;
  Tvx_vtx_d2 c{};
  ASSERT_TRUE(g.generate_corner(-m, -m, c));
  const Tvx_vtx_d2 a = g.grid.calc_vtx_x(x0, y0, -m), b = g.grid.calc_vtx_x(x0, y0 - 1, -m);
  const Tvx_vtx_d2 e = g.grid.calc_vtx_y(x0, y0, -m), f = g.grid.calc_vtx_y(x0 - 1, y0, -m);
  const auto off_line = [](Tvx_vtx_d2 p1, Tvx_vtx_d2 p2, Tvx_vtx_d2 q) {
    return std::fabs((p2.x - p1.x) * (q.y - p1.y) - (p2.y - p1.y) * (q.x - p1.x)) / apart(p1, p2);
  };
  EXPECT_LT(off_line(a, b, c), 1e-6);
  EXPECT_LT(off_line(e, f, c), 1e-6);
  EXPECT_NEAR(apart(c, g.grid.get_vtx(x0, y0)), m * std::sqrt(2.0), 0.01 * m);
}

TEST(Frames, CrossingOfLinesAndParallelLines) {
  Tvx_vtx_d2 out{7.0, 7.0};
  // segments that do not reach each other: their lines cross at (2, 0)
  EXPECT_TRUE(base_generate::cross_xy_lines({0, 0}, {1, 0}, {2, 1}, {2, 5}, out));
  EXPECT_DOUBLE_EQ(out.x, 2.0);
  EXPECT_DOUBLE_EQ(out.y, 0.0);
  out = {7.0, 7.0};
  EXPECT_FALSE(base_generate::cross_xy_lines({0, 0}, {1, 0}, {0, 1}, {1, 1}, out));
  EXPECT_FALSE(base_generate::cross_xy_lines({0, 0}, {1, 0}, {0, 1}, {1, 1.0000001}, out));  // within 1e-6
  EXPECT_EQ(out.x, 7.0);                                                                     // untouched
  EXPECT_EQ(out.y, 7.0);
}

// A generator whose lattice gives the corner's sides no direction (here: indices outside the lattice,
// which read (0, 0)) finds no crossing, and the ring gets the corner at (0, 0).
TEST(Frames, ACornerWithoutCrossingIsWrittenAtTheOrigin) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_no_corner"));
  sheet_probe g(p);
  g.ix_min = g.ix_max = g.iy_min = g.iy_max = -2;
  Tvx_vtx_d2 c{5.0, 5.0};
  EXPECT_FALSE(g.generate_corner(-1000.0, -1000.0, c));
  EXPECT_EQ(c.x, 5.0);
  Tvx_shp_basic* shp = vx_shp_file_create_w(g.frame_path.c_str(), VX_SHP_POLYLINE);
  Tvx_dbf_field fields[2];
  vx_dbf_field_init(&fields[0], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[1], "L_CODE", VX_DBF_NUMERIC, 8, 0);
  void* table = vx_dbf_create_w(traits::dbf_path(g.frame_path).c_str(), 2, 0, fields, 0);
  EXPECT_TRUE(g.draw_frame(shp, table, 1000.0, 400901));
  vx_dbf_close(table);
  vx_shp_file_close(shp);
  const line l = written_lines(g.frame_path).at(0);
  ASSERT_EQ(l.size(), 9u);
  for (const Tvx_vtx_d2& v : l) EXPECT_EQ(v, (Tvx_vtx_d2{0.0, 0.0}));
}

TEST(Frames, DrawingWithoutFilesIsFalse) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.draw_frame(nullptr, nullptr, 1000.0, 400901));
  EXPECT_FALSE(g.draw_frame200(nullptr, nullptr, 400903));
}

TEST(Frames, OneDivisionEachWayStillGivesFiveRingsOverThePivots) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_one_division"), vxk_test::GK7, 1, 1, 1, 1);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame());
  const auto lines = written_lines(g.frame_path);
  ASSERT_GE(lines.size(), 5u);
  // 25 pivot positions per axis and nothing else inside the box: 25 vertices a side
  EXPECT_EQ(g.ix_max - g.ix_min + 1, 25);
  EXPECT_EQ(lines[0].size(), 4u * 25u);
  EXPECT_EQ(lines[4].size(), 4u * 25u + 5u);
}

TEST(Frames, AGeographicSceneTakesTheMarginsInDegrees) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_degrees"), vxk_test::PULKOVO);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.latlong);
  ASSERT_TRUE(g.generate_frame());
  const auto lines = written_lines(g.frame_path);
  ASSERT_GE(lines.size(), 5u);
  const double degrees[] = {0.008983000569721857, 0.06737250427291393, 0.07635550484263579,
                            0.08533850541235764};
  for (int k = 0; k < 4; ++k) {
    EXPECT_NEAR(lines[k + 1][1].x, 36.0 - degrees[k], 1e-12);  // west of the south-west vertex
    EXPECT_NEAR(lines[k + 1][1].y, 52.0, 1e-12);
    EXPECT_NEAR(lines[k + 1][0].x, 36.0 - degrees[k], 1e-12);  // the corner
    EXPECT_NEAR(lines[k + 1][0].y, 52.0 - degrees[k], 1e-12);
  }
}

TEST(Frames, A200kSheetHasNoLineOnItsEdgeAndWithoutItsPiecesOnlyTheOuterFramesCorners) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_200k"), vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  ASSERT_TRUE(g.generate_frame());
  EXPECT_EQ(codes(g.frame_path, 6),
            (std::vector<std::string>{"400903", "400902", "400903", "400903", "400903", "400903"}));
  const auto lines = written_lines(g.frame_path);
  ASSERT_GE(lines.size(), 6u);
  const Tvx_vtx_d2 sw = g.grid.get_vtx(static_cast<int>(g.ix_min), static_cast<int>(g.iy_min));
  EXPECT_NEAR(apart(lines[0][1], sw), 1400.0, 1e-6);
  EXPECT_NEAR(apart(lines[1][1], sw), 1639.9999999999998, 1e-6);
  const double m = 1960.0000000000002;
  Tvx_vtx_d2 nw{};
  g.generate_corner(-m, m, nw);
  EXPECT_EQ(lines[2], line{nw});  // the pieces are empty: the corner alone
}

// The eight pieces, filled here as the adjacent frame fills them: the outer frame's sides, each running
// south to north or west to east, cut in two.
void fill_pieces(sheet_probe& g) {
  const double m = traits::frame4_margin(VX_STDLIST_SC_200, false);
  const int x0 = static_cast<int>(g.ix_min), x1 = static_cast<int>(g.ix_max);
  const int y0 = static_cast<int>(g.iy_min), y1 = static_cast<int>(g.iy_max);
  const int ym = (y0 + y1) / 2, xm = (x0 + x1) / 2;
  g.draw_frame_corner_y_incr(g.left_lower_pv, y0, ym - 1, x0, -m);
  g.draw_frame_corner_y_incr(g.left_upper_pv, ym + 1, y1, x0, -m);
  g.draw_frame_corner_y_incr(g.right_lower_pv, y0, ym - 1, x1, m);
  g.draw_frame_corner_y_incr(g.right_upper_pv, ym + 1, y1, x1, m);
  g.draw_frame_corner_x_incr(g.bottom_left_pv, x0, xm - 1, y0, -m);
  g.draw_frame_corner_x_incr(g.bottom_right_pv, xm + 1, x1, y0, -m);
  g.draw_frame_corner_x_incr(g.top_left_pv, x0, xm - 1, y1, m);
  g.draw_frame_corner_x_incr(g.top_right_pv, xm + 1, x1, y1, m);
}

line joined(const Tvx_pp2d* first, Tvx_vtx_d2 corner, const Tvx_pp2d* then) {
  line l = points(first);
  l.push_back(corner);
  const line rest = points(then);
  l.insert(l.end(), rest.begin(), rest.end());
  return l;
}

TEST(Frames, TheOuterFrameOfA200kSheetJoinsItsPiecesAtTheCorners) {
  const auto s = vxk_test::sheet(14, 37, 6);
  auto p = vxk_test::sheet_params(s, vxk_test::output_dir("frame_200k_pieces"), vxk_test::GK7, 3, 20, 2, 20);
  sheet_probe g(p);
  g.init_grid();
  fill_pieces(g);
  ASSERT_TRUE(g.generate_frame());
  EXPECT_EQ(codes(g.frame_path, 6),
            (std::vector<std::string>{"400903", "400902", "400903", "400903", "400903", "400903"}));
  const auto lines = written_lines(g.frame_path);
  ASSERT_GE(lines.size(), 6u);
  const double m = 1960.0000000000002;
  Tvx_vtx_d2 sw{}, nw{}, ne{}, se{};
  g.generate_corner(-m, -m, sw);
  g.generate_corner(-m, m, nw);
  g.generate_corner(m, m, ne);
  g.generate_corner(m, -m, se);
  EXPECT_EQ(lines[2], joined(g.left_upper_pv, nw, g.top_left_pv));       // north-west, a bend
  EXPECT_EQ(lines[3], joined(g.left_lower_pv, sw, g.bottom_left_pv));    // south-west, with a jump back
  EXPECT_EQ(lines[4], joined(g.top_right_pv, ne, g.right_upper_pv));     // north-east, with a jump back
  EXPECT_EQ(lines[5], joined(g.bottom_right_pv, se, g.right_lower_pv));  // south-east, a bend
}

TEST(Frames, TheShiftedRowsAndColumnsOfTheFourDrawingForms) {
  const auto s = vxk_test::sheet(14, 37);
  auto p = vxk_test::sheet_params(s, L"out/");
  sheet_probe g(p);
  g.init_grid();
  Tvx_pp2d* pv = vx_pv_d2_create();
  g.draw_frame_corner_x_incr(pv, 3, 5, 2, -10.0);
  g.draw_frame_corner_y_incr(pv, 3, 4, 2, 10.0);
  g.draw_frame_corner_x_decr(pv, 5, 3, 2, -10.0);  // 5 and 4: `to` itself is left out
  g.draw_frame_corner_y_decr(pv, 4, 3, 2, 10.0);   // 4 alone
  g.draw_frame_corner_x_incr(pv, 5, 3, 2, -10.0);  // nothing
  const line l = points(pv);
  vx_pv_d2_destroy(pv);
  const line expected = {g.grid.calc_vtx_y(3, 2, -10.0), g.grid.calc_vtx_y(4, 2, -10.0),
                         g.grid.calc_vtx_y(5, 2, -10.0), g.grid.calc_vtx_x(2, 3, 10.0),
                         g.grid.calc_vtx_x(2, 4, 10.0),  g.grid.calc_vtx_y(5, 2, -10.0),
                         g.grid.calc_vtx_y(4, 2, -10.0), g.grid.calc_vtx_x(2, 4, 10.0)};
  EXPECT_EQ(l, expected);
}

TEST(Frames, AScaleWithoutGeometryLeavesAnEmptyFileAndTheProjectionFilesAnswer) {
  vx::stdlist::stdlist_string s;
  s.init(VX_STDLIST_SC_500, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH);
  s.set_mln_letter_idx(14);
  s.set_mln_number(37);
  const std::wstring dir = vxk_test::output_dir("frame_500k");
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_TRUE(g.generate_frame());
  EXPECT_TRUE(written_lines(g.frame_path).empty());
  EXPECT_TRUE(written_table(g.frame_path).rows.empty());
  EXPECT_EQ(vxk_test::files_under(dir), vxk_test::shape_set("FRAME", "Frame"));
}

TEST(Frames, AMissingFolderFailsTheStep) {
  const auto s = vxk_test::sheet(14, 37);
  const std::wstring dir = vxk_test::output_dir("frame_missing", {"HYPS"});
  auto p = vxk_test::sheet_params(s, dir);
  sheet_probe g(p);
  g.init_grid();
  EXPECT_FALSE(g.generate_frame());
  EXPECT_TRUE(vxk_test::files_under(dir).empty());
}

}  // namespace
