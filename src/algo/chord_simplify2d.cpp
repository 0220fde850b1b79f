#include "algo/chord_simplify2d.h"

#include <cmath>

#include "geom/op2d.h"
#include "geom/owned_list.h"
#include "geom/pp2d.h"

namespace {

// Below this squared length a chord has no direction.
constexpr double kShortChord2 = 1e-06;

double squared_distance(const Tvx_point2d& a, const Tvx_point2d& b) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  return dx * dx + dy * dy;
}

}  // namespace

void Tvx_chord_simplify2d::delete_obj(Tvx_chord_simplify2d** p) {
  vx::geom::delete_and_null(p);
}

bool Tvx_chord_simplify2d::find_max_dist(unsigned first, unsigned last, unsigned& index) const {
  if (!line || !(first + 1 < last)) return false;
  const Tvx_point2d a = line->get(static_cast<int>(first));
  const Tvx_point2d b = line->get(static_cast<int>(last));
  const double abx = b.x - a.x, aby = b.y - a.y;
  const double l2 = abx * abx + aby * aby;
  const bool short_chord = l2 < kShortChord2;
  bool found = false;
  double best = squared_tolerance;
  for (unsigned i = first + 1; i < last; ++i) {
    const Tvx_point2d p = line->get(static_cast<int>(i));
    double d;
    if (short_chord) {
      d = std::fmin(squared_distance(p, a), squared_distance(p, b));
    } else {
      const double t = ((p.x - a.x) * abx + (p.y - a.y) * aby) / l2;
      d = squared_distance(p, vx_point2d(a.x + t * abx, a.y + t * aby));
    }
    if (d > best) {
      best = d;
      index = i;
      found = true;
    }
  }
  return found;
}

void Tvx_chord_simplify2d::main_cycle() {
  kept.clear();
  starts.clear();
  ends.clear();
  if (!line) return;
  const unsigned n = static_cast<unsigned>(line->get_size());
  if (n == 0) return;
  kept.add(0);
  if (n == 1) return;
  kept.add(n - 1);
  starts.add(0);
  ends.add(n - 1);
  for (unsigned q = 0; q < starts.get_size(); ++q) {
    const unsigned s = starts.get(q), e = ends.get(q);
    unsigned k = 0;
    if (!find_max_dist(s, e, k)) continue;
    kept.add(k);
    starts.add(s);
    ends.add(k);
    starts.add(k);
    ends.add(e);
  }
}

bool Tvx_chord_simplify2d::make_new_pp() {
  if (!line) return false;
  kept.sort();
  bool changed = false;
  for (unsigned i = 0; i < kept.get_size(); ++i) {
    const unsigned from = kept.get(i);
    if (from == i) continue;
    line->set(static_cast<int>(i), line->get(static_cast<int>(from)));
    changed = true;
  }
  line->set_size(static_cast<int>(kept.get_size()));
  return changed;
}

bool Tvx_chord_simplify2d::simplify(Tvx_pp2d* target, double tol) {
  if (!target || std::isnan(tol)) return false;
  line = target;
  tolerance = tol;
  squared_tolerance = tol * tol;
  main_cycle();
  return make_new_pp();
}

bool Tvx_chord_simplify2d::simplify(Tvx_op2d* object, double tol) {
  if (!object) return false;
  for (int i = 0; i < object->get_size(); ++i) simplify(object->get(i), tol);
  return false;
}

bool Tvx_chord_simplify2d::execute(Tvx_pp2d* line, double tolerance) {
  try {
    Tvx_chord_simplify2d worker;
    return worker.simplify(line, tolerance);
  } catch (...) {
    return false;
  }
}

bool Tvx_chord_simplify2d::execute(Tvx_op2d* object, double tolerance) {
  try {
    Tvx_chord_simplify2d worker;
    worker.simplify(object, tolerance);
  } catch (...) {
  }
  return false;
}
