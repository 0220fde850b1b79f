// Shape file reprojection, measured three ways on one polygon file:
//
//   generate OUT.shp [RECORDS [VERTICES]]   writes the test file (polygons in geographic coordinates,
//                                           with .shx and a .dbf of one ID column) by plain buffered I/O
//   library  SRC.shp DST.shp FROM TO         vx_proj4_shp of the library, through its public header
//   floor    SRC.shp DST.shp FROM TO         the least work that can do the same job: the file read and
//                                           written by plain buffered I/O, one proj_trans_generic per
//                                           record, the .dbf copied, over the pipeline PROJ builds of
//                                           FROM and TO as they stand (its cheapest for the pair)
//   plain    SRC.shp DST.shp FROM TO         the same loop over the pipeline of each text as the library
//                                           normalises it alone ("+lon_wrap=45 +no_defs" appended, the
//                                           datum shift kept on both sides): how the library joined
//                                           two systems before it left out a shift that cancels
//
// library, floor and plain print the wall time and the processor time in seconds on stdout.
// bench/shp_reproject_compare.sh drives them and times ogr2ogr beside them.
#include <proj.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "reproj/reproj_xy_exec.h"
#include "vxk_proj4_shp.h"

namespace {

using file_ptr = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

file_ptr open_file(const std::string& path, const char* mode) {
  file_ptr f(std::fopen(path.c_str(), mode), &std::fclose);
  if (!f) std::fprintf(stderr, "cannot open %s\n", path.c_str());
  return f;
}

std::string with_extension(const std::string& path, const char* ext) {
  const auto dot = path.find_last_of('.');
  const auto slash = path.find_last_of('/');
  const bool has_ext = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return (has_ext ? path.substr(0, dot) : path) + ext;
}

// ---- little helpers of the shape file layout ----------------------------------------------------------

void put_be32(std::vector<unsigned char>& b, std::uint32_t v) {
  for (int s = 24; s >= 0; s -= 8) b.push_back(static_cast<unsigned char>(v >> s));
}
void put_le32(std::vector<unsigned char>& b, std::uint32_t v) {
  for (int s = 0; s < 32; s += 8) b.push_back(static_cast<unsigned char>(v >> s));
}
void put_f64(std::vector<unsigned char>& b, double v) {
  unsigned char raw[8];
  std::memcpy(raw, &v, 8);
  b.insert(b.end(), raw, raw + 8);
}
std::uint32_t get_be32(const unsigned char* p) {
  return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) | p[3];
}
std::uint32_t get_le32(const unsigned char* p) {
  return (std::uint32_t{p[3]} << 24) | (std::uint32_t{p[2]} << 16) | (std::uint32_t{p[1]} << 8) | p[0];
}
double get_f64(const unsigned char* p) {
  double v;
  std::memcpy(&v, p, 8);
  return v;
}

struct box {
  double xmin = HUGE_VAL, ymin = HUGE_VAL, xmax = -HUGE_VAL, ymax = -HUGE_VAL;
  void extend(double x, double y) {
    xmin = std::min(xmin, x), ymin = std::min(ymin, y), xmax = std::max(xmax, x), ymax = std::max(ymax, y);
  }
  void unite(const box& o) { extend(o.xmin, o.ymin), extend(o.xmax, o.ymax); }
};

std::vector<unsigned char> main_header(std::uint32_t bytes, int type, const box& b) {
  std::vector<unsigned char> h;
  put_be32(h, 9994);
  h.resize(24, 0);
  put_be32(h, bytes / 2);
  put_le32(h, 1000);
  put_le32(h, static_cast<std::uint32_t>(type));
  for (double v : {b.xmin, b.ymin, b.xmax, b.ymax, 0.0, 0.0, 0.0, 0.0}) put_f64(h, v);
  return h;
}

// A polygon file being written: records go to the .shp as they come, the index is kept in memory.
class polygon_writer {
 public:
  explicit polygon_writer(const std::string& path)
      : shp_(open_file(path, "wb")), shx_path_(with_extension(path, ".shx")) {
    if (shp_) std::fwrite(main_header(100, 5, box{}).data(), 1, 100, shp_.get());
  }
  bool ok() const { return static_cast<bool>(shp_); }

  void add(const double* x, const double* y, std::uint32_t n) {
    box b;
    for (std::uint32_t i = 0; i < n; ++i) b.extend(x[i], y[i]);
    const std::uint32_t content = 44 + 4 + 16 * n;
    rec_.clear();
    put_be32(rec_, static_cast<std::uint32_t>(index_.size() / 8 + 1));
    put_be32(rec_, content / 2);
    put_le32(rec_, 5);
    for (double v : {b.xmin, b.ymin, b.xmax, b.ymax}) put_f64(rec_, v);
    put_le32(rec_, 1);
    put_le32(rec_, n);
    put_le32(rec_, 0);
    for (std::uint32_t i = 0; i < n; ++i) put_f64(rec_, x[i]), put_f64(rec_, y[i]);
    put_be32(index_, shp_len_ / 2);
    put_be32(index_, content / 2);
    std::fwrite(rec_.data(), 1, rec_.size(), shp_.get());
    shp_len_ += static_cast<std::uint32_t>(rec_.size());
    box_.unite(b);
  }

  bool close() {
    if (!shp_) return false;
    std::fseek(shp_.get(), 0, SEEK_SET);
    std::fwrite(main_header(shp_len_, 5, box_).data(), 1, 100, shp_.get());
    shp_.reset();
    file_ptr shx = open_file(shx_path_, "wb");
    if (!shx) return false;
    const auto head = main_header(static_cast<std::uint32_t>(100 + index_.size()), 5, box_);
    std::fwrite(head.data(), 1, head.size(), shx.get());
    std::fwrite(index_.data(), 1, index_.size(), shx.get());
    return true;
  }

 private:
  file_ptr shp_;
  std::string shx_path_;
  std::vector<unsigned char> rec_, index_;
  std::uint32_t shp_len_ = 100;
  box box_;
};

bool copy_file(const std::string& from, const std::string& to) {
  file_ptr in = open_file(from, "rb");
  file_ptr out = open_file(to, "wb");
  if (!in || !out) return false;
  std::vector<char> buf(1 << 16);
  for (std::size_t n; (n = std::fread(buf.data(), 1, buf.size(), in.get())) > 0;)
    std::fwrite(buf.data(), 1, n, out.get());
  return true;
}

// ---- generate -------------------------------------------------------------------------------------------

// A dBASE III table of one numeric column ID, one row per record.
bool write_id_table(const std::string& path, std::uint32_t records) {
  file_ptr f = open_file(path, "wb");
  if (!f) return false;
  std::vector<unsigned char> h = {0x03, 126, 11, 22};
  put_le32(h, records);
  h.push_back(65), h.push_back(0);  // header length 32 + 32 + 1
  h.push_back(11), h.push_back(0);  // record length 1 + 10
  h.resize(32, 0);
  const char name[11] = "ID";
  h.insert(h.end(), name, name + 11);
  h.push_back('N');
  h.resize(h.size() + 4, 0);
  h.push_back(10), h.push_back(0);
  h.resize(64, 0);
  h.push_back(0x0D);
  std::fwrite(h.data(), 1, h.size(), f.get());
  char row[12];
  for (std::uint32_t i = 0; i < records; ++i) {
    std::snprintf(row, sizeof row, " %10u", i);
    std::fwrite(row, 1, 11, f.get());
  }
  std::fputc(0x1A, f.get());
  return true;
}

int generate(const std::string& path, std::uint32_t records, std::uint32_t vertices) {
  polygon_writer w(path);
  if (!w.ok() || vertices < 4) return 1;
  std::vector<double> x(vertices), y(vertices);
  const std::uint32_t per_row = 100;
  for (std::uint32_t r = 0; r < records; ++r) {
    // Small clockwise rings on a lattice over 36..42 E, 50..60 N: the band of the zone with lon_0 = 39.
    const double cx = 36.0 + 6.0 * (r % per_row) / per_row, cy = 50.0 + 10.0 * (r / per_row % 100) / 100.0;
    for (std::uint32_t i = 0; i + 1 < vertices; ++i) {
      const double a = -2.0 * M_PI * i / (vertices - 1);
      x[i] = cx + 0.02 * std::cos(a), y[i] = cy + 0.01 * std::sin(a);
    }
    x[vertices - 1] = x[0], y[vertices - 1] = y[0];
    w.add(x.data(), y.data(), vertices);
  }
  return w.close() && write_id_table(with_extension(path, ".dbf"), records) ? 0 : 1;
}

// ---- floor ----------------------------------------------------------------------------------------------

// Reads the polygon records of a .shp in order, by plain buffered reads. Records that are not single
// polygons of sane size end the run: the test file has none.
class polygon_reader {
 public:
  explicit polygon_reader(const std::string& path) : shp_(open_file(path, "rb")) {
    unsigned char head[100];
    if (shp_ && std::fread(head, 1, 100, shp_.get()) == 100) left_ = get_be32(head + 24) * 2ull - 100;
  }

  // The next record's vertices in x and y (parts are not kept apart: the test file has one per record).
  bool next(std::vector<double>& x, std::vector<double>& y) {
    unsigned char rh[8];
    if (left_ < 8 || std::fread(rh, 1, 8, shp_.get()) != 8) return false;
    const std::uint64_t bytes = get_be32(rh + 4) * 2ull;
    if (bytes < 44 || bytes + 8 > left_) return false;
    left_ -= bytes + 8;
    rec_.resize(bytes);
    if (std::fread(rec_.data(), 1, bytes, shp_.get()) != bytes) return false;
    const std::uint32_t parts = get_le32(rec_.data() + 36), n = get_le32(rec_.data() + 40);
    const std::uint64_t at = 44ull + 4ull * parts;
    if (get_le32(rec_.data()) != 5 || at + 16ull * n > bytes) return false;
    x.resize(n), y.resize(n);
    for (std::uint32_t i = 0; i < n; ++i)
      x[i] = get_f64(&rec_[at + 16 * i]), y[i] = get_f64(&rec_[at + 16 * i + 8]);
    return true;
  }

 private:
  file_ptr shp_;
  std::vector<unsigned char> rec_;
  std::uint64_t left_ = 0;
};

int floor_run(const std::string& src, const std::string& dst, const std::string& from,
              const std::string& to) {
  PJ* pj = proj_create_crs_to_crs(nullptr, from.c_str(), to.c_str(), nullptr);
  PJ* norm = pj ? proj_normalize_for_visualization(nullptr, pj) : nullptr;
  if (!norm) return 1;
  polygon_reader in(src);
  polygon_writer out(dst);
  std::vector<double> x, y;
  while (in.next(x, y)) {
    const std::size_t n = x.size();
    proj_trans_generic(norm, PJ_FWD, x.data(), 8, n, y.data(), 8, n, nullptr, 0, 0, nullptr, 0, 0);
    out.add(x.data(), y.data(), static_cast<std::uint32_t>(n));
  }
  const bool ok = out.close() && copy_file(with_extension(src, ".dbf"), with_extension(dst, ".dbf"));
  proj_destroy(norm);
  proj_destroy(pj);
  return ok ? 0 : 1;
}

// Prints the wall time and the processor time of the process (user and system) that fn took, in
// seconds. On a busy machine the processor time tells the work apart from the waiting.
template <class Fn>
int timed(Fn fn) {
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t cpu_start = std::clock();
  const int rc = fn();
  const double cpu = static_cast<double>(std::clock() - cpu_start) / CLOCKS_PER_SEC;
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  std::printf("%.4f %.4f\n", took.count(), cpu);
  return rc;
}

int usage() {
  std::fprintf(stderr,
               "usage: bench_shp_reproject generate OUT.shp [RECORDS [VERTICES]]\n"
               "       bench_shp_reproject library|floor|plain SRC.shp DST.shp FROM_PROJ TO_PROJ\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 3 && std::strcmp(argv[1], "generate") == 0) {
    const auto records = argc > 3 ? static_cast<std::uint32_t>(std::stoul(argv[3])) : 10000u;
    const auto vertices = argc > 4 ? static_cast<std::uint32_t>(std::stoul(argv[4])) : 100u;
    return generate(argv[2], records, vertices);
  }
  if (argc != 6) return usage();
  const std::string mode = argv[1];
  if (mode == "library")
    return timed([&] { return vx_proj4_shp(argv[2], argv[4], argv[3], argv[5]) ? 0 : 1; });
  if (mode == "floor") return timed([&] { return floor_run(argv[2], argv[3], argv[4], argv[5]); });
  if (mode == "plain") {
    bool geographic = false;
    const std::string from = Tvx_reproj_xy_exec::verify_pj4str(argv[4], &geographic);
    const std::string to = Tvx_reproj_xy_exec::verify_pj4str(argv[5], &geographic);
    return timed([&] { return floor_run(argv[2], argv[3], from, to); });
  }
  return usage();
}
