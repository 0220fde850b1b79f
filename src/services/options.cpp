// The style library folder: where the generator finds "std_list\proj0.pj4", the geographic system in
// which it lays out a sheet.
#include <cstdlib>
#include <string>

#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "vxk_proj4_shp.h"

namespace {

// The host's choice; empty until vx_options_set_style_libs_path gives one.
std::wstring& chosen_path() {
  static std::wstring path;
  return path;
}

// The answer of the last vx_options_get_style_libs_path, which the returned pointer shows.
std::wstring& answer() {
  static std::wstring text;
  return text;
}

std::wstring with_separator(std::wstring path) {
  if (path.empty() || (path.back() != L'/' && path.back() != L'\\')) path += L'/';
  return path;
}

// The host's choice, then VXK_STYLE_LIBS, then the installed default when it is there, and last the
// source tree of a library used from its build tree.
std::wstring find_style_libs() {
  if (!chosen_path().empty()) return chosen_path();
  const char* variable = std::getenv("VXK_STYLE_LIBS");
  if (variable && *variable) return vx::strconv::utf8_to_wide(variable);
  const std::wstring installed = vx::strconv::utf8_to_wide(VXK_INSTALL_STYLELIB);
  if (vx::filesystem::is_directory(installed)) return installed;
  return vx::strconv::utf8_to_wide(VXK_SOURCE_STYLELIB);
}

}  // namespace

extern "C" {

VX_API const wchar_t* vx_options_get_style_libs_path(void) {
  try {
    answer() = with_separator(find_style_libs());
  } catch (const std::exception&) {
    answer().clear();
  }
  return answer().c_str();
}

VX_API void vx_options_set_style_libs_path(const wchar_t* path) {
  try {
    chosen_path() = path ? path : L"";
  } catch (const std::exception&) {
    chosen_path().clear();
  }
}

}  // extern "C"
