// Constants of a sheet as a drawing: the texts of scales and types, the size of a sheet in degrees, the
// margins of its nested frames and the lengths of its graticule dashes, the names of the generator's
// folders and files, and the literal texts of the attribute tables.
//
// Only 1:1,000,000 and 1:200,000 sheets are drawn. Every function that depends on the scale gives 0
// (0.0) for any other scale; the generator is never run on such a scale.
#pragma once

#include <cstdint>
#include <string>

#include "stdlist/stdlist_string.h"
#include "vxk_proj4_shp.h"

namespace vx::stdlist::traits {

// A coordinate equal to MAX is not set; a value counts as set when |value - MAX| > delta.
constexpr double delta = 2.220446049250313e-15;
constexpr double MAX = 1.7976931348623157e+308;
// The test whether a coordinate has been set.
bool is_set(double value);

// Declared cell counts of a sheet; nothing reads them.
constexpr std::int64_t CELLS_X_1M = 6;
constexpr std::int64_t CELLS_Y_1M = 6;
constexpr std::int64_t CELLS_X_200K = 4;
constexpr std::int64_t CELLS_Y_200K = 4;

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

// Output folders, each ending in its separator so that paths are formed by plain concatenation, and
// the output files of the generator.
extern const std::wstring hyps_dir;
extern const std::wstring frame_dir;
extern const std::wstring latlong_hyps_dir;
extern const std::wstring latlong_frame_dir;
extern const std::wstring hypsa_shp;
extern const std::wstring hypsl_shp;
extern const std::wstring hypsp_shp;
extern const std::wstring frame_shp;
extern const std::wstring framedig_shp;
extern const std::wstring frameadj_shp;

// Texts of the attribute tables, stored in Windows-1251.
extern const char* const TXT_FRAME;      // "Рамка"
extern const char* const TXT_PARAL;      // "Параллель"
extern const char* const TXT_MERID;      // "Меридиан"
extern const char* const TXT_POLAR;      // "Северный полярный круг"
extern const char* const IND_PARAL_N;    // "с.ш."
extern const char* const IND_PARAL_S;    // "ю.ш."
extern const char* const IND_MERID;      // "в.д."
extern const char* const POLAR_STR_GRD;  // "66°"
extern const char* const POLAR_STR_MIN;  // "33.64'"
extern const char* const FONT;           // "Times New Roman"
extern const char* const FONT_SIZE;      // "8.00"
extern const char* const FONT_SIZE_ADJ;  // "6.50"

// The geographic system of the .prj beside every file of the latlong set: Pulkovo 1942.
extern const wchar_t* const LATLON_PRJ_STR;

// Text of a scale of the fetched list (1, 2, 4 to 8), null for any other value, 3 included.
const wchar_t* listed_scale_text(Tvx_stdlist_scale scale);
// Text of a type 1 to 4, null for any other value.
const wchar_t* type_text(Tvx_stdlist_type type);

// Scale for one of the seven texts of the fetched list; anything else, "1:300000" among them, gives 0.
Tvx_stdlist_scale scale(const std::wstring& text);

// North latitude for hemisphere 1, south for anything else.
const char* ind(int hemisphere);
// North latitude above 0.0, south otherwise (0.0 included).
const char* ind(double latitude);

// Ground metres per millimetre of the map: 1000 at 1:1,000,000, 200 at 1:200,000.
double scale_factor(Tvx_stdlist_scale scale);
// Degrees per metre when latlong is true, 1.0 otherwise.
double latlong_factor(bool latlong);

// Sheet width and height in degrees.
double width(Tvx_stdlist_scale scale, Tvx_stdlist_type type);
double height(Tvx_stdlist_scale scale);

// Pivot positions along each axis of a sheet, and the count of intermediate points (which nothing
// reads).
int get_pivot_points(Tvx_stdlist_scale scale);
int get_intrmdt_points(Tvx_stdlist_scale scale);

// Sizes in metres on the ground, or in degrees when latlong is true.
double get_symb_width(Tvx_stdlist_scale scale, bool latlong);
double frame0_margin(Tvx_stdlist_scale scale, bool latlong);
double frame1_margin(Tvx_stdlist_scale scale, bool latlong);
double frame2_margin(Tvx_stdlist_scale scale, bool latlong);
double frame3_margin(Tvx_stdlist_scale scale, bool latlong);
double frame4_margin(Tvx_stdlist_scale scale, bool latlong);
double dx_upper_paral_dash(Tvx_stdlist_scale scale, bool latlong);
double dx_lower_paral_dash(Tvx_stdlist_scale scale, bool latlong);
double merid_dash_left_length(Tvx_stdlist_scale scale, bool latlong);
double merid_dash_right_length(Tvx_stdlist_scale scale, bool latlong);
double merid_corner_dash_dy(Tvx_stdlist_scale scale, bool latlong);
double merid_dash_dy(Tvx_stdlist_scale scale, bool latlong);
double dx_left_paral_dash(Tvx_stdlist_scale scale, bool latlong);
double dx_right_paral_dash(Tvx_stdlist_scale scale, bool latlong);
double paral_dash_shift_top(Tvx_stdlist_scale scale, bool latlong);
double paral_dash_shift_btm(Tvx_stdlist_scale scale, bool latlong);

// The path with its extension replaced by ".dbf".
std::wstring dbf_path(const std::wstring& path);
// The text in the system's narrow code page; empty for a null text and for a text that the code page
// cannot hold whole.
std::string str(const wchar_t* text);

// The sheet's scale value minus one, with no bounds: arithmetic, not the parent in the series.
Tvx_stdlist_scale get_parent_scale(const stdlist_string& sheet);

// The geographic projection text of the style library ("std_list\proj0.pj4"), in which the generator
// lays out a sheet; empty when that file cannot be read.
std::wstring get_styllibs_proj();

}  // namespace vx::stdlist::traits
