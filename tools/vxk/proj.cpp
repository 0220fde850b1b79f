// vxk proj: questions about projection texts. Describe a PROJ string to a person, give its GDAL form,
// tell whether two texts are the same coordinate system, and list the catalogue of projections.
// Everything goes through the public header.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "rows_sink.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace {

const char* const kUsage =
    "usage: vxk proj describe [--lang en|ru] \"PROJ string\"\n"
    "       vxk proj gdal \"PROJ string\"\n"
    "       vxk proj same \"TEXT A\" \"TEXT B\"\n"
    "       vxk proj list [--params] [\"PROJ string\"]\n"
    "\n"
    "describe  prints what the library reads in a PROJ string, one parameter a line with its label\n"
    "          (projection, zone, central meridian, latitude of origin, false easting and northing,\n"
    "          standard parallels, scale factor, azimuth, datum, datum parameters, spheroid, semi-axes,\n"
    "          inverse flattening), in English or Russian (--lang, English by default).\n"
    "gdal      prints the PROJ string in the form that GDAL takes: the parameters the library knows, in\n"
    "          its order, a one-parallel Lambert conic (+proj=lcc) with +lat_2 and +lat_0 equal to\n"
    "          +lat_1 where they are missing, ending in +no_defs. Exit 1 when the text has no parameter\n"
    "          that the library knows.\n"
    "same      tells whether two texts are the same coordinate system, as PROJ judges it: prints\n"
    "          \"same\" (exit 0) or \"not the same\" (exit 1); exit 2 when PROJ cannot read a text. The\n"
    "          texts may be PROJ strings, EPSG:XXXX, WKT or +init=epsg:XXXX. PROJ reads a PROJ string\n"
    "          without +type=crs as an operation, and two operations are the same only when their\n"
    "          texts are: add +type=crs to compare PROJ strings as systems.\n"
    "list      prints the catalogue of projections: index, caption and the PROJ string of the entry's\n"
    "          defaults (Gauss-Kruger zones come without an earth: add +ellps=krass). With a PROJ\n"
    "          string, only the entry its projection fits (exit 1 when none does). --params adds the\n"
    "          parameters a user sets, with their defaults and limits.\n"
    "\n"
    "examples:\n"
    "  vxk proj describe \"+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m\"\n"
    "  vxk proj describe --lang ru \"+proj=utm +zone=37 +datum=WGS84\"\n"
    "  vxk proj gdal \"+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80\"\n"
    "  vxk proj same \"+init=epsg:32637\" \"+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs +type=crs\"\n"
    "  vxk proj same EPSG:4326 \"+proj=longlat +datum=WGS84 +no_defs +type=crs\"\n"
    "  vxk proj list\n"
    "  vxk proj list --params \"+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +datum=WGS84\"\n"
    "\n"
    "exit status: 0 done (same: the same system), 1 not found or not the same, 2 bad arguments or a\n"
    "text PROJ cannot read.\n";

constexpr int kBadArguments = 2;

int bad_arguments(const std::string& what) {
  std::fprintf(stderr, "vxk proj: %s (see 'vxk proj --help')\n", what.c_str());
  return kBadArguments;
}

int fail(const char* command, const std::string& what) {
  std::fprintf(stderr, "vxk proj %s: %s\n", command, what.c_str());
  return 1;
}

void print_rows(const vxk::rows_sink& sink) {
  for (const std::wstring& row : sink.rows()) std::printf("%s\n", vxk::wide_to_utf8(row).c_str());
}

// The arguments of a subcommand: options with a value, flags, and the texts in order.
struct arguments {
  std::vector<std::string> texts;
  std::string lang = "en";
  bool params = false;
};

// Reads the subcommand's arguments; an empty result is fine, otherwise it says what is wrong.
std::string parse(const std::string& command, const std::vector<std::string>& args, arguments& a) {
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg == "--lang" && command == "describe") {
      if (i + 1 == args.size()) return "--lang needs en or ru";
      a.lang = args[++i];
      if (a.lang != "en" && a.lang != "ru") return "--lang takes en or ru, not '" + a.lang + "'";
    } else if (arg == "--params" && command == "list") {
      a.params = true;
    } else if (arg.size() > 2 && arg.compare(0, 2, "--") == 0) {
      return "unknown option " + arg + " for 'vxk proj " + command + "'";
    } else {
      a.texts.push_back(arg);
    }
  }
  return {};
}

// How many texts a subcommand takes: at least, at most.
std::string check_count(const std::string& command, const arguments& a) {
  const size_t n = a.texts.size();
  if (command == "same")
    return n == 2 ? "" : "'vxk proj same' takes two texts, " + std::to_string(n) + " given";
  if (command == "list") return n <= 1 ? "" : "'vxk proj list' takes at most one PROJ string";
  return n == 1 ? "" : "'vxk proj " + command + "' takes one PROJ string, " + std::to_string(n) + " given";
}

int describe(const arguments& a) {
  vxk::rows_sink sink;
  vx_pj4_describe_w(vxk::utf8_to_wide(a.texts[0]).c_str(), a.lang == "ru" ? 0 : 1, sink.get());
  print_rows(sink);
  return 0;
}

int gdal(const arguments& a) {
  vxk::rows_sink sink;
  if (!vx_pj4_export_gdal(vxk::utf8_to_wide(a.texts[0]).c_str(), sink.get()))
    return fail("gdal", "no parameter of a PROJ string that the library knows in '" + a.texts[0] + "'");
  print_rows(sink);
  return 0;
}

// A PROJ string that PROJ will read as an operation rather than a coordinate system.
bool operation_text(const std::string& text) {
  return text.find("+proj=") != std::string::npos && text.find("+type=crs") == std::string::npos;
}

int same(const arguments& a) {
  const std::string& first = a.texts[0];
  const std::string& second = a.texts[1];
  const int answer = vx_pj4_equivalent_w(vxk::utf8_to_wide(first).c_str(), vxk::utf8_to_wide(second).c_str());
  if (answer < 0) {
    std::fprintf(stderr, "vxk proj same: PROJ cannot read the %s text '%s'\n",
                 answer == -1 ? "first" : "second", (answer == -1 ? first : second).c_str());
    return kBadArguments;
  }
  if (answer == 1) {
    std::printf("same\n");
    return 0;
  }
  std::printf("not the same\n");
  if (operation_text(first) || operation_text(second))
    std::fprintf(
        stderr,
        "note: PROJ reads a PROJ string without +type=crs as an operation, and compares operations by "
        "their text; add +type=crs to compare coordinate systems\n");
  return 1;
}

std::vector<std::string> split_tabs(const std::string& row) {
  std::vector<std::string> fields(1);
  for (char c : row) {
    if (c == '\t')
      fields.emplace_back();
    else
      fields.back() += c;
  }
  return fields;
}

// One entry a line: index, caption with its further caption, and the PROJ string; with --params, the
// parameters a user sets beneath it.
void print_entries(const std::vector<std::vector<std::string>>& entries, bool params) {
  size_t width = 0;
  std::vector<std::string> captions;
  for (const auto& f : entries) {
    captions.push_back(f[1] + (f[2].empty() ? "" : ", " + f[2]));
    width = std::max(width, captions.back().size());
  }
  for (size_t i = 0; i < entries.size(); ++i) {
    const auto& f = entries[i];
    std::printf("%4s  %-*s  %s\n", f[0].c_str(), static_cast<int>(width), captions[i].c_str(), f[3].c_str());
    if (!params) continue;
    for (size_t k = 4; k < f.size(); ++k) std::printf("        %s\n", f[k].c_str());
  }
}

int list(const arguments& a) {
  vxk::rows_sink sink;
  const std::string text = a.texts.empty() ? "" : a.texts[0];
  if (!vx_pj4_fetch_catalogue(vxk::utf8_to_wide(text).c_str(), sink.get()))
    return fail("list", "no entry of the catalogue fits '" + text + "'");
  std::vector<std::vector<std::string>> entries;
  for (const std::wstring& row : sink.rows()) {
    entries.push_back(split_tabs(vxk::wide_to_utf8(row)));
    if (entries.back().size() < 4) return fail("list", "the library gave a row without its four fields");
  }
  print_entries(entries, a.params);
  return 0;
}

int run(const std::vector<std::string>& args) {
  if (args.empty()) return bad_arguments("give a question: describe, gdal, same or list");
  if (std::find_if(args.begin(), args.end(),
                   [](const std::string& s) { return s == "--help" || s == "-h"; }) != args.end()) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  const std::string& command = args[0];
  using handler = int (*)(const arguments&);
  const std::pair<const char*, handler> handlers[] = {
      {"describe", describe}, {"gdal", gdal}, {"same", same}, {"list", list}};
  for (const auto& [name, run_one] : handlers) {
    if (command != name) continue;
    arguments a;
    if (std::string err = parse(command, args, a); !err.empty()) return bad_arguments(err);
    if (std::string err = check_count(command, a); !err.empty()) return bad_arguments(err);
    return run_one(a);
  }
  return bad_arguments("unknown question '" + command + "': describe, gdal, same or list");
}

}  // namespace

VXK_COMMAND("proj", "describe a PROJ string, give its GDAL form, compare two systems, list projections", run);
