// Narrow path for POSIX calls from a wide path of the flat interface: every "\" becomes "/", and the
// text goes to UTF-8, the file system's encoding.
#pragma once

#include <string>

#include "support/ansi_code_page.h"

namespace vx::services {

inline std::string native_path(const wchar_t* path) {
  std::wstring text = path ? path : L"";
  for (wchar_t& c : text) {
    if (c == L'\\') c = L'/';
  }
  return vx::strconv::wide_to_utf8(text);
}

}  // namespace vx::services
