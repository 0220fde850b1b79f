// The minute marks of the frame, in "Frame.shp" beside the frame lines: the degree scale round the
// sheet, a band outside the inner frame with a tick across it at every mark and a bar along its middle
// over every second interval, so that filled and open intervals alternate from each corner. At
// 1:200,000 the band lies further out, between the frames at 7 and 8.2 mm, and the box edges and main
// lines are carried across to it by ticks from the sheet's edge. A free box is marked as a 1:1,000,000
// sheet. Distances are offsets along the lattice rows and columns, in the scene's units.
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"

namespace vx::stdlist {

namespace {

// Every mark, bar and tick is a line of the inner frame's class.
constexpr unsigned long long CODE_MARK = 400901;

}  // namespace

// Marks of x go below the bottom side and above the top side, marks of y left of the left side and
// right of the right side; the near side first.
bool base_generate::add_mark(Tvx_shp_basic* shp, void* dbf, Tvx_vtx_d2 a, Tvx_vtx_d2 b) {
  if (!add_polyline(shp, {a, b})) return false;
  return set_frame_dbf_vals(dbf, CODE_MARK);
}

// The outer point at the distance d beyond the edge at the mark's lattice line: below or above (x),
// left or right (y).
Tvx_vtx_d2 base_generate::beyond_edge(double mark, bool is_x, bool far_side, double d) const {
  if (is_x) {
    const int iy = static_cast<int>(far_side ? iy_max : iy_min);
    return grid.calc_vtx_y(grid.find_x(mark), iy, far_side ? d : -d);
  }
  const int ix = static_cast<int>(far_side ? ix_max : ix_min);
  return grid.calc_vtx_x(ix, grid.find_y(mark), far_side ? d : -d);
}

bool base_generate::short_dashes(Tvx_shp_basic* shp, void* dbf, std::vector<double> marks, double from,
                                 double to, bool is_x) {
  for (double v : marks) {
    for (bool far_side : {false, true}) {
      if (!add_mark(shp, dbf, beyond_edge(v, is_x, far_side, from), beyond_edge(v, is_x, far_side, to)))
        return false;
    }
  }
  return true;
}

// A bar over every second interval from the first mark: with an even count of marks the last interval
// is a bar, with an odd count the last mark has none.
bool base_generate::long_dashes(Tvx_shp_basic* shp, void* dbf, std::vector<double> marks, double offset,
                                bool is_x) {
  const size_t n = marks.size();
  if (n < 2) return true;
  for (size_t k = 0; k < n / 2; ++k) {
    const double a = marks[2 * k], b = marks[2 * k + 1];
    for (bool far_side : {false, true}) {
      if (!add_mark(shp, dbf, beyond_edge(a, is_x, far_side, offset), beyond_edge(b, is_x, far_side, offset)))
        return false;
    }
  }
  return true;
}

// Ticks from the edge's own vertex outwards.
bool base_generate::special_200_dashes(Tvx_shp_basic* shp, void* dbf, std::vector<double> marks,
                                       double length, bool is_x) {
  for (double v : marks) {
    for (bool far_side : {false, true}) {
      const int i = is_x ? grid.find_x(v) : static_cast<int>(far_side ? ix_max : ix_min);
      const int j = is_x ? static_cast<int>(far_side ? iy_max : iy_min) : grid.find_y(v);
      if (!add_mark(shp, dbf, grid.get_vtx(i, j), beyond_edge(v, is_x, far_side, length))) return false;
    }
  }
  return true;
}

// The scale is a band one millimetre of the map wide directly outside the edge, its bars on its middle.
bool base_generate::generate_min_scale_marks(Tvx_shp_basic* shp, void* dbf) {
  const double f = traits::scale_factor(prm.get_scale()) * traits::latlong_factor(latlong);
  std::vector<double> marks_x, marks_y;
  get_marks_x(marks_x);
  get_marks_y(marks_y);
  return short_dashes(shp, dbf, marks_x, 0.0, f, true) && short_dashes(shp, dbf, marks_y, 0.0, f, false) &&
         long_dashes(shp, dbf, marks_x, 0.5 * f, true) && long_dashes(shp, dbf, marks_y, 0.5 * f, false);
}

// The band is the 1.2 mm between the frames at 7 and 8.2 mm, the difference taken at run time.
bool base_generate::generate_min_scale_marks_200(Tvx_shp_basic* shp, void* dbf) {
  const Tvx_stdlist_scale scale = prm.get_scale();
  const double m = traits::frame2_margin(scale, latlong);
  const double outer = 8.2, inner = 7.0;
  const double w = (outer - inner) * traits::scale_factor(scale) * traits::latlong_factor(latlong);
  std::vector<double> marks_x, marks_y;
  get_marks_x(marks_x);
  get_marks_y(marks_y);
  return short_dashes(shp, dbf, marks_x, m, m + w, true) &&
         short_dashes(shp, dbf, marks_y, m, m + w, false) &&
         long_dashes(shp, dbf, marks_x, m + 0.5 * w, true) &&
         long_dashes(shp, dbf, marks_y, m + 0.5 * w, false) && special_200_dashes(shp, dbf, all_x, m, true) &&
         special_200_dashes(shp, dbf, all_y, m, false);
}

}  // namespace vx::stdlist
