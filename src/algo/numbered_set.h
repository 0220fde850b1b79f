// An ordered set that gives each new member a running number, with a cursor to walk it: the engine of
// Tvx_point2d_set and Tvx_twoint_set. E is the stored entry, with a field `number` and a key ordered by
// Less; the number takes no part in the order.
//
// The cursor is shared by find, get_first and get_next, so that a find inside a walk moves the walk.
#pragma once

#include <set>

namespace vx::algo {

template <class E, class Less>
class numbered_set {
 public:
  numbered_set() = default;
  numbered_set(const numbered_set&) = delete;  // the cursor points into this set
  numbered_set& operator=(const numbered_set&) = delete;

  void clear() {
    items.clear();
    cursor = items.end();
    next_number = 0;
  }
  unsigned get_size() const { return static_cast<unsigned>(items.size()); }

  // The number of the entry with e's key, or -1; the cursor moves to it, or to the end.
  int find(const E& e) {
    cursor = items.find(e);
    return cursor == items.end() ? -1 : cursor->number;
  }
  // Inserts e with the next number and gives that number. The next number rises also when the key was
  // there already and the set keeps the old entry, so that an add without find can leave gaps.
  int add(E e) {
    e.number = next_number++;
    items.insert(e);
    return e.number;
  }
  int find_add(const E& e) {
    const int number = find(e);
    return number >= 0 ? number : add(e);
  }
  // The walk in the set's order: the entry goes to `out`, the result is its number, -1 at the end.
  int get_first(E& out) {
    cursor = items.begin();
    return give(out);
  }
  int get_next(E& out) {
    if (cursor == items.end()) return -1;
    ++cursor;
    return give(out);
  }

  const std::set<E, Less>& entries() const { return items; }

 private:
  int give(E& out) const {
    if (cursor == items.end()) return -1;
    out = *cursor;
    return cursor->number;
  }

  std::set<E, Less> items;
  typename std::set<E, Less>::const_iterator cursor = items.end();
  int next_number = 0;
};

}  // namespace vx::algo
