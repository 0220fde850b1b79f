#include "algo/pp2d_labeling.h"

#include <memory>

#include "algo/chord_simplify2d.h"
#include "geom/pp2d.h"

namespace {

// A candidate piece of the line: vertices s to e, its length, and the index of the vertex whose weight
// it takes.
struct piece {
  int s;
  int e;
  double length;
  int weight_at;
};

// Visits the pieces in order: for each three vertices i, i + 1, i + 2, the whole if they lie nearly
// straight, else the first segment and then the second.
template <class Visit>
void for_each_piece(const Tvx_pp2d& line, Visit visit) {
  for (int i = 0; i + 2 < line.get_size(); ++i) {
    const Tvx_point2d a = line.get(i), b = line.get(i + 1), c = line.get(i + 2);
    const double ab = vx_distance(a, b), bc = vx_distance(b, c), ac = vx_distance(a, c);
    if (ac > 0.9 * (ab + bc)) {
      visit(piece{i, i + 2, ac, i + 1});
    } else {
      visit(piece{i, i + 1, ab, i + 1});
      visit(piece{i + 1, i + 2, bc, i + 2});
    }
  }
}

// out becomes the source simplified by a quarter of the generalisation.
void simplified_copy(const Tvx_pp2d* source, double generalisation, Tvx_pp2d* out) {
  out->assign(source);
  Tvx_chord_simplify2d::execute(out, generalisation * 0.25);
}

// The start of the stretch s..e in the line as it will be read: from west to east unless the direction
// is to be kept, the line being turned round when it runs westwards.
int oriented_start(Tvx_pp2d* out, int s, int e, bool keep_direction) {
  if (keep_direction || !(out->get(e).x < out->get(s).x)) return s;
  out->reverse();
  return out->get_size() - 1 - e;
}

}  // namespace

double Tvx_pp2d_labeling::prepare_along(const Tvx_pp2d* source, double generalisation, double min_length,
                                        bool keep_direction, Tvx_pp2d* out) {
  simplified_copy(source, generalisation, out);
  if (!(out->calc_length() > min_length)) return -1.0;
  const int n = out->get_size();
  if (n < 2) return -1.0;
  piece best{0, n - 1, 0.0, 0};
  if (n > 2) {
    for_each_piece(*out, [&best](const piece& p) {
      if (p.length > best.length) best = p;
    });
    if (!(best.length > min_length)) return -1.0;
  }
  return oriented_start(out, best.s, best.e, keep_direction);
}

int Tvx_pp2d_labeling_weight::prepare_along(const Tvx_pp2d* source, double generalisation, double min_length,
                                            bool keep_direction, Tvx_text_position position, Tvx_pp2d* out) {
  simplified_copy(source, generalisation, out);
  if (min_length >= out->calc_length()) return -1;
  out->assign(std::unique_ptr<Tvx_pp2d>(out->densify(1.1 * min_length)).get());
  const int n = out->get_size();
  if (n < 2) return -1;
  if (n == 2) return oriented_start(out, 0, 1, keep_direction);

  // The weight peaks at m and falls back towards the far end. With m = 0 the step is infinite, so that
  // the first piece that fits wins.
  const int m = position == vx_text_end ? n : (position == vx_text_middle ? n / 2 : 0);
  const double step = 0.75 / m;
  const auto weight = [&](int j) { return 0.25 + step * (j <= m ? j : n - j); };
  piece best{0, 0, 0.0, 0};
  double best_score = 0.0;
  bool found = false;
  for_each_piece(*out, [&](const piece& p) {
    const double score = weight(p.weight_at) * p.length;
    if (score > best_score && p.length > min_length) {
      best = p;
      best_score = score;
      found = true;
    }
  });
  if (!found) return -1;
  return oriented_start(out, best.s, best.e, keep_direction);
}
