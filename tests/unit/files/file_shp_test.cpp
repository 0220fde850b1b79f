#include "files/file_shp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fault_injection.h"
#include "files/file_dbf.h"
#include "test_paths.h"

namespace {

using bytes = std::vector<uint8_t>;

bytes read_bytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void write_bytes(const std::filesystem::path& path, const bytes& v) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(v.data()), static_cast<std::streamsize>(v.size()));
}

// Independent decoding and encoding by byte arithmetic.
uint32_t be32(const bytes& v, size_t at) {
  return static_cast<uint32_t>(v[at]) << 24 | v[at + 1] << 16 | v[at + 2] << 8 | v[at + 3];
}
uint32_t le32(const bytes& v, size_t at) {
  return v[at] | v[at + 1] << 8 | v[at + 2] << 16 | static_cast<uint32_t>(v[at + 3]) << 24;
}
double le64(const bytes& v, size_t at) {
  uint64_t bits = 0;
  for (int i = 7; i >= 0; --i) bits = bits << 8 | v[at + i];
  double d;
  std::memcpy(&d, &bits, 8);
  return d;
}

struct writer {
  bytes v;
  writer& be(uint32_t x) {
    for (int i = 3; i >= 0; --i) v.push_back(static_cast<uint8_t>(x >> (8 * i)));
    return *this;
  }
  writer& le(uint32_t x) {
    for (int i = 0; i < 4; ++i) v.push_back(static_cast<uint8_t>(x >> (8 * i)));
    return *this;
  }
  writer& d(double x) {
    uint64_t bits;
    std::memcpy(&bits, &x, 8);
    for (int i = 0; i < 8; ++i) v.push_back(static_cast<uint8_t>(bits >> (8 * i)));
    return *this;
  }
  // A main header with the given type and length in bytes.
  writer& header(uint32_t type, uint32_t length_bytes) {
    be(9994);
    for (int i = 0; i < 5; ++i) le(0);
    be(length_bytes / 2).le(1000).le(type);
    for (int i = 0; i < 8; ++i) d(i % 2 ? 10.0 : -10.0);
    return *this;
  }
};

// Writes a .shp/.shx pair from record contents (type word included).
void write_pair(const std::filesystem::path& shp, int type, const std::vector<bytes>& contents) {
  writer main, index;
  uint32_t shp_len = 100;
  for (const auto& c : contents) shp_len += 8 + static_cast<uint32_t>(c.size());
  main.header(type, shp_len);
  index.header(type, 100 + 8 * static_cast<uint32_t>(contents.size()));
  uint32_t offset = 100;
  uint32_t number = 1;
  for (const auto& c : contents) {
    index.be(offset / 2).be(static_cast<uint32_t>(c.size()) / 2);
    main.be(number++).be(static_cast<uint32_t>(c.size()) / 2);
    main.v.insert(main.v.end(), c.begin(), c.end());
    offset += 8 + static_cast<uint32_t>(c.size());
  }
  write_bytes(shp, main.v);
  std::filesystem::path shx = shp;
  write_bytes(shx.replace_extension(".shx"), index.v);
}

Tvx_pp2d* make_pp(Tvx_op2d& op, std::initializer_list<Tvx_point2d> pts) {
  Tvx_pp2d* pp = op.add();
  for (const auto& p : pts) pp->add(p);
  return pp;
}

Tvx_pp3d* make_pp3(Tvx_pp3d* pp, std::initializer_list<Tvx_point3d> pts) {
  for (const auto& p : pts) pp->add(p);
  return pp;
}

class ShpTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = vxk_test::scratch_dir(std::string("shp_") +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    shp = dir / "a.shp";
    shx = dir / "a.shx";
  }
  std::filesystem::path dir, shp, shx;
};

TEST_F(ShpTest, CreatedAndClosedFileHasTwoHeadersOnly) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POLYGON);
  f.close();
  for (const auto& path : {shp, shx}) {
    const bytes v = read_bytes(path);
    ASSERT_EQ(v.size(), 100u);
    EXPECT_EQ(be32(v, 0), 9994u);
    for (int i = 4; i < 24; ++i) EXPECT_EQ(v[i], 0);
    EXPECT_EQ(be32(v, 24), 50u);
    EXPECT_EQ(le32(v, 28), 1000u);
    EXPECT_EQ(le32(v, 32), 5u);
    const double expected[] = {0, 0, 1, 1, 0, 1, 0, 1};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(le64(v, 36 + 8 * i), expected[i]) << i;
  }
}

TEST_F(ShpTest, FirstPointRecordIsNumberZeroAtWordFifty) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POINT);
  Tvx_point2d p = vx_point2d(1.5, -2.5);
  EXPECT_TRUE(f.add_point(&p));
  Tvx_point2d q = vx_point2d(3, 4);
  f.add_point(&q);
  f.close();
  const bytes x = read_bytes(shx);
  ASSERT_EQ(x.size(), 116u);
  EXPECT_EQ(be32(x, 24), 58u);
  EXPECT_EQ(be32(x, 100), 50u);
  EXPECT_EQ(be32(x, 104), 10u);
  EXPECT_EQ(be32(x, 108), 64u);
  EXPECT_EQ(be32(x, 112), 10u);
  const bytes s = read_bytes(shp);
  ASSERT_EQ(s.size(), 156u);
  EXPECT_EQ(be32(s, 24), 78u);
  EXPECT_EQ(be32(s, 100), 0u);
  EXPECT_EQ(be32(s, 104), 10u);
  EXPECT_EQ(le32(s, 108), 1u);
  EXPECT_EQ(le64(s, 112), 1.5);
  EXPECT_EQ(le64(s, 120), -2.5);
  EXPECT_EQ(be32(s, 128), 1u);
  // The file's box is that of the points.
  EXPECT_EQ(le64(s, 36), 1.5);
  EXPECT_EQ(le64(s, 44), -2.5);
  EXPECT_EQ(le64(s, 52), 3.0);
  EXPECT_EQ(le64(s, 60), 4.0);
}

TEST_F(ShpTest, NullRecordTakesTwelveAndEightBytes) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POLYLINE);
  EXPECT_TRUE(f.add_empty());
  f.close();
  const bytes s = read_bytes(shp);
  const bytes x = read_bytes(shx);
  ASSERT_EQ(s.size(), 112u);
  ASSERT_EQ(x.size(), 108u);
  EXPECT_EQ(be32(s, 104), 2u);
  EXPECT_EQ(le32(s, 108), 0u);
  EXPECT_EQ(be32(x, 104), 2u);
  // The box is untouched by a null record.
  EXPECT_EQ(le64(s, 52), 1.0);
}

TEST_F(ShpTest, PointZMeasureIsNoDataAndHeaderMRangeStays) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POINT_Z);
  Tvx_point3d p = vx_point3d(1, 2, 3);
  f.add_point_z(&p);
  Tvx_point3d q = vx_point3d(-1, 5, -7);
  f.add_point_z(&q);
  f.close();
  const bytes s = read_bytes(shp);
  EXPECT_EQ(be32(s, 104), 18u);
  EXPECT_EQ(le64(s, 108 + 4 + 24), -1.1e38);
  EXPECT_EQ(le64(s, 68), -7.0);
  EXPECT_EQ(le64(s, 76), 3.0);
  EXPECT_EQ(le64(s, 84), 0.0);
  EXPECT_EQ(le64(s, 92), 1.0);
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_no(), 2u);
  EXPECT_EQ(r.get_obj_type(1), SHP_POINT_Z);
  Tvx_point3d back;
  r.get_point_z(&back);
  EXPECT_EQ(back.x, -1);
  EXPECT_EQ(back.y, 5);
  EXPECT_EQ(back.z, -7);
}

TEST_F(ShpTest, TwoPartPolylineHasStartsZeroAndThree) {
  Tvx_op2d op;
  make_pp(op, {{0, 0}, {1, 1}, {2, 0}});
  make_pp(op, {{5, 5}, {6, 6}, {7, 5}, {8, 9}});
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POLYLINE);
  f.add_polyline(&op);
  f.close();
  const bytes s = read_bytes(shp);
  ASSERT_EQ(s.size(), 100u + 8 + 164);
  EXPECT_EQ(be32(s, 104), 82u);
  EXPECT_EQ(le32(s, 108), 3u);
  EXPECT_EQ(le64(s, 112), 0.0);
  EXPECT_EQ(le64(s, 120), 0.0);
  EXPECT_EQ(le64(s, 128), 8.0);
  EXPECT_EQ(le64(s, 136), 9.0);
  EXPECT_EQ(le32(s, 144), 2u);
  EXPECT_EQ(le32(s, 148), 7u);
  EXPECT_EQ(le32(s, 152), 0u);
  EXPECT_EQ(le32(s, 156), 3u);
  EXPECT_EQ(le64(s, 160 + 16 * 6), 8.0);
  EXPECT_EQ(le64(s, 160 + 16 * 6 + 8), 9.0);

  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_obj_type(0), SHP_POLYLINE);
  Tvx_op2d back;
  r.get_polyline(&back);
  ASSERT_EQ(back.get_size(), 2);
  EXPECT_EQ(back.get(0)->get_size(), 3);
  EXPECT_EQ(back.get(1)->get_size(), 4);
  EXPECT_EQ(back.get(1)->get(3).x, 8.0);
  EXPECT_EQ(back.get(1)->get(3).y, 9.0);
}

TEST_F(ShpTest, PolyLineMReadsAsPolyline) {
  writer c;
  c.le(23).d(0).d(0).d(2).d(2).le(1).le(2).le(0).d(0).d(0).d(2).d(2).d(5).d(6).d(5).d(6);
  write_pair(shp, 23, {c.v});
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  EXPECT_EQ(r.get_type(), SHP_POLYLINE);
  ASSERT_EQ(r.get_obj_type(0), SHP_POLYLINE);
  Tvx_op2d op;
  r.get_polyline(&op);
  ASSERT_EQ(op.get_size(), 1);
  ASSERT_EQ(op.get(0)->get_size(), 2);
  EXPECT_EQ(op.get(0)->get(1).x, 2.0);
}

TEST(ShpTypes, MeasuredTypesFoldToPlainOnes) {
  EXPECT_EQ(Tvx_file_shp_exe::convert_m_type(21), 1);
  EXPECT_EQ(Tvx_file_shp_exe::convert_m_type(23), 3);
  EXPECT_EQ(Tvx_file_shp_exe::convert_m_type(25), 5);
  EXPECT_EQ(Tvx_file_shp_exe::convert_m_type(28), 8);
  for (int t : {0, 1, 3, 5, 8, 11, 13, 15, 18, 31}) EXPECT_EQ(Tvx_file_shp_exe::convert_m_type(t), t);
  EXPECT_EQ(Tvx_file_shp_exe::invert_int(1), 0x01000000);
  EXPECT_EQ(Tvx_file_shp_exe::invert_int(0x01020304), 0x04030201);
}

TEST(ShpTypes, PatchTypesBothWays) {
  const int from[] = {1, 2, 3, 4, 6, 6, 0, 0};
  for (int i = 0; i < 8; ++i)
    EXPECT_EQ(static_cast<int>(Tvx_file_shp_exe::patch3d_type_from_shp(i == 7 ? -1 : i)), from[i]) << i;
  const int to[] = {5, 0, 1, 2, 3, 5, 5};
  for (int t = 0; t <= 6; ++t)
    EXPECT_EQ(Tvx_file_shp_exe::patch3d_type_to_shp(static_cast<Tvx_patch_3d_type>(t)), to[t]) << t;
}

TEST_F(ShpTest, FirstRingIsWrittenBackAsRing) {
  writer c;
  c.le(31).d(0).d(0).d(1).d(1).le(1).le(3).le(0).le(4);
  c.d(0).d(0).d(1).d(0).d(1).d(1).d(7).d(9).d(7).d(8).d(9);
  write_pair(shp, 31, {c.v});
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_obj_type(0), SHP_MULTIPATCH);
  Tvx_multipatch3d mp;
  r.get_multipatch(&mp);
  ASSERT_EQ(mp.get_size(), 1);
  EXPECT_EQ(static_cast<int>(mp.get(0)->get_type()), 6);
  ASSERT_EQ(mp.get(0)->get_pp_ptr()->get_size(), 3);
  EXPECT_EQ(mp.get(0)->get_pp_ptr()->get(2).z, 9.0);

  const auto out = dir / "b.shp";
  Tvx_file_shp w;
  w.create(out.string().c_str(), SHP_MULTIPATCH);
  w.add_multipatch(&mp);
  w.close();
  const bytes s = read_bytes(out);
  EXPECT_EQ(le32(s, 108 + 48), 5u);  // type, box, p, n, one start, then the part type
}

TEST_F(ShpTest, TwoPartMultipatchLayout) {
  Tvx_multipatch3d mp;
  Tvx_patch3d* a = mp.add();
  a->set_type(static_cast<Tvx_patch_3d_type>(1));
  make_pp3(a->get_pp_ptr(), {{0, 0, 1}, {1, 0, 2}, {0, 1, 3}});
  Tvx_patch3d* b = mp.add();
  b->set_type(static_cast<Tvx_patch_3d_type>(3));
  make_pp3(b->get_pp_ptr(), {{0, 0, 0}, {2, 0, 0}, {2, 2, 5}, {0, 0, 0}});
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_MULTIPATCH);
  f.add_multipatch(&mp);
  f.close();
  const bytes s = read_bytes(shp);
  const uint32_t content = 76 + 16 + 32 * 7;
  ASSERT_EQ(s.size(), 108u + content);
  EXPECT_EQ(be32(s, 104), content / 2);
  const size_t c = 108;
  EXPECT_EQ(le32(s, c), 31u);
  EXPECT_EQ(le32(s, c + 36), 2u);
  EXPECT_EQ(le32(s, c + 40), 7u);
  EXPECT_EQ(le32(s, c + 44), 0u);
  EXPECT_EQ(le32(s, c + 48), 3u);
  EXPECT_EQ(le32(s, c + 52), 0u);
  EXPECT_EQ(le32(s, c + 56), 2u);
  const size_t z = c + 60 + 16 * 7;
  EXPECT_EQ(le64(s, z), 0.0);
  EXPECT_EQ(le64(s, z + 8), 5.0);
  EXPECT_EQ(le64(s, z + 16), 1.0);
  EXPECT_EQ(le64(s, z + 16 + 8 * 4), 0.0);
  const size_t m = z + 16 + 8 * 7;
  EXPECT_EQ(le64(s, m), 0.0);
  EXPECT_EQ(le64(s, m + 8), 1.0);
  EXPECT_EQ(le64(s, m + 16), -1.1e38);
  EXPECT_EQ(le64(s, 68), 0.0);
  EXPECT_EQ(le64(s, 76), 5.0);

  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_obj_type(0), SHP_MULTIPATCH);
  Tvx_multipatch3d back;
  r.get_multipatch(&back);
  ASSERT_EQ(back.get_size(), 2);
  EXPECT_EQ(static_cast<int>(back.get(0)->get_type()), 1);
  EXPECT_EQ(static_cast<int>(back.get(1)->get_type()), 3);
  EXPECT_EQ(back.get(1)->get_pp_ptr()->get(2).z, 5.0);
}

TEST_F(ShpTest, UnclosedPolygonRingStaysUnclosed) {
  Tvx_op2d op;
  make_pp(op, {{0, 0}, {0, 1}, {1, 1}});
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POLYGON);
  f.add_polygon(&op);
  f.close();
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_obj_type(0), SHP_POLYGON);
  Tvx_op2d back;
  r.get_polygon(&back);
  ASSERT_EQ(back.get_size(), 1);
  ASSERT_EQ(back.get(0)->get_size(), 3);
  EXPECT_FALSE(back.get(0)->is_closed());
}

TEST_F(ShpTest, FnGetTypeIsZeroEvenForAPolygonFile) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POLYGON);
  f.close();
  EXPECT_EQ(Tvx_file_shp::fn_get_type(shp.string().c_str()), 0);
  EXPECT_EQ(Tvx_file_shp::fn_get_type("/no/such/file.shp"), 0);
}

TEST_F(ShpTest, ZRecordWithoutMeasureBlockReads) {
  writer c;
  c.le(13).d(0).d(0).d(1).d(1).le(1).le(2).le(0).d(0).d(0).d(1).d(1).d(3).d(4).d(3).d(4);
  writer mp;
  mp.le(18).d(0).d(0).d(1).d(1).le(1).d(0.5).d(0.25).d(8).d(8).d(8);
  writer pz;
  pz.le(11).d(1).d(2).d(3);
  write_pair(shp, 13, {c.v, mp.v, pz.v});
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_no(), 3u);
  ASSERT_EQ(r.get_obj_type(0), SHP_POLYLINE_Z);
  Tvx_op3d op;
  r.get_polyline_z(&op);
  ASSERT_EQ(op.get_size(), 1);
  ASSERT_EQ(op.get(0)->get_size(), 2);
  EXPECT_EQ(op.get(0)->get(1).x, 1.0);
  EXPECT_EQ(op.get(0)->get(1).z, 4.0);
  ASSERT_EQ(r.get_obj_type(1), SHP_MULTIPOINT_Z);
  Tvx_pp3d pp;
  r.get_multipoint_z(&pp);
  ASSERT_EQ(pp.get_size(), 1);
  EXPECT_EQ(pp.get(0).y, 0.25);
  EXPECT_EQ(pp.get(0).z, 8.0);
  ASSERT_EQ(r.get_obj_type(2), SHP_POINT_Z);
  Tvx_point3d p;
  r.get_point_z(&p);
  EXPECT_EQ(p.z, 3.0);
  // The measures are optional: a record without them is whole.
  EXPECT_FALSE(r.is_record_damaged());
  for (unsigned i = 0; i < 2; ++i) {
    r.get_obj_type(i);
    i == 0 ? r.get_polyline_z(&op) : r.get_multipoint_z(&pp);
    EXPECT_FALSE(r.is_record_damaged()) << i;
  }
}

TEST_F(ShpTest, MainFileKeepsItsExtensionAndIndexGetsShx) {
  const auto dat = dir / "a.dat";
  Tvx_file_shp f;
  f.create(dat.string().c_str(), SHP_POINT);
  Tvx_point2d p = vx_point2d(1, 1);
  f.add_point(&p);
  f.close();
  EXPECT_TRUE(std::filesystem::exists(dat));
  EXPECT_TRUE(std::filesystem::exists(dir / "a.shx"));
  EXPECT_FALSE(std::filesystem::exists(dir / "a.shp"));
  Tvx_file_shp r;
  r.open(dat.string().c_str(), true);
  EXPECT_EQ(r.get_no(), 1u);
}

TEST_F(ShpTest, EveryTypeRoundTripsWithBoxesAndZRange) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POLYLINE_Z);
  Tvx_point2d p = vx_point2d(1, 2);
  f.add_point(&p);
  Tvx_op2d line;
  make_pp(line, {{-3, 4}, {5, 6}});
  f.add_polyline(&line);
  Tvx_op2d poly;
  make_pp(poly, {{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}});
  make_pp(poly, {{2, 2}, {8, 2}, {8, 8}, {2, 8}, {2, 2}});
  f.add_polygon(&poly);
  Tvx_pp2d mp;
  mp.add(vx_point2d(7, 7));
  mp.add(vx_point2d(-1, 20));
  f.add_multipoint(&mp);
  Tvx_op3d lz;
  make_pp3(lz.add(), {{1, 1, -5}, {2, 2, 50}});
  f.add_polyline_z(&lz);
  Tvx_op3d pz;
  make_pp3(pz.add(), {{0, 0, 1}, {0, 1, 1}, {1, 1, 1}, {0, 0, 1}});
  f.add_polygon_z(&pz);
  Tvx_pp3d mz;
  mz.add(vx_point3d(3, 3, 3));
  f.add_multipoint_z(&mz);
  Tvx_op2d none;
  f.add_polyline(&none);
  f.add_empty();
  f.close();

  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  EXPECT_EQ(r.get_type(), SHP_POLYLINE_Z);
  ASSERT_EQ(r.get_no(), 9u);
  const Tvx_rect2d box = r.get_rect2d();
  EXPECT_TRUE(box.defined);
  EXPECT_EQ(box.xmin, -3.0);
  EXPECT_EQ(box.ymin, 0.0);
  EXPECT_EQ(box.xmax, 10.0);
  EXPECT_EQ(box.ymax, 20.0);
  const bytes s = read_bytes(shp);
  EXPECT_EQ(le64(s, 68), -5.0);
  EXPECT_EQ(le64(s, 76), 50.0);

  const int types[] = {1, 3, 5, 8, 13, 15, 18, 3, 0};
  for (unsigned i = 0; i < 9; ++i) EXPECT_EQ(r.get_obj_type(i), types[i]) << i;
  r.get_obj_type(2);
  Tvx_op2d back;
  r.get_polygon(&back);
  ASSERT_EQ(back.get_size(), 2);
  EXPECT_EQ(back.get(1)->get(2).x, 8.0);
  r.get_obj_type(3);
  Tvx_pp2d mback;
  r.get_multipoint(&mback);
  ASSERT_EQ(mback.get_size(), 2);
  EXPECT_EQ(mback.get(1).y, 20.0);
  r.get_obj_type(5);
  Tvx_op3d pzback;
  r.get_polygon_z(&pzback);
  ASSERT_EQ(pzback.get_size(), 1);
  EXPECT_EQ(pzback.get(0)->get_size(), 4);
  EXPECT_EQ(pzback.get(0)->get(2).z, 1.0);
  r.get_obj_type(7);
  Tvx_op2d noneback;
  noneback.add();
  r.get_polyline(&noneback);
  EXPECT_EQ(noneback.get_size(), 0);
  // An empty polyline's record carries a box of four zeros.
  const size_t empty_line = be32(read_bytes(shx), 100 + 8 * 7) * 2 + 8;
  EXPECT_EQ(le32(s, empty_line), 3u);
  EXPECT_EQ(le64(s, empty_line + 28), 0.0);
  EXPECT_EQ(le32(s, empty_line + 36), 0u);
  EXPECT_EQ(le32(s, empty_line + 40), 0u);
}

TEST_F(ShpTest, RecordNumbersStartAtZero) {
  Tvx_file_shp f;
  f.create(shp.string().c_str(), SHP_POINT);
  for (int i = 0; i < 3; ++i) {
    Tvx_point2d p = vx_point2d(i, i);
    f.add_point(&p);
  }
  f.close();
  const bytes s = read_bytes(shp);
  for (uint32_t i = 0; i < 3; ++i) EXPECT_EQ(be32(s, 100 + 28 * i), i);
}

TEST_F(ShpTest, OpenOfMissingFilesGivesNoRecords) {
  Tvx_file_shp r;
  EXPECT_EQ(r.open((dir / "none.shp").string().c_str(), true), 0);
  EXPECT_EQ(r.get_no(), 0u);
  EXPECT_EQ(r.get_type(), 0);
  EXPECT_FALSE(r.get_rect2d().defined);
  EXPECT_EQ(r.get_obj_type(0), 0);
  Tvx_op2d op;
  r.get_polyline(&op);
  EXPECT_EQ(op.get_size(), 0);
}

TEST_F(ShpTest, WidePathsWork) {
  const std::wstring w = std::wstring(dir.wstring()) + L"/карта.shp";
  Tvx_file_shp f;
  f.create(w, SHP_POINT);
  Tvx_point2d p = vx_point2d(1, 1);
  f.add_point(&p);
  f.close();
  Tvx_file_shp r;
  r.open(w, true);
  EXPECT_EQ(r.get_no(), 1u);
}

TEST_F(ShpTest, DeleteObjNullsThePointer) {
  Tvx_file_shp* f = new Tvx_file_shp;
  Tvx_file_shp::delete_obj(&f);
  EXPECT_EQ(f, nullptr);
}

TEST_F(ShpTest, SavePpPlnWritesOneLineWithItsTable) {
  Tvx_pp2d pp;
  pp.add(vx_point2d(0, 0));
  pp.add(vx_point2d(3, 4));
  pp.add(vx_point2d(6, 0));
  EXPECT_EQ(Tvx_file_shp_geom::save_pp_pln(shp.string().c_str(), &pp), 0);
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  EXPECT_EQ(r.get_type(), SHP_POLYLINE);
  ASSERT_EQ(r.get_no(), 1u);
  ASSERT_EQ(r.get_obj_type(0), SHP_POLYLINE);
  Tvx_op2d op;
  r.get_polyline(&op);
  ASSERT_EQ(op.get_size(), 1);
  ASSERT_EQ(op.get(0)->get_size(), 3);
  EXPECT_EQ(op.get(0)->get(1).y, 4.0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.open((dir / "a.dbf").string().c_str(), true), 0);
  EXPECT_EQ(dbf.get_nr(), 1u);
  EXPECT_STREQ(dbf.get_prp_name(0), "ID");
  EXPECT_EQ(dbf.get_prp_type(0), 'N');
  EXPECT_EQ(dbf.get_prp_len(0), 5u);
  dbf.set_rec(0);
  EXPECT_STREQ(dbf.get_str(0), "    1");
}

// Malformed files: lying headers, counts and offsets. Nothing may read out of bounds, loop on or
// allocate without bound; what cannot be read is a null record or an empty object.
void read_everything(const std::filesystem::path& shp) {
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  const unsigned n = std::min(r.get_no(), 64u);
  for (unsigned i = 0; i <= n; ++i) {
    switch (r.get_obj_type(i)) {
      case SHP_POINT: {
        Tvx_point2d p;
        r.get_point(&p);
        break;
      }
      case SHP_POLYLINE:
      case SHP_POLYGON: {
        Tvx_op2d op;
        r.get_polyline(&op);
        break;
      }
      case SHP_MULTIPOINT: {
        Tvx_pp2d pp;
        r.get_multipoint(&pp);
        break;
      }
      case SHP_POINT_Z: {
        Tvx_point3d p;
        r.get_point_z(&p);
        break;
      }
      case SHP_POLYLINE_Z:
      case SHP_POLYGON_Z: {
        Tvx_op3d op;
        r.get_polygon_z(&op);
        break;
      }
      case SHP_MULTIPOINT_Z: {
        Tvx_pp3d pp;
        r.get_multipoint_z(&pp);
        break;
      }
      case SHP_MULTIPATCH: {
        Tvx_multipatch3d mp;
        r.get_multipatch(&mp);
        break;
      }
      default:
        break;
    }
  }
}

// Opens shp and expects it refused as no shape file: zero records, and one report, the one given.
void expect_refused(const std::filesystem::path& shp, const std::string& report) {
  Tvx_file_shp r;
  vxk_test::error_log env;
  r.open(shp.string().c_str(), true);
  EXPECT_FALSE(r.is_valid());
  EXPECT_EQ(r.get_no(), 0u);
  EXPECT_EQ(r.get_type(), 0);
  EXPECT_EQ(env.errors, std::vector<std::string>{report});
}

TEST_F(ShpTest, IndexHeaderClaimingTwoToTheThirtyFirstRecords) {
  writer c;
  c.le(1).d(1).d(2);
  write_pair(shp, 1, {c.v});
  bytes x = read_bytes(shx);
  x[24] = 0x40;  // length in words 2^30 + ..., so (bytes - 100) / 8 is near 2^28
  x[25] = x[26] = x[27] = 0;
  write_bytes(shx, x);
  Tvx_file_shp r;
  vxk_test::error_log env;
  r.open(shp.string().c_str(), true);
  EXPECT_TRUE(r.is_valid());
  EXPECT_EQ(r.get_no(), 1u);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0],
            "'" + shx.string() + "' is damaged: its header counts 268435443 records, it holds 1");
  EXPECT_EQ(r.get_missing(), 268435442u);
  ASSERT_EQ(r.get_obj_type(0), SHP_POINT);
  Tvx_point2d p;
  r.get_point(&p);
  EXPECT_EQ(p.y, 2.0);
  EXPECT_FALSE(r.is_record_damaged());
  EXPECT_EQ(r.get_obj_type(0x80000000u), SHP_NULL);
  EXPECT_TRUE(r.is_record_damaged());
}

TEST_F(ShpTest, IndexLengthBelowTheHeaderGivesNoRecords) {
  writer c;
  c.le(1).d(1).d(2);
  write_pair(shp, 1, {c.v});
  bytes x = read_bytes(shx);
  x[24] = x[25] = x[26] = 0;
  x[27] = 10;
  write_bytes(shx, x);
  // A length shorter than the header cannot be: this is no shape file.
  expect_refused(shp, "'" + shx.string() +
                          "' is not a shape file: its header gives it a length of 20 bytes, less than "
                          "the header itself");
}

TEST_F(ShpTest, PartCountLargerThanTheRecord) {
  writer c;
  c.le(3).d(0).d(0).d(1).d(1).le(0x7FFFFFFF).le(2).le(0).d(0).d(0).d(1).d(1);
  writer d;
  d.le(5).d(0).d(0).d(1).d(1).le(1).le(0x7FFFFFFF).le(0).d(0).d(0).d(1).d(1);
  writer e;
  e.le(31).d(0).d(0).d(1).d(1).le(0x40000000).le(0x40000000).le(0);
  writer f;
  f.le(13).d(0).d(0).d(1).d(1).le(3).le(4).le(0).le(-5).le(900).d(1).d(1);
  write_pair(shp, 3, {c.v, d.v, e.v, f.v});
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_no(), 4u);
  ASSERT_EQ(r.get_obj_type(0), SHP_POLYLINE);
  Tvx_op2d op;
  r.get_polyline(&op);
  EXPECT_TRUE(r.is_record_damaged());
  EXPECT_LE(op.get_size(), 11);
  int total = 0;
  for (int k = 0; k < op.get_size(); ++k) total += op.get(k)->get_size();
  EXPECT_LE(total, 2);
  ASSERT_EQ(r.get_obj_type(1), SHP_POLYGON);
  r.get_polygon(&op);
  EXPECT_TRUE(r.is_record_damaged());
  ASSERT_EQ(op.get_size(), 1);
  EXPECT_EQ(op.get(0)->get_size(), 2);
  ASSERT_EQ(r.get_obj_type(2), SHP_MULTIPATCH);
  Tvx_multipatch3d mp;
  r.get_multipatch(&mp);
  EXPECT_TRUE(r.is_record_damaged());
  EXPECT_LE(mp.get_size(), 1);
  ASSERT_EQ(r.get_obj_type(3), SHP_POLYLINE_Z);
  Tvx_op3d oz;
  r.get_polyline_z(&oz);
  EXPECT_TRUE(r.is_record_damaged());
  ASSERT_EQ(oz.get_size(), 3);
  EXPECT_EQ(oz.get(0)->get_size(), 0);  // start -5 after 0: a negative size becomes 0
}

TEST_F(ShpTest, RecordOffsetPastTheEndOfTheFile) {
  writer c;
  c.le(1).d(1).d(2);
  write_pair(shp, 1, {c.v, c.v});
  bytes x = read_bytes(shx);
  x[108] = 0x7F;  // second record at word 0x7F0000xx
  x[109] = 0xFF;
  write_bytes(shx, x);
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_no(), 2u);
  EXPECT_EQ(r.get_obj_type(1), SHP_NULL);
  EXPECT_TRUE(r.is_record_damaged());
  EXPECT_EQ(r.get_obj_type(0), SHP_POINT);
  EXPECT_FALSE(r.is_record_damaged());
}

TEST_F(ShpTest, RecordLengthPastTheEndOfTheFile) {
  writer c;
  c.le(8).d(0).d(0).d(1).d(1).le(1000000).d(3).d(4);
  write_pair(shp, 8, {c.v});
  bytes x = read_bytes(shx);
  x[104] = 0x7F;
  write_bytes(shx, x);
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_obj_type(0), SHP_MULTIPOINT);
  EXPECT_TRUE(r.is_record_damaged());
  Tvx_pp2d pp;
  r.get_multipoint(&pp);
  ASSERT_EQ(pp.get_size(), 1);
  EXPECT_EQ(pp.get(0).y, 4.0);
}

// A file that is not a shape file is refused before any count of it is believed: zero records, and the
// reason through the environment.
TEST_F(ShpTest, TextFilesNamedShpAndShxAreRefused) {
  const std::string text = "name,x,y\n" + std::string(200, 'z') + "\n";
  write_bytes(shp, bytes(text.begin(), text.end()));
  write_bytes(shx, bytes(text.begin(), text.end()));
  Tvx_file_shp r;
  vxk_test::error_log env;
  r.open(shp.string().c_str(), true);
  EXPECT_FALSE(r.is_valid());
  EXPECT_EQ(r.get_no(), 0u);
  EXPECT_EQ(r.get_type(), 0);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0],
            "'" + shp.string() + "' is not a shape file: its file code is 1851878757, not 9994");
}

TEST_F(ShpTest, IndexWithAnotherFileCodeIsRefused) {
  writer c;
  c.le(1).d(1).d(2);
  write_pair(shp, 1, {c.v});
  bytes x = read_bytes(shx);
  x[3] = 0x09;
  write_bytes(shx, x);
  expect_refused(shp, "'" + shx.string() + "' is not a shape file: its file code is 9993, not 9994");
}

TEST_F(ShpTest, FileShorterThanAHeaderIsRefused) {
  write_bytes(shp, bytes(60, 0));
  write_bytes(shx, bytes(100, 0));
  expect_refused(
      shp, "'" + shp.string() + "' is not a shape file: it is shorter than the 100-byte header (60 bytes)");
}

// A folder named like the index once made the reader allocate 4 GB: it is a file that cannot be opened.
TEST_F(ShpTest, IndexThatIsAFolderIsRefused) {
  writer c;
  c.le(1).d(1).d(2);
  write_pair(shp, 1, {c.v});
  std::filesystem::remove(shx);
  std::filesystem::create_directory(shx);
  expect_refused(shp, "Can't open file: \"" + shx.string() + "\": Is a directory");
}

// Records whose data is not all there: each is marked, so that a caller can tell a damaged source from
// a record that is empty on purpose.
TEST_F(ShpTest, RecordsWithoutTheirDataAreMarkedDamaged) {
  writer point_without_y;
  point_without_y.le(1).d(1);
  writer bare_type;
  bare_type.le(1);
  writer unknown_type;
  unknown_type.le(7).d(1).d(2);
  writer negative_count;
  negative_count.le(8).d(0).d(0).d(1).d(1).le(-3);
  writer z_without_z;
  z_without_z.le(11).d(1).d(2);
  writer whole;
  whole.le(1).d(1).d(2);
  write_pair(shp, 1,
             {point_without_y.v, bare_type.v, unknown_type.v, negative_count.v, z_without_z.v, whole.v});
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_EQ(r.get_no(), 6u);
  Tvx_point2d p;
  Tvx_point3d pz;
  Tvx_pp2d pp;
  r.get_obj_type(0);
  r.get_point(&p);
  EXPECT_TRUE(r.is_record_damaged());
  r.get_obj_type(1);
  r.get_point(&p);
  EXPECT_TRUE(r.is_record_damaged());
  EXPECT_EQ(r.get_obj_type(2), 7);
  EXPECT_TRUE(r.is_record_damaged());
  r.get_obj_type(3);
  r.get_multipoint(&pp);
  EXPECT_TRUE(r.is_record_damaged());
  EXPECT_EQ(pp.get_size(), 0);
  r.get_obj_type(4);
  r.get_point_z(&pz);
  EXPECT_TRUE(r.is_record_damaged());
  r.get_obj_type(5);
  r.get_point(&p);
  EXPECT_FALSE(r.is_record_damaged());
}

TEST_F(ShpTest, RecordsOfOurWriterAreWhole) {
  Tvx_op2d op;
  make_pp(op, {{0, 0}, {1, 1}, {2, 0}});
  make_pp(op, {{5, 5}, {6, 6}});
  Tvx_multipatch3d mp;
  make_pp3(mp.add()->get_pp_ptr(), {{0, 0, 1}, {1, 0, 2}, {0, 1, 3}});
  Tvx_op3d oz;
  make_pp3(oz.add(), {{0, 0, 1}, {1, 0, 2}});
  Tvx_point2d pt{1, 2};
  Tvx_point3d ptz{1, 2, 3};
  {
    Tvx_file_shp f;
    f.create(shp.string().c_str(), SHP_POLYLINE);
    f.add_polyline(&op);
    f.add_multipatch(&mp);
    f.add_empty();
    f.add_point(&pt);
    f.add_point_z(&ptz);
    f.add_polygon_z(&oz);
    f.add_multipoint(op.get(0));
    f.close();
  }
  Tvx_file_shp r;
  r.open(shp.string().c_str(), true);
  ASSERT_TRUE(r.is_valid());
  ASSERT_EQ(r.get_no(), 7u);
  for (unsigned i = 0; i < r.get_no(); ++i) {
    switch (r.get_obj_type(i)) {
      case SHP_POLYLINE:
        r.get_polyline(&op);
        break;
      case SHP_MULTIPATCH:
        r.get_multipatch(&mp);
        break;
      case SHP_POINT:
        r.get_point(&pt);
        break;
      case SHP_POINT_Z:
        r.get_point_z(&ptz);
        break;
      case SHP_POLYGON_Z:
        r.get_polygon_z(&oz);
        break;
      case SHP_MULTIPOINT: {
        Tvx_pp2d pp;
        r.get_multipoint(&pp);
        break;
      }
      default:
        break;
    }
    EXPECT_FALSE(r.is_record_damaged()) << i;
  }
}

TEST_F(ShpTest, TruncatedFilesAtEveryLength) {
  Tvx_op2d op;
  make_pp(op, {{0, 0}, {1, 1}, {2, 0}});
  Tvx_multipatch3d mp;
  make_pp3(mp.add()->get_pp_ptr(), {{0, 0, 1}, {1, 0, 2}, {0, 1, 3}});
  {
    Tvx_file_shp f;
    f.create(shp.string().c_str(), SHP_POLYLINE);
    f.add_polyline(&op);
    f.add_multipatch(&mp);
    f.add_empty();
    f.close();
  }
  const bytes s = read_bytes(shp);
  const bytes x = read_bytes(shx);
  for (size_t n = 0; n < s.size(); n += 3) {
    write_bytes(shp, bytes(s.begin(), s.begin() + n));
    read_everything(shp);
  }
  write_bytes(shp, s);
  for (size_t n = 0; n < x.size(); ++n) {
    write_bytes(shx, bytes(x.begin(), x.begin() + n));
    read_everything(shp);
  }
  SUCCEED();
}

}  // namespace
