// vxk reproject: one shape file, or many at once (reproject_folder.cpp).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "crs_text.h"
#include "shape_facts.h"
#include "vxk_proj4_shp.h"

namespace vxk::reproject {

constexpr int kFailed = 1;
constexpr int kBadArguments = 2;
constexpr int kDamagedSource = 3;

struct options {
  std::string src, dst, from, to;  // from and to as the user gave them (from may be empty)
  bool prj = true;                 // write DST.prj
  bool prj_asked = false;          // --prj given: a .prj that cannot be written fails the run
  bool progress = false;
  bool verbose = false;
  // The systems as the library takes them. from_sys is resolved per file when --from is not given.
  crs::system from_sys, to_sys;
  bool from_ready = false;
  // Told once by whoever runs the whole job, so that folder mode does not repeat them per file.
  bool difference_told = false, measures_told = false, taken_told = false;
  // Folder mode: the sources as given (files and folders), dst the destination folder.
  bool folder_mode = false;
  std::vector<std::string> sources;
  unsigned jobs = 0;  // 0: as many as the machine has processors
};

// Where the library reports its progress through one file.
struct progress {
  vx_proj4_shp_progress_t fn = nullptr;
  void* user = nullptr;
};

// Reprojects opt.src into opt.dst with the safe output of the program: reasons on standard error, the
// result put into place only when complete. The exit status of the command (0, kFailed, kBadArguments,
// kDamagedSource); counts tells what the library did, table_damaged whether the source's table is
// damaged (it is then copied as it is, and the status is kDamagedSource).
int run_file(const options& opt, const progress& progress, vx_proj4_shp_counts& counts, bool& table_damaged);

// Every shape file of opt.sources into the folder opt.dst, opt.jobs processes side by side, with one
// progress bar and one summary line. The exit status: kFailed when any file failed.
int run_folder(const options& opt);

// "3 records written, 1 became a null record (it could not be transformed)": the counts of a run, spelled
// for people; `damaged` names what is damaged when records could not be read ("the source").
std::string counts_text(std::uint64_t records, std::uint64_t failed, std::uint64_t unreadable,
                        const char* damaged);

// Warns when the library's result will lie more than a centimetre from PROJ's own transformation over
// the box of source coordinates.
void tell_difference(const options& opt, const shape_facts::box& b);

// With --verbose, says how the systems are taken when that is not the text the user wrote.
void tell_taken(const options& opt);

// Notes once that the measures of so many sources are not kept (nothing for 0).
void tell_measures(std::size_t sources);

// A progress bar on standard error, redrawn only when the shown percentage or the note changes.
struct bar {
  int shown = -1;
  std::string note;
  void draw(std::uint64_t done, std::uint64_t total, const std::string& note_after);
  // Clears the bar's line, so that a message can take it; the next draw redraws the bar.
  void hide();
};

}  // namespace vxk::reproject
