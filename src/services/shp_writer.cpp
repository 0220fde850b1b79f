// The shape file writer of the sheet generator and of hosts: create, append records, close.
#include <new>

#include "files/file_shp.h"
#include "services/flat_types.h"

struct Tvx_shp_basic {
  Tvx_file_shp file;
  int type = 0;
};

namespace {

bool writable_type(int type) {
  return type == VX_SHP_POINT || type == VX_SHP_POLYLINE || type == VX_SHP_POLYGON;
}

}  // namespace

extern "C" {

VX_API Tvx_shp_basic* vx_shp_file_create_w(const wchar_t* path, int type) {
  if (!path || !writable_type(type)) return nullptr;
  try {
    auto* shp = new Tvx_shp_basic();
    shp->type = type;
    shp->file.create(std::wstring(path), type);
    if (shp->file.is_open()) return shp;
    delete shp;
  } catch (const std::exception&) {
  }
  return nullptr;
}

VX_API bool vx_shp_file_add_polypoint(Tvx_shp_basic* file, Tvx_op2d* object, int type) {
  if (!object || type != file->type || type == VX_SHP_POINT) return false;
  try {
    return type == VX_SHP_POLYGON ? file->file.add_polygon(object) : file->file.add_polyline(object);
  } catch (const std::exception&) {
    return false;
  }
}

VX_API bool vx_shp_file_add_point(Tvx_shp_basic* file, Tvx_vtx_d2 point) {
  if (file->type != VX_SHP_POINT) return false;
  try {
    Tvx_point2d p{point.x, point.y};
    return file->file.add_point(&p);
  } catch (const std::exception&) {
    return false;
  }
}

VX_API void vx_shp_file_close(Tvx_shp_basic* file) {
  if (!file) return;
  try {
    file->file.close();
  } catch (const std::exception&) {
  }
  delete file;
}

}  // extern "C"
