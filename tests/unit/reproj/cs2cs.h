// Runs PROJ's own command-line transformer, cs2cs, on one point, as an independent check of our path.
#pragma once

#include <array>
#include <cstdio>
#include <sstream>
#include <string>

namespace vxk_test {

struct cs2cs_result {
  bool ok = false;
  double x = 0;
  double y = 0;
};

// Transforms (x, y) from src to dst, both PROJ strings whose parameters are separated by blanks.
inline cs2cs_result run_cs2cs(const std::string& src, const std::string& dst, double x, double y) {
  std::ostringstream cmd;
  cmd.precision(17);
  cmd << "echo '" << x << " " << y << "' | cs2cs -f %.12f " << src << " +to " << dst << " 2>/dev/null";
  cs2cs_result r;
  FILE* pipe = popen(cmd.str().c_str(), "r");
  if (!pipe) return r;
  std::array<char, 512> line{};
  std::string out;
  while (fgets(line.data(), static_cast<int>(line.size()), pipe)) out += line.data();
  r.ok = pclose(pipe) == 0 && std::sscanf(out.c_str(), "%lf %lf", &r.x, &r.y) == 2;
  return r;
}

}  // namespace vxk_test
