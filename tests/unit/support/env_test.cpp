#include "support/env.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ansi_code_page.h"
#include "support/rc.h"
#include "vxk_proj4_shp.h"

namespace {

using ::testing::_;
using ::testing::Return;
using ::testing::StrEq;

class mock_env : public Tvx_env {
 public:
  MOCK_METHOD(void, message, (const char*), (override));
  MOCK_METHOD(void, error, (const char*), (override));
  MOCK_METHOD(void, set_debug_flag, (bool), (override));
  MOCK_METHOD(void, debug_message, (const char*), (override));
  MOCK_METHOD(void*, wait_start, (const char*), (override));
  MOCK_METHOD(void, wait_finish, (void*, int), (override));
  MOCK_METHOD(void*, progress_start, (const char*), (override));
  MOCK_METHOD(void, progress, (void*, uint32_t, uint32_t), (override));
  MOCK_METHOD(void, progress_finish, (void*, int), (override));
  MOCK_METHOD(bool, stopped, (), (override));
};

// Installs an environment for one test and removes it at the end.
struct installed {
  explicit installed(Tvx_env* env) { Tvx_env_main::set_env(env); }
  ~installed() { Tvx_env_main::set_env(nullptr); }
};

TEST(EnvMain, WithoutEnvironmentEverythingVanishes) {
  ASSERT_EQ(Tvx_env_main::get_env(), nullptr);
  Tvx_env_main::error("lost");
  Tvx_env_main::message("lost");
  Tvx_env_main::set_debug_flag(true);
  Tvx_env_main::debug_message("lost");
  Tvx_env_main::error_rc(10, 1, "a.shp");
  EXPECT_EQ(Tvx_env_main::wait_start("w"), nullptr);
  Tvx_env_main::wait_finish(nullptr, 0);
  EXPECT_EQ(Tvx_env_main::progress_start("p"), nullptr);
  Tvx_env_main::progress(nullptr, 1, 2);
  Tvx_env_main::progress_finish(nullptr, 0);
  EXPECT_FALSE(Tvx_env_main::stopped());
  Tvx_env_main::debug_end_time("t");
}

TEST(EnvMain, ForwardsEveryOperationToTheInstalledEnvironment) {
  mock_env env;
  installed guard(&env);
  int token = 0;
  EXPECT_CALL(env, message(StrEq("m")));
  EXPECT_CALL(env, error(StrEq("e")));
  EXPECT_CALL(env, set_debug_flag(false));
  EXPECT_CALL(env, debug_message(StrEq("d")));
  EXPECT_CALL(env, wait_start(StrEq("w"))).WillOnce(Return(&token));
  EXPECT_CALL(env, wait_finish(&token, 3));
  EXPECT_CALL(env, progress_start(StrEq("p"))).WillOnce(Return(&token));
  EXPECT_CALL(env, progress(&token, 5u, 10u));
  EXPECT_CALL(env, progress_finish(&token, 101));
  EXPECT_CALL(env, stopped()).WillOnce(Return(true));
  EXPECT_EQ(Tvx_env_main::get_env(), &env);
  Tvx_env_main::message("m");
  Tvx_env_main::error("e");
  Tvx_env_main::set_debug_flag(false);
  Tvx_env_main::debug_message("d");
  EXPECT_EQ(Tvx_env_main::wait_start("w"), &token);
  Tvx_env_main::wait_finish(&token, 3);
  EXPECT_EQ(Tvx_env_main::progress_start("p"), &token);
  Tvx_env_main::progress(&token, 5, 10);
  Tvx_env_main::progress_finish(&token, 101);
  EXPECT_TRUE(Tvx_env_main::stopped());
}

TEST(EnvMain, ErrorRcFillsTheFileErrorTexts) {
  mock_env env;
  installed guard(&env);
  EXPECT_CALL(env, error(StrEq("Can't open file: \"a.shp\"")));
  EXPECT_CALL(env, error(StrEq("Error reading file: \"b.dbf\"")));
  EXPECT_CALL(env, error(StrEq("Error writing file: \"c\"")));
  EXPECT_CALL(env, error(StrEq("Not enough memory. Size to alloc: 42")));
  Tvx_env_main::error_rc(10, 1, "a.shp");
  Tvx_env_main::error_rc(10, 2, "b.dbf");
  Tvx_env_main::error_rc(10, 3, "c");
  Tvx_env_main::error_rc(10, 0, 42);
}

TEST(EnvMain, ErrorRcInRussian) {
  vx_res_set_lng(0);
  mock_env env;
  installed guard(&env);
  std::string got;
  EXPECT_CALL(env, error(_)).WillOnce([&](const char* text) { got = text; });
  Tvx_env_main::error_rc(10, 3, "x.shp");
  EXPECT_EQ(vx::strconv::ansi_to_wide(got), L"Ошибка чтения из файла: \"x.shp\"");
}

TEST(EnvMain, DebugEndTimeWithoutStart) {
  mock_env env;
  installed guard(&env);
  EXPECT_CALL(env, debug_message(StrEq("load time(unknown start)")));
  Tvx_env_main::debug_end_time("load");
}

TEST(EnvMain, DebugTimeReportsSecondsAndKeepsTheEntry) {
  mock_env env;
  installed guard(&env);
  EXPECT_CALL(env, debug_message(StrEq("step time(0)"))).Times(2);
  Tvx_env_main::debug_beg_time("step");
  Tvx_env_main::debug_beg_time("step");  // the first start stays
  Tvx_env_main::debug_end_time("step");
  Tvx_env_main::debug_end_time("step");  // still known
}

}  // namespace
