// Speed of the shape file and table engines: records written and read per second.
// The index lives in memory and records go through one reused buffer, so that writing a record is one
// sequential write and reading one is a seek and a read.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "files/file_dbf.h"
#include "files/file_shp.h"

namespace {

std::string scratch(const char* name) {
  const auto dir = std::filesystem::temp_directory_path() / "vxk_bench_files";
  std::filesystem::create_directories(dir);
  return (dir / name).string();
}

// One polyline of two parts of ten vertices each.
void fill_line(Tvx_op2d& op, int seed) {
  op.clear();
  for (int k = 0; k < 2; ++k) {
    Tvx_pp2d* pp = op.add();
    for (int i = 0; i < 10; ++i) pp->add(vx_point2d(seed + i * 0.5, k * 100.0 + i));
  }
}

void write_lines(const std::string& path, int count) {
  Tvx_file_shp shp;
  shp.create(path.c_str(), SHP_POLYLINE);
  Tvx_op2d op;
  for (int r = 0; r < count; ++r) {
    fill_line(op, r);
    shp.add_polyline(&op);
  }
  shp.close();
}

void BM_shp_write_polylines(benchmark::State& state) {
  const std::string path = scratch("write.shp");
  const int count = static_cast<int>(state.range(0));
  for (auto _ : state) write_lines(path, count);
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_shp_write_polylines)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_shp_read_polylines(benchmark::State& state) {
  const std::string path = scratch("read.shp");
  const int count = static_cast<int>(state.range(0));
  write_lines(path, count);
  for (auto _ : state) {
    Tvx_file_shp shp;
    shp.open(path.c_str(), true);
    Tvx_op2d op;
    for (unsigned i = 0; i < shp.get_no(); ++i) {
      shp.get_obj_type(i);
      shp.get_polyline(&op);
    }
    benchmark::DoNotOptimize(op.get_size());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_shp_read_polylines)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_dbf_write_records(benchmark::State& state) {
  const std::string path = scratch("write.dbf");
  const int count = static_cast<int>(state.range(0));
  Tvx_dbf_prpdefs defs;
  Tvx_dbf_prpdef* id = defs.add();
  id->set_name("ID");
  id->set_type('N');
  id->set_length(8);
  Tvx_dbf_prpdef* name = defs.add();
  name->set_name("NAME");
  for (auto _ : state) {
    Tvx_file_dbf dbf;
    dbf.create(path.c_str(), &defs, static_cast<uint32_t>(count));
    for (int r = 0; r < count; ++r) {
      dbf.set_rec(static_cast<uint32_t>(r));
      dbf.set_int(0, r);
      dbf.set_str(1, "label");
    }
    dbf.close();
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_dbf_write_records)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
