// The flat functions of shape file reprojection, through the public header.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "fault_injection.h"
#include "files/file_shp.h"
#include "geom/geom2d.h"
#include "test_paths.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

const char* const kPulkovo =
    "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs";
const char* const kOrtho = "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +units=m +no_defs";

// Three squares, the middle one on the far side of the globe for kOrtho.
fs::path make_source(const fs::path& dir) {
  const fs::path src = dir / "src.shp";
  Tvx_file_shp f;
  f.create(src.string().c_str(), 5);
  for (double x : {37.0, -141.0, 38.0}) {
    Tvx_op2d op;
    Tvx_pp2d* pp = op.add();
    const double y = x < 0 ? -51.0 : 55.0;
    for (const auto& p : std::vector<Tvx_point2d>{{x, y}, {x, y + 1}, {x + 1, y + 1}, {x + 1, y}, {x, y}})
      pp->add(p);
    f.add_polygon(&op);
  }
  f.close();
  return src;
}

unsigned record_count(const fs::path& shp) {
  Tvx_file_shp f;
  f.open(shp.string().c_str(), true);
  const unsigned n = f.get_no();
  f.close();
  return n;
}

TEST(ReprojShapeExport, NarrowIsTrueWhenTheTransformationIsBuilt) {
  const fs::path dir = vxk_test::scratch_dir("reproj_shape_export_narrow");
  const fs::path src = make_source(dir), dst = dir / "dst.shp";
  EXPECT_TRUE(vx_proj4_shp(src.c_str(), kPulkovo, dst.c_str(), kOrtho));
  EXPECT_EQ(record_count(dst), 3u);
  EXPECT_FALSE(vx_proj4_shp(src.c_str(), "", dst.c_str(), kOrtho));
  EXPECT_FALSE(vx_proj4_shp(src.c_str(), kPulkovo, dst.c_str(), "not a projection"));
}

TEST(ReprojShapeExport, NullTextsAreEmptyTexts) {
  const fs::path dir = vxk_test::scratch_dir("reproj_shape_export_null");
  const fs::path src = make_source(dir), dst = dir / "dst.shp";
  EXPECT_FALSE(vx_proj4_shp(src.c_str(), nullptr, dst.c_str(), kOrtho));
  EXPECT_FALSE(fs::exists(dst));
}

TEST(ReprojShapeExport, WideIsTrueWhenTheTransformationIsBuilt) {
  const fs::path dir = vxk_test::scratch_dir("reproj_shape_export_wide");
  const fs::path src = make_source(dir), dst = dir / "dst.shp";
  EXPECT_TRUE(vx_proj4_shp_w(src.wstring().c_str(), L"+proj=longlat +ellps=krass +no_defs",
                             dst.wstring().c_str(),
                             L"+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +units=m +no_defs"));
  EXPECT_EQ(record_count(dst), 3u);
  EXPECT_FALSE(
      vx_proj4_shp_w(src.wstring().c_str(), L"", dst.wstring().c_str(), L"+proj=longlat +ellps=krass"));
}

TEST(ReprojShapeExport, ExtendedFormCountsRecordsAndLosses) {
  const fs::path dir = vxk_test::scratch_dir("reproj_shape_export_ex");
  const fs::path src = make_source(dir), dst = dir / "dst.shp";
  vx_proj4_shp_counts counts{99, 99, 99, 99};
  std::vector<uint32_t> done;
  auto progress = [](uint32_t d, uint32_t total, void* user) {
    EXPECT_EQ(total, 3u);
    static_cast<std::vector<uint32_t>*>(user)->push_back(d);
  };
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, progress, &done, &counts));
  EXPECT_EQ(counts.records, 3u);
  EXPECT_EQ(counts.failed, 1u);
  EXPECT_EQ(counts.unreadable, 0u);
  EXPECT_EQ(counts.file_errors, 0u);
  EXPECT_EQ(done, (std::vector<uint32_t>{1, 2, 3}));
  // Neither callback nor counts are required.
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, nullptr));
  // A transformation that cannot be built: false and nothing counted.
  EXPECT_FALSE(vx_proj4_shp_ex(src.c_str(), "", dst.c_str(), kOrtho, nullptr, nullptr, &counts));
  EXPECT_EQ(counts.records, 0u);
  EXPECT_EQ(counts.failed, 0u);
}

// ---- through the flat interface, as a host calls it: the result, what the host's environment hears,
// and the source byte for byte as it was

// The reports a host receives through the environment it installed.
class host_reports {
 public:
  host_reports() {
    vx_env_callbacks callbacks{};
    callbacks.error = [](void* user, const char* text) {
      static_cast<host_reports*>(user)->errors.emplace_back(text);
    };
    callbacks.message = [](void* user, const char* text) {
      static_cast<host_reports*>(user)->messages.emplace_back(text);
    };
    vx_env_install_out(&callbacks, this);
  }
  ~host_reports() { vx_env_remove_out(); }
  bool said(const std::string& part) const {
    for (const auto& e : errors)
      if (e.find(part) != std::string::npos) return true;
    return false;
  }
  std::vector<std::string> errors, messages;
};

class ReprojShapeExportSafety : public ::testing::Test {
 protected:
  void SetUp() override {
    const fs::path root =
        vxk_test::scratch_dir(std::string("reproj_shape_export_") +
                              ::testing::UnitTest::GetInstance()->current_test_info()->name());
    dir = root / "src";
    fs::create_directories(dir);
    src = make_source(dir);
    std::ofstream(fs::path(src).replace_extension(".dbf"), std::ios::binary) << "table bytes";
    before = vxk_test::snapshot(dir);
    dst = root / "out" / "dst.shp";
    fs::create_directories(dst.parent_path());
  }
  void expect_source_unchanged() { EXPECT_EQ(vxk_test::snapshot(dir), before); }
  fs::path dir, src, dst;
  std::map<std::string, std::string> before;
};

TEST_F(ReprojShapeExportSafety, SourceGivenAsDestinationIsRefused) {
  fs::create_symlink(src, dir / "link.shp");
  fs::create_hard_link(src, dir / "hard.shp");
  before = vxk_test::snapshot(dir);
  for (const fs::path& same : {src, dir / "." / "src.shp", dir / "link.shp", dir / "hard.shp"}) {
    host_reports host;
    EXPECT_FALSE(vx_proj4_shp(src.c_str(), kPulkovo, same.c_str(), kOrtho)) << same;
    EXPECT_FALSE(vx_proj4_shp_w(src.wstring().c_str(), L"+proj=longlat +ellps=krass", same.wstring().c_str(),
                                L"+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass"))
        << same;
    EXPECT_TRUE(host.said("is the source")) << same;
    EXPECT_TRUE(host.said("nothing was written")) << same;
    expect_source_unchanged();
  }
}

TEST_F(ReprojShapeExportSafety, TruncatedSourceCountsRecordsThatCannotBeRead) {
  fs::resize_file(src, fs::file_size(src) - 30);
  before = vxk_test::snapshot(dir);
  host_reports host;
  vx_proj4_shp_counts counts{};
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, &counts));
  EXPECT_EQ(counts.records, 3u);
  EXPECT_EQ(counts.failed, 1u);
  EXPECT_EQ(counts.unreadable, 1u);
  EXPECT_EQ(counts.file_errors, 0u);
  EXPECT_TRUE(host.said("is damaged: 1 of 3 records could not be read")) << host.errors.size();
  expect_source_unchanged();
}

TEST_F(ReprojShapeExportSafety, IndexThatIsAFolderIsRefusedAtOnce) {
  fs::remove(fs::path(src).replace_extension(".shx"));
  fs::create_directory(fs::path(src).replace_extension(".shx"));
  before = vxk_test::snapshot(dir);
  host_reports host;
  vx_proj4_shp_counts counts{};
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, &counts));
  EXPECT_EQ(counts.records, 0u);
  EXPECT_GE(counts.file_errors, 1u);
  EXPECT_TRUE(host.said("Is a directory"));
  EXPECT_FALSE(fs::exists(dst));
  expect_source_unchanged();
}

TEST_F(ReprojShapeExportSafety, TextRenamedShpIsNoShapeFile) {
  for (const char* ext : {".shp", ".shx"})
    std::ofstream(fs::path(src).replace_extension(ext), std::ios::binary) << std::string(500, 'a');
  before = vxk_test::snapshot(dir);
  host_reports host;
  vx_proj4_shp_counts counts{};
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, &counts));
  EXPECT_EQ(counts.records, 0u);
  EXPECT_EQ(counts.file_errors, 1u);
  EXPECT_TRUE(host.said("is not a shape file: its file code is 1633771873, not 9994"));
  EXPECT_FALSE(fs::exists(dst));
  expect_source_unchanged();
}

TEST_F(ReprojShapeExportSafety, WriteFailureIsReportedWithTheReasonAndThePath) {
  host_reports host;
  vx_proj4_shp_counts counts{};
  {
    vxk_test::file_size_limit limit(150);
    EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, &counts));
  }
  EXPECT_GT(counts.file_errors, 0u);
  EXPECT_TRUE(host.said("Error writing file: \"" + dst.string() + "\": File too large"));
  expect_source_unchanged();
}

TEST_F(ReprojShapeExportSafety, UnwritableDestinationIsReportedWithTheReason) {
  host_reports host;
  vx_proj4_shp_counts counts{};
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, "/proc/dst.shp", kOrtho, nullptr, nullptr, &counts));
  EXPECT_GT(counts.file_errors, 0u);
  EXPECT_TRUE(host.said("Can't open file: \"/proc/dst.shp\": No such file or directory"));
  expect_source_unchanged();
}

// A folder that cannot be written: the run is made as a user without privileges, since root writes in
// any folder whatever its modes.
TEST(ReprojShapeExportFaults, ReadOnlyFolderIsReportedWithTheReasonAndTheSourceStays) {
  const fs::path scratch = vxk_test::scratch_dir("reproj_shape_export_read_only");
  const fs::path root = vxk_test::folder_others_reach(scratch);
  const auto open_modes = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                          fs::perms::others_read | fs::perms::others_exec;
  const fs::path src_dir = root / "src", out = root / "out", dst = out / "dst.shp";
  fs::create_directories(src_dir);
  fs::create_directories(out);
  const fs::path src = make_source(src_dir);
  fs::permissions(root, open_modes);
  fs::permissions(src_dir, open_modes);
  for (const auto& e : fs::directory_iterator(src_dir))
    fs::permissions(e.path(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                                  fs::perms::others_read);
  const auto before = vxk_test::snapshot(src_dir);
  fs::permissions(out, open_modes & ~fs::perms::owner_write);
  const std::string said = vxk_test::run_unprivileged([&] {
    host_reports host;
    vx_proj4_shp_counts counts{};
    const bool built = vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, &counts);
    std::string text = std::string(built ? "built" : "not built") + ", file errors " +
                       std::to_string(counts.file_errors) + "\n";
    for (const auto& e : host.errors) text += e + "\n";
    return text;
  });
  fs::permissions(out, open_modes);
  EXPECT_EQ(said.rfind("built, file errors ", 0), 0u) << said;
  EXPECT_EQ(said.find("file errors 0\n"), std::string::npos) << said;
  EXPECT_NE(said.find("Can't open file: \"" + dst.string() + "\": Permission denied"), std::string::npos)
      << said;
  EXPECT_TRUE(fs::is_empty(out));
  EXPECT_EQ(vxk_test::snapshot(src_dir), before);
  if (root != scratch) fs::remove_all(root);
}

TEST_F(ReprojShapeExportSafety, RefusedProjectionSaysWhichAndWhyInOneSaneLine) {
  std::string hostile = "+proj=foo";
  while (hostile.size() < 100000) hostile += " +x=\x01\x1b[2J";
  host_reports host;
  testing::internal::CaptureStderr();
  EXPECT_FALSE(vx_proj4_shp(src.c_str(), kPulkovo, dst.c_str(), hostile.c_str()));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  ASSERT_EQ(host.errors.size(), 1u);
  const std::string& e = host.errors[0];
  EXPECT_LT(e.size(), 1000u);
  for (char c : e) EXPECT_GE(static_cast<unsigned char>(c), 0x20u);
  EXPECT_TRUE(host.said("PROJ refused the destination system \"+proj=foo")) << e;
  EXPECT_TRUE(host.said("Unknown projection")) << e;
  EXPECT_FALSE(fs::exists(dst));
  expect_source_unchanged();
}

TEST_F(ReprojShapeExportSafety, ProjPrintsNothingAndItsReasonComesOnceWithACount) {
  const fs::path far = dir / "far.shp";
  {
    Tvx_file_shp f;
    f.create(far.string().c_str(), 1);
    for (int i = 0; i < 12; ++i) {
      Tvx_point2d p{37.0, 95.0 + i};
      f.add_point(&p);
    }
    f.close();
  }
  host_reports host;
  vx_proj4_shp_counts counts{};
  testing::internal::CaptureStderr();
  EXPECT_TRUE(vx_proj4_shp_ex(far.c_str(), "+proj=longlat +ellps=krass", dst.c_str(),
                              "+proj=tmerc +lon_0=39 +ellps=krass +units=m", nullptr, nullptr, &counts));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(counts.failed, 12u);
  EXPECT_TRUE(host.errors.empty());
  EXPECT_EQ(host.messages, std::vector<std::string>{"PROJ: tmerc: Invalid latitude (12 times)"});
}

}  // namespace
