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

}  // namespace vxk
