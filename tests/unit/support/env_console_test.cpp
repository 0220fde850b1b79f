#include "support/env_console.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "support/ansi_code_page.h"
#include "vxk_proj4_shp.h"

namespace {

// A console environment writing into a temporary stream whose content the test reads back.
class ConsoleEnv : public ::testing::Test {
 protected:
  void SetUp() override {
    stream_ = std::tmpfile();
    ASSERT_NE(stream_, nullptr);
    env_ = std::make_unique<Tvx_env_console>(stream_);
  }
  void TearDown() override { std::fclose(stream_); }

  std::string output() {
    std::fflush(stream_);
    std::string text;
    std::rewind(stream_);
    for (int c; (c = std::fgetc(stream_)) != EOF;) text += static_cast<char>(c);
    return text;
  }

  std::FILE* stream_ = nullptr;
  std::unique_ptr<Tvx_env_console> env_;
};

TEST_F(ConsoleEnv, MessagesErrorsAndDebugLines) {
  env_->message("hello");
  env_->error("bad");
  env_->debug_message("one");
  env_->set_debug_flag(false);
  env_->debug_message("two");
  env_->set_debug_flag(true);
  env_->debug_message("three");
  EXPECT_EQ(output(), "Message: hello\nError: bad\nDebug: one\nDebug: three\n");
  EXPECT_FALSE(env_->stopped());
}

TEST_F(ConsoleEnv, WaitMarkOnlyOneAtATime) {
  void* h = env_->wait_start("loading");
  ASSERT_NE(h, nullptr);
  EXPECT_EQ(env_->wait_start("other"), nullptr);
  int foreign = 0;
  env_->wait_finish(&foreign, 0);
  env_->wait_finish(nullptr, 0);
  env_->wait_finish(h, 7);
  env_->wait_finish(h, 0);  // cleared already
  EXPECT_EQ(output(), "Wait: loading\nFinished: loading\n");
}

TEST_F(ConsoleEnv, ProgressToTheEnd) {
  void* h = env_->progress_start("Reprojecting");
  ASSERT_NE(h, nullptr);
  for (uint32_t i = 1; i <= 30; ++i) env_->progress(h, i, 30);
  env_->progress(h, 30, 30);  // nothing more
  env_->progress_finish(h, 0);
  EXPECT_EQ(output(),
            "Reprojecting\n0%....10%....20%....30%....40%....50%....60%....70%....80%....90%....100%"
            " - done\n");
}

TEST_F(ConsoleEnv, ProgressInOneJumpAndRounding) {
  void* h = env_->progress_start("p");
  env_->progress(h, 1, 200);  // 0.5% rounds to 1: no mark
  env_->progress(h, 3, 200);  // 2%: one dot
  env_->progress(h, 2, 200);  // going back prints nothing
  env_->progress(h, 25, 100);
  EXPECT_EQ(output(), "p\n0%....10%....20%..");
}

TEST_F(ConsoleEnv, SecondProgressStartGivesNullAndNullHandlePrintsNothing) {
  void* h = env_->progress_start("first");
  EXPECT_EQ(env_->progress_start("second"), nullptr);
  env_->progress(nullptr, 10, 10);
  env_->progress_finish(nullptr, 0);
  env_->progress(h, 1, 10);
  EXPECT_EQ(output(), "first\n0%....10%");
}

TEST_F(ConsoleEnv, ProgressFinishWordsByStatus) {
  void* h = env_->progress_start("a");
  env_->progress_finish(h, 101);
  h = env_->progress_start("b");
  env_->progress_finish(h, 5);
  h = env_->progress_start("c");
  env_->progress_finish(h, 0);
  EXPECT_EQ(output(), "a\n0% - user stop\nb\n0% - error\nc\n0% - done\n");
}

TEST_F(ConsoleEnv, ProgressFinishInRussian) {
  vx_res_set_lng(0);
  void* h = env_->progress_start("x");
  env_->progress_finish(h, 101);
  EXPECT_EQ(vx::strconv::ansi_to_wide(output()), L"x\n0% - прервано пользователем\n");
}

TEST_F(ConsoleEnv, ProgressGuardsAgainstZeroTotalAndOvershoot) {
  void* h = env_->progress_start("z");
  env_->progress(h, 5, 0);
  env_->progress(h, 50, 10);  // beyond the total: the bar stops at its end
  EXPECT_EQ(output(), "z\n0%....10%....20%....30%....40%....50%....60%....70%....80%....90%....100%");
}

TEST(ConsoleEnvStdout, WritesToStandardOutputByDefault) {
  Tvx_env_console env;
  ::testing::internal::CaptureStdout();
  env.message("to stdout");
  void* h = env.progress_start("run");
  env.progress(h, 1, 1);
  env.progress_finish(h, 0);
  EXPECT_EQ(
      ::testing::internal::GetCapturedStdout(),
      "Message: to stdout\nrun\n0%....10%....20%....30%....40%....50%....60%....70%....80%....90%....100%"
      " - done\n");
}

}  // namespace
