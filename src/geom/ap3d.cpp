#include "geom/ap3d.h"

#include "geom/owned_list.h"

void Tvx_ap3d::delete_obj(Tvx_ap3d** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_ap3d::set_size(int n) {
  vx::geom::resize_owned(objects, n);
}

void Tvx_ap3d::assign(const Tvx_ap3d* other) {
  if (other == this) return;
  clear();
  for (int i = 0; i < other->get_size(); ++i) add_copy(other->get(i));
}

Tvx_rect3d Tvx_ap3d::get_rect() {
  Tvx_rect3d r = vx_rect3d();
  for (auto& object : objects) r = vx_rect3d_unite(r, object->get_rect());
  return r;
}

Tvx_op3d* Tvx_ap3d::add() {
  objects.push_back(std::make_unique<Tvx_op3d>());
  return objects.back().get();
}

Tvx_op3d* Tvx_ap3d::add_copy(const Tvx_pp3d* pp) {
  Tvx_op3d* object = add();
  object->add_copy(pp);
  return object;
}

Tvx_op3d* Tvx_ap3d::add_copy(const Tvx_op3d* op) {
  auto copy = std::make_unique<Tvx_op3d>();
  copy->assign(op);
  objects.push_back(std::move(copy));
  return objects.back().get();
}

void Tvx_ap3d::delete_double_pnt() {
  for (auto& object : objects) object->delete_double_pnt();
}
