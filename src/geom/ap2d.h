// The plane object array: a list of owned objects, with a caller's type code and a caller's pointer.
#pragma once

#include <memory>
#include <vector>

#include "geom/op2d.h"

class Tvx_ap2d {
 public:
  Tvx_ap2d() = default;
  Tvx_ap2d(const Tvx_ap2d&) = delete;
  Tvx_ap2d& operator=(const Tvx_ap2d&) = delete;

  static void delete_obj(Tvx_ap2d** p);

  // Objects; indices are not checked. An object stays owned by the array.
  int get_size() const { return static_cast<int>(objects.size()); }
  Tvx_op2d* get(int i) const { return objects[i].get(); }
  // Shrinking frees the surplus objects, growing appends empty ones.
  void set_size(int n);
  void clear() { objects.clear(); }
  // Deep copy of the objects, the type code and the caller's pointer.
  void assign(const Tvx_ap2d* other);
  Tvx_op2d* add();
  Tvx_op2d* ins(int i);
  void del(int i);
  Tvx_op2d* add_copy(const Tvx_op2d* op);

  unsigned int get_vector_type() const { return vector_type; }
  void set_vector_type(unsigned int n) { vector_type = n; }
  void* get_attached() const { return attached; }
  void set_attached(void* p) { attached = p; }

  Tvx_rect2d get_rect();

 private:
  std::vector<std::unique_ptr<Tvx_op2d>> objects;
  unsigned int vector_type = Tvx_op2d::NO_VECTOR_TYPE;
  void* attached = nullptr;
};
