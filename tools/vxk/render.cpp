// vxk render: a picture of a generated sheet, as PNG or SVG, drawn with cairo.
#include <cairo-svg.h>
#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "command.h"
#include "designation.h"
#include "safe_output.h"
#include "shape_set.h"
#include "sheet_picture.h"
#include "utf8.h"

namespace {

namespace fs = std::filesystem;
using vxk::fail_if;
using vxk::failure;

const char* const kUsage =
    "usage: vxk render DIR --out PICTURE.png|PICTURE.svg [--size W[xH]] [--scale 1:N]\n"
    "\n"
    "Draws a sheet that vxk generate wrote, as a map maker checks it: the sheet's area, the meridians,\n"
    "parallels and polar circle, the frames with the minute scale's ticks and bars, the graticule points,\n"
    "and the coordinate labels and neighbours' names set on their base lines in the font and size that\n"
    "their tables give. DIR is the folder given to vxk generate --out (its scene set, HYPS/ and FRAME/),\n"
    "or its latlong/ folder. Files of the set that are missing are left out of the picture.\n"
    "\n"
    "Line widths and font sizes are those of the printed sheet, so the picture needs the map scale: it\n"
    "is taken from the designation in the NAME column of HYPS/Hypsa.shp (a 1:1,000,000 or 1:200,000\n"
    "sheet; a free box is drawn as 1:1,000,000), or from --scale.\n"
    "\n"
    "options:\n"
    "  --out FILE     the picture: FILE.png (pixels) or FILE.svg (a vector drawing); its folder must\n"
    "                 exist. An existing file is replaced only when the new picture is complete.\n"
    "  --size W[xH]   the page in pixels, each 16 to 10000; without a height the page follows the\n"
    "                 sheet's shape. Default: 1600 wide\n"
    "  --scale 1:N    the map scale, such as 1:200000, when the set's area does not tell it\n"
    "\n"
    "examples:\n"
    "  vxk generate N-37-VI --out /tmp/s && vxk render /tmp/s --out /tmp/N-37-VI.png\n"
    "  vxk render /tmp/s --out /tmp/N-37-VI.svg --size 1200x1200\n"
    "  vxk render /tmp/s/latlong --out /tmp/N-37-VI-degrees.png\n"
    "\n"
    "exit status: 0 done, 1 the set or the picture failed, 2 bad arguments.\n";

struct usage_error {
  std::string message;
};

struct options {
  std::string dir, out;
  double scale = 0;  // 0: from the set's area
  double width = 1600, height = 0;
  bool svg = false;
  bool help = false;
};

double page_length(const std::string& text) {
  char* end = nullptr;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end || v < 16 || v > 10000)
    throw usage_error{"--size takes whole numbers from 16 to 10000 as W or WxH, not '" + text + "'"};
  return static_cast<double>(v);
}

void size_of(const std::string& text, options& o) {
  const size_t x = text.find('x');
  o.width = page_length(text.substr(0, x));
  o.height = x == std::string::npos ? 0 : page_length(text.substr(x + 1));
}

bool ends_with(std::string text, const char* tail) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const size_t n = std::strlen(tail);
  return text.size() > n && text.compare(text.size() - n, n, tail) == 0;
}

// "200000", "1:200000" or "1:200,000".
double scale_given(std::string text) {
  if (text.rfind("1:", 0) == 0) text.erase(0, 2);
  std::string digits;
  for (char c : text) {
    if (c != ',') digits += c;
  }
  char* end = nullptr;
  const double n = std::strtod(digits.c_str(), &end);
  if (digits.empty() || *end || !(n >= 1) || n > 1e9)
    throw usage_error{"--scale takes 1:N, not '" + text + "'"};
  return n;
}

options parse(const std::vector<std::string>& args) {
  options o;
  std::vector<std::string> free;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    const auto value = [&]() -> const std::string& {
      if (i + 1 >= args.size()) throw usage_error{a + " needs a value"};
      return args[++i];
    };
    if (a == "--help" || a == "-h") {
      o.help = true;
    } else if (a == "--out") {
      o.out = value();
    } else if (a == "--size") {
      size_of(value(), o);
    } else if (a == "--scale") {
      o.scale = scale_given(value());
    } else if (a.size() > 1 && a[0] == '-' && a[1] == '-') {
      throw usage_error{"unknown option '" + a + "'"};
    } else {
      free.push_back(a);
    }
  }
  if (o.help) return o;
  if (free.size() != 1) throw usage_error{"give one folder of a generated sheet"};
  o.dir = free[0];
  if (o.out.empty()) throw usage_error{"give the picture with --out FILE.png or --out FILE.svg"};
  o.svg = ends_with(o.out, ".svg");
  if (!o.svg && !ends_with(o.out, ".png")) throw usage_error{"--out names a .png or a .svg file"};
  return o;
}

// ---- the map scale ------------------------------------------------------------------------------------

// The designation of the set's area tells the scale: a 1:1,000,000 or 1:200,000 sheet, or a free box,
// which the generator draws as a 1:1,000,000 sheet.
double scale_of_area(const vxk::sheet_files& set) {
  const vxk::shape_layer* area = set.find("Hypsa");
  fail_if(!area || area->records.empty(),
          "the set has no HYPS/Hypsa.shp to tell the sheet and its map scale: give --scale 1:N");
  const std::wstring name = area->value(area->records.front(), L"NAME");
  if (name == L"Base list") return 1000000;
  vxk::sheet_record sheet;
  try {
    vxk::read_printed_designation(vxk::u8(name), false, sheet.get());
  } catch (const failure&) {
    throw failure{"the area's NAME '" + vxk::u8(name) + "' is not a sheet's designation: give --scale 1:N"};
  }
  const Tvx_stdlist_scale scale = vx_stdlist_get_scale(sheet.get());
  fail_if(scale != VX_STDLIST_SC_MLN && scale != VX_STDLIST_SC_200,
          vxk::u8(name) + " is not a sheet at 1:1,000,000 or 1:200,000: give --scale 1:N");
  return scale == VX_STDLIST_SC_MLN ? 1000000 : 200000;
}

// ---- the picture --------------------------------------------------------------------------------------

cairo_status_t append(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

void check(cairo_status_t status, const char* what) {
  fail_if(status != CAIRO_STATUS_SUCCESS,
          std::string("cannot draw the ") + what + ": " + cairo_status_to_string(status));
}

std::string png_of(const vxk::sheet_picture& picture, int width, int height) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
  cairo_t* cr = cairo_create(surface);
  picture.draw(cr);
  const cairo_status_t drawn = cairo_status(cr);
  cairo_destroy(cr);
  std::string bytes;
  const cairo_status_t written = drawn ? drawn : cairo_surface_write_to_png_stream(surface, append, &bytes);
  cairo_surface_destroy(surface);
  check(written, "PNG picture");
  return bytes;
}

std::string escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
  }
  return out;
}

// cairo sets every text as glyph outlines, so that the drawing looks the same in every viewer; the
// texts themselves go into the document's title and description, where a search or a screen reader
// finds them.
std::string with_description(std::string svg, const std::string& title,
                             const std::vector<std::wstring>& labels) {
  std::string desc = "Labels:";
  for (const std::wstring& l : labels) desc += "\n" + escaped(vxk::u8(l));
  const size_t root = svg.find("<svg");
  const size_t end = root == std::string::npos ? root : svg.find('>', root);
  fail_if(end == std::string::npos, "cairo wrote no SVG document");
  return svg.insert(end + 1, "\n<title>" + escaped(title) + "</title>\n<desc>" + desc + "</desc>");
}

std::string svg_of(const vxk::sheet_picture& picture, int width, int height, const std::string& title) {
  std::string bytes;
  cairo_surface_t* surface = cairo_svg_surface_create_for_stream(append, &bytes, width, height);
  cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PX);
  cairo_t* cr = cairo_create(surface);
  picture.draw(cr);
  const cairo_status_t drawn = cairo_status(cr);
  cairo_destroy(cr);
  cairo_surface_finish(surface);
  const cairo_status_t written = drawn ? drawn : cairo_surface_status(surface);
  cairo_surface_destroy(surface);
  check(written, "SVG picture");
  return with_description(bytes, title, picture.label_texts());
}

// Writes under a temporary name beside the file, and renames it into place only when every byte is
// on the disk: a failure leaves an existing picture as it was.
void write_whole(const fs::path& file, const std::string& bytes) {
  const fs::path folder = file.parent_path().empty() ? fs::path(".") : file.parent_path();
  std::error_code ec;
  fail_if(!fs::is_directory(folder, ec), "the folder of '" + file.string() + "' does not exist");
  fail_if(fs::is_directory(file, ec), "'" + file.string() + "' is a folder");
  vxk::output_set out;
  fail_if(!out.open(folder.string()), out.error());
  const std::string staged = out.stage(file.filename().string());
  std::FILE* f = std::fopen(staged.c_str(), "wb");
  const bool written = f && std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
  const std::string reason = std::strerror(errno);
  const bool closed = f && std::fclose(f) == 0;
  fail_if(!written || !closed, "cannot write '" + file.string() + "': " + reason);
  fail_if(!out.commit(), out.error());
}

std::string scale_text(double scale) {
  std::string digits = std::to_string(static_cast<long long>(std::llround(scale)));
  for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3) digits.insert(static_cast<size_t>(i), ",");
  return "1:" + digits;
}

std::string drawn_files(const vxk::sheet_files& set) {
  std::string text;
  for (const vxk::shape_layer& l : set.layers) {
    text += (text.empty() ? "" : ", ") + l.name + ".shp (" + std::to_string(l.records.size()) +
            (l.records.size() == 1 ? " record)" : " records)");
  }
  return text;
}

int run(const options& o) {
  const vxk::sheet_files set = vxk::read_sheet_files(o.dir);
  const double scale = o.scale > 0 ? o.scale : scale_of_area(set);
  const vxk::shape_layer* area = set.find("Hypsa");
  const std::string name =
      area && !area->records.empty() ? vxk::u8(area->value(area->records.front(), L"NAME")) : "the sheet";
  vxk::sheet_picture picture(set, scale);
  const double height = picture.fit(o.width, o.height);
  const int w = static_cast<int>(o.width), h = static_cast<int>(height);
  fail_if(h > 10000, "the page would be " + std::to_string(h) + " high: give --size WxH");
  const std::string title = name + ", " + scale_text(scale);
  write_whole(o.out, o.svg ? svg_of(picture, w, h, title) : png_of(picture, w, h));
  std::printf("%s drawn from %s: %s\n", title.c_str(), o.dir.c_str(), drawn_files(set).c_str());
  if (!set.missing.empty()) {
    std::string missing;
    for (const std::string& m : set.missing) missing += (missing.empty() ? "" : ", ") + m;
    std::printf("not in the set, so not drawn: %s\n", missing.c_str());
  }
  std::printf("picture written to %s, %d x %d pixels\n", o.out.c_str(), w, h);
  return 0;
}

// cairo keeps the fonts it has used, and fontconfig its configuration and patterns, until they are told
// to let them go; done when the command ends, so that a leak checker sees only what was really lost.
struct font_caches_released {
  ~font_caches_released() {
    cairo_debug_reset_static_data();
    FcFini();
  }
};

int render_command(const std::vector<std::string>& args) {
  const font_caches_released at_end;
  try {
    const options o = parse(args);
    if (o.help) {
      std::fputs(kUsage, stdout);
      return 0;
    }
    return run(o);
  } catch (const usage_error& e) {
    std::fprintf(stderr, "vxk render: %s (see 'vxk render --help')\n", e.message.c_str());
    return 2;
  } catch (const failure& f) {
    std::fprintf(stderr, "vxk render: %s\n", f.message.c_str());
    return 1;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vxk render: %s\n", e.what());
    return 1;
  }
}

}  // namespace

VXK_COMMAND("render", "a picture (PNG or SVG) of a generated sheet", render_command);
