// Reporting: messages, errors, debug lines, a busy mark, a progress bar and the question whether the
// user stopped the work. The library does not print; everything goes to the one environment that the
// host installed in Tvx_env_main, and vanishes when none is installed.
//
// Narrow texts here are in the system's narrow code page (Windows-1251).
#pragma once

#include <cstdarg>
#include <cstdint>
#include <map>
#include <string>

class Tvx_env {
 public:
  virtual ~Tvx_env() = default;
  virtual void message(const char* text) = 0;
  virtual void error(const char* text) = 0;
  virtual void set_debug_flag(bool flag) = 0;
  virtual void debug_message(const char* text) = 0;
  virtual void* wait_start(const char* text) = 0;
  virtual void wait_finish(void* handle, int status) = 0;
  virtual void* progress_start(const char* text) = 0;
  virtual void progress(void* handle, uint32_t current, uint32_t total) = 0;
  virtual void progress_finish(void* handle, int status) = 0;
  virtual bool stopped() = 0;
};

// The facade: one installed environment, forwarded to by plain static calls. Not locked: install the
// environment before any work starts.
class Tvx_env_main {
 public:
  static void set_env(Tvx_env* env) { f_env = env; }
  static Tvx_env* get_env() { return f_env; }

  static void message(const char* text);
  static void error(const char* text);
  static void set_debug_flag(bool flag);
  static void debug_message(const char* text);
  static void* wait_start(const char* text);
  static void wait_finish(void* handle, int status);
  static void* progress_start(const char* text);
  static void progress(void* handle, uint32_t current, uint32_t total);
  static void progress_finish(void* handle, int status);
  static bool stopped();

  // Reports an error in the words of the message table: the text of Tvx_rc at (block, index), a printf
  // format, filled with the arguments. Block 10 holds the file errors: 1 open ("%s"), 2 read ("%s"),
  // 3 write ("%s"), and 0 the memory error ("%d"). Nothing is formatted when no environment is installed.
  static void error_rc(int block, int index, ...);
  // The same with a text of this build's own blocks (Tvx_rc::get_ext_str).
  static void error_ext(int block, int index, ...);
  // The text error_rc would report, formatted and given back instead.
  static std::string format_rc(int block, int index, ...);

  // Starts a timer under the label (an earlier start stays), and reports through debug_message the
  // seconds since that start: "<label> time(<seconds>)", or "<label> time(unknown start)".
  static void debug_beg_time(const char* label);
  static void debug_end_time(const char* label);

 private:
  static void error_format(const std::string& format, va_list args);
  static std::string format_text(const std::string& format, va_list args);

  static Tvx_env* f_env;
  static std::map<std::string, long long> f_time_map;
};
