// Chord simplification and fast point in ring beside GEOS, in one run, on the same data:
//   - Douglas-Peucker on a 1,000,000-vertex line: Tvx_chord_simplify2d (on a fresh copy of the line,
//     since it works in place) against GEOSSimplify (which builds a new geometry);
//   - 1,000,000 points against a 100,000-vertex ring: Tvx_pp2d_include_fast against GEOS prepared
//     geometry (GEOSPreparedIntersects, which like ours counts the boundary as inside), each with its
//     index built once outside the timing, and again with the building timed.
// GEOS 3.11 has no test by coordinates for prepared geometry, so each of its queries makes and frees a
// point geometry; that is the price of using it from C.
#include <benchmark/benchmark.h>
#include <geos_c.h>

#include <cmath>
#include <random>
#include <vector>

#include "algo/chord_simplify2d.h"
#include "algo/pp2d_include_fast.h"
#include "geom/pp2d.h"

namespace {

constexpr int kLineSize = 1000000;
constexpr double kTolerance = 2.0;
constexpr int kRingSize = 100000;
constexpr int kPoints = 1000000;

// A meandering line of unit steps, like a river on a map: the heading wanders a little at each vertex.
std::vector<double> river(int n) {
  std::mt19937_64 rng(1);
  std::normal_distribution<double> turn(0.0, 0.3);
  std::vector<double> xy;
  double x = 0, y = 0, heading = 0;
  for (int i = 0; i < n; ++i) {
    xy.push_back(x);
    xy.push_back(y);
    heading += turn(rng);
    x += std::cos(heading);
    y += std::sin(heading);
  }
  return xy;
}

// A closed ring on a wavy circle of radius about 1000, n vertices.
std::vector<double> wavy_ring(int n) {
  std::vector<double> xy;
  for (int i = 0; i + 1 < n; ++i) {
    const double a = -2.0 * M_PI * i / (n - 1);
    const double r = 1000.0 * (1.0 + 0.3 * std::sin(7.0 * a) + 0.05 * std::sin(301.0 * a));
    xy.push_back(r * std::cos(a));
    xy.push_back(r * std::sin(a));
  }
  xy.push_back(xy[0]);
  xy.push_back(xy[1]);
  return xy;
}

std::vector<double> random_points(int n) {
  std::mt19937_64 rng(2);
  std::uniform_real_distribution<double> coord(-1400.0, 1400.0);
  std::vector<double> xy(2 * static_cast<std::size_t>(n));
  for (double& v : xy) v = coord(rng);
  return xy;
}

Tvx_pp2d to_pp2d(const std::vector<double>& xy) {
  Tvx_pp2d pp;
  for (std::size_t i = 0; i + 1 < xy.size(); i += 2) pp.add(xy[i], xy[i + 1]);
  return pp;
}

// One GEOS context for the run.
GEOSContextHandle_t geos() {
  static GEOSContextHandle_t handle = GEOS_init_r();
  return handle;
}

GEOSCoordSequence* to_sequence(const std::vector<double>& xy) {
  return GEOSCoordSeq_copyFromBuffer_r(geos(), xy.data(), xy.size() / 2, 0, 0);
}

void BM_ChordSimplify(benchmark::State& state) {
  const Tvx_pp2d line = to_pp2d(river(kLineSize));
  int kept = 0;
  for (auto _ : state) {
    Tvx_pp2d copy;
    copy.assign(&line);
    Tvx_chord_simplify2d::execute(&copy, kTolerance);
    kept = copy.get_size();
    benchmark::DoNotOptimize(kept);
  }
  state.counters["kept"] = kept;
  state.SetItemsProcessed(state.iterations() * kLineSize);
}
BENCHMARK(BM_ChordSimplify)->Unit(benchmark::kMillisecond);

void BM_GeosSimplify(benchmark::State& state) {
  GEOSGeometry* line = GEOSGeom_createLineString_r(geos(), to_sequence(river(kLineSize)));
  int kept = 0;
  for (auto _ : state) {
    GEOSGeometry* simple = GEOSSimplify_r(geos(), line, kTolerance);
    kept = GEOSGeomGetNumPoints_r(geos(), simple);
    GEOSGeom_destroy_r(geos(), simple);
  }
  GEOSGeom_destroy_r(geos(), line);
  state.counters["kept"] = kept;
  state.SetItemsProcessed(state.iterations() * kLineSize);
}
BENCHMARK(BM_GeosSimplify)->Unit(benchmark::kMillisecond);

int count_fast(Tvx_pp2d_include_fast& fast, const std::vector<double>& pts) {
  int inside = 0;
  for (std::size_t i = 0; i < pts.size(); i += 2) inside += fast.include(pts[i], pts[i + 1]);
  return inside;
}

int count_geos(const GEOSPreparedGeometry* prepared, const std::vector<double>& pts) {
  int inside = 0;
  for (std::size_t i = 0; i < pts.size(); i += 2) {
    GEOSGeometry* p = GEOSGeom_createPointFromXY_r(geos(), pts[i], pts[i + 1]);
    inside += GEOSPreparedIntersects_r(geos(), prepared, p) == 1;
    GEOSGeom_destroy_r(geos(), p);
  }
  return inside;
}

GEOSGeometry* geos_polygon(const std::vector<double>& ring) {
  return GEOSGeom_createPolygon_r(geos(), GEOSGeom_createLinearRing_r(geos(), to_sequence(ring)), nullptr, 0);
}

void BM_IncludeFast(benchmark::State& state) {
  const Tvx_pp2d ring = to_pp2d(wavy_ring(kRingSize));
  const std::vector<double> pts = random_points(kPoints);
  const bool build = state.range(0) != 0;
  Tvx_pp2d_include_fast fast;
  if (!build) fast.prepare(&ring);
  int inside = 0;
  for (auto _ : state) {
    if (build) fast.prepare(&ring);
    inside = count_fast(fast, pts);
  }
  state.counters["inside"] = inside;
  state.SetItemsProcessed(state.iterations() * kPoints);
}
BENCHMARK(BM_IncludeFast)->ArgName("build")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_GeosPreparedIntersects(benchmark::State& state) {
  GEOSGeometry* polygon = geos_polygon(wavy_ring(kRingSize));
  const std::vector<double> pts = random_points(kPoints);
  const bool build = state.range(0) != 0;
  const GEOSPreparedGeometry* prepared = nullptr;
  if (!build) {
    prepared = GEOSPrepare_r(geos(), polygon);
    count_geos(prepared, pts);  // the prepared geometry builds its index on the first query
  }
  int inside = 0;
  for (auto _ : state) {
    if (build) {
      GEOSPreparedGeom_destroy_r(geos(), prepared);
      prepared = GEOSPrepare_r(geos(), polygon);
    }
    inside = count_geos(prepared, pts);
  }
  GEOSPreparedGeom_destroy_r(geos(), prepared);
  GEOSGeom_destroy_r(geos(), polygon);
  state.counters["inside"] = inside;
  state.SetItemsProcessed(state.iterations() * kPoints);
}
BENCHMARK(BM_GeosPreparedIntersects)->ArgName("build")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
