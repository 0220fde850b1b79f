// Text lists: labels with their points, sizes, deltas, texts and callouts.
#include "services/text_list.h"

#include <utility>

size_t Tvx_text_data::metric_count(int32_t type, size_t point_count) {
  if (type == VX_TEXT_TYPE_PER_POINT && point_count > 1) return point_count;
  return 1;
}

void Tvx_text_data::set_type(int32_t type) {
  f_type = type;
  fit_metrics();
}

void Tvx_text_data::set_count(size_t count) {
  f_points.resize(count, Tvx_vtx_d2{0, 0});
  fit_metrics();
}

void Tvx_text_data::add_point(const Tvx_vtx_d2& point) {
  f_points.push_back(point);
  fit_metrics();
}

Tvx_vtx_d2 Tvx_text_data::get_point(size_t index) const {
  return index < f_points.size() ? f_points[index] : Tvx_vtx_d2{0, 0};
}

void Tvx_text_data::set_point(size_t index, const Tvx_vtx_d2& point) {
  if (index < f_points.size()) f_points[index] = point;
}

Tvx_text_metric Tvx_text_data::get_metric(size_t index) const {
  return index < f_metrics.size() ? f_metrics[index] : Tvx_text_metric{};
}

Tvx_text_metric* Tvx_text_data::metric_at(size_t index) {
  return index < f_metrics.size() ? &f_metrics[index] : nullptr;
}

bool Tvx_text_data::assign_geometry(std::vector<Tvx_vtx_d2> points, std::vector<Tvx_text_metric> metrics) {
  if (metrics.size() != metric_count(f_type, points.size())) return false;
  f_points = std::move(points);
  f_metrics = std::move(metrics);
  return true;
}

Tvx_callout* Tvx_text_data::add_callout() {
  if (!f_callout) f_callout = std::make_unique<Tvx_callout>();
  return f_callout.get();
}

// Growing keeps the existing values and adds zeros; shrinking drops the tail, so a label that leaves
// type 2 keeps the size and deltas of its first point.
void Tvx_text_data::fit_metrics() {
  f_metrics.resize(metric_count(f_type, f_points.size()));
}

Tvx_text_data* Tvx_text_list_base::add() {
  f_items.push_back(std::make_unique<Tvx_text_data>());
  return f_items.back().get();
}
