#include "reproj/reproj_xy_exec.h"

#include <cmath>

#include "proj4/proj4_str.h"
#include "reproj/proj_log.h"
#include "reproj/xy_array.h"
#include "support/echo.h"

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

// PROJ's reason for the failure it has just logged, or its error text when it logged none.
std::string proj_reason() {
  const std::vector<vx::proj_log::report> reports = vx::proj_log::take();
  if (!reports.empty()) return reports.back().text;
  const char* text = proj_context_errno_string(PJ_DEFAULT_CTX, proj_context_errno(PJ_DEFAULT_CTX));
  return text ? text : "no reason given";
}

// Whether PROJ accepts the text on its own; if not, why.
bool refused_alone(const std::string& text, std::string& reason) {
  vx::proj_log::take();
  PJ* pj = proj_create(PJ_DEFAULT_CTX, text.c_str());
  if (pj) {
    proj_destroy(pj);
    return false;
  }
  reason = proj_reason();
  return true;
}

std::string quoted(const char* text) {
  return "\"" + vx::text::echo(text ? text : "") + "\"";
}

// Why a transformation could not be built: which of the two texts is at fault and PROJ's reason. The
// PROJ objects made here only to ask are destroyed at once.
std::string explain_failure(const char* src, const std::string& src_text, const char* dst,
                            const std::string& dst_text) {
  std::string reason = proj_reason();
  if (refused_alone(src_text, reason)) return "PROJ refused the source system " + quoted(src) + ": " + reason;
  if (refused_alone(dst_text, reason)) {
    return "PROJ refused the destination system " + quoted(dst) + ": " + reason;
  }
  return "PROJ found no transformation from the source system " + quoted(src) +
         " to the destination system " + quoted(dst) + ": " + reason;
}

std::string explain_unreadable(const char* which, const char* text) {
  if (!text || !*text) return std::string("the ") + which + " system is empty";
  return std::string("the ") + which + " system " + quoted(text) +
         " has no parameter of a PROJ string (a PROJ string is the text itself, such as \"+proj=utm "
         "+zone=37 +datum=WGS84\", not a file name)";
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
  f_error.clear();
}

bool Tvx_reproj_xy_exec::init(const char* src, const char* dst) {
  clear();
  vx::proj_log::install();
  const std::string src_text = text_for_proj(src, &f_in_radians);
  const std::string dst_text = text_for_proj(dst, &f_out_radians);
  if (src_text.empty() || dst_text.empty()) {
    f_error = explain_unreadable(src_text.empty() ? "source" : "destination", src_text.empty() ? src : dst);
    return false;
  }
  vx::proj_log::take();
  f_pj = proj_create_crs_to_crs(nullptr, src_text.c_str(), dst_text.c_str(), nullptr);
  if (!f_pj) {
    f_error = explain_failure(src, src_text, dst, dst_text);
    return false;
  }
  // Axis order by the map maker's habit, whatever the authority says: easting or longitude first.
  f_pj_norm = proj_normalize_for_visualization(nullptr, f_pj);
  if (f_pj_norm) {
    f_in_radians = proj_angular_input(f_pj_norm, PJ_FWD) != 0;
    f_out_radians = proj_angular_output(f_pj_norm, PJ_FWD) != 0;
  }
  if (!f_pj_norm) f_error = "PROJ could not put the axes in the order easting, northing: " + proj_reason();
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
