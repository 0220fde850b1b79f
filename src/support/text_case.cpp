#include "support/text_case.h"

#include <array>

#include "support/ansi_code_page.h"

namespace vx::text {

namespace {

// Offset from an upper-case letter to its lower-case form, 0 when the character has no lower case.
int lower_offset(wchar_t c) {
  if ((c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return 0x20;       // ASCII, Latin-1
  if ((c >= 0x391 && c <= 0x3AB && c != 0x3A2) || (c >= 0x410 && c <= 0x42F)) return 0x20;  // Greek, Cyrillic
  if (c >= 0x400 && c <= 0x40F) return 0x50;                                                // Ѐ..Џ
  if (((c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) || (c >= 0x4D0 && c <= 0x52F)) && c % 2 == 0)
    return 1;  // Cyrillic letters that pair as even upper, odd lower
  if (c >= 0x4C1 && c <= 0x4CE && c % 2 == 1) return 1;
  if (c == 0x4C0) return 0xF;  // Ӏ -> ӏ
  return 0;
}

int upper_offset(wchar_t c) {
  if ((c >= L'a' && c <= L'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return 0x20;
  if ((c >= 0x3B1 && c <= 0x3CB && c != 0x3C2) || (c >= 0x430 && c <= 0x44F)) return 0x20;
  if (c >= 0x450 && c <= 0x45F) return 0x50;
  if (((c >= 0x461 && c <= 0x481) || (c >= 0x48B && c <= 0x4BF) || (c >= 0x4D1 && c <= 0x52F)) && c % 2 == 1)
    return 1;
  if (c >= 0x4C2 && c <= 0x4CE && c % 2 == 0) return 1;
  if (c == 0x4CF) return 0xF;
  return 0;
}

using byte_table = std::array<unsigned char, 256>;

// Builds a byte-to-byte case table of the narrow code page by way of its wide characters, so that no
// code page table is written out by hand.
byte_table make_ansi_table(bool lower) {
  byte_table table{};
  for (int b = 0; b < 256; ++b) {
    table[b] = static_cast<unsigned char>(b);
    const std::wstring wide = vx::strconv::ansi_to_wide(std::string(1, static_cast<char>(b)));
    if (wide.size() != 1) continue;
    const wchar_t folded = lower ? to_lower(wide[0]) : to_upper(wide[0]);
    if (folded == wide[0]) continue;
    const std::string back = vx::strconv::wide_to_ansi(std::wstring(1, folded));
    if (back.size() == 1 && back != "?") table[b] = static_cast<unsigned char>(back[0]);
  }
  return table;
}

const byte_table& ansi_lower_table() {
  static const byte_table table = make_ansi_table(true);
  return table;
}

const byte_table& ansi_upper_table() {
  static const byte_table table = make_ansi_table(false);
  return table;
}

}  // namespace

wchar_t to_lower(wchar_t c) {
  return static_cast<wchar_t>(c + lower_offset(c));
}
wchar_t to_upper(wchar_t c) {
  return static_cast<wchar_t>(c - upper_offset(c));
}

std::wstring to_lower(std::wstring text) {
  for (wchar_t& c : text) c = to_lower(c);
  return text;
}

std::wstring to_upper(std::wstring text) {
  for (wchar_t& c : text) c = to_upper(c);
  return text;
}

int compare_nocase(const std::wstring& a, const std::wstring& b) {
  const size_t n = a.size() < b.size() ? a.size() : b.size();
  for (size_t i = 0; i < n; ++i) {
    const wchar_t ca = to_lower(a[i]);
    const wchar_t cb = to_lower(b[i]);
    if (ca != cb) return ca < cb ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool equal_nocase(const std::wstring& a, const std::wstring& b) {
  return compare_nocase(a, b) == 0;
}

char ansi_to_lower(char c) {
  return static_cast<char>(ansi_lower_table()[static_cast<unsigned char>(c)]);
}
char ansi_to_upper(char c) {
  return static_cast<char>(ansi_upper_table()[static_cast<unsigned char>(c)]);
}

std::string ansi_to_lower(std::string text) {
  for (char& c : text) c = ansi_to_lower(c);
  return text;
}

std::string ansi_to_upper(std::string text) {
  for (char& c : text) c = ansi_to_upper(c);
  return text;
}

int ansi_compare_nocase(const char* a, const char* b) {
  for (;; ++a, ++b) {
    const unsigned char ca = static_cast<unsigned char>(ansi_to_lower(*a));
    const unsigned char cb = static_cast<unsigned char>(ansi_to_lower(*b));
    if (ca != cb) return ca < cb ? -1 : 1;
    if (ca == 0) return 0;
  }
}

bool ansi_equal_nocase(const std::string& a, const std::string& b) {
  return a.size() == b.size() && ansi_to_lower(a) == ansi_to_lower(b);
}

}  // namespace vx::text
