// The flat functions of generation as a host calls them: a sheet and a box generated, and every refused
// parameter set answered with false, no file and a message through the host's environment.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "files/file_shp.h"
#include "generate_fixture.h"

namespace {

using vxk_test::files_under;
using vxk_test::shape_set;

// The host's environment: keeps the error texts.
struct host_errors {
  std::vector<std::string> texts;
  host_errors() {
    vx_env_callbacks callbacks{};
    callbacks.error = [](void* user, const char* text) {
      static_cast<host_errors*>(user)->texts.emplace_back(text);
    };
    vx_env_install_out(&callbacks, this);
  }
  ~host_errors() { vx_env_remove_out(); }
};

struct sheet_call {
  Tvx_stdlist_string* sheet = vx_stdlist_create();
  Tvx_stdlist_params* params = vx_stdlist_params_create(sheet);
  std::wstring dir;

  explicit sheet_call(const std::string& name) : dir(vxk_test::output_dir(name)) {
    vx_stdlist_set_mln_letter(sheet, L'N');
    vx_stdlist_set_mln_number(sheet, 37);
    vx_stdlist_params_set_output_dir(params, dir.c_str());
    vx_stdlist_params_set_scene_proj(params, vxk_test::GK7);
    vx_stdlist_params_set_lon_divs(params, 6, 6);
    vx_stdlist_params_set_lat_divs(params, 4, 6);
  }
  ~sheet_call() {
    vx_stdlist_params_destroy(params);
    vx_stdlist_destroy(sheet);
  }
};

struct box_call {
  Tvx_stdlist_custom_params* params = vx_stdlist_custom_params_create();
  std::wstring dir;

  explicit box_call(const std::string& name) : dir(vxk_test::output_dir(name)) {
    vx_stdlist_custom_params_set_output_dir(params, dir.c_str());
    vx_stdlist_custom_params_set_scene_proj(params, vxk_test::GK7);
    vx_stdlist_custom_params_set_box(params, 36, 42, 52, 56);
    vx_stdlist_custom_params_set_grid_steps(params, 1, 1);
  }
  ~box_call() { vx_stdlist_custom_params_destroy(params); }
};

TEST(FlatGenerate, AStandardSheetWritesItsAreaInBothSets) {
  host_errors errors;
  sheet_call call("flat_sheet");
  EXPECT_TRUE(vx_stdlist_generate_shapes(call.params));
  const auto files = files_under(call.dir);
  for (const auto& set : {shape_set("HYPS", "Hypsa"), shape_set("latlong/HYPS", "Hypsa")})
    for (const std::string& f : set) EXPECT_TRUE(files.count(f)) << f;
  EXPECT_TRUE(errors.texts.empty());
}

TEST(FlatGenerate, ParametersServeSeveralCalls) {
  sheet_call call("flat_twice");
  EXPECT_TRUE(vx_stdlist_generate_shapes(call.params));
  vx_stdlist_set_mln_number(call.sheet, 38);  // read again at the next call
  EXPECT_TRUE(vx_stdlist_generate_shapes(call.params));
  // five shape files in each set with their four side files: the same names, replaced
  EXPECT_EQ(files_under(call.dir).size(), 5u * 5u * 2u);
  Tvx_file_shp back;
  back.open(call.dir + L"latlong/HYPS/Hypsa.shp", true);
  EXPECT_NEAR(back.get_rect2d().xmin, 42.0, 1e-7);
}

TEST(FlatGenerate, AFreeBoxAnswersTrue) {
  box_call call("flat_box");
  EXPECT_TRUE(vx_stdlist_custom_generate_shapes(call.params));
  EXPECT_TRUE(files_under(call.dir).count("latlong/HYPS/Hypsa.shp"));
}

TEST(FlatGenerate, AFreeBoxAnswersTrueAlsoWhenItsRunFails) {
  box_call call("flat_box_fails");
  vx_stdlist_custom_params_set_output_dir(call.params, (call.dir + L"no/such/").c_str());
  EXPECT_TRUE(vx_stdlist_custom_generate_shapes(call.params));
}

TEST(FlatGenerate, RefusedSheetsWriteNothingAndSaySo) {
  struct change {
    const char* what;
    void (*apply)(Tvx_stdlist_string*, Tvx_stdlist_params*);
  };
  const change changes[] = {
      {"scale 1:500,000", [](Tvx_stdlist_string* s, Tvx_stdlist_params*) { vx_stdlist_init(s, 2, 1, 1); }},
      {"scale 1:100,000", [](Tvx_stdlist_string* s, Tvx_stdlist_params*) { vx_stdlist_init(s, 5, 1, 1); }},
      {"scale 1:10,000", [](Tvx_stdlist_string* s, Tvx_stdlist_params*) { vx_stdlist_init(s, 8, 1, 1); }},
      {"fresh divisions",
       [](Tvx_stdlist_string*, Tvx_stdlist_params* p) {
         vx_stdlist_params_set_lon_divs(p, 0, 0);
         vx_stdlist_params_set_lat_divs(p, 0, 0);
       }},
      {"no marks",
       [](Tvx_stdlist_string*, Tvx_stdlist_params* p) { vx_stdlist_params_set_lat_divs(p, 4, 0); }},
      {"negative",
       [](Tvx_stdlist_string*, Tvx_stdlist_params* p) { vx_stdlist_params_set_lon_divs(p, -6, 6); }},
      {"too many",
       [](Tvx_stdlist_string*, Tvx_stdlist_params* p) { vx_stdlist_params_set_lon_divs(p, 1000, 1000); }},
  };
  for (const change& c : changes) {
    host_errors errors;
    sheet_call call(std::string("flat_refused_sheet"));
    c.apply(call.sheet, call.params);
    EXPECT_FALSE(vx_stdlist_generate_shapes(call.params)) << c.what;
    EXPECT_TRUE(files_under(call.dir).empty()) << c.what;
    EXPECT_EQ(errors.texts.size(), 1u) << c.what;
  }
}

TEST(FlatGenerate, RefusedBoxesWriteNothingSaySoAndAnswerFalse) {
  const double nan = std::nan("");
  const double cases[][6] = {
      {36, 42, 52, 56, 0, 1},   {36, 42, 52, 56, 1, 0},       {36, 42, 52, 56, -1, 1},
      {36, 42, 52, 56, nan, 1}, {42, 36, 52, 56, 1, 1},       {36, 42, 56, 56, 1, 1},
      {nan, 42, 52, 56, 1, 1},  {36, INFINITY, 52, 56, 1, 1}, {36, 42, 52, 56, 1e-9, 1},
      {0, 1e6, 52, 56, 1, 1},
  };
  for (const auto& c : cases) {
    host_errors errors;
    box_call call("flat_refused_box");
    vx_stdlist_custom_params_set_box(call.params, c[0], c[1], c[2], c[3]);
    vx_stdlist_custom_params_set_grid_steps(call.params, c[4], c[5]);
    EXPECT_FALSE(vx_stdlist_custom_generate_shapes(call.params)) << c[0] << " " << c[4];
    EXPECT_TRUE(files_under(call.dir).empty());
    EXPECT_EQ(errors.texts.size(), 1u);
  }
  host_errors errors;
  Tvx_stdlist_custom_params* unset = vx_stdlist_custom_params_create();
  vx_stdlist_custom_params_set_grid_steps(unset, 1, 1);
  EXPECT_FALSE(vx_stdlist_custom_generate_shapes(unset));
  vx_stdlist_custom_params_destroy(unset);
  ASSERT_EQ(errors.texts.size(), 1u);
  EXPECT_EQ(errors.texts[0], "Box generation refused: the box is not set");
}

TEST(FlatGenerate, WithoutAnEnvironmentARefusalIsSilentAndStillFalse) {
  box_call call("flat_silent");
  vx_stdlist_custom_params_set_grid_steps(call.params, 0, 0);
  EXPECT_FALSE(vx_stdlist_custom_generate_shapes(call.params));
}

TEST(FlatGenerate, NullHandlesAreRefused) {
  EXPECT_FALSE(vx_stdlist_generate_shapes(nullptr));
  EXPECT_FALSE(vx_stdlist_custom_generate_shapes(nullptr));
  host_errors errors;
  Tvx_stdlist_params* p = vx_stdlist_params_create(nullptr);
  EXPECT_FALSE(vx_stdlist_generate_shapes(p));
  vx_stdlist_params_destroy(p);
  EXPECT_EQ(errors.texts.size(), 1u);
}

TEST(FlatGenerate, AnInvalidDesignationIsDrawnWhereItsNumbersPutIt) {
  sheet_call call("flat_invalid_designation");
  vx_stdlist_init(call.sheet, VX_STDLIST_SC_200, VX_STDLIST_TP_SGL, VX_STDLIST_NORTH);
  call.sheet->sheet.set_200_roman_idx(0);  // out of range: not refused, not validated
  ASSERT_EQ(call.sheet->sheet.get_200_roman_idx(), 0u);
  vx_stdlist_params_set_lon_divs(call.params, 3, 20);
  vx_stdlist_params_set_lat_divs(call.params, 2, 20);
  EXPECT_TRUE(vx_stdlist_generate_shapes(call.params));
}

// ---- where a sheet lies ---------------------------------------------------------------------------

TEST(FlatSheetBox, GivesTheBoxOfAValidSheetAndZerosOtherwise) {
  Tvx_stdlist_string* sheet = vx_stdlist_create();
  vx_stdlist_set_mln_letter(sheet, L'N');
  vx_stdlist_set_mln_number(sheet, 37);
  vx_stdlist_set_200_roman_idx(sheet, 6);
  vx_stdlist_init(sheet, VX_STDLIST_SC_200, VX_STDLIST_TP_DBL, VX_STDLIST_NORTH);
  double xmin = 1, xmax = 1, ymin = 1, ymax = 1;
  EXPECT_TRUE(vx_stdlist_get_box(sheet, &xmin, &xmax, &ymin, &ymax));
  EXPECT_EQ(xmin, 41.0);
  EXPECT_EQ(xmax, 43.0);
  EXPECT_NEAR(ymin, 55.0 + 1.0 / 3, 1e-12);
  EXPECT_EQ(ymax, 56.0);
  vx_stdlist_set_200_roman_idx(sheet, 0);
  EXPECT_FALSE(vx_stdlist_get_box(sheet, &xmin, &xmax, &ymin, &ymax));
  EXPECT_EQ(xmin + xmax + ymin + ymax, 0.0);
  vx_stdlist_destroy(sheet);
}

TEST(FlatSheetBox, FindsTheSheetOfAPointAndLeavesTheRecordOnRefusal) {
  Tvx_stdlist_string* sheet = vx_stdlist_create();
  ASSERT_TRUE(vx_stdlist_init_at(sheet, VX_STDLIST_SC_10, VX_STDLIST_NORTH, 37.6173, 55.7558));
  EXPECT_EQ(vx_stdlist_get_scale(sheet), VX_STDLIST_SC_10);
  EXPECT_EQ(vx_stdlist_get_type(sheet), VX_STDLIST_TP_SGL);
  EXPECT_EQ(vx_stdlist_get_mln_letter(sheet), L'N');
  EXPECT_EQ(vx_stdlist_get_mln_number(sheet), 37u);
  EXPECT_EQ(vx_stdlist_get_100_number(sheet), 4u);  // N-37-4-В-а-4
  EXPECT_EQ(vx_stdlist_get_50_letter(sheet), L'В');
  EXPECT_EQ(vx_stdlist_get_25_letter(sheet), L'а');
  EXPECT_EQ(vx_stdlist_get_10_number(sheet), 4u);
  Tvx_stdlist_string* copy = vx_stdlist_create();
  vx_stdlist_assign(copy, sheet);
  EXPECT_FALSE(vx_stdlist_init_at(sheet, VX_STDLIST_SC_200, VX_STDLIST_SOUTH, 37.6, 55.7));
  EXPECT_FALSE(vx_stdlist_init_at(sheet, VX_STDLIST_SC_300, VX_STDLIST_NORTH, 37.6, 55.7));
  EXPECT_FALSE(vx_stdlist_init_at(sheet, VX_STDLIST_SC_200, VX_STDLIST_NORTH, 37.6, 89));
  EXPECT_TRUE(vx_stdlist_equal(sheet, copy));
  vx_stdlist_destroy(copy);
  vx_stdlist_destroy(sheet);
}

}  // namespace
