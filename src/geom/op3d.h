// The spatial object: the parts of one record with z (a polyline or polygon), as owned point vectors.
// Unlike the plane object it has no type code and no caller's pointer.
#pragma once

#include <memory>
#include <vector>

#include "geom/pp3d.h"

class Tvx_op3d {
 public:
  Tvx_op3d() = default;
  Tvx_op3d(const Tvx_op3d&) = delete;
  Tvx_op3d& operator=(const Tvx_op3d&) = delete;

  static void delete_obj(Tvx_op3d** p);

  // Parts; indices are not checked. A part stays owned by the object.
  int get_size() const { return static_cast<int>(parts.size()); }
  Tvx_pp3d* get(int i) const { return parts[i].get(); }
  // Shrinking frees the surplus parts, growing appends empty ones.
  void set_size(int n);
  void clear() { parts.clear(); }
  void assign(const Tvx_op3d* other);
  Tvx_rect3d get_rect();
  Tvx_pp3d* add();
  Tvx_pp3d* add_copy(const Tvx_pp3d* pp);
  void add_copy(const Tvx_op3d* op);
  bool is_closed() const;
  bool close();
  void delete_double_pnt();

 private:
  std::vector<std::unique_ptr<Tvx_pp3d>> parts;
};
