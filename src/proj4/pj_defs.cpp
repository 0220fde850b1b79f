#include "proj4/pj_defs.h"

#include <cmath>

#include "support/text_case.h"

namespace {

// A latitude of origin asked for fits a definition's default when closer than this, in degrees.
constexpr double kLatTolerance = 0.0001;

bool same_name(const std::string& a, const char* b) {
  return vx::text::ansi_compare_nocase(a.c_str(), b ? b : "") == 0;
}

bool zone_is(const Tvx_pj_int_param* p, unsigned zone) {
  return static_cast<long long>(p->get_default()) == static_cast<long long>(zone);
}

// A definition that lacks a parameter that was asked for does not fit.
bool lacks(bool asked, const Tvx_pj_param* p) {
  return asked && !p->get_use_proj4();
}

}  // namespace

Tvx_pj_proj_def::Tvx_pj_proj_def()
    : f_zone(std::make_unique<Tvx_pj_int_param>()),
      f_zone_name(std::make_unique<Tvx_pj_str_param>()),
      f_lon_0(std::make_unique<Tvx_pj_dbl_param>()),
      f_lonc(std::make_unique<Tvx_pj_dbl_param>()),
      f_lat_0(std::make_unique<Tvx_pj_dbl_param>()),
      f_x_0(std::make_unique<Tvx_pj_dbl_param>()),
      f_y_0(std::make_unique<Tvx_pj_dbl_param>()),
      f_lat_ts(std::make_unique<Tvx_pj_dbl_param>()),
      f_lat_1(std::make_unique<Tvx_pj_dbl_param>()),
      f_lat_2(std::make_unique<Tvx_pj_dbl_param>()),
      f_k_0(std::make_unique<Tvx_pj_dbl_param>()),
      f_alpha(std::make_unique<Tvx_pj_dbl_param>()),
      f_south(std::make_unique<Tvx_pj_bool_param>()),
      f_units(std::make_unique<Tvx_pj_str_param>()),
      f_datum(std::make_unique<Tvx_pj_str_param>()) {}

void Tvx_pj_proj_defs::set_size(unsigned size) {
  if (size < f_defs.size()) {
    while (f_defs.size() > size) f_defs.pop_back();
    return;
  }
  while (f_defs.size() < size) f_defs.push_back(std::make_unique<Tvx_pj_proj_def>());
}

Tvx_pj_proj_def* Tvx_pj_proj_defs::add() {
  f_defs.push_back(std::make_unique<Tvx_pj_proj_def>());
  return f_defs.back().get();
}

template <class Fits>
Tvx_pj_proj_def* Tvx_pj_proj_defs::find_first(Fits fits) const {
  for (const auto& d : f_defs)
    if (fits(*d)) return d.get();
  return nullptr;
}

Tvx_pj_proj_def* Tvx_pj_proj_defs::find_by_index(unsigned index) const {
  return find_first([&](const Tvx_pj_proj_def& d) { return d.get_index() == index; });
}

Tvx_pj_proj_def* Tvx_pj_proj_defs::find_by_caption_and_zone(const char* caption, unsigned zone) const {
  return find_first([&](const Tvx_pj_proj_def& d) {
    return same_name(d.get_caption(), caption) && zone_is(d.get_zone(), zone);
  });
}

Tvx_pj_proj_def* Tvx_pj_proj_defs::find_utm(const char* name, unsigned zone, bool south) const {
  return find_first([&](const Tvx_pj_proj_def& d) {
    return same_name(d.get_prj4_name(), name) && zone_is(d.get_zone(), zone) && d.is_south() == south;
  });
}

Tvx_pj_proj_def* Tvx_pj_proj_defs::find_by_name_south(const char* name, bool south) const {
  return find_first(
      [&](const Tvx_pj_proj_def& d) { return same_name(d.get_prj4_name(), name) && d.is_south() == south; });
}

Tvx_pj_proj_def* Tvx_pj_proj_defs::find_by_name_lat_south(const char* name, double lat, bool has_lat_1,
                                                          bool has_lat_2, bool has_lat_ts, bool has_k,
                                                          bool south) const {
  return find_first([&](const Tvx_pj_proj_def& d) {
    if (!same_name(d.get_prj4_name(), name)) return false;
    const Tvx_pj_bool_param* s = d.get_south();
    if (s->get_def_default() && s->get_default() != south) return false;
    const Tvx_pj_dbl_param* lat_0 = d.get_lat_0();
    if (lat_0->get_def_default() && !(std::fabs(lat_0->get_default() - lat) < kLatTolerance)) return false;
    if (lacks(has_lat_1, d.get_lat_1()) || lacks(has_lat_2, d.get_lat_2())) return false;
    if (lacks(has_lat_ts, d.get_lat_ts())) return false;
    return !(!has_lat_ts && lacks(has_k, d.get_k_0()));
  });
}
