// Affine transformations of coordinates, plane and spatial: from a local system with an origin, a scale
// and a turn into another, or from one rectangle onto another. Small values, copied freely; a default
// object is the identity.
#pragma once

#include "geom/op2d.h"
#include "geom/pp2d.h"
#include "geom/rect2d.h"

// x' = a * x + b * y + c, y' = d * x + e * y + f.
class Tvx_affine2d {
 public:
  Tvx_affine2d() = default;
  Tvx_affine2d(double a, double b, double c, double d, double e, double f);

  void get(double& a, double& b, double& c, double& d, double& e, double& f) const;
  void set(double a, double b, double c, double d, double e, double f);
  void assign(const Tvx_affine2d* other) { *this = *other; }
  // A new copy that the caller owns.
  Tvx_affine2d* clone() const { return new Tvx_affine2d(*this); }
  // True when every coefficient differs from its fellow by less than the plane tolerance.
  bool equal(const Tvx_affine2d* other) const;
  // Turns the mapping into its inverse; false, with no change, when it has none: a pivot of the
  // elimination not above 1e-16 (a scale of 0, parallel rows), or a coefficient or an inverse
  // coefficient that is not finite.
  bool invert();

  // a = sx, e = sy, the rest 0.
  void set_scale(double sx, double sy);
  // The identity moved by (dx, dy).
  void set_move(double dx, double dy);
  // The axis-parallel mapping of one rectangle onto the other. Neither is tested: a rectangle of no
  // width or height gives infinite or NaN coefficients.
  void calc_rects(const Tvx_rect2d& from, const Tvx_rect2d& to);
  // Scale by dx and dy, turn by the angle (radians, counter-clockwise), then move to (x0, y0).
  void set_xy0_dxy_angle(double x0, double y0, double dx, double dy, double angle);
  // Undoes set_xy0_dxy_angle: the angle in the range of atan2, and dx, dy for it.
  void get_xy0_dxy_angle(double& x0, double& y0, double& dx, double& dy, double& angle) const;
  // This mapping becomes `second` after `first`: a point goes through first, then through second.
  // Either may be this object.
  void set_combine_affine(const Tvx_affine2d* first, const Tvx_affine2d* second);

  double apply_x(double x, double y) const { return f_a * x + f_b * y + f_c; }
  double apply_y(double x, double y) const { return f_d * x + f_e * y + f_f; }
  void apply_xy(double x, double y, double& x2, double& y2) const;
  void apply_point2d(Tvx_point2d* p) const;
  // The rectangle becomes the bounds of its four mapped corners; an undefined one stays undefined.
  void apply_rect2d(Tvx_rect2d* r) const;
  // Every vertex in place; the point vectors' rectangles and statistics are marked stale.
  void apply_pp2d(Tvx_pp2d* pp) const;
  void apply_op2d(Tvx_op2d* op) const;

 private:
  double f_a = 1.0, f_b = 0.0, f_c = 0.0;
  double f_d = 0.0, f_e = 1.0, f_f = 0.0;
};

// Three rows of four: x' = m0 x + m1 y + m2 z + m3, y' = m4 x + m5 y + m6 z + m7,
// z' = m8 x + m9 y + m10 z + m11.
class Tvx_affine3d {
 public:
  Tvx_affine3d() = default;
  Tvx_affine3d(double m0, double m1, double m2, double m3, double m4, double m5, double m6, double m7,
               double m8, double m9, double m10, double m11);

  void get(double& m0, double& m1, double& m2, double& m3, double& m4, double& m5, double& m6, double& m7,
           double& m8, double& m9, double& m10, double& m11) const;
  void set(double m0, double m1, double m2, double m3, double m4, double m5, double m6, double m7, double m8,
           double m9, double m10, double m11);
  void assign(const Tvx_affine3d* other) { *this = *other; }
  Tvx_affine3d* clone() const { return new Tvx_affine3d(*this); }
  // True when every coefficient differs from its fellow by less than the plane tolerance.
  bool equal(const Tvx_affine3d* other) const;
  // Turns the mapping into its inverse; false, with no change, when it has none (as in the plane).
  bool invert();

  // Scale by dx, dy, dz, turn about the z axis by the angle (radians), then move to (x0, y0, z0). The
  // eighth value is not read: the mapping turns about z alone.
  void set_xyz0_dxyz_angles(double x0, double y0, double z0, double dx, double dy, double dz, double angle,
                            double unused);
  // Undoes set_xyz0_dxyz_angles as get_xy0_dxy_angle does in the plane, with dz = m10 and z0 = m11;
  // the eighth value, which the setter does not read, comes back as 0.
  void get_xyz0_dxyz_angles(double& x0, double& y0, double& z0, double& dx, double& dy, double& dz,
                            double& angle, double& unused) const;

  double apply_x(double x, double y, double z) const { return f_m[0] * x + f_m[1] * y + f_m[2] * z + f_m[3]; }
  double apply_y(double x, double y, double z) const { return f_m[4] * x + f_m[5] * y + f_m[6] * z + f_m[7]; }
  double apply_z(double x, double y, double z) const {
    return f_m[8] * x + f_m[9] * y + f_m[10] * z + f_m[11];
  }
  void apply_xyz(double x, double y, double z, double& x2, double& y2, double& z2) const;

 private:
  double f_m[12] = {1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0};
};
