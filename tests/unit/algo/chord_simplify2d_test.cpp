#include "algo/chord_simplify2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>
#include <vector>

#include "geom/op2d.h"
#include "geom/pp2d.h"
#include "pp2d_build.h"

namespace {

using vxk_test::make_pp2d;
using vxk_test::vertices;

TEST(ChordSimplify, StraightLineKeepsItsEnds) {
  Tvx_pp2d line;
  for (int i = 0; i <= 100; ++i) line.add(i * 0.5, i * 0.25);
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&line, 0.01));
  EXPECT_EQ(vertices(line), (std::vector<Tvx_point2d>{{0, 0}, {50, 25}}));
}

TEST(ChordSimplify, TwoVerticesStayAsTheyAre) {
  Tvx_pp2d line = make_pp2d({{0, 0}, {1, 1}});
  EXPECT_FALSE(Tvx_chord_simplify2d::execute(&line, 10.0));
  EXPECT_EQ(line.get_size(), 2);
  Tvx_pp2d one = make_pp2d({{3, 4}});
  EXPECT_FALSE(Tvx_chord_simplify2d::execute(&one, 1.0));
  EXPECT_EQ(vertices(one), (std::vector<Tvx_point2d>{{3, 4}}));
  Tvx_pp2d none;
  EXPECT_FALSE(Tvx_chord_simplify2d::execute(&none, 1.0));
  EXPECT_EQ(none.get_size(), 0);
}

TEST(ChordSimplify, KeepsTheFarVertexAndDropsTheNearOne) {
  // Vertex 1 lies 0.1 from the chord of the whole line, vertex 2 lies 3 from it.
  Tvx_pp2d line = make_pp2d({{0, 0}, {1, 0.1}, {5, 3}, {10, 0}});
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&line, 0.5));
  EXPECT_EQ(vertices(line), (std::vector<Tvx_point2d>{{0, 0}, {5, 3}, {10, 0}}));
}

TEST(ChordSimplify, DistanceIsToTheInfiniteLineNotTheChord) {
  // Vertex 2 runs out past the end of the chord (0,0)-(2,0), 3 beyond it but only 0.5 off its line.
  Tvx_pp2d line = make_pp2d({{0, 0}, {1, 0.2}, {5, 0.5}, {2, 0}});
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&line, 0.6));
  EXPECT_EQ(vertices(line), (std::vector<Tvx_point2d>{{0, 0}, {2, 0}}));
}

TEST(ChordSimplify, ClosedRingIsSplitAtTheVertexFarthestFromItsStart) {
  // The chord of a ring has no length: distances go to the start, and (4, 4) is farthest.
  Tvx_pp2d ring = make_pp2d({{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}});
  Tvx_chord_simplify2d worker;
  EXPECT_TRUE(worker.simplify(&ring, 5.0));
  EXPECT_EQ(vertices(ring), (std::vector<Tvx_point2d>{{0, 0}, {4, 4}, {0, 0}}));
  Tvx_pp2d square = make_pp2d({{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}});
  EXPECT_FALSE(worker.simplify(&square, 1.0));  // every corner lies beyond 1 from its chord
  EXPECT_EQ(square.get_size(), 5);
}

TEST(ChordSimplify, ShortChordMeasuresToTheNearerEnd) {
  // A and B lie 1e-4 apart (squared length 1e-8, below 1e-6). Measured to the nearer end, (-3, 0) lies
  // 3 away and is kept, though it lies on the line through A and B; then (0, 2) lies 2 from the chord
  // (0,0)-(-3,0) and goes.
  Tvx_pp2d line = make_pp2d({{0, 0}, {0, 2}, {-3, 0}, {1e-4, 0}});
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&line, 2.5));
  EXPECT_EQ(vertices(line), (std::vector<Tvx_point2d>{{0, 0}, {-3, 0}, {1e-4, 0}}));
}

TEST(ChordSimplify, ZeroToleranceDropsOnlyVerticesOnTheChord) {
  // (1, 1) lies exactly on the chord (0,0)-(2,2) and goes; (3, 1 + 1e-9) lies 7e-10 off (2,2)-(4,0)
  // and stays.
  Tvx_pp2d line = make_pp2d({{0, 0}, {1, 1}, {2, 2}, {3, 1 + 1e-9}, {4, 0}});
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&line, 0.0));
  EXPECT_EQ(vertices(line), (std::vector<Tvx_point2d>{{0, 0}, {2, 2}, {3, 1 + 1e-9}, {4, 0}}));
}

TEST(ChordSimplify, EqualDistancesTakeTheFirst) {
  // Both inner vertices lie 1 from the chord: the first is kept. From (1,1) to (3,0) the second lies
  // 0.447 off and goes; had the second been taken, the first would have gone instead.
  Tvx_pp2d line = make_pp2d({{0, 0}, {1, 1}, {2, 1}, {3, 0}});
  Tvx_chord_simplify2d worker;
  EXPECT_TRUE(worker.simplify(&line, 0.9));
  EXPECT_EQ(vertices(line), (std::vector<Tvx_point2d>{{0, 0}, {1, 1}, {3, 0}}));
}

TEST(ChordSimplify, EveryVertexKeptGivesFalse) {
  // A zigzag whose vertices all stay: they are found level by level, sorted back into the order of the
  // line, and nothing moves.
  Tvx_pp2d line;
  for (int i = 0; i < 9; ++i) line.add(i, (i % 2) * (1 + i));
  Tvx_chord_simplify2d worker;
  EXPECT_FALSE(worker.simplify(&line, 0.1));
  EXPECT_EQ(line.get_size(), 9);
}

TEST(ChordSimplify, ObjectPartsAreSimplifiedButTheResultIsFalse) {
  Tvx_op2d object;
  for (int part = 0; part < 2; ++part) {
    Tvx_pp2d* pp = object.add();
    for (int i = 0; i <= 10; ++i) pp->add(i, part);
  }
  EXPECT_FALSE(Tvx_chord_simplify2d::execute(&object, 0.1));
  EXPECT_EQ(object.get(0)->get_size(), 2);
  EXPECT_EQ(object.get(1)->get_size(), 2);
  Tvx_chord_simplify2d worker;
  Tvx_pp2d* third = object.add();
  for (int i = 0; i <= 10; ++i) third->add(i, 5);
  EXPECT_FALSE(worker.simplify(&object, 0.1));
  EXPECT_EQ(third->get_size(), 2);
}

TEST(ChordSimplify, NanToleranceLeavesTheLineAndNanVerticesNeverCount) {
  Tvx_pp2d line = make_pp2d({{0, 0}, {1, 5}, {2, 0}});
  EXPECT_FALSE(Tvx_chord_simplify2d::execute(&line, std::nan("")));
  EXPECT_EQ(line.get_size(), 3);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Tvx_pp2d holed = make_pp2d({{0, 0}, {1, nan}, {2, 5}, {3, 0}});
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&holed, 1.0));
  EXPECT_EQ(vertices(holed), (std::vector<Tvx_point2d>{{0, 0}, {2, 5}, {3, 0}}));
  Tvx_pp2d inf = make_pp2d({{0, 0}, {1, 5}, {2, 0}});
  EXPECT_TRUE(Tvx_chord_simplify2d::execute(&inf, std::numeric_limits<double>::infinity()));
  EXPECT_EQ(inf.get_size(), 2);
}

TEST(ChordSimplify, StepsWithoutALineDoNothing) {
  Tvx_chord_simplify2d worker;
  unsigned index = 7;
  EXPECT_FALSE(worker.find_max_dist(0, 5, index));
  EXPECT_EQ(index, 7u);
  worker.main_cycle();
  EXPECT_FALSE(worker.make_new_pp());
  EXPECT_FALSE(worker.simplify(static_cast<Tvx_pp2d*>(nullptr), 1.0));
  Tvx_chord_simplify2d* heap = new Tvx_chord_simplify2d;
  Tvx_chord_simplify2d::delete_obj(&heap);
  EXPECT_EQ(heap, nullptr);
}

// The distance that decides a vertex: to the line through the chord, or to the nearer end of a chord
// without direction.
double chord_distance(const Tvx_point2d& a, const Tvx_point2d& b, const Tvx_point2d& p) {
  const double l2 = (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
  if (l2 < 1e-6) return std::min(vx_distance(p, a), vx_distance(p, b));
  return std::fabs((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x)) / std::sqrt(l2);
}

// Random walks: the kept vertices are a subsequence with both ends, no dropped vertex lies farther than
// the tolerance from the chord of its kept neighbours, and every kept inner vertex lay beyond the
// tolerance from some chord (it is not on the chord of its kept neighbours twice over).
TEST(ChordSimplify, RandomLinesKeepASubsequenceWithinTheTolerance) {
  std::mt19937_64 rng(20240611);
  std::uniform_real_distribution<double> step(-1.0, 1.0);
  for (int round = 0; round < 200; ++round) {
    const int n = 2 + static_cast<int>(rng() % 400);
    const double tol = 0.05 + (rng() % 100) * 0.02;
    Tvx_pp2d line;
    double x = 0, y = 0;
    for (int i = 0; i < n; ++i) {
      line.add(x, y);
      x += step(rng);
      y += step(rng);
    }
    const std::vector<Tvx_point2d> before = vertices(line);
    Tvx_chord_simplify2d::execute(&line, tol);
    const std::vector<Tvx_point2d> after = vertices(line);
    ASSERT_GE(after.size(), 2u);
    ASSERT_EQ(after.front(), before.front());
    ASSERT_EQ(after.back(), before.back());
    std::size_t k = 0;  // position in `after`
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (k < after.size() && before[i] == after[k]) {
        ++k;
        continue;
      }
      ASSERT_GT(k, 0u);
      ASSERT_LT(k, after.size());
      EXPECT_LE(chord_distance(after[k - 1], after[k], before[i]), tol * (1 + 1e-12))
          << "round " << round << " vertex " << i;
    }
    EXPECT_EQ(k, after.size()) << "round " << round << ": kept vertices out of order";
  }
}

}  // namespace
