// Name-value pairs: the form in which a PROJ string is taken apart ("lat_0=55").
#pragma once

#include <memory>
#include <string>
#include <vector>

class Tvx_prp_val {
 public:
  const char* get_prp() const { return f_prp.c_str(); }
  void set_prp(const char* text) { f_prp = text ? text : ""; }
  const char* get_val() const { return f_val.c_str(); }
  void set_val(const char* text) { f_val = text ? text : ""; }

  // Name up to the first separator character, value after it (later separators included), both trimmed.
  // True when a separator was found.
  bool divide_str(const char* text, char separator);

  bool get_int(int& value) const;     // "%d"
  bool get_dbl(double& value) const;  // "%lg"
  bool get_bool(bool& value) const;   // "true" / "false", in any case
  void set_int(int value);            // "%d"
  void set_dbl(double value);         // "%g"
  void set_bool(bool value);          // "true" / "false"

 private:
  std::string f_prp;
  std::string f_val;
};

class Tvx_prp_val_vec {
 public:
  void clear() { f_items.clear(); }
  unsigned get_size() const { return static_cast<unsigned>(f_items.size()); }
  // Shrinks from the end, or appends new empty pairs.
  void set_size(unsigned count);
  // The pair at the index, or null past the end.
  Tvx_prp_val* get(unsigned index) const;
  // The first pair whose name equals `name` without regard to case, or null. The name is not trimmed.
  Tvx_prp_val* find_by_name(const char* name) const;

 private:
  std::vector<std::unique_ptr<Tvx_prp_val>> f_items;
};
