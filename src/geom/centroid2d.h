// Inside points of polygons, for a label or a symbol: a point that lies inside also for a ring shaped
// like a horseshoe and for a polygon with holes, where the true centre of gravity may not.
//
// Tvx_centroid2d lays 50 horizontal scan lines over the rings and puts the point in the middle of the
// widest stretch inside, a stretch near the middle line being favoured over an equally wide one near
// the top or the bottom. Tvx_multipart_centroid2d first picks the largest polygon of an object of
// several polygons through the polygon division, holes counting against it.
//
// What odd input gives: an object with no height, a thin polygon that lies between two scan lines, an
// open or short part, or a NaN or infinite coordinate gives false, with the result point untouched
// (Tvx_multipart_centroid2d sees only the rings that the division keeps, so an open part does no harm
// there). The work is one pass over the edges, each looking only at the scan lines within its span.
#pragma once

#include <array>
#include <vector>

#include "geom/ap2d.h"
#include "geom/op2d.h"

class Tvx_centroid2d {
 public:
  // The number of scan lines.
  static constexpr int LINES = 50;

  Tvx_centroid2d();
  virtual ~Tvx_centroid2d();
  Tvx_centroid2d(const Tvx_centroid2d&) = delete;
  Tvx_centroid2d& operator=(const Tvx_centroid2d&) = delete;

  static void delete_obj(Tvx_centroid2d** p);

  // Makes an instance, runs it and destroys it; false also when anything is thrown inside.
  static bool execute(Tvx_op2d* op, Tvx_point2d* result);
  // The inside point of the rings of op, taken all together by even-odd, into *result. False, with
  // *result untouched, when there is none (see above) or an argument is null.
  bool exec(Tvx_op2d* op, Tvx_point2d* result);
  // calc_y, calc_line_x, select_one, stopping at the first false.
  bool do_exec();

 private:
  // A crossing of an edge with a scan line, as found.
  struct crossing {
    int line;
    double x;
  };

  bool calc_y();
  bool calc_line_x();
  bool select_one();
  void add_crossings(const Tvx_point2d& p, const Tvx_point2d& q);
  // Filled in place: a crossing built aside and copied in costs a stall.
  void push(int line, double x) {
    crossing& c = found.emplace_back();
    c.line = line;
    c.x = x;
  }
  int first_line_from(double y) const;
  void sort_by_line();

  Tvx_op2d* op = nullptr;
  Tvx_point2d* result = nullptr;
  std::array<double, LINES> ys{};   // the scan lines' y, rising
  double y0 = 0.0, per_step = 0.0;  // the lowest y and 1 / the lines' step
  std::vector<crossing> found;
  // The crossings of scan line i, sorted, are xs[starts[i]] to xs[starts[i + 1] - 1]: the lists of
  // all lines in one vector, which costs one allocation instead of one for each line.
  std::vector<double> xs;
  std::array<std::size_t, LINES + 1> starts{};
};

class Tvx_multipart_centroid2d {
 public:
  Tvx_multipart_centroid2d() = default;
  Tvx_multipart_centroid2d(const Tvx_multipart_centroid2d&) = delete;
  Tvx_multipart_centroid2d& operator=(const Tvx_multipart_centroid2d&) = delete;

  // Makes an instance and runs it; false if either argument is null.
  static bool execute(Tvx_op2d* op, Tvx_point2d* result);
  // The inside point of the largest polygon of op, into *result; false if either argument is null or
  // Tvx_centroid2d finds no point.
  bool exec(Tvx_op2d* op, Tvx_point2d* result);
  // The polygon to work on: of the division of the source, the object whose outer ring less its holes
  // has the largest area above 0, the first in a tie; the source itself when the division fails or
  // gives nothing, or no object has an area above 0.
  Tvx_op2d* find_big_op();

 private:
  Tvx_op2d* source = nullptr;
  Tvx_point2d* result = nullptr;
  Tvx_ap2d divided;
};
