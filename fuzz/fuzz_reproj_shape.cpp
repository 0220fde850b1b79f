// Shape file reprojection on hostile input: the bytes become a .shp and its .shx, which are reprojected
// into a scratch folder. Input layout: a little-endian 32-bit length L, then L bytes of .shp (fewer if
// the input ends first), then the rest as .shx. No count or offset in either file may make the run read
// out of bounds, loop for ever or allocate without bound.
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>

#include "reproj/reproj_shape.h"
#include "scratch.h"

namespace {

std::filesystem::path scratch() {
  return vxk_fuzz::scratch_folder("reproj_shape");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  uint32_t shp_len = 0;
  if (size >= 4) std::memcpy(&shp_len, data, 4);
  const size_t body = size >= 4 ? size - 4 : 0;
  const size_t shp_size = shp_len < body ? shp_len : body;
  const uint8_t* shp = data + (size >= 4 ? 4 : size);
  vxk_fuzz::write_file(scratch() / "src.shp", shp, shp_size);
  vxk_fuzz::write_file(scratch() / "src.shx", shp + shp_size, body - shp_size);
  // The far side of the globe is outside an orthographic view, so that failing records occur too.
  Tvx_reproj_shape::execute((scratch() / "src.shp").c_str(), "+proj=longlat +ellps=krass +no_defs",
                            (scratch() / "dst.shp").c_str(), "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass");
  return 0;
}
