// The graticule points of a standard sheet, "Hypsp.shp" in "HYPS\": a regular mesh of points over the
// box at the pivot positions of the scale (25 by 25 at 1:1,000,000, 9 by 9 at 1:200,000), each labelled
// with its latitude and longitude to the second. The points run column by column: every latitude of the
// westernmost longitude from south to north, then the next longitude; the first is the box's south-west
// corner and the last its north-east corner.
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"
#include "stdlist/generate/20_box_and_grid.h"

namespace vx::stdlist {

namespace {

enum { COL_ID, COL_L_CODE, COL_LAT, COL_LON, COLUMN_COUNT };

void init_fields(Tvx_dbf_field (&fields)[COLUMN_COUNT]) {
  vx_dbf_field_init(&fields[COL_ID], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[COL_L_CODE], "L_CODE", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[COL_LAT], "LAT", VX_DBF_CHARACTER, 20, 0);
  vx_dbf_field_init(&fields[COL_LON], "LON", VX_DBF_CHARACTER, 20, 0);
}

}  // namespace

// The positions are those of the lattice's pivot lines, computed the same way, so that every point
// stands on a lattice vertex. The table is made with all its records; a point the shape file refuses
// leaves its record in place. Unlike the other files the points number from 0.
bool base_generate::generate_hyps_p() {
  const int n = traits::get_pivot_points(prm.get_scale());
  const std::vector<double> xs = axis::pivots(xmin, xmax, n);
  const std::vector<double> ys = axis::pivots(ymin, ymax, n);
  const auto ny = static_cast<int>(ys.size());
  Tvx_dbf_field fields[COLUMN_COUNT];
  init_fields(fields);
  step_files files;
  files.table = vx_dbf_create_w(traits::dbf_path(hypsp_path).c_str(), COLUMN_COUNT,
                                static_cast<int>(xs.size()) * ny, fields, 0);
  if (!files.table) return false;
  files.shp = vx_shp_file_create_w(hypsp_path.c_str(), VX_SHP_POINT);
  if (!files.shp) return false;
  for (int i = 0; i < static_cast<int>(xs.size()); ++i) {
    const std::string lon = traits::str(grd_min_sec_str(xs[i]).c_str());
    const int ix = grid.find_x(xs[i]);
    for (int j = 0; j < ny; ++j) {
      vx_shp_file_add_point(files.shp, grid.get_vtx(ix, grid.find_y(ys[j])));
      const int r = i * ny + j;
      vx_dbf_set_int(files.table, COL_ID, r, r);
      vx_dbf_set_int(files.table, COL_L_CODE, r, -1);
      vx_dbf_set_str(files.table, COL_LAT, r, traits::str(grd_min_sec_str(ys[j]).c_str()).c_str());
      vx_dbf_set_str(files.table, COL_LON, r, lon.c_str());
    }
  }
  return crt_proj_scn(hypsp_path);
}

}  // namespace vx::stdlist
