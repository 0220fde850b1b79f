#include "support/encodings.h"

#include <gtest/gtest.h>

#include <string>

#include "support/ansi_code_page.h"

namespace {

using namespace vx::strconv;

TEST(Encodings, TableOfNineteenRows) {
  struct row {
    int value;
    const char* name;
    const char* alias;
    uint32_t code_page;
  };
  const row expected[] = {
      {0, "UTF-8", "UTF-8", 65001},
      {1, "UTF-16", "UTF-16", 0},
      {2, "UTF-16LE", "UTF-16LE", 0},
      {3, "UTF-16BE", "UTF-16BE", 0},
      {4, "UTF-32", "UTF-32", 0},
      {5, "UTF-32LE", "UTF-32BE", 0},
      {6, "UTF-32BE", "UTF-32LE", 0},
      {7, "CP1250", "Windows-1250", 1250},
      {8, "CP1251", "Windows-1251", 1251},
      {9, "CP1252", "Windows-1252", 1252},
      {10, "CP1253", "Windows-1253", 1253},
      {11, "CP1254", "Windows-1254", 1254},
      {12, "CP1255", "Windows-1255", 1255},
      {13, "CP1256", "Windows-1256", 1256},
      {14, "CP1257", "Windows-1257", 1257},
      {15, "CP1258", "Windows-1258", 1258},
      {16, "CP866", "OEM 866", 866},
      {17, "ASCII", "US-ASCII", 20127},
      {18, "SYSTEM", "ANSI", 0},
  };
  ASSERT_EQ(encoding_table().size(), 19u);
  for (const row& r : expected) {
    const encoding_row& got = encoding_info(static_cast<encodings>(r.value));
    EXPECT_EQ(static_cast<int>(got.value), r.value);
    EXPECT_STREQ(got.name, r.name);
    EXPECT_STREQ(got.alias, r.alias);
    EXPECT_EQ(got.code_page, r.code_page);
  }
}

TEST(Encodings, EveryRowConvertsPlainText) {
  for (const encoding_row& row : encoding_table()) {
    EXPECT_EQ(encode(row.value, L"abc 123\r\n"), "abc 123\r\n") << row.name;
  }
}

TEST(Encodings, CyrillicInEachCyrillicCodePage) {
  EXPECT_EQ(encode(encodings::cp1251, L"Проекция"), "\xCF\xF0\xEE\xE5\xEA\xF6\xE8\xFF");
  EXPECT_EQ(encode(encodings::system, L"Проекция"), "\xCF\xF0\xEE\xE5\xEA\xF6\xE8\xFF");
  EXPECT_EQ(encode(encodings::cp866, L"Проекция"), "\x8F\xE0\xAE\xA5\xAA\xE6\xA8\xEF");
  EXPECT_EQ(encode(encodings::utf8, L"Проекция"),
            "\xD0\x9F\xD1\x80\xD0\xBE\xD0\xB5\xD0\xBA\xD1\x86\xD0\xB8\xD1\x8F");
  EXPECT_EQ(encode(encodings::cp1252, L"é"), "\xE9");
  EXPECT_EQ(encode(encodings::cp1250, L"ő"), "\xF5");
  EXPECT_EQ(encode(encodings::cp1257, L"ą"), "\xE0");
}

TEST(Encodings, UnicodeRowsGiveTheNarrowCodePageWithoutByteOrderMark) {
  for (encodings e : {encodings::utf16, encodings::utf16le, encodings::utf16be, encodings::utf32,
                      encodings::utf32le, encodings::utf32be}) {
    EXPECT_EQ(encode(e, L"Лист"), wide_to_ansi(L"Лист"));
  }
  EXPECT_EQ(encode(encodings::utf8, L"a").size(), 1u);  // no byte order mark
}

TEST(Encodings, MissingCharactersAreSubstituted) {
  EXPECT_EQ(encode(encodings::system, L"a\u4E2Db"), "a?b");
  EXPECT_EQ(encode(encodings::ascii, L"Лa"), "?a");
  EXPECT_EQ(encode(encodings::cp1252, L"Ж"), "?");
}

TEST(Encodings, EmptyTextAndUnknownValues) {
  EXPECT_EQ(encode(encodings::utf8, L""), "");
  EXPECT_EQ(std::string(encoding_info(static_cast<encodings>(99)).name), "SYSTEM");
  EXPECT_EQ(iconv_name_of_code_page(0), std::string(ansi_iconv_name()));
  EXPECT_EQ(iconv_name_of_code_page(12345), nullptr);
}

TEST(Encodings, CyrillicRoundTripsThroughAnsiAndUtf8) {
  const std::wstring text = L"Номенклатура листа N-37-VI, Ёё";
  EXPECT_EQ(ansi_to_wide(encode(encodings::system, text)), text);
  EXPECT_EQ(utf8_to_wide(encode(encodings::utf8, text)), text);
  EXPECT_EQ(narrow_to_wide(encode(encodings::cp866, text), "CP866"), text);
}

}  // namespace
