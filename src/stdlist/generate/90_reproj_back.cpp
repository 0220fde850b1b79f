// The last step of a run: every finished file of the scene set goes back to the sheet's geographic
// system, into the "latlong\" folders, with its table and projection files. The scene set stays as it
// is; what stands in the latlong folders is overwritten.
#include "stdlist/generate/10_generator.h"
#include "support/filesystem.h"

namespace vx::stdlist {

namespace {

bool folder_exists(const std::wstring& path) {
  return vx::filesystem::path_exist(vx::filesystem::directory(path));
}

}  // namespace

// "Hypsa.shp" and its latlong folder must be there; the other files are copied when they and their
// folders are, and a missing one is skipped. The projection files of every latlong path are written
// afterwards, whether its shape file exists or not.
bool base_generate::reproj_back() {
  const std::wstring geographic = geographic_proj();
  const std::wstring scene = prm.get_scene_proj();
  const std::wstring* const latlong_paths[] = {&latlong_hypsa_path, &latlong_hypsl_path, &latlong_hypsp_path,
                                               &latlong_frame_path, &latlong_framedig_path};
  const std::wstring* const scene_paths[] = {&hypsa_path, &hypsl_path, &hypsp_path, &frame_path,
                                             &framedig_path};
  bool folders[5];
  for (int i = 0; i < 5; ++i) folders[i] = folder_exists(*latlong_paths[i]);
  if (!vx::filesystem::path_exist(hypsa_path) || !folders[0]) return false;
  if (scene.empty() || geographic.empty()) return false;
  if (!vx_proj4_shp_w(hypsa_path.c_str(), scene.c_str(), latlong_hypsa_path.c_str(), geographic.c_str()))
    return false;
  for (int i = 1; i < 5; ++i) {
    if (!vx::filesystem::path_exist(*scene_paths[i]) || !folders[i]) continue;
    if (!vx_proj4_shp_w(scene_paths[i]->c_str(), scene.c_str(), latlong_paths[i]->c_str(),
                        geographic.c_str()))
      return false;
  }
  for (const std::wstring* path : latlong_paths) {
    if (!crt_proj_latlong(*path)) return false;
  }
  return true;
}

// "FrameAdj.shp" would follow the others if its latlong path were ever formed; it is not, so the frame
// of the neighbours has no latlong copy.
bool stdlist_generate::reproj_back() {
  const bool adj_folder = folder_exists(latlong_frameadj_path);
  const std::wstring geographic = geographic_proj();
  const std::wstring scene = prm.get_scene_proj();
  if (!base_generate::reproj_back()) return false;
  if (vx::filesystem::path_exist(frameadj_path) && adj_folder &&
      !vx_proj4_shp_w(frameadj_path.c_str(), scene.c_str(), latlong_frameadj_path.c_str(),
                      geographic.c_str()))
    return false;
  return adj_folder ? crt_proj_latlong(latlong_frameadj_path) : true;
}

}  // namespace vx::stdlist
