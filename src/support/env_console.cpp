#include "support/env_console.h"

#include "support/rc.h"

namespace {

// The word of block 0 of the message table for a finishing status.
int status_word(int status) {
  if (status == 0) return 0;    // "done"
  if (status == 101) return 1;  // "user stop"
  return 2;                     // "error"
}

}  // namespace

void Tvx_env_console::print(const char* a, const char* b, const char* c) {
  std::fputs(a, f_out);
  std::fputs(b ? b : "", f_out);
  std::fputs(c ? c : "", f_out);
  std::fflush(f_out);
}

void Tvx_env_console::message(const char* text) {
  print("Message: ", text, "\n");
}

void Tvx_env_console::error(const char* text) {
  print("Error: ", text, "\n");
}

void Tvx_env_console::debug_message(const char* text) {
  if (f_debug) print("Debug: ", text, "\n");
}

void* Tvx_env_console::wait_start(const char* text) {
  if (f_wait_handle) return nullptr;
  f_wait_text = text ? text : "";
  f_wait_handle = &f_wait_text;
  print("Wait: ", f_wait_text.c_str(), "\n");
  return f_wait_handle;
}

void Tvx_env_console::wait_finish(void* handle, int) {
  if (!handle || handle != f_wait_handle) return;
  f_wait_handle = nullptr;
  print("Finished: ", f_wait_text.c_str(), "\n");
}

void* Tvx_env_console::progress_start(const char* text) {
  if (f_progress_handle) return nullptr;
  f_progress_text = text ? text : "";
  f_progress_handle = &f_progress_text;
  f_last_percent = 0;
  print(f_progress_text.c_str(), "\n", "0%");
  return f_progress_handle;
}

void Tvx_env_console::progress(void* handle, uint32_t current, uint32_t total) {
  if (!handle || handle != f_progress_handle || total == 0) return;
  const uint32_t product = current * 100u;  // 32-bit, as the bar has always computed it
  const double share = static_cast<double>(product) / total + 0.5;
  // A count beyond the total does not draw the bar past its end.
  const uint32_t percent = share >= 100.0 ? 100u : static_cast<uint32_t>(share);
  if (percent <= f_last_percent) return;
  std::string marks;
  for (uint32_t k = f_last_percent + 1; k <= percent; ++k) {
    if (k % 10 == 0)
      marks += std::to_string(k) + "%";
    else if (k % 2 == 0)
      marks += ".";
  }
  f_last_percent = percent;
  print(marks.c_str());
}

void Tvx_env_console::progress_finish(void* handle, int status) {
  if (!handle || handle != f_progress_handle) return;
  f_progress_handle = nullptr;
  const std::string word = Tvx_rc::get_str(0, status_word(status));
  print(" - ", word.c_str(), "\n");
}
