#include "services/string_adapter.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(StdWstringAdapter, WideFeedReplacesTheString) {
  std::wstring target = L"old";
  Tvx_std_wstring_adapter a(target);
  ASSERT_NE(a.adapter(), nullptr);
  vx_string_adp_feed(a.adapter(), L"N-37-VI");
  EXPECT_EQ(target, L"N-37-VI");
  vx_string_adp_feed(a.adapter(), L"Сдвоенный лист");
  EXPECT_EQ(target, L"Сдвоенный лист");
}

TEST(StdWstringAdapter, NullFeedEmptiesTheString) {
  std::wstring target = L"old";
  Tvx_std_wstring_adapter a(target);
  vx_string_adp_feed(a.adapter(), nullptr);
  EXPECT_EQ(target, L"");
}

TEST(StdWstringAdapter, NarrowFeedIsConvertedFromWindows1251) {
  std::wstring target;
  Tvx_std_wstring_adapter a(target);
  Tvx_string_adapter_base::vx_ansi_string_callback("\xCB\xE8\xF1\xF2 A", &a);
  EXPECT_EQ(target, L"Лист A");
  Tvx_string_adapter_base::vx_ansi_string_callback(nullptr, &a);
  EXPECT_EQ(target, L"");
}

TEST(StdWstringAdapter, StaticCallbacksDispatchThroughTheBase) {
  std::wstring target;
  Tvx_std_wstring_adapter a(target);
  Tvx_string_adapter_base* base = &a;
  Tvx_string_adapter_base::vx_unicode_string_callback(L"wide", base);
  EXPECT_EQ(target, L"wide");
}

// A subclass sees the feeds of the sink in order, in its own overrides.
class collecting_adapter : public Tvx_string_adapter_base {
 public:
  collecting_adapter() { f_adapter = vx_string_adp_create(&vx_ansi_string_callback, nullptr, this); }
  ~collecting_adapter() override { vx_string_adp_destroy(f_adapter); }
  void feed(const char* text) override { narrow += text ? text : "<null>"; }
  void feed(const wchar_t*) override { wide_calls++; }
  std::string narrow;
  int wide_calls = 0;
};

TEST(StringAdapterBase, SinkWithoutUnicodeCallbackFeedsNarrowText) {
  collecting_adapter a;
  vx_string_adp_feed(a.adapter(), L"Б");
  vx_string_adp_feed(a.adapter(), L"-1");
  EXPECT_EQ(a.narrow, "\xC1-1");
  EXPECT_EQ(a.wide_calls, 0);
}

}  // namespace
