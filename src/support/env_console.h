// An environment that prints every report on a text stream (standard output by default), one line each;
// the progress bar grows on one line: "0%....10%....20%" up to "100%".
#pragma once

#include <cstdio>
#include <string>

#include "support/env.h"

class Tvx_env_console : public Tvx_env {
 public:
  explicit Tvx_env_console(std::FILE* out = stdout) : f_out(out) {}

  void message(const char* text) override;
  void error(const char* text) override;
  void set_debug_flag(bool flag) override { f_debug = flag; }
  void debug_message(const char* text) override;
  void* wait_start(const char* text) override;
  void wait_finish(void* handle, int status) override;
  void* progress_start(const char* text) override;
  void progress(void* handle, uint32_t current, uint32_t total) override;
  void progress_finish(void* handle, int status) override;
  bool stopped() override { return f_stop; }

 private:
  void print(const char* a, const char* b = "", const char* c = "");

  bool f_debug = true;
  std::string f_wait_text;
  void* f_wait_handle = nullptr;
  std::string f_progress_text;
  void* f_progress_handle = nullptr;
  uint32_t f_last_percent = 0;
  bool f_stop = false;
  std::FILE* f_out;
};
