// Label lists shared by the tests of text lists, TLD files and their reprojection.
#pragma once

#include <gtest/gtest.h>

#include "services/flat_types.h"

namespace vxk_test {

// One label of every kind, with every field set to something other than its default: a type 2 label
// along a line with five points and a callout, a type 1 label with five points and no callout, a
// Cyrillic label with a callout without end points, and a label with no point at all.
inline Tvx_text_list_base* make_full_list() {
  Tvx_text_list_base* list = vx_text_list_create();

  Tvx_text_data* river = vx_text_list_add(list);
  vx_text_data_set_type(river, 2);
  for (int i = 0; i < 5; ++i) {
    vx_text_data_add_point(river, Tvx_vtx_d2{37.5 + 0.01 * i, 55.75 + 0.002 * i});
    vx_text_data_set_size(river, 0.01 + 0.001 * i, i);
    vx_text_data_set_delta_x(river, 0.0005 * i, i);
    vx_text_data_set_delta_y(river, -0.0003 * i, i);
  }
  vx_text_data_set_text(river, L"Москва-река");
  vx_text_data_set_font_name(river, L"Times New Roman Cyr");
  vx_text_data_set_color(river, 0xFF0033CCu);
  vx_text_data_set_style(river, VX_TEXT_STYLE_ITALIC);
  vx_text_data_set_align(river, 7);
  vx_text_data_set_angle(river, 12.5);
  Tvx_callout* c = vx_text_data_add_callout(river);
  vx_callout_add_end_point(c, Tvx_vtx_d2{37.61, 55.76});
  vx_callout_add_end_point(c, Tvx_vtx_d2{37.62, 55.77});

  Tvx_text_data* town = vx_text_list_add(list);
  vx_text_data_set_type(town, 1);
  for (int i = 0; i < 5; ++i) vx_text_data_add_point(town, Tvx_vtx_d2{30.3 + i, 59.9 - i});
  vx_text_data_set_size(town, 0.02, 0);
  vx_text_data_set_delta_x(town, 0.001, 0);
  vx_text_data_set_delta_y(town, 0.002, 0);
  vx_text_data_set_text(town, L"Saint Petersburg / Санкт-Петербург");
  vx_text_data_set_font_name(town, L"Arial");
  vx_text_data_set_color(town, 0x80112233u);
  vx_text_data_set_style(town, VX_TEXT_STYLE_BOLD | VX_TEXT_STYLE_UNDERLINE | 0x100u);
  vx_text_data_set_align(town, -3);
  vx_text_data_set_angle(town, -90);

  Tvx_text_data* hill = vx_text_list_add(list);
  vx_text_data_set_type(hill, 7);
  vx_text_data_add_point(hill, Tvx_vtx_d2{-0.5, -0.25});
  vx_text_data_set_size(hill, 0.005, 0);
  vx_text_data_set_text(hill, L"г. Ёлкина «Щ» ∑ 𝄞");
  vx_text_data_set_font_name(hill, L"Шрифт");
  vx_text_data_add_callout(hill);

  Tvx_text_data* empty = vx_text_list_add(list);
  vx_text_data_set_type(empty, 0);
  vx_text_data_set_size(empty, 3.25, 0);
  return list;
}

// Every field of every label equal, bit for bit in the numbers.
inline void expect_same_lists(Tvx_text_list_base* a, Tvx_text_list_base* b) {
  ASSERT_EQ(vx_text_list_get_size(a), vx_text_list_get_size(b));
  for (unsigned i = 0; i < vx_text_list_get_size(a); ++i) {
    SCOPED_TRACE(i);
    Tvx_text_data* x = vx_text_list_at(a, i);
    Tvx_text_data* y = vx_text_list_at(b, i);
    EXPECT_EQ(vx_text_data_get_type(x), vx_text_data_get_type(y));
    ASSERT_EQ(vx_text_data_get_count(x), vx_text_data_get_count(y));
    for (unsigned j = 0; j < vx_text_data_get_count(x); ++j) {
      EXPECT_EQ(vx_text_data_get_point(x, j).x, vx_text_data_get_point(y, j).x);
      EXPECT_EQ(vx_text_data_get_point(x, j).y, vx_text_data_get_point(y, j).y);
    }
    const unsigned metrics =
        vx_text_data_get_count(x) > 1 && vx_text_data_get_type(x) == 2 ? vx_text_data_get_count(x) : 1;
    EXPECT_EQ(vx_text_data_get_size_count(x), metrics);
    EXPECT_EQ(vx_text_data_get_size_count(y), metrics);
    for (unsigned j = 0; j < metrics; ++j) {
      EXPECT_EQ(vx_text_data_get_size(x, j), vx_text_data_get_size(y, j));
      EXPECT_EQ(vx_text_data_get_delta_x(x, j), vx_text_data_get_delta_x(y, j));
      EXPECT_EQ(vx_text_data_get_delta_y(x, j), vx_text_data_get_delta_y(y, j));
    }
    EXPECT_STREQ(vx_text_data_get_text(x), vx_text_data_get_text(y));
    EXPECT_STREQ(vx_text_data_get_font_name(x), vx_text_data_get_font_name(y));
    EXPECT_EQ(vx_text_data_get_color(x), vx_text_data_get_color(y));
    EXPECT_EQ(vx_text_data_get_style(x), vx_text_data_get_style(y));
    EXPECT_EQ(vx_text_data_get_align(x), vx_text_data_get_align(y));
    EXPECT_EQ(vx_text_data_get_angle(x), vx_text_data_get_angle(y));
    Tvx_callout* cx = vx_text_data_get_callout(x);
    Tvx_callout* cy = vx_text_data_get_callout(y);
    ASSERT_EQ(cx == nullptr, cy == nullptr);
    if (!cx) continue;
    ASSERT_EQ(vx_callout_get_size(cx), vx_callout_get_size(cy));
    for (unsigned e = 0; e < vx_callout_get_size(cx); ++e) {
      EXPECT_EQ(vx_callout_get_end_point(cx, e).x, vx_callout_get_end_point(cy, e).x);
      EXPECT_EQ(vx_callout_get_end_point(cx, e).y, vx_callout_get_end_point(cy, e).y);
    }
  }
}

}  // namespace vxk_test
