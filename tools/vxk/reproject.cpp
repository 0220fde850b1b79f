// vxk reproject: a shape file and its table into another coordinate system.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "command.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

const char* const kUsage =
    "usage: vxk reproject SRC.shp DST.shp --from \"PROJ string\" --to \"PROJ string\" [--prj] [--progress]\n"
    "\n"
    "Rewrites the shape file SRC.shp (with its .shx) in another coordinate system as DST.shp, record by\n"
    "record in the same order, and copies its .dbf and .cpg beside the result. A record that cannot be\n"
    "transformed (a vertex outside the target projection's domain) becomes a null record, so that the\n"
    "table stays aligned; their number is reported. Measures (M) are dropped, heights (Z) kept as they are.\n"
    "The folder of DST.shp is created if it is missing; an existing DST.shp is replaced.\n"
    "\n"
    "options:\n"
    "  --from TEXT   the source coordinate system as a PROJ string (the text, not a file name)\n"
    "  --to TEXT     the destination coordinate system as a PROJ string\n"
    "  --prj         also write DST.prj, the destination system in ESRI WKT\n"
    "  --progress    show the progress bar even when standard error is not a terminal (it is shown on a\n"
    "                terminal for files of more than 5000 records)\n"
    "\n"
    "examples:\n"
    "  # Pulkovo 1942 geographic to Gauss-Kruger zone 7\n"
    "  vxk reproject roads.shp gk7/roads.shp \\\n"
    "      --from \"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs\" \\\n"
    "      --to \"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass \\\n"
    "            +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs\"\n"
    "\n"
    "  # UTM zone 37 north back to WGS 84 longitude and latitude, with a .prj\n"
    "  vxk reproject utm37/lakes.shp wgs84/lakes.shp --prj \\\n"
    "      --from \"+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs\" --to \"+proj=longlat +datum=WGS84 "
    "+no_defs\"\n"
    "\n"
    "exit status: 0 done, 1 the transformation or a file failed, 2 bad arguments.\n";

struct options {
  std::string src, dst, from, to;
  bool prj = false;
  bool progress = false;
};

int fail(const std::string& message) {
  std::fprintf(stderr, "vxk reproject: %s\n", message.c_str());
  return 1;
}

int bad_arguments(const std::string& message) {
  std::fprintf(stderr, "vxk reproject: %s\n\n%s", message.c_str(), kUsage);
  return 2;
}

// Reads the arguments into `opt`; gives an error text, empty when they are complete.
std::string parse(const std::vector<std::string>& args, options& opt) {
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--from" || a == "--to") {
      if (i + 1 >= args.size()) return a + " needs a PROJ string";
      (a == "--from" ? opt.from : opt.to) = args[++i];
    } else if (a == "--prj") {
      opt.prj = true;
    } else if (a == "--progress") {
      opt.progress = true;
    } else if (a.size() > 1 && a[0] == '-') {
      return "unknown option '" + a + "'";
    } else {
      paths.push_back(a);
    }
  }
  if (paths.size() != 2) return "give one source and one destination shape file";
  if (opt.from.empty() || opt.to.empty()) return "give both --from and --to";
  opt.src = paths[0];
  opt.dst = paths[1];
  return {};
}

// The source must be readable with its index: without the .shx no record can be reached.
std::string check_source(const std::string& src) {
  for (const fs::path& p : {fs::path(src), fs::path(src).replace_extension(".shx")}) {
    std::FILE* f = std::fopen(p.c_str(), "rb");
    if (!f) return "cannot read the source '" + p.string() + "': " + std::strerror(errno);
    std::fclose(f);
  }
  return {};
}

std::string make_destination_folder(const std::string& dst) {
  const fs::path folder = fs::path(dst).parent_path();
  std::error_code ec;
  if (!folder.empty()) fs::create_directories(folder, ec);
  if (ec) return "cannot create the folder '" + folder.string() + "': " + ec.message();
  return {};
}

// A progress bar on standard error, redrawn only when the shown percentage changes.
struct progress_bar {
  int shown = -1;

  static void update(uint32_t done, uint32_t total, void* user) {
    auto* bar = static_cast<progress_bar*>(user);
    const int percent = total ? static_cast<int>(100.0 * done / total) : 100;
    if (percent == bar->shown) return;
    bar->shown = percent;
    const int width = 40, filled = percent * width / 100;
    std::fprintf(stderr, "\r[%s%s] %3d%% %u/%u", std::string(filled, '#').c_str(),
                 std::string(width - filled, ' ').c_str(), percent, done, total);
    if (done == total) std::fputc('\n', stderr);
    std::fflush(stderr);
  }
};

// The number of records of a shape file, from the length of its index (100 bytes of header, then 8 per
// record). 0 when the index cannot be read.
uint32_t record_count(const std::string& shp) {
  std::error_code ec;
  const auto size = fs::file_size(fs::path(shp).replace_extension(".shx"), ec);
  return ec || size < 100 ? 0 : static_cast<uint32_t>((size - 100) / 8);
}

bool wants_progress_bar(const options& opt) {
  const uint32_t large = 5000;
  return opt.progress || (isatty(STDERR_FILENO) && record_count(opt.src) > large);
}

// UTF-8 (the arguments) to wide text, for the wide functions of the library. A byte that does not
// start a valid sequence stands for itself.
std::wstring widen_utf8(const std::string& text) {
  std::wstring out;
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const int extra = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    char32_t code = extra ? lead & (0x3F >> extra) : lead;
    bool valid = i + extra < text.size() + (extra ? 0 : 1);
    for (int k = 1; valid && k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      valid = (next & 0xC0) == 0x80;
      code = (code << 6) | (next & 0x3F);
    }
    out += static_cast<wchar_t>(valid ? code : lead);
    i += valid ? extra + 1 : 1;
  }
  return out;
}

// The destination system as ESRI WKT, in the .prj beside the result.
std::string write_prj(const std::string& dst, const std::string& proj) {
  std::string wkt;
  Ivx_string_adp* sink = vx_string_adp_create(
      [](const char* text, void* user) {
        if (text) *static_cast<std::string*>(user) += text;
      },
      nullptr, &wkt);
  const bool exported = sink && vx_pj4_export_esri(widen_utf8(proj).c_str(), sink) && !wkt.empty();
  vx_string_adp_destroy(sink);
  if (!exported) return "cannot express \"" + proj + "\" in ESRI WKT for the .prj";
  const fs::path prj = fs::path(dst).replace_extension(".prj");
  std::FILE* f = std::fopen(prj.c_str(), "wb");
  const bool written = f && std::fwrite(wkt.data(), 1, wkt.size(), f) == wkt.size();
  if (f && std::fclose(f) != 0) return "cannot write '" + prj.string() + "'";
  return written ? std::string() : "cannot write '" + prj.string() + "'";
}

// The destination is complete when its index holds one entry per record written.
bool destination_written(const std::string& dst, uint32_t records) {
  std::error_code ec;
  return fs::file_size(dst, ec) >= 100 && !ec && record_count(dst) == records;
}

int run(const std::vector<std::string>& args) {
  for (const auto& a : args) {
    if (a == "--help" || a == "-h") {
      std::fputs(kUsage, stdout);
      return 0;
    }
  }
  options opt;
  if (std::string err = parse(args, opt); !err.empty()) return bad_arguments(err);
  if (std::string err = check_source(opt.src); !err.empty()) return fail(err);
  if (std::string err = make_destination_folder(opt.dst); !err.empty()) return fail(err);

  progress_bar bar;
  vx_proj4_shp_counts counts{};
  const bool built =
      vx_proj4_shp_ex(opt.src.c_str(), opt.from.c_str(), opt.dst.c_str(), opt.to.c_str(),
                      wants_progress_bar(opt) ? &progress_bar::update : nullptr, &bar, &counts);
  if (!built)
    return fail("cannot build the transformation from \"" + opt.from + "\" to \"" + opt.to +
                "\": check both PROJ strings");
  if (!destination_written(opt.dst, counts.records)) return fail("cannot write '" + opt.dst + "'");
  if (opt.prj) {
    if (std::string err = write_prj(opt.dst, opt.to); !err.empty()) return fail(err);
  }
  std::printf("%s: %u records written, %u became null records (could not be transformed)\n", opt.dst.c_str(),
              counts.records, counts.failed);
  return 0;
}

}  // namespace

VXK_COMMAND("reproject", "reproject a shape file and its table to another coordinate system", run);
