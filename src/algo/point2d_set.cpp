#include "algo/point2d_set.h"

#include <cmath>
#include <iterator>

#include "algo/num_order.h"

bool Tvx_idx_point2d_less::operator()(const Tvx_idx_point2d& a, const Tvx_idx_point2d& b) const {
  using vx::algo::num_less;
  if (num_less(a.point.x, b.point.x)) return true;
  if (num_less(b.point.x, a.point.x)) return false;
  return num_less(a.point.y, b.point.y);
}

int Tvx_point2d_set_exec::walked(int number, const Tvx_idx_point2d& e, Tvx_point2d* p) const {
  if (number >= 0 && p) *p = e.point;
  return number;
}

int Tvx_point2d_set_exec::get_first(Tvx_point2d* p) {
  Tvx_idx_point2d e{};
  return walked(set.get_first(e), e, p);
}

int Tvx_point2d_set_exec::get_next(Tvx_point2d* p) {
  Tvx_idx_point2d e{};
  return walked(set.get_next(e), e, p);
}

namespace {

// The nearest member met so far.
struct nearest {
  const Tvx_point2d& p;
  int number = -1;
  double distance = 0.0;
  Tvx_point2d point = vx_point2d();

  // False when the sweep is to stop at this member.
  bool visit(const Tvx_idx_point2d& e) {
    if (number >= 0 && std::fabs(e.point.x - p.x) > distance) return false;
    const double d = vx_distance(e.point, p);
    if (number < 0 || d < distance || (std::isnan(distance) && !std::isnan(d))) {
      number = e.number;
      distance = d;
      point = e.point;
    }
    return true;
  }
};

}  // namespace

int Tvx_point2d_set_exec::find_nearest(const Tvx_point2d& p, Tvx_point2d& out) const {
  out = vx_point2d();
  const auto& items = set.entries();
  if (items.empty()) return -1;
  auto start = items.lower_bound(entry(p));
  if (start == items.end()) start = std::prev(start);
  nearest best{p};
  for (auto it = start; it != items.end() && best.visit(*it); ++it) {
  }
  for (auto it = std::make_reverse_iterator(std::next(start)); it != items.rend() && best.visit(*it); ++it) {
  }
  out = best.point;
  return best.number;
}
