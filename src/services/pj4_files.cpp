// Projection files of shape sets: the .pj4 beside a shape file, which holds its PROJ string, and the
// ESRI WKT of a .prj, which other GIS software reads.
#include <proj.h>

#include <cstdio>
#include <memory>
#include <string>

#include "proj4/proj4_str.h"
#include "reproj/proj_log.h"
#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "vxk_proj4_shp.h"

namespace {

// A PROJ string is short; a first line longer than this is not a projection file.
constexpr size_t MAX_LINE = 64 * 1024;

struct file_closer {
  void operator()(std::FILE* f) const { std::fclose(f); }
};
using file_ptr = std::unique_ptr<std::FILE, file_closer>;

struct pj_destroyer {
  void operator()(PJ* p) const { proj_destroy(p); }
};
using pj_ptr = std::unique_ptr<PJ, pj_destroyer>;

// The first line of a text file without its line end and without a UTF-8 byte order mark; false
// when the file cannot be read or the line is longer than MAX_LINE.
bool read_first_line(const std::wstring& path, std::string& line) {
  file_ptr f(vx::filesystem::open_file(path, "rb"));
  if (!f) return false;
  line.clear();
  int c;
  while ((c = std::fgetc(f.get())) != EOF && c != '\n') {
    if (line.size() == MAX_LINE) return false;
    line.push_back(static_cast<char>(c));
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.compare(0, 3, "\xEF\xBB\xBF") == 0) line.erase(0, 3);
  return !std::ferror(f.get());
}

std::string one_line(const wchar_t* proj) {
  std::string text = vx::strconv::wide_to_utf8(proj ? proj : L"");
  for (char& c : text) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  return text;
}

// The coordinate system that a PROJ string describes. A PROJ string without "+type=crs" makes an
// operation rather than a system in PROJ, so it is tried again with that tail. What PROJ says of a
// first try that fails is not the caller's concern: its log is caught and dropped, not printed.
pj_ptr create_crs(const std::string& text) {
  vx::proj_log::install();
  pj_ptr crs(proj_create(PJ_DEFAULT_CTX, text.c_str()));
  vx::proj_log::take();
  if (crs && proj_is_crs(crs.get())) return crs;
  crs.reset(proj_create(PJ_DEFAULT_CTX, (text + " +type=crs").c_str()));
  if (crs && proj_is_crs(crs.get())) return crs;
  return nullptr;
}

}  // namespace

extern "C" {

// Geographic as the library's own reading of PROJ strings has it, the reading that every
// reprojection follows.
VX_API bool vx_pj4_is_longlat_w(const wchar_t* proj) {
  try {
    Tvx_proj4_str text;
    text.set(vx::strconv::wide_to_utf8(proj ? proj : L"").c_str());
    text.decompose();
    return text.get_is_long_lat();
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_pj4_load_simple_w(const wchar_t* path, Ivx_string_adp* sink) {
  try {
    std::string line;
    if (!path || !read_first_line(path, line) || line.empty()) return false;
    vx_string_adp_feed(sink, vx::strconv::utf8_to_wide(line).c_str());
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_pj4_save_w(const wchar_t* shape_path, const wchar_t* proj) {
  try {
    if (!shape_path || !*shape_path) return false;
    file_ptr f(vx::filesystem::open_file(vx::filesystem::change_extension(shape_path, L".pj4"), "wb"));
    if (!f) return false;
    const std::string line = one_line(proj) + "\n";
    const bool written = std::fwrite(line.data(), 1, line.size(), f.get()) == line.size();
    return std::fclose(f.release()) == 0 && written;
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_pj4_export_esri(const wchar_t* proj, Ivx_string_adp* sink) {
  try {
    pj_ptr crs = create_crs(vx::strconv::wide_to_utf8(proj ? proj : L""));
    const char* wkt = crs ? proj_as_wkt(PJ_DEFAULT_CTX, crs.get(), PJ_WKT1_ESRI, nullptr) : nullptr;
    if (!wkt) return false;
    vx_string_adp_feed(sink, vx::strconv::utf8_to_wide(wkt).c_str());
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // extern "C"
