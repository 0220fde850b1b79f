#include "support/str_func.h"

#include <cstdio>
#include <cstring>

#include "support/text_case.h"

std::string Tvx_str_func::f_buffer;

namespace {

constexpr const char* kBlanks = " \r\t\n";

std::string trimmed(const char* text) {
  const std::string s = text ? text : "";
  const size_t first = s.find_first_not_of(kBlanks);
  if (first == std::string::npos) return std::string();
  const size_t last = s.find_last_not_of(kBlanks);
  return s.substr(first, last - first + 1);
}

template <typename T>
std::string print(const char* format, T value) {
  char buf[512];
  const int n = std::snprintf(buf, sizeof buf, format, value);
  if (n < 0) return std::string();
  if (static_cast<size_t>(n) < sizeof buf) return std::string(buf, n);
  std::string big(static_cast<size_t>(n) + 1, '\0');
  std::snprintf(big.data(), big.size(), format, value);
  big.resize(static_cast<size_t>(n));
  return big;
}

}  // namespace

const char* Tvx_str_func::keep(std::string text) {
  f_buffer = std::move(text);
  return f_buffer.c_str();
}

const char* Tvx_str_func::trim(const char* text) {
  return keep(trimmed(text));
}

bool Tvx_str_func::str2int(const char* text, int& value) {
  return text && std::sscanf(text, "%d", &value) == 1;
}

bool Tvx_str_func::str2dbl(const char* text, double& value) {
  return text && std::sscanf(text, "%lg", &value) == 1;
}

const char* Tvx_str_func::int2str(int value) {
  return keep(print("%d", value));
}
const char* Tvx_str_func::dbl2str(double value) {
  return keep(print("%g", value));
}

const char* Tvx_str_func::int2str_format(int value, const char* format) {
  return keep(print(format, value));
}

const char* Tvx_str_func::dbl2str_format(double value, const char* format) {
  return keep(print(format, value));
}

int Tvx_str_func::trim_stricmp(const char* a, const char* b) {
  if (!a && !b) return 0;
  if (!a) return -1;
  if (!b) return 1;
  const std::string first = trimmed(a);  // copied before the second is made, as the buffer is shared
  return vx::text::ansi_compare_nocase(first.c_str(), trimmed(b).c_str());
}

bool Tvx_str_func::divide(const char* text, const char* separators, Tvx_str_vec* list) {
  list->clear();
  std::string token;
  for (const char* p = text ? text : ""; *p; ++p) {
    if (separators && std::strchr(separators, *p)) {
      list->add(token.c_str());
      token.clear();
    } else {
      token += *p;
    }
  }
  list->add(token.c_str());
  return true;
}

void Tvx_str_vec::clear() {
  f_items.clear();
}

void Tvx_str_vec::assign(const Tvx_str_vec& other) {
  f_items = other.f_items;
}

unsigned Tvx_str_vec::get_size() const {
  return static_cast<unsigned>(f_items.size());
}

void Tvx_str_vec::set_size(unsigned count) {
  f_items.resize(count);
}

void Tvx_str_vec::set(unsigned index, const char* text) {
  if (index < f_items.size()) f_items[index] = text ? text : "";
}

void Tvx_str_vec::add(const char* text) {
  f_items.emplace_back(text ? text : "");
}

const char* Tvx_str_vec::get(unsigned index) {
  f_scratch = index < f_items.size() ? f_items[index] : std::string();
  return f_scratch.c_str();
}
