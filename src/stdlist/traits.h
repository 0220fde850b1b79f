// Constants of a sheet: the texts of scales and types, and the lookup of a scale by its text.
#pragma once

#include <string>

#include "vxk_proj4_shp.h"

namespace vx::stdlist::traits {

extern const wchar_t* const C_SC_MLN;
extern const wchar_t* const C_SC_500;
extern const wchar_t* const C_SC_300;
extern const wchar_t* const C_SC_200;
extern const wchar_t* const C_SC_100;
extern const wchar_t* const C_SC_50;
extern const wchar_t* const C_SC_25;
extern const wchar_t* const C_SC_10;

extern const wchar_t* const C_TP_SGL;
extern const wchar_t* const C_TP_DBL;
extern const wchar_t* const C_TP_TPL;
extern const wchar_t* const C_TP_QRP;

// Text of a scale of the fetched list (1, 2, 4 to 8), null for any other value, 3 included.
const wchar_t* listed_scale_text(Tvx_stdlist_scale scale);
// Text of a type 1 to 4, null for any other value.
const wchar_t* type_text(Tvx_stdlist_type type);

// Scale for one of the seven texts of the fetched list; anything else, "1:300000" among them, gives 0.
Tvx_stdlist_scale scale(const std::wstring& text);

}  // namespace vx::stdlist::traits
