// The samples of a segment function, walked from the first to the last, for comparing in tests.
#pragma once

#include <tuple>
#include <vector>

#include "algo/segment_func.h"

namespace vxk_test {

using sample = std::tuple<double, double, bool>;  // x, value, defined

inline std::vector<sample> samples_of(Tvx_segment_func& f) {
  std::vector<sample> out;
  double x = 0, v = 0;
  bool d = false;
  for (bool more = f.get_first_pnt(x, v, d); more; more = f.get_next_pnt(x, v, d)) out.emplace_back(x, v, d);
  return out;
}

}  // namespace vxk_test
