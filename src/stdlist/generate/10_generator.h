// The sheet generator: one object alive for one generate call, which works out the sheet's box and the
// lattice of pivot points, and then runs its steps in a fixed order, each step creating, filling and
// closing one shape file with its table and projection files.
//
// base_generate is the frame and the order; stdlist_generate draws a standard sheet named by a
// designation, custom_generate a free box of coordinates. The steps are defined in the files of this
// folder, numbered in the order in which a run reaches them:
//   20  box and grid: the box in degrees, the graticule positions, the lattice (21 pivot grid)
//   30  area: "Hypsa.shp" in "HYPS\", and the two projection files beside every shape file
//   90  reprojection back: the latlong copies of the scene set
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "services/flat_types.h"
#include "stdlist/generate/00_params.h"
#include "stdlist/generate/21_pivot_grid.h"
#include "stdlist/traits.h"

namespace vx::stdlist {

class base_generate {
 public:
  explicit base_generate(base_params& prm);
  virtual ~base_generate();
  base_generate(const base_generate&) = delete;
  base_generate& operator=(const base_generate&) = delete;

  // Runs the steps in order; a false from a step ends the run with false, leaving what was written.
  virtual bool execute();
  // The generator's own copy of the parameters.
  virtual base_params& params() = 0;

  // Box and grid.
  virtual bool init_grid();
  virtual bool init_box();
  virtual double get_list_xmin();
  virtual double get_list_xmax();
  virtual double get_list_ymin();
  virtual double get_list_ymax();
  virtual void get_main_x(std::vector<double>& xs);
  virtual void get_main_y(std::vector<double>& ys);
  virtual void get_marks_x(std::vector<double>& xs);
  virtual void get_marks_y(std::vector<double>& ys);

  // Area of the sheet, "Hypsa.shp".
  virtual bool generate_hyps_a();
  virtual bool generate_hyps_a_dbf();
  bool generate_hyps_a_dbf(const std::wstring& name);
  bool generate_hyps_a_shp();

  // The .prj and .pj4 beside a shape file of the scene set, and of the latlong set.
  bool crt_proj_scn(const std::wstring& path);
  bool crt_proj_latlong(const std::wstring& path);

  // The latlong set, derived from the finished scene set.
  virtual bool reproj_back();

  // Whether a coordinate has been set (differs from traits::MAX).
  static bool valid(double value);

 protected:
  // The closed ring of lattice vertices round the box: up the west side, east along the north side,
  // down the east side, west along the south side; each corner stands twice, and the first vertex
  // comes again at the end.
  void add_box_ring(Tvx_pp2d* part) const;
  // Everything the box and grid hold, after init_box has set the box.
  bool init_grid_common();
  // The style library's geographic text, read once in a run: the lattice, the latlong set and the
  // projection file of every latlong file need it. The scene's ESRI WKT is likewise made once.
  const std::wstring& geographic_proj();

  base_params& prm;
  bool latlong = false;
  pivot_grid grid;
  bool polar_circle = false;
  double xmin = traits::MAX;
  double ymin = traits::MAX;
  double xmax = traits::MAX;
  double ymax = traits::MAX;
  std::int64_t ix_min = 0;
  std::int64_t iy_min = 0;
  std::int64_t ix_max = 0;
  std::int64_t iy_max = 0;
  std::vector<double> main_x;
  std::vector<double> main_y;
  std::vector<double> all_x;
  std::vector<double> all_y;
  std::int32_t main_x_count = 0;
  std::int32_t main_y_count = 0;

  std::wstring hypsl_path;
  std::wstring hypsa_path;
  std::wstring hypsp_path;
  std::wstring frame_path;
  std::wstring framedig_path;
  std::wstring latlong_hypsa_path;
  std::wstring latlong_hypsl_path;
  std::wstring latlong_hypsp_path;
  std::wstring latlong_frame_path;
  std::wstring latlong_framedig_path;

  // The eight pieces of the broken outer frame of a 1:200,000 sheet, filled by the adjacent frame.
  Tvx_pp2d* top_left_pv = nullptr;
  Tvx_pp2d* top_right_pv = nullptr;
  Tvx_pp2d* bottom_left_pv = nullptr;
  Tvx_pp2d* bottom_right_pv = nullptr;
  Tvx_pp2d* left_upper_pv = nullptr;
  Tvx_pp2d* right_upper_pv = nullptr;
  Tvx_pp2d* left_lower_pv = nullptr;
  Tvx_pp2d* right_lower_pv = nullptr;

 private:
  std::wstring geographic_text;
  bool geographic_read = false;
  std::wstring scene_wkt;
  bool scene_wkt_made = false;

  void init_paths(std::wstring directory);
  const std::wstring& scene_esri();
  std::array<Tvx_pp2d**, 8> frame_pieces();
  void destroy_frame_pieces();
};

// A standard sheet, named by its designation, at 1:1,000,000 or 1:200,000.
class stdlist_generate : public base_generate {
 public:
  explicit stdlist_generate(stdlist_params& prm);

  bool execute() override;
  base_params& params() override { return sprm; }

  bool init_grid() override;
  bool init_box() override;
  double get_list_xmin() override;
  double get_list_xmax() override;
  double get_list_ymin() override;
  double get_list_ymax() override;
  void get_main_x(std::vector<double>& xs) override;
  void get_main_y(std::vector<double>& ys) override;
  void get_marks_x(std::vector<double>& xs) override;
  void get_marks_y(std::vector<double>& ys) override;

  // The area's name is the designation.
  using base_generate::generate_hyps_a_dbf;
  bool generate_hyps_a_dbf() override;
  bool reproj_back() override;

  std::wstring get_list_name() const;

 protected:
  stdlist_params sprm;
  double mid_meridian = 0.0;
  // Designations of the four neighbours, and their lengths in characters times the width of a symbol;
  // empty (and MAX) at 1:1,000,000.
  std::wstring left_name;
  std::wstring right_name;
  std::wstring top_name;
  std::wstring bottom_name;
  double left_name_width = traits::MAX;
  double right_name_width = traits::MAX;
  double top_name_width = traits::MAX;
  double bottom_name_width = traits::MAX;
  // "FrameAdj.shp" of the scene set. Its latlong counterpart is never formed: the frame of the
  // neighbours exists in the scene set only.
  std::wstring frameadj_path;
  std::wstring latlong_frameadj_path;
};

// A free box of coordinates, drawn as a northern 1:1,000,000 sheet. The caller hears true from every
// run that ends; a failed run shows only in its files.
class custom_generate : public base_generate {
 public:
  explicit custom_generate(custom_params& prm);

  bool execute() override;
  base_params& params() override { return cprm; }

  bool init_grid() override;
  bool init_box() override;
  void get_main_x(std::vector<double>& xs) override;
  void get_main_y(std::vector<double>& ys) override;
  void get_marks_x(std::vector<double>& xs) override;
  void get_marks_y(std::vector<double>& ys) override;

 protected:
  custom_params cprm;
};

}  // namespace vx::stdlist
