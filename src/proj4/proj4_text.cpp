#include "proj4/proj4_text.h"

#include <cctype>
#include <cstdio>
#include <cstring>

namespace vx::proj4_text {

std::string trim(const std::string& text) {
  const char* blanks = " \r\t\n";
  size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return "";
  size_t last = text.find_last_not_of(blanks);
  return text.substr(first, last - first + 1);
}

bool str2dbl(const char* text, double& value) {
  return std::sscanf(text, "%lg", &value) == 1;
}

bool str2int(const char* text, int& value) {
  return std::sscanf(text, "%d", &value) == 1;
}

std::string int2str(int value) {
  return std::to_string(value);
}

int stricmp(const char* a, const char* b) {
  for (;; ++a, ++b) {
    int ca = std::tolower(static_cast<unsigned char>(*a));
    int cb = std::tolower(static_cast<unsigned char>(*b));
    if (ca != cb || ca == 0) return ca - cb;
  }
}

int trim_stricmp(const char* a, const char* b) {
  if (!a && !b) return 0;
  if (!a) return -1;
  if (!b) return 1;
  return stricmp(trim(a).c_str(), trim(b).c_str());
}

std::vector<std::string> divide(const std::string& text, const char* separators) {
  std::vector<std::string> out(1);
  for (char c : text) {
    if (std::strchr(separators, c) && c != '\0')
      out.emplace_back();
    else
      out.back() += c;
  }
  return out;
}

}  // namespace vx::proj4_text
