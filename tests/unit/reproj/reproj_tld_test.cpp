// Reprojection of text lists and TLD files.
#include "reproj/reproj_tld.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "../services/text_list_samples.h"
#include "fault_injection.h"
#include "services/flat_types.h"
#include "support/ansi_code_page.h"
#include "test_paths.h"

namespace {

namespace fs = std::filesystem;

const wchar_t* const WGS84 = L"+proj=longlat +datum=WGS84";
const wchar_t* const MERC = L"+proj=merc +lon_0=0 +k=1 +x_0=0 +y_0=0 +ellps=WGS84 +units=m";
const wchar_t* const KRASS_TM = L"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=0 +y_0=0 +k_0=1 +ellps=krass +units=m";
const wchar_t* const UTM37 = L"+proj=utm +zone=37 +ellps=WGS84 +units=m";
const wchar_t* const FAR_SIDE = L"+proj=ortho +lat_0=0 +lon_0=180 +datum=WGS84 +units=m";
const wchar_t* const NOT_A_SYSTEM = L"/styles/std_list/proj0.pj4";

// Ellipsoidal Mercator on WGS 84 by its formula, independent of PROJ.
constexpr double A = 6378137.0;
const double E = std::sqrt(0.0066943799901413165);
double merc_x(double lon) {
  return A * lon * M_PI / 180;
}
double merc_y(double lat) {
  const double s = std::sin(lat * M_PI / 180);
  return A * (std::atanh(s) - E * std::atanh(E * s));
}
// The length factor of WGS 84 degrees to Mercator metres at the origin.
double merc_k() {
  return std::hypot(merc_x(1), merc_y(1)) / 1.4142135623730951;
}

struct list_deleter {
  void operator()(Tvx_text_list_base* l) const { vx_text_list_destroy(l); }
};
using list_ptr = std::unique_ptr<Tvx_text_list_base, list_deleter>;

list_ptr one_label(int type, unsigned points, double lon, double lat, double size) {
  list_ptr list(vx_text_list_create());
  Tvx_text_data* t = vx_text_list_add(list.get());
  vx_text_data_set_type(t, type);
  for (unsigned j = 0; j < points; ++j) vx_text_data_add_point(t, Tvx_vtx_d2{lon + j, lat});
  const unsigned metrics = type == 2 && points > 1 ? points : 1;
  for (unsigned j = 0; j < metrics; ++j) {
    vx_text_data_set_size(t, size, j);
    vx_text_data_set_delta_x(t, size / 2, j);
    vx_text_data_set_delta_y(t, -size / 4, j);
  }
  return list;
}

Tvx_text_data* first(const list_ptr& list) {
  return vx_text_list_at(list.get(), 0);
}

// The tests run in the "C" locale: wide paths are made from UTF-8, the file system's encoding.
std::wstring wide(const fs::path& p) {
  return vx::strconv::utf8_to_wide(p.string());
}

list_ptr read_tld(const fs::path& p) {
  list_ptr list(vx_text_list_create());
  Tvx_tld_file* f = vx_tld_file_open_w(wide(p).c_str());
  EXPECT_NE(f, nullptr);
  if (!f) return list;
  EXPECT_TRUE(vx_tld_file_read_all(f, list.get())) << vx_tld_file_get_error(f);
  vx_tld_file_close(f);
  return list;
}

void write_tld(const fs::path& p, Tvx_text_list_base* list) {
  Tvx_tld_file* f = vx_tld_file_open_w(wide(p).c_str());
  ASSERT_NE(f, nullptr);
  ASSERT_TRUE(vx_tld_file_write_all(f, list, 0));
  vx_tld_file_close(f);
}

std::vector<char> bytes(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(ReprojTld, XspAlwaysFailsAndTouchesNothing) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_xsp");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "a.tld", list.get());
  const std::vector<char> before = bytes(dir / "a.tld");
  const std::string src = (dir / "a.tld").string();
  const std::string dst = (dir / "b.tld").string();
  EXPECT_FALSE(
      vx_proj4_xsp(src.c_str(), "+proj=longlat +datum=WGS84", dst.c_str(), "+proj=longlat +datum=WGS84"));
  EXPECT_FALSE(vx_proj4_xsp(nullptr, nullptr, nullptr, nullptr));
  EXPECT_EQ(Tvx_reproj_xsp::execute(src.c_str(), "", dst.c_str(), ""), 1);
  EXPECT_FALSE(fs::exists(dir / "b.tld"));
  EXPECT_EQ(bytes(dir / "a.tld"), before);
}

TEST(ReprojTld, DegreesToMetresScaleByTheDiagonalAtTheOrigin) {
  list_ptr list = one_label(1, 1, 10, 50, 0.01);
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, MERC));
  const double k = merc_k();
  EXPECT_NEAR(k, 110950.0, 50.0);  // about one degree in metres, as the diagonal averages x and y
  Tvx_text_data* t = first(list);
  EXPECT_NEAR(vx_text_data_get_size(t, 0), 0.01 * k, 1e-6);
  EXPECT_NEAR(vx_text_data_get_delta_x(t, 0), 0.005 * k, 1e-6);
  EXPECT_NEAR(vx_text_data_get_delta_y(t, 0), -0.0025 * k, 1e-6);
  EXPECT_NEAR(vx_text_data_get_point(t, 0).x, merc_x(10), 1e-3);
  EXPECT_NEAR(vx_text_data_get_point(t, 0).y, merc_y(50), 1e-3);
}

TEST(ReprojTld, OneFactorServesTheWholeList) {
  // Mercator stretches with latitude, but the factor is the one at the source origin for every label.
  list_ptr list = one_label(1, 1, 0, 70, 1);
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, MERC));
  EXPECT_NEAR(vx_text_data_get_size(first(list), 0), merc_k(), 1e-6);
}

TEST(ReprojTld, SameUnitsNearTheSourceOriginGiveAFactorNearOne) {
  list_ptr list = one_label(1, 1, 1000, 2000, 10);
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), KRASS_TM, UTM37));
  const double size = vx_text_data_get_size(first(list), 0);
  EXPECT_NEAR(size / 10, 1.0, 1e-3);
  EXPECT_NE(size, 10.0);  // the UTM scale factor 0.9996 and the other ellipsoid show
}

TEST(ReprojTld, EqualProjectionsGiveOneUpToRounding) {
  list_ptr list(vxk_test::make_full_list());
  list_ptr original(vxk_test::make_full_list());
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, WGS84));
  for (unsigned i = 0; i < vx_text_list_get_size(list.get()); ++i) {
    Tvx_text_data* t = vx_text_list_at(list.get(), i);
    Tvx_text_data* o = vx_text_list_at(original.get(), i);
    EXPECT_NEAR(vx_text_data_get_size(t, 0), vx_text_data_get_size(o, 0), 1e-12);
    for (unsigned j = 0; j < vx_text_data_get_count(t); ++j) {
      EXPECT_NEAR(vx_text_data_get_point(t, j).x, vx_text_data_get_point(o, j).x, 1e-9);
      EXPECT_NEAR(vx_text_data_get_point(t, j).y, vx_text_data_get_point(o, j).y, 1e-9);
    }
  }
}

TEST(ReprojTld, EqualProjectionsRewriteTheFileThroughTheList) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_equal");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "src.tld", list.get());
  ASSERT_TRUE(
      vx_proj4_tld_w((dir / "src.tld").wstring().c_str(), WGS84, (dir / "dst.tld").wstring().c_str(), WGS84));
  list_ptr back = read_tld(dir / "dst.tld");
  ASSERT_EQ(vx_text_list_get_size(back.get()), 4u);
  EXPECT_STREQ(vx_text_data_get_text(vx_text_list_at(back.get(), 0)), L"Москва-река");
  EXPECT_NEAR(vx_text_data_get_point(vx_text_list_at(back.get(), 1), 4).x, 34.3, 1e-9);
  EXPECT_EQ(fs::file_size(dir / "dst.tld"), fs::file_size(dir / "src.tld"));
}

TEST(ReprojTld, UntransformableDiagonalGivesFactorExactlyOne) {
  // Seen from above (0, 180), the source origin and (1, 1) are on the far side of the globe.
  list_ptr list = one_label(2, 2, 179, 1, 0.25);
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, FAR_SIDE));
  Tvx_text_data* t = first(list);
  EXPECT_EQ(vx_text_data_get_size(t, 0), 0.25);
  EXPECT_EQ(vx_text_data_get_size(t, 1), 0.25);
  EXPECT_EQ(vx_text_data_get_delta_x(t, 1), 0.125);
  // The labels themselves stand on the near side and are transformed.
  EXPECT_NEAR(vx_text_data_get_point(t, 0).x, -111000, 1000);
}

TEST(ReprojTld, TypeTwoScalesEveryPointAndTypeOneOnlyTheFirst) {
  list_ptr along = one_label(2, 5, 10, 50, 0.01);
  list_ptr once = one_label(1, 5, 10, 50, 0.01);
  vx_text_data_set_type(first(once), 1);
  ASSERT_TRUE(vx_proj4_text_list_w(along.get(), WGS84, MERC));
  ASSERT_TRUE(vx_proj4_text_list_w(once.get(), WGS84, MERC));
  const double k = merc_k();
  for (unsigned j = 0; j < 5; ++j) {
    EXPECT_NEAR(vx_text_data_get_size(first(along), j), 0.01 * k, 1e-6) << j;
    EXPECT_NEAR(vx_text_data_get_delta_y(first(along), j), -0.0025 * k, 1e-6) << j;
    EXPECT_NEAR(vx_text_data_get_point(first(once), j).x, merc_x(10 + j), 1e-3) << j;
  }
  EXPECT_NEAR(vx_text_data_get_size(first(once), 0), 0.01 * k, 1e-6);
}

TEST(ReprojTld, TypeOneScalesIndexZeroAlsoWithoutPoints) {
  list_ptr list = one_label(7, 0, 0, 0, 0.02);
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, MERC));
  EXPECT_NEAR(vx_text_data_get_size(first(list), 0), 0.02 * merc_k(), 1e-6);
}

TEST(ReprojTld, DeltasAreMultipliedNotTurned) {
  list_ptr list = one_label(1, 1, 20, 40, 0.04);
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, MERC));
  Tvx_text_data* t = first(list);
  EXPECT_DOUBLE_EQ(vx_text_data_get_delta_x(t, 0) / vx_text_data_get_delta_y(t, 0), -2.0);
}

TEST(ReprojTld, CalloutEndPointsMoveAndLabelsWithoutCalloutGoThrough) {
  list_ptr list(vxk_test::make_full_list());
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, MERC));
  Tvx_callout* c = vx_text_data_get_callout(vx_text_list_at(list.get(), 0));
  ASSERT_NE(c, nullptr);
  ASSERT_EQ(vx_callout_get_size(c), 2u);
  EXPECT_NEAR(vx_callout_get_end_point(c, 1).x, merc_x(37.62), 1e-3);
  EXPECT_NEAR(vx_callout_get_end_point(c, 1).y, merc_y(55.77), 1e-3);
  EXPECT_EQ(vx_text_data_get_callout(vx_text_list_at(list.get(), 1)), nullptr);
  Tvx_callout* empty = vx_text_data_get_callout(vx_text_list_at(list.get(), 2));
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(vx_callout_get_size(empty), 0u);
  EXPECT_NEAR(vx_text_data_get_point(vx_text_list_at(list.get(), 2), 0).x, merc_x(-0.5), 1e-3);
}

TEST(ReprojTld, APointThatFailsKeepsItsSourcePosition) {
  list_ptr list(vx_text_list_create());
  Tvx_text_data* t = vx_text_list_add(list.get());
  vx_text_data_add_point(t, Tvx_vtx_d2{179, 1});  // near side of the view from (0, 180)
  vx_text_data_add_point(t, Tvx_vtx_d2{0, 0});    // far side
  Tvx_callout* c = vx_text_data_add_callout(t);
  vx_callout_add_end_point(c, Tvx_vtx_d2{10, 10});  // far side
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, FAR_SIDE));
  EXPECT_GT(std::abs(vx_text_data_get_point(t, 0).x), 1000);
  EXPECT_EQ(vx_text_data_get_point(t, 1).x, 0);
  EXPECT_EQ(vx_text_data_get_point(t, 1).y, 0);
  EXPECT_EQ(vx_callout_get_end_point(c, 0).x, 10);
  EXPECT_EQ(vx_callout_get_end_point(c, 0).y, 10);
}

TEST(ReprojTld, UnbuildableProjectionLeavesTheListUntouched) {
  list_ptr list(vxk_test::make_full_list());
  list_ptr original(vxk_test::make_full_list());
  EXPECT_FALSE(vx_proj4_text_list_w(list.get(), NOT_A_SYSTEM, MERC));
  EXPECT_FALSE(vx_proj4_text_list_w(list.get(), WGS84, L""));
  vxk_test::expect_same_lists(list.get(), original.get());
}

TEST(ReprojTld, EmptyListSucceedsAndTheDestinationIsWritten) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_empty");
  list_ptr empty(vx_text_list_create());
  write_tld(dir / "src.tld", empty.get());
  ASSERT_TRUE(
      vx_proj4_tld_w((dir / "src.tld").wstring().c_str(), WGS84, (dir / "dst.tld").wstring().c_str(), MERC));
  ASSERT_TRUE(fs::exists(dir / "dst.tld"));
  EXPECT_EQ(bytes(dir / "dst.tld"), bytes(dir / "src.tld"));
}

TEST(ReprojTld, UnbuildableProjectionsStillWriteTheUnchangedList) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_unbuildable");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "src.tld", list.get());
  const std::string src = (dir / "src.tld").string();
  const std::string dst = (dir / "dst.tld").string();
  EXPECT_FALSE(vx_proj4_tld(src.c_str(), "+proj=longlat +datum=WGS84", dst.c_str(), "no projection at all"));
  ASSERT_TRUE(fs::exists(dir / "dst.tld"));
  EXPECT_EQ(bytes(dir / "dst.tld"), bytes(dir / "src.tld"));
}

TEST(ReprojTld, FileThatCannotBeOpenedFails) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_open");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "src.tld", list.get());
  EXPECT_FALSE(vx_proj4_tld_w((dir / "src.tld").wstring().c_str(), WGS84,
                              (dir / "missing" / "dst.tld").wstring().c_str(), MERC));
  EXPECT_FALSE(vx_proj4_tld_w((dir / "missing" / "src.tld").wstring().c_str(), WGS84,
                              (dir / "dst.tld").wstring().c_str(), MERC));
  EXPECT_FALSE(fs::exists(dir / "dst.tld"));
  EXPECT_FALSE(fs::exists(dir / "missing"));
}

TEST(ReprojTld, MissingSourceInAnExistingFolderReadsAsAnEmptyList) {
  // One open serves source and destination, so a missing source opens like a destination to be made;
  // its read fails, and that result is not looked at.
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_missing_source");
  EXPECT_TRUE(vx_proj4_tld_w(wide(dir / "absent.tld").c_str(), WGS84, wide(dir / "dst.tld").c_str(), MERC));
  EXPECT_FALSE(fs::exists(dir / "absent.tld"));
  EXPECT_EQ(vx_text_list_get_size(read_tld(dir / "dst.tld").get()), 0u);
}

TEST(ReprojTld, FileIsReprojectedWithEveryFieldCarried) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_file");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "src.tld", list.get());
  ASSERT_TRUE(
      vx_proj4_tld_w((dir / "src.tld").wstring().c_str(), WGS84, (dir / "dst.tld").wstring().c_str(), MERC));
  ASSERT_TRUE(vx_proj4_text_list_w(list.get(), WGS84, MERC));
  list_ptr back = read_tld(dir / "dst.tld");
  vxk_test::expect_same_lists(back.get(), list.get());
}

TEST(ReprojTld, NarrowFormTakesUtf8Paths) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_narrow");
  fs::create_directories(dir / fs::u8path("подписи"));
  list_ptr list = one_label(1, 1, 10, 50, 0.01);
  const std::string src = dir.string() + "/подписи/исх.tld";
  const std::string dst = dir.string() + "\\подписи\\рез.tld";
  {
    Tvx_tld_file* f = vx_tld_file_open_w(vx::strconv::utf8_to_wide(src).c_str());
    ASSERT_NE(f, nullptr);
    vx_tld_file_write_all(f, list.get(), 0);
    vx_tld_file_close(f);
  }
  ASSERT_TRUE(vx_proj4_tld(src.c_str(), "+proj=longlat +datum=WGS84", dst.c_str(),
                           "+proj=merc +lon_0=0 +k=1 +x_0=0 +y_0=0 +ellps=WGS84 +units=m"));
  list_ptr back = read_tld(dir / fs::u8path("подписи") / fs::u8path("рез.tld"));
  ASSERT_EQ(vx_text_list_get_size(back.get()), 1u);
  EXPECT_NEAR(vx_text_data_get_point(first(back), 0).x, merc_x(10), 1e-3);
}

TEST(ReprojTld, SourceAndDestinationMayBeOneFile) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_in_place");
  list_ptr list = one_label(1, 1, 10, 50, 0.01);
  write_tld(dir / "labels.tld", list.get());
  const std::wstring path = (dir / "labels.tld").wstring();
  ASSERT_TRUE(vx_proj4_tld_w(path.c_str(), WGS84, path.c_str(), MERC));
  list_ptr back = read_tld(dir / "labels.tld");
  EXPECT_NEAR(vx_text_data_get_point(first(back), 0).y, merc_y(50), 1e-3);
}

// The same file as source and destination, and the write fails: the source stays as it was (it was
// once left cut short), and the failure is reported.
TEST(ReprojTld, FailedWriteOverTheSourceLeavesItAsItWas) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_in_place_fails");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "labels.tld", list.get());
  const auto before = vxk_test::snapshot(dir);
  const std::wstring path = (dir / "labels.tld").wstring();
  vxk_test::error_log env;
  {
    vxk_test::file_size_limit limit(16);
    EXPECT_TRUE(vx_proj4_tld_w(path.c_str(), WGS84, path.c_str(), MERC));
  }
  EXPECT_EQ(vxk_test::snapshot(dir), before);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_NE(env.errors[0].find("File too large"), std::string::npos) << env.errors[0];
}

TEST(ReprojTld, FailuresAreReportedThroughTheEnvironment) {
  const fs::path dir = vxk_test::scratch_dir("reproj_tld_reports");
  list_ptr list(vxk_test::make_full_list());
  write_tld(dir / "src.tld", list.get());
  vxk_test::error_log env;
  EXPECT_FALSE(
      vx_proj4_tld_w(wide(dir / "src.tld").c_str(), WGS84, wide(dir / "missing" / "dst.tld").c_str(), MERC));
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_NE(env.errors[0].find("as a label file"), std::string::npos) << env.errors[0];
  env.errors.clear();
  EXPECT_FALSE(
      vx_proj4_tld_w(wide(dir / "src.tld").c_str(), WGS84, wide(dir / "dst.tld").c_str(), L"+proj=foo"));
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0].rfind(
                "cannot build the transformation: PROJ refused the destination system \"+proj=foo\"", 0),
            0u)
      << env.errors[0];
  env.errors.clear();
  EXPECT_TRUE(vx_proj4_tld_w(wide(dir / "absent.tld").c_str(), WGS84, wide(dir / "dst.tld").c_str(), MERC));
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_NE(env.errors[0].find("No such file or directory"), std::string::npos) << env.errors[0];
}

}  // namespace
