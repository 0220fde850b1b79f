#include "proj4/pj_catalogue.h"

#include <cmath>
#include <cstring>
#include <vector>

#include "support/str_func.h"

namespace vx::proj4 {

const char* const GAUSS_KRUGER = "Gauss-Kruger";

namespace {

constexpr const char* kUtm = "UTM";
constexpr const char* kWgs84 = "WGS84";
constexpr const char* kMetres = "m";
constexpr int kZones = 60;
// A Gauss-Kruger zone n has its central meridian at 6n - 3 degrees east and the false easting
// n * 1,000,000 + 500,000 metres, so that the zone can be read from an easting.
constexpr double kZoneWidth = 6.0;
constexpr double kZoneEasting = 1000000.0;
constexpr double kFalseEasting = 500000.0;
// Universal Polar Stereographic: scale at the pole and false easting and northing.
constexpr double kUpsScale = 0.994;
constexpr double kUpsFalse = 2000000.0;
// Two numbers of a string are the value of a zone when closer than this.
constexpr double kSame = 1e-6;

// The number parameters of an entry with their names and their counterparts in a PROJ string, in the
// order of a composed text.
struct dbl_link {
  const char* name;
  Tvx_pj_dbl_param* (Tvx_pj_proj_def::*def)() const;
  Tvx_proj4_param_dbl* (Tvx_proj4_str::*str)() const;
};

const dbl_link kDblLinks[] = {
    {"lon_0", &Tvx_pj_proj_def::get_lon_0, &Tvx_proj4_str::get_lon_0},
    {"lonc", &Tvx_pj_proj_def::get_lonc, &Tvx_proj4_str::get_lonc},
    {"lat_0", &Tvx_pj_proj_def::get_lat_0, &Tvx_proj4_str::get_lat_0},
    {"x_0", &Tvx_pj_proj_def::get_x_0, &Tvx_proj4_str::get_x_0},
    {"y_0", &Tvx_pj_proj_def::get_y_0, &Tvx_proj4_str::get_y_0},
    {"lat_1", &Tvx_pj_proj_def::get_lat_1, &Tvx_proj4_str::get_lat_1},
    {"lat_ts", &Tvx_pj_proj_def::get_lat_ts, &Tvx_proj4_str::get_lat_ts},
    {"lat_2", &Tvx_pj_proj_def::get_lat_2, &Tvx_proj4_str::get_lat_2},
    {"k_0", &Tvx_pj_proj_def::get_k_0, &Tvx_proj4_str::get_k_0},
    {"alpha", &Tvx_pj_proj_def::get_alpha, &Tvx_proj4_str::get_alpha},
};

// The range a user may give a parameter: longitudes, latitudes, scale factors and azimuths have one;
// false eastings and northings have none.
struct range {
  bool has;
  double min;
  double max;
};

range range_of(const std::string& name) {
  if (name == "lon_0" || name == "lonc") return {true, -180.0, 180.0};
  if (name.compare(0, 3, "lat") == 0) return {true, -90.0, 90.0};
  if (name == "k_0") return {true, 0.5, 1.5};
  if (name == "alpha") return {true, -360.0, 360.0};
  return {false, 0.0, 0.0};
}

Tvx_pj_dbl_param* dbl_param(const Tvx_pj_proj_def& d, const std::string& name) {
  for (const dbl_link& l : kDblLinks)
    if (name == l.name) return (d.*l.def)();
  return nullptr;
}

struct value {
  const char* name;
  double v;
};

// A parameter the user sets: shown, written, starting from `v`.
void user(Tvx_pj_proj_def& d, const value& p) {
  Tvx_pj_dbl_param* q = dbl_param(d, p.name);
  q->set_show(true);
  q->set_use_proj4(true);
  q->set_default(p.v);
  const range r = range_of(p.name);
  q->set_def_min(r.has);
  q->set_def_max(r.has);
  q->set_min(r.min);
  q->set_max(r.max);
}

// A parameter the entry fixes: written, not shown, its default the entry's own.
template <class Param, class Value>
void fixed(Param* q, Value v) {
  q->set_show(false);
  q->set_use_proj4(true);
  q->set_def_default(true);
  q->set_default(v);
}

Tvx_pj_proj_def* new_entry(Tvx_pj_proj_defs* defs, const char* caption, const std::string& add_caption,
                           const char* proj) {
  Tvx_pj_proj_def* d = defs->add();
  d->set_index(defs->get_size());
  d->set_caption(caption);
  d->set_add_caption(add_caption.c_str());
  d->set_prj4_name(proj);
  if (std::strcmp(proj, "longlat") != 0) fixed(d->get_units(), kMetres);
  return d;
}

// The datum of the entries on WGS 84: written and shown, so that a user may take another.
void on_wgs84(Tvx_pj_proj_def* d) {
  fixed(d->get_datum(), kWgs84);
  d->get_datum()->set_show(true);
}

// The hemisphere of an entry that has one: south writes "+south"; north writes nothing, and its
// default false still marks the entry as northern.
void hemisphere(Tvx_pj_proj_def* d, bool south) {
  fixed(d->get_south(), south);
  d->get_south()->set_use_proj4(south);
}

struct generic_entry {
  const char* caption;
  const char* add_caption;
  const char* proj;
  std::vector<value> user;
  std::vector<value> fixed;
};

const std::vector<generic_entry>& generic_entries() {
  static const std::vector<generic_entry> all = {
      {"Geographic", "longitude and latitude", "longlat", {}, {}},
      {"Mercator", "scale on the equator", "merc", {{"lon_0", 0}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Mercator", "true scale parallel", "merc", {{"lon_0", 0}, {"lat_ts", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Transverse Mercator",
       "",
       "tmerc",
       {{"lon_0", 0}, {"lat_0", 0}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Lambert Conformal Conic",
       "one standard parallel",
       "lcc",
       {{"lon_0", 0}, {"lat_1", 45}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Lambert Conformal Conic",
       "two standard parallels",
       "lcc",
       {{"lon_0", 0}, {"lat_0", 0}, {"lat_1", 33}, {"lat_2", 45}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Albers Equal-Area Conic",
       "",
       "aea",
       {{"lon_0", 0}, {"lat_0", 0}, {"lat_1", 29.5}, {"lat_2", 45.5}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Equidistant Conic",
       "",
       "eqdc",
       {{"lon_0", 0}, {"lat_0", 0}, {"lat_1", 29.5}, {"lat_2", 45.5}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Polar Stereographic",
       "north pole, true scale parallel",
       "stere",
       {{"lon_0", 0}, {"lat_ts", 90}, {"x_0", 0}, {"y_0", 0}},
       {{"lat_0", 90}}},
      {"Polar Stereographic",
       "north pole, scale at the pole",
       "stere",
       {{"lon_0", 0}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}},
       {{"lat_0", 90}}},
      {"Polar Stereographic",
       "south pole, true scale parallel",
       "stere",
       {{"lon_0", 0}, {"lat_ts", -90}, {"x_0", 0}, {"y_0", 0}},
       {{"lat_0", -90}}},
      {"Polar Stereographic",
       "south pole, scale at the pole",
       "stere",
       {{"lon_0", 0}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}},
       {{"lat_0", -90}}},
      {"Oblique Stereographic",
       "",
       "sterea",
       {{"lon_0", 0}, {"lat_0", 0}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Lambert Azimuthal Equal Area", "", "laea", {{"lon_0", 0}, {"lat_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Azimuthal Equidistant", "", "aeqd", {{"lon_0", 0}, {"lat_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Orthographic", "", "ortho", {{"lon_0", 0}, {"lat_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Gnomonic", "", "gnom", {{"lon_0", 0}, {"lat_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Oblique Mercator",
       "Hotine, azimuth at the centre",
       "omerc",
       {{"lonc", 0}, {"lat_0", 45}, {"alpha", 45}, {"k_0", 1}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Cassini-Soldner", "", "cass", {{"lon_0", 0}, {"lat_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Polyconic", "", "poly", {{"lon_0", 0}, {"lat_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Equidistant Cylindrical",
       "",
       "eqc",
       {{"lon_0", 0}, {"lat_0", 0}, {"lat_ts", 0}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Lambert Cylindrical Equal Area",
       "",
       "cea",
       {{"lon_0", 0}, {"lat_ts", 0}, {"x_0", 0}, {"y_0", 0}},
       {}},
      {"Miller Cylindrical", "", "mill", {{"lon_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Sinusoidal", "", "sinu", {{"lon_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Mollweide", "", "moll", {{"lon_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Robinson", "", "robin", {{"lon_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
      {"Equal Earth", "", "eqearth", {{"lon_0", 0}, {"x_0", 0}, {"y_0", 0}}, {}},
  };
  return all;
}

void add_generic(Tvx_pj_proj_defs* defs, const generic_entry& e) {
  Tvx_pj_proj_def* d = new_entry(defs, e.caption, e.add_caption, e.proj);
  for (const value& p : e.user) user(*d, p);
  for (const value& p : e.fixed) fixed(dbl_param(*d, p.name), p.v);
}

// The central meridian of a Gauss-Kruger zone, within -180 to 180.
double zone_meridian(int zone) {
  const double lon = kZoneWidth * zone - kZoneWidth / 2;
  return lon > 180.0 ? lon - 360.0 : lon;
}

void add_gauss_kruger(Tvx_pj_proj_defs* defs, int zone) {
  const std::string n = std::to_string(zone);
  Tvx_pj_proj_def* d = new_entry(defs, GAUSS_KRUGER, "zone " + n, "tmerc");
  fixed(d->get_zone(), zone);
  d->get_zone()->set_use_proj4(false);  // "+zone" means nothing to a transverse Mercator
  d->get_zone()->set_show(true);
  fixed(d->get_zone_name(), n.c_str());
  d->get_zone_name()->set_use_proj4(false);
  fixed(d->get_lon_0(), zone_meridian(zone));
  fixed(d->get_lat_0(), 0.0);
  fixed(d->get_k_0(), 1.0);
  fixed(d->get_x_0(), zone * kZoneEasting + kFalseEasting);
  fixed(d->get_y_0(), 0.0);
}

void add_utm(Tvx_pj_proj_defs* defs, int zone, bool south) {
  const std::string n = std::to_string(zone);
  Tvx_pj_proj_def* d =
      new_entry(defs, kUtm, "zone " + n + (south ? ", southern hemisphere" : ", northern hemisphere"), "utm");
  fixed(d->get_zone(), zone);
  d->get_zone()->set_show(true);
  fixed(d->get_zone_name(), (n + (south ? "S" : "N")).c_str());
  d->get_zone_name()->set_use_proj4(false);
  hemisphere(d, south);
  on_wgs84(d);
}

// UPS written as the polar stereographic projection that it is: "+proj=ups" is a name that GDAL can
// carry only as a PROJ.4 extension, not as a WKT system.
void add_ups(Tvx_pj_proj_defs* defs, bool south) {
  Tvx_pj_proj_def* d =
      new_entry(defs, "Universal Polar Stereographic", south ? "south pole" : "north pole", "stere");
  fixed(d->get_lon_0(), 0.0);
  fixed(d->get_lat_0(), south ? -90.0 : 90.0);
  fixed(d->get_k_0(), kUpsScale);
  fixed(d->get_x_0(), kUpsFalse);
  fixed(d->get_y_0(), kUpsFalse);
  on_wgs84(d);
}

std::string format_value(double v) {
  return Tvx_proj4_traits::dbl2str(v);
}

void add_shown(std::string& row, const std::string& name, const std::string& value) {
  row += "\t" + name + "=" + value;
}

bool near(double a, double b) {
  return std::fabs(a - b) < kSame;
}

// Whether a number parameter is absent or has the value.
bool absent_or(const Tvx_proj4_param_dbl* p, double v) {
  return !p->get_def() || near(p->get_dbl(), v);
}

// The Gauss-Kruger zone whose central meridian, false easting, scale and origin the string has, or 0.
int gauss_kruger_zone(const Tvx_proj4_str& s) {
  if (Tvx_str_func::trim_stricmp(s.get_proj()->get_str(), "tmerc") != 0 || !s.get_x_0()->get_def()) return 0;
  const double zone = std::round((s.get_x_0()->get_dbl() - kFalseEasting) / kZoneEasting);
  if (!(zone >= 1 && zone <= kZones)) return 0;
  const int n = static_cast<int>(zone);
  const double lon_0 = s.get_lon_0()->get_def() ? s.get_lon_0()->get_dbl() : 0.0;
  const bool same_meridian = near(std::remainder(lon_0 - zone_meridian(n), 360.0), 0.0);
  const bool fits = near(s.get_x_0()->get_dbl(), n * kZoneEasting + kFalseEasting) && same_meridian &&
                    absent_or(s.get_k_0(), 1.0) && absent_or(s.get_lat_0(), 0.0) &&
                    absent_or(s.get_y_0(), 0.0);
  return fits ? n : 0;
}

}  // namespace

void fill_catalogue(Tvx_pj_proj_defs* defs) {
  defs->clear();
  const std::vector<generic_entry>& generic = generic_entries();
  for (const generic_entry& e : generic) add_generic(defs, e);
  add_ups(defs, false);
  add_ups(defs, true);
  for (int zone = 1; zone <= kZones; ++zone) add_gauss_kruger(defs, zone);
  for (bool south : {false, true})
    for (int zone = 1; zone <= kZones; ++zone) add_utm(defs, zone, south);
}

const Tvx_pj_proj_defs& catalogue() {
  static const Tvx_pj_proj_defs defs = [] {
    Tvx_pj_proj_defs d;
    fill_catalogue(&d);
    return d;
  }();
  return defs;
}

void apply_definition(const Tvx_pj_proj_def& def, Tvx_proj4_str* s) {
  s->get_proj()->set_str(def.get_prj4_name());
  s->get_proj()->set_def(*def.get_prj4_name() != '\0');
  s->get_zone()->set_param(def.get_zone());
  for (const dbl_link& l : kDblLinks) (s->*l.str)()->set_param((def.*l.def)());
  s->get_south()->set_param(def.get_south());
  s->get_units()->set_param(def.get_units());
  s->get_datum()->set_param(def.get_datum());
}

std::string definition_text(const Tvx_pj_proj_def& def) {
  Tvx_proj4_str s;
  apply_definition(def, &s);
  s.set_is_lon_wrap(false);
  s.compose();
  return s.get();
}

const Tvx_pj_proj_def* find_definition(const Tvx_pj_proj_defs& defs, const Tvx_proj4_str& s) {
  if (!s.get_proj()->get_def()) return nullptr;
  const char* name = s.get_proj()->get_str();
  const bool south = s.get_south()->get_def();
  if (const int n = gauss_kruger_zone(s)) return defs.find_by_caption_and_zone(GAUSS_KRUGER, n);
  const Tvx_proj4_param_int* zone = s.get_zone();
  if (zone->get_def())
    return zone->get_int() > 0 ? defs.find_utm(name, static_cast<unsigned>(zone->get_int()), south) : nullptr;
  const double lat = s.get_lat_0()->get_def() ? s.get_lat_0()->get_dbl() : 0.0;
  return defs.find_by_name_lat_south(name, lat, s.get_lat_1()->get_def(), s.get_lat_2()->get_def(),
                                     s.get_lat_ts()->get_def(), s.get_k_0()->get_def(), south);
}

std::string catalogue_row(const Tvx_pj_proj_def& def) {
  std::string row = std::to_string(def.get_index()) + "\t" + def.get_caption() + "\t" +
                    def.get_add_caption() + "\t" + definition_text(def);
  if (def.get_zone()->get_show()) add_shown(row, "zone", std::to_string(def.get_zone()->get_default()));
  for (const dbl_link& l : kDblLinks) {
    const Tvx_pj_dbl_param* p = (def.*l.def)();
    if (!p->get_show()) continue;
    add_shown(row, l.name, format_value(p->get_default()));
    if (p->get_def_min() || p->get_def_max())
      row += " [" + (p->get_def_min() ? format_value(p->get_min()) : "") + "," +
             (p->get_def_max() ? format_value(p->get_max()) : "") + "]";
  }
  if (def.get_datum()->get_show()) add_shown(row, "datum", def.get_datum()->get_default());
  return row;
}

}  // namespace vx::proj4
