#include "support/env_out.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Records every callback as one line of text.
struct recorder {
  std::vector<std::string> lines;
  int handle = 0;
  bool stop = true;
};

recorder& rec(void* user) {
  return *static_cast<recorder*>(user);
}

vx_env_callbacks recording_callbacks() {
  vx_env_callbacks cb{};
  cb.message = [](void* u, const char* t) { rec(u).lines.push_back(std::string("message ") + t); };
  cb.error = [](void* u, const char* t) { rec(u).lines.push_back(std::string("error ") + t); };
  cb.set_debug_flag = [](void* u, bool f) { rec(u).lines.push_back(f ? "debug on" : "debug off"); };
  cb.debug_message = [](void* u, const char* t) { rec(u).lines.push_back(std::string("debug ") + t); };
  cb.wait_start = [](void* u, const char* t) -> void* {
    rec(u).lines.push_back(std::string("wait ") + t);
    return &rec(u).handle;
  };
  cb.wait_finish = [](void* u, void* h, int s) {
    rec(u).lines.push_back("wait_finish " + std::to_string(h == &rec(u).handle) + " " + std::to_string(s));
  };
  cb.progress_start = [](void* u, const char* t) -> void* {
    rec(u).lines.push_back(std::string("progress ") + t);
    return &rec(u).handle;
  };
  cb.progress = [](void* u, void* h, uint32_t c, uint32_t n) {
    rec(u).lines.push_back("step " + std::to_string(c) + "/" + std::to_string(n));
  };
  cb.progress_finish = [](void* u, void* h, int s) {
    rec(u).lines.push_back("progress_finish " + std::to_string(s));
  };
  cb.stopped = [](void* u) { return rec(u).stop; };
  return cb;
}

TEST(EnvOut, NullPointersAreSafe) {
  Tvx_env_out env;
  env.message("a");
  env.error("a");
  env.set_debug_flag(true);
  env.debug_message("a");
  EXPECT_EQ(env.wait_start("a"), nullptr);
  env.wait_finish(nullptr, 0);
  EXPECT_EQ(env.progress_start("a"), nullptr);
  env.progress(nullptr, 1, 2);
  env.progress_finish(nullptr, 0);
  EXPECT_FALSE(env.stopped());
}

TEST(EnvOut, ForwardsWithTheUserPointerFirst) {
  recorder r;
  const vx_env_callbacks cb = recording_callbacks();
  Tvx_env_out env;
  env.set(&r, cb.message, cb.error, cb.set_debug_flag, cb.debug_message, cb.wait_start, cb.wait_finish,
          cb.progress_start, cb.progress, cb.progress_finish, cb.stopped);
  env.message("m");
  env.error("e");
  env.set_debug_flag(false);
  env.debug_message("d");
  void* w = env.wait_start("w");
  EXPECT_EQ(w, &r.handle);
  env.wait_finish(w, 2);
  void* p = env.progress_start("p");
  env.progress(p, 3, 4);
  env.progress_finish(p, 101);
  EXPECT_TRUE(env.stopped());
  const std::vector<std::string> expected = {"message m",  "error e",  "debug off",
                                             "debug d",    "wait w",   "wait_finish 1 2",
                                             "progress p", "step 3/4", "progress_finish 101"};
  EXPECT_EQ(r.lines, expected);
}

TEST(EnvOut, HostInstallsAndRemovesThroughTheExportedEntries) {
  recorder r;
  const vx_env_callbacks cb = recording_callbacks();
  vx_env_install_out(&cb, &r);
  ASSERT_NE(Tvx_env_main::get_env(), nullptr);
  Tvx_env_main::error_rc(10, 1, "a.shp");
  EXPECT_TRUE(Tvx_env_main::stopped());
  vx_env_remove_out();
  EXPECT_EQ(Tvx_env_main::get_env(), nullptr);
  Tvx_env_main::error("gone");
  EXPECT_FALSE(Tvx_env_main::stopped());
  EXPECT_EQ(r.lines, std::vector<std::string>{"error Can't open file: \"a.shp\""});
}

TEST(EnvOut, InstallWithNullCallbacksIsSafe) {
  vx_env_install_out(nullptr, nullptr);
  Tvx_env_main::error("nowhere");
  EXPECT_EQ(Tvx_env_main::progress_start("p"), nullptr);
  EXPECT_FALSE(Tvx_env_main::stopped());
  vx_env_remove_out();
  EXPECT_EQ(Tvx_env_main::get_env(), nullptr);
}

TEST(EnvOut, RemoveLeavesAnotherEnvironmentAlone) {
  Tvx_env_out other;
  Tvx_env_main::set_env(&other);
  vx_env_remove_out();
  EXPECT_EQ(Tvx_env_main::get_env(), &other);
  Tvx_env_main::set_env(nullptr);
}

}  // namespace
