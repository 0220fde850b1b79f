#include "files/file_shp.h"

#include <algorithm>
#include <vector>

#include "files/bin.h"
#include "files/file.h"
#include "files/file_dbf.h"
#include "support/filesystem.h"
#include "support/narrow_path.h"

namespace {

constexpr int32_t FILE_CODE = 9994;
constexpr int32_t VERSION = 1000;

// Content sizes in bytes, with n vertices and p parts.
uint32_t polypoint_bytes(uint32_t p, uint32_t n) {
  return 44 + 4 * p + 16 * n;
}
uint32_t polypoint_z_bytes(uint32_t p, uint32_t n) {
  return 76 + 4 * p + 32 * n;
}
uint32_t multipatch_bytes(uint32_t p, uint32_t n) {
  return 76 + 8 * p + 32 * n;
}

}  // namespace

Tvx_file_shp_exe::Tvx_file_shp_exe()
    : f_shx(new Tvx_file), f_shp(new Tvx_file), f_rec(new Tvx_bin), f_index(new Tvx_bin) {}

Tvx_file_shp_exe::~Tvx_file_shp_exe() {
  close();
  delete f_shx;
  delete f_shp;
  delete f_rec;
  delete f_index;
}

// ---------------------------------------------------------------------------------------------------
// Opening, creating, closing

void Tvx_file_shp_exe::flush_and_close() {
  if (f_dirty) {
    save_headers();
    f_index->save_file_all(f_shx);
    f_dirty = false;
  }
  f_shp->close();
  f_shx->close();
}

void Tvx_file_shp_exe::close() {
  flush_and_close();
}

bool Tvx_file_shp_exe::is_open() const {
  return f_shp->is_open() && f_shx->is_open();
}

// The state of a file without records: what a file that failed to open is left in.
void Tvx_file_shp_exe::reset_state() {
  f_count = 0;
  f_type = SHP_NULL;
  f_rect = vx_rect2d();
  f_z_defined = f_m_defined = false;
  f_z_min = f_z_max = f_m_min = f_m_max = 0;
  f_shp_len = f_shx_len = 0;
  f_valid = false;
  f_shp_size = f_rec_loaded = f_missing = 0;
  f_rec_damaged = false;
  f_index->clear();
  f_rec->clear();
}

unsigned Tvx_file_shp_exe::get_file_failures() const {
  return f_shp->get_failures() + f_shx->get_failures();
}

int Tvx_file_shp_exe::open(const char* path, bool read_only) {
  return open(Tvx_file::widen_path(path), read_only);
}

int Tvx_file_shp_exe::open(const std::wstring& path, bool read_only) {
  flush_and_close();
  f_read_only = read_only;
  reset_state();
  const std::wstring index_path = vx::filesystem::change_extension(path, L".shx");
  const int shp_failed = f_shp->open(path, read_only);
  const int shx_failed = f_shx->open(index_path, read_only);
  f_valid = shp_failed == 0 && shx_failed == 0 && headers_look_valid(path, index_path);
  if (f_valid) read_headers(index_path);
  f_dirty = false;
  return 0;
}

// A file that is not a shape file (a text renamed, a file of another format) is refused before any
// count of it is believed: it stays a file of zero records, and the reason is reported.
bool Tvx_file_shp_exe::headers_look_valid(const std::wstring& path, const std::wstring& index_path) {
  f_shp_size = f_shp->get_size();
  return has_shape_header(f_shp, path) && has_shape_header(f_shx, index_path);
}

bool Tvx_file_shp_exe::has_shape_header(Tvx_file* file, const std::wstring& path) {
  const uint32_t size = file->get_size();
  if (size < HEADER_SIZE) {
    Tvx_file::report_content(path, "is not a shape file: it is shorter than the 100-byte header (" +
                                       std::to_string(size) + " bytes)");
    return false;
  }
  Tvx_bin head;
  file->seek(0);
  head.load_file_part(file, 28);
  const int32_t code = head.get_invert_int();
  if (code != FILE_CODE) {
    Tvx_file::report_content(path,
                             "is not a shape file: its file code is " + std::to_string(code) + ", not 9994");
    return false;
  }
  head.set_offset(24);
  const int64_t length = static_cast<int64_t>(head.get_invert_int()) * 2;
  if (length >= HEADER_SIZE) return true;
  Tvx_file::report_content(path, "is not a shape file: its header gives it a length of " +
                                     std::to_string(length) + " bytes, less than the header itself");
  return false;
}

// Takes the two headers and the whole index. The record count is the index header's, but never more
// than the index really holds; an index whose header and size disagree is reported as damaged.
void Tvx_file_shp_exe::read_headers(const std::wstring& index_path) {
  Tvx_bin shp_header;
  f_shp->seek(0);
  shp_header.load_file_part(f_shp, HEADER_SIZE);
  shp_header.set_offset(24);
  f_shp_len = static_cast<uint32_t>(shp_header.get_invert_int()) * 2;
  shp_header.set_offset(32);
  f_type = shp_header.get_int();
  const double xmin = shp_header.get_double();
  const double ymin = shp_header.get_double();
  const double xmax = shp_header.get_double();
  const double ymax = shp_header.get_double();
  f_rect = vx_rect2d(xmin, ymin, xmax, ymax);
  f_z_min = shp_header.get_double();
  f_z_max = shp_header.get_double();
  f_m_min = shp_header.get_double();
  f_m_max = shp_header.get_double();
  f_z_defined = f_m_defined = true;
  f_index->load_file_all(f_shx);
  f_index->set_offset(24);
  f_shx_len = static_cast<uint32_t>(f_index->get_invert_int()) * 2;
  const uint32_t claimed = f_shx_len >= HEADER_SIZE ? (f_shx_len - HEADER_SIZE) / INDEX_ENTRY_SIZE : 0;
  const uint32_t size = f_index->get_size();
  const uint32_t held = size >= HEADER_SIZE ? (size - HEADER_SIZE) / INDEX_ENTRY_SIZE : 0;
  f_count = std::min(claimed, held);
  f_missing = claimed - f_count;
  if (claimed != held) {
    Tvx_file::report_content(index_path, "is damaged: its header counts " + std::to_string(claimed) +
                                             " records, it holds " + std::to_string(held));
  }
}

int Tvx_file_shp_exe::create(const char* path, int type) {
  return create(Tvx_file::widen_path(path), type);
}

int Tvx_file_shp_exe::create(const std::wstring& path, int type) {
  flush_and_close();
  f_read_only = false;
  reset_state();
  const int shp_failed = f_shp->create(path);
  const int shx_failed = f_shx->create(vx::filesystem::change_extension(path, L".shx"));
  f_valid = shp_failed == 0 && shx_failed == 0;
  f_shp_len = f_shx_len = HEADER_SIZE;
  f_type = type;
  save_headers();
  f_dirty = false;
  return 0;
}

// Writes the 100-byte header at the head of the index image and saves the image, then the same header
// with the main file's length at the head of the main file. The index stays positioned after it.
int Tvx_file_shp_exe::save_headers() {
  const bool box = f_rect.defined;
  f_index->set_offset(0);
  f_index->put_invert_int(FILE_CODE);
  for (int i = 0; i < 5; ++i) f_index->put_int(0);
  f_index->put_invert_int(static_cast<int32_t>(f_shx_len / 2));
  f_index->put_int(VERSION);
  f_index->put_int(f_type);
  f_index->put_double(box ? f_rect.xmin : 0.0);
  f_index->put_double(box ? f_rect.ymin : 0.0);
  f_index->put_double(box ? f_rect.xmax : 1.0);
  f_index->put_double(box ? f_rect.ymax : 1.0);
  f_index->put_double(f_z_defined ? f_z_min : 0.0);
  f_index->put_double(f_z_defined ? f_z_max : 1.0);
  f_index->put_double(f_m_defined ? f_m_min : 0.0);
  f_index->put_double(f_m_defined ? f_m_max : 1.0);
  f_index->save_file_all(f_shx);

  Tvx_bin header;
  header.put_data(HEADER_SIZE, f_index->get_buffer_ptr());
  header.set_offset(24);
  header.put_invert_int(static_cast<int32_t>(f_shp_len / 2));
  header.save_file_all(f_shp);
  f_index->set_offset(HEADER_SIZE);
  return 0;
}

// ---------------------------------------------------------------------------------------------------
// Types

int Tvx_file_shp_exe::convert_m_type(int type) {
  switch (type) {
    case SHP_POINT_M:
      return SHP_POINT;
    case SHP_POLYLINE_M:
      return SHP_POLYLINE;
    case SHP_POLYGON_M:
      return SHP_POLYGON;
    case SHP_MULTIPOINT_M:
      return SHP_MULTIPOINT;
    default:
      return type;
  }
}

int Tvx_file_shp_exe::invert_int(int value) {
  const uint32_t v = static_cast<uint32_t>(value);
  return static_cast<int>((v >> 24) | ((v >> 8) & 0xFF00) | ((v << 8) & 0xFF0000) | (v << 24));
}

// File part types: 0 TriangleStrip, 1 TriangleFan, 2 OuterRing, 3 InnerRing, 4 FirstRing, 5 Ring.
// FirstRing comes back as Ring.
int Tvx_file_shp_exe::patch3d_type_to_shp(Tvx_patch_3d_type type) {
  switch (type) {
    case vx_patch_triangle_strip:
      return 0;
    case vx_patch_triangle_fan:
      return 1;
    case vx_patch_outer_ring:
      return 2;
    case vx_patch_inner_ring:
      return 3;
    default:
      return 5;
  }
}

Tvx_patch_3d_type Tvx_file_shp_exe::patch3d_type_from_shp(int type) {
  switch (type) {
    case 0:
      return vx_patch_triangle_strip;
    case 1:
      return vx_patch_triangle_fan;
    case 2:
      return vx_patch_outer_ring;
    case 3:
      return vx_patch_inner_ring;
    case 4:
    case 5:
      return vx_patch_ring;
    default:
      return vx_patch_unknown;
  }
}

void Tvx_file_shp_exe::extend_z(double min, double max) {
  if (!f_z_defined) {
    f_z_min = min;
    f_z_max = max;
    f_z_defined = true;
    return;
  }
  f_z_min = std::min(f_z_min, min);
  f_z_max = std::max(f_z_max, max);
}

// ---------------------------------------------------------------------------------------------------
// Reading

// Loads record i whole into the record buffer, positioned at its start. An index past the count, or
// an entry that points outside the main file, gives an empty record, which reads as a null shape. A
// length that runs past the end of the file is cut there. Either marks the record as damaged.
bool Tvx_file_shp_exe::load_record(unsigned i) {
  f_rec->set_size(0);
  f_rec_loaded = 0;
  f_rec_damaged = false;
  if (i >= f_count) return damaged(false);
  f_index->set_offset(HEADER_SIZE + INDEX_ENTRY_SIZE * i);
  const uint64_t offset = static_cast<uint64_t>(static_cast<uint32_t>(f_index->get_invert_int())) * 2;
  const uint64_t length = static_cast<uint64_t>(static_cast<uint32_t>(f_index->get_invert_int())) * 2 + 8;
  if (offset < HEADER_SIZE || offset >= f_shp_size) return damaged(false);
  f_shp->seek(static_cast<uint32_t>(offset));
  const uint64_t available = f_shp_size - offset;
  f_rec->load_file_part(f_shp, static_cast<uint32_t>(std::min(length, available)));
  f_rec_loaded = f_rec->get_size();
  if (length > available) damaged(true);
  return true;
}

bool Tvx_file_shp_exe::damaged(bool result) {
  f_rec_damaged = true;
  return result;
}

// The data a record needs must lie inside it: a read that went past its end found no data there.
void Tvx_file_shp_exe::check_inside_record() {
  if (f_rec->get_offset() > f_rec_loaded) f_rec_damaged = true;
}

int Tvx_file_shp_exe::get_obj_type(unsigned i) {
  if (!load_record(i)) return SHP_NULL;
  f_rec->get_int();
  f_rec->get_int();
  const int type = f_rec->get_int();
  check_inside_record();
  if (!is_known_type(type)) f_rec_damaged = true;
  return convert_m_type(type);
}

bool Tvx_file_shp_exe::is_known_type(int type) {
  switch (type) {
    case SHP_NULL:
    case SHP_POINT:
    case SHP_POLYLINE:
    case SHP_POLYGON:
    case SHP_MULTIPOINT:
    case SHP_POINT_Z:
    case SHP_POLYLINE_Z:
    case SHP_POLYGON_Z:
    case SHP_MULTIPOINT_Z:
    case SHP_POINT_M:
    case SHP_POLYLINE_M:
    case SHP_POLYGON_M:
    case SHP_MULTIPOINT_M:
    case SHP_MULTIPATCH:
      return true;
    default:
      return false;
  }
}

// The number of vertices (or parts) that the rest of the record can hold: a count that claims more is
// cut, so that no count read from a file makes the reader allocate or read beyond the record. A count
// that had to be cut, or a negative one, marks the record as damaged.
uint32_t Tvx_file_shp_exe::vertices_that_fit(int32_t n, uint32_t bytes_per_vertex) {
  if (n < 0) f_rec_damaged = true;
  if (n < 1) return 0;
  const uint32_t rest = f_rec->get_size() - f_rec->get_offset();
  const uint32_t fit = rest / bytes_per_vertex;
  if (static_cast<uint32_t>(n) > fit) f_rec_damaged = true;
  return std::min(static_cast<uint32_t>(n), fit);
}

uint32_t Tvx_file_shp_exe::parts_that_fit(int32_t p, uint32_t bytes_per_part) {
  return vertices_that_fit(p, bytes_per_part);
}

// Reads the p part starts and sizes each part by the difference to the next start, the last by n.
// The differences are taken as they come, but a part never gets more vertices than are left of n;
// starts that fall back or run past n mark the record as damaged.
void Tvx_file_shp_exe::read_part_sizes(uint32_t p, uint32_t n, uint32_t* sizes) {
  int64_t previous = 0;
  uint32_t left = n;
  for (uint32_t k = 0; k <= p; ++k) {
    const int64_t start = k < p ? f_rec->get_int() : static_cast<int64_t>(n);
    if (k == 0) {
      previous = start;
      continue;
    }
    const int64_t diff = std::clamp<int64_t>(start - previous, 0, left);
    if (diff != start - previous) f_rec_damaged = true;
    sizes[k - 1] = static_cast<uint32_t>(diff);
    left -= static_cast<uint32_t>(diff);
    previous = start;
  }
}

bool Tvx_file_shp_exe::get_point(Tvx_point2d* p) {
  p->x = f_rec->get_double();
  p->y = f_rec->get_double();
  check_inside_record();
  return true;
}

bool Tvx_file_shp_exe::get_point_z(Tvx_point3d* p) {
  p->x = f_rec->get_double();
  p->y = f_rec->get_double();
  p->z = f_rec->get_double();
  check_inside_record();
  f_rec->get_double();
  return true;
}

bool Tvx_file_shp_exe::get_multipoint(Tvx_pp2d* pp) {
  f_rec->set_offset(f_rec->get_offset() + 32);
  const uint32_t n = vertices_that_fit(f_rec->get_int(), 16);
  pp->set_size(n);
  for (uint32_t i = 0; i < n; ++i) {
    const double x = f_rec->get_double();
    const double y = f_rec->get_double();
    pp->set(i, vx_point2d(x, y));
  }
  check_inside_record();
  return true;
}

bool Tvx_file_shp_exe::get_polypoint(Tvx_op2d* op, int) {
  f_rec->set_offset(f_rec->get_offset() + 32);
  const int32_t stored_p = f_rec->get_int();
  const int32_t stored_n = f_rec->get_int();
  const uint32_t p = parts_that_fit(stored_p, 4);
  check_inside_record();
  if (p < 1) {
    op->clear();
    return true;
  }
  op->set_size(p);
  if (stored_n < 1) {
    if (stored_n < 0) f_rec_damaged = true;
    for (uint32_t k = 0; k < p; ++k) op->get(k)->clear();
    return true;
  }
  const uint32_t starts_end = f_rec->get_offset() + 4 * p;
  const uint32_t rest = f_rec->get_size() > starts_end ? f_rec->get_size() - starts_end : 0;
  const uint32_t n = std::min(static_cast<uint32_t>(stored_n), rest / 16);
  if (n < static_cast<uint32_t>(stored_n)) f_rec_damaged = true;
  std::vector<uint32_t> sizes(p);
  read_part_sizes(p, n, sizes.data());
  for (uint32_t k = 0; k < p; ++k) {
    Tvx_pp2d* part = op->get(k);
    part->set_size(sizes[k]);
    for (uint32_t i = 0; i < sizes[k]; ++i) {
      const double x = f_rec->get_double();
      const double y = f_rec->get_double();
      part->set(i, vx_point2d(x, y));
    }
  }
  check_inside_record();
  return true;
}

// The vertices of parts with z: the x and y of all parts, the z range (dropped), then the z of all
// parts in the same order. The measures behind them are not read: a record may leave them out.
void Tvx_file_shp_exe::read_xyz_parts(const std::vector<Tvx_pp3d*>& parts,
                                      const std::vector<uint32_t>& sizes) {
  for (size_t k = 0; k < parts.size(); ++k) {
    parts[k]->set_size(sizes[k]);
    for (uint32_t i = 0; i < sizes[k]; ++i) {
      const double x = f_rec->get_double();
      const double y = f_rec->get_double();
      parts[k]->set(i, vx_point3d(x, y, 0));
    }
  }
  f_rec->get_double();
  f_rec->get_double();
  for (size_t k = 0; k < parts.size(); ++k)
    for (uint32_t i = 0; i < sizes[k]; ++i) parts[k]->set_z(i, f_rec->get_double());
  check_inside_record();
}

bool Tvx_file_shp_exe::get_multipoint_z(Tvx_pp3d* pp) {
  f_rec->set_offset(f_rec->get_offset() + 32);
  const uint32_t n = vertices_that_fit(f_rec->get_int(), 16);
  read_xyz_parts({pp}, {n});
  return true;
}

bool Tvx_file_shp_exe::get_polypoint_z(Tvx_op3d* op, int) {
  f_rec->set_offset(f_rec->get_offset() + 32);
  const uint32_t p = parts_that_fit(f_rec->get_int(), 4);
  const int32_t stored_n = f_rec->get_int();
  check_inside_record();
  if (p < 1) {
    op->clear();
    return true;
  }
  op->set_size(p);
  std::vector<uint32_t> sizes(p);
  read_part_sizes(p, vertices_that_fit(stored_n, 16), sizes.data());
  std::vector<Tvx_pp3d*> parts(p);
  for (uint32_t k = 0; k < p; ++k) parts[k] = op->get(k);
  read_xyz_parts(parts, sizes);
  return true;
}

// As a polyline with z, with a part type behind the part starts. A record without parts gives an
// empty multipatch.
bool Tvx_file_shp_exe::get_multipatch(Tvx_multipatch3d* mp) {
  f_rec->set_offset(f_rec->get_offset() + 32);
  const uint32_t p = parts_that_fit(f_rec->get_int(), 8);
  const int32_t stored_n = f_rec->get_int();
  check_inside_record();
  if (p < 1) {
    mp->clear();
    return true;
  }
  mp->set_size(p);
  std::vector<uint32_t> sizes(p);
  read_part_sizes(p, vertices_that_fit(stored_n, 16), sizes.data());
  std::vector<Tvx_pp3d*> parts(p);
  for (uint32_t k = 0; k < p; ++k) {
    mp->get(k)->set_type(patch3d_type_from_shp(f_rec->get_int()));
    parts[k] = mp->get(k)->get_pp_ptr();
  }
  read_xyz_parts(parts, sizes);
  return true;
}

// ---------------------------------------------------------------------------------------------------
// Writing

// The frame of every record: the index entry, then the record header and the type word.
void Tvx_file_shp_exe::begin_record(uint32_t content_bytes, int type) {
  const int32_t words = static_cast<int32_t>(content_bytes / 2);
  f_index->put_invert_int(static_cast<int32_t>(f_shp_len / 2));
  f_index->put_invert_int(words);
  f_rec->set_size(0);
  f_rec->put_invert_int(static_cast<int32_t>(f_count));
  f_rec->put_invert_int(words);
  f_rec->put_int(type);
}

void Tvx_file_shp_exe::end_record(uint32_t content_bytes) {
  f_shp->seek_from_end(0);
  f_rec->save_file_part(f_shp);
  f_shp_len += content_bytes + 8;
  f_shx_len += INDEX_ENTRY_SIZE;
  f_count += 1;
  f_dirty = true;
}

// A record's box: four zeros for an object without vertices.
void Tvx_file_shp_exe::put_box(const Tvx_rect2d& r) {
  f_rec->put_double(r.defined ? r.xmin : 0.0);
  f_rec->put_double(r.defined ? r.ymin : 0.0);
  f_rec->put_double(r.defined ? r.xmax : 0.0);
  f_rec->put_double(r.defined ? r.ymax : 0.0);
}

// The z range of a record is that of the object's box, which also widens the file's range.
void Tvx_file_shp_exe::put_z_range(const Tvx_rect3d& r) {
  if (r.defined) extend_z(r.zmin, r.zmax);
  f_rec->put_double(r.defined ? r.zmin : 0.0);
  f_rec->put_double(r.defined ? r.zmax : 0.0);
}

// The system has no measures: the range is 0 to 1 and every value is "no data".
void Tvx_file_shp_exe::put_measures(uint32_t n) {
  f_rec->put_double(0.0);
  f_rec->put_double(1.0);
  for (uint32_t i = 0; i < n; ++i) f_rec->put_double(NO_MEASURE);
}

static Tvx_rect2d rect2d_of(const Tvx_rect3d& r) {
  return r.defined ? vx_rect2d(r.xmin, r.ymin, r.xmax, r.ymax) : vx_rect2d();
}

bool Tvx_file_shp_exe::add_empty() {
  begin_record(4, SHP_NULL);
  end_record(4);
  return true;
}

bool Tvx_file_shp_exe::add_point(Tvx_point2d* p) {
  begin_record(20, SHP_POINT);
  f_rec->put_double(p->x);
  f_rec->put_double(p->y);
  vx_rect2d_extend(&f_rect, p->x, p->y);
  end_record(20);
  return true;
}

bool Tvx_file_shp_exe::add_point_z(Tvx_point3d* p) {
  begin_record(36, SHP_POINT_Z);
  f_rec->put_double(p->x);
  f_rec->put_double(p->y);
  f_rec->put_double(p->z);
  f_rec->put_double(NO_MEASURE);
  vx_rect2d_extend(&f_rect, p->x, p->y);
  extend_z(p->z, p->z);
  end_record(36);
  return true;
}

bool Tvx_file_shp_exe::add_multipoint(Tvx_pp2d* pp) {
  const uint32_t n = pp->get_size();
  const uint32_t bytes = 40 + 16 * n;
  const Tvx_rect2d box = pp->get_rect();
  begin_record(bytes, SHP_MULTIPOINT);
  put_box(box);
  f_rec->put_int(static_cast<int32_t>(n));
  for (uint32_t i = 0; i < n; ++i) {
    const Tvx_point2d v = pp->get(i);
    f_rec->put_double(v.x);
    f_rec->put_double(v.y);
  }
  f_rect = vx_rect2d_unite(f_rect, box);
  end_record(bytes);
  return true;
}

void Tvx_file_shp_exe::put_xyz_parts(const std::vector<Tvx_pp3d*>& parts, const Tvx_rect3d& box) {
  uint32_t n = 0;
  for (const Tvx_pp3d* pp : parts) {
    for (int i = 0; i < pp->get_size(); ++i) {
      f_rec->put_double(pp->get(i).x);
      f_rec->put_double(pp->get(i).y);
    }
    n += static_cast<uint32_t>(pp->get_size());
  }
  put_z_range(box);
  for (const Tvx_pp3d* pp : parts)
    for (int i = 0; i < pp->get_size(); ++i) f_rec->put_double(pp->get(i).z);
  put_measures(n);
}

bool Tvx_file_shp_exe::add_multipoint_z(Tvx_pp3d* pp) {
  const uint32_t n = pp->get_size();
  const uint32_t bytes = 72 + 32 * n;
  const Tvx_rect3d box = pp->get_rect();
  begin_record(bytes, SHP_MULTIPOINT_Z);
  put_box(rect2d_of(box));
  f_rec->put_int(static_cast<int32_t>(n));
  put_xyz_parts({pp}, box);
  f_rect = vx_rect2d_unite(f_rect, rect2d_of(box));
  end_record(bytes);
  return true;
}

// Part starts are vertex indices: the first 0, each the sum of the sizes before it.
void Tvx_file_shp_exe::put_part_starts(const std::vector<uint32_t>& sizes) {
  uint32_t start = 0;
  for (uint32_t size : sizes) {
    f_rec->put_int(static_cast<int32_t>(start));
    start += size;
  }
}

bool Tvx_file_shp_exe::add_polypoint(Tvx_op2d* op, int type) {
  const uint32_t p = op->get_size();
  std::vector<uint32_t> sizes(p);
  uint32_t n = 0;
  for (uint32_t k = 0; k < p; ++k) n += sizes[k] = op->get(k)->get_size();
  const uint32_t bytes = polypoint_bytes(p, n);
  const Tvx_rect2d box = op->get_rect();
  begin_record(bytes, type);
  put_box(box);
  f_rec->put_int(static_cast<int32_t>(p));
  f_rec->put_int(static_cast<int32_t>(n));
  put_part_starts(sizes);
  for (uint32_t k = 0; k < p; ++k) {
    const Tvx_pp2d* pp = op->get(k);
    for (uint32_t i = 0; i < sizes[k]; ++i) {
      f_rec->put_double(pp->get(i).x);
      f_rec->put_double(pp->get(i).y);
    }
  }
  f_rect = vx_rect2d_unite(f_rect, box);
  end_record(bytes);
  return true;
}

bool Tvx_file_shp_exe::add_polypoint_z(Tvx_op3d* op, int type) {
  const uint32_t p = op->get_size();
  std::vector<uint32_t> sizes(p);
  std::vector<Tvx_pp3d*> parts(p);
  uint32_t n = 0;
  for (uint32_t k = 0; k < p; ++k) {
    parts[k] = op->get(k);
    n += sizes[k] = parts[k]->get_size();
  }
  const uint32_t bytes = polypoint_z_bytes(p, n);
  const Tvx_rect3d box = op->get_rect();
  begin_record(bytes, type);
  put_box(rect2d_of(box));
  f_rec->put_int(static_cast<int32_t>(p));
  f_rec->put_int(static_cast<int32_t>(n));
  put_part_starts(sizes);
  put_xyz_parts(parts, box);
  f_rect = vx_rect2d_unite(f_rect, rect2d_of(box));
  end_record(bytes);
  return true;
}

bool Tvx_file_shp_exe::add_multipatch(Tvx_multipatch3d* mp) {
  const uint32_t p = mp->get_size();
  std::vector<uint32_t> sizes(p);
  std::vector<Tvx_pp3d*> parts(p);
  uint32_t n = 0;
  for (uint32_t k = 0; k < p; ++k) {
    parts[k] = mp->get(k)->get_pp_ptr();
    n += sizes[k] = parts[k]->get_size();
  }
  const uint32_t bytes = multipatch_bytes(p, n);
  const Tvx_rect3d box = mp->get_rect();
  begin_record(bytes, SHP_MULTIPATCH);
  put_box(rect2d_of(box));
  f_rec->put_int(static_cast<int32_t>(p));
  f_rec->put_int(static_cast<int32_t>(n));
  put_part_starts(sizes);
  for (uint32_t k = 0; k < p; ++k) f_rec->put_int(patch3d_type_to_shp(mp->get(k)->get_type()));
  put_xyz_parts(parts, box);
  f_rect = vx_rect2d_unite(f_rect, rect2d_of(box));
  end_record(bytes);
  return true;
}

// ---------------------------------------------------------------------------------------------------
// Public handle and one-shot writer

Tvx_file_shp::Tvx_file_shp() : f_exe(new Tvx_file_shp_exe) {}

Tvx_file_shp::~Tvx_file_shp() {
  delete f_exe;
}

void Tvx_file_shp::delete_obj(Tvx_file_shp** p) {
  delete *p;
  *p = nullptr;
}

int Tvx_file_shp::fn_get_type(const char*) {
  try {
    Tvx_file_shp shp;
    return shp.get_type();
  } catch (...) {
    return -1;
  }
}

int Tvx_file_shp_geom::save_pp_pln(const char* path, Tvx_pp2d* pp) {
  const std::string dbf_path = Tvx_path::change_file_ext(path, "dbf");  // copied: a static buffer
  Tvx_dbf_prpdefs defs;
  Tvx_dbf_prpdef* id = defs.add();
  id->set_name("ID");
  id->set_type('N');
  id->set_length(5);
  id->set_decimal(0);
  Tvx_file_shp_exe shp;
  shp.create(path, SHP_POLYLINE);
  Tvx_file_dbf dbf;
  dbf.create(dbf_path.c_str(), &defs, 1);
  Tvx_op2d op;
  op.add_copy(pp);
  shp.add_polypoint(&op, SHP_POLYLINE);
  dbf.set_rec(0);
  dbf.set_int(0, 1);
  dbf.close();
  shp.close();
  return 0;
}
