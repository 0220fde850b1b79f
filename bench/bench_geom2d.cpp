// Costs of the plane point vector on large rings: point-in-ring, area, rectangle and resampling.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

#include "geom/pp2d.h"

namespace {

// A closed ring of n vertices on a circle of radius 1000 about the origin, clockwise.
Tvx_pp2d circle(int n) {
  Tvx_pp2d pp;
  for (int i = 0; i < n; ++i) {
    const double a = -2.0 * M_PI * i / n;
    pp.add(1000.0 * std::cos(a), 1000.0 * std::sin(a));
  }
  pp.close();
  return pp;
}

void BM_Include(benchmark::State& state) {
  const Tvx_pp2d ring = circle(static_cast<int>(state.range(0)));
  double y = -900.0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ring.include(10.0, y));
    y = y > 900.0 ? -900.0 : y + 0.37;
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));  // edges visited
}
BENCHMARK(BM_Include)->Arg(1000)->Arg(100000);

void BM_RectAfterChange(benchmark::State& state) {
  Tvx_pp2d ring = circle(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    ring.set(1, ring.get(1));  // marks the state stale
    benchmark::DoNotOptimize(ring.get_rect());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_RectAfterChange)->Arg(100000);

void BM_Area(benchmark::State& state) {
  const Tvx_pp2d ring = circle(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(ring.calc_area());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Area)->Arg(100000);

void BM_EqualDist(benchmark::State& state) {
  const Tvx_pp2d ring = circle(1000);  // perimeter about 6283
  for (auto _ : state) {
    std::unique_ptr<Tvx_pp2d> r(ring.make_equal_dist(0.1));
    benchmark::DoNotOptimize(r->get_size());
  }
}
BENCHMARK(BM_EqualDist);

void BM_Densify(benchmark::State& state) {
  const Tvx_pp2d ring = circle(1000);
  for (auto _ : state) {
    std::unique_ptr<Tvx_pp2d> r(ring.densify(0.1));
    benchmark::DoNotOptimize(r->get_size());
  }
}
BENCHMARK(BM_Densify);

}  // namespace

BENCHMARK_MAIN();
