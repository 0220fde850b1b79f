// Thin vectors of numbers under one pattern of names: Tvx_int_vec (32-bit signed), Tvx_uint_vec (32-bit
// unsigned), Tvx_flt_vec (float), Tvx_dbl_vec (double), and Tvx_bit_vec, bools packed 32 to a word.
//
// Indices are not checked: the caller keeps to get_size(). A size above vx::algo::max_elements is
// refused with std::bad_alloc, as an allocation that fails, so that an absurd count can neither exhaust
// the memory nor wrap round.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "algo/num_order.h"

namespace vx::algo {

// The most elements that one container of this module holds: 2^27, a gibibyte of doubles.
constexpr std::size_t max_elements = std::size_t(1) << 27;

// Throws std::bad_alloc when count is above max_elements.
void check_elements(std::size_t count);

template <class T>
class num_vec {
 public:
  num_vec() = default;
  num_vec(std::initializer_list<T> values) : items(values) {}

  void clear() { items.clear(); }
  void assign(const num_vec* other) {
    if (other != this) items = other->items;
  }
  unsigned get_size() const { return static_cast<unsigned>(items.size()); }
  // New elements are zero.
  void set_size(unsigned n) {
    check_elements(n);
    items.resize(n, T());
  }
  void set(unsigned i, T value) { items[i] = value; }
  T get(unsigned i) const { return items[i]; }
  void add(T value) { items.push_back(value); }

  // Ascending; NaN last.
  void sort() { std::sort(items.begin(), items.end(), num_less_op<T>()); }
  // Removes every element equal to the one kept before it: a sorted vector becomes unique. NaN equals
  // nothing, so every NaN stays.
  void delete_double() { items.erase(std::unique(items.begin(), items.end()), items.end()); }

  const T* data() const { return items.data(); }

 protected:
  std::vector<T> items;
};

}  // namespace vx::algo

class Tvx_int_vec : public vx::algo::num_vec<int32_t> {
 public:
  using num_vec::num_vec;
};
class Tvx_flt_vec : public vx::algo::num_vec<float> {
 public:
  using num_vec::num_vec;
};
class Tvx_dbl_vec : public vx::algo::num_vec<double> {
 public:
  using num_vec::num_vec;
};

class Tvx_uint_vec : public vx::algo::num_vec<uint32_t> {
 public:
  using num_vec::num_vec;

  // The same size and the same elements in the same order.
  bool equal(const Tvx_uint_vec* other) const { return items == other->items; }
  // Appends the elements of other (which may be this vector).
  void add_vec(const Tvx_uint_vec* other);
};

class Tvx_bit_vec {
 public:
  void clear();
  void assign(const Tvx_bit_vec* other);
  unsigned get_size() const { return size; }
  // New bits are false.
  void set_size(unsigned n);
  void set(unsigned i, bool value);
  bool get(unsigned i) const { return (words[i / 32] >> (i % 32)) & 1u; }
  void add(bool value);

 private:
  // Bit i lives in word i / 32 at bit i % 32. The bits past the size are kept false.
  std::vector<uint32_t> words;
  unsigned size = 0;
};
