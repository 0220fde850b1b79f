#include "stdlist/generate/01_checks.h"

#include <cmath>
#include <string>

#include "stdlist/generate/20_box_and_grid.h"
#include "stdlist/traits.h"
#include "support/env.h"
#include "support/rc.h"

namespace vx::stdlist {

namespace {

bool drawn(Tvx_stdlist_scale scale) {
  return scale == VX_STDLIST_SC_MLN || scale == VX_STDLIST_SC_200;
}

// The scale as its text, or its number where it has none.
std::string scale_text(Tvx_stdlist_scale scale) {
  const wchar_t* text = traits::listed_scale_text(scale);
  if (scale == VX_STDLIST_SC_300) text = traits::C_SC_300;
  return text ? traits::str(text) : std::to_string(scale);
}

bool axis_fits(int main, int additional) {
  return axis::sheet_main_count(main) <= MAX_AXIS_POSITIONS &&
         axis::sheet_marks_count(main, additional) <= MAX_AXIS_POSITIONS;
}

bool box_axis_fits(double a, double b, double step) {
  return axis::box_main_count(a, b, step) <= MAX_AXIS_POSITIONS &&
         axis::box_marks_count(a, b, step) <= MAX_AXIS_POSITIONS;
}

bool finite_positive(double step) {
  return std::isfinite(step) && step > 0.0;
}

// Finite, with a finite extent from the minimum up to a larger maximum.
bool proper_range(double a, double b) {
  return std::isfinite(a) && std::isfinite(b) && a < b && std::isfinite(b - a);
}

void refuse(int row) {
  Tvx_env_main::error_ext(EXT_GENERATE, row);
}

}  // namespace

bool admit(const stdlist_params& p) {
  if (!p.sheet()) {
    refuse(GEN_NO_SHEET);
    return false;
  }
  if (!drawn(p.get_scale())) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_SCALE, scale_text(p.get_scale()).c_str());
    return false;
  }
  const int mx = p.get_main_x(), ax = p.get_addt_x(), my = p.get_main_y(), ay = p.get_addt_y();
  if (mx < 1 || ax < 1 || my < 1 || ay < 1) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_DIVISIONS, mx, ax, my, ay);
    return false;
  }
  if (!axis_fits(mx, ax) || !axis_fits(my, ay)) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_SHEET_LINES, static_cast<int>(MAX_AXIS_POSITIONS), mx, ax, my,
                            ay);
    return false;
  }
  return true;
}

bool admit(const custom_params& p) {
  double dx = 0.0, dy = 0.0, xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
  p.get_grid_steps(dx, dy);
  p.get_box(xmin, xmax, ymin, ymax);
  if (!finite_positive(dx) || !finite_positive(dy)) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_STEPS, dx, dy);
    return false;
  }
  for (double v : {xmin, xmax, ymin, ymax}) {
    if (std::isnan(v) || traits::is_set(v)) continue;
    refuse(GEN_BOX_UNSET);
    return false;
  }
  if (!proper_range(xmin, xmax) || !proper_range(ymin, ymax)) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_BOX, xmin, xmax, ymin, ymax);
    return false;
  }
  if (!box_axis_fits(xmin, xmax, dx) || !box_axis_fits(ymin, ymax, dy)) {
    Tvx_env_main::error_ext(EXT_GENERATE, GEN_BOX_LINES, static_cast<int>(MAX_AXIS_POSITIONS), dx, dy);
    return false;
  }
  return true;
}

}  // namespace vx::stdlist
