#include "reproj/reproj_xy.h"

#include "proj4/proj4_str.h"
#include "support/ansi_code_page.h"

namespace {

// A wide projection text as UTF-8; empty for a null text or one holding a character that has no
// UTF-8 form (a lone surrogate or a value beyond the Unicode range).
std::string narrow_text(const wchar_t* text) {
  if (!text) return "";
  std::wstring wide(text);
  for (wchar_t c : wide) {
    const unsigned long u = static_cast<unsigned long>(c);
    if ((u >= 0xD800 && u <= 0xDFFF) || u > 0x10FFFF) return "";
  }
  return vx::strconv::wide_to_utf8(wide);
}

}  // namespace

Tvx_reproj_xy::Tvx_reproj_xy() : f_exec(std::make_unique<Tvx_reproj_xy_exec>()) {
  vx_matrix3x3_init_single(f_affine_before);
  vx_matrix3x3_init_single(f_affine_after);
}

void Tvx_reproj_xy::delete_obj(Tvx_reproj_xy** p) {
  if (!p || !*p) return;
  delete *p;
  *p = nullptr;
}

void Tvx_reproj_xy::clear() {
  f_exec->clear();
}

bool Tvx_reproj_xy::init(const char* src, const char* dst) {
  return f_exec->init(src, dst);
}

bool Tvx_reproj_xy::init(const wchar_t* src, const wchar_t* dst) {
  return init(narrow_text(src).c_str(), narrow_text(dst).c_str());
}

bool Tvx_reproj_xy::init_to_latlong(const char* proj) {
  return init(proj, convert_to_latlong(proj).c_str());
}

bool Tvx_reproj_xy::init_to_latlong(const wchar_t* proj) {
  return init_to_latlong(narrow_text(proj).c_str());
}

bool Tvx_reproj_xy::init_from_latlong(const char* proj) {
  return init(convert_to_latlong(proj).c_str(), proj);
}

bool Tvx_reproj_xy::init_from_latlong(const wchar_t* proj) {
  return init_from_latlong(narrow_text(proj).c_str());
}

std::string Tvx_reproj_xy::convert_to_latlong(const char* proj) {
  Tvx_proj4_str s;
  s.set(proj);
  s.decompose();
  s.set_is_long_lat();
  s.compose();
  return s.get();
}

bool Tvx_reproj_xy::apply(double* x, double* y) {
  if (f_use_affine_before) apply_affine(f_affine_before, x, y);
  const bool ok = f_use_reproj ? f_exec->apply(x, y) : true;
  if (f_use_affine_after) apply_affine(f_affine_after, x, y);
  return ok;
}

bool Tvx_reproj_xy::apply_xy(unsigned n, double* x, double* y) {
  if (f_use_affine_before) apply_affine_xy(f_affine_before, n, x, y);
  const bool ok = f_use_reproj ? f_exec->apply(n, x, y) : true;
  if (f_use_affine_after) apply_affine_xy(f_affine_after, n, x, y);
  return ok;
}

bool Tvx_reproj_xy::apply_array(Tvx_xy_array* a) {
  return apply_xy(a->get_size(), a->get_x_ptr(), a->get_y_ptr());
}

void Tvx_reproj_xy::apply_affine(const Tvx_matrix3x3& m, double* x, double* y) {
  const double x0 = *x;
  const double y0 = *y;
  *y = (m.m[3] * x0 + m.m[4] * y0) + m.m[5];
  *x = (x0 * m.m[0] + y0 * m.m[1]) + m.m[2];
}

void Tvx_reproj_xy::apply_affine_xy(const Tvx_matrix3x3& m, unsigned n, double* x, double* y) {
  for (unsigned i = 0; i < n; ++i) apply_affine(m, &x[i], &y[i]);
}

void Tvx_reproj_xy::apply_affine_array(const Tvx_matrix3x3& m, Tvx_xy_array* a) {
  apply_affine_xy(m, a->get_size(), a->get_x_ptr(), a->get_y_ptr());
}
