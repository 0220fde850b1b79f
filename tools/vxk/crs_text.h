// Coordinate systems as people give them to vxk: a PROJ string, an authority code (EPSG:4326), WKT
// (also the ESRI WKT of a .prj), PROJJSON, or a file holding one of these. The library takes PROJ
// strings with the parameters its projection strings know; everything else is turned into one through
// PROJ, and what the turn or the library's strings lose is said in warnings.
#pragma once

#include <string>
#include <vector>

namespace vxk::crs {

// One coordinate system of a run.
struct system {
  std::string shown;                 // how messages name it: "--from", "'roads.prj'"
  std::string proj;                  // the PROJ string the library is given
  std::string for_proj;              // what PROJ's own transformation is built from (as the user gave it)
  bool converted = false;            // proj was made by PROJ from another form
  std::vector<std::string> dropped;  // its parameters that the library drops ("+pm=paris")
  std::string datum;                 // the datum's name, for a system made by PROJ
  std::vector<std::string> warnings;
};

// Prints the system's warnings on standard error, each as "COMMAND: warning: SHOWN: text".
void print_warnings(const system& s, const char* command);

// Reads what --from or --to gives into `out`; an error text, empty when it can be used. A text that is
// none of the known forms is taken as a PROJ string as it is, and the library judges it.
std::string resolve(const std::string& text, const std::string& shown, system& out);

// The system of a shape file from the files beside it: X.pj4 (the PROJ string this library writes
// beside its results) when there is one, else X.prj. An error text when there is neither or it cannot
// be read.
std::string from_source(const std::string& shp, system& out);

// Two systems made by PROJ on one datum, of which only one came with a shift to WGS 84 (PROJ's database
// knows a single shift for one and several for the other): the other gets the same shift, so that the
// two cancel as they do in PROJ's own transformation. Systems given as PROJ strings are kept as written.
void share_shift(system& a, system& b);

// The parameters of a PROJ string that the library's projection strings do not carry, as written
// ("+pm=paris"); they are dropped when the library reads the string.
std::vector<std::string> dropped_parameters(const std::string& proj);

// Where the library's transformation between two systems and PROJ's own (what cs2cs and ogr2ogr do
// with the same systems) part the most, over a box of source coordinates.
struct difference {
  double metres = 0;      // the largest distance found, in metres
  double x = 0, y = 0;    // the source point where it was found
  std::string operation;  // the name of PROJ's operation there
  std::string towgs84;    // its datum shift as "+towgs84=...", when it is one Helmert step
};

// Compares at nine points of the box (corners, middles of the sides, centre); false when the two cannot
// be compared (PROJ finds no transformation, or no point transforms on both sides).
bool compare_with_proj(const system& from, const system& to, double xmin, double ymin, double xmax,
                       double ymax, difference& out);

// The warning for a difference worth telling (over a centimetre), empty otherwise.
std::string difference_warning(const system& from, const system& to, const difference& d);

}  // namespace vxk::crs
