// The public header for code that also sees the reprojection classes. Tvx_vtx_d2 is defined in both,
// with the same layout and under the same guard, so that whichever is included first stands.
#pragma once

#include "reproj/matrix3x3.h"
#include "vxk_proj4_shp.h"
