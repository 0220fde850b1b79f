// The frame of the adjacent sheets, "FrameAdj.shp" in "FRAME\" of the scene set (it has no latlong
// copy), written for a 1:200,000 sheet only: the four neighbours' designations, each standing on the
// middle stretch of its side of the outer frame, as wide as the name. The same cut leaves the outer
// pieces of each side in the generator, from which the frame step draws the outer frame broken round
// the names. Every side runs south to north or west to east.
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"
#include "stdlist/generate/22_stdlist_geom.h"

namespace vx::stdlist {

namespace {

// Class code of a neighbour's name.
constexpr int CODE_ADJACENT = 400911;

}  // namespace

// The names' lines that cannot be written do not fail the step; its projection files do.
bool stdlist_generate::generate_frame_adj() {
  step_files files;
  if (!create_label_files(files, frameadj_path)) return false;
  draw_adj_dashes(files.shp, files.table);
  return crt_proj_scn(frameadj_path);
}

// Left, right, top, bottom; each record after its line. A line that cannot be added ends the names.
bool stdlist_generate::draw_adj_dashes(Tvx_shp_basic* shp, void* dbf) {
  object_vector records[4];
  Tvx_pp2d* parts[4] = {};
  for (int k = 0; k < 4; ++k) {
    parts[k] = records[k].add_part();
    if (!parts[k]) return false;
  }
  cut_sides_into_three_pieces(parts[0], parts[1], parts[2], parts[3]);
  const std::wstring* names[4] = {&left_name, &right_name, &top_name, &bottom_name};
  for (int k = 0; k < 4; ++k) {
    if (!vx_shp_file_add_polypoint(shp, records[k].handle, VX_SHP_POLYLINE)) return false;
    set_adj_dbf_vals(dbf, *names[k]);
  }
  return true;
}

// Each side of the outer frame, its vertices shifted from the edge's lattice vertices by the outer
// margin, is cut round its name: the outer pieces go to the generator's eight pieces, the middle ones
// to the arguments.
void stdlist_generate::cut_sides_into_three_pieces(Tvx_pp2d* left, Tvx_pp2d* right, Tvx_pp2d* top,
                                                   Tvx_pp2d* bottom) {
  const double m = traits::frame4_margin(sprm.get_scale(), latlong);
  const auto x0 = static_cast<int>(ix_min), x1 = static_cast<int>(ix_max);
  const auto y0 = static_cast<int>(iy_min), y1 = static_cast<int>(iy_max);
  Tvx_pp2d* side = vx_pv_d2_create();
  if (!side) return;
  draw_frame_corner_y_incr(side, y0, y1, x0, -m);
  Tvx_stdlist_geom::cut_into3(side, left_name_width, left_lower_pv, left, left_upper_pv);
  vx_pv_d2_clear(side);
  draw_frame_corner_y_incr(side, y0, y1, x1, m);
  Tvx_stdlist_geom::cut_into3(side, right_name_width, right_lower_pv, right, right_upper_pv);
  vx_pv_d2_clear(side);
  draw_frame_corner_x_incr(side, x0, x1, y1, m);
  Tvx_stdlist_geom::cut_into3(side, top_name_width, top_left_pv, top, top_right_pv);
  vx_pv_d2_clear(side);
  draw_frame_corner_x_incr(side, x0, x1, y0, -m);
  Tvx_stdlist_geom::cut_into3(side, bottom_name_width, bottom_left_pv, bottom, bottom_right_pv);
  vx_pv_d2_destroy(side);
}

void stdlist_generate::set_adj_dbf_vals(void* dbf, const std::wstring& text) {
  append_label(dbf, CODE_ADJACENT, text, traits::FONT_SIZE_ADJ);
}

}  // namespace vx::stdlist
