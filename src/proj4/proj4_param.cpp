#include "proj4/proj4_param.h"

#include <cmath>

#include "proj4/pj_defs.h"
#include "support/str_func.h"

namespace {

// Two numbers of a PROJ string are the same value when they differ by less than this, in any unit.
constexpr double kEqualTolerance = 1e-6;

bool near(double a, double b) {
  return std::fabs(a - b) < kEqualTolerance;
}

// A catalogue definition decides whether the parameter is written; only one that is written brings its
// default, otherwise the value stays.
template <class Def, class Value>
void take_definition(const Def* def, bool& defined, Value& value) {
  defined = def->get_use_proj4();
  if (defined) value = def->get_default();
}

}  // namespace

std::string Tvx_proj4_traits::dbl2str(double value) {
  return Tvx_str_func::dbl2str_format(value, "%.12lg");
}

// ---- base ----

bool Tvx_proj4_param::begin_out() {
  f_out.clear();
  if (!f_def) return false;
  f_out = "+" + f_name;
  return true;
}

const char* Tvx_proj4_param::finish_out(const std::string& value) {
  f_out += "=" + value + " ";
  return f_out.c_str();
}

bool Tvx_proj4_param::defs_decide(const Tvx_proj4_param* other, bool* result) const {
  if (!f_def) {
    *result = !other->f_def;
    return true;
  }
  if (!other->f_def) {
    *result = false;
    return true;
  }
  return false;
}

// ---- string ----

void Tvx_proj4_param_str::set_param(const Tvx_proj4_param_str* other) {
  f_def = other->f_def;
  f_value = other->f_value;
}

void Tvx_proj4_param_str::set_param(const Tvx_pj_str_param* def) {
  take_definition(def, f_def, f_value);
}

bool Tvx_proj4_param_str::equal(const Tvx_proj4_param_str* other) const {
  bool result;
  if (defs_decide(other, &result)) return result;
  return Tvx_str_func::trim_stricmp(f_value.c_str(), other->f_value.c_str()) == 0;
}

const char* Tvx_proj4_param_str::get_out_str() {
  if (!begin_out()) return f_out.c_str();
  return finish_out(f_value);
}

void Tvx_proj4_param_str::val_from_str(const char* text) {
  f_value = text ? text : "";
  f_def = !f_value.empty();
}

// ---- double ----

void Tvx_proj4_param_dbl::set_param(const Tvx_proj4_param_dbl* other) {
  f_def = other->f_def;
  f_value = other->f_value;
}

void Tvx_proj4_param_dbl::set_param(const Tvx_pj_dbl_param* def) {
  take_definition(def, f_def, f_value);
}

bool Tvx_proj4_param_dbl::equal(const Tvx_proj4_param_dbl* other) const {
  bool result;
  if (defs_decide(other, &result)) return result;
  return near(f_value, other->f_value);
}

const char* Tvx_proj4_param_dbl::get_out_str() {
  if (!begin_out()) return f_out.c_str();
  return finish_out(Tvx_proj4_traits::dbl2str(f_value));
}

void Tvx_proj4_param_dbl::val_from_str(const char* text) {
  f_def = Tvx_str_func::str2dbl(text ? text : "", f_value);
}

// ---- integer ----

void Tvx_proj4_param_int::set_param(const Tvx_proj4_param_int* other) {
  f_def = other->f_def;
  f_value = other->f_value;
}

void Tvx_proj4_param_int::set_param(const Tvx_pj_int_param* def) {
  take_definition(def, f_def, f_value);
}

bool Tvx_proj4_param_int::equal(const Tvx_proj4_param_int* other) const {
  bool result;
  if (defs_decide(other, &result)) return result;
  return f_value == other->f_value;
}

const char* Tvx_proj4_param_int::get_out_str() {
  if (!begin_out()) return f_out.c_str();
  return finish_out(Tvx_str_func::int2str(f_value));
}

void Tvx_proj4_param_int::val_from_str(const char* text) {
  f_def = Tvx_str_func::str2int(text ? text : "", f_value);
}

// ---- bool ----

void Tvx_proj4_param_bool::set_param(const Tvx_proj4_param_bool* other) {
  f_def = other->f_def;
  f_value = other->f_value;
}

void Tvx_proj4_param_bool::set_param(const Tvx_pj_bool_param* def) {
  take_definition(def, f_def, f_value);
}

bool Tvx_proj4_param_bool::equal(const Tvx_proj4_param_bool* other) const {
  bool result;
  if (defs_decide(other, &result)) return result;
  return f_value == other->f_value;
}

// A flag is written by its name alone, whatever its value.
const char* Tvx_proj4_param_bool::get_out_str() {
  if (begin_out()) f_out += " ";
  return f_out.c_str();
}

// The presence of the flag is what counts: "+south=no" sets it as well.
void Tvx_proj4_param_bool::val_from_str(const char*) {
  f_def = true;
  f_value = true;
}

// ---- towgs84 ----

bool Tvx_proj4_param_towgs84::equal(const Tvx_proj4_param_towgs84* other) const {
  bool result;
  if (defs_decide(other, &result)) return result;
  for (unsigned i = 0; i < COUNT; ++i)
    if (!near(f_value[i], other->f_value[i])) return false;
  return true;
}

// All seven values are written, also when fewer were read.
std::string Tvx_proj4_param_towgs84::values_text() const {
  std::string values;
  for (unsigned i = 0; i < COUNT; ++i) {
    if (i) values += ",";
    values += Tvx_proj4_traits::dbl2str(f_value[i]);
  }
  return values;
}

const char* Tvx_proj4_param_towgs84::get_out_str() {
  if (!begin_out()) return f_out.c_str();
  return finish_out(values_text());
}

// Each place takes the number standing there; a missing or unreadable place is 0.
void Tvx_proj4_param_towgs84::val_from_str(const char* text) {
  f_def = true;
  Tvx_str_vec parts;
  Tvx_str_func::divide(text ? text : "", ",", &parts);
  for (unsigned i = 0; i < COUNT; ++i) {
    double v = 0.0;
    if (i >= parts.get_size() || !Tvx_str_func::str2dbl(parts.get(i), v)) v = 0.0;
    f_value[i] = v;
  }
}
