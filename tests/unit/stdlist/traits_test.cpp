#include "stdlist/traits.h"

#include <gtest/gtest.h>

namespace {

namespace traits = vx::stdlist::traits;

TEST(Traits, ScaleOfTheSevenListedTexts) {
  EXPECT_EQ(traits::scale(L"1:1000000"), 1);
  EXPECT_EQ(traits::scale(L"1:500000"), 2);
  EXPECT_EQ(traits::scale(L"1:200000"), 4);
  EXPECT_EQ(traits::scale(L"1:100000"), 5);
  EXPECT_EQ(traits::scale(L"1:50000"), 6);
  EXPECT_EQ(traits::scale(L"1:25000"), 7);
  EXPECT_EQ(traits::scale(L"1:10000"), 8);
}

TEST(Traits, Scale300AndUnknownTextsGive0) {
  EXPECT_EQ(traits::scale(L"1:300000"), 0);
  EXPECT_EQ(traits::scale(L""), 0);
  EXPECT_EQ(traits::scale(L"1:200 000"), 0);
}

TEST(Traits, ScaleAndTypeTexts) {
  EXPECT_STREQ(traits::C_SC_300, L"1:300000");
  EXPECT_EQ(traits::listed_scale_text(3), nullptr);
  EXPECT_STREQ(traits::listed_scale_text(8), L"1:10000");
  EXPECT_STREQ(traits::type_text(4), L"Счетверенный лист");
  EXPECT_EQ(traits::type_text(0), nullptr);
}

}  // namespace
