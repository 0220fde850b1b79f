#include "stdlist/helper_mln.h"

#include <gtest/gtest.h>

#include "stdlist/level_common.h"

namespace {

namespace mln = vx::stdlist::helper_mln;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

stdlist_string sheet(Tvx_stdlist_scale scale, Tvx_stdlist_type type, std::uint64_t letter,
                     std::uint64_t number, Tvx_stdlist_hemisphere hemisphere = VX_STDLIST_NORTH) {
  return stdlist_string(hemisphere, scale, type, letter, number, 1, 1, 1, 1, 1, 1);
}

TEST(HelperMln, Ranges) {
  EXPECT_FALSE(mln::letter_in_range(0));
  EXPECT_TRUE(mln::letter_in_range(22));
  EXPECT_FALSE(mln::letter_in_range(23));
  EXPECT_TRUE(mln::number_in_range(60));
  EXPECT_FALSE(mln::number_in_range(61));
  EXPECT_TRUE(mln::in_range(1));
  EXPECT_FALSE(mln::in_range(0));
  EXPECT_TRUE(mln::in_range(22, 60));
  EXPECT_FALSE(mln::in_range(23, 60));
  EXPECT_TRUE(mln::is_valid(sheet(5, 1, 14, 37)));
  EXPECT_FALSE(mln::is_valid(sheet(1, 1, 14, 0)));
}

TEST(HelperMln, PolarBandIsQ) {
  EXPECT_TRUE(mln::has_polar(17));
  EXPECT_FALSE(mln::has_polar(16));
  EXPECT_EQ(mln::letter_by_idx(17), L'Q');
}

TEST(HelperMln, LetterTable) {
  EXPECT_EQ(mln::letter_by_idx(1), L'A');
  EXPECT_EQ(mln::letter_by_idx(22), L'V');
  EXPECT_EQ(mln::letter_by_idx(23), L'?');
  EXPECT_EQ(mln::letter_by_idx(0), L'?');
}

TEST(HelperMln, LetterCyclic) {
  EXPECT_EQ(mln::letter_by_idx_cyclic(0), L'?');
  EXPECT_EQ(mln::letter_by_idx_cyclic(23), L'A');
  EXPECT_EQ(mln::letter_by_idx_cyclic(44), L'V');
}

TEST(HelperMln, LetterIdxOfZAndQuestionMarkIsInvalid) {
  EXPECT_EQ(mln::letter_idx(L'Z'), INVALID_IDX);
  EXPECT_EQ(mln::letter_idx(L'?'), INVALID_IDX);
  EXPECT_EQ(mln::letter_idx(L'N'), 14u);
}

TEST(HelperMln, GetAndSetLetter) {
  stdlist_string s;
  EXPECT_TRUE(mln::set_letter(s, L'V'));
  EXPECT_EQ(mln::get_letter(s), L'V');
  EXPECT_FALSE(mln::set_letter(s, L'Z'));
  EXPECT_EQ(s.get_mln_letter_idx(), INVALID_IDX);
  EXPECT_EQ(mln::get_letter(s), L'?');
}

TEST(HelperMln, NumberText) {
  EXPECT_EQ(mln::number(std::uint64_t{7}), L"7");
  EXPECT_EQ(mln::number(std::uint64_t{61}), L"?");
}

TEST(HelperMln, NumberOfText) {
  EXPECT_EQ(mln::number(std::wstring(L"60")), 60u);
  EXPECT_EQ(mln::number(std::wstring(L"61")), INVALID_IDX);
  EXPECT_EQ(mln::number(std::wstring(L"abc")), INVALID_IDX);
  EXPECT_EQ(mln::number(std::wstring(L"0")), INVALID_IDX);
  EXPECT_EQ(mln::number(std::wstring(L"-5")), INVALID_IDX);
}

TEST(HelperMln, GetAndSetNumberOfTheRecord) {
  stdlist_string s;
  EXPECT_TRUE(vx::stdlist::set_number(s, L"42"));
  EXPECT_EQ(vx::stdlist::get_number(s), L"42");
  EXPECT_FALSE(vx::stdlist::set_number(s, L"99"));
  EXPECT_EQ(s.get_mln_number(), INVALID_IDX);
  EXPECT_EQ(vx::stdlist::get_number(s), L"?");
}

TEST(HelperMln, NextListNum) {
  EXPECT_EQ(mln::get_next_list_num(60, 1), 1u);
  EXPECT_EQ(mln::get_next_list_num(59, 1), 60u);
  EXPECT_EQ(mln::get_next_list_num(1, -1), 60u);
  EXPECT_EQ(mln::get_next_list_num(58, 3), 1u);
  EXPECT_EQ(mln::get_next_list_num_str(60, 2), L"2");
}

TEST(HelperMln, NextNumber) {
  EXPECT_EQ(mln::next_number(60, 1, 1), 1u);
  EXPECT_EQ(mln::next_number(1, -1, 1), 60u);
  EXPECT_EQ(mln::next_number(37, 1, 2), 39u);
  EXPECT_EQ(mln::next_number(59, 1, 1), 60u);
  EXPECT_EQ(mln::next_number(0, 1, 1), INVALID_IDX);
  EXPECT_EQ(mln::next_number(61, 1, 1), INVALID_IDX);
}

TEST(HelperMln, NextLetterNorth) {
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 21, 1), 1u);  // "U" to "A"
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 22, 1), 1u);  // "V" to "A"
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 1, -1), 1u);  // no crossing of the equator
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 14, 1), 15u);
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 20, 1), 21u);
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 14, -1), 13u);
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 22, -1), 21u);
}

TEST(HelperMln, NextLetterSouth) {
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 21, -1), 22u);  // "U" to "V"
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 22, -1), 1u);   // "V" to "A"
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 1, 1), 1u);     // no crossing of the equator
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 14, 1), 13u);
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 14, -1), 15u);
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 1, -1), 2u);
}

TEST(HelperMln, NextLetterOutOfRange) {
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_NORTH, 0, 1), INVALID_IDX);
  EXPECT_EQ(mln::next_letter_idx(VX_STDLIST_SOUTH, 23, -1), INVALID_IDX);
}

TEST(HelperMln, NextFollowsTheLineCycleRule) {
  EXPECT_EQ(mln::next(1, -1), 60u);
  EXPECT_EQ(mln::next(60, 1), 1u);
  EXPECT_EQ(mln::next(37, 1), 38u);
  EXPECT_EQ(mln::next(0, 1), INVALID_IDX);
  EXPECT_EQ(mln::next(61, 1), INVALID_IDX);
}

TEST(HelperMln, EdgesAndLines) {
  EXPECT_TRUE(mln::left_edge(1));
  EXPECT_FALSE(mln::left_edge(2));
  EXPECT_TRUE(mln::right_edge(60));
  EXPECT_FALSE(mln::right_edge(59));
  EXPECT_EQ(mln::line(60), 1u);
  EXPECT_EQ(mln::line_min(37), 0u);
  EXPECT_EQ(mln::line_max(37), 60u);
}

TEST(HelperMln, MlnPartStr) {
  std::wstring out = L">";
  mln::mln_part_str(sheet(5, 1, 14, 37), out);
  EXPECT_EQ(out, L">N-37");
  out.clear();
  mln::mln_part_str(sheet(5, 1, 0, 61), out);
  EXPECT_EQ(out, L"?-?");
}

TEST(HelperMln, FillStrWritesNumbersOnlyAtTheMillionScale) {
  std::wstring out;
  mln::fill_str(sheet(1, 2, 14, 37), out, 5);
  EXPECT_EQ(out, L"N-37,38");
  out.clear();
  mln::fill_str(sheet(5, 2, 14, 37), out);
  EXPECT_EQ(out, L"N-");
}

TEST(HelperMln, RecursiveNumberLists) {
  const auto run = [](std::uint64_t number, int type) {
    std::wstring out;
    vx::stdlist::recursive(number, 0, type, out);
    return out;
  };
  EXPECT_EQ(run(37, 1), L"37");
  EXPECT_EQ(run(37, 2), L"37,38");
  EXPECT_EQ(run(37, 3), L"37,38,39");
  EXPECT_EQ(run(37, 4), L"37,38,39,40");
  EXPECT_EQ(run(59, 4), L"59,60,1,2");
  EXPECT_EQ(run(0, 1), L"?");
  std::wstring out;
  vx::stdlist::recursive(37, 2, 4, out);  // starting later writes only the later columns
  EXPECT_EQ(out, L",39,40");
}

TEST(HelperMln, UpperAndLowerListString) {
  EXPECT_EQ(mln::upper_list_string(sheet(1, 1, 14, 37)), L"O-37");
  EXPECT_EQ(mln::lower_list_string(sheet(1, 1, 14, 37)), L"M-37");
  EXPECT_EQ(mln::upper_list_string(sheet(1, 2, 14, 37)), L"O-37,38");  // the type stays
  EXPECT_EQ(mln::upper_list_string(sheet(1, 1, 21, 37)), L"A-37");     // "U" to "A" in the north
  EXPECT_EQ(mln::lower_list_string(sheet(1, 1, 1, 37)), L"A-37");      // the equator is not crossed
  EXPECT_EQ(mln::upper_list_string(sheet(1, 1, 14, 37, VX_STDLIST_SOUTH)), L"M-37");
  EXPECT_EQ(mln::lower_list_string(sheet(1, 1, 21, 37, VX_STDLIST_SOUTH)), L"V-37");
}

TEST(HelperMln, UpperListStringOfAnInvalidRecordIsQuestionMark) {
  EXPECT_EQ(mln::upper_list_string(sheet(1, 1, 14, 0)), L"?");
  EXPECT_EQ(mln::lower_list_string(sheet(3, 1, 14, 37)), L"?");
}

TEST(HelperMln, AppendIncrementedWithZeroCheck) {
  std::wstring out;
  mln::append_incremented_with_zero_check(0, out);  // 0 counts as 1; too short to look back
  EXPECT_EQ(out, L"1");
  out = L"x3,";
  mln::append_incremented_with_zero_check(3, out);  // equals the digit second to last
  EXPECT_EQ(out, L"x3,4");
  out = L"x3,";
  mln::append_incremented_with_zero_check(2, out);
  EXPECT_EQ(out, L"x3,2");
  out = L"1-";
  mln::append_incremented_with_zero_check(0, out);  // 0 becomes 1, which equals the digit
  EXPECT_EQ(out, L"1-2");
  out = L"Б-";
  mln::append_incremented_with_zero_check(5, out);  // a letter is no digit
  EXPECT_EQ(out, L"Б-5");
}

}  // namespace
