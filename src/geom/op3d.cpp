#include "geom/op3d.h"

#include "geom/owned_list.h"

void Tvx_op3d::delete_obj(Tvx_op3d** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_op3d::set_size(int n) {
  vx::geom::resize_owned(parts, n);
}

void Tvx_op3d::assign(const Tvx_op3d* other) {
  if (other == this) return;
  clear();
  add_copy(other);
}

Tvx_rect3d Tvx_op3d::get_rect() {
  Tvx_rect3d r = vx_rect3d();
  for (auto& part : parts) r = vx_rect3d_unite(r, part->get_rect());
  return r;
}

Tvx_pp3d* Tvx_op3d::add() {
  parts.push_back(std::make_unique<Tvx_pp3d>());
  return parts.back().get();
}

Tvx_pp3d* Tvx_op3d::add_copy(const Tvx_pp3d* pp) {
  Tvx_pp3d* part = add();
  part->assign(pp);
  return part;
}

void Tvx_op3d::add_copy(const Tvx_op3d* op) {
  const int n = op->get_size();  // fixed first: op may be this object
  for (int i = 0; i < n; ++i) add_copy(op->get(i));
}

bool Tvx_op3d::is_closed() const {
  if (parts.empty()) return false;
  for (const auto& part : parts)
    if (!part->is_closed()) return false;
  return true;
}

bool Tvx_op3d::close() {
  if (parts.empty()) return false;
  for (auto& part : parts)
    if (!part->close()) return false;
  return true;
}

void Tvx_op3d::delete_double_pnt() {
  for (auto& part : parts) part->delete_double();
}
