/* A host written in C generates N-37 through the public header alone: the sheet record, its
 * parameters, the four folders it makes itself, the generate call, a refused box with its message
 * through the host environment, and the point vector and writer handles of the same header. Exits
 * non-zero on the first result that differs from what it expects. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <wchar.h>

#include "vxk_proj4_shp.h"

static int failures = 0;
static int errors_seen = 0;

static void check(int ok, const char* what) {
  if (!ok) {
    fprintf(stderr, "generate_host: FAILED: %s\n", what);
    failures++;
  }
}

static void on_error(void* user, const char* text) {
  (void)user;
  (void)text;
  errors_seen++;
}

static int exists(const char* path) {
  struct stat st;
  return stat(path, &st) == 0;
}

int main(void) {
  const char* tmp = getenv("VXK_TEST_TMP");
  char dir[1024], path[1200];
  wchar_t wdir[1100];
  snprintf(dir, sizeof dir, "%s/c_host_generate", tmp && *tmp ? tmp : "/tmp");
  const char* folders[] = {"", "/HYPS", "/FRAME", "/latlong", "/latlong/HYPS", "/latlong/FRAME"};
  for (size_t i = 0; i < sizeof folders / sizeof *folders; ++i) {
    snprintf(path, sizeof path, "%s%s", dir, folders[i]);
    mkdir(path, 0777);
  }
  swprintf(wdir, sizeof wdir / sizeof *wdir, L"%s/", dir);

  vx_env_callbacks callbacks;
  memset(&callbacks, 0, sizeof callbacks);
  callbacks.error = on_error;
  vx_env_install_out(&callbacks, NULL);

  Tvx_stdlist_string* sheet = vx_stdlist_create();
  vx_stdlist_set_mln_letter(sheet, L'N');
  vx_stdlist_set_mln_number(sheet, 37);
  Tvx_stdlist_params* params = vx_stdlist_params_create(sheet);
  vx_stdlist_params_set_output_dir(params, wdir);
  vx_stdlist_params_set_scene_proj(params,
                                   L"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
                                   L"+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs");
  vx_stdlist_params_set_lon_divs(params, 6, 6);
  vx_stdlist_params_set_lat_divs(params, 4, 6);
  check(vx_stdlist_generate_shapes(params), "N-37 generated");
  snprintf(path, sizeof path, "%s/latlong/HYPS/Hypsa.shp", dir);
  check(exists(path), "latlong/HYPS/Hypsa.shp written");
  vx_stdlist_params_destroy(params);
  vx_stdlist_destroy(sheet);
  check(errors_seen == 0, "no error reported");

  Tvx_stdlist_custom_params* box = vx_stdlist_custom_params_create();
  vx_stdlist_custom_params_set_output_dir(box, wdir);
  vx_stdlist_custom_params_set_grid_steps(box, 1.0, 1.0);
  check(!vx_stdlist_custom_generate_shapes(box), "a box that is not set is refused");
  check(errors_seen == 1, "the refusal is reported");
  vx_stdlist_custom_params_destroy(box);
  vx_env_remove_out();

  Tvx_pp2d* pv = vx_pv_d2_create();
  Tvx_vtx_d2 v = {3.0, 4.0};
  vx_pv_d2_add_vtx(pv, v);
  vx_pv_d2_add_vtx(pv, v);
  check(vx_pv_d2_get_size(pv) == 2 && vx_pv_d2_get_vtx(pv, 1).y == 4.0, "point vector");
  vx_pv_d2_destroy(pv);
  Tvx_dbf_field field;
  check(sizeof field == 14 && vx_dbf_field_init(&field, "ID", VX_DBF_NUMERIC, 6, 0), "column description");

  if (failures == 0) printf("generate_host: all checks passed\n");
  return failures ? 1 : 0;
}
