#include "algo/geom2d_seg_func.h"

#include <algorithm>
#include <vector>

#include "algo/segment_func.h"
#include "geom/op2d.h"
#include "geom/pp2d.h"

namespace {

// Calls visit(x, value, defined) for each sample in order.
template <class Visit>
void for_each_sample(Tvx_segment_func* func, Visit visit) {
  double x = 0.0, value = 0.0;
  bool defined = false;
  for (bool more = func->get_first_pnt(x, value, defined); more; more = func->get_next_pnt(x, value, defined))
    visit(x, value, defined);
}

}  // namespace

void Tvx_geom2d_seg_func::func2pp(Tvx_segment_func* func, Tvx_pp2d* pp) {
  pp->clear();
  for_each_sample(func, [pp](double x, double value, bool defined) {
    if (defined) pp->add(x, value);
  });
}

void Tvx_geom2d_seg_func::func2op(Tvx_segment_func* func, Tvx_op2d* op) {
  op->clear();
  Tvx_pp2d* part = nullptr;
  for_each_sample(func, [op, &part](double x, double value, bool defined) {
    if (!defined) {
      part = nullptr;
      return;
    }
    if (!part) part = op->add();
    part->add(x, value);
  });
}

void Tvx_geom2d_seg_func::pp2func(const Tvx_pp2d* pp, Tvx_segment_func* func) {
  func->clear();
  for (int i = 0; i < pp->get_size(); ++i) func->set_add(pp->get(i).x, pp->get(i).y, true);
}

void Tvx_geom2d_seg_func::op2func(const Tvx_op2d* op, Tvx_segment_func* func, bool gaps) {
  func->clear();
  std::vector<Tvx_x_idx> order;
  for (int i = 0; i < op->get_size(); ++i)
    if (op->get(i)->get_size() > 0) order.push_back(vx_x_idx(op->get(i)->get_first().x, i));
  std::sort(order.begin(), order.end());

  bool earlier = false;
  Tvx_point2d before = vx_point2d();  // the last vertex of the part before
  for (const Tvx_x_idx& entry : order) {
    const Tvx_pp2d* part = op->get(static_cast<int>(entry.idx));
    for (int i = 0; i < part->get_size(); ++i) {
      const Tvx_point2d p = part->get(i);
      if (gaps && earlier && p.x != before.x)
        func->set_add((before.x + p.x) * 0.5, (before.y + p.y) * 0.5, false);
      func->set_add(p.x, p.y, true);
    }
    before = part->get_last();
    earlier = true;
  }
}
