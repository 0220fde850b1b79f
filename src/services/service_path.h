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

namespace vx::services {

// The path with its extension replaced: the part from the last "." of the file name on is cut
// (a leading dot of a file name is no extension), and extension, with its dot, is added.
inline std::wstring with_extension(const std::wstring& path, const wchar_t* extension) {
  const size_t cut = path.find_last_of(L"./\\");
  const bool has_extension = cut != std::wstring::npos && cut > 0 && path[cut] == L'.' &&
                             path[cut - 1] != L'/' && path[cut - 1] != L'\\';
  return (has_extension ? path.substr(0, cut) : path) + extension;
}

}  // namespace vx::services
