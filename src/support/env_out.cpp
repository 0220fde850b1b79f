#include "support/env_out.h"

void Tvx_env_out::set(void* user, vx_env_text_fn message, vx_env_text_fn error, vx_env_flag_fn set_debug_flag,
                      vx_env_text_fn debug_message, vx_env_start_fn wait_start, vx_env_finish_fn wait_finish,
                      vx_env_start_fn progress_start, vx_env_progress_fn progress,
                      vx_env_finish_fn progress_finish, vx_env_stopped_fn stopped) {
  set(user, vx_env_callbacks{message, error, set_debug_flag, debug_message, wait_start, wait_finish,
                             progress_start, progress, progress_finish, stopped});
}

void Tvx_env_out::set(void* user, const vx_env_callbacks& callbacks) {
  f_user = user;
  f_fn = callbacks;
}

void Tvx_env_out::message(const char* text) {
  if (f_fn.message) f_fn.message(f_user, text);
}

void Tvx_env_out::error(const char* text) {
  if (f_fn.error) f_fn.error(f_user, text);
}

void Tvx_env_out::set_debug_flag(bool flag) {
  if (f_fn.set_debug_flag) f_fn.set_debug_flag(f_user, flag);
}

void Tvx_env_out::debug_message(const char* text) {
  if (f_fn.debug_message) f_fn.debug_message(f_user, text);
}

void* Tvx_env_out::wait_start(const char* text) {
  return f_fn.wait_start ? f_fn.wait_start(f_user, text) : nullptr;
}

void Tvx_env_out::wait_finish(void* handle, int status) {
  if (f_fn.wait_finish) f_fn.wait_finish(f_user, handle, status);
}

void* Tvx_env_out::progress_start(const char* text) {
  return f_fn.progress_start ? f_fn.progress_start(f_user, text) : nullptr;
}

void Tvx_env_out::progress(void* handle, uint32_t current, uint32_t total) {
  if (f_fn.progress) f_fn.progress(f_user, handle, current, total);
}

void Tvx_env_out::progress_finish(void* handle, int status) {
  if (f_fn.progress_finish) f_fn.progress_finish(f_user, handle, status);
}

bool Tvx_env_out::stopped() {
  return f_fn.stopped ? f_fn.stopped(f_user) : false;
}

namespace {

// The one environment that the host installs through the exported entries.
Tvx_env_out& host_env() {
  static Tvx_env_out env;
  return env;
}

}  // namespace

extern "C" {

VX_API void vx_env_install_out(const vx_env_callbacks* callbacks, void* user) {
  host_env().set(user, callbacks ? *callbacks : vx_env_callbacks{});
  Tvx_env_main::set_env(&host_env());
}

VX_API void vx_env_remove_out(void) {
  if (Tvx_env_main::get_env() == &host_env()) Tvx_env_main::set_env(nullptr);
  host_env().set(nullptr, vx_env_callbacks{});
}

}  // extern "C"
