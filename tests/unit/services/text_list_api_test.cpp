// The flat functions of text lists, as a host calls them.
#include <gtest/gtest.h>

#include "text_list_samples.h"
#include "vxk_proj4_shp.h"

namespace {

TEST(TextListApi, HostBuildsAListWithoutAFile) {
  Tvx_text_list_base* list = vx_text_list_create();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(vx_text_list_get_size(list), 0u);
  Tvx_text_data* t = vx_text_list_add(list);
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(vx_text_list_get_size(list), 1u);
  EXPECT_EQ(vx_text_list_at(list, 0), t);
  EXPECT_EQ(vx_text_list_at(list, 1), nullptr);

  EXPECT_TRUE(vx_text_data_set_count(t, 2));
  vx_text_data_set_point(t, Tvx_vtx_d2{10, 20}, 1);
  EXPECT_EQ(vx_text_data_get_point(t, 1).x, 10);
  EXPECT_EQ(vx_text_data_get_point(t, 1).y, 20);
  vx_text_data_set_size(t, 2.5, 0);
  vx_text_data_set_delta_x(t, 0.5, 0);
  vx_text_data_set_delta_y(t, -0.5, 0);
  EXPECT_EQ(vx_text_data_get_size(t, 0), 2.5);
  EXPECT_EQ(vx_text_data_get_delta_x(t, 0), 0.5);
  EXPECT_EQ(vx_text_data_get_delta_y(t, 0), -0.5);
  vx_text_list_destroy(list);
}

TEST(TextListApi, TypeOneHasItsSizeOnlyAtIndexZero) {
  Tvx_text_list_base* list = vx_text_list_create();
  Tvx_text_data* t = vx_text_list_add(list);
  vx_text_data_set_count(t, 5);
  EXPECT_EQ(vx_text_data_get_size_count(t), 1u);
  vx_text_data_set_size(t, 4, 3);
  EXPECT_EQ(vx_text_data_get_size(t, 3), 0);
  vx_text_data_set_type(t, 2);
  EXPECT_EQ(vx_text_data_get_size_count(t), 5u);
  vx_text_data_set_size(t, 4, 3);
  EXPECT_EQ(vx_text_data_get_size(t, 3), 4);
  vx_text_list_destroy(list);
}

TEST(TextListApi, TextsAreWideAndNullStoresEmpty) {
  Tvx_text_list_base* list = vx_text_list_create();
  Tvx_text_data* t = vx_text_list_add(list);
  EXPECT_STREQ(vx_text_data_get_text(t), L"");
  EXPECT_TRUE(vx_text_data_set_text(t, L"Волга"));
  EXPECT_TRUE(vx_text_data_set_font_name(t, L"Arial Cyr"));
  EXPECT_STREQ(vx_text_data_get_text(t), L"Волга");
  EXPECT_STREQ(vx_text_data_get_font_name(t), L"Arial Cyr");
  EXPECT_TRUE(vx_text_data_set_text(t, nullptr));
  EXPECT_STREQ(vx_text_data_get_text(t), L"");
  vx_text_list_destroy(list);
}

TEST(TextListApi, StyleFieldsAreStoredAsGiven) {
  Tvx_text_list_base* list = vx_text_list_create();
  Tvx_text_data* t = vx_text_list_add(list);
  vx_text_data_set_color(t, 0x12345678u);
  vx_text_data_set_style(t, 0xFFFFFFFFu);
  vx_text_data_set_align(t, -1);
  vx_text_data_set_angle(t, 45.25);
  EXPECT_EQ(vx_text_data_get_color(t), 0x12345678u);
  EXPECT_EQ(vx_text_data_get_style(t), 0xFFFFFFFFu);
  EXPECT_EQ(vx_text_data_get_align(t), -1);
  EXPECT_EQ(vx_text_data_get_angle(t), 45.25);
  vx_text_list_destroy(list);
}

TEST(TextListApi, CalloutIsMadeOnRequestAndHoldsEndPoints) {
  Tvx_text_list_base* list = vx_text_list_create();
  Tvx_text_data* t = vx_text_list_add(list);
  EXPECT_EQ(vx_text_data_get_callout(t), nullptr);
  Tvx_callout* c = vx_text_data_add_callout(t);
  ASSERT_NE(c, nullptr);
  EXPECT_EQ(vx_text_data_get_callout(t), c);
  EXPECT_EQ(vx_callout_get_size(c), 0u);
  EXPECT_TRUE(vx_callout_add_end_point(c, Tvx_vtx_d2{1, 2}));
  vx_callout_set_end_point(c, Tvx_vtx_d2{3, 4}, 0);
  vx_callout_set_end_point(c, Tvx_vtx_d2{5, 6}, 1);  // out of range: nothing
  EXPECT_EQ(vx_callout_get_size(c), 1u);
  EXPECT_EQ(vx_callout_get_end_point(c, 0).x, 3);
  EXPECT_EQ(vx_callout_get_end_point(c, 0).y, 4);
  EXPECT_EQ(vx_callout_get_end_point(c, 1).x, 0);
  vx_text_data_remove_callout(t);
  EXPECT_EQ(vx_text_data_get_callout(t), nullptr);
  vx_text_list_destroy(list);
}

TEST(TextListApi, ClearEmptiesTheList) {
  Tvx_text_list_base* list = vxk_test::make_full_list();
  EXPECT_EQ(vx_text_list_get_size(list), 4u);
  vx_text_list_clear(list);
  EXPECT_EQ(vx_text_list_get_size(list), 0u);
  vx_text_list_destroy(list);
}

TEST(TextListApi, DestroyAcceptsNull) {
  vx_text_list_destroy(nullptr);
}

}  // namespace
