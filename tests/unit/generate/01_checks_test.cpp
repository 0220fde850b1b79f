// What may not reach the generator: each refusal is false with its message, in English and in Russian.
#include "stdlist/generate/01_checks.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "generate_fixture.h"
#include "stdlist/traits.h"
#include "support/ansi_code_page.h"

namespace {

using vx::stdlist::admit;
using vx::stdlist::custom_params;
using vx::stdlist::stdlist_params;
using vxk_test::message_log;

constexpr double inf = std::numeric_limits<double>::infinity();
const double nan = std::nan("");

custom_params box(double xmin, double xmax, double ymin, double ymax, double dx, double dy) {
  custom_params p;
  p.set_box(xmin, xmax, ymin, ymax);
  p.set_grid_steps(dx, dy);
  return p;
}

// Refused with exactly one message that begins with the text given.
void expect_refused(bool admitted, const message_log& log, const std::string& start) {
  EXPECT_FALSE(admitted);
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(log.errors[0].substr(0, start.size()), start) << log.errors[0];
}

TEST(Checks, MillionAnd200SheetsWithDivisionsOfOneOrMoreAreAdmitted) {
  message_log log;
  const auto n37 = vxk_test::sheet(14, 37);
  EXPECT_TRUE(admit(vxk_test::sheet_params(n37, L"", vxk_test::GK7, 1, 1, 1, 1)));
  EXPECT_TRUE(admit(vxk_test::sheet_params(n37, L"", vxk_test::GK7, 6, 6, 4, 6)));
  const auto vi = vxk_test::sheet(14, 37, 6);
  EXPECT_TRUE(admit(vxk_test::sheet_params(vi, L"", vxk_test::GK7, 3, 20, 2, 20)));
  EXPECT_TRUE(log.errors.empty());
}

TEST(Checks, EveryScaleWithoutAGeometryIsRefused) {
  for (Tvx_stdlist_scale scale : {0, 2, 3, 5, 6, 7, 8, 9}) {
    message_log log;
    auto s = vxk_test::sheet(14, 37);
    bool found = false;
    if (scale == 0) s.set_scale_str(L"", found);
    s.set_scale(scale);
    ASSERT_EQ(s.get_scale(), scale);
    expect_refused(admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, 6, 6, 4, 6)), log,
                   "Sheet generation refused: the sheet's scale is ");
  }
  message_log log;
  auto s = vxk_test::sheet(14, 37);
  s.set_scale(VX_STDLIST_SC_500);
  admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, 6, 6, 4, 6));
  EXPECT_EQ(log.errors.at(0),
            "Sheet generation refused: the sheet's scale is 1:500000; only 1:1000000 and 1:200000 sheets are "
            "drawn");
}

TEST(Checks, ADivisionBelowOneIsRefused) {
  const auto s = vxk_test::sheet(14, 37);
  const int cases[][4] = {{0, 0, 0, 0}, {6, 0, 4, 6},  {0, 6, 4, 6},
                          {6, 6, 0, 6}, {6, 6, 4, -1}, {-6, -6, 4, 6}};
  for (const auto& c : cases) {
    message_log log;
    expect_refused(admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, c[0], c[1], c[2], c[3])), log,
                   "Sheet generation refused: each division");
  }
  message_log log;
  admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, 6, 0, 4, 6));
  EXPECT_EQ(
      log.errors.at(0),
      "Sheet generation refused: each division must be 1 or more (longitude 6 and 0, latitude 4 and 6)");
}

TEST(Checks, MoreThan100000LinesOrMarksOnOneAxisAreRefused) {
  const auto s = vxk_test::sheet(14, 37);
  {
    message_log log;
    EXPECT_TRUE(admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, 99999, 1, 1,
                                             1)));  // 99,998 inner lines and 100,000 marks
    EXPECT_TRUE(admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, 1, 1, 1000, 99)));  // 99,001 marks
  }
  for (const auto& c : {std::array<int, 4>{100000, 1, 1, 1},
                        {1, 1, 1000, 101},
                        {1, 1, 1, 100000},
                        {2147483647, 2147483647, 1, 1}}) {
    message_log log;
    expect_refused(admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, c[0], c[1], c[2], c[3])), log,
                   "Sheet generation refused: the divisions give");
  }
}

TEST(Checks, ANullRecordIsRefused) {
  message_log log;
  stdlist_params p(nullptr);
  expect_refused(admit(p), log, "Sheet generation refused: no sheet designation");
}

TEST(Checks, FreeBoxesWithProperStepsAreAdmitted) {
  message_log log;
  EXPECT_TRUE(admit(box(30, 36, 50, 54, 1, 1)));
  EXPECT_TRUE(admit(box(-7.5, 2.5, -3, 1, 5, 0.25)));
  EXPECT_TRUE(admit(box(0, 99999, 0, 1, 1, 1)));  // 99,998 lines and 100,000 marks
  EXPECT_TRUE(log.errors.empty());
}

TEST(Checks, StepsThatAreNotFiniteAndPositiveAreRefused) {
  for (auto [dx, dy] :
       {std::pair{0.0, 1.0}, {1.0, 0.0}, {-1.0, 1.0}, {1.0, -0.5}, {nan, 1.0}, {1.0, inf}, {-inf, 1.0}}) {
    message_log log;
    expect_refused(admit(box(30, 36, 50, 54, dx, dy)), log, "Box generation refused: the grid steps");
  }
}

TEST(Checks, AnUnsetBoxIsRefused) {
  message_log log;
  custom_params p;
  p.set_grid_steps(1, 1);
  expect_refused(admit(p), log, "Box generation refused: the box is not set");
  message_log log2;
  expect_refused(admit(box(30, vx::stdlist::traits::MAX, 50, 54, 1, 1)), log2,
                 "Box generation refused: the box is not set");
}

TEST(Checks, ABoxNotFiniteOrEmptyIsRefused) {
  const double boxes[][4] = {{36, 30, 50, 54},   {30, 30, 50, 54},     {30, 36, 54, 50},
                             {30, 36, 50, 50},   {nan, 36, 50, 54},    {30, inf, 50, 54},
                             {30, 36, -inf, 54}, {-1e308, 1e308, 0, 1}};  // an extent beyond the doubles
  for (const auto& b : boxes) {
    message_log log;
    expect_refused(admit(box(b[0], b[1], b[2], b[3], 1, 1)), log,
                   "Box generation refused: the box must be finite");
  }
}

TEST(Checks, StepsThatWouldMakeTooManyLinesOrMarksAreRefused) {
  const double cases[4][6] = {
      {0, 100002, 0, 1, 1, 1},       // 100,001 lines
      {0, 1, 0, 1, 1e-6, 1},         // a million lines
      {0, 1, 0, 1, 1, 1e-300},       // lines without end
      {1e9, 1e9 + 1, 0, 1, 0.1, 1},  // a start that a 32-bit cut cannot hold
  };
  for (int i = 0; i < 4; ++i) {
    const auto& c = cases[i];
    message_log log;
    expect_refused(admit(box(c[0], c[1], c[2], c[3], c[4], c[5])), log,
                   "Box generation refused: the steps give more than 100000");
  }
  message_log log;
  EXPECT_TRUE(admit(box(0, 200000, 0, 1, 100001, 1)));  // one line and two marks on a long axis
  EXPECT_FALSE(admit(box(0, 1000, 0, 150001, 1, 1)));   // 150,001 parallels
}

TEST(Checks, MessagesInRussianWhenTheHostAsksForIt) {
  Tvx_rc::get_auto_lang();
  Tvx_rc::set_lang(1);
  message_log log;
  admit(box(30, 36, 50, 54, 0, 1));
  ASSERT_EQ(log.errors.size(), 1u);
  EXPECT_EQ(vx::strconv::ansi_to_wide(log.errors[0]),
            L"Генерация по координатам отклонена: шаги сетки должны быть конечными и положительными (0, 1)");
  const auto s = vxk_test::sheet(14, 37);
  admit(vxk_test::sheet_params(s, L"", vxk_test::GK7, 0, 1, 1, 1));
  EXPECT_EQ(vx::strconv::ansi_to_wide(log.errors.at(1)).substr(0, 26), L"Генерация листа отклонена:");
  Tvx_rc::set_lang(0);
}

}  // namespace
