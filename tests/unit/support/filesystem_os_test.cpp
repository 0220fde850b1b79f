#include "support/filesystem.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support_scratch.h"

namespace {

namespace fs = vx::filesystem;
namespace stdfs = std::filesystem;

std::wstring wide(const stdfs::path& p) {
  return p.wstring();
}

void write(const stdfs::path& p, const std::string& text) {
  std::ofstream(p, std::ios::binary) << text;
}

std::string read(const stdfs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

TEST(PathGate, BackslashesBecomeSlashesAndTextBecomesUtf8) {
  EXPECT_EQ(fs::os_path(L"out/HYPS\\Hypsa.shp"), "out/HYPS/Hypsa.shp");
  EXPECT_EQ(fs::os_path(L"Карта\\Лист"),
            "\xD0\x9A\xD0\xB0\xD1\x80\xD1\x82\xD0\xB0/\xD0\x9B\xD0\xB8\xD1\x81\xD1\x82");
}

TEST(PathSystem, FileWrittenToABackslashPathLandsInFolders) {
  const stdfs::path root = support_test::scratch("fs_backslash");
  const std::wstring dir = wide(root) + L"\\dir\\sub";
  ASSERT_TRUE(fs::make_path(dir));
  std::FILE* f = fs::open_file(dir + L"\\a.txt", "wb");
  ASSERT_NE(f, nullptr);
  std::fputs("hello", f);
  std::fclose(f);
  EXPECT_EQ(read(root / "dir" / "sub" / "a.txt"), "hello");
  EXPECT_TRUE(fs::is_file(dir + L"\\a.txt"));
  EXPECT_TRUE(fs::is_directory(wide(root) + L"\\dir"));
}

TEST(PathSystem, OpenDescriptorGoesThroughTheGate) {
  const stdfs::path root = support_test::scratch("fs_fd");
  const int fd = fs::open_descriptor(wide(root) + L"\\b.bin", O_WRONLY | O_CREAT | O_TRUNC);
  ASSERT_GE(fd, 0);
  ASSERT_EQ(::write(fd, "xyz", 3), 3);
  ::close(fd);
  EXPECT_EQ(read(root / "b.bin"), "xyz");
  EXPECT_EQ(fs::open_descriptor(L"", O_RDONLY), -1);
  EXPECT_EQ(fs::open_file(L"", "rb"), nullptr);
}

TEST(PathSystem, AttributesOfFilesAndFolders) {
  const stdfs::path root = support_test::scratch("fs_attr");
  write(root / "Лист.shp", "12345");
  const std::wstring file = wide(root) + L"\\Лист.shp";
  EXPECT_TRUE(fs::path_exist(file));
  EXPECT_TRUE(fs::is_file(file));
  EXPECT_FALSE(fs::is_directory(file));
  EXPECT_EQ(fs::file_size(file), 5u);
  EXPECT_GT(fs::file_mtime(file), 0);
  EXPECT_TRUE(fs::file_readable(file));
  EXPECT_TRUE(fs::file_writable(file));
  EXPECT_TRUE(fs::is_directory(wide(root)));
  EXPECT_FALSE(fs::path_exist(wide(root) + L"\\none"));
  EXPECT_EQ(fs::file_size(wide(root) + L"\\none"), 0u);
  EXPECT_EQ(fs::file_mtime(wide(root) + L"\\none"), 0);
  EXPECT_FALSE(fs::path_exist(L""));
}

TEST(PathSystem, CopyMoveRemoveFiles) {
  const stdfs::path root = support_test::scratch("fs_copy");
  write(root / "a.dbf", "table");
  const std::wstring r = wide(root);
  EXPECT_TRUE(fs::copy_file(r + L"\\a.dbf", r + L"\\b.dbf", false));
  EXPECT_EQ(read(root / "b.dbf"), "table");
  write(root / "c.dbf", "old");
  EXPECT_FALSE(fs::copy_file(r + L"\\a.dbf", r + L"\\c.dbf", false));
  EXPECT_EQ(read(root / "c.dbf"), "old");
  EXPECT_TRUE(fs::copy_file(r + L"\\a.dbf", r + L"\\c.dbf", true));
  EXPECT_EQ(read(root / "c.dbf"), "table");
  EXPECT_FALSE(fs::copy_file(r + L"\\a.dbf", r + L"/a.dbf", true));  // onto itself
  EXPECT_EQ(read(root / "a.dbf"), "table");
  EXPECT_FALSE(fs::copy_file(r + L"\\none", r + L"\\d.dbf", true));
  EXPECT_FALSE(fs::move_file(r + L"\\b.dbf", r + L"\\c.dbf", false));
  EXPECT_TRUE(fs::move_file(r + L"\\b.dbf", r + L"\\c.dbf", true));
  EXPECT_FALSE(fs::path_exist(r + L"\\b.dbf"));
  EXPECT_TRUE(fs::remove_file(r + L"\\c.dbf"));
  EXPECT_FALSE(fs::remove_file(r + L"\\c.dbf"));
  EXPECT_FALSE(fs::remove_file(r));  // a folder is not a file
}

TEST(PathSystem, FoldersOneLevelAllLevelsAndRecursive) {
  const stdfs::path root = support_test::scratch("fs_dirs");
  const std::wstring r = wide(root);
  EXPECT_FALSE(fs::make_directory(r + L"\\x\\y"));
  EXPECT_TRUE(fs::make_directory(r + L"\\x"));
  EXPECT_FALSE(fs::make_directory(r + L"\\x"));
  EXPECT_TRUE(fs::make_path(r + L"\\x\\y\\z\\"));
  EXPECT_TRUE(fs::make_path(r + L"\\x\\y\\z"));
  write(root / "x" / "y" / "f.txt", "f");
  write(root / "x" / "y" / "z" / "g.txt", "g");
  EXPECT_TRUE(fs::copy_directory(r + L"\\x", r + L"\\copy"));
  EXPECT_EQ(read(root / "copy" / "y" / "z" / "g.txt"), "g");
  EXPECT_TRUE(fs::move_directory(r + L"\\copy", r + L"\\moved"));
  EXPECT_FALSE(fs::path_exist(r + L"\\copy"));
  EXPECT_EQ(read(root / "moved" / "y" / "f.txt"), "f");
  EXPECT_TRUE(fs::remove_directory(r + L"\\moved"));
  EXPECT_FALSE(fs::path_exist(r + L"\\moved"));
  EXPECT_TRUE(fs::remove_path(r + L"\\x"));
  EXPECT_FALSE(fs::path_exist(r + L"\\x"));
  write(root / "file", "1");
  EXPECT_TRUE(fs::remove_path(r + L"\\file"));
  EXPECT_FALSE(fs::remove_path(r + L"\\file"));
}

TEST(PathSystem, CopyDirectoryIntoItselfEnds) {
  const stdfs::path root = support_test::scratch("fs_self");
  stdfs::create_directories(root / "a");
  write(root / "a" / "f", "1");
  EXPECT_TRUE(fs::copy_directory(wide(root / "a"), wide(root / "a" / "inner")));
  EXPECT_EQ(read(root / "a" / "inner" / "f"), "1");
}

TEST(PathSystem, FindByPatternWithoutRegardToCase) {
  const stdfs::path root = support_test::scratch("fs_find");
  stdfs::create_directories(root / "HYPS");
  write(root / "HYPS" / "Hypsa.shp", "");
  write(root / "HYPS" / "Hypsa.dbf", "");
  write(root / "Frame.SHP", "");
  const std::wstring r = wide(root);
  EXPECT_EQ(fs::find(r, L"*.shp", fs::find_files), std::vector<std::wstring>{r + L"\\Frame.SHP"});
  EXPECT_EQ(fs::find(r, L"*.shp", fs::find_files | fs::find_recursive),
            (std::vector<std::wstring>{r + L"\\Frame.SHP", r + L"\\HYPS\\Hypsa.shp"}));
  EXPECT_EQ(fs::find(r, L"*", fs::find_directories), std::vector<std::wstring>{r + L"\\HYPS"});
  EXPECT_EQ(fs::find(r + L"\\HYPS\\hyps?.*", fs::find_files),
            (std::vector<std::wstring>{r + L"\\HYPS\\Hypsa.dbf", r + L"\\HYPS\\Hypsa.shp"}));
  EXPECT_TRUE(fs::find(r + L"\\none", L"*", fs::find_files).empty());
}

TEST(PathSystem, UniqueNameCountsUp) {
  const stdfs::path root = support_test::scratch("fs_unique");
  const std::wstring a = wide(root) + L"\\a.shp";
  EXPECT_EQ(fs::transform(a).get_unique(), a);
  write(root / "a.shp", "");
  EXPECT_EQ(fs::transform(a).get_unique(), wide(root) + L"\\a_1.shp");
  write(root / "a_1.shp", "");
  EXPECT_EQ(fs::transform(a).get_unique(), wide(root) + L"\\a_2.shp");
  EXPECT_EQ(fs::transform(L"").get_unique(), L"");
}

TEST(PathSystem, EnvironmentQueries) {
  EXPECT_EQ(fs::current_path(), stdfs::current_path().wstring());
  EXPECT_FALSE(fs::username().empty());
  EXPECT_FALSE(fs::hostname().empty());
  const std::wstring tmp = fs::temp_directory();
  ASSERT_FALSE(tmp.empty());
  EXPECT_TRUE(tmp.back() == L'/' || tmp.back() == L'\\');
  EXPECT_TRUE(fs::is_directory(tmp));
}

TEST(PathSystem, TempFilenameMakesAFreshFile) {
  const stdfs::path root = support_test::scratch("fs_temp");
  const std::wstring a = fs::temp_filename(wide(root), L"vxkabc");
  const std::wstring b = fs::temp_filename(wide(root), L"vxk");
  ASSERT_FALSE(a.empty());
  EXPECT_NE(a, b);
  EXPECT_TRUE(fs::is_file(a));
  EXPECT_EQ(fs::filename(a).substr(0, 3), L"vxk");
  EXPECT_EQ(fs::extension(a), L".tmp");
  EXPECT_EQ(fs::temp_filename(wide(root) + L"\\none", L"x"), L"");
}

// Identity, not spelling: another spelling, a link and a hard link all name the same file.
TEST(PathSystem, SameFileByIdentity) {
  const stdfs::path d = support_test::scratch("same_file");
  write(d / "a.shp", "shape");
  write(d / "b.shp", "shape");
  stdfs::create_symlink(d / "a.shp", d / "link.shp");
  stdfs::create_hard_link(d / "a.shp", d / "hard.shp");
  EXPECT_TRUE(fs::is_same_file(wide(d / "a.shp"), wide(d / "." / "a.shp")));
  EXPECT_TRUE(fs::is_same_file(wide(d / "a.shp"), wide(d / "link.shp")));
  EXPECT_TRUE(fs::is_same_file(wide(d / "hard.shp"), wide(d / "a.shp")));
  EXPECT_FALSE(fs::is_same_file(wide(d / "a.shp"), wide(d / "b.shp")));
  EXPECT_FALSE(fs::is_same_file(wide(d / "a.shp"), wide(d / "missing.shp")));
  EXPECT_FALSE(fs::is_same_file(wide(d / "missing.shp"), wide(d / "missing.shp")));
}

TEST(PathSystem, CopyFileTellsWhyItRefused) {
  const stdfs::path d = support_test::scratch("copy_refused");
  write(d / "a.dbf", "table");
  stdfs::create_directory(d / "folder.dbf");
  errno = 0;
  EXPECT_FALSE(fs::copy_file(wide(d / "folder.dbf"), wide(d / "b.dbf"), true));
  EXPECT_EQ(errno, EISDIR);
  EXPECT_FALSE(fs::copy_file(wide(d / "a.dbf"), wide(d / "." / "a.dbf"), true));
  EXPECT_EQ(errno, EINVAL);
  EXPECT_EQ(read(d / "a.dbf"), "table");
  EXPECT_FALSE(fs::copy_file(wide(d / "a.dbf"), wide(d / "folder.dbf"), true));
  EXPECT_EQ(errno, EISDIR);
  write(d / "c.dbf", "old");
  EXPECT_FALSE(fs::copy_file(wide(d / "a.dbf"), wide(d / "c.dbf"), false));
  EXPECT_EQ(errno, EEXIST);
  EXPECT_FALSE(fs::copy_file(wide(d / "none.dbf"), wide(d / "c.dbf"), true));
  EXPECT_EQ(errno, ENOENT);
}

TEST(PathSystem, RealPathResolvesLinks) {
  const stdfs::path d = stdfs::canonical(support_test::scratch("real_path"));
  write(d / "a.tld", "x");
  stdfs::create_symlink(d / "a.tld", d / "link.tld");
  EXPECT_EQ(fs::real_path(wide(d / "link.tld")), wide(d / "a.tld"));
  EXPECT_EQ(fs::real_path(L"/no/such/file"), L"/no/such/file");
}

TEST(PathSystem, CreateBesideMakesAFreshFileInTheSameFolder) {
  const stdfs::path d = support_test::scratch("create_beside");
  write(d / "a.tld", "old");
  std::wstring first, second;
  const int fd1 = fs::create_beside(wide(d / "a.tld"), first);
  const int fd2 = fs::create_beside(wide(d / "a.tld"), second);
  ASSERT_GE(fd1, 0);
  ASSERT_GE(fd2, 0);
  ::close(fd1);
  ::close(fd2);
  EXPECT_NE(first, second);
  EXPECT_EQ(stdfs::path(first).parent_path(), d);
  EXPECT_EQ(read(d / "a.tld"), "old");
  std::wstring none;
  EXPECT_LT(fs::create_beside(L"/proc/no_such_folder/a.tld", none), 0);
}

}  // namespace
