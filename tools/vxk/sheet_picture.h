// The picture of a generated sheet as a map maker checks it: the area, graticule lines, frames, minute
// marks and bars, graticule points, and the labels set on their base lines in the font and size of
// their tables, drawn with cairo at the sheet's map scale.
#pragma once

#include <cairo.h>

#include <string>
#include <vector>

#include "shape_set.h"

namespace vxk {

class sheet_picture {
 public:
  // map_scale: the denominator (200000 for 1:200,000), which turns the millimetres and points of the
  // printed sheet (line widths, font sizes) into lengths on the ground. A set in a geographic system is
  // drawn with its longitudes shortened by the cosine of its middle latitude.
  sheet_picture(const sheet_files& set, double map_scale);

  // Fits the drawing into a page `width` wide and `height` high, in pixels (points for SVG), centred;
  // a height of 0 follows the drawing's shape. Gives the page's height.
  double fit(double width, double height);

  void draw(cairo_t* cr) const;

  // The texts of the labels, in the order they are drawn.
  std::vector<std::wstring> label_texts() const;

 private:
  struct box {
    double xmin, ymin, xmax, ymax;
  };

  Tvx_vtx_d2 to_page(Tvx_vtx_d2 v) const;
  double mm(double millimetres) const;  // a length on the printed sheet in page units
  void draw_layer(cairo_t* cr, const shape_layer& layer) const;
  void draw_record(cairo_t* cr, const shape_layer& layer, const shape_record& r) const;
  void draw_label(cairo_t* cr, const shape_layer& layer, const shape_record& r) const;
  bool is_bar(const shape_record& r) const;
  void trace(cairo_t* cr, const part& p) const;

  const sheet_files& set_;
  double map_scale_;
  double units_per_metre_;  // 1, or degrees per metre in a geographic set
  double stretch_;          // of x: 1, or the cosine of the middle latitude in a geographic set
  box world_{};             // everything drawn, x stretched, with room for the labels outside the frames
  box sheet_{};             // the sheet's area, x stretched: where the sides are
  double page_scale_ = 1;   // page units per world unit
  double left_ = 0, top_ = 0;
};

}  // namespace vxk
