// The host's language mark, which selects the language of the library's messages.
#include "vxk_proj4_shp.h"

namespace {

// English until the host says otherwise.
int g_language = 1;

}  // namespace

extern "C" {

VX_API int vx_res_get_lng(void) {
  return g_language;
}

VX_API void vx_res_set_lng(int language) {
  g_language = language;
}

}  // extern "C"
