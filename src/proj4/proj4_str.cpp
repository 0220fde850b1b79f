#include "proj4/proj4_str.h"

#include <cmath>

#include "support/prp_val.h"
#include "support/str_func.h"
#include "support/text_case.h"

namespace {

// Values closer than this make two semi-axes one (a sphere), and an inverse flattening below it is none.
constexpr double kSphereTolerance = 1e-6;
// Our own tail of every composed text: longitudes wrapped around the meridian 45.
constexpr const char* kLonWrap = "+lon_wrap=45 ";
constexpr const char* kNoDefs = "+no_defs";

template <class T>
std::unique_ptr<T> make_param(const char* name, const char* other_name = nullptr) {
  auto p = std::make_unique<T>();
  p->set_name(name);
  if (other_name) p->add_other_name(other_name);
  return p;
}

// The pieces of a PROJ string as name and value: the text is cut at every plus sign, and each piece at
// its first equals sign, both halves trimmed.
void split_pieces(const std::string& text, Tvx_prp_val_vec* pairs) {
  Tvx_str_vec pieces;
  Tvx_str_func::divide(text.c_str(), "+", &pieces);
  pairs->set_size(pieces.get_size());
  for (unsigned i = 0; i < pieces.get_size(); ++i) pairs->get(i)->divide_str(pieces.get(i), '=');
}

// The pair for a parameter under its own name, or else under its other names in order.
const Tvx_prp_val* find_value(const Tvx_prp_val_vec& pairs, const Tvx_proj4_param* p) {
  if (const Tvx_prp_val* v = pairs.find_by_name(p->get_name())) return v;
  for (unsigned i = 0; i < p->get_other_names_count(); ++i)
    if (const Tvx_prp_val* v = pairs.find_by_name(p->get_other_name(i).c_str())) return v;
  return nullptr;
}

bool str_is(const Tvx_proj4_param_str* p, const char* value) {
  return p->get_def() && vx::text::ansi_compare_nocase(p->get_str(), value) == 0;
}

}  // namespace

Tvx_proj4_str::Tvx_proj4_str()
    : f_proj(make_param<Tvx_proj4_param_str>("proj")),
      f_datum(make_param<Tvx_proj4_param_str>("datum")),
      f_ellps(make_param<Tvx_proj4_param_str>("ellps")),
      f_units(make_param<Tvx_proj4_param_str>("units")),
      f_lon_0(make_param<Tvx_proj4_param_dbl>("lon_0")),
      f_lonc(make_param<Tvx_proj4_param_dbl>("lonc")),
      f_lat_0(make_param<Tvx_proj4_param_dbl>("lat_0")),
      f_x_0(make_param<Tvx_proj4_param_dbl>("x_0")),
      f_y_0(make_param<Tvx_proj4_param_dbl>("y_0")),
      f_lat_1(make_param<Tvx_proj4_param_dbl>("lat_1")),
      f_lat_ts(make_param<Tvx_proj4_param_dbl>("lat_ts")),
      f_lat_2(make_param<Tvx_proj4_param_dbl>("lat_2")),
      f_k_0(make_param<Tvx_proj4_param_dbl>("k_0", "k")),
      f_alpha(make_param<Tvx_proj4_param_dbl>("alpha")),
      f_a(make_param<Tvx_proj4_param_dbl>("a", "R")),
      f_b(make_param<Tvx_proj4_param_dbl>("b", "R")),
      f_rf(make_param<Tvx_proj4_param_dbl>("rf")),
      f_south(make_param<Tvx_proj4_param_bool>("south")),
      f_towgs84(make_param<Tvx_proj4_param_towgs84>("towgs84")),
      f_zone(make_param<Tvx_proj4_param_int>("zone")),
      f_nadgrids(make_param<Tvx_proj4_param_str>("nadgrids")),
      f_params{f_proj.get(),  f_zone.get(),  f_lon_0.get(),   f_lonc.get(),  f_lat_0.get(), f_x_0.get(),
               f_y_0.get(),   f_lat_1.get(), f_lat_ts.get(),  f_lat_2.get(), f_south.get(), f_k_0.get(),
               f_alpha.get(), f_datum.get(), f_towgs84.get(), f_a.get(),     f_b.get(),     f_rf.get(),
               f_ellps.get(), f_units.get(), f_nadgrids.get()} {}

void Tvx_proj4_str::decompose() {
  Tvx_prp_val_vec pairs;
  split_pieces(f_text, &pairs);
  for (Tvx_proj4_param* p : f_params) {
    if (const Tvx_prp_val* pair = find_value(pairs, p))
      p->val_from_str(pair->get_val());
    else
      p->set_def(false);
  }
}

void Tvx_proj4_str::compose() {
  compose_text(false);
}

void Tvx_proj4_str::compose_for_proj4() {
  compose_text(true);
}

void Tvx_proj4_str::compose_text(bool for_proj4) {
  f_text.clear();
  const bool sphere = is_sphere();
  bool any = false;
  for (Tvx_proj4_param* p : f_params) any = append_param(p, sphere, for_proj4) || any;
  if (!any) return;
  if (f_is_lon_wrap) f_text += kLonWrap;
  f_text += kNoDefs;
}

bool Tvx_proj4_str::append_param(Tvx_proj4_param* p, bool sphere, bool for_proj4) {
  if (sphere && p == f_towgs84.get()) return false;
  if (sphere && for_proj4 && (p == f_b.get() || p == f_rf.get())) return false;
  if (!p->get_def()) return false;
  if (sphere && for_proj4 && p == f_a.get())
    f_text += "+R=" + Tvx_proj4_traits::dbl2str(f_a->get_dbl()) + " ";
  else
    f_text += p->get_out_str();
  return true;
}

void Tvx_proj4_str::set_all_undefined() {
  for (Tvx_proj4_param* p : f_params) p->set_def(false);
}

bool Tvx_proj4_str::is_sphere() const {
  if (str_is(f_ellps.get(), "sphere")) return true;
  if (f_a->get_def() && f_b->get_def() && std::fabs(f_a->get_dbl() - f_b->get_dbl()) < kSphereTolerance)
    return true;
  return f_a->get_def() && f_rf->get_def() && std::fabs(f_rf->get_dbl()) < kSphereTolerance;
}

bool Tvx_proj4_str::is_valid() const {
  if (!f_proj->get_def()) return false;
  if (f_datum->get_def() || f_ellps->get_def()) return true;
  return f_a->get_def() && (f_b->get_def() || f_rf->get_def());
}

bool Tvx_proj4_str::equal(const Tvx_proj4_str* o) const {
  return f_proj->equal(o->f_proj.get()) && f_datum->equal(o->f_datum.get()) &&
         f_ellps->equal(o->f_ellps.get()) && f_units->equal(o->f_units.get()) &&
         f_lon_0->equal(o->f_lon_0.get()) && f_lonc->equal(o->f_lonc.get()) &&
         f_lat_0->equal(o->f_lat_0.get()) && f_x_0->equal(o->f_x_0.get()) && f_y_0->equal(o->f_y_0.get()) &&
         f_lat_1->equal(o->f_lat_1.get()) && f_lat_ts->equal(o->f_lat_ts.get()) &&
         f_lat_2->equal(o->f_lat_2.get()) && f_k_0->equal(o->f_k_0.get()) &&
         f_alpha->equal(o->f_alpha.get()) && f_a->equal(o->f_a.get()) && f_b->equal(o->f_b.get()) &&
         f_rf->equal(o->f_rf.get()) && f_south->equal(o->f_south.get()) &&
         f_towgs84->equal(o->f_towgs84.get()) && f_zone->equal(o->f_zone.get());
}

bool Tvx_proj4_str::get_is_long_lat() const {
  return str_is(f_proj.get(), "longlat") || str_is(f_proj.get(), "latlong");
}

void Tvx_proj4_str::set_is_long_lat() {
  f_proj->set_str("longlat");
  f_proj->set_def(true);
  Tvx_proj4_param* projected[] = {f_zone.get(), f_lon_0.get(), f_lonc.get(),   f_lat_0.get(), f_x_0.get(),
                                  f_y_0.get(),  f_lat_1.get(), f_lat_ts.get(), f_lat_2.get(), f_south.get(),
                                  f_k_0.get(),  f_alpha.get(), f_units.get()};
  for (Tvx_proj4_param* p : projected) p->set_def(false);
}
