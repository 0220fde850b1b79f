// vxk sheet: where sheets lie. The sheet of a point, the corners of a sheet and the sheets inside one,
// all from the boxes the library gives, which are the boxes the generator draws.
#pragma once

#include <string>

#include "vxk_proj4_shp.h"

namespace vxk::sheet {

enum class format { text, wkt, geojson };

// The sheets that hold a point, at every scale or at the one asked for (VX_STDLIST_SC_NONE for all).
// `lat` and `lon` are the texts of the command line: degrees, or degrees, minutes and seconds as PROJ
// reads them ("55d45'21\"N"). `south` asks for the southern sheet of a point on the equator.
void print_at(const std::string& lat, const std::string& lon, Tvx_stdlist_scale scale, bool south);

// The box of the sheet, and of the first sheet of a joined sheet.
void print_bounds(const Tvx_stdlist_string* sheet, format how);

// The sheets of a finer scale that lie in the sheet.
void print_children(const Tvx_stdlist_string* sheet, Tvx_stdlist_scale scale, format how);

}  // namespace vxk::sheet
