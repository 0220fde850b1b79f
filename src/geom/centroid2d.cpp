#include "geom/centroid2d.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geom/owned_list.h"
#include "geom/pgn_divide.h"

Tvx_centroid2d::Tvx_centroid2d() {
  // Room for two crossings of every line, in blocks small enough for the allocator's fast path.
  found.reserve(2 * LINES);
  xs.reserve(2 * LINES);
}

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
//
// Coordinates that are not finite, or an extent that a double cannot hold, give false: the crossings
// are then numbers that can be sorted.
bool Tvx_centroid2d::calc_y() {
  const double inf = std::numeric_limits<double>::infinity();
  double lo = inf, hi = -inf, west = inf, east = -inf;
  double poison = 0.0;  // stays 0 while every coordinate is finite: inf * 0 and NaN * 0 are NaN
  for (int k = 0; k < op->get_size(); ++k) {
    const Tvx_pp2d* pp = op->get(k);
    for (int i = 0; i < pp->get_size(); ++i) {
      const Tvx_point2d p = pp->get(i);
      poison += p.x * 0.0 + p.y * 0.0;
      lo = std::min(lo, p.y);
      hi = std::max(hi, p.y);
      west = std::min(west, p.x);
      east = std::max(east, p.x);
    }
  }
  if (poison != 0.0 || !(hi > lo) || !std::isfinite(hi - lo) || !std::isfinite(east - west)) return false;
  const double step = (hi - lo) / (LINES + 2);
  y0 = lo;
  per_step = 1.0 / step;
  for (int i = 0; i < LINES; ++i) ys[static_cast<std::size_t>(i)] = (i + 1) * step + lo;
  return true;
}

// All rings go through the same lists, so that after sorting each pair of neighbouring crossings is a
// stretch inside the polygon, whatever the nesting of the rings.
bool Tvx_centroid2d::calc_line_x() {
  found.clear();
  for (int k = 0; k < op->get_size(); ++k) {
    const Tvx_pp2d* pp = op->get(k);
    if (!pp->is_closed()) return false;
    for (int i = 1; i < pp->get_size(); ++i) add_crossings(pp->get(i - 1), pp->get(i));
  }
  sort_by_line();
  return true;
}

namespace {

// Sorts a list of crossings; most are short, and insertion sort needs no call for them.
void sort_few(double* first, double* last) {
  if (last - first > 16) {
    std::sort(first, last);
    return;
  }
  for (double* i = first + 1; i < last; ++i) {
    const double v = *i;
    double* j = i;
    for (; j > first && v < j[-1]; --j) *j = j[-1];
    *j = v;
  }
}

}  // namespace

// Spreads the crossings into the lists of their lines, then sorts each list.
void Tvx_centroid2d::sort_by_line() {
  starts.fill(0);
  for (const crossing& c : found) ++starts[static_cast<std::size_t>(c.line) + 1];
  for (int i = 0; i < LINES; ++i) starts[i + 1] += starts[i];
  std::array<std::size_t, LINES + 1> next = starts;
  xs.resize(found.size());
  for (const crossing& c : found) xs[next[static_cast<std::size_t>(c.line)]++] = c.x;
  for (int i = 0; i < LINES; ++i) sort_few(xs.data() + starts[i], xs.data() + starts[i + 1]);
}

// The first line whose y is not below y: estimated from the step, then put right against the lines'
// own values, so that the answer is the one a search would give.
int Tvx_centroid2d::first_line_from(double y) const {
  const double t = (y - y0) * per_step;
  int i = !(t < LINES) ? LINES : t < 1.0 ? 0 : static_cast<int>(t) - 1;
  while (i > 0 && ys[static_cast<std::size_t>(i) - 1] >= y) --i;
  while (i < LINES && ys[static_cast<std::size_t>(i)] < y) ++i;
  return i;
}

// The crossings of one edge with the scan lines. Only the lines within the edge's span of y can meet
// it: a line strictly between the ends crosses at the interpolated x, a line through the lower end
// counts that end when the upper end lies above it, and a horizontal edge or an upper end on a line
// counts nothing, which keeps the count even at a vertex.
void Tvx_centroid2d::add_crossings(const Tvx_point2d& p, const Tvx_point2d& q) {
  const Tvx_point2d& lo = p.y <= q.y ? p : q;
  const Tvx_point2d& up = p.y <= q.y ? q : p;
  int line = first_line_from(lo.y);
  if (line < LINES && ys[static_cast<std::size_t>(line)] == lo.y) {
    if (up.y > lo.y) push(line, lo.x);
    ++line;
  }
  const double dx = up.x - lo.x, dy = up.y - lo.y;
  for (; line < LINES && ys[static_cast<std::size_t>(line)] < up.y; ++line)
    push(line, lo.x + (ys[static_cast<std::size_t>(line)] - lo.y) * dx / dy);
}

// The middle of the widest stretch, weighed by the line's distance from the middle line; a line with
// an odd number of crossings is skipped. In a tie the first line, and in a line the westernmost
// stretch, stays.
bool Tvx_centroid2d::select_one() {
  const double half = LINES * 0.5;
  double best = 0.0;
  bool any = false;
  Tvx_point2d point = vx_point2d();
  for (int i = 0; i < LINES; ++i) {
    const std::size_t begin = starts[i], end = starts[i + 1];
    if (begin == end || (end - begin) % 2 != 0) continue;
    const double w = std::fabs((i - half + 0.5) / half);
    for (std::size_t k = begin; k < end; k += 2) {
      const double a = xs[k], b = xs[k + 1];
      const double score = (1.0 - w) * (b - a);
      if (!(score > best)) continue;
      best = score;
      point = vx_point2d(a + (b - a) * 0.5, ys[static_cast<std::size_t>(i)]);
      any = true;
    }
  }
  if (any) *result = point;
  return any;
}

bool Tvx_multipart_centroid2d::execute(Tvx_op2d* op, Tvx_point2d* result) {
  Tvx_multipart_centroid2d centroid;
  return centroid.exec(op, result);
}

// With one part the division can only give that ring back, perhaps turned round, or nothing, when the
// answer is the source itself; and the scan lines do not see which way a ring runs. So one part goes to
// the scan lines as it is, with the same result and without the copy.
bool Tvx_multipart_centroid2d::exec(Tvx_op2d* op, Tvx_point2d* point) {
  if (!op || !point) return false;
  source = op;
  result = point;
  return Tvx_centroid2d::execute(op->get_size() == 1 ? op : find_big_op(), result);
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
