// The catalogue of projection definitions.
//
// A definition describes one projection as a dialog offers it: the value of "+proj", the names shown,
// and for every parameter whether it is shown to the user, whether it goes into the PROJ string, and
// its default and limits. The catalogue is a list of definitions with searches by index, caption and
// zone, name, hemisphere and latitude. It starts empty; pj_catalogue.h fills it with the library's own
// entries. A definition's defaults reach a PROJ string through the set_param forms of Tvx_proj4_param.
#pragma once

#include <memory>
#include <string>
#include <vector>

class Tvx_pj_param {
 public:
  bool get_show() const { return f_show; }
  void set_show(bool value) { f_show = value; }
  bool get_use_proj4() const { return f_use_proj4; }
  void set_use_proj4(bool value) { f_use_proj4 = value; }
  bool get_def_default() const { return f_def_default; }
  void set_def_default(bool value) { f_def_default = value; }

 protected:
  Tvx_pj_param() = default;
  ~Tvx_pj_param() = default;

 private:
  bool f_show = false;
  bool f_use_proj4 = false;
  bool f_def_default = false;
};

class Tvx_pj_dbl_param final : public Tvx_pj_param {
 public:
  bool get_def_min() const { return f_def_min; }
  void set_def_min(bool value) { f_def_min = value; }
  bool get_def_max() const { return f_def_max; }
  void set_def_max(bool value) { f_def_max = value; }
  double get_min() const { return f_min; }
  void set_min(double value) { f_min = value; }
  double get_max() const { return f_max; }
  void set_max(double value) { f_max = value; }
  double get_default() const { return f_default; }
  void set_default(double value) { f_default = value; }

 private:
  bool f_def_min = false;
  bool f_def_max = false;
  double f_min = 0.0;
  double f_max = 0.0;
  double f_default = 0.0;
};

class Tvx_pj_str_param final : public Tvx_pj_param {
 public:
  const char* get_default() const { return f_default.c_str(); }
  void set_default(const char* value) { f_default = value ? value : ""; }

 private:
  std::string f_default;
};

class Tvx_pj_bool_param final : public Tvx_pj_param {
 public:
  bool get_default() const { return f_default; }
  void set_default(bool value) { f_default = value; }

 private:
  bool f_default = false;
};

class Tvx_pj_int_param final : public Tvx_pj_param {
 public:
  int get_default() const { return f_default; }
  void set_default(int value) { f_default = value; }

 private:
  int f_default = 0;
};

// One projection of the catalogue.
class Tvx_pj_proj_def {
 public:
  Tvx_pj_proj_def();
  Tvx_pj_proj_def(const Tvx_pj_proj_def&) = delete;
  Tvx_pj_proj_def& operator=(const Tvx_pj_proj_def&) = delete;

  unsigned get_index() const { return f_index; }
  void set_index(unsigned value) { f_index = value; }
  // The name shown, a further name shown, and the value of "+proj".
  const char* get_caption() const { return f_caption.c_str(); }
  void set_caption(const char* value) { f_caption = value ? value : ""; }
  const char* get_add_caption() const { return f_add_caption.c_str(); }
  void set_add_caption(const char* value) { f_add_caption = value ? value : ""; }
  const char* get_prj4_name() const { return f_prj4_name.c_str(); }
  void set_prj4_name(const char* value) { f_prj4_name = value ? value : ""; }

  Tvx_pj_int_param* get_zone() const { return f_zone.get(); }
  Tvx_pj_str_param* get_zone_name() const { return f_zone_name.get(); }
  Tvx_pj_dbl_param* get_lon_0() const { return f_lon_0.get(); }
  Tvx_pj_dbl_param* get_lonc() const { return f_lonc.get(); }
  Tvx_pj_dbl_param* get_lat_0() const { return f_lat_0.get(); }
  Tvx_pj_dbl_param* get_x_0() const { return f_x_0.get(); }
  Tvx_pj_dbl_param* get_y_0() const { return f_y_0.get(); }
  Tvx_pj_dbl_param* get_lat_ts() const { return f_lat_ts.get(); }
  Tvx_pj_dbl_param* get_lat_1() const { return f_lat_1.get(); }
  Tvx_pj_dbl_param* get_lat_2() const { return f_lat_2.get(); }
  Tvx_pj_dbl_param* get_k_0() const { return f_k_0.get(); }
  Tvx_pj_dbl_param* get_alpha() const { return f_alpha.get(); }
  Tvx_pj_bool_param* get_south() const { return f_south.get(); }
  Tvx_pj_str_param* get_units() const { return f_units.get(); }
  Tvx_pj_str_param* get_datum() const { return f_datum.get(); }

  // The hemisphere as the UTM search sees it: south only when "+south" goes into the string and its
  // default is true.
  bool is_south() const { return f_south->get_use_proj4() && f_south->get_default(); }

 private:
  unsigned f_index = 0;
  std::string f_caption;
  std::string f_add_caption;
  std::string f_prj4_name;
  std::unique_ptr<Tvx_pj_int_param> f_zone;
  std::unique_ptr<Tvx_pj_str_param> f_zone_name;
  std::unique_ptr<Tvx_pj_dbl_param> f_lon_0;
  std::unique_ptr<Tvx_pj_dbl_param> f_lonc;
  std::unique_ptr<Tvx_pj_dbl_param> f_lat_0;
  std::unique_ptr<Tvx_pj_dbl_param> f_x_0;
  std::unique_ptr<Tvx_pj_dbl_param> f_y_0;
  std::unique_ptr<Tvx_pj_dbl_param> f_lat_ts;
  std::unique_ptr<Tvx_pj_dbl_param> f_lat_1;
  std::unique_ptr<Tvx_pj_dbl_param> f_lat_2;
  std::unique_ptr<Tvx_pj_dbl_param> f_k_0;
  std::unique_ptr<Tvx_pj_dbl_param> f_alpha;
  std::unique_ptr<Tvx_pj_bool_param> f_south;
  std::unique_ptr<Tvx_pj_str_param> f_units;
  std::unique_ptr<Tvx_pj_str_param> f_datum;
};

// The list of definitions. Every search gives the first entry that fits, or null.
class Tvx_pj_proj_defs {
 public:
  void clear() { f_defs.clear(); }
  unsigned get_size() const { return static_cast<unsigned>(f_defs.size()); }
  // Destroys entries from the end, or appends empty ones.
  void set_size(unsigned size);
  // Null past the end.
  Tvx_pj_proj_def* get(unsigned i) const { return i < f_defs.size() ? f_defs[i].get() : nullptr; }
  // Appends an empty entry and gives it.
  Tvx_pj_proj_def* add();

  Tvx_pj_proj_def* find_by_index(unsigned index) const;
  // The caption ignoring case, and the zone's default.
  Tvx_pj_proj_def* find_by_caption_and_zone(const char* caption, unsigned zone) const;
  // The "+proj" name ignoring case, the zone's default and the hemisphere of is_south.
  Tvx_pj_proj_def* find_utm(const char* name, unsigned zone, bool south) const;
  Tvx_pj_proj_def* find_by_name_south(const char* name, bool south) const;
  // The first entry of that name that has every parameter asked for (it may have more), whose
  // hemisphere default, if it has one, is `south`, and whose latitude of origin default, if it has
  // one, lies within 0.0001 of `lat`. Unlike find_utm, the hemisphere test here looks at whether the
  // entry has a default, not at whether "+south" is written.
  Tvx_pj_proj_def* find_by_name_lat_south(const char* name, double lat, bool has_lat_1, bool has_lat_2,
                                          bool has_lat_ts, bool has_k, bool south) const;

 private:
  template <class Fits>
  Tvx_pj_proj_def* find_first(Fits fits) const;

  std::vector<std::unique_ptr<Tvx_pj_proj_def>> f_defs;
};
