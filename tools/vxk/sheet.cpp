// vxk sheet: read a map sheet designation, print what the library makes of it, its neighbours, where it
// lies and the sheets inside it, find the sheets of a point, and list the legal values of every level.
// Everything goes through the public header.
#include "sheet.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "command.h"
#include "designation.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace {

using vxk::designation_of;
using vxk::fail_if;
using vxk::rows_sink;
using vxk::sheet_record;
using vxk::u8;
using vxk::usage_error;
using vxk::sheet::format;

const char* const kUsage =
    "usage: vxk sheet [--south] [--type N] DESIGNATION\n"
    "       vxk sheet [--south] [--type N] --neighbours DESIGNATION\n"
    "       vxk sheet [--south] [--type N] --bounds [--format text|wkt|geojson] DESIGNATION\n"
    "       vxk sheet [--south] [--type N] --children --scale SCALE [--format text|wkt|geojson] DESIGNATION\n"
    "       vxk sheet --at LAT LON [--scale SCALE] [--south]\n"
    "       vxk sheet --lists\n"
    "\n"
    "Reads the designation of a map sheet, at any scale from 1:1,000,000 to 1:10,000, and prints the\n"
    "designation the library gives back, the scale, the type, whether the sheet is valid and its middle\n"
    "meridian. The designation may be a joined sheet as the library prints it (N-37-VI,38-I is a double\n"
    "sheet). Blanks, case and letters that look and read alike in the Latin and Cyrillic alphabets do not\n"
    "matter (n - 37 - vi, М-37, N-37-A); look-alikes that read differently (Cyrillic Н, Р, В, С as the "
    "band,\n"
    "Latin B where a Cyrillic letter stands) are refused with both readings.\n"
    "\n"
    "options:\n"
    "  --south       the sheet lies in the southern hemisphere (the default is north)\n"
    "  --type N      join N sheets in one row: 1 single, 2 double, 3 triple, 4 quadruple;\n"
    "                the designation names the first (westernmost) sheet\n"
    "  --neighbours  the designations of the four neighbours of a 1:200,000 sheet (left, right, upper,\n"
    "                lower), of the same type as the sheet, as the library's rule gives them; where the\n"
    "                upper or lower one is not the sheet north or south of it (past the pole, across\n"
    "                the equator, band U in the north, every sheet in the south), the sheet that lies\n"
    "                there is named beside it, with the reason\n"
    "  --bounds      the sheet's corners in degrees of Pulkovo 1942, as the generator lays the sheet out\n"
    "                (for a joined sheet, its first sheet's and its own)\n"
    "  --children    the sheets of the finer --scale that lie in the sheet, row by row from the corner\n"
    "                where the numbering starts\n"
    "  --format F    for --bounds and --children: text (the default), wkt (one POLYGON a line) or geojson\n"
    "                (a FeatureCollection, longitude first)\n"
    "  --at LAT LON  the sheets of every scale that hold the point (degrees of Pulkovo 1942: decimal, or\n"
    "                as 55d45'21\"N 37d37'02\"E); a point on an edge belongs to the sheet east of it and to\n"
    "                the one farther from the equator, and the other sheets of that edge are named\n"
    "  --scale S     the one scale asked for, as 1:200000 (1:200 000 and 200000 also do)\n"
    "  --lists       every list of legal values, level by level\n"
    "  --help        this text\n"
    "\n"
    "Designations (band letter A to V, column 1 to 60, then the finer levels; the letters of\n"
    "1:500,000, 1:50,000 and 1:25,000 are Cyrillic):\n"
    "  N-37                 1:1,000,000\n"
    "  N-37-А               1:500,000\n"
    "  N-37-VI              1:200,000\n"
    "  N-37-12              1:100,000\n"
    "  N-37-12-Б            1:50,000\n"
    "  N-37-12-Б-в          1:25,000\n"
    "  N-37-12-Б-в-4        1:10,000 (the library writes it -12-Б-в-4, without band and column;\n"
    "                       vxk prints both and reads back the full one)\n"
    "\n"
    "mid meridian: the meridian the generator centres a sheet's projection on, in whole degrees. At\n"
    "1:1,000,000 it is the middle of the sheet, joined sheets included (N-37: 39, N-37,38: 42). At every\n"
    "finer scale it is the middle of the sheet's 6-degree column, the central meridian of its\n"
    "Gauss-Kruger zone, whatever the sheet's own middle and type (N-37-VI: 39, N-37-VI,38-I: 39).\n"
    "\n"
    "Sheets in the south: the designation is the same text as the northern sheet's; the rows of every\n"
    "level count from the south edge of their parent, so that the southern sheet is the mirror image of\n"
    "the northern one (A-37-I lies in the south-west corner of A-37).\n"
    "\n"
    "examples:\n"
    "  vxk sheet N-37-VI\n"
    "  vxk sheet --type 2 N-37-VI        prints N-37-VI,38-I\n"
    "  vxk sheet N-37-VI,38-I            the same double sheet\n"
    "  vxk sheet --south --type 4 S-60   a quadruple across the date line\n"
    "  vxk sheet --neighbours N-37-VI    left N-37-V, right N-38-I, upper O-37-XXXVI, ...\n"
    "  vxk sheet --at 55.7558 37.6173    the sheets of every scale that hold the point\n"
    "  vxk sheet --at 55.7558 37.6173 --scale 1:10000\n"
    "  vxk sheet N-37-VI --bounds --format wkt\n"
    "  vxk sheet --children N-37 --scale 1:200000\n"
    "  vxk sheet --lists\n"
    "\n"
    "exit status: 0 done; 1 the designation names no sheet, or no sheet holds the point; 2 the command\n"
    "line is wrong.\n";

enum class mode { describe, neighbours, bounds, children, at, lists };

struct options {
  mode what = mode::describe;
  bool south = false;
  bool help = false;
  Tvx_stdlist_type type = 0;
  Tvx_stdlist_scale scale = VX_STDLIST_SC_NONE;
  format how = format::text;
  bool format_given = false;
  std::string lat, lon;
  std::vector<std::string> designations;
};

const std::string& value(const std::vector<std::string>& args, size_t& i, const char* what) {
  if (i + 1 >= args.size()) throw usage_error{args[i] + " needs " + what};
  return args[++i];
}

void set_mode(options& o, mode m, const std::string& flag) {
  if (o.what != mode::describe && o.what != m)
    throw usage_error{flag + " goes with none of --neighbours, --bounds, --children, --at and --lists"};
  o.what = m;
}

Tvx_stdlist_type type_of(const std::string& v) {
  if (v.size() != 1 || v[0] < '1' || v[0] > '4') throw usage_error{"--type takes 1 to 4, not '" + v + "'"};
  return v[0] - '0';
}

format format_of(const std::string& v) {
  if (v == "text") return format::text;
  if (v == "wkt") return format::wkt;
  if (v == "geojson") return format::geojson;
  throw usage_error{"--format takes text, wkt or geojson, not '" + v + "'"};
}

// Reads one argument (and its values) into the options.
void take(const std::vector<std::string>& args, size_t& i, options& o) {
  const std::string& a = args[i];
  if (a == "--help" || a == "-h") {
    o.help = true;
  } else if (a == "--south") {
    o.south = true;
  } else if (a == "--type") {
    o.type = type_of(value(args, i, "a value from 1 to 4"));
  } else if (a == "--scale") {
    o.scale = vxk::scale_of(value(args, i, "a scale, as 1:200000"));
  } else if (a == "--format") {
    o.how = format_of(value(args, i, "text, wkt or geojson"));
    o.format_given = true;
  } else if (a == "--at") {
    set_mode(o, mode::at, a);
    if (i + 2 >= args.size()) throw usage_error{"--at needs a latitude and a longitude"};
    o.lat = args[++i];
    o.lon = args[++i];
  } else if (a == "--neighbours" || a == "--neighbors") {
    set_mode(o, mode::neighbours, a);
  } else if (a == "--bounds") {
    set_mode(o, mode::bounds, a);
  } else if (a == "--children") {
    set_mode(o, mode::children, a);
  } else if (a == "--lists") {
    set_mode(o, mode::lists, a);
  } else if (a.size() > 1 && a[0] == '-' && a[1] == '-') {
    throw usage_error{"unknown option '" + a + "'"};
  } else {
    o.designations.push_back(a);
  }
}

// What each way of running the command takes besides its own flag.
void check(const options& o) {
  const bool with_designation = o.what != mode::at && o.what != mode::lists;
  if (with_designation && o.designations.size() != 1)
    throw usage_error{"expected one designation, " + std::to_string(o.designations.size()) + " given"};
  if (!with_designation && !o.designations.empty())
    throw usage_error{std::string(o.what == mode::at ? "--at" : "--lists") + " takes no designation"};
  if (o.what == mode::children && o.scale == VX_STDLIST_SC_NONE)
    throw usage_error{"--children needs --scale, the scale of the sheets to list"};
  if (o.scale != VX_STDLIST_SC_NONE && o.what != mode::children && o.what != mode::at)
    throw usage_error{"--scale goes with --children and --at"};
  if (o.format_given && o.what != mode::bounds && o.what != mode::children)
    throw usage_error{"--format goes with --bounds and --children"};
  if (o.type != 0 && (o.what == mode::at || o.what == mode::lists))
    throw usage_error{"--type goes with a designation"};
}

// After "--" every argument is a designation, also one that starts with "-".
options parse_options(const std::vector<std::string>& args) {
  options o;
  size_t i = 0;
  for (; i < args.size() && args[i] != "--"; ++i) take(args, i, o);
  if (i < args.size()) o.designations.insert(o.designations.end(), args.begin() + i + 1, args.end());
  if (!o.help) check(o);
  return o;
}

// ---- a sheet -------------------------------------------------------------------------------------------

// At 1:10,000 the library's text leaves out the band and column; the full designation stands beside it.
void print_full_designation(const Tvx_stdlist_string* sheet) {
  if (vx_stdlist_get_scale(sheet) != VX_STDLIST_SC_10) return;
  const bool joined = vx_stdlist_get_type(sheet) != VX_STDLIST_TP_SGL;
  std::printf("in full:      %s   (the library writes 1:10,000 sheets without their band and column%s)\n",
              u8(vxk::full_designation_of(sheet)).c_str(),
              joined ? ", and names only the first of joined sheets" : "");
}

void print_sheet(const Tvx_stdlist_string* sheet) {
  std::printf("designation:  %s\n", u8(designation_of(sheet)).c_str());
  print_full_designation(sheet);
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

// The sheet of the same type that lies north (or south) of the sheet: the one that holds a point just
// past the middle of the edge of its first sheet. None past the last band.
struct beyond {
  std::string name;
  bool across_equator;
};

std::optional<beyond> sheet_beyond(const Tvx_stdlist_string* sheet, bool north) {
  const Tvx_stdlist_hemisphere hemisphere = vx_stdlist_get_hemisphere(sheet);
  sheet_record first(sheet);
  vx_stdlist_init(first.get(), VX_STDLIST_SC_200, VX_STDLIST_TP_SGL, hemisphere);
  const vxk::sheet_box b = vxk::box_of(first.get());
  const double lat = north ? b.north + 1e-6 : b.south - 1e-6;
  const Tvx_stdlist_hemisphere side = lat < 0.0 ? VX_STDLIST_SOUTH : VX_STDLIST_NORTH;
  sheet_record found;
  if (!vx_stdlist_init_at(found.get(), VX_STDLIST_SC_200, side, (b.west + b.east) / 2, lat))
    return std::nullopt;
  vx_stdlist_init(found.get(), VX_STDLIST_SC_200, vx_stdlist_get_type(sheet), side);
  return beyond{u8(designation_of(found.get())), side != hemisphere};
}

// Why the library's rule does not give the sheet that lies there. Its upper neighbour steps to the row
// before, its lower one to the row after, wrapping into the next band by the band letter's own rule.
std::string why_not(const Tvx_stdlist_string* sheet, const std::optional<beyond>& real) {
  if (vx_stdlist_get_hemisphere(sheet) == VX_STDLIST_SOUTH)
    return "in the south the rows count from the south edge of the million sheet, which the library's "
           "rule does not follow";
  if (!real) return "past the pole";
  if (real->across_equator) return "across the equator, which the library's rule does not cross";
  return "the library's rule carries band U to A in the north";
}

// Where the library's upper (or lower) neighbour is not the sheet north (or south) of the sheet, which
// sheet is; empty when it is. The rule is kept as it is; the note tells the map maker.
std::string vertical_note(const Tvx_stdlist_string* sheet, const std::wstring& given, bool upper) {
  const std::optional<beyond> real = sheet_beyond(sheet, upper);
  if (real && !real->across_equator && real->name == u8(given)) return {};
  const std::string side = upper ? "north" : "south";
  const std::string what = !real ? "no sheet lies " + side + " of it, the bands end at 88 degrees"
                                 : "the sheet " + side + " of it is " + real->name +
                                       (real->across_equator ? (upper ? " in the northern hemisphere"
                                                                      : " in the southern hemisphere")
                                                             : "");
  return why_not(sheet, real) + ": " + what;
}

void print_neighbours(const Tvx_stdlist_string* sheet) {
  fail_if(vx_stdlist_get_scale(sheet) != VX_STDLIST_SC_200,
          "neighbours are known for 1:200,000 sheets only, such as N-37-VI; this sheet is at " +
              u8(vx_stdlist_scale_tostr(sheet)));
  rows_sink sink;
  fail_if(!vx_stdlist_fetch_neighbours(sheet, sink.get()) || sink.rows().size() != 4,
          "the neighbours of this sheet could not be worked out");
  const std::vector<std::wstring>& n = sink.rows();
  std::printf("sheet:  %s\n", u8(designation_of(sheet)).c_str());
  const char* const names[] = {"left:  ", "right: ", "upper: ", "lower: "};
  for (int i = 0; i < 4; ++i) {
    std::printf("%s %s\n", names[i], u8(n[i]).c_str());
    const std::string note = i >= 2 ? vertical_note(sheet, n[i], i == 2) : "";
    if (!note.empty()) std::printf("        (%s)\n", note.c_str());
  }
}

int sheet_command(const std::vector<std::string>& args) {
  const options o = parse_options(args);
  if (o.help) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (o.what == mode::lists) {
    print_lists();
    return 0;
  }
  if (o.what == mode::at) {
    vxk::sheet::print_at(o.lat, o.lon, o.scale, o.south);
    return 0;
  }
  sheet_record sheet;
  vxk::read_printed_designation(o.designations[0], o.south, sheet.get(), o.type);
  if (o.what == mode::neighbours) print_neighbours(sheet.get());
  if (o.what == mode::bounds) vxk::sheet::print_bounds(sheet.get(), o.how);
  if (o.what == mode::children) vxk::sheet::print_children(sheet.get(), o.scale, o.how);
  if (o.what == mode::describe) print_sheet(sheet.get());
  return 0;
}

}  // namespace

VXK_COMMAND("sheet", "map sheet designations: read and print, neighbours, bounds, the sheets of a point",
            sheet_command);
