// A helper of the GDAL and numpy cross-checks of the geometry (geom_check.py):
//   geom_probe divide DIR    writes generated polygon records with nested, touching and many rings to
//                            DIR/nested.shp as flat lists of rings (shuffled, turned either way), the
//                            same records after orient() to DIR/oriented.shp, and our division of each
//                            record to DIR/division.json;
//   geom_probe shapes DIR    writes generated polygons (horseshoes, combs, rings with holes, slivers,
//                            several parts, ...) to DIR/shapes.shp and their reference points to
//                            DIR/refpnt.json;
//   geom_probe refpnt FILE   reads a polygon shape file with our reader and prints the reference point
//                            of each record as JSON (null where there is none);
//   geom_probe affine FILE   writes random affine mappings, their products, inverses and mapped points
//                            to FILE as JSON.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "files/file_dbf.h"
#include "files/file_shp.h"
#include "geom/affine.h"
#include "geom/pgn_divide.h"
#include "ring_shapes.h"

namespace {

using vxk_test::ring;
using shape = std::vector<ring>;  // the rings of one record

struct random_source {
  std::mt19937 rng{20240611};
  double real(double a, double b) { return std::uniform_real_distribution<double>(a, b)(rng); }
  int integer(int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); }
  bool coin(double p = 0.5) { return real(0, 1) < p; }
};

// ---- JSON -------------------------------------------------------------------------------------------

std::string num(double v) {
  if (!std::isfinite(v)) return "null";
  char buf[40];
  std::snprintf(buf, sizeof buf, "%.17g", v);
  return buf;
}

std::string json_point(const Tvx_point2d& p) {
  return "[" + num(p.x) + "," + num(p.y) + "]";
}

std::string json_ring(const Tvx_pp2d* pp) {
  std::string out = "[";
  for (int i = 0; i < pp->get_size(); ++i) out += (i ? "," : "") + json_point(pp->get(i));
  return out + "]";
}

std::string json_object(const Tvx_op2d* op) {
  std::string out = "[";
  for (int k = 0; k < op->get_size(); ++k) out += (k ? "," : "") + json_ring(op->get(k));
  return out + "]";
}

bool write_text(const std::string& path, const std::string& text) {
  FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return false;
  const bool ok = std::fwrite(text.data(), 1, text.size(), f) == text.size();
  return std::fclose(f) == 0 && ok;
}

// ---- Ring shapes ------------------------------------------------------------------------------------

// A star-shaped ring about (cx, cy) with n corners at radii between rmin and rmax, clockwise. Its
// corners are at most 1.6 angular steps apart, so that with n >= 8 the disc of radius 0.8 rmin lies
// inside it.
ring star(random_source& g, double cx, double cy, double rmin, double rmax, int n) {
  ring r;
  const double step = 2.0 * M_PI / n;
  for (int i = 0; i < n; ++i) {
    const double a = -(i + g.real(-0.3, 0.3)) * step, rad = g.real(rmin, rmax);
    r.push_back({cx + rad * std::cos(a), cy + rad * std::sin(a)});
  }
  r.push_back(r.front());
  return r;
}

void to_op(const shape& s, Tvx_op2d* op) {
  op->clear();
  for (const ring& r : s) vxk_test::add_ring(op, r);
}

// Rings nested in a box: the box is split into k by k cells, some cells get a ring, and inside a ring,
// now and then, the same again one level deeper.
void nest(random_source& g, double x0, double y0, double x1, double y1, int depth, shape& out) {
  const int k = g.integer(1, 3);
  const double w = (x1 - x0) / k, h = (y1 - y0) / k;
  for (int i = 0; i < k; ++i)
    for (int j = 0; j < k; ++j) {
      if (k > 1 && g.coin(0.3)) continue;
      const double cx = x0 + (i + 0.5) * w, cy = y0 + (j + 0.5) * h, half = 0.45 * std::min(w, h);
      double inner = 0.0;
      if (g.coin(0.3)) {
        out.push_back(vxk_test::box(cx - half, cy - half, cx + half, cy + half));
        inner = 0.8 * half;
      } else {
        out.push_back(star(g, cx, cy, 0.6 * half, half, g.integer(8, 24)));
        inner = 0.55 * 0.6 * half;
      }
      if (depth > 0 && g.coin(0.75)) nest(g, cx - inner, cy - inner, cx + inner, cy + inner, depth - 1, out);
    }
}

// Rings that touch: holes meeting at a corner, a hole meeting its ring at a corner, a hole with a
// corner on its ring's edge, an island meeting its lake at a corner, holes sharing an edge.
std::vector<shape> touching_records() {
  using vxk_test::box;
  return {
      {box(0, 0, 10, 10), box(1, 1, 5, 5), box(5, 5, 9, 9)},
      {box(0, 0, 10, 10), {{0, 0}, {3, 4}, {4, 3}, {0, 0}}},
      {box(0, 0, 10, 10), {{0, 5}, {4, 7}, {4, 3}, {0, 5}}},
      {box(0, 0, 10, 10), box(1, 1, 9, 9), box(1, 1, 4, 4)},
      {box(0, 0, 10, 10), box(1, 1, 5, 5), box(5, 1, 9, 5)},
      {box(0, 0, 10, 10), box(2, 2, 8, 8), box(3, 3, 5, 5), box(5, 5, 7, 7)},
      {box(0, 0, 4, 4), box(4, 0, 8, 4), box(1, 1, 2, 2)},
  };
}

// Many outer rings in a grid, each with a few holes.
shape many_rings(random_source& g) {
  shape s;
  const int n = g.integer(5, 14);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      const double x = i * 10.0, y = j * 10.0;
      s.push_back(star(g, x + 5, y + 5, 3, 4.5, g.integer(8, 16)));
      const int holes = g.integer(0, 3);
      for (int h = 0; h < holes; ++h) {
        const double a = 2.0 * M_PI * h / 3;
        s.push_back(vxk_test::regular(x + 5 + 1.2 * std::cos(a), y + 5 + 1.2 * std::sin(a), 0.5, 6, false));
      }
    }
  return s;
}

// Shuffles the rings and turns some of them round: the division must not care.
void scramble(random_source& g, shape& s) {
  std::shuffle(s.begin(), s.end(), g.rng);
  for (ring& r : s)
    if (g.coin()) std::reverse(r.begin(), r.end());
}

std::vector<shape> division_records(random_source& g) {
  std::vector<shape> records;
  for (int i = 0; i < 400; ++i) {
    shape s;
    const double x = g.real(-1e5, 1e5), y = g.real(-1e5, 1e5), size = g.real(1, 1e4);
    nest(g, x, y, x + size, y + size, g.integer(0, 4), s);
    records.push_back(s);
  }
  for (const shape& s : touching_records()) records.push_back(s);
  for (int i = 0; i < 20; ++i) records.push_back(many_rings(g));
  for (shape& s : records) scramble(g, s);
  return records;
}

// ---- Shapes for inside points -------------------------------------------------------------------------

// Turns and moves the rings of a shape: a random angle, scale and place.
shape place(random_source& g, shape s) {
  Tvx_affine2d t;
  t.set_xy0_dxy_angle(g.real(-1e4, 1e4), g.real(-1e4, 1e4), 1, 1, g.real(-M_PI, M_PI));
  Tvx_affine2d scale;
  scale.set_scale(std::pow(10.0, g.real(-2, 3)), std::pow(10.0, g.real(-2, 3)) * g.real(0.5, 2));
  Tvx_affine2d both;
  both.set_combine_affine(&scale, &t);
  for (ring& r : s)
    for (Tvx_point2d& p : r) both.apply_point2d(&p);
  return s;
}

// An arc of a circle from angle a to b, as points.
void arc(ring& r, double cx, double cy, double rad, double a, double b, int n) {
  for (int i = 0; i <= n; ++i) {
    const double t = a + (b - a) * i / n;
    r.push_back({cx + rad * std::cos(t), cy + rad * std::sin(t)});
  }
}

shape horseshoe(random_source& g) {
  const double big = 10, thick = g.real(0.3, 5), arm = g.real(0, 25);
  ring r = {{-big, arm}};
  arc(r, 0, 0, big, M_PI, 2 * M_PI, 24);
  r.push_back({big, arm});
  r.push_back({big - thick, arm});
  arc(r, 0, 0, big - thick, 2 * M_PI, M_PI, 24);
  r.push_back({-big + thick, arm});
  r.push_back(r.front());
  return {r};
}

shape comb(random_source& g) {
  const int teeth = g.integer(2, 30);
  const double tooth = g.real(0.05, 1), gap = g.real(0.05, 2), len = g.real(1, 40), base = g.real(0.1, 2);
  ring r;
  r.push_back({0, 0});
  double x = 0;
  for (int i = 0; i < teeth; ++i) {
    r.push_back({x, base + len});
    r.push_back({x + tooth, base + len});
    x += tooth;
    if (i + 1 < teeth) {
      r.push_back({x, base});
      r.push_back({x + gap, base});
      x += gap;
    }
  }
  r.push_back({x, 0});
  r.push_back(r.front());
  return {r};
}

shape ring_with_holes(random_source& g) {
  shape s = {star(g, 0, 0, 8, 10, g.integer(8, 64))};
  const int holes = g.integer(1, 7);
  for (int h = 0; h < holes; ++h) {
    const double a = 2.0 * M_PI * h / holes, d = holes == 1 ? 0.0 : 4.5;
    s.push_back(vxk_test::regular(d * std::cos(a), d * std::sin(a), holes == 1 ? g.real(1, 6.5) : 1.8,
                                  g.integer(3, 16), false));
  }
  return s;
}

shape sliver(random_source& g) {
  const double len = 100, width = len * std::pow(10.0, g.real(-5, -2));
  if (g.coin()) return {{{0, 0}, {len / 2, width}, {len, 0}, {0, 0}}};
  return {vxk_test::box(0, 0, len, width)};
}

shape several(random_source& g) {
  shape s;
  const int parts = g.integer(2, 5);
  for (int i = 0; i < parts; ++i) {
    const double cx = i * 25.0, cy = g.real(-5, 5), r = g.real(2, 10);
    s.push_back(star(g, cx, cy, 0.5 * r, r, g.integer(8, 20)));
    if (g.coin()) s.push_back(vxk_test::regular(cx, cy, 0.1 * r, 8, false));
  }
  return s;
}

shape donut(random_source& g) {
  return {vxk_test::regular(0, 0, 10, g.integer(6, 64)), vxk_test::regular(0, 0, g.real(5, 9.8), 48, false)};
}

shape cross_or_stair(random_source& g) {
  if (g.coin()) {
    const double t = g.real(0.1, 3);
    return {{{-t, -10},
             {-t, -t},
             {-10, -t},
             {-10, t},
             {-t, t},
             {-t, 10},
             {t, 10},
             {t, t},
             {10, t},
             {10, -t},
             {t, -t},
             {t, -10},
             {-t, -10}}};
  }
  ring r = {{0, 0}};
  const int steps = g.integer(2, 20);
  for (int i = 0; i < steps; ++i) {
    r.push_back({double(i), double(i + 1)});
    r.push_back({double(i + 1), double(i + 1)});
  }
  r.push_back({double(steps), 0});
  r.push_back(r.front());
  return {r};
}

std::vector<shape> refpnt_records(random_source& g) {
  const std::function<shape(random_source&)> kinds[] = {horseshoe, comb,  ring_with_holes, sliver,
                                                        several,   donut, cross_or_stair};
  std::vector<shape> records;
  for (int i = 0; i < 3500; ++i) records.push_back(place(g, kinds[i % 7](g)));
  return records;
}

// ---- Files ------------------------------------------------------------------------------------------

// A polygon shape file of the records, with a table of their numbers.
bool write_polygons(const std::string& base, const std::vector<Tvx_op2d*>& records) {
  Tvx_file_shp shp;
  if (shp.create((base + ".shp").c_str(), SHP_POLYGON) != 0) return false;
  Tvx_dbf_prpdefs defs;
  Tvx_dbf_prpdef* id = defs.add();
  id->set_name("ID");
  id->set_type('N');
  id->set_length(9);
  id->set_decimal(0);
  Tvx_file_dbf dbf;
  if (dbf.create((base + ".dbf").c_str(), &defs, static_cast<uint32_t>(records.size())) != 0) return false;
  bool ok = true;
  for (std::size_t i = 0; i < records.size(); ++i) {
    ok = (records[i]->get_size() ? shp.add_polygon(records[i]) : shp.add_empty()) && ok;
    dbf.set_rec(static_cast<uint32_t>(i));
    dbf.set_int(0, static_cast<int>(i));
  }
  dbf.close();
  shp.close();
  return ok;
}

int divide(const std::string& dir) {
  random_source g;
  const std::vector<shape> records = division_records(g);
  std::vector<std::unique_ptr<Tvx_op2d>> flat, oriented;
  std::string json = "[";
  for (std::size_t i = 0; i < records.size(); ++i) {
    flat.push_back(std::make_unique<Tvx_op2d>());
    to_op(records[i], flat.back().get());
    Tvx_ap2d divided;
    if (Tvx_op2d_pgn_divide::execute(flat.back().get(), &divided) != 0) return 1;
    json += i ? ",[" : "[";
    for (int k = 0; k < divided.get_size(); ++k) json += (k ? "," : "") + json_object(divided.get(k));
    json += "]";
    oriented.push_back(std::make_unique<Tvx_op2d>());
    oriented.back()->assign(flat.back().get());
    if (!oriented.back()->orient()) return 1;
  }
  std::vector<Tvx_op2d*> a, b;
  for (auto& op : flat) a.push_back(op.get());
  for (auto& op : oriented) b.push_back(op.get());
  const bool ok = write_polygons(dir + "/nested", a) && write_polygons(dir + "/oriented", b) &&
                  write_text(dir + "/division.json", json + "]\n");
  return ok ? 0 : 1;
}

std::string json_refpnt(Tvx_op2d* op) {
  Tvx_point2d p = vx_point2d();
  return op->calc_pgn_refpnt(&p) ? json_point(p) : "null";
}

int shapes(const std::string& dir) {
  random_source g;
  std::vector<std::unique_ptr<Tvx_op2d>> ops;
  std::string json = "[";
  for (const shape& s : refpnt_records(g)) {
    ops.push_back(std::make_unique<Tvx_op2d>());
    to_op(s, ops.back().get());
    if (!ops.back()->orient()) return 1;  // outer rings clockwise, holes counter-clockwise, for GDAL
    json += (ops.size() > 1 ? "," : "") + json_refpnt(ops.back().get());
  }
  std::vector<Tvx_op2d*> records;
  for (auto& op : ops) records.push_back(op.get());
  return write_polygons(dir + "/shapes", records) && write_text(dir + "/refpnt.json", json + "]\n") ? 0 : 1;
}

int refpnt(const std::string& path) {
  Tvx_file_shp shp;
  if (shp.open(path.c_str(), true) != 0) return 1;
  std::string json = "[";
  for (unsigned i = 0; i < shp.get_no(); ++i) {
    Tvx_op2d op;
    const int type = shp.get_obj_type(i);
    const bool polygon = type == SHP_POLYGON && shp.get_polygon(&op);
    json += (i ? "," : "") + (polygon ? json_refpnt(&op) : std::string("null"));
  }
  std::printf("%s]\n", json.c_str());
  return 0;
}

// ---- Affine mappings ----------------------------------------------------------------------------------

std::string json_affine2d(const Tvx_affine2d& t) {
  double v[6];
  t.get(v[0], v[1], v[2], v[3], v[4], v[5]);
  std::string out = "[";
  for (int i = 0; i < 6; ++i) out += (i ? "," : "") + num(v[i]);
  return out + "]";
}

std::string json_affine3d(const Tvx_affine3d& t) {
  double v[12];
  t.get(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]);
  std::string out = "[";
  for (int i = 0; i < 12; ++i) out += (i ? "," : "") + num(v[i]);
  return out + "]";
}

std::string affine2d_case(random_source& g) {
  const auto coef = [&] { return g.real(-5, 5); };
  const Tvx_affine2d first(coef(), coef(), coef() * 100, coef(), coef(), coef() * 100);
  const Tvx_affine2d second(coef(), coef(), coef() * 100, coef(), coef(), coef() * 100);
  Tvx_affine2d both, inv = first;
  both.set_combine_affine(&first, &second);
  const bool inverted = inv.invert();
  const double x = g.real(-1e3, 1e3), y = g.real(-1e3, 1e3);
  double x2, y2;
  first.apply_xy(x, y, x2, y2);
  return "{\"first\":" + json_affine2d(first) + ",\"second\":" + json_affine2d(second) +
         ",\"combined\":" + json_affine2d(both) + ",\"inverse\":" + (inverted ? json_affine2d(inv) : "null") +
         ",\"point\":[" + num(x) + "," + num(y) + "],\"mapped\":[" + num(x2) + "," + num(y2) + "]}";
}

std::string affine3d_case(random_source& g) {
  double v[12];
  for (double& c : v) c = g.real(-5, 5);
  const Tvx_affine3d t(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]);
  Tvx_affine3d inv = t;
  const bool inverted = inv.invert();
  const double x = g.real(-1e3, 1e3), y = g.real(-1e3, 1e3), z = g.real(-1e3, 1e3);
  double x2, y2, z2;
  t.apply_xyz(x, y, z, x2, y2, z2);
  return "{\"matrix\":" + json_affine3d(t) + ",\"inverse\":" + (inverted ? json_affine3d(inv) : "null") +
         ",\"point\":[" + num(x) + "," + num(y) + "," + num(z) + "],\"mapped\":[" + num(x2) + "," + num(y2) +
         "," + num(z2) + "]}";
}

int affine(const std::string& path) {
  random_source g;
  std::string json = "{\"plane\":[";
  for (int i = 0; i < 300; ++i) json += (i ? "," : "") + affine2d_case(g);
  json += "],\"spatial\":[";
  for (int i = 0; i < 300; ++i) json += (i ? "," : "") + affine3d_case(g);
  return write_text(path, json + "]}\n") ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: geom_probe divide DIR | shapes DIR | refpnt FILE.shp | affine FILE\n");
    return 2;
  }
  const std::string command = argv[1];
  if (command == "divide") return divide(argv[2]);
  if (command == "shapes") return shapes(argv[2]);
  if (command == "refpnt") return refpnt(argv[2]);
  if (command == "affine") return affine(argv[2]);
  return 2;
}
