// What the generation tests share: sheets made from their designation's parts, output folders with the
// four sub-folders (or some of them), the files found under a folder, and an environment that keeps
// the messages it receives.
#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "error_log.h"
#include "stdlist/generate/00_params.h"
#include "support/rc.h"
#include "test_paths.h"
#include "vxk_proj4_shp.h"

namespace vxk_test {

namespace fs = std::filesystem;

// Gauss-Kruger zone 7 on Pulkovo 1942, the zone of N-37.
inline const wchar_t* const GK7 =
    L"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    L"+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";
inline const wchar_t* const PULKOVO =
    L"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs";

// A designation record: letter index (A = 1), column, and for 1:200,000 the Roman index.
inline vx::stdlist::stdlist_string sheet(std::uint64_t letter, std::uint64_t number, std::uint64_t roman = 0,
                                         Tvx_stdlist_type type = VX_STDLIST_TP_SGL,
                                         Tvx_stdlist_hemisphere hemisphere = VX_STDLIST_NORTH) {
  vx::stdlist::stdlist_string s;
  const Tvx_stdlist_scale scale = roman ? VX_STDLIST_SC_200 : VX_STDLIST_SC_MLN;
  s.init(scale, type, hemisphere);
  s.set_mln_letter_idx(letter);
  s.set_mln_number(number);
  if (roman) s.set_200_roman_idx(roman);
  return s;
}

inline const std::vector<std::string>& all_folders() {
  static const std::vector<std::string> f = {"HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME"};
  return f;
}

// A fresh output folder with the given sub-folders; its path ends in a separator.
inline std::wstring output_dir(const std::string& name,
                               const std::vector<std::string>& folders = all_folders()) {
  const fs::path dir = scratch_dir("generate_" + name);
  for (const std::string& f : folders) fs::create_directories(dir / f);
  return dir.wstring() + L"/";
}

// The files under a folder, as paths relative to it.
inline std::set<std::string> files_under(const std::wstring& dir) {
  std::set<std::string> out;
  for (const auto& e : fs::recursive_directory_iterator(fs::path(dir))) {
    if (e.is_regular_file()) out.insert(fs::relative(e.path(), fs::path(dir)).generic_string());
  }
  return out;
}

// The files of one shape set beside "name.shp".
inline std::set<std::string> shape_set(const std::string& folder, const std::string& name) {
  std::set<std::string> out;
  for (const char* ext : {".shp", ".shx", ".dbf", ".prj", ".pj4"}) out.insert(folder + "/" + name + ext);
  return out;
}

// The files of several shape sets, each named as "folder/name" under the prefix.
inline std::set<std::string> shape_sets(const std::vector<std::string>& shapes,
                                        const std::string& prefix = "") {
  std::set<std::string> out;
  for (const std::string& f : shapes) {
    const size_t slash = f.rfind('/');
    const auto one = shape_set(prefix + f.substr(0, slash), f.substr(slash + 1));
    out.insert(one.begin(), one.end());
  }
  return out;
}

using message_log = error_log;

// Parameters of a standard sheet written under dir in the scene, with the divisions given.
inline vx::stdlist::stdlist_params sheet_params(const vx::stdlist::stdlist_string& s, const std::wstring& dir,
                                                const wchar_t* scene = GK7, int lon_main = 6,
                                                int lon_addt = 6, int lat_main = 4, int lat_addt = 6) {
  vx::stdlist::stdlist_params p(&s);
  p.set_output_dir(dir.c_str());
  p.set_scene_proj(scene);
  p.set_lon_divs(lon_main, lon_addt);
  p.set_lat_divs(lat_main, lat_addt);
  return p;
}

}  // namespace vxk_test
