// vxk sheet: parse a map sheet designation, print what the library makes of it, and list the legal
// values of every level. Everything goes through the public header.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

#include "command.h"
#include "designation.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace {

using vxk::designation_of;
using vxk::fail_if;
using vxk::failure;
using vxk::parse_designation;
using vxk::rows_sink;
using vxk::sheet_record;
using vxk::u8;

const char* const kUsage =
    "usage: vxk sheet [--south] [--type N] DESIGNATION\n"
    "       vxk sheet [--south] [--type N] --neighbours DESIGNATION\n"
    "       vxk sheet --lists\n"
    "\n"
    "Parses the designation of a single map sheet, at any scale from 1:1,000,000 to 1:10,000,\n"
    "and prints the designation the library gives back, the scale, the type, whether the sheet is\n"
    "valid and its middle meridian.\n"
    "\n"
    "options:\n"
    "  --south     the sheet lies in the southern hemisphere (the default is north)\n"
    "  --type N    join N sheets in one row: 1 single, 2 double, 3 triple, 4 quadruple;\n"
    "              the designation names the first (westernmost) sheet\n"
    "  --neighbours  print the designations of the four neighbours of a 1:200,000 sheet\n"
    "              (left, right, upper, lower), of the same type as the sheet\n"
    "  --lists     print every list of legal values, level by level\n"
    "  --help      this text\n"
    "\n"
    "Designations (band letter A to V, column 1 to 60, then the finer levels; the letters of\n"
    "1:500,000, 1:50,000 and 1:25,000 are Cyrillic):\n"
    "  N-37                 1:1,000,000\n"
    "  N-37-А               1:500,000\n"
    "  N-37-VI              1:200,000\n"
    "  N-37-12              1:100,000\n"
    "  N-37-12-Б            1:50,000\n"
    "  N-37-12-Б-в          1:25,000\n"
    "  N-37-12-Б-в-4        1:10,000\n"
    "\n"
    "examples:\n"
    "  vxk sheet N-37-VI\n"
    "  vxk sheet --type 2 N-37-VI        prints N-37-VI,38-I\n"
    "  vxk sheet --south --type 4 S-60   a quadruple across the date line\n"
    "  vxk sheet --neighbours N-37-VI    left N-37-V, right N-38-I, upper O-37-XXXVI, ...\n"
    "  vxk sheet --neighbours --type 2 N-37-I\n"
    "  vxk sheet --lists\n";

struct options {
  bool south = false;
  bool lists = false;
  bool neighbours = false;
  bool help = false;
  Tvx_stdlist_type type = VX_STDLIST_TP_SGL;
  std::vector<std::string> designations;
};

options parse_options(const std::vector<std::string>& args) {
  options o;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--help" || a == "-h") {
      o.help = true;
    } else if (a == "--south") {
      o.south = true;
    } else if (a == "--lists") {
      o.lists = true;
    } else if (a == "--neighbours" || a == "--neighbors") {
      o.neighbours = true;
    } else if (a == "--type") {
      fail_if(i + 1 >= args.size(), "--type needs a value from 1 to 4");
      const std::string& v = args[++i];
      fail_if(v.size() != 1 || v[0] < '1' || v[0] > '4', "--type takes 1 to 4, not '" + v + "'");
      o.type = v[0] - '0';
    } else if (a.size() > 1 && a[0] == '-' && a[1] == '-') {
      throw failure{"unknown option '" + a + "'"};
    } else {
      o.designations.push_back(a);
    }
  }
  return o;
}

void print_sheet(const Tvx_stdlist_string* sheet) {
  std::printf("designation:  %s\n", u8(designation_of(sheet)).c_str());
  std::printf("scale:        %s\n", u8(vx_stdlist_scale_tostr(sheet)).c_str());
  std::printf("type:         %d (%s)\n", vx_stdlist_get_type(sheet),
              u8(vx_stdlist_type_tostr(sheet)).c_str());
  std::printf("hemisphere:   %c\n", static_cast<char>(vx_stdlist_hemisphere_tostr(sheet)));
  std::printf("valid:        %s\n", vx_stdlist_valid(sheet) ? "yes" : "no");
  std::printf("mid meridian: %g\n", vx_stdlist_get_mid_meridian(sheet));
}

void print_list(const char* name, void (*fetch)(Ivx_string_adp*)) {
  rows_sink sink;
  fetch(sink.get());
  std::string line;
  for (const std::wstring& row : sink.rows()) {
    line += line.empty() ? "" : ", ";
    line += row.empty() ? "\"\"" : u8(row);
  }
  std::printf("%-14s %s\n", name, line.c_str());
}

void print_lists() {
  print_list("hemispheres:", vx_stdlist_fetch_hemispheres);
  print_list("scales:", vx_stdlist_fetch_scales);
  print_list("types:", vx_stdlist_fetch_types);
  print_list("1:1000000:", vx_stdlist_fetch_mln_letters);
  print_list("", vx_stdlist_fetch_mln_numbers);
  print_list("1:500000:", vx_stdlist_fetch_500_letters);
  print_list("1:200000:", vx_stdlist_fetch_200_romans);
  print_list("1:100000:", vx_stdlist_fetch_100_numbers);
  print_list("1:50000:", vx_stdlist_fetch_50_letters);
  print_list("1:25000:", vx_stdlist_fetch_25_letters);
  print_list("1:10000:", vx_stdlist_fetch_10_numbers);
}

// ---- neighbours of a 1:200,000 sheet ----------------------------------------------------------------

void print_neighbours(const Tvx_stdlist_string* sheet) {
  fail_if(vx_stdlist_get_scale(sheet) != VX_STDLIST_SC_200,
          "neighbours are known for 1:200,000 sheets only, such as N-37-VI; this sheet is at " +
              u8(vx_stdlist_scale_tostr(sheet)));
  rows_sink sink;
  fail_if(!vx_stdlist_fetch_neighbours(sheet, sink.get()) || sink.rows().size() != 4,
          "the neighbours of this sheet could not be worked out");
  const std::vector<std::wstring>& n = sink.rows();
  std::printf("sheet:  %s\n", u8(designation_of(sheet)).c_str());
  std::printf("left:   %s\n", u8(n[0]).c_str());
  std::printf("right:  %s\n", u8(n[1]).c_str());
  std::printf("upper:  %s\n", u8(n[2]).c_str());
  std::printf("lower:  %s\n", u8(n[3]).c_str());
}

int run(const options& o) {
  if (o.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (o.lists) {
    fail_if(!o.designations.empty() || o.neighbours, "--lists takes no designation");
    print_lists();
    return 0;
  }
  fail_if(o.designations.size() != 1, "expected one designation (see 'vxk sheet --help')");
  sheet_record sheet;
  const Tvx_stdlist_scale scale = parse_designation(vxk::utf8_to_wide(o.designations[0]), sheet.get());
  vxk::place_sheet(sheet.get(), scale, o.type, o.south);
  if (o.neighbours) {
    print_neighbours(sheet.get());
  } else {
    print_sheet(sheet.get());
  }
  return 0;
}

int sheet_command(const std::vector<std::string>& args) {
  try {
    return run(parse_options(args));
  } catch (const failure& f) {
    std::fprintf(stderr, "vxk sheet: %s\n", f.message.c_str());
    return 1;
  }
}

}  // namespace

VXK_COMMAND("sheet", "map sheet designations: parse and print, neighbours, lists of legal values",
            sheet_command);
