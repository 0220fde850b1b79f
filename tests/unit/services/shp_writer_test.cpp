// The shape file writer: records in call order, rings as given, refusals, and files read back by the
// library's own reader. GDAL reads the generator's files in the generation tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "files/file_shp.h"
#include "test_paths.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

Tvx_op2d* ring() {
  Tvx_op2d* o = vx_ov_d2_create();
  Tvx_pp2d* p = vx_ov_d2_add(o);
  for (auto [x, y] : {std::pair{0.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}, {1.0, 0.0}, {0.0, 0.0}})
    vx_pv_d2_add_vtx(p, Tvx_vtx_d2{x, y});
  return o;
}

TEST(ShpWriter, PolygonRecordKeepsItsRingAsGiven) {
  const fs::path dir = vxk_test::scratch_dir("shp_writer_polygon");
  const std::wstring path = (dir / "a.shp").wstring();
  Tvx_shp_basic* shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POLYGON);
  ASSERT_NE(shp, nullptr);
  Tvx_op2d* o = ring();
  EXPECT_TRUE(vx_shp_file_add_polypoint(shp, o, VX_SHP_POLYGON));
  EXPECT_FALSE(vx_shp_file_add_polypoint(shp, o, VX_SHP_POLYLINE));  // not the file's type
  EXPECT_FALSE(vx_shp_file_add_point(shp, Tvx_vtx_d2{1, 1}));
  vx_ov_d2_destroy(o);
  vx_shp_file_close(shp);

  Tvx_file_shp in;
  in.open(path, true);
  ASSERT_EQ(in.get_no(), 1u);
  EXPECT_EQ(in.get_type(), SHP_POLYGON);
  in.get_obj_type(0);
  Tvx_op2d back;
  ASSERT_TRUE(in.get_polygon(&back));
  ASSERT_EQ(back.get_size(), 1);
  ASSERT_EQ(back.get(0)->get_size(), 5);
  EXPECT_EQ(back.get(0)->get(1).y, 1.0);  // clockwise as given, not turned
}

TEST(ShpWriter, PointsInCallOrder) {
  const fs::path dir = vxk_test::scratch_dir("shp_writer_points");
  const std::wstring path = (dir / "p.shp").wstring();
  Tvx_shp_basic* shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POINT);
  ASSERT_NE(shp, nullptr);
  EXPECT_TRUE(vx_shp_file_add_point(shp, Tvx_vtx_d2{1, 2}));
  EXPECT_TRUE(vx_shp_file_add_point(shp, Tvx_vtx_d2{3, 4}));
  vx_shp_file_close(shp);
  Tvx_file_shp in;
  in.open(path, true);
  ASSERT_EQ(in.get_no(), 2u);
  in.get_obj_type(1);
  Tvx_point2d p{};
  ASSERT_TRUE(in.get_point(&p));
  EXPECT_EQ(p.x, 3.0);
  EXPECT_EQ(p.y, 4.0);
}

TEST(ShpWriter, CloseOnAFileWithoutRecordsLeavesAValidEmptyFile) {
  const fs::path dir = vxk_test::scratch_dir("shp_writer_empty");
  const std::wstring path = (dir / "e.shp").wstring();
  vx_shp_file_close(vx_shp_file_create_w(path.c_str(), VX_SHP_POLYLINE));
  EXPECT_EQ(fs::file_size(dir / "e.shp"), 100u);
  EXPECT_EQ(fs::file_size(dir / "e.shx"), 100u);
}

TEST(ShpWriter, MissingFolderOrUnknownTypeGivesNull) {
  const fs::path dir = vxk_test::scratch_dir("shp_writer_refusals");
  EXPECT_EQ(vx_shp_file_create_w((dir / "no/such/a.shp").wstring().c_str(), VX_SHP_POLYGON), nullptr);
  EXPECT_EQ(vx_shp_file_create_w((dir / "a.shp").wstring().c_str(), 8), nullptr);
  EXPECT_EQ(vx_shp_file_create_w(nullptr, VX_SHP_POLYGON), nullptr);
  vx_shp_file_close(nullptr);
}

TEST(ShpWriter, BackslashesReachTheDiskAsFolders) {
  const fs::path dir = vxk_test::scratch_dir("shp_writer_backslash");
  fs::create_directories(dir / "HYPS");
  const std::wstring path = dir.wstring() + L"/HYPS\\a.shp";
  Tvx_shp_basic* shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POLYLINE);
  ASSERT_NE(shp, nullptr);
  vx_shp_file_close(shp);
  EXPECT_TRUE(fs::exists(dir / "HYPS" / "a.shp"));
  EXPECT_TRUE(fs::exists(dir / "HYPS" / "a.shx"));
}

TEST(ShpWriter, ReplacesAnExistingFile) {
  const fs::path dir = vxk_test::scratch_dir("shp_writer_replace");
  const std::wstring path = (dir / "r.shp").wstring();
  for (int run = 0; run < 2; ++run) {
    Tvx_shp_basic* shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POINT);
    ASSERT_NE(shp, nullptr);
    vx_shp_file_add_point(shp, Tvx_vtx_d2{1, 2});
    vx_shp_file_close(shp);
  }
  Tvx_file_shp in;
  in.open(path, true);
  EXPECT_EQ(in.get_no(), 1u);
}

}  // namespace
