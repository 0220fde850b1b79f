#include "support/narrow_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "support_scratch.h"

namespace {

namespace stdfs = std::filesystem;

void write(const stdfs::path& p, const std::string& text) {
  std::ofstream(p, std::ios::binary) << text;
}

std::string read(const stdfs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

TEST(NarrowPath, SplitIntoPieces) {
  char drive[VX_NARROW_PATH_MAX], dir[VX_NARROW_PATH_MAX], name[VX_NARROW_PATH_MAX], ext[VX_NARROW_PATH_MAX];
  vx_split_path("C:\\data.v1/maps\\a.b.shp", drive, dir, name, ext);
  EXPECT_STREQ(drive, "C:");
  EXPECT_STREQ(dir, "\\data.v1/maps\\");
  EXPECT_STREQ(name, "a.b");
  EXPECT_STREQ(ext, ".shp");
  vx_split_path("x.y\\z", drive, dir, name, ext);
  EXPECT_STREQ(drive, "");
  EXPECT_STREQ(dir, "x.y\\");
  EXPECT_STREQ(name, "z");
  EXPECT_STREQ(ext, "");
  vx_split_path("a.shp", nullptr, nullptr, name, nullptr);
  EXPECT_STREQ(name, "a");
}

TEST(NarrowPath, SplitCutsEachPieceTo1023Characters) {
  const std::string long_name(3000, 'n');
  char name[VX_NARROW_PATH_MAX];
  vx_split_path((long_name + ".shp").c_str(), nullptr, nullptr, name, nullptr);
  EXPECT_EQ(std::string(name), std::string(1023, 'n'));
}

TEST(NarrowPath, MakePath) {
  char out[VX_NARROW_PATH_MAX];
  vx_make_path(out, "C", "data", "a", "shp");
  EXPECT_STREQ(out, "C:data\\a.shp");
  vx_make_path(out, "D:", "\\x/", "b", ".dbf");
  EXPECT_STREQ(out, "D:\\x/b.dbf");
  vx_make_path(out, nullptr, "", "c", nullptr);
  EXPECT_STREQ(out, "c");
  vx_make_path(out, "", std::string(2000, 'd').c_str(), "e", "f");
  EXPECT_EQ(std::string(out).size(), 1023u);
}

TEST(NarrowPath, TvxPathPieces) {
  EXPECT_STREQ(Tvx_path::change_file_ext("C:\\d\\a.shp", "dbf"), "C:\\d\\a.dbf");
  EXPECT_STREQ(Tvx_path::change_file_ext("d/a", ".prj"), "d/a.prj");
  EXPECT_STREQ(Tvx_path::change_file_name("C:\\d\\a.shp", "x\\b.dbf"), "C:\\d\\b.dbf");
  EXPECT_STREQ(Tvx_path::get_file_drive("C:\\d\\a.shp"), "C:");
  EXPECT_STREQ(Tvx_path::get_file_dir("C:\\d\\a.shp"), "\\d\\");
  EXPECT_STREQ(Tvx_path::get_file_name("C:\\d\\a.shp"), "a");
  EXPECT_STREQ(Tvx_path::get_file_ext("C:\\d\\a.shp"), "shp");
  EXPECT_STREQ(Tvx_path::get_file_ext("C:\\d\\a"), "");
  EXPECT_STREQ(Tvx_path::get_file_path("C:\\d\\a.shp"), "C:\\d\\");
  EXPECT_STREQ(Tvx_path::make_file_path("C", "d", "a", "shp"), "C:d\\a.shp");
}

TEST(FileFunc, CanCreateNewAndCanRead) {
  const stdfs::path root = support_test::scratch("narrow_probe");
  const std::string existing = (root / "a.bin").string();
  write(existing, "x");
  EXPECT_FALSE(Tvx_file_func::can_create_new(existing.c_str()));
  EXPECT_TRUE(Tvx_file_func::can_read(existing.c_str()));
  const std::string fresh = root.string() + "\\fresh.bin";
  EXPECT_TRUE(Tvx_file_func::can_create_new(fresh.c_str()));
  EXPECT_FALSE(stdfs::exists(root / "fresh.bin"));  // the probe is removed
  EXPECT_FALSE(Tvx_file_func::can_read(fresh.c_str()));
  EXPECT_FALSE(Tvx_file_func::can_create_new((root.string() + "/no/dir/x").c_str()));
}

TEST(FileFunc, SizesCopyMoveResize) {
  const stdfs::path root = support_test::scratch("narrow_ops");
  const std::string a = root.string() + "\\a.bin";
  std::string content;
  for (int i = 0; i < 5000; ++i) content += static_cast<char>(i % 251);
  write(root / "a.bin", content);
  EXPECT_EQ(Tvx_file_func::file_size(a.c_str()), 5000u);
  EXPECT_EQ(Tvx_file_func::file_size((root.string() + "/none").c_str()), 0u);
  std::FILE* f = std::fopen((root / "a.bin").c_str(), "rb");
  std::fseek(f, 17, SEEK_SET);
  EXPECT_EQ(Tvx_file_func::file_size(f), 5000u);
  EXPECT_EQ(std::ftell(f), 17);
  std::fclose(f);

  const std::string b = root.string() + "\\b.bin";
  EXPECT_EQ(Tvx_file_func::copy(a.c_str(), b.c_str()), 0);
  EXPECT_EQ(read(root / "b.bin"), content);
  EXPECT_EQ(Tvx_file_func::copy((root.string() + "/none").c_str(), b.c_str()), 0);  // always 0
  EXPECT_EQ(read(root / "b.bin"), content);

  const std::string c = root.string() + "\\c.bin";
  EXPECT_EQ(Tvx_file_func::move(b.c_str(), c.c_str()), 0);
  EXPECT_FALSE(stdfs::exists(root / "b.bin"));
  EXPECT_EQ(read(root / "c.bin"), content);

  EXPECT_EQ(Tvx_file_func::resize(c.c_str(), 100), 0);
  EXPECT_EQ(read(root / "c.bin"), content.substr(0, 100));
  EXPECT_EQ(Tvx_file_func::resize(c.c_str(), 103), 0);
  EXPECT_EQ(read(root / "c.bin"), content.substr(0, 100) + std::string(3, '\0'));
  EXPECT_EQ(Tvx_file_func::resize((root.string() + "/none").c_str(), 1), 1);
  EXPECT_EQ(std::distance(stdfs::directory_iterator(root), stdfs::directory_iterator()), 2);  // no temp left
}

}  // namespace
