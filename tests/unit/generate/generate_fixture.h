// What the generation tests share: sheets made from their designation's parts, output folders with the
// four sub-folders (or some of them), the files found under a folder, and an environment that keeps
// the messages it receives.
#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "stdlist/generate/00_params.h"
#include "support/env.h"
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

// Keeps the error texts that reach the environment while it lives.
class message_log : public Tvx_env {
 public:
  message_log() { Tvx_env_main::set_env(this); }
  ~message_log() override { Tvx_env_main::set_env(nullptr); }
  message_log(const message_log&) = delete;
  message_log& operator=(const message_log&) = delete;

  std::vector<std::string> errors;
  void message(const char*) override {}
  void error(const char* text) override { errors.emplace_back(text); }
  void set_debug_flag(bool) override {}
  void debug_message(const char*) override {}
  void* wait_start(const char*) override { return nullptr; }
  void wait_finish(void*, int) override {}
  void* progress_start(const char*) override { return nullptr; }
  void progress(void*, uint32_t, uint32_t) override {}
  void progress_finish(void*, int) override {}
  bool stopped() override { return false; }
};

}  // namespace vxk_test
