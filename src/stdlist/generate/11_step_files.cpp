#include "stdlist/generate/11_step_files.h"

#include "stdlist/traits.h"

namespace vx::stdlist {

bool add_polyline(Tvx_shp_basic* shp, const std::vector<Tvx_vtx_d2>& vertices) {
  object_vector record;
  Tvx_pp2d* part = record.add_part();
  if (!part) return false;
  for (const Tvx_vtx_d2& v : vertices) vx_pv_d2_add_vtx(part, v);
  return vx_shp_file_add_polypoint(shp, record.handle, VX_SHP_POLYLINE);
}

int append_record(void* table) {
  const int index = vx_dbf_get_nr(table);
  vx_dbf_add_records(table, 1);
  vx_dbf_set_int(table, 0, index, index + 1);
  return index;
}

void init_label_fields(Tvx_dbf_field (&fields)[LABEL_COLUMNS]) {
  vx_dbf_field_init(&fields[LABEL_ID], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[LABEL_L_CODE], "L_CODE", VX_DBF_NUMERIC, 8, 0);
  vx_dbf_field_init(&fields[LABEL_TEXT], "TEXT", VX_DBF_CHARACTER, 100, 0);
  vx_dbf_field_init(&fields[LABEL_FONT], "FONT", VX_DBF_CHARACTER, 100, 0);
  vx_dbf_field_init(&fields[LABEL_SIZE], "SIZE", VX_DBF_CHARACTER, 100, 0);
}

bool create_label_files(step_files& files, const std::wstring& shp_path) {
  Tvx_dbf_field fields[LABEL_COLUMNS];
  init_label_fields(fields);
  files.shp = vx_shp_file_create_w(shp_path.c_str(), VX_SHP_POLYLINE);
  if (!files.shp) return false;
  files.table = vx_dbf_create_w(traits::dbf_path(shp_path).c_str(), LABEL_COLUMNS, 0, fields, 0);
  return files.table != nullptr;
}

void append_label(void* table, int code, const std::wstring& text, const char* size) {
  const int r = append_record(table);
  vx_dbf_set_int(table, LABEL_L_CODE, r, code);
  vx_dbf_set_str(table, LABEL_TEXT, r, traits::str(text.c_str()).c_str());
  vx_dbf_set_str(table, LABEL_FONT, r, traits::FONT);
  vx_dbf_set_str(table, LABEL_SIZE, r, size);
}

}  // namespace vx::stdlist
