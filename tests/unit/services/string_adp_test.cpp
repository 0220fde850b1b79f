#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vxk_proj4_shp.h"

namespace {

struct rows {
  std::vector<std::wstring> wide;
  std::vector<std::string> narrow;
  int nulls = 0;
};

void on_wide(const wchar_t* text, void* user) {
  auto* r = static_cast<rows*>(user);
  if (text)
    r->wide.emplace_back(text);
  else
    ++r->nulls;
}

void on_narrow(const char* text, void* user) {
  auto* r = static_cast<rows*>(user);
  if (text)
    r->narrow.emplace_back(text);
  else
    ++r->nulls;
}

TEST(StringAdp, FeedsReachTheUnicodeCallbackInOrder) {
  rows r;
  Ivx_string_adp* sink = vx_string_adp_create(on_narrow, on_wide, &r);
  ASSERT_NE(sink, nullptr);
  vx_string_adp_feed(sink, L"N");
  vx_string_adp_feed(sink, L"");
  vx_string_adp_feed(sink, L"Сдвоенный лист");
  vx_string_adp_destroy(sink);
  EXPECT_EQ(r.wide, (std::vector<std::wstring>{L"N", L"", L"Сдвоенный лист"}));
  EXPECT_TRUE(r.narrow.empty());
}

TEST(StringAdp, WithoutUnicodeCallbackTextArrivesInWindows1251) {
  rows r;
  Ivx_string_adp* sink = vx_string_adp_create(on_narrow, nullptr, &r);
  vx_string_adp_feed(sink, L"Лист A");
  vx_string_adp_destroy(sink);
  ASSERT_EQ(r.narrow.size(), 1u);
  EXPECT_EQ(r.narrow[0], std::string("\xCB\xE8\xF1\xF2 A"));
}

TEST(StringAdp, NullTextIsPassedOnAsNull) {
  rows r;
  Ivx_string_adp* sink = vx_string_adp_create(nullptr, on_wide, &r);
  vx_string_adp_feed(sink, nullptr);
  vx_string_adp_destroy(sink);
  EXPECT_EQ(r.nulls, 1);
}

TEST(StringAdp, DestroyAcceptsNull) {
  vx_string_adp_destroy(nullptr);
}

}  // namespace
