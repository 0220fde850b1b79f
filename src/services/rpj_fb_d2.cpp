// The batch reprojector of point vectors: the whole vector goes to PROJ in one call, and only when
// that call fails are the vertices taken one by one, so that each vertex that can be transformed is.
#include <new>

#include "geom/pp2d.h"
#include "reproj/reproj_xy.h"
#include "reproj/xy_array.h"
#include "services/flat_types.h"

struct Tvx_rpj_fb_d2 {
  Tvx_reproj_xy reproj;
  Tvx_xy_array buffer;
};

namespace {

bool apply_batch(Tvx_rpj_fb_d2& r, Tvx_pp2d& pv) {
  const unsigned n = static_cast<unsigned>(pv.get_size());
  r.buffer.set_size(n);
  for (unsigned i = 0; i < n; ++i) r.buffer.set_xy(i, pv.get(i).x, pv.get(i).y);
  if (!r.reproj.apply_array(&r.buffer)) return false;
  for (unsigned i = 0; i < n; ++i) pv.set(i, Tvx_point2d{r.buffer.get_x(i), r.buffer.get_y(i)});
  return true;
}

// The transformation works on copies: a point that fails leaves garbage in its copy only.
bool apply_each(Tvx_rpj_fb_d2& r, Tvx_pp2d& pv) {
  bool all = true;
  for (int i = 0; i < pv.get_size(); ++i) {
    double x = pv.get(i).x;
    double y = pv.get(i).y;
    if (r.reproj.apply(&x, &y)) {
      pv.set(i, Tvx_point2d{x, y});
    } else {
      all = false;
    }
  }
  return all;
}

}  // namespace

extern "C" {

VX_API Tvx_rpj_fb_d2* vx_rpj_fb_d2_create(void) {
  return new (std::nothrow) Tvx_rpj_fb_d2();
}

VX_API bool vx_rpj_fb_d2_init_w(Tvx_rpj_fb_d2* reprojector, const wchar_t* src_proj,
                                const wchar_t* dst_proj) {
  try {
    return reprojector->reproj.init(src_proj ? src_proj : L"", dst_proj ? dst_proj : L"");
  } catch (const std::exception&) {
    reprojector->reproj.clear();
    return false;
  }
}

VX_API bool vx_rpj_fb_d2_apply_pv(Tvx_rpj_fb_d2* reprojector, Tvx_pp2d* vector, int mode) {
  if (mode != 1) return false;
  try {
    return apply_batch(*reprojector, *vector) || apply_each(*reprojector, *vector);
  } catch (const std::exception&) {
    return false;
  }
}

VX_API void vx_rpj_fb_d2_destroy(Tvx_rpj_fb_d2* reprojector) {
  delete reprojector;
}

}  // extern "C"
