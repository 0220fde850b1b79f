/* Generates one standard sheet through the public header alone, for the GDAL checks:
 *   generate_tool LETTER_INDEX NUMBER ROMAN_INDEX TYPE SOUTH SCENE OUT_DIR LON_MAIN LON_ADD LAT_MAIN LAT_ADD
 * ROMAN_INDEX 0 gives a 1:1,000,000 sheet; SOUTH is 0 or 1; OUT_DIR ends in a separator and holds the four
 * folders. Exits 0 when the generator answered true. */
#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

#include "vxk_proj4_shp.h"

static wchar_t* widened(const char* text) {
  const size_t n = mbstowcs(NULL, text, 0);
  wchar_t* out = n == (size_t)-1 ? NULL : calloc(n + 1, sizeof *out);
  if (out) mbstowcs(out, text, n + 1);
  return out;
}

int main(int argc, char** argv) {
  if (argc != 12) {
    fprintf(stderr,
            "usage: generate_tool LETTER NUMBER ROMAN TYPE SOUTH SCENE OUT LON_M LON_A LAT_M LAT_A\n");
    return 2;
  }
  setlocale(LC_CTYPE, "C.UTF-8");  // the arguments are UTF-8
  const int roman = atoi(argv[3]);
  wchar_t* scene = widened(argv[6]);
  wchar_t* out = widened(argv[7]);
  if (!scene || !out) return 2;
  Tvx_stdlist_string* sheet = vx_stdlist_create();
  vx_stdlist_init(sheet, roman ? VX_STDLIST_SC_200 : VX_STDLIST_SC_MLN, atoi(argv[4]),
                  atoi(argv[5]) ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH);
  vx_stdlist_set_mln_letter_idx(sheet, strtoull(argv[1], NULL, 10));
  vx_stdlist_set_mln_number(sheet, strtoull(argv[2], NULL, 10));
  if (roman) vx_stdlist_set_200_roman_idx(sheet, (uint64_t)roman);
  Tvx_stdlist_params* params = vx_stdlist_params_create(sheet);
  vx_stdlist_params_set_output_dir(params, out);
  vx_stdlist_params_set_scene_proj(params, scene);
  vx_stdlist_params_set_lon_divs(params, atoi(argv[8]), atoi(argv[9]));
  vx_stdlist_params_set_lat_divs(params, atoi(argv[10]), atoi(argv[11]));
  const bool ok = vx_stdlist_generate_shapes(params);
  vx_stdlist_params_destroy(params);
  vx_stdlist_destroy(sheet);
  free(scene);
  free(out);
  return ok ? 0 : 1;
}
