#include "reproj/reproj_xy_exec.h"

#include <cmath>
#include <string>
#include <utility>

#include "proj4/proj4_str.h"
#include "reproj/proj_log.h"
#include "reproj/xy_array.h"
#include "support/echo.h"

namespace {

constexpr double kDegToRad = 0.017453292519943295;
constexpr double kRadToDeg = 57.29577951308232;
constexpr size_t kStride = sizeof(double);

// Parses a projection text; *is_long_lat tells whether it is geographic.
void parse(Tvx_proj4_str& s, const char* text, bool* is_long_lat) {
  s.set(text);
  s.decompose();
  *is_long_lat = s.get_is_long_lat();
}

// Parses and composes a projection text for PROJ: the result is what PROJ sees of one system.
std::string text_for_proj(const char* text, bool* is_long_lat) {
  Tvx_proj4_str s;
  parse(s, text, is_long_lat);
  s.compose_for_proj4();
  return s.get();
}

// Both parameters undefined, or both defined and written alike. The text is copied before the second
// is written, since a parameter may write into a buffer that others share.
bool written_alike(Tvx_proj4_param* a, Tvx_proj4_param* b) {
  if (a->get_def() != b->get_def()) return false;
  if (!a->get_def()) return true;
  const std::string text = a->get_out_str();
  return text == b->get_out_str();
}

// Whether the two systems stand on one datum given as the same ellipsoid with the same shift to WGS 84.
// Only that form is recognised: a named datum or a grid shift on either side is left to PROJ as it is.
bool shift_cancels(const Tvx_proj4_str& a, const Tvx_proj4_str& b) {
  if (a.get_datum()->get_def() || b.get_datum()->get_def()) return false;
  if (a.get_nadgrids()->get_def() || b.get_nadgrids()->get_def()) return false;
  if (!a.get_towgs84()->get_def()) return false;
  return written_alike(a.get_towgs84(), b.get_towgs84()) && written_alike(a.get_ellipse(), b.get_ellipse()) &&
         written_alike(a.get_a(), b.get_a()) && written_alike(a.get_b(), b.get_b()) &&
         written_alike(a.get_rf(), b.get_rf());
}

// Whether PROJ, given the source's full text with its shift, takes a latitude beyond a pole over the
// pole: its step through geocentric coordinates does, unless it recognises the shift as none at all
// (WGS 84 itself), and then it refuses the latitude as the text without the shift does.
bool shift_takes_over_pole(const char* src) {
  bool unused = false;
  PJ* pj = proj_create(PJ_DEFAULT_CTX, text_for_proj(src, &unused).c_str());
  if (!pj) return false;
  const PJ_COORD c = proj_trans(pj, PJ_INV, proj_coord(0.0, 95.0 * kDegToRad, 0.0, HUGE_VAL));
  proj_errno_reset(pj);
  proj_destroy(pj);
  vx::proj_log::take();
  return std::isfinite(c.v[1]) && std::fabs(c.v[1]) < 90.0 * kDegToRad;
}

// The two texts that PROJ is asked to join. Each is what PROJ sees of its system alone, with one
// exception. Our texts always end in "+lon_wrap=45", which PROJ cannot express in its own model of a
// system; it then keeps each text as one step of its pipeline, and a step that carries "+towgs84"
// converts every point to geocentric coordinates, applies the shift to WGS 84 (or back) and returns to
// the ellipsoid. When both systems carry the same ellipsoid and the same shift, the shift out of the
// source and the shift into the destination cancel, and PROJ would still do all that work, more than
// the rest of the job together. So in that case the shift is left out of both texts:
// the pipeline is then the inverse of the source and the destination on their one ellipsoid, the same
// coordinates to far below a micrometre (to rounding of the geocentric round trip) and the same
// refusals. Leaving it out of the texts keeps every other part of them, "+lon_wrap" included, and
// lets PROJ build the pipeline as always, from the systems' own definitions; asking PROJ instead for
// the operation between the systems' base definitions (their datum shift taken off) would depend on how
// PROJ carries "+lon_wrap", which it keeps only in the texts.
// One thing the round trip did is kept by hand: it took a latitude beyond a pole over the pole, where
// the projection alone refuses it. *shift_left_out tells the caller to do the same (fold_over_poles).
std::pair<std::string, std::string> texts_for_proj(const char* src, const char* dst, bool* src_long_lat,
                                                   bool* dst_long_lat, bool* shift_left_out) {
  Tvx_proj4_str s, d;
  parse(s, src, src_long_lat);
  parse(d, dst, dst_long_lat);
  *shift_left_out = shift_cancels(s, d);
  if (*shift_left_out) {
    s.get_towgs84()->set_def(false);
    d.get_towgs84()->set_def(false);
  }
  s.compose_for_proj4();
  d.compose_for_proj4();
  return {s.get(), d.get()};
}

void scale(unsigned n, double* x, double* y, double factor) {
  for (unsigned i = 0; i < n; ++i) {
    x[i] *= factor;
    y[i] *= factor;
  }
}

// A latitude beyond a pole, taken over the pole: latitudes are first brought into (-180, 180], and one
// beyond +-90 becomes the latitude that lies as far on the other side of the pole, half a turn of
// longitude away. This is what a round trip through geocentric coordinates makes of it.
void fold_over_poles(unsigned n, double* x, double* y) {
  for (unsigned i = 0; i < n; ++i) {
    if (!(std::fabs(y[i]) > 90.0)) continue;
    double lat = std::fmod(y[i], 360.0);
    if (lat > 180.0) lat -= 360.0;
    if (lat <= -180.0) lat += 360.0;
    if (std::fabs(lat) > 90.0) {
      lat = std::copysign(180.0, lat) - lat;
      x[i] += 180.0;
    }
    y[i] = lat;
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
  f_fold_poles = false;
  f_error.clear();
}

bool Tvx_reproj_xy_exec::init(const char* src, const char* dst) {
  clear();
  vx::proj_log::install();
  bool shift_left_out = false;
  const auto [src_text, dst_text] = texts_for_proj(src, dst, &f_in_radians, &f_out_radians, &shift_left_out);
  // Between equal texts PROJ makes no round trip, so there is nothing to keep.
  f_fold_poles = shift_left_out && f_in_radians && src_text != dst_text && shift_takes_over_pole(src);
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

std::string Tvx_reproj_xy_exec::get_definition() const {
  if (!f_pj_norm) return {};
  const char* text = proj_pj_info(f_pj_norm).definition;
  return text ? text : "";
}

bool Tvx_reproj_xy_exec::apply(double* x, double* y) {
  if (f_fold_poles) fold_over_poles(1, x, y);
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
  if (f_fold_poles) fold_over_poles(n, x, y);
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
