#include "geom/multipatch3d.h"

#include "geom/owned_list.h"

void Tvx_patch3d::delete_obj(Tvx_patch3d** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_patch3d::assign(const Tvx_patch3d* other) {
  type = other->type;
  pp->assign(other->pp.get());
}

void Tvx_multipatch3d::delete_obj(Tvx_multipatch3d** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_multipatch3d::set_size(int n) {
  vx::geom::resize_owned(patches, n);
}

void Tvx_multipatch3d::assign(const Tvx_multipatch3d* other) {
  if (other == this) return;
  set_size(other->get_size());
  for (int i = 0; i < get_size(); ++i) patches[i]->assign(other->get(i));
}

Tvx_rect3d Tvx_multipatch3d::get_rect() {
  Tvx_rect3d r = vx_rect3d();
  for (auto& patch : patches) r = vx_rect3d_unite(r, patch->get_rect());
  return r;
}

Tvx_patch3d* Tvx_multipatch3d::add() {
  patches.push_back(std::make_unique<Tvx_patch3d>());
  return patches.back().get();
}

Tvx_patch3d* Tvx_multipatch3d::add_copy(const Tvx_patch3d* patch) {
  Tvx_patch3d* copy = add();
  copy->assign(patch);
  return copy;
}

void Tvx_multipatch3d::add_copy(const Tvx_multipatch3d* mp) {
  const int n = mp->get_size();  // fixed first: mp may be this multipatch
  for (int i = 0; i < n; ++i) add_copy(mp->get(i));
}

void Tvx_multipatch3d_vec::delete_obj(Tvx_multipatch3d_vec** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_multipatch3d_vec::set_size(int n) {
  vx::geom::resize_owned(items, n);
}

void Tvx_multipatch3d_vec::assign(const Tvx_multipatch3d_vec* other) {
  if (other == this) return;
  set_size(other->get_size());
  for (int i = 0; i < get_size(); ++i) items[i]->assign(other->get(i));
}

Tvx_rect3d Tvx_multipatch3d_vec::get_rect() {
  Tvx_rect3d r = vx_rect3d();
  for (auto& item : items) r = vx_rect3d_unite(r, item->get_rect());
  return r;
}

Tvx_multipatch3d* Tvx_multipatch3d_vec::add() {
  items.push_back(std::make_unique<Tvx_multipatch3d>());
  return items.back().get();
}
