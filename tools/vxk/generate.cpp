// vxk generate: the shape files that draw a map sheet, or a free box of coordinates, in a scene
// projection and again in the sheet's geographic system.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "command.h"
#include "designation.h"
#include "generate_many.h"
#include "safe_output.h"
#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace {

namespace fs = std::filesystem;
using vxk::fail_if;
using vxk::failure;

const char* const kUsage =
    "usage: vxk generate DESIGNATION --out DIR [--south] [--scene PROJ|latlong] [--lon-divs M,A] [--lat-divs "
    "M,A]\n"
    "       vxk generate DESIGNATION... | --from-file FILE | --children SHEET  --out DIR [-j N] [the options "
    "above]\n"
    "       vxk generate --box XMIN XMAX YMIN YMAX --steps DX DY --out DIR [--scene PROJ|latlong]\n"
    "\n"
    "Writes the shape files that draw one map sheet at 1:1,000,000 or 1:200,000, or a free box of\n"
    "coordinates (longitudes XMIN to XMAX, latitudes YMIN to YMAX, in degrees of Pulkovo 1942):\n"
    "  DIR/HYPS/, DIR/FRAME/                   in the scene projection\n"
    "  DIR/latlong/HYPS/, DIR/latlong/FRAME/   again in the sheet's geographic system (Pulkovo 1942)\n"
    "Each set holds:\n"
    "  HYPS/Hypsa.shp    the area of the sheet, one polygon; columns ID, L_CODE (-1) and NAME (the\n"
    "                    designation, or \"Base list\" for a box)\n"
    "  HYPS/Hypsl.shp    the inner meridians (west to east), the inner parallels (south to north), the\n"
    "                    north polar circle where the sheet crosses it, and the sheet's rectangle;\n"
    "                    columns ID, L_CODE (400012 meridian, 400011 parallel, 400013 polar circle,\n"
    "                    400010 rectangle), TEXT (the kind), GRAD and MIN (the line's degrees and minutes)\n"
    "                    and INDICATION (в.д., с.ш. or ю.ш.). A polar sheet's table lacks the rectangle's\n"
    "                    record, so GDAL and QGIS do not show that line.\n"
    "  HYPS/Hypsp.shp    (sheets only) points over the sheet, 25 by 25 at 1:1,000,000 and 9 by 9 at\n"
    "                    1:200,000, column by column from the south-west corner; columns ID (from 0),\n"
    "                    L_CODE (-1), LAT and LON (degrees, minutes and seconds, as 55° 20'00\")\n"
    "  FRAME/Frame.shp   the frames, closed lines at fixed margins outside the edge, then the minute\n"
    "                    marks; columns ID and L_CODE. 1:1,000,000 and boxes: the edge and 1, 7.5, 8.5,\n"
    "                    9.5 mm out (400901, 400901, 400903, 400902, 400903); 1:200,000: 7 and 8.2 mm out\n"
    "                    (400903, 400902) and the outer frame at 9.8 mm broken round the neighbours'\n"
    "                    names, four corner pieces (400903). The marks (400901): a tick at every mark\n"
    "                    across a band outside the edge (1 mm wide; at 1:200,000 between 7 and 8.2 mm,\n"
    "                    with ticks from the edge out to 7 mm at the edges and main lines) and a bar over\n"
    "                    every second interval from each corner. A box has marks at whole degrees only\n"
    "  FRAME/FrameDig.shp  the base lines of the coordinate labels round the frame: for each parallel\n"
    "                    and corner its degrees above and minutes below the line on both sides, for each\n"
    "                    meridian and corner its degrees and minutes below and above the sheet; columns\n"
    "                    ID, L_CODE (400912), TEXT (the label), FONT (Times New Roman) and SIZE (8.00)\n"
    "  FRAME/FrameAdj.shp  (1:200,000 only, scene set only) the four neighbours' designations on the\n"
    "                    middle stretches of the outer frame, left, right, top, bottom; columns ID,\n"
    "                    L_CODE (400911), TEXT (the designation, as vxk sheet --neighbours prints it),\n"
    "                    FONT (Times New Roman) and SIZE (6.50)\n"
    "Beside every shape file stand its table (.dbf, with a .cpg saying 1251 so that GDAL and QGIS read the\n"
    "Cyrillic texts), a .prj (ESRI WKT) and a .pj4 (the PROJ string). docs/generating-sheets.md tells more.\n"
    "\n"
    "The four folders are written in a temporary folder inside DIR and moved into DIR only when everything\n"
    "was written; a failed run leaves nothing behind. Folders of the same names in DIR are replaced when\n"
    "they hold only files that vxk generate writes; otherwise the command refuses.\n"
    "\n"
    "Many sheets: with several designations, --from-file or --children, each sheet is written into a folder\n"
    "of its own under DIR, named by its designation as the library prints it (DIR/N-37-VI), by a vxk\n"
    "process of its own; -j N runs N of them side by side. A progress bar shows on a terminal; elsewhere a\n"
    "line for each sheet. A sheet that fails is reported and the others still complete.\n"
    "\n"
    "DESIGNATION is the sheet as `vxk sheet` prints it: N-37 or N-37-VI, joined sheets as N-37,38 (double)\n"
    "or N-37-VI,38-I,II (triple). Case and surrounding blanks do not matter, nor letters that look alike in\n"
    "the Latin and Cyrillic alphabets.\n"
    "\n"
    "options:\n"
    "  --out DIR          the destination folder (created if missing)\n"
    "  --south            the sheet lies in the southern hemisphere\n"
    "  --scene TEXT       the scene projection as a PROJ string; 'latlong' takes the sheet's geographic\n"
    "                     system. Default: the Gauss-Kruger zone of the sheet (or of the box's middle) on\n"
    "                     Pulkovo 1942: transverse Mercator, Krasovsky ellipsoid, the zone's central\n"
    "                     meridian, false easting zone * 1,000,000 + 500,000, and the shift to WGS 84 of\n"
    "                     the style library (+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12)\n"
    "  --lon-divs M,A     the sheet's width cut into M parts by main meridians, each cut again into A by\n"
    "                     the marks of the frame; --lat-divs the same for its height and the parallels.\n"
    "                     Defaults: at 1:1,000,000 a meridian and a parallel every degree with marks\n"
    "                     every 10' (--lon-divs 6,6 per joined sheet, --lat-divs 4,6); at 1:200,000 lines\n"
    "                     every 20' with marks every minute (--lon-divs 3,20 per joined sheet,\n"
    "                     --lat-divs 2,20)\n"
    "  --from-file FILE   designations, one a line (blank lines and lines that begin with # are left\n"
    "                     out); - reads them from standard input\n"
    "  --children SHEET   the 36 1:200,000 sheets (I to XXXVI) of a 1:1,000,000 sheet, such as N-37\n"
    "  -j N, --jobs N     sheets generated side by side, 1 to 64 (default 1)\n"
    "  --box XMIN XMAX YMIN YMAX, --steps DX DY\n"
    "                     a free box instead of a sheet, with main lines at multiples of DX and DY degrees\n"
    "                     (marks at whole degrees of the steps from the box's edge; none for a step below "
    "1)\n"
    "\n"
    "examples:\n"
    "  vxk generate N-37-VI --out /tmp/s\n"
    "  vxk generate n-37 --out /tmp/n37 --scene latlong\n"
    "  vxk generate --box 30 36 50 54 --steps 1 1 --out /tmp/box\n"
    "  vxk generate N-37-VI --out /tmp/s --scene \"+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs\"\n"
    "  vxk generate --children N-37 --out /tmp/n37 -j 2\n"
    "  vxk generate N-37-V N-37-VI N-37-VII --out /tmp/row\n"
    "\n"
    "exit status: 0 done, 1 the sheet, projection or parameters were refused or a file failed (for many\n"
    "sheets: any of them), 2 bad arguments.\n";

struct usage_error {
  std::string message;
};

struct options {
  std::string designation;
  vxk::many_sheets many;  // several sheets, each into a folder of its own
  bool batch = false;
  std::string out;
  std::string scene;
  bool south = false;
  bool box = false;
  double bounds[4] = {0, 0, 0, 0};
  double steps[2] = {0, 0};
  int lon_divs[2] = {0, 0};
  int lat_divs[2] = {0, 0};
  bool help = false;
};

double number_of(const std::string& text, const char* what) {
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (text.empty() || *end) throw usage_error{std::string(what) + " takes numbers, not '" + text + "'"};
  return v;
}

// "M,A": two whole numbers.
void divisions_of(const std::string& text, const char* what, int (&out)[2]) {
  char* end = nullptr;
  const long main = std::strtol(text.c_str(), &end, 10);
  const bool comma = *end == ',';
  const long additional = comma ? std::strtol(end + 1, &end, 10) : 0;
  if (!comma || *end || text.empty() || main < -2147483647 || main > 2147483647 || additional < -2147483647 ||
      additional > 2147483647)
    throw usage_error{std::string(what) + " takes two whole numbers as M,A, not '" + text + "'"};
  out[0] = static_cast<int>(main);
  out[1] = static_cast<int>(additional);
}

const std::string& value(const std::vector<std::string>& args, size_t& i, const std::string& name) {
  if (i + 1 >= args.size()) throw usage_error{name + " needs a value"};
  return args[++i];
}

unsigned jobs_of(const std::string& text) {
  char* end = nullptr;
  const long n = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end || n < 1 || n > 64)
    throw usage_error{"-j takes a number from 1 to 64, not '" + text + "'"};
  return static_cast<unsigned>(n);
}

// Many sheets: the options that each sheet's own run takes are passed on to it.
void finish_batch(options& o, std::vector<std::string>& free) {
  if (o.box) throw usage_error{"--box draws one box; it takes no designations, --from-file or --children"};
  o.many.designations = free;
  o.many.south = o.south;
  o.many.out = o.out;
}

options parse(const std::vector<std::string>& args) {
  options o;
  std::vector<std::string> free;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--help" || a == "-h") {
      o.help = true;
    } else if (a == "--out") {
      o.out = value(args, i, a);
    } else if (a == "--scene") {
      o.scene = value(args, i, a);
      o.many.sheet_options.insert(o.many.sheet_options.end(), {a, o.scene});
    } else if (a == "--south") {
      o.south = true;
      o.many.sheet_options.push_back(a);
    } else if (a == "--lon-divs") {
      divisions_of(value(args, i, a), "--lon-divs", o.lon_divs);
      o.many.sheet_options.insert(o.many.sheet_options.end(), {a, args[i]});
    } else if (a == "--lat-divs") {
      divisions_of(value(args, i, a), "--lat-divs", o.lat_divs);
      o.many.sheet_options.insert(o.many.sheet_options.end(), {a, args[i]});
    } else if (a == "--from-file") {
      o.many.from_file = value(args, i, a);
    } else if (a == "--children") {
      o.many.children = value(args, i, a);
    } else if (a == "-j" || a == "--jobs") {
      o.many.jobs = jobs_of(value(args, i, a));
    } else if (a.size() > 2 && a.rfind("-j", 0) == 0 && a[2] != '-') {
      o.many.jobs = jobs_of(a.substr(2));
    } else if (a == "--box") {
      o.box = true;
      for (double& b : o.bounds) b = number_of(value(args, i, a), "--box");
    } else if (a == "--steps") {
      for (double& s : o.steps) s = number_of(value(args, i, a), "--steps");
    } else if (a.size() > 1 && a[0] == '-' && a[1] == '-') {
      throw usage_error{"unknown option '" + a + "'"};
    } else {
      free.push_back(a);
    }
  }
  if (o.help) return o;
  if (o.out.empty()) throw usage_error{"give the destination folder with --out DIR"};
  o.batch = free.size() > 1 || !o.many.from_file.empty() || !o.many.children.empty();
  if (o.batch) {
    finish_batch(o, free);
  } else if (o.box) {
    if (!free.empty()) throw usage_error{"--box takes no designation"};
    if (o.steps[0] == 0 && o.steps[1] == 0) throw usage_error{"--box needs --steps DX DY"};
    if (o.lon_divs[0] || o.lat_divs[0] || o.south)
      throw usage_error{"--lon-divs, --lat-divs and --south are for sheets"};
  } else if (free.size() != 1) {
    throw usage_error{
        "give a designation, several, --from-file, --children, or --box (see 'vxk generate --help')"};
  }
  if (!o.box && !o.batch) o.designation = free[0];
  return o;
}

// ---- projections --------------------------------------------------------------------------------------

// The style library's geographic system, the one the sheet is laid out in.
std::wstring geographic_system() {
  vxk::rows_sink sink;
  const std::wstring path = std::wstring(vx_options_get_style_libs_path()) + L"std_list/proj0.pj4";
  fail_if(!vx_pj4_load_simple_w(path.c_str(), sink.get()) || sink.rows().empty(),
          "cannot read the geographic system of the style library, " + vxk::u8(path));
  return sink.rows().front();
}

// The Gauss-Kruger zone of a longitude (the eastern one on a zone's edge), on Pulkovo 1942.
std::wstring gauss_kruger(double longitude) {
  const double l = longitude - 360.0 * std::floor((longitude + 180.0) / 360.0);  // -180 up to 180
  const int zone = static_cast<int>(std::floor((l < 0 ? l + 360.0 : l) / 6.0)) + 1;
  const int meridian = zone * 6 - 3 > 180 ? zone * 6 - 3 - 360 : zone * 6 - 3;
  return L"+proj=tmerc +lat_0=0 +lon_0=" + std::to_wstring(meridian) + L" +k=1 +x_0=" +
         std::to_wstring(zone * 1000000LL + 500000) +
         L" +y_0=0 +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";
}

// The scene asked for, checked by building the transformation from the geographic system to it.
std::wstring scene_of(const options& o, double middle_longitude, const std::wstring& geographic) {
  std::wstring scene = o.scene.empty()        ? gauss_kruger(middle_longitude)
                       : o.scene == "latlong" ? geographic
                                              : vxk::utf8_to_wide(o.scene);
  Tvx_rpj_fb_d2* r = vx_rpj_fb_d2_create();
  const bool usable = r && vx_rpj_fb_d2_init_w(r, geographic.c_str(), scene.c_str());
  vx_rpj_fb_d2_destroy(r);
  fail_if(!usable,
          "cannot use the projection \"" + vxk::u8(scene) + "\": PROJ cannot transform the sheet into it");
  return scene;
}

// ---- the library's run --------------------------------------------------------------------------------

// The errors that the library reports while a run goes on.
struct library_errors {
  std::vector<std::string> texts;
  library_errors() {
    vx_env_callbacks callbacks{};
    callbacks.error = [](void* user, const char* text) {
      static_cast<library_errors*>(user)->texts.emplace_back(text ? text : "");
    };
    vx_env_install_out(&callbacks, this);
  }
  ~library_errors() { vx_env_remove_out(); }
  library_errors(const library_errors&) = delete;
  library_errors& operator=(const library_errors&) = delete;
};

// A sheet with its divisions, through vx_stdlist_generate_shapes.
bool generate_sheet(const Tvx_stdlist_string* sheet, const options& o, const std::wstring& dir,
                    const std::wstring& scene) {
  const bool at200 = vx_stdlist_get_scale(sheet) == VX_STDLIST_SC_200;
  const int type = vx_stdlist_get_type(sheet);
  Tvx_stdlist_params* p = vx_stdlist_params_create(sheet);
  fail_if(!p, "out of memory");
  vx_stdlist_params_set_output_dir(p, dir.c_str());
  vx_stdlist_params_set_scene_proj(p, scene.c_str());
  if (o.lon_divs[0] || o.lon_divs[1])
    vx_stdlist_params_set_lon_divs(p, o.lon_divs[0], o.lon_divs[1]);
  else
    vx_stdlist_params_set_lon_divs(p, (at200 ? 3 : 6) * type, at200 ? 20 : 6);
  if (o.lat_divs[0] || o.lat_divs[1])
    vx_stdlist_params_set_lat_divs(p, o.lat_divs[0], o.lat_divs[1]);
  else
    vx_stdlist_params_set_lat_divs(p, at200 ? 2 : 4, at200 ? 20 : 6);
  const bool ok = vx_stdlist_generate_shapes(p);
  vx_stdlist_params_destroy(p);
  return ok;
}

bool generate_box(const options& o, const std::wstring& dir, const std::wstring& scene) {
  Tvx_stdlist_custom_params* p = vx_stdlist_custom_params_create();
  fail_if(!p, "out of memory");
  vx_stdlist_custom_params_set_output_dir(p, dir.c_str());
  vx_stdlist_custom_params_set_scene_proj(p, scene.c_str());
  vx_stdlist_custom_params_set_box(p, o.bounds[0], o.bounds[1], o.bounds[2], o.bounds[3]);
  vx_stdlist_custom_params_set_grid_steps(p, o.steps[0], o.steps[1]);
  const bool ok = vx_stdlist_custom_generate_shapes(p);
  vx_stdlist_custom_params_destroy(p);
  return ok;
}

// ---- the files ----------------------------------------------------------------------------------------

const char* const kTops[] = {"HYPS", "FRAME", "latlong"};

// The files that a run writes, and so the only ones that a new run may replace.
bool own_file(const std::string& name) {
  const fs::path relative(name);
  static const std::set<std::string> folders = {"HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME"};
  static const std::set<std::string> names = {"Hypsa", "Hypsl", "Hypsp", "Frame", "FrameDig", "FrameAdj"};
  static const std::set<std::string> extensions = {".shp", ".shx", ".dbf", ".prj", ".pj4", ".cpg"};
  return folders.count(relative.parent_path().generic_string()) && names.count(relative.stem().string()) &&
         extensions.count(relative.extension().string());
}

std::vector<fs::path> files_with(const fs::path& root, const char* extension) {
  std::vector<fs::path> out;
  for (const auto& e : fs::recursive_directory_iterator(root)) {
    if (e.is_regular_file() && e.path().extension() == extension) out.push_back(e.path());
  }
  std::sort(out.begin(), out.end());
  return out;
}

// Records of a shape file, from its index: 100 bytes of header and 8 bytes a record.
long records_of(const fs::path& shp) {
  std::error_code ec;
  const auto size = fs::file_size(fs::path(shp).replace_extension(".shx"), ec);
  return ec || size < 100 ? -1 : static_cast<long>((size - 100) / 8);
}

// A shape file is whole when its index, table and main file are there and the index and table agree.
void check_written(const fs::path& root) {
  for (const char* area : {"HYPS/Hypsa.shp", "latlong/HYPS/Hypsa.shp"})
    fail_if(!fs::exists(root / area), std::string("the run wrote no ") + area);
  for (const fs::path& shp : files_with(root, ".shp")) {
    fail_if(records_of(shp) < 0 || !fs::exists(fs::path(shp).replace_extension(".dbf")),
            "the run left " + fs::relative(shp, root).string() + " without its index or table");
  }
}

// GDAL and QGIS take the code page of a table from the .cpg beside it.
void write_cpg_files(const fs::path& root) {
  for (const fs::path& dbf : files_with(root, ".dbf")) {
    const fs::path cpg = fs::path(dbf).replace_extension(".cpg");
    std::FILE* f = std::fopen(cpg.c_str(), "wb");
    const bool written = f && std::fputs("1251", f) >= 0;
    const bool closed = f && std::fclose(f) == 0;
    fail_if(!written || !closed, "cannot write '" + cpg.string() + "'");
  }
}

// What the run wrote, to be told once it is in place.
std::string report_of(const std::wstring& what, const std::wstring& scene, const fs::path& root,
                      const fs::path& destination) {
  std::string text = vxk::u8(what) + " in " + vxk::u8(scene) + "\nwritten to " + destination.string() + ":\n";
  for (const fs::path& shp : files_with(root, ".shp")) {
    const long n = records_of(shp);
    char line[512];
    std::snprintf(line, sizeof line, "  %-26s %ld record%s\n", fs::relative(shp, root).c_str(), n,
                  n == 1 ? "" : "s");
    text += line;
  }
  return text + "each with its .shx, .dbf, .cpg (1251), .prj and .pj4\n";
}

// ---- the command --------------------------------------------------------------------------------------

int run(const options& o) {
  const std::wstring geographic = geographic_system();
  vxk::sheet_record sheet;
  std::wstring what;
  double middle = 0.0;
  if (o.box) {
    middle = (o.bounds[0] + o.bounds[1]) / 2;
    what = L"box " + vxk::utf8_to_wide(std::to_string(o.bounds[0]) + " " + std::to_string(o.bounds[1]) + " " +
                                       std::to_string(o.bounds[2]) + " " + std::to_string(o.bounds[3]));
  } else {
    vxk::read_printed_designation(o.designation, o.south, sheet.get());
    const Tvx_stdlist_scale scale = vx_stdlist_get_scale(sheet.get());
    what = vxk::designation_of(sheet.get());
    fail_if(scale != VX_STDLIST_SC_MLN && scale != VX_STDLIST_SC_200,
            vxk::u8(what) + " is a sheet at " + vxk::u8(vx_stdlist_scale_tostr(sheet.get())) +
                "; vxk generate draws sheets at 1:1,000,000 and 1:200,000");
    middle = vx_stdlist_get_mid_meridian(sheet.get());
    what += L" (" + std::wstring(vx_stdlist_scale_tostr(sheet.get())) + L")";
  }
  const std::wstring scene = scene_of(o, middle, geographic);

  vxk::output_set out;
  if (!out.open(o.out)) throw failure{out.error()};
  for (const char* top : kTops)
    if (!out.replace_folder(top, own_file)) throw failure{out.error() + ": choose another --out"};
  const fs::path root = out.staging();
  for (const char* f : {"HYPS", "FRAME", "latlong/HYPS", "latlong/FRAME"}) fs::create_directories(root / f);
  const std::wstring dir = vxk::utf8_to_wide(root.string()) + L"/";
  library_errors errors;
  const bool ok = o.box ? generate_box(o, dir, scene) : generate_sheet(sheet.get(), o, dir, scene);
  std::string reasons;
  for (const std::string& e : errors.texts) reasons += "\n  " + e;
  fail_if(!ok || !errors.texts.empty(), "the generation failed; nothing was written" + reasons);
  check_written(root);
  write_cpg_files(root);
  const std::string report = report_of(what, scene, root, fs::absolute(o.out).lexically_normal());
  if (!out.commit()) throw failure{out.error()};
  std::fputs(report.c_str(), stdout);
  return 0;
}

int generate_command(const std::vector<std::string>& args) {
  try {
    const options o = parse(args);
    if (o.help) {
      std::fputs(kUsage, stdout);
      return 0;
    }
    return o.batch ? vxk::generate_many(o.many) : run(o);
  } catch (const usage_error& e) {
    std::fprintf(stderr, "vxk generate: %s (see 'vxk generate --help')\n", e.message.c_str());
    return 2;
  } catch (const failure& f) {
    std::fprintf(stderr, "vxk generate: %s\n", f.message.c_str());
    return 1;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "vxk generate: %s\n", e.what());
    return 1;
  }
}

}  // namespace

VXK_COMMAND("generate", "the shape files that draw a map sheet or a box of coordinates", generate_command);
