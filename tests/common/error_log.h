// An environment for the tests: installed while it lives, it keeps the error texts and the messages
// that the library reports and drops everything else.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/env.h"

namespace vxk_test {

class error_log : public Tvx_env {
 public:
  error_log() { Tvx_env_main::set_env(this); }
  ~error_log() override { Tvx_env_main::set_env(nullptr); }
  error_log(const error_log&) = delete;
  error_log& operator=(const error_log&) = delete;

  std::vector<std::string> errors;
  std::vector<std::string> messages;

  void message(const char* text) override { messages.emplace_back(text ? text : ""); }
  void error(const char* text) override { errors.emplace_back(text ? text : ""); }
  void set_debug_flag(bool) override {}
  void debug_message(const char*) override {}
  void* wait_start(const char*) override { return nullptr; }
  void wait_finish(void*, int) override {}
  void* progress_start(const char*) override { return nullptr; }
  void progress(void*, uint32_t, uint32_t) override {}
  void progress_finish(void*, int) override {}
  bool stopped() override { return false; }
};

}  // namespace vxk_test
