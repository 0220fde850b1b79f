#include "reproj/reproj_shape.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "error_log.h"
#include "fault_injection.h"
#include "files/file_shp.h"
#include "geom/geom2d.h"
#include "geom/geom3d.h"
#include "reproj/reproj_2d.h"
#include "support/env.h"
#include "test_paths.h"

namespace {

namespace fs = std::filesystem;

const char* const kPulkovo =
    "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs";
const char* const kGk7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";
const char* const kOrtho = "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +units=m +no_defs";

// ---- files ------------------------------------------------------------------------------------------------

std::string read_bytes(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void write_bytes(const fs::path& p, const std::string& bytes) {
  std::ofstream out(p, std::ios::binary | std::ios::trunc);
  out << bytes;
}

int32_t header_type(const fs::path& shp) {
  const std::string b = read_bytes(shp);
  int32_t t = -1;
  if (b.size() >= 100) std::memcpy(&t, b.data() + 32, 4);
  return t;
}

// Record types of a shape file as our reader gives them.
std::vector<int> record_types(const fs::path& shp) {
  Tvx_file_shp f;
  f.open(shp.string().c_str(), true);
  std::vector<int> types;
  for (unsigned i = 0; i < f.get_no(); ++i) types.push_back(f.get_obj_type(i));
  f.close();
  return types;
}

Tvx_pp2d* add_ring(Tvx_op2d& op, const std::vector<Tvx_point2d>& pts) {
  Tvx_pp2d* pp = op.add();
  for (const auto& p : pts) pp->add(p);
  return pp;
}

std::vector<Tvx_point2d> square(double x, double y, double size) {
  return {{x, y}, {x, y + size}, {x + size, y + size}, {x + size, y}, {x, y}};
}

// The image of one point through the point engine.
Tvx_point2d image(const char* from, const char* to, Tvx_point2d p) {
  Tvx_reproj_xy single;
  EXPECT_TRUE(single.init(from, to));
  EXPECT_TRUE(single.apply(&p.x, &p.y));
  return p;
}

// A hand-made shape file of measured records, which our writer never makes: the header type and one
// record per content given (each content begins with its type word).
class measured_file {
 public:
  void add(const std::string& content) { records_.push_back(content); }
  void save(const fs::path& shp, int32_t type) const {
    std::string shp_body, shx_body;
    uint32_t offset = 50;
    for (size_t i = 0; i < records_.size(); ++i) {
      const auto words = static_cast<uint32_t>(records_[i].size() / 2);
      shx_body += be32(offset) + be32(words);
      shp_body += be32(static_cast<uint32_t>(i + 1)) + be32(words) + records_[i];
      offset += 4 + words;
    }
    write_bytes(shp, header(type, 100 + shp_body.size()) + shp_body);
    write_bytes(fs::path(shp).replace_extension(".shx"), header(type, 100 + shx_body.size()) + shx_body);
  }

  static std::string le32(int32_t v) { return std::string(reinterpret_cast<const char*>(&v), 4); }
  static std::string f64(double v) { return std::string(reinterpret_cast<const char*>(&v), 8); }
  static std::string be32(uint32_t v) {
    const char b[4] = {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
    return std::string(b, 4);
  }

 private:
  static std::string header(int32_t type, size_t bytes) {
    std::string h =
        be32(9994) + std::string(20, '\0') + be32(static_cast<uint32_t>(bytes / 2)) + le32(1000) + le32(type);
    for (double v : {36.0, 50.0, 42.0, 60.0, 0.0, 0.0, 0.0, 10.0}) h += f64(v);
    return h;
  }
  std::vector<std::string> records_;
};

using vxk_test::error_log;

class ReprojShape : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = vxk_test::scratch_dir(std::string("reproj_shape_") +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    src = dir / "src.shp";
    dst = dir / "out" / "dst.shp";
    fs::create_directories(dst.parent_path());
  }

  int run(const char* from = kPulkovo, const char* to = kGk7) {
    return Tvx_reproj_shape::execute(src.string().c_str(), from, dst.string().c_str(), to);
  }

  // A polygon file of our writer: a two-ring polygon, a null record, a square.
  void make_polygons(const std::vector<std::vector<Tvx_point2d>>& rings_of_first = {
                         square(37, 55, 1), square(37.25, 55.25, 0.5)}) {
    Tvx_file_shp f;
    f.create(src.string().c_str(), 5);
    Tvx_op2d op;
    for (const auto& r : rings_of_first) add_ring(op, r);
    f.add_polygon(&op);
    f.add_empty();
    Tvx_op2d second;
    add_ring(second, square(40, 58, 0.5));
    f.add_polygon(&second);
    f.close();
  }

  // A file of one measured record of `type`: the result is a plain file of the folded type.
  void m_check(const std::string& content, int32_t type, int folded) {
    measured_file m;
    m.add(content);
    m.save(src, type);
    ASSERT_EQ(run(), 0);
    EXPECT_EQ(header_type(dst), folded);
    EXPECT_EQ(record_types(dst), std::vector<int>{folded});
  }

  fs::path dir, src, dst;
};

// ---- the result -------------------------------------------------------------------------------------------

TEST_F(ReprojShape, PolygonsAreReprojectedRecordByRecord) {
  make_polygons();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(header_type(dst), 5);
  EXPECT_EQ(record_types(dst), (std::vector<int>{5, 0, 5}));
  Tvx_file_shp f;
  f.open(dst.string().c_str(), true);
  Tvx_op2d op;
  ASSERT_EQ(f.get_obj_type(0), 5);
  f.get_polygon(&op);
  ASSERT_EQ(op.get_size(), 2);
  const auto src_ring = square(37.25, 55.25, 0.5);
  for (int i = 0; i < 5; ++i) {
    const Tvx_point2d ref = image(kPulkovo, kGk7, src_ring[i]);
    EXPECT_EQ(op.get(1)->get(i).x, ref.x);
    EXPECT_EQ(op.get(1)->get(i).y, ref.y);
  }
  f.close();
}

TEST_F(ReprojShape, ZeroRecordsGiveZeroRecordsAndTheTable) {
  Tvx_file_shp f;
  f.create(src.string().c_str(), 3);
  f.close();
  write_bytes(dir / "src.dbf", "table bytes");
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(record_types(dst).size(), 0u);
  EXPECT_EQ(header_type(dst), 3);
  EXPECT_EQ(fs::file_size(dst), 100u);
  EXPECT_EQ(read_bytes(dst.parent_path() / "dst.dbf"), "table bytes");
}

TEST_F(ReprojShape, PolygonOutsideTheDomainBecomesANullRecordInItsPlace) {
  make_polygons({square(-141, -51, 2)});  // on the far side of the globe for kOrtho
  Tvx_reproj_shape_report report;
  ASSERT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kOrtho, &report),
            0);
  EXPECT_EQ(record_types(dst), (std::vector<int>{0, 0, 5}));
  EXPECT_EQ(report.records, 3u);
  EXPECT_EQ(report.failed, 1u);  // the source's own null record is not counted
}

TEST_F(ReprojShape, PointMBecomesPoint) {
  measured_file m;
  m.add(measured_file::le32(21) + measured_file::f64(37.5) + measured_file::f64(55.5) +
        measured_file::f64(4));
  m.add(measured_file::le32(21) + measured_file::f64(38) + measured_file::f64(56) + measured_file::f64(5));
  m.save(src, 21);
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(header_type(dst), 1);
  EXPECT_EQ(record_types(dst), (std::vector<int>{1, 1}));
  // A point record without measures: 8 bytes of record header and 20 of content.
  EXPECT_EQ(fs::file_size(dst), 100u + 2 * 28u);
  Tvx_file_shp f;
  f.open(dst.string().c_str(), true);
  Tvx_point2d p{};
  f.get_obj_type(1);
  f.get_point(&p);
  const Tvx_point2d ref = image(kPulkovo, kGk7, vx_point2d(38, 56));
  EXPECT_EQ(p.x, ref.x);
  EXPECT_EQ(p.y, ref.y);
  f.close();
}

TEST_F(ReprojShape, MeasuredLinesPolygonsAndMultipointsAreFolded) {
  using mf = measured_file;
  // PolyLineM: box, 1 part, 2 points, part start 0, x y x y, m range, m m.
  const std::string line_m = mf::le32(23) + mf::f64(37) + mf::f64(55) + mf::f64(38) + mf::f64(56) +
                             mf::le32(1) + mf::le32(2) + mf::le32(0) + mf::f64(37) + mf::f64(55) +
                             mf::f64(38) + mf::f64(56) + mf::f64(0) + mf::f64(1) + mf::f64(0) + mf::f64(1);
  m_check(line_m, 23, 3);
  const std::string poly_m =
      mf::le32(25) + mf::f64(37) + mf::f64(55) + mf::f64(38) + mf::f64(56) + mf::le32(1) + mf::le32(4) +
      mf::le32(0) + mf::f64(37) + mf::f64(55) + mf::f64(37) + mf::f64(56) + mf::f64(38) + mf::f64(56) +
      mf::f64(37) + mf::f64(55) + mf::f64(0) + mf::f64(1) + mf::f64(0) + mf::f64(1) + mf::f64(0) + mf::f64(1);
  m_check(poly_m, 25, 5);
  const std::string mpoint_m = mf::le32(28) + mf::f64(37) + mf::f64(55) + mf::f64(38) + mf::f64(56) +
                               mf::le32(2) + mf::f64(37) + mf::f64(55) + mf::f64(38) + mf::f64(56) +
                               mf::f64(0) + mf::f64(1) + mf::f64(0) + mf::f64(1);
  m_check(mpoint_m, 28, 8);
}

TEST_F(ReprojShape, NullRecordInAPolygonFileStays) {
  Tvx_file_shp f;
  f.create(src.string().c_str(), 5);
  f.add_empty();
  f.close();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(header_type(dst), 5);
  EXPECT_EQ(record_types(dst), (std::vector<int>{0}));
}

TEST_F(ReprojShape, RecordOfAnotherTypeThanTheHeaderKeepsItsType) {
  Tvx_file_shp f;
  f.create(src.string().c_str(), 5);
  Tvx_point2d p = vx_point2d(37, 55);
  f.add_point(&p);
  Tvx_pp2d pp;
  pp.add(vx_point2d(38, 56));
  f.add_multipoint(&pp);
  f.close();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(header_type(dst), 5);
  EXPECT_EQ(record_types(dst), (std::vector<int>{1, 8}));
}

TEST_F(ReprojShape, PolygonZKeepsItsHeightsExactly) {
  Tvx_file_shp f;
  f.create(src.string().c_str(), 15);
  Tvx_op3d op;
  Tvx_pp3d* ring = op.add();
  const double z[5] = {100.125, 200.5, -300.75, 1e-300, 100.125};
  const auto sq = square(37, 55, 1);
  for (int i = 0; i < 5; ++i) ring->add(vx_point3d(sq[i].x, sq[i].y, z[i]));
  f.add_polygon_z(&op);
  f.close();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(header_type(dst), 15);
  Tvx_file_shp out;
  out.open(dst.string().c_str(), true);
  ASSERT_EQ(out.get_obj_type(0), 15);
  Tvx_op3d got;
  out.get_polygon_z(&got);
  ASSERT_EQ(got.get_size(), 1);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(got.get(0)->get_z(i), z[i]);
    const Tvx_point2d ref = image(kPulkovo, kGk7, sq[i]);
    EXPECT_EQ(got.get(0)->get_x(i), ref.x);
  }
  out.close();
}

TEST_F(ReprojShape, EverySpatialTypeAndTheMultipatchGoThrough) {
  Tvx_file_shp f;
  f.create(src.string().c_str(), 31);
  Tvx_point3d p = vx_point3d(37, 55, 1);
  f.add_point_z(&p);
  Tvx_pp3d pp;
  pp.add(vx_point3d(37, 55, 2));
  pp.add(vx_point3d(38, 56, 3));
  f.add_multipoint_z(&pp);
  Tvx_op3d line;
  line.add()->add(&pp, false);
  f.add_polyline_z(&line);
  Tvx_multipatch3d mp;
  Tvx_patch3d* patch = mp.add();
  patch->set_type(static_cast<Tvx_patch_3d_type>(1));
  patch->get_pp_ptr()->add(&pp, false);
  patch->get_pp_ptr()->add(vx_point3d(37, 56, 4));
  f.add_multipatch(&mp);
  f.close();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(record_types(dst), (std::vector<int>{11, 18, 13, 31}));
  Tvx_file_shp out;
  out.open(dst.string().c_str(), true);
  out.get_obj_type(3);
  Tvx_multipatch3d got;
  out.get_multipatch(&got);
  ASSERT_EQ(got.get_size(), 1);
  EXPECT_EQ(got.get(0)->get_type(), static_cast<Tvx_patch_3d_type>(1));
  ASSERT_EQ(got.get(0)->get_pp_ptr()->get_size(), 3);
  EXPECT_EQ(got.get(0)->get_pp_ptr()->get_z(2), 4);
  EXPECT_EQ(got.get(0)->get_pp_ptr()->get_x(2), image(kPulkovo, kGk7, vx_point2d(37, 56)).x);
  out.close();
}

// ---- the files beside it ----------------------------------------------------------------------------------

TEST_F(ReprojShape, TableAndCodePageAreCopiedByteForByte) {
  make_polygons();
  const char raw[] = "\x03\x7e\x0b\x16 and \0 some bytes\xff";
  const std::string table(raw, sizeof raw - 1);  // with the zero byte inside
  write_bytes(dir / "src.dbf", table);
  write_bytes(dir / "src.cpg", "1251");
  write_bytes(dir / "src.prj", "not ours to copy");
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(read_bytes(dst.parent_path() / "dst.dbf"), table);
  EXPECT_EQ(read_bytes(dst.parent_path() / "dst.cpg"), "1251");
  EXPECT_FALSE(fs::exists(dst.parent_path() / "dst.prj"));
  EXPECT_FALSE(fs::exists(dst.parent_path() / "dst.pj4"));
}

TEST_F(ReprojShape, SourceWithoutCodePageLeavesNone) {
  make_polygons();
  ASSERT_EQ(run(), 0);
  EXPECT_FALSE(fs::exists(dst.parent_path() / "dst.cpg"));
  EXPECT_FALSE(fs::exists(dst.parent_path() / "dst.dbf"));
  EXPECT_EQ(record_types(dst).size(), 3u);
}

TEST_F(ReprojShape, ExistingTableAtTheDestinationIsOverwritten) {
  make_polygons();
  write_bytes(dir / "src.dbf", "new");
  write_bytes(dst.parent_path() / "dst.dbf", "an older and longer table");
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(read_bytes(dst.parent_path() / "dst.dbf"), "new");
}

// ---- projections ------------------------------------------------------------------------------------------

TEST_F(ReprojShape, EmptyProjectionFailsAndLeavesTheDestinationAlone) {
  make_polygons();
  write_bytes(dst, "existing");
  EXPECT_EQ(run("", kGk7), 1);
  EXPECT_EQ(run(kPulkovo, ""), 1);
  EXPECT_EQ(read_bytes(dst), "existing");
  EXPECT_FALSE(fs::exists(fs::path(dst).replace_extension(".shx")));
}

TEST_F(ReprojShape, FileNameAsProjectionFails) {
  make_polygons();
  write_bytes(dir / "gk7.prj", kGk7);
  EXPECT_EQ(run(kPulkovo, (dir / "gk7.prj").string().c_str()), 1);
  EXPECT_FALSE(fs::exists(dst));
}

TEST_F(ReprojShape, IdenticalProjectionsWriteANewFileWithTheSameGeometry) {
  make_polygons();
  ASSERT_EQ(run(kPulkovo, kPulkovo), 0);
  EXPECT_EQ(fs::file_size(dst), fs::file_size(src));
  EXPECT_EQ(read_bytes(fs::path(dst).replace_extension(".shx")),
            read_bytes(fs::path(src).replace_extension(".shx")));
  Tvx_file_shp a, b;
  a.open(src.string().c_str(), true);
  b.open(dst.string().c_str(), true);
  Tvx_op2d pa, pb;
  a.get_obj_type(0);
  a.get_polygon(&pa);
  b.get_obj_type(0);
  b.get_polygon(&pb);
  for (int k = 0; k < pa.get_size(); ++k)
    for (int i = 0; i < pa.get(k)->get_size(); ++i) {
      EXPECT_NEAR(pb.get(k)->get(i).x, pa.get(k)->get(i).x, 1e-9);
      EXPECT_NEAR(pb.get(k)->get(i).y, pa.get(k)->get(i).y, 1e-9);
    }
}

// ---- paths and bad sources --------------------------------------------------------------------------------

// A destination that is the source would be emptied while it is read: refused, whatever the spelling,
// and reported. (Writing over the source was allowed once; it destroyed the source.)
TEST_F(ReprojShape, DestinationThatIsTheSourceIsRefused) {
  make_polygons();
  write_bytes(dir / "src.dbf", "table");
  const auto before = vxk_test::snapshot(dir);
  fs::create_symlink(src, dir / "link.shp");
  fs::create_hard_link(src, dir / "hard.shp");
  for (const fs::path& same : {src, dir / "." / "src.shp", dir / "link.shp", dir / "hard.shp",
                               // "src.dat" is written with the index "src.shx", which is the source's.
                               dir / "src.dat"}) {
    error_log env;
    EXPECT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, same.string().c_str(), kGk7), 1)
        << same;
    ASSERT_EQ(env.errors.size(), 1u) << same;
    EXPECT_NE(env.errors[0].find("is the source"), std::string::npos) << env.errors[0];
    EXPECT_NE(env.errors[0].find("nothing was written"), std::string::npos) << env.errors[0];
  }
  fs::remove(dir / "link.shp");
  fs::remove(dir / "hard.shp");
  EXPECT_EQ(vxk_test::snapshot(dir), before);
}

// A source that cannot be opened has no defined content: it is reported, and no destination is made
// (an empty one would replace an earlier result with nothing).
TEST_F(ReprojShape, MissingSourceIsReportedAndGivesNoDestination) {
  error_log env;
  Tvx_reproj_shape_report report;
  EXPECT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
            0);
  ASSERT_FALSE(env.errors.empty());
  EXPECT_NE(env.errors[0].find("No such file or directory"), std::string::npos) << env.errors[0];
  EXPECT_FALSE(fs::exists(dst));
  EXPECT_GE(report.file_errors, 1u);
}

TEST_F(ReprojShape, SourceWithoutIndexGivesNoDestination) {
  make_polygons();
  fs::remove(fs::path(src).replace_extension(".shx"));
  error_log env;
  EXPECT_EQ(run(), 0);
  EXPECT_FALSE(env.errors.empty());
  EXPECT_FALSE(fs::exists(dst));
}

TEST_F(ReprojShape, TextFileIsNoShapeFileAndGivesNoDestination) {
  write_bytes(src, std::string(300, 'x'));
  write_bytes(fs::path(src).replace_extension(".shx"), std::string(300, 'x'));
  write_bytes(fs::path(src).replace_extension(".dbf"), "table");
  error_log env;
  Tvx_reproj_shape_report report;
  EXPECT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
            0);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_NE(env.errors[0].find("is not a shape file"), std::string::npos) << env.errors[0];
  EXPECT_EQ(report.file_errors, 1u);
  EXPECT_EQ(report.records, 0u);
  EXPECT_FALSE(fs::exists(dst));
  EXPECT_FALSE(fs::exists(fs::path(dst).replace_extension(".dbf")));
}

// A source cut in the middle of its records: the records that are not there are null records, counted
// apart from records that could not be transformed, and the damage is reported.
TEST_F(ReprojShape, RecordsThatCannotBeReadAreCountedApart) {
  make_polygons();
  std::string body = read_bytes(src);
  body.resize(body.size() - 20);  // into the last polygon
  write_bytes(src, body);
  error_log env;
  Tvx_reproj_shape_report report;
  ASSERT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kOrtho, &report),
            0);
  EXPECT_EQ(record_types(dst), (std::vector<int>{5, 0, 0}));
  EXPECT_EQ(report.records, 3u);
  EXPECT_EQ(report.unreadable, 1u);
  EXPECT_EQ(report.failed, 0u);
  EXPECT_EQ(report.file_errors, 0u);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0],
            "the source '" + src.string() +
                "' is damaged: 1 of 3 records could not be read and were written as null records");
}

// Writes that fail (here under a file size limit) are reported with the file's name and the system's
// reason, and counted; the run goes on and its result stays what it was.
TEST_F(ReprojShape, WriteFailuresAreReportedWithTheirReasonAndCounted) {
  measured_file m;
  std::string point = measured_file::le32(1) + measured_file::f64(37.5) + measured_file::f64(55.5);
  for (int i = 0; i < 400; ++i) m.add(point);
  m.save(src, 1);
  error_log env;
  Tvx_reproj_shape_report report;
  {
    vxk_test::file_size_limit limit(4096);
    ASSERT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
              0);
  }
  EXPECT_GT(report.file_errors, 0u);
  ASSERT_FALSE(env.errors.empty());
  EXPECT_EQ(env.errors[0], "Error writing file: \"" + dst.string() + "\": File too large");
}

TEST_F(ReprojShape, TableThatCannotBeCopiedIsReportedAndCounted) {
  make_polygons();
  fs::create_directory(fs::path(src).replace_extension(".dbf"));
  error_log env;
  Tvx_reproj_shape_report report;
  ASSERT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
            0);
  EXPECT_EQ(report.file_errors, 1u);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0], "cannot copy '" + fs::path(src).replace_extension(".dbf").string() + "' to '" +
                               fs::path(dst).replace_extension(".dbf").string() + "': Is a directory");
}

// What PROJ says goes through the environment: why a text was refused, as an error; what it said of
// the vertices it could not transform, once with its count, as a message. Nothing is printed.
TEST_F(ReprojShape, ProjsWordsGoThroughTheEnvironment) {
  measured_file m;
  for (int i = 0; i < 7; ++i)
    m.add(measured_file::le32(1) + measured_file::f64(37.0) + measured_file::f64(95.0 + i));
  m.save(src, 1);
  error_log env;
  testing::internal::CaptureStderr();
  Tvx_reproj_shape_report report;
  ASSERT_EQ(
      Tvx_reproj_shape::execute(src.string().c_str(), "+proj=longlat +ellps=krass +no_defs",
                                dst.string().c_str(), "+proj=tmerc +lon_0=39 +ellps=krass +units=m", &report),
      0);
  EXPECT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), "+proj=foo"), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(report.failed, 7u);
  ASSERT_EQ(env.messages.size(), 1u);
  EXPECT_EQ(env.messages[0], "PROJ: tmerc: Invalid latitude (7 times)");
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0].rfind(
                "cannot build the transformation: PROJ refused the destination system \"+proj=foo\": ", 0),
            0u)
      << env.errors[0];
}

TEST_F(ReprojShape, IndexThatClaimsTooManyRecordsEndsCleanly) {
  make_polygons();
  // The index header claims 2 GB of entries; the file holds three.
  const fs::path shx = fs::path(src).replace_extension(".shx");
  std::string idx = read_bytes(shx);
  idx.replace(24, 4, measured_file::be32(0x40000000u));
  write_bytes(shx, idx);
  error_log env;
  Tvx_reproj_shape_report report;
  EXPECT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
            0);
  EXPECT_EQ(record_types(dst).size(), 3u);
  // The records the index counts and does not hold could not be read; the damage is reported.
  EXPECT_EQ(report.unreadable, (0x80000000u - 100) / 8 - 3);
  EXPECT_EQ(report.file_errors, 0u);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_NE(env.errors[0].find("is damaged: its header counts 268435443 records, it holds 3"),
            std::string::npos)
      << env.errors[0];
}

TEST_F(ReprojShape, IndexCutShortCountsTheRecordsItLost) {
  make_polygons();
  const fs::path shx = fs::path(src).replace_extension(".shx");
  fs::resize_file(shx, fs::file_size(shx) - 8);
  Tvx_reproj_shape_report report;
  EXPECT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
            0);
  EXPECT_EQ(record_types(dst), (std::vector<int>{5, 0}));
  EXPECT_EQ(report.records, 2u);
  EXPECT_EQ(report.unreadable, 1u);
}

TEST_F(ReprojShape, RecordsThatLieAboutTheirSizeDoNotCrash) {
  make_polygons();
  std::string shp = read_bytes(src);
  // The first polygon claims 2^31 parts and points.
  shp.replace(100 + 8 + 36, 4, measured_file::le32(0x7fffffff));
  shp.replace(100 + 8 + 40, 4, measured_file::le32(0x7fffffff));
  write_bytes(src, shp);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(record_types(dst).size(), 3u);
}

TEST_F(ReprojShape, NarrowFormTakesUtf8Paths) {
  src = dir / "\xd0\xba\xd0\xb0\xd1\x80\xd1\x82\xd0\xb0.shp";  // "карта"
  make_polygons();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(record_types(dst).size(), 3u);
}

TEST_F(ReprojShape, WideFormReadsTheSameFile) {
  make_polygons();
  const std::wstring wsrc = src.wstring(), wdst = dst.wstring();
  ASSERT_EQ(Tvx_reproj_shape::execute(wsrc.c_str(), L"+proj=longlat +ellps=krass +no_defs", wdst.c_str(),
                                      L"+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m"),
            0);
  EXPECT_EQ(record_types(dst), (std::vector<int>{5, 0, 5}));
}

TEST_F(ReprojShape, ProgressIsToldAfterEachRecord) {
  make_polygons();
  std::vector<std::pair<unsigned, unsigned>> calls;
  Tvx_reproj_shape_report report;
  report.user = &calls;
  report.progress = [](unsigned done, unsigned total, void* user) {
    static_cast<std::vector<std::pair<unsigned, unsigned>>*>(user)->emplace_back(done, total);
  };
  ASSERT_EQ(Tvx_reproj_shape::execute(src.string().c_str(), kPulkovo, dst.string().c_str(), kGk7, &report),
            0);
  EXPECT_EQ(calls, (std::vector<std::pair<unsigned, unsigned>>{{1, 3}, {2, 3}, {3, 3}}));
  EXPECT_EQ(report.records, 3u);
  EXPECT_EQ(report.failed, 0u);
}

}  // namespace
