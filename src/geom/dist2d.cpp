#include "geom/dist2d.h"

#include <limits>

bool Tvx_dist2d::calc(Tvx_op2d* op, const Tvx_point2d& p) {
  return find(op, p, true);
}

bool Tvx_dist2d::calc_vertex(Tvx_op2d* op, const Tvx_point2d& p) {
  return find(op, p, false);
}

// One best over all parts, replaced only by a strictly shorter distance: so the first part with the
// shortest distance wins, and within a part its nearest vertex stands unless a foot is nearer still.
bool Tvx_dist2d::find(Tvx_op2d* op, const Tvx_point2d& p, bool with_segments) {
  found = false;
  distance = std::numeric_limits<double>::infinity();
  for (int k = 0; k < op->get_size(); ++k) {
    try_vertices(op->get(k), k, p);
    if (with_segments) try_segments(op->get(k), k, p);
  }
  return found;
}

void Tvx_dist2d::try_vertices(const Tvx_pp2d* pp, int k, const Tvx_point2d& p) {
  for (int i = 0; i < pp->get_size(); ++i) {
    const Tvx_point2d q = pp->get(i);
    take(q, vx_distance(p, q), k, i, i);
  }
}

void Tvx_dist2d::try_segments(const Tvx_pp2d* pp, int k, const Tvx_point2d& p) {
  for (int i = 1; i < pp->get_size(); ++i) {
    const Tvx_point2d a = pp->get(i - 1), b = pp->get(i);
    const double len = vx_distance(a, b);
    if (!(len >= Tvx_geom2d_delta::f_delta)) continue;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double t = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (len * len);
    if (!(t >= 0.0 && t <= 1.0)) continue;
    const Tvx_point2d foot = vx_point2d(a.x + t * dx, a.y + t * dy);
    take(foot, vx_distance(p, foot), k, i - 1, i);
  }
}

void Tvx_dist2d::take(const Tvx_point2d& q, double d, int k, int i, int j) {
  if (!(d < distance)) return;
  found = true;
  point = q;
  distance = d;
  part = k;
  vertex = i == j;
  idx1 = i;
  idx2 = j;
}
