// Helpers for the geometry containers, which own what they hold.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace vx::geom {

// Deletes *p and sets it to null; does nothing for a null p or *p. The body of every delete_obj.
template <class T>
void delete_and_null(T** p) {
  if (!p) return;
  delete *p;
  *p = nullptr;
}

// Resizes to n (a negative n counts as 0): surplus items are freed, new slots get new empty items.
template <class T>
void resize_owned(std::vector<std::unique_ptr<T>>& items, int n) {
  items.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
  for (auto& item : items)
    if (!item) item = std::make_unique<T>();
}

}  // namespace vx::geom
