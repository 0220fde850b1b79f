// The flat functions of the sheet record, driven as a host drives them: through handles and a sink.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "sink_rows.h"
#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

namespace {

using rows_t = std::vector<std::wstring>;
using vxk_test::designation;
using vxk_test::fetch;

struct sheet_deleter {
  void operator()(Tvx_stdlist_string* s) const { vx_stdlist_destroy(s); }
};
using sheet_ptr = std::unique_ptr<Tvx_stdlist_string, sheet_deleter>;

sheet_ptr make_sheet() {
  return sheet_ptr(vx_stdlist_create());
}

// A sheet at `scale` and `type` in band `letter`, column `number`.
sheet_ptr make_sheet(Tvx_stdlist_scale scale, Tvx_stdlist_type type, wchar_t letter, uint64_t number) {
  sheet_ptr s = make_sheet();
  vx_stdlist_init(s.get(), scale, type, VX_STDLIST_NORTH);
  vx_stdlist_set_mln_letter(s.get(), letter);
  vx_stdlist_set_mln_number(s.get(), number);
  return s;
}

rows_t numbers(int count) {
  rows_t r;
  for (int i = 1; i <= count; ++i) r.push_back(std::to_wstring(i));
  return r;
}

// ---- lists --------------------------------------------------------------------------------------

TEST(StdlistFetch, Hemispheres) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_hemispheres), (rows_t{L"N", L"S"}));
}

TEST(StdlistFetch, ScalesDeliverEightRowsTheFirstEmpty) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_scales), (rows_t{L"", L"1:1000000", L"1:500000", L"1:200000", L"1:100000",
                                                    L"1:50000", L"1:25000", L"1:10000"}));
}

TEST(StdlistFetch, ScaleStrFeedsTheOneTextOfAListedScale) {
  const auto one = [](Tvx_stdlist_scale s) {
    return fetch([s](Ivx_string_adp* sink) { vx_stdlist_fetch_scale_str(s, sink); });
  };
  EXPECT_EQ(one(1), rows_t{L"1:1000000"});
  EXPECT_EQ(one(2), rows_t{L"1:500000"});
  EXPECT_EQ(one(4), rows_t{L"1:200000"});
  EXPECT_EQ(one(5), rows_t{L"1:100000"});
  EXPECT_EQ(one(6), rows_t{L"1:50000"});
  EXPECT_EQ(one(7), rows_t{L"1:25000"});
  EXPECT_EQ(one(8), rows_t{L"1:10000"});
}

TEST(StdlistFetch, ScaleStrFeedsNothingForScale3OrOutsideTheList) {
  for (Tvx_stdlist_scale s : {0, 3, 9, -1, 100}) {
    EXPECT_TRUE(fetch([s](Ivx_string_adp* sink) { vx_stdlist_fetch_scale_str(s, sink); }).empty()) << s;
  }
}

TEST(StdlistFetch, TypesInValueOrder) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_types),
            (rows_t{L"Стандартный лист", L"Сдвоенный лист", L"Строенный лист", L"Счетверенный лист"}));
}

TEST(StdlistFetch, MillionLettersAToV) {
  rows_t expected;
  for (wchar_t c : std::wstring(L"ABCDEFGHIJKLMNOPQRSTUV")) expected.emplace_back(1, c);
  EXPECT_EQ(fetch(vx_stdlist_fetch_mln_letters), expected);
}

TEST(StdlistFetch, MillionNumbers1To60) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_mln_numbers), numbers(60));
}

TEST(StdlistFetch, Letters500) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_500_letters), (rows_t{L"А", L"Б", L"В", L"Г"}));
}

TEST(StdlistFetch, Romans200) {
  const rows_t r = fetch(vx_stdlist_fetch_200_romans);
  ASSERT_EQ(r.size(), 36u);
  EXPECT_EQ(r[0], L"I");
  EXPECT_EQ(r[3], L"IV");
  EXPECT_EQ(r[8], L"IX");
  EXPECT_EQ(r[17], L"XVIII");
  EXPECT_EQ(r[27], L"XXVIII");
  EXPECT_EQ(r[35], L"XXXVI");
}

TEST(StdlistFetch, Numbers100From1To144) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_100_numbers), numbers(144));
}

TEST(StdlistFetch, Letters50) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_50_letters), (rows_t{L"А", L"Б", L"В", L"Г"}));
}

TEST(StdlistFetch, Letters25AreSmall) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_25_letters), (rows_t{L"а", L"б", L"в", L"г"}));
}

TEST(StdlistFetch, Numbers10) {
  EXPECT_EQ(fetch(vx_stdlist_fetch_10_numbers), numbers(4));
}

// ---- life and the whole record --------------------------------------------------------------------

TEST(StdlistRecord, NewRecordIsValidAndPrintsA1) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_valid(s.get()));
  EXPECT_EQ(designation(s.get()), L"A-1");
  EXPECT_EQ(vx_stdlist_get_hemisphere(s.get()), 1);
  EXPECT_EQ(vx_stdlist_get_scale(s.get()), 1);
  EXPECT_EQ(vx_stdlist_get_type(s.get()), 1);
  EXPECT_EQ(vx_stdlist_get_mln_letter_idx(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_mln_number(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_500_letter_idx(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_200_roman_idx(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_100_number(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_50_letter_idx(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_25_letter_idx(s.get()), 1u);
  EXPECT_EQ(vx_stdlist_get_10_number(s.get()), 1u);
}

TEST(StdlistRecord, DestroyIgnoresNull) {
  vx_stdlist_destroy(nullptr);
}

TEST(StdlistRecord, AssignCopiesAllElevenFields) {
  sheet_ptr a = make_sheet(VX_STDLIST_SC_200, VX_STDLIST_TP_TPL, L'T', 37);
  vx_stdlist_init(a.get(), VX_STDLIST_SC_200, VX_STDLIST_TP_TPL, VX_STDLIST_SOUTH);
  vx_stdlist_set_500_letter_idx(a.get(), 3);
  vx_stdlist_set_200_roman_idx(a.get(), 6);
  vx_stdlist_set_100_number(a.get(), 99);
  vx_stdlist_set_50_letter_idx(a.get(), 2);
  vx_stdlist_set_25_letter_idx(a.get(), 4);
  vx_stdlist_set_10_number(a.get(), 3);
  sheet_ptr b = make_sheet();
  EXPECT_FALSE(vx_stdlist_equal(a.get(), b.get()));
  vx_stdlist_assign(b.get(), a.get());
  EXPECT_TRUE(vx_stdlist_equal(a.get(), b.get()));
  EXPECT_EQ(vx_stdlist_get_hemisphere(b.get()), VX_STDLIST_SOUTH);
  EXPECT_EQ(vx_stdlist_get_type(b.get()), VX_STDLIST_TP_TPL);
  EXPECT_EQ(vx_stdlist_get_10_number(b.get()), 3u);
  EXPECT_EQ(designation(b.get()), designation(a.get()));
}

TEST(StdlistRecord, EqualLooksAtCoordinatesOffTheSheetsChain) {
  sheet_ptr a = make_sheet();
  sheet_ptr b = make_sheet();
  EXPECT_TRUE(vx_stdlist_equal(a.get(), b.get()));
  vx_stdlist_set_10_number(b.get(), 4);  // not on the chain of a 1:1,000,000 sheet
  EXPECT_EQ(designation(a.get()), designation(b.get()));
  EXPECT_FALSE(vx_stdlist_equal(a.get(), b.get()));
}

TEST(StdlistRecord, InitDefaultResetsToWhatCreateSets) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_100, VX_STDLIST_TP_DBL, L'N', 37);
  vx_stdlist_set_100_number(s.get(), 12);
  vx_stdlist_init_default(s.get());
  sheet_ptr fresh = make_sheet();
  EXPECT_TRUE(vx_stdlist_equal(s.get(), fresh.get()));
}

TEST(StdlistRecord, InitWithScale3IsTrueButTheRecordIsInvalid) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_init(s.get(), VX_STDLIST_SC_300, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH));
  EXPECT_FALSE(vx_stdlist_valid(s.get()));
  EXPECT_STREQ(vx_stdlist_scale_tostr(s.get()), L"?");
  EXPECT_EQ(designation(s.get()), L"");
}

TEST(StdlistRecord, InitWithType3AtScale1KeepsThePreviousType) {
  sheet_ptr s = make_sheet();
  ASSERT_TRUE(vx_stdlist_init(s.get(), VX_STDLIST_SC_MLN, VX_STDLIST_TP_DBL, VX_STDLIST_NORTH));
  EXPECT_TRUE(vx_stdlist_init(s.get(), VX_STDLIST_SC_MLN, VX_STDLIST_TP_TPL, VX_STDLIST_NORTH));
  EXPECT_EQ(vx_stdlist_get_type(s.get()), VX_STDLIST_TP_DBL);
}

TEST(StdlistRecord, InitRefusesBadArgumentsAndChangesNothing) {
  sheet_ptr s = make_sheet();
  sheet_ptr fresh = make_sheet();
  EXPECT_FALSE(vx_stdlist_init(s.get(), 2, 1, 3));
  EXPECT_FALSE(vx_stdlist_init(s.get(), 2, 1, 0));
  EXPECT_FALSE(vx_stdlist_init(s.get(), 2, 5, 1));
  EXPECT_FALSE(vx_stdlist_init(s.get(), 2, 0, 1));
  EXPECT_FALSE(vx_stdlist_init(s.get(), 0, 1, 1));
  EXPECT_FALSE(vx_stdlist_init(s.get(), 10, 1, 1));
  EXPECT_TRUE(vx_stdlist_equal(s.get(), fresh.get()));
}

TEST(StdlistRecord, InitAcceptsScale9WhichIsNeverValid) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_init(s.get(), VX_STDLIST_SC_END, VX_STDLIST_TP_QRP, VX_STDLIST_SOUTH));
  EXPECT_EQ(vx_stdlist_get_scale(s.get()), 9);
  EXPECT_EQ(vx_stdlist_get_type(s.get()), VX_STDLIST_TP_QRP);
  EXPECT_EQ(vx_stdlist_get_hemisphere(s.get()), VX_STDLIST_SOUTH);
  EXPECT_FALSE(vx_stdlist_valid(s.get()));
  EXPECT_STREQ(vx_stdlist_scale_tostr(s.get()), L"?");
}

TEST(StdlistRecord, InitStoresTypesByTheTableOfScales) {
  struct row {
    Tvx_stdlist_scale scale;
    bool allowed[4];
  };
  const row table[] = {
      {1, {true, true, false, true}}, {2, {true, true, false, true}}, {3, {true, false, false, false}},
      {4, {true, true, true, false}}, {5, {true, true, false, true}}, {6, {true, true, false, true}},
      {7, {true, true, false, true}}, {8, {true, true, false, true}}, {9, {true, true, false, true}}};
  for (const row& r : table) {
    for (Tvx_stdlist_type t = 1; t <= 4; ++t) {
      sheet_ptr s = make_sheet();
      vx_stdlist_init(s.get(), VX_STDLIST_SC_200, VX_STDLIST_TP_TPL, 1);  // 3 as the previous type
      if (t == 3) vx_stdlist_init(s.get(), VX_STDLIST_SC_MLN, VX_STDLIST_TP_DBL, 1);
      const Tvx_stdlist_type before = vx_stdlist_get_type(s.get());
      EXPECT_TRUE(vx_stdlist_init(s.get(), r.scale, t, 1));
      EXPECT_EQ(vx_stdlist_get_type(s.get()), r.allowed[t - 1] ? t : before) << r.scale << " " << t;
    }
  }
}

TEST(StdlistRecord, TypeIsNotLookedAtForValidity) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_MLN, VX_STDLIST_TP_QRP, L'A', 37);
  EXPECT_TRUE(vx_stdlist_valid(s.get()));  // a quadruple at the equator is a valid record
}

TEST(StdlistRecord, HemisphereTexts) {
  sheet_ptr s = make_sheet();
  EXPECT_EQ(vx_stdlist_hemisphere_tostr(s.get()), L'N');
  vx_stdlist_init(s.get(), 1, 1, VX_STDLIST_SOUTH);
  EXPECT_EQ(vx_stdlist_hemisphere_tostr(s.get()), L'S');
}

TEST(StdlistRecord, ScaleTexts) {
  sheet_ptr s = make_sheet();
  const wchar_t* expected[] = {L"?",        L"1:1000000", L"1:500000", L"?",       L"1:200000",
                               L"1:100000", L"1:50000",   L"1:25000",  L"1:10000", L"?"};
  for (Tvx_stdlist_scale sc = 1; sc <= 9; ++sc) {
    vx_stdlist_init(s.get(), sc, 1, 1);
    EXPECT_STREQ(vx_stdlist_scale_tostr(s.get()), expected[sc]) << sc;
  }
}

TEST(StdlistRecord, TypeTexts) {
  sheet_ptr s = make_sheet();
  EXPECT_STREQ(vx_stdlist_type_tostr(s.get()), L"Стандартный лист");
  vx_stdlist_init(s.get(), 1, 2, 1);
  EXPECT_STREQ(vx_stdlist_type_tostr(s.get()), L"Сдвоенный лист");
  vx_stdlist_init(s.get(), 4, 3, 1);
  EXPECT_STREQ(vx_stdlist_type_tostr(s.get()), L"Строенный лист");
  vx_stdlist_init(s.get(), 1, 4, 1);
  EXPECT_STREQ(vx_stdlist_type_tostr(s.get()), L"Счетверенный лист");
}

// Supported types by band letter: element i is type i + 1.
std::vector<bool> supported(Tvx_stdlist_scale scale, wchar_t letter) {
  sheet_ptr s = make_sheet(scale, 1, letter, 37);
  bool types[4] = {false, true, true, true};
  vx_stdlist_fetch_supported_types(s.get(), types);
  return {types[0], types[1], types[2], types[3]};
}

TEST(StdlistRecord, SupportedTypesAt200ByBand) {
  EXPECT_EQ(supported(4, L'S'), (std::vector<bool>{true, true, false, false}));
  EXPECT_EQ(supported(4, L'T'), (std::vector<bool>{true, false, true, false}));
  EXPECT_EQ(supported(4, L'P'), (std::vector<bool>{true, true, false, false}));
  EXPECT_EQ(supported(4, L'O'), (std::vector<bool>{true, false, false, false}));
  EXPECT_EQ(supported(4, L'V'), (std::vector<bool>{true, false, true, false}));
}

TEST(StdlistRecord, SupportedTypesAtOtherScalesByBand) {
  for (Tvx_stdlist_scale sc : {1, 2, 5, 6, 7, 8}) {
    EXPECT_EQ(supported(sc, L'N'), (std::vector<bool>{true, false, false, false})) << sc;
    EXPECT_EQ(supported(sc, L'P'), (std::vector<bool>{true, true, false, false})) << sc;
    EXPECT_EQ(supported(sc, L'S'), (std::vector<bool>{true, true, false, false})) << sc;
    EXPECT_EQ(supported(sc, L'T'), (std::vector<bool>{true, true, false, true})) << sc;
    EXPECT_EQ(supported(sc, L'V'), (std::vector<bool>{true, true, false, true})) << sc;
  }
}

TEST(StdlistRecord, MidMeridianOfMillionSheets) {
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 1, L'N', 37).get()), 39.0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 2, L'N', 37).get()), 42.0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 4, L'N', 37).get()), 48.0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 1, L'N', 1).get()), -177.0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 1, L'N', 60).get()), 177.0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 2, L'N', 60).get()), 180.0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(make_sheet(1, 4, L'N', 60).get()), 186.0);
}

TEST(StdlistRecord, MidMeridianIgnoresTheHemisphere) {
  sheet_ptr s = make_sheet(1, 1, L'N', 37);
  vx_stdlist_init(s.get(), 1, 1, VX_STDLIST_SOUTH);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), 39.0);
}

TEST(StdlistRecord, MidMeridianOfNumberZeroIsUnchecked) {
  sheet_ptr s = make_sheet();
  vx_stdlist_set_mln_number(s.get(), 0);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), -183.0);
}

TEST(StdlistRecord, ToStringFeedsExactlyOnceAlsoForAnEmptyText) {
  sheet_ptr s = make_sheet();
  vx_stdlist_init(s.get(), VX_STDLIST_SC_300, 1, 1);
  vxk_test::sink_rows r;
  vx_stdlist_to_string(s.get(), r.sink());
  EXPECT_EQ(r.rows(), rows_t{L""});
  EXPECT_EQ(r.nulls(), 0);
}

TEST(StdlistRecord, ToStringTwiceGivesTheSameText) {
  sheet_ptr s = make_sheet(1, 4, L'N', 59);
  vxk_test::sink_rows r;
  vx_stdlist_to_string(s.get(), r.sink());
  vx_stdlist_to_string(s.get(), r.sink());
  EXPECT_EQ(r.rows(), (rows_t{L"N-59,60,1,2", L"N-59,60,1,2"}));
}

TEST(StdlistRecord, HemisphereIsNotPrinted) {
  sheet_ptr s = make_sheet(1, 1, L'N', 37);
  vx_stdlist_init(s.get(), 1, 1, VX_STDLIST_SOUTH);
  EXPECT_EQ(designation(s.get()), L"N-37");
}

// ---- designations of million sheets ----------------------------------------------------------------

struct mln_cell {
  uint64_t number;
  Tvx_stdlist_type type;
  const wchar_t* text;
};

void PrintTo(const mln_cell& c, std::ostream* os) {
  *os << vx::strconv::wide_to_utf8(c.text);
}

class StdlistMillionText : public ::testing::TestWithParam<mln_cell> {};

TEST_P(StdlistMillionText, PrintsTheTableCell) {
  const mln_cell& c = GetParam();
  sheet_ptr s = make_sheet(VX_STDLIST_SC_MLN, c.type, L'N', c.number);
  ASSERT_EQ(vx_stdlist_get_type(s.get()), c.type);
  EXPECT_EQ(designation(s.get()), c.text);
}

INSTANTIATE_TEST_SUITE_P(Cells, StdlistMillionText,
                         ::testing::Values(mln_cell{37, 1, L"N-37"}, mln_cell{37, 2, L"N-37,38"},
                                           mln_cell{37, 4, L"N-37,38,39,40"}, mln_cell{59, 1, L"N-59"},
                                           mln_cell{59, 2, L"N-59,60"}, mln_cell{59, 4, L"N-59,60,1,2"},
                                           mln_cell{60, 1, L"N-60"}, mln_cell{60, 2, L"N-60,1"},
                                           mln_cell{60, 4, L"N-60,1,2,3"}));

TEST(StdlistMillionText, InvalidLevelsPrintQuestionMarks) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_MLN, 1, L'N', 37);
  vx_stdlist_set_mln_number(s.get(), 61);
  EXPECT_EQ(designation(s.get()), L"N-?");
  vx_stdlist_set_mln_letter(s.get(), L'Z');
  EXPECT_EQ(designation(s.get()), L"?-?");
}

// ---- million level --------------------------------------------------------------------------------

TEST(StdlistMln, LetterByIndex) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_mln_letter_idx(s.get(), 14));
  EXPECT_EQ(vx_stdlist_get_mln_letter_idx(s.get()), 14u);
  EXPECT_EQ(vx_stdlist_get_mln_letter(s.get()), L'N');
  EXPECT_TRUE(vx_stdlist_set_mln_letter_idx(s.get(), 22));
  EXPECT_EQ(vx_stdlist_get_mln_letter(s.get()), L'V');
  EXPECT_FALSE(vx_stdlist_set_mln_letter_idx(s.get(), 23));
  EXPECT_EQ(vx_stdlist_get_mln_letter_idx(s.get()), 0u);
  EXPECT_EQ(vx_stdlist_get_mln_letter(s.get()), L'?');
}

TEST(StdlistMln, SetLetterZOrQuestionMarkFailsAndInvalidates) {
  for (wchar_t bad : {L'Z', L'?', L'a', L'W'}) {
    sheet_ptr s = make_sheet();
    EXPECT_FALSE(vx_stdlist_set_mln_letter(s.get(), bad));
    EXPECT_EQ(vx_stdlist_get_mln_letter_idx(s.get()), 0u);
    EXPECT_FALSE(vx_stdlist_valid(s.get()));
  }
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_mln_letter(s.get(), L'N'));
  EXPECT_EQ(vx_stdlist_get_mln_letter_idx(s.get()), 14u);
}

TEST(StdlistMln, Number) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_mln_number(s.get(), 60));
  EXPECT_EQ(vx_stdlist_get_mln_number(s.get()), 60u);
  EXPECT_EQ(fetch([&](Ivx_string_adp* k) { vx_stdlist_get_mln_number_str(s.get(), k); }), rows_t{L"60"});
  EXPECT_FALSE(vx_stdlist_set_mln_number(s.get(), 61));
  EXPECT_EQ(vx_stdlist_get_mln_number(s.get()), 0u);
  EXPECT_EQ(fetch([&](Ivx_string_adp* k) { vx_stdlist_get_mln_number_str(s.get(), k); }), rows_t{L"?"});
}

TEST(StdlistMln, NumberStrOutOfRangeResetsTheNumber) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_mln_number_str(s.get(), L"37"));
  EXPECT_EQ(vx_stdlist_get_mln_number(s.get()), 37u);
  EXPECT_FALSE(vx_stdlist_set_mln_number_str(s.get(), L"61"));
  EXPECT_EQ(vx_stdlist_get_mln_number(s.get()), 0u);
  vx_stdlist_set_mln_number(s.get(), 5);
  EXPECT_FALSE(vx_stdlist_set_mln_number_str(s.get(), L"abc"));
  EXPECT_EQ(vx_stdlist_get_mln_number(s.get()), 0u);
  EXPECT_FALSE(vx_stdlist_set_mln_number_str(s.get(), nullptr));
}

// ---- finer levels ---------------------------------------------------------------------------------

TEST(Stdlist500, IndexLetterAndRange) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_500_letter_idx(s.get(), 4));
  EXPECT_EQ(vx_stdlist_get_500_letter_idx(s.get()), 4u);
  EXPECT_EQ(vx_stdlist_get_500_letter(s.get()), L'Г');
  EXPECT_FALSE(vx_stdlist_set_500_letter_idx(s.get(), 5));
  EXPECT_EQ(vx_stdlist_get_500_letter_idx(s.get()), 0u);
  EXPECT_EQ(vx_stdlist_get_500_letter(s.get()), L'?');
}

TEST(Stdlist500, SetLetterDoesNotLookAtTheScale) {
  sheet_ptr s = make_sheet();  // scale 1:1,000,000
  EXPECT_TRUE(vx_stdlist_set_500_letter(s.get(), L'В'));
  EXPECT_EQ(vx_stdlist_get_500_letter_idx(s.get()), 3u);
  EXPECT_FALSE(vx_stdlist_set_500_letter(s.get(), L'A'));  // Latin A is not a letter of this level
  EXPECT_EQ(vx_stdlist_get_500_letter_idx(s.get()), 0u);
}

TEST(Stdlist200, RomanIndexAndText) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_200_roman_idx(s.get(), 36));
  EXPECT_EQ(vx_stdlist_get_200_roman_idx(s.get()), 36u);
  EXPECT_EQ(fetch([&](Ivx_string_adp* k) { vx_stdlist_get_200_roman(s.get(), k); }), rows_t{L"XXXVI"});
  EXPECT_FALSE(vx_stdlist_set_200_roman_idx(s.get(), 37));
  EXPECT_EQ(vx_stdlist_get_200_roman_idx(s.get()), 0u);
  EXPECT_EQ(fetch([&](Ivx_string_adp* k) { vx_stdlist_get_200_roman(s.get(), k); }), rows_t{L"?"});
}

TEST(Stdlist200, SetRomanSearchesExactly) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_200_roman(s.get(), L"XIV"));
  EXPECT_EQ(vx_stdlist_get_200_roman_idx(s.get()), 14u);
  EXPECT_FALSE(vx_stdlist_set_200_roman(s.get(), L"xiv"));
  EXPECT_EQ(vx_stdlist_get_200_roman_idx(s.get()), 0u);
  EXPECT_FALSE(vx_stdlist_set_200_roman(s.get(), L"?"));
  EXPECT_FALSE(vx_stdlist_set_200_roman(s.get(), L"XXXVII"));
}

TEST(Stdlist100, Number) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_100_number(s.get(), 144));
  EXPECT_EQ(vx_stdlist_get_100_number(s.get()), 144u);
  EXPECT_EQ(fetch([&](Ivx_string_adp* k) { vx_stdlist_get_100_number_str(s.get(), k); }), rows_t{L"144"});
  EXPECT_FALSE(vx_stdlist_set_100_number(s.get(), 145));
  EXPECT_EQ(vx_stdlist_get_100_number(s.get()), 0u);
  EXPECT_EQ(fetch([&](Ivx_string_adp* k) { vx_stdlist_get_100_number_str(s.get(), k); }), rows_t{L"?"});
}

TEST(Stdlist100, NumberStrOutOfRangeKeepsThePreviousNumber) {
  sheet_ptr s = make_sheet();
  vx_stdlist_set_100_number_str(s.get(), L"12");
  EXPECT_EQ(vx_stdlist_get_100_number(s.get()), 12u);
  vx_stdlist_set_100_number_str(s.get(), L"145");
  EXPECT_EQ(vx_stdlist_get_100_number(s.get()), 12u);
  vx_stdlist_set_100_number_str(s.get(), L"0");
  vx_stdlist_set_100_number_str(s.get(), L"x");
  EXPECT_EQ(vx_stdlist_get_100_number(s.get()), 12u);
}

TEST(Stdlist50, IndexAndLetter) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_50_letter_idx(s.get(), 2));
  EXPECT_EQ(vx_stdlist_get_50_letter_idx(s.get()), 2u);
  EXPECT_EQ(vx_stdlist_get_50_letter(s.get()), L'Б');
  EXPECT_FALSE(vx_stdlist_set_50_letter_idx(s.get(), 0));
  EXPECT_EQ(vx_stdlist_get_50_letter(s.get()), L'?');
}

TEST(Stdlist50, SetLetterReturnsTheIndexStored) {
  sheet_ptr s = make_sheet();
  EXPECT_EQ(vx_stdlist_set_50_letter(s.get(), L'Г'), 4u);
  EXPECT_EQ(vx_stdlist_get_50_letter_idx(s.get()), 4u);
  EXPECT_EQ(vx_stdlist_set_50_letter(s.get(), L'г'), 0u);
  EXPECT_EQ(vx_stdlist_get_50_letter_idx(s.get()), 0u);
}

TEST(Stdlist25, SetIndexAcceptsAnyValueAndTheGetterFilters) {
  sheet_ptr s = make_sheet();
  vx_stdlist_init(s.get(), VX_STDLIST_SC_25, 1, 1);
  EXPECT_TRUE(vx_stdlist_valid(s.get()));
  vx_stdlist_set_25_letter_idx(s.get(), 9);
  EXPECT_EQ(vx_stdlist_get_25_letter_idx(s.get()), 0u);
  EXPECT_EQ(vx_stdlist_get_25_letter(s.get()), L'?');
  EXPECT_FALSE(vx_stdlist_valid(s.get()));
  // The value was stored as given: the record differs from one holding INVALID_IDX.
  sheet_ptr t = make_sheet();
  vx_stdlist_init(t.get(), VX_STDLIST_SC_25, 1, 1);
  vx_stdlist_set_25_letter_idx(t.get(), 0);
  EXPECT_FALSE(vx_stdlist_equal(s.get(), t.get()));
}

TEST(Stdlist25, LetterSetterReturnsTheIndexStored) {
  sheet_ptr s = make_sheet();
  EXPECT_EQ(vx_stdlist_set_25_letter(s.get(), L'в'), 3u);
  EXPECT_EQ(vx_stdlist_get_25_letter_idx(s.get()), 3u);
  EXPECT_EQ(vx_stdlist_get_25_letter(s.get()), L'в');
  EXPECT_EQ(vx_stdlist_set_25_letter(s.get(), L'В'), 0u);
  EXPECT_EQ(vx_stdlist_get_25_letter_idx(s.get()), 0u);
}

TEST(Stdlist10, NumberAndItsCharacter) {
  sheet_ptr s = make_sheet();
  EXPECT_TRUE(vx_stdlist_set_10_number(s.get(), 4));
  EXPECT_EQ(vx_stdlist_get_10_number(s.get()), 4u);
  EXPECT_FALSE(vx_stdlist_set_10_number(s.get(), 5));
  EXPECT_EQ(vx_stdlist_get_10_number(s.get()), 0u);
}

TEST(Stdlist10, NumberStrReturnsACharacterAndFeedsNothing) {
  sheet_ptr s = make_sheet();
  vx_stdlist_set_10_number(s.get(), 3);
  EXPECT_EQ(vx_stdlist_get_10_number_str(s.get()), L'3');
  vx_stdlist_set_10_number(s.get(), 7);
  EXPECT_EQ(vx_stdlist_get_10_number_str(s.get()), L'?');
}

TEST(Stdlist10, NumberStrSetterParsesOneCharacter) {
  sheet_ptr s = make_sheet();
  EXPECT_EQ(vx_stdlist_set_10_number_str(s.get(), L'2'), 2u);
  EXPECT_EQ(vx_stdlist_get_10_number(s.get()), 2u);
  EXPECT_EQ(vx_stdlist_set_10_number_str(s.get(), L'5'), 0u);
  EXPECT_EQ(vx_stdlist_get_10_number(s.get()), 0u);
  EXPECT_EQ(vx_stdlist_set_10_number_str(s.get(), L'x'), 0u);
}

// ---- validity along the chain of each scale ---------------------------------------------------------

TEST(StdlistValidity, EachScaleTestsItsOwnChainOnly) {
  sheet_ptr s = make_sheet();
  vx_stdlist_set_10_number(s.get(), 0);  // off every chain but the 1:10,000 one
  for (Tvx_stdlist_scale sc : {1, 2, 4, 5, 6, 7}) {
    vx_stdlist_init(s.get(), sc, 1, 1);
    EXPECT_TRUE(vx_stdlist_valid(s.get())) << sc;
  }
  vx_stdlist_init(s.get(), 8, 1, 1);
  EXPECT_FALSE(vx_stdlist_valid(s.get()));
}

TEST(StdlistValidity, ParentsAreTested) {
  sheet_ptr s = make_sheet();
  vx_stdlist_set_100_number(s.get(), 0);
  for (Tvx_stdlist_scale sc : {5, 6, 7, 8}) {
    vx_stdlist_init(s.get(), sc, 1, 1);
    EXPECT_FALSE(vx_stdlist_valid(s.get())) << sc;
  }
  for (Tvx_stdlist_scale sc : {1, 2, 4}) {
    vx_stdlist_init(s.get(), sc, 1, 1);
    EXPECT_TRUE(vx_stdlist_valid(s.get())) << sc;
  }
  vx_stdlist_set_100_number(s.get(), 1);
  vx_stdlist_set_mln_number(s.get(), 0);
  for (Tvx_stdlist_scale sc : {1, 2, 4, 5, 6, 7, 8}) {
    vx_stdlist_init(s.get(), sc, 1, 1);
    EXPECT_FALSE(vx_stdlist_valid(s.get())) << sc;
  }
}

// ---- designations at every scale: the cells of the table of texts ------------------------------------

struct text_cell {
  Tvx_stdlist_scale scale;
  Tvx_stdlist_type type;
  uint64_t number;      // million column
  wchar_t letter500;    // 1:500,000 letter, or 0
  uint64_t roman;       // 1:200,000 index, or 0
  uint64_t number100;   // or 0
  wchar_t letter50;     // or 0
  wchar_t letter25;     // or 0
  wchar_t number10;     // or 0
  const wchar_t* text;  // expected designation
};

// Builds the sheet of a cell through the flat setters, as a host would.
sheet_ptr cell_sheet(const text_cell& c) {
  sheet_ptr s = make_sheet(c.scale, c.type, L'N', c.number);
  if (c.letter500) {
    EXPECT_TRUE(vx_stdlist_set_500_letter(s.get(), c.letter500));
  }
  if (c.roman) {
    EXPECT_TRUE(vx_stdlist_set_200_roman_idx(s.get(), c.roman));
  }
  if (c.number100) {
    EXPECT_TRUE(vx_stdlist_set_100_number(s.get(), c.number100));
  }
  if (c.letter50) {
    EXPECT_NE(vx_stdlist_set_50_letter(s.get(), c.letter50), 0u);
  }
  if (c.letter25) {
    EXPECT_NE(vx_stdlist_set_25_letter(s.get(), c.letter25), 0u);
  }
  if (c.number10) {
    EXPECT_NE(vx_stdlist_set_10_number_str(s.get(), c.number10), 0u);
  }
  return s;
}

// Test names show the expected text rather than the bytes of the cell.
void PrintTo(const text_cell& c, std::ostream* os) {
  *os << vx::strconv::wide_to_utf8(c.text);
}

class StdlistTextAtEachScale : public ::testing::TestWithParam<text_cell> {};

TEST_P(StdlistTextAtEachScale, PrintsTheCell) {
  const text_cell& c = GetParam();
  sheet_ptr s = cell_sheet(c);
  ASSERT_EQ(vx_stdlist_get_type(s.get()), c.type);
  EXPECT_TRUE(vx_stdlist_valid(s.get()));
  EXPECT_EQ(designation(s.get()), c.text);
}

constexpr Tvx_stdlist_scale S500 = VX_STDLIST_SC_500, S200 = VX_STDLIST_SC_200, S100 = VX_STDLIST_SC_100,
                            S50 = VX_STDLIST_SC_50, S25 = VX_STDLIST_SC_25, S10 = VX_STDLIST_SC_10;

INSTANTIATE_TEST_SUITE_P(Scale500, StdlistTextAtEachScale,
                         ::testing::Values(text_cell{S500, 1, 37, L'А', 0, 0, 0, 0, 0, L"N-37-А"},
                                           text_cell{S500, 2, 37, L'А', 0, 0, 0, 0, 0, L"N-37-А,Б"},
                                           text_cell{S500, 4, 37, L'А', 0, 0, 0, 0, 0, L"N-37-А,Б,38-А,Б"},
                                           text_cell{S500, 1, 37, L'Б', 0, 0, 0, 0, 0, L"N-37-Б"},
                                           text_cell{S500, 2, 37, L'Б', 0, 0, 0, 0, 0, L"N-37-Б,38-А"},
                                           text_cell{S500, 4, 37, L'Б', 0, 0, 0, 0, 0, L"N-37-Б,38-А,Б,39-А"},
                                           text_cell{S500, 1, 37, L'Г', 0, 0, 0, 0, 0, L"N-37-Г"},
                                           text_cell{S500, 2, 37, L'Г', 0, 0, 0, 0, 0, L"N-37-Г,38-В"},
                                           text_cell{S500, 4, 37, L'Г', 0, 0, 0, 0, 0, L"N-37-Г,38-В,Г,39-В"},
                                           text_cell{S500, 1, 60, L'Б', 0, 0, 0, 0, 0, L"N-60-Б"},
                                           text_cell{S500, 2, 60, L'Б', 0, 0, 0, 0, 0, L"N-60-Б,1-А"},
                                           text_cell{S500, 4, 60, L'Б', 0, 0, 0, 0, 0, L"N-60-Б,1-А,Б,2-А"}));

INSTANTIATE_TEST_SUITE_P(Scale200, StdlistTextAtEachScale,
                         ::testing::Values(text_cell{S200, 1, 37, 0, 5, 0, 0, 0, 0, L"N-37-V"},
                                           text_cell{S200, 2, 37, 0, 5, 0, 0, 0, 0, L"N-37-V,VI"},
                                           text_cell{S200, 3, 37, 0, 5, 0, 0, 0, 0, L"N-37-V,VI,38-I"},
                                           text_cell{S200, 1, 37, 0, 6, 0, 0, 0, 0, L"N-37-VI"},
                                           text_cell{S200, 2, 37, 0, 6, 0, 0, 0, 0, L"N-37-VI,38-I"},
                                           text_cell{S200, 3, 37, 0, 6, 0, 0, 0, 0, L"N-37-VI,38-I,II"},
                                           text_cell{S200, 1, 37, 0, 36, 0, 0, 0, 0, L"N-37-XXXVI"},
                                           text_cell{S200, 2, 37, 0, 36, 0, 0, 0, 0, L"N-37-XXXVI,38-XXXI"},
                                           text_cell{S200, 3, 37, 0, 36, 0, 0, 0, 0,
                                                     L"N-37-XXXVI,38-XXXI,XXXII"}));

INSTANTIATE_TEST_SUITE_P(Scale100, StdlistTextAtEachScale,
                         ::testing::Values(text_cell{S100, 1, 37, 0, 0, 11, 0, 0, 0, L"N-37-11"},
                                           text_cell{S100, 2, 37, 0, 0, 11, 0, 0, 0, L"N-37-11,12"},
                                           text_cell{S100, 4, 37, 0, 0, 11, 0, 0, 0, L"N-37-11,12,38-1,2"},
                                           text_cell{S100, 1, 37, 0, 0, 12, 0, 0, 0, L"N-37-12"},
                                           text_cell{S100, 2, 37, 0, 0, 12, 0, 0, 0, L"N-37-12,38-1"},
                                           text_cell{S100, 4, 37, 0, 0, 12, 0, 0, 0, L"N-37-12,38-1,2,3"},
                                           text_cell{S100, 1, 37, 0, 0, 144, 0, 0, 0, L"N-37-144"},
                                           text_cell{S100, 2, 37, 0, 0, 144, 0, 0, 0, L"N-37-144,38-133"},
                                           text_cell{S100, 4, 37, 0, 0, 144, 0, 0, 0,
                                                     L"N-37-144,38-133,134,135"}));

INSTANTIATE_TEST_SUITE_P(
    Scale50, StdlistTextAtEachScale,
    ::testing::Values(text_cell{S50, 1, 37, 0, 0, 11, L'А', 0, 0, L"N-37-11-А"},
                      text_cell{S50, 2, 37, 0, 0, 11, L'А', 0, 0, L"N-37-11-А,Б"},
                      text_cell{S50, 4, 37, 0, 0, 11, L'А', 0, 0, L"N-37-11-А,Б,12-А,Б"},
                      text_cell{S50, 1, 37, 0, 0, 11, L'Б', 0, 0, L"N-37-11-Б"},
                      text_cell{S50, 2, 37, 0, 0, 11, L'Б', 0, 0, L"N-37-11-Б,12-А"},
                      text_cell{S50, 4, 37, 0, 0, 11, L'Б', 0, 0, L"N-37-11-Б,12-А,Б,38-1-А"},
                      text_cell{S50, 1, 37, 0, 0, 12, L'Б', 0, 0, L"N-37-12-Б"},
                      text_cell{S50, 2, 37, 0, 0, 12, L'Б', 0, 0, L"N-37-12-Б,38-1-А"},
                      text_cell{S50, 4, 37, 0, 0, 12, L'Б', 0, 0, L"N-37-12-Б,38-1-А,Б,2-А"},
                      text_cell{S50, 1, 37, 0, 0, 12, L'Г', 0, 0, L"N-37-12-Г"},
                      text_cell{S50, 2, 37, 0, 0, 12, L'Г', 0, 0, L"N-37-12-Г,38-1-В"},
                      text_cell{S50, 4, 37, 0, 0, 12, L'Г', 0, 0, L"N-37-12-Г,38-1-В,Г,2-В"}));

INSTANTIATE_TEST_SUITE_P(
    Scale25, StdlistTextAtEachScale,
    ::testing::Values(text_cell{S25, 1, 37, 0, 0, 5, L'А', L'а', 0, L"N-37-5-А-а"},
                      text_cell{S25, 2, 37, 0, 0, 5, L'А', L'а', 0, L"N-37-5-А-а,б"},
                      text_cell{S25, 4, 37, 0, 0, 5, L'А', L'а', 0, L"N-37-5-А-а,б,Б-а,б"},
                      text_cell{S25, 1, 37, 0, 0, 5, L'А', L'б', 0, L"N-37-5-А-б"},
                      text_cell{S25, 2, 37, 0, 0, 5, L'А', L'б', 0, L"N-37-5-А-б,Б-а"},
                      text_cell{S25, 4, 37, 0, 0, 5, L'А', L'б', 0, L"N-37-5-А-б,Б-а,б,6-А-а"},
                      text_cell{S25, 1, 37, 0, 0, 5, L'Б', L'б', 0, L"N-37-5-Б-б"},
                      text_cell{S25, 2, 37, 0, 0, 5, L'Б', L'б', 0, L"N-37-5-Б-б,6-А-а"},
                      text_cell{S25, 4, 37, 0, 0, 5, L'Б', L'б', 0, L"N-37-5-Б-б,6-А-а,б,Б-а"},
                      text_cell{S25, 1, 37, 0, 0, 12, L'Б', L'б', 0, L"N-37-12-Б-б"},
                      text_cell{S25, 2, 37, 0, 0, 12, L'Б', L'б', 0, L"N-37-12-Б-б,38-1-А-а"},
                      text_cell{S25, 4, 37, 0, 0, 12, L'Б', L'б', 0, L"N-37-12-Б-б,38-1-А-а,б,Б-а"},
                      text_cell{S25, 1, 37, 0, 0, 12, L'Г', L'г', 0, L"N-37-12-Г-г"},
                      text_cell{S25, 2, 37, 0, 0, 12, L'Г', L'г', 0, L"N-37-12-Г-г,38-1-В-в"},
                      text_cell{S25, 4, 37, 0, 0, 12, L'Г', L'г', 0, L"N-37-12-Г-г,38-1-В-в,г,Г-в"}));

INSTANTIATE_TEST_SUITE_P(Scale10, StdlistTextAtEachScale,
                         ::testing::Values(text_cell{S10, 1, 37, 0, 0, 12, L'Б', L'в', L'4', L"-12-Б-в-4"},
                                           text_cell{S10, 2, 37, 0, 0, 12, L'Б', L'в', L'4', L"-12-Б-в-4"},
                                           text_cell{S10, 4, 37, 0, 0, 12, L'Б', L'в', L'4', L"-12-Б-в-4"}));

TEST(StdlistTextAtEachScale, TripleAt10000IsRefusedAndPrintsTheSameText) {
  sheet_ptr s = cell_sheet(text_cell{S10, 2, 37, 0, 0, 12, L'Б', L'в', L'4', L""});
  EXPECT_TRUE(vx_stdlist_init(s.get(), S10, VX_STDLIST_TP_TPL, VX_STDLIST_NORTH));
  EXPECT_EQ(vx_stdlist_get_type(s.get()), VX_STDLIST_TP_DBL);
  EXPECT_EQ(designation(s.get()), L"-12-Б-в-4");
}

TEST(StdlistTextAtEachScale, NotStoredCellsCannotBeReached) {
  // Triples at 1:500,000 to 1:25,000 and quadruples at 1:200,000 are refused by init.
  for (Tvx_stdlist_scale sc : {S500, S100, S50, S25}) {
    sheet_ptr s = make_sheet(sc, VX_STDLIST_TP_TPL, L'N', 37);
    EXPECT_EQ(vx_stdlist_get_type(s.get()), VX_STDLIST_TP_SGL) << sc;
  }
  sheet_ptr s = make_sheet(S200, VX_STDLIST_TP_QRP, L'N', 37);
  EXPECT_EQ(vx_stdlist_get_type(s.get()), VX_STDLIST_TP_SGL);
}

TEST(StdlistTextAtEachScale, HemisphereDoesNotChangeTheText) {
  for (Tvx_stdlist_scale sc : {S500, S200, S100, S50, S25, S10}) {
    sheet_ptr s = cell_sheet(text_cell{sc, 1, 37, 0, 0, 0, 0, 0, 0, L""});
    const std::wstring north = designation(s.get());
    vx_stdlist_init(s.get(), sc, 1, VX_STDLIST_SOUTH);
    EXPECT_EQ(designation(s.get()), north) << sc;
  }
}

TEST(StdlistTextAtEachScale, InvalidNumberAt500PrintsQuestionMark) {
  sheet_ptr s = cell_sheet(text_cell{S500, 1, 37, L'А', 0, 0, 0, 0, 0, L""});
  vx_stdlist_set_mln_number(s.get(), 0);
  EXPECT_EQ(designation(s.get()), L"N-?-А");
}

TEST(StdlistTextAtEachScale, InvalidRomanAt200PrintsQuestionMark) {
  sheet_ptr s = cell_sheet(text_cell{S200, 1, 37, 0, 6, 0, 0, 0, 0, L""});
  vx_stdlist_set_200_roman_idx(s.get(), 40);
  EXPECT_EQ(designation(s.get()), L"N-37-?");
}

TEST(StdlistTextAtEachScale, Scale3GivesTheEmptyTextAndScale9Too) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_300, 1, L'N', 37);
  EXPECT_EQ(designation(s.get()), L"");
  vx_stdlist_init(s.get(), VX_STDLIST_SC_END, 1, 1);
  EXPECT_EQ(designation(s.get()), L"");
}

TEST(StdlistTextAtEachScale, TwoCallsGiveTheSameTextAtEveryScale) {
  for (Tvx_stdlist_scale sc : {1, 2, 4, 5, 6, 7, 8}) {
    sheet_ptr s = make_sheet(sc, 2, L'N', 60);
    EXPECT_EQ(designation(s.get()), designation(s.get())) << sc;
  }
}

// ---- middle meridian at every scale and type ---------------------------------------------------------

TEST(StdlistMidMeridian, FinerScalesGiveTheMiddleOfTheColumnWhateverTheType) {
  for (Tvx_stdlist_scale sc : {S500, S200, S100, S50, S25, S10}) {
    for (Tvx_stdlist_type t : {1, 2, 3, 4}) {
      sheet_ptr s = make_sheet();
      vx_stdlist_init(s.get(), sc, t, VX_STDLIST_NORTH);
      vx_stdlist_set_mln_number(s.get(), 37);
      EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), 39.0) << sc << " " << t;
      vx_stdlist_set_mln_number(s.get(), 60);
      EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), 177.0) << sc << " " << t;
      vx_stdlist_set_mln_number(s.get(), 1);
      EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), -177.0) << sc << " " << t;
    }
  }
}

TEST(StdlistMidMeridian, ScaleValuesWithoutTextUseTheColumnWidthToo) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_300, 1, L'N', 37);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), 39.0);
  vx_stdlist_init(s.get(), VX_STDLIST_SC_END, 4, 1);
  EXPECT_EQ(vx_stdlist_get_mid_meridian(s.get()), 39.0);
}

}  // namespace

namespace {

TEST(StdlistNeighbours, FeedsLeftRightUpperLowerOfA200000Sheet) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_200, 1, L'N', 37);
  vx_stdlist_set_200_roman_idx(s.get(), 6);
  vxk_test::sink_rows r;
  EXPECT_TRUE(vx_stdlist_fetch_neighbours(s.get(), r.sink()));
  EXPECT_EQ(r.rows(), (rows_t{L"N-37-V", L"N-38-I", L"O-37-XXXVI", L"N-37-XII"}));
}

TEST(StdlistNeighbours, JoinedSheetAcrossTheDateLine) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_200, 2, L'N', 60);
  vx_stdlist_set_200_roman_idx(s.get(), 6);
  vxk_test::sink_rows r;
  EXPECT_TRUE(vx_stdlist_fetch_neighbours(s.get(), r.sink()));
  ASSERT_EQ(r.rows().size(), 4u);
  EXPECT_EQ(r.rows()[1], L"N-1-II,III");
}

TEST(StdlistNeighbours, OtherScalesFeedNothing) {
  sheet_ptr s = make_sheet(VX_STDLIST_SC_MLN, 1, L'N', 37);
  vxk_test::sink_rows r;
  EXPECT_FALSE(vx_stdlist_fetch_neighbours(s.get(), r.sink()));
  EXPECT_TRUE(r.rows().empty());
}

}  // namespace
