// The flat functions of projection strings: the GDAL form, the description for people and the
// catalogue of projections.
#include <exception>
#include <string>

#include "proj4/pj_catalogue.h"
#include "proj4/proj4_str.h"
#include "proj4/proj4_str_correct.h"
#include "support/ansi_code_page.h"
#include "support/rc.h"
#include "vxk_proj4_shp.h"

namespace {

// Gives the message table the language of one call, and the language it had back afterwards. The
// host's own choice is fixed first, so that it cannot replace ours at the first text.
class call_language {
 public:
  explicit call_language(int host_language) {
    Tvx_rc::get_auto_lang();
    f_saved = Tvx_rc::get_lang();
    Tvx_rc::set_lang(host_language == 0 ? 1 : 0);
  }
  ~call_language() { Tvx_rc::set_lang(f_saved); }
  call_language(const call_language&) = delete;
  call_language& operator=(const call_language&) = delete;

 private:
  int f_saved = 0;
};

void feed_utf8(Ivx_string_adp* sink, const std::string& text) {
  vx_string_adp_feed(sink, vx::strconv::utf8_to_wide(text).c_str());
}

// One feed per line of a "\r\n"-separated text in the narrow code page.
void feed_lines(Ivx_string_adp* sink, const std::string& text) {
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find("\r\n", start);
    if (end == std::string::npos) end = text.size();
    vx_string_adp_feed(sink, vx::strconv::ansi_to_wide(text.substr(start, end - start)).c_str());
    start = end + 2;
  }
}

std::string utf8(const wchar_t* text) {
  return vx::strconv::wide_to_utf8(text ? text : L"");
}

}  // namespace

extern "C" {

VX_API bool vx_pj4_export_gdal(const wchar_t* proj, Ivx_string_adp* sink) {
  try {
    if (!sink) return false;
    const std::string text = Tvx_proj4_str_correct::patch_proj4_for_gdal(utf8(proj).c_str());
    if (text.empty()) return false;
    feed_utf8(sink, text);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// The description is made in the narrow code page of the message table, so the text goes there too;
// PROJ's names are plain ASCII, which every code page holds.
VX_API void vx_pj4_describe_w(const wchar_t* proj, int language, Ivx_string_adp* sink) {
  try {
    if (!sink) return;
    Tvx_proj4_str s;
    s.set(vx::strconv::wide_to_ansi(proj ? proj : L"").c_str());
    s.decompose();
    call_language lang(language);
    feed_lines(sink, s.get_text());
  } catch (const std::exception&) {
  }
}

VX_API bool vx_pj4_fetch_catalogue(const wchar_t* proj, Ivx_string_adp* sink) {
  try {
    if (!sink) return false;
    const Tvx_pj_proj_defs& defs = vx::proj4::catalogue();
    if (!proj || !*proj) {
      for (unsigned i = 0; i < defs.get_size(); ++i) feed_utf8(sink, vx::proj4::catalogue_row(*defs.get(i)));
      return true;
    }
    Tvx_proj4_str s;
    s.set(utf8(proj).c_str());
    s.decompose();
    const Tvx_pj_proj_def* d = vx::proj4::find_definition(defs, s);
    if (!d) return false;
    feed_utf8(sink, vx::proj4::catalogue_row(*d));
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // extern "C"
