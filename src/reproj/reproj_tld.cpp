// Reprojection of text lists and TLD files.
#include "reproj/reproj_tld.h"

#include <string>

#include "geom/pp2d.h"
#include "reproj/proj_log.h"
#include "reproj/reproj_2d.h"
#include "services/text_list.h"
#include "support/ansi_code_page.h"
#include "support/env.h"

namespace {

constexpr double SQRT_2 = 1.4142135623730951;

// How lengths scale from the source to the destination, taken once at the source's origin along the
// diagonal from (0, 0) to (1, 1). When that cannot be transformed the points stay and k is 1.
double length_factor(Tvx_reproj_2d& rpj) {
  Tvx_pp2d diagonal;
  diagonal.add(0.0, 0.0);
  diagonal.add(1.0, 1.0);
  rpj.apply_pp(&diagonal);
  return diagonal.calc_length() / SQRT_2;
}

// In place when the point goes through; otherwise it keeps its source position.
void move_point(Tvx_reproj_xy& rpj, Tvx_vtx_d2& point) {
  double x = point.x;
  double y = point.y;
  if (rpj.apply(&x, &y)) point = Tvx_vtx_d2{x, y};
}

void scale_metric(Tvx_text_data& text, size_t index, double k) {
  Tvx_text_metric* m = text.metric_at(index);
  if (!m) return;
  m->size *= k;
  m->delta_x *= k;
  m->delta_y *= k;
}

// The deltas are multiplied, not turned: a label's offset keeps its direction.
void reproject_text(Tvx_reproj_xy& rpj, double k, Tvx_text_data& text) {
  const size_t count = text.points().size();
  for (size_t j = 0; j < count; ++j) {
    Tvx_vtx_d2 p = text.get_point(j);
    move_point(rpj, p);
    text.set_point(j, p);
  }
  if (text.get_type() == VX_TEXT_TYPE_PER_POINT) {
    for (size_t j = 0; j < count; ++j) scale_metric(text, j, k);
  } else {
    scale_metric(text, 0, k);
  }
  if (Tvx_callout* callout = text.get_callout()) {
    for (Tvx_vtx_d2& end : callout->end_points) move_point(rpj, end);
  }
}

std::wstring widen(const char* text) {
  return vx::strconv::utf8_to_wide(text ? text : "");
}

// Reports through the environment, in the narrow code page of messages.
void report_error(const std::wstring& text) {
  Tvx_env_main::error(vx::strconv::wide_to_ansi(text).c_str());
}

// A label file that cannot be read or written is reported with the reason the file layer gives.
void report_file(bool ok, const Tvx_tld_file* file) {
  if (!ok) report_error(vx_tld_file_get_error(file));
}

Tvx_tld_file* open_or_report(const wchar_t* path) {
  Tvx_tld_file* file = vx_tld_file_open_w(path);
  if (!file) {
    report_error(L"cannot use '" + std::wstring(path) +
                 L"' as a label file: it is not a readable file, or its folder does not exist");
  }
  return file;
}

}  // namespace

int Tvx_reproj_tld::execute(Tvx_text_list_base* list, const wchar_t* src_proj, const wchar_t* dst_proj) {
  Tvx_reproj_2d rpj;
  if (!rpj.init(src_proj, dst_proj)) {
    report_error(L"cannot build the transformation: " + vx::strconv::utf8_to_wide(rpj.get_error()));
    return 1;
  }
  const double k = length_factor(rpj);
  for (size_t i = 0; i < list->size(); ++i) reproject_text(rpj, k, *list->at(i));
  vx::proj_log::pass_on();
  return 0;
}

int Tvx_reproj_tld::execute(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                            const wchar_t* dst_proj) {
  Tvx_tld_file* source = open_or_report(src_file);
  if (!source) return 1;
  Tvx_tld_file* destination = open_or_report(dst_file);
  if (!destination) {
    vx_tld_file_close(source);
    return 1;
  }
  Tvx_text_list_base* list = vx_text_list_create();
  report_file(vx_tld_file_read_all(source, list), source);
  const int result = execute(list, src_proj, dst_proj);
  report_file(vx_tld_file_write_all(destination, list, 0), destination);
  vx_text_list_destroy(list);
  vx_tld_file_close(destination);
  vx_tld_file_close(source);
  return result;
}

int Tvx_reproj_tld::execute(const char* src_file, const char* src_proj, const char* dst_file,
                            const char* dst_proj) {
  return execute(widen(src_file).c_str(), widen(src_proj).c_str(), widen(dst_file).c_str(),
                 widen(dst_proj).c_str());
}

int Tvx_reproj_xsp::execute(const char*, const char*, const char*, const char*) {
  return 1;
}

extern "C" {

VX_API bool vx_proj4_tld(const char* src_file, const char* src_proj, const char* dst_file,
                         const char* dst_proj) {
  try {
    return Tvx_reproj_tld::execute(src_file, src_proj, dst_file, dst_proj) == 0;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_proj4_tld_w(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                           const wchar_t* dst_proj) {
  try {
    return Tvx_reproj_tld::execute(src_file, src_proj, dst_file, dst_proj) == 0;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_proj4_text_list_w(Tvx_text_list_base* list, const wchar_t* src_proj, const wchar_t* dst_proj) {
  try {
    return Tvx_reproj_tld::execute(list, src_proj, dst_proj) == 0;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_proj4_xsp(const char* src_file, const char* src_proj, const char* dst_file,
                         const char* dst_proj) {
  return Tvx_reproj_xsp::execute(src_file, src_proj, dst_file, dst_proj) == 0;
}

}  // extern "C"
