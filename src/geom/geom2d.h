// The plane geometry: value types, point vectors, objects and object arrays.
#pragma once

#include "geom/ap2d.h"
#include "geom/line2d.h"
#include "geom/op2d.h"
#include "geom/point2d.h"
#include "geom/pp2d.h"
#include "geom/rect2d.h"
