#include "support/ansi_code_page.h"

#include <iconv.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace vx::strconv {

namespace {

// glibc's name for wchar_t text on this platform (UTF-32 in host byte order).
constexpr const char* kWideName = "WCHAR_T";

class iconv_handle {
 public:
  iconv_handle(const char* to, const char* from) : h_(iconv_open(to, from)) {}
  ~iconv_handle() {
    if (ok()) iconv_close(h_);
  }
  iconv_handle(const iconv_handle&) = delete;
  iconv_handle& operator=(const iconv_handle&) = delete;
  bool ok() const { return h_ != reinterpret_cast<iconv_t>(-1); }
  iconv_t get() const { return h_; }

 private:
  iconv_t h_;
};

// Runs the whole input through iconv. An input unit that cannot be converted is replaced by the
// replacement (already in the target encoding) and skipped, so that a conversion never fails as a whole.
std::string convert(const char* to, const char* from, const char* in, size_t in_len, size_t unit,
                    const std::string& replacement) {
  std::string out;
  iconv_handle cd(to, from);
  if (!cd.ok() || in_len == 0) return out;
  std::vector<char> buf(in_len * 4 + 16);
  char* src = const_cast<char*>(in);
  size_t left = in_len;
  while (left > 0) {
    char* dst = buf.data();
    size_t room = buf.size();
    size_t rc = iconv(cd.get(), &src, &left, &dst, &room);
    out.append(buf.data(), dst - buf.data());
    if (rc != static_cast<size_t>(-1)) break;
    if (errno == E2BIG) continue;
    // EILSEQ or EINVAL: replace one input unit and go on.
    out += replacement;
    size_t skip = left < unit ? left : unit;
    src += skip;
    left -= skip;
    iconv(cd.get(), nullptr, nullptr, nullptr, nullptr);
  }
  char* dst = buf.data();
  size_t room = buf.size();
  iconv(cd.get(), nullptr, nullptr, &dst, &room);
  out.append(buf.data(), dst - buf.data());
  return out;
}

std::wstring bytes_to_wide(const std::string& bytes) {
  std::wstring w(bytes.size() / sizeof(wchar_t), L'\0');
  if (!w.empty()) std::memcpy(w.data(), bytes.data(), w.size() * sizeof(wchar_t));
  return w;
}

}  // namespace

unsigned ansi_code_page() {
  return 1251;
}

const char* ansi_iconv_name() {
  return "WINDOWS-1251";
}

std::wstring narrow_to_wide(const std::string& text, const char* iconv_name) {
  const wchar_t repl = 0xFFFD;
  std::string r(reinterpret_cast<const char*>(&repl), sizeof repl);
  return bytes_to_wide(convert(kWideName, iconv_name, text.data(), text.size(), 1, r));
}

std::string wide_to_narrow(const std::wstring& text, const char* iconv_name) {
  return convert(iconv_name, kWideName, reinterpret_cast<const char*>(text.data()),
                 text.size() * sizeof(wchar_t), sizeof(wchar_t), "?");
}

std::wstring ansi_to_wide(const std::string& text) {
  return narrow_to_wide(text, ansi_iconv_name());
}
std::string wide_to_ansi(const std::wstring& text) {
  return wide_to_narrow(text, ansi_iconv_name());
}
std::wstring utf8_to_wide(const std::string& text) {
  return narrow_to_wide(text, "UTF-8");
}
std::string wide_to_utf8(const std::wstring& text) {
  return wide_to_narrow(text, "UTF-8");
}

}  // namespace vx::strconv
