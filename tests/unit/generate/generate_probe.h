// Generators whose inner state the tests may read.
#pragma once

#include "stdlist/generate/10_generator.h"

namespace vxk_test {

template <typename Generator>
struct probe : Generator {
  using Generator::add_box_ring;
  using Generator::all_x;
  using Generator::all_y;
  using Generator::bottom_left_pv;
  using Generator::bottom_right_pv;
  using Generator::frame_path;
  using Generator::framedig_path;
  using Generator::Generator;
  using Generator::grid;
  using Generator::hypsa_path;
  using Generator::hypsl_path;
  using Generator::hypsp_path;
  using Generator::ix_max;
  using Generator::ix_min;
  using Generator::iy_max;
  using Generator::iy_min;
  using Generator::latlong;
  using Generator::latlong_frame_path;
  using Generator::latlong_framedig_path;
  using Generator::latlong_hypsa_path;
  using Generator::latlong_hypsl_path;
  using Generator::latlong_hypsp_path;
  using Generator::left_lower_pv;
  using Generator::left_upper_pv;
  using Generator::main_x;
  using Generator::main_x_count;
  using Generator::main_y;
  using Generator::main_y_count;
  using Generator::polar_circle;
  using Generator::right_lower_pv;
  using Generator::right_upper_pv;
  using Generator::top_left_pv;
  using Generator::top_right_pv;
  using Generator::xmax;
  using Generator::xmin;
  using Generator::ymax;
  using Generator::ymin;
};

struct sheet_probe : probe<vx::stdlist::stdlist_generate> {
  using probe::probe;
  using stdlist_generate::bottom_name;
  using stdlist_generate::bottom_name_width;
  using stdlist_generate::frameadj_path;
  using stdlist_generate::latlong_frameadj_path;
  using stdlist_generate::left_name;
  using stdlist_generate::left_name_width;
  using stdlist_generate::mid_meridian;
  using stdlist_generate::right_name;
  using stdlist_generate::right_name_width;
  using stdlist_generate::top_name;
  using stdlist_generate::top_name_width;
};

using box_probe = probe<vx::stdlist::custom_generate>;

}  // namespace vxk_test
