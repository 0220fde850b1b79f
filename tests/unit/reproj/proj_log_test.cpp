#include "reproj/proj_log.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <string>
#include <vector>

#include "fault_injection.h"

namespace {

// PROJ's log of a context, through the library's function: the reports of one failing call.
void refuse(const std::string& text) {
  PJ* pj = proj_create(PJ_DEFAULT_CTX, text.c_str());
  if (pj) proj_destroy(pj);
}

TEST(ProjLog, KeepsEachTextOnceWithItsCount) {
  vx::proj_log::install();
  vx::proj_log::take();
  for (int i = 0; i < 3; ++i) refuse("+proj=no_such_projection");
  refuse("+proj=utm +zone=99");
  const std::vector<vx::proj_log::report> reports = vx::proj_log::take();
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(reports[0].count, 3u);
  EXPECT_NE(reports[0].text.find("Unknown projection"), std::string::npos) << reports[0].text;
  EXPECT_EQ(reports[1].count, 1u);
  EXPECT_TRUE(vx::proj_log::take().empty());
}

TEST(ProjLog, DescribesWithACountOnlyWhenRepeated) {
  EXPECT_EQ(vx::proj_log::describe({"tmerc: Invalid latitude", 780}),
            "PROJ: tmerc: Invalid latitude (780 times)");
  EXPECT_EQ(vx::proj_log::describe({"tmerc: Invalid latitude", 1}), "PROJ: tmerc: Invalid latitude");
}

// However many distinct things PROJ says, the store stays small.
TEST(ProjLog, KeepsAFewDistinctTextsAndCountsTheOthers) {
  vx::proj_log::install();
  vx::proj_log::take();
  for (int zone = 61; zone < 81; ++zone)
    refuse("+proj=utm +zone=" + std::to_string(zone) + " +foo=" + std::to_string(zone));
  const std::vector<vx::proj_log::report> reports = vx::proj_log::take();
  ASSERT_LE(reports.size(), 9u);
  unsigned total = 0;
  for (const auto& r : reports) total += r.count;
  EXPECT_GE(total, 20u);
}

TEST(ProjLog, PassesOnThroughTheEnvironmentAsMessages) {
  vx::proj_log::install();
  vx::proj_log::take();
  refuse("+proj=no_such_projection");
  refuse("+proj=no_such_projection");
  vxk_test::error_log env;
  vx::proj_log::pass_on();
  ASSERT_EQ(env.messages.size(), 1u);
  EXPECT_EQ(env.messages[0].rfind("PROJ: ", 0), 0u) << env.messages[0];
  EXPECT_NE(env.messages[0].find("(2 times)"), std::string::npos) << env.messages[0];
  EXPECT_TRUE(env.errors.empty());
  EXPECT_TRUE(vx::proj_log::take().empty());
}

TEST(ProjLog, ControlCharactersNeverReachAReport) {
  vx::proj_log::install();
  vx::proj_log::take();
  refuse("+proj=\x01\x1b[2J");
  for (const auto& r : vx::proj_log::take())
    for (char c : r.text) EXPECT_GE(static_cast<unsigned char>(c), 0x20u) << r.text;
}

}  // namespace
