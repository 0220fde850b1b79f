#include "geom/corner_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

std::vector<std::uint32_t> found(const vx::geom::corner_index& index, const Tvx_rect2d& box) {
  std::vector<std::uint32_t> out;
  index.corners_in(box, [&](std::uint32_t i) { out.push_back(i); });
  std::sort(out.begin(), out.end());
  return out;
}

TEST(CornerIndex, FindsExactlyTheCornersInTheBoxAgainstABruteForceCount) {
  std::mt19937 rng(5);
  std::uniform_real_distribution<double> u(0.0, 100.0);
  std::uniform_int_distribution<int> grid(0, 20);  // many equal coordinates
  std::vector<Tvx_rect2d> rects;
  for (int i = 0; i < 3000; ++i) {
    const double x = i % 2 ? u(rng) : grid(rng) * 5.0, y = i % 3 ? u(rng) : grid(rng) * 5.0;
    rects.push_back(vx_rect2d(x, y, x + u(rng) / 10, y + u(rng) / 10));
  }
  const vx::geom::corner_index index(rects);
  for (int q = 0; q < 300; ++q) {
    const double x = q % 2 ? u(rng) : grid(rng) * 5.0, y = u(rng);
    const Tvx_rect2d box = vx_rect2d(x, y, x + u(rng) / 3, y + (q % 5 ? u(rng) / 3 : 0.0));
    std::vector<std::uint32_t> want;
    for (std::uint32_t i = 0; i < rects.size(); ++i)
      if (vx_rect2d_include(box, rects[i].xmin, rects[i].ymin)) want.push_back(i);
    EXPECT_EQ(found(index, box), want) << "query " << q;
  }
}

TEST(CornerIndex, UndefinedAndNaNRectanglesAreNeverFound) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<Tvx_rect2d> rects = {vx_rect2d(), vx_rect2d(1, 1, 2, 2), Tvx_rect2d{true, nan, 0.0, 1.0, 1.0}};
  const vx::geom::corner_index index(rects);
  EXPECT_EQ(found(index, vx_rect2d(-10, -10, 10, 10)), std::vector<std::uint32_t>{1});
  EXPECT_TRUE(found(index, vx_rect2d()).empty());
  EXPECT_TRUE(found(index, Tvx_rect2d{true, nan, nan, nan, nan}).empty());
  EXPECT_TRUE(found(vx::geom::corner_index({}), vx_rect2d(0, 0, 1, 1)).empty());
}

TEST(CornerIndex, EdgesOfTheBoxCount) {
  std::vector<Tvx_rect2d> rects = {vx_rect2d(0, 0, 1, 1), vx_rect2d(5, 5, 6, 6), vx_rect2d(5, 0, 9, 9)};
  const vx::geom::corner_index index(rects);
  EXPECT_EQ(found(index, vx_rect2d(0, 0, 5, 5)), (std::vector<std::uint32_t>{0, 1, 2}));
  EXPECT_EQ(found(index, vx_rect2d(5, 5, 5, 5)), std::vector<std::uint32_t>{1});
}

}  // namespace
