// An environment for the tests: installed while it lives (the environment before it comes back
// afterwards), it keeps the error texts, the messages and the debug texts that the library reports and
// drops everything else.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/env.h"

namespace vxk_test {

class error_log : public Tvx_env {
 public:
  error_log() : old_(Tvx_env_main::get_env()) { Tvx_env_main::set_env(this); }
  ~error_log() override { Tvx_env_main::set_env(old_); }
  error_log(const error_log&) = delete;
  error_log& operator=(const error_log&) = delete;

  std::vector<std::string> errors;
  std::vector<std::string> messages;
  std::vector<std::string> debug;

  void message(const char* text) override { messages.emplace_back(text ? text : ""); }
  void error(const char* text) override { errors.emplace_back(text ? text : ""); }
  void set_debug_flag(bool) override {}
  void debug_message(const char* text) override { debug.emplace_back(text ? text : ""); }
  void* wait_start(const char*) override { return nullptr; }
  void wait_finish(void*, int) override {}
  void* progress_start(const char*) override { return nullptr; }
  void progress(void*, uint32_t, uint32_t) override {}
  void progress_finish(void*, int) override {}
  bool stopped() override { return false; }

 private:
  Tvx_env* old_;
};

}  // namespace vxk_test
