// Typed parameters of a PROJ string.
//
// A PROJ string is held as a fixed list of parameters, each of one value kind. A parameter knows its
// name, the other names it may be read under, whether it is defined, how it writes itself into a PROJ
// string and how it reads its value from the text behind "=".
#pragma once

#include <string>
#include <vector>

class Tvx_pj_str_param;
class Tvx_pj_dbl_param;
class Tvx_pj_int_param;
class Tvx_pj_bool_param;

// Number formatting shared by the PROJ string classes.
class Tvx_proj4_traits {
 public:
  // The double by "%.12lg": twelve significant digits, the precision of every composed text.
  static std::string dbl2str(double value);
};

class Tvx_proj4_param {
 public:
  const char* get_name() const { return f_name.c_str(); }
  void set_name(const char* name) { f_name = name ? name : ""; }

  void clear_other_names() { f_other_names.clear(); }
  void add_other_name(const char* name) { f_other_names.emplace_back(name ? name : ""); }
  unsigned get_other_names_count() const { return static_cast<unsigned>(f_other_names.size()); }
  std::string get_other_name(unsigned i) const { return f_other_names[i]; }

  bool get_def() const { return f_def; }
  void set_def(bool def) { f_def = def; }

  // The parameter as it stands in a PROJ string, with a closing blank; empty when undefined. The text
  // lives in this object until the next call.
  virtual const char* get_out_str() = 0;
  // Reads the value from the text behind "=" and decides whether the parameter is defined.
  virtual void val_from_str(const char* text) = 0;

 protected:
  Tvx_proj4_param() = default;
  // Not virtual: parameters are always destroyed through their own (final) class.
  ~Tvx_proj4_param() = default;

  // Starts the output buffer: empty when undefined, "+name" otherwise. False when undefined.
  bool begin_out();
  const char* finish_out(const std::string& value);
  // The frame of every comparison: undefined equals undefined only; defined pairs go to the values.
  bool defs_decide(const Tvx_proj4_param* other, bool* result) const;

  std::string f_name;
  std::vector<std::string> f_other_names;
  bool f_def = false;
  std::string f_out;
};

class Tvx_proj4_param_str final : public Tvx_proj4_param {
 public:
  const char* get_str() const { return f_value.c_str(); }
  void set_str(const char* text) { f_value = text ? text : ""; }
  void set_param(const Tvx_proj4_param_str* other);
  // From a catalogue definition: defined when it goes into the string, and then with its default.
  void set_param(const Tvx_pj_str_param* def);
  bool equal(const Tvx_proj4_param_str* other) const;
  const char* get_out_str() override;
  void val_from_str(const char* text) override;

 private:
  std::string f_value;
};

class Tvx_proj4_param_dbl final : public Tvx_proj4_param {
 public:
  double get_dbl() const { return f_value; }
  void set_dbl(double value) { f_value = value; }
  void set_param(const Tvx_proj4_param_dbl* other);
  // From a catalogue definition: defined when it goes into the string, and then with its default.
  void set_param(const Tvx_pj_dbl_param* def);
  bool equal(const Tvx_proj4_param_dbl* other) const;
  const char* get_out_str() override;
  void val_from_str(const char* text) override;

 private:
  double f_value = 0.0;
};

class Tvx_proj4_param_int final : public Tvx_proj4_param {
 public:
  int get_int() const { return f_value; }
  void set_int(int value) { f_value = value; }
  void set_param(const Tvx_proj4_param_int* other);
  // From a catalogue definition: defined when it goes into the string, and then with its default.
  void set_param(const Tvx_pj_int_param* def);
  bool equal(const Tvx_proj4_param_int* other) const;
  const char* get_out_str() override;
  void val_from_str(const char* text) override;

 private:
  int f_value = 0;
};

class Tvx_proj4_param_bool final : public Tvx_proj4_param {
 public:
  bool get_bool() const { return f_value; }
  void set_bool(bool value) { f_value = value; }
  void set_param(const Tvx_proj4_param_bool* other);
  // From a catalogue definition: defined when it goes into the string, and then with its default.
  void set_param(const Tvx_pj_bool_param* def);
  bool equal(const Tvx_proj4_param_bool* other) const;
  const char* get_out_str() override;
  void val_from_str(const char* text) override;

 private:
  bool f_value = false;
};

// The seven values of a datum shift: three translations, three rotations and a scale.
class Tvx_proj4_param_towgs84 final : public Tvx_proj4_param {
 public:
  static constexpr unsigned COUNT = 7;

  double get_dbl(unsigned i) const { return f_value[i]; }
  void set_dbl(unsigned i, double value) { f_value[i] = value; }
  bool equal(const Tvx_proj4_param_towgs84* other) const;
  // The seven values by "%.12lg" with "," between them.
  std::string values_text() const;
  const char* get_out_str() override;
  void val_from_str(const char* text) override;

 private:
  double f_value[COUNT] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
};
