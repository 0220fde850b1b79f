// Coordinate systems from the command line and from .prj files, turned into the PROJ strings the
// library takes, with PROJ itself for every form other than a PROJ string.
#include "crs_text.h"

#include <proj.h>
#include <proj_experimental.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <system_error>

#include "numbers.h"
#include "report.h"
#include "rows_sink.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace vxk::crs {

namespace {

namespace fs = std::filesystem;

// The parameters the library's projection strings carry, under every name they are read by.
const std::set<std::string>& known_parameters() {
  static const std::set<std::string> names = {
      "proj", "zone", "lon_0", "lonc", "lat_0", "x_0", "y_0", "lat_1", "lat_ts", "lat_2", "south", "k_0", "k",
      "alpha", "datum", "towgs84", "a", "b", "R", "rf", "ellps", "units", "nadgrids",
      // said of every PROJ string, and without effect on the coordinates
      "no_defs", "type", "wktext"};
  return names;
}

// What some dropped parameters did, so that the warning can say what the result lacks.
std::string consequence(const std::string& name) {
  if (name == "pm") return "longitudes are taken from Greenwich";
  if (name == "axis") return "coordinates are taken east, then north";
  if (name == "geoidgrids" || name == "geoid_crs" || name == "vunits")
    return "heights (Z) are kept as they are, not converted";
  if (name == "to_meter") return "coordinates are taken in the unit of +units, or metres";
  if (name == "lon_wrap" || name == "over") return "longitudes are wrapped as the library does it";
  if (name == "init") return "give the system as EPSG:NNNN instead";
  return {};
}

std::string trim(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// A PROJ context of our own for the questions asked here, quiet: what goes wrong is read from it.
struct context {
  PJ_CONTEXT* ctx = proj_context_create();
  std::string last_log;
  context() {
    proj_log_func(ctx, this, [](void* self, int, const char* text) {
      if (text) static_cast<context*>(self)->last_log = text;
    });
    proj_context_use_proj4_init_rules(ctx, 1);
  }
  ~context() { proj_context_destroy(ctx); }
  context(const context&) = delete;
  context& operator=(const context&) = delete;
  // What PROJ said last, without the name of its function; its error code's text when it said nothing.
  std::string error() const {
    std::string text = last_log.empty() ? proj_context_errno_string(ctx, proj_context_errno(ctx)) : last_log;
    if (const auto colon = text.find(": "); colon != std::string::npos && text.compare(0, 5, "proj_") == 0)
      text.erase(0, colon + 2);
    return echo(text);
  }
};

struct pj_deleter {
  void operator()(PJ* p) const { proj_destroy(p); }
};
using pj_ptr = std::unique_ptr<PJ, pj_deleter>;

// The forms PROJ reads and the library does not: an authority code ("EPSG:4326", "ESRI:102100"), an
// OGC URN or URL, WKT (ESRI's too), PROJJSON and "+init=".
bool needs_proj(const std::string& text) {
  static const std::regex code(R"(^[A-Za-z][A-Za-z0-9_]*:[A-Za-z0-9_.]+(\+[A-Za-z0-9_.:]+)*$)");
  static const std::regex wkt(R"(^[A-Za-z_][A-Za-z0-9_]*\s*[\[(])");
  if (std::regex_match(text, code) || std::regex_search(text, wkt)) return true;
  if (text.rfind("urn:ogc:def:", 0) == 0 || text.rfind("http://www.opengis.net/def/", 0) == 0) return true;
  return text.rfind("{", 0) == 0 || text.find("+init=") != std::string::npos;
}

bool is_crs_type(PJ_TYPE t) {
  return t == PJ_TYPE_GEOGRAPHIC_2D_CRS || t == PJ_TYPE_GEOGRAPHIC_3D_CRS || t == PJ_TYPE_PROJECTED_CRS ||
         t == PJ_TYPE_BOUND_CRS || t == PJ_TYPE_GEOGRAPHIC_CRS;
}

std::string without_type_crs(std::string proj) {
  for (const char* tail : {" +type=crs", "+type=crs"}) {
    const auto at = proj.find(tail);
    if (at != std::string::npos) proj.erase(at, std::strlen(tail));
  }
  return trim(proj);
}

// The horizontal part of a compound system (the vertical one is named in a warning).
pj_ptr horizontal(context& c, pj_ptr crs, system& out) {
  if (proj_get_type(crs.get()) != PJ_TYPE_COMPOUND_CRS) return crs;
  pj_ptr vertical(proj_crs_get_sub_crs(c.ctx, crs.get(), 1));
  const char* name = vertical ? proj_get_name(vertical.get()) : nullptr;
  out.warnings.push_back(std::string("the vertical system \"") + (name ? name : "?") +
                         "\" is dropped: heights (Z) are kept as they are, not converted");
  return pj_ptr(proj_crs_get_sub_crs(c.ctx, crs.get(), 0));
}

// The system of PROJ's database that PROJ holds to be this one beyond doubt (a WKT without identifiers,
// such as the ESRI WKT of a .prj); null when there is none.
pj_ptr identified(context& c, PJ* crs) {
  int* confidence = nullptr;
  PJ_OBJ_LIST* found = proj_identify(c.ctx, crs, "EPSG", nullptr, &confidence);
  pj_ptr best;
  const int n = found ? proj_list_get_count(found) : 0;
  if (n > 0 && confidence[0] == 100 && (n == 1 || confidence[1] < 100))
    best.reset(proj_list_get(c.ctx, found, 0));
  proj_int_list_destroy(confidence);
  proj_list_destroy(found);
  return best;
}

// The system bound to WGS 84 by its one shift; null when PROJ's database has none or several (PROJ then
// gives the system back as it is).
pj_ptr bound_to_wgs84(context& c, PJ* crs) {
  pj_ptr bound(proj_crs_create_bound_crs_to_WGS84(c.ctx, crs, nullptr));
  if (bound && proj_get_type(bound.get()) != PJ_TYPE_BOUND_CRS) bound.reset();
  return bound;
}

// The system with its shift to WGS 84 (a bound system) when PROJ's database has a single one for it,
// itself or as identified; else the system as it is.
pj_ptr with_shift(context& c, pj_ptr crs) {
  if (pj_ptr bound = bound_to_wgs84(c, crs.get())) return bound;
  if (proj_get_id_code(crs.get(), 0)) return crs;
  pj_ptr same = identified(c, crs.get());
  pj_ptr bound = same ? bound_to_wgs84(c, same.get()) : nullptr;
  if (!bound) return crs;
  const char* a = proj_as_proj_string(c.ctx, crs.get(), PJ_PROJ_4, nullptr);
  const std::string plain = a ? a : "";
  const char* b = proj_as_proj_string(c.ctx, same.get(), PJ_PROJ_4, nullptr);
  return b && plain == b ? std::move(bound) : std::move(crs);
}

// The name of a system's datum (of a datum ensemble, the ensemble's), "" when PROJ cannot tell.
std::string datum_name(context& c, PJ* crs) {
  pj_ptr base(proj_get_type(crs) == PJ_TYPE_BOUND_CRS ? proj_get_source_crs(c.ctx, crs) : nullptr);
  pj_ptr datum(proj_crs_get_datum_forced(c.ctx, base ? base.get() : crs));
  const char* name = datum ? proj_get_name(datum.get()) : nullptr;
  return name ? name : "";
}

// A form PROJ reads, turned into a PROJ string through PROJ: the system with its shift to WGS 84 when
// PROJ's database knows one for it.
std::string through_proj(const std::string& text, system& out) {
  context c;
  const std::string input =
      text.find("+init=") != std::string::npos && text.find("+type=crs") == std::string::npos
          ? text + " +type=crs"
          : text;
  pj_ptr crs(proj_create(c.ctx, input.c_str()));
  if (!crs) return "PROJ cannot read " + out.shown + " \"" + echo(text) + "\": " + c.error();
  if (!proj_is_crs(crs.get())) return out.shown + " \"" + echo(text) + "\" is not a coordinate system";
  crs = horizontal(c, std::move(crs), out);
  const char* name = crs ? proj_get_name(crs.get()) : nullptr;
  const std::string named = std::string("\"") + (name ? name : echo(text)) + "\"";
  if (!crs || !is_crs_type(proj_get_type(crs.get())))
    return out.shown + " " + named + " is not a geographic or projected system";
  if (proj_get_type(crs.get()) != PJ_TYPE_BOUND_CRS) crs = with_shift(c, std::move(crs));
  const char* proj = proj_as_proj_string(c.ctx, crs.get(), PJ_PROJ_4, nullptr);
  if (!proj) return "PROJ cannot write " + out.shown + " " + named + " as a PROJ string: " + c.error();
  out.proj = without_type_crs(proj);
  out.for_proj = input;
  out.converted = true;
  out.datum = datum_name(c, crs.get());
  return {};
}

std::string read_small_file(const fs::path& path, std::string& text) {
  std::error_code ec;
  const auto size = fs::file_size(path, ec);
  if (ec) return "cannot read '" + echo(path.string()) + "': " + ec.message();
  if (size > (1u << 20))
    return "'" + echo(path.string()) + "' is too large for a coordinate system (over 1 MiB)";
  std::ifstream in(path, std::ios::binary);
  std::ostringstream all;
  all << in.rdbuf();
  if (!in && !in.eof()) return "cannot read '" + echo(path.string()) + "'";
  text = all.str();
  if (text.size() >= 3 && text.compare(0, 3, "\xEF\xBB\xBF") == 0) text.erase(0, 3);
  return {};
}

// A text with neither "+" nor "=": no PROJ string, but maybe the name of a system in PROJ's database
// ("WGS 84", "Pulkovo 1942 / Gauss-Kruger zone 7"), or the name of a file that is not there.
bool is_plain_name(const std::string& text) {
  return !text.empty() && text.find('+') == std::string::npos && text.find('=') == std::string::npos;
}

bool looks_like_path(const std::string& text) {
  const std::string ext = fs::path(text).extension().string();
  if (ext == ".prj" || ext == ".wkt" || ext == ".json" || ext == ".pj4") return true;
  // Names of projected systems have " / " in them ("Pulkovo 1942 / Gauss-Kruger zone 7"); paths do not.
  return text.find('/') != std::string::npos && text.find(' ') == std::string::npos;
}

// What the text says, with the warnings about parameters the library drops. Names of systems are
// looked up only in what the user typed, not in the content of files.
std::string resolve_text(const std::string& given, system& out, bool names = false) {
  const std::string text = trim(given);
  if (needs_proj(text) || (names && is_plain_name(text))) {
    if (std::string err = through_proj(text, out); !err.empty()) return err;
  } else {
    out.proj = text;
    out.for_proj = text.find("+type=") != std::string::npos ? text : text + " +type=crs";
  }
  out.dropped = dropped_parameters(out.proj);
  constexpr std::size_t kShown = 8;
  for (std::size_t i = 0; i < out.dropped.size() && i < kShown; ++i) {
    const std::string& p = out.dropped[i];
    const std::string what = consequence(trim(p.substr(1, p.find('=') - 1)));
    out.warnings.push_back(echo(p) +
                           " is not a parameter of the library's projection strings and is dropped" +
                           (what.empty() ? "" : ": " + what));
  }
  if (out.dropped.size() > kShown)
    out.warnings.push_back(std::to_string(out.dropped.size() - kShown) +
                           " more parameters are dropped as well");
  return {};
}

// Great-circle distance in metres between two nearby points in degrees (a sphere: enough to say how far
// apart two results are).
double metres_between_degrees(double x1, double y1, double x2, double y2) {
  constexpr double kMetresPerDegree = 111319.49;
  constexpr double kRad = 0.017453292519943295;
  double dx = std::fmod(std::fabs(x1 - x2), 360.0);
  dx = std::min(dx, 360.0 - dx) * std::cos((y1 + y2) / 2 * kRad);
  return std::hypot(dx, y1 - y2) * kMetresPerDegree;
}

// Metres per unit of a projected system's first axis; 1 when PROJ cannot tell.
double metres_per_unit(context& c, const std::string& proj) {
  pj_ptr crs(proj_create(c.ctx, (proj + " +type=crs").c_str()));
  if (crs && proj_get_type(crs.get()) == PJ_TYPE_BOUND_CRS) crs.reset(proj_get_source_crs(c.ctx, crs.get()));
  pj_ptr cs(crs ? proj_crs_get_coordinate_system(c.ctx, crs.get()) : nullptr);
  double factor = 1;
  if (!cs || !proj_cs_get_axis_info(c.ctx, cs.get(), 0, nullptr, nullptr, nullptr, &factor, nullptr, nullptr,
                                    nullptr))
    return 1;
  return factor > 0 ? factor : 1;
}

// The library's image of one point; false when it cannot transform it.
bool library_point(Tvx_rpj_fb_d2* rpj, Tvx_pp2d* pv, double x, double y, double& ox, double& oy) {
  vx_pv_d2_clear(pv);
  vx_pv_d2_add_vtx(pv, Tvx_vtx_d2{x, y});
  if (!vx_rpj_fb_d2_apply_pv(rpj, pv, 1)) return false;
  const Tvx_vtx_d2 v = vx_pv_d2_get_vtx(pv, 0);
  ox = v.x, oy = v.y;
  return std::isfinite(ox) && std::isfinite(oy);
}

// The value of "+name=" in a PROJ string, "" when it has none.
std::string value_of(const std::string& proj, const std::string& name) {
  const std::string key = "+" + name + "=";
  const auto at = proj.find(key);
  if (at == std::string::npos) return {};
  const auto start = at + key.size();
  return proj.substr(start, proj.find(' ', start) - start);
}

// A datum shift as "+towgs84=..." when PROJ's operation is exactly one Helmert step.
std::string towgs84_of(context& c, PJ* op) {
  const char* text = op ? proj_as_proj_string(c.ctx, op, PJ_PROJ_5, nullptr) : nullptr;
  if (!text) return {};
  const std::string proj = text;
  const auto first = proj.find("+proj=helmert");
  if (first == std::string::npos || proj.find("+proj=helmert", first + 1) != std::string::npos) return {};
  if (proj.find("gridshift") != std::string::npos || proj.find("+proj=deformation") != std::string::npos)
    return {};
  const std::string step = proj.substr(first, proj.find("+step", first) - first);
  std::vector<std::string> values;
  for (const char* n : {"x", "y", "z", "rx", "ry", "rz", "s"}) {
    std::string v = value_of(step, n);
    if (v.empty() || std::strtod(v.c_str(), nullptr) == 0) v = "0";
    const bool rotation = !std::strcmp(n, "rx") || !std::strcmp(n, "ry") || !std::strcmp(n, "rz");
    if (rotation && v != "0" && value_of(step, "convention") == "coordinate_frame")
      v = v[0] == '-' ? v.substr(1) : "-" + v;
    values.push_back(v);
  }
  const bool seven = values[3] != "0" || values[4] != "0" || values[5] != "0" || values[6] != "0";
  std::string out = "+towgs84=" + values[0] + "," + values[1] + "," + values[2];
  if (seven) out += "," + values[3] + "," + values[4] + "," + values[5] + "," + values[6];
  return out;
}

// An operation's name without the steps that only swap axes, which PROJ names in every chain.
std::string without_axis_steps(std::string name) {
  for (const char* step : {"axis order change (2D) + ", " + axis order change (2D)"}) {
    for (auto at = name.find(step); at != std::string::npos; at = name.find(step))
      name.erase(at, std::strlen(step));
  }
  return name;
}

// How a system stands to WGS 84 in its PROJ string.
enum class shift { wgs84, given, missing };

shift shift_of(const system& s) {
  const std::string datum = value_of(s.proj, "datum");
  if (!datum.empty()) return datum == "WGS84" ? shift::wgs84 : shift::missing;
  if (!value_of(s.proj, "towgs84").empty() || !value_of(s.proj, "nadgrids").empty()) return shift::given;
  return value_of(s.proj, "ellps") == "WGS84" ? shift::wgs84 : shift::missing;
}

// The side whose shift is `wanted`, when exactly one side has it.
const system* side_with(const system& from, const system& to, shift wanted) {
  if ((shift_of(from) == wanted) == (shift_of(to) == wanted)) return nullptr;
  return shift_of(from) == wanted ? &from : &to;
}

}  // namespace

void share_shift(system& a, system& b) {
  if (!a.converted || !b.converted || a.datum.empty() || a.datum != b.datum) return;
  const std::string ta = value_of(a.proj, "towgs84"), tb = value_of(b.proj, "towgs84");
  if (ta.empty() == tb.empty()) return;
  system& without = ta.empty() ? a : b;
  if (!value_of(without.proj, "datum").empty() || !value_of(without.proj, "nadgrids").empty()) return;
  const std::string shift = " +towgs84=" + (ta.empty() ? tb : ta);
  const auto at = without.proj.find(" +units=") != std::string::npos ? without.proj.find(" +units=")
                                                                     : without.proj.find(" +no_defs");
  without.proj.insert(at == std::string::npos ? without.proj.size() : at, shift);
}

void print_warnings(const system& s, const char* command) {
  for (const std::string& w : s.warnings)
    std::fprintf(stderr, "%s: warning: %s: %s\n", command, s.shown.c_str(), w.c_str());
}

std::vector<std::string> dropped_parameters(const std::string& proj) {
  std::vector<std::string> dropped;
  std::set<std::string> seen;
  std::size_t start = proj.find('+');
  while (start != std::string::npos) {
    const std::size_t end = proj.find('+', start + 1);
    const std::string piece = trim(proj.substr(start + 1, end == std::string::npos ? end : end - start - 1));
    start = end;
    const std::string name = trim(piece.substr(0, piece.find('=')));
    if (name.empty() || known_parameters().count(name) || !seen.insert(name).second) continue;
    dropped.push_back("+" + piece);
  }
  return dropped;
}

std::string resolve(const std::string& text, const std::string& shown, system& out) {
  out = system{};
  out.shown = shown;
  std::error_code ec;
  const std::string t = trim(text);
  if (!t.empty() && t[0] != '+' && !needs_proj(t) && fs::is_regular_file(t, ec)) {
    std::string content;
    if (std::string err = read_small_file(t, content); !err.empty()) return err;
    out.shown = shown + " ('" + echo(t) + "')";
    return resolve_text(content, out);
  }
  if (is_plain_name(t) && looks_like_path(t)) {
    return "there is no file '" + echo(t) + "' for " + shown +
           " (it takes a PROJ string, EPSG:NNNN, WKT, the name of a system, or a file holding one)";
  }
  return resolve_text(text, out, true);
}

std::string from_source(const std::string& shp, system& out) {
  out = system{};
  const fs::path pj4 = fs::path(shp).replace_extension(".pj4");
  const fs::path prj = fs::path(shp).replace_extension(".prj");
  std::error_code ec;
  if (fs::is_regular_file(pj4, ec)) {
    rows_sink sink;
    out.shown = "'" + echo(pj4.string()) + "'";
    if (!vx_pj4_load_simple_w(utf8_to_wide(pj4.string()).c_str(), sink.get()) || sink.rows().empty())
      return "cannot read the PROJ string of " + out.shown;
    return resolve_text(wide_to_utf8(sink.rows().front()), out);
  }
  if (!fs::is_regular_file(prj, ec)) {
    return "the source '" + echo(shp) +
           "' has no .prj (nor .pj4) to tell its coordinate system; give it with "
           "--from (a PROJ string, EPSG:NNNN or WKT)";
  }
  out.shown = "'" + echo(prj.string()) + "'";
  std::string content;
  if (std::string err = read_small_file(prj, content); !err.empty()) return err;
  if (trim(content).empty())
    return "the coordinate system file " + out.shown + " is empty; give the system with --from";
  return resolve_text(content, out);
}

bool compare_with_proj(const system& from, const system& to, double xmin, double ymin, double xmax,
                       double ymax, difference& out) {
  context c;
  pj_ptr op(proj_create_crs_to_crs(c.ctx, from.for_proj.c_str(), to.for_proj.c_str(), nullptr));
  pj_ptr norm(op ? proj_normalize_for_visualization(c.ctx, op.get()) : nullptr);
  Tvx_rpj_fb_d2* rpj = vx_rpj_fb_d2_create();
  Tvx_pp2d* pv = vx_pv_d2_create();
  const bool ready = norm && rpj && pv &&
                     vx_rpj_fb_d2_init_w(rpj, utf8_to_wide(from.proj).c_str(), utf8_to_wide(to.proj).c_str());
  const bool geographic = vx_pj4_is_longlat_w(utf8_to_wide(to.proj).c_str());
  const double unit = geographic ? 1 : metres_per_unit(c, to.proj);
  bool any = false;
  for (int i = 0; ready && i < 9; ++i) {
    const double x = xmin + (xmax - xmin) * (i % 3) / 2, y = ymin + (ymax - ymin) * (i / 3) / 2;
    double lx = 0, ly = 0;
    if (!library_point(rpj, pv, x, y, lx, ly)) continue;
    const PJ_COORD p = proj_trans(norm.get(), PJ_FWD, proj_coord(x, y, 0, 0));
    if (!std::isfinite(p.xy.x) || !std::isfinite(p.xy.y) || p.xy.x == HUGE_VAL) continue;
    const double d = geographic ? metres_between_degrees(lx, ly, p.xy.x, p.xy.y)
                                : std::hypot(lx - p.xy.x, ly - p.xy.y) * unit;
    if (any && d <= out.metres) continue;
    any = true;
    out.metres = d, out.x = x, out.y = y;
    pj_ptr used(proj_trans_get_last_used_operation(norm.get()));
    const char* name = used ? proj_get_name(used.get()) : nullptr;
    out.operation = without_axis_steps(name ? name : "");
    out.towgs84 = towgs84_of(c, used.get());
  }
  vx_pv_d2_destroy(pv);
  vx_rpj_fb_d2_destroy(rpj);
  return any;
}

std::string difference_warning(const system& from, const system& to, const difference& d) {
  constexpr double kTold = 0.01;
  if (d.metres <= kTold) return {};
  char far[32];
  std::snprintf(far, sizeof far, d.metres < 10 ? "%.2f" : "%.0f", d.metres);
  std::string text =
      std::string("the result will be up to ") + far +
      " m away from PROJ's own transformation between these systems (what cs2cs and ogr2ogr do), "
      "at " +
      shortest(d.x) + ", " + shortest(d.y) + " of the source";
  if (!d.operation.empty()) text += ", where PROJ uses \"" + d.operation + "\"";
  if (!from.dropped.empty() || !to.dropped.empty())
    return text + ". The parameters dropped from " + (from.dropped.empty() ? to.shown : from.shown) +
           " (see above) are the first thing to look at";
  const std::string proj_shift = d.towgs84.empty() ? "+towgs84=..." : d.towgs84 + " (PROJ's shift there)";
  if (const system* side = side_with(from, to, shift::missing)) {
    return text + ". The library takes each system as a PROJ string, and " + side->shown +
           " has no datum shift it can apply (a +datum whose grid files are not installed, or no +towgs84), "
           "so "
           "none is applied; give it as a PROJ string with +ellps and " +
           proj_shift + ", or with +nadgrids";
  }
  const bool ft = !value_of(from.proj, "towgs84").empty(), tt = !value_of(to.proj, "towgs84").empty();
  const system* side = ft != tt ? (ft ? &from : &to) : side_with(from, to, shift::given);
  text +=
      ". PROJ chooses another datum shift there than the one the PROJ strings carry; to follow PROJ, give ";
  text +=
      (side ? side->shown : std::string("the system")) + " as a PROJ string with +ellps and " + proj_shift;
  return text;
}

}  // namespace vxk::crs
