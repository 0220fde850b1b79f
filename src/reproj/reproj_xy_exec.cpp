#include "reproj/reproj_xy_exec.h"

#include <cmath>

#include "proj4/proj4_str.h"
#include "reproj/xy_array.h"

namespace {

constexpr double kDegToRad = 0.017453292519943295;
constexpr double kRadToDeg = 57.29577951308232;
constexpr size_t kStride = sizeof(double);

// Parses and composes a projection text for PROJ: the result is what PROJ sees.
std::string text_for_proj(const char* text, bool* is_long_lat) {
  Tvx_proj4_str s;
  s.set(text);
  s.decompose();
  *is_long_lat = s.get_is_long_lat();
  s.compose_for_proj4();
  return s.get();
}

void scale(unsigned n, double* x, double* y, double factor) {
  for (unsigned i = 0; i < n; ++i) {
    x[i] *= factor;
    y[i] *= factor;
  }
}

bool all_finite(unsigned n, const double* x, const double* y) {
  for (unsigned i = 0; i < n; ++i)
    if (!std::isfinite(x[i]) || !std::isfinite(y[i])) return false;
  return true;
}

}  // namespace

std::string Tvx_reproj_xy_exec::verify_pj4str(const char* text, bool* is_long_lat) {
  bool long_lat = false;
  std::string out = text_for_proj(text, &long_lat);
  if (is_long_lat) *is_long_lat = long_lat;
  return out;
}

void Tvx_reproj_xy_exec::clear() {
  if (f_pj_norm) proj_destroy(f_pj_norm);
  if (f_pj) proj_destroy(f_pj);
  f_pj_norm = nullptr;
  f_pj = nullptr;
  f_in_radians = false;
  f_out_radians = false;
}

bool Tvx_reproj_xy_exec::init(const char* src, const char* dst) {
  clear();
  const std::string src_text = text_for_proj(src, &f_in_radians);
  const std::string dst_text = text_for_proj(dst, &f_out_radians);
  if (src_text.empty() || dst_text.empty()) return false;
  f_pj = proj_create_crs_to_crs(nullptr, src_text.c_str(), dst_text.c_str(), nullptr);
  if (!f_pj) return false;
  // Axis order by the map maker's habit, whatever the authority says: easting or longitude first.
  f_pj_norm = proj_normalize_for_visualization(nullptr, f_pj);
  if (f_pj_norm) {
    f_in_radians = proj_angular_input(f_pj_norm, PJ_FWD) != 0;
    f_out_radians = proj_angular_output(f_pj_norm, PJ_FWD) != 0;
  }
  return f_pj && f_pj_norm;
}

bool Tvx_reproj_xy_exec::apply(double* x, double* y) {
  if (f_in_radians) {
    *x *= kDegToRad;
    *y *= kDegToRad;
  }
  if (!f_pj_norm) return false;
  PJ_COORD c = proj_trans(f_pj_norm, PJ_FWD, proj_coord(*x, *y, 0.0, HUGE_VAL));
  *x = c.v[0];
  *y = c.v[1];
  if (!std::isfinite(*x) || !std::isfinite(*y)) return false;
  if (f_out_radians) {
    *x *= kRadToDeg;
    *y *= kRadToDeg;
  }
  return true;
}

bool Tvx_reproj_xy_exec::apply(unsigned n, double* x, double* y) {
  if (f_in_radians && n != 0) scale(n, x, y, kDegToRad);
  size_t done = 0;
  if (f_pj_norm)
    done = proj_trans_generic(f_pj_norm, PJ_FWD, x, kStride, n, y, kStride, n, nullptr, 0, 0, nullptr, 0, 0);
  if (done != n) return false;
  if (!all_finite(n, x, y)) return false;
  if (f_out_radians && n != 0) scale(n, x, y, kRadToDeg);
  return true;
}

bool Tvx_reproj_xy_exec::apply(Tvx_xy_array* a) {
  return apply(a->get_size(), a->get_x_ptr(), a->get_y_ptr());
}
