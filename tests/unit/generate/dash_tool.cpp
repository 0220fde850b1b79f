// Writes the dashes of the coordinate labels of one standard sheet, with their table of labels, for the
// GDAL check of their sizes, apart from the other labels of a run's "FrameDig.shp":
//   dash_tool LETTER_INDEX NUMBER ROMAN_INDEX TYPE SOUTH SCENE OUT_DIR LON_MAIN LON_ADD LAT_MAIN LAT_ADD
// as generate_tool takes them; writes OUT_DIR/Dashes.shp with its table and projection files, the
// parallels' dashes first and then the meridians'. Exits 0 when everything was written.
#include <cstdlib>
#include <cstring>
#include <string>

#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"
#include "support/ansi_code_page.h"

int main(int argc, char** argv) {
  if (argc != 12) return 2;
  const auto number = [&](int i) { return std::strtoull(argv[i], nullptr, 10); };
  const int roman = std::atoi(argv[3]);
  vx::stdlist::stdlist_string sheet;
  sheet.init(roman ? VX_STDLIST_SC_200 : VX_STDLIST_SC_MLN, static_cast<Tvx_stdlist_type>(number(4)),
             number(5) ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH);
  sheet.set_mln_letter_idx(number(1));
  sheet.set_mln_number(number(2));
  if (roman) sheet.set_200_roman_idx(static_cast<std::uint64_t>(roman));
  vx::stdlist::stdlist_params params(&sheet);
  const std::wstring out = vx::strconv::utf8_to_wide(argv[7]);
  params.set_output_dir(out.c_str());
  params.set_scene_proj(vx::strconv::utf8_to_wide(argv[6]));
  params.set_lon_divs(std::atoi(argv[8]), std::atoi(argv[9]));
  params.set_lat_divs(std::atoi(argv[10]), std::atoi(argv[11]));
  vx::stdlist::stdlist_generate generator(params);
  generator.init_grid();
  const std::wstring path = out + L"Dashes.shp";
  Tvx_dbf_field fields[vx::stdlist::LABEL_COLUMNS];
  vx::stdlist::init_label_fields(fields);
  vx::stdlist::step_files files;
  files.shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POLYLINE);
  files.table =
      vx_dbf_create_w(vx::stdlist::traits::dbf_path(path).c_str(), vx::stdlist::LABEL_COLUMNS, 0, fields, 0);
  if (!files.shp || !files.table) return 1;
  const bool drawn = generator.draw_two_paral_dashes(files.shp, files.table) &&
                     generator.draw_merid_dash(files.shp, files.table) && generator.crt_proj_scn(path);
  return drawn ? 0 : 1;
}
