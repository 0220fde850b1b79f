// Reading designations forgivingly, as every command takes them, printing them back whole, and where
// sheets lie, through the library's boxes.
#include "designation.h"

#include <cmath>
#include <cwchar>
#include <string>
#include <vector>

#include "utf8.h"

namespace vxk {

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
using vxk::usage_error;

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

bool is_blank(wchar_t c) {
  return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == 0xA0 || c == 0x2009 || c == 0x202F;
}

// Hyphens, dashes and the minus sign all separate levels.
bool is_dash(wchar_t c) {
  return c == L'-' || (c >= 0x2010 && c <= 0x2015) || c == 0x2212;
}

bool is_separator(wchar_t c) {
  return c == L'-' || c == L',';
}

// Blanks around the text and around its separators go; a blank between two parts stands for "-".
std::wstring without_blanks(const std::wstring& text) {
  std::wstring out;
  bool gap = false;
  for (wchar_t c : text) {
    if (is_blank(c)) {
      gap = true;
      continue;
    }
    if (is_dash(c)) c = L'-';
    if (gap && !out.empty() && !is_separator(c) && !is_separator(out.back())) out += L'-';
    gap = false;
    out += c;
  }
  return out;
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

// The levels of one sheet, as written, into the record; gives the scale they name.
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

// Puts the parsed sheet at its scale, type and hemisphere.
void place_sheet(Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, Tvx_stdlist_type type, bool south) {
  const Tvx_stdlist_hemisphere hemisphere = south ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH;
  vx_stdlist_init(sheet, scale, VX_STDLIST_TP_SGL, hemisphere);
  vx_stdlist_init(sheet, scale, type, hemisphere);
  fail_if(vx_stdlist_get_type(sheet) != type,
          "type " + std::to_string(type) + " is not available at " + u8(vx_stdlist_scale_tostr(sheet)) +
              " (1:200,000 joins 1 to 3 sheets, the other scales 1, 2 or 4)");
  fail_if(!vx_stdlist_valid(sheet), "the sheet is not valid");
}

// The number of sheets a text joins, checked against the type asked for.
Tvx_stdlist_type joined_count(const std::string& utf8, size_t sheets, Tvx_stdlist_type type) {
  fail_if(sheets > 4, "'" + utf8 + "' joins more than four sheets");
  if (sheets > 1 && type != 0 && static_cast<size_t>(type) != sheets)
    throw usage_error{"'" + utf8 + "' joins " + std::to_string(sheets) + " sheets, not the " +
                      std::to_string(type) + " of --type"};
  return type != 0 ? type : static_cast<Tvx_stdlist_type>(sheets);
}

}  // namespace

namespace vxk {

std::wstring full_designation_of(const Tvx_stdlist_string* sheet) {
  const std::wstring text = designation_of(sheet);
  if (vx_stdlist_get_scale(sheet) != VX_STDLIST_SC_10) return text;
  return std::wstring(1, static_cast<wchar_t>(vx_stdlist_get_mln_letter(sheet))) + L"-" +
         std::to_wstring(vx_stdlist_get_mln_number(sheet)) + text;
}

void read_printed_designation(const std::string& utf8, bool south, Tvx_stdlist_string* sheet,
                              Tvx_stdlist_type type) {
  const std::wstring text = without_blanks(utf8_to_wide(utf8));
  fail_if(!text.empty() && text[0] == L'-',
          "'" + utf8 +
              "' is how the library writes a 1:10,000 sheet, without its band and column: write them in "
              "front, as in N-37" +
              u8(text));
  const std::vector<std::wstring> sheets = split(text, L',');
  const Tvx_stdlist_type joined = joined_count(utf8, sheets.size(), type);
  place_sheet(sheet, parse_designation(tidy_sheet(sheets[0]), sheet), joined, south);
  if (sheets.size() == 1) return;
  fail_if(vx_stdlist_get_scale(sheet) == VX_STDLIST_SC_10,
          "the library does not name joined sheets at 1:10,000: give the first sheet and --type " +
              std::to_string(joined));
  const std::wstring printed = designation_of(sheet);
  fail_if(folded(printed) != folded(text), "'" + utf8 + "' is not a sheet the library knows: the " +
                                               type_name(joined) + " sheet from " +
                                               u8(tidy_sheet(sheets[0])) + " reads " + u8(printed));
}

// ---- where sheets lie ------------------------------------------------------------------------------

namespace {

// Every edge of the series lies on a whole number of 75 seconds (1/48 degree: the 1:10,000 sheets are
// 3'45" wide and 2'30" high). The library's edges carry the rounding of how they are computed
// (3.3e-16 for the equator); the nearest such multiple, where it is that near, is the edge itself.
double edge(double degrees) {
  const double multiple = std::round(degrees * 48.0) / 48.0 + 0.0;  // + 0.0: no "-0"
  return std::fabs(multiple - degrees) < 1e-9 ? multiple : degrees;
}

}  // namespace

sheet_box box_of(const Tvx_stdlist_string* sheet) {
  sheet_box b{};
  fail_if(!vx_stdlist_get_box(sheet, &b.west, &b.east, &b.south, &b.north), "the sheet is not valid");
  return {edge(b.west), edge(b.east), edge(b.south), edge(b.north)};
}

std::vector<sheet_record> children_of(const Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale) {
  const Tvx_stdlist_hemisphere hemisphere = vx_stdlist_get_hemisphere(sheet);
  fail_if(scale <= vx_stdlist_get_scale(sheet),
          "the sheets listed must be of a finer scale than " + u8(vx_stdlist_scale_tostr(sheet)));
  const sheet_box p = box_of(sheet);
  sheet_record probe;
  fail_if(!vx_stdlist_init_at(probe.get(), scale, hemisphere, (p.west + p.east) / 2, (p.south + p.north) / 2),
          "no sheet of that scale lies in the sheet");
  const sheet_box c = box_of(probe.get());
  const double width = c.east - c.west, height = c.north - c.south;
  const long columns = std::lround((p.east - p.west) / width),
             rows = std::lround((p.north - p.south) / height);
  std::vector<sheet_record> out;
  for (long r = 0; r < rows; ++r) {
    const double y =
        hemisphere == VX_STDLIST_NORTH ? p.north - (r + 0.5) * height : p.south + (r + 0.5) * height;
    for (long k = 0; k < columns; ++k) {
      out.emplace_back();
      fail_if(!vx_stdlist_init_at(out.back().get(), scale, hemisphere, p.west + (k + 0.5) * width, y),
              "a sheet inside could not be found");
    }
  }
  return out;
}

Tvx_stdlist_scale scale_of(const std::string& text) {
  std::string digits;
  for (char c : text.rfind("1:", 0) == 0 ? text.substr(2) : text) {
    if (c != ' ' && c != ',' && c != '_' && c != '\'') digits += c;
  }
  static const std::pair<const char*, Tvx_stdlist_scale> scales[] = {
      {"1000000", VX_STDLIST_SC_MLN}, {"500000", VX_STDLIST_SC_500}, {"200000", VX_STDLIST_SC_200},
      {"100000", VX_STDLIST_SC_100},  {"50000", VX_STDLIST_SC_50},   {"25000", VX_STDLIST_SC_25},
      {"10000", VX_STDLIST_SC_10}};
  for (const auto& [number, scale] : scales) {
    if (digits == number) return scale;
  }
  throw usage_error{"'" + text +
                    "' is not a scale of the series: 1:1000000, 1:500000, 1:200000, 1:100000, 1:50000, "
                    "1:25000 or 1:10000"};
}

}  // namespace vxk
