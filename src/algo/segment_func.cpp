#include "algo/segment_func.h"

#include <iterator>

Tvx_segment_func_val vx_segment_func_val(double value, bool defined) {
  return Tvx_segment_func_val{value, defined};
}

bool Tvx_x_idx::operator<(const Tvx_x_idx& o) const {
  if (vx::algo::num_less(x, o.x)) return true;
  if (vx::algo::num_less(o.x, x)) return false;
  return idx < o.idx;
}

Tvx_x_idx vx_x_idx(double x, unsigned idx) {
  return Tvx_x_idx{x, idx};
}

void Tvx_segment_func_impl::clear() {
  samples.clear();
  cursor = samples.end();
}

bool Tvx_segment_func_impl::add(double x, double value, bool defined) {
  return samples.emplace(x, vx_segment_func_val(value, defined)).second;
}

bool Tvx_segment_func_impl::set(double x, double value, bool defined) {
  const auto it = samples.find(x);
  if (it == samples.end()) return false;
  it->second = vx_segment_func_val(value, defined);
  return true;
}

void Tvx_segment_func_impl::set_add(double x, double value, bool defined) {
  samples[x] = vx_segment_func_val(value, defined);
}

void Tvx_segment_func_impl::get(double x, double& value, bool& defined) const {
  defined = false;
  if (samples.empty()) return;
  const auto at = samples.find(x);
  if (at != samples.end()) {
    value = at->second.value;
    defined = at->second.defined;
    return;
  }
  const auto upper = samples.upper_bound(x);
  if (upper == samples.end() || upper == samples.begin()) return;
  const auto lower = std::prev(upper);
  if (!lower->second.defined || !upper->second.defined) return;
  const double xa = lower->first, ya = lower->second.value;
  const double xb = upper->first, yb = upper->second.value;
  value = xb - xa > 0.0 ? ya + (yb - ya) * (x - xa) / (xb - xa) : ya;
  defined = true;
}

bool Tvx_segment_func_impl::give(double& x, double& value, bool& defined) const {
  if (cursor == samples.end()) return false;
  x = cursor->first;
  value = cursor->second.value;
  defined = cursor->second.defined;
  return true;
}

bool Tvx_segment_func_impl::get_first_pnt(double& x, double& value, bool& defined) {
  cursor = samples.begin();
  return give(x, value, defined);
}

bool Tvx_segment_func_impl::get_last_pnt(double& x, double& value, bool& defined) {
  cursor = samples.empty() ? samples.end() : std::prev(samples.end());
  return give(x, value, defined);
}

bool Tvx_segment_func_impl::get_find_pnt(double x, double& value, bool& defined) {
  cursor = samples.find(x);
  double found_x = 0.0;
  return give(found_x, value, defined);
}

bool Tvx_segment_func_impl::get_next_pnt(double& x, double& value, bool& defined) {
  if (cursor == samples.end()) return false;
  ++cursor;
  return give(x, value, defined);
}

bool Tvx_segment_func_impl::get_prev_pnt(double& x, double& value, bool& defined) {
  if (cursor == samples.begin()) return false;
  --cursor;
  return give(x, value, defined);
}
