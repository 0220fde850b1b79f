// Small plane geometry of the sheet generator, in the flat form its steps call: a vertex from two
// coordinates, the distance of two points, the crossing of two segments, and rounding to an integer.
#pragma once

#include "services/flat_types.h"

Tvx_vtx_d2 vx_vtx_d2_init_xy(double x, double y);
double vx_distance_xy(double x1, double y1, double x2, double y2);
// True, with the point stored, when the segment 1-2 crosses the segment 3-4 (touching at an end
// counts); false otherwise, with x and y left alone.
bool vx_cross_xy(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4,
                 double* x, double* y);
// The nearest integer, halves away from zero; values beyond the range of int give its nearest end, and
// NaN gives 0.
int vx_round(double value);
