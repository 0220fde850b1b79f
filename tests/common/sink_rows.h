// A real string sink for the tests: its callbacks collect every feed as one row, in order.
#pragma once

#include <string>
#include <vector>

#include "vxk_proj4_shp.h"

namespace vxk_test {

class sink_rows {
 public:
  sink_rows() : sink_(vx_string_adp_create(nullptr, &on_wide, this)) {}
  ~sink_rows() { vx_string_adp_destroy(sink_); }
  sink_rows(const sink_rows&) = delete;
  sink_rows& operator=(const sink_rows&) = delete;

  Ivx_string_adp* sink() const { return sink_; }
  const std::vector<std::wstring>& rows() const { return rows_; }
  int nulls() const { return nulls_; }
  void clear() { rows_.clear(); }

 private:
  static void on_wide(const wchar_t* text, void* user) {
    auto* self = static_cast<sink_rows*>(user);
    if (text) {
      self->rows_.emplace_back(text);
    } else {
      ++self->nulls_;
    }
  }

  Ivx_string_adp* sink_;
  std::vector<std::wstring> rows_;
  int nulls_ = 0;
};

// Rows fed by one list function.
template <typename F>
std::vector<std::wstring> fetch(F&& fn) {
  sink_rows r;
  fn(r.sink());
  return r.rows();
}

// The designation of a record through the flat interface.
inline std::wstring designation(const Tvx_stdlist_string* sheet) {
  sink_rows r;
  vx_stdlist_to_string(sheet, r.sink());
  return r.rows().size() == 1 ? r.rows()[0] : L"<fed " + std::to_wstring(r.rows().size()) + L" rows>";
}

}  // namespace vxk_test
