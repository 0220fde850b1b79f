// Fuzz target of the shape file reader. The input is a .shp/.shx pair: the first four bytes
// (little-endian) give the length of the .shp part, the .shx is the rest.
#include <unistd.h>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "files/file_shp.h"

namespace {

std::string g_folder;

// The scratch folder goes when the process ends.
void remove_scratch_folder() {
  for (const char* name : {"f.shp", "f.shx"}) std::remove((g_folder + "/" + name).c_str());
  rmdir(g_folder.c_str());
}

const std::string& scratch_folder() {
  static const std::string folder = [] {
    char name[] = "/tmp/vxk_fuzz_shp_XXXXXX";
    const char* made = mkdtemp(name);
    if (!made) return std::string("/tmp");
    g_folder = made;
    std::atexit(remove_scratch_folder);
    return g_folder;
  }();
  return folder;
}

void write_file(const std::string& path, const uint8_t* data, size_t size) {
  if (FILE* f = std::fopen(path.c_str(), "wb")) {
    if (size) std::fwrite(data, 1, size, f);
    std::fclose(f);
  }
}

void read_record(Tvx_file_shp& shp, unsigned i) {
  switch (shp.get_obj_type(i)) {
    case SHP_POINT: {
      Tvx_point2d p;
      shp.get_point(&p);
      break;
    }
    case SHP_POLYLINE:
    case SHP_POLYGON: {
      Tvx_op2d op;
      shp.get_polyline(&op);
      break;
    }
    case SHP_MULTIPOINT: {
      Tvx_pp2d pp;
      shp.get_multipoint(&pp);
      break;
    }
    case SHP_POINT_Z: {
      Tvx_point3d p;
      shp.get_point_z(&p);
      break;
    }
    case SHP_POLYLINE_Z:
    case SHP_POLYGON_Z: {
      Tvx_op3d op;
      shp.get_polygon_z(&op);
      break;
    }
    case SHP_MULTIPOINT_Z: {
      Tvx_pp3d pp;
      shp.get_multipoint_z(&pp);
      break;
    }
    case SHP_MULTIPATCH: {
      Tvx_multipatch3d mp;
      shp.get_multipatch(&mp);
      break;
    }
    default:
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 4) return 0;
  const size_t split =
      (data[0] | data[1] << 8 | data[2] << 16 | static_cast<size_t>(data[3]) << 24) % (size - 3);
  const std::string shp_path = scratch_folder() + "/f.shp";
  write_file(shp_path, data + 4, split);
  write_file(scratch_folder() + "/f.shx", data + 4 + split, size - 4 - split);
  Tvx_file_shp shp;
  shp.open(shp_path.c_str(), true);
  (void)shp.get_rect2d();
  const unsigned count = shp.get_no() < 256 ? shp.get_no() : 256;
  for (unsigned i = 0; i < count; ++i) read_record(shp, i);
  read_record(shp, count);
  return 0;
}
