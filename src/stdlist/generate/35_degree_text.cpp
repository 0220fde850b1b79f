// A coordinate in decimal degrees as the texts of the labels and attributes of a sheet: "54° " for the
// degrees, "30'" for the minutes, "00\"" for the seconds, zero-padded to two digits.
//
// The seconds are rounded once, over the whole degrees cut from the value, and nothing is carried into
// the degrees: 42.99999 shows 42 degrees and 60 minutes. A standard sheet shows magnitudes (its table
// says the hemisphere elsewhere); a free box keeps the sign of its degrees.
#include <cmath>
#include <cstdint>

#include "services/small_geometry.h"
#include "stdlist/generate/10_generator.h"
#include "stdlist/generate/20_box_and_grid.h"

namespace vx::stdlist {

namespace {

const wchar_t* const DEGREES = L"\u00B0 ";
const wchar_t* const MINUTES = L"'";
const wchar_t* const SECONDS = L"\"";

// The whole degrees of a magnitude, and the minutes and seconds of the rounded seconds left over them.
struct parts {
  std::int64_t degrees, minutes, seconds;
};

parts parts_of(double x) {
  const double a = std::fabs(x);
  const std::int64_t t = axis::cut32(a);
  const std::int64_t d = static_cast<std::int64_t>(vx_round(a * 3600.0)) - 3600 * t;
  const std::int64_t m = d / 60;
  return {t, m, d - 60 * m};
}

// Degrees beyond 180 count back from the other side of the antimeridian; 180 itself stays.
int fold(std::int32_t degrees) {
  return degrees > 180 ? 360 - degrees : degrees;
}

}  // namespace

int base_generate::int_grad(double x) const {
  return fold(axis::cut32(std::fabs(x)));
}

int custom_generate::int_grad(double x) const {
  return fold(axis::cut32(x));
}

// Of the value itself, not its magnitude.
int base_generate::int_min(double x) const {
  const std::int64_t t = axis::cut32(x);
  return static_cast<int>((static_cast<std::int64_t>(vx_round(x * 3600.0)) - 3600 * t) / 60);
}

int base_generate::int_sec(double x) const {
  return static_cast<int>(parts_of(x).seconds);
}

void base_generate::grad_min(double x, int& grad, int& min) const {
  const parts p = parts_of(x);
  grad = static_cast<int>(p.degrees);
  min = static_cast<int>(p.minutes);
}

std::wstring base_generate::zero(const std::wstring& s) const {
  return s.size() == 1 ? L"0" + s : s;
}

std::wstring custom_generate::zero(const std::wstring& s) const {
  if (s.size() == 2 && s[0] == L'-') return std::wstring(L"-0") + s[1];
  return base_generate::zero(s);
}

std::wstring base_generate::min_str(double x) const {
  return zero(std::to_wstring(parts_of(x).minutes)) + MINUTES;
}

std::wstring base_generate::sec_str(double x) const {
  return zero(std::to_wstring(parts_of(x).seconds)) + SECONDS;
}

std::wstring base_generate::grd_str(double x) const {
  return zero(std::to_wstring(int_grad(std::fabs(x)))) + DEGREES;
}

std::wstring custom_generate::grd_str(double x) const {
  return zero(std::to_wstring(int_grad(x))) + DEGREES;
}

std::wstring base_generate::grd_min_str(double x) const {
  const double a = std::fabs(x);
  return grd_str(a) + min_str(a);
}

std::wstring custom_generate::grd_min_str(double x) const {
  return grd_str(x) + min_str(x);
}

std::wstring base_generate::grd_min_sec_str(double x) const {
  return grd_min_str(x) + sec_str(std::fabs(x));
}

std::wstring custom_generate::grd_min_sec_str(double x) const {
  return grd_min_str(x) + sec_str(x);
}

}  // namespace vx::stdlist
