// The flat functions of generation: parameter objects made, filled and destroyed by the host, and the
// two generate calls, which admit the parameters and then run one generator on the caller's thread.
#include <exception>
#include <new>

#include "stdlist/generate/01_checks.h"
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/22_sheet_box.h"
#include "support/env.h"
#include "support/rc.h"

namespace {

using vx::stdlist::custom_generate;
using vx::stdlist::custom_params;
using vx::stdlist::stdlist_generate;
using vx::stdlist::stdlist_params;

// Runs one generator; nothing is thrown across the flat interface, and what stopped the run is
// reported.
template <typename Generator, typename Params>
bool run(Params& params) {
  try {
    Generator generator(params);
    return generator.execute();
  } catch (const std::exception& e) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_STOPPED, e.what());
    return false;
  }
}

// A setter that runs out of memory leaves the object as it was.
template <typename Set>
void guarded(Set set) {
  try {
    set();
  } catch (const std::exception&) {
  }
}

}  // namespace

extern "C" {

VX_API Tvx_stdlist_params* vx_stdlist_params_create(const Tvx_stdlist_string* sheet) {
  return new (std::nothrow) Tvx_stdlist_params{stdlist_params(sheet ? &sheet->sheet : nullptr)};
}

VX_API void vx_stdlist_params_destroy(Tvx_stdlist_params* params) {
  delete params;
}

VX_API void vx_stdlist_params_set_output_dir(Tvx_stdlist_params* params, const wchar_t* dir) {
  if (dir) guarded([&] { params->params.set_output_dir(dir); });
}

VX_API void vx_stdlist_params_set_lat_divs(Tvx_stdlist_params* params, int main, int additional) {
  params->params.set_lat_divs(main, additional);
}

VX_API void vx_stdlist_params_set_lon_divs(Tvx_stdlist_params* params, int main, int additional) {
  params->params.set_lon_divs(main, additional);
}

VX_API void vx_stdlist_params_set_scene_proj(Tvx_stdlist_params* params, const wchar_t* proj) {
  if (proj) guarded([&] { params->params.set_scene_proj(proj); });
}

VX_API bool vx_stdlist_generate_shapes(Tvx_stdlist_params* params) {
  if (!params || !vx::stdlist::admit(params->params)) return false;
  return run<stdlist_generate>(params->params);
}

VX_API Tvx_stdlist_custom_params* vx_stdlist_custom_params_create(void) {
  return new (std::nothrow) Tvx_stdlist_custom_params{};
}

VX_API void vx_stdlist_custom_params_destroy(Tvx_stdlist_custom_params* params) {
  delete params;
}

VX_API void vx_stdlist_custom_params_set_box(Tvx_stdlist_custom_params* params, double xmin, double xmax,
                                             double ymin, double ymax) {
  params->params.set_box(xmin, xmax, ymin, ymax);
}

VX_API void vx_stdlist_custom_params_set_output_dir(Tvx_stdlist_custom_params* params, const wchar_t* dir) {
  if (dir) guarded([&] { params->params.set_output_dir(dir); });
}

VX_API void vx_stdlist_custom_params_set_grid_steps(Tvx_stdlist_custom_params* params, double x_step,
                                                    double y_step) {
  params->params.set_grid_steps(x_step, y_step);
}

VX_API void vx_stdlist_custom_params_set_scene_proj(Tvx_stdlist_custom_params* params, const wchar_t* proj) {
  if (proj) guarded([&] { params->params.set_scene_proj(proj); });
}

VX_API bool vx_stdlist_custom_generate_shapes(Tvx_stdlist_custom_params* params) {
  if (!params || !vx::stdlist::admit(params->params)) return false;
  return run<custom_generate>(params->params);
}

// Where a sheet lies, by the rules with which the generator lays it out, and the sheet that holds a
// point: for hosts that put sheets on a map or find them from one.
VX_API bool vx_stdlist_get_box(const Tvx_stdlist_string* sheet, double* xmin, double* xmax, double* ymin,
                               double* ymax) {
  vx::stdlist::sheet_box::box b;
  const bool valid = vx::stdlist::sheet_box::of(sheet->sheet, b);
  *xmin = b.xmin;
  *xmax = b.xmax;
  *ymin = b.ymin;
  *ymax = b.ymax;
  return valid;
}

VX_API bool vx_stdlist_init_at(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale,
                               Tvx_stdlist_hemisphere hemisphere, double lon, double lat) {
  return vx::stdlist::sheet_box::find(scale, hemisphere, lon, lat, sheet->sheet);
}

}  // extern "C"
