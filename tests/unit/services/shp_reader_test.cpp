// The shape file reader of hosts: what the writers wrote comes back record by record and value by
// value; a missing table, a .cpg, and files that lie about their counts. Files written by GDAL are read
// in shp_reader_gdal.py.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "test_paths.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

struct vertex {
  double x, y;
};

// A polyline file of the given records, each one part, with the columns ID, L_CODE and TEXT.
fs::path write_lines(const std::string& name, const std::vector<std::vector<vertex>>& records,
                     const std::vector<const char*>& texts) {
  const fs::path path = vxk_test::scratch_dir(name) / "lines.shp";
  Tvx_shp_basic* shp = vx_shp_file_create_w(path.wstring().c_str(), VX_SHP_POLYLINE);
  Tvx_dbf_field fields[3];
  vx_dbf_field_init(&fields[0], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[1], "L_CODE", VX_DBF_NUMERIC, 8, 0);
  vx_dbf_field_init(&fields[2], "TEXT", VX_DBF_CHARACTER, 40, 0);
  void* dbf = vx_dbf_create_w(fs::path(path).replace_extension(".dbf").wstring().c_str(), 3,
                              static_cast<int>(records.size()), fields, 0);
  for (size_t r = 0; r < records.size(); ++r) {
    Tvx_op2d* o = vx_ov_d2_create();
    Tvx_pp2d* p = vx_ov_d2_add(o);
    for (const vertex& v : records[r]) vx_pv_d2_add_vtx(p, Tvx_vtx_d2{v.x, v.y});
    vx_shp_file_add_polypoint(shp, o, VX_SHP_POLYLINE);
    vx_ov_d2_destroy(o);
    vx_dbf_set_int(dbf, 0, static_cast<int>(r), static_cast<int>(r) + 1);
    vx_dbf_set_int(dbf, 1, static_cast<int>(r), 400901 + static_cast<int>(r));
    vx_dbf_set_str(dbf, 2, static_cast<int>(r), texts[r]);
  }
  vx_dbf_close(dbf);
  vx_shp_file_close(shp);
  return path;
}

void write_text(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::vector<char> bytes_of(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void write_bytes(const fs::path& path, const std::vector<char>& bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void put_u32_le(std::vector<char>& bytes, size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(v >> (8 * i));
}

void put_u32_be(std::vector<char>& bytes, size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(v >> (8 * (3 - i)));
}

class reader {
 public:
  explicit reader(const fs::path& path) : r_(vx_shp_reader_open_w(path.wstring().c_str())) {}
  ~reader() { vx_shp_reader_close(r_); }
  reader(const reader&) = delete;
  reader& operator=(const reader&) = delete;
  Tvx_shp_reader* get() const { return r_; }

  // The vertices of one part of the record read last.
  std::vector<vertex> part(uint32_t k) const {
    Tvx_pp2d* pv = vx_pv_d2_create();
    std::vector<vertex> out;
    if (vx_shp_reader_get_part(r_, k, pv)) {
      for (uint32_t i = 0; i < vx_pv_d2_get_size(pv); ++i) {
        const Tvx_vtx_d2 v = vx_pv_d2_get_vtx(pv, i);
        out.push_back({v.x, v.y});
      }
    }
    vx_pv_d2_destroy(pv);
    return out;
  }

  std::wstring value(uint32_t row, uint32_t column) const { return vx_shp_reader_get_value(r_, row, column); }

 private:
  Tvx_shp_reader* r_;
};

const char kCyrillic1251[] = "\xd0\xe0\xec\xea\xe0";  // "Рамка" in Windows-1251

TEST(ShpReader, ReadsBackWhatTheWritersWrote) {
  const fs::path path = write_lines("shp_reader_lines", {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}, {9, 10}}},
                                    {"  N-37-VI ", kCyrillic1251});
  reader r(path);
  ASSERT_NE(r.get(), nullptr);
  EXPECT_EQ(vx_shp_reader_get_type(r.get()), VX_SHP_POLYLINE);
  ASSERT_EQ(vx_shp_reader_get_count(r.get()), 2u);

  ASSERT_EQ(vx_shp_reader_read(r.get(), 1), 1u);
  const std::vector<vertex> v = r.part(0);
  ASSERT_EQ(v.size(), 3u);
  EXPECT_EQ(v[0].x, 5);
  EXPECT_EQ(v[2].y, 10);

  EXPECT_EQ(vx_shp_reader_get_row_count(r.get()), 2u);
  ASSERT_EQ(vx_shp_reader_get_column_count(r.get()), 3u);
  EXPECT_EQ(std::wstring(vx_shp_reader_get_column_name(r.get(), 1)), L"L_CODE");
  EXPECT_EQ(vx_shp_reader_find_column(r.get(), L" l_code "), 1);
  EXPECT_EQ(vx_shp_reader_find_column(r.get(), L"text"), 2);
  EXPECT_EQ(vx_shp_reader_find_column(r.get(), L"SIZE"), -1);
  EXPECT_EQ(r.value(0, 0), L"1");
  EXPECT_EQ(r.value(1, 1), L"400902");
  EXPECT_EQ(r.value(0, 2), L"N-37-VI");  // blanks at both ends go
  EXPECT_EQ(r.value(1, 2), L"Рамка");    // Windows-1251 without a .cpg
}

TEST(ShpReader, OutOfRangeGivesNothing) {
  const fs::path path = write_lines("shp_reader_range", {{{1, 2}, {3, 4}}}, {"a"});
  reader r(path);
  ASSERT_NE(r.get(), nullptr);
  ASSERT_EQ(vx_shp_reader_read(r.get(), 0), 1u);
  EXPECT_TRUE(r.part(1).empty());
  EXPECT_EQ(vx_shp_reader_read(r.get(), 1), 0u);
  EXPECT_TRUE(r.part(0).empty());  // the record read before is gone
  EXPECT_EQ(vx_shp_reader_read(r.get(), 0xFFFFFFFFu), 0u);
  EXPECT_EQ(r.value(1, 0), L"");
  EXPECT_EQ(r.value(0, 3), L"");
  EXPECT_EQ(std::wstring(vx_shp_reader_get_column_name(r.get(), 3)), L"");
  EXPECT_EQ(vx_shp_reader_find_column(r.get(), nullptr), -1);
}

TEST(ShpReader, PointsComeAsOnePartOfOneVertex) {
  const fs::path path = vxk_test::scratch_dir("shp_reader_points") / "p.shp";
  Tvx_shp_basic* shp = vx_shp_file_create_w(path.wstring().c_str(), VX_SHP_POINT);
  vx_shp_file_add_point(shp, Tvx_vtx_d2{7500000.5, 6200000.25});
  vx_shp_file_close(shp);
  reader r(path);
  ASSERT_NE(r.get(), nullptr);
  EXPECT_EQ(vx_shp_reader_get_type(r.get()), VX_SHP_POINT);
  ASSERT_EQ(vx_shp_reader_read(r.get(), 0), 1u);
  const std::vector<vertex> v = r.part(0);
  ASSERT_EQ(v.size(), 1u);
  EXPECT_EQ(v[0].x, 7500000.5);
  EXPECT_EQ(v[0].y, 6200000.25);
  // No table beside it.
  EXPECT_EQ(vx_shp_reader_get_row_count(r.get()), 0u);
  EXPECT_EQ(vx_shp_reader_get_column_count(r.get()), 0u);
  EXPECT_EQ(vx_shp_reader_find_column(r.get(), L"ID"), -1);
  EXPECT_EQ(r.value(0, 0), L"");
}

TEST(ShpReader, RefusesWhatIsNotThere) {
  const fs::path path = write_lines("shp_reader_missing", {{{1, 2}, {3, 4}}}, {"a"});
  EXPECT_EQ(vx_shp_reader_open_w(nullptr), nullptr);
  EXPECT_EQ(vx_shp_reader_open_w((path.parent_path() / "none.shp").wstring().c_str()), nullptr);
  fs::remove(fs::path(path).replace_extension(".shx"));
  EXPECT_EQ(vx_shp_reader_open_w(path.wstring().c_str()), nullptr);  // no record can be reached
  vx_shp_reader_close(nullptr);
}

TEST(ShpReader, TheCpgNamesTheCodePage) {
  const fs::path path = write_lines("shp_reader_cpg", {{{1, 2}, {3, 4}}, {{1, 2}, {3, 4}}},
                                    {"\xd0\xa0\xd0\xb0\xd0\xbc\xd0\xba\xd0\xb0", kCyrillic1251});
  const fs::path cpg = fs::path(path).replace_extension(".cpg");
  write_text(cpg, "UTF-8\r\n");
  {
    reader r(path);
    EXPECT_EQ(r.value(0, 2), L"Рамка");
  }
  write_text(cpg, "1251");
  {
    reader r(path);
    EXPECT_EQ(r.value(1, 2), L"Рамка");
  }
  write_text(cpg, "something else");
  {
    reader r(path);
    EXPECT_EQ(r.value(1, 2), L"Рамка");  // the library's own code page
  }
}

TEST(ShpReader, CountsAreCutToWhatTheFilesHold) {
  const fs::path path = write_lines("shp_reader_lies", {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}}, {"a", "b"});
  // The table's header claims a million rows; the index's header four records, and the index is cut
  // after the first entry.
  const fs::path dbf = fs::path(path).replace_extension(".dbf");
  std::vector<char> table = bytes_of(dbf);
  put_u32_le(table, 4, 1000000);
  write_bytes(dbf, table);
  const fs::path shx = fs::path(path).replace_extension(".shx");
  std::vector<char> index = bytes_of(shx);
  index.resize(108);
  put_u32_be(index, 24, 50 + 4 * 4);
  write_bytes(shx, index);

  reader r(path);
  ASSERT_NE(r.get(), nullptr);
  EXPECT_EQ(vx_shp_reader_get_count(r.get()), 1u);
  EXPECT_LE(vx_shp_reader_get_row_count(r.get()), table.size());
  EXPECT_LT(vx_shp_reader_get_row_count(r.get()), 1000000u);
  EXPECT_EQ(r.value(0, 2), L"a");
}

TEST(ShpReader, ARecordClaimingTooMuchIsCutAndOneOutsideTheFileIsEmpty) {
  const fs::path path = write_lines("shp_reader_record", {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}}, {"a", "b"});
  std::vector<char> main = bytes_of(path);
  // The first record: 8 bytes of header, the type, the box (32 bytes), then the part and vertex counts.
  put_u32_le(main, 100 + 8 + 4 + 32, 1000000);      // parts
  put_u32_le(main, 100 + 8 + 4 + 32 + 4, 1000000);  // vertices
  write_bytes(path, main);
  const fs::path shx = fs::path(path).replace_extension(".shx");
  std::vector<char> index = bytes_of(shx);
  put_u32_be(index, 108, 0x7FFFFFFF);  // the second record's offset, far past the end
  write_bytes(shx, index);

  reader r(path);
  ASSERT_NE(r.get(), nullptr);
  ASSERT_EQ(vx_shp_reader_get_count(r.get()), 2u);
  const uint32_t parts = vx_shp_reader_read(r.get(), 0);
  EXPECT_LE(parts, 20u);  // no more than the record's bytes can hold
  size_t vertices = 0;
  for (uint32_t k = 0; k < parts; ++k) vertices += r.part(k).size();
  EXPECT_LE(vertices, 2u);
  EXPECT_EQ(vx_shp_reader_read(r.get(), 1), 0u);
}

}  // namespace

namespace {

// A record whose counts claim more than its bytes hold cannot be read whole: it gives no parts, as the
// reprojection of the file makes it a null record, not the piece of it that could be read.
TEST(ShpReader, ARecordThatCannotBeReadWholeGivesNothing) {
  const fs::path path = write_lines("shp_reader_whole", {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}}, {"a", "b"});
  std::vector<char> main = bytes_of(path);
  put_u32_le(main, 100 + 8 + 4 + 32 + 4, 1000000);  // the first record's vertices
  write_bytes(path, main);

  reader r(path);
  ASSERT_NE(r.get(), nullptr);
  EXPECT_EQ(vx_shp_reader_read(r.get(), 0), 0u);
  EXPECT_EQ(vx_shp_reader_read(r.get(), 1), 1u);
  EXPECT_EQ(r.part(0).size(), 2u);
}

}  // namespace
