#include "geom/ap2d.h"

#include "geom/owned_list.h"

void Tvx_ap2d::delete_obj(Tvx_ap2d** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_ap2d::set_size(int n) {
  vx::geom::resize_owned(objects, n);
}

void Tvx_ap2d::assign(const Tvx_ap2d* other) {
  if (other == this) return;
  clear();
  for (int i = 0; i < other->get_size(); ++i) add_copy(other->get(i));
  vector_type = other->vector_type;
  attached = other->attached;
}

Tvx_op2d* Tvx_ap2d::add() {
  objects.push_back(std::make_unique<Tvx_op2d>());
  return objects.back().get();
}

Tvx_op2d* Tvx_ap2d::ins(int i) {
  return objects.insert(objects.begin() + i, std::make_unique<Tvx_op2d>())->get();
}

void Tvx_ap2d::del(int i) {
  objects.erase(objects.begin() + i);
}

Tvx_op2d* Tvx_ap2d::add_copy(const Tvx_op2d* op) {
  auto copy = std::make_unique<Tvx_op2d>();
  copy->assign(op);
  objects.push_back(std::move(copy));
  return objects.back().get();
}

Tvx_rect2d Tvx_ap2d::get_rect() {
  Tvx_rect2d r = vx_rect2d();
  for (auto& object : objects) r = vx_rect2d_unite(r, object->get_rect());
  return r;
}
