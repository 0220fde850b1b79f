// Collects the rows that one library call feeds into a string sink, as wide text.
#pragma once

#include <string>
#include <vector>

#include "vxk_proj4_shp.h"

namespace vxk {

// Collects the rows that one library call feeds into a sink.
class rows_sink {
 public:
  rows_sink() : sink_(vx_string_adp_create(nullptr, &on_wide, this)) {}
  ~rows_sink() { vx_string_adp_destroy(sink_); }
  rows_sink(const rows_sink&) = delete;
  rows_sink& operator=(const rows_sink&) = delete;
  Ivx_string_adp* get() const { return sink_; }
  const std::vector<std::wstring>& rows() const { return rows_; }

 private:
  static void on_wide(const wchar_t* text, void* user) {
    static_cast<rows_sink*>(user)->rows_.emplace_back(text ? text : L"");
  }
  Ivx_string_adp* sink_;
  std::vector<std::wstring> rows_;
};

}  // namespace vxk
