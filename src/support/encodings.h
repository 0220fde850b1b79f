// The named encodings in which text side files (".prj" above all) are written, and conversion of wide
// text into them. Conversion goes through iconv; the rows with code page 0 (the SYSTEM row, and the
// UTF-16 and UTF-32 rows, which never produce 16-bit or 32-bit output here) use the system's narrow
// code page.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace vx::strconv {

enum class encodings : int {
  utf8 = 0,
  utf16 = 1,
  utf16le = 2,
  utf16be = 3,
  utf32 = 4,
  utf32le = 5,
  utf32be = 6,
  cp1250 = 7,
  cp1251 = 8,
  cp1252 = 9,
  cp1253 = 10,
  cp1254 = 11,
  cp1255 = 12,
  cp1256 = 13,
  cp1257 = 14,
  cp1258 = 15,
  cp866 = 16,
  ascii = 17,
  system = 18,
};

struct encoding_row {
  encodings value;
  const char* name;
  const char* alias;
  uint32_t code_page;  // 0: the system's narrow code page
};

constexpr int ENCODING_COUNT = 19;

// The table in value order. The aliases of UTF-32LE and UTF-32BE stand crossed, as the table has them.
const std::array<encoding_row, ENCODING_COUNT>& encoding_table();
const encoding_row& encoding_info(encodings encoding);

// iconv's name for a Windows code page number; 0 gives the system's narrow code page.
const char* iconv_name_of_code_page(uint32_t code_page);

// The text in the encoding's code page, without a byte order mark. A character the code page lacks
// becomes "?"; a text that cannot be converted at all comes back empty.
std::string encode(encodings encoding, const std::wstring& text);

}  // namespace vx::strconv
