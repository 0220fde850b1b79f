// UTF-8 on the terminal, wide text (wchar_t) in the library: the conversions the commands need.
// Invalid input bytes become U+FFFD, so that a bad argument is reported rather than crashing.
#pragma once

#include <string>

namespace vxk {

inline std::wstring utf8_to_wide(const std::string& in) {
  std::wstring out;
  for (size_t i = 0; i < in.size();) {
    const unsigned char c = static_cast<unsigned char>(in[i]);
    int extra = c < 0x80 ? 0 : (c >> 5) == 0x6 ? 1 : (c >> 4) == 0xE ? 2 : (c >> 3) == 0x1E ? 3 : -1;
    if (extra < 0 || i + extra >= in.size()) {
      out += L'\xFFFD';
      ++i;
      continue;
    }
    unsigned long cp = extra == 0 ? c : (c & (0x3F >> extra));
    bool ok = true;
    for (int k = 1; k <= extra; ++k) {
      const unsigned char n = static_cast<unsigned char>(in[i + k]);
      if ((n & 0xC0) != 0x80) ok = false;
      cp = (cp << 6) | (n & 0x3F);
    }
    out += ok ? static_cast<wchar_t>(cp) : L'\xFFFD';
    i += ok ? extra + 1 : 1;
  }
  return out;
}

inline std::string wide_to_utf8(const std::wstring& in) {
  std::string out;
  for (wchar_t wc : in) {
    const unsigned long cp = static_cast<unsigned long>(wc);
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | (cp >> 6));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      out += static_cast<char>(0xE0 | (cp >> 12));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | ((cp >> 18) & 0x07));
      out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return out;
}

}  // namespace vxk
