// An environment for tests that keeps the error and debug texts it receives; it is installed while the
// object lives, and the environment before it comes back afterwards.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/env.h"

namespace vxk_test {

class env_log : public Tvx_env {
 public:
  env_log() : old(Tvx_env_main::get_env()) { Tvx_env_main::set_env(this); }
  env_log(const env_log&) = delete;
  env_log& operator=(const env_log&) = delete;
  ~env_log() override { Tvx_env_main::set_env(old); }

  std::vector<std::string> errors;
  std::vector<std::string> debug;

  void message(const char*) override {}
  void error(const char* text) override { errors.emplace_back(text); }
  void set_debug_flag(bool) override {}
  void debug_message(const char* text) override { debug.emplace_back(text); }
  void* wait_start(const char*) override { return nullptr; }
  void wait_finish(void*, int) override {}
  void* progress_start(const char*) override { return nullptr; }
  void progress(void*, uint32_t, uint32_t) override {}
  void progress_finish(void*, int) override {}
  bool stopped() override { return false; }

 private:
  Tvx_env* old;
};

}  // namespace vxk_test
