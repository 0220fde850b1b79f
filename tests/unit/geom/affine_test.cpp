#include "geom/affine.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include "ring_shapes.h"

namespace {

using mat3 = std::array<std::array<double, 3>, 3>;
using mat4 = std::array<std::array<double, 4>, 4>;

// The homogeneous matrices of the mappings, and their product, worked out here.
mat3 matrix(const Tvx_affine2d& t) {
  mat3 m{};
  t.get(m[0][0], m[0][1], m[0][2], m[1][0], m[1][1], m[1][2]);
  m[2] = {0, 0, 1};
  return m;
}

mat4 matrix(const Tvx_affine3d& t) {
  mat4 m{};
  t.get(m[0][0], m[0][1], m[0][2], m[0][3], m[1][0], m[1][1], m[1][2], m[1][3], m[2][0], m[2][1], m[2][2],
        m[2][3]);
  m[3] = {0, 0, 0, 1};
  return m;
}

template <class M>
M product(const M& p, const M& q) {
  M r{};
  for (std::size_t i = 0; i < p.size(); ++i)
    for (std::size_t j = 0; j < p.size(); ++j)
      for (std::size_t k = 0; k < p.size(); ++k) r[i][j] += p[i][k] * q[k][j];
  return r;
}

template <class M>
void expect_identity(const M& m, double tol) {
  for (std::size_t i = 0; i < m.size(); ++i)
    for (std::size_t j = 0; j < m.size(); ++j) EXPECT_NEAR(m[i][j], i == j ? 1.0 : 0.0, tol) << i << "," << j;
}

template <class M>
void expect_near(const M& a, const M& b, double tol) {
  for (std::size_t i = 0; i < a.size(); ++i)
    for (std::size_t j = 0; j < a.size(); ++j) EXPECT_NEAR(a[i][j], b[i][j], tol) << i << "," << j;
}

Tvx_affine2d random_affine2d(std::mt19937& rng) {
  std::uniform_real_distribution<double> u(-3.0, 3.0);
  return Tvx_affine2d(u(rng), u(rng), u(rng) * 100, u(rng), u(rng), u(rng) * 100);
}

TEST(Affine2d, DefaultLeavesCoordinatesAsTheyAre) {
  const Tvx_affine2d t;
  std::mt19937 rng(1);
  std::uniform_real_distribution<double> u(-1e7, 1e7);
  for (int i = 0; i < 1000; ++i) {
    const double x = u(rng), y = u(rng) * 1e-9;
    double x2 = 0, y2 = 0;
    t.apply_xy(x, y, x2, y2);
    EXPECT_EQ(x2, x);
    EXPECT_EQ(y2, y);
  }
  double x2 = 1, y2 = 1;
  t.apply_xy(-0.0, 5e-324, x2, y2);
  EXPECT_EQ(x2, 0.0);  // the sign of a zero may change
  EXPECT_EQ(y2, 5e-324);
}

TEST(Affine2d, SetGetAssignCloneEqual) {
  Tvx_affine2d t(1, 2, 3, 4, 5, 6);
  double a, b, c, d, e, f;
  t.get(a, b, c, d, e, f);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(f, 6);
  EXPECT_EQ(t.apply_x(10, 100), 1 * 10 + 2 * 100 + 3);
  EXPECT_EQ(t.apply_y(10, 100), 4 * 10 + 5 * 100 + 6);
  std::unique_ptr<Tvx_affine2d> copy(t.clone());
  EXPECT_TRUE(copy->equal(&t));
  copy->set(1, 2, 3, 4, 5, 6 + 0.9e-6);
  EXPECT_TRUE(copy->equal(&t));
  copy->set(1, 2, 3, 4, 5, 6 + 1.1e-6);
  EXPECT_FALSE(copy->equal(&t));
  Tvx_affine2d u;
  u.assign(&t);
  EXPECT_TRUE(u.equal(&t));
}

TEST(Affine2d, ScaleAndMove) {
  Tvx_affine2d t(9, 9, 9, 9, 9, 9);
  t.set_scale(2, 3);
  EXPECT_TRUE(t.equal(std::make_unique<Tvx_affine2d>(2, 0, 0, 0, 3, 0).get()));
  t.set_move(-4, 5);
  EXPECT_TRUE(t.equal(std::make_unique<Tvx_affine2d>(1, 0, -4, 0, 1, 5).get()));
}

TEST(Affine2d, RectangleOntoRectangle) {
  Tvx_affine2d t;
  t.calc_rects(vx_rect2d(10, 20, 30, 60), vx_rect2d(0, 0, 1, 1));
  double x, y;
  t.apply_xy(10, 20, x, y);
  EXPECT_DOUBLE_EQ(x, 0);
  EXPECT_DOUBLE_EQ(y, 0);
  t.apply_xy(30, 60, x, y);
  EXPECT_DOUBLE_EQ(x, 1);
  EXPECT_DOUBLE_EQ(y, 1);
  t.apply_xy(20, 30, x, y);
  EXPECT_DOUBLE_EQ(x, 0.5);
  EXPECT_DOUBLE_EQ(y, 0.25);
  // No width: infinite coefficients, as the rectangles are not tested.
  t.calc_rects(vx_rect2d(5, 0, 5, 1), vx_rect2d(0, 0, 1, 1));
  double a, b, c, d, e, f;
  t.get(a, b, c, d, e, f);
  EXPECT_TRUE(std::isinf(a));
}

TEST(Affine2d, OriginScaleAngleGoBackAndForth) {
  const double angles[] = {0.0,  0.3,  1.2,  M_PI / 2, 2.0,      3.0,
                           M_PI, -0.5, -1.7, -3.1,     M_PI / 4, -3 * M_PI / 4};
  for (double angle : angles) {
    Tvx_affine2d t;
    t.set_xy0_dxy_angle(100, -200, 2.5, 0.75, angle);
    double x0, y0, dx, dy, back;
    t.get_xy0_dxy_angle(x0, y0, dx, dy, back);
    EXPECT_DOUBLE_EQ(x0, 100);
    EXPECT_DOUBLE_EQ(y0, -200);
    EXPECT_NEAR(dx, 2.5, 1e-12) << angle;
    EXPECT_NEAR(dy, 0.75, 1e-12) << angle;
    EXPECT_NEAR(back, std::atan2(std::sin(angle), std::cos(angle)), 1e-12) << angle;
  }
}

TEST(Affine2d, TurnMovesThePointAsTheCoefficientsSay) {
  Tvx_affine2d t;
  t.set_xy0_dxy_angle(10, 20, 2, 3, M_PI / 2);
  double x, y;
  t.apply_xy(1, 1, x, y);  // scaled to (2, 3), turned to (-3, 2), moved
  EXPECT_NEAR(x, 7, 1e-12);
  EXPECT_NEAR(y, 22, 1e-12);
}

TEST(Affine2d, CombineIsTheMatrixProductSecondAfterFirst) {
  std::mt19937 rng(2);
  for (int i = 0; i < 200; ++i) {
    const Tvx_affine2d first = random_affine2d(rng), second = random_affine2d(rng);
    Tvx_affine2d both;
    both.set_combine_affine(&first, &second);
    expect_near(matrix(both), product(matrix(second), matrix(first)), 1e-9);
    double x1, y1, x2, y2, x3, y3;
    first.apply_xy(3.5, -7.25, x1, y1);
    second.apply_xy(x1, y1, x2, y2);
    both.apply_xy(3.5, -7.25, x3, y3);
    EXPECT_NEAR(x3, x2, 1e-9);
    EXPECT_NEAR(y3, y2, 1e-9);
  }
}

TEST(Affine2d, CombineWithItself) {
  Tvx_affine2d t(1, 2, 3, 4, 5, 6);
  const mat3 m = matrix(t);
  Tvx_affine2d s = t;
  t.set_combine_affine(&t, &t);
  expect_near(matrix(t), product(m, m), 0.0);
  const Tvx_affine2d moved(1, 0, 5, 0, 1, 7);
  s.set_combine_affine(&s, &moved);
  expect_near(matrix(s), product(matrix(moved), m), 0.0);
}

TEST(Affine2d, InvertGivesTheInverseMatrix) {
  std::mt19937 rng(3);
  for (int i = 0; i < 200; ++i) {
    const Tvx_affine2d t = random_affine2d(rng);
    Tvx_affine2d inv = t;
    ASSERT_TRUE(inv.invert());
    expect_identity(product(matrix(inv), matrix(t)), 1e-9);
    expect_identity(product(matrix(t), matrix(inv)), 1e-9);
  }
  Tvx_affine2d rows_swapped(0, 1, 0, 1, 0, 0);  // needs the row swap
  ASSERT_TRUE(rows_swapped.invert());
  EXPECT_TRUE(rows_swapped.equal(std::make_unique<Tvx_affine2d>(0, 1, 0, 1, 0, 0).get()));
}

TEST(Affine2d, InvertOfAScaleOfZeroFailsAndChangesNothing) {
  Tvx_affine2d t;
  t.set_scale(0, 2);
  t.set(0, 0, 5, 0, 2, 6);
  EXPECT_FALSE(t.invert());
  double a, b, c, d, e, f;
  t.get(a, b, c, d, e, f);
  EXPECT_EQ(a, 0);
  EXPECT_EQ(c, 5);
  EXPECT_EQ(e, 2);
  EXPECT_EQ(f, 6);
  Tvx_affine2d parallel(1, 2, 0, 2, 4, 0);
  EXPECT_FALSE(parallel.invert());
  Tvx_affine2d nan(std::numeric_limits<double>::quiet_NaN(), 0, 0, 0, 1, 0);
  EXPECT_FALSE(nan.invert());
  Tvx_affine2d tiny(1e300, 0, 0, 0, 1e-17, 0);  // a pivot below the tolerance
  EXPECT_FALSE(tiny.invert());
  Tvx_affine2d huge(1e-10, 0, 1e300, 0, 1, 0);  // the inverse moves by -1e310, more than a double holds
  EXPECT_FALSE(huge.invert());
  Tvx_affine2d inf(std::numeric_limits<double>::infinity(), 0, 0, 0, 1, 0);
  EXPECT_FALSE(inf.invert());
}

TEST(Affine2d, RectangleBecomesTheBoundsOfItsMappedCorners) {
  Tvx_affine2d t;
  t.set_xy0_dxy_angle(0, 0, 1, 1, M_PI / 4);
  Tvx_rect2d r = vx_rect2d(0, 0, 2, 2);
  t.apply_rect2d(&r);
  ASSERT_TRUE(r.defined);
  EXPECT_NEAR(r.xmin, -std::sqrt(2.0), 1e-12);
  EXPECT_NEAR(r.xmax, std::sqrt(2.0), 1e-12);
  EXPECT_NEAR(r.ymin, 0, 1e-12);
  EXPECT_NEAR(r.ymax, 2 * std::sqrt(2.0), 1e-12);
  Tvx_rect2d none = vx_rect2d();
  t.set_move(5, 5);
  t.apply_rect2d(&none);
  EXPECT_FALSE(none.defined);
  EXPECT_EQ(none.xmin, 0);
}

TEST(Affine2d, GeometryIsMappedInPlaceAndItsStateMadeStale) {
  Tvx_op2d op;
  vxk_test::add_ring(&op, vxk_test::box(0, 0, 1, 1));
  vxk_test::add_ring(&op, {{5, 5}, {6, 7}});
  ASSERT_EQ(op.get_rect().xmax, 6);
  ASSERT_EQ(op.get(1)->get_rect_and_stat().sum_x, 11);
  const Tvx_affine2d t(2, 0, 10, 0, -1, 0);  // a mirror: turns the ring round
  t.apply_op2d(&op);
  EXPECT_EQ(vxk_test::vertices(op.get(1)), (vxk_test::ring{{20, -5}, {22, -7}}));
  const Tvx_rect2d r = op.get_rect();
  EXPECT_EQ(r.xmin, 10);
  EXPECT_EQ(r.xmax, 22);
  EXPECT_EQ(r.ymin, -7);
  EXPECT_EQ(op.get(1)->get_rect_and_stat().sum_x, 42);
  EXPECT_EQ(op.get(0)->get_clock_wise(), vx_cw_counter_clockwise);
  Tvx_point2d p = vx_point2d(1, 1);
  t.apply_point2d(&p);
  EXPECT_EQ(p, vx_point2d(12, -1));
}

Tvx_affine3d random_affine3d(std::mt19937& rng) {
  std::uniform_real_distribution<double> u(-3.0, 3.0);
  return Tvx_affine3d(u(rng), u(rng), u(rng), u(rng) * 100, u(rng), u(rng), u(rng), u(rng) * 100, u(rng),
                      u(rng), u(rng), u(rng) * 100);
}

TEST(Affine3d, DefaultLeavesCoordinatesAsTheyAre) {
  const Tvx_affine3d t;
  double x, y, z;
  t.apply_xyz(1.25e6, -3.5, 7e-8, x, y, z);
  EXPECT_EQ(x, 1.25e6);
  EXPECT_EQ(y, -3.5);
  EXPECT_EQ(z, 7e-8);
}

TEST(Affine3d, CoefficientsRowByRow) {
  Tvx_affine3d t(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12);
  EXPECT_EQ(t.apply_x(1, 10, 100), 1 + 20 + 300 + 4);
  EXPECT_EQ(t.apply_y(1, 10, 100), 5 + 60 + 700 + 8);
  EXPECT_EQ(t.apply_z(1, 10, 100), 9 + 100 + 1100 + 12);
  std::unique_ptr<Tvx_affine3d> copy(t.clone());
  EXPECT_TRUE(copy->equal(&t));
  copy->set(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12 + 2e-6);
  EXPECT_FALSE(copy->equal(&t));
  Tvx_affine3d u;
  u.assign(&t);
  EXPECT_TRUE(u.equal(&t));
}

TEST(Affine3d, InvertGivesTheInverseMatrix) {
  std::mt19937 rng(4);
  for (int i = 0; i < 200; ++i) {
    const Tvx_affine3d t = random_affine3d(rng);
    Tvx_affine3d inv = t;
    ASSERT_TRUE(inv.invert());
    expect_identity(product(matrix(inv), matrix(t)), 1e-8);
  }
  Tvx_affine3d flat(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 5);  // z scaled by 0
  EXPECT_FALSE(flat.invert());
  EXPECT_TRUE(flat.equal(std::make_unique<Tvx_affine3d>(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 5).get()));
}

TEST(Affine3d, TurnAboutZOnlyAndTheEighthValueIsNotRead) {
  Tvx_affine3d a, b;
  a.set_xyz0_dxyz_angles(1, 2, 3, 2, 3, 4, 0.5, 0.0);
  b.set_xyz0_dxyz_angles(1, 2, 3, 2, 3, 4, 0.5, 123.0);
  EXPECT_TRUE(a.equal(&b));
  const double c = std::cos(0.5), s = std::sin(0.5);
  const Tvx_affine3d want(c * 2, -s * 3, 0, 1, s * 2, c * 3, 0, 2, 0, 0, 4, 3);
  EXPECT_TRUE(a.equal(&want));
  double x0, y0, z0, dx, dy, dz, angle, unused = 9;
  a.get_xyz0_dxyz_angles(x0, y0, z0, dx, dy, dz, angle, unused);
  EXPECT_DOUBLE_EQ(x0, 1);
  EXPECT_DOUBLE_EQ(y0, 2);
  EXPECT_DOUBLE_EQ(z0, 3);
  EXPECT_NEAR(dx, 2, 1e-12);
  EXPECT_NEAR(dy, 3, 1e-12);
  EXPECT_DOUBLE_EQ(dz, 4);
  EXPECT_NEAR(angle, 0.5, 1e-12);
  EXPECT_EQ(unused, 0.0);
}

}  // namespace
