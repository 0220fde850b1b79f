#include "support/env.h"

#include <cstdarg>
#include <cstdio>
#include <ctime>

#include "support/rc.h"
#include "support/str_func.h"

Tvx_env* Tvx_env_main::f_env = nullptr;
std::map<std::string, long long> Tvx_env_main::f_time_map;

void Tvx_env_main::message(const char* text) {
  if (f_env) f_env->message(text);
}

void Tvx_env_main::error(const char* text) {
  if (f_env) f_env->error(text);
}

void Tvx_env_main::set_debug_flag(bool flag) {
  if (f_env) f_env->set_debug_flag(flag);
}

void Tvx_env_main::debug_message(const char* text) {
  if (f_env) f_env->debug_message(text);
}

void* Tvx_env_main::wait_start(const char* text) {
  return f_env ? f_env->wait_start(text) : nullptr;
}

void Tvx_env_main::wait_finish(void* handle, int status) {
  if (f_env) f_env->wait_finish(handle, status);
}

void* Tvx_env_main::progress_start(const char* text) {
  return f_env ? f_env->progress_start(text) : nullptr;
}

void Tvx_env_main::progress(void* handle, uint32_t current, uint32_t total) {
  if (f_env) f_env->progress(handle, current, total);
}

void Tvx_env_main::progress_finish(void* handle, int status) {
  if (f_env) f_env->progress_finish(handle, status);
}

bool Tvx_env_main::stopped() {
  return f_env ? f_env->stopped() : false;
}

void Tvx_env_main::error_rc(int block, int index, ...) {
  if (!f_env) return;
  va_list args;
  va_start(args, index);
  error_format(Tvx_rc::get_str(block, index), args);
  va_end(args);
}

void Tvx_env_main::error_ext(int block, int index, ...) {
  if (!f_env) return;
  va_list args;
  va_start(args, index);
  error_format(Tvx_rc::get_ext_str(block, index), args);
  va_end(args);
}

std::string Tvx_env_main::format_rc(int block, int index, ...) {
  va_list args;
  va_start(args, index);
  std::string text = format_text(Tvx_rc::get_str(block, index), args);
  va_end(args);
  return text;
}

std::string Tvx_env_main::format_text(const std::string& format, va_list args) {
  char text[2048];
  std::vsnprintf(text, sizeof text, format.c_str(), args);
  return text;
}

void Tvx_env_main::error_format(const std::string& format, va_list args) {
  f_env->error(format_text(format, args).c_str());
}

void Tvx_env_main::debug_beg_time(const char* label) {
  f_time_map.emplace(label ? label : "", static_cast<long long>(std::time(nullptr)));
}

void Tvx_env_main::debug_end_time(const char* label) {
  const long long now = std::time(nullptr);
  const std::string name = label ? label : "";
  const auto it = f_time_map.find(name);
  std::string line = name + " time(";
  if (it == f_time_map.end())
    line += "unknown start";
  else
    line += Tvx_str_func::int2str(static_cast<int>(now - it->second));
  line += ")";
  debug_message(line.c_str());
}
