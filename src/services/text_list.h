// Text lists: the labels of a map in memory, as hosts build them and TLD files hold them.
//
// A label (Tvx_text_data) stands at one or more points and has a size, a delta x and a delta y, lengths
// in map units. A label of type 2 has them at every point; every other type has them once, at index 0,
// also when it has no point. Besides, a label carries what a map needs to draw it: its text, font name,
// colour, style bits, alignment and angle, and at most one callout with its end points.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "services/flat_types.h"

// The end points of a label's leader lines.
struct Tvx_callout {
  std::vector<Tvx_vtx_d2> end_points;
};

// Size and offset of a label's text at one point.
struct Tvx_text_metric {
  double size = 0;
  double delta_x = 0;
  double delta_y = 0;
};

struct Tvx_text_data {
 public:
  // Number of sizes and deltas that a label of this type with this many points holds.
  static size_t metric_count(int32_t type, size_t point_count);

  int32_t get_type() const { return f_type; }
  void set_type(int32_t type);

  const std::vector<Tvx_vtx_d2>& points() const { return f_points; }
  void set_count(size_t count);
  void add_point(const Tvx_vtx_d2& point);
  Tvx_vtx_d2 get_point(size_t index) const;
  void set_point(size_t index, const Tvx_vtx_d2& point);

  const std::vector<Tvx_text_metric>& metrics() const { return f_metrics; }
  Tvx_text_metric get_metric(size_t index) const;
  // Null for an index out of range.
  Tvx_text_metric* metric_at(size_t index);

  // Replaces points and metrics together; false (and nothing changed) when the number of metrics is
  // not the one the type asks for.
  bool assign_geometry(std::vector<Tvx_vtx_d2> points, std::vector<Tvx_text_metric> metrics);

  Tvx_callout* get_callout() { return f_callout.get(); }
  const Tvx_callout* get_callout() const { return f_callout.get(); }
  Tvx_callout* add_callout();
  void remove_callout() { f_callout.reset(); }

  std::wstring text;
  std::wstring font_name;
  uint32_t color = 0xFF000000u;
  uint32_t style = 0;
  int32_t align = 0;
  double angle = 0;

 private:
  void fit_metrics();

  int32_t f_type = 1;
  std::vector<Tvx_vtx_d2> f_points;
  std::vector<Tvx_text_metric> f_metrics = std::vector<Tvx_text_metric>(1);
  std::unique_ptr<Tvx_callout> f_callout;
};

// The list owns its labels one by one, so that a label's handle survives the growth of the list.
struct Tvx_text_list_base {
 public:
  size_t size() const { return f_items.size(); }
  Tvx_text_data* at(size_t index) { return index < f_items.size() ? f_items[index].get() : nullptr; }
  const Tvx_text_data* at(size_t index) const {
    return index < f_items.size() ? f_items[index].get() : nullptr;
  }
  Tvx_text_data* add();
  void append(std::unique_ptr<Tvx_text_data> text) { f_items.push_back(std::move(text)); }
  void clear() { f_items.clear(); }

 private:
  std::vector<std::unique_ptr<Tvx_text_data>> f_items;
};
