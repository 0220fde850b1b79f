#include "support/rc.h"

#include <gtest/gtest.h>

#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

namespace {

using vx::strconv::ansi_to_wide;

// Each test runs in a process of its own, so the language is still to be asked for at its start.

TEST(Rc, EnglishByDefault) {
  EXPECT_STREQ(Tvx_rc::get_str(0, 0), "done");
  EXPECT_STREQ(Tvx_rc::get_str(0, 1), "user stop");
  EXPECT_STREQ(Tvx_rc::get_str(0, 2), "error");
  EXPECT_STREQ(Tvx_rc::get_str(0, 3), "Load from");
  EXPECT_STREQ(Tvx_rc::get_str(0, 4), "Save to");
  EXPECT_STREQ(Tvx_rc::get_str(10, 0), "Not enough memory. Size to alloc: %d");
  EXPECT_STREQ(Tvx_rc::get_str(10, 1), "Can't open file: \"%s\"");
  EXPECT_STREQ(Tvx_rc::get_str(10, 2), "Error reading file: \"%s\"");
  EXPECT_STREQ(Tvx_rc::get_str(10, 3), "Error writing file: \"%s\"");
}

TEST(Rc, OutOfRangeGivesUnknownStr) {
  EXPECT_STREQ(Tvx_rc::get_str(10, 4), "unknown str");
  EXPECT_STREQ(Tvx_rc::get_str(12, 0), "unknown str");
  EXPECT_STREQ(Tvx_rc::get_str(-1, 0), "unknown str");
  EXPECT_STREQ(Tvx_rc::get_str(0, -1), "unknown str");
  EXPECT_STREQ(Tvx_rc::get_str(0, 5), "unknown str");
  EXPECT_STREQ(Tvx_rc::get_str(6, 36), "unknown str");
}

TEST(Rc, BlockSizes) {
  const int sizes[] = {5, 23, 12, 14, 4, 7, 36, 6, 6, 13, 4, 1};
  for (int b = 0; b < 12; ++b) EXPECT_EQ(Tvx_rc::block_size(b), sizes[b]) << b;
  EXPECT_EQ(Tvx_rc::block_size(12), 0);
}

TEST(Rc, RussianReadErrorSpeaksOfWritingAsTheTableStands) {
  vx_res_set_lng(0);
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(10, 2)), L"Ошибка записи в файл: \"%s\"");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(10, 3)), L"Ошибка чтения из файла: \"%s\"");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(10, 1)), L"Не могу открыть файл: \"%s\"");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(10, 0)),
            L"Недостаточно свободной памяти. Размер выделяемой памяти: %d");
}

TEST(Rc, RussianTextsAreWindows1251) {
  vx_res_set_lng(0);
  // "выполнено" in Windows-1251, byte by byte.
  EXPECT_STREQ(Tvx_rc::get_str(0, 0), "\xE2\xFB\xEF\xEE\xEB\xED\xE5\xED\xEE");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(0, 1)), L"прервано пользователем");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(0, 2)), L"ошибка");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(0, 3)), L"Загрузить из");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(0, 4)), L"Сохранить в");
}

TEST(Rc, ProjectionDescriptionLabels) {
  EXPECT_STREQ(Tvx_rc::get_str(6, 14), "Projection");
  EXPECT_STREQ(Tvx_rc::get_str(6, 29), "Unknown");
  EXPECT_STREQ(Tvx_rc::get_str(6, 33), "Zone");
  EXPECT_STREQ(Tvx_rc::get_str(6, 18), "Central Meridian");
  EXPECT_STREQ(Tvx_rc::get_str(6, 4), "Inverse flattering");
  EXPECT_STREQ(Tvx_rc::get_str(6, 1), "unknown str");  // a row this library does not carry
  Tvx_rc::set_lang(1);
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(6, 14)), L"Проекция");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(6, 19)), L"Широта начала коорд.");
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(6, 29)), L"Не определена");
}

TEST(Rc, LanguageIsAskedOnceAtTheFirstText) {
  Tvx_rc::set_lang(1);  // before the first text: the host's choice overrides it
  EXPECT_STREQ(Tvx_rc::get_str(0, 0), "done");
  vx_res_set_lng(0);  // asked already: no effect any more
  EXPECT_STREQ(Tvx_rc::get_str(0, 0), "done");
  Tvx_rc::set_lang(1);  // after the first text set_lang holds
  EXPECT_EQ(ansi_to_wide(Tvx_rc::get_str(0, 0)), L"выполнено");
  Tvx_rc::set_lang(7);  // anything but 1 is English
  EXPECT_STREQ(Tvx_rc::get_str(0, 2), "error");
}

TEST(Rc, ResultIsOneStaticBuffer) {
  const char* a = Tvx_rc::get_str(0, 0);
  const char* b = Tvx_rc::get_str(0, 2);
  EXPECT_EQ(a, b);
  EXPECT_STREQ(a, "error");
}

}  // namespace
