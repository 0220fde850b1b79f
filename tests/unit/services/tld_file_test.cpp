// TLD files on disk, through the flat functions.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fault_injection.h"
#include "test_paths.h"
#include "text_list_samples.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

std::wstring wide(const fs::path& p) {
  return p.wstring();
}

std::vector<char> file_bytes(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool write_list(const fs::path& p, Tvx_text_list_base* list) {
  Tvx_tld_file* f = vx_tld_file_open_w(wide(p).c_str());
  if (!f) return false;
  const bool ok = vx_tld_file_write_all(f, list, 0);
  vx_tld_file_close(f);
  return ok;
}

TEST(TldFile, EveryFieldSurvivesAWriteAndARead) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_round_trip");
  Tvx_text_list_base* list = vxk_test::make_full_list();
  ASSERT_TRUE(write_list(dir / "labels.tld", list));

  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "labels.tld").c_str());
  ASSERT_NE(f, nullptr);
  Tvx_text_list_base* back = vx_text_list_create();
  EXPECT_TRUE(vx_tld_file_read_all(f, back));
  EXPECT_STREQ(vx_tld_file_get_error(f), L"");
  vx_tld_file_close(f);
  vxk_test::expect_same_lists(list, back);

  // Written again, the file is the same to the byte.
  ASSERT_TRUE(write_list(dir / "again.tld", back));
  EXPECT_EQ(file_bytes(dir / "labels.tld"), file_bytes(dir / "again.tld"));
  vx_text_list_destroy(back);
  vx_text_list_destroy(list);
}

TEST(TldFile, CyrillicPathWithBackslashes) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_cyrillic");
  // The test runs in the "C" locale, so the expected names are built from UTF-8, the file system's
  // encoding.
  fs::create_directories(dir / fs::u8path("подписи"));
  const std::wstring path = wide(dir) + L"\\подписи\\реки.tld";
  Tvx_text_list_base* list = vxk_test::make_full_list();
  Tvx_tld_file* f = vx_tld_file_open_w(path.c_str());
  ASSERT_NE(f, nullptr);
  EXPECT_TRUE(vx_tld_file_write_all(f, list, 0));
  vx_tld_file_close(f);
  EXPECT_TRUE(fs::exists(dir / fs::u8path("подписи") / fs::u8path("реки.tld")));
  vx_text_list_destroy(list);
}

TEST(TldFile, OpenServesAMissingDestinationButNotAMissingFolder) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_open");
  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "new.tld").c_str());
  EXPECT_NE(f, nullptr);
  EXPECT_FALSE(fs::exists(dir / "new.tld"));  // opening creates nothing
  vx_tld_file_close(f);
  EXPECT_EQ(vx_tld_file_open_w(wide(dir / "no_such_folder" / "new.tld").c_str()), nullptr);
  EXPECT_EQ(vx_tld_file_open_w(wide(dir).c_str()), nullptr);
  EXPECT_EQ(vx_tld_file_open_w(L""), nullptr);
  EXPECT_EQ(vx_tld_file_open_w(nullptr), nullptr);
}

TEST(TldFile, ReadingAMissingFileFailsWithAnEmptyList) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_missing");
  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "absent.tld").c_str());
  ASSERT_NE(f, nullptr);
  Tvx_text_list_base* list = vxk_test::make_full_list();
  EXPECT_FALSE(vx_tld_file_read_all(f, list));
  EXPECT_EQ(vx_text_list_get_size(list), 0u);
  EXPECT_NE(std::wstring(vx_tld_file_get_error(f)).find(L"cannot open"), std::wstring::npos);
  vx_tld_file_close(f);
  vx_text_list_destroy(list);
}

TEST(TldFile, TruncatedFileIsRefusedWithAReason) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_truncated");
  Tvx_text_list_base* list = vxk_test::make_full_list();
  ASSERT_TRUE(write_list(dir / "labels.tld", list));
  fs::resize_file(dir / "labels.tld", fs::file_size(dir / "labels.tld") - 3);
  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "labels.tld").c_str());
  ASSERT_NE(f, nullptr);
  EXPECT_FALSE(vx_tld_file_read_all(f, list));
  EXPECT_EQ(vx_text_list_get_size(list), 3u);  // the last label was cut
  EXPECT_NE(std::wstring(vx_tld_file_get_error(f)).find(L"label 3 of 4"), std::wstring::npos);
  vx_tld_file_close(f);
  vx_text_list_destroy(list);
}

TEST(TldFile, OtherFileIsNotATldFile) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_other");
  std::ofstream(dir / "notes.tld") << "these are not labels";
  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "notes.tld").c_str());
  Tvx_text_list_base* list = vx_text_list_create();
  EXPECT_FALSE(vx_tld_file_read_all(f, list));
  EXPECT_NE(std::wstring(vx_tld_file_get_error(f)).find(L"not a TLD file"), std::wstring::npos);
  vx_tld_file_close(f);
  vx_text_list_destroy(list);
}

TEST(TldFile, UnknownWriteModeWritesNothing) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_mode");
  Tvx_text_list_base* list = vxk_test::make_full_list();
  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "labels.tld").c_str());
  EXPECT_FALSE(vx_tld_file_write_all(f, list, 1));
  EXPECT_FALSE(fs::exists(dir / "labels.tld"));
  vx_tld_file_close(f);
  vx_text_list_destroy(list);
}

TEST(TldFile, SourceAndDestinationMayBeOneFile) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_in_place");
  Tvx_text_list_base* list = vxk_test::make_full_list();
  ASSERT_TRUE(write_list(dir / "labels.tld", list));
  const std::wstring path = wide(dir / "labels.tld");
  Tvx_tld_file* src = vx_tld_file_open_w(path.c_str());
  Tvx_tld_file* dst = vx_tld_file_open_w(path.c_str());
  Tvx_text_list_base* back = vx_text_list_create();
  EXPECT_TRUE(vx_tld_file_read_all(src, back));
  EXPECT_TRUE(vx_tld_file_write_all(dst, back, 0));
  vx_tld_file_close(dst);
  vx_tld_file_close(src);
  Tvx_text_list_base* again = vx_text_list_create();
  src = vx_tld_file_open_w(path.c_str());
  EXPECT_TRUE(vx_tld_file_read_all(src, again));
  vx_tld_file_close(src);
  vxk_test::expect_same_lists(list, again);
  vx_text_list_destroy(again);
  vx_text_list_destroy(back);
  vx_text_list_destroy(list);
}

TEST(TldFile, CloseAcceptsNull) {
  vx_tld_file_close(nullptr);
}

// A write that fails leaves the earlier file as it was (it was once cut short, also when it was the
// file the list had been read from), and no file of its own behind.
TEST(TldFile, FailedWriteLeavesTheEarlierFileAsItWas) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_failed_write");
  Tvx_text_list_base* small = vx_text_list_create();
  Tvx_text_list_base* list = vxk_test::make_full_list();
  ASSERT_TRUE(write_list(dir / "labels.tld", small));
  const auto before = vxk_test::snapshot(dir);
  Tvx_tld_file* f = vx_tld_file_open_w(wide(dir / "labels.tld").c_str());
  ASSERT_NE(f, nullptr);
  {
    vxk_test::file_size_limit limit(16);
    EXPECT_FALSE(vx_tld_file_write_all(f, list, 0));
  }
  const std::wstring error = vx_tld_file_get_error(f);
  EXPECT_NE(error.find(L"File too large"), std::wstring::npos) << error.size();
  EXPECT_NE(error.find(wide(dir / "labels.tld")), std::wstring::npos);
  vx_tld_file_close(f);
  EXPECT_EQ(vxk_test::snapshot(dir), before);
  vx_text_list_destroy(list);
  vx_text_list_destroy(small);
}

TEST(TldFile, ReplacedFileKeepsItsModes) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_modes");
  Tvx_text_list_base* list = vxk_test::make_full_list();
  ASSERT_TRUE(write_list(dir / "labels.tld", list));
  fs::permissions(dir / "labels.tld", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  ASSERT_TRUE(write_list(dir / "labels.tld", list));
  EXPECT_EQ(fs::status(dir / "labels.tld").permissions() & fs::perms::all,
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  vx_text_list_destroy(list);
}

// A destination that is a link is written where the link points; the link stays a link.
TEST(TldFile, LinkIsWrittenThrough) {
  const fs::path dir = vxk_test::scratch_dir("tld_file_link");
  Tvx_text_list_base* empty = vx_text_list_create();
  Tvx_text_list_base* list = vxk_test::make_full_list();
  fs::create_directories(dir / "real");
  ASSERT_TRUE(write_list(dir / "real" / "labels.tld", empty));
  fs::create_symlink(dir / "real" / "labels.tld", dir / "link.tld");
  ASSERT_TRUE(write_list(dir / "link.tld", list));
  EXPECT_TRUE(fs::is_symlink(dir / "link.tld"));
  EXPECT_EQ(file_bytes(dir / "link.tld"), file_bytes(dir / "real" / "labels.tld"));
  EXPECT_GT(fs::file_size(dir / "real" / "labels.tld"), 12u);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir / "real"), fs::directory_iterator()), 1);
  vx_text_list_destroy(list);
  vx_text_list_destroy(empty);
}

}  // namespace
