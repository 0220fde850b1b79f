#include "support/prp_val.h"

#include "support/str_func.h"
#include "support/text_case.h"

bool Tvx_prp_val::divide_str(const char* text, char separator) {
  const std::string s = text ? text : "";
  const size_t at = s.find(separator);
  f_prp = Tvx_str_func::trim(s.substr(0, at).c_str());
  f_val = at == std::string::npos ? std::string() : Tvx_str_func::trim(s.substr(at + 1).c_str());
  return at != std::string::npos;
}

bool Tvx_prp_val::get_int(int& value) const {
  return Tvx_str_func::str2int(f_val.c_str(), value);
}

bool Tvx_prp_val::get_dbl(double& value) const {
  return Tvx_str_func::str2dbl(f_val.c_str(), value);
}

bool Tvx_prp_val::get_bool(bool& value) const {
  if (vx::text::ansi_compare_nocase(f_val.c_str(), "true") == 0) {
    value = true;
    return true;
  }
  if (vx::text::ansi_compare_nocase(f_val.c_str(), "false") == 0) {
    value = false;
    return true;
  }
  return false;
}

void Tvx_prp_val::set_int(int value) {
  f_val = Tvx_str_func::int2str(value);
}

void Tvx_prp_val::set_dbl(double value) {
  f_val = Tvx_str_func::dbl2str(value);
}

void Tvx_prp_val::set_bool(bool value) {
  f_val = value ? "true" : "false";
}

void Tvx_prp_val_vec::set_size(unsigned count) {
  if (count < f_items.size()) {
    while (f_items.size() > count) f_items.pop_back();
    return;
  }
  while (f_items.size() < count) f_items.push_back(std::make_unique<Tvx_prp_val>());
}

Tvx_prp_val* Tvx_prp_val_vec::get(unsigned index) const {
  return index < f_items.size() ? f_items[index].get() : nullptr;
}

Tvx_prp_val* Tvx_prp_val_vec::find_by_name(const char* name) const {
  for (const auto& item : f_items) {
    if (vx::text::ansi_compare_nocase(item->get_prp(), name ? name : "") == 0) return item.get();
  }
  return nullptr;
}
