// The flat functions of shape file reprojection, through the public header.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

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
  vx_proj4_shp_counts counts{99, 99};
  std::vector<uint32_t> done;
  auto progress = [](uint32_t d, uint32_t total, void* user) {
    EXPECT_EQ(total, 3u);
    static_cast<std::vector<uint32_t>*>(user)->push_back(d);
  };
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, progress, &done, &counts));
  EXPECT_EQ(counts.records, 3u);
  EXPECT_EQ(counts.failed, 1u);
  EXPECT_EQ(done, (std::vector<uint32_t>{1, 2, 3}));
  // Neither callback nor counts are required.
  EXPECT_TRUE(vx_proj4_shp_ex(src.c_str(), kPulkovo, dst.c_str(), kOrtho, nullptr, nullptr, nullptr));
  // A transformation that cannot be built: false and nothing counted.
  EXPECT_FALSE(vx_proj4_shp_ex(src.c_str(), "", dst.c_str(), kOrtho, nullptr, nullptr, &counts));
  EXPECT_EQ(counts.records, 0u);
  EXPECT_EQ(counts.failed, 0u);
}

}  // namespace
