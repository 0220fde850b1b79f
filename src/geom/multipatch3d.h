// The multipatch: the surface geometry of the shape file format, a list of patches, each a typed
// vertex vector with z.
#pragma once

#include <memory>
#include <vector>

#include "geom/pp3d.h"

// Kinds of patch. The shape file maps its part types to these and back.
enum Tvx_patch_3d_type {
  vx_patch_unknown = 0,
  vx_patch_triangle_strip = 1,
  vx_patch_triangle_fan = 2,
  vx_patch_outer_ring = 3,
  vx_patch_inner_ring = 4,
  vx_patch_ring = 6
};

class Tvx_patch3d {
 public:
  Tvx_patch3d() : pp(std::make_unique<Tvx_pp3d>()) {}
  Tvx_patch3d(const Tvx_patch3d&) = delete;
  Tvx_patch3d& operator=(const Tvx_patch3d&) = delete;
  virtual ~Tvx_patch3d() = default;

  static void delete_obj(Tvx_patch3d** p);

  Tvx_patch_3d_type get_type() const { return type; }
  void set_type(Tvx_patch_3d_type t) { type = t; }
  // The vertices, still owned by the patch; never null.
  Tvx_pp3d* get_pp_ptr() const { return pp.get(); }
  Tvx_rect3d get_rect() { return pp->get_rect(); }
  // Copies the type and the vertices.
  void assign(const Tvx_patch3d* other);

 private:
  Tvx_patch_3d_type type = vx_patch_unknown;
  std::unique_ptr<Tvx_pp3d> pp;
};

class Tvx_multipatch3d {
 public:
  Tvx_multipatch3d() = default;
  Tvx_multipatch3d(const Tvx_multipatch3d&) = delete;
  Tvx_multipatch3d& operator=(const Tvx_multipatch3d&) = delete;
  virtual ~Tvx_multipatch3d() = default;

  static void delete_obj(Tvx_multipatch3d** p);

  // Patches; indices are not checked. A patch stays owned by the multipatch.
  int get_size() const { return static_cast<int>(patches.size()); }
  Tvx_patch3d* get(int i) const { return patches[i].get(); }
  // Shrinking frees the surplus patches, growing appends empty patches of type 0.
  void set_size(int n);
  void clear() { patches.clear(); }
  // Sets the size first, then copies type and vertices patch by patch, reusing the patches there are.
  void assign(const Tvx_multipatch3d* other);
  // The union of the patches' boxes; undefined when all patches are empty.
  Tvx_rect3d get_rect();
  Tvx_patch3d* add();
  Tvx_patch3d* add_copy(const Tvx_patch3d* patch);
  void add_copy(const Tvx_multipatch3d* mp);

 private:
  std::vector<std::unique_ptr<Tvx_patch3d>> patches;
};

// A list of owned multipatches.
class Tvx_multipatch3d_vec {
 public:
  Tvx_multipatch3d_vec() = default;
  Tvx_multipatch3d_vec(const Tvx_multipatch3d_vec&) = delete;
  Tvx_multipatch3d_vec& operator=(const Tvx_multipatch3d_vec&) = delete;
  virtual ~Tvx_multipatch3d_vec() = default;

  static void delete_obj(Tvx_multipatch3d_vec** p);

  int get_size() const { return static_cast<int>(items.size()); }
  Tvx_multipatch3d* get(int i) const { return items[i].get(); }
  void set_size(int n);
  void clear() { items.clear(); }
  void assign(const Tvx_multipatch3d_vec* other);
  Tvx_rect3d get_rect();
  Tvx_multipatch3d* add();

 private:
  std::vector<std::unique_ptr<Tvx_multipatch3d>> items;
};
