// Fuzz target of the shape file reader. The input is a .shp/.shx pair: the first four bytes
// (little-endian) give the length of the .shp part, the .shx is the rest.
#include <cstddef>
#include <cstdint>
#include <string>

#include "files/file_shp.h"
#include "scratch.h"

namespace {

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
  const std::string shp_path = vxk_fuzz::scratch_folder("shp") + "/f.shp";
  vxk_fuzz::write_file(shp_path, data + 4, split);
  vxk_fuzz::write_file(vxk_fuzz::scratch_folder("shp") + "/f.shx", data + 4 + split, size - 4 - split);
  Tvx_file_shp shp;
  shp.open(shp_path.c_str(), true);
  (void)shp.get_rect2d();
  const unsigned count = shp.get_no() < 256 ? shp.get_no() : 256;
  for (unsigned i = 0; i < count; ++i) read_record(shp, i);
  read_record(shp, count);
  return 0;
}
