#include "report.h"

#include <iconv.h>

#include "vxk_proj4_shp.h"

namespace vxk {

namespace {

constexpr size_t MAX_ECHO = 160;
// At most this many distinct texts are kept of each kind; a run that fails on every record says the
// same few things many times.
constexpr size_t MAX_LINES = 20;

// The library's reports are in its narrow code page (Windows-1251); the terminal speaks UTF-8.
std::string cp1251_to_utf8(const std::string& text) {
  iconv_t cd = ::iconv_open("UTF-8", "WINDOWS-1251");
  if (cd == reinterpret_cast<iconv_t>(-1)) return text;
  std::string out(text.size() * 3 + 1, '\0');
  char* in = const_cast<char*>(text.data());
  size_t in_left = text.size();
  char* to = out.data();
  size_t out_left = out.size();
  while (in_left > 0 && ::iconv(cd, &in, &in_left, &to, &out_left) == static_cast<size_t>(-1)) {
    *to++ = '?';  // a byte that has no character: shown, not dropped
    --out_left;
    ++in;
    --in_left;
  }
  ::iconv_close(cd);
  out.resize(out.size() - out_left);
  return out;
}

}  // namespace

std::string echo(const std::string& text) {
  size_t cut = text.size();
  if (cut > MAX_ECHO) {
    cut = MAX_ECHO;
    while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
  }
  std::string out = text.substr(0, cut);
  for (char& c : out) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  }
  if (cut < text.size()) out += "... (" + std::to_string(text.size()) + " bytes)";
  return out;
}

library_reports::library_reports() {
  vx_env_callbacks callbacks{};
  callbacks.error = [](void* user, const char* text) {
    add(static_cast<library_reports*>(user)->errors_, text);
  };
  callbacks.message = [](void* user, const char* text) {
    add(static_cast<library_reports*>(user)->messages_, text);
  };
  vx_env_install_out(&callbacks, this);
}

library_reports::~library_reports() {
  vx_env_remove_out();
}

void library_reports::add(std::vector<line>& lines, const char* text) {
  const std::string utf8 = cp1251_to_utf8(text ? text : "");
  for (line& l : lines) {
    if (l.text != utf8) continue;
    ++l.count;
    return;
  }
  if (lines.size() < MAX_LINES) lines.push_back({utf8, 1});
}

std::string library_reports::with_count(const line& l) {
  return l.count > 1 ? l.text + " (repeated " + std::to_string(l.count) + " times)" : l.text;
}

}  // namespace vxk
