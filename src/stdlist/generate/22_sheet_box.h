// Where a sheet of the series lies, in degrees of the sheet's geographic system, and which sheet holds a
// point. The generator lays out its 1:1,000,000 and 1:200,000 sheets by list_xmin and list_ymin; every
// other scale is cut from its parent sheet by the same pattern, so that a box given to a host is the box
// the generator would draw.
#pragma once

#include "stdlist/stdlist_string.h"
#include "vxk_proj4_shp.h"

namespace vx::stdlist::sheet_box {

struct box {
  double xmin = 0.0;
  double xmax = 0.0;
  double ymin = 0.0;
  double ymax = 0.0;
};

// The generator's west and south edges of a 1:1,000,000 or 1:200,000 sheet, with the middle meridian it
// took from the record; 0.0 at any other scale. East is west plus traits::width, north south plus
// traits::height.
double list_xmin(const stdlist_string& sheet, double mid_meridian);
double list_ymin(const stdlist_string& sheet);

// The box of a valid single or joined sheet at any scale of the series. Rows of every level count from
// the north edge of the parent in the north and from its south edge in the south, as the generator lays
// out the rows of 1:200,000 sheets; a joined sheet spans its type's count of sheets eastwards. False, and
// an empty box, for a record that is not valid.
bool of(const stdlist_string& sheet, box& out);

// The single sheet at `scale` in `hemisphere` whose box holds the point (degrees; the longitude is taken
// modulo 360). On an edge between sheets the point goes to the sheet east of it and to the one farther
// from the equator; the north edge of the last band (88 degrees) belongs to that band. False, with `out`
// untouched, for a scale outside the series, a point that is not finite, or a latitude outside the
// hemisphere's bands (0 to 88 degrees north, -88 to 0 south).
bool find(Tvx_stdlist_scale scale, Tvx_stdlist_hemisphere hemisphere, double lon, double lat,
          stdlist_string& out);

}  // namespace vx::stdlist::sheet_box
