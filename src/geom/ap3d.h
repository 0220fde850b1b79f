// The spatial object array: a list of owned spatial objects.
#pragma once

#include <memory>
#include <vector>

#include "geom/op3d.h"

class Tvx_ap3d {
 public:
  Tvx_ap3d() = default;
  Tvx_ap3d(const Tvx_ap3d&) = delete;
  Tvx_ap3d& operator=(const Tvx_ap3d&) = delete;
  virtual ~Tvx_ap3d() = default;

  static void delete_obj(Tvx_ap3d** p);

  // Objects; indices are not checked. An object stays owned by the array.
  int get_size() const { return static_cast<int>(objects.size()); }
  Tvx_op3d* get(int i) const { return objects[i].get(); }
  // Shrinking frees the surplus objects, growing appends empty ones.
  void set_size(int n);
  void clear() { objects.clear(); }
  void assign(const Tvx_ap3d* other);
  Tvx_rect3d get_rect();
  Tvx_op3d* add();
  // A new object holding a copy of pp as its only part.
  Tvx_op3d* add_copy(const Tvx_pp3d* pp);
  Tvx_op3d* add_copy(const Tvx_op3d* op);
  void delete_double_pnt();

 private:
  std::vector<std::unique_ptr<Tvx_op3d>> objects;
};
