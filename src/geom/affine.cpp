#include "geom/affine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

// A pivot whose magnitude is not above this counts as zero, as in the library's other solvers.
constexpr double kPivotTolerance = 1e-16;

template <std::size_t N>
using square_matrix = std::array<std::array<double, N>, N>;

// Inverts a small matrix by Gauss-Jordan elimination with row pivoting (a later row is chosen only for
// a strictly greater magnitude). False, with m unchanged, when a pivot is zero or the matrix or its
// inverse holds a value that is not finite.
template <std::size_t N>
bool invert_matrix(square_matrix<N>& m) {
  std::array<std::array<double, 2 * N>, N> w{};
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < N; ++c) {
      if (!std::isfinite(m[r][c])) return false;
      w[r][c] = m[r][c];
    }
    w[r][N + r] = 1.0;
  }
  for (std::size_t k = 0; k < N; ++k) {
    std::size_t p = k;
    for (std::size_t r = k + 1; r < N; ++r)
      if (std::fabs(w[r][k]) > std::fabs(w[p][k])) p = r;
    if (!(std::fabs(w[p][k]) > kPivotTolerance)) return false;
    std::swap(w[p], w[k]);
    const double pivot = w[k][k];
    for (double& v : w[k]) v /= pivot;
    for (std::size_t r = 0; r < N; ++r) {
      const double factor = w[r][k];
      if (r == k || factor == 0.0) continue;
      for (std::size_t c = 0; c < 2 * N; ++c) w[r][c] -= factor * w[k][c];
    }
  }
  square_matrix<N> inv{};
  for (std::size_t r = 0; r < N; ++r)
    for (std::size_t c = 0; c < N; ++c) {
      inv[r][c] = w[r][N + c];
      if (!std::isfinite(inv[r][c])) return false;
    }
  m = inv;
  return true;
}

bool near(double a, double b) {
  return std::fabs(a - b) < Tvx_geom2d_delta::f_delta;
}

// Scales and angle back from the coefficients of a turn: angle = atan2(sin-part, cos-part), and each
// scale divided by the larger of |cos| and |sin|, to stay clear of a division by nearly zero.
void scales_and_angle(double a, double b, double d, double e, double& dx, double& dy, double& angle) {
  angle = std::atan2(d, a);
  const double cs = std::cos(angle), sn = std::sin(angle);
  if (std::fabs(cs) > std::fabs(sn)) {
    dx = a / cs;
    dy = e / cs;
  } else {
    dx = d / sn;
    dy = -b / sn;
  }
}

}  // namespace

Tvx_affine2d::Tvx_affine2d(double a, double b, double c, double d, double e, double f) {
  set(a, b, c, d, e, f);
}

void Tvx_affine2d::get(double& a, double& b, double& c, double& d, double& e, double& f) const {
  a = f_a;
  b = f_b;
  c = f_c;
  d = f_d;
  e = f_e;
  f = f_f;
}

void Tvx_affine2d::set(double a, double b, double c, double d, double e, double f) {
  f_a = a;
  f_b = b;
  f_c = c;
  f_d = d;
  f_e = e;
  f_f = f;
}

bool Tvx_affine2d::equal(const Tvx_affine2d* o) const {
  return near(f_a, o->f_a) && near(f_b, o->f_b) && near(f_c, o->f_c) && near(f_d, o->f_d) &&
         near(f_e, o->f_e) && near(f_f, o->f_f);
}

bool Tvx_affine2d::invert() {
  square_matrix<3> m{{{f_a, f_b, f_c}, {f_d, f_e, f_f}, {0.0, 0.0, 1.0}}};
  if (!invert_matrix(m)) return false;
  set(m[0][0], m[0][1], m[0][2], m[1][0], m[1][1], m[1][2]);
  return true;
}

void Tvx_affine2d::set_scale(double sx, double sy) {
  set(sx, 0.0, 0.0, 0.0, sy, 0.0);
}

void Tvx_affine2d::set_move(double dx, double dy) {
  set(1.0, 0.0, dx, 0.0, 1.0, dy);
}

void Tvx_affine2d::calc_rects(const Tvx_rect2d& from, const Tvx_rect2d& to) {
  const double a = (to.xmax - to.xmin) / (from.xmax - from.xmin);
  const double e = (to.ymax - to.ymin) / (from.ymax - from.ymin);
  set(a, 0.0, to.xmin - a * from.xmin, 0.0, e, to.ymin - e * from.ymin);
}

void Tvx_affine2d::set_xy0_dxy_angle(double x0, double y0, double dx, double dy, double angle) {
  const double cs = std::cos(angle), sn = std::sin(angle);
  set(cs * dx, -sn * dy, x0, sn * dx, cs * dy, y0);
}

void Tvx_affine2d::get_xy0_dxy_angle(double& x0, double& y0, double& dx, double& dy, double& angle) const {
  x0 = f_c;
  y0 = f_f;
  scales_and_angle(f_a, f_b, f_d, f_e, dx, dy, angle);
}

void Tvx_affine2d::set_combine_affine(const Tvx_affine2d* first, const Tvx_affine2d* second) {
  const Tvx_affine2d p = *first, q = *second;  // copies: either may be this object
  set(q.f_a * p.f_a + q.f_b * p.f_d, q.f_a * p.f_b + q.f_b * p.f_e, q.f_a * p.f_c + q.f_b * p.f_f + q.f_c,
      q.f_d * p.f_a + q.f_e * p.f_d, q.f_d * p.f_b + q.f_e * p.f_e, q.f_d * p.f_c + q.f_e * p.f_f + q.f_f);
}

void Tvx_affine2d::apply_xy(double x, double y, double& x2, double& y2) const {
  x2 = apply_x(x, y);
  y2 = apply_y(x, y);
}

void Tvx_affine2d::apply_point2d(Tvx_point2d* p) const {
  apply_xy(p->x, p->y, p->x, p->y);
}

void Tvx_affine2d::apply_rect2d(Tvx_rect2d* r) const {
  if (!r->defined) return;
  const Tvx_point2d corners[4] = {
      {r->xmin, r->ymin}, {r->xmin, r->ymax}, {r->xmax, r->ymax}, {r->xmax, r->ymin}};
  Tvx_rect2d out = vx_rect2d();
  for (Tvx_point2d c : corners) {
    apply_point2d(&c);
    vx_rect2d_extend(&out, c);
  }
  *r = out;
}

void Tvx_affine2d::apply_pp2d(Tvx_pp2d* pp) const {
  for (int i = 0; i < pp->get_size(); ++i) {
    Tvx_point2d p = pp->get(i);
    apply_point2d(&p);
    pp->set(i, p);
  }
}

void Tvx_affine2d::apply_op2d(Tvx_op2d* op) const {
  for (int k = 0; k < op->get_size(); ++k) apply_pp2d(op->get(k));
}

Tvx_affine3d::Tvx_affine3d(double m0, double m1, double m2, double m3, double m4, double m5, double m6,
                           double m7, double m8, double m9, double m10, double m11) {
  set(m0, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11);
}

void Tvx_affine3d::get(double& m0, double& m1, double& m2, double& m3, double& m4, double& m5, double& m6,
                       double& m7, double& m8, double& m9, double& m10, double& m11) const {
  double* out[12] = {&m0, &m1, &m2, &m3, &m4, &m5, &m6, &m7, &m8, &m9, &m10, &m11};
  for (int i = 0; i < 12; ++i) *out[i] = f_m[i];
}

void Tvx_affine3d::set(double m0, double m1, double m2, double m3, double m4, double m5, double m6, double m7,
                       double m8, double m9, double m10, double m11) {
  const double in[12] = {m0, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11};
  std::copy(in, in + 12, f_m);
}

bool Tvx_affine3d::equal(const Tvx_affine3d* o) const {
  for (int i = 0; i < 12; ++i)
    if (!near(f_m[i], o->f_m[i])) return false;
  return true;
}

bool Tvx_affine3d::invert() {
  square_matrix<4> m{};
  for (std::size_t r = 0; r < 3; ++r)
    for (std::size_t c = 0; c < 4; ++c) m[r][c] = f_m[4 * r + c];
  m[3] = {0.0, 0.0, 0.0, 1.0};
  if (!invert_matrix(m)) return false;
  for (std::size_t r = 0; r < 3; ++r)
    for (std::size_t c = 0; c < 4; ++c) f_m[4 * r + c] = m[r][c];
  return true;
}

void Tvx_affine3d::set_xyz0_dxyz_angles(double x0, double y0, double z0, double dx, double dy, double dz,
                                        double angle, double) {
  const double cs = std::cos(angle), sn = std::sin(angle);
  set(cs * dx, -sn * dy, 0.0, x0, sn * dx, cs * dy, 0.0, y0, 0.0, 0.0, dz, z0);
}

void Tvx_affine3d::get_xyz0_dxyz_angles(double& x0, double& y0, double& z0, double& dx, double& dy,
                                        double& dz, double& angle, double& unused) const {
  x0 = f_m[3];
  y0 = f_m[7];
  z0 = f_m[11];
  dz = f_m[10];
  unused = 0.0;
  scales_and_angle(f_m[0], f_m[1], f_m[4], f_m[5], dx, dy, angle);
}

void Tvx_affine3d::apply_xyz(double x, double y, double z, double& x2, double& y2, double& z2) const {
  const double nx = apply_x(x, y, z), ny = apply_y(x, y, z), nz = apply_z(x, y, z);
  x2 = nx;
  y2 = ny;
  z2 = nz;
}
