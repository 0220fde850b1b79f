// The spatial geometry: points, boxes and planes, point vectors, objects, object arrays and multipatches.
#pragma once

#include "geom/ap3d.h"
#include "geom/multipatch3d.h"
#include "geom/op3d.h"
#include "geom/plane3d.h"
#include "geom/point3d.h"
#include "geom/pp3d.h"
