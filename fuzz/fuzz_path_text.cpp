// Fuzz target: the text functions of the path algebra, the narrow path splitter and the narrow text
// splitters take any text a host or a file hands them. Input: UTF-8 (or any bytes); the first byte
// splits it into two texts.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "support/narrow_path.h"
#include "support/prp_val.h"
#include "support/str_func.h"

namespace {

namespace fs = vx::filesystem;

void path_text(const std::wstring& a, const std::wstring& b) {
  fs::is_absolute(a);
  fs::drive(a);
  fs::directory(a);
  fs::basename(a);
  fs::extension(a);
  fs::full_extension(a);
  fs::change_extension(a, b);
  fs::change_full_extension(a, b);
  fs::change_basename(a, b);
  fs::change_directory(a, b);
  fs::add_suffix(a, b);
  fs::combine(a, b);
  fs::make_valid(a);
  fs::make_valid_filename(a);
  fs::common_directory({a, b});
  fs::os_path(a);
  try {
    fs::clean_path(a);
    fs::absolute_path(a, b);
    fs::relative_path(a, b);
    fs::is_equal(a, b);
  } catch (const std::out_of_range&) {
    // a text whose components all vanish: the documented failure of clean_path
  }
}

void narrow_text(const std::string& a, const std::string& b) {
  char drive[VX_NARROW_PATH_MAX], dir[VX_NARROW_PATH_MAX], name[VX_NARROW_PATH_MAX], ext[VX_NARROW_PATH_MAX];
  vx_split_path(a.c_str(), drive, dir, name, ext);
  char out[VX_NARROW_PATH_MAX];
  vx_make_path(out, drive, dir, name, ext);
  Tvx_path::change_file_name(a.c_str(), b.c_str());
  Tvx_str_vec list;
  Tvx_str_func::divide(a.c_str(), b.c_str(), &list);
  for (unsigned i = 0; i < list.get_size(); ++i) {
    Tvx_prp_val pair;
    pair.divide_str(list.get(i), '=');
    double d;
    pair.get_dbl(d);
  }
  Tvx_str_func::trim_stricmp(a.c_str(), b.c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const size_t cut = size > 0 ? data[0] % (size + 1) : 0;
  const std::string a = input.substr(0, cut);
  const std::string b = input.substr(cut);
  path_text(vx::strconv::utf8_to_wide(a), vx::strconv::utf8_to_wide(b));
  narrow_text(a.c_str(), b.c_str());  // up to the first zero byte, as a C caller passes them
  return 0;
}
