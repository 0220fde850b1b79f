// Generation of N-37 and N-37-VI, both sets (the scene set in Gauss-Kruger zone 7 and the latlong set),
// through the public function, against the floor of the PROJ work the job cannot avoid: creating the
// two transformations it uses (the sheet's geographic system to the scene, and back), transforming its
// lattice, and transforming back every vertex of the scene set's files (as many as a run writes), with
// proj_trans_generic. PROJ gets the same texts as from the library. The ratio of the two is the cost of
// everything else: files, tables, projection files, a transformation back built for each file, and the
// scene's ESRI WKT for the .prj files, which PROJ makes and which BM_scene_esri_wkt times alone.
#include <benchmark/benchmark.h>
#include <proj.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/file_shp.h"
#include "geom/op2d.h"
#include "reproj/reproj_xy_exec.h"
#include "stdlist/generate/10_generator.h"
#include "support/ansi_code_page.h"

namespace {

namespace fs = std::filesystem;
using vx::stdlist::stdlist_params;

const wchar_t* const kGk7 =
    L"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    L"+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";

struct sheet_case {
  vx::stdlist::stdlist_string sheet;
  int lon_main, lon_addt, lat_main, lat_addt;
};

// 0: N-37 with degree lines and 10' marks; 1: N-37-VI with 20' lines and 1' marks.
sheet_case make_case(int which) {
  sheet_case c{};
  const bool at200 = which == 1;
  c.sheet.init(at200 ? VX_STDLIST_SC_200 : VX_STDLIST_SC_MLN, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH);
  c.sheet.set_mln_letter_idx(14);
  c.sheet.set_mln_number(37);
  if (at200) c.sheet.set_200_roman_idx(6);
  c.lon_main = at200 ? 3 : 6;
  c.lon_addt = at200 ? 20 : 6;
  c.lat_main = at200 ? 2 : 4;
  c.lat_addt = at200 ? 20 : 6;
  return c;
}

stdlist_params params_of(const sheet_case& c, const std::wstring& dir) {
  stdlist_params p(&c.sheet);
  p.set_output_dir(dir.c_str());
  p.set_scene_proj(kGk7);
  p.set_lon_divs(c.lon_main, c.lon_addt);
  p.set_lat_divs(c.lat_main, c.lat_addt);
  return p;
}

std::string name_of(const sheet_case& c) {
  std::wstring name;
  return vx::strconv::wide_to_utf8(c.sheet.get_output_string(name));
}

std::wstring output_dir(int which) {
  const fs::path dir = fs::temp_directory_path() / ("vxk_bench_generate_" + std::to_string(which));
  fs::remove_all(dir);
  for (const char* f : {"HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME"}) fs::create_directories(dir / f);
  return dir.wstring() + L"/";
}

// The lattice the generator builds for the sheet, taken from the generator itself.
struct lattice_probe : vx::stdlist::stdlist_generate {
  using stdlist_generate::stdlist_generate;
  std::vector<double> xs() const { return grid.xs(); }
  std::vector<double> ys() const { return grid.ys(); }
};

// The vertices of the scene set that a run writes, and so takes back to degrees.
size_t scene_vertices(const sheet_case& c) {
  const std::wstring dir = output_dir(2);
  Tvx_stdlist_params params{params_of(c, dir)};
  vx_stdlist_generate_shapes(&params);
  size_t count = 0;
  for (const auto& e : fs::recursive_directory_iterator(fs::path(dir))) {
    if (e.path().extension() != ".shp" || e.path().parent_path().parent_path().filename() == "latlong")
      continue;
    Tvx_file_shp shp;
    shp.open(e.path().string().c_str(), true);
    for (unsigned i = 0; i < shp.get_no(); ++i) {
      const int type = shp.get_obj_type(i);
      if (type == SHP_POINT) {
        ++count;
        continue;
      }
      Tvx_op2d o;
      if (!(type == SHP_POLYGON ? shp.get_polygon(&o) : shp.get_polyline(&o))) continue;
      for (int k = 0; k < o.get_size(); ++k) count += static_cast<size_t>(o.get(k)->get_size());
    }
  }
  fs::remove_all(fs::path(dir));
  return count;
}

void BM_generate(benchmark::State& state) {
  const sheet_case c = make_case(static_cast<int>(state.range(0)));
  const std::wstring dir = output_dir(static_cast<int>(state.range(0)));
  Tvx_stdlist_params params{params_of(c, dir)};
  for (auto _ : state) {
    if (!vx_stdlist_generate_shapes(&params)) state.SkipWithError("generation failed");
  }
  state.SetLabel(name_of(c));
  fs::remove_all(fs::path(dir));
}

PJ* transformation(const std::string& from, const std::string& to) {
  PJ* pj = proj_create_crs_to_crs(nullptr, from.c_str(), to.c_str(), nullptr);
  PJ* norm = pj ? proj_normalize_for_visualization(nullptr, pj) : nullptr;
  proj_destroy(pj);
  return norm;
}

void BM_floor(benchmark::State& state) {
  const sheet_case c = make_case(static_cast<int>(state.range(0)));
  stdlist_params p = params_of(c, L"unused/");
  lattice_probe probe(p);
  probe.init_grid();
  const std::vector<double> xs = probe.xs(), ys = probe.ys();
  std::vector<double> x, y;
  for (double v : ys)
    for (double u : xs) x.push_back(u), y.push_back(v);
  const size_t nodes = x.size();
  const size_t back = scene_vertices(c);
  // the lattice's points, repeated, stand in for the vertices taken back
  for (size_t i = nodes; i < back; ++i) x.push_back(x[i % nodes]), y.push_back(y[i % nodes]);
  const std::string geographic = Tvx_reproj_xy_exec::verify_pj4str(
      vx::strconv::wide_to_utf8(vx::stdlist::traits::get_styllibs_proj()).c_str(), nullptr);
  const std::string scene =
      Tvx_reproj_xy_exec::verify_pj4str(vx::strconv::wide_to_utf8(kGk7).c_str(), nullptr);
  std::vector<double> lx, ly;
  for (auto _ : state) {
    lx = x;
    ly = y;
    PJ* there = transformation(geographic, scene);
    PJ* to_degrees = transformation(scene, geographic);
    if (!there || !to_degrees) state.SkipWithError("PROJ objects not built");
    proj_trans_generic(there, PJ_FWD, lx.data(), sizeof(double), nodes, ly.data(), sizeof(double), nodes,
                       nullptr, 0, 0, nullptr, 0, 0);
    proj_trans_generic(to_degrees, PJ_FWD, lx.data(), sizeof(double), back, ly.data(), sizeof(double), back,
                       nullptr, 0, 0, nullptr, 0, 0);
    benchmark::DoNotOptimize(lx.data());
    proj_destroy(there);
    proj_destroy(to_degrees);
  }
  state.SetLabel(name_of(c) + ", lattice " + std::to_string(xs.size()) + " x " + std::to_string(ys.size()) +
                 ", " + std::to_string(back) + " vertices back");
}

// The floor and the one more piece of PROJ work that the files need: the scene in ESRI WKT for the .prj
// files (made once in a run).
void BM_scene_esri_wkt(benchmark::State& state) {
  const std::string scene = vx::strconv::wide_to_utf8(kGk7) + " +type=crs";
  for (auto _ : state) {
    PJ* crs = proj_create(nullptr, scene.c_str());
    const char* wkt = crs ? proj_as_wkt(nullptr, crs, PJ_WKT1_ESRI, nullptr) : nullptr;
    if (!wkt) state.SkipWithError("no WKT");
    benchmark::DoNotOptimize(wkt);
    proj_destroy(crs);
  }
  state.SetLabel("the scene in ESRI WKT alone");
}

}  // namespace

BENCHMARK(BM_scene_esri_wkt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_generate)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_floor)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
