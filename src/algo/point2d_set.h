// A set of plane points that numbers its members: it turns points into indices. Points are ordered by
// x, then y, both compared exactly (NaN as in num_order.h).
#pragma once

#include <cstdint>
#include <memory>

#include "algo/numbered_set.h"
#include "geom/point2d.h"

struct Tvx_idx_point2d {
  int32_t number;
  Tvx_point2d point;
};

struct Tvx_idx_point2d_less {
  bool operator()(const Tvx_idx_point2d& a, const Tvx_idx_point2d& b) const;
};

class Tvx_point2d_set_exec {
 public:
  virtual ~Tvx_point2d_set_exec() = default;

  void clear() { set.clear(); }
  unsigned get_size() const { return set.get_size(); }
  // See numbered_set.h: -1 for no such member; add can leave gaps in the numbers, find_add cannot.
  int find(const Tvx_point2d& p) { return set.find(entry(p)); }
  int add(const Tvx_point2d& p) { return set.add(entry(p)); }
  int find_add(const Tvx_point2d& p) { return set.find_add(entry(p)); }
  int get_first(Tvx_point2d* p);
  int get_next(Tvx_point2d* p);
  // The number of the member nearest to p, its point in out; -1 with out zero on an empty set. Of equal
  // distances the first met wins, sweeping from the first member not below p towards the end, then
  // from that member (the last one if there is none) towards the start; a sweep stops at a member
  // whose x differs from p's by more than the best distance so far. A member at a NaN distance counts
  // as farther than any other.
  int find_nearest(const Tvx_point2d& p, Tvx_point2d& out) const;

 private:
  static Tvx_idx_point2d entry(const Tvx_point2d& p) { return Tvx_idx_point2d{-1, p}; }
  int walked(int number, const Tvx_idx_point2d& e, Tvx_point2d* p) const;

  vx::algo::numbered_set<Tvx_idx_point2d, Tvx_idx_point2d_less> set;
};

class Tvx_point2d_set {
 public:
  Tvx_point2d_set() : exec(new Tvx_point2d_set_exec) {}
  virtual ~Tvx_point2d_set() = default;

  void clear() { exec->clear(); }
  unsigned get_size() const { return exec->get_size(); }
  int find(const Tvx_point2d& p) { return exec->find(p); }
  int add(const Tvx_point2d& p) { return exec->add(p); }
  int find_add(const Tvx_point2d& p) { return exec->find_add(p); }
  int get_first(Tvx_point2d* p) { return exec->get_first(p); }
  int get_next(Tvx_point2d* p) { return exec->get_next(p); }
  int find_nearest(const Tvx_point2d& p, Tvx_point2d& out) const { return exec->find_nearest(p, out); }

 private:
  std::unique_ptr<Tvx_point2d_set_exec> exec;
};
