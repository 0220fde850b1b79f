// ESRI shape files: the main file ".shp" and its index ".shx". Records are reached only through the
// index, which lives in memory; each record is loaded whole into a byte buffer and taken apart by a
// typed get_..., and each add_... builds a whole record and appends it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "geom/geom2d.h"
#include "geom/geom3d.h"

class Tvx_file;
class Tvx_bin;

// Shape types of the format.
enum Tvx_shp_type : int {
  SHP_NULL = 0,
  SHP_POINT = 1,
  SHP_POLYLINE = 3,
  SHP_POLYGON = 5,
  SHP_MULTIPOINT = 8,
  SHP_POINT_Z = 11,
  SHP_POLYLINE_Z = 13,
  SHP_POLYGON_Z = 15,
  SHP_MULTIPOINT_Z = 18,
  SHP_POINT_M = 21,
  SHP_POLYLINE_M = 23,
  SHP_POLYGON_M = 25,
  SHP_MULTIPOINT_M = 28,
  SHP_MULTIPATCH = 31,
};

class Tvx_file_shp_exe {
 public:
  static constexpr uint32_t HEADER_SIZE = 100;
  static constexpr uint32_t INDEX_ENTRY_SIZE = 8;
  // The value of "no data" that fills every measure written.
  static constexpr double NO_MEASURE = -1.1e38;

  Tvx_file_shp_exe();
  ~Tvx_file_shp_exe();
  Tvx_file_shp_exe(const Tvx_file_shp_exe&) = delete;
  Tvx_file_shp_exe& operator=(const Tvx_file_shp_exe&) = delete;

  int open(const char* path, bool read_only);
  int open(const std::wstring& path, bool read_only);
  int create(const char* path, int type);
  int create(const std::wstring& path, int type);
  void close();

  Tvx_rect2d get_rect2d() const { return f_rect; }
  unsigned get_no() const { return f_count; }
  int get_type() const { return convert_m_type(f_type); }
  // Both the main file and its index are open.
  bool is_open() const;

  // What a caller must know to tell a good run from a lossy one. is_valid: the last open found two
  // files with shape file headers (else the file reads as zero records, and the reason was reported),
  // or the last create made both files.
  // is_record_damaged: the record that get_obj_type loaded, or the get_... that read it, found the file
  // cut short or its counts inconsistent; what could not be read is left empty. get_file_failures:
  // open, read and write failures of the two files, each already reported.
  // get_missing: records that the index's header counts and the index does not hold (it was cut short);
  // get_no leaves them out.
  bool is_valid() const { return f_valid; }
  bool is_record_damaged() const { return f_rec_damaged; }
  unsigned get_missing() const { return f_missing; }
  unsigned get_file_failures() const;

  int get_obj_type(unsigned i);
  bool get_point(Tvx_point2d* p);
  bool get_multipoint(Tvx_pp2d* pp);
  bool get_polyline(Tvx_op2d* op) { return get_polypoint(op, SHP_POLYLINE); }
  bool get_polygon(Tvx_op2d* op) { return get_polypoint(op, SHP_POLYGON); }
  bool get_point_z(Tvx_point3d* p);
  bool get_multipoint_z(Tvx_pp3d* pp);
  bool get_polyline_z(Tvx_op3d* op) { return get_polypoint_z(op, SHP_POLYLINE_Z); }
  bool get_polygon_z(Tvx_op3d* op) { return get_polypoint_z(op, SHP_POLYGON_Z); }
  bool get_multipatch(Tvx_multipatch3d* mp);
  bool get_polypoint(Tvx_op2d* op, int type);
  bool get_polypoint_z(Tvx_op3d* op, int type);

  bool add_empty();
  bool add_point(Tvx_point2d* p);
  bool add_multipoint(Tvx_pp2d* pp);
  bool add_polyline(Tvx_op2d* op) { return add_polypoint(op, SHP_POLYLINE); }
  bool add_polygon(Tvx_op2d* op) { return add_polypoint(op, SHP_POLYGON); }
  bool add_point_z(Tvx_point3d* p);
  bool add_multipoint_z(Tvx_pp3d* pp);
  bool add_polyline_z(Tvx_op3d* op) { return add_polypoint_z(op, SHP_POLYLINE_Z); }
  bool add_polygon_z(Tvx_op3d* op) { return add_polypoint_z(op, SHP_POLYGON_Z); }
  bool add_multipatch(Tvx_multipatch3d* mp);
  bool add_polypoint(Tvx_op2d* op, int type);
  bool add_polypoint_z(Tvx_op3d* op, int type);

  int save_headers();
  void extend_z(double min, double max);
  static int convert_m_type(int type);
  static int invert_int(int value);
  static int patch3d_type_to_shp(Tvx_patch_3d_type type);
  static Tvx_patch_3d_type patch3d_type_from_shp(int type);

 private:
  void flush_and_close();
  void reset_state();
  bool headers_look_valid(const std::wstring& path, const std::wstring& index_path);
  static bool has_shape_header(Tvx_file* file, const std::wstring& path);
  void read_headers(const std::wstring& index_path);
  bool load_record(unsigned i);
  bool damaged(bool result);
  void check_inside_record();
  static bool is_known_type(int type);
  uint32_t vertices_that_fit(int32_t n, uint32_t bytes_per_vertex);
  uint32_t parts_that_fit(int32_t p, uint32_t bytes_per_part);
  void read_part_sizes(uint32_t p, uint32_t n, uint32_t* sizes);
  void read_xyz_parts(const std::vector<Tvx_pp3d*>& parts, const std::vector<uint32_t>& sizes);
  void begin_record(uint32_t content_bytes, int type);
  void end_record(uint32_t content_bytes);
  void put_box(const Tvx_rect2d& r);
  void put_measures(uint32_t n);
  void put_z_range(const Tvx_rect3d& r);
  void put_xyz_parts(const std::vector<Tvx_pp3d*>& parts, const Tvx_rect3d& box);
  void put_part_starts(const std::vector<uint32_t>& sizes);

  Tvx_file* f_shx;
  Tvx_file* f_shp;
  Tvx_bin* f_rec;
  Tvx_bin* f_index;
  bool f_read_only = true;
  uint32_t f_count = 0;
  int32_t f_type = 0;
  Tvx_rect2d f_rect = vx_rect2d();
  bool f_z_defined = false;
  double f_z_min = 0;
  double f_z_max = 0;
  bool f_m_defined = false;
  double f_m_min = 0;
  double f_m_max = 0;
  uint32_t f_shp_len = 0;
  uint32_t f_shx_len = 0;
  bool f_dirty = false;
  bool f_valid = false;
  uint32_t f_shp_size = 0;
  uint32_t f_rec_loaded = 0;
  bool f_rec_damaged = false;
  uint32_t f_missing = 0;
};

// The public handle of a shape file: forwards to its engine.
class Tvx_file_shp {
 public:
  Tvx_file_shp();
  virtual ~Tvx_file_shp();
  Tvx_file_shp(const Tvx_file_shp&) = delete;
  Tvx_file_shp& operator=(const Tvx_file_shp&) = delete;
  static void delete_obj(Tvx_file_shp** p);

  int open(const char* path, bool read_only) { return f_exe->open(path, read_only); }
  int open(const std::wstring& path, bool read_only) { return f_exe->open(path, read_only); }
  int create(const char* path, int type) { return f_exe->create(path, type); }
  int create(const std::wstring& path, int type) { return f_exe->create(path, type); }
  void close() { f_exe->close(); }

  Tvx_rect2d get_rect2d() const { return f_exe->get_rect2d(); }
  unsigned get_no() const { return f_exe->get_no(); }
  int get_type() const { return f_exe->get_type(); }
  bool is_open() const { return f_exe->is_open(); }
  int get_obj_type(unsigned i) { return f_exe->get_obj_type(i); }
  bool is_valid() const { return f_exe->is_valid(); }
  bool is_record_damaged() const { return f_exe->is_record_damaged(); }
  unsigned get_missing() const { return f_exe->get_missing(); }
  unsigned get_file_failures() const { return f_exe->get_file_failures(); }

  bool get_point(Tvx_point2d* p) { return f_exe->get_point(p); }
  bool get_multipoint(Tvx_pp2d* pp) { return f_exe->get_multipoint(pp); }
  bool get_polyline(Tvx_op2d* op) { return f_exe->get_polyline(op); }
  bool get_polygon(Tvx_op2d* op) { return f_exe->get_polygon(op); }
  bool get_point_z(Tvx_point3d* p) { return f_exe->get_point_z(p); }
  bool get_multipoint_z(Tvx_pp3d* pp) { return f_exe->get_multipoint_z(pp); }
  bool get_polyline_z(Tvx_op3d* op) { return f_exe->get_polyline_z(op); }
  bool get_polygon_z(Tvx_op3d* op) { return f_exe->get_polygon_z(op); }
  bool get_multipatch(Tvx_multipatch3d* mp) { return f_exe->get_multipatch(mp); }

  bool add_empty() { return f_exe->add_empty(); }
  bool add_point(Tvx_point2d* p) { return f_exe->add_point(p); }
  bool add_multipoint(Tvx_pp2d* pp) { return f_exe->add_multipoint(pp); }
  bool add_polyline(Tvx_op2d* op) { return f_exe->add_polyline(op); }
  bool add_polygon(Tvx_op2d* op) { return f_exe->add_polygon(op); }
  bool add_point_z(Tvx_point3d* p) { return f_exe->add_point_z(p); }
  bool add_multipoint_z(Tvx_pp3d* pp) { return f_exe->add_multipoint_z(pp); }
  bool add_polyline_z(Tvx_op3d* op) { return f_exe->add_polyline_z(op); }
  bool add_polygon_z(Tvx_op3d* op) { return f_exe->add_polygon_z(op); }
  bool add_multipatch(Tvx_multipatch3d* mp) { return f_exe->add_multipatch(mp); }

  // The type of a file that is never opened: 0 whatever the path, -1 if no object could be made.
  static int fn_get_type(const char* path);

 private:
  Tvx_file_shp_exe* f_exe;
};

// A one-shot writer of a one-record polyline map with its table.
class Tvx_file_shp_geom {
 public:
  static int save_pp_pln(const char* path, Tvx_pp2d* pp);
};
