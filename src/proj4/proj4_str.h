// The parsed form of a PROJ string.
//
// Every projection text passes through this class on its way to PROJ: the text is split into 21 known
// parameters, and a new text is composed from them in a fixed order and precision, with a tail of our
// own. What the parser does not know is dropped. The class also tells whether a text is geographic or
// describes a sphere, and compares two texts parameter by parameter.
#pragma once

#include <memory>
#include <string>

#include "proj4/proj4_param.h"

class Tvx_proj4_str {
 public:
  static constexpr unsigned PARAM_COUNT = 21;

  Tvx_proj4_str();
  Tvx_proj4_str(const Tvx_proj4_str&) = delete;
  Tvx_proj4_str& operator=(const Tvx_proj4_str&) = delete;

  const char* get() const { return f_text.c_str(); }
  // Stores the text; it is not parsed until decompose.
  void set(const char* text) { f_text = text ? text : ""; }

  // The text to the parameters: every parameter is read again or made undefined.
  void decompose();
  // The parameters to the text, as this system writes it.
  void compose();
  // The same for PROJ itself: a sphere goes as "+R" alone, without datum shift, "b" or "rf".
  void compose_for_proj4();

  void set_all_undefined();

  bool is_sphere() const;
  bool is_valid() const;
  bool equal(const Tvx_proj4_str* other) const;

  bool get_is_long_lat() const;
  // Turns the text into the geographic system on the same datum and ellipsoid.
  void set_is_long_lat();

  // A description for people: one line "label = value" per defined parameter, labels in the language of
  // the message table, each line ended by "\r\n"; "Projection = Unknown" when nothing is defined. Run
  // decompose first. The text lives in this object until the next call. (proj4_text.cpp)
  const char* get_text();

  bool get_is_lon_wrap() const { return f_is_lon_wrap; }
  void set_is_lon_wrap(bool value) { f_is_lon_wrap = value; }

  Tvx_proj4_param_str* get_proj() const { return f_proj.get(); }
  Tvx_proj4_param_int* get_zone() const { return f_zone.get(); }
  Tvx_proj4_param_dbl* get_lon_0() const { return f_lon_0.get(); }
  Tvx_proj4_param_dbl* get_lonc() const { return f_lonc.get(); }
  Tvx_proj4_param_dbl* get_lat_0() const { return f_lat_0.get(); }
  Tvx_proj4_param_dbl* get_x_0() const { return f_x_0.get(); }
  Tvx_proj4_param_dbl* get_y_0() const { return f_y_0.get(); }
  Tvx_proj4_param_dbl* get_lat_1() const { return f_lat_1.get(); }
  Tvx_proj4_param_dbl* get_lat_ts() const { return f_lat_ts.get(); }
  Tvx_proj4_param_dbl* get_lat_2() const { return f_lat_2.get(); }
  Tvx_proj4_param_bool* get_south() const { return f_south.get(); }
  Tvx_proj4_param_dbl* get_k_0() const { return f_k_0.get(); }
  Tvx_proj4_param_dbl* get_k() const { return f_k_0.get(); }
  Tvx_proj4_param_dbl* get_alpha() const { return f_alpha.get(); }
  Tvx_proj4_param_str* get_datum() const { return f_datum.get(); }
  Tvx_proj4_param_towgs84* get_towgs84() const { return f_towgs84.get(); }
  Tvx_proj4_param_dbl* get_a() const { return f_a.get(); }
  Tvx_proj4_param_dbl* get_b() const { return f_b.get(); }
  Tvx_proj4_param_dbl* get_rf() const { return f_rf.get(); }
  Tvx_proj4_param_str* get_ellipse() const { return f_ellps.get(); }
  Tvx_proj4_param_str* get_units() const { return f_units.get(); }
  Tvx_proj4_param_str* get_nadgrids() const { return f_nadgrids.get(); }

 private:
  void compose_text(bool for_proj4);
  // Appends one parameter to f_text, as compose or compose_for_proj4 writes it; false when it was
  // skipped or is undefined.
  bool append_param(Tvx_proj4_param* p, bool sphere, bool for_proj4);

  void append_line(int label, const std::string& value);

  std::string f_out_text;
  std::string f_text;
  std::unique_ptr<Tvx_proj4_param_str> f_proj;
  std::unique_ptr<Tvx_proj4_param_str> f_datum;
  std::unique_ptr<Tvx_proj4_param_str> f_ellps;
  std::unique_ptr<Tvx_proj4_param_str> f_units;
  std::unique_ptr<Tvx_proj4_param_dbl> f_lon_0;
  std::unique_ptr<Tvx_proj4_param_dbl> f_lonc;
  std::unique_ptr<Tvx_proj4_param_dbl> f_lat_0;
  std::unique_ptr<Tvx_proj4_param_dbl> f_x_0;
  std::unique_ptr<Tvx_proj4_param_dbl> f_y_0;
  std::unique_ptr<Tvx_proj4_param_dbl> f_lat_1;
  std::unique_ptr<Tvx_proj4_param_dbl> f_lat_ts;
  std::unique_ptr<Tvx_proj4_param_dbl> f_lat_2;
  std::unique_ptr<Tvx_proj4_param_dbl> f_k_0;
  std::unique_ptr<Tvx_proj4_param_dbl> f_alpha;
  std::unique_ptr<Tvx_proj4_param_dbl> f_a;
  std::unique_ptr<Tvx_proj4_param_dbl> f_b;
  std::unique_ptr<Tvx_proj4_param_dbl> f_rf;
  std::unique_ptr<Tvx_proj4_param_bool> f_south;
  std::unique_ptr<Tvx_proj4_param_towgs84> f_towgs84;
  std::unique_ptr<Tvx_proj4_param_int> f_zone;
  std::unique_ptr<Tvx_proj4_param_str> f_nadgrids;
  // The same parameters in the order of parsing and composing.
  Tvx_proj4_param* f_params[PARAM_COUNT];
  bool f_is_lon_wrap = true;
};
