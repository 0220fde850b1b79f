// Where a sheet lies and which sheet holds a point: against boxes worked out here from the nomenclature
// (bands of 4 degrees, columns of 6, each level a grid of its parent counted from the north-west, rows
// mirrored in the south), and against the generator's own box at the two scales it draws.
#include "stdlist/generate/22_sheet_box.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "generate_fixture.h"
#include "generate_probe.h"

namespace {

namespace sb = vx::stdlist::sheet_box;
using vx::stdlist::stdlist_string;

// A sheet by its fields: letter index, column, then the level fields of the chain (unused ones 1).
struct fields {
  Tvx_stdlist_scale scale;
  std::uint64_t letter, number, l500 = 1, roman = 1, n100 = 1, l50 = 1, l25 = 1, n10 = 1;
  Tvx_stdlist_type type = VX_STDLIST_TP_SGL;
};

stdlist_string record(const fields& f, Tvx_stdlist_hemisphere h = VX_STDLIST_NORTH) {
  return stdlist_string(h, f.scale, f.type, f.letter, f.number, f.l500, f.roman, f.n100, f.l50, f.l25, f.n10);
}

// The box in minutes of arc from the nomenclature: the million sheet, then for each level the cell of
// its grid, counted from the north-west corner (from the south-west in the south, as mirrored).
sb::box expected(const fields& f, Tvx_stdlist_hemisphere h = VX_STDLIST_NORTH) {
  double west = (6.0 * (f.number - 1) - 180.0) * 60, north = 4.0 * f.letter * 60;  // distances, minutes
  double width = 360, height = 240;
  auto cell = [&](std::uint64_t index, int columns, int rows) {
    width /= columns;
    height /= rows;
    west += width * ((index - 1) % columns);
    north -= height * ((index - 1) / columns);
  };
  switch (f.scale) {
    case VX_STDLIST_SC_500:
      cell(f.l500, 2, 2);
      break;
    case VX_STDLIST_SC_200:
      cell(f.roman, 6, 6);
      break;
    case VX_STDLIST_SC_10:
    case VX_STDLIST_SC_25:
    case VX_STDLIST_SC_50:
    case VX_STDLIST_SC_100:
      cell(f.n100, 12, 12);
      if (f.scale != VX_STDLIST_SC_100) cell(f.l50, 2, 2);
      if (f.scale == VX_STDLIST_SC_25 || f.scale == VX_STDLIST_SC_10) cell(f.l25, 2, 2);
      if (f.scale == VX_STDLIST_SC_10) cell(f.n10, 2, 2);
      break;
    default:
      break;
  }
  sb::box b{west / 60, (west + width * f.type) / 60, (north - height) / 60, north / 60};
  if (h == VX_STDLIST_SOUTH) b = {b.xmin, b.xmax, -b.ymax, -b.ymin};
  return b;
}

void expect_box(const fields& f, Tvx_stdlist_hemisphere h = VX_STDLIST_NORTH) {
  sb::box got;
  ASSERT_TRUE(sb::of(record(f, h), got));
  const sb::box want = expected(f, h);
  EXPECT_NEAR(got.xmin, want.xmin, 1e-9);
  EXPECT_NEAR(got.xmax, want.xmax, 1e-9);
  EXPECT_NEAR(got.ymin, want.ymin, 1e-9);
  EXPECT_NEAR(got.ymax, want.ymax, 1e-9);
}

TEST(SheetBox, EveryScaleLiesWhereTheNomenclaturePutsIt) {
  expect_box({VX_STDLIST_SC_MLN, 14, 37});
  expect_box({VX_STDLIST_SC_MLN, 1, 1});
  expect_box({VX_STDLIST_SC_MLN, 22, 60});
  for (std::uint64_t i = 1; i <= 4; ++i) expect_box({VX_STDLIST_SC_500, 14, 37, i});
  for (std::uint64_t i = 1; i <= 36; ++i) expect_box({VX_STDLIST_SC_200, 14, 37, 1, i});
  for (std::uint64_t i = 1; i <= 144; ++i) expect_box({VX_STDLIST_SC_100, 14, 37, 1, 1, i});
  for (std::uint64_t i = 1; i <= 4; ++i) {
    expect_box({VX_STDLIST_SC_50, 14, 37, 1, 1, 12, i});
    expect_box({VX_STDLIST_SC_25, 14, 37, 1, 1, 12, 2, i});
    expect_box({VX_STDLIST_SC_10, 14, 37, 1, 1, 12, 2, 3, i});
  }
}

TEST(SheetBox, KnownSheets) {
  sb::box b;
  ASSERT_TRUE(sb::of(record({VX_STDLIST_SC_200, 14, 37, 1, 6}), b));  // N-37-VI
  EXPECT_EQ(b.xmin, 41.0);
  EXPECT_EQ(b.xmax, 42.0);
  EXPECT_NEAR(b.ymin, 55.0 + 20.0 / 60, 1e-12);
  EXPECT_EQ(b.ymax, 56.0);
  ASSERT_TRUE(sb::of(record({VX_STDLIST_SC_10, 14, 37, 1, 1, 4, 1, 1, 1}), b));  // N-37-4-А-а-1
  EXPECT_NEAR(b.xmin, 37.5, 1e-12);
  EXPECT_NEAR(b.xmax, 37.5 + 3.75 / 60, 1e-12);
  EXPECT_NEAR(b.ymax, 56.0, 1e-12);
  EXPECT_NEAR(b.ymin, 56.0 - 2.5 / 60, 1e-12);
}

TEST(SheetBox, TheSouthIsTheMirrorOfTheNorth) {
  expect_box({VX_STDLIST_SC_MLN, 1, 37}, VX_STDLIST_SOUTH);
  for (std::uint64_t i : {1, 6, 31, 36}) expect_box({VX_STDLIST_SC_200, 3, 37, 1, i}, VX_STDLIST_SOUTH);
  for (std::uint64_t i : {1, 2, 3, 4})
    expect_box({VX_STDLIST_SC_25, 3, 37, 1, 1, 133, 3, i}, VX_STDLIST_SOUTH);
  sb::box b;
  ASSERT_TRUE(sb::of(record({VX_STDLIST_SC_200, 1, 37, 1, 1}, VX_STDLIST_SOUTH), b));  // A-37-I, south-west
  EXPECT_EQ(b.ymin, -4.0);
}

TEST(SheetBox, JoinedSheetsSpanEastwardsAndPastTheDateLine) {
  expect_box({VX_STDLIST_SC_MLN, 14, 37, 1, 1, 1, 1, 1, 1, VX_STDLIST_TP_DBL});
  expect_box({VX_STDLIST_SC_200, 14, 37, 1, 6, 1, 1, 1, 1, VX_STDLIST_TP_TPL});
  expect_box({VX_STDLIST_SC_50, 14, 37, 1, 1, 12, 2, 1, 1, VX_STDLIST_TP_QRP});
  sb::box b;
  ASSERT_TRUE(sb::of(record({VX_STDLIST_SC_MLN, 14, 59, 1, 1, 1, 1, 1, 1, VX_STDLIST_TP_QRP}), b));
  EXPECT_EQ(b.xmin, 168.0);
  EXPECT_EQ(b.xmax, 192.0);
}

TEST(SheetBox, IsTheGeneratorsBoxAtTheScalesItDraws) {
  for (Tvx_stdlist_hemisphere h : {VX_STDLIST_NORTH, VX_STDLIST_SOUTH}) {
    for (Tvx_stdlist_type t : {1, 2, 3}) {
      for (std::uint64_t roman : {1, 6, 17, 36}) {
        for (Tvx_stdlist_scale scale : {VX_STDLIST_SC_MLN, VX_STDLIST_SC_200}) {
          if (scale == VX_STDLIST_SC_MLN && t == 3) continue;
          const stdlist_string s = record({scale, 17, 60, 1, roman, 1, 1, 1, 1, t}, h);
          auto p = vxk_test::sheet_params(s, L"out/");
          vxk_test::sheet_probe g(p);
          g.init_box();
          sb::box b;
          ASSERT_TRUE(sb::of(s, b));
          EXPECT_EQ(b.xmin, g.xmin);
          EXPECT_EQ(b.xmax, g.xmax);
          EXPECT_EQ(b.ymin, g.ymin);
          EXPECT_EQ(b.ymax, g.ymax);
        }
      }
    }
  }
}

TEST(SheetBox, AnInvalidRecordHasNoBox) {
  sb::box b{1, 2, 3, 4};
  EXPECT_FALSE(sb::of(record({VX_STDLIST_SC_200, 14, 37, 1, 37}), b));
  EXPECT_EQ(b.xmin, 0.0);
  EXPECT_EQ(b.ymax, 0.0);
  EXPECT_FALSE(sb::of(record({VX_STDLIST_SC_300, 14, 37}), b));
}

// ---- the sheet of a point ------------------------------------------------------------------------

std::wstring designation_at(Tvx_stdlist_scale scale, double lon, double lat,
                            Tvx_stdlist_hemisphere h = VX_STDLIST_NORTH) {
  stdlist_string s;
  if (!sb::find(scale, h, lon, lat, s)) return L"none";
  std::wstring out;
  return s.get_output_string(out);
}

TEST(SheetAt, EverySheetsMiddleFindsTheSheet) {
  for (Tvx_stdlist_hemisphere h : {VX_STDLIST_NORTH, VX_STDLIST_SOUTH}) {
    for (std::uint64_t n100 = 1; n100 <= 144; ++n100) {
      for (std::uint64_t l50 = 1; l50 <= 4; ++l50) {
        const stdlist_string want = record({VX_STDLIST_SC_25, 9, 13, 1, 1, n100, l50, 1 + n100 % 4}, h);
        sb::box b;
        ASSERT_TRUE(sb::of(want, b));
        stdlist_string got;
        ASSERT_TRUE(sb::find(VX_STDLIST_SC_25, h, (b.xmin + b.xmax) / 2, (b.ymin + b.ymax) / 2, got));
        EXPECT_TRUE(got == want) << n100 << " " << l50;
      }
    }
  }
}

TEST(SheetAt, AnEdgeGoesEastAndAwayFromTheEquator) {
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 42, 56), L"O-38");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_200, 42, 56), L"O-38-XXXI");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_200, 41, 55.0 + 20.0 / 60), L"N-37-VI");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 42, -56, VX_STDLIST_SOUTH), L"O-38");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_200, 42, -56, VX_STDLIST_SOUTH), L"O-38-XXXI");
}

// The corner where the sheet's west edge meets its edge farther from the equator, as its own box gives
// it, finds the sheet: neighbours compute the edge they share in different ways, and the rounding of one
// must not hand the corner to the other.
TEST(SheetAt, TheCornerOfEachSheetOnItsOwnEdgesFindsIt) {
  for (Tvx_stdlist_hemisphere h : {VX_STDLIST_NORTH, VX_STDLIST_SOUTH}) {
    for (std::uint64_t n100 = 1; n100 <= 144; ++n100) {
      for (std::uint64_t n10 = 1; n10 <= 4; ++n10) {
        const stdlist_string want = record({VX_STDLIST_SC_10, 14, 37, 1, 1, n100, 1 + n100 % 4, 2, n10}, h);
        sb::box b;
        ASSERT_TRUE(sb::of(want, b));
        stdlist_string got;
        const double far_edge = h == VX_STDLIST_NORTH ? b.ymin : b.ymax;
        ASSERT_TRUE(sb::find(VX_STDLIST_SC_10, h, b.xmin, far_edge, got));
        EXPECT_TRUE(got == want) << n100 << " " << n10;
      }
    }
  }
}

TEST(SheetAt, TheEquatorTheDateLineAndThePoles) {
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 180, 0), L"A-1");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, -180, 0, VX_STDLIST_SOUTH), L"A-1");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 179.999, 0.5), L"A-60");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 540, 10), L"C-1");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, -181, 10), L"C-60");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_200, 36.5, 88), L"V-37-I");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_200, 36.5, -88, VX_STDLIST_SOUTH), L"V-37-I");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 0, 88.000001), L"none");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 0, 90), L"none");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 0, -90, VX_STDLIST_SOUTH), L"none");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 0, 1, VX_STDLIST_SOUTH), L"none");
  EXPECT_EQ(designation_at(VX_STDLIST_SC_MLN, 0, -1), L"none");
}

TEST(SheetAt, RefusesWhatIsNoSheetAndKeepsTheRecord) {
  const stdlist_string before = record({VX_STDLIST_SC_200, 14, 37, 1, 6});
  stdlist_string s = before;
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_300, VX_STDLIST_NORTH, 37, 55, s));
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_NONE, VX_STDLIST_NORTH, 37, 55, s));
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_END, VX_STDLIST_NORTH, 37, 55, s));
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_MLN, 3, 37, 55, s));
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_MLN, VX_STDLIST_NORTH, std::nan(""), 55, s));
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_MLN, VX_STDLIST_NORTH, INFINITY, 55, s));
  EXPECT_FALSE(sb::find(VX_STDLIST_SC_MLN, VX_STDLIST_NORTH, 37, std::nan(""), s));
  EXPECT_TRUE(s == before);
}

}  // namespace
