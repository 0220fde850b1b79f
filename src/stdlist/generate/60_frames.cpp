// The frames of a sheet, "Frame.shp" in "FRAME\": nested closed lines at the margins of the scale
// outside the sheet's edge, the innermost on the edge itself. A frame line follows the edge at the
// lattice vertices, each shifted by the margin along its own row or column, so that it keeps its
// distance in map units on a curved edge; where a shifted side meets the next, the corner is their
// crossing.
//
// A 1:1,000,000 sheet (and a free box) has five rings. A 1:200,000 sheet has the rings at the second and
// third margins, and an outer frame at the fourth that is broken in the middle of each side for the
// names of the neighbouring sheets: four corner pieces, joined from the eight pieces that the frame of
// the adjacent sheets leaves in the generator.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>

#include "services/small_geometry.h"
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"

namespace vx::stdlist {

namespace {

enum { COL_ID, COL_L_CODE, COLUMN_COUNT };

// Class codes of the frame lines: the edge and the first margin, the third margin, and the second and
// fourth margins.
constexpr unsigned long long CODE_INNER = 400901;
constexpr unsigned long long CODE_MIDDLE = 400902;
constexpr unsigned long long CODE_OUTER = 400903;

enum { SW, NW, NE, SE };

// A point vector of this file's own, destroyed with it.
using owned_pv = std::unique_ptr<Tvx_pp2d, void (*)(Tvx_pp2d*)>;

owned_pv new_pv() {
  return owned_pv(vx_pv_d2_create(), vx_pv_d2_destroy);
}

// first, then the corner, then then.
void join(Tvx_pp2d* out, const Tvx_pp2d* first, Tvx_vtx_d2 corner, const Tvx_pp2d* then) {
  vx_pv_d2_add_pv(out, first);
  vx_pv_d2_add_vtx(out, corner);
  vx_pv_d2_add_pv(out, then);
}

}  // namespace

bool base_generate::generate_frame() {
  step_files files;
  files.shp = vx_shp_file_create_w(frame_path.c_str(), VX_SHP_POLYLINE);
  if (!files.shp) return false;
  Tvx_dbf_field fields[COLUMN_COUNT];
  vx_dbf_field_init(&fields[COL_ID], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[COL_L_CODE], "L_CODE", VX_DBF_NUMERIC, 8, 0);
  files.table = vx_dbf_create_w(traits::dbf_path(frame_path).c_str(), COLUMN_COUNT, 0, fields, 0);
  if (!files.table) return false;
  generate_frames(files.shp, files.table);
  // The marks go by the scale alone (a free box is marked as a 1:1,000,000 sheet); a mark that cannot
  // be written ends the marks, but the step answers what its projection files answer.
  const Tvx_stdlist_scale scale = prm.get_scale();
  if (scale == VX_STDLIST_SC_MLN) generate_min_scale_marks(files.shp, files.table);
  if (scale == VX_STDLIST_SC_200) generate_min_scale_marks_200(files.shp, files.table);
  return crt_proj_scn(frame_path);
}

// At 1:200,000 the margins 0 and 1 are not drawn: no line stands on the sheet's edge in this file. The
// broken outer frame joins the pieces that the adjacent frame has left; without them it holds only its
// four corners.
bool base_generate::generate_frames(Tvx_shp_basic* shp, void* table) {
  const Tvx_stdlist_scale scale = prm.get_scale();
  const double m0 = traits::frame0_margin(scale, latlong);
  const double m1 = traits::frame1_margin(scale, latlong);
  const double m2 = traits::frame2_margin(scale, latlong);
  const double m3 = traits::frame3_margin(scale, latlong);
  const double m4 = traits::frame4_margin(scale, latlong);
  if (scale == VX_STDLIST_SC_MLN) {
    draw_frame(shp, table, m0, CODE_INNER);
    draw_frame(shp, table, m1, CODE_INNER);
    draw_frame(shp, table, m2, CODE_OUTER);
    draw_frame(shp, table, m3, CODE_MIDDLE);
    draw_frame(shp, table, m4, CODE_OUTER);
  } else if (scale == VX_STDLIST_SC_200) {
    draw_frame(shp, table, m2, CODE_OUTER);
    draw_frame(shp, table, m3, CODE_MIDDLE);
    draw_frame200(shp, table, CODE_OUTER);
  }
  return true;
}

// Both forms run clockwise from the south-west and end where they began. On the lattice each corner
// stands twice in a row; with a margin the ring holds the four corners and the closing repeat besides
// the shifted vertices. The table record goes first, so a shape that cannot be added leaves it behind.
bool base_generate::draw_frame(Tvx_shp_basic* shp, void* table, double margin, unsigned long long code) {
  if (!shp || !table) return false;
  object_vector record;
  Tvx_pp2d* ring = record.add_part();
  if (!ring) return false;
  if (margin < traits::delta) {
    add_box_ring(ring);
  } else {
    const auto x0 = static_cast<int>(ix_min), x1 = static_cast<int>(ix_max);
    const auto y0 = static_cast<int>(iy_min), y1 = static_cast<int>(iy_max);
    const std::array<Tvx_vtx_d2, 4> c = frame_corners(margin);
    vx_pv_d2_add_vtx(ring, c[SW]);
    draw_frame_corner_y_incr(ring, y0, y1, x0, -margin);
    vx_pv_d2_add_vtx(ring, c[NW]);
    draw_frame_corner_x_incr(ring, x0, x1, y1, margin);
    vx_pv_d2_add_vtx(ring, c[NE]);
    draw_frame_corner_y_decr(ring, y1, y0 - 1, x1, margin);  // down to y0 itself
    vx_pv_d2_add_vtx(ring, c[SE]);
    draw_frame_corner_x_decr(ring, x1, x0 - 1, y0, -margin);  // back to x0 itself
    vx_pv_d2_add_vtx(ring, c[SW]);
  }
  set_frame_dbf_vals(table, code);
  return vx_shp_file_add_polypoint(shp, record.handle, VX_SHP_POLYLINE);
}

// A corner whose sides are parallel stays at (0, 0), and is drawn there.
std::array<Tvx_vtx_d2, 4> base_generate::frame_corners(double margin) const {
  std::array<Tvx_vtx_d2, 4> c{};
  generate_corner(-margin, -margin, c[SW]);
  generate_corner(-margin, margin, c[NW]);
  generate_corner(margin, margin, c[NE]);
  generate_corner(margin, -margin, c[SE]);
  return c;
}

// The shifted sides meeting at the corner are taken each from the edge's vertex to one lattice row or
// column beyond the corner. Where those segments do not cross, their lines do.
bool base_generate::generate_corner(double dx, double dy, Tvx_vtx_d2& out) const {
  const int i = static_cast<int>(dx < 0 ? ix_min : ix_max);
  const int si = dx < 0 ? -1 : 1;
  const int j = static_cast<int>(dy < 0 ? iy_min : iy_max);
  const int sj = dy < 0 ? -1 : 1;
  const Tvx_vtx_d2 a = grid.calc_vtx_x(i, j, dx);
  const Tvx_vtx_d2 b = grid.calc_vtx_x(i, j + sj, dx);
  const Tvx_vtx_d2 c = grid.calc_vtx_y(i, j, dy);
  const Tvx_vtx_d2 d = grid.calc_vtx_y(i + si, j, dy);
  double x = 0.0, y = 0.0;
  if (vx_cross_xy(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, &x, &y)) {
    out = Tvx_vtx_d2{x, y};
    return true;
  }
  return cross_xy_lines(a, b, c, d, out);
}

bool base_generate::cross_xy_lines(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2 c, Tvx_vtx_d2 d, Tvx_vtx_d2& out) {
  const double det = (a.x - b.x) * (c.y - d.y) - (a.y - b.y) * (c.x - d.x);
  if (std::fabs(det) <= std::max(1e-6, 1e-5 * std::fabs(det))) return false;
  const double p = a.x * b.y - a.y * b.x;
  const double q = c.x * d.y - c.y * d.x;
  out = Tvx_vtx_d2{((c.x - d.x) * p - (a.x - b.x) * q) / det, ((c.y - d.y) * p - (a.y - b.y) * q) / det};
  return true;
}

// The pieces all run south to north or west to east, so two of the corners are simple bends while the
// south-west one runs up the left side to the gap and jumps back, and the north-east one jumps back from
// the corner to the gap in the right side. The doubled stretches lie on the frame line.
void base_generate::fill_corner_pvs(Tvx_pp2d* a, Tvx_pp2d* b, Tvx_pp2d* c, Tvx_pp2d* d) const {
  const std::array<Tvx_vtx_d2, 4> k = frame_corners(traits::frame4_margin(prm.get_scale(), latlong));
  join(a, left_upper_pv, k[NW], top_left_pv);
  join(b, left_lower_pv, k[SW], bottom_left_pv);
  join(c, top_right_pv, k[NE], right_upper_pv);
  join(d, bottom_right_pv, k[SE], right_lower_pv);
}

// A shape that cannot be added ends the pieces; the answer is that of the last add.
bool base_generate::draw_frame200(Tvx_shp_basic* shp, void* table, unsigned long long code) {
  if (!shp || !table) return false;
  object_vector record;
  Tvx_pp2d* part = record.add_part();
  owned_pv pieces[4] = {new_pv(), new_pv(), new_pv(), new_pv()};
  for (const owned_pv& piece : pieces) {
    if (!piece) return false;
  }
  if (!part) return false;
  fill_corner_pvs(pieces[0].get(), pieces[1].get(), pieces[2].get(), pieces[3].get());
  bool added = false;
  for (const owned_pv& piece : pieces) {
    vx_pv_d2_assign(part, piece.get());
    set_frame_dbf_vals(table, code);
    added = vx_shp_file_add_polypoint(shp, record.handle, VX_SHP_POLYLINE);
    if (!added) break;
  }
  return added;
}

bool base_generate::set_frame_dbf_vals(void* table, unsigned long long code) {
  const int r = append_record(table);
  vx_dbf_set_int(table, COL_L_CODE, r, static_cast<std::int32_t>(code));
  return true;
}

void base_generate::draw_frame_corner_x_incr(Tvx_pp2d* pv, int from, int to, int iy, double d) const {
  for (int i = from; i <= to; ++i) vx_pv_d2_add_vtx(pv, grid.calc_vtx_y(i, iy, d));
}

void base_generate::draw_frame_corner_y_incr(Tvx_pp2d* pv, int from, int to, int ix, double d) const {
  for (int j = from; j <= to; ++j) vx_pv_d2_add_vtx(pv, grid.calc_vtx_x(ix, j, d));
}

void base_generate::draw_frame_corner_x_decr(Tvx_pp2d* pv, int from, int to, int iy, double d) const {
  for (int i = from; i > to; --i) vx_pv_d2_add_vtx(pv, grid.calc_vtx_y(i, iy, d));
}

void base_generate::draw_frame_corner_y_decr(Tvx_pp2d* pv, int from, int to, int ix, double d) const {
  for (int j = from; j > to; --j) vx_pv_d2_add_vtx(pv, grid.calc_vtx_x(ix, j, d));
}

}  // namespace vx::stdlist
