#include "algo/num_set.h"

void Tvx_dbl_int_map::clear() {
  items.clear();
  cursor = items.end();
}

bool Tvx_dbl_int_map::give(double& key, int& value) const {
  if (cursor == items.end()) return false;
  key = cursor->first;
  value = cursor->second;
  return true;
}

bool Tvx_dbl_int_map::get_first(double& key, int& value) {
  cursor = items.begin();
  return give(key, value);
}

bool Tvx_dbl_int_map::get_next(double& key, int& value) {
  if (cursor == items.end()) return false;
  ++cursor;
  return give(key, value);
}

bool Tvx_dbl_int_map::find(double key, int& value) const {
  const auto it = items.find(key);
  if (it == items.end()) return false;
  value = it->second;
  return true;
}
