// The dashes of the frame band: short base lines on which the coordinate labels of the frame stand, each
// with its label record. A parallel gets, on each side of the sheet, a dash above its line for the
// degrees and one below it for the minutes; a meridian gets one dash for degrees and minutes below the
// sheet and one above it. The sizes are those of the scale, in the scene's units.
//
// A parallel's dashes stand off the frame by their offset along the lattice row, shifted up or down
// from the row's chord, and run eastwards on both sides along the chord's slope; their lengths are
// extents in x. A meridian's dash crosses its column at its offset beyond the frame.
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"
#include "stdlist/generate/22_stdlist_geom.h"

namespace vx::stdlist {

namespace {

// Class code of a coordinate label.
constexpr int CODE_DIGIT = 400912;

// The end of the dash that starts at s and runs dx eastwards with the slope k.
Tvx_vtx_d2 dash_end(Tvx_vtx_d2 s, double dx, double k) {
  return Tvx_vtx_d2{s.x + dx, s.y - s.x * k + (s.x + dx) * k};
}

}  // namespace

void base_generate::set_dig_dbf_vals(void* dbf, const std::wstring& text) {
  append_label(dbf, CODE_DIGIT, text, traits::FONT_SIZE);
}

// The shifts cross over between the sides: the point on the right of the direction from the frame
// outwards is shifted by paral_dash_shift_btm, which lies north of the row on the left side of the
// sheet and south of it on the right side.
bool base_generate::get_two_paral_dashes(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2& p1, Tvx_vtx_d2& p2,
                                         Tvx_vtx_d2& p3, Tvx_vtx_d2& p4, double dx1, double dx2,
                                         bool keep_order) const {
  const Tvx_stdlist_scale scale = prm.get_scale();
  Tvx_stdlist_geom::get_orth(a, b, p3, p1, traits::paral_dash_shift_top(scale, latlong),
                             traits::paral_dash_shift_btm(scale, latlong));
  const double k = (b.y - a.y) / (b.x - a.x);
  p2 = dash_end(p1, keep_order ? dx1 : dx2, k);
  p4 = dash_end(p3, keep_order ? dx2 : dx1, k);
  return true;
}

void base_generate::paral_dashes(int ix, int iy, double offset, bool right, std::vector<Tvx_vtx_d2>& first,
                                 std::vector<Tvx_vtx_d2>& second) const {
  const Tvx_stdlist_scale scale = prm.get_scale();
  const Tvx_vtx_d2 v = grid.get_vtx(ix, iy);
  const Tvx_vtx_d2 c = grid.calc_vtx_x(ix, iy, offset);
  first.assign(2, Tvx_vtx_d2{0.0, 0.0});
  second.assign(2, Tvx_vtx_d2{0.0, 0.0});
  get_two_paral_dashes(v, c, first[0], first[1], second[0], second[1],
                       traits::dx_upper_paral_dash(scale, latlong),
                       traits::dx_lower_paral_dash(scale, latlong), !right);
}

// Records for each inner parallel: left degrees, left minutes, right minutes, right degrees; then the
// corners. On the right the labels are written before their dashes. A dash that cannot be added ends
// the parallels with false; the corners' answers are not looked at.
bool base_generate::draw_two_paral_dashes(Tvx_shp_basic* shp, void* dbf) {
  const Tvx_stdlist_scale scale = prm.get_scale();
  const double left = -traits::dx_left_paral_dash(scale, latlong);
  const double right = traits::dx_right_paral_dash(scale, latlong);
  std::vector<Tvx_vtx_d2> first, second;
  for (std::int32_t i = 0; i < main_y_count; ++i) {
    const double y = main_y[i];
    const int iy = grid.find_y(y);
    paral_dashes(static_cast<int>(ix_min), iy, left, false, first, second);
    if (!add_polyline(shp, first)) return false;
    set_dig_dbf_vals(dbf, grd_str(y));
    if (!add_polyline(shp, second)) return false;
    set_dig_dbf_vals(dbf, min_str(y));
    paral_dashes(static_cast<int>(ix_max), iy, right, true, first, second);
    set_dig_dbf_vals(dbf, min_str(y));
    set_dig_dbf_vals(dbf, grd_str(y));
    if (!add_polyline(shp, first) || !add_polyline(shp, second)) return false;
  }
  draw_paral_corner_dashes(shp, dbf, false, false, left);
  draw_paral_corner_dashes(shp, dbf, false, true, left);
  draw_paral_corner_dashes(shp, dbf, true, false, right);
  draw_paral_corner_dashes(shp, dbf, true, true, right);
  return true;
}

// The latitude of a corner is the sheet's, as get_list_ymin and get_list_ymax work it out.
bool base_generate::draw_paral_corner_dashes(Tvx_shp_basic* shp, void* dbf, bool right, bool top,
                                             double offset) {
  const int ix = static_cast<int>(right ? ix_max : ix_min);
  const int iy = static_cast<int>(top ? iy_max : iy_min);
  const double y = top ? get_list_ymax() : get_list_ymin();
  std::vector<Tvx_vtx_d2> first, second;
  paral_dashes(ix, iy, offset, right, first, second);
  if (!add_polyline(shp, first)) return false;
  set_dig_dbf_vals(dbf, right ? min_str(y) : grd_str(y));
  if (!add_polyline(shp, second)) return false;
  set_dig_dbf_vals(dbf, right ? grd_str(y) : min_str(y));
  return true;
}

std::vector<Tvx_vtx_d2> base_generate::merid_dash(int ix, int iy, double offset, double d1, double d2) const {
  const Tvx_vtx_d2 v = grid.get_vtx(ix, iy);
  const Tvx_vtx_d2 c = grid.calc_vtx_y(ix, iy, offset);
  std::vector<Tvx_vtx_d2> dash(2, Tvx_vtx_d2{0.0, 0.0});
  Tvx_stdlist_geom::get_orth(v, c, dash[0], dash[1], d1, d2);
  return dash;
}

// The corners first (right top, left top, left bottom, right bottom), whose answers are not looked at;
// then each inner meridian, bottom and top. An inner dash reaches merid_dash_left_length west of its
// meridian and merid_dash_right_length east of it, drawn east to west at the bottom and west to east at
// the top.
bool base_generate::draw_merid_dash(Tvx_shp_basic* shp, void* dbf) {
  const Tvx_stdlist_scale scale = prm.get_scale();
  const double west = traits::merid_dash_left_length(scale, latlong);
  const double east = traits::merid_dash_right_length(scale, latlong);
  const double dy = traits::merid_dash_dy(scale, latlong);
  const double corner_dy = traits::merid_corner_dash_dy(scale, latlong);
  draw_merid_corner_dash(shp, dbf, true, true, corner_dy);
  draw_merid_corner_dash(shp, dbf, false, true, corner_dy);
  draw_merid_corner_dash(shp, dbf, false, false, -corner_dy);
  draw_merid_corner_dash(shp, dbf, true, false, -corner_dy);
  for (std::int32_t i = 0; i < main_x_count; ++i) {
    const double x = main_x[i];
    const int ix = grid.find_x(x);
    if (!add_polyline(shp, merid_dash(ix, static_cast<int>(iy_min), -dy, east, west))) return false;
    set_dig_dbf_vals(dbf, grd_min_str(x));
    if (!add_polyline(shp, merid_dash(ix, static_cast<int>(iy_max), dy, west, east))) return false;
    set_dig_dbf_vals(dbf, grd_min_str(x));
  }
  return true;
}

// The corner dashes keep the order of their lengths at the bottom too, so that there they reach
// merid_dash_left_length east of the corner: the mirror of the inner bottom dashes. They stand at their
// own distance from the frame, and their label is written before the dash.
bool base_generate::draw_merid_corner_dash(Tvx_shp_basic* shp, void* dbf, bool right, bool top,
                                           double offset) {
  const Tvx_stdlist_scale scale = prm.get_scale();
  const int ix = static_cast<int>(right ? ix_max : ix_min);
  const int iy = static_cast<int>(top ? iy_max : iy_min);
  set_dig_dbf_vals(dbf, grd_min_str(right ? xmax : xmin));
  return add_polyline(shp, merid_dash(ix, iy, offset, traits::merid_dash_left_length(scale, latlong),
                                      traits::merid_dash_right_length(scale, latlong)));
}

}  // namespace vx::stdlist
