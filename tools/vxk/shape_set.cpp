// Reading a generated set back through the library's shape file reader.
#include "shape_set.h"

#include <cwctype>

#include "designation.h"
#include "rows_sink.h"
#include "utf8.h"

namespace vxk {

namespace {

namespace fs = std::filesystem;

// The files of a set in drawing order: the area under everything, the lines and frames over it, the
// points and labels on top.
const char* const kSetFiles[] = {"HYPS/Hypsa.shp", "HYPS/Hypsl.shp",     "FRAME/Frame.shp",
                                 "HYPS/Hypsp.shp", "FRAME/FrameDig.shp", "FRAME/FrameAdj.shp"};

bool same_name(const std::wstring& a, const std::wstring& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::towupper(a[i]) != std::towupper(b[i])) return false;
  }
  return true;
}

class reader {
 public:
  explicit reader(const fs::path& shp) : r_(vx_shp_reader_open_w(utf8_to_wide(shp.string()).c_str())) {}
  ~reader() { vx_shp_reader_close(r_); }
  reader(const reader&) = delete;
  reader& operator=(const reader&) = delete;
  Tvx_shp_reader* get() const { return r_; }

 private:
  Tvx_shp_reader* r_;
};

std::vector<part> parts_of(Tvx_shp_reader* r, uint32_t record, Tvx_pp2d* scratch) {
  std::vector<part> parts(vx_shp_reader_read(r, record));
  for (uint32_t k = 0; k < parts.size(); ++k) {
    vx_shp_reader_get_part(r, k, scratch);
    for (uint32_t i = 0; i < vx_pv_d2_get_size(scratch); ++i)
      parts[k].push_back(vx_pv_d2_get_vtx(scratch, i));
  }
  return parts;
}

std::wstring proj_beside(const fs::path& shp) {
  rows_sink sink;
  const std::wstring pj4 = utf8_to_wide(fs::path(shp).replace_extension(".pj4").string());
  return vx_pj4_load_simple_w(pj4.c_str(), sink.get()) && !sink.rows().empty() ? sink.rows().front()
                                                                               : std::wstring();
}

}  // namespace

std::wstring shape_layer::value(const shape_record& r, const std::wstring& column) const {
  for (size_t c = 0; c < columns.size() && c < r.values.size(); ++c) {
    if (same_name(columns[c], column)) return r.values[c];
  }
  return {};
}

bool read_shape_file(const fs::path& shp, shape_layer& out) {
  reader r(shp);
  if (!r.get()) return false;
  out.name = shp.stem().string();
  out.type = vx_shp_reader_get_type(r.get());
  const uint32_t columns = vx_shp_reader_get_column_count(r.get());
  for (uint32_t c = 0; c < columns; ++c) out.columns.emplace_back(vx_shp_reader_get_column_name(r.get(), c));
  Tvx_pp2d* scratch = vx_pv_d2_create();
  fail_if(!scratch, "out of memory");
  for (uint32_t i = 0; i < vx_shp_reader_get_count(r.get()); ++i) {
    shape_record record;
    record.parts = parts_of(r.get(), i, scratch);
    for (uint32_t c = 0; c < columns; ++c) record.values.emplace_back(vx_shp_reader_get_value(r.get(), i, c));
    out.records.push_back(std::move(record));
  }
  vx_pv_d2_destroy(scratch);
  return true;
}

const shape_layer* sheet_files::find(const std::string& name) const {
  for (const shape_layer& l : layers) {
    if (l.name == name) return &l;
  }
  return nullptr;
}

sheet_files read_sheet_files(const fs::path& folder) {
  std::error_code ec;
  fail_if(!fs::is_directory(folder, ec), "'" + folder.string() + "' is not a folder");
  sheet_files set;
  for (const char* file : kSetFiles) {
    shape_layer layer;
    if (!read_shape_file(folder / file, layer)) {
      set.missing.push_back(file);
      continue;
    }
    if (set.proj.empty()) set.proj = proj_beside(folder / file);
    set.layers.push_back(std::move(layer));
  }
  fail_if(set.layers.empty(), "'" + folder.string() +
                                  "' holds no generated sheet: none of HYPS/Hypsa.shp, HYPS/Hypsl.shp, "
                                  "HYPS/Hypsp.shp, FRAME/Frame.shp, FRAME/FrameDig.shp, FRAME/FrameAdj.shp "
                                  "can be read there");
  return set;
}

}  // namespace vxk
