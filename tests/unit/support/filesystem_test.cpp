#include "support/filesystem.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace vx::filesystem;

TEST(PathText, AbsoluteAndRelative) {
  EXPECT_FALSE(is_absolute(L""));
  EXPECT_TRUE(is_relative(L""));
  EXPECT_TRUE(is_absolute(L"\\a"));
  EXPECT_TRUE(is_absolute(L"/a"));
  EXPECT_TRUE(is_absolute(L"C:a"));
  EXPECT_TRUE(is_absolute(L"1:"));
  EXPECT_FALSE(is_absolute(L"a\\b"));
  EXPECT_TRUE(is_relative(L"a/b"));
}

TEST(PathText, Drive) {
  EXPECT_EQ(drive(L"C:\\x"), L"C:");
  EXPECT_EQ(drive(L"z:"), L"z:");
  EXPECT_EQ(drive(L"1:\\x"), L"");
  EXPECT_EQ(drive(L"C"), L"");
  EXPECT_EQ(drive(L"\\\\srv\\a"), L"");
}

TEST(PathText, DirectoryKeepsItsSeparator) {
  EXPECT_EQ(directory(L"a.dbf"), L"");
  EXPECT_EQ(directory(L"x\\a.dbf"), L"x\\");
  EXPECT_EQ(directory(L"x/a.dbf"), L"x/");
  EXPECT_EQ(directory(L"x/y\\a.dbf"), L"x/y\\");
  EXPECT_EQ(directory(L"x\\"), L"x\\");
}

TEST(PathText, FilenameBasenameExtensions) {
  EXPECT_EQ(filename(L"d\\a.b.shp"), L"a.b.shp");
  EXPECT_EQ(filename(L"d/"), L"");
  EXPECT_EQ(basename(L"d\\a.b.shp"), L"a.b");
  EXPECT_EQ(basename(L"d\\.hidden"), L".hidden");
  EXPECT_EQ(basename(L"noext"), L"noext");
  EXPECT_EQ(extension(L"A.SHP"), L".shp");
  EXPECT_EQ(extension(L"dir.x\\file"), L"");
  EXPECT_EQ(extension(L".hidden"), L"");
  EXPECT_EQ(extension(L"a.ÄБ"), L".äб");
  EXPECT_EQ(full_extension(L"d.x\\a.Shp.XML"), L".Shp.XML");
  EXPECT_EQ(full_extension(L"a"), L"");
}

TEST(PathText, ChangeExtension) {
  EXPECT_EQ(change_extension(L"a.b.shp", L"dbf"), L"a.b.dbf");
  EXPECT_EQ(change_extension(L"a", L".dbf"), L"a.dbf");
  EXPECT_EQ(change_extension(L".hidden", L"dbf"), L".hidden.dbf");
  EXPECT_EQ(change_extension(L"x.y\\z", L"dbf"), L"x.y\\z.dbf");
  EXPECT_EQ(change_extension(L"x.y/z", L"dbf"), L"x.y/z.dbf");
  EXPECT_EQ(change_extension(L"a.shp", L""), L"a");
  EXPECT_EQ(change_extension(L"d\\.hidden", L"dbf"), L"d\\.dbf");  // only the very first character is spared
  EXPECT_EQ(change_extension(L"", L"prj"), L".prj");
}

TEST(PathText, ChangeFullExtension) {
  EXPECT_EQ(change_full_extension(L"d.x\\a.shp.xml", L"dbf"), L"d.x\\a.dbf");
  EXPECT_EQ(change_full_extension(L"a", L"dbf"), L"a.dbf");
  EXPECT_EQ(change_full_extension(L".a.b", L""), L".a.b");
  EXPECT_EQ(change_full_extension(L"a.b.c", L""), L"a");
}

TEST(PathText, ReplacePieces) {
  EXPECT_EQ(change_filename(L"d\\a.shp", L"b.dbf"), L"d\\b.dbf");
  EXPECT_EQ(change_basename(L"d/a.shp", L"Hypsa"), L"d/Hypsa.shp");
  EXPECT_EQ(change_basename(L"a.b.shp", L"c"), L"c.shp");
  EXPECT_EQ(change_directory(L"d\\a.shp", L"out"), L"out\\a.shp");
  EXPECT_EQ(change_directory(L"d\\a.shp", L"out/"), L"out/a.shp");
  EXPECT_EQ(change_directory(L"d\\a.shp", L""), L"a.shp");
  EXPECT_EQ(add_suffix(L"d\\a.shp", L"_1"), L"d\\a_1.shp");
  EXPECT_EQ(add_suffix(L"a", L"_x"), L"a_x");
  EXPECT_EQ(mangle_filename(L"A b\\c?"), L"A b\\c?");
}

TEST(PathText, SeparatorsAndNativePath) {
  EXPECT_EQ(include_directory_separator(L"out"), L"out\\");
  EXPECT_EQ(include_directory_separator(L"out/"), L"out/");
  EXPECT_EQ(include_directory_separator(L"out\\"), L"out\\");
  EXPECT_EQ(native_path(L"a/b\\c/"), L"a\\b\\c\\");
}

TEST(PathText, CleanPath) {
  EXPECT_EQ(clean_path(L""), L"");
  EXPECT_EQ(clean_path(L"a/./b/../c"), L"a\\c");
  EXPECT_EQ(clean_path(L"..\\..\\a"), L"..\\..\\a");
  EXPECT_EQ(clean_path(L"C:/x/"), L"C:\\x");
  EXPECT_EQ(clean_path(L"C:"), L"C:");
  EXPECT_EQ(clean_path(L"\\\\srv\\a\\..\\b"), L"\\\\srv\\b");
  EXPECT_EQ(clean_path(L"/usr//lib/"), L"\\usr\\lib");
  EXPECT_EQ(clean_path(L"a/../../b"), L"..\\b");
}

TEST(PathText, CleanPathOfNothingThrowsInvalidStringPosition) {
  try {
    clean_path(L".");
    FAIL() << "no exception";
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "invalid string position");
  }
  EXPECT_THROW(clean_path(L"a/.."), std::out_of_range);
  EXPECT_THROW(clean_path(L"./"), std::out_of_range);
}

TEST(PathText, Combine) {
  EXPECT_EQ(combine(L"", L"b"), L"b");
  EXPECT_EQ(combine(L"a", L""), L"a");
  EXPECT_EQ(combine(L"a", L"\\b"), L"\\b");
  EXPECT_EQ(combine(L"a", L"C:b"), L"C:b");
  EXPECT_EQ(combine(L"a", L"b"), L"a\\b");
  EXPECT_EQ(combine(L"a/", L"b"), L"a/b");
  EXPECT_EQ(combine(std::vector<std::wstring>{L"out", L"latlong", L"HYPS\\", L"Hypsa.shp"}),
            L"out\\latlong\\HYPS\\Hypsa.shp");
  EXPECT_EQ(combine(std::vector<std::wstring>{}), L"");
}

TEST(PathText, AbsolutePath) {
  EXPECT_EQ(absolute_path(L"C:\\data\\a.shp", L"..\\b.shp"), L"C:\\b.shp");
  EXPECT_EQ(absolute_path(L"C:\\data\\a.shp", L"D:/x/./y"), L"D:\\x\\y");
  EXPECT_EQ(absolute_path(L"/data/a.shp", L"b/c.shp"), L"\\data\\b\\c.shp");
  EXPECT_EQ(absolute_path(L"/data/", L""), L"\\data");
}

TEST(PathText, RelativePath) {
  EXPECT_EQ(relative_path(L"C:\\data\\a.shp", L"C:\\data\\sub\\b.shp"), L"sub\\b.shp");
  EXPECT_EQ(relative_path(L"C:\\data\\x\\a.shp", L"c:\\DATA\\y\\b.shp"), L"..\\y\\b.shp");
  EXPECT_EQ(relative_path(L"C:\\data\\a.shp", L"D:\\b.shp"), L"D:\\b.shp");
  EXPECT_EQ(relative_path(L"C:\\data\\a.shp", L"//srv/b.shp"), L"\\\\srv\\b.shp");
  EXPECT_EQ(relative_path(L"/a/b/c.shp", L"/a/b"), L"");
}

TEST(PathText, CommonDirectory) {
  EXPECT_EQ(common_directory({L"a\\b\\c.shp", L"A/B/d.shp", L"a\\b\\e\\f"}), L"a\\b");
  EXPECT_EQ(common_directory({L"x\\a", L"y\\a"}), L"");
  EXPECT_EQ(common_directory({}), L"");
}

TEST(PathText, IsEqual) {
  EXPECT_TRUE(is_equal(L"A/b", L"a\\B"));
  EXPECT_TRUE(is_equal(L"Карта/Лист", L"карта\\лист\\"));
  EXPECT_FALSE(is_equal(L"a/b", L"a/c"));
}

TEST(PathText, Validity) {
  EXPECT_TRUE(is_valid(L'a'));
  EXPECT_TRUE(is_valid(L'\0'));
  EXPECT_FALSE(is_valid(L'?'));
  EXPECT_TRUE(is_valid(L'\\'));
  EXPECT_FALSE(is_valid_file_name(L'\\'));
  EXPECT_FALSE(is_valid_file_name(L'/'));
  EXPECT_TRUE(is_valid_file_name(L'\0'));
  EXPECT_TRUE(is_valid(std::wstring(L"C:\\a\\b.shp")));
  EXPECT_FALSE(is_valid(std::wstring(L"C:\\a:b")));
  EXPECT_FALSE(is_valid(std::wstring(L"a|b")));
  EXPECT_TRUE(is_valid_file_name(std::wstring(L"a b.shp")));
  EXPECT_FALSE(is_valid_file_name(std::wstring(L"a/b")));
}

TEST(PathText, MakeValid) {
  EXPECT_EQ(make_valid(L"C:\\a?b"), L"C:\\a_b");
  EXPECT_EQ(make_valid(L"a:<b>*"), L"a:_b__");
  EXPECT_EQ(make_valid(L"ab:c"), L"ab_c");
  EXPECT_EQ(make_valid_filename(L"a:b"), L"a_b");
  EXPECT_EQ(make_valid_filename(L"C:\\a/b"), L"C__a_b");
}

TEST(PathText, Virtual) {
  EXPECT_TRUE(is_virtual(L"*a"));
  EXPECT_FALSE(is_virtual(L""));
  EXPECT_EQ(make_virtual(L"*a"), L"*a");
  EXPECT_EQ(make_virtual(L"a"), L"*a");
  EXPECT_EQ(from_virtual(L"*a"), L"a");
  EXPECT_EQ(from_virtual(L"a"), L"a");
}

TEST(PathText, TransformChainsEdits) {
  transform t(L"in\\a.shp");
  t.dir(L"out").base(L"Frame").ext(L"dbf").suffix(L"_2").ext_add(L".bak");
  EXPECT_EQ(t.get(), L"out\\Frame_2.dbf.bak");
}

}  // namespace
