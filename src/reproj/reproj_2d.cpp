// Reprojection of whole geometry objects through one batch per object.
#include "reproj/reproj_2d.h"

#include "geom/multipatch3d.h"
#include "geom/op2d.h"
#include "geom/op3d.h"
#include "geom/point2d.h"
#include "geom/point3d.h"
#include "geom/pp2d.h"
#include "geom/pp3d.h"

namespace {

// Storing a transformed vertex back: a plane vertex is replaced whole, a spatial one keeps its z.
void store_xy(Tvx_pp2d& pp, int i, double x, double y) {
  pp.set(i, vx_point2d(x, y));
}
void store_xy(Tvx_pp3d& pp, int i, double x, double y) {
  pp.set_x(i, x);
  pp.set_y(i, y);
}

// The point vectors of one object, in order: `at(k)` gives the k-th of `count`.
template <class At>
struct part_list {
  int count;
  At at;
};
template <class At>
part_list<At> parts_of(int count, At at) {
  return {count, at};
}

}  // namespace

Tvx_reproj_2d::Tvx_reproj_2d() : f_buffer(std::make_unique<Tvx_xy_array>()) {}

Tvx_reproj_2d::~Tvx_reproj_2d() = default;

// The buffer's clear() frees the arrays but keeps its capacity and size, after which it must not be used
// again; a fresh buffer frees the same memory and leaves the object usable.
void Tvx_reproj_2d::clear_buffer() {
  f_buffer = std::make_unique<Tvx_xy_array>();
}

// Copies the vertices of all parts into the buffer at a running index, transforms the batch, and only
// when the whole batch succeeded copies the results back in the same order.
template <class Parts>
bool Tvx_reproj_2d::apply_parts(const Parts& parts) {
  unsigned total = 0;
  for (int k = 0; k < parts.count; ++k) total += static_cast<unsigned>(parts.at(k)->get_size());
  f_buffer->set_size(total);
  unsigned at = 0;
  for (int k = 0; k < parts.count; ++k) {
    const auto* pp = parts.at(k);
    for (int i = 0; i < pp->get_size(); ++i, ++at) f_buffer->set_xy(at, pp->get(i).x, pp->get(i).y);
  }
  if (!apply_array(f_buffer.get())) return false;
  at = 0;
  for (int k = 0; k < parts.count && total > 0; ++k) {
    auto* pp = parts.at(k);
    for (int i = 0; i < pp->get_size(); ++i, ++at) store_xy(*pp, i, f_buffer->get_x(at), f_buffer->get_y(at));
  }
  return true;
}

// A point is a batch of one; a spatial point keeps its z.
template <class Point>
bool Tvx_reproj_2d::apply_point(Point* p) {
  f_buffer->set_size(1);
  f_buffer->set_xy(0, p->x, p->y);
  if (!apply_array(f_buffer.get())) return false;
  p->x = f_buffer->get_x(0);
  p->y = f_buffer->get_y(0);
  return true;
}

bool Tvx_reproj_2d::apply_pnt(Tvx_point2d* p) {
  return apply_point(p);
}

bool Tvx_reproj_2d::apply_pnt(Tvx_point3d* p) {
  return apply_point(p);
}

bool Tvx_reproj_2d::apply_pp(Tvx_pp2d* pp) {
  return apply_parts(parts_of(1, [pp](int) { return pp; }));
}

bool Tvx_reproj_2d::apply_pp(Tvx_pp3d* pp) {
  return apply_parts(parts_of(1, [pp](int) { return pp; }));
}

bool Tvx_reproj_2d::apply_op(Tvx_op2d* op) {
  return apply_parts(parts_of(op->get_size(), [op](int k) { return op->get(k); }));
}

bool Tvx_reproj_2d::apply_op(Tvx_op3d* op) {
  return apply_parts(parts_of(op->get_size(), [op](int k) { return op->get(k); }));
}

bool Tvx_reproj_2d::apply_mpatch(Tvx_multipatch3d* mp) {
  return apply_parts(parts_of(mp->get_size(), [mp](int k) { return mp->get(k)->get_pp_ptr(); }));
}
