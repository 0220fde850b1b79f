// The first output of a run, the area of the sheet: "Hypsa.shp", one polygon on the lattice round the
// box, with a table of one record that names the sheet. And the two projection files that stand beside
// every shape file: the .prj in ESRI WKT, and the .pj4 with the PROJ string.
#include "services/string_adapter.h"
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"
#include "support/fileio.h"
#include "support/filesystem.h"

namespace vx::stdlist {

namespace {

// Columns of the area's table.
enum { COL_ID, COL_L_CODE, COL_NAME, COLUMN_COUNT };

// The name of the area of a free box.
const wchar_t* const BOX_NAME = L"Base list";

bool write_prj(const std::wstring& shape_path, const std::wstring& text) {
  return vx::fileio::writeall(vx::filesystem::change_extension(shape_path, L".prj"),
                              vx::strconv::encodings::system, text);
}

}  // namespace

bool base_generate::generate_hyps_a() {
  if (!generate_hyps_a_dbf()) return false;
  return generate_hyps_a_shp();
}

bool base_generate::generate_hyps_a_dbf() {
  return generate_hyps_a_dbf(BOX_NAME);
}

bool stdlist_generate::generate_hyps_a_dbf() {
  return base_generate::generate_hyps_a_dbf(get_list_name());
}

bool base_generate::generate_hyps_a_dbf(const std::wstring& name) {
  Tvx_dbf_field fields[COLUMN_COUNT];
  vx_dbf_field_init(&fields[COL_ID], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[COL_L_CODE], "L_CODE", VX_DBF_NUMERIC, 9, 0);
  vx_dbf_field_init(&fields[COL_NAME], "NAME", VX_DBF_CHARACTER, 100, 0);
  void* table = vx_dbf_create_w(traits::dbf_path(hypsa_path).c_str(), COLUMN_COUNT, 1, fields, 0);
  if (!table) return false;
  vx_dbf_set_int(table, COL_ID, 0, 1);
  vx_dbf_set_int(table, COL_L_CODE, 0, -1);
  vx_dbf_set_str(table, COL_NAME, 0, traits::str(name.c_str()).c_str());
  vx_dbf_close(table);
  return true;
}

void base_generate::add_box_ring(Tvx_pp2d* part) const {
  add_box_ring(part, static_cast<int>(ix_min), static_cast<int>(ix_max), static_cast<int>(iy_min),
               static_cast<int>(iy_max));
}

void base_generate::add_box_ring(Tvx_pp2d* part, int west, int east, int bottom, int top) const {
  for (int j = bottom; j <= top; ++j) vx_pv_d2_add_vtx(part, grid.get_vtx(west, j));
  for (int i = west; i <= east; ++i) vx_pv_d2_add_vtx(part, grid.get_vtx(i, top));
  for (int j = top; j >= bottom; --j) vx_pv_d2_add_vtx(part, grid.get_vtx(east, j));
  for (int i = east; i >= west; --i) vx_pv_d2_add_vtx(part, grid.get_vtx(i, bottom));
}

bool base_generate::generate_hyps_a_shp() {
  Tvx_shp_basic* shp = vx_shp_file_create_w(hypsa_path.c_str(), VX_SHP_POLYGON);
  if (!shp) return false;
  bool done = false;
  {
    object_vector record;
    Tvx_pp2d* ring = record.add_part();
    if (ring) {
      add_box_ring(ring);
      done = vx_shp_file_add_polypoint(shp, record.handle, VX_SHP_POLYGON) && crt_proj_scn(hypsa_path);
    }
  }
  vx_shp_file_close(shp);
  return done;
}

const std::wstring& base_generate::geographic_proj() {
  if (!geographic_read) geographic_text = traits::get_styllibs_proj();
  geographic_read = true;
  return geographic_text;
}

const std::wstring& base_generate::scene_esri() {
  if (!scene_wkt_made) {
    Tvx_std_wstring_adapter sink(scene_wkt);
    vx_pj4_export_esri(prm.get_scene_proj().c_str(), sink.adapter());
  }
  scene_wkt_made = true;
  return scene_wkt;
}

bool base_generate::crt_proj_scn(const std::wstring& path) {
  if (!write_prj(path, scene_esri())) return false;
  return vx_pj4_save_w(path.c_str(), prm.get_scene_proj().c_str());
}

// The .prj of a latlong file always speaks of Pulkovo 1942, whatever the geographic text says.
bool base_generate::crt_proj_latlong(const std::wstring& path) {
  if (!write_prj(path, traits::LATLON_PRJ_STR)) return false;
  return vx_pj4_save_w(path.c_str(), geographic_proj().c_str());
}

}  // namespace vx::stdlist
