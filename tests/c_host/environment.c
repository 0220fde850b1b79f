/* A C host that sets the language and installs and removes its environment of callbacks. */
#include <stdio.h>

#include "vxk_proj4_shp.h"

static int g_errors = 0;

static void on_error(void* user, const char* text) {
  (void)text;
  ++*(int*)user;
}

static bool on_stopped(void* user) {
  (void)user;
  return false;
}

int main(void) {
  vx_env_callbacks callbacks = {0};
  callbacks.error = on_error;
  callbacks.stopped = on_stopped;
  if (vx_res_get_lng() != 1) return 1;
  vx_res_set_lng(0);
  if (vx_res_get_lng() != 0) return 2;
  vx_env_install_out(&callbacks, &g_errors);
  vx_env_remove_out();
  vx_env_install_out(NULL, NULL);
  vx_env_remove_out();
  printf("environment host: ok\n");
  return g_errors;
}
