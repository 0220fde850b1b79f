// Degree texts. The table test builds each value from its degrees, minutes and seconds (and a fraction
// of a second), and works the expected texts out from those parts with printf, so that the library's
// arithmetic on the decimal value is checked against the rules and not against itself.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "generate_fixture.h"
#include "generate_probe.h"
#include "support/ansi_code_page.h"

namespace {

using vx::stdlist::custom_params;
using vxk_test::box_probe;
using vxk_test::sheet_probe;

std::wstring printed(const char* format, int value, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return vx::strconv::utf8_to_wide(std::string(text) + unit);
}

// A standard sheet and a free box, whose texts are asked for; neither runs.
struct generators {
  vx::stdlist::stdlist_string s = vxk_test::sheet(14, 37);
  vx::stdlist::stdlist_params sp = vxk_test::sheet_params(s, L"out/");
  custom_params cp;
  sheet_probe sheet{sp};
  box_probe box{cp};
};

// A value and what the rules make of it.
struct expected {
  double value;
  int degrees;  // whole degrees of the magnitude, unfolded
  int minutes;  // may be 60, under the lower degree
  int seconds;
};

// d degrees, m minutes, s and a fraction f of a second. The seconds are rounded once: a fraction from
// one half up makes the next second, 60 seconds make the next minute, and 60 minutes stay 60 minutes
// under the same degree.
expected from_parts(int d, int m, int s, double f) {
  int sec = s + (f >= 0.5 ? 1 : 0);
  int min = m;
  if (sec == 60) sec = 0, ++min;
  return {d + m / 60.0 + (s + f) / 3600.0, d, min, sec};
}

// Less than half a second below the next whole degree: 60 minutes under d; from half a second, 59'59".
expected below_degree(int d, double f) {
  return f < 0.5 ? expected{d + 1 - f / 3600.0, d, 60, 0} : expected{d + 1 - f / 3600.0, d, 59, 59};
}

std::vector<expected> table_values() {
  std::vector<expected> out;
  for (int d : {0, 1, 5, 9, 10, 42, 54, 59, 60, 66, 89, 99, 100, 179, 180, 181, 200, 359}) {
    for (int m : {0, 1, 9, 10, 30, 59})
      for (int s : {0, 1, 29, 59})
        for (double f : {0.0, 0.2, 0.6}) out.push_back(from_parts(d, m, s, f));
    for (double f : {0.1, 0.3, 0.49, 0.6}) out.push_back(below_degree(d, f));
  }
  return out;
}

TEST(DegreeText, TableOfValuesAgainstTheRules) {
  generators g;
  const std::vector<expected> values = table_values();
  ASSERT_GT(values.size(), 1000u);
  for (const expected& e : values) {
    const int folded = e.degrees > 180 ? 360 - e.degrees : e.degrees;
    const std::wstring grd = printed("%02d", folded, "\u00B0 ");
    const std::wstring min = printed("%02d", e.minutes, "'");
    const std::wstring sec = printed("%02d", e.seconds, "\"");
    // the box keeps the sign of whole degrees, unfolded; below one degree there is no sign to keep
    const std::wstring box_grd = e.degrees == 0 ? grd : printed("%03d", -e.degrees, "\u00B0 ");
    SCOPED_TRACE(testing::Message() << "value " << e.value);
    for (double x : {e.value, -e.value}) {
      EXPECT_EQ(g.sheet.grd_str(x), grd);
      EXPECT_EQ(g.sheet.min_str(x), min);
      EXPECT_EQ(g.sheet.sec_str(x), sec);
      EXPECT_EQ(g.sheet.grd_min_str(x), grd + min);
      EXPECT_EQ(g.sheet.grd_min_sec_str(x), grd + min + sec);
      EXPECT_EQ(g.sheet.int_grad(x), folded);
      EXPECT_EQ(g.sheet.int_sec(x), e.seconds);
      int gd = -1, mn = -1;
      g.sheet.grad_min(x, gd, mn);
      EXPECT_EQ(gd, e.degrees);
      EXPECT_EQ(mn, e.minutes);
    }
    EXPECT_EQ(g.sheet.int_min(e.value), e.minutes);
    EXPECT_EQ(g.sheet.int_min(-e.value), -e.minutes);
    EXPECT_EQ(g.box.grd_min_sec_str(e.value), grd + min + sec);
    EXPECT_EQ(g.box.grd_str(-e.value), box_grd);
    EXPECT_EQ(g.box.grd_min_str(-e.value), box_grd + min);
    EXPECT_EQ(g.box.grd_min_sec_str(-e.value), box_grd + min + sec);
  }
}

TEST(DegreeText, TheExamplesOfBothGenerators) {
  generators g;
  const struct {
    double x;
    const wchar_t* sheet;
    const wchar_t* box;
  } examples[] = {
      {54.5, L"54\u00B0 30'", L"54\u00B0 30'"},    {5.0, L"05\u00B0 00'", L"05\u00B0 00'"},
      {-5.25, L"05\u00B0 15'", L"-05\u00B0 15'"},  {-0.5, L"00\u00B0 30'", L"00\u00B0 30'"},
      {181.5, L"179\u00B0 30'", L"179\u00B0 30'"}, {-123.5, L"123\u00B0 30'", L"-123\u00B0 30'"},
      {60.0, L"60\u00B0 00'", L"60\u00B0 00'"},    {9.0, L"09\u00B0 00'", L"09\u00B0 00'"},
      {100.0, L"100\u00B0 00'", L"100\u00B0 00'"},
  };
  for (const auto& e : examples) {
    EXPECT_EQ(g.sheet.grd_min_str(e.x), e.sheet) << e.x;
    EXPECT_EQ(g.box.grd_min_str(e.x), e.box) << e.x;
  }
}

TEST(DegreeText, HalfASecondBelowADegreeShowsSixtyMinutesUnderTheLowerDegree) {
  generators g;
  EXPECT_EQ(g.sheet.grd_min_sec_str(42.99999), L"42\u00B0 60'00\"");
  EXPECT_EQ(g.sheet.grd_str(42.99999), L"42\u00B0 ");
  EXPECT_EQ(g.sheet.min_str(42.99999), L"60'");
  // a value that rounds up to a full minute shows the next minute
  EXPECT_EQ(g.sheet.grd_min_sec_str(42.5 + 59.7 / 3600), L"42\u00B0 31'00\"");
}

TEST(DegreeText, DegreesFoldBeyond180WhileMinutesComeFromTheUnfoldedValue) {
  generators g;
  EXPECT_EQ(g.sheet.grd_min_str(180.25), L"180\u00B0 15'");
  EXPECT_EQ(g.sheet.grd_str(181.0), L"179\u00B0 ");
  EXPECT_EQ(g.sheet.int_grad(180.99), 180);
  EXPECT_EQ(g.box.int_grad(181.0), 179);
  // a negative value passes the box's fold as it is
  EXPECT_EQ(g.box.int_grad(-200.5), -200);
  EXPECT_EQ(g.sheet.int_grad(-200.5), 160);
  int grad = 0, min = 0;
  g.sheet.grad_min(181.5, grad, min);
  EXPECT_EQ(grad, 181);  // grad_min does not fold
  EXPECT_EQ(min, 30);
}

TEST(DegreeText, ASheetShowsNoSignAndABoxShowsItFromMinusOneDegree) {
  generators g;
  EXPECT_EQ(g.sheet.grd_str(-5.0), L"05\u00B0 ");
  EXPECT_EQ(g.box.grd_str(-5.0), L"-05\u00B0 ");
  EXPECT_EQ(g.box.grd_str(-0.99), L"00\u00B0 ");
  EXPECT_EQ(g.box.grd_str(-1.0), L"-01\u00B0 ");
  EXPECT_EQ(g.box.grd_str(-12.0), L"-12\u00B0 ");
  EXPECT_EQ(g.box.min_str(-5.25), L"15'");
  EXPECT_EQ(g.box.sec_str(-5.25), L"00\"");
}

TEST(DegreeText, LeadingZeroOfEachGenerator) {
  generators g;
  EXPECT_EQ(g.sheet.zero(L"5"), L"05");
  EXPECT_EQ(g.sheet.zero(L""), L"");
  EXPECT_EQ(g.sheet.zero(L"12"), L"12");
  EXPECT_EQ(g.sheet.zero(L"123"), L"123");
  EXPECT_EQ(g.sheet.zero(L"-5"), L"-5");
  EXPECT_EQ(g.box.zero(L""), L"");
  EXPECT_EQ(g.box.zero(L"-5"), L"-05");
  EXPECT_EQ(g.box.zero(L"5"), L"05");
  EXPECT_EQ(g.box.zero(L"-12"), L"-12");
  EXPECT_EQ(g.box.zero(L"12"), L"12");
}

TEST(DegreeText, MinutesOfANegativeValueAreNegative) {
  generators g;
  EXPECT_EQ(g.sheet.int_min(-5.25), -15);
  EXPECT_EQ(g.sheet.int_min(-0.5), -30);
  EXPECT_EQ(g.sheet.int_min(5.25), 15);
  EXPECT_EQ(g.sheet.int_sec(-5.2525), 9);
}

TEST(DegreeText, TheFullFormHasNoBlankBetweenMinutesAndSeconds) {
  generators g;
  EXPECT_EQ(g.sheet.grd_min_sec_str(54.0), L"54\u00B0 00'00\"");
  EXPECT_EQ(g.sheet.grd_min_sec_str(54.5 + 7.0 / 3600), L"54\u00B0 30'07\"");
  EXPECT_EQ(g.box.grd_min_sec_str(-54.5 - 7.0 / 3600), L"-54\u00B0 30'07\"");
}

TEST(DegreeText, ValuesBeyondTheRangeOfAnIntegerStillGiveATextWithoutOverflow) {
  generators g;
  EXPECT_FALSE(g.sheet.grd_min_sec_str(1e300).empty());
  EXPECT_FALSE(g.box.grd_min_sec_str(-1e300).empty());
  EXPECT_FALSE(g.sheet.grd_min_sec_str(std::nan("")).empty());
  EXPECT_FALSE(g.box.grd_min_str(3e9).empty());
}

}  // namespace
