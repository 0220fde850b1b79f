// The public header for code that also sees the reprojection classes. Tvx_vtx_d2 is defined twice in
// the tree, with the same layout: for hosts in the public header, and for the library in
// reproj/matrix3x3.h. A source file that needs both takes the library's and tells the public header
// to skip its own.
#pragma once

#include "reproj/matrix3x3.h"

#ifndef VX_VTX_D2_DEFINED
#define VX_VTX_D2_DEFINED
#endif
#include "vxk_proj4_shp.h"
