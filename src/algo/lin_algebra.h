// Small numeric helpers and the direct solvers that surveying and curve fitting call for: Gaussian
// elimination, inversion, least squares and the sweep for tridiagonal systems.
//
// Every solver answers with a bool and throws nothing but an allocation failure. A pivot whose
// magnitude is not above f_tolerance (1e-16, absolute) counts as zero and gives false; so does a NaN
// pivot. Infinite elements are not refused: the answer is what IEEE arithmetic makes of them, which
// may be finite, infinite or NaN. An empty (0 by 0) system has no pivot to test and gives false.
// Outputs may be the same objects as inputs.
#pragma once

#include "algo/dbl_mtx.h"
#include "algo/num_vec.h"

class Tvx_math {
 public:
  // 1, -1 or 0 (also for NaN).
  static int sign(double v) { return v > 0.0 ? 1 : (v < 0.0 ? -1 : 0); }
  static double rad_to_deg(double r);
  static double deg_to_rad(double d);
};

class Tvx_lin_algebra {
 public:
  static constexpr double f_tolerance = 1e-16;

  // Solves a x = b. False, with x untouched, if a is not square or b's size differs; otherwise x is
  // sized to n even where the result is false (a singular system), and then holds what it held.
  // a and b stay as they are.
  static bool gauss(const Tvx_dbl_mtx* a, const Tvx_dbl_vec* b, Tvx_dbl_vec* x);
  // out = a^-1; false, out untouched, if a is not square or singular.
  static bool inverse(const Tvx_dbl_mtx* a, Tvx_dbl_mtx* out);
  // c = a b; false if the columns of a differ from the rows of b. c is reshaped to the rows of a by
  // the columns of b.
  static bool mutiply(const Tvx_dbl_mtx* a, const Tvx_dbl_mtx* b, Tvx_dbl_mtx* c);
  // out = a v; false if the columns of a differ from the size of v.
  static bool mutiply(const Tvx_dbl_mtx* a, const Tvx_dbl_vec* v, Tvx_dbl_vec* out);
  static bool transpone(const Tvx_dbl_mtx* a, Tvx_dbl_mtx* out);
  // out = (a^T a)^-1 a^T; false if a^T a is singular (dependent columns).
  static bool least_squares(const Tvx_dbl_mtx* a, Tvx_dbl_mtx* out);
  // The x that minimises |a x - b|; false with dependent columns or a b of another size than the rows
  // of a.
  static bool least_squares_solve(const Tvx_dbl_mtx* a, const Tvx_dbl_vec* b, Tvx_dbl_vec* x);
  // Solves the tridiagonal a x = d by the forward and backward sweep, without pivoting: a zero main[0]
  // gives false even where pivoting would solve the system. False also, with x untouched, for a matrix
  // without arrays (a size below 2) or a d shorter than the size.
  static bool progonka_3diag(const Tvx_dbl_mtx_3diag* a, const Tvx_dbl_vec* d, Tvx_dbl_vec* x);

  // Lines through Tvx_env_main::debug_message: "<title> : vector (<size>)" or
  // "<title> : matrix (<nx> x <ny>)", "begin", the elements separated by " , " (a matrix row by row),
  // "end".
  static void debug_vec_print(const char* title, const Tvx_dbl_vec* v);
  static void debug_mtx_print(const char* title, const Tvx_dbl_mtx* m);
  // Runs small fixed systems through the solvers and reports each one that fails ("GAUSS - error",
  // "INVERSE - error", "LEAST_SQUARES_SOLVE - error", "PROGONKA_3DIAG  - error"), then
  // "+++ FINISHED +++". True when none failed.
  static bool debug_test();
};
