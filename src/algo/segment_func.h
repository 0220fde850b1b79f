// A function of one real variable given by samples: a table of (x, value) sorted by x (exact
// comparison, NaN as in num_order.h), each value marked defined or undefined, read with linear
// interpolation between defined neighbours. An undefined sample is a gap: the function has no value on
// the stretches next to it, and nothing is extrapolated beyond the first and last samples.
#pragma once

#include <map>
#include <memory>

#include "algo/num_order.h"

struct Tvx_segment_func_val {
  double value;
  bool defined;
};

Tvx_segment_func_val vx_segment_func_val(double value, bool defined);

// An x with an index, ordered by x first, then by the index.
struct Tvx_x_idx {
  double x;
  unsigned idx;

  bool operator<(const Tvx_x_idx& o) const;
};

Tvx_x_idx vx_x_idx(double x, unsigned idx);

class Tvx_segment_func_impl {
 public:
  Tvx_segment_func_impl() = default;
  Tvx_segment_func_impl(const Tvx_segment_func_impl&) = delete;  // the cursor points into this table
  Tvx_segment_func_impl& operator=(const Tvx_segment_func_impl&) = delete;
  virtual ~Tvx_segment_func_impl() = default;

  void clear();
  // True when a sample was inserted; an x already there keeps its old sample.
  bool add(double x, double value, bool defined);
  // True when a sample stood at exactly x, which then gets the value and flag; adds nothing.
  bool set(double x, double value, bool defined);
  void set_add(double x, double value, bool defined);
  // A sample at exactly x gives its value and flag, whatever the flag says. Otherwise the value is
  // interpolated between the samples on both sides if both are defined; if not, or if x lies outside
  // the table, `defined` is false and `value` is left as it was.
  void get(double x, double& value, bool& defined) const;

  // The walk. get_first_pnt and get_last_pnt move the cursor to the first or last sample, get_find_pnt
  // to the sample at exactly x (to the end when there is none); all three are false on finding none.
  // get_next_pnt moves on and is false past the end (and stays false there); get_prev_pnt moves back
  // and is false at the first sample, where the cursor stays. From the end, get_prev_pnt gives the last
  // sample.
  bool get_first_pnt(double& x, double& value, bool& defined);
  bool get_last_pnt(double& x, double& value, bool& defined);
  bool get_find_pnt(double x, double& value, bool& defined);
  bool get_next_pnt(double& x, double& value, bool& defined);
  bool get_prev_pnt(double& x, double& value, bool& defined);

 private:
  using table = std::map<double, Tvx_segment_func_val, vx::algo::num_less_op<double>>;
  bool give(double& x, double& value, bool& defined) const;

  table samples;
  table::const_iterator cursor = samples.end();
};

class Tvx_segment_func {
 public:
  Tvx_segment_func() : impl(new Tvx_segment_func_impl) {}
  Tvx_segment_func(Tvx_segment_func&&) = default;
  Tvx_segment_func& operator=(Tvx_segment_func&&) = default;
  virtual ~Tvx_segment_func() = default;

  void clear() { impl->clear(); }
  bool add(double x, double value, bool defined) { return impl->add(x, value, defined); }
  bool set(double x, double value, bool defined) { return impl->set(x, value, defined); }
  void set_add(double x, double value, bool defined) { impl->set_add(x, value, defined); }
  void get(double x, double& value, bool& defined) const { impl->get(x, value, defined); }
  bool get_first_pnt(double& x, double& value, bool& defined) {
    return impl->get_first_pnt(x, value, defined);
  }
  bool get_last_pnt(double& x, double& value, bool& defined) { return impl->get_last_pnt(x, value, defined); }
  bool get_find_pnt(double x, double& value, bool& defined) { return impl->get_find_pnt(x, value, defined); }
  bool get_next_pnt(double& x, double& value, bool& defined) { return impl->get_next_pnt(x, value, defined); }
  bool get_prev_pnt(double& x, double& value, bool& defined) { return impl->get_prev_pnt(x, value, defined); }

 private:
  std::unique_ptr<Tvx_segment_func_impl> impl;
};
