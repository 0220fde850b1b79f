// The pivot grid: its lists, its lattice and the offsets along chords; the lattice checked against
// PROJ's cs2cs on the same points.
#include "stdlist/generate/21_pivot_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "generate_fixture.h"
#include "support/ansi_code_page.h"

namespace {

using vx::stdlist::pivot_grid;

// A lattice that the transformation leaves as it is.
void identity(pivot_grid& g) {
  g.generate(vxk_test::PULKOVO, vxk_test::PULKOVO);
}

TEST(PivotGrid, AddOfAValuePresentLeavesTheListAndFindOnAnEmptyListGivesMinusOne) {
  pivot_grid g;
  EXPECT_EQ(g.find_x(1.0), -1);
  g.add_x(3.0);
  g.add_x(1.0);
  g.add_x(3.0);
  g.add_vec_x({1.0, 2.0});
  g.add_vec_x({});
  EXPECT_EQ(g.xs(), (std::vector<double>{3, 1, 2}));  // in order of arrival
  EXPECT_EQ(g.find_x(1.0), 1);
  identity(g);
  EXPECT_EQ(g.xs(), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(g.find_x(3.0), 2);
  EXPECT_EQ(g.find_x(4.0), -1);
}

TEST(PivotGrid, OnlyExactRepetitionMergesAtOrdinaryLongitudes) {
  pivot_grid g;
  const double a = 37.0;
  const double b = std::nextafter(a, 40.0);
  g.add_x(a);
  g.add_x(b);
  g.add_y(0.5);
  g.add_y(0.5 + 1e-16);  // below the tolerance: the same entry
  EXPECT_EQ(g.xs().size(), 2u);
  EXPECT_EQ(g.ys().size(), 1u);
  identity(g);
  EXPECT_EQ(g.find_x(b), 1);
  EXPECT_EQ(g.find_y(0.5 + 1e-16), 0);
}

TEST(PivotGrid, LatticeRowsRunSouthToNorthAndColumnsChangeFastest) {
  pivot_grid g;
  g.add_vec_x({40, 36, 38});
  g.add_vec_y({56, 52});
  identity(g);
  EXPECT_EQ(g.get_vtx(0, 0).x, 36.0);
  EXPECT_EQ(g.get_vtx(0, 0).y, 52.0);
  EXPECT_EQ(g.get_vtx(2, 1).x, 40.0);
  EXPECT_EQ(g.get_vtx(2, 1).y, 56.0);
  EXPECT_EQ(g.get_next_vtx_x(0, 1).x, 38.0);
  EXPECT_EQ(g.get_prev_vtx_y(1, 1).y, 52.0);
  EXPECT_EQ(g.get_next_vtx_y(1, 0).y, 56.0);
  EXPECT_EQ(g.get_prev_vtx_x(2, 0).x, 38.0);
}

TEST(PivotGrid, OffsetsAlongTheChords) {
  pivot_grid g;
  g.add_vec_x({0, 10, 20});
  g.add_vec_y({0, 4, 8});
  identity(g);
  EXPECT_EQ(g.calc_vtx_x(1, 1, 0.0).x, 10.0);
  EXPECT_EQ(g.calc_vtx_x(1, 1, 1e-16).x, 10.0);
  EXPECT_DOUBLE_EQ(g.calc_vtx_x(1, 1, 2.5).x, 12.5);
  EXPECT_DOUBLE_EQ(g.calc_vtx_x(1, 1, -2.5).x, 7.5);
  EXPECT_DOUBLE_EQ(g.calc_vtx_y(1, 1, -1.0).y, 3.0);   // towards row 0
  EXPECT_DOUBLE_EQ(g.calc_vtx_y(1, 1, 1.0).y, 5.0);    // towards row 2
  EXPECT_DOUBLE_EQ(g.calc_vtx_x(1, 1, 25.0).x, 35.0);  // beyond the neighbour, on the same line
  EXPECT_EQ(g.calc_vtx_x(1, 1, 25.0).y, 4.0);
}

TEST(PivotGrid, AChordOfNoLengthHasNoDirection) {
  pivot_grid g;
  g.add_vec_x({0, 10});
  g.add_vec_y({90, 91});
  // the pole: every longitude of it is one point of the stereographic plane
  g.generate(vxk_test::PULKOVO, L"+proj=stere +lat_0=90 +lon_0=0 +ellps=krass +units=m +no_defs");
  const Tvx_vtx_d2 p = g.calc_vtx_x(0, 0, 5.0);
  EXPECT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
}

TEST(PivotGrid, DebugSaveLeavesNoFile) {
  const auto dir = vxk_test::scratch_dir("pivot_debug");
  pivot_grid g;
  g.debug_save_shp((dir / "debug_save_shp.shp").wstring().c_str());
  EXPECT_TRUE(std::filesystem::is_empty(dir));
}

TEST(PivotGrid, AnEmptyLatticeIsTolerated) {
  pivot_grid g;
  EXPECT_TRUE(g.generate(vxk_test::PULKOVO, vxk_test::GK7));
  EXPECT_EQ(g.get_vtx(0, 0).x, 0.0);
}

TEST(PivotGrid, AProjectionThatCannotBeBuiltLeavesTheLatticeAsItStands) {
  pivot_grid g;
  g.add_vec_x({36, 42});
  g.add_vec_y({52, 56});
  EXPECT_TRUE(g.generate(vxk_test::PULKOVO, L"+proj=nonsense"));
  EXPECT_EQ(g.get_vtx(1, 1).x, 42.0);
}

TEST(PivotGrid, NanSurvivesWithoutHarm) {
  pivot_grid g;
  g.add_vec_x({2, std::nan(""), 1});
  g.add_vec_y({0});
  identity(g);
  EXPECT_EQ(g.find_x(1), 0);
  EXPECT_EQ(g.find_x(2), 1);
  EXPECT_EQ(g.find_x(std::nan("")), -1);
}

// cs2cs on every point of a file, one "x y" line each.
std::vector<std::pair<double, double>> cs2cs(const std::string& src, const std::string& dst,
                                             const std::vector<std::pair<double, double>>& points) {
  const auto dir = vxk_test::scratch_dir("pivot_cs2cs");
  const auto in = dir / "in.txt";
  {
    std::ofstream f(in);
    f.precision(17);
    for (const auto& [x, y] : points) f << x << " " << y << "\n";
  }
  const std::string cmd = "cs2cs -f %.6f " + src + " +to " + dst + " < " + in.string();
  std::vector<std::pair<double, double>> out;
  FILE* pipe = popen(cmd.c_str(), "r");
  if (!pipe) return out;
  char line[512];
  while (fgets(line, sizeof line, pipe)) {
    double x = 0, y = 0;
    if (std::sscanf(line, "%lf %lf", &x, &y) == 2) out.emplace_back(x, y);
  }
  pclose(pipe);
  return out;
}

TEST(PivotGrid, EveryLatticeVertexAgreesWithCs2csToAMillimetre) {
  pivot_grid g;
  std::vector<double> xs, ys;
  for (int i = 0; i <= 24; ++i) xs.push_back(36.0 + i * 0.25);
  for (int i = 0; i <= 24; ++i) ys.push_back(52.0 + i * (4.0 / 24));
  xs.push_back(35.0);
  xs.push_back(43.0);
  g.add_vec_x(xs);
  g.add_vec_y(ys);
  g.generate(vxk_test::PULKOVO, vxk_test::GK7);
  std::vector<std::pair<double, double>> points;
  for (double y : g.ys())
    for (double x : g.xs()) points.emplace_back(x, y);
  const auto expected =
      cs2cs(vx::strconv::wide_to_utf8(vxk_test::PULKOVO), vx::strconv::wide_to_utf8(vxk_test::GK7), points);
  ASSERT_EQ(expected.size(), points.size());
  const int nx = static_cast<int>(g.xs().size());
  for (size_t i = 0; i < points.size(); ++i) {
    const Tvx_vtx_d2 v = g.get_vtx(static_cast<int>(i % nx), static_cast<int>(i / nx));
    ASSERT_NEAR(v.x, expected[i].first, 1e-3) << i;
    ASSERT_NEAR(v.y, expected[i].second, 1e-3) << i;
  }
}

}  // namespace
