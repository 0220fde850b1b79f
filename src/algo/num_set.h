// Ordered sets and a map of numbers, with exact comparison (NaN as in num_order.h): Tvx_integer_set,
// Tvx_dbl_set and Tvx_dbl_int_map, the last a counter of values with a cursor to walk it.
#pragma once

#include <cstdint>
#include <map>
#include <set>

#include "algo/num_order.h"

namespace vx::algo {

template <class T>
class num_set {
 public:
  void clear() { items.clear(); }
  unsigned get_size() const { return static_cast<unsigned>(items.size()); }
  // True when the value was not there yet.
  bool add(T value) { return items.insert(value).second; }
  bool find(T value) const { return items.count(value) != 0; }

 protected:
  std::set<T, num_less_op<T>> items;
};

}  // namespace vx::algo

class Tvx_integer_set : public vx::algo::num_set<int32_t> {};

class Tvx_dbl_set : public vx::algo::num_set<double> {
 public:
  void assign(const Tvx_dbl_set* other) {
    if (other != this) items = other->items;
  }
};

class Tvx_dbl_int_map {
 public:
  Tvx_dbl_int_map() = default;
  Tvx_dbl_int_map(const Tvx_dbl_int_map&) = delete;  // the cursor points into this map
  Tvx_dbl_int_map& operator=(const Tvx_dbl_int_map&) = delete;

  void clear();
  unsigned get_size() const { return static_cast<unsigned>(items.size()); }
  // The walk in ascending order of the keys; false on an empty map and past the last entry.
  bool get_first(double& key, int& value);
  bool get_next(double& key, int& value);
  // Adds 1 to the entry of key; a new entry starts from 0 and so holds 1.
  void inc(double key) { ++items[key]; }
  void set(double key, int value) { items[key] = value; }
  bool find(double key, int& value) const;

 private:
  bool give(double& key, int& value) const;

  std::map<double, int32_t, vx::algo::num_less_op<double>> items;
  std::map<double, int32_t, vx::algo::num_less_op<double>>::const_iterator cursor = items.end();
};
