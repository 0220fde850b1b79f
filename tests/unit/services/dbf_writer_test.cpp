// The table writer: column descriptions, records present from creation, appended records, numbers and
// texts by column and record, read back by the library's own reader.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "files/file_dbf.h"
#include "test_paths.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

struct table_file {
  std::wstring path;
  void* handle = nullptr;
  explicit table_file(const char* name, int records) {
    const fs::path dir = vxk_test::scratch_dir(std::string("dbf_writer_") + name);
    path = (dir / "t.dbf").wstring();
    Tvx_dbf_field f[3];
    vx_dbf_field_init(&f[0], "ID", VX_DBF_NUMERIC, 6, 0);
    vx_dbf_field_init(&f[1], "L_CODE", VX_DBF_NUMERIC, 9, 0);
    vx_dbf_field_init(&f[2], "NAME", VX_DBF_CHARACTER, 5, 0);
    handle = vx_dbf_create_w(path.c_str(), 3, records, f, 0);
  }
};

TEST(DbfWriter, FieldDescriptionIs14Bytes) {
  EXPECT_EQ(sizeof(Tvx_dbf_field), 14u);
  Tvx_dbf_field f;
  EXPECT_TRUE(vx_dbf_field_init(&f, "A_VERY_LONG_NAME", VX_DBF_CHARACTER, 100, 0));
  EXPECT_STREQ(f.name, "A_VERY_LON");
  EXPECT_EQ(f.width, 100);
  EXPECT_FALSE(vx_dbf_field_init(&f, "X", 3, 10, 0));
  EXPECT_FALSE(vx_dbf_field_init(&f, "X", VX_DBF_NUMERIC, 0, 0));
  EXPECT_FALSE(vx_dbf_field_init(&f, "X", VX_DBF_NUMERIC, 255, 0));
}

TEST(DbfWriter, ATableOfOneRecordTakesSetIntAtOnceAndMinusOneStaysMinusOne) {
  table_file t("one", 1);
  ASSERT_NE(t.handle, nullptr);
  EXPECT_EQ(vx_dbf_get_nr(t.handle), 1);
  EXPECT_TRUE(vx_dbf_set_int(t.handle, 0, 0, 1));
  EXPECT_TRUE(vx_dbf_set_int(t.handle, 1, 0, -1));
  EXPECT_TRUE(vx_dbf_set_str(t.handle, 2, 0, "N-37-VI"));  // cut to the width of 5
  vx_dbf_close(t.handle);

  Tvx_file_dbf in;
  ASSERT_EQ(in.open(t.path, true), 0);
  ASSERT_EQ(in.get_nr(), 1u);
  in.set_rec(0);
  EXPECT_EQ(in.get_int(0), 1);
  EXPECT_EQ(in.get_int(1), -1);
  EXPECT_STREQ(in.get_str(2), "N-37-");
  EXPECT_EQ(in.get_prp_type(1), 'N');
  EXPECT_EQ(in.get_prp_len(1), 9u);
  EXPECT_EQ(in.get_prp_type(2), 'C');
}

TEST(DbfWriter, RecordsAppendedOneByOne) {
  table_file t("append", 0);
  ASSERT_NE(t.handle, nullptr);
  for (int i = 0; i < 3; ++i) {
    const int r = vx_dbf_get_nr(t.handle);
    EXPECT_TRUE(vx_dbf_add_records(t.handle, 1));
    EXPECT_TRUE(vx_dbf_set_int(t.handle, 0, r, r + 1));
  }
  EXPECT_EQ(vx_dbf_get_nr(t.handle), 3);
  vx_dbf_close(t.handle);
  Tvx_file_dbf in;
  ASSERT_EQ(in.open(t.path, true), 0);
  ASSERT_EQ(in.get_nr(), 3u);
  in.set_rec(2);
  EXPECT_EQ(in.get_int(0), 3);
}

TEST(DbfWriter, CellsOutsideTheTableAreRefusedAndWriteNothing) {
  table_file t("outside", 1);
  ASSERT_NE(t.handle, nullptr);
  EXPECT_FALSE(vx_dbf_set_int(t.handle, 0, 1, 5));
  EXPECT_FALSE(vx_dbf_set_int(t.handle, 3, 0, 5));
  EXPECT_FALSE(vx_dbf_set_str(t.handle, -1, 0, "x"));
  EXPECT_FALSE(vx_dbf_add_records(t.handle, 0));
  EXPECT_EQ(vx_dbf_get_nr(t.handle), 1);
  vx_dbf_close(t.handle);
}

TEST(DbfWriter, CreationRefusals) {
  const fs::path dir = vxk_test::scratch_dir("dbf_writer_refusals");
  Tvx_dbf_field f;
  vx_dbf_field_init(&f, "ID", VX_DBF_NUMERIC, 6, 0);
  EXPECT_EQ(vx_dbf_create_w((dir / "no/such/t.dbf").wstring().c_str(), 1, 0, &f, 0), nullptr);
  Tvx_dbf_field empty{};
  EXPECT_EQ(vx_dbf_create_w((dir / "t.dbf").wstring().c_str(), 1, 0, &empty, 0), nullptr);
  EXPECT_EQ(vx_dbf_create_w((dir / "t.dbf").wstring().c_str(), 0, 0, &f, 0), nullptr);
  EXPECT_EQ(vx_dbf_create_w((dir / "t.dbf").wstring().c_str(), 1, -1, &f, 0), nullptr);
  vx_dbf_close(nullptr);
}

}  // namespace
