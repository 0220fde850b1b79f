#include "stdlist/generate/22_stdlist_geom.h"

#include <cmath>
#include <cstdint>

#include "services/small_geometry.h"
#include "stdlist/traits.h"

namespace vx::stdlist {

namespace {

// The unit direction from a to b; false when there is none to speak of.
bool direction(Tvx_vtx_d2 a, Tvx_vtx_d2 b, double& ux, double& uy) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double len = std::hypot(dx, dy);
  if (traits::delta > len) return false;
  ux = dx / len;
  uy = dy / len;
  return true;
}

}  // namespace

bool Tvx_stdlist_geom::get_orth(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2& p1, Tvx_vtx_d2& p2, double d1,
                                double d2) {
  double ux = 0.0, uy = 0.0;
  if (!direction(a, b, ux, uy)) return false;
  p1 = Tvx_vtx_d2{b.x - uy * d1, b.y + ux * d1};
  p2 = Tvx_vtx_d2{b.x + uy * d2, b.y - ux * d2};
  return true;
}

bool Tvx_stdlist_geom::get_point_on_orth(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2 c, double d, Tvx_vtx_d2& p) {
  double ux = 0.0, uy = 0.0;
  if (!direction(a, b, ux, uy)) return false;
  p = Tvx_vtx_d2{c.x - uy * d, c.y + ux * d};
  return true;
}

void Tvx_stdlist_geom::cut_into3(const Tvx_pp2d* line, double length, Tvx_pp2d* first, Tvx_pp2d* middle,
                                 Tvx_pp2d* last) {
  vx_pv_d2_clear(first);
  vx_pv_d2_clear(middle);
  vx_pv_d2_clear(last);
  const double total = vx_pv_d2_get_length(line);
  const double l1 = total / 2 - length / 2;
  const double l2 = total / 2 + length / 2;
  Tvx_stdlist_geom_exec::cut_l12(line, 0.0, l1, first);
  Tvx_stdlist_geom_exec::cut_l12(line, l1, l2, middle);
  Tvx_stdlist_geom_exec::cut_l12(line, l2, 2 * total, last);
}

namespace {

// The point at the length l along the segment from p to q of the length d.
Tvx_vtx_d2 between(Tvx_vtx_d2 p, Tvx_vtx_d2 q, double l, double d) {
  return Tvx_vtx_d2{p.x + (q.x - p.x) * l / d, p.y + (q.y - p.y) * l / d};
}

}  // namespace

// Segments shorter than a micro-unit take part in the running length but are not cut. The first vertex
// comes in only as a cut point at the length 0.
void Tvx_stdlist_geom_exec::cut_l12(const Tvx_pp2d* line, double l1, double l2, Tvx_pp2d* out) {
  vx_pv_d2_clear(out);
  const std::uint32_t n = vx_pv_d2_get_size(line);
  if (n < 2) return;
  double s = 0.0;
  for (std::uint32_t i = 1; i < n; ++i) {
    const Tvx_vtx_d2 p = vx_pv_d2_get_vtx(line, i - 1);
    const Tvx_vtx_d2 q = vx_pv_d2_get_vtx(line, i);
    const double d = vx_distance_xy(p.x, p.y, q.x, q.y);
    if (d > 1e-06) {
      const double e = s + d;
      if (s <= l1 && l1 <= e) vx_pv_d2_add_vtx(out, between(p, q, l1 - s, d));
      if (s <= l2 && l2 <= e) vx_pv_d2_add_vtx(out, between(p, q, l2 - s, d));
      s = e;
    } else {
      s += d;
    }
    if (l1 <= s && s <= l2) vx_pv_d2_add_vtx(out, q);
  }
}

}  // namespace vx::stdlist
