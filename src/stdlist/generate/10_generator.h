// The sheet generator: one object alive for one generate call, which works out the sheet's box and the
// lattice of pivot points, and then runs its steps in a fixed order, each step creating, filling and
// closing one shape file with its table and projection files.
//
// base_generate is the frame and the order; stdlist_generate draws a standard sheet named by a
// designation, custom_generate a free box of coordinates. The steps are defined in the files of this
// folder, numbered in the order in which a run reaches them:
//   11  what every step uses to write: its pair of files, the parts of a record, the label tables
//   20  box and grid: the box in degrees, the graticule positions, the lattice (21 pivot grid, 22 the
//       perpendiculars drawn on it)
//   30  area: "Hypsa.shp" in "HYPS\", and the two projection files beside every shape file
//   35  degree texts: a coordinate as the degrees, minutes and seconds of labels and attributes
//   40  graticule lines: "Hypsl.shp" in "HYPS\", the meridians, parallels, polar circle and rectangle
//   45  graticule points: "Hypsp.shp" in "HYPS\", a mesh of points with their coordinates (a standard
//       sheet only)
//   50  adjacent frame: "FrameAdj.shp" in "FRAME\", the neighbours' names in the outer frame of a
//       1:200,000 sheet, and the pieces of that frame round them
//   60  frames: "Frame.shp" in "FRAME\", the nested frames round the sheet (65 the minute marks
//       drawn into the same file)
//   70  frame digits: "FrameDig.shp" in "FRAME\", the coordinate labels round the frame (71 their
//       dashes, the short base lines the labels stand on)
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

  // Degree texts. Each takes a coordinate in decimal degrees and shows its magnitude (a free box shows
  // the sign of its degrees). Seconds are rounded once, and never carried into the degrees: a value
  // less than half a second below a whole degree shows 60 minutes under the lower degree.
  // grad_min: the whole degrees (unfolded) and minutes.
  virtual void grad_min(double x, int& grad, int& min) const;
  // "DD° MM'SS\"", "DD° MM'" and "DD° ".
  virtual std::wstring grd_min_sec_str(double x) const;
  virtual std::wstring grd_min_str(double x) const;
  virtual std::wstring grd_str(double x) const;
  // The whole degrees, folded beyond 180 (181 gives 179).
  virtual int int_grad(double x) const;
  // A number's text of one character with its leading "0".
  virtual std::wstring zero(const std::wstring& s) const;
  // The minutes of the value (signed: a negative value gives minutes of no more than 0), and the seconds
  // of its magnitude.
  int int_min(double x) const;
  int int_sec(double x) const;
  // "MM'" and "SS\"" of the magnitude.
  std::wstring min_str(double x) const;
  std::wstring sec_str(double x) const;

  // Area of the sheet, "Hypsa.shp".
  virtual bool generate_hyps_a();
  virtual bool generate_hyps_a_dbf();
  bool generate_hyps_a_dbf(const std::wstring& name);
  bool generate_hyps_a_shp();

  // Graticule lines, "Hypsl.shp": the inner meridians west to east, the inner parallels south to north,
  // the polar circle where the sheet crosses it, and the sheet's rectangle last.
  virtual bool generate_hyps_l();
  // The inner meridians into x and the inner parallels into y.
  virtual void hyps_l_prepare(std::vector<double>& x, std::vector<double>& y);
  bool hyps_l_execute(const std::vector<double>& x, const std::vector<double>& y);
  bool draw_hypsl_polar_line(Tvx_shp_basic* shp, void* dbf, unsigned long long record);
  bool draw_hypsl_rectangle(Tvx_shp_basic* shp, void* dbf, int top, int east, int bottom, int west,
                            unsigned long long record);
  // The attributes of a meridian (or a parallel) at the value, in the record given.
  bool set_hypsl_dbf_vals(void* dbf, double value, unsigned long long record, bool meridian);

  // Graticule points, "Hypsp.shp": the mesh of pivot positions over the box, each point with its
  // latitude and longitude to the second.
  bool generate_hyps_p();

  // Frames, "Frame.shp": closed lines at the margins of the scale outside the sheet's edge, each vertex
  // shifted from the edge's lattice vertex along its row or column, the corners found by crossing the
  // shifted sides. Margins are in the scene's units (metres, or degrees in a geographic scene).
  bool generate_frame();
  // All frame lines of the scale; a record that cannot be written does not stop the next.
  bool generate_frames(Tvx_shp_basic* shp, void* table);
  // One closed ring at the margin (on the lattice itself for a margin of 0), one record.
  bool draw_frame(Tvx_shp_basic* shp, void* table, double margin, unsigned long long code);
  // The broken outer frame of a 1:200,000 sheet: four records, each a corner joining two of the eight
  // pieces.
  bool draw_frame200(Tvx_shp_basic* shp, void* table, unsigned long long code);
  // Appends a record of the frame table: ID, and the class code.
  bool set_frame_dbf_vals(void* table, unsigned long long code);
  // The corner of the frame at the offsets dx (west when negative) and dy (south when negative); false,
  // with out untouched, when the two shifted sides are parallel.
  bool generate_corner(double dx, double dy, Tvx_vtx_d2& out) const;
  // The crossing of the infinite lines a-b and c-d; false, with out untouched, when they are parallel.
  static bool cross_xy_lines(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2 c, Tvx_vtx_d2 d, Tvx_vtx_d2& out);
  // The eight pieces joined at the corners of the outer frame into the four records of draw_frame200:
  // a north-west, b south-west, c north-east, d south-east.
  void fill_corner_pvs(Tvx_pp2d* a, Tvx_pp2d* b, Tvx_pp2d* c, Tvx_pp2d* d) const;
  // A shifted row (x, the distance d along the columns) or column (y, d along the rows) of the lattice,
  // appended from `from` up to `to`, both included; or down from `from` to `to` + 1.
  void draw_frame_corner_x_incr(Tvx_pp2d* pv, int from, int to, int iy, double d) const;
  void draw_frame_corner_y_incr(Tvx_pp2d* pv, int from, int to, int ix, double d) const;
  void draw_frame_corner_x_decr(Tvx_pp2d* pv, int from, int to, int iy, double d) const;
  void draw_frame_corner_y_decr(Tvx_pp2d* pv, int from, int to, int ix, double d) const;

  // Minute marks, drawn into "Frame.shp" after the frames: ticks across a band outside the edge at
  // every mark, and bars along its middle over every second interval. Each gives up at the first line
  // that cannot be added.
  bool generate_min_scale_marks(Tvx_shp_basic* shp, void* dbf);
  bool generate_min_scale_marks_200(Tvx_shp_basic* shp, void* dbf);
  // At each mark a tick from `from` to `to` beyond the near side and then the far side (x: bottom, top;
  // y: left, right).
  bool short_dashes(Tvx_shp_basic* shp, void* dbf, std::vector<double> marks, double from, double to,
                    bool is_x);
  // A bar at `offset` beyond each side from mark 2k to mark 2k + 1.
  bool long_dashes(Tvx_shp_basic* shp, void* dbf, std::vector<double> marks, double offset, bool is_x);
  // At each position a tick from the edge's vertex out to `length`.
  bool special_200_dashes(Tvx_shp_basic* shp, void* dbf, std::vector<double> marks, double length, bool is_x);

  // Frame digits, "FrameDig.shp": the parallels' labels, then the meridians'.
  bool generate_frame_dig();

  // Dashes: the base lines of the coordinate labels in the frame band, each with its label record in a
  // table of labels. For every parallel a dash for the degrees above it and one for the minutes below
  // it, on both sides; for every meridian one dash for degrees and minutes, at the bottom and the top.
  bool draw_two_paral_dashes(Tvx_shp_basic* shp, void* dbf);
  bool draw_paral_corner_dashes(Tvx_shp_basic* shp, void* dbf, bool right, bool top, double offset);
  // The two dashes of a parallel beside the chord a-b (a on the frame, b at the dash's offset along the
  // row): p1-p2 starts on the right of the direction a to b, p3-p4 on its left; both run eastwards, dx1
  // and dx2 long in x (the other way round unless keep_order).
  bool get_two_paral_dashes(Tvx_vtx_d2 a, Tvx_vtx_d2 b, Tvx_vtx_d2& p1, Tvx_vtx_d2& p2, Tvx_vtx_d2& p3,
                            Tvx_vtx_d2& p4, double dx1, double dx2, bool keep_order) const;
  bool draw_merid_dash(Tvx_shp_basic* shp, void* dbf);
  bool draw_merid_corner_dash(Tvx_shp_basic* shp, void* dbf, bool right, bool top, double offset);
  // Appends the label record of a coordinate: class code 400912, the text, the font and its size.
  void set_dig_dbf_vals(void* dbf, const std::wstring& text);

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
  void add_box_ring(Tvx_pp2d* part, int west, int east, int bottom, int top) const;
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
  // The corners of a frame at the margin: south-west, north-west, north-east, south-east.
  std::array<Tvx_vtx_d2, 4> frame_corners(double margin) const;
  // The two dashes of a parallel at the lattice vertex, `offset` out along its row: the first starts on
  // the right of the outward direction and the second on its left; the dash with the degrees is the first
  // on the left side of the sheet and the second on the right side.
  void paral_dashes(int ix, int iy, double offset, bool right, std::vector<Tvx_vtx_d2>& first,
                    std::vector<Tvx_vtx_d2>& second) const;
  // The dash of a meridian across the lattice vertex's column, `offset` out along it: from d1 on the
  // left of the outward direction to d2 on its right.
  std::vector<Tvx_vtx_d2> merid_dash(int ix, int iy, double offset, double d1, double d2) const;
  const std::wstring& scene_esri();
  // One mark line with its record of the frame table.
  bool add_mark(Tvx_shp_basic* shp, void* dbf, Tvx_vtx_d2 a, Tvx_vtx_d2 b);
  // The point d beyond the edge on the lattice line of the mark: below or above the sheet for x, left
  // or right of it for y.
  Tvx_vtx_d2 beyond_edge(double mark, bool is_x, bool far_side, double d) const;
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

  // The frame of the adjacent sheets, "FrameAdj.shp" (1:200,000 only, before the frames): the four
  // neighbours' names on the middle stretches of the outer frame's sides, left, right, top, bottom.
  bool generate_frame_adj();
  bool draw_adj_dashes(Tvx_shp_basic* shp, void* dbf);
  // The middle stretches into the arguments, the outer pieces into the generator's eight pieces.
  void cut_sides_into_three_pieces(Tvx_pp2d* left, Tvx_pp2d* right, Tvx_pp2d* top, Tvx_pp2d* bottom);
  // Appends the record of a neighbour's name: class code 400911, the text, the font and its size.
  void set_adj_dbf_vals(void* dbf, const std::wstring& text);

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

  // A free box keeps the sign of its degrees: "-05° 15'".
  int int_grad(double x) const override;
  std::wstring zero(const std::wstring& s) const override;
  std::wstring grd_str(double x) const override;
  std::wstring grd_min_str(double x) const override;
  std::wstring grd_min_sec_str(double x) const override;

 protected:
  custom_params cprm;
};

}  // namespace vx::stdlist
