// The neighbours that `vxk sheet --neighbours` prints must be exactly those the library computes for
// the sheet generator: the program reaches them through the public setters only, so this runs it over
// the edges, corners, the date line and the equator and compares with helper_200.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "stdlist/helper_200.h"
#include "stdlist/helper_mln.h"
#include "support/ansi_code_page.h"
#include "test_paths.h"

namespace {

namespace h200 = vx::stdlist::helper_200;
namespace mln = vx::stdlist::helper_mln;

struct run_result {
  int status;
  std::string out;
};

// vxk is built beside this test program; VXK_BIN_DIR names the folder when the environment carries it.
std::filesystem::path vxk_path() {
  if (std::getenv("VXK_BIN_DIR")) return vxk_test::bin_dir() / "vxk";
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "vxk";
}

run_result run_vxk(const std::string& args) {
  const std::string cmd = vxk_path().string() + " sheet " + args + " 2>&1";
  run_result r{-1, {}};
  FILE* p = popen(cmd.c_str(), "r");
  if (!p) return r;
  char buf[512];
  while (std::fgets(buf, sizeof buf, p)) r.out += buf;
  r.status = pclose(p);
  return r;
}

std::string line_of(const std::string& out, const std::string& name) {
  const std::string key = name + ":";
  const size_t at = out.find(key);
  if (at == std::string::npos) return "<missing " + name + ">";
  size_t from = out.find_first_not_of(' ', at + key.size());
  return out.substr(from, out.find('\n', from) - from);
}

void check_sheet(Tvx_stdlist_hemisphere hemi, std::uint64_t letter, std::uint64_t number, std::uint64_t roman,
                 Tvx_stdlist_type type) {
  std::wstring left, right, upper, lower;
  ASSERT_TRUE(h200::get_neighbor_list_str(hemi, letter, number, roman, left, right, upper, lower, type));
  const std::wstring designation = std::wstring(1, mln::letter_by_idx(letter)) + L"-" +
                                   std::to_wstring(number) + L"-" + h200::string(roman);
  const std::string args = std::string(hemi == VX_STDLIST_SOUTH ? "--south " : "") + "--type " +
                           std::to_string(type) + " --neighbours " + vx::strconv::wide_to_utf8(designation);
  const run_result r = run_vxk(args);
  ASSERT_EQ(r.status, 0) << args << "\n" << r.out;
  EXPECT_EQ(line_of(r.out, "left"), vx::strconv::wide_to_utf8(left)) << args;
  EXPECT_EQ(line_of(r.out, "right"), vx::strconv::wide_to_utf8(right)) << args;
  EXPECT_EQ(line_of(r.out, "upper"), vx::strconv::wide_to_utf8(upper)) << args;
  EXPECT_EQ(line_of(r.out, "lower"), vx::strconv::wide_to_utf8(lower)) << args;
}

TEST(VxkSheetNeighbours, AgreeWithTheLibraryOnEveryBorderSheetOfAMillionSheet) {
  for (std::uint64_t roman = 1; roman <= 36; ++roman) {
    const bool border = roman <= 6 || roman > 30 || roman % 6 <= 1;
    if (border) check_sheet(VX_STDLIST_NORTH, 14, 37, roman, 1);
  }
}

TEST(VxkSheetNeighbours, AgreeForJoinedSheetsAtTheDateLineAndThePoles) {
  for (Tvx_stdlist_type type : {2, 3}) {
    for (std::uint64_t roman : {1, 2, 5, 6, 31, 36}) {
      check_sheet(VX_STDLIST_NORTH, 21, 60, roman, type);  // "U", the east column
      check_sheet(VX_STDLIST_NORTH, 16, 1, roman, type);   // "P", the west column
    }
  }
}

TEST(VxkSheetNeighbours, AgreeAtTheEquatorAndTheLastBandsInBothHemispheres) {
  for (Tvx_stdlist_hemisphere hemi : {VX_STDLIST_NORTH, VX_STDLIST_SOUTH}) {
    for (std::uint64_t letter : {1, 2, 21, 22}) {
      for (std::uint64_t roman : {3, 33}) check_sheet(hemi, letter, 30, roman, 1);
    }
  }
}

}  // namespace
