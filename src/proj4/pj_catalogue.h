// The library's own catalogue of projections, and the ways between it and PROJ strings.
//
// The catalogue holds the projections a map maker picks from: geographic coordinates, the usual
// cylindrical, conic and azimuthal projections with the parameters a user sets, the 60 Gauss-Kruger
// zones and the 120 UTM zones. An entry names the earth only where the system fixes it (the UTM and
// UPS entries are on WGS 84); elsewhere the datum or ellipsoid is chosen apart from the projection.
//
// In an entry, a parameter that the user sets is shown, goes into the string and starts from its
// default, within its limits where it has any. A parameter that the entry fixes (a zone's central
// meridian, a pole) goes into the string without being shown, and its default is marked as the
// entry's own (get_def_default), which is what the searches by zone, hemisphere and latitude look at.
#pragma once

#include <string>

#include "proj4/pj_defs.h"
#include "proj4/proj4_str.h"

namespace vx::proj4 {

// The caption of the Gauss-Kruger entries, for find_by_caption_and_zone.
extern const char* const GAUSS_KRUGER;

// Empties the list and fills it with the library's entries, indexed from 1 in order.
void fill_catalogue(Tvx_pj_proj_defs* defs);

// The library's catalogue, filled at the first call.
const Tvx_pj_proj_defs& catalogue();

// Puts the entry's projection into a parsed string: "+proj" from its name, and every parameter of the
// entry through set_param. The earth of the string (ellipsoid, semi-axes, towgs84, grids) stays.
void apply_definition(const Tvx_pj_proj_def& def, Tvx_proj4_str* s);

// The PROJ string of an entry with its defaults, composed without the "+lon_wrap" tail.
std::string definition_text(const Tvx_pj_proj_def& def);

// The entry that the projection of a parsed string fits, or null: a transverse Mercator with the
// central meridian, false easting, scale and origin of a Gauss-Kruger zone is that zone; a string with
// a zone is looked up by find_utm (and nothing else); anything else goes to find_by_name_lat_south with
// the string's latitude of origin (0 when it has none) and the parameters it defines.
const Tvx_pj_proj_def* find_definition(const Tvx_pj_proj_defs& defs, const Tvx_proj4_str& s);

// The entry as one row of text, fields separated by tabs: the index, the caption, the further caption
// (may be empty), definition_text, and one field per parameter shown to the user, "name=default",
// followed by " [min,max]" for a number that has limits (a missing limit is left empty).
std::string catalogue_row(const Tvx_pj_proj_def& def);

}  // namespace vx::proj4
