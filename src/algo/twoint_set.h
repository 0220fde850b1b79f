// A set of pairs of integers that numbers its members: it turns pairs into indices. Pairs are ordered
// by the first value, then the second. An unordered set stores a pair with the smaller value first, so
// that (3, 7) and (7, 3) are one member.
#pragma once

#include <cstdint>
#include <memory>

#include "algo/numbered_set.h"

struct Tvx_idx_twoint {
  int32_t number;
  int32_t a;
  int32_t b;
};

struct Tvx_idx_twoint_less {
  bool operator()(const Tvx_idx_twoint& x, const Tvx_idx_twoint& y) const {
    return x.a < y.a || (x.a == y.a && x.b < y.b);
  }
};

class Tvx_twoint_set_exec {
 public:
  explicit Tvx_twoint_set_exec(bool unordered) : unordered(unordered) {}
  virtual ~Tvx_twoint_set_exec() = default;

  void clear() { set.clear(); }
  unsigned get_size() const { return set.get_size(); }
  // See numbered_set.h: -1 for no such member; add can leave gaps in the numbers, find_add cannot.
  int find(int a, int b) { return set.find(make_twoint(a, b)); }
  int add(int a, int b) { return set.add(make_twoint(a, b)); }
  int find_add(int a, int b) { return set.find_add(make_twoint(a, b)); }
  int get_first(int* a, int* b);
  int get_next(int* a, int* b);
  // The entry of the pair, in the set's order of its values, numbered -1 until the set numbers it.
  Tvx_idx_twoint make_twoint(int a, int b) const;

 private:
  int walked(int number, const Tvx_idx_twoint& e, int* a, int* b) const;

  bool unordered;
  vx::algo::numbered_set<Tvx_idx_twoint, Tvx_idx_twoint_less> set;
};

class Tvx_twoint_set {
 public:
  explicit Tvx_twoint_set(bool unordered) : exec(new Tvx_twoint_set_exec(unordered)) {}
  virtual ~Tvx_twoint_set() = default;

  void clear() { exec->clear(); }
  unsigned get_size() const { return exec->get_size(); }
  int find(int a, int b) { return exec->find(a, b); }
  int add(int a, int b) { return exec->add(a, b); }
  int find_add(int a, int b) { return exec->find_add(a, b); }
  int get_first(int* a, int* b) { return exec->get_first(a, b); }
  int get_next(int* a, int* b) { return exec->get_next(a, b); }

 private:
  std::unique_ptr<Tvx_twoint_set_exec> exec;
};
