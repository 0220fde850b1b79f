#include "proj4/proj4_str.h"

#include <cmath>
#include <utility>
#include <vector>

#include "proj4/proj4_text.h"

namespace {

// Values closer than this make two semi-axes one (a sphere), and an inverse flattening below it is none.
constexpr double kSphereTolerance = 1e-6;
// Our own tail of every composed text: longitudes wrapped around the meridian 45.
constexpr const char* kLonWrap = "+lon_wrap=45 ";
constexpr const char* kNoDefs = "+no_defs";

template <class T>
T* make_param(const char* name, const char* other_name = nullptr) {
  T* p = new T;
  p->set_name(name);
  if (other_name) p->add_other_name(other_name);
  return p;
}

using piece_list = std::vector<std::pair<std::string, std::string>>;

// The pieces of a PROJ string as name and value: the text is cut at every plus sign, and each piece at
// its first equals sign, both halves trimmed.
piece_list split_pieces(const std::string& text) {
  piece_list pieces;
  for (const std::string& piece : vx::proj4_text::divide(text, "+")) {
    size_t eq = piece.find('=');
    std::string name = piece.substr(0, eq);
    std::string value = eq == std::string::npos ? std::string() : piece.substr(eq + 1);
    pieces.emplace_back(vx::proj4_text::trim(name), vx::proj4_text::trim(value));
  }
  return pieces;
}

// The value of the first piece named `name`, ignoring case; null when there is none.
const std::string* find_piece(const piece_list& pieces, const std::string& name) {
  for (const auto& piece : pieces)
    if (vx::proj4_text::stricmp(piece.first.c_str(), name.c_str()) == 0) return &piece.second;
  return nullptr;
}

// The value for a parameter under its own name, or else under its other names in order.
const std::string* find_value(const piece_list& pieces, const Tvx_proj4_param* p) {
  if (const std::string* v = find_piece(pieces, p->get_name())) return v;
  for (unsigned i = 0; i < p->get_other_names_count(); ++i)
    if (const std::string* v = find_piece(pieces, p->get_other_name(i))) return v;
  return nullptr;
}

bool str_is(const Tvx_proj4_param_str* p, const char* value) {
  return p->get_def() && vx::proj4_text::stricmp(p->get_str(), value) == 0;
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
      f_params{f_proj,    f_zone,   f_lon_0, f_lonc,  f_lat_0, f_x_0,   f_y_0,
               f_lat_1,   f_lat_ts, f_lat_2, f_south, f_k_0,   f_alpha, f_datum,
               f_towgs84, f_a,      f_b,     f_rf,    f_ellps, f_units, f_nadgrids} {}

Tvx_proj4_str::~Tvx_proj4_str() {
  delete f_proj;
  delete f_datum;
  delete f_ellps;
  delete f_units;
  delete f_lon_0;
  delete f_lonc;
  delete f_lat_0;
  delete f_x_0;
  delete f_y_0;
  delete f_lat_1;
  delete f_lat_ts;
  delete f_lat_2;
  delete f_k_0;
  delete f_alpha;
  delete f_a;
  delete f_b;
  delete f_rf;
  delete f_south;
  delete f_towgs84;
  delete f_zone;
  delete f_nadgrids;
}

void Tvx_proj4_str::decompose() {
  const piece_list pieces = split_pieces(f_text);
  for (Tvx_proj4_param* p : f_params) {
    if (const std::string* value = find_value(pieces, p))
      p->val_from_str(value->c_str());
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
  if (sphere && p == f_towgs84) return false;
  if (sphere && for_proj4 && (p == f_b || p == f_rf)) return false;
  if (!p->get_def()) return false;
  if (sphere && for_proj4 && p == f_a)
    f_text += "+R=" + Tvx_proj4_traits::dbl2str(f_a->get_dbl()) + " ";
  else
    f_text += p->get_out_str();
  return true;
}

void Tvx_proj4_str::set_all_undefined() {
  for (Tvx_proj4_param* p : f_params) p->set_def(false);
}

bool Tvx_proj4_str::is_sphere() const {
  if (str_is(f_ellps, "sphere")) return true;
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
  return f_proj->equal(o->f_proj) && f_datum->equal(o->f_datum) && f_ellps->equal(o->f_ellps) &&
         f_units->equal(o->f_units) && f_lon_0->equal(o->f_lon_0) && f_lonc->equal(o->f_lonc) &&
         f_lat_0->equal(o->f_lat_0) && f_x_0->equal(o->f_x_0) && f_y_0->equal(o->f_y_0) &&
         f_lat_1->equal(o->f_lat_1) && f_lat_ts->equal(o->f_lat_ts) && f_lat_2->equal(o->f_lat_2) &&
         f_k_0->equal(o->f_k_0) && f_alpha->equal(o->f_alpha) && f_a->equal(o->f_a) && f_b->equal(o->f_b) &&
         f_rf->equal(o->f_rf) && f_south->equal(o->f_south) && f_towgs84->equal(o->f_towgs84) &&
         f_zone->equal(o->f_zone);
}

bool Tvx_proj4_str::get_is_long_lat() const {
  return str_is(f_proj, "longlat") || str_is(f_proj, "latlong");
}

void Tvx_proj4_str::set_is_long_lat() {
  f_proj->set_str("longlat");
  f_proj->set_def(true);
  Tvx_proj4_param* projected[] = {f_zone,   f_lon_0, f_lonc,  f_lat_0, f_x_0,   f_y_0,  f_lat_1,
                                  f_lat_ts, f_lat_2, f_south, f_k_0,   f_alpha, f_units};
  for (Tvx_proj4_param* p : projected) p->set_def(false);
}
