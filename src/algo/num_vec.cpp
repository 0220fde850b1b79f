#include "algo/num_vec.h"

#include <new>

namespace vx::algo {

void check_elements(std::size_t count) {
  if (count > max_elements) throw std::bad_alloc();
}

}  // namespace vx::algo

void Tvx_uint_vec::add_vec(const Tvx_uint_vec* other) {
  const std::vector<uint32_t> src = other->items;  // a copy: other may be this vector
  items.insert(items.end(), src.begin(), src.end());
}

void Tvx_bit_vec::clear() {
  words.clear();
  size = 0;
}

void Tvx_bit_vec::assign(const Tvx_bit_vec* other) {
  if (other == this) return;
  words = other->words;
  size = other->size;
}

void Tvx_bit_vec::set_size(unsigned n) {
  vx::algo::check_elements(n);
  words.resize((static_cast<std::size_t>(n) + 31) / 32, 0u);
  if (n % 32 != 0) words.back() &= (1u << (n % 32)) - 1u;  // a shrink leaves no stale bit behind
  size = n;
}

void Tvx_bit_vec::set(unsigned i, bool value) {
  const uint32_t mask = 1u << (i % 32);
  if (value)
    words[i / 32] |= mask;
  else
    words[i / 32] &= ~mask;
}

void Tvx_bit_vec::add(bool value) {
  set_size(size + 1);
  set(size - 1, value);
}
