#include "stdlist/traits.h"

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

}  // namespace vx::stdlist::traits
