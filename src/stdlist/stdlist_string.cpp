#include "stdlist/stdlist_string.h"

#include <cmath>
#include <limits>

#include "stdlist/helper_10.h"
#include "stdlist/helper_100.h"
#include "stdlist/helper_200.h"
#include "stdlist/helper_25.h"
#include "stdlist/helper_50.h"
#include "stdlist/helper_500.h"
#include "stdlist/helper_mln.h"
#include "stdlist/level_common.h"
#include "stdlist/traits.h"

namespace vx::stdlist {

namespace {

// Stores a level value that passes its range test, otherwise INVALID_IDX.
bool store_checked(std::uint64_t& field, std::uint64_t value, bool in_range) {
  field = in_range ? value : INVALID_IDX;
  return in_range;
}

bool letter_is_one_of(std::uint64_t letter_idx, const wchar_t* letters) {
  const wchar_t letter = helper_mln::letter_by_idx(letter_idx);
  for (; *letters; ++letters) {
    if (*letters == letter) return true;
  }
  return false;
}

}  // namespace

stdlist_string::stdlist_string(Tvx_stdlist_hemisphere hemisphere, Tvx_stdlist_scale scale,
                               Tvx_stdlist_type type, std::uint64_t mln_letter_idx, std::uint64_t mln_number,
                               std::uint64_t letter_500_idx, std::uint64_t roman_200_idx,
                               std::uint64_t number_100, std::uint64_t letter_50_idx,
                               std::uint64_t letter_25_idx, std::uint64_t number_10)
    : scale_(scale),
      type_(type),
      hemisphere_(hemisphere),
      mln_letter_idx_(mln_letter_idx),
      mln_number_(mln_number),
      letter_500_idx_(letter_500_idx),
      roman_200_idx_(roman_200_idx),
      number_100_(number_100),
      letter_50_idx_(letter_50_idx),
      letter_25_idx_(letter_25_idx),
      number_10_(number_10) {}

bool stdlist_string::operator==(const stdlist_string& o) const {
  return scale_ == o.scale_ && type_ == o.type_ && hemisphere_ == o.hemisphere_ &&
         mln_letter_idx_ == o.mln_letter_idx_ && mln_number_ == o.mln_number_ &&
         letter_500_idx_ == o.letter_500_idx_ && roman_200_idx_ == o.roman_200_idx_ &&
         number_100_ == o.number_100_ && letter_50_idx_ == o.letter_50_idx_ &&
         letter_25_idx_ == o.letter_25_idx_ && number_10_ == o.number_10_;
}

bool type_allowed(Tvx_stdlist_scale scale, Tvx_stdlist_type type) {
  switch (scale) {
    case VX_STDLIST_SC_NONE:
      return type >= VX_STDLIST_TP_SGL && type <= VX_STDLIST_TP_QRP;
    case VX_STDLIST_SC_300:
      return type == VX_STDLIST_TP_SGL;
    case VX_STDLIST_SC_200:
      return type >= VX_STDLIST_TP_SGL && type <= VX_STDLIST_TP_TPL;
    case VX_STDLIST_SC_MLN:
    case VX_STDLIST_SC_500:
    case VX_STDLIST_SC_100:
    case VX_STDLIST_SC_50:
    case VX_STDLIST_SC_25:
    case VX_STDLIST_SC_10:
    case VX_STDLIST_SC_END:
      return type == VX_STDLIST_TP_SGL || type == VX_STDLIST_TP_DBL || type == VX_STDLIST_TP_QRP;
    default:
      return false;
  }
}

bool stdlist_string::init(Tvx_stdlist_scale scale, Tvx_stdlist_type type, Tvx_stdlist_hemisphere hemisphere) {
  if (hemisphere != VX_STDLIST_NORTH && hemisphere != VX_STDLIST_SOUTH) return false;
  if (type < VX_STDLIST_TP_SGL || type > VX_STDLIST_TP_QRP) return false;
  if (scale < VX_STDLIST_SC_MLN || scale > VX_STDLIST_SC_END) return false;
  hemisphere_ = hemisphere;
  scale_ = scale;
  if (type_allowed(scale, type)) type_ = type;
  return true;
}

bool stdlist_string::is_valid() const {
  if (hemisphere_ != VX_STDLIST_NORTH && hemisphere_ != VX_STDLIST_SOUTH) return false;
  switch (scale_) {
    case VX_STDLIST_SC_MLN:
      return helper_mln::is_valid(*this);
    case VX_STDLIST_SC_500:
      return helper_500::is_valid(*this);
    case VX_STDLIST_SC_200:
      return helper_200::is_valid(*this);
    case VX_STDLIST_SC_100:
      return helper_100::is_valid(*this);
    case VX_STDLIST_SC_50:
      return helper_50::is_valid(*this);
    case VX_STDLIST_SC_25:
      return helper_25::is_valid(*this);
    case VX_STDLIST_SC_10:
      return helper_10::is_valid(*this);
    default:
      return false;  // 1:300,000 and anything outside 1 to 8
  }
}

void stdlist_string::set_hemisphere(Tvx_stdlist_hemisphere hemisphere) {
  if (hemisphere == VX_STDLIST_NORTH || hemisphere == VX_STDLIST_SOUTH) hemisphere_ = hemisphere;
}

void stdlist_string::set_scale(Tvx_stdlist_scale scale) {
  if (scale >= VX_STDLIST_SC_MLN && scale <= VX_STDLIST_SC_END) scale_ = scale;
}

void stdlist_string::set_type(Tvx_stdlist_type type, bool force) {
  if (type < VX_STDLIST_TP_SGL || type > VX_STDLIST_TP_QRP) return;
  if (force || type_allowed(scale_, type)) type_ = type;
}

void stdlist_string::set_str_hemisphere(wchar_t letter) {
  if (letter == L'S') hemisphere_ = VX_STDLIST_SOUTH;
  if (letter == L'N') hemisphere_ = VX_STDLIST_NORTH;
}

wchar_t stdlist_string::get_str_hemisphere() const {
  if (hemisphere_ == VX_STDLIST_NORTH) return L'N';
  if (hemisphere_ == VX_STDLIST_SOUTH) return L'S';
  return INVALID_WCHAR;
}

const wchar_t* stdlist_string::get_scale_str() const {
  const wchar_t* text = traits::listed_scale_text(scale_);
  return text ? text : INVALID_CHR;
}

const wchar_t* stdlist_string::get_type_str() const {
  const wchar_t* text = traits::type_text(type_);
  return text ? text : INVALID_CHR;
}

std::wstring stdlist_string::get_scale_str(const stdlist_string& sheet) {
  if (sheet.scale_ == VX_STDLIST_SC_NONE) return INVALID_CHR;
  if (sheet.scale_ == VX_STDLIST_SC_300) return traits::C_SC_300;
  const wchar_t* text = traits::listed_scale_text(sheet.scale_);
  return text ? text : L"";
}

void stdlist_string::set_scale_str(const std::wstring& text, bool& found) {
  scale_ = traits::scale(text);
  found = scale_ != VX_STDLIST_SC_NONE;
}

void stdlist_string::set_type_str(const std::wstring& text) {
  for (Tvx_stdlist_type t = VX_STDLIST_TP_SGL; t <= VX_STDLIST_TP_QRP; ++t) {
    if (text == traits::type_text(t)) type_ = t;
  }
}

void stdlist_string::fetch_supported_list_types(bool types[4]) const {
  const bool polar_far = letter_is_one_of(mln_letter_idx_, L"TUV");
  types[0] = true;
  if (scale_ == VX_STDLIST_SC_200) {
    types[1] = letter_is_one_of(mln_letter_idx_, L"PQRS");
    types[2] = polar_far;
    types[3] = false;
  } else {
    types[1] = mln_letter_idx_ >= 16;
    types[2] = false;
    types[3] = polar_far;
  }
}

bool stdlist_string::set_mln_letter_idx(std::uint64_t index) {
  return store_checked(mln_letter_idx_, index, helper_mln::letter_in_range(index));
}
bool stdlist_string::set_mln_number(std::uint64_t number) {
  return store_checked(mln_number_, number, helper_mln::number_in_range(number));
}
bool stdlist_string::set_500_letter_idx(std::uint64_t index) {
  return store_checked(letter_500_idx_, index, helper_500::in_range(index));
}
bool stdlist_string::set_200_roman_idx(std::uint64_t index) {
  return store_checked(roman_200_idx_, index, helper_200::in_range(index));
}
bool stdlist_string::set_100_number(std::uint64_t number) {
  return store_checked(number_100_, number, helper_100::in_range(number));
}
bool stdlist_string::set_50_letter_idx(std::uint64_t index) {
  return store_checked(letter_50_idx_, index, helper_50::in_range(index));
}
std::uint64_t stdlist_string::get_25_letter_idx() const {
  return helper_25::in_range(letter_25_idx_) ? letter_25_idx_ : INVALID_IDX;
}
bool stdlist_string::set_10_number(std::uint64_t number) {
  return store_checked(number_10_, number, helper_10::in_range(number));
}

std::wstring& stdlist_string::get_output_string(std::wstring& out) const {
  out.clear();
  fill_str2(out);
  return out;
}

void stdlist_string::fill_str2(std::wstring& out) const {
  if (helper_mln::letter_by_idx(mln_letter_idx_) == L'Z') {
    out = L"Z";
    return;
  }
  switch (scale_) {
    case VX_STDLIST_SC_MLN:
      helper_mln::fill_str(*this, out);
      break;
    case VX_STDLIST_SC_500:
      helper_500::fill_str(*this, out);
      break;
    case VX_STDLIST_SC_200:
      helper_200::fill_str(*this, out);
      break;
    case VX_STDLIST_SC_100:
      helper_100::fill_str(*this, out);
      break;
    case VX_STDLIST_SC_50:
      helper_50::fill_str(*this, out);
      break;
    case VX_STDLIST_SC_25:
      helper_25::fill_str(*this, out);
      break;
    case VX_STDLIST_SC_10:
      helper_10::output_str(*this, out);
      break;
    default:
      break;  // 1:300,000 and anything outside 1 to 8 print nothing
  }
}

std::wstring stdlist_string::get_output_string() const {
  std::wstring out;
  fill_str(out);
  return out;
}

// Each pass of the loop is one sheet of the row; the counter lives in a static as it always has.
void stdlist_string::fill_str(std::wstring& out) const {
  static int counter = 0;
  for (;;) {
    if (helper_mln::letter_by_idx(mln_letter_idx_) == L'Z') {
      out = L"Z";
      return;
    }
    if (counter > type_ - 1) {
      counter = 0;
      return;
    }
    if (counter > 0) out += L',';
    if (scale_ != VX_STDLIST_SC_NONE) fill_str_sheet_start(counter, out);
    switch (scale_) {
      case VX_STDLIST_SC_200:
        helper_200::fill_str(*this, out);
        return;
      case VX_STDLIST_SC_100:
        helper_100::output_str(*this, out);
        return;
      case VX_STDLIST_SC_50:
        helper_50::fill_str(*this, out);
        return;
      case VX_STDLIST_SC_25:
        helper_25::fill_str(*this, out);
        return;
      case VX_STDLIST_SC_10:
        helper_10::output_str(*this, out);
        return;
      default:
        ++counter;
    }
  }
}

// What the older routine writes of one sheet before the finer scales take over.
void stdlist_string::fill_str_sheet_start(int counter, std::wstring& out) const {
  if (counter == 0) {
    helper_mln::mln_part_str(*this, out);
  } else if (scale_ == VX_STDLIST_SC_500) {
    helper_500::output_str(*this, counter, out);
  } else if (scale_ == VX_STDLIST_SC_MLN) {
    helper_mln::fill_str(*this, out, counter);
  }
  if (scale_ == VX_STDLIST_SC_500 && counter == 0) {
    out += L'-';
    out += helper_500::letter_by_idx(letter_500_idx_);
  }
}

std::int32_t stdlist_string::get_mid_meridian() const {
  const double width = scale_ == VX_STDLIST_SC_MLN ? 6.0 * type_ : 6.0;
  const auto column_west = static_cast<std::int32_t>(static_cast<std::uint32_t>(6 * mln_number_ - 183));
  const double west = column_west - 3.0;
  const double sign = mln_number_ < 61 ? 1.0 : -1.0;
  const double mid = std::trunc((width + 2 * west) * sign * 0.5);
  constexpr double lo = std::numeric_limits<std::int32_t>::min();
  constexpr double hi = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(mid < lo ? lo : (mid > hi ? hi : mid));
}

std::wstring stdlist_string::zero(const std::wstring& text) {
  return text.size() == 1 ? L"0" + text : text;
}

}  // namespace vx::stdlist
