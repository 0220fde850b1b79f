// The frame digits, "FrameDig.shp" in "FRAME\": the base lines of the coordinate labels round the sheet,
// each with its text, font and size in the table. The dashes themselves are drawn by the parallels'
// and meridians' dash operations; this step holds the file open for them.
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/11_step_files.h"

namespace vx::stdlist {

bool base_generate::generate_frame_dig() {
  step_files files;
  if (!create_label_files(files, framedig_path)) return false;
  if (!draw_two_paral_dashes(files.shp, files.table) || !draw_merid_dash(files.shp, files.table))
    return false;
  return crt_proj_scn(framedig_path);
}

}  // namespace vx::stdlist
