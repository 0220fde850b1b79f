// A static index of rectangles by their lower left corners, for the question "which rectangles may lie
// within this one": a rectangle can only lie within a box if its lower left corner does. The polygon
// division asks it once for each ring, so that rings far apart are never compared.
#pragma once

#include <cstdint>
#include <vector>

#include "geom/rect2d.h"

namespace vx::geom {

class corner_index {
 public:
  // Indexes the corners of the defined rectangles whose corners are numbers; the others are never
  // found. Building sorts, in n log n.
  explicit corner_index(const std::vector<Tvx_rect2d>& rects);

  // Calls visit(i) for every indexed rectangle i whose lower left corner lies in box, edges included,
  // in no particular order.
  template <class F>
  void corners_in(const Tvx_rect2d& box, F&& visit) const {
    if (box.defined && !order.empty()) search(0, order.size(), 0, box, visit);
  }

 private:
  struct corner {
    double x;
    double y;
    std::uint32_t id;
  };

  void build(std::size_t lo, std::size_t hi, int axis);

  // A k-d tree laid out in the array: the median of [lo, hi) splits it, by x at even depths and by y at
  // odd ones; the lower half holds no coordinate above the median's, the upper none below it.
  template <class F>
  void search(std::size_t lo, std::size_t hi, int axis, const Tvx_rect2d& box, F& visit) const {
    while (hi - lo > LEAF) {
      const std::size_t mid = lo + (hi - lo) / 2;
      const corner& c = order[mid];
      if (c.x >= box.xmin && c.x <= box.xmax && c.y >= box.ymin && c.y <= box.ymax) visit(c.id);
      const double split = axis == 0 ? c.x : c.y;
      const double low = axis == 0 ? box.xmin : box.ymin;
      const double high = axis == 0 ? box.xmax : box.ymax;
      if (low <= split) search(lo, mid, 1 - axis, box, visit);
      if (high < split) return;
      lo = mid + 1;
      axis = 1 - axis;
    }
    for (std::size_t i = lo; i < hi; ++i) {
      const corner& c = order[i];
      if (c.x >= box.xmin && c.x <= box.xmax && c.y >= box.ymin && c.y <= box.ymax) visit(c.id);
    }
  }

  static constexpr std::size_t LEAF = 8;
  std::vector<corner> order;
};

}  // namespace vx::geom
