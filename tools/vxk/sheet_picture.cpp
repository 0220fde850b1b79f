// Drawing a generated sheet with cairo. Lengths of the printed sheet (line widths in millimetres, font
// sizes in points) are turned into page units through the map scale, so that the picture shows the
// sheet as it will be printed, only smaller or larger as a whole.
#include "sheet_picture.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <limits>

#include "utf8.h"

namespace vxk {

namespace {

constexpr double kDegreesPerMetre = 8.983000569721857e-06;  // the generator's own factor
constexpr double kMillimetresPerPoint = 25.4 / 72.0;
constexpr double kRoomForLabelsMm = 6.0;  // around the outermost frame
constexpr double kThinnestLine = 1.0;     // page units: finer lines would vanish on a small page
constexpr double kPi = 3.14159265358979323846;

struct colour {
  double r, g, b;
};

struct line_style {
  colour c;
  double width_mm;
  double dash_mm;  // 0: solid
};

struct coded_style {
  const char* layer;
  long code;
  line_style style;
};

const colour kBlack{0, 0, 0};
const colour kGraticule{0.10, 0.33, 0.65};
const colour kFaint{0.70, 0.70, 0.70};
const colour kPoint{0.78, 0.16, 0.10};
const colour kPaper{0.99, 0.97, 0.90};

// The codes of the L_CODE column and how each is drawn.
const coded_style kStyles[] = {
    {"Hypsl", 400010, {kBlack, 0.15, 0}},      // the sheet's rectangle
    {"Hypsl", 400011, {kGraticule, 0.1, 0}},   // a parallel
    {"Hypsl", 400012, {kGraticule, 0.1, 0}},   // a meridian
    {"Hypsl", 400013, {kGraticule, 0.15, 2}},  // the polar circle
    {"Frame", 400901, {kBlack, 0.1, 0}},       // the inner frames, ticks and bars of the minute scale
    {"Frame", 400902, {kBlack, 0.5, 0}},       // the heavy line of the outer frames
    {"Frame", 400903, {kBlack, 0.2, 0}},       // the lines on either side of it
};
const line_style kOther{{0.4, 0.4, 0.4}, 0.1, 0};
const line_style kAreaEdge{{0.5, 0.5, 0.5}, 0.1, 0};
const line_style kBaseLine{kFaint, 0.05, 0};

long code_of(const shape_layer& layer, const shape_record& r) {
  return std::wcstol(layer.value(r, L"L_CODE").c_str(), nullptr, 10);
}

const line_style& style_of(const shape_layer& layer, const shape_record& r) {
  const long code = code_of(layer, r);
  for (const coded_style& s : kStyles) {
    if (layer.name == s.layer && code == s.code) return s.style;
  }
  return kOther;
}

bool is_label_layer(const shape_layer& layer) {
  return layer.name == "FrameDig" || layer.name == "FrameAdj";
}

void set_colour(cairo_t* cr, const colour& c) {
  cairo_set_source_rgb(cr, c.r, c.g, c.b);
}

}  // namespace

sheet_picture::sheet_picture(const sheet_files& set, double map_scale)
    : set_(set),
      map_scale_(map_scale),
      units_per_metre_(!set.proj.empty() && vx_pj4_is_longlat_w(set.proj.c_str()) ? kDegreesPerMetre : 1.0),
      stretch_(1.0) {
  const double inf = std::numeric_limits<double>::infinity();
  box all{inf, inf, -inf, -inf};
  box area = all;
  for (const shape_layer& layer : set.layers) {
    for (const shape_record& r : layer.records) {
      for (const part& p : r.parts) {
        for (const Tvx_vtx_d2& v : p) {
          if (!std::isfinite(v.x) || !std::isfinite(v.y)) continue;
          box& b = layer.name == "Hypsa" ? area : all;
          b = {std::min(b.xmin, v.x), std::min(b.ymin, v.y), std::max(b.xmax, v.x), std::max(b.ymax, v.y)};
        }
      }
    }
  }
  if (area.xmin > area.xmax) area = all;
  all = {std::min(all.xmin, area.xmin), std::min(all.ymin, area.ymin), std::max(all.xmax, area.xmax),
         std::max(all.ymax, area.ymax)};
  if (all.xmin > all.xmax) all = area = {0, 0, 1, 1};
  if (units_per_metre_ != 1.0) stretch_ = std::max(0.01, std::cos((all.ymin + all.ymax) / 2 * kPi / 180));
  const double room = kRoomForLabelsMm * map_scale_ / 1000 * units_per_metre_;
  sheet_ = {area.xmin * stretch_, area.ymin, area.xmax * stretch_, area.ymax};
  world_ = {all.xmin * stretch_ - room, all.ymin - room, all.xmax * stretch_ + room, all.ymax + room};
}

double sheet_picture::fit(double width, double height) {
  const double w = world_.xmax - world_.xmin, h = world_.ymax - world_.ymin;
  if (height <= 0) height = std::max(1.0, std::round(width * h / w));
  page_scale_ = std::min(width / w, height / h);
  left_ = (width - w * page_scale_) / 2;
  top_ = (height - h * page_scale_) / 2;
  return height;
}

Tvx_vtx_d2 sheet_picture::to_page(Tvx_vtx_d2 v) const {
  return {left_ + (v.x * stretch_ - world_.xmin) * page_scale_, top_ + (world_.ymax - v.y) * page_scale_};
}

double sheet_picture::mm(double millimetres) const {
  return millimetres * map_scale_ / 1000 * units_per_metre_ * page_scale_;
}

void sheet_picture::trace(cairo_t* cr, const part& p) const {
  bool first = true;
  for (const Tvx_vtx_d2& v : p) {
    if (!std::isfinite(v.x) || !std::isfinite(v.y)) continue;
    const Tvx_vtx_d2 q = to_page(v);
    first ? cairo_move_to(cr, q.x, q.y) : cairo_line_to(cr, q.x, q.y);
    first = false;
  }
}

// A bar of the minute scale: a line of two vertices in the frame that runs along the side it stands
// at, where a tick runs across it. It is drawn as wide as the scale's band.
bool sheet_picture::is_bar(const shape_record& r) const {
  if (r.parts.size() != 1 || r.parts[0].size() != 2) return false;
  const Tvx_vtx_d2 a = r.parts[0][0], b = r.parts[0][1];
  const double dx = (b.x - a.x) * stretch_, dy = b.y - a.y;
  const double mx = (a.x + b.x) / 2 * stretch_, my = (a.y + b.y) / 2;
  const double half_w = std::max(1e-12, (sheet_.xmax - sheet_.xmin) / 2);
  const double half_h = std::max(1e-12, (sheet_.ymax - sheet_.ymin) / 2);
  const bool at_left_or_right = std::fabs(mx - (sheet_.xmin + sheet_.xmax) / 2) / half_w >
                                std::fabs(my - (sheet_.ymin + sheet_.ymax) / 2) / half_h;
  return at_left_or_right ? std::fabs(dy) > std::fabs(dx) : std::fabs(dx) > std::fabs(dy);
}

void sheet_picture::draw_record(cairo_t* cr, const shape_layer& layer, const shape_record& r) const {
  if (layer.name == "Hypsp") {
    set_colour(cr, kPoint);
    for (const part& p : r.parts) {
      for (const Tvx_vtx_d2& v : p) {
        const Tvx_vtx_d2 q = to_page(v);
        cairo_new_sub_path(cr);
        cairo_arc(cr, q.x, q.y, std::max(1.0, mm(0.35)), 0, 2 * kPi);
      }
    }
    cairo_fill(cr);
    return;
  }
  for (const part& p : r.parts) trace(cr, p);
  if (layer.name == "Hypsa") {
    set_colour(cr, kPaper);
    cairo_fill_preserve(cr);
  }
  const line_style& s = is_label_layer(layer)   ? kBaseLine
                        : layer.name == "Hypsa" ? kAreaEdge
                                                : style_of(layer, r);
  const bool bar = layer.name == "Frame" && code_of(layer, r) == 400901 && is_bar(r);
  const double band_mm = map_scale_ <= 200000 ? 1.2 : 1.0;  // the minute scale's band on the sheet
  set_colour(cr, s.c);
  cairo_set_line_width(cr, std::max(kThinnestLine, mm(bar ? band_mm : s.width_mm)));
  cairo_set_line_cap(cr, bar ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
  const double dash = mm(s.dash_mm);
  cairo_set_dash(cr, &dash, s.dash_mm > 0 ? 1 : 0, 0);
  cairo_stroke(cr);
}

// A label is centred on its base line, along it and across it, and turned with it; a line that runs
// leftwards or downwards on the page has its text turned round, so that every label reads from the
// left or from below.
void sheet_picture::draw_label(cairo_t* cr, const shape_layer& layer, const shape_record& r) const {
  if (r.parts.empty() || r.parts[0].size() < 2) return;
  const std::string text = wide_to_utf8(layer.value(r, L"TEXT"));
  if (text.empty()) return;
  const Tvx_vtx_d2 a = to_page(r.parts[0].front()), b = to_page(r.parts[0].back());
  double angle = std::atan2(b.y - a.y, b.x - a.x);
  if (b.x - a.x < -1e-9 || (std::fabs(b.x - a.x) <= 1e-9 && b.y > a.y)) angle += kPi;
  const std::wstring size_text = layer.value(r, L"SIZE");
  const double points = std::wcstod(size_text.c_str(), nullptr);
  const std::string font = wide_to_utf8(layer.value(r, L"FONT"));

  cairo_save(cr);
  cairo_translate(cr, (a.x + b.x) / 2, (a.y + b.y) / 2);
  cairo_rotate(cr, angle);
  cairo_select_font_face(cr, font.empty() ? "serif" : font.c_str(), CAIRO_FONT_SLANT_NORMAL,
                         CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(cr, mm((points > 0 && points < 1000 ? points : 8.0) * kMillimetresPerPoint));
  cairo_text_extents_t digit, extents;
  cairo_text_extents(cr, "0", &digit);
  cairo_text_extents(cr, text.c_str(), &extents);
  set_colour(cr, kBlack);
  cairo_move_to(cr, -(extents.x_bearing + extents.width / 2), -digit.y_bearing / 2);
  cairo_show_text(cr, text.c_str());
  cairo_restore(cr);
}

void sheet_picture::draw_layer(cairo_t* cr, const shape_layer& layer) const {
  for (const shape_record& r : layer.records) draw_record(cr, layer, r);
  if (is_label_layer(layer)) {
    for (const shape_record& r : layer.records) draw_label(cr, layer, r);
  }
}

void sheet_picture::draw(cairo_t* cr) const {
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  for (const shape_layer& layer : set_.layers) draw_layer(cr, layer);
}

std::vector<std::wstring> sheet_picture::label_texts() const {
  std::vector<std::wstring> texts;
  for (const shape_layer& layer : set_.layers) {
    if (!is_label_layer(layer)) continue;
    for (const shape_record& r : layer.records) {
      const std::wstring t = layer.value(r, L"TEXT");
      if (!t.empty() && !r.parts.empty() && r.parts[0].size() >= 2) texts.push_back(t);
    }
  }
  return texts;
}

}  // namespace vxk
