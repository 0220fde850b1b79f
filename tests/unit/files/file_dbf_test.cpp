#include "files/file_dbf.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fault_injection.h"
#include "support/ansi_code_page.h"
#include "test_paths.h"

namespace {

std::vector<uint8_t> read_bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::vector<uint8_t>((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void write_bytes(const std::string& path, const std::vector<uint8_t>& bytes) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

uint32_t u32(const std::vector<uint8_t>& v, size_t at) {
  return v[at] | v[at + 1] << 8 | v[at + 2] << 16 | static_cast<uint32_t>(v[at + 3]) << 24;
}
uint32_t u16(const std::vector<uint8_t>& v, size_t at) {
  return v[at] | v[at + 1] << 8;
}

void add_def(Tvx_dbf_prpdefs& defs, const char* name, char type, uint32_t length, uint32_t decimal) {
  Tvx_dbf_prpdef* d = defs.add();
  d->set_name(name);
  d->set_type(type);
  d->set_length(length);
  d->set_decimal(decimal);
}

std::string field_text(const std::vector<uint8_t>& v, size_t at, size_t n) {
  return std::string(reinterpret_cast<const char*>(v.data()) + at, n);
}

class DbfTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = vxk_test::scratch_dir(std::string("dbf_") +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    path = (dir / "t.dbf").string();
  }
  std::filesystem::path dir;
  std::string path;
};

TEST(DbfPrpdef, DefaultsAndSetters) {
  Tvx_dbf_prpdef d;
  EXPECT_STREQ(d.get_name(), "");
  EXPECT_EQ(d.get_type(), 'C');
  EXPECT_EQ(d.get_length(), 20u);
  EXPECT_EQ(d.get_decimal(), 0u);
  d.set_name("NAME");
  d.set_type('N');
  d.set_length(7);
  d.set_decimal(2);
  Tvx_dbf_prpdef e;
  e.assign(d);
  EXPECT_STREQ(e.get_name(), "NAME");
  EXPECT_EQ(e.get_type(), 'N');
  EXPECT_EQ(e.get_length(), 7u);
  EXPECT_EQ(e.get_decimal(), 2u);
}

TEST(DbfPrpdefs, SetSizeAddAndDeepAssign) {
  Tvx_dbf_prpdefs defs;
  defs.set_size(3);
  EXPECT_EQ(defs.get_size(), 3u);
  EXPECT_EQ(defs.get(2)->get_length(), 20u);
  defs.get(0)->set_name("A");
  defs.set_size(1);
  EXPECT_EQ(defs.get_size(), 1u);
  defs.add()->set_name("B");
  Tvx_dbf_prpdefs copy;
  copy.assign(defs);
  defs.get(0)->set_name("Z");
  ASSERT_EQ(copy.get_size(), 2u);
  EXPECT_STREQ(copy.get(0)->get_name(), "A");
  EXPECT_STREQ(copy.get(1)->get_name(), "B");
  copy.clear();
  EXPECT_EQ(copy.get_size(), 0u);
}

TEST_F(DbfTest, CreateWithNoFieldsHasHeaderSize33AndRecordSize1) {
  Tvx_file_dbf dbf;
  Tvx_dbf_prpdefs defs;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 0), 0);
  dbf.close();
  const auto v = read_bytes(path);
  ASSERT_EQ(v.size(), 34u);
  EXPECT_EQ(u16(v, 8), 33u);
  EXPECT_EQ(u16(v, 10), 1u);
  EXPECT_EQ(v[32], 13);
  EXPECT_EQ(v[33], 26);
}

TEST_F(DbfTest, CreateWritesHeaderAndDescriptors) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "ID", 'N', 5, 0);
  add_def(defs, "NAME", 'C', 12, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 2), 0);
  dbf.close();
  const auto v = read_bytes(path);
  ASSERT_EQ(v.size(), 32u + 64 + 1 + 2 * 18 + 1);
  EXPECT_EQ(v[0], 3);
  EXPECT_EQ(v[1], 1);
  EXPECT_EQ(v[2], 1);
  EXPECT_EQ(v[3], 1);
  EXPECT_EQ(u32(v, 4), 2u);
  EXPECT_EQ(u16(v, 8), 97u);
  EXPECT_EQ(u16(v, 10), 18u);
  EXPECT_EQ(v[29], 0);
  EXPECT_EQ(field_text(v, 32, 3), std::string("ID\0", 3));
  EXPECT_EQ(v[32 + 11], 'N');
  EXPECT_EQ(u32(v, 32 + 12), 1u);
  EXPECT_EQ(v[32 + 16], 5);
  EXPECT_EQ(v[64 + 11], 'C');
  EXPECT_EQ(u32(v, 64 + 12), 6u);
  EXPECT_EQ(v[64 + 16], 12);
  EXPECT_EQ(v[96], 13);
  EXPECT_EQ(field_text(v, 97, 36), std::string(36, ' '));
  EXPECT_EQ(v.back(), 26);
}

TEST_F(DbfTest, EmptyTableLengthAndAddRecReplacesTheEndMark) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "A", 'C', 4, 0);
  add_def(defs, "B", 'N', 6, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 0), 0);
  dbf.close();
  EXPECT_EQ(read_bytes(path).size(), 32u + 32 * 2 + 1 + 1);
  ASSERT_EQ(dbf.open(path.c_str(), false), 0);
  EXPECT_TRUE(dbf.add_rec(3));
  EXPECT_EQ(dbf.get_nr(), 3u);
  dbf.close();
  const auto v = read_bytes(path);
  ASSERT_EQ(v.size(), 32u + 64 + 1 + 3 * 11 + 1);
  EXPECT_EQ(u32(v, 4), 3u);
  EXPECT_EQ(field_text(v, 97, 33), std::string(33, ' '));
  EXPECT_EQ(v.back(), 26);
}

TEST_F(DbfTest, SetIntOnTextFieldRightAlignsAndCuts) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "N", 'N', 5, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 2), 0);
  dbf.set_rec(0);
  dbf.set_int(0, 42);
  EXPECT_STREQ(dbf.get_str(0), "   42");
  dbf.set_rec(1);
  dbf.set_int(0, 123456);
  EXPECT_STREQ(dbf.get_str(0), "12345");
  dbf.close();
  const auto v = read_bytes(path);
  EXPECT_EQ(field_text(v, 65 + 1, 5), "   42");
  EXPECT_EQ(field_text(v, 65 + 7, 5), "12345");
}

TEST_F(DbfTest, SetIntWithDecimalsGoesThroughTheFloatFormat) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "N", 'N', 7, 2);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  dbf.set_int(0, 12);
  EXPECT_STREQ(dbf.get_str(0), "  12.00");
  EXPECT_EQ(dbf.get_int(0), 12);
}

TEST_F(DbfTest, SetDblOnTextField) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "X", 'N', 8, 2);
  add_def(defs, "Y", 'N', 4, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  dbf.set_dbl(0, 1.5);
  EXPECT_STREQ(dbf.get_str(0), "    1.50");
  EXPECT_DOUBLE_EQ(dbf.get_dbl(0), 1.5);
  dbf.set_dbl(1, 2.6);
  EXPECT_STREQ(dbf.get_str(1), "   3");
  dbf.set_dbl(1, 123456.0);
  EXPECT_STREQ(dbf.get_str(1), "1234");
}

TEST_F(DbfTest, GetStrOfTextFieldKeepsTrailingSpaces) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "S", 'C', 4, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  dbf.set_str(0, "ab");
  EXPECT_STREQ(dbf.get_str(0), "ab  ");
  dbf.set_str(0, "abcdef");
  EXPECT_STREQ(dbf.get_str(0), "abcd");
}

TEST_F(DbfTest, GetBoolOnTextFields) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "L", 'C', 6, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  const std::pair<const char*, bool> cases[] = {{" TRUE ", true}, {"x", false}, {"t", true},     {"Y", true},
                                                {"1", true},      {"n", false}, {"False", false}};
  for (const auto& c : cases) {
    dbf.set_str(0, c.first);
    EXPECT_EQ(dbf.get_bool(0), c.second) << c.first;
  }
}

TEST(DbfTryBool, MatchesEitherListOrNeither) {
  bool v = true;
  EXPECT_TRUE(Tvx_file_dbf_exe::try_bool(" yes", &v) == false);
  EXPECT_TRUE(Tvx_file_dbf_exe::try_bool("  T ", &v));
  EXPECT_TRUE(v);
  EXPECT_TRUE(Tvx_file_dbf_exe::try_bool("0", &v));
  EXPECT_FALSE(v);
}

TEST_F(DbfTest, SetBoolOnTextOfLengthOne) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "L", 'L', 1, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  dbf.set_bool(0, true);
  EXPECT_STREQ(dbf.get_str(0), "T");
  EXPECT_TRUE(dbf.get_bool(0));
  dbf.set_bool(0, false);
  EXPECT_STREQ(dbf.get_str(0), "F");
  EXPECT_FALSE(dbf.get_bool(0));
}

TEST_F(DbfTest, LongFieldNameIsCutToTen) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "ABCDEFGHIJKL", 'C', 3, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 0), 0);
  dbf.close();
  ASSERT_EQ(dbf.open(path.c_str(), true), 0);
  EXPECT_STREQ(dbf.get_prp_name(0), "ABCDEFGHIJ");
}

TEST_F(DbfTest, BinaryFieldsConvert) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "D", 'B', 8, 0);
  add_def(defs, "I", 'I', 4, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  dbf.set_dbl(0, -2.75);
  EXPECT_EQ(dbf.get_dbl(0), -2.75);
  EXPECT_EQ(dbf.get_int(0), -2);
  EXPECT_STREQ(dbf.get_str(0), "-2.75");
  EXPECT_TRUE(dbf.get_bool(0));
  dbf.set_int(0, 7);
  EXPECT_EQ(dbf.get_dbl(0), 7.0);
  dbf.set_str(0, "0.5");
  EXPECT_EQ(dbf.get_dbl(0), 0.5);
  dbf.set_bool(0, false);
  EXPECT_EQ(dbf.get_dbl(0), 0.0);
  EXPECT_FALSE(dbf.get_bool(0));

  dbf.set_int(1, -123);
  EXPECT_EQ(dbf.get_int(1), -123);
  EXPECT_EQ(dbf.get_dbl(1), -123.0);
  EXPECT_STREQ(dbf.get_str(1), "-123");
  dbf.set_dbl(1, 9.99);
  EXPECT_EQ(dbf.get_int(1), 9);
  dbf.set_str(1, "31");
  EXPECT_EQ(dbf.get_int(1), 31);
  dbf.set_bool(1, true);
  EXPECT_EQ(dbf.get_int(1), 1);
  dbf.close();
  const auto v = read_bytes(path);
  double d;
  std::memcpy(&d, v.data() + 97 + 1, 8);
  EXPECT_EQ(d, 0.0);
  EXPECT_EQ(u32(v, 97 + 9), 1u);
}

TEST_F(DbfTest, TextNumbersParse) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "N", 'N', 10, 3);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  dbf.set_rec(0);
  dbf.set_str(0, "  -12.625");
  EXPECT_EQ(dbf.get_dbl(0), -12.625);
  EXPECT_EQ(dbf.get_int(0), -12);
  dbf.set_str(0, "abc");
  EXPECT_EQ(dbf.get_int(0), 0);
  EXPECT_EQ(dbf.get_dbl(0), 0.0);
}

TEST_F(DbfTest, CursorWritesBackOnMoveAndClose) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "ID", 'N', 5, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 3), 0);
  for (int i = 0; i < 3; ++i) {
    dbf.set_rec(i);
    EXPECT_STREQ(dbf.get_str(0), "     ");
    dbf.set_int(0, 10 * (i + 1));
  }
  dbf.close();
  ASSERT_EQ(dbf.open(path.c_str(), true), 0);
  EXPECT_EQ(dbf.get_nr(), 3u);
  EXPECT_EQ(dbf.get_np(), 1u);
  for (int i = 2; i >= 0; --i) {
    dbf.set_rec(i);
    EXPECT_EQ(dbf.get_int(0), 10 * (i + 1));
  }
}

TEST_F(DbfTest, FieldAccessBeforeSetRecReadsZeros) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "S", 'C', 3, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
  ASSERT_EQ(dbf.open(path.c_str(), true), 0);
  EXPECT_STREQ(dbf.get_str(0), "");
}

TEST_F(DbfTest, DescriptorAccessorsAndFindByName) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "Name", 'C', 30, 0);
  add_def(defs, "AREA", 'N', 12, 4);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 0), 0);
  EXPECT_EQ(dbf.get_np(), 2u);
  EXPECT_EQ(dbf.get_prp_type(1), 'N');
  EXPECT_EQ(dbf.get_prp_len(0), 30u);
  EXPECT_EQ(dbf.get_prp_dec(1), 4);
  uint32_t index = 77;
  EXPECT_TRUE(dbf.find_prp_by_name(" area ", index));
  EXPECT_EQ(index, 1u);
  EXPECT_TRUE(dbf.find_prp_by_name("NAME", index));
  EXPECT_EQ(index, 0u);
  index = 77;
  EXPECT_FALSE(dbf.find_prp_by_name("NAM", index));
  EXPECT_EQ(index, 77u);
}

TEST_F(DbfTest, SetPrpNameAndCodePageWriteAtOnce) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "OLD", 'C', 3, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 0), 0);
  dbf.set_prp_name(0, "NEWNAME_LONGER");
  dbf.set_foxpro_code_page(0xC9);
  EXPECT_EQ(dbf.get_foxpro_code_page(), 0xC9);
  EXPECT_STREQ(dbf.get_prp_name(0), "NEWNAME_LO");
  dbf.close();
  const auto v = read_bytes(path);
  EXPECT_EQ(v[29], 0xC9);
  EXPECT_EQ(field_text(v, 32, 11), std::string("NEWNAME_LO\0", 11));
}

TEST_F(DbfTest, OpenComputesMissingOffsets) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "A", 'C', 3, 0);
  add_def(defs, "B", 'C', 2, 0);
  add_def(defs, "C", 'C', 4, 0);
  {
    Tvx_file_dbf dbf;
    ASSERT_EQ(dbf.create(path.c_str(), &defs, 1), 0);
    dbf.set_rec(0);
    dbf.set_str(0, "aaa");
    dbf.set_str(1, "bb");
    dbf.set_str(2, "cccc");
  }
  auto v = read_bytes(path);
  for (int i = 0; i < 3; ++i) std::memset(v.data() + 32 + 32 * i + 12, 0, 4);
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.open(path.c_str(), true), 0);
  dbf.set_rec(0);
  EXPECT_STREQ(dbf.get_str(0), "aaa");
  EXPECT_STREQ(dbf.get_str(1), "bb");
  EXPECT_STREQ(dbf.get_str(2), "cccc");
}

TEST_F(DbfTest, AddPrpKeepsOldValuesAndAppendsBlankFields) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "ID", 'N', 4, 0);
  add_def(defs, "NAME", 'C', 6, 0);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(path.c_str(), &defs, 3), 0);
  for (int i = 0; i < 3; ++i) {
    dbf.set_rec(i);
    dbf.set_int(0, i + 1);
    dbf.set_str(1, std::string(1, static_cast<char>('a' + i)).c_str());
  }
  Tvx_dbf_prpdefs more;
  add_def(more, "X", 'N', 8, 2);
  add_def(more, "FLAG", 'L', 1, 0);
  ASSERT_TRUE(dbf.add_prp(&more));
  ASSERT_EQ(dbf.get_np(), 4u);
  EXPECT_STREQ(dbf.get_prp_name(0), "ID");
  EXPECT_STREQ(dbf.get_prp_name(1), "NAME");
  EXPECT_STREQ(dbf.get_prp_name(2), "X");
  EXPECT_STREQ(dbf.get_prp_name(3), "FLAG");
  EXPECT_EQ(dbf.get_nr(), 3u);
  for (int i = 0; i < 3; ++i) {
    dbf.set_rec(i);
    EXPECT_EQ(dbf.get_int(0), i + 1);
    EXPECT_EQ(std::string(dbf.get_str(1)), std::string(1, static_cast<char>('a' + i)) + "     ");
    EXPECT_STREQ(dbf.get_str(2), "        ");
    EXPECT_STREQ(dbf.get_str(3), " ");
  }
  dbf.set_rec(1);
  dbf.set_dbl(2, 3.25);
  dbf.close();
  const auto v = read_bytes(path);
  EXPECT_EQ(u16(v, 8), 32u * 4 + 33);
  EXPECT_EQ(u16(v, 10), 20u);
  EXPECT_EQ(v.size(), 32u * 4 + 33 + 3 * 20 + 1);
  EXPECT_EQ(v.back(), 26);
  EXPECT_EQ(field_text(v, 161 + 20 + 11, 8), "    3.25");
  // The temporary copy is gone.
  size_t files = 0;
  for (const auto& e : std::filesystem::directory_iterator(dir)) files += e.is_regular_file();
  EXPECT_EQ(files, 1u);
}

TEST_F(DbfTest, GenerateTmpFilenameSkipsTakenNames) {
  write_bytes((dir / "t.0").string(), {1});
  write_bytes((dir / "t.1").string(), {1});
  Tvx_file_dbf_exe exe;
  EXPECT_EQ(std::string(exe.generate_tmp_filename(path.c_str())), (dir / "t.2").string());
  EXPECT_FALSE(std::filesystem::exists(dir / "t.2"));
}

TEST_F(DbfTest, OpenOfMissingFileGivesOneAndAnEmptyTable) {
  Tvx_file_dbf dbf;
  EXPECT_EQ(dbf.open((dir / "none.dbf").string().c_str(), true), 1);
  EXPECT_EQ(dbf.get_np(), 0u);
  EXPECT_EQ(dbf.get_nr(), 0u);
  dbf.set_rec(0);
  EXPECT_STREQ(dbf.get_str(0), "");
}

TEST_F(DbfTest, WidePathsReachTheSameFile) {
  Tvx_dbf_prpdefs defs;
  add_def(defs, "ID", 'N', 3, 0);
  const std::wstring wpath = vx::strconv::utf8_to_wide((dir / "таблица.dbf").string());
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.create(wpath, &defs, 1), 0);
  dbf.close();
  ASSERT_EQ(dbf.open(wpath, true), 0);
  EXPECT_EQ(dbf.get_nr(), 1u);
  EXPECT_TRUE(std::filesystem::exists(dir / "таблица.dbf"));
}

// Malformed tables: the header and descriptors lie, and the reader must stay inside what it holds.
class DbfMalformedTest : public DbfTest {
 protected:
  // A good table of two text fields and two records, as bytes.
  std::vector<uint8_t> good_table() {
    Tvx_dbf_prpdefs defs;
    add_def(defs, "A", 'C', 3, 0);
    add_def(defs, "B", 'C', 2, 0);
    Tvx_file_dbf dbf;
    EXPECT_EQ(dbf.create(path.c_str(), &defs, 2), 0);
    dbf.set_rec(0);
    dbf.set_str(0, "abc");
    dbf.set_str(1, "de");
    dbf.set_rec(1);
    dbf.set_str(0, "fgh");
    dbf.close();
    return read_bytes(path);
  }
};

// The header's record count is checked against the file's size: a count the file cannot hold is cut
// to what it holds, and the damage is reported.
TEST_F(DbfMalformedTest, RecordCountOfTwoToTheThirtyFirst) {
  auto v = good_table();
  v[4] = v[5] = v[6] = 0;
  v[7] = 0x80;
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  vxk_test::error_log env;
  ASSERT_EQ(dbf.open(path.c_str(), false), 0);
  EXPECT_EQ(dbf.get_nr(), 2u);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0], "'" + path + "' is damaged: its header counts 2147483648 records, it holds 2");
  dbf.set_rec(0x7FFFFFFF);
  EXPECT_STREQ(dbf.get_str(0), "");
  dbf.set_rec(0);
  EXPECT_STREQ(dbf.get_str(0), "abc");
  Tvx_dbf_prpdefs more;
  add_def(more, "C", 'C', 1, 0);
  EXPECT_TRUE(dbf.add_prp(&more));
  dbf.set_rec(1);
  EXPECT_STREQ(dbf.get_str(0), "fgh");
  EXPECT_STREQ(dbf.get_str(2), " ");
}

TEST_F(DbfMalformedTest, FieldLengthZero) {
  auto v = good_table();
  v[32 + 16] = 0;
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.open(path.c_str(), false), 0);
  dbf.set_rec(0);
  EXPECT_EQ(dbf.get_prp_len(0), 0u);
  EXPECT_STREQ(dbf.get_str(0), "");
  EXPECT_EQ(dbf.get_int(0), 0);
  dbf.set_int(0, 12345);
  dbf.set_dbl(0, 1.5);
  EXPECT_STREQ(dbf.get_str(0), "");
  EXPECT_STREQ(dbf.get_str(1), "de");
}

TEST_F(DbfMalformedTest, FieldOffsetAndLengthPastTheRecord) {
  auto v = good_table();
  v[32 + 12] = 0xF0;  // offset 240 in a record of 6
  v[64 + 16] = 200;   // length 200 at offset 4
  v[64 + 11] = 'B';   // and binary
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.open(path.c_str(), false), 0);
  dbf.set_rec(0);
  EXPECT_STREQ(dbf.get_str(0), "");
  dbf.set_str(0, "xyz");
  dbf.set_dbl(1, 1e300);
  dbf.get_dbl(1);
  dbf.set_rec(1);
  SUCCEED();
}

TEST_F(DbfMalformedTest, HeaderSizeTooSmallGivesNoFields) {
  auto v = good_table();
  v[8] = 40;
  v[9] = 0;
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.open(path.c_str(), true), 0);
  EXPECT_EQ(dbf.get_np(), 0u);
  dbf.set_rec(0);
  EXPECT_STREQ(dbf.get_str(0), "");
}

// A header size that the file cannot hold: not a table, refused with its reason.
TEST_F(DbfMalformedTest, HeaderSizeHugeIsRefused) {
  std::vector<uint8_t> v(32 + 32 * 3, 'A');
  std::memset(v.data(), 0, 32);
  v[8] = 0xFF;
  v[9] = 0xFF;
  v[10] = 0xFF;
  v[11] = 0xFF;
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  vxk_test::error_log env;
  EXPECT_EQ(dbf.open(path.c_str(), true), 1);
  EXPECT_EQ(dbf.get_np(), 0u);
  EXPECT_EQ(dbf.get_nr(), 0u);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0],
            "'" + path + "' is not a dBASE table: its header size 65535 does not fit a file of 128 bytes");
}

// A text file named .dbf is no table, even when it is long enough for a header.
TEST_F(DbfMalformedTest, TextFileIsRefused) {
  const std::string text = "name;x;y\nMoscow;37.6;55.75\nTver;35.9;56.86\nKlin;36.7;56.33\n";
  write_bytes(path, std::vector<uint8_t>(text.begin(), text.end()));
  Tvx_file_dbf dbf;
  vxk_test::error_log env;
  EXPECT_EQ(dbf.open(path.c_str(), true), 1);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_NE(env.errors[0].find("is not a dBASE table"), std::string::npos) << env.errors[0];
}

TEST_F(DbfMalformedTest, EmptyFileIsNoEmptyTable) {
  write_bytes(path, {});
  Tvx_file_dbf dbf;
  vxk_test::error_log env;
  EXPECT_EQ(dbf.open(path.c_str(), true), 1);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0],
            "'" + path + "' is not a dBASE table: it is shorter than the 32-byte header (0 bytes)");
}

TEST_F(DbfMalformedTest, FolderIsNoEmptyTable) {
  std::filesystem::create_directories(path);
  Tvx_file_dbf dbf;
  vxk_test::error_log env;
  EXPECT_EQ(dbf.open(path.c_str(), true), 1);
  ASSERT_EQ(env.errors.size(), 1u);
  EXPECT_EQ(env.errors[0], "Can't open file: \"" + path + "\": Is a directory");
  std::filesystem::remove(path);
}

TEST_F(DbfMalformedTest, NegativeDecimalCountStillFormats) {
  auto v = good_table();
  v[32 + 17] = 0xF6;  // -10
  write_bytes(path, v);
  Tvx_file_dbf dbf;
  ASSERT_EQ(dbf.open(path.c_str(), false), 0);
  dbf.set_rec(0);
  EXPECT_EQ(dbf.get_prp_dec(0), -10);
  dbf.set_dbl(0, 2.0);
  EXPECT_STREQ(dbf.get_str(0), "  2");
}

// Cut anywhere: a file too short for its header is refused; past the header, the records that are not
// there read as nothing, and the count is cut to what is there.
TEST_F(DbfMalformedTest, TruncatedFiles) {
  const auto v = good_table();
  const size_t header = 32 + 2 * 32 + 1;
  for (size_t n = 0; n < v.size(); ++n) {
    write_bytes(path, std::vector<uint8_t>(v.begin(), v.begin() + n));
    Tvx_file_dbf dbf;
    ASSERT_EQ(dbf.open(path.c_str(), true), n < header ? 1 : 0) << n;
    EXPECT_EQ(dbf.get_nr(), n < header ? 0u : std::min<uint32_t>(2, (n - header) / 6)) << n;
    for (uint32_t r = 0; r < 3; ++r) {
      dbf.set_rec(r);
      for (uint32_t i = 0; i <= dbf.get_np(); ++i) {
        dbf.get_str(i);
        dbf.get_bool(i);
        dbf.get_dbl(i);
      }
    }
  }
  SUCCEED();
}

}  // namespace
