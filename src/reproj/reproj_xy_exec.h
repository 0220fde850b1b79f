// The one holder of PROJ transformation objects in the library.
//
// Two projection texts are normalised through Tvx_proj4_str and turned into a PROJ transformation on
// PROJ's default context, with the axes put in the order x = easting or longitude, y = northing or
// latitude. Coordinates of a geographic system are degrees at this class's border in both directions.
#pragma once

#include <proj.h>

#include <string>

class Tvx_xy_array;

class Tvx_reproj_xy_exec {
 public:
  Tvx_reproj_xy_exec() = default;
  ~Tvx_reproj_xy_exec() { clear(); }
  Tvx_reproj_xy_exec(const Tvx_reproj_xy_exec&) = delete;
  Tvx_reproj_xy_exec& operator=(const Tvx_reproj_xy_exec&) = delete;

  // Builds the transformation from src to dst; true when both PROJ objects exist. PROJ's own reports go
  // to the library's log (reproj/proj_log.h), never to standard error.
  bool init(const char* src, const char* dst);
  void clear();
  // After a failed init: why, in words for a person (which text PROJ refused, and PROJ's reason). The
  // texts are quoted cut to a sane length and with control characters replaced. Empty after success.
  const std::string& get_error() const { return f_error; }

  // One point in place.
  bool apply(double* x, double* y);
  // A batch in place, in one PROJ call. One point that cannot be transformed fails the whole batch,
  // and the coordinates are then lost.
  bool apply(unsigned n, double* x, double* y);
  bool apply(Tvx_xy_array* a);

  // The text that init hands to PROJ for this projection; *is_long_lat tells whether it is geographic.
  static std::string verify_pj4str(const char* text, bool* is_long_lat);

 private:
  PJ* f_pj = nullptr;
  PJ* f_pj_norm = nullptr;
  bool f_in_radians = false;
  bool f_out_radians = false;
  std::string f_error;
};
