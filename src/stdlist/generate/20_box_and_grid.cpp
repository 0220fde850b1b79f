// Where the sheet lies and which positions its drawing needs: the box in degrees of the sheet's
// geographic projection, the main lines and marks of each axis, the pivot positions, and the lattice
// built from all of them.
#include "stdlist/generate/20_box_and_grid.h"

#include <climits>
#include <cmath>
#include <limits>

#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/22_sheet_box.h"

namespace vx::stdlist {

namespace axis {

std::int32_t cut32(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return INT32_MIN;
  return static_cast<std::int32_t>(value);
}

std::uint64_t cut_u64(double value) {
  if (!(value >= 1.0)) return 0;
  if (value >= 18446744073709551616.0) return std::numeric_limits<std::uint64_t>::max();
  return static_cast<std::uint64_t>(value);
}

std::vector<double> sheet_main(double a, double b, int n) {
  std::vector<double> out;
  if (n < 2) return out;
  const double step = (b - a) / n;
  for (int k = 1; k < n; ++k) out.push_back(a + k * step);
  return out;
}

// A product of 0 would divide by 0: such divisions are refused before a run, and give no marks here.
std::vector<double> sheet_marks(double a, double b, int n, int m) {
  std::vector<double> out;
  const std::int64_t q = static_cast<std::int64_t>(n) * m;
  if (q < 1) return out;
  const double step = (b - a) / static_cast<double>(q);
  for (std::int64_t k = 0; k <= q; ++k) out.push_back(a + static_cast<double>(k) * step);
  return out;
}

// Errors add up as they do in a running sum; a sum that stops growing ends the list.
std::vector<double> box_main(double a, double b, double step) {
  std::vector<double> out;
  for (double v = static_cast<double>(cut32(a / step)) * step + step; v < b;) {
    out.push_back(v);
    const double next = v + step;
    if (!(next > v)) break;
    v = next;
  }
  return out;
}

std::vector<double> box_marks(double a, double b, double step) {
  std::vector<double> out;
  const std::uint64_t u = cut_u64(step);
  if (u == 0) return out;
  const std::int32_t q = cut32((b - a) / static_cast<double>(u));
  for (std::int64_t k = 0; k <= q; ++k)
    out.push_back(a + static_cast<double>(static_cast<std::uint64_t>(k) * u));
  return out;
}

std::vector<double> pivots(double a, double b, int count) {
  std::vector<double> out;
  if (count <= 0) return out;
  const double step = (b - a) / (count - 1);
  for (int i = 0; i < count; ++i) out.push_back(a + i * step);
  return out;
}

std::int64_t sheet_main_count(int n) {
  return n >= 2 ? n - 1 : 0;
}

std::int64_t sheet_marks_count(int n, int m) {
  const std::int64_t q = static_cast<std::int64_t>(n) * m;
  return q < 1 ? 0 : q + 1;
}

std::int64_t box_main_count(double a, double b, double step) {
  const double first = static_cast<double>(cut32(a / step)) * step + step;
  if (!(first < b)) return 0;
  const double count = std::ceil((b - first) / step);
  return count < 9e18 ? static_cast<std::int64_t>(count) : std::numeric_limits<std::int64_t>::max();
}

std::int64_t box_marks_count(double a, double b, double step) {
  const std::uint64_t u = cut_u64(step);
  if (u == 0) return 0;
  const std::int32_t q = cut32((b - a) / static_cast<double>(u));
  return q < 0 ? 0 : static_cast<std::int64_t>(q) + 1;
}

}  // namespace axis

// ---- the common part ----------------------------------------------------------------------------------

bool base_generate::init_box() {
  xmin = ymin = xmax = ymax = 0.0;
  return true;
}

double base_generate::get_list_xmin() {
  return xmin;
}

double base_generate::get_list_xmax() {
  return xmax;
}

double base_generate::get_list_ymin() {
  return ymin;
}

double base_generate::get_list_ymax() {
  return ymax;
}

void base_generate::get_main_x(std::vector<double>&) {}
void base_generate::get_main_y(std::vector<double>&) {}
void base_generate::get_marks_x(std::vector<double>&) {}
void base_generate::get_marks_y(std::vector<double>&) {}

bool base_generate::init_grid() {
  return init_grid_common();
}

namespace {

// The latitude of the north polar circle, 66 degrees 33.64 minutes.
constexpr double POLAR_CIRCLE = 66.56072222222222;

}  // namespace

// Every position the drawing will need goes into the lattice: the box edges, the main lines, the pivot
// positions, the marks, and one column and row outside each edge, never drawn, which give each edge
// vertex a neighbour for offsets outwards.
bool base_generate::init_grid_common() {
  grid.add_x(xmin);
  grid.add_x(xmax);
  grid.add_y(ymin);
  grid.add_y(ymax);
  get_main_x(main_x);
  grid.add_vec_x(main_x);
  get_main_y(main_y);
  grid.add_vec_y(main_y);
  all_x = {xmin};
  all_x.insert(all_x.end(), main_x.begin(), main_x.end());
  all_x.push_back(xmax);
  all_y = {ymin};
  all_y.insert(all_y.end(), main_y.begin(), main_y.end());
  all_y.push_back(ymax);
  main_x_count = static_cast<std::int32_t>(main_x.size());
  main_y_count = static_cast<std::int32_t>(main_y.size());

  const int count = traits::get_pivot_points(prm.get_scale());
  grid.add_vec_x(axis::pivots(xmin, xmax, count));
  grid.add_vec_y(axis::pivots(ymin, ymax, count));
  std::vector<double> marks_x;
  get_marks_x(marks_x);
  grid.add_vec_x(marks_x);
  std::vector<double> marks_y;
  get_marks_y(marks_y);
  grid.add_vec_y(marks_y);
  grid.add_vec_x({xmin - 1.0, xmax + 1.0});
  grid.add_vec_y({ymin - 1.0, ymax + 1.0});

  const std::wstring geographic = geographic_proj();
  const std::wstring scene = prm.get_scene_proj();
  if (ymin < POLAR_CIRCLE && ymax > POLAR_CIRCLE) {
    grid.add_y(POLAR_CIRCLE);
    polar_circle = true;
  }
  grid.generate(geographic, scene);
  ix_min = grid.find_x(xmin);
  iy_min = grid.find_y(ymin);
  ix_max = grid.find_x(xmax);
  iy_max = grid.find_y(ymax);
  return true;
}

// ---- a standard sheet ---------------------------------------------------------------------------------

bool stdlist_generate::init_grid() {
  init_box();
  const Tvx_stdlist_scale scale = sprm.get_scale();
  if (scale != VX_STDLIST_SC_MLN) {
    sprm.get_neighbors(sprm.get_hemisphere(), sprm.get_mln_letter(), sprm.get_mln_number(),
                       sprm.get_200_roman_idx(), left_name, right_name, top_name, bottom_name,
                       sprm.get_type());
  }
  const double symbol = traits::get_symb_width(scale, latlong);
  top_name_width = static_cast<double>(top_name.size()) * symbol;
  bottom_name_width = static_cast<double>(bottom_name.size()) * symbol;
  left_name_width = static_cast<double>(left_name.size()) * symbol;
  right_name_width = static_cast<double>(right_name.size()) * symbol;
  frameadj_path = prm.get_output_dir() + traits::frame_dir + traits::frameadj_shp;
  return init_grid_common();
}

bool stdlist_generate::init_box() {
  mid_meridian = static_cast<double>(sprm.get_mid_meridian());
  xmin = get_list_xmin();
  xmax = get_list_xmax();
  ymin = get_list_ymin();
  ymax = get_list_ymax();
  return true;
}

// The edges are the ones the library gives hosts for a sheet (sheet_box), so that a box asked for is
// the box drawn.
double stdlist_generate::get_list_xmin() {
  return sheet_box::list_xmin(*sprm.sheet(), mid_meridian);
}

double stdlist_generate::get_list_xmax() {
  return xmin + traits::width(sprm.get_scale(), sprm.get_type());
}

double stdlist_generate::get_list_ymin() {
  return sheet_box::list_ymin(*sprm.sheet());
}

double stdlist_generate::get_list_ymax() {
  return ymin + traits::height(sprm.get_scale());
}

void stdlist_generate::get_main_x(std::vector<double>& xs) {
  xs = axis::sheet_main(xmin, xmax, sprm.get_main_x());
}

void stdlist_generate::get_main_y(std::vector<double>& ys) {
  ys = axis::sheet_main(ymin, ymax, sprm.get_main_y());
}

void stdlist_generate::get_marks_x(std::vector<double>& xs) {
  xs = axis::sheet_marks(xmin, xmax, sprm.get_main_x(), sprm.get_addt_x());
}

void stdlist_generate::get_marks_y(std::vector<double>& ys) {
  ys = axis::sheet_marks(ymin, ymax, sprm.get_main_y(), sprm.get_addt_y());
}

// ---- a free box -----------------------------------------------------------------------------------------

bool custom_generate::init_grid() {
  init_box();
  return init_grid_common();
}

bool custom_generate::init_box() {
  cprm.get_box(xmin, xmax, ymin, ymax);
  return true;
}

void custom_generate::get_main_x(std::vector<double>& xs) {
  xs = axis::box_main(xmin, xmax, cprm.get_x_step());
}

void custom_generate::get_main_y(std::vector<double>& ys) {
  ys = axis::box_main(ymin, ymax, cprm.get_y_step());
}

void custom_generate::get_marks_x(std::vector<double>& xs) {
  xs = axis::box_marks(xmin, xmax, cprm.get_x_step());
}

void custom_generate::get_marks_y(std::vector<double>& ys) {
  ys = axis::box_marks(ymin, ymax, cprm.get_y_step());
}

}  // namespace vx::stdlist
