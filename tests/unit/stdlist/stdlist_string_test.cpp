#include "stdlist/stdlist_string.h"

#include <gtest/gtest.h>

namespace {

using vx::stdlist::stdlist_string;

TEST(StdlistString, ConstructorTakesHemisphereScaleTypeThenTheEightCoordinates) {
  const stdlist_string s(VX_STDLIST_SOUTH, VX_STDLIST_SC_25, VX_STDLIST_TP_DBL, 14, 37, 2, 6, 12, 3, 4, 2);
  EXPECT_EQ(s.get_hemisphere(), VX_STDLIST_SOUTH);
  EXPECT_EQ(s.get_scale(), VX_STDLIST_SC_25);
  EXPECT_EQ(s.get_type(), VX_STDLIST_TP_DBL);
  EXPECT_EQ(s.get_mln_letter_idx(), 14u);
  EXPECT_EQ(s.get_mln_number(), 37u);
  EXPECT_EQ(s.get_500_letter_idx(), 2u);
  EXPECT_EQ(s.get_200_roman_idx(), 6u);
  EXPECT_EQ(s.get_100_number(), 12u);
  EXPECT_EQ(s.get_50_letter_idx(), 3u);
  EXPECT_EQ(s.get_25_letter_idx(), 4u);
  EXPECT_EQ(s.get_10_number(), 2u);
}

TEST(StdlistString, DefaultIsNorthMillionSingleAllOnes) {
  EXPECT_EQ(stdlist_string(), stdlist_string(1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1));
}

TEST(StdlistString, CopyIsFieldByField) {
  const stdlist_string a(2, 4, 3, 20, 60, 4, 36, 144, 4, 4, 4);
  stdlist_string b = a;
  EXPECT_EQ(a, b);
  b.set_10_number(1);
  EXPECT_NE(a, b);
}

TEST(StdlistString, SetHemisphereStoresOnly1And2) {
  stdlist_string s;
  s.set_hemisphere(2);
  EXPECT_EQ(s.get_hemisphere(), 2);
  s.set_hemisphere(3);
  s.set_hemisphere(0);
  EXPECT_EQ(s.get_hemisphere(), 2);
}

TEST(StdlistString, SetScaleStores1To9) {
  stdlist_string s;
  s.set_scale(9);
  EXPECT_EQ(s.get_scale(), 9);
  s.set_scale(3);
  EXPECT_EQ(s.get_scale(), 3);
  s.set_scale(0);
  s.set_scale(10);
  EXPECT_EQ(s.get_scale(), 3);
}

TEST(StdlistString, SetTypeWithForceStoresWhateverTheScale) {
  stdlist_string s;
  s.set_type(3, false);  // 1:1,000,000 refuses a triple
  EXPECT_EQ(s.get_type(), 1);
  s.set_type(3, true);
  EXPECT_EQ(s.get_type(), 3);
  s.set_type(5, true);  // outside 1 to 4: ignored even with force
  s.set_type(0, true);
  EXPECT_EQ(s.get_type(), 3);
}

TEST(StdlistString, SetTypeAtScale0TakesAnyType) {
  stdlist_string s;
  bool found = true;
  s.set_scale_str(L"nonsense", found);
  ASSERT_EQ(s.get_scale(), 0);
  s.set_type(3, false);
  EXPECT_EQ(s.get_type(), 3);
  s.set_type(4, false);
  EXPECT_EQ(s.get_type(), 4);
}

TEST(StdlistString, SetTypeAtScale3TakesOnlySingle) {
  stdlist_string s;
  s.set_scale(3);
  s.set_type(2, false);
  EXPECT_EQ(s.get_type(), 1);
}

TEST(StdlistString, SetStrHemisphere) {
  stdlist_string s;
  s.set_str_hemisphere(L'S');
  EXPECT_EQ(s.get_hemisphere(), 2);
  s.set_str_hemisphere(L'x');
  EXPECT_EQ(s.get_hemisphere(), 2);
  s.set_str_hemisphere(L'N');
  EXPECT_EQ(s.get_hemisphere(), 1);
}

TEST(StdlistString, HemisphereText) {
  EXPECT_EQ(stdlist_string().get_str_hemisphere(), L'N');
  EXPECT_EQ(stdlist_string(2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1).get_str_hemisphere(), L'S');
  EXPECT_EQ(stdlist_string(0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1).get_str_hemisphere(), L'?');
}

TEST(StdlistString, StaticScaleStrDiffersFromTheMember) {
  stdlist_string s;
  bool found = true;
  s.set_scale_str(L"", found);
  EXPECT_EQ(stdlist_string::get_scale_str(s), L"?");
  EXPECT_STREQ(s.get_scale_str(), L"?");
  s.set_scale(3);
  EXPECT_EQ(stdlist_string::get_scale_str(s), L"1:300000");
  EXPECT_STREQ(s.get_scale_str(), L"?");
  s.set_scale(9);
  EXPECT_EQ(stdlist_string::get_scale_str(s), L"");
  EXPECT_STREQ(s.get_scale_str(), L"?");
  s.set_scale(4);
  EXPECT_EQ(stdlist_string::get_scale_str(s), L"1:200000");
  EXPECT_STREQ(s.get_scale_str(), L"1:200000");
}

TEST(StdlistString, SetScaleStr) {
  stdlist_string s;
  bool found = false;
  s.set_scale_str(L"1:25000", found);
  EXPECT_TRUE(found);
  EXPECT_EQ(s.get_scale(), 7);
  s.set_scale_str(L"1:300000", found);
  EXPECT_FALSE(found);
  EXPECT_EQ(s.get_scale(), 0);
}

TEST(StdlistString, SetTypeStrKeepsTheOldTypeOnAMiss) {
  stdlist_string s;
  s.set_type_str(L"Сдвоенный лист");
  EXPECT_EQ(s.get_type(), 2);
  EXPECT_STREQ(s.get_type_str(), L"Сдвоенный лист");
  s.set_type_str(L"лист");
  EXPECT_EQ(s.get_type(), 2);
}

TEST(StdlistString, TypeTextOutsideTheRangeIsQuestionMark) {
  EXPECT_STREQ(stdlist_string(1, 1, 7, 1, 1, 1, 1, 1, 1, 1, 1).get_type_str(), L"?");
}

TEST(StdlistString, ValidityFailsOnABadHemisphereOrScale) {
  EXPECT_TRUE(stdlist_string().is_valid());
  EXPECT_FALSE(stdlist_string(0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1).is_valid());
  EXPECT_FALSE(stdlist_string(1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1).is_valid());
  EXPECT_FALSE(stdlist_string(1, 3, 1, 1, 1, 1, 1, 1, 1, 1, 1).is_valid());
  EXPECT_FALSE(stdlist_string(1, 9, 1, 1, 1, 1, 1, 1, 1, 1, 1).is_valid());
}

TEST(StdlistString, GetOutputStringEmptiesFirst) {
  const stdlist_string s(1, 1, 2, 14, 37, 1, 1, 1, 1, 1, 1);
  std::wstring out = L"old text";
  EXPECT_EQ(&s.get_output_string(out), &out);
  EXPECT_EQ(out, L"N-37,38");
  std::wstring appended = L"<";
  s.fill_str2(appended);
  EXPECT_EQ(appended, L"<N-37,38");
}

TEST(StdlistString, MidMeridianPastColumn60ChangesSign) {
  const stdlist_string s(1, 1, 1, 14, 61, 1, 1, 1, 1, 1, 1);
  EXPECT_EQ(s.get_mid_meridian(), -183);  // unreduced, as nothing checks the column here
}

TEST(StdlistString, Zero) {
  EXPECT_EQ(stdlist_string::zero(L"7"), L"07");
  EXPECT_EQ(stdlist_string::zero(L"37"), L"37");
  EXPECT_EQ(stdlist_string::zero(L""), L"");
}

TEST(StdlistString, TypeAllowedTable) {
  EXPECT_TRUE(vx::stdlist::type_allowed(4, 3));
  EXPECT_FALSE(vx::stdlist::type_allowed(4, 4));
  EXPECT_FALSE(vx::stdlist::type_allowed(1, 3));
  EXPECT_TRUE(vx::stdlist::type_allowed(9, 4));
  EXPECT_TRUE(vx::stdlist::type_allowed(0, 3));
  EXPECT_FALSE(vx::stdlist::type_allowed(3, 2));
  EXPECT_FALSE(vx::stdlist::type_allowed(10, 1));
}

}  // namespace

namespace {

using vx::stdlist::stdlist_string;

// Sheet N-37 with the finer levels 12 (1:100,000), Б, в and 4, at `scale` and `type`.
stdlist_string older(Tvx_stdlist_scale scale, Tvx_stdlist_type type, std::uint64_t letter500 = 1,
                     std::uint64_t roman = 5) {
  return stdlist_string(1, scale, type, 14, 37, letter500, roman, 12, 2, 3, 4);
}

TEST(StdlistStringOlderText, SingleSheetsAt1000000And500000AndTheFinestScale) {
  EXPECT_EQ(older(1, 1).get_output_string(), L"N-37");
  EXPECT_EQ(older(2, 1).get_output_string(), L"N-37-А");
  EXPECT_EQ(older(8, 1).get_output_string(), L"N-37-12-Б-в-4");
  EXPECT_EQ(older(5, 1).get_output_string(), L"N-37-12");
}

TEST(StdlistStringOlderText, JoinedSheetsAt500000) {
  EXPECT_EQ(older(2, 2, 1).get_output_string(), L"N-37-А,Б");
  EXPECT_EQ(older(2, 2, 2).get_output_string(), L"N-37-Б,38-А");
}

TEST(StdlistStringOlderText, DoubleAt1000000RepeatsTheMillionPart) {
  EXPECT_EQ(older(1, 2).get_output_string(), L"N-37,N-37,38");
}

TEST(StdlistStringOlderText, FinerScalesWriteTheMillionPartTwice) {
  EXPECT_EQ(older(4, 1).get_output_string(), L"N-37N-37-V");
  EXPECT_EQ(older(6, 1).get_output_string(), L"N-37N-37-12-Б");
  EXPECT_EQ(older(7, 1).get_output_string(), L"N-37N-37-12-Б-в");
}

TEST(StdlistStringOlderText, At100000TheLaterSheetsComeFromStr) {
  EXPECT_EQ(older(5, 2).get_output_string(), L"N-37-12,N-38-1");
  EXPECT_EQ(older(5, 4).get_output_string(), L"N-37-12,N-38-1,N-38-2,N-38-3");
}

TEST(StdlistStringOlderText, CounterReturnsToZeroBetweenCalls) {
  const stdlist_string s = older(2, 4, 1);
  const std::wstring first = s.get_output_string();
  // The older routine counts on through the letters instead of wrapping into the next column.
  EXPECT_EQ(first, L"N-37-А,Б,В,Г");
  EXPECT_EQ(s.get_output_string(), first);
}

TEST(StdlistStringOlderText, AppendsToTheGivenText) {
  std::wstring out = L"<";
  older(1, 1).fill_str(out);
  EXPECT_EQ(out, L"<N-37");
}

TEST(StdlistStringOlderText, ScaleZeroWritesOnlyCommas) {
  stdlist_string s = older(1, 2);
  bool found = true;
  s.set_scale_str(L"", found);
  EXPECT_EQ(s.get_output_string(), L",");
}

}  // namespace
