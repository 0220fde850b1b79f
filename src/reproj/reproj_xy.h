// Point reprojection with an optional affine step before and after the PROJ transformation.
#pragma once

#include <memory>
#include <string>

#include "reproj/matrix3x3.h"
#include "reproj/reproj_xy_exec.h"
#include "reproj/xy_array.h"

class Tvx_reproj_xy {
 public:
  Tvx_reproj_xy();
  Tvx_reproj_xy(const Tvx_reproj_xy&) = delete;
  Tvx_reproj_xy& operator=(const Tvx_reproj_xy&) = delete;

  // Null-safe: releases the PROJ objects, destroys the object and nulls the pointer.
  static void delete_obj(Tvx_reproj_xy** p);

  // Releases the transformation; the affine settings and use flags stay.
  void clear();

  bool init(const char* src, const char* dst);
  // Wide texts are narrowed to UTF-8 first; a text that cannot be narrowed becomes empty and fails.
  bool init(const wchar_t* src, const wchar_t* dst);
  // From the projection to the geographic system on its own datum and ellipsoid.
  bool init_to_latlong(const char* proj);
  bool init_to_latlong(const wchar_t* proj);
  // From that geographic system to the projection.
  bool init_from_latlong(const char* proj);
  bool init_from_latlong(const wchar_t* proj);

  // After a failed init: which text PROJ refused, and why (see Tvx_reproj_xy_exec::get_error).
  const std::string& get_error() const { return f_exec->get_error(); }

  // The geographic system on the projection's own datum and ellipsoid, as a composed text.
  static std::string convert_to_latlong(const char* proj);

  // The whole chain: affine before, transformation, affine after. The result is the transformation's;
  // the step after runs even when the transformation failed.
  bool apply(double* x, double* y);
  bool apply_xy(unsigned n, double* x, double* y);
  bool apply_array(Tvx_xy_array* a);

  static void apply_affine(const Tvx_matrix3x3& m, double* x, double* y);
  static void apply_affine_xy(const Tvx_matrix3x3& m, unsigned n, double* x, double* y);
  static void apply_affine_array(const Tvx_matrix3x3& m, Tvx_xy_array* a);

  bool rpj_is_needed() const { return f_use_reproj || f_use_affine_before || f_use_affine_after; }

  void set_use_reproj(bool use) { f_use_reproj = use; }
  bool get_use_reproj() const { return f_use_reproj; }
  void set_use_affine_before(bool use) { f_use_affine_before = use; }
  bool get_use_affine_before() const { return f_use_affine_before; }
  // Setting a matrix does not switch its step on.
  void set_affine_before(const Tvx_matrix3x3& m) { f_affine_before = m; }
  void set_use_affine_after(bool use) { f_use_affine_after = use; }
  bool get_use_affine_after() const { return f_use_affine_after; }
  void set_affine_after(const Tvx_matrix3x3& m) { f_affine_after = m; }

 private:
  std::unique_ptr<Tvx_reproj_xy_exec> f_exec;
  Tvx_matrix3x3 f_affine_before;
  Tvx_matrix3x3 f_affine_after;
  bool f_use_reproj = true;
  bool f_use_affine_before = false;
  bool f_use_affine_after = false;
};
