// Speed of the support layer's hot paths: path cleaning, case-insensitive comparison of narrow
// Cyrillic text, and writing a text side file.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "support/ansi_code_page.h"
#include "support/fileio.h"
#include "support/filesystem.h"
#include "support/text_case.h"

namespace {

void BM_CleanPath(benchmark::State& state) {
  const std::wstring path = L"C:/maps/./N-37/../N-38\\latlong\\HYPS\\..\\FRAME\\Frame.shp";
  for (auto _ : state) benchmark::DoNotOptimize(vx::filesystem::clean_path(path));
}
BENCHMARK(BM_CleanPath);

void BM_AnsiCompareNocase(benchmark::State& state) {
  const std::string a = vx::strconv::wide_to_ansi(L"Центральный меридиан проекции");
  const std::string b = vx::strconv::wide_to_ansi(L"ЦЕНТРАЛЬНЫЙ МЕРИДИАН ПРОЕКЦИИ");
  for (auto _ : state) benchmark::DoNotOptimize(vx::text::ansi_compare_nocase(a.c_str(), b.c_str()));
}
BENCHMARK(BM_AnsiCompareNocase);

void BM_WriteAll(benchmark::State& state) {
  const std::wstring text(static_cast<size_t>(state.range(0)), L'Ж');
  const std::wstring path = vx::filesystem::temp_directory() + L"vxk_bench_writeall.prj";
  for (auto _ : state)
    benchmark::DoNotOptimize(vx::fileio::writeall(path, vx::strconv::encodings::system, text));
  state.SetBytesProcessed(state.iterations() * state.range(0));
  vx::filesystem::remove_file(path);
}
BENCHMARK(BM_WriteAll)->Arg(1 << 10)->Arg(1 << 20);

}  // namespace

BENCHMARK_MAIN();
