// Batch reprojection of a million points from geographic Pulkovo 1942 to Gauss-Kruger zone 7: through
// Tvx_reproj_xy::apply_array, and through a bare proj_trans_generic call on a PROJ object built the
// same way from the same texts. The target is our path within 1.1 times the bare call.
#include <benchmark/benchmark.h>
#include <proj.h>

#include <algorithm>
#include <string>
#include <vector>

#include "reproj/reproj_xy.h"

namespace {

constexpr unsigned kPoints = 1000000;
const char* const kPulkovo =
    "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs";
const char* const kGkZone7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";

// A lattice over the zone: 36 to 42 degrees east, 40 to 70 degrees north.
struct lattice {
  std::vector<double> x, y;
  lattice() : x(kPoints), y(kPoints) {
    for (unsigned i = 0; i < kPoints; ++i) {
      x[i] = 36.0 + 6.0 * (i % 1000) / 1000.0;
      y[i] = 40.0 + 30.0 * (i / 1000) / 1000.0;
    }
  }
};

const lattice& points() {
  static const lattice l;
  return l;
}

void BM_apply_array(benchmark::State& state) {
  Tvx_reproj_xy r;
  if (!r.init(kPulkovo, kGkZone7)) state.SkipWithError("init failed");
  Tvx_xy_array a;
  a.set_size(kPoints);
  for (auto _ : state) {
    state.PauseTiming();
    std::copy(points().x.begin(), points().x.end(), a.get_x_ptr());
    std::copy(points().y.begin(), points().y.end(), a.get_y_ptr());
    state.ResumeTiming();
    if (!r.apply_array(&a)) state.SkipWithError("apply_array failed");
    benchmark::DoNotOptimize(a.get_x_ptr());
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
}

void BM_bare_proj_trans_generic(benchmark::State& state) {
  const std::string src = Tvx_reproj_xy_exec::verify_pj4str(kPulkovo, nullptr);
  const std::string dst = Tvx_reproj_xy_exec::verify_pj4str(kGkZone7, nullptr);
  PJ* pj = proj_create_crs_to_crs(nullptr, src.c_str(), dst.c_str(), nullptr);
  PJ* norm = pj ? proj_normalize_for_visualization(nullptr, pj) : nullptr;
  if (!norm) state.SkipWithError("PROJ object not built");
  std::vector<double> x(kPoints), y(kPoints);
  for (auto _ : state) {
    state.PauseTiming();
    std::copy(points().x.begin(), points().x.end(), x.begin());
    std::copy(points().y.begin(), points().y.end(), y.begin());
    state.ResumeTiming();
    size_t n = proj_trans_generic(norm, PJ_FWD, x.data(), sizeof(double), kPoints, y.data(), sizeof(double),
                                  kPoints, nullptr, 0, 0, nullptr, 0, 0);
    if (n != kPoints) state.SkipWithError("proj_trans_generic failed");
    benchmark::DoNotOptimize(x.data());
  }
  state.SetItemsProcessed(state.iterations() * kPoints);
  proj_destroy(norm);
  proj_destroy(pj);
}

}  // namespace

BENCHMARK(BM_apply_array)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_bare_proj_trans_generic)->Unit(benchmark::kMillisecond)->MinTime(2.0);

BENCHMARK_MAIN();
