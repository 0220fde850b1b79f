// Shape file reprojection: the record pump between two shape files, and the copy of the table beside it.
#include "reproj/reproj_shape.h"

#include <string>

#include "files/file_shp.h"
#include "geom/multipatch3d.h"
#include "geom/op2d.h"
#include "geom/op3d.h"
#include "geom/point2d.h"
#include "geom/point3d.h"
#include "geom/pp2d.h"
#include "geom/pp3d.h"
#include "reproj/reproj_2d.h"
#include "support/ansi_code_page.h"
#include "support/filesystem.h"

namespace {

// The work objects of one run. The geometry objects are reused from record to record.
class record_pump {
 public:
  record_pump(Tvx_reproj_2d& rpj, Tvx_file_shp& src, Tvx_file_shp& dst) : rpj_(rpj), src_(src), dst_(dst) {}

  // Reads record i of the source and appends it to the destination, transformed. The dispatch goes by
  // the record's own type (measured types come folded to plain ones). A record that cannot be
  // transformed, and a record of a type that has no geometry here, become null records. Gives false
  // only for a record whose transformation failed.
  bool copy(unsigned i) {
    switch (src_.get_obj_type(i)) {
      case 1:
        return pass([&] { return src_.get_point(&pnt_) && rpj_.apply_pnt(&pnt_); },
                    [&] { dst_.add_point(&pnt_); });
      case 3:
        return pass([&] { return src_.get_polyline(&op_) && rpj_.apply_op(&op_); },
                    [&] { dst_.add_polyline(&op_); });
      case 5:
        return pass([&] { return src_.get_polygon(&op_) && rpj_.apply_op(&op_); },
                    [&] { dst_.add_polygon(&op_); });
      case 8:
        return pass([&] { return src_.get_multipoint(&pp_) && rpj_.apply_pp(&pp_); },
                    [&] { dst_.add_multipoint(&pp_); });
      case 11:
        return pass([&] { return src_.get_point_z(&pnt_z_) && rpj_.apply_pnt(&pnt_z_); },
                    [&] { dst_.add_point_z(&pnt_z_); });
      case 13:
        return pass([&] { return src_.get_polyline_z(&op_z_) && rpj_.apply_op(&op_z_); },
                    [&] { dst_.add_polyline_z(&op_z_); });
      case 15:
        return pass([&] { return src_.get_polygon_z(&op_z_) && rpj_.apply_op(&op_z_); },
                    [&] { dst_.add_polygon_z(&op_z_); });
      case 18:
        return pass([&] { return src_.get_multipoint_z(&pp_z_) && rpj_.apply_pp(&pp_z_); },
                    [&] { dst_.add_multipoint_z(&pp_z_); });
      case 31:
        return pass([&] { return src_.get_multipatch(&mpatch_) && rpj_.apply_mpatch(&mpatch_); },
                    [&] { dst_.add_multipatch(&mpatch_); });
      default:
        dst_.add_empty();
        return true;
    }
  }

 private:
  template <class Transform, class Write>
  bool pass(Transform transform, Write write) {
    if (transform()) {
      write();
      return true;
    }
    dst_.add_empty();
    return false;
  }

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

// The attribute table and its code page file go beside the result as they are. A source without one
// leaves none at the destination, and that is no failure.
void copy_side_file(const std::wstring& src_file, const std::wstring& dst_file, const wchar_t* ext) {
  namespace fs = vx::filesystem;
  fs::copy_file(fs::change_extension(src_file, ext), fs::change_extension(dst_file, ext), true);
}

void reproject_records(Tvx_reproj_2d& rpj, const std::wstring& src_file, const std::wstring& dst_file,
                       Tvx_reproj_shape_report* report) {
  Tvx_file_shp src, dst;
  src.open(src_file, true);
  dst.create(dst_file, src.get_type());
  record_pump pump(rpj, src, dst);
  const unsigned total = src.get_no();
  for (unsigned i = 0; i < total; ++i) {
    const bool transformed = pump.copy(i);
    if (!report) continue;
    report->records++;
    if (!transformed) report->failed++;
    if (report->progress) report->progress(i + 1, total, report->user);
  }
  dst.close();
  src.close();
}

}  // namespace

int Tvx_reproj_shape::execute(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                              const wchar_t* dst_proj, Tvx_reproj_shape_report* report) {
  Tvx_reproj_2d rpj;
  if (!rpj.init(src_proj, dst_proj)) return 1;
  reproject_records(rpj, src_file, dst_file, report);
  copy_side_file(src_file, dst_file, L".dbf");
  copy_side_file(src_file, dst_file, L".cpg");
  return 0;
}

int Tvx_reproj_shape::execute(const char* src_file, const char* src_proj, const char* dst_file,
                              const char* dst_proj, Tvx_reproj_shape_report* report) {
  auto wide = [](const char* text) { return text ? vx::strconv::utf8_to_wide(text) : std::wstring(); };
  return execute(wide(src_file).c_str(), wide(src_proj).c_str(), wide(dst_file).c_str(),
                 wide(dst_proj).c_str(), report);
}
