#include "proj4/pj_defs.h"

#include <gtest/gtest.h>

namespace {

TEST(PjParam, AllFlagsStartFalse) {
  Tvx_pj_dbl_param d;
  Tvx_pj_str_param s;
  Tvx_pj_bool_param b;
  Tvx_pj_int_param i;
  for (const Tvx_pj_param* p : {static_cast<const Tvx_pj_param*>(&d), static_cast<const Tvx_pj_param*>(&s),
                                static_cast<const Tvx_pj_param*>(&b), static_cast<const Tvx_pj_param*>(&i)}) {
    EXPECT_FALSE(p->get_show());
    EXPECT_FALSE(p->get_use_proj4());
    EXPECT_FALSE(p->get_def_default());
  }
  EXPECT_FALSE(d.get_def_min() || d.get_def_max());
  EXPECT_EQ(d.get_default(), 0.0);
  EXPECT_STREQ(s.get_default(), "");
  EXPECT_FALSE(b.get_default());
  EXPECT_EQ(i.get_default(), 0);
}

TEST(PjParam, AccessorsKeepWhatIsSet) {
  Tvx_pj_dbl_param d;
  d.set_show(true);
  d.set_use_proj4(true);
  d.set_def_default(true);
  d.set_def_min(true);
  d.set_def_max(true);
  d.set_min(-90);
  d.set_max(90);
  d.set_default(54.5);
  EXPECT_TRUE(d.get_show() && d.get_use_proj4() && d.get_def_default() && d.get_def_min() && d.get_def_max());
  EXPECT_EQ(d.get_min(), -90);
  EXPECT_EQ(d.get_max(), 90);
  EXPECT_EQ(d.get_default(), 54.5);
  Tvx_pj_str_param s;
  s.set_default("WGS84");
  EXPECT_STREQ(s.get_default(), "WGS84");
  s.set_default(nullptr);
  EXPECT_STREQ(s.get_default(), "");
}

TEST(PjProjDef, OwnsADistinctParameterOfEachName) {
  Tvx_pj_proj_def d;
  const Tvx_pj_dbl_param* all[] = {d.get_lon_0(),  d.get_lonc(),  d.get_lat_0(), d.get_x_0(), d.get_y_0(),
                                   d.get_lat_ts(), d.get_lat_1(), d.get_lat_2(), d.get_k_0(), d.get_alpha()};
  for (size_t i = 0; i < std::size(all); ++i) {
    ASSERT_NE(all[i], nullptr);
    for (size_t j = i + 1; j < std::size(all); ++j) EXPECT_NE(all[i], all[j]);
  }
  EXPECT_NE(d.get_units(), d.get_datum());
  EXPECT_NE(d.get_zone_name(), d.get_datum());
  EXPECT_EQ(d.get_index(), 0u);
  d.set_index(7);
  d.set_caption("Gauss-Kruger");
  d.set_add_caption("zone 7");
  d.set_prj4_name("tmerc");
  EXPECT_EQ(d.get_index(), 7u);
  EXPECT_STREQ(d.get_caption(), "Gauss-Kruger");
  EXPECT_STREQ(d.get_add_caption(), "zone 7");
  EXPECT_STREQ(d.get_prj4_name(), "tmerc");
}

// A small catalogue built in the test, so that what fits is worked out here and not by the library.
class PjProjDefs : public ::testing::Test {
 protected:
  Tvx_pj_proj_def* entry(const char* caption, const char* name, int zone = 0) {
    Tvx_pj_proj_def* d = defs.add();
    d->set_index(defs.get_size() * 10);
    d->set_caption(caption);
    d->set_prj4_name(name);
    d->get_zone()->set_default(zone);
    return d;
  }
  static void south(Tvx_pj_proj_def* d, bool use, bool def_default, bool value) {
    d->get_south()->set_use_proj4(use);
    d->get_south()->set_def_default(def_default);
    d->get_south()->set_default(value);
  }
  static void lat_0(Tvx_pj_proj_def* d, double value) {
    d->get_lat_0()->set_def_default(true);
    d->get_lat_0()->set_default(value);
  }
  Tvx_pj_proj_defs defs;
};

TEST_F(PjProjDefs, EmptyCatalogueFindsNothing) {
  EXPECT_EQ(defs.get_size(), 0u);
  EXPECT_EQ(defs.get(0), nullptr);
  EXPECT_EQ(defs.find_by_index(0), nullptr);
  EXPECT_EQ(defs.find_by_caption_and_zone("", 0), nullptr);
  EXPECT_EQ(defs.find_utm("utm", 0, false), nullptr);
  EXPECT_EQ(defs.find_by_name_south("utm", false), nullptr);
  EXPECT_EQ(defs.find_by_name_lat_south("utm", 0, false, false, false, false, false), nullptr);
}

TEST_F(PjProjDefs, SizeGrowsAndShrinksFromTheEnd) {
  Tvx_pj_proj_def* first = defs.add();
  defs.set_size(3);
  EXPECT_EQ(defs.get_size(), 3u);
  EXPECT_EQ(defs.get(0), first);
  EXPECT_NE(defs.get(2), nullptr);
  defs.set_size(1);
  EXPECT_EQ(defs.get(0), first);
  EXPECT_EQ(defs.get(1), nullptr);
  defs.clear();
  EXPECT_EQ(defs.get_size(), 0u);
}

TEST_F(PjProjDefs, FindByIndexLooksAtTheIndexNotThePosition) {
  entry("A", "merc");
  Tvx_pj_proj_def* b = entry("B", "merc");
  EXPECT_EQ(defs.find_by_index(20), b);
  EXPECT_EQ(defs.find_by_index(1), nullptr);
}

TEST_F(PjProjDefs, CaptionAndZoneIgnoreCaseOfTheCaption) {
  entry("Gauss-Kruger", "tmerc", 6);
  Tvx_pj_proj_def* seven = entry("Gauss-Kruger", "tmerc", 7);
  entry("Gauss-Kruger", "tmerc", 7);  // a second of the same zone is never reached
  EXPECT_EQ(defs.find_by_caption_and_zone("GAUSS-KRUGER", 7), seven);
  EXPECT_EQ(defs.find_by_caption_and_zone("Gauss-Kruger ", 7), nullptr);
  EXPECT_EQ(defs.find_by_caption_and_zone("Gauss-Kruger", 8), nullptr);
}

TEST_F(PjProjDefs, UtmHemisphereIsWhatGoesIntoTheString) {
  Tvx_pj_proj_def* north = entry("UTM", "utm", 37);
  south(north, false, true, true);  // a default of true that is not written is still north
  Tvx_pj_proj_def* southern = entry("UTM", "utm", 37);
  south(southern, true, false, true);  // written and true, though not marked as a default
  EXPECT_EQ(defs.find_utm("UTM", 37, false), north);
  EXPECT_EQ(defs.find_utm("utm", 37, true), southern);
  EXPECT_EQ(defs.find_utm("utm", 38, false), nullptr);
  EXPECT_EQ(defs.find_by_name_south("Utm", true), southern);
  EXPECT_EQ(defs.find_by_name_south("utm", false), north);
  EXPECT_EQ(defs.find_by_name_south("tmerc", false), nullptr);
}

// The latitude search looks at the hemisphere's default flag, where the UTM search looks at whether
// "+south" is written: the same two entries answer the other way round.
TEST_F(PjProjDefs, LatitudeSearchLooksAtTheHemisphereDefaultFlag) {
  Tvx_pj_proj_def* a = entry("A", "utm", 37);
  south(a, false, true, true);
  Tvx_pj_proj_def* b = entry("B", "utm", 37);
  south(b, true, false, true);
  EXPECT_EQ(defs.find_by_name_lat_south("utm", 0, false, false, false, false, true), a);
  EXPECT_EQ(defs.find_by_name_lat_south("utm", 0, false, false, false, false, false), b);
  EXPECT_EQ(defs.find_utm("utm", 37, true), b);
  EXPECT_EQ(defs.find_utm("utm", 37, false), a);
}

TEST_F(PjProjDefs, LatitudeOfOriginWithinOneTenThousandth) {
  Tvx_pj_proj_def* d = entry("Stereo 54", "sterea");
  lat_0(d, 54);
  EXPECT_EQ(defs.find_by_name_lat_south("sterea", 54.00005, false, false, false, false, false), d);
  EXPECT_EQ(defs.find_by_name_lat_south("sterea", 53.99995, false, false, false, false, false), d);
  EXPECT_EQ(defs.find_by_name_lat_south("sterea", 54.0002, false, false, false, false, false), nullptr);
  EXPECT_EQ(defs.find_by_name_lat_south("sterea", 53.9998, false, false, false, false, false), nullptr);
  // Without a default of its own, any latitude fits.
  d->get_lat_0()->set_def_default(false);
  EXPECT_EQ(defs.find_by_name_lat_south("sterea", -10, false, false, false, false, false), d);
}

TEST_F(PjProjDefs, PolesAreToldApartByTheirLatitude) {
  Tvx_pj_proj_def* north = entry("Polar", "stere");
  lat_0(north, 90);
  Tvx_pj_proj_def* south_pole = entry("Polar", "stere");
  lat_0(south_pole, -90);
  EXPECT_EQ(defs.find_by_name_lat_south("STERE", -90, false, false, false, false, false), south_pole);
  EXPECT_EQ(defs.find_by_name_lat_south("stere", 90, false, false, false, false, false), north);
  EXPECT_EQ(defs.find_by_name_lat_south("stere", 0, false, false, false, false, false), nullptr);
}

TEST_F(PjProjDefs, AnEntryMayHaveMoreParametersButNotFewer) {
  Tvx_pj_proj_def* one = entry("One parallel", "lcc");
  one->get_lat_1()->set_use_proj4(true);
  Tvx_pj_proj_def* two = entry("Two parallels", "lcc");
  two->get_lat_1()->set_use_proj4(true);
  two->get_lat_2()->set_use_proj4(true);
  EXPECT_EQ(defs.find_by_name_lat_south("lcc", 0, false, false, false, false, false), one);
  EXPECT_EQ(defs.find_by_name_lat_south("lcc", 0, true, false, false, false, false), one);
  EXPECT_EQ(defs.find_by_name_lat_south("lcc", 0, true, true, false, false, false), two);
  EXPECT_EQ(defs.find_by_name_lat_south("lcc", 0, false, true, false, false, false), two);
  EXPECT_EQ(defs.find_by_name_lat_south("lcc", 0, false, false, true, false, false), nullptr);
}

// A scale factor is asked for only when no true scale parallel is: the two are alternatives.
TEST_F(PjProjDefs, ScaleFactorCountsOnlyWithoutTrueScaleParallel) {
  Tvx_pj_proj_def* ts = entry("Mercator ts", "merc");
  ts->get_lat_ts()->set_use_proj4(true);
  Tvx_pj_proj_def* k = entry("Mercator k", "merc");
  k->get_k_0()->set_use_proj4(true);
  EXPECT_EQ(defs.find_by_name_lat_south("merc", 0, false, false, false, true, false), k);
  EXPECT_EQ(defs.find_by_name_lat_south("merc", 0, false, false, true, false, false), ts);
  EXPECT_EQ(defs.find_by_name_lat_south("merc", 0, false, false, true, true, false), ts);
  EXPECT_EQ(defs.find_by_name_lat_south("merc", 0, false, false, false, false, false), ts);
}

TEST_F(PjProjDefs, NameComesFirstAndNullNamesFindNothing) {
  entry("Mercator", "merc");
  EXPECT_EQ(defs.find_by_name_lat_south("tmerc", 0, false, false, false, false, false), nullptr);
  EXPECT_EQ(defs.find_by_name_lat_south(nullptr, 0, false, false, false, false, false), nullptr);
  EXPECT_EQ(defs.find_by_caption_and_zone(nullptr, 0), nullptr);
  EXPECT_EQ(defs.find_utm(nullptr, 0, false), nullptr);
}

}  // namespace
