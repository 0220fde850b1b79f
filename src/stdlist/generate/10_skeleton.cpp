// The generator's frame: construction, output paths, and the order of the steps of each kind of run.
#include <new>

#include "stdlist/generate/10_generator.h"

namespace vx::stdlist {

base_generate::base_generate(base_params& p) : prm(p) {
  init_paths(prm.get_output_dir());
  latlong = vx_pj4_is_longlat_w(prm.get_scene_proj().c_str());
  bool created = true;
  for (Tvx_pp2d** piece : frame_pieces()) created = (*piece = vx_pv_d2_create()) != nullptr && created;
  if (created) return;
  destroy_frame_pieces();
  throw std::bad_alloc();
}

base_generate::~base_generate() {
  destroy_frame_pieces();
}

std::array<Tvx_pp2d**, 8> base_generate::frame_pieces() {
  return {&top_left_pv,   &top_right_pv,   &bottom_left_pv, &bottom_right_pv,
          &left_upper_pv, &right_upper_pv, &left_lower_pv,  &right_lower_pv};
}

void base_generate::destroy_frame_pieces() {
  for (Tvx_pp2d** piece : frame_pieces()) {
    vx_pv_d2_destroy(*piece);
    *piece = nullptr;
  }
}

// Plain concatenation: the directory is expected to end in a separator, and nothing is added or
// normalised.
void base_generate::init_paths(std::wstring directory) {
  hypsa_path = directory + traits::hyps_dir + traits::hypsa_shp;
  hypsl_path = directory + traits::hyps_dir + traits::hypsl_shp;
  hypsp_path = directory + traits::hyps_dir + traits::hypsp_shp;
  frame_path = directory + traits::frame_dir + traits::frame_shp;
  framedig_path = directory + traits::frame_dir + traits::framedig_shp;
  latlong_hypsa_path = directory + traits::latlong_hyps_dir + traits::hypsa_shp;
  latlong_hypsl_path = directory + traits::latlong_hyps_dir + traits::hypsl_shp;
  latlong_hypsp_path = directory + traits::latlong_hyps_dir + traits::hypsp_shp;
  latlong_frame_path = directory + traits::latlong_frame_dir + traits::frame_shp;
  latlong_framedig_path = directory + traits::latlong_frame_dir + traits::framedig_shp;
}

bool base_generate::valid(double value) {
  return traits::is_set(value);
}

bool base_generate::execute() {
  init_grid();
  if (!generate_hyps_a() || !generate_hyps_l() || !generate_frame() || !generate_frame_dig()) return false;
  return reproj_back();
}

stdlist_generate::stdlist_generate(stdlist_params& p) : base_generate(p), sprm(p) {}

bool stdlist_generate::execute() {
  init_grid();
  grid.debug_save_shp((prm.get_output_dir() + L"debug_save_shp.shp").c_str());
  if (!generate_hyps_a() || !generate_hyps_l() || !generate_hyps_p()) return false;
  if (sprm.scale_is_200() && !generate_frame_adj()) return false;
  if (!generate_frame() || !generate_frame_dig()) return false;
  return reproj_back();
}

std::wstring stdlist_generate::get_list_name() const {
  std::wstring name;
  return sprm.get_output_string(name);
}

custom_generate::custom_generate(custom_params& p) : base_generate(p), cprm(p) {}

// A free box tells its caller true whichever step ended the run.
bool custom_generate::execute() {
  init_grid();
  if (generate_hyps_a() && generate_hyps_l() && generate_frame() && generate_frame_dig()) reproj_back();
  return true;
}

}  // namespace vx::stdlist
