// Where a sheet lies: the generator's edges of the sheets it draws, the sheets of the other scales cut
// from their parents, and the search for the sheet that holds a point, which asks the same boxes.
#include "stdlist/generate/22_sheet_box.h"

#include <cmath>
#include <cstdint>
#include <vector>

#include "stdlist/traits.h"

namespace vx::stdlist::sheet_box {

namespace {

constexpr double TWO_THIRDS = 0.6666666666666666;
// The far edge of the last band, "V": beyond it lies the polar cap, which has no sheets.
constexpr double LAST_BAND_EDGE = 88.0;

// +1 in the north, -1 in the south.
double hemisphere_sign(Tvx_stdlist_hemisphere hemisphere) {
  return hemisphere == VX_STDLIST_NORTH ? 1.0 : -1.0;
}

// A level below the million sheet: the grid of columns and rows it cuts its parent into, and its field.
struct level {
  Tvx_stdlist_scale scale;
  Tvx_stdlist_scale parent;
  std::uint64_t columns;
  std::uint64_t rows;
  std::uint64_t (*get)(const stdlist_string&);
  void (*set)(stdlist_string&, std::uint64_t);
};

const level LEVELS[] = {
    {VX_STDLIST_SC_500, VX_STDLIST_SC_MLN, 2, 2,
     [](const stdlist_string& s) { return s.get_500_letter_idx(); },
     [](stdlist_string& s, std::uint64_t i) { s.set_500_letter_idx(i); }},
    {VX_STDLIST_SC_200, VX_STDLIST_SC_MLN, 6, 6,
     [](const stdlist_string& s) { return s.get_200_roman_idx(); },
     [](stdlist_string& s, std::uint64_t i) { s.set_200_roman_idx(i); }},
    {VX_STDLIST_SC_100, VX_STDLIST_SC_MLN, 12, 12, [](const stdlist_string& s) { return s.get_100_number(); },
     [](stdlist_string& s, std::uint64_t i) { s.set_100_number(i); }},
    {VX_STDLIST_SC_50, VX_STDLIST_SC_100, 2, 2, [](const stdlist_string& s) { return s.get_50_letter_idx(); },
     [](stdlist_string& s, std::uint64_t i) { s.set_50_letter_idx(i); }},
    {VX_STDLIST_SC_25, VX_STDLIST_SC_50, 2, 2, [](const stdlist_string& s) { return s.get_25_letter_idx(); },
     [](stdlist_string& s, std::uint64_t i) { s.set_25_letter_idx(i); }},
    {VX_STDLIST_SC_10, VX_STDLIST_SC_25, 2, 2, [](const stdlist_string& s) { return s.get_10_number(); },
     [](stdlist_string& s, std::uint64_t i) { s.set_10_number(i); }},
};

const level* level_of(Tvx_stdlist_scale scale) {
  for (const level& l : LEVELS) {
    if (l.scale == scale) return &l;
  }
  return nullptr;
}

// The single sheet of the record at another scale of its chain.
stdlist_string single_at(const stdlist_string& sheet, Tvx_stdlist_scale scale) {
  stdlist_string s = sheet;
  s.set_scale(scale);
  s.set_type(VX_STDLIST_TP_SGL, true);
  return s;
}

// The box of a sheet the generator draws, with the values the generator computes.
box drawn(const stdlist_string& sheet) {
  box b;
  b.xmin = list_xmin(sheet, static_cast<double>(sheet.get_mid_meridian()));
  b.xmax = b.xmin + traits::width(sheet.get_scale(), sheet.get_type());
  b.ymin = list_ymin(sheet);
  b.ymax = b.ymin + traits::height(sheet.get_scale());
  return b;
}

box box_of(const stdlist_string& sheet);

// A sheet cut from its parent: its column from the west and its row from the parent's north edge (south
// edge in the south), the joined sheets following eastwards.
box cut(const stdlist_string& sheet, const level& l) {
  const box parent = box_of(single_at(sheet, l.parent));
  const std::uint64_t k = l.get(sheet) - 1;
  const double width = (parent.xmax - parent.xmin) / static_cast<double>(l.columns);
  const double height = (parent.ymax - parent.ymin) / static_cast<double>(l.rows);
  const double row = static_cast<double>(k / l.columns);
  box b;
  b.xmin = parent.xmin + static_cast<double>(k % l.columns) * width;
  b.xmax = b.xmin + static_cast<double>(sheet.get_type()) * width;
  if (sheet.get_hemisphere() == VX_STDLIST_NORTH) {
    b.ymax = parent.ymax - row * height;
    b.ymin = b.ymax - height;
  } else {
    b.ymin = parent.ymin + row * height;
    b.ymax = b.ymin + height;
  }
  return b;
}

box box_of(const stdlist_string& sheet) {
  const Tvx_stdlist_scale scale = sheet.get_scale();
  if (scale == VX_STDLIST_SC_MLN || scale == VX_STDLIST_SC_200) return drawn(sheet);
  return cut(sheet, *level_of(scale));
}

// ---- the sheet that holds a point ------------------------------------------------------------------

struct point {
  double x;
  double y;
  Tvx_stdlist_hemisphere hemisphere;
};

// Which axes a level decides: the band letter the latitude, the column the longitude, the others both.
enum axes { X = 1, Y = 2, XY = 3 };

// The edges of neighbouring sheets are computed in different ways and may differ by rounding: a point
// closer to an edge than this lies on it.
constexpr double ON_EDGE = 1e-9;

// On an edge, the sheet east of it and the one farther from the equator; the far edge of the last band
// belongs to that band.
bool holds(const box& b, const point& p, axes along) {
  const bool in_x = !(along & X) || (b.xmin - ON_EDGE <= p.x && p.x < b.xmax - ON_EDGE);
  if (!(along & Y)) return in_x;
  const bool last_band = std::fabs(p.y) == LAST_BAND_EDGE;
  const bool in_y =
      p.hemisphere == VX_STDLIST_NORTH
          ? b.ymin - ON_EDGE <= p.y && (p.y < b.ymax - ON_EDGE || (last_band && p.y <= b.ymax + ON_EDGE))
          : p.y <= b.ymax + ON_EDGE && (b.ymin + ON_EDGE < p.y || (last_band && b.ymin - ON_EDGE <= p.y));
  return in_x && in_y;
}

// How far the point lies outside the box along the axes asked for.
double distance(const box& b, const point& p, axes along) {
  double d = 0.0;
  if (along & X) d += std::fmax(0.0, std::fmax(b.xmin - p.x, p.x - b.xmax));
  if (along & Y) d += std::fmax(0.0, std::fmax(b.ymin - p.y, p.y - b.ymax));
  return d;
}

// Sets the field to the position of 1 to count whose box holds the point. Where rounding leaves the
// point between two boxes, the nearest one takes it.
void choose(stdlist_string& s, std::uint64_t count, void (*set)(stdlist_string&, std::uint64_t),
            const point& p, axes along) {
  std::uint64_t nearest = 1;
  double best = INFINITY;
  for (std::uint64_t i = 1; i <= count; ++i) {
    set(s, i);
    const box b = box_of(s);
    if (holds(b, p, along)) return;
    const double d = distance(b, p, along);
    if (d < best) {
      best = d;
      nearest = i;
    }
  }
  set(s, nearest);
}

// The levels from just below the million sheet down to the scale.
std::vector<const level*> chain_to(Tvx_stdlist_scale scale) {
  std::vector<const level*> chain;
  for (const level* l = level_of(scale); l; l = level_of(l->parent)) chain.insert(chain.begin(), l);
  return chain;
}

bool in_series(Tvx_stdlist_scale scale) {
  return scale == VX_STDLIST_SC_MLN || (scale != VX_STDLIST_SC_300 && level_of(scale) != nullptr);
}

// Longitudes from -180 up to 180 degrees.
double wrapped(double lon) {
  if (lon >= -180.0 && lon < 180.0) return lon;
  const double l = std::fmod(lon + 180.0, 360.0);
  return (l < 0.0 ? l + 360.0 : l) - 180.0;
}

bool in_bands(Tvx_stdlist_hemisphere hemisphere, double lat) {
  if (hemisphere == VX_STDLIST_NORTH) return lat >= 0.0 && lat <= LAST_BAND_EDGE;
  return hemisphere == VX_STDLIST_SOUTH && lat <= 0.0 && lat >= -LAST_BAND_EDGE;
}

}  // namespace

// At 1:200,000 the column of the sheet inside its million sheet, 1 to 6 from the west.
double list_xmin(const stdlist_string& sheet, double mid_meridian) {
  const Tvx_stdlist_scale scale = sheet.get_scale();
  if (scale == VX_STDLIST_SC_MLN) return mid_meridian - 6.0 * 0.5 * sheet.get_type();
  if (scale != VX_STDLIST_SC_200) return 0.0;
  const auto k = static_cast<std::int64_t>(sheet.get_200_roman_idx());
  const std::int64_t c = k % 6 == 0 ? 6 : k % 6;
  return mid_meridian - 3.0 + static_cast<double>(c) - 1.0;
}

// Rows of 1:200,000 sheets count from the north edge of the million sheet in the north, and from its
// south edge in the south: the row order is mirrored at the equator.
double list_ymin(const stdlist_string& sheet) {
  const Tvx_stdlist_scale scale = sheet.get_scale();
  const double s = hemisphere_sign(sheet.get_hemisphere());
  const double letter = static_cast<double>(sheet.get_mln_letter_idx());
  if (scale == VX_STDLIST_SC_MLN) return (letter - 1.0) * s * 4.0 + (s - 1.0) * 4.0 * 0.5;
  if (scale != VX_STDLIST_SC_200) return 0.0;
  const double row = static_cast<double>((static_cast<std::int64_t>(sheet.get_200_roman_idx()) - 1) / 6);
  return s * (4.0 * (letter - 1.0) + 4.0 - row * TWO_THIRDS + (s + 1.0) * TWO_THIRDS * -0.5);
}

bool of(const stdlist_string& sheet, box& out) {
  out = box{};
  if (!sheet.is_valid()) return false;
  out = box_of(sheet);
  return true;
}

bool find(Tvx_stdlist_scale scale, Tvx_stdlist_hemisphere hemisphere, double lon, double lat,
          stdlist_string& out) {
  if (!in_series(scale) || !std::isfinite(lon) || !in_bands(hemisphere, lat)) return false;
  const point p{wrapped(lon), lat, hemisphere};
  stdlist_string s(hemisphere, VX_STDLIST_SC_MLN, VX_STDLIST_TP_SGL, 1, 1, 1, 1, 1, 1, 1, 1);
  choose(
      s, 22, [](stdlist_string& r, std::uint64_t i) { r.set_mln_letter_idx(i); }, p, Y);
  choose(
      s, 60, [](stdlist_string& r, std::uint64_t i) { r.set_mln_number(i); }, p, X);
  for (const level* l : chain_to(scale)) {
    s.set_scale(l->scale);
    choose(s, l->columns * l->rows, l->set, p, XY);
  }
  out = s;
  return true;
}

}  // namespace vx::stdlist::sheet_box
