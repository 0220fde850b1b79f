// The graticule lines of a sheet, "Hypsl.shp" in "HYPS\": one polyline for each inner meridian and
// each inner parallel, one for the north polar circle where the sheet crosses it, and last the sheet's
// rectangle. Every line runs on lattice vertices, so a parallel follows the curve of the projection.
// The table says what each line is and carries its degrees and minutes.
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"

namespace vx::stdlist {

namespace {

enum { COL_ID, COL_L_CODE, COL_TEXT, COL_GRAD, COL_MIN, COL_INDICATION, COLUMN_COUNT };

// Class codes of the lines.
constexpr int CODE_FRAME = 400010;
constexpr int CODE_PARALLEL = 400011;
constexpr int CODE_MERIDIAN = 400012;
constexpr int CODE_POLAR = 400013;

// The latitude of the north polar circle, 66 degrees 33.64 minutes, a row of the lattice of its sheets.
constexpr double POLAR_CIRCLE = 66.56072222222222;

void init_fields(Tvx_dbf_field (&fields)[COLUMN_COUNT]) {
  vx_dbf_field_init(&fields[COL_ID], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[COL_L_CODE], "L_CODE", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[COL_TEXT], "TEXT", VX_DBF_CHARACTER, 40, 0);
  vx_dbf_field_init(&fields[COL_GRAD], "GRAD", VX_DBF_CHARACTER, 5, 0);
  vx_dbf_field_init(&fields[COL_MIN], "MIN", VX_DBF_CHARACTER, 7, 0);
  vx_dbf_field_init(&fields[COL_INDICATION], "INDICATION", VX_DBF_CHARACTER, 5, 0);
}

// ID and the class code of a record, with its kind's text.
void set_kind(void* dbf, int record, int code, const char* text) {
  vx_dbf_set_int(dbf, COL_ID, record, record + 1);
  vx_dbf_set_int(dbf, COL_L_CODE, record, code);
  vx_dbf_set_str(dbf, COL_TEXT, record, text);
}

// A polyline through the lattice vertices that `vertex` gives for k from `from` to `to`.
template <typename Vertex>
bool add_lattice_line(Tvx_shp_basic* shp, int from, int to, Vertex vertex) {
  std::vector<Tvx_vtx_d2> line;
  for (int k = from; k <= to; ++k) line.push_back(vertex(k));
  return add_polyline(shp, line);
}

}  // namespace

bool base_generate::generate_hyps_l() {
  std::vector<double> x;
  std::vector<double> y;
  hyps_l_prepare(x, y);
  return hyps_l_execute(x, y);
}

void base_generate::hyps_l_prepare(std::vector<double>& x, std::vector<double>& y) {
  get_main_x(x);
  get_main_y(y);
}

// The table is made for the meridians, the parallels and the rectangle. A sheet with the polar circle
// writes one line more: the rectangle's attributes then fall one past the table's last record, where the
// table writer stores nothing, while the shape file holds every line.
bool base_generate::hyps_l_execute(const std::vector<double>& x, const std::vector<double>& y) {
  Tvx_dbf_field fields[COLUMN_COUNT];
  init_fields(fields);
  step_files files;
  const auto records = static_cast<int>(x.size() + y.size() + 1);
  files.table = vx_dbf_create_w(traits::dbf_path(hypsl_path).c_str(), COLUMN_COUNT, records, fields, 0);
  if (!files.table) return false;
  files.shp = vx_shp_file_create_w(hypsl_path.c_str(), VX_SHP_POLYLINE);
  if (!files.shp) return false;
  const auto y0 = static_cast<int>(iy_min), y1 = static_cast<int>(iy_max);
  const auto x0 = static_cast<int>(ix_min), x1 = static_cast<int>(ix_max);
  unsigned long long r = 0;
  for (double meridian : x) {
    const int ix = grid.find_x(meridian);
    if (!add_lattice_line(files.shp, y0, y1, [&](int j) { return grid.get_vtx(ix, j); })) return false;
    set_hypsl_dbf_vals(files.table, meridian, r++, true);
  }
  for (double parallel : y) {
    const int iy = grid.find_y(parallel);
    if (!add_lattice_line(files.shp, x0, x1, [&](int i) { return grid.get_vtx(i, iy); })) return false;
    set_hypsl_dbf_vals(files.table, parallel, r++, false);
  }
  if (polar_circle) {
    if (!draw_hypsl_polar_line(files.shp, files.table, r)) return false;
    ++r;
  }
  if (!draw_hypsl_rectangle(files.shp, files.table, y1, x1, y0, x0, r)) return false;
  return crt_proj_scn(hypsl_path);
}

bool base_generate::set_hypsl_dbf_vals(void* dbf, double value, unsigned long long record, bool meridian) {
  const auto r = static_cast<int>(record);
  set_kind(dbf, r, meridian ? CODE_MERIDIAN : CODE_PARALLEL,
           meridian ? traits::TXT_MERID : traits::TXT_PARAL);
  vx_dbf_set_str(dbf, COL_GRAD, r, traits::str(grd_str(value).c_str()).c_str());
  vx_dbf_set_str(dbf, COL_MIN, r, traits::str(min_str(value).c_str()).c_str());
  // Every meridian is east: there is no other word for the west.
  vx_dbf_set_str(dbf, COL_INDICATION, r,
                 meridian ? traits::IND_MERID : traits::ind(static_cast<int>(prm.get_hemisphere())));
  return true;
}

bool base_generate::draw_hypsl_polar_line(Tvx_shp_basic* shp, void* dbf, unsigned long long record) {
  if (!polar_circle) return false;
  const int iy = grid.find_y(POLAR_CIRCLE);
  if (!add_lattice_line(shp, static_cast<int>(ix_min), static_cast<int>(ix_max),
                        [&](int i) { return grid.get_vtx(i, iy); }))
    return false;
  const auto r = static_cast<int>(record);
  set_kind(dbf, r, CODE_POLAR, traits::TXT_POLAR);
  vx_dbf_set_str(dbf, COL_GRAD, r, traits::POLAR_STR_GRD);
  vx_dbf_set_str(dbf, COL_MIN, r, traits::POLAR_STR_MIN);
  vx_dbf_set_str(dbf, COL_INDICATION, r, traits::ind(static_cast<int>(prm.get_hemisphere())));
  return true;
}

// Round the box by the lattice from the south-west corner, clockwise, each side with both its ends.
bool base_generate::draw_hypsl_rectangle(Tvx_shp_basic* shp, void* dbf, int top, int east, int bottom,
                                         int west, unsigned long long record) {
  object_vector line;
  Tvx_pp2d* part = line.add_part();
  if (!part) return false;
  add_box_ring(part, west, east, bottom, top);
  if (!vx_shp_file_add_polypoint(shp, line.handle, VX_SHP_POLYLINE)) return false;
  set_kind(dbf, static_cast<int>(record), CODE_FRAME, traits::TXT_FRAME);
  return true;
}

}  // namespace vx::stdlist
