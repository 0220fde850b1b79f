// Polygon division and polygon reference points beside GEOS, in one run, on the same polygons:
//   /0  100,000 polygons: jagged star-shaped rings of 8 to 64 vertices, a third with holes, a tenth in
//       two or three parts, some concave (combs); about 4 million vertices in all;
//   /1  one polygon: an outer ring of 999,000 vertices with 100 holes of 10 vertices;
//   /2  the real-world polygons of Debian's r-cran-spdata (skipped where it is not installed).
// Ours: Tvx_op2d_pgn_divide::execute on the rings as a shape file holds them (shuffled, turned either
// way), and Tvx_op2d::calc_pgn_refpnt. GEOS, through its C API, on geometries built beforehand:
//   Organize   the job of GDAL's organizePolygons done with GEOS: every ring a polygon, sorted by
//              area; a ring lies in the smallest larger ring whose envelope holds its envelope and
//              whose prepared polygon contains its first vertex; even depths are outer rings, and
//              the polygons with their holes are built;
//   BuildArea  GEOS's own call that sorts rings (as lines) into polygons with holes; it also nodes
//              the lines, so it does more than the division (and takes minutes on /1, so it is
//              left out there);
//   PointOnSurface on the valid polygons.
// The counters give vertices per second; the ratio of the times is the figure to compare.
#include <benchmark/benchmark.h>
#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "files/file_shp.h"
#include "geom/ap2d.h"
#include "geom/op2d.h"
#include "geom/pgn_divide.h"

namespace {

using ring = std::vector<Tvx_point2d>;

// One polygon as generated: its parts, each an outer ring (clockwise) with its holes.
struct polygon {
  std::vector<std::vector<ring>> parts;
};

ring star(std::mt19937& rng, double cx, double cy, double rmin, double rmax, int n, bool cw) {
  std::uniform_real_distribution<double> jitter(-0.3, 0.3), radius(rmin, rmax);
  ring r;
  const double step = 2.0 * M_PI / n;
  for (int i = 0; i < n; ++i) {
    const double a = (cw ? -1.0 : 1.0) * (i + jitter(rng)) * step, rad = radius(rng);
    r.push_back({cx + rad * std::cos(a), cy + rad * std::sin(a)});
  }
  r.push_back(r.front());
  return r;
}

ring comb(std::mt19937& rng, double x0, double y0) {
  std::uniform_int_distribution<int> teeth(3, 12);
  const int n = teeth(rng);
  ring r = {{x0, y0}};
  for (int i = 0; i < n; ++i) {
    r.push_back({x0 + i * 2.0, y0 + 8});
    r.push_back({x0 + i * 2.0 + 1, y0 + 8});
    r.push_back({x0 + i * 2.0 + 1, y0 + 1});
    r.push_back({x0 + i * 2.0 + 2, y0 + 1});
  }
  r.push_back({x0 + n * 2.0, y0});
  r.push_back(r.front());
  return r;
}

std::vector<ring> part(std::mt19937& rng, double cx, double cy, double r) {
  std::uniform_int_distribution<int> corners(8, 64), holes(1, 3);
  std::uniform_real_distribution<double> u(0, 1);
  if (u(rng) < 0.1) return {comb(rng, cx - r, cy - r)};
  std::vector<ring> rings = {star(rng, cx, cy, 0.6 * r, r, corners(rng), true)};
  if (u(rng) < 0.33) {
    const int h = holes(rng);
    for (int k = 0; k < h; ++k) {
      const double a = 2.0 * M_PI * k / h, d = h == 1 ? 0.0 : 0.3 * r;
      rings.push_back(star(rng, cx + d * std::cos(a), cy + d * std::sin(a), 0.05 * r, 0.12 * r, 8, false));
    }
  }
  return rings;
}

std::vector<polygon> many_polygons(int n) {
  std::mt19937 rng(7);
  std::uniform_real_distribution<double> u(0, 1);
  std::vector<polygon> out(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    const double x = (i % 1000) * 100.0, y = (i / 1000) * 100.0;
    const int parts = u(rng) < 0.1 ? 2 + (u(rng) < 0.5) : 1;
    for (int k = 0; k < parts; ++k) out[i].parts.push_back(part(rng, x + 10 + k * 30, y + 40, 9));
  }
  return out;
}

polygon big_polygon() {
  std::mt19937 rng(8);
  polygon p;
  std::vector<ring> rings = {star(rng, 0, 0, 9000, 10000, 999000, true)};
  for (int k = 0; k < 100; ++k)
    rings.push_back(star(rng, -5000 + (k % 10) * 1000.0, -5000 + (k / 10) * 1000.0, 100, 300, 9, false));
  p.parts.push_back(rings);
  return p;
}

// The polygons of r-cran-spdata's shape files, read with our reader and divided into their parts.
std::vector<polygon> real_polygons() {
  std::vector<polygon> out;
  const std::filesystem::path dir = "/usr/lib/R/site-library/spData/shapes";
  if (!std::filesystem::is_directory(dir)) return out;
  for (const auto& entry : std::filesystem::directory_iterator(dir)) {
    if (entry.path().extension() != ".shp") continue;
    Tvx_file_shp shp;
    if (shp.open(entry.path().string().c_str(), true) != 0 || shp.get_type() != SHP_POLYGON) continue;
    for (unsigned i = 0; i < shp.get_no(); ++i) {
      Tvx_op2d op;
      Tvx_ap2d parts;
      if (shp.get_obj_type(i) != SHP_POLYGON || !shp.get_polygon(&op)) continue;
      if (Tvx_op2d_pgn_divide::execute(&op, &parts) != 0 || parts.get_size() == 0) continue;
      polygon p;
      for (int k = 0; k < parts.get_size(); ++k) {
        p.parts.emplace_back();
        for (int r = 0; r < parts.get(k)->get_size(); ++r) {
          const Tvx_pp2d* pp = parts.get(k)->get(r);
          ring rr;
          for (int v = 0; v < pp->get_size(); ++v) rr.push_back(pp->get(v));
          p.parts.back().push_back(rr);
        }
      }
      out.push_back(p);
    }
  }
  return out;
}

// ---- our form: the rings of a record as a flat list, shuffled, some turned round -----------------------

std::unique_ptr<Tvx_op2d> flat_record(const polygon& p, std::mt19937& rng) {
  std::vector<ring> rings;
  for (const auto& part : p.parts) rings.insert(rings.end(), part.begin(), part.end());
  std::shuffle(rings.begin(), rings.end(), rng);
  auto op = std::make_unique<Tvx_op2d>();
  for (ring& r : rings) {
    if (rng() % 2) std::reverse(r.begin(), r.end());
    Tvx_pp2d* pp = op->add();
    for (const Tvx_point2d& v : r) pp->add(v.x, v.y);
  }
  return op;
}

// ---- GEOS's form ----------------------------------------------------------------------------------------

void geos_message(const char*, ...) {}

struct geos {
  GEOSContextHandle_t h = GEOS_init_r();
  geos() {
    GEOSContext_setNoticeHandler_r(h, geos_message);
    GEOSContext_setErrorHandler_r(h, geos_message);
  }
  ~geos() { GEOS_finish_r(h); }
};

geos& context() {
  static geos g;
  return g;
}

GEOSCoordSequence* sequence(const ring& r) {
  GEOSContextHandle_t h = context().h;
  GEOSCoordSequence* s = GEOSCoordSeq_create_r(h, static_cast<unsigned>(r.size()), 2);
  for (std::size_t i = 0; i < r.size(); ++i)
    GEOSCoordSeq_setXY_r(h, s, static_cast<unsigned>(i), r[i].x, r[i].y);
  return s;
}

GEOSGeometry* geos_polygon(const std::vector<ring>& rings) {
  GEOSContextHandle_t h = context().h;
  std::vector<GEOSGeometry*> holes;
  for (std::size_t k = 1; k < rings.size(); ++k)
    holes.push_back(GEOSGeom_createLinearRing_r(h, sequence(rings[k])));
  return GEOSGeom_createPolygon_r(h, GEOSGeom_createLinearRing_r(h, sequence(rings[0])), holes.data(),
                                  static_cast<unsigned>(holes.size()));
}

// The valid polygon, for PointOnSurface.
GEOSGeometry* geos_area(const polygon& p) {
  if (p.parts.size() == 1) return geos_polygon(p.parts[0]);
  std::vector<GEOSGeometry*> polys;
  for (const auto& part : p.parts) polys.push_back(geos_polygon(part));
  return GEOSGeom_createCollection_r(context().h, GEOS_MULTIPOLYGON, polys.data(),
                                     static_cast<unsigned>(polys.size()));
}

// The rings as lines, for BuildArea.
GEOSGeometry* geos_lines(const Tvx_op2d& op) {
  std::vector<GEOSGeometry*> lines;
  for (int k = 0; k < op.get_size(); ++k) {
    ring r;
    for (int i = 0; i < op.get(k)->get_size(); ++i) r.push_back(op.get(k)->get(i));
    lines.push_back(GEOSGeom_createLineString_r(context().h, sequence(r)));
  }
  return GEOSGeom_createCollection_r(context().h, GEOS_MULTILINESTRING, lines.data(),
                                     static_cast<unsigned>(lines.size()));
}

// Every ring of the record as a polygon of its own, for the organize job.
std::vector<GEOSGeometry*> geos_rings(const Tvx_op2d& op) {
  std::vector<GEOSGeometry*> out;
  for (int k = 0; k < op.get_size(); ++k) {
    ring r;
    for (int i = 0; i < op.get(k)->get_size(); ++i) r.push_back(op.get(k)->get(i));
    out.push_back(geos_polygon({r}));
  }
  return out;
}

struct ring_facts {
  GEOSGeometry* poly;
  double area, xmin, ymin, xmax, ymax, x, y;  // area, envelope, first vertex
  const GEOSPreparedGeometry* prepared = nullptr;
  int parent = -1, depth = 0;
};

ring_facts facts_of(GEOSContextHandle_t h, GEOSGeometry* poly) {
  ring_facts f{poly, 0, 0, 0, 0, 0, 0, 0};
  GEOSArea_r(h, poly, &f.area);
  GEOSGeom_getExtent_r(h, poly, &f.xmin, &f.ymin, &f.xmax, &f.ymax);
  GEOSCoordSeq_getXY_r(h, GEOSGeom_getCoordSeq_r(h, GEOSGetExteriorRing_r(h, poly)), 0, &f.x, &f.y);
  return f;
}

bool holds(GEOSContextHandle_t h, ring_facts& big, const ring_facts& small) {
  if (big.xmin > small.xmin || big.ymin > small.ymin || big.xmax < small.xmax || big.ymax < small.ymax)
    return false;
  if (!big.prepared) big.prepared = GEOSPrepare_r(h, big.poly);
  GEOSGeometry* pt = GEOSGeom_createPointFromXY_r(h, small.x, small.y);
  const bool in = GEOSPreparedContains_r(h, big.prepared, pt) == 1;
  GEOSGeom_destroy_r(h, pt);
  return in;
}

// The polygons with holes that GDAL's organizePolygons would build, by GEOS's predicates; gives their
// number.
int geos_organize(GEOSContextHandle_t h, const std::vector<GEOSGeometry*>& rings) {
  std::vector<ring_facts> f;
  for (GEOSGeometry* g : rings) f.push_back(facts_of(h, g));
  std::vector<int> order(f.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](int a, int b) { return f[a].area > f[b].area; });
  for (std::size_t i = 1; i < order.size(); ++i)
    for (std::size_t j = i; j-- > 0;)
      if (holds(h, f[order[j]], f[order[i]])) {
        f[order[i]].parent = order[j];
        f[order[i]].depth = f[order[j]].depth + 1;
        break;
      }
  int made = 0;
  for (std::size_t i = 0; i < f.size(); ++i) {
    if (f[i].depth % 2) continue;
    std::vector<GEOSGeometry*> holes;
    for (std::size_t j = 0; j < f.size(); ++j)
      if (f[j].parent == static_cast<int>(i) && f[j].depth % 2)
        holes.push_back(GEOSGeom_clone_r(h, GEOSGetExteriorRing_r(h, f[j].poly)));
    GEOSGeometry* shell = GEOSGeom_clone_r(h, GEOSGetExteriorRing_r(h, f[i].poly));
    GEOSGeom_destroy_r(h,
                       GEOSGeom_createPolygon_r(h, shell, holes.data(), static_cast<unsigned>(holes.size())));
    ++made;
  }
  for (ring_facts& r : f)
    if (r.prepared) GEOSPreparedGeom_destroy_r(h, r.prepared);
  return made;
}

// ---- the data sets, built once
// -----------------------------------------------------------------------------

struct data_set {
  std::vector<std::unique_ptr<Tvx_op2d>> ours;
  std::vector<GEOSGeometry*> areas, lines;
  std::vector<std::vector<GEOSGeometry*>> rings;
  long long vertices = 0;

  explicit data_set(const std::vector<polygon>& polys) {
    std::mt19937 rng(9);
    for (const polygon& p : polys) {
      ours.push_back(flat_record(p, rng));
      vertices += ours.back()->get_pnt_count();
      areas.push_back(geos_area(p));
      lines.push_back(geos_lines(*ours.back()));
      rings.push_back(geos_rings(*ours.back()));
    }
  }
  ~data_set() {
    for (GEOSGeometry* g : areas) GEOSGeom_destroy_r(context().h, g);
    for (GEOSGeometry* g : lines) GEOSGeom_destroy_r(context().h, g);
    for (auto& record : rings)
      for (GEOSGeometry* g : record) GEOSGeom_destroy_r(context().h, g);
  }
};

data_set& many() {
  static data_set d(many_polygons(100000));
  return d;
}

data_set& big() {
  static data_set d({big_polygon()});
  return d;
}

data_set& real() {
  static data_set d(real_polygons());
  return d;
}

// The data set of the benchmark's argument; false, with the benchmark skipped, when it is empty.
data_set* pick(benchmark::State& state) {
  data_set& d = state.range(0) == 0 ? many() : state.range(0) == 1 ? big() : real();
  if (d.ours.empty()) {
    state.SkipWithError("no real-world polygons: install r-cran-spdata");
    return nullptr;
  }
  return &d;
}

void label(benchmark::State& state, const data_set& d) {
  const char* names[] = {"100,000 polygons", "one polygon of 1,000,000 vertices", "r-cran-spdata polygons"};
  state.SetLabel(names[state.range(0)]);
  state.counters["vertices/s"] =
      benchmark::Counter(static_cast<double>(d.vertices) * state.iterations(), benchmark::Counter::kIsRate);
}

// ---- the benchmarks
// ------------------------------------------------------------------------------------------

// Runs job, which gives the number of polygons or points it made, over the data set of the argument.
template <class Job>
void measure(benchmark::State& state, Job&& job) {
  data_set* d = pick(state);
  if (!d) return;
  long long made = 0;
  for (auto _ : state) made = job(*d, context().h);
  state.counters["made"] = static_cast<double>(made);
  label(state, *d);
}

void BM_Divide_Ours(benchmark::State& state) {
  measure(state, [](data_set& d, GEOSContextHandle_t) {
    long long made = 0;
    for (auto& op : d.ours) {
      Tvx_ap2d out;
      Tvx_op2d_pgn_divide::execute(op.get(), &out);
      made += out.get_size();
    }
    return made;
  });
}

void BM_Divide_GEOS_Organize(benchmark::State& state) {
  measure(state, [](data_set& d, GEOSContextHandle_t h) {
    long long made = 0;
    for (const auto& record : d.rings) made += geos_organize(h, record);
    return made;
  });
}

void BM_Divide_GEOS_BuildArea(benchmark::State& state) {
  measure(state, [](data_set& d, GEOSContextHandle_t h) {
    long long made = 0;
    for (GEOSGeometry* g : d.lines) {
      GEOSGeometry* area = GEOSBuildArea_r(h, g);
      if (area) made += GEOSGetNumGeometries_r(h, area);
      GEOSGeom_destroy_r(h, area);
    }
    return made;
  });
}

void BM_RefPoint_Ours(benchmark::State& state) {
  measure(state, [](data_set& d, GEOSContextHandle_t) {
    long long made = 0;
    for (auto& op : d.ours) {
      Tvx_point2d p;
      made += op->calc_pgn_refpnt(&p);
    }
    return made;
  });
}

void BM_RefPoint_GEOS_PointOnSurface(benchmark::State& state) {
  measure(state, [](data_set& d, GEOSContextHandle_t h) {
    long long made = 0;
    for (GEOSGeometry* g : d.areas) {
      GEOSGeometry* p = GEOSPointOnSurface_r(h, g);
      made += p != nullptr;
      GEOSGeom_destroy_r(h, p);
    }
    return made;
  });
}

BENCHMARK(BM_Divide_Ours)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Divide_GEOS_Organize)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Divide_GEOS_BuildArea)->Arg(0)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RefPoint_Ours)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RefPoint_GEOS_PointOnSurface)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
