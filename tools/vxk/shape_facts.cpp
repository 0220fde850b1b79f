// Facts about a shape file read from its bytes: the header's box, measures, and the reasons of null
// records in a result.
#include "shape_facts.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "utf8.h"
#include "vxk_proj4_shp.h"

namespace vxk::shape_facts {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kHeader = 100;
// How many records are looked at to tell whether z records carry measures.
constexpr std::uint32_t kMeasureProbe = 1000;

std::uint32_t records_in_index(std::uint64_t size) {
  return size < kHeader ? 0 : static_cast<std::uint32_t>((size - kHeader) / 8);
}

// A shape file's main file and index, read at checked offsets.
class raw_file {
 public:
  explicit raw_file(const std::string& shp)
      : shp_(shp, std::ios::binary), shx_(fs::path(shp).replace_extension(".shx"), std::ios::binary) {
    std::error_code ec;
    shp_size_ = fs::file_size(shp, ec);
    if (ec) shp_size_ = 0;
    shx_size_ = fs::file_size(fs::path(shp).replace_extension(".shx"), ec);
    if (ec) shx_size_ = 0;
  }

  bool ok() const { return shp_ && shx_ && shp_size_ >= kHeader && shx_size_ >= kHeader; }
  std::uint32_t count() const { return ok() ? records_in_index(shx_size_) : 0; }

  // Bytes of the main file; false when they lie beyond its end.
  bool read(std::uint64_t at, void* to, std::size_t n) { return read_from(shp_, shp_size_, at, to, n); }

  // The place of record i's content (after its 8-byte record header) and its length in bytes.
  bool content(std::uint32_t i, std::uint64_t& at, std::uint64_t& length) {
    unsigned char e[8];
    if (i >= count() || !read_from(shx_, shx_size_, kHeader + 8ull * i, e, 8)) return false;
    at = 2ull * big_endian(e) + 8;
    length = 2ull * big_endian(e + 4);
    return at + length <= shp_size_ && length >= 4;
  }

  // The type of record i; -1 when it cannot be read.
  int type(std::uint32_t i) {
    std::uint64_t at = 0, length = 0;
    std::int32_t t = 0;
    if (!content(i, at, length) || !read(at, &t, 4)) return -1;
    return t;
  }

 private:
  static std::uint32_t big_endian(const unsigned char* b) {
    return std::uint32_t(b[0]) << 24 | std::uint32_t(b[1]) << 16 | std::uint32_t(b[2]) << 8 | b[3];
  }

  static bool read_from(std::ifstream& f, std::uint64_t size, std::uint64_t at, void* to, std::size_t n) {
    if (at > size || n > size - at) return false;
    f.clear();
    f.seekg(static_cast<std::streamoff>(at));
    return static_cast<bool>(f.read(static_cast<char*>(to), static_cast<std::streamsize>(n)));
  }

  std::ifstream shp_, shx_;
  std::uint64_t shp_size_ = 0, shx_size_ = 0;
};

bool is_measured_type(int t) {
  return t == 21 || t == 23 || t == 25 || t == 28;
}
bool is_z_type(int t) {
  return t == 11 || t == 13 || t == 15 || t == 18 || t == 31;
}
bool is_plain_type(int t) {
  return t == 1 || t == 3 || t == 5 || t == 8;
}

// The length of a z record's content without measures, from its counts of parts and points; 0 when the
// counts cannot be read.
std::uint64_t length_without_measures(raw_file& f, int type, std::uint64_t at) {
  if (type == 11) return 28;
  std::int32_t counts[2] = {0, 0};
  if (!f.read(at + 36, counts, type == 18 ? 4 : 8)) return 0;
  const std::uint64_t parts = type == 18 ? 0 : static_cast<std::uint32_t>(counts[0]);
  const std::uint64_t points = static_cast<std::uint32_t>(type == 18 ? counts[0] : counts[1]);
  const std::uint64_t z = 16 + 8 * points;
  if (type == 18) return 40 + 16 * points + z;
  return 44 + (type == 31 ? 8 : 4) * parts + 16 * points + z;
}

std::string vertex_text(const Tvx_vtx_d2& v) {
  char text[64];
  std::snprintf(text, sizeof text, "(%.10g, %.10g)", v.x, v.y);
  return text;
}

// Why a record that the source has read whole became a null record: its first vertex that the
// transformation refuses, alone.
std::string transform_reason(Tvx_shp_reader* r, std::uint32_t parts, Tvx_rpj_fb_d2* rpj, Tvx_pp2d* part,
                             Tvx_pp2d* one) {
  for (std::uint32_t p = 0; p < parts; ++p) {
    vx_shp_reader_get_part(r, p, part);
    for (std::uint32_t i = 0; i < vx_pv_d2_get_size(part); ++i) {
      const Tvx_vtx_d2 v = vx_pv_d2_get_vtx(part, i);
      vx_pv_d2_clear(one);
      vx_pv_d2_add_vtx(one, v);
      if (vx_rpj_fb_d2_apply_pv(rpj, one, 1)) continue;
      std::string where = parts > 1 ? "vertex " + std::to_string(i + 1) + " of part " + std::to_string(p + 1)
                                    : "vertex " + std::to_string(i + 1);
      return where + " " + vertex_text(v) +
             " cannot be transformed (it lies outside the domain of a projection)";
    }
  }
  return "it could not be transformed";
}

}  // namespace

std::uint32_t record_count(const std::string& shp) {
  std::error_code ec;
  const auto size = fs::file_size(fs::path(shp).replace_extension(".shx"), ec);
  return ec ? 0 : records_in_index(size);
}

bool header_box(const std::string& shp, box& out) {
  raw_file f(shp);
  double b[4];
  if (!f.ok() || !f.read(36, b, sizeof b)) return false;
  out = {b[0], b[1], b[2], b[3]};
  for (double v : b)
    if (!std::isfinite(v)) return false;
  return out.xmin <= out.xmax && out.ymin <= out.ymax;
}

bool carries_measures(const std::string& shp) {
  raw_file f(shp);
  std::int32_t type = 0;
  if (!f.ok() || !f.read(32, &type, 4)) return false;
  if (is_measured_type(type)) return f.count() > 0;
  if (!is_z_type(type)) return false;
  const std::uint32_t n = std::min(f.count(), kMeasureProbe);
  for (std::uint32_t i = 0; i < n; ++i) {
    std::uint64_t at = 0, length = 0;
    const int t = f.type(i);
    if (!is_z_type(t) || !f.content(i, at, length)) continue;
    const std::uint64_t plain = length_without_measures(f, t, at);
    if (plain) return length > plain;
  }
  return false;
}

std::vector<std::string> null_record_reasons(const std::string& src, const std::string& dst,
                                             const std::string& from, const std::string& to) {
  std::vector<std::string> lines;
  raw_file source(src), result(dst);
  Tvx_shp_reader* r = vx_shp_reader_open_w(utf8_to_wide(src).c_str());
  Tvx_rpj_fb_d2* rpj = vx_rpj_fb_d2_create();
  Tvx_pp2d* part = vx_pv_d2_create();
  Tvx_pp2d* one = vx_pv_d2_create();
  const bool ready = r && rpj && part && one &&
                     vx_rpj_fb_d2_init_w(rpj, utf8_to_wide(from).c_str(), utf8_to_wide(to).c_str());
  for (std::uint32_t i = 0; ready && i < result.count(); ++i) {
    const int source_type = source.type(i);
    if (result.type(i) != 0 || source_type == 0) continue;
    const bool known = is_plain_type(source_type) || is_z_type(source_type) || is_measured_type(source_type);
    const std::uint32_t parts = known ? vx_shp_reader_read(r, i) : 0;
    std::string why = parts ? transform_reason(r, parts, rpj, part, one)
                            : "it could not be read: the source is damaged there";
    if (source_type > 0 && !known)
      why = "its shape type " + std::to_string(source_type) + " is not one of a shape file";
    lines.push_back("record " + std::to_string(i + 1) + " (FID " + std::to_string(i) + "): " + why);
  }
  vx_pv_d2_destroy(one);
  vx_pv_d2_destroy(part);
  vx_rpj_fb_d2_destroy(rpj);
  vx_shp_reader_close(r);
  return lines;
}

}  // namespace vxk::shape_facts
