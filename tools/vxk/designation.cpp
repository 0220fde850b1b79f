// Reading designations: exactly as `vxk sheet` takes them, or forgivingly as `vxk generate` takes one
// copied from the printed form.
#include "designation.h"

#include <cwchar>
#include <string>
#include <vector>

#include "utf8.h"

namespace vxk {

void fail_if(bool bad, const std::string& message) {
  if (bad) throw failure{message};
}

std::string u8(const std::wstring& text) {
  return wide_to_utf8(text);
}

std::wstring designation_of(const Tvx_stdlist_string* sheet) {
  rows_sink sink;
  vx_stdlist_to_string(sheet, sink.get());
  return sink.rows().empty() ? std::wstring() : sink.rows().front();
}

}  // namespace vxk

namespace {

using vxk::fail_if;
using vxk::failure;
using vxk::u8;

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator) {
  std::vector<std::wstring> fields(1);
  for (wchar_t c : text) {
    if (c == separator) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

bool all_digits(const std::wstring& text) {
  if (text.empty()) return false;
  for (wchar_t c : text) {
    if (c < L'0' || c > L'9') return false;
  }
  return true;
}

bool one_char(const std::wstring& text) {
  return text.size() == 1;
}

// The levels below 1:100,000: "Б", "в", "4". Returns the scale reached.
Tvx_stdlist_scale parse_below_100(const std::vector<std::wstring>& f, Tvx_stdlist_string* sheet) {
  Tvx_stdlist_scale scale = VX_STDLIST_SC_100;
  if (f.size() > 3) {
    fail_if(!one_char(f[3]) || vx_stdlist_set_50_letter(sheet, f[3][0]) == 0,
            "'" + u8(f[3]) + "' is not a 1:50,000 letter (Cyrillic А, Б, В or Г)");
    scale = VX_STDLIST_SC_50;
  }
  if (f.size() > 4) {
    fail_if(!one_char(f[4]) || vx_stdlist_set_25_letter(sheet, f[4][0]) == 0,
            "'" + u8(f[4]) + "' is not a 1:25,000 letter (Cyrillic а, б, в or г)");
    scale = VX_STDLIST_SC_25;
  }
  if (f.size() > 5) {
    fail_if(!one_char(f[5]) || vx_stdlist_set_10_number_str(sheet, f[5][0]) == 0,
            "'" + u8(f[5]) + "' is not a 1:10,000 number (1 to 4)");
    scale = VX_STDLIST_SC_10;
  }
  if (f.size() > 6) throw failure{"unexpected '" + u8(f[6]) + "' after the 1:10,000 number"};
  return scale;
}

// The third field decides the scale: a Cyrillic capital (1:500,000), a Roman numeral (1:200,000) or
// a number (1:100,000, which the finer levels continue).
Tvx_stdlist_scale parse_below_million(const std::vector<std::wstring>& f, Tvx_stdlist_string* sheet) {
  const std::wstring& level = f[2];
  if (all_digits(level)) {
    fail_if(!vx_stdlist_set_100_number(sheet, std::wcstoull(level.c_str(), nullptr, 10)),
            "'" + u8(level) + "' is not a 1:100,000 number (1 to 144)");
    return parse_below_100(f, sheet);
  }
  Tvx_stdlist_scale scale = VX_STDLIST_SC_200;
  if (one_char(level) && vx_stdlist_set_500_letter(sheet, level[0])) {
    scale = VX_STDLIST_SC_500;
  } else {
    fail_if(!vx_stdlist_set_200_roman(sheet, level.c_str()),
            "'" + u8(level) +
                "' is neither a 1:500,000 letter (Cyrillic А to Г), a Roman numeral I to XXXVI nor "
                "a 1:100,000 number");
  }
  if (f.size() > 3) throw failure{"unexpected '" + u8(f[3]) + "' after '" + u8(level) + "'"};
  return scale;
}

// ---- the forgiving reading ------------------------------------------------------------------------

// Case of the Latin and Cyrillic letters, whatever the locale.
wchar_t upper(wchar_t c) {
  if ((c >= L'a' && c <= L'z') || (c >= 0x430 && c <= 0x44F)) return c - 0x20;
  if (c >= 0x450 && c <= 0x45F) return c - 0x50;
  return c;
}

wchar_t lower(wchar_t c) {
  if ((c >= L'A' && c <= L'Z') || (c >= 0x410 && c <= 0x42F)) return c + 0x20;
  if (c >= 0x400 && c <= 0x40F) return c + 0x50;
  return c;
}

// Capital letters that look and read the same in both alphabets, Latin then Cyrillic: one may stand
// for the other. "X" and "I" are numerals here.
const wchar_t* const LATIN_TWINS = L"AEKMOTXI";
const wchar_t* const CYRILLIC_TWINS = L"АЕКМОТХІ";

wchar_t twin(wchar_t c, const wchar_t* from, const wchar_t* to) {
  const wchar_t* at = std::wcschr(from, c);
  return c && at ? to[at - from] : c;
}

wchar_t latin(wchar_t c) {
  return twin(upper(c), CYRILLIC_TWINS, LATIN_TWINS);
}

wchar_t cyrillic(wchar_t c) {
  return twin(upper(c), LATIN_TWINS, CYRILLIC_TWINS);
}

// Letters that look like a letter of the other alphabet but read as another one: which is meant cannot
// be told, so they are refused with both readings.
struct false_friend {
  wchar_t letter;
  const char* looks;
  const char* reads;
};
const false_friend FALSE_FRIENDS[] = {{L'Н', "H", "N"}, {L'Р', "P", "R"}, {L'В', "B", "V"}, {L'С', "C", "S"},
                                      {L'B', "В", "Б"}, {L'H', "Н", "N"}, {L'P', "Р", "R"}, {L'C', "С", "S"}};

// Refuses a look-alike letter that is not the alphabet's own in this field; latin_field tells which
// alphabet the field uses.
void refuse_false_friends(const std::wstring& field, bool latin_field) {
  for (wchar_t c : field) {
    for (const false_friend& f : FALSE_FRIENDS) {
      const bool is_cyrillic = f.letter >= 0x400;
      if (upper(c) != f.letter || is_cyrillic != latin_field) continue;
      throw failure{"'" + u8(std::wstring(1, c)) + "' is a " + (is_cyrillic ? "Cyrillic" : "Latin") +
                    " letter that looks like " + f.looks + " but reads as " + f.reads + ": type the " +
                    (latin_field ? "Latin" : "Cyrillic") + " letter that is meant"};
    }
  }
}

std::wstring mapped(const std::wstring& text, wchar_t (*map)(wchar_t)) {
  std::wstring out;
  for (wchar_t c : text) out += map(c);
  return out;
}

// The third field: a 1:100,000 number, a 1:500,000 letter (Cyrillic А to Г) or a Roman numeral.
std::wstring third_field(const std::wstring& field) {
  if (all_digits(field)) return field;
  if (one_char(field)) {
    const wchar_t c = cyrillic(field[0]);
    if (c >= 0x410 && c <= 0x413) return std::wstring(1, c);
    if (upper(c) == L'B') refuse_false_friends(field, false);
  }
  return mapped(field, latin);
}

std::wstring cyrillic_field(const std::wstring& field) {
  refuse_false_friends(field, false);
  return mapped(field, cyrillic);
}

// One sheet's designation in the letters and case that the levels use: band and numeral Latin capitals,
// the 1:500,000 and 1:50,000 letters Cyrillic capitals, the 1:25,000 letter a Cyrillic small letter.
std::wstring tidy_sheet(const std::wstring& text) {
  std::vector<std::wstring> f = split(text, L'-');
  refuse_false_friends(f[0], true);
  f[0] = mapped(f[0], latin);
  if (f.size() > 2) f[2] = third_field(f[2]);
  if (f.size() > 3) f[3] = cyrillic_field(f[3]);
  if (f.size() > 4) f[4] = mapped(cyrillic_field(f[4]), lower);
  std::wstring out = f[0];
  for (size_t i = 1; i < f.size(); ++i) out += L"-" + f[i];
  return out;
}

std::wstring trimmed(const std::wstring& text) {
  const auto first = text.find_first_not_of(L" \t\r\n");
  if (first == std::wstring::npos) return {};
  return text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
}

// The text with every letter a capital and every look-alike Latin: two designations that read the same
// fold to the same text.
std::wstring folded(const std::wstring& text) {
  return mapped(text, latin);
}

const char* type_name(Tvx_stdlist_type type) {
  static const char* const names[] = {"", "single", "double", "triple", "quadruple"};
  return type >= 1 && type <= 4 ? names[type] : "joined";
}

}  // namespace

namespace vxk {

Tvx_stdlist_scale parse_designation(const std::wstring& text, Tvx_stdlist_string* sheet) {
  const std::vector<std::wstring> f = split(text, L'-');
  fail_if(f.size() < 2, "'" + u8(text) +
                            "' is not a designation: expected at least a band and a column, "
                            "as in N-37");
  fail_if(!one_char(f[0]) || !vx_stdlist_set_mln_letter(sheet, f[0][0]),
          "'" + u8(f[0]) + "' is not a band letter (A to V)");
  fail_if(!all_digits(f[1]) || !vx_stdlist_set_mln_number_str(sheet, f[1].c_str()),
          "'" + u8(f[1]) + "' is not a column number (1 to 60)");
  return f.size() == 2 ? VX_STDLIST_SC_MLN : parse_below_million(f, sheet);
}

void place_sheet(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, Tvx_stdlist_type type, bool south) {
  const Tvx_stdlist_hemisphere hemisphere = south ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH;
  vx_stdlist_init(sheet, scale, VX_STDLIST_TP_SGL, hemisphere);
  vx_stdlist_init(sheet, scale, type, hemisphere);
  fail_if(vx_stdlist_get_type(sheet) != type,
          "type " + std::to_string(type) + " is not available at " + u8(vx_stdlist_scale_tostr(sheet)) +
              " (1:200,000 joins 1 to 3 sheets, the other scales 1, 2 or 4)");
  fail_if(!vx_stdlist_valid(sheet), "the sheet is not valid");
}

void read_printed_designation(const std::string& utf8, bool south, Tvx_stdlist_string* sheet) {
  const std::wstring text = trimmed(utf8_to_wide(utf8));
  const std::vector<std::wstring> sheets = split(text, L',');
  fail_if(sheets.size() > 4, "'" + utf8 + "' joins more than four sheets");
  const auto type = static_cast<Tvx_stdlist_type>(sheets.size());
  place_sheet(sheet, parse_designation(tidy_sheet(sheets[0]), sheet), type, south);
  const std::wstring printed = designation_of(sheet);
  fail_if(folded(printed) != folded(text), "'" + utf8 + "' is not a sheet the library knows: the " +
                                               type_name(type) + " sheet from " + u8(tidy_sheet(sheets[0])) +
                                               " reads " + u8(printed));
}

}  // namespace vxk
