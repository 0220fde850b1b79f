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
#include "numbers.h"
#include "report.h"
#include "reproject.h"
#include "safe_output.h"
#include "shape_facts.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;

const char* const kUsage =
    "usage: vxk reproject SRC.shp DST.shp [--from SYSTEM] --to SYSTEM [--no-prj] [--verbose] [--progress]\n"
    "       vxk reproject SRC... DST_FOLDER [--from SYSTEM] --to SYSTEM [-j N] [--no-prj] [--verbose] "
    "[--progress]\n"
    "\n"
    "Rewrites the shape file SRC.shp (with its .shx) in another coordinate system as DST.shp, record by\n"
    "record in the same order, and copies its .dbf and .cpg beside the result, with DST.prj telling the\n"
    "new system. A record that cannot be transformed (a vertex outside the target projection's domain)\n"
    "becomes a null record, so that the table stays aligned; their number is reported, and --verbose says\n"
    "which and why. Measures (M) are dropped (the run says so), heights (Z) kept as they are.\n"
    "DST.shp without an extension gets \".shp\". The folder of DST.shp is created if it is missing.\n"
    "\n"
    "The result is written under temporary names beside DST.shp and put into place only when it is\n"
    "complete: a run that fails leaves an existing DST.shp and its side files as they were, and no folder\n"
    "it created. A run that succeeds replaces DST.shp, .shx, .dbf, .cpg and .prj, and removes those of its\n"
    "side files that the new result does not have (a .prj or .dbf of an earlier run, spatial indexes).\n"
    "DST.shp must not be SRC.shp (by any spelling or link).\n"
    "\n"
    "Folder mode, when there are several sources, a source is a folder, or the destination ends in \"/\":\n"
    "every shape file given, and every .shp directly in a folder given, is reprojected as above into\n"
    "DST_FOLDER under its own name, by N processes side by side (-j N, --jobs N; by default as many as the\n"
    "machine has processors). One progress bar covers the whole job, and one summary line counts files,\n"
    "records and null records. A file that fails is reported with its reason and the others complete.\n"
    "\n"
    "Coordinate systems (SYSTEM) take the forms that cs2cs and ogr2ogr's -s_srs and -t_srs take:\n"
    "  a PROJ string       \"+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs\"\n"
    "  an authority code   EPSG:32637, ESRI:102100 (from PROJ's database)\n"
    "  WKT or PROJJSON     the text itself, OGC or ESRI WKT as in a .prj file\n"
    "  a name              of a system in PROJ's database: \"WGS 84 / UTM zone 37N\"\n"
    "  a file              the name of a file holding one of these, such as a .prj\n"
    "The library works with PROJ strings: every other form is turned into one by PROJ, with the system's\n"
    "shift to WGS 84 when PROJ's database has a single one for it. Without --from, the source system is\n"
    "read from SRC.pj4 (the PROJ string this library writes beside its results) or else SRC.prj, and a\n"
    "source with neither is refused. A warning tells what is lost on the way: a parameter the library's\n"
    "projection strings do not carry (+pm, +axis, +geoidgrids, ...), which is dropped; the vertical part of\n"
    "a compound system; and a result that will lie more than a centimetre away from PROJ's own\n"
    "transformation between the same systems (what cs2cs and ogr2ogr do), measured at nine points of the\n"
    "source's box. The last comes from a datum the library cannot shift: a +datum whose grid files are not\n"
    "installed (+datum=NAD27), or a system whose shift PROJ could not write as +towgs84 (EPSG:28407). The\n"
    "warning names PROJ's shift when it is a single Helmert step: write it as +ellps=... +towgs84=...\n"
    "\n"
    "options:\n"
    "  --from SYSTEM  the source coordinate system; by default read from SRC.pj4 or SRC.prj\n"
    "  --to SYSTEM    the destination coordinate system\n"
    "  --no-prj       write no DST.prj. By default the destination system goes there in ESRI WKT, as\n"
    "                 ogr2ogr does; when it has no ESRI WKT, the run says so and goes on without it\n"
    "  --prj          require DST.prj: a destination system without ESRI WKT fails the run\n"
    "  --verbose, -v  also say how each system is taken, and list the records that became null records\n"
    "                 with the reason (the vertex that cannot be transformed, or a damaged record)\n"
    "  --progress     show the progress bar even when standard error is not a terminal (on a terminal it\n"
    "                 is shown for files of more than 5000 records and for every folder-mode run)\n"
    "  -j N           folder mode: N processes side by side, 1 to 256\n"
    "\n"
    "examples:\n"
    "  # Pulkovo 1942 geographic to Gauss-Kruger zone 7\n"
    "  vxk reproject roads.shp gk7/roads.shp \\\n"
    "      --from \"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs\" \\\n"
    "      --to \"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass \\\n"
    "            +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs\"\n"
    "\n"
    "  # a file with a .prj to UTM zone 37 north, by EPSG code\n"
    "  vxk reproject lakes.shp utm37/lakes.shp --to EPSG:32637\n"
    "\n"
    "  # every shape file of the folder gk7/ (each with its .prj) to WGS 84, two at a time\n"
    "  vxk reproject gk7 wgs84/ -j 2 --to EPSG:4326\n"
    "\n"
    "exit status: 0 done; 1 failed, nothing was written (the transformation cannot be built, the source\n"
    "cannot be read or is not a shape file, a file cannot be written); 2 bad arguments (also a destination\n"
    "that is the source, or a source whose system is neither given nor in a .prj); 3 done, but the source\n"
    "is damaged: the records that could not be read are null records in the result, a table whose header\n"
    "does not fit its file is copied as it is. In folder mode: 1 when any file failed, 3 when none failed\n"
    "and a source was damaged.\n";

using vxk::reproject::kBadArguments;
using vxk::reproject::kDamagedSource;
using vxk::reproject::kFailed;
using vxk::reproject::options;

int fail(const std::string& message) {
  std::fprintf(stderr, "vxk reproject: %s\n", message.c_str());
  return kFailed;
}

// The command line is wrong: one line with the mistake and a pointer to the help.
[[noreturn]] void bad_arguments(const std::string& message) {
  throw vxk::usage_error{message};
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

// The number of processes of "-j N", "-jN" or "--jobs N"; 0 when the text is not a count from 1 to 256.
unsigned job_count(const std::string& text) {
  if (text.empty() || text.size() > 3 || text.find_first_not_of("0123456789") != std::string::npos) return 0;
  const unsigned n = static_cast<unsigned>(std::stoul(text));
  return n <= 256 ? n : 0;
}

// Reads an option that takes a value; gives an error text, empty when it was read.
std::string parse_value(const std::vector<std::string>& args, std::size_t& i, options& opt) {
  const std::string& a = args[i];
  const bool joined = a.size() > 2 && a.compare(0, 2, "-j") == 0;
  if (!joined && i + 1 >= args.size())
    return a + (a == "-j" || a == "--jobs" ? " needs a number" : " needs a coordinate system");
  const std::string value = joined ? a.substr(2) : args[++i];
  if ((a == "--from" || a == "--to") && value.find_first_not_of(" \t") == std::string::npos)
    return a + " needs a coordinate system, not an empty text";
  if (a == "--from") opt.from = value;
  if (a == "--to") opt.to = value;
  if (a == "--from" || a == "--to") return {};
  opt.jobs = job_count(value);
  return opt.jobs ? std::string()
                  : "-j takes a number of processes from 1 to 256, not '" + vxk::echo(value) + "'";
}

bool takes_value(const std::string& a) {
  return a == "--from" || a == "--to" || a == "--jobs" || (a.size() >= 2 && a.compare(0, 2, "-j") == 0);
}

// Several sources, a source that is a folder, or a destination written as a folder ("out/") ask for
// the folder mode.
bool asks_for_folder_mode(const std::vector<std::string>& paths) {
  std::error_code ec;
  for (std::size_t i = 0; i + 1 < paths.size(); ++i)
    if (fs::is_directory(paths[i], ec)) return true;
  return paths.size() > 2 || (paths.size() == 2 && !paths[1].empty() && paths[1].back() == '/');
}

// Reads the arguments into `opt`; gives an error text, empty when they are complete.
std::string parse(const std::vector<std::string>& args, options& opt) {
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (takes_value(a)) {
      if (std::string err = parse_value(args, i, opt); !err.empty()) return err;
    } else if (a == "--prj") {
      opt.prj = opt.prj_asked = true;
    } else if (a == "--no-prj") {
      opt.prj = opt.prj_asked = false;
    } else if (a == "--verbose" || a == "-v") {
      opt.verbose = true;
    } else if (a == "--progress") {
      opt.progress = true;
    } else if (a.size() > 1 && a[0] == '-') {
      return "unknown option '" + vxk::echo(a) + "'";
    } else {
      paths.push_back(a);
    }
  }
  if (paths.size() < 2) return "give a source and a destination";
  if (opt.to.empty()) return "give the destination system with --to";
  opt.folder_mode = asks_for_folder_mode(paths);
  opt.dst = paths.back();
  paths.pop_back();
  opt.sources = paths;
  while (opt.folder_mode && opt.dst.size() > 1 && opt.dst.back() == '/') opt.dst.pop_back();
  if (opt.folder_mode) return {};
  opt.src = paths[0];
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

// The progress bar of one file, ended with a new line when the file is done.
struct progress_bar {
  vxk::reproject::bar bar;
  bool ended = false;

  static void update(uint32_t done, uint32_t total, void* user) {
    auto* p = static_cast<progress_bar*>(user);
    p->bar.draw(done, total, "");
    if (done != total || p->ended) return;
    p->ended = true;
    std::fputc('\n', stderr);
  }
};

bool wants_progress_bar(const options& opt) {
  const uint32_t large = 5000;
  return opt.progress || (isatty(STDERR_FILENO) && vxk::shape_facts::record_count(opt.src) > large);
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

// The destination system as ESRI WKT, in the .prj beside the result. A system without ESRI WKT fails the
// run only when the .prj was asked for with --prj; otherwise the run goes on without it and says so.
std::string write_prj(const options& opt, const std::string& staged_shp) {
  std::string wkt;
  Ivx_string_adp* sink = vx_string_adp_create(
      [](const char* text, void* user) {
        if (text) *static_cast<std::string*>(user) += text;
      },
      nullptr, &wkt);
  const std::string& proj = opt.to_sys.proj;
  const bool exported = sink && vx_pj4_export_esri(vxk::utf8_to_wide(proj).c_str(), sink) && !wkt.empty();
  vx_string_adp_destroy(sink);
  if (!exported) {
    const std::string why = "\"" + vxk::echo(proj) + "\" cannot be expressed in ESRI WKT";
    if (opt.prj_asked) return "cannot write the .prj: " + why;
    std::fprintf(stderr, "vxk reproject: warning: no .prj written beside '%s': %s\n",
                 vxk::echo(opt.dst).c_str(), why.c_str());
    return {};
  }
  return write_text_file(fs::path(staged_shp).replace_extension(".prj").string(), wkt,
                         fs::path(opt.dst).replace_extension(".prj").string());
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
std::string reproject_into(const options& opt, vxk::output_set& out, const vxk::reproject::progress& progress,
                           vx_proj4_shp_counts& counts) {
  const std::string staged = out.stage(fs::path(opt.dst).filename().string());
  vxk::library_reports reports;
  const bool built = vx_proj4_shp_ex(opt.src.c_str(), opt.from_sys.proj.c_str(), staged.c_str(),
                                     opt.to_sys.proj.c_str(), progress.fn, progress.user, &counts);
  print_reports(reports, out);
  if (!built) return "nothing was written";
  const std::string untouched =
      "nothing was written to '" + vxk::echo(opt.dst) + "'; what was there is as it was";
  if (counts.file_errors) return untouched;
  if (!opt.prj) return {};
  const std::string error = write_prj(opt, staged);
  return error.empty() ? error : error + "; " + untouched;
}

std::string summary(const options& opt, const vx_proj4_shp_counts& counts, bool table_damaged) {
  std::string text =
      vxk::echo(opt.dst) + ": " +
      vxk::reproject::counts_text(counts.records, counts.failed, counts.unreadable, "the source");
  if (table_damaged) text += "; the source table is damaged and was copied as it is";
  return text;
}

// A text from PROJ or a file, with control characters made visible and a bound on its length.
std::string printable(const std::string& text) {
  std::string out = text.substr(0, 4096);
  for (char& c : out)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = '?';
  return out;
}

// The systems given on the command line; 0, or the exit status of a refusal.
int resolve_given(options& opt) {
  if (std::string err = vxk::crs::resolve(opt.to, "--to", opt.to_sys); !err.empty()) return fail(err);
  vxk::crs::print_warnings(opt.to_sys, "vxk reproject");
  if (opt.from.empty()) return 0;
  if (std::string err = vxk::crs::resolve(opt.from, "--from", opt.from_sys); !err.empty()) return fail(err);
  vxk::crs::print_warnings(opt.from_sys, "vxk reproject");
  vxk::crs::share_shift(opt.from_sys, opt.to_sys);
  opt.from_ready = true;
  return 0;
}

int run(const std::vector<std::string>& args) {
  for (const auto& a : args) {
    if (a == "--help" || a == "-h") {
      std::fputs(kUsage, stdout);
      return 0;
    }
  }
  options opt;
  if (std::string err = parse(args, opt); !err.empty()) bad_arguments(err);
  if (int status = resolve_given(opt)) return status;
  if (opt.folder_mode) return vxk::reproject::run_folder(opt);
  progress_bar bar;
  vx_proj4_shp_counts counts{};
  bool table_damaged = false;
  const int status = vxk::reproject::run_file(
      opt, {wants_progress_bar(opt) ? &progress_bar::update : nullptr, &bar}, counts, table_damaged);
  if (status == 0 || status == kDamagedSource)
    std::printf("%s\n", summary(opt, counts, table_damaged).c_str());
  return status;
}

// The source system read from the files beside the source, when --from was not given; 0, or the exit
// status of a refusal.
int source_system(options& opt) {
  if (opt.from_ready) return 0;
  if (std::string err = vxk::crs::from_source(opt.src, opt.from_sys); !err.empty()) return refuse(err);
  vxk::crs::share_shift(opt.from_sys, opt.to_sys);
  vxk::crs::print_warnings(opt.from_sys, "vxk reproject");
  opt.from_ready = true;
  return 0;
}

// With --verbose, the records that became null records and why.
void list_null_records(const options& opt, const vx_proj4_shp_counts& counts) {
  if (!opt.verbose || (counts.failed == 0 && counts.unreadable == 0)) return;
  for (const std::string& line :
       vxk::shape_facts::null_record_reasons(opt.src, opt.dst, opt.from_sys.proj, opt.to_sys.proj))
    std::fprintf(stderr, "vxk reproject: %s: %s\n", vxk::echo(opt.dst).c_str(), line.c_str());
}

}  // namespace

namespace vxk::reproject {

std::string counts_text(std::uint64_t records, std::uint64_t failed, std::uint64_t unreadable,
                        const char* damaged) {
  std::string text = spelled(records, "record", "records") + " written";
  if (failed == 1) text += ", 1 became a null record (it could not be transformed)";
  if (failed > 1)
    text += ", " + std::to_string(failed) + " became null records (they could not be transformed)";
  if (unreadable) {
    text += ", " + std::to_string(unreadable) + " could not be read: " + damaged + " is damaged";
  }
  return text;
}

void tell_difference(const options& opt, const shape_facts::box& b) {
  crs::difference d;
  if (!crs::compare_with_proj(opt.from_sys, opt.to_sys, b.xmin, b.ymin, b.xmax, b.ymax, d)) return;
  const std::string warning = crs::difference_warning(opt.from_sys, opt.to_sys, d);
  if (!warning.empty()) std::fprintf(stderr, "vxk reproject: warning: %s\n", warning.c_str());
}

void tell_taken(const options& opt) {
  if (!opt.verbose || opt.taken_told) return;
  for (const crs::system* s : {&opt.from_sys, &opt.to_sys}) {
    if (s->converted || s->shown[0] == '\'')
      std::fprintf(stderr, "vxk reproject: %s is taken as \"%s\"\n", s->shown.c_str(),
                   printable(s->proj).c_str());
  }
}

void tell_measures(std::size_t sources) {
  if (sources == 0) return;
  const std::string whose =
      sources == 1 ? "the source's records" : spelled(sources, "source", "sources") + "' records";
  std::fprintf(stderr,
               "vxk reproject: note: the measures (M) of %s are not kept: the result has x and y, and z "
               "where the source has it\n",
               whose.c_str());
}

int run_file(const options& given, const progress& progress, vx_proj4_shp_counts& counts,
             bool& table_damaged) {
  options opt = given;
  if (std::string err = check_source(opt.src); !err.empty()) return fail(err);
  if (std::string err = check_not_source(opt.src, opt.dst); !err.empty()) return refuse(err);
  if (int status = source_system(opt)) return status;
  tell_taken(opt);
  shape_facts::box box;
  if (!opt.difference_told && shape_facts::header_box(opt.src, box)) tell_difference(opt, box);
  if (!opt.measures_told && shape_facts::carries_measures(opt.src)) tell_measures(1);
  vxk::output_set out;
  if (!out.open(fs::path(opt.dst).parent_path().string())) return fail(out.error() + "; nothing was written");
  if (std::string err = reproject_into(opt, out, progress, counts); !err.empty()) return fail(err);
  out.replace_family(fs::path(opt.dst).filename().string(), vxk::shape_side_extensions());
  if (!out.commit()) return fail(out.error());
  list_null_records(opt, counts);
  const std::string damage = table_damage(opt.src);
  table_damaged = !damage.empty();
  if (table_damaged) {
    std::fprintf(stderr, "vxk reproject: the table '%s' is damaged: %s\n",
                 vxk::echo(fs::path(opt.src).replace_extension(".dbf").string()).c_str(), damage.c_str());
  }
  return counts.unreadable || table_damaged ? kDamagedSource : 0;
}

}  // namespace vxk::reproject

VXK_COMMAND("reproject", "reproject a shape file and its table to another coordinate system", run);
