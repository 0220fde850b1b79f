// The system's narrow ("ANSI") code page and conversions between it and wide text.
//
// Attribute table texts, messages, .prj text and the narrow feeds of a string sink use one narrow code
// page. On this platform it is Windows-1251, the code page in which the constant texts of a sheet and
// the Russian messages are stored. ansi_code_page() is the single place that says so.
#pragma once

#include <string>

namespace vx::strconv {

// Numeric code page of the system's narrow texts (1251).
unsigned ansi_code_page();

// iconv name of that code page ("WINDOWS-1251").
const char* ansi_iconv_name();

// Converts between wide text and a narrow code page named as iconv knows it. Characters that the
// target cannot hold become '?'; bytes that the source cannot decode become U+FFFD ('?' when narrow).
std::wstring narrow_to_wide(const std::string& text, const char* iconv_name);
std::string wide_to_narrow(const std::wstring& text, const char* iconv_name);

// The same with the system's narrow code page.
std::wstring ansi_to_wide(const std::string& text);
std::string wide_to_ansi(const std::wstring& text);

// UTF-8, the encoding of paths and PROJ texts.
std::wstring utf8_to_wide(const std::string& text);
std::string wide_to_utf8(const std::wstring& text);

}  // namespace vx::strconv
