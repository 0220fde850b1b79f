#include "support/fileio.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/ansi_code_page.h"
#include "support_scratch.h"

namespace {

namespace stdfs = std::filesystem;
using vx::fileio::writeall;
using vx::strconv::encodings;

std::string read(const stdfs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

TEST(WriteAll, EmptyTextMakesAnEmptyFile) {
  const stdfs::path root = support_test::scratch("writeall_empty");
  EXPECT_TRUE(writeall((root / "a.prj").wstring(), encodings::system, L""));
  ASSERT_TRUE(stdfs::exists(root / "a.prj"));
  EXPECT_EQ(stdfs::file_size(root / "a.prj"), 0u);
}

TEST(WriteAll, SecondWriteReplacesTheFile) {
  const stdfs::path root = support_test::scratch("writeall_replace");
  const std::wstring path = (root / "a.prj").wstring();
  EXPECT_TRUE(writeall(path, encodings::system, L"a much longer first text"));
  EXPECT_TRUE(writeall(path, encodings::system, L"short"));
  EXPECT_EQ(read(root / "a.prj"), "short");
}

TEST(WriteAll, CharacterOutsideTheCodePageStillGivesTrue) {
  const stdfs::path root = support_test::scratch("writeall_subst");
  EXPECT_TRUE(writeall((root / "a.prj").wstring(), encodings::system, L"Лист \u4E2D"));
  EXPECT_EQ(read(root / "a.prj"), vx::strconv::wide_to_ansi(L"Лист ?"));
}

TEST(WriteAll, DirectoryAsPathGivesFalse) {
  const stdfs::path root = support_test::scratch("writeall_dir");
  EXPECT_FALSE(writeall(root.wstring(), encodings::system, L"x"));
  EXPECT_FALSE(writeall((root / "no" / "such.prj").wstring(), encodings::system, L"x"));
}

TEST(WriteAll, BackslashPathLandsInTheFolder) {
  const stdfs::path root = support_test::scratch("writeall_backslash");
  stdfs::create_directories(root / "HYPS");
  EXPECT_TRUE(writeall(root.wstring() + L"\\HYPS\\Hypsa.prj", encodings::system, L"GEOGCS[\"x\"]"));
  EXPECT_EQ(read(root / "HYPS" / "Hypsa.prj"), "GEOGCS[\"x\"]");
}

TEST(WriteAll, EncodingsLineEndsAndNoByteOrderMark) {
  const stdfs::path root = support_test::scratch("writeall_enc");
  const std::wstring text = L"Проекция\nline\r\n";
  EXPECT_TRUE(writeall((root / "u.txt").wstring(), encodings::utf8, text));
  EXPECT_EQ(vx::strconv::utf8_to_wide(read(root / "u.txt")), text);
  EXPECT_TRUE(writeall((root / "w.txt").wstring(), encodings::utf16le, text));
  EXPECT_EQ(vx::strconv::ansi_to_wide(read(root / "w.txt")), text);
  EXPECT_TRUE(writeall((root / "d.txt").wstring(), encodings::cp866, L"Проекция"));
  EXPECT_EQ(read(root / "d.txt"), "\x8F\xE0\xAE\xA5\xAA\xE6\xA8\xEF");
}

TEST(FileioWin, OpenModes) {
  const stdfs::path root = support_test::scratch("fileio_modes");
  const std::wstring path = root.wstring() + L"\\f.txt";
  vx::detail::fileio_win f;
  EXPECT_EQ(f.line_end(), "\r\n");
  EXPECT_FALSE(f.open(path, L"r"));  // must exist
  EXPECT_FALSE(f.open(path, L"a"));
  ASSERT_TRUE(f.open(path, L"w"));
  EXPECT_EQ(f._write_bytes("abc", 3), 3);
  ASSERT_TRUE(f.open(path, L"a"));  // closes the first handle, goes to the end
  EXPECT_EQ(f._write_bytes("de", 2), 2);
  f.close();
  EXPECT_EQ(read(root / "f.txt"), "abcde");
  ASSERT_TRUE(f.open(path, L"r"));
  EXPECT_EQ(f._write_bytes("x", 1), -1);  // read only
  f.close();
  EXPECT_FALSE(f.is_open());
}

TEST(FileioWin, LargeWritesGoInBlocks) {
  const stdfs::path root = support_test::scratch("fileio_blocks");
  vx::detail::fileio_win f;
  ASSERT_TRUE(f.open((root / "b.bin").wstring(), L"w"));
  const std::string data(1000, 'z');
  EXPECT_EQ(f.write_blocks(data.data(), data.size(), 64), 1000);
  EXPECT_EQ(f.write_blocks(data.data(), 0, 64), 0);
  f.close();
  EXPECT_EQ(read(root / "b.bin"), data);
  EXPECT_EQ(vx::detail::fileio_win::WRITE_BLOCK, 1073741824u);
}

}  // namespace
