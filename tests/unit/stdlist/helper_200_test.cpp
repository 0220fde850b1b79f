#include "stdlist/helper_200.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "stdlist/level_common.h"

namespace {

namespace h200 = vx::stdlist::helper_200;
using vx::stdlist::INVALID_IDX;
using vx::stdlist::stdlist_string;

constexpr Tvx_stdlist_hemisphere N = VX_STDLIST_NORTH;
constexpr Tvx_stdlist_hemisphere S = VX_STDLIST_SOUTH;
constexpr std::uint64_t LETTER_A = 1, LETTER_M = 13, LETTER_N = 14, LETTER_O = 15, LETTER_T = 20,
                        LETTER_U = 21, LETTER_V = 22;

stdlist_string sheet200(std::uint64_t letter, std::uint64_t number, std::uint64_t roman,
                        Tvx_stdlist_type type = 1) {
  return stdlist_string(N, VX_STDLIST_SC_200, type, letter, number, 1, roman, 1, 1, 1, 1);
}

TEST(Helper200, RangeValidityAndPolarRow) {
  EXPECT_TRUE(h200::in_range(36));
  EXPECT_FALSE(h200::in_range(37));
  EXPECT_FALSE(h200::in_range(0));
  EXPECT_TRUE(h200::is_valid(sheet200(LETTER_N, 37, 6)));
  EXPECT_FALSE(h200::is_valid(sheet200(LETTER_N, 0, 6)));
  EXPECT_FALSE(h200::is_valid(sheet200(LETTER_N, 37, 37)));
  EXPECT_TRUE(h200::has_polar(13));
  EXPECT_TRUE(h200::has_polar(18));
  EXPECT_FALSE(h200::has_polar(12));
  EXPECT_FALSE(h200::has_polar(19));
}

TEST(Helper200, Numerals) {
  EXPECT_EQ(h200::string(4), L"IV");
  EXPECT_EQ(h200::letter_by_idx(28), L"XXVIII");
  EXPECT_EQ(h200::string(0), L"?");
  EXPECT_EQ(h200::string(37), L"?");
  EXPECT_EQ(h200::letter_by_idx_cyclic(0), L"?");
  EXPECT_EQ(h200::letter_by_idx_cyclic(37), L"I");
  EXPECT_EQ(h200::letter_by_idx_cyclic(36), L"XXXVI");
  EXPECT_EQ(h200::index(L"XXXVI"), 36u);
  EXPECT_EQ(h200::index(L"iv"), INVALID_IDX);
  EXPECT_EQ(h200::index(L"?"), INVALID_IDX);
}

TEST(Helper200, Edges) {
  EXPECT_TRUE(h200::roman_left_edge(1));
  EXPECT_TRUE(h200::roman_left_edge(31));
  EXPECT_FALSE(h200::roman_left_edge(2));
  EXPECT_TRUE(h200::roman_right_edge(6));
  EXPECT_FALSE(h200::roman_right_edge(5));
  EXPECT_TRUE(h200::roman_up_edge(6));
  EXPECT_FALSE(h200::roman_up_edge(7));
  EXPECT_TRUE(h200::roman_down_edge(31));
  EXPECT_FALSE(h200::roman_down_edge(30));
}

TEST(Helper200, NeighbourIndicesWrapInsideTheMillionSheet) {
  EXPECT_EQ(h200::get_left_roman_idx(1), 6u);
  EXPECT_EQ(h200::get_left_roman_idx(8), 7u);
  EXPECT_EQ(h200::get_right_roman_idx(6), 1u);
  EXPECT_EQ(h200::get_right_roman_idx(7), 8u);
  EXPECT_EQ(h200::get_up_roman_idx(3), 33u);
  EXPECT_EQ(h200::get_up_roman_idx(9), 3u);
  EXPECT_EQ(h200::get_down_roman_idx(33), 3u);
  EXPECT_EQ(h200::get_down_roman_idx(9), 15u);
  EXPECT_EQ(h200::get_right_roman_idx(36 + 6), INVALID_IDX);  // results are range-tested
}

TEST(Helper200, Lines) {
  EXPECT_EQ(h200::line(7), 2u);
  EXPECT_EQ(h200::line_min(7), 6u);
  EXPECT_EQ(h200::line_max(7), 12u);
}

TEST(Helper200, NextListIdxIsTheLineCycleOfSix) {
  EXPECT_EQ(h200::next_list_idx(7, 1), 8u);
  EXPECT_EQ(h200::next_list_idx(12, 1), 7u);
  EXPECT_EQ(h200::next_list_idx(7, -1), 12u);
  EXPECT_EQ(h200::next_list_idx(0, 1), INVALID_IDX);
}

TEST(Helper200, NextByTypeColumns) {
  EXPECT_EQ(h200::next(6, 1, 1), 1u);
  EXPECT_EQ(h200::next(1, -1, 1), 6u);
  EXPECT_EQ(h200::next(5, 1, 2), 1u);
  EXPECT_EQ(h200::next(2, -1, 3), 5u);
}

TEST(Helper200, VerticalNext) {
  EXPECT_EQ(h200::next(3, 1), 33u);  // top row, north: the bottom row of the sheet above
  EXPECT_EQ(h200::next(9, 1), 3u);
  EXPECT_EQ(h200::next(33, -1), 3u);   // (33 + 6) mod 36
  EXPECT_EQ(h200::next(30, -1), 36u);  // 0 becomes 36 for a step of 0 or less
  EXPECT_EQ(h200::next(36, 0), 36u);
  EXPECT_EQ(h200::next(12, 2), 0u);  // 0 stays for a positive step
}

TEST(Helper200, UpperAndLower) {
  EXPECT_EQ(h200::upper(2), 32u);
  EXPECT_EQ(h200::upper(8), 2u);
  EXPECT_EQ(h200::lower(31), 1u);
  EXPECT_EQ(h200::lower(30), 36u);
  EXPECT_EQ(h200::lower(8), 14u);
}

// ---- neighbours -------------------------------------------------------------------------------------

TEST(Helper200Neighbours, RightOfTheEastColumnIsTheNextMillionSheet) {
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 37, 6, 1), L"N-38-I");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 37, 5, 1), L"N-37-VI");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 37, 36, 1), L"N-38-XXXI");
}

TEST(Helper200Neighbours, LeftOfTheWestColumnIsThePreviousMillionSheet) {
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 37, 1, 1), L"N-36-VI");
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 37, 2, 1), L"N-37-I");
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 37, 31, 1), L"N-36-XXXVI");
}

TEST(Helper200Neighbours, DoubleSheet) {
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 37, 1, 2), L"N-36-V,VI");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 37, 1, 2), L"N-37-III,IV");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 37, 5, 2), L"N-38-I,II");    // V,VI ends at the edge
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 37, 2, 2), L"N-36-VI,37-I");  // I is crossed
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_N, 37, 1, 2), L"O-37-XXXI,XXXII");
  EXPECT_EQ(h200::get_lower_list_str(N, LETTER_N, 37, 31, 2), L"M-37-I,II");
}

TEST(Helper200Neighbours, TripleSheet) {
  // T-37-VI,38-I,II: left starts three columns west, right three columns east.
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_T, 37, 6, 3), L"T-37-III,IV,V");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_T, 37, 6, 3), L"T-38-III,IV,V");
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_T, 37, 3, 3), L"T-36-VI,37-I,II");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_T, 37, 4, 3), L"T-38-I,II,III");
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_T, 37, 6, 3), L"U-37-XXXVI,38-XXXI,XXXII");
}

TEST(Helper200Neighbours, UpperAndLowerCrossBands) {
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_N, 37, 1, 1), L"O-37-XXXI");
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_N, 37, 9, 1), L"N-37-III");
  EXPECT_EQ(h200::get_lower_list_str(N, LETTER_N, 37, 31, 1), L"M-37-I");
  EXPECT_EQ(h200::get_lower_list_str(N, LETTER_N, 37, 9, 1), L"N-37-XV");
  EXPECT_EQ(h200::get_lower_list_str(N, LETTER_N, 37, 30, 1), L"N-37-XXXVI");
}

TEST(Helper200Neighbours, EdgesOfTheMillionSheet) {
  // Every sheet of the border of N-37: its neighbour across the edge lies in the adjacent million sheet.
  for (std::uint64_t col = 1; col <= 6; ++col) {
    EXPECT_EQ(h200::get_upper_list_str(N, LETTER_N, 37, col, 1), L"O-37-" + h200::string(col + 30));
    EXPECT_EQ(h200::get_lower_list_str(N, LETTER_N, 37, col + 30, 1), L"M-37-" + h200::string(col));
  }
  for (std::uint64_t row = 0; row < 6; ++row) {
    EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 37, row * 6 + 1, 1), L"N-36-" + h200::string(row * 6 + 6));
    EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 37, row * 6 + 6, 1),
              L"N-38-" + h200::string(row * 6 + 1));
  }
}

TEST(Helper200Neighbours, DateLine) {
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_N, 60, 6, 1), L"N-1-I");
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 1, 1, 1), L"N-60-VI");
  EXPECT_EQ(h200::get_right_list_str(N, LETTER_T, 60, 5, 3), L"T-1-II,III,IV");
  EXPECT_EQ(h200::get_left_list_str(N, LETTER_N, 1, 1, 2), L"N-60-V,VI");
}

TEST(Helper200Neighbours, EquatorInTheNorth) {
  // Band "A" in the north: the sheet below the bottom row is band "A" again, in the same hemisphere.
  EXPECT_EQ(h200::get_lower_list_str(N, LETTER_A, 37, 33, 1), L"A-37-III");
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_A, 37, 3, 1), L"B-37-XXXIII");
}

TEST(Helper200Neighbours, EquatorInTheSouth) {
  EXPECT_EQ(h200::get_upper_list_str(S, LETTER_A, 37, 3, 1), L"A-37-XXXIII");
  EXPECT_EQ(h200::get_lower_list_str(S, LETTER_A, 37, 33, 1), L"B-37-III");
  // In the south the letters grow southward: above "N" lies "M".
  EXPECT_EQ(h200::get_upper_list_str(S, LETTER_N, 37, 1, 1), L"M-37-XXXI");
  EXPECT_EQ(h200::get_lower_list_str(S, LETTER_N, 37, 31, 1), L"O-37-I");
}

TEST(Helper200Neighbours, PastTheLastBands) {
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_U, 37, 1, 1), L"A-37-XXXI");  // "U" to "A" in the north
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_V, 37, 1, 1), L"A-37-XXXI");
  EXPECT_EQ(h200::get_lower_list_str(S, LETTER_U, 37, 31, 1), L"V-37-I");  // "U" to "V" in the south
  EXPECT_EQ(h200::get_lower_list_str(S, LETTER_V, 37, 31, 1), L"A-37-I");
}

TEST(Helper200Neighbours, OutOfRangeIndexGivesAnInvalidNumeral) {
  EXPECT_EQ(h200::get_upper_list_str(N, LETTER_N, 37, 0, 1), L"O-37-?");  // the letter still steps
  EXPECT_EQ(h200::get_lower_list_str(N, LETTER_N, 37, 40, 1), L"M-37-?");
}

TEST(Helper200Neighbours, NeighborListFillsAllFour) {
  std::wstring left, right, upper, lower;
  EXPECT_TRUE(h200::get_neighbor_list_str(N, LETTER_N, 37, 6, left, right, upper, lower, 1));
  EXPECT_EQ(left, L"N-37-V");
  EXPECT_EQ(right, L"N-38-I");
  EXPECT_EQ(upper, L"O-37-XXXVI");
  EXPECT_EQ(lower, L"N-37-XII");
}

TEST(Helper200Neighbours, NeighborListIsTrueEvenForBadInputBecauseNoTextComesOutEmpty) {
  std::wstring left, right, upper, lower;
  EXPECT_TRUE(h200::get_neighbor_list_str(N, 0, 0, 0, left, right, upper, lower, 1));
  EXPECT_EQ(left, L"?-?-?");
  EXPECT_FALSE(upper.empty());
}

TEST(Helper200Neighbours, FalseOnlyWhenOneTextIsEmpty) {
  EXPECT_TRUE(h200::all_filled(L"a", L"b", L"c", L"d"));
  EXPECT_FALSE(h200::all_filled(L"", L"b", L"c", L"d"));
  EXPECT_FALSE(h200::all_filled(L"a", L"b", L"c", L""));
}

TEST(Helper200, UpAndDownListNumStr) {
  EXPECT_EQ(h200::get_up_list_num_str(LETTER_N, 37, 3), L"O-37");
  EXPECT_EQ(h200::get_up_list_num_str(LETTER_N, 37, 9), L"N-37");
  EXPECT_EQ(h200::get_down_list_num_str(LETTER_N, 37, 33), L"M-37");
  EXPECT_EQ(h200::get_down_list_num_str(LETTER_A, 37, 33), L"?-37");  // no hemisphere rule
}

// ---- designation ------------------------------------------------------------------------------------

TEST(Helper200, FillStrOnlyAtItsScale) {
  std::wstring out;
  h200::fill_str(sheet200(LETTER_N, 37, 6, 2), out);
  EXPECT_EQ(out, L"N-37-VI,38-I");
  out.clear();
  h200::fill_str(stdlist_string(N, VX_STDLIST_SC_100, 1, LETTER_N, 37, 1, 6, 1, 1, 1, 1), out);
  EXPECT_EQ(out, L"");
}

TEST(Helper200, RecursiveResults) {
  const auto run = [](std::uint64_t number, std::uint64_t roman, int type) {
    std::wstring out = L"N-" + std::to_wstring(number);
    h200::recursive(number, roman, 0, 0, type, out);
    return out;
  };
  EXPECT_EQ(run(37, 5, 1), L"N-37-V");
  EXPECT_EQ(run(37, 5, 2), L"N-37-V,VI");
  EXPECT_EQ(run(37, 6, 2), L"N-37-VI,38-I");
  EXPECT_EQ(run(37, 5, 3), L"N-37-V,VI,38-I");
  EXPECT_EQ(run(37, 6, 3), L"N-37-VI,38-I,II");
  EXPECT_EQ(run(60, 6, 2), L"N-60-VI,1-I");
  EXPECT_EQ(run(37, 0, 2), L"N-37-?,?");
}

TEST(Helper200, FillStrOldWritesTheRomanListAfterLetterAndNumber) {
  std::wstring out = L"N-37";
  h200::fill_str_old(sheet200(LETTER_N, 37, 5, 3), out);
  EXPECT_EQ(out, L"N-37-V,VI,38-I");
  out = L"T-60";
  h200::fill_str_old(sheet200(LETTER_T, 60, 6, 2), out);
  EXPECT_EQ(out, L"T-60-VI,1-I");
  out = L"N-37";
  h200::fill_str_old(sheet200(LETTER_N, 37, 2, 1), out);  // the counter returned to 0 after each call
  EXPECT_EQ(out, L"N-37-II");
}

TEST(Helper200, FillStrOldDoesNothingAtAnotherScale) {
  std::wstring out = L"N-37";
  h200::fill_str_old(stdlist_string(N, VX_STDLIST_SC_MLN, 2, LETTER_N, 37, 1, 5, 1, 1, 1, 1), out);
  EXPECT_EQ(out, L"N-37");
}

TEST(ParseOutLastRoman, LastNumeralOfTheList) {
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-V"), 5u);
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-V,VI"), 6u);
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-VI,38-I"), 1u);  // "VI,38" + "I" is "VI,I"
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-VI,38-I,II"), 2u);
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-V,VI,"), 6u);
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-?"), INVALID_IDX);
}

TEST(ParseOutLastRoman, OneDigitColumnIsNotProvidedFor) {
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-7-VI,8-I"), 7u);  // "VI,8" + "I" becomes "VII"
}

TEST(ParseOutLastRoman, TakesUpToFourItems) {
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-I,II,III,IV,V"), 4u);
  EXPECT_EQ(vx::stdlist::parse_out_last_roman(L"N-37-I,II,x,y"), 2u);
}

TEST(ParseOutLastRoman, FewerThanThreeFieldsThrowOutOfRange) {
  try {
    vx::stdlist::parse_out_last_roman(L"N-37");
    FAIL() << "no exception";
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
  }
  EXPECT_THROW(vx::stdlist::parse_out_last_roman(L""), std::out_of_range);
}

TEST(Helper200, FillStrOldRecoversFromATextWithoutLetterAndNumber) {
  std::wstring out;
  EXPECT_THROW(h200::fill_str_old(sheet200(LETTER_N, 37, 5, 2), out), std::out_of_range);
  out = L"N-37";
  h200::fill_str_old(sheet200(LETTER_N, 37, 5, 2), out);
  EXPECT_EQ(out, L"N-37-V,VI");
}

}  // namespace
