// Case folding and case-insensitive comparison that do not depend on the C locale.
//
// The library never calls setlocale, so the <cctype>/<cwctype> functions only know ASCII in a plain
// host. These helpers fold ASCII, Latin-1, Greek and Cyrillic letters themselves; the narrow forms work
// on the system's narrow code page (Windows-1251).
#pragma once

#include <string>

namespace vx::text {

// Lower-case / upper-case form of one wide character; anything without a case mapping is returned as is.
wchar_t to_lower(wchar_t c);
wchar_t to_upper(wchar_t c);

std::wstring to_lower(std::wstring text);
std::wstring to_upper(std::wstring text);

// Compares two wide texts character by character after folding to lower case: <0, 0 or >0.
int compare_nocase(const std::wstring& a, const std::wstring& b);
bool equal_nocase(const std::wstring& a, const std::wstring& b);

// The same for one byte of the system's narrow code page.
char ansi_to_lower(char c);
char ansi_to_upper(char c);

std::string ansi_to_lower(std::string text);
std::string ansi_to_upper(std::string text);

// Case-insensitive comparison of two narrow texts in the system's narrow code page.
int ansi_compare_nocase(const char* a, const char* b);
bool ansi_equal_nocase(const std::string& a, const std::string& b);

}  // namespace vx::text
