// Flat functions over text lists, so that a host can read, build and change a list without a file.
#include <new>
#include <stdexcept>

#include "services/text_list.h"
#include "vxk_proj4_shp.h"

namespace {

// Runs a change that may allocate; memory running out becomes a false result, never an exception
// across the flat interface.
template <typename F>
bool without_throwing(F&& change) {
  try {
    change();
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  } catch (const std::length_error&) {
    return false;
  }
}

void set_metric(Tvx_text_data* text, unsigned index, double Tvx_text_metric::*field, double value) {
  if (Tvx_text_metric* m = text->metric_at(index)) m->*field = value;
}

}  // namespace

extern "C" {

VX_API Tvx_text_list_base* vx_text_list_create(void) {
  return new (std::nothrow) Tvx_text_list_base();
}

VX_API void vx_text_list_destroy(Tvx_text_list_base* list) {
  delete list;
}

VX_API unsigned vx_text_list_get_size(const Tvx_text_list_base* list) {
  return static_cast<unsigned>(list->size());
}

VX_API Tvx_text_data* vx_text_list_at(Tvx_text_list_base* list, unsigned index) {
  return list->at(index);
}

VX_API Tvx_text_data* vx_text_list_add(Tvx_text_list_base* list) {
  Tvx_text_data* added = nullptr;
  without_throwing([&] { added = list->add(); });
  return added;
}

VX_API void vx_text_list_clear(Tvx_text_list_base* list) {
  list->clear();
}

VX_API int vx_text_data_get_type(const Tvx_text_data* text) {
  return text->get_type();
}

VX_API void vx_text_data_set_type(Tvx_text_data* text, int type) {
  // Growing to one metric per point may run out of memory; the type then stays.
  const int32_t old = text->get_type();
  if (!without_throwing([&] { text->set_type(type); })) text->set_type(old);
}

VX_API unsigned vx_text_data_get_count(const Tvx_text_data* text) {
  return static_cast<unsigned>(text->points().size());
}

VX_API bool vx_text_data_set_count(Tvx_text_data* text, unsigned count) {
  const size_t old = text->points().size();
  if (without_throwing([&] { text->set_count(count); })) return true;
  text->set_count(old);
  return false;
}

VX_API bool vx_text_data_add_point(Tvx_text_data* text, Tvx_vtx_d2 point) {
  const size_t old = text->points().size();
  if (without_throwing([&] { text->add_point(point); })) return true;
  text->set_count(old);
  return false;
}

VX_API Tvx_vtx_d2 vx_text_data_get_point(const Tvx_text_data* text, unsigned index) {
  return text->get_point(index);
}

VX_API void vx_text_data_set_point(Tvx_text_data* text, Tvx_vtx_d2 point, unsigned index) {
  text->set_point(index, point);
}

VX_API unsigned vx_text_data_get_size_count(const Tvx_text_data* text) {
  return static_cast<unsigned>(text->metrics().size());
}

VX_API double vx_text_data_get_size(const Tvx_text_data* text, unsigned index) {
  return text->get_metric(index).size;
}

VX_API double vx_text_data_get_delta_x(const Tvx_text_data* text, unsigned index) {
  return text->get_metric(index).delta_x;
}

VX_API double vx_text_data_get_delta_y(const Tvx_text_data* text, unsigned index) {
  return text->get_metric(index).delta_y;
}

VX_API void vx_text_data_set_size(Tvx_text_data* text, double size, unsigned index) {
  set_metric(text, index, &Tvx_text_metric::size, size);
}

VX_API void vx_text_data_set_delta_x(Tvx_text_data* text, double delta_x, unsigned index) {
  set_metric(text, index, &Tvx_text_metric::delta_x, delta_x);
}

VX_API void vx_text_data_set_delta_y(Tvx_text_data* text, double delta_y, unsigned index) {
  set_metric(text, index, &Tvx_text_metric::delta_y, delta_y);
}

VX_API const wchar_t* vx_text_data_get_text(const Tvx_text_data* text) {
  return text->text.c_str();
}

VX_API bool vx_text_data_set_text(Tvx_text_data* text, const wchar_t* value) {
  return without_throwing([&] { text->text = value ? value : L""; });
}

VX_API const wchar_t* vx_text_data_get_font_name(const Tvx_text_data* text) {
  return text->font_name.c_str();
}

VX_API bool vx_text_data_set_font_name(Tvx_text_data* text, const wchar_t* value) {
  return without_throwing([&] { text->font_name = value ? value : L""; });
}

VX_API uint32_t vx_text_data_get_color(const Tvx_text_data* text) {
  return text->color;
}

VX_API void vx_text_data_set_color(Tvx_text_data* text, uint32_t color) {
  text->color = color;
}

VX_API uint32_t vx_text_data_get_style(const Tvx_text_data* text) {
  return text->style;
}

VX_API void vx_text_data_set_style(Tvx_text_data* text, uint32_t style) {
  text->style = style;
}

VX_API int32_t vx_text_data_get_align(const Tvx_text_data* text) {
  return text->align;
}

VX_API void vx_text_data_set_align(Tvx_text_data* text, int32_t align) {
  text->align = align;
}

VX_API double vx_text_data_get_angle(const Tvx_text_data* text) {
  return text->angle;
}

VX_API void vx_text_data_set_angle(Tvx_text_data* text, double angle) {
  text->angle = angle;
}

VX_API Tvx_callout* vx_text_data_get_callout(Tvx_text_data* text) {
  return text->get_callout();
}

VX_API Tvx_callout* vx_text_data_add_callout(Tvx_text_data* text) {
  Tvx_callout* callout = nullptr;
  without_throwing([&] { callout = text->add_callout(); });
  return callout;
}

VX_API void vx_text_data_remove_callout(Tvx_text_data* text) {
  text->remove_callout();
}

VX_API unsigned vx_callout_get_size(const Tvx_callout* callout) {
  return static_cast<unsigned>(callout->end_points.size());
}

VX_API Tvx_vtx_d2 vx_callout_get_end_point(const Tvx_callout* callout, unsigned index) {
  return index < callout->end_points.size() ? callout->end_points[index] : Tvx_vtx_d2{0, 0};
}

VX_API void vx_callout_set_end_point(Tvx_callout* callout, Tvx_vtx_d2 point, unsigned index) {
  if (index < callout->end_points.size()) callout->end_points[index] = point;
}

VX_API bool vx_callout_add_end_point(Tvx_callout* callout, Tvx_vtx_d2 point) {
  return without_throwing([&] { callout->end_points.push_back(point); });
}

}  // extern "C"
