#include "algo/pp2d_include_fast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <random>
#include <utility>
#include <vector>

#include "geom/pp2d.h"
#include "geom/ring_ray.h"

namespace {

// The sanitizer build runs several times slower: the large comparisons use fewer points and smaller
// rings there.
bool sanitized_build() {
#if defined(__SANITIZE_ADDRESS__)
  return true;
#else
  const char* v = std::getenv("VXK_SANITIZE");
  return v && std::strcmp(v, "1") == 0;
#endif
}

std::vector<int> numbers(const Tvx_int_vec* v) {
  return v ? std::vector<int>(v->data(), v->data() + v->get_size()) : std::vector<int>{-1};
}

// A closed ring of n vertices (n - 1 distinct) on a wavy circle about the origin, clockwise, each vertex
// jittered by a fraction of the spacing.
Tvx_pp2d wavy_ring(int n, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> jitter(-0.3, 0.3);
  Tvx_pp2d ring;
  const int m = n - 1;
  for (int i = 0; i < m; ++i) {
    const double a = -2.0 * M_PI * (i + jitter(rng)) / m;
    const double r = 1000.0 * (1.0 + 0.3 * std::sin(7.0 * a)) + jitter(rng) * 6000.0 / m;
    ring.add(r * std::cos(a), r * std::sin(a));
  }
  ring.close();
  return ring;
}

// A closed ring through n - 1 random vertices of the integer grid 0..30: it crosses itself, repeats
// vertices and has horizontal and vertical edges, and grid points fall on its vertices and edges.
Tvx_pp2d grid_scribble(int n, std::mt19937_64& rng) {
  Tvx_pp2d ring;
  for (int i = 0; i + 1 < n; ++i) ring.add(static_cast<double>(rng() % 31), static_cast<double>(rng() % 31));
  ring.close();
  return ring;
}

// The horizontal edges of a ring, for asking whether a point lies on one (ends included).
class horizontal_edges {
 public:
  explicit horizontal_edges(const Tvx_pp2d& ring) {
    for (int e = 1; e < ring.get_size(); ++e)
      if (ring.get(e - 1).y == ring.get(e).y) edges.push_back({ring.get(e - 1), ring.get(e)});
  }
  bool on(const Tvx_point2d& p) const {
    for (const auto& [a, b] : edges)
      if (a.y == p.y && p.x >= std::min(a.x, b.x) && p.x <= std::max(a.x, b.x)) return true;
    return false;
  }

 private:
  std::vector<std::pair<Tvx_point2d, Tvx_point2d>> edges;
};

// The reference for many points, from the edges' side: the points sorted by y, each edge applies the
// rule of one edge to the points within its y range. A horizontal edge spans no band, so it is left
// out; that is the one way in which the banded test differs from the plain one.
std::vector<char> sweep_answers(const Tvx_pp2d& ring, const std::vector<Tvx_point2d>& pts) {
  using vx::geom::edge_hit;
  std::vector<int> order(pts.size());
  for (std::size_t i = 0; i < pts.size(); ++i) order[i] = static_cast<int>(i);
  std::sort(order.begin(), order.end(), [&pts](int a, int b) { return pts[a].y < pts[b].y; });
  std::vector<double> ys(pts.size());
  for (std::size_t i = 0; i < order.size(); ++i) ys[i] = pts[order[i]].y;
  std::vector<char> parity(pts.size(), 0), boundary(pts.size(), 0);
  for (int e = 1; e < ring.get_size(); ++e) {
    const Tvx_point2d a = ring.get(e - 1), b = ring.get(e);
    if (a.y == b.y) continue;
    const auto from = std::lower_bound(ys.begin(), ys.end(), std::min(a.y, b.y)) - ys.begin();
    const auto to = std::upper_bound(ys.begin(), ys.end(), std::max(a.y, b.y)) - ys.begin();
    for (auto k = from; k < to; ++k) {
      const int i = order[k];
      const edge_hit hit = vx::geom::ray_hit(a, b, pts[i].x, pts[i].y);
      if (hit == edge_hit::boundary) boundary[i] = 1;
      if (hit == edge_hit::count) parity[i] ^= 1;
    }
  }
  std::vector<char> out(pts.size());
  for (std::size_t i = 0; i < pts.size(); ++i) out[i] = boundary[i] || parity[i];
  return out;
}

// The reference agrees with the plain test wherever no horizontal edge is involved.
void expect_sweep_is_plain(const Tvx_pp2d& ring, const std::vector<Tvx_point2d>& pts,
                           const std::vector<char>& want, int count) {
  const horizontal_edges horizontal(ring);
  for (int i = 0; i < count; ++i) {
    if (horizontal.on(pts[i])) continue;
    ASSERT_EQ(static_cast<bool>(want[i]), ring.include(pts[i].x, pts[i].y))
        << "ring " << ring.get_size() << " at " << pts[i].x << ", " << pts[i].y;
  }
}

TEST(FastDiapEnds, OneEndPerValueAndEdgesOverTheirBands) {
  Tvx_fast_diap_ends ends;
  for (double v : {3.0, 1.0, 2.0, 1.0, 3.0}) ends.add_end(v);
  EXPECT_EQ(ends.get_size(), 3u);
  ends.add_diap(7, 3.0, 1.0);  // spans the bands from 1 and from 2
  ends.add_diap(8, 2.0, 3.0);
  ends.add_diap(9, 1.0, 2.5);   // 2.5 is no end: nothing
  ends.add_diap(10, 2.0, 2.0);  // no band
  EXPECT_EQ(numbers(ends.get_int_vec_ptr(1.0)), (std::vector<int>{7}));
  EXPECT_EQ(numbers(ends.get_int_vec_ptr(1.5)), (std::vector<int>{7}));
  EXPECT_EQ(numbers(ends.get_int_vec_ptr(2.0)), (std::vector<int>{7, 8}));  // on an end: the band above
  EXPECT_EQ(numbers(ends.get_int_vec_ptr(2.99)), (std::vector<int>{7, 8}));
  EXPECT_EQ(ends.get_int_vec_ptr(0.5), nullptr);
  EXPECT_EQ(ends.get_int_vec_ptr(3.0), nullptr);
  EXPECT_EQ(ends.get_int_vec_ptr(4.0), nullptr);
  EXPECT_EQ(ends.get_int_vec_ptr(std::nan("")), nullptr);
  ends.add_end(std::nan(""));  // takes no part
  EXPECT_EQ(ends.get_size(), 3u);
  ends.clear();
  EXPECT_EQ(ends.get_size(), 0u);
  EXPECT_EQ(ends.get_int_vec_ptr(1.0), nullptr);
}

TEST(FastDiapEnds, AddEndsMergesAndBandsAnswerAlikePackedOrNot) {
  Tvx_fast_diap_ends ends;
  ends.add_end(2.0);
  ends.add_ends({3.0, 1.0, 2.0, std::nan(""), 1.0, 0.5});
  EXPECT_EQ(ends.get_size(), 4u);
  ends.add_diap(1, 0.5, 3.0);
  ends.add_diap(2, 2.0, 1.0);
  const auto band = [&ends](double y) {
    const int32_t* list = nullptr;
    unsigned count = 0;
    if (!ends.get_band(y, list, count)) return std::vector<int>{-1};
    return std::vector<int>(list, list + count);
  };
  for (bool packed : {false, true}) {
    if (packed) ends.pack();
    EXPECT_EQ(band(0.5), numbers(ends.get_int_vec_ptr(0.5)));
    EXPECT_EQ(band(1.0), (std::vector<int>{1, 2}));
    EXPECT_EQ(band(2.5), (std::vector<int>{1}));
    EXPECT_EQ(band(3.0), std::vector<int>{-1});
    EXPECT_EQ(band(0.0), std::vector<int>{-1});
  }
  ends.add_end(1.5);  // drops the packed copy: the band from 1 now ends at 1.5, and 1.5 has no edges yet
  EXPECT_EQ(band(1.7), std::vector<int>{});
  EXPECT_EQ(numbers(ends.get_int_vec_ptr(1.2)), (std::vector<int>{1, 2}));
}

TEST(FastDiapEnd, OrderByValue) {
  Tvx_fast_diap_end a(1.0), b(2.0);
  EXPECT_TRUE(a.less(b));
  EXPECT_FALSE(b.less(a));
  EXPECT_FALSE(a.less(a));
  EXPECT_EQ(a.get_int_vec()->get_size(), 0u);
  EXPECT_TRUE(Tvx_fast_diap_end_compare_less()(&a, &b));
  EXPECT_EQ(Tvx_fast_diap_end().get_value(), 0.0);
}

TEST(IncludeFast, BandsOnlyAboveAThousandVertices) {
  std::mt19937_64 rng(1);
  const Tvx_pp2d small = wavy_ring(1000, rng);
  const Tvx_pp2d large = wavy_ring(1001, rng);
  Tvx_pp2d_include_fast fast;
  fast.prepare(&small);
  EXPECT_FALSE(fast.has_fast_edges());
  EXPECT_TRUE(fast.include(0.0, 0.0));
  fast.prepare(&large);
  EXPECT_TRUE(fast.has_fast_edges());
  EXPECT_TRUE(fast.include(0.0, 0.0));
  EXPECT_FALSE(fast.include(2000.0, 0.0));
  fast.delete_fast_edges();
  EXPECT_FALSE(fast.has_fast_edges());
  EXPECT_TRUE(fast.include(0.0, 0.0));  // through the plain test of the same ring
  fast.prepare(nullptr);
  EXPECT_FALSE(fast.include(0.0, 0.0));
  const Tvx_pp2d empty;
  fast.prepare(&empty);
  EXPECT_FALSE(fast.include(0.0, 0.0));
  Tvx_pp2d_fast_edges edges;
  edges.prepare(&empty);
  EXPECT_FALSE(edges.include(0.0, 0.0));
  EXPECT_FALSE(Tvx_pp2d_include_fast().include(0.0, 0.0));
}

// A square of side 10 with its corners and 4 vertices on each side, 17 vertices, and a banded test on it.
class FastSquare : public ::testing::Test {
 protected:
  void SetUp() override {
    for (int i = 0; i < 4; ++i) ring.add(0.0, 2.5 * i);
    for (int i = 0; i < 4; ++i) ring.add(2.5 * i, 10.0);
    for (int i = 0; i < 4; ++i) ring.add(10.0, 10.0 - 2.5 * i);
    for (int i = 0; i < 4; ++i) ring.add(10.0 - 2.5 * i, 0.0);
    ring.close();
    edges.prepare(&ring);
  }
  Tvx_pp2d ring;
  Tvx_pp2d_fast_edges edges;
};

TEST_F(FastSquare, BelowTheLowestAndAtOrAboveTheHighestIsOutside) {
  EXPECT_FALSE(edges.include(5.0, -0.1));
  EXPECT_TRUE(edges.include(5.0, 0.0));  // on the bottom edge: counted by the left side
  EXPECT_TRUE(edges.include(5.0, 9.999));
  EXPECT_FALSE(edges.include(5.0, 10.0));  // on the top edge: no band
  EXPECT_TRUE(ring.include(5.0, 10.0));    // where the plain test sees the boundary
  EXPECT_FALSE(edges.include(0.0, 10.0));  // the top vertex itself
  EXPECT_FALSE(edges.include(5.0, 11.0));
}

TEST_F(FastSquare, PointOnAnEdgeOrVertexIsInside) {
  EXPECT_TRUE(edges.include(0.0, 3.0));
  EXPECT_TRUE(edges.include(10.0, 3.0));
  EXPECT_TRUE(edges.include(0.0, 5.0));   // a vertex of the left side
  EXPECT_TRUE(edges.include(10.0, 0.0));  // the corner on the lowest band
  EXPECT_FALSE(edges.include(10.5, 5.0));
  EXPECT_FALSE(edges.include(-0.5, 5.0));
  EXPECT_FALSE(edges.include(std::nan(""), 5.0));
  EXPECT_FALSE(edges.include(5.0, std::nan("")));
}

TEST(IncludeFast, PointLevelWithAVertexCountsOnlyTheUpwardEdge) {
  // A diamond with the vertex (0, 5) on the left and (10, 5) on the right, 1001 vertices in all.
  Tvx_pp2d ring;
  ring.add(5.0, 0.0);
  for (int i = 1; i <= 1000; ++i) ring.add(5.0 - 5.0 * i / 1000.0, 5.0 * i / 1000.0);  // to (0, 5)
  ring.add(5.0, 10.0);
  ring.add(10.0, 5.0);
  ring.close();
  Tvx_pp2d_include_fast fast;
  fast.prepare(&ring);
  ASSERT_TRUE(fast.has_fast_edges());
  // On the ray from (20, 5) lie both side vertices: each counts once, with its upward edge, so the
  // point is outside; from (7, 5) only the left one counts, and the point is inside.
  EXPECT_FALSE(fast.include(20.0, 5.0));
  EXPECT_TRUE(fast.include(7.0, 5.0));
  EXPECT_FALSE(fast.include(-1.0, 5.0));
  EXPECT_EQ(fast.include(20.0, 5.0), ring.include(20.0, 5.0));
  EXPECT_EQ(fast.include(7.0, 5.0), ring.include(7.0, 5.0));
}

TEST(IncludeFast, OpenLineIsNotAskedWhetherItIsClosed) {
  // An open line of 1001 vertices: the plain test says outside, the banded one counts its edges.
  Tvx_pp2d line;
  for (int i = 0; i < 1001; ++i) line.add(0.0, i * 0.01);
  Tvx_pp2d_include_fast fast;
  fast.prepare(&line);
  EXPECT_FALSE(line.include(1.0, 5.0));
  EXPECT_TRUE(fast.include(1.0, 5.0));
}

// Rings of 10 to 1,000,000 vertices against a million random points (fewer and smaller rings in the
// sanitizer build), a thousand of them on vertices: the banded test answers as the plain test (these
// rings have no horizontal edge). The plain test itself runs on as many points as is quick; for all the
// points the reference is the sweep over the edges, which the plain test checks on those points first.
TEST(IncludeFast, AgreesWithThePlainTestOnRandomPoints) {
  const bool slow = sanitized_build();
  const int points = slow ? 100000 : 1000000;
  std::vector<int> sizes = {10, 100, 1000, 1001, 1500, 10000, 100000};
  if (!slow) sizes.push_back(1000000);
  std::mt19937_64 rng(42);
  for (int n : sizes) {
    const Tvx_pp2d ring = wavy_ring(n, rng);
    std::uniform_real_distribution<double> coord(-1400.0, 1400.0);
    std::vector<Tvx_point2d> pts(points);
    for (Tvx_point2d& p : pts) p = vx_point2d(coord(rng), coord(rng));
    for (int i = 0; i < 1000; ++i) pts[i] = ring.get(static_cast<int>(rng() % n));  // on vertices

    const std::vector<char> want = sweep_answers(ring, pts);
    expect_sweep_is_plain(ring, pts, want, std::min(points, static_cast<int>((slow ? 1e7 : 1e8) / n)));

    Tvx_pp2d_include_fast fast;
    fast.prepare(&ring);
    EXPECT_EQ(fast.has_fast_edges(), n >= 1001);
    int inside = 0, wrong = 0;
    for (int i = 0; i < points; ++i) {
      const bool got = fast.include(pts[i].x, pts[i].y);
      wrong += got != static_cast<bool>(want[i]) ? 1 : 0;
      inside += got;
    }
    EXPECT_EQ(wrong, 0) << "ring of " << n;
    EXPECT_GT(inside, points / 4) << "ring of " << n;
    EXPECT_LT(inside, points * 3 / 4) << "ring of " << n;
  }
}

// Rings through random grid vertices, crossing themselves, with grid points and points halfway between:
// vertices, horizontal and vertical edges and points exactly on edges everywhere. The banded test
// answers as the sweep that leaves horizontal edges out, and so as the plain test off them.
TEST(IncludeFast, AgreesWithThePlainTestOnDegenerateGridRings) {
  std::mt19937_64 rng(5);
  for (int n : {1001, 3000}) {
    const Tvx_pp2d ring = grid_scribble(n, rng);
    Tvx_pp2d_include_fast fast;
    fast.prepare(&ring);
    ASSERT_TRUE(fast.has_fast_edges());
    std::vector<Tvx_point2d> pts;
    for (int iy = -2; iy <= 64; ++iy)
      for (int ix = -2; ix <= 64; ++ix) pts.push_back(vx_point2d(ix * 0.5, iy * 0.5));
    const std::vector<char> want = sweep_answers(ring, pts);
    expect_sweep_is_plain(ring, pts, want, static_cast<int>(pts.size()));
    const horizontal_edges on_horizontal(ring);
    int inside = 0, horizontal = 0;
    for (std::size_t i = 0; i < pts.size(); ++i) {
      const bool got = fast.include(pts[i].x, pts[i].y);
      ASSERT_EQ(got, static_cast<bool>(want[i])) << "ring " << n << " at " << pts[i].x << ", " << pts[i].y;
      inside += got;
      horizontal += on_horizontal.on(pts[i]) && got != ring.include(pts[i].x, pts[i].y);
    }
    EXPECT_GT(inside, 100);
    EXPECT_GT(horizontal, 0);  // the difference is there to be seen
  }
}

}  // namespace
