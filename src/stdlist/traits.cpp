#include "stdlist/traits.h"

#include <cmath>

#include "services/string_adapter.h"
#include "support/ansi_code_page.h"
#include "support/filesystem.h"

namespace vx::stdlist::traits {

const wchar_t* const C_SC_MLN = L"1:1000000";
const wchar_t* const C_SC_500 = L"1:500000";
const wchar_t* const C_SC_300 = L"1:300000";
const wchar_t* const C_SC_200 = L"1:200000";
const wchar_t* const C_SC_100 = L"1:100000";
const wchar_t* const C_SC_50 = L"1:50000";
const wchar_t* const C_SC_25 = L"1:25000";
const wchar_t* const C_SC_10 = L"1:10000";

const wchar_t* const C_TP_SGL = L"Стандартный лист";
const wchar_t* const C_TP_DBL = L"Сдвоенный лист";
const wchar_t* const C_TP_TPL = L"Строенный лист";
const wchar_t* const C_TP_QRP = L"Счетверенный лист";

const std::wstring hyps_dir = L"HYPS\\";
const std::wstring frame_dir = L"FRAME\\";
const std::wstring latlong_hyps_dir = L"latlong\\HYPS\\";
const std::wstring latlong_frame_dir = L"latlong\\FRAME\\";
const std::wstring hypsa_shp = L"Hypsa.shp";
const std::wstring hypsl_shp = L"Hypsl.shp";
const std::wstring hypsp_shp = L"Hypsp.shp";
const std::wstring frame_shp = L"Frame.shp";
const std::wstring framedig_shp = L"FrameDig.shp";
const std::wstring frameadj_shp = L"FrameAdj.shp";

const char* const TXT_FRAME = "\xD0\xE0\xEC\xEA\xE0";
const char* const TXT_PARAL = "\xCF\xE0\xF0\xE0\xEB\xEB\xE5\xEB\xFC";
const char* const TXT_MERID = "\xCC\xE5\xF0\xE8\xE4\xE8\xE0\xED";
const char* const TXT_POLAR =
    "\xD1\xE5\xE2\xE5\xF0\xED\xFB\xE9 \xEF\xEE\xEB\xFF\xF0\xED\xFB\xE9 \xEA\xF0\xF3\xE3";
const char* const IND_PARAL_N = "\xF1.\xF8.";
const char* const IND_PARAL_S = "\xFE.\xF8.";
const char* const IND_MERID = "\xE2.\xE4.";
const char* const POLAR_STR_GRD = "66\xB0";
const char* const POLAR_STR_MIN = "33.64'";
const char* const FONT = "Times New Roman";
const char* const FONT_SIZE = "8.00";
const char* const FONT_SIZE_ADJ = "6.50";

const wchar_t* const LATLON_PRJ_STR =
    L"GEOGCS[\"GCS_Pulkovo_1942\",DATUM[\"D_Pulkovo_1942\",SPHEROID[\"Krasovsky_1940\", 6378245.0,298.3]], "
    L"PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

namespace {

// One size of the drawing at both scales, in metres and in degrees; the degree values are stored as
// they are, not computed from the metres.
struct sized {
  double m200, deg200, m1m, deg1m;
};

double pick(Tvx_stdlist_scale scale, bool latlong, const sized& s) {
  if (scale == VX_STDLIST_SC_MLN) return latlong ? s.deg1m : s.m1m;
  if (scale == VX_STDLIST_SC_200) return latlong ? s.deg200 : s.m200;
  return 0.0;
}

// One value at 1:1,000,000, another at 1:200,000, zero elsewhere.
template <typename T>
T by_scale(Tvx_stdlist_scale scale, T mln, T at200) {
  if (scale == VX_STDLIST_SC_MLN) return mln;
  if (scale == VX_STDLIST_SC_200) return at200;
  return T(0);
}

constexpr double DEGREES_PER_METRE = 8.983000569721857e-06;

constexpr sized FRAME2 = {1400.0, 0.0125762007976106, 7500.0, 0.06737250427291393};
constexpr sized FRAME3 = {1639.9999999999998, 0.014732120934343843, 8500.0, 0.07635550484263579};
constexpr sized FRAME4 = {1960.0000000000002, 0.01760668111665484, 9500.0, 0.08533850541235764};
constexpr sized DX_UPPER_PARAL = {634.802865146441, 0.005702434499271547, 3811.4325415325607,
                                  0.034238100692043416};
constexpr sized DX_LOWER_PARAL = {555.6824714888, 0.00499169595796834, 3165.81458664031, 0.02843851423542367};
constexpr sized MERID_LEFT = {622.855526614744, 0.0055951115504346526, 4392.0, 0.039453338502218396};
constexpr sized MERID_RIGHT = {690.232320737283, 0.006200357330423453, 3596.0, 0.032302870048719796};
constexpr sized MERID_CORNER_DY = {732.543829110224, 0.0065804416342433725, 4307.08669329961,
                                   0.03869056221975182};
constexpr sized MERID_DY = {363.510577815946, 0.0032654157276205643, 3060.47242196827, 0.027492225510159};
constexpr sized DX_LEFT_PARAL = {835.856190859022, 0.007508496638692136, 5813.66666893264,
                                 0.05222417099919488};
constexpr sized DX_RIGHT_PARAL = {199.223339116669, 0.0017896233687869282, 1938.55166595654,
                                  0.017414010719722855};
constexpr sized SHIFT_TOP = {245.47946094320903, 0.002205142137507861, 1532.04778900269,
                             0.013762386161452275};
constexpr sized SHIFT_BTM = {264.170779077596, 0.0023730462589579117, 1460.24049136588, 0.013117341165870624};

}  // namespace

const wchar_t* listed_scale_text(Tvx_stdlist_scale scale) {
  switch (scale) {
    case VX_STDLIST_SC_MLN:
      return C_SC_MLN;
    case VX_STDLIST_SC_500:
      return C_SC_500;
    case VX_STDLIST_SC_200:
      return C_SC_200;
    case VX_STDLIST_SC_100:
      return C_SC_100;
    case VX_STDLIST_SC_50:
      return C_SC_50;
    case VX_STDLIST_SC_25:
      return C_SC_25;
    case VX_STDLIST_SC_10:
      return C_SC_10;
    default:
      return nullptr;
  }
}

const wchar_t* type_text(Tvx_stdlist_type type) {
  switch (type) {
    case VX_STDLIST_TP_SGL:
      return C_TP_SGL;
    case VX_STDLIST_TP_DBL:
      return C_TP_DBL;
    case VX_STDLIST_TP_TPL:
      return C_TP_TPL;
    case VX_STDLIST_TP_QRP:
      return C_TP_QRP;
    default:
      return nullptr;
  }
}

Tvx_stdlist_scale scale(const std::wstring& text) {
  for (Tvx_stdlist_scale s = VX_STDLIST_SC_MLN; s <= VX_STDLIST_SC_10; ++s) {
    const wchar_t* listed = listed_scale_text(s);
    if (listed && text == listed) return s;
  }
  return VX_STDLIST_SC_NONE;
}

bool is_set(double value) {
  return std::fabs(value - MAX) > delta;
}

const char* ind(int hemisphere) {
  return hemisphere == VX_STDLIST_NORTH ? IND_PARAL_N : IND_PARAL_S;
}

const char* ind(double latitude) {
  return latitude > 0.0 ? IND_PARAL_N : IND_PARAL_S;
}

double scale_factor(Tvx_stdlist_scale scale) {
  return by_scale(scale, 1000.0, 200.0);
}

double latlong_factor(bool latlong) {
  return latlong ? DEGREES_PER_METRE : 1.0;
}

double width(Tvx_stdlist_scale scale, Tvx_stdlist_type type) {
  return by_scale(scale, type * 6.0, static_cast<double>(type));
}

double height(Tvx_stdlist_scale scale) {
  return by_scale(scale, 4.0, 0.6666666666666666);
}

int get_pivot_points(Tvx_stdlist_scale scale) {
  return by_scale(scale, 25, 9);
}

int get_intrmdt_points(Tvx_stdlist_scale scale) {
  return by_scale(scale, 10, 2);
}

double get_symb_width(Tvx_stdlist_scale scale, bool latlong) {
  return by_scale(scale, 1300.0, 260.0) * latlong_factor(latlong);
}

double frame0_margin(Tvx_stdlist_scale, bool) {
  return 0.0;
}

double frame1_margin(Tvx_stdlist_scale scale, bool latlong) {
  return by_scale(scale, 1000.0, 200.0) * latlong_factor(latlong);
}

double frame2_margin(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, FRAME2);
}

double frame3_margin(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, FRAME3);
}

double frame4_margin(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, FRAME4);
}

double dx_upper_paral_dash(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, DX_UPPER_PARAL);
}

double dx_lower_paral_dash(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, DX_LOWER_PARAL);
}

double merid_dash_left_length(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, MERID_LEFT);
}

double merid_dash_right_length(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, MERID_RIGHT);
}

double merid_corner_dash_dy(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, MERID_CORNER_DY);
}

double merid_dash_dy(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, MERID_DY);
}

double dx_left_paral_dash(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, DX_LEFT_PARAL);
}

double dx_right_paral_dash(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, DX_RIGHT_PARAL);
}

double paral_dash_shift_top(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, SHIFT_TOP);
}

double paral_dash_shift_btm(Tvx_stdlist_scale scale, bool latlong) {
  return pick(scale, latlong, SHIFT_BTM);
}

std::wstring dbf_path(const std::wstring& path) {
  return vx::filesystem::change_extension(path, L".dbf");
}

// A character that the code page cannot hold comes back from the round trip as something else.
std::string str(const wchar_t* text) {
  if (!text) return {};
  const std::wstring wide = text;
  std::string narrow = vx::strconv::wide_to_ansi(wide);
  return vx::strconv::ansi_to_wide(narrow) == wide ? narrow : std::string();
}

Tvx_stdlist_scale get_parent_scale(const stdlist_string& sheet) {
  return sheet.get_scale() - 1;
}

std::wstring get_styllibs_proj() {
  const std::wstring path =
      vx::filesystem::native_path(std::wstring(vx_options_get_style_libs_path()) + L"std_list\\proj0.pj4");
  std::wstring text;
  Tvx_std_wstring_adapter sink(text);
  vx_pj4_load_simple_w(path.c_str(), sink.adapter());
  return text;
}

}  // namespace vx::stdlist::traits
