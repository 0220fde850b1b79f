// Small value types shared by reprojection and geometry: a vertex and a 3x3 matrix.
#pragma once

// A pair of doubles, x then y: an easting or longitude, and a northing or latitude. The public header
// defines the same type for hosts; whichever comes first stands.
#ifndef VX_VTX_D2_DEFINED
#define VX_VTX_D2_DEFINED
struct Tvx_vtx_d2 {
  double x;
  double y;
};
#endif

// Nine doubles, row by row. The first two rows are an affine step: x' = m0·x + m1·y + m2,
// y' = m3·x + m4·y + m5.
struct Tvx_matrix3x3 {
  double m[9];
};

// Fills the unit matrix.
inline void vx_matrix3x3_init_single(Tvx_matrix3x3& matrix) {
  for (int i = 0; i < 9; ++i) matrix.m[i] = (i % 4 == 0) ? 1.0 : 0.0;
}
