// The flat functions of shape file reprojection.
#include <exception>

#include "reproj/reproj_shape.h"
#include "vxk_proj4_shp.h"

namespace {

// Nothing is thrown across the flat interface: a run that throws (memory, in practice) ends in false.
template <class Run>
bool without_exceptions(Run run) {
  try {
    return run();
  } catch (...) {
    return false;
  }
}

}  // namespace

extern "C" {

VX_API bool vx_proj4_shp(const char* src_file, const char* src_proj, const char* dst_file,
                         const char* dst_proj) {
  return without_exceptions(
      [&] { return Tvx_reproj_shape::execute(src_file, src_proj, dst_file, dst_proj) == 0; });
}

VX_API bool vx_proj4_shp_w(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                           const wchar_t* dst_proj) {
  return without_exceptions(
      [&] { return Tvx_reproj_shape::execute(src_file, src_proj, dst_file, dst_proj) == 0; });
}

VX_API bool vx_proj4_shp_ex(const char* src_file, const char* src_proj, const char* dst_file,
                            const char* dst_proj, vx_proj4_shp_progress_t progress, void* user,
                            vx_proj4_shp_counts* counts) {
  Tvx_reproj_shape_report report;
  report.progress = progress;
  report.user = user;
  const bool ok = without_exceptions(
      [&] { return Tvx_reproj_shape::execute(src_file, src_proj, dst_file, dst_proj, &report) == 0; });
  if (counts)
    *counts = vx_proj4_shp_counts{report.records, report.failed, report.unreadable, report.file_errors};
  return ok;
}

}  // extern "C"
