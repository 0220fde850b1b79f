#include "stdlist/generate/00_params.h"

#include "stdlist/helper_200.h"
#include "stdlist/helper_mln.h"
#include "stdlist/traits.h"

namespace vx::stdlist {

void base_params::set_scene_proj(const std::wstring& proj) {
  if (&proj != &scene_proj_) scene_proj_ = proj;
}

void stdlist_params::set_lon_divs(int main, int additional) {
  main_x_ = main;
  addt_x_ = additional;
}

void stdlist_params::set_lat_divs(int main, int additional) {
  main_y_ = main;
  addt_y_ = additional;
}

void stdlist_params::get_lon_divs(int& main, int& additional) const {
  main = main_x_;
  additional = addt_x_;
}

void stdlist_params::get_lat_divs(int& main, int& additional) const {
  main = main_y_;
  additional = addt_y_;
}

void stdlist_params::get_neighbors(Tvx_stdlist_hemisphere hemisphere, std::uint64_t letter,
                                   std::uint64_t number, std::uint64_t roman_idx, std::wstring& left,
                                   std::wstring& right, std::wstring& upper, std::wstring& lower,
                                   Tvx_stdlist_type type) const {
  helper_200::get_neighbor_list_str(hemisphere, letter, number, roman_idx, left, right, upper, lower, type);
}

bool stdlist_params::includes_polar() const {
  return helper_mln::has_polar(get_mln_letter()) &&
         (helper_200::has_polar(get_200_roman_idx()) || get_scale() == VX_STDLIST_SC_MLN);
}

custom_params::custom_params()
    : xmin_(traits::MAX), xmax_(traits::MAX), ymin_(traits::MAX), ymax_(traits::MAX) {}

void custom_params::set_grid_steps(double x_step, double y_step) {
  x_step_ = x_step;
  y_step_ = y_step;
}

void custom_params::get_grid_steps(double& x_step, double& y_step) const {
  x_step = x_step_;
  y_step = y_step_;
}

void custom_params::set_box(double xmin, double xmax, double ymin, double ymax) {
  xmin_ = xmin;
  xmax_ = xmax;
  ymin_ = ymin;
  ymax_ = ymax;
}

void custom_params::get_box(double& xmin, double& xmax, double& ymin, double& ymax) const {
  xmin = xmin_;
  xmax = xmax_;
  ymin = ymin_;
  ymax = ymax_;
}

}  // namespace vx::stdlist
