// A PROJ string rewritten into the form that GDAL takes.
//
// GDAL reads a one-parallel Lambert conic only with both parallels and the latitude of origin spelled
// out, and it cannot carry the "+lon_wrap=45" that this library appends to every composed text into
// a WKT system. The corrector parses the text, fills the conic's latitudes and composes it again
// without that tail.
#pragma once

#include <memory>
#include <string>

#include "proj4/proj4_str.h"

class Tvx_proj4_str_correct {
 public:
  Tvx_proj4_str_correct();
  Tvx_proj4_str_correct(const Tvx_proj4_str_correct&) = delete;
  Tvx_proj4_str_correct& operator=(const Tvx_proj4_str_correct&) = delete;

  // Keeps the text as source and destination, and parses it.
  void set_proj4(const char* text);
  // Parses the source again and forgets earlier patches.
  void load_src();
  // Composes the parsed string, keeps it as destination and gives a copy.
  std::string get_proj4();
  void save_dst();

  // A Lambert conic ("+proj=lcc") gets "+lat_2" and "+lat_0" equal to "+lat_1" where they are missing.
  // True when something changed.
  bool patch_lcc_1sp_for_gdal();
  // Leaves out the "+lon_wrap=45" tail. Always true.
  bool patch_lon_wrap_for_gdal();

  // The whole correction of one text on a fresh corrector.
  static std::string patch_proj4_for_gdal(const char* text);

  Tvx_proj4_str* get_str() const { return f_str.get(); }
  bool get_changed() const { return f_changed; }

 private:
  // Defines the parameter with the value, if it is not defined yet; true when it was not.
  bool fill(Tvx_proj4_param_dbl* p, double value);

  std::unique_ptr<Tvx_proj4_str> f_str;
  std::string f_dst;
  std::string f_src;
  bool f_changed = false;
};
