#include "support/ansi_code_page.h"

#include <gtest/gtest.h>

namespace {

using namespace vx::strconv;

TEST(AnsiCodePage, IsWindows1251) {
  EXPECT_EQ(ansi_code_page(), 1251u);
  EXPECT_STREQ(ansi_iconv_name(), "WINDOWS-1251");
}

TEST(AnsiCodePage, CyrillicRoundTripsThroughAnsiAndUtf8) {
  const std::wstring text = L"Счетверенный лист N-37";
  EXPECT_EQ(ansi_to_wide(wide_to_ansi(text)), text);
  EXPECT_EQ(utf8_to_wide(wide_to_utf8(text)), text);
  EXPECT_EQ(wide_to_ansi(L"А"), "\xC0");
  EXPECT_EQ(wide_to_utf8(L"А"), "\xD0\x90");
}

TEST(AnsiCodePage, CharacterMissingFromTheCodePageBecomesQuestionMark) {
  EXPECT_EQ(wide_to_ansi(L"a\u4E2Db"), "a?b");
}

TEST(AnsiCodePage, InvalidUtf8IsReplacedNotDropped) {
  EXPECT_EQ(utf8_to_wide(std::string("a\xFF"
                                     "b")),
            std::wstring(L"a\uFFFDb"));
}

TEST(AnsiCodePage, EmptyTextStaysEmpty) {
  EXPECT_EQ(wide_to_ansi(L""), "");
  EXPECT_EQ(ansi_to_wide(""), L"");
}

}  // namespace
