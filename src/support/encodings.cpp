#include "support/encodings.h"

#include "support/ansi_code_page.h"

namespace vx::strconv {

const std::array<encoding_row, ENCODING_COUNT>& encoding_table() {
  static const std::array<encoding_row, ENCODING_COUNT> table = {{
      {encodings::utf8, "UTF-8", "UTF-8", 65001},
      {encodings::utf16, "UTF-16", "UTF-16", 0},
      {encodings::utf16le, "UTF-16LE", "UTF-16LE", 0},
      {encodings::utf16be, "UTF-16BE", "UTF-16BE", 0},
      {encodings::utf32, "UTF-32", "UTF-32", 0},
      {encodings::utf32le, "UTF-32LE", "UTF-32BE", 0},
      {encodings::utf32be, "UTF-32BE", "UTF-32LE", 0},
      {encodings::cp1250, "CP1250", "Windows-1250", 1250},
      {encodings::cp1251, "CP1251", "Windows-1251", 1251},
      {encodings::cp1252, "CP1252", "Windows-1252", 1252},
      {encodings::cp1253, "CP1253", "Windows-1253", 1253},
      {encodings::cp1254, "CP1254", "Windows-1254", 1254},
      {encodings::cp1255, "CP1255", "Windows-1255", 1255},
      {encodings::cp1256, "CP1256", "Windows-1256", 1256},
      {encodings::cp1257, "CP1257", "Windows-1257", 1257},
      {encodings::cp1258, "CP1258", "Windows-1258", 1258},
      {encodings::cp866, "CP866", "OEM 866", 866},
      {encodings::ascii, "ASCII", "US-ASCII", 20127},
      {encodings::system, "SYSTEM", "ANSI", 0},
  }};
  return table;
}

const encoding_row& encoding_info(encodings encoding) {
  const int index = static_cast<int>(encoding);
  return encoding_table()[index >= 0 && index < ENCODING_COUNT ? index : static_cast<int>(encodings::system)];
}

const char* iconv_name_of_code_page(uint32_t code_page) {
  switch (code_page) {
    case 0:
      return ansi_iconv_name();
    case 65001:
      return "UTF-8";
    case 866:
      return "CP866";
    case 20127:
      return "ASCII";
    case 1250:
      return "WINDOWS-1250";
    case 1251:
      return "WINDOWS-1251";
    case 1252:
      return "WINDOWS-1252";
    case 1253:
      return "WINDOWS-1253";
    case 1254:
      return "WINDOWS-1254";
    case 1255:
      return "WINDOWS-1255";
    case 1256:
      return "WINDOWS-1256";
    case 1257:
      return "WINDOWS-1257";
    case 1258:
      return "WINDOWS-1258";
    default:
      return nullptr;
  }
}

std::string encode(encodings encoding, const std::wstring& text) {
  const char* name = iconv_name_of_code_page(encoding_info(encoding).code_page);
  if (text.empty() || !name) return std::string();
  return wide_to_narrow(text, name);
}

}  // namespace vx::strconv
