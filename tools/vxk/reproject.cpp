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
#include "report.h"
#include "safe_output.h"
#include "utf8.h"
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
    "DST.shp without an extension gets \".shp\". The folder of DST.shp is created if it is missing.\n"
    "\n"
    "The result is written under temporary names beside DST.shp and put into place only when it is\n"
    "complete: a run that fails leaves an existing DST.shp and its side files as they were, and no folder\n"
    "it created. A run that succeeds replaces DST.shp, .shx, .dbf, .cpg and .prj, and removes those of its\n"
    "side files that the new result does not have (a .prj or .dbf of an earlier run, spatial indexes).\n"
    "DST.shp must not be SRC.shp (by any spelling or link).\n"
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
    "exit status: 0 done; 1 failed, nothing was written (the transformation cannot be built, the source\n"
    "cannot be read or is not a shape file, a file cannot be written); 2 bad arguments (also a destination\n"
    "that is the source); 3 done, but the source is damaged: the records that could not be read are null\n"
    "records in the result, a table whose header does not fit its file is copied as it is.\n";

struct options {
  std::string src, dst, from, to;
  bool prj = false;
  bool progress = false;
};

constexpr int kFailed = 1;
constexpr int kBadArguments = 2;
constexpr int kDamagedSource = 3;

int fail(const std::string& message) {
  std::fprintf(stderr, "vxk reproject: %s\n", message.c_str());
  return kFailed;
}

int bad_arguments(const std::string& message) {
  std::fprintf(stderr, "vxk reproject: %s\n\n%s", message.c_str(), kUsage);
  return kBadArguments;
}

int refuse(const std::string& message) {
  std::fprintf(stderr, "vxk reproject: %s\n", message.c_str());
  return kBadArguments;
}

// A destination without an extension gets ".shp"; one with another extension is refused: no GIS opens
// a shape file by another name, and its index and table would be named from it.
std::string destination_name(std::string& dst) {
  const fs::path p(dst);
  std::string ext = p.extension().string();
  for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (p.filename().empty() || p.filename() == "." || p.filename() == "..")
    return "the destination '" + vxk::echo(dst) + "' names a folder; give a .shp file in it";
  if (ext.empty()) dst += ".shp";
  if (!ext.empty() && ext != ".shp") {
    return "the destination '" + vxk::echo(dst) + "' is not a .shp file; give a name ending in .shp";
  }
  return {};
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
      return "unknown option '" + vxk::echo(a) + "'";
    } else {
      paths.push_back(a);
    }
  }
  if (paths.size() != 2) return "give one source and one destination shape file";
  if (opt.from.empty() || opt.to.empty()) return "give both --from and --to";
  opt.src = paths[0];
  opt.dst = paths[1];
  return destination_name(opt.dst);
}

// The source must be a readable file with its index: without the .shx no record can be reached.
std::string check_source(const std::string& src) {
  for (const fs::path& p : {fs::path(src), fs::path(src).replace_extension(".shx")}) {
    std::error_code ec;
    if (fs::is_directory(p, ec)) return "the source '" + vxk::echo(p.string()) + "' is a folder, not a file";
    std::FILE* f = std::fopen(p.c_str(), "rb");
    if (!f) return "cannot read the source '" + vxk::echo(p.string()) + "': " + std::strerror(errno);
    std::fclose(f);
  }
  return {};
}

uint32_t little_endian(const unsigned char* bytes, int size) {
  uint32_t value = 0;
  for (int i = size - 1; i >= 0; --i) value = value << 8 | bytes[i];
  return value;
}

// The source table is copied as it is, so a table whose header does not fit its file stays damaged in
// the result: what is wrong with it, empty when it is sound or absent (a folder fails the copy itself).
std::string table_damage(const std::string& src) {
  const fs::path dbf = fs::path(src).replace_extension(".dbf");
  std::error_code ec;
  if (!fs::is_regular_file(dbf, ec)) return {};
  const uintmax_t size = fs::file_size(dbf, ec);
  unsigned char h[32] = {};
  std::FILE* f = std::fopen(dbf.c_str(), "rb");
  const size_t got = f ? std::fread(h, 1, sizeof h, f) : 0;
  if (f) std::fclose(f);
  if (ec || !f) return {};
  if (got < sizeof h) return size ? "it is shorter than the 32-byte header of a table" : "it is empty";
  const uint32_t count = little_endian(h + 4, 4), header = little_endian(h + 8, 2),
                 record = little_endian(h + 10, 2);
  if (header < 33 || header > size)
    return "its header gives a header of " + std::to_string(header) + " bytes in a file of " +
           std::to_string(size);
  if (record == 0 || (size - header) / record < count) {
    return "its header counts " + std::to_string(count) + " records of " + std::to_string(record) +
           " bytes, the file holds " + std::to_string(record ? (size - header) / record : 0);
  }
  return {};
}

// The files of a shape file that a run reads or writes.
std::vector<std::string> family(const std::string& shp) {
  std::vector<std::string> files;
  for (const char* ext : {".shp", ".shx", ".dbf", ".cpg", ".prj"})
    files.push_back(fs::path(shp).replace_extension(ext).string());
  files.front() = shp;
  return files;
}

// The destination must not be the source, however either is spelled: the files are compared by
// identity (device and inode), so that "./a.shp", a link or a hard link are caught.
std::string check_not_source(const std::string& src, const std::string& dst) {
  for (const std::string& d : family(dst)) {
    for (const std::string& s : family(src)) {
      if (vxk::same_file(d, s)) {
        return "the destination '" + vxk::echo(d) + "' is the source '" + vxk::echo(s) +
               "' (the same file); give another destination";
      }
    }
  }
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

// Writes the whole text to a new file and checks every step, closing included.
std::string write_text_file(const std::string& path, const std::string& text, const std::string& shown) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return "cannot create '" + shown + "': " + std::strerror(errno);
  const bool written = std::fwrite(text.data(), 1, text.size(), f) == text.size() && std::fflush(f) == 0;
  const int write_errno = errno;
  const bool closed = std::fclose(f) == 0;
  if (!written) return "cannot write '" + shown + "': " + std::strerror(write_errno);
  if (!closed) return "cannot write '" + shown + "': " + std::strerror(errno);
  return {};
}

// The destination system as ESRI WKT, in the .prj beside the result.
std::string write_prj(const std::string& staged_shp, const std::string& shown_shp, const std::string& proj) {
  std::string wkt;
  Ivx_string_adp* sink = vx_string_adp_create(
      [](const char* text, void* user) {
        if (text) *static_cast<std::string*>(user) += text;
      },
      nullptr, &wkt);
  const bool exported = sink && vx_pj4_export_esri(vxk::utf8_to_wide(proj).c_str(), sink) && !wkt.empty();
  vx_string_adp_destroy(sink);
  if (!exported) return "cannot express \"" + vxk::echo(proj) + "\" in ESRI WKT for the .prj";
  return write_text_file(fs::path(staged_shp).replace_extension(".prj").string(), wkt,
                         fs::path(shown_shp).replace_extension(".prj").string());
}

// What the library reported, on standard error: its errors, then its notes (PROJ's reports), each
// with staged paths shown as the paths the result would have had.
void print_reports(const vxk::library_reports& reports, const vxk::output_set& out) {
  for (const auto& l : reports.errors())
    std::fprintf(stderr, "vxk reproject: %s\n", out.final_text(vxk::library_reports::with_count(l)).c_str());
  for (const auto& l : reports.messages())
    std::fprintf(stderr, "vxk reproject: note: %s\n",
                 out.final_text(vxk::library_reports::with_count(l)).c_str());
}

// The library's run into the staging folder; gives an error text, empty when the result is complete.
std::string reproject_into(const options& opt, vxk::output_set& out, vx_proj4_shp_counts& counts) {
  const std::string staged = out.stage(fs::path(opt.dst).filename().string());
  progress_bar bar;
  vxk::library_reports reports;
  const bool built =
      vx_proj4_shp_ex(opt.src.c_str(), opt.from.c_str(), staged.c_str(), opt.to.c_str(),
                      wants_progress_bar(opt) ? &progress_bar::update : nullptr, &bar, &counts);
  print_reports(reports, out);
  if (!built) return "nothing was written";
  const std::string untouched =
      "nothing was written to '" + vxk::echo(opt.dst) + "'; what was there is as it was";
  if (counts.file_errors) return untouched;
  if (!opt.prj) return {};
  const std::string error = write_prj(staged, opt.dst, opt.to);
  return error.empty() ? error : error + "; " + untouched;
}

std::string summary(const options& opt, const vx_proj4_shp_counts& counts, bool table_damaged) {
  std::string text = vxk::echo(opt.dst) + ": " + std::to_string(counts.records) + " records written, " +
                     std::to_string(counts.failed) + " became null records (could not be transformed)";
  if (counts.unreadable)
    text += ", " + std::to_string(counts.unreadable) + " could not be read: the source is damaged";
  if (table_damaged) text += "; the source table is damaged and was copied as it is";
  return text;
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
  if (std::string err = check_not_source(opt.src, opt.dst); !err.empty()) return refuse(err);

  vxk::output_set out;
  if (!out.open(fs::path(opt.dst).parent_path().string())) return fail(out.error() + "; nothing was written");
  vx_proj4_shp_counts counts{};
  if (std::string err = reproject_into(opt, out, counts); !err.empty()) return fail(err);
  out.replace_family(fs::path(opt.dst).filename().string(), vxk::shape_side_extensions());
  if (!out.commit()) return fail(out.error());
  const std::string damage = table_damage(opt.src);
  if (!damage.empty()) {
    std::fprintf(stderr, "vxk reproject: the table '%s' is damaged: %s\n",
                 vxk::echo(fs::path(opt.src).replace_extension(".dbf").string()).c_str(), damage.c_str());
  }
  std::printf("%s\n", summary(opt, counts, !damage.empty()).c_str());
  return counts.unreadable || !damage.empty() ? kDamagedSource : 0;
}

}  // namespace

VXK_COMMAND("reproject", "reproject a shape file and its table to another coordinate system", run);
