// Shape file reprojection: the record pump between two shape files, and the copy of the table beside it.
#include "reproj/reproj_shape.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "files/file_shp.h"
#include "geom/multipatch3d.h"
#include "geom/op2d.h"
#include "geom/op3d.h"
#include "geom/point2d.h"
#include "geom/point3d.h"
#include "geom/pp2d.h"
#include "geom/pp3d.h"
#include "reproj/proj_log.h"
#include "reproj/reproj_2d.h"
#include "support/ansi_code_page.h"
#include "support/env.h"
#include "support/filesystem.h"

namespace {

namespace fs = vx::filesystem;

// What became of one record of the source.
enum class outcome { written, not_transformed, unreadable };

// The work objects of one run. The geometry objects are reused from record to record.
class record_pump {
 public:
  record_pump(Tvx_reproj_2d& rpj, Tvx_file_shp& src, Tvx_file_shp& dst) : rpj_(rpj), src_(src), dst_(dst) {}

  // Reads record i of the source and appends it to the destination, transformed. The dispatch goes by
  // the record's own type (measured types come folded to plain ones). A record that cannot be read
  // whole, a record that cannot be transformed, and a record of a type that has no geometry here become
  // null records, so that record i of the result still belongs to row i of the table.
  outcome copy(unsigned i) {
    switch (src_.get_obj_type(i)) {
      case 1:
        return pass(&Tvx_file_shp::get_point, &Tvx_file_shp::add_point, &pnt_);
      case 3:
        return pass(&Tvx_file_shp::get_polyline, &Tvx_file_shp::add_polyline, &op_);
      case 5:
        return pass(&Tvx_file_shp::get_polygon, &Tvx_file_shp::add_polygon, &op_);
      case 8:
        return pass(&Tvx_file_shp::get_multipoint, &Tvx_file_shp::add_multipoint, &pp_);
      case 11:
        return pass(&Tvx_file_shp::get_point_z, &Tvx_file_shp::add_point_z, &pnt_z_);
      case 13:
        return pass(&Tvx_file_shp::get_polyline_z, &Tvx_file_shp::add_polyline_z, &op_z_);
      case 15:
        return pass(&Tvx_file_shp::get_polygon_z, &Tvx_file_shp::add_polygon_z, &op_z_);
      case 18:
        return pass(&Tvx_file_shp::get_multipoint_z, &Tvx_file_shp::add_multipoint_z, &pp_z_);
      case 31:
        return pass(&Tvx_file_shp::get_multipatch, &Tvx_file_shp::add_multipatch, &mpatch_);
      default:
        dst_.add_empty();
        return src_.is_record_damaged() ? outcome::unreadable : outcome::written;
    }
  }

 private:
  template <class Geom>
  outcome pass(bool (Tvx_file_shp::*get)(Geom*), bool (Tvx_file_shp::*add)(Geom*), Geom* geom) {
    (src_.*get)(geom);
    if (src_.is_record_damaged()) return null_record(outcome::unreadable);
    if (!transform(geom)) return null_record(outcome::not_transformed);
    (dst_.*add)(geom);
    return outcome::written;
  }

  outcome null_record(outcome why) {
    dst_.add_empty();
    return why;
  }

  bool transform(Tvx_point2d* g) { return rpj_.apply_pnt(g); }
  bool transform(Tvx_point3d* g) { return rpj_.apply_pnt(g); }
  bool transform(Tvx_pp2d* g) { return rpj_.apply_pp(g); }
  bool transform(Tvx_pp3d* g) { return rpj_.apply_pp(g); }
  bool transform(Tvx_op2d* g) { return rpj_.apply_op(g); }
  bool transform(Tvx_op3d* g) { return rpj_.apply_op(g); }
  bool transform(Tvx_multipatch3d* g) { return rpj_.apply_mpatch(g); }

  Tvx_reproj_2d& rpj_;
  Tvx_file_shp& src_;
  Tvx_file_shp& dst_;
  Tvx_point2d pnt_{};
  Tvx_point3d pnt_z_{};
  Tvx_pp2d pp_;
  Tvx_pp3d pp_z_;
  Tvx_op2d op_;
  Tvx_op3d op_z_;
  Tvx_multipatch3d mpatch_;
};

// Reports through the environment, in the narrow code page of messages; texts are built in UTF-8.
void report_error(const std::string& text) {
  Tvx_env_main::error(vx::strconv::wide_to_ansi(vx::strconv::utf8_to_wide(text)).c_str());
}

std::string quoted(const std::wstring& path) {
  return "'" + vx::strconv::wide_to_utf8(path) + "'";
}

// The files one run reads and the files it writes: the shape file as given, its index, its table and
// the table's code page file.
std::vector<std::wstring> shape_family(const std::wstring& shp) {
  return {shp, fs::change_extension(shp, L".shx"), fs::change_extension(shp, L".dbf"),
          fs::change_extension(shp, L".cpg")};
}

// A run whose destination is one of its own sources would empty the source while reading it. The
// files are compared by identity, so that another spelling of the path or a link is caught as well.
bool destination_is_source(const std::wstring& src_file, const std::wstring& dst_file) {
  for (const std::wstring& dst : shape_family(dst_file)) {
    for (const std::wstring& src : shape_family(src_file)) {
      if (!fs::is_same_file(dst, src)) continue;
      report_error("the destination " + quoted(dst) + " is the source " + quoted(src) +
                   " (the same file): nothing was written");
      return true;
    }
  }
  return false;
}

// The attribute table and its code page file go beside the result as they are. A source without one
// leaves none at the destination, and that is no failure; one that exists and cannot be copied is.
bool copy_side_file(const std::wstring& src_file, const std::wstring& dst_file, const wchar_t* ext) {
  const std::wstring from = fs::change_extension(src_file, ext);
  const std::wstring to = fs::change_extension(dst_file, ext);
  if (!fs::path_exist(from)) return true;
  if (fs::copy_file(from, to, true)) return true;
  report_error("cannot copy " + quoted(from) + " to " + quoted(to) + ": " + std::strerror(errno));
  return false;
}

void count(Tvx_reproj_shape_report* report, outcome what, unsigned done, unsigned total) {
  if (!report) return;
  report->records++;
  if (what == outcome::not_transformed) report->failed++;
  if (what == outcome::unreadable) report->unreadable++;
  if (report->progress) report->progress(done, total, report->user);
}

struct run_result {
  bool destination_made = false;
  unsigned failures = 0;  // file failures, each reported
};

// The records of a source that is a shape file. A source that is not one, or cannot be opened, has
// been reported by the reader, and no destination is made for it.
run_result reproject_records(Tvx_reproj_2d& rpj, const std::wstring& src_file, const std::wstring& dst_file,
                             Tvx_reproj_shape_report* report) {
  Tvx_file_shp src;
  src.open(src_file, true);
  if (!src.is_valid()) return {false, src.get_file_failures() + 1};
  Tvx_file_shp dst;
  dst.create(dst_file, src.get_type());
  record_pump pump(rpj, src, dst);
  const unsigned total = src.get_no();
  unsigned unreadable = 0;
  for (unsigned i = 0; i < total && dst.is_valid(); ++i) {
    const outcome what = pump.copy(i);
    if (what == outcome::unreadable) ++unreadable;
    count(report, what, i + 1, total);
  }
  dst.close();
  src.close();
  if (unreadable) {
    report_error("the source " + quoted(src_file) + " is damaged: " + std::to_string(unreadable) + " of " +
                 std::to_string(total) + " records could not be read and were written as null records");
  }
  if (report) report->unreadable += src.get_missing();
  return {true, src.get_file_failures() + dst.get_file_failures()};
}

}  // namespace

int Tvx_reproj_shape::execute(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                              const wchar_t* dst_proj, Tvx_reproj_shape_report* report) {
  if (destination_is_source(src_file, dst_file)) return 1;
  Tvx_reproj_2d rpj;
  if (!rpj.init(src_proj, dst_proj)) {
    report_error("cannot build the transformation: " + rpj.get_error());
    return 1;
  }
  run_result run = reproject_records(rpj, src_file, dst_file, report);
  if (run.destination_made) {
    run.failures += copy_side_file(src_file, dst_file, L".dbf") ? 0 : 1;
    run.failures += copy_side_file(src_file, dst_file, L".cpg") ? 0 : 1;
  }
  vx::proj_log::pass_on();
  if (report) report->file_errors = run.failures;
  return 0;
}

int Tvx_reproj_shape::execute(const char* src_file, const char* src_proj, const char* dst_file,
                              const char* dst_proj, Tvx_reproj_shape_report* report) {
  auto wide = [](const char* text) { return text ? vx::strconv::utf8_to_wide(text) : std::wstring(); };
  return execute(wide(src_file).c_str(), wide(src_proj).c_str(), wide(dst_file).c_str(),
                 wide(dst_proj).c_str(), report);
}
