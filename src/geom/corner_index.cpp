#include "geom/corner_index.h"

#include <algorithm>
#include <cmath>

namespace vx::geom {

corner_index::corner_index(const std::vector<Tvx_rect2d>& rects) {
  order.reserve(rects.size());
  for (std::size_t i = 0; i < rects.size(); ++i) {
    const Tvx_rect2d& r = rects[i];
    if (r.defined && !std::isnan(r.xmin) && !std::isnan(r.ymin))
      order.push_back(corner{r.xmin, r.ymin, static_cast<std::uint32_t>(i)});
  }
  build(0, order.size(), 0);
}

void corner_index::build(std::size_t lo, std::size_t hi, int axis) {
  while (hi - lo > LEAF) {
    const std::size_t mid = lo + (hi - lo) / 2;
    const auto by_axis = [axis](const corner& a, const corner& b) {
      return axis == 0 ? a.x < b.x : a.y < b.y;
    };
    std::nth_element(order.begin() + lo, order.begin() + mid, order.begin() + hi, by_axis);
    build(lo, mid, 1 - axis);
    lo = mid + 1;
    axis = 1 - axis;
  }
}

}  // namespace vx::geom
