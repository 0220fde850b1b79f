// The style library folder: the host's choice, then VXK_STYLE_LIBS, then the default, always with a
// separator at the end; the shipped proj0.pj4 is found there.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "vxk_proj4_shp.h"

namespace {

std::wstring answer() {
  return vx_options_get_style_libs_path();
}

// Each test runs in a process of its own; these restore the defaults all the same.
struct OptionsTest : ::testing::Test {
  void TearDown() override {
    vx_options_set_style_libs_path(nullptr);
    unsetenv("VXK_STYLE_LIBS");
  }
};

TEST_F(OptionsTest, TheHostsChoiceComesFirstAndGetsItsSeparator) {
  setenv("VXK_STYLE_LIBS", "/from/variable/", 1);
  vx_options_set_style_libs_path(L"/my/styles");
  EXPECT_EQ(answer(), L"/my/styles/");
  vx_options_set_style_libs_path(L"C:\\styles\\");
  EXPECT_EQ(answer(), L"C:\\styles\\");
}

TEST_F(OptionsTest, TheVariableComesNext) {
  setenv("VXK_STYLE_LIBS", "/from/variable", 1);
  EXPECT_EQ(answer(), L"/from/variable/");
  vx_options_set_style_libs_path(L"");
  EXPECT_EQ(answer(), L"/from/variable/");
}

TEST_F(OptionsTest, TheDefaultHoldsTheShippedGeographicSystem) {
  unsetenv("VXK_STYLE_LIBS");
  const std::wstring dir = answer();
  ASSERT_FALSE(dir.empty());
  EXPECT_EQ(dir.back(), L'/');
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(dir) / "std_list" / "proj0.pj4"));
}

}  // namespace
