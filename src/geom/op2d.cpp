#include "geom/op2d.h"

#include <limits>
#include <utility>

#include "geom/ap2d.h"
#include "geom/centroid2d.h"
#include "geom/dist2d.h"
#include "geom/owned_list.h"
#include "geom/pgn_divide.h"

void Tvx_op2d::delete_obj(Tvx_op2d** p) {
  vx::geom::delete_and_null(p);
}

void Tvx_op2d::set_size(int n) {
  vx::geom::resize_owned(parts, n);
}

void Tvx_op2d::assign(const Tvx_op2d* other) {
  if (other == this) return;
  clear();
  add_copy(other);
  vector_type = other->vector_type;
  attached = other->attached;
}

Tvx_pp2d* Tvx_op2d::add() {
  parts.push_back(std::make_unique<Tvx_pp2d>());
  return parts.back().get();
}

Tvx_pp2d* Tvx_op2d::ins(int i) {
  return parts.insert(parts.begin() + i, std::make_unique<Tvx_pp2d>())->get();
}

void Tvx_op2d::del(int i) {
  parts.erase(parts.begin() + i);
}

// One pass from both ends: an empty part changes places with the last part that has vertices, and is
// freed. The order of the parts may change.
void Tvx_op2d::del_empty() {
  std::size_t end = parts.size();
  const auto trim = [&] {
    while (end > 0 && parts[end - 1]->get_size() == 0) --end;
  };
  trim();
  for (std::size_t i = 0; i < end; ++i) {
    if (parts[i]->get_size() != 0) continue;
    std::swap(parts[i], parts[end - 1]);
    --end;
    trim();
  }
  parts.resize(end);
}

Tvx_pp2d* Tvx_op2d::add_copy(const Tvx_pp2d* pp) {
  Tvx_pp2d* part = add();
  part->assign(pp);
  return part;
}

void Tvx_op2d::add_copy(const Tvx_op2d* op) {
  const int n = op->get_size();  // fixed first: op may be this object
  for (int i = 0; i < n; ++i) add_copy(op->get(i));
}

void Tvx_op2d::add_copy(const Tvx_ap2d* ap) {
  for (int i = 0; i < ap->get_size(); ++i) add_copy(ap->get(i));
}

Tvx_rect2d Tvx_op2d::get_rect() {
  Tvx_rect2d r = vx_rect2d();
  for (auto& part : parts) r = vx_rect2d_unite(r, part->get_rect());
  return r;
}

Tvx_rect2d_ext Tvx_op2d::get_rect_ext() {
  Tvx_rect2d_ext r = vx_rect2d_ext();
  for (auto& part : parts) r = vx_rect2d_ext_unite(r, part->get_rect_and_stat());
  return r;
}

int Tvx_op2d::get_pnt_count() const {
  int n = 0;
  for (const auto& part : parts) n += part->get_size();
  return n;
}

bool Tvx_op2d::is_closed() const {
  if (parts.empty()) return false;
  for (const auto& part : parts)
    if (!part->is_closed()) return false;
  return true;
}

bool Tvx_op2d::close() {
  if (parts.empty()) return false;
  for (auto& part : parts)
    if (!part->close()) return false;
  return true;
}

bool Tvx_op2d::include(double x, double y) {
  if (!vx_rect2d_include(get_rect(), x, y)) return false;
  int hits = 0;
  for (const auto& part : parts)
    if (part->include(x, y)) ++hits;
  return hits % 2 == 1;
}

double Tvx_op2d::calc_area() {
  double sum = 0.0;
  for (auto& part : parts) sum += part->calc_signed_area();
  return sum;
}

double Tvx_op2d::get_x_mean() {
  const Tvx_rect2d_ext r = get_rect_ext();
  return r.count ? r.sum_x / r.count : std::numeric_limits<double>::quiet_NaN();
}

double Tvx_op2d::get_y_mean() {
  const Tvx_rect2d_ext r = get_rect_ext();
  return r.count ? r.sum_y / r.count : std::numeric_limits<double>::quiet_NaN();
}

bool Tvx_op2d::orient() {
  Tvx_ap2d divided;
  if (Tvx_op2d_pgn_divide::execute(this, &divided) != 0) return false;
  parts.clear();
  add_copy(&divided);
  return true;
}

namespace {

Tvx_point2d rect_middle(const Tvx_rect2d& r) {
  return vx_point2d_middle(vx_point2d(r.xmin, r.ymin), vx_point2d(r.xmax, r.ymax));
}

}  // namespace

bool Tvx_op2d::calc_pnt_refpnt(Tvx_point2d* p) {
  const Tvx_rect2d r = get_rect();
  if (!r.defined) return false;
  Tvx_dist2d nearest;
  *p = nearest.calc_vertex(this, rect_middle(r)) ? nearest.get_point() : rect_middle(r);
  return true;
}

bool Tvx_op2d::calc_pln_refpnt(Tvx_point2d* p) {
  const Tvx_rect2d r = get_rect();
  if (!r.defined) return false;
  Tvx_dist2d nearest;
  *p = nearest.calc(this, rect_middle(r)) ? nearest.get_point() : rect_middle(r);
  return true;
}

bool Tvx_op2d::calc_pgn_refpnt(Tvx_point2d* p) {
  if (Tvx_multipart_centroid2d::execute(this, p)) return true;
  const Tvx_rect2d r = get_rect();
  if (!r.defined) return false;
  *p = rect_middle(r);
  return true;
}
