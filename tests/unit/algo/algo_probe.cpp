// Runs the solvers, the chord simplification and the fast inclusion on inputs that a checking script
// made, and writes what they give, so that the script can compare it with numpy and GEOS.
//
//   algo_probe solve IN OUT      systems as text; one answer line each: "ok" and the numbers, or "false"
//   algo_probe simplify IN OUT   lines "tolerance n x0 y0 ... " ; one line of the kept vertices each
//   algo_probe include RING POINTS OUT
//                                the ring and the points as little-endian doubles x, y, ...; one byte
//                                (0 or 1) per point, by Tvx_pp2d_include_fast
//
// A system in IN starts with its kind:
//   gauss n        n rows of n numbers, then the n numbers of b
//   inverse n      n rows of n numbers
//   lsq rows cols  the rows, then the numbers of b
//   tridiag n      btm[0..n-1], main[0..n-1], top[0..n-1], then d
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "algo/chord_simplify2d.h"
#include "algo/lin_algebra.h"
#include "algo/pp2d_include_fast.h"
#include "geom/pp2d.h"

namespace {

Tvx_dbl_mtx read_matrix(std::istream& in, unsigned nx, unsigned ny) {
  Tvx_dbl_mtx m(nx, ny);
  for (unsigned y = 0; y < ny; ++y)
    for (unsigned x = 0; x < nx; ++x) {
      double v = 0;
      in >> v;
      m.set(x, y, v);
    }
  return m;
}

Tvx_dbl_vec read_vec(std::istream& in, unsigned n) {
  Tvx_dbl_vec v;
  for (unsigned i = 0; i < n; ++i) {
    double e = 0;
    in >> e;
    v.add(e);
  }
  return v;
}

std::string numbers(const double* values, std::size_t n) {
  std::string line;
  char buf[40];
  for (std::size_t i = 0; i < n; ++i) {
    std::snprintf(buf, sizeof buf, " %.17g", values[i]);
    line += buf;
  }
  return line;
}

std::string answer(bool ok, const std::string& values) {
  return ok ? "ok" + values : "false";
}

std::string solve_one(const std::string& kind, std::istream& in) {
  unsigned n = 0, m = 0;
  in >> n;
  if (kind == "gauss") {
    const Tvx_dbl_mtx a = read_matrix(in, n, n);
    const Tvx_dbl_vec b = read_vec(in, n);
    Tvx_dbl_vec x;
    const bool ok = Tvx_lin_algebra::gauss(&a, &b, &x);
    return answer(ok, numbers(x.data(), x.get_size()));
  }
  if (kind == "inverse") {
    const Tvx_dbl_mtx a = read_matrix(in, n, n);
    Tvx_dbl_mtx out;
    const bool ok = Tvx_lin_algebra::inverse(&a, &out);
    return answer(ok, ok ? numbers(out.row(0), std::size_t(n) * n) : "");
  }
  if (kind == "lsq") {
    in >> m;
    const Tvx_dbl_mtx a = read_matrix(in, m, n);
    const Tvx_dbl_vec b = read_vec(in, n);
    Tvx_dbl_vec x;
    const bool ok = Tvx_lin_algebra::least_squares_solve(&a, &b, &x);
    return answer(ok, numbers(x.data(), x.get_size()));
  }
  if (kind == "tridiag") {
    Tvx_dbl_mtx_3diag a;
    a.set_size(n);
    const Tvx_dbl_vec btm = read_vec(in, n), main = read_vec(in, n), top = read_vec(in, n);
    for (unsigned i = 0; i < n; ++i) {
      a.set_btm(i, btm.get(i));
      a.set_main(i, main.get(i));
      a.set_top(i, top.get(i));
    }
    const Tvx_dbl_vec d = read_vec(in, n);
    Tvx_dbl_vec x;
    const bool ok = Tvx_lin_algebra::progonka_3diag(&a, &d, &x);
    return answer(ok, numbers(x.data(), x.get_size()));
  }
  return "unknown " + kind;
}

int solve(const char* in_path, const char* out_path) {
  std::ifstream in(in_path);
  std::ofstream out(out_path);
  std::string kind;
  while (in >> kind) out << solve_one(kind, in) << "\n";
  return out.good() ? 0 : 1;
}

int simplify(const char* in_path, const char* out_path) {
  std::ifstream in(in_path);
  std::ofstream out(out_path);
  double tol = 0;
  int n = 0;
  while (in >> tol >> n) {
    Tvx_pp2d line;
    for (int i = 0; i < n; ++i) {
      double x = 0, y = 0;
      in >> x >> y;
      line.add(x, y);
    }
    Tvx_chord_simplify2d::execute(&line, tol);
    std::vector<double> xy;
    for (int i = 0; i < line.get_size(); ++i) {
      xy.push_back(line.get(i).x);
      xy.push_back(line.get(i).y);
    }
    out << line.get_size() << numbers(xy.data(), xy.size()) << "\n";
  }
  return out.good() ? 0 : 1;
}

std::vector<double> read_doubles(const char* path) {
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  const std::streamsize bytes = in.tellg();
  std::vector<double> v(bytes > 0 ? static_cast<std::size_t>(bytes) / sizeof(double) : 0);
  in.seekg(0);
  in.read(reinterpret_cast<char*>(v.data()), static_cast<std::streamsize>(v.size() * sizeof(double)));
  return v;
}

int include(const char* ring_path, const char* points_path, const char* out_path) {
  const std::vector<double> r = read_doubles(ring_path), p = read_doubles(points_path);
  Tvx_pp2d ring;
  for (std::size_t i = 0; i + 1 < r.size(); i += 2) ring.add(r[i], r[i + 1]);
  Tvx_pp2d_include_fast fast;
  fast.prepare(&ring);
  std::vector<char> answers;
  for (std::size_t i = 0; i + 1 < p.size(); i += 2) answers.push_back(fast.include(p[i], p[i + 1]) ? 1 : 0);
  std::ofstream out(out_path, std::ios::binary);
  out.write(answers.data(), static_cast<std::streamsize>(answers.size()));
  return out.good() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc > 1 ? argv[1] : "";
  if (command == "solve" && argc == 4) return solve(argv[2], argv[3]);
  if (command == "simplify" && argc == 4) return simplify(argv[2], argv[3]);
  if (command == "include" && argc == 5) return include(argv[2], argv[3], argv[4]);
  std::cerr << "usage: algo_probe solve|simplify IN OUT, or algo_probe include RING POINTS OUT\n";
  return 2;
}
