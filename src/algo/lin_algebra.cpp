#include "algo/lin_algebra.h"

#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/env.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

bool zero_pivot(double v) {
  return !(std::fabs(v) > Tvx_lin_algebra::f_tolerance);
}

// A matrix of the shape nx by ny, or false when its elements could not be had.
bool shaped(Tvx_dbl_mtx& m, unsigned nx, unsigned ny) {
  m.set_nxny(nx, ny);
  return m.is_valid() || static_cast<std::size_t>(nx) * ny == 0;
}

// The working copy of the solvers: n rows, the n columns of a, then `extra` zero columns.
bool widened(const Tvx_dbl_mtx* a, unsigned extra, Tvx_dbl_mtx& w) {
  const unsigned n = a->get_nx();
  if (n == 0 || !shaped(w, n + extra, n)) return false;
  for (unsigned y = 0; y < n; ++y)
    for (unsigned x = 0; x < n; ++x) w.set(x, y, a->get(x, y));
  return true;
}

// Forward elimination with row pivoting over the first n columns; every column of w takes part, so
// that the right-hand sides beside the matrix go along. False at a pivot that counts as zero, the last
// diagonal element included.
bool eliminate(Tvx_dbl_mtx& w, unsigned n) {
  const unsigned cols = w.get_nx();
  for (unsigned k = 0; k + 1 < n; ++k) {
    unsigned best = k;
    double best_abs = std::fabs(w.get(k, k));
    for (unsigned r = k + 1; r < n; ++r) {
      const double v = std::fabs(w.get(k, r));
      if (v > best_abs) {
        best_abs = v;
        best = r;
      }
    }
    w.swap_rows(k, best);
    if (zero_pivot(w.get(k, k))) return false;
    const double* pivot = w.row(k);
    for (unsigned r = k + 1; r < n; ++r) {
      double* row = w.row(r);
      const double f = row[k] / pivot[k];
      for (unsigned c = k; c < cols; ++c) row[c] -= f * pivot[c];
    }
  }
  return !zero_pivot(w.get(n - 1, n - 1));
}

// The solution for the right-hand side in column c of the eliminated w, from the last row up.
std::vector<double> back_substitute(const Tvx_dbl_mtx& w, unsigned n, unsigned c) {
  std::vector<double> x(n, 0.0);
  for (unsigned i = n; i-- > 0;) {
    const double* row = w.row(i);
    double sum = 0.0;
    for (unsigned j = i + 1; j < n; ++j) sum += row[j] * x[j];
    x[i] = (row[c] - sum) / row[i];
  }
  return x;
}

void put(Tvx_dbl_vec* v, const std::vector<double>& values) {
  v->set_size(static_cast<unsigned>(values.size()));
  for (unsigned i = 0; i < values.size(); ++i) v->set(i, values[i]);
}

bool square(const Tvx_dbl_mtx* a) {
  return a->get_nx() == a->get_ny();
}

}  // namespace

double Tvx_math::rad_to_deg(double r) {
  return r * 180.0 / kPi;
}

double Tvx_math::deg_to_rad(double d) {
  return d * kPi / 180.0;
}

bool Tvx_lin_algebra::gauss(const Tvx_dbl_mtx* a, const Tvx_dbl_vec* b, Tvx_dbl_vec* x) {
  if (!square(a) || b->get_size() != a->get_nx()) return false;
  const unsigned n = a->get_nx();
  Tvx_dbl_mtx w;
  const bool built = widened(a, 1, w);
  for (unsigned y = 0; built && y < n; ++y) w.set(n, y, b->get(y));
  x->set_size(n);
  if (!built || !eliminate(w, n)) return false;
  put(x, back_substitute(w, n, n));
  return true;
}

bool Tvx_lin_algebra::inverse(const Tvx_dbl_mtx* a, Tvx_dbl_mtx* out) {
  if (!square(a)) return false;
  const unsigned n = a->get_nx();
  Tvx_dbl_mtx w;
  if (!widened(a, n, w)) return false;
  for (unsigned i = 0; i < n; ++i) w.set(n + i, i, 1.0);
  if (!eliminate(w, n)) return false;
  Tvx_dbl_mtx r;
  if (!shaped(r, n, n)) return false;
  for (unsigned c = 0; c < n; ++c) {
    const std::vector<double> column = back_substitute(w, n, n + c);
    for (unsigned y = 0; y < n; ++y) r.set(c, y, column[y]);
  }
  out->swap(r);
  return true;
}

bool Tvx_lin_algebra::mutiply(const Tvx_dbl_mtx* a, const Tvx_dbl_mtx* b, Tvx_dbl_mtx* c) {
  if (a->get_nx() != b->get_ny()) return false;
  const unsigned nx = b->get_nx(), ny = a->get_ny(), nk = a->get_nx();
  Tvx_dbl_mtx r;
  if (!shaped(r, nx, ny)) return false;
  for (unsigned y = 0; y < ny && nx > 0; ++y) {
    double* out = r.row(y);
    for (unsigned k = 0; k < nk; ++k) {
      const double f = a->get(k, y);
      const double* in = b->row(k);
      for (unsigned x = 0; x < nx; ++x) out[x] += f * in[x];
    }
  }
  c->swap(r);
  return true;
}

bool Tvx_lin_algebra::mutiply(const Tvx_dbl_mtx* a, const Tvx_dbl_vec* v, Tvx_dbl_vec* out) {
  if (a->get_nx() != v->get_size()) return false;
  std::vector<double> r(a->get_ny(), 0.0);
  for (unsigned y = 0; y < a->get_ny(); ++y)
    for (unsigned x = 0; x < a->get_nx(); ++x) r[y] += a->get(x, y) * v->get(x);
  put(out, r);
  return true;
}

bool Tvx_lin_algebra::transpone(const Tvx_dbl_mtx* a, Tvx_dbl_mtx* out) {
  Tvx_dbl_mtx r;
  if (!shaped(r, a->get_ny(), a->get_nx())) return false;
  for (unsigned y = 0; y < a->get_ny(); ++y)
    for (unsigned x = 0; x < a->get_nx(); ++x) r.set(y, x, a->get(x, y));
  out->swap(r);
  return true;
}

// The scratch matrices are locals, so that they are released on every way out, a throw included.
bool Tvx_lin_algebra::least_squares(const Tvx_dbl_mtx* a, Tvx_dbl_mtx* out) {
  Tvx_dbl_mtx at, ata, inv;
  return transpone(a, &at) && mutiply(&at, a, &ata) && inverse(&ata, &inv) && mutiply(&inv, &at, out);
}

bool Tvx_lin_algebra::least_squares_solve(const Tvx_dbl_mtx* a, const Tvx_dbl_vec* b, Tvx_dbl_vec* x) {
  Tvx_dbl_mtx p;
  if (!least_squares(a, &p) || p.get_nx() != b->get_size()) return false;
  return mutiply(&p, b, x);
}

bool Tvx_lin_algebra::progonka_3diag(const Tvx_dbl_mtx_3diag* a, const Tvx_dbl_vec* d, Tvx_dbl_vec* x) {
  const unsigned n = a->get_size();
  if (!a->has_arrays() || n < 2 || d->get_size() < n) return false;
  x->set_size(n);
  std::vector<double> p(n, 0.0), q(n, 0.0);
  if (zero_pivot(a->get_main(0))) return false;
  p[1] = -a->get_top(0) / a->get_main(0);
  q[1] = d->get(0) / a->get_main(0);
  for (unsigned i = 1; i + 1 < n; ++i) {
    const double m = a->get_btm(i) * p[i] + a->get_main(i);
    if (zero_pivot(m)) return false;
    p[i + 1] = -a->get_top(i) / m;
    q[i + 1] = (d->get(i) - a->get_btm(i) * q[i]) / m;
  }
  const double m = a->get_btm(n - 1) * p[n - 1] + a->get_main(n - 1);
  if (zero_pivot(m)) return false;
  x->set(n - 1, (d->get(n - 1) - a->get_btm(n - 1) * q[n - 1]) / m);
  for (unsigned i = n - 1; i-- > 0;) x->set(i, p[i + 1] * x->get(i + 1) + q[i + 1]);
  return true;
}

namespace {

std::string joined(const double* values, unsigned count) {
  std::string line;
  char buf[40];
  for (unsigned i = 0; i < count; ++i) {
    std::snprintf(buf, sizeof buf, "%.10g", values[i]);
    if (i > 0) line += " , ";
    line += buf;
  }
  return line;
}

void debug_block(const std::string& head, const std::vector<std::string>& lines) {
  Tvx_env_main::debug_message(head.c_str());
  Tvx_env_main::debug_message("begin");
  for (const std::string& line : lines) Tvx_env_main::debug_message(line.c_str());
  Tvx_env_main::debug_message("end");
}

bool near(const Tvx_dbl_vec& v, std::initializer_list<double> want) {
  if (v.get_size() != want.size()) return false;
  unsigned i = 0;
  for (double w : want)
    if (!(std::fabs(v.get(i++) - w) < 1e-9)) return false;
  return true;
}

bool test_gauss() {
  const Tvx_dbl_mtx a(3, 3, {2, 1, -1, -3, -1, 2, -2, 1, 2});
  const Tvx_dbl_vec b{8, -11, -3};
  Tvx_dbl_vec x;
  return Tvx_lin_algebra::gauss(&a, &b, &x) && near(x, {2, 3, -1});
}

bool test_inverse() {
  const Tvx_dbl_mtx a(3, 3, {2, 1, -1, -3, -1, 2, -2, 1, 2});
  Tvx_dbl_mtx inv, unit;
  if (!Tvx_lin_algebra::inverse(&a, &inv) || !Tvx_lin_algebra::mutiply(&a, &inv, &unit)) return false;
  for (unsigned y = 0; y < 3; ++y)
    for (unsigned x = 0; x < 3; ++x)
      if (!(std::fabs(unit.get(x, y) - (x == y ? 1.0 : 0.0)) < 1e-9)) return false;
  return true;
}

bool test_least_squares() {
  // The line 1 + 2 t through five points on it.
  const Tvx_dbl_mtx a(2, 5, {1, 0, 1, 1, 1, 2, 1, 3, 1, 4});
  const Tvx_dbl_vec b{1, 3, 5, 7, 9};
  Tvx_dbl_vec x;
  return Tvx_lin_algebra::least_squares_solve(&a, &b, &x) && near(x, {1, 2});
}

bool test_progonka() {
  Tvx_dbl_mtx_3diag a;
  a.set_size(4);
  for (unsigned i = 0; i < 4; ++i) {
    a.set_main(i, 4.0);
    a.set_top(i, 1.0);
    a.set_btm(i, 1.0);
  }
  const Tvx_dbl_vec d{6, 12, 18, 19};  // for x = 1, 2, 3, 4
  Tvx_dbl_vec x;
  return Tvx_lin_algebra::progonka_3diag(&a, &d, &x) && near(x, {1, 2, 3, 4});
}

}  // namespace

void Tvx_lin_algebra::debug_vec_print(const char* title, const Tvx_dbl_vec* v) {
  const std::string head = std::string(title) + " : vector (" + std::to_string(v->get_size()) + ")";
  debug_block(head, {joined(v->data(), v->get_size())});
}

void Tvx_lin_algebra::debug_mtx_print(const char* title, const Tvx_dbl_mtx* m) {
  const std::string head = std::string(title) + " : matrix (" + std::to_string(m->get_nx()) + " x " +
                           std::to_string(m->get_ny()) + ")";
  std::vector<std::string> rows;
  for (unsigned y = 0; m->is_valid() && y < m->get_ny(); ++y) rows.push_back(joined(m->row(y), m->get_nx()));
  debug_block(head, rows);
}

bool Tvx_lin_algebra::debug_test() {
  bool all = true;
  const auto report = [&all](bool ok, const char* text) {
    if (!ok) Tvx_env_main::debug_message(text);
    all = all && ok;
  };
  report(test_gauss(), "GAUSS - error");
  report(test_inverse(), "INVERSE - error");
  report(test_least_squares(), "LEAST_SQUARES_SOLVE - error");
  report(test_progonka(), "PROGONKA_3DIAG  - error");
  Tvx_env_main::debug_message("+++ FINISHED +++");
  return all;
}
