// Point vectors for tests: built from a list of vertices, and read back as one.
#pragma once

#include <initializer_list>
#include <vector>

#include "geom/pp2d.h"

namespace vxk_test {

inline Tvx_pp2d make_pp2d(std::initializer_list<Tvx_point2d> pts) {
  Tvx_pp2d pp;
  for (const Tvx_point2d& p : pts) pp.add(p.x, p.y);
  return pp;
}

inline std::vector<Tvx_point2d> vertices(const Tvx_pp2d& pp) {
  std::vector<Tvx_point2d> out;
  for (int i = 0; i < pp.get_size(); ++i) out.push_back(pp.get(i));
  return out;
}

}  // namespace vxk_test
