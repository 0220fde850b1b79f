// TEMPORARY: stand-ins for the support layer until it lands; removed at the merge.
#pragma once

#include <strings.h>
#include <cstdio>
#include <cstring>
#include <string>

#include "support/ansi_code_page.h"

struct Tvx_str_func {
  static bool str2int(const char* t, int& v) { return std::sscanf(t, "%d", &v) == 1; }
  static bool str2dbl(const char* t, double& v) { return std::sscanf(t, "%lg", &v) == 1; }
  static std::string trim(const char* t) {
    std::string s(t);
    const char* ws = " \r\t\n";
    size_t a = s.find_first_not_of(ws);
    if (a == std::string::npos) return "";
    size_t b = s.find_last_not_of(ws);
    return s.substr(a, b - a + 1);
  }
  static int trim_stricmp(const char* a, const char* b) {
    return strcasecmp(trim(a).c_str(), trim(b).c_str());
  }
};

struct Tvx_path {
  static std::string change_file_ext(const char* path, const char* ext) {
    std::string p(path);
    size_t slash = p.find_last_of("\\/");
    size_t dot = p.find_last_of('.');
    if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) p.erase(dot);
    if (*ext != '.') p += '.';
    return p + ext;
  }
};

struct Tvx_file_func {
  static bool can_create_new(const char* path) {
    if (FILE* f = std::fopen(path, "rb")) {
      std::fclose(f);
      return false;
    }
    FILE* f = std::fopen(path, "wb");
    if (!f) return false;
    std::fclose(f);
    std::remove(path);
    return true;
  }
  static int copy(const char* from, const char* to) {
    FILE* a = std::fopen(from, "rb");
    FILE* b = std::fopen(to, "wb");
    char buf[2048];
    size_t n;
    while (a && b && (n = std::fread(buf, 1, sizeof buf, a)) > 0) std::fwrite(buf, 1, n, b);
    if (a) std::fclose(a);
    if (b) std::fclose(b);
    return 0;
  }
};

namespace vx::filesystem {
inline bool remove_file(const std::wstring& path) {
  return std::remove(vx::strconv::wide_to_utf8(path).c_str()) == 0;
}
}  // namespace vx::filesystem
