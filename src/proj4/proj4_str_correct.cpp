#include "proj4/proj4_str_correct.h"

#include "support/str_func.h"

Tvx_proj4_str_correct::Tvx_proj4_str_correct() : f_str(std::make_unique<Tvx_proj4_str>()) {}

void Tvx_proj4_str_correct::set_proj4(const char* text) {
  f_src = text ? text : "";
  f_dst = f_src;
  load_src();
}

void Tvx_proj4_str_correct::load_src() {
  f_changed = false;
  f_str->set(f_src.c_str());
  f_str->decompose();
}

std::string Tvx_proj4_str_correct::get_proj4() {
  save_dst();
  return f_dst;
}

void Tvx_proj4_str_correct::save_dst() {
  f_str->compose();
  f_dst = f_str->get();
}

bool Tvx_proj4_str_correct::fill(Tvx_proj4_param_dbl* p, double value) {
  if (p->get_def()) return false;
  p->set_dbl(value);
  p->set_def(true);
  f_changed = true;
  return true;
}

// The value of "+proj" and of "+lat_1" are taken whether defined or not, as the parser left them.
bool Tvx_proj4_str_correct::patch_lcc_1sp_for_gdal() {
  if (Tvx_str_func::trim_stricmp(f_str->get_proj()->get_str(), "lcc") != 0) return false;
  const double lat_1 = f_str->get_lat_1()->get_dbl();
  const bool lat_2_filled = fill(f_str->get_lat_2(), lat_1);
  const bool lat_0_filled = fill(f_str->get_lat_0(), lat_1);
  return lat_2_filled || lat_0_filled;
}

bool Tvx_proj4_str_correct::patch_lon_wrap_for_gdal() {
  f_str->set_is_lon_wrap(false);
  f_changed = true;
  return true;
}

std::string Tvx_proj4_str_correct::patch_proj4_for_gdal(const char* text) {
  Tvx_proj4_str_correct c;
  c.set_proj4(text);
  c.patch_lcc_1sp_for_gdal();
  c.patch_lon_wrap_for_gdal();
  return c.get_proj4();
}
