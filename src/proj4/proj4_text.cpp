// The description of a projection for people, as a projection dialog shows it.
#include <utility>

#include "proj4/proj4_str.h"
#include "support/rc.h"
#include "support/str_func.h"

namespace {

// The block of the message table that holds the labels of a projection description.
constexpr int kLabels = 6;
constexpr int kProjection = 14;
constexpr int kUnknown = 29;

}  // namespace

void Tvx_proj4_str::append_line(int label, const std::string& value) {
  f_out_text += Tvx_rc::get_str(kLabels, label);
  f_out_text += " = " + value + "\r\n";
}

// The lines come in the order of a dialog, whatever the order of the text: the projection and its
// parameters, then the datum, then the ellipsoid. "+south", "+units" and "+nadgrids" have no line.
const char* Tvx_proj4_str::get_text() {
  f_out_text.clear();
  if (f_proj->get_def()) append_line(kProjection, f_proj->get_str());
  if (f_zone->get_def()) append_line(33, Tvx_str_func::int2str(f_zone->get_int()));
  const std::pair<int, const Tvx_proj4_param_dbl*> placement[] = {
      {17, f_lon_0.get()}, {18, f_lonc.get()},   {19, f_lat_0.get()}, {20, f_x_0.get()}, {21, f_y_0.get()},
      {22, f_lat_1.get()}, {23, f_lat_ts.get()}, {24, f_lat_2.get()}, {26, f_k_0.get()}, {27, f_alpha.get()}};
  for (const auto& [label, p] : placement)
    if (p->get_def()) append_line(label, Tvx_proj4_traits::dbl2str(p->get_dbl()));
  if (f_datum->get_def()) append_line(6, f_datum->get_str());
  if (f_towgs84->get_def()) append_line(7, f_towgs84->values_text());
  if (f_ellps->get_def()) append_line(0, f_ellps->get_str());
  const std::pair<int, const Tvx_proj4_param_dbl*> earth[] = {
      {2, f_a.get()}, {3, f_b.get()}, {4, f_rf.get()}};
  for (const auto& [label, p] : earth)
    if (p->get_def()) append_line(label, Tvx_proj4_traits::dbl2str(p->get_dbl()));
  if (f_out_text.empty()) append_line(kProjection, Tvx_rc::get_str(kLabels, kUnknown));
  return f_out_text.c_str();
}
