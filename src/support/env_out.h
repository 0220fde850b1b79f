// An environment that forwards every report to plain function pointers of a caller outside the
// library, with the caller's user pointer first. A null pointer drops its report.
#pragma once

#include "support/env.h"
#include "vxk_proj4_shp.h"

class Tvx_env_out : public Tvx_env {
 public:
  void set(void* user, vx_env_text_fn message, vx_env_text_fn error, vx_env_flag_fn set_debug_flag,
           vx_env_text_fn debug_message, vx_env_start_fn wait_start, vx_env_finish_fn wait_finish,
           vx_env_start_fn progress_start, vx_env_progress_fn progress, vx_env_finish_fn progress_finish,
           vx_env_stopped_fn stopped);
  // The same from the public callback table.
  void set(void* user, const vx_env_callbacks& callbacks);

  void message(const char* text) override;
  void error(const char* text) override;
  void set_debug_flag(bool flag) override;
  void debug_message(const char* text) override;
  void* wait_start(const char* text) override;
  void wait_finish(void* handle, int status) override;
  void* progress_start(const char* text) override;
  void progress(void* handle, uint32_t current, uint32_t total) override;
  void progress_finish(void* handle, int status) override;
  bool stopped() override;

 private:
  void* f_user = nullptr;
  vx_env_callbacks f_fn{};
};
