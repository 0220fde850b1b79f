// vxk labels: reproject a TLD label file from one coordinate system to another, or print one as JSON.
// Everything goes through the public header.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "command.h"
#include "crs_text.h"
#include "numbers.h"
#include "report.h"
#include "safe_output.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace {

const char* const kUsage =
    "usage: vxk labels SRC.tld DST.tld --from SYSTEM --to SYSTEM\n"
    "       vxk labels --dump FILE.tld\n"
    "\n"
    "Reprojects a TLD label file: the points at which the labels stand and the end points of their\n"
    "callouts go to the other system, and the sizes and offsets of the texts are multiplied by one\n"
    "length factor, taken at the origin of the source system. A point that cannot be transformed\n"
    "keeps its source position. Texts, fonts, colours, styles and angles are carried unchanged.\n"
    "DST is written under a temporary name beside it and put into place only when it is complete, so a\n"
    "run that fails leaves an existing DST as it was; its folder is created if it is missing (and removed\n"
    "again if the run fails). DST must not be SRC (by any spelling or link).\n"
    "\n"
    "With --dump, prints the labels of a file as JSON on standard output.\n"
    "\n"
    "options:\n"
    "  --from SYSTEM the source coordinate system: a PROJ string, EPSG:NNNN, WKT, PROJJSON, the name of a\n"
    "                system in PROJ's database, or a file holding one (a .prj); all but a PROJ string are\n"
    "                turned into one by PROJ\n"
    "  --to SYSTEM   the destination coordinate system, in the same forms\n"
    "  --dump FILE   print FILE as JSON\n"
    "  --help        this text\n"
    "\n"
    "The file format is described in docs/tld-format.md.\n"
    "\n"
    "exit status: 0 done; 1 failed, nothing was written; 2 bad arguments (also a destination that is the\n"
    "source).\n"
    "\n"
    "examples:\n"
    "  vxk labels towns.tld towns_gk7.tld --from \"+proj=longlat +ellps=krass\" \\\n"
    "      --to \"+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m\"\n"
    "  vxk labels rivers.tld rivers_utm.tld --from EPSG:4326 --to EPSG:32637\n"
    "  vxk labels --dump towns_gk7.tld\n";

int usage_error(const char* what) {
  std::fprintf(stderr, "vxk labels: %s (see 'vxk labels --help')\n", what);
  return vxk::EXIT_USAGE;
}

// A list owned for the length of the command.
class text_list {
 public:
  text_list() : p_(vx_text_list_create()) {}
  ~text_list() { vx_text_list_destroy(p_); }
  text_list(const text_list&) = delete;
  text_list& operator=(const text_list&) = delete;
  Tvx_text_list_base* get() const { return p_; }

 private:
  Tvx_text_list_base* p_;
};

// Reads a whole file; on failure prints why and gives false.
bool read_labels(const std::string& path, Tvx_text_list_base* list) {
  Tvx_tld_file* file = vx_tld_file_open_w(vxk::utf8_to_wide(path).c_str());
  if (!file) {
    std::fprintf(stderr, "vxk labels: cannot open %s\n", path.c_str());
    return false;
  }
  const bool ok = vx_tld_file_read_all(file, list);
  if (!ok) {
    std::fprintf(stderr, "vxk labels: cannot read %s: %s\n", path.c_str(),
                 vxk::wide_to_utf8(vx_tld_file_get_error(file)).c_str());
  }
  vx_tld_file_close(file);
  return ok;
}

// Writes the whole list; gives an error text, empty when the file is complete.
std::string write_labels(const std::string& path, const Tvx_text_list_base* list) {
  Tvx_tld_file* file = vx_tld_file_open_w(vxk::utf8_to_wide(path).c_str());
  if (!file) return "cannot create " + path;
  std::string error;
  if (!vx_tld_file_write_all(file, list, 0)) error = vxk::wide_to_utf8(vx_tld_file_get_error(file));
  vx_tld_file_close(file);
  return error;
}

// ---- JSON

std::string json_string(const std::wstring& text) {
  std::string out = "\"";
  for (char c : vxk::wide_to_utf8(text)) {
    const unsigned char u = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (u < 0x20) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", u);
      out += buf;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

// Shortest text that reads back as the same double; JSON has no infinities, so those become null.
std::string json_number(double v) {
  return std::isfinite(v) ? vxk::shortest(v) : "null";
}

std::string json_point(const Tvx_vtx_d2& p) {
  return "[" + json_number(p.x) + ", " + json_number(p.y) + "]";
}

std::string json_points(const Tvx_text_data* text) {
  std::string out = "[";
  for (unsigned j = 0; j < vx_text_data_get_count(text); ++j) {
    out += (j ? ", " : "") + json_point(vx_text_data_get_point(text, j));
  }
  return out + "]";
}

std::string json_sizes(const Tvx_text_data* text) {
  std::string out = "[";
  for (unsigned j = 0; j < vx_text_data_get_size_count(text); ++j) {
    out += std::string(j ? ", " : "") + "{\"size\": " + json_number(vx_text_data_get_size(text, j)) +
           ", \"dx\": " + json_number(vx_text_data_get_delta_x(text, j)) +
           ", \"dy\": " + json_number(vx_text_data_get_delta_y(text, j)) + "}";
  }
  return out + "]";
}

std::string json_callout(Tvx_text_data* text) {
  const Tvx_callout* callout = vx_text_data_get_callout(text);
  if (!callout) return "null";
  std::string out = "[";
  for (unsigned e = 0; e < vx_callout_get_size(callout); ++e) {
    out += (e ? ", " : "") + json_point(vx_callout_get_end_point(callout, e));
  }
  return out + "]";
}

std::string json_label(Tvx_text_data* text) {
  char colour[16];
  std::snprintf(colour, sizeof colour, "\"#%08X\"", static_cast<unsigned>(vx_text_data_get_color(text)));
  return "    {\"type\": " + std::to_string(vx_text_data_get_type(text)) +
         ", \"text\": " + json_string(vx_text_data_get_text(text)) +
         ", \"font\": " + json_string(vx_text_data_get_font_name(text)) + ", \"color\": " + colour +
         ", \"style\": " + std::to_string(vx_text_data_get_style(text)) +
         ", \"align\": " + std::to_string(vx_text_data_get_align(text)) +
         ", \"angle\": " + json_number(vx_text_data_get_angle(text)) +
         ",\n     \"points\": " + json_points(text) + ",\n     \"sizes\": " + json_sizes(text) +
         ",\n     \"callout\": " + json_callout(text) + "}";
}

int dump(const std::string& path) {
  text_list list;
  if (!read_labels(path, list.get())) return 1;
  std::printf("{\n  \"file\": %s,\n  \"labels\": [", json_string(vxk::utf8_to_wide(path)).c_str());
  const unsigned n = vx_text_list_get_size(list.get());
  for (unsigned i = 0; i < n; ++i) {
    std::printf("%s\n%s", i ? "," : "", json_label(vx_text_list_at(list.get(), i)).c_str());
  }
  std::printf("%s]\n}\n", n ? "\n  " : "");
  return 0;
}

// ---- reprojection

struct reproject_args {
  std::vector<std::string> files;
  std::string from;
  std::string to;
  bool has_from = false;
  bool has_to = false;
};

void print_reports(const vxk::library_reports& reports) {
  for (const auto& l : reports.errors())
    std::fprintf(stderr, "vxk labels: %s\n", vxk::library_reports::with_count(l).c_str());
  for (const auto& l : reports.messages())
    std::fprintf(stderr, "vxk labels: note: %s\n", vxk::library_reports::with_count(l).c_str());
}

// The list into a staged file, put into place when complete; gives an error text, empty on success.
std::string write_safely(const std::string& dst, const Tvx_text_list_base* list) {
  vxk::output_set out;
  if (!out.open(std::filesystem::path(dst).parent_path().string())) return out.error();
  const std::string error = write_labels(out.stage(std::filesystem::path(dst).filename().string()), list);
  if (!error.empty()) return out.final_text(error);
  return out.commit() ? std::string() : out.error();
}

// A system as --from or --to gives it (a PROJ string, EPSG:NNNN, WKT, or a file with one), with what
// is lost on the way told as warnings; false, with the reason told, when it cannot be used.
bool take_system(const std::string& text, const char* option, vxk::crs::system& out) {
  if (std::string err = vxk::crs::resolve(text, option, out); !err.empty()) {
    std::fprintf(stderr, "vxk labels: %s; nothing was written\n", err.c_str());
    return false;
  }
  vxk::crs::print_warnings(out, "vxk labels");
  return true;
}

int reproject(const reproject_args& a) {
  const std::string& src = a.files[0];
  const std::string& dst = a.files[1];
  if (vxk::same_file(src, dst)) {
    std::fprintf(stderr,
                 "vxk labels: the destination '%s' is the source '%s' (the same file); give another "
                 "destination\n",
                 vxk::echo(dst).c_str(), vxk::echo(src).c_str());
    return 2;
  }
  vxk::crs::system from_sys, to_sys;
  if (!take_system(a.from, "--from", from_sys) || !take_system(a.to, "--to", to_sys)) return 1;
  vxk::crs::share_shift(from_sys, to_sys);
  text_list list;
  if (!read_labels(src, list.get())) return 1;
  const std::wstring from = vxk::utf8_to_wide(from_sys.proj);
  const std::wstring to = vxk::utf8_to_wide(to_sys.proj);
  {
    vxk::library_reports reports;
    const bool built = vx_proj4_text_list_w(list.get(), from.c_str(), to.c_str());
    print_reports(reports);
    if (!built) {
      std::fprintf(stderr, "vxk labels: nothing was written\n");
      return 1;
    }
  }
  if (std::string error = write_safely(dst, list.get()); !error.empty()) {
    std::fprintf(stderr, "vxk labels: %s; nothing was written\n", error.c_str());
    return 1;
  }
  std::printf("%s written to %s\n",
              vxk::spelled(vx_text_list_get_size(list.get()), "label", "labels").c_str(),
              vxk::echo(dst).c_str());
  return 0;
}

int run(const std::vector<std::string>& args) {
  reproject_args a;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    const bool has_value = i + 1 < args.size();
    if (arg == "--help" || arg == "-h") {
      std::printf("%s", kUsage);
      return 0;
    } else if (arg == "--dump") {
      if (!has_value || args.size() != 2) return usage_error("--dump takes one file and nothing else");
      return dump(args[i + 1]);
    } else if (arg == "--from" || arg == "--to") {
      if (!has_value) return usage_error((arg + " needs a PROJ string").c_str());
      (arg == "--from" ? a.from : a.to) = args[++i];
      (arg == "--from" ? a.has_from : a.has_to) = true;
    } else if (arg.size() > 1 && arg[0] == '-') {
      return usage_error(("unknown option " + vxk::echo(arg)).c_str());
    } else {
      a.files.push_back(arg);
    }
  }
  if (a.files.size() != 2) return usage_error("give a source and a destination file");
  if (!a.has_from || !a.has_to) return usage_error("give both --from and --to");
  return reproject(a);
}

}  // namespace

VXK_COMMAND("labels", "reproject a TLD label file, or print one as JSON", run);
