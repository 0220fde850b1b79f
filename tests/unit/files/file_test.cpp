#include "files/file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "error_log.h"
#include "fault_injection.h"
#include "support/ansi_code_page.h"
#include "support/env.h"
#include "support/rc.h"
#include "test_paths.h"

namespace {

using vxk_test::error_log;

class FileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = vxk_test::scratch_dir(std::string("file_") +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    Tvx_rc::get_auto_lang();
    Tvx_rc::set_lang(0);
    Tvx_env_main::set_env(&log);
  }
  void TearDown() override {
    Tvx_env_main::set_env(nullptr);
    Tvx_rc::set_lang(0);
  }
  std::string path(const char* name) const { return (dir / name).string(); }
  std::filesystem::path dir;
  error_log log;
};

TEST_F(FileTest, OpenOfMissingFileReportsAndCloseDoesNothing) {
  Tvx_file f;
  EXPECT_EQ(f.open("none.bin", true), 1);
  ASSERT_EQ(log.errors.size(), 1u);
  // The whole name, and the system's reason.
  EXPECT_EQ(log.errors[0], "Can't open file: \"none.bin\": No such file or directory");
  EXPECT_FALSE(f.is_open());
  f.close();
  f.close();
  EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(FileTest, CreateWriteReadAndSizes) {
  Tvx_file f;
  ASSERT_EQ(f.create(path("a.bin").c_str()), 0);
  const char text[] = "0123456789";
  EXPECT_EQ(f.write(text, 10), 0);
  EXPECT_EQ(f.get_size(), 10u);
  f.seek(3);
  char got[4] = {};
  EXPECT_EQ(f.read(got, 3), 0);
  EXPECT_EQ(std::string(got), "345");
  f.seek_from_end(-2);
  EXPECT_EQ(f.read(got, 2), 0);
  EXPECT_EQ(std::string(got, 2), "89");
  EXPECT_TRUE(log.errors.empty());
}

TEST_F(FileTest, GetSizeLeavesThePositionWhereItStood) {
  Tvx_file f;
  ASSERT_EQ(f.create(path("a.bin").c_str()), 0);
  f.write("abcdef", 6);
  f.seek(2);
  EXPECT_EQ(f.get_size(), 6u);
  char c = 0;
  f.read(&c, 1);
  EXPECT_EQ(c, 'c');
}

TEST_F(FileTest, WriteOfZeroBytesReportsTheWriteError) {
  Tvx_file f;
  ASSERT_EQ(f.create(path("w.bin").c_str()), 0);
  EXPECT_EQ(f.write("x", 0), 0);
  ASSERT_EQ(log.errors.size(), 1u);
  // No block was moved, and the system has no reason to give.
  EXPECT_EQ(log.errors[0], "Error writing file: \"" + path("w.bin") + "\"");
  EXPECT_EQ(f.get_failures(), 1u);
}

TEST_F(FileTest, BytesThatCannotReachTheDiskAtCloseReportTheWriteError) {
  Tvx_file f;
  ASSERT_EQ(f.create("/dev/full"), 0);
  EXPECT_EQ(f.write("abc", 3), 0);  // buffered: no error yet
  f.close();
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(log.errors[0], "Error writing file: \"/dev/full\": No space left on device");
  EXPECT_FALSE(f.is_open());
  EXPECT_EQ(f.get_failures(), 1u);
}

TEST_F(FileTest, ReadPastTheEndReportsAndTheStreamGoesOn) {
  Tvx_file f;
  ASSERT_EQ(f.create(path("r.bin").c_str()), 0);
  f.write("ab", 2);
  f.seek(0);
  char buf[8] = {};
  EXPECT_EQ(f.read(buf, 8), 0);
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(log.errors[0], "Error reading file: \"" + path("r.bin") + "\": the file ends before the data");
  f.seek(1);
  EXPECT_EQ(f.read(buf, 1), 0);
  EXPECT_EQ(buf[0], 'b');
  EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(FileTest, ReadOnlyFileRefusesWrites) {
  { std::ofstream(path("ro.bin")) << "data"; }
  Tvx_file f;
  ASSERT_EQ(f.open(path("ro.bin").c_str(), true), 0);
  f.write("x", 1);
  f.seek(0);
  char buf[4];
  f.read(buf, 4);
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(log.errors[0], "Error writing file: \"" + path("ro.bin") + "\": Bad file descriptor");
  EXPECT_EQ(std::string(buf, 4), "data");
}

TEST_F(FileTest, OpenForUpdateKeepsTheContent) {
  { std::ofstream(path("u.bin")) << "hello"; }
  Tvx_file f;
  ASSERT_EQ(f.open(path("u.bin").c_str(), false), 0);
  f.seek(0);
  f.write("J", 1);
  f.close();
  std::ifstream in(path("u.bin"));
  std::string s;
  in >> s;
  EXPECT_EQ(s, "Jello");
}

TEST_F(FileTest, RussianMessagesKeepTheCrossedPair) {
  Tvx_rc::set_lang(1);
  Tvx_file f;
  f.open("zz", true);
  ASSERT_EQ(f.create(path("x.bin").c_str()), 0);
  f.write("", 0);
  char c;
  f.read(&c, 1);
  ASSERT_EQ(log.errors.size(), 3u);
  EXPECT_EQ(vx::strconv::ansi_to_wide(log.errors[0]),
            L"Не могу открыть файл: \"zz\": No such file or directory");
  // The write error says reading, and the read error says writing: the table stands so.
  const std::wstring name = vx::strconv::utf8_to_wide(path("x.bin"));
  EXPECT_EQ(vx::strconv::ansi_to_wide(log.errors[1]), L"Ошибка чтения из файла: \"" + name + L"\"");
  EXPECT_EQ(vx::strconv::ansi_to_wide(log.errors[2]),
            L"Ошибка записи в файл: \"" + name + L"\": the file ends before the data");
}

TEST_F(FileTest, ClosedFileOperationsAreSafe) {
  Tvx_file f;
  f.seek(10);
  f.seek_from_end(0);
  EXPECT_EQ(f.get_size(), 0u);
  char c;
  EXPECT_EQ(f.read(&c, 1), 0);
  EXPECT_EQ(f.write(&c, 1), 0);
  EXPECT_EQ(log.errors.size(), 2u);
}

TEST_F(FileTest, WidePathWithBackslashesGoesThroughTheGate) {
  std::filesystem::create_directories(dir / "sub");
  const std::wstring w = vx::strconv::utf8_to_wide(dir.string()) + L"\\sub\\файл.bin";
  Tvx_file f;
  ASSERT_EQ(f.create(w), 0);
  f.write("1", 1);
  f.close();
  EXPECT_TRUE(std::filesystem::exists(dir / "sub" / vx::strconv::wide_to_utf8(L"файл.bin")));
}

TEST_F(FileTest, NoEnvironmentMeansSilentFailures) {
  Tvx_env_main::set_env(nullptr);
  Tvx_file f;
  EXPECT_EQ(f.open(path("missing").c_str(), true), 1);
  EXPECT_TRUE(log.errors.empty());
  // The file still counts it, for a caller that must know.
  EXPECT_EQ(f.get_failures(), 1u);
}

// A folder opens for reading on this system and then claims a size it does not have (a reader that
// believed it once allocated 4 GB for a ".shx" that was a folder): it is refused as a file.
TEST_F(FileTest, FolderIsRefusedAsAFileThatCannotBeOpened) {
  std::filesystem::create_directories(dir / "folder.shx");
  Tvx_file f;
  EXPECT_EQ(f.open(path("folder.shx").c_str(), true), 1);
  EXPECT_FALSE(f.is_open());
  EXPECT_EQ(f.get_size(), 0u);
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(log.errors[0], "Can't open file: \"" + path("folder.shx") + "\": Is a directory");
  EXPECT_EQ(f.create(path("folder.shx").c_str()), 1);
  EXPECT_EQ(f.get_failures(), 2u);
}

// A seek flushes the bytes written before it; a flush that fails there must not vanish.
TEST_F(FileTest, FailureAtSeekIsAWriteError) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this system";
  Tvx_file f;
  ASSERT_EQ(f.create("/dev/full"), 0);
  f.write("abc", 3);
  f.seek(0);
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(log.errors[0], "Error writing file: \"/dev/full\": No space left on device");
}

TEST_F(FileTest, FileSizeLimitIsReportedWithItsReason) {
  Tvx_file f;
  ASSERT_EQ(f.create(path("big.bin").c_str()), 0);
  const std::string block(64 * 1024, 'x');
  {
    vxk_test::file_size_limit limit(16 * 1024);
    f.write(block.data(), static_cast<uint32_t>(block.size()));
    f.close();
  }
  ASSERT_FALSE(log.errors.empty());
  EXPECT_EQ(log.errors[0], "Error writing file: \"" + path("big.bin") + "\": File too large");
}

}  // namespace
