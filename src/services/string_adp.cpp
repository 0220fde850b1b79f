// The string sink: the channel through which lists and texts leave the library.
#include <new>
#include <string>

#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

struct Ivx_string_adp {
  vx_ansi_string_callback_t ansi;
  vx_unicode_string_callback_t unicode;
  void* user;
};

extern "C" {

VX_API Ivx_string_adp* vx_string_adp_create(vx_ansi_string_callback_t ansi_callback,
                                            vx_unicode_string_callback_t unicode_callback,
                                            void* user_pointer) {
  return new (std::nothrow) Ivx_string_adp{ansi_callback, unicode_callback, user_pointer};
}

VX_API void vx_string_adp_feed(Ivx_string_adp* adapter, const wchar_t* text) {
  if (adapter->unicode) {
    adapter->unicode(text, adapter->user);
    return;
  }
  if (!adapter->ansi) return;
  if (!text) {
    adapter->ansi(nullptr, adapter->user);
    return;
  }
  const std::string narrow = vx::strconv::wide_to_ansi(text);
  adapter->ansi(narrow.c_str(), adapter->user);
}

VX_API void vx_string_adp_destroy(Ivx_string_adp* adapter) {
  delete adapter;
}

}  // extern "C"
