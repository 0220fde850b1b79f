// vxk sheet --at, --bounds and --children: where sheets lie, through the library's boxes.
#include <proj.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "designation.h"
#include "numbers.h"
#include "sheet.h"

namespace vxk::sheet {

namespace {

constexpr double DEGREES_PER_RADIAN = 57.29577951308232;
// The far edge of the last band: the polar caps beyond have no sheets.
constexpr double LAST_BAND_EDGE = 88.0;
const Tvx_stdlist_scale ALL_SCALES[] = {VX_STDLIST_SC_MLN, VX_STDLIST_SC_500, VX_STDLIST_SC_200,
                                        VX_STDLIST_SC_100, VX_STDLIST_SC_50,  VX_STDLIST_SC_25,
                                        VX_STDLIST_SC_10};

// An angle of the command line: degrees, or degrees, minutes and seconds with a hemisphere letter as
// PROJ reads them ("55d45'21\"N", "37d37'E").
double angle_of(const std::string& text, const char* what) {
  char* end = nullptr;
  const double plain = std::strtod(text.c_str(), &end);  // exactly the number written, not via radians
  if (!text.empty() && !*end && std::isfinite(plain)) return plain;
  const double radians = proj_dmstor(text.c_str(), &end);
  if (text.empty() || !end || *end || !std::isfinite(radians))
    throw usage_error{std::string(what) + " takes degrees, as in 55.7558 or 55d45'21\"N, not '" + text + "'"};
  return radians * DEGREES_PER_RADIAN;
}

// "41°00'00\"E": degrees, minutes and whole seconds, with the side of the equator or of Greenwich.
// Longitudes past 180 degrees east are told as west.
std::string dms(double degrees, bool latitude) {
  double v = degrees;
  if (!latitude && v > 180.0) v -= 360.0;
  const long long seconds = std::llround(std::fabs(v) * 3600.0);
  const char* side = seconds == 0 ? "" : latitude ? (v < 0 ? "S" : "N") : (v < 0 ? "W" : "E");
  char buf[48];
  std::snprintf(buf, sizeof buf, "%lld°%02lld'%02lld\"%s", seconds / 3600, seconds / 60 % 60, seconds % 60,
                side);
  return buf;
}

std::string json_text(const std::wstring& text) {
  std::string out = "\"";
  for (char c : u8(text)) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

// ---- the sheet of a point -----------------------------------------------------------------------------

struct point {
  double lat;
  double lon;
  Tvx_stdlist_hemisphere hemisphere;
};

point point_of(const std::string& lat_text, const std::string& lon_text, bool south) {
  const double lat = angle_of(lat_text, "the latitude");
  double lon = angle_of(lon_text, "the longitude");
  if (std::fabs(lon) > 180.0) lon = std::remainder(lon, 360.0);  // the same meridian, from -180 to 180
  if (std::fabs(lat) > 90.0)
    throw usage_error{"the latitude " + lat_text + " is not between -90 and 90" +
                      (std::fabs(lon) <= 90.0 ? " (--at takes the latitude first, then the longitude)" : "")};
  if (south && lat > 0.0)
    throw usage_error{"--south asks for a southern sheet, but " + lat_text + " lies north of the equator"};
  const Tvx_stdlist_hemisphere hemisphere = lat < 0.0 || south ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH;
  fail_if(std::fabs(lat) > LAST_BAND_EDGE, "no sheet holds latitude " + lat_text +
                                               ": the bands of the series end at 88 degrees, and the polar "
                                               "cap beyond has no sheets");
  return {lat, lon, hemisphere};
}

// The box holds the point, edges included (give or take the rounding of the edges), in any turn of
// longitude.
bool on_or_in(const sheet_box& b, double lon, double lat) {
  const double slack = 1e-8;
  if (lat < b.south - slack || lat > b.north + slack) return false;
  for (double x : {lon, lon - 360.0, lon + 360.0}) {
    if (x >= b.west - slack && x <= b.east + slack) return true;
  }
  return false;
}

std::wstring side_note(Tvx_stdlist_hemisphere hemisphere) {
  return hemisphere == VX_STDLIST_SOUTH ? L" (south)" : L" (north)";
}

// The other sheets whose edge the point lies on: those found a hair away from it in each diagonal
// direction, the equator crossed where the point lies on it.
std::vector<std::wstring> also_on_edge(Tvx_stdlist_scale scale, const point& p, const std::wstring& found) {
  const double hair = 1e-7;  // beyond the width the library gives an edge
  std::vector<std::wstring> out;
  for (double dx : {-hair, hair}) {
    for (double dy : {-hair, hair}) {
      const double lat = p.lat + dy;
      const Tvx_stdlist_hemisphere h = lat < 0.0 ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH;
      sheet_record r;
      if (!vx_stdlist_init_at(r.get(), scale, h, p.lon + dx, lat) || !on_or_in(box_of(r.get()), p.lon, p.lat))
        continue;
      const std::wstring name = full_designation_of(r.get()) + (h != p.hemisphere ? side_note(h) : L"");
      bool seen = name == found;
      for (const std::wstring& o : out) seen = seen || o == name;
      if (!seen) out.push_back(name);
    }
  }
  return out;
}

void print_sheet_at(Tvx_stdlist_scale scale, const point& p) {
  sheet_record r;
  fail_if(!vx_stdlist_init_at(r.get(), scale, p.hemisphere, p.lon, p.lat), "no sheet holds the point");
  const std::wstring name = full_designation_of(r.get());
  std::string notes;
  if (scale == VX_STDLIST_SC_10) notes += "the library writes " + u8(designation_of(r.get()));
  const std::vector<std::wstring> others = also_on_edge(scale, p, name);
  for (size_t i = 0; i < others.size(); ++i)
    notes += (i ? ", " : notes.empty() ? "on its edge, also " : "; on its edge, also ") + u8(others[i]);
  std::printf("%-12s %s%s\n", u8(vx_stdlist_scale_tostr(r.get())).c_str(), u8(name).c_str(),
              notes.empty() ? "" : ("   (" + notes + ")").c_str());
}

// ---- boxes ---------------------------------------------------------------------------------------------

void print_box_text(const Tvx_stdlist_string* sheet) {
  const sheet_box b = box_of(sheet);
  std::printf("sheet:  %s\n", u8(full_designation_of(sheet)).c_str());
  const std::pair<const char*, double> edges[] = {
      {"west", b.west}, {"east", b.east}, {"south", b.south}, {"north", b.north}};
  for (const auto& [name, value] : edges) {
    const bool latitude = name[0] == 's' || name[0] == 'n';
    std::printf("%-7s %-20s %s\n", (std::string(name) + ":").c_str(), shortest(value).c_str(),
                dms(value, latitude).c_str());
  }
}

std::string wkt_of(const sheet_box& b) {
  const std::string w = shortest(b.west), e = shortest(b.east), s = shortest(b.south), n = shortest(b.north);
  return "POLYGON ((" + w + " " + s + ", " + e + " " + s + ", " + e + " " + n + ", " + w + " " + n + ", " +
         w + " " + s + "))";
}

// One feature: the box as a polygon, counter-clockwise, with what names the sheet.
std::string feature_of(const Tvx_stdlist_string* sheet) {
  const sheet_box b = box_of(sheet);
  const std::string w = shortest(b.west), e = shortest(b.east), s = shortest(b.south), n = shortest(b.north);
  const std::string ring = "[[" + w + ", " + s + "], [" + e + ", " + s + "], [" + e + ", " + n + "], [" + w +
                           ", " + n + "], [" + w + ", " + s + "]]";
  const char hemisphere[2] = {static_cast<char>(vx_stdlist_hemisphere_tostr(sheet)), 0};
  return "{\"type\": \"Feature\", \"properties\": {\"designation\": " +
         json_text(full_designation_of(sheet)) + ", \"library\": " + json_text(designation_of(sheet)) +
         ", \"scale\": " + json_text(vx_stdlist_scale_tostr(sheet)) +
         ", \"type\": " + std::to_string(vx_stdlist_get_type(sheet)) + ", \"hemisphere\": \"" + hemisphere +
         "\"}, \"geometry\": {\"type\": \"Polygon\", \"coordinates\": [" + ring + "]}}";
}

void print_collection(const std::vector<const Tvx_stdlist_string*>& sheets) {
  std::printf("{\"type\": \"FeatureCollection\", \"features\": [");
  for (size_t i = 0; i < sheets.size(); ++i)
    std::printf("%s\n  %s", i ? "," : "", feature_of(sheets[i]).c_str());
  std::printf("\n]}\n");
}

}  // namespace

void print_at(const std::string& lat, const std::string& lon, Tvx_stdlist_scale scale, bool south) {
  const point p = point_of(lat, lon, south);
  std::printf("%-12s %s, %s\n", "point:", dms(p.lat, true).c_str(), dms(p.lon, false).c_str());
  for (Tvx_stdlist_scale s : ALL_SCALES) {
    if (scale == VX_STDLIST_SC_NONE || scale == s) print_sheet_at(s, p);
  }
}

void print_bounds(const Tvx_stdlist_string* sheet, format how) {
  if (how == format::wkt) {
    std::printf("%s\n", wkt_of(box_of(sheet)).c_str());
  } else if (how == format::geojson) {
    print_collection({sheet});
  } else if (vx_stdlist_get_type(sheet) == VX_STDLIST_TP_SGL) {
    print_box_text(sheet);
  } else {
    sheet_record first(sheet);
    vx_stdlist_init(first.get(), vx_stdlist_get_scale(sheet), VX_STDLIST_TP_SGL,
                    vx_stdlist_get_hemisphere(sheet));
    print_box_text(first.get());
    std::printf("\n");
    print_box_text(sheet);
  }
}

void print_children(const Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, format how) {
  const std::vector<sheet_record> children = children_of(sheet, scale);
  std::vector<const Tvx_stdlist_string*> sheets;
  for (const sheet_record& c : children) sheets.push_back(c.get());
  if (how == format::geojson) return print_collection(sheets);
  for (const Tvx_stdlist_string* c : sheets)
    std::printf("%s\n", (how == format::wkt ? wkt_of(box_of(c)) : u8(full_designation_of(c))).c_str());
}

}  // namespace vxk::sheet
