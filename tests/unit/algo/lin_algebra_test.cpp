#include "algo/lin_algebra.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "error_log.h"

namespace {

std::vector<double> items(const Tvx_dbl_vec& v) {
  return std::vector<double>(v.data(), v.data() + v.get_size());
}

void expect_near(const Tvx_dbl_vec& v, std::initializer_list<double> want, double tol = 1e-12) {
  ASSERT_EQ(v.get_size(), want.size());
  unsigned i = 0;
  for (double w : want) EXPECT_NEAR(v.get(i++), w, tol) << "element " << i - 1;
}

void expect_matrix(const Tvx_dbl_mtx& m, unsigned nx, unsigned ny, std::initializer_list<double> by_rows) {
  ASSERT_EQ(m.get_nx(), nx);
  ASSERT_EQ(m.get_ny(), ny);
  unsigned i = 0;
  for (double w : by_rows) {
    EXPECT_NEAR(m.get(i % nx, i / nx), w, 1e-12) << "column " << i % nx << " row " << i / nx;
    ++i;
  }
}

TEST(Math, SignAndAngles) {
  EXPECT_EQ(Tvx_math::sign(2.5), 1);
  EXPECT_EQ(Tvx_math::sign(-1e-300), -1);
  EXPECT_EQ(Tvx_math::sign(0.0), 0);
  EXPECT_EQ(Tvx_math::sign(-0.0), 0);
  EXPECT_EQ(Tvx_math::sign(std::nan("")), 0);
  EXPECT_NEAR(Tvx_math::rad_to_deg(M_PI / 2), 90.0, 1e-12);
  EXPECT_NEAR(Tvx_math::deg_to_rad(180.0), M_PI, 1e-15);
}

TEST(Gauss, RefusesShapesThatDoNotFit) {
  const Tvx_dbl_mtx wide(3, 2, {1, 2, 3, 4, 5, 6});
  const Tvx_dbl_vec b2{1, 2};
  Tvx_dbl_vec x{9};
  EXPECT_FALSE(Tvx_lin_algebra::gauss(&wide, &b2, &x));
  const Tvx_dbl_mtx sq(2, 2, {1, 0, 0, 1});
  const Tvx_dbl_vec b3{1, 2, 3};
  EXPECT_FALSE(Tvx_lin_algebra::gauss(&sq, &b3, &x));
  EXPECT_EQ(items(x), std::vector<double>{9});  // nothing done
}

TEST(Gauss, ZeroFirstPivotSolvedThroughTheRowSwap) {
  const Tvx_dbl_mtx a(2, 2, {0, 1, 1, 0});
  const Tvx_dbl_vec b{3, 4};
  Tvx_dbl_vec x;
  ASSERT_TRUE(Tvx_lin_algebra::gauss(&a, &b, &x));
  expect_near(x, {4, 3});
}

TEST(Gauss, KnownSystemLeavesInputsAlone) {
  const Tvx_dbl_mtx a(3, 3, {2, 1, -1, -3, -1, 2, -2, 1, 2});
  const Tvx_dbl_vec b{8, -11, -3};
  Tvx_dbl_vec x;
  ASSERT_TRUE(Tvx_lin_algebra::gauss(&a, &b, &x));
  expect_near(x, {2, 3, -1});
  expect_matrix(a, 3, 3, {2, 1, -1, -3, -1, 2, -2, 1, 2});
  expect_near(b, {8, -11, -3}, 0.0);
}

TEST(Gauss, EqualRowsAreSingularAndTheMatrixStays) {
  const Tvx_dbl_mtx a(3, 3, {1, 2, 3, 4, 5, 6, 1, 2, 3});
  const Tvx_dbl_vec b{1, 2, 1};
  Tvx_dbl_vec x;
  EXPECT_FALSE(Tvx_lin_algebra::gauss(&a, &b, &x));
  EXPECT_EQ(x.get_size(), 3u);  // sized even so
  expect_matrix(a, 3, 3, {1, 2, 3, 4, 5, 6, 1, 2, 3});
}

TEST(Gauss, TinyPivotCountsAsZero) {
  const Tvx_dbl_mtx a(1, 1, {1e-17});
  const Tvx_dbl_vec b{1};
  Tvx_dbl_vec x;
  EXPECT_FALSE(Tvx_lin_algebra::gauss(&a, &b, &x));
  const Tvx_dbl_mtx small(1, 1, {1e-15});
  ASSERT_TRUE(Tvx_lin_algebra::gauss(&small, &b, &x));
  EXPECT_DOUBLE_EQ(x.get(0), 1e15);
}

TEST(Gauss, EmptyAndNanSystemsGiveFalse) {
  const Tvx_dbl_mtx empty;
  const Tvx_dbl_vec none;
  Tvx_dbl_vec x{1};
  EXPECT_FALSE(Tvx_lin_algebra::gauss(&empty, &none, &x));
  EXPECT_EQ(x.get_size(), 0u);
  const Tvx_dbl_mtx nan(2, 2, {std::nan(""), 1, 1, std::nan("")});
  const Tvx_dbl_vec b{1, 1};
  EXPECT_FALSE(Tvx_lin_algebra::gauss(&nan, &b, &x));
}

TEST(Gauss, InfiniteElementIsAPivotLikeAnyOther) {
  // inf x0 + x1 = 1, x0 + x1 = 1: IEEE arithmetic gives the limit (0, 1).
  const double inf = std::numeric_limits<double>::infinity();
  const Tvx_dbl_mtx a(2, 2, {inf, 1, 1, 1});
  const Tvx_dbl_vec b{1, 1};
  Tvx_dbl_vec x;
  ASSERT_TRUE(Tvx_lin_algebra::gauss(&a, &b, &x));
  expect_near(x, {0, 1}, 0.0);
}

TEST(Gauss, SolutionMayReplaceTheRightHandSide) {
  const Tvx_dbl_mtx a(2, 2, {2, 0, 0, 4});
  Tvx_dbl_vec b{2, 2};
  ASSERT_TRUE(Tvx_lin_algebra::gauss(&a, &b, &b));
  expect_near(b, {1, 0.5});
}

TEST(Inverse, UnitGivesUnit) {
  const Tvx_dbl_mtx unit(3, 3, {1, 0, 0, 0, 1, 0, 0, 0, 1});
  Tvx_dbl_mtx out;
  ASSERT_TRUE(Tvx_lin_algebra::inverse(&unit, &out));
  expect_matrix(out, 3, 3, {1, 0, 0, 0, 1, 0, 0, 0, 1});
}

TEST(Inverse, KnownInverseInPlace) {
  Tvx_dbl_mtx a(2, 2, {4, 7, 2, 6});  // inverse (0.6, -0.7; -0.2, 0.4)
  ASSERT_TRUE(Tvx_lin_algebra::inverse(&a, &a));
  expect_matrix(a, 2, 2, {0.6, -0.7, -0.2, 0.4});
}

TEST(Inverse, NotSquareOrSingularLeavesOutAlone) {
  const Tvx_dbl_mtx wide(2, 1, {1, 2});
  const Tvx_dbl_mtx singular(2, 2, {1, 2, 2, 4});
  Tvx_dbl_mtx out(1, 1, {5});
  EXPECT_FALSE(Tvx_lin_algebra::inverse(&wide, &out));
  EXPECT_FALSE(Tvx_lin_algebra::inverse(&singular, &out));
  expect_matrix(out, 1, 1, {5});
}

TEST(Multiply, ShapesAndProducts) {
  const Tvx_dbl_mtx a(3, 2, {1, 2, 3, 4, 5, 6});
  const Tvx_dbl_mtx b(2, 3, {7, 8, 9, 10, 11, 12});
  Tvx_dbl_mtx c(1, 1, {0});
  ASSERT_TRUE(Tvx_lin_algebra::mutiply(&a, &b, &c));
  expect_matrix(c, 2, 2, {58, 64, 139, 154});
  EXPECT_FALSE(Tvx_lin_algebra::mutiply(&a, &a, &c));
  expect_matrix(c, 2, 2, {58, 64, 139, 154});  // untouched

  const Tvx_dbl_vec v{1, 0, -1};
  Tvx_dbl_vec out;
  ASSERT_TRUE(Tvx_lin_algebra::mutiply(&a, &v, &out));
  expect_near(out, {-2, -2});
  EXPECT_FALSE(Tvx_lin_algebra::mutiply(&a, &out, &out));
}

TEST(Multiply, ProductMayReplaceAFactor) {
  Tvx_dbl_mtx a(2, 2, {1, 1, 0, 1});
  ASSERT_TRUE(Tvx_lin_algebra::mutiply(&a, &a, &a));
  expect_matrix(a, 2, 2, {1, 2, 0, 1});
}

TEST(Transpone, SwapsColumnsAndRows) {
  Tvx_dbl_mtx a(3, 1, {1, 2, 3});
  Tvx_dbl_mtx t;
  ASSERT_TRUE(Tvx_lin_algebra::transpone(&a, &t));
  expect_matrix(t, 1, 3, {1, 2, 3});
  ASSERT_TRUE(Tvx_lin_algebra::transpone(&a, &a));
  expect_matrix(a, 1, 3, {1, 2, 3});
}

TEST(LeastSquares, FitsAnOverdeterminedSystem) {
  // y = c0 + c1 t through (0, 1), (1, 2), (2, 4): the normal equations give c0 = 5/6, c1 = 3/2.
  const Tvx_dbl_mtx a(2, 3, {1, 0, 1, 1, 1, 2});
  const Tvx_dbl_vec b{1, 2, 4};
  Tvx_dbl_vec x;
  ASSERT_TRUE(Tvx_lin_algebra::least_squares_solve(&a, &b, &x));
  expect_near(x, {5.0 / 6.0, 1.5});
  Tvx_dbl_mtx p;
  ASSERT_TRUE(Tvx_lin_algebra::least_squares(&a, &p));
  EXPECT_EQ(p.get_nx(), 3u);
  EXPECT_EQ(p.get_ny(), 2u);
}

TEST(LeastSquares, EmptyMatrixGivesFalse) {
  const Tvx_dbl_mtx empty;
  const Tvx_dbl_vec none;
  Tvx_dbl_vec x{3};
  EXPECT_FALSE(Tvx_lin_algebra::least_squares_solve(&empty, &none, &x));
  EXPECT_EQ(items(x), std::vector<double>{3});
}

TEST(LeastSquares, DependentColumnsOrWrongSizeGiveFalse) {
  const Tvx_dbl_mtx a(2, 3, {1, 2, 2, 4, 3, 6});
  const Tvx_dbl_vec b{1, 2, 3};
  Tvx_dbl_vec x;
  EXPECT_FALSE(Tvx_lin_algebra::least_squares_solve(&a, &b, &x));
  Tvx_dbl_mtx p;
  EXPECT_FALSE(Tvx_lin_algebra::least_squares(&a, &p));
  const Tvx_dbl_mtx good(2, 3, {1, 0, 1, 1, 1, 2});
  const Tvx_dbl_vec short_b{1, 2};
  EXPECT_FALSE(Tvx_lin_algebra::least_squares_solve(&good, &short_b, &x));
}

TEST(Progonka, SolvesADiagonallyDominantSystem) {
  // Rows: (2 1 0 0), (1 3 1 0), (0 1 3 1), (0 0 1 2); x = (1, -1, 2, 0.5).
  Tvx_dbl_mtx_3diag a;
  a.set_size(4);
  const double main[] = {2, 3, 3, 2};
  for (unsigned i = 0; i < 4; ++i) {
    a.set_main(i, main[i]);
    if (i + 1 < 4) a.set(i + 1, i, 1.0);
    if (i > 0) a.set(i - 1, i, 1.0);
  }
  const Tvx_dbl_vec d{1, 0, 5.5, 3};
  Tvx_dbl_vec x;
  ASSERT_TRUE(Tvx_lin_algebra::progonka_3diag(&a, &d, &x));
  expect_near(x, {1, -1, 2, 0.5});
}

TEST(Progonka, ZeroFirstDiagonalFailsThoughPivotingWouldSolve) {
  // (0 1; 1 0) x = (3, 4) has the answer (4, 3), but the sweep does not pivot.
  Tvx_dbl_mtx_3diag a;
  a.set_size(2);
  a.set(1, 0, 1.0);
  a.set(0, 1, 1.0);
  const Tvx_dbl_vec d{3, 4};
  Tvx_dbl_vec x;
  EXPECT_FALSE(Tvx_lin_algebra::progonka_3diag(&a, &d, &x));
}

TEST(Progonka, ZeroPivotInsideOrAtTheEndFails) {
  Tvx_dbl_mtx_3diag a;
  a.set_size(3);
  // Row 1 after the sweep: btm[1] * p[1] + main[1] = 1 * (-1) + 1 = 0.
  for (unsigned i = 0; i < 3; ++i) a.set_main(i, 1.0);
  a.set_top(0, 1.0);
  a.set_btm(1, 1.0);
  const Tvx_dbl_vec d{1, 1, 1};
  Tvx_dbl_vec x;
  EXPECT_FALSE(Tvx_lin_algebra::progonka_3diag(&a, &d, &x));
  Tvx_dbl_mtx_3diag b;
  b.set_size(2);
  b.set_main(0, 1.0);
  b.set_top(0, 1.0);
  b.set_btm(1, 1.0);
  b.set_main(1, 1.0);  // the last pivot: 1 * (-1) + 1 = 0
  EXPECT_FALSE(Tvx_lin_algebra::progonka_3diag(&b, &d, &x));
}

TEST(Progonka, NoArraysOrShortRightHandSideGiveFalse) {
  Tvx_dbl_mtx_3diag empty;
  const Tvx_dbl_vec d{1, 1};
  Tvx_dbl_vec x{7};
  EXPECT_FALSE(Tvx_lin_algebra::progonka_3diag(&empty, &d, &x));
  Tvx_dbl_mtx_3diag dropped;
  dropped.set_size(2);
  dropped.set_size(1);  // arrays gone, size 2 stands
  EXPECT_FALSE(Tvx_lin_algebra::progonka_3diag(&dropped, &d, &x));
  Tvx_dbl_mtx_3diag three;
  three.set_size(3);
  EXPECT_FALSE(Tvx_lin_algebra::progonka_3diag(&three, &d, &x));
  EXPECT_EQ(items(x), std::vector<double>{7});
}

TEST(LinAlgebraDebug, PrintsVectorAndMatrix) {
  vxk_test::error_log log;
  const Tvx_dbl_vec v{1, 2.5};
  Tvx_lin_algebra::debug_vec_print("b", &v);
  const Tvx_dbl_mtx m(2, 2, {1, 2, 3, 4});
  Tvx_lin_algebra::debug_mtx_print("A", &m);
  EXPECT_EQ(log.debug, (std::vector<std::string>{"b : vector (2)", "begin", "1 , 2.5", "end",
                                                 "A : matrix (2 x 2)", "begin", "1 , 2", "3 , 4", "end"}));
}

TEST(LinAlgebraDebug, SelfTestPasses) {
  vxk_test::error_log log;
  EXPECT_TRUE(Tvx_lin_algebra::debug_test());
  EXPECT_EQ(log.debug, std::vector<std::string>{"+++ FINISHED +++"});
}

}  // namespace
