#include "support/text_case.h"

#include <gtest/gtest.h>

#include "support/ansi_code_page.h"

namespace {

using namespace vx::text;
using vx::strconv::wide_to_ansi;

TEST(TextCase, WideFoldsAsciiLatinAndCyrillic) {
  EXPECT_EQ(to_lower(std::wstring(L"ABC xyZ ÀÉ АБВЯ ЁЇІ Ґ")), L"abc xyz àé абвя ёїі ґ");
  EXPECT_EQ(to_upper(std::wstring(L"abc àé абвя ёїі ґ")), L"ABC ÀÉ АБВЯ ЁЇІ Ґ");
  EXPECT_EQ(to_lower(L'1'), L'1');
  EXPECT_EQ(to_lower(L'×'), L'×');
}

TEST(TextCase, WideCompareIgnoresCase) {
  EXPECT_TRUE(equal_nocase(L"Проекция", L"пРОЕКЦИЯ"));
  EXPECT_EQ(compare_nocase(L"a", L"B"), -1);
  EXPECT_EQ(compare_nocase(L"b", L"A"), 1);
  EXPECT_EQ(compare_nocase(L"ab", L"A"), 1);
  EXPECT_FALSE(equal_nocase(L"ab", L"abc"));
}

TEST(TextCase, NarrowFoldsWindows1251Cyrillic) {
  const std::string upper = wide_to_ansi(L"ЁЖИК Proj");
  EXPECT_EQ(ansi_to_lower(upper), wide_to_ansi(L"ёжик proj"));
  EXPECT_EQ(ansi_to_upper(wide_to_ansi(L"ёжик proj")), wide_to_ansi(L"ЁЖИК PROJ"));
  EXPECT_EQ(ansi_to_lower('\xC0'), '\xE0');  // А -> а
  EXPECT_EQ(ansi_to_lower('\xA8'), '\xB8');  // Ё -> ё
  EXPECT_EQ(ansi_to_lower('5'), '5');
}

TEST(TextCase, NarrowCompareIgnoresCaseWhateverTheLocale) {
  const std::string a = wide_to_ansi(L"Номер Зоны");
  const std::string b = wide_to_ansi(L"номер зоны");
  EXPECT_EQ(ansi_compare_nocase(a.c_str(), b.c_str()), 0);
  EXPECT_TRUE(ansi_equal_nocase(a, b));
  EXPECT_EQ(ansi_compare_nocase("TMERC", "tmerc"), 0);
  EXPECT_LT(ansi_compare_nocase("a", "B"), 0);
  EXPECT_GT(ansi_compare_nocase("ab", "A"), 0);
}

}  // namespace
