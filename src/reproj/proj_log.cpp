#include "reproj/proj_log.h"

#include <proj.h>

#include <mutex>

#include "support/ansi_code_page.h"
#include "support/echo.h"
#include "support/env.h"

namespace vx::proj_log {

namespace {

constexpr size_t MAX_DISTINCT = 8;
constexpr size_t MAX_TEXT = 300;
const char* const OTHERS = "other reports";

std::mutex& store_mutex() {
  static std::mutex m;
  return m;
}

std::vector<report>& store() {
  static std::vector<report> reports;
  return reports;
}

void keep(void*, int, const char* text) {
  const std::string safe = vx::text::echo(text ? text : "", MAX_TEXT);
  std::lock_guard<std::mutex> lock(store_mutex());
  std::vector<report>& reports = store();
  for (report& r : reports) {
    if (r.text != safe) continue;
    ++r.count;
    return;
  }
  if (reports.size() < MAX_DISTINCT) {
    reports.push_back({safe, 1});
  } else if (reports.back().text == OTHERS) {
    ++reports.back().count;
  } else {
    reports.push_back({OTHERS, 1});
  }
}

}  // namespace

void install() {
  proj_log_func(PJ_DEFAULT_CTX, nullptr, &keep);
}

std::vector<report> take() {
  std::lock_guard<std::mutex> lock(store_mutex());
  std::vector<report> out;
  out.swap(store());
  return out;
}

std::string describe(const report& r) {
  std::string text = "PROJ: " + r.text;
  if (r.count > 1) text += " (" + std::to_string(r.count) + " times)";
  return text;
}

void pass_on() {
  for (const report& r : take()) {
    const std::string text = vx::strconv::wide_to_ansi(vx::strconv::utf8_to_wide(describe(r)));
    Tvx_env_main::message(text.c_str());
  }
}

}  // namespace vx::proj_log
