#include "services/string_adapter.h"

#include "support/ansi_code_page.h"

void Tvx_string_adapter_base::vx_ansi_string_callback(const char* text, void* user) {
  static_cast<Tvx_string_adapter_base*>(user)->feed(text);
}

void Tvx_string_adapter_base::vx_unicode_string_callback(const wchar_t* text, void* user) {
  static_cast<Tvx_string_adapter_base*>(user)->feed(text);
}

Tvx_std_wstring_adapter::Tvx_std_wstring_adapter(std::wstring& target) : f_target(target) {
  f_adapter = vx_string_adp_create(&vx_ansi_string_callback, &vx_unicode_string_callback, this);
}

Tvx_std_wstring_adapter::~Tvx_std_wstring_adapter() {
  vx_string_adp_destroy(f_adapter);
}

void Tvx_std_wstring_adapter::feed(const char* text) {
  if (text) {
    f_target = vx::strconv::ansi_to_wide(text);
  } else {
    f_target.clear();
  }
}

void Tvx_std_wstring_adapter::feed(const wchar_t* text) {
  if (text) {
    f_target = text;
  } else {
    f_target.clear();
  }
}
