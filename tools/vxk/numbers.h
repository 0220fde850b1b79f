// Numbers as the commands print them: the shortest text that reads back as the same double.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace vxk {

inline std::string shortest(double v) {
  char buf[32];
  for (int digits = 15; digits <= 17; ++digits) {
    std::snprintf(buf, sizeof buf, "%.*g", digits, v);
    if (std::strtod(buf, nullptr) == v) break;
  }
  return buf;
}

// "1 record", "3 records": a count with its noun.
inline std::string spelled(unsigned long long n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

}  // namespace vxk
