// Shape file reprojection on hostile input: the bytes become a .shp and its .shx, which are reprojected
// into a scratch folder. Input layout: a little-endian 32-bit length L, then L bytes of .shp (fewer if
// the input ends first), then the rest as .shx. No count or offset in either file may make the run read
// out of bounds, loop for ever or allocate without bound.
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "reproj/reproj_shape.h"

namespace {

void write_file(const std::filesystem::path& p, const uint8_t* data, size_t size) {
  std::ofstream out(p, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

const std::filesystem::path& scratch() {
  static const std::filesystem::path dir = [] {
    auto p = std::filesystem::temp_directory_path() / ("vxk_fuzz_reproj_shape_" + std::to_string(getpid()));
    std::filesystem::create_directories(p);
    return p;
  }();
  return dir;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  uint32_t shp_len = 0;
  if (size >= 4) std::memcpy(&shp_len, data, 4);
  const size_t body = size >= 4 ? size - 4 : 0;
  const size_t shp_size = shp_len < body ? shp_len : body;
  const uint8_t* shp = data + (size >= 4 ? 4 : size);
  write_file(scratch() / "src.shp", shp, shp_size);
  write_file(scratch() / "src.shx", shp + shp_size, body - shp_size);
  // The far side of the globe is outside an orthographic view, so that failing records occur too.
  Tvx_reproj_shape::execute((scratch() / "src.shp").c_str(), "+proj=longlat +ellps=krass +no_defs",
                            (scratch() / "dst.shp").c_str(), "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass");
  return 0;
}
