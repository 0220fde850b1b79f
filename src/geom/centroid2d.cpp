#include "geom/centroid2d.h"

#include <algorithm>
#include <cmath>

#include "geom/owned_list.h"
#include "geom/pgn_divide.h"

Tvx_centroid2d::Tvx_centroid2d() : ys(LINES, 0.0) {}

Tvx_centroid2d::~Tvx_centroid2d() = default;

void Tvx_centroid2d::delete_obj(Tvx_centroid2d** p) {
  vx::geom::delete_and_null(p);
}

bool Tvx_centroid2d::execute(Tvx_op2d* op, Tvx_point2d* result) {
  try {
    Tvx_centroid2d centroid;
    return centroid.exec(op, result);
  } catch (...) {
    return false;
  }
}

bool Tvx_centroid2d::exec(Tvx_op2d* object, Tvx_point2d* point) {
  if (!object || !point) return false;
  op = object;
  result = point;
  return do_exec();
}

bool Tvx_centroid2d::do_exec() {
  return calc_y() && calc_line_x() && select_one();
}

// The scan lines keep clear of the lowest and the highest vertex: with the step (ymax - ymin) / 52,
// line i lies at (i + 1) steps above ymin, so that the gap above the last line is two steps.
bool Tvx_centroid2d::calc_y() {
  bool any = false;
  double lo = 0.0, hi = 0.0;
  for (int k = 0; k < op->get_size(); ++k) {
    const Tvx_pp2d* pp = op->get(k);
    for (int i = 0; i < pp->get_size(); ++i) {
      const Tvx_point2d p = pp->get(i);
      if (!std::isfinite(p.x) || !std::isfinite(p.y)) return false;
      lo = any ? std::min(lo, p.y) : p.y;
      hi = any ? std::max(hi, p.y) : p.y;
      any = true;
    }
  }
  if (!any || !(hi > lo)) return false;
  const double step = (hi - lo) / (LINES + 2);
  for (int i = 0; i < LINES; ++i) ys[static_cast<std::size_t>(i)] = (i + 1) * step + lo;
  return true;
}

// All rings go through the same lists, so that after sorting each pair of neighbouring crossings is a
// stretch inside the polygon, whatever the nesting of the rings.
bool Tvx_centroid2d::calc_line_x() {
  for (auto& line : xs) line.clear();
  for (int k = 0; k < op->get_size(); ++k) {
    const Tvx_pp2d* pp = op->get(k);
    if (!pp->is_closed()) return false;
    for (int i = 1; i < pp->get_size(); ++i) add_crossings(pp->get(i - 1), pp->get(i));
  }
  for (auto& line : xs) std::sort(line.begin(), line.end());
  return true;
}

// The crossings of one edge with the scan lines. Only the lines within the edge's span of y can meet
// it; for them: a line strictly between the ends crosses at the interpolated x, a line through the
// lower end counts that end when the upper end lies above it, and a horizontal edge or an upper end
// on a line counts nothing, which keeps the count even at a vertex.
void Tvx_centroid2d::add_crossings(const Tvx_point2d& p, const Tvx_point2d& q) {
  const Tvx_point2d& lo = p.y <= q.y ? p : q;
  const Tvx_point2d& up = p.y <= q.y ? q : p;
  const auto first = std::lower_bound(ys.begin(), ys.end(), lo.y);
  const auto last = std::upper_bound(first, ys.end(), up.y);
  for (auto it = first; it != last; ++it) {
    const double y = *it;
    auto& line = xs[static_cast<std::size_t>(it - ys.begin())];
    if (lo.y < y && y < up.y)
      line.push_back(lo.x + (y - lo.y) * (up.x - lo.x) / (up.y - lo.y));
    else if (y == lo.y && up.y > y)
      line.push_back(lo.x);
  }
}

// The middle of the widest stretch, weighed by the line's distance from the middle line; a line with
// an odd number of crossings is skipped. In a tie the first line, and in a line the westernmost
// stretch, stays.
bool Tvx_centroid2d::select_one() {
  const double half = LINES * 0.5;
  double best = 0.0;
  bool found = false;
  Tvx_point2d point = vx_point2d();
  for (int i = 0; i < LINES; ++i) {
    const std::vector<double>& line = xs[static_cast<std::size_t>(i)];
    if (line.empty() || line.size() % 2 != 0) continue;
    const double w = std::fabs((i - half + 0.5) / half);
    for (std::size_t k = 0; k + 1 < line.size(); k += 2) {
      const double a = line[k], b = line[k + 1];
      const double score = (1.0 - w) * (b - a);
      if (!(score > best)) continue;
      best = score;
      point = vx_point2d(a + (b - a) * 0.5, ys[static_cast<std::size_t>(i)]);
      found = true;
    }
  }
  if (found) *result = point;
  return found;
}

bool Tvx_multipart_centroid2d::execute(Tvx_op2d* op, Tvx_point2d* result) {
  Tvx_multipart_centroid2d centroid;
  return centroid.exec(op, result);
}

bool Tvx_multipart_centroid2d::exec(Tvx_op2d* op, Tvx_point2d* point) {
  if (!op || !point) return false;
  source = op;
  result = point;
  return Tvx_centroid2d::execute(find_big_op(), result);
}

Tvx_op2d* Tvx_multipart_centroid2d::find_big_op() {
  divided.clear();
  if (Tvx_op2d_pgn_divide::execute(source, &divided) != 0) return source;
  Tvx_op2d* best = source;
  double best_area = 0.0;
  for (int i = 0; i < divided.get_size(); ++i) {
    Tvx_op2d* object = divided.get(i);
    double area = 0.0;
    for (int k = 0; k < object->get_size(); ++k) area += object->get(k)->calc_signed_area();
    if (area > best_area) {
      best_area = area;
      best = object;
    }
  }
  return best;
}
