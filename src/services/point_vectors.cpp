// Point vectors and object vectors for hosts and for the sheet generator: the flat form of Tvx_pp2d
// and Tvx_op2d.
#include <climits>
#include <new>

#include "geom/op2d.h"
#include "geom/pp2d.h"
#include "services/flat_types.h"

namespace {

bool in_range(const Tvx_pp2d* vector, uint32_t index) {
  return index < static_cast<uint32_t>(vector->get_size());
}

}  // namespace

extern "C" {

VX_API Tvx_pp2d* vx_pv_d2_create(void) {
  return new (std::nothrow) Tvx_pp2d();
}

VX_API void vx_pv_d2_destroy(Tvx_pp2d* vector) {
  delete vector;
}

VX_API void vx_pv_d2_clear(Tvx_pp2d* vector) {
  vector->clear();
}

VX_API void vx_pv_d2_set_size(Tvx_pp2d* vector, uint32_t count) {
  if (count > static_cast<uint32_t>(INT_MAX)) return;
  try {
    vector->set_size(static_cast<int>(count));
  } catch (const std::exception&) {
  }
}

VX_API uint32_t vx_pv_d2_get_size(const Tvx_pp2d* vector) {
  return static_cast<uint32_t>(vector->get_size());
}

VX_API Tvx_vtx_d2 vx_pv_d2_get_vtx(const Tvx_pp2d* vector, uint32_t index) {
  if (!in_range(vector, index)) return Tvx_vtx_d2{0.0, 0.0};
  const Tvx_point2d p = vector->get(static_cast<int>(index));
  return Tvx_vtx_d2{p.x, p.y};
}

VX_API void vx_pv_d2_set_vtx(Tvx_pp2d* vector, uint32_t index, Tvx_vtx_d2 vertex) {
  if (in_range(vector, index)) vector->set(static_cast<int>(index), Tvx_point2d{vertex.x, vertex.y});
}

VX_API void vx_pv_d2_add_vtx(Tvx_pp2d* vector, Tvx_vtx_d2 vertex) {
  try {
    vector->add(vertex.x, vertex.y);
  } catch (const std::exception&) {
  }
}

VX_API void vx_pv_d2_add_pv(Tvx_pp2d* vector, const Tvx_pp2d* other) {
  try {
    vector->add(other, false);
  } catch (const std::exception&) {
  }
}

VX_API void vx_pv_d2_assign(Tvx_pp2d* vector, const Tvx_pp2d* other) {
  try {
    vector->assign(other);
  } catch (const std::exception&) {
  }
}

VX_API double vx_pv_d2_get_length(const Tvx_pp2d* vector) {
  return vector->calc_length();
}

VX_API Tvx_op2d* vx_ov_d2_create(void) {
  return new (std::nothrow) Tvx_op2d();
}

VX_API Tvx_pp2d* vx_ov_d2_add(Tvx_op2d* object) {
  try {
    return object->add();
  } catch (const std::exception&) {
    return nullptr;
  }
}

VX_API void vx_ov_d2_clear(Tvx_op2d* object) {
  object->clear();
}

VX_API void vx_ov_d2_destroy(Tvx_op2d* object) {
  delete object;
}

}  // extern "C"
