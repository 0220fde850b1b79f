/* Prints what the hosts' shape file reader gives for a shape file, for the check against GDAL
 * (shp_reader_gdal.py): shp_reader_tool FILE.shp. A host of the public header alone, in C. Lines:
 *   file TYPE RECORDS ROWS COLUMNS
 *   column NAME                            one per column
 *   record PARTS                           one per record, followed by its parts:
 *   part X Y X Y ...                       the vertices of one part
 *   value TEXT                             one per column of the record's row */
#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

#include "vxk_proj4_shp.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: shp_reader_tool FILE.shp\n");
    return 2;
  }
  setlocale(LC_ALL, "C.UTF-8");
  wchar_t path[4096];
  if (mbstowcs(path, argv[1], 4096) == (size_t)-1) return 2;
  Tvx_shp_reader* r = vx_shp_reader_open_w(path);
  if (!r) {
    fprintf(stderr, "cannot open %s\n", argv[1]);
    return 1;
  }
  const uint32_t count = vx_shp_reader_get_count(r), columns = vx_shp_reader_get_column_count(r);
  printf("file %d %u %u %u\n", vx_shp_reader_get_type(r), count, vx_shp_reader_get_row_count(r), columns);
  for (uint32_t c = 0; c < columns; ++c) printf("column %ls\n", vx_shp_reader_get_column_name(r, c));
  Tvx_pp2d* pv = vx_pv_d2_create();
  for (uint32_t i = 0; i < count; ++i) {
    const uint32_t parts = vx_shp_reader_read(r, i);
    printf("record %u\n", parts);
    for (uint32_t k = 0; k < parts; ++k) {
      vx_shp_reader_get_part(r, k, pv);
      printf("part");
      for (uint32_t v = 0; v < vx_pv_d2_get_size(pv); ++v) {
        const Tvx_vtx_d2 p = vx_pv_d2_get_vtx(pv, v);
        printf(" %.17g %.17g", p.x, p.y);
      }
      printf("\n");
    }
    for (uint32_t c = 0; c < columns; ++c) printf("value %ls\n", vx_shp_reader_get_value(r, i, c));
  }
  vx_pv_d2_destroy(pv);
  vx_shp_reader_close(r);
  return 0;
}
