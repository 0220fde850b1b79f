#include "algo/pp2d_labeling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <random>
#include <vector>

#include "geom/pp2d.h"
#include "pp2d_build.h"

namespace {

using vxk_test::make_pp2d;
using vxk_test::vertices;

// The pieces a label may stand on, written out for the test: for each three vertices, the chord from
// the first to the third if it is longer than 0.9 of the way along them, else each of the two
// segments.
struct stretch {
  int s;
  int e;
  double length;
};

std::vector<stretch> pieces_of(const Tvx_pp2d& line) {
  std::vector<stretch> out;
  for (int i = 0; i + 2 < line.get_size(); ++i) {
    const double ab = vx_distance(line.get(i), line.get(i + 1));
    const double bc = vx_distance(line.get(i + 1), line.get(i + 2));
    const double ac = vx_distance(line.get(i), line.get(i + 2));
    if (ac / (ab + bc) > 0.9) {
      out.push_back({i, i + 2, ac});
    } else {
      out.push_back({i, i + 1, ab});
      out.push_back({i + 1, i + 2, bc});
    }
  }
  return out;
}

// A zigzag heading west, with segments of the given lengths and alternating bends.
Tvx_pp2d zigzag_west(std::initializer_list<double> lengths) {
  Tvx_pp2d line;
  double x = 100, y = 0;
  line.add(x, y);
  int k = 0;
  for (double l : lengths) {
    const double a = M_PI + (k++ % 2 ? 0.9 : -0.9);  // westwards, turning by 1.8 rad at each vertex
    x += l * std::cos(a);
    y += l * std::sin(a);
    line.add(x, y);
  }
  return line;
}

TEST(Labeling, WestwardLineIsTurnedAndTheIndexCountedInTheTurnedLine) {
  const Tvx_pp2d source = zigzag_west({1, 5, 1, 2});
  Tvx_pp2d out;
  // The longest piece is the segment 1-2, of length 5; in the turned line of 5 vertices it is 2-3.
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&source, 0.0, 3.0, false, &out), 2.0);
  std::vector<Tvx_point2d> want = vertices(source);
  std::reverse(want.begin(), want.end());
  EXPECT_EQ(vertices(out), want);
  EXPECT_LT(out.get(2).x, out.get(3).x);  // reads west to east

  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&source, 0.0, 3.0, true, &out), 1.0);
  EXPECT_EQ(vertices(out), vertices(source));
}

TEST(Labeling, ShortLineGivesMinusOneWithTheSimplifiedCopy) {
  Tvx_pp2d source;
  for (int i = 0; i <= 10; ++i) source.add(i * 0.1, 0.0);
  Tvx_pp2d out;
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&source, 1.0, 5.0, false, &out), -1.0);
  EXPECT_EQ(vertices(out), (std::vector<Tvx_point2d>{{0, 0}, {1, 0}}));
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&source, 1.0, 1.0, false, &out), -1.0);  // not above
}

TEST(Labeling, TwoVerticesAreTheStretch) {
  const Tvx_pp2d east = make_pp2d({{0, 0}, {10, 1}});
  Tvx_pp2d out;
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&east, 0.0, 1.0, false, &out), 0.0);
  const Tvx_pp2d west = make_pp2d({{10, 0}, {0, 1}});
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&west, 0.0, 1.0, false, &out), 0.0);
  EXPECT_EQ(vertices(out), (std::vector<Tvx_point2d>{{0, 1}, {10, 0}}));
  const Tvx_pp2d one = make_pp2d({{0, 0}});
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&one, 0.0, -1.0, false, &out), -1.0);
}

TEST(Labeling, EmptyOrNanGivesMinusOne) {
  const Tvx_pp2d empty;
  Tvx_pp2d out = make_pp2d({{1, 1}});
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&empty, 1.0, 0.0, false, &out), -1.0);
  EXPECT_EQ(out.get_size(), 0);
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&empty, 1.0, 0.0, false, vx_text_end, &out), -1);
  const Tvx_pp2d line = make_pp2d({{0, 0}, {10, 0}, {20, 5}});
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&line, 1.0, std::nan(""), false, &out), -1.0);
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&line, 1.0, std::nan(""), false, vx_text_middle, &out),
            -1);
}

TEST(Labeling, NoPieceLongEnoughGivesMinusOne) {
  // Long in all, but a bend at every vertex keeps each piece at 2.
  const Tvx_pp2d source = zigzag_west({2, 2, 2, 2, 2});
  Tvx_pp2d out;
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&source, 0.0, 3.0, false, &out), -1.0);
}

TEST(Labeling, NearlyStraightThreeVerticesMakeOnePiece) {
  // 0-1-2 lie nearly straight (chord 9.95 of 10), 2-3 turns back.
  const Tvx_pp2d source = make_pp2d({{0, 0}, {5, 0.5}, {10, 0}, {8, 3}});
  Tvx_pp2d out;
  EXPECT_EQ(Tvx_pp2d_labeling::prepare_along(&source, 0.0, 5.0, false, &out), 0.0);
}

// Random lines: the chosen stretch is the longest piece by the test's own count of the pieces, and it
// reads from west to east. The pieces of a line turned round are the same pieces, so they are counted
// on the line as it comes out.
TEST(Labeling, RandomLinesChooseTheLongestPieceReadingEastwards) {
  std::mt19937_64 rng(7);
  std::uniform_real_distribution<double> angle(-M_PI, M_PI), length(0.5, 6.0);
  int found = 0, turned = 0;
  for (int round = 0; round < 300; ++round) {
    Tvx_pp2d source;
    double x = 0, y = 0, a = angle(rng);
    source.add(x, y);
    const int n = 3 + static_cast<int>(rng() % 30);
    for (int i = 1; i < n; ++i) {
      a += angle(rng) * 0.6;
      const double l = length(rng);
      x += l * std::cos(a);
      y += l * std::sin(a);
      source.add(x, y);
    }
    Tvx_pp2d out;
    const double r = Tvx_pp2d_labeling::prepare_along(&source, 0.4, 4.0, false, &out);
    std::vector<stretch> pieces = pieces_of(out);
    if (out.get_size() == 2) pieces = {{0, 1, vx_distance(out.get(0), out.get(1))}};
    double best = 0.0;
    for (const stretch& p : pieces) best = std::max(best, p.length);
    if (!(out.calc_length() > 4.0) || !(best > 4.0)) {
      EXPECT_EQ(r, -1.0) << "round " << round;
      continue;
    }
    ++found;
    if (out.get_first() != source.get_first()) ++turned;
    const int s = static_cast<int>(r);
    ASSERT_EQ(r, s) << "round " << round;
    bool matches = false;
    for (const stretch& p : pieces)
      matches = matches || (p.s == s && p.length == best && out.get(p.e).x >= out.get(s).x);
    EXPECT_TRUE(matches) << "round " << round << ": stretch at " << s << ", longest " << best;
  }
  EXPECT_GT(found, 100);
  EXPECT_GT(turned, 20);
}

// A straight line densified into equal pieces: the weight puts the stretch at the end, the middle or the
// start as asked.
TEST(LabelingWeight, PositionChoosesEndMiddleOrStart) {
  const Tvx_pp2d source = make_pp2d({{0, 0}, {100, 0}});
  Tvx_pp2d out;
  // Pieces of at most 11: 100 / 11 gives 9 new vertices, 10 pieces of 10, 11 vertices.
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, false, vx_text_end, &out), 8);
  EXPECT_EQ(out.get_size(), 11);
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, false, vx_text_middle, &out), 4);
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, false, vx_text_start, &out), 0);
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, false,
                                                    static_cast<Tvx_text_position>(7), &out),
            0);
}

TEST(LabelingWeight, WestwardLineIsTurned) {
  const Tvx_pp2d source = make_pp2d({{100, 0}, {0, 0}});
  Tvx_pp2d out;
  // In the source the stretch at the end is 8-10; in the turned line it starts at 10 - 10 = 0.
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, false, vx_text_end, &out), 0);
  EXPECT_EQ(out.get(0), vx_point2d(0, 0));
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, true, vx_text_end, &out), 8);
  EXPECT_EQ(out.get(0), vx_point2d(100, 0));
}

TEST(LabelingWeight, LengthAtMostMinLengthGivesMinusOne) {
  const Tvx_pp2d source = make_pp2d({{0, 0}, {10, 0}});
  Tvx_pp2d out;
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 10.0, false, vx_text_end, &out), -1);
  EXPECT_EQ(vertices(out), vertices(source));
  // Just longer: densified by 11 the line stays two vertices, and they are the stretch.
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 1.0, 9.99, false, vx_text_end, &out), 0);
  EXPECT_EQ(out.get_size(), 2);
}

TEST(LabelingWeight, PiecesNotLongerThanMinLengthDoNotCount) {
  // A zigzag of bends: each piece is 4 long, min_length 5 is longer than any.
  const Tvx_pp2d source = zigzag_west({4, 4, 4, 4});
  Tvx_pp2d out;
  EXPECT_EQ(Tvx_pp2d_labeling_weight::prepare_along(&source, 0.0, 5.0, false, vx_text_middle, &out), -1);
}

}  // namespace
