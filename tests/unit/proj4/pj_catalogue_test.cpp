#include "proj4/pj_catalogue.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using vx::proj4::catalogue;
using vx::proj4::catalogue_row;
using vx::proj4::definition_text;
using vx::proj4::find_definition;

// The catalogue is laid out as: 27 projections, the two UPS poles, Gauss-Kruger zones 1 to 60, UTM
// zones 1 to 60 north, then 1 to 60 south. Positions below are worked out from that.
constexpr unsigned kProjections = 27;
constexpr unsigned kFirstGaussKruger = kProjections + 2 + 1;
constexpr unsigned kFirstUtmNorth = kFirstGaussKruger + 60;
constexpr unsigned kFirstUtmSouth = kFirstUtmNorth + 60;

const Tvx_pj_proj_def* found(const char* text) {
  Tvx_proj4_str s;
  s.set(text);
  s.decompose();
  return find_definition(catalogue(), s);
}

std::string name_of(const Tvx_pj_proj_def* d) {
  if (!d) return "(none)";
  return std::string(d->get_caption()) +
         (*d->get_add_caption() ? ", " + std::string(d->get_add_caption()) : "");
}

TEST(PjCatalogue, IndexedFromOneInOrder) {
  const Tvx_pj_proj_defs& defs = catalogue();
  ASSERT_EQ(defs.get_size(), kFirstUtmSouth + 60 - 1);
  for (unsigned i = 0; i < defs.get_size(); ++i) {
    EXPECT_EQ(defs.get(i)->get_index(), i + 1);
    EXPECT_EQ(defs.find_by_index(i + 1), defs.get(i));
  }
  EXPECT_EQ(defs.find_by_index(0), nullptr);
}

TEST(PjCatalogue, UniversalPolarStereographic) {
  const Tvx_pj_proj_defs& defs = catalogue();
  EXPECT_EQ(definition_text(*defs.get(kProjections)),
            "+proj=stere +lon_0=0 +lat_0=90 +x_0=2000000 +y_0=2000000 +k_0=0.994 +datum=WGS84 +units=m +no_defs");
  EXPECT_EQ(definition_text(*defs.get(kProjections + 1)),
            "+proj=stere +lon_0=0 +lat_0=-90 +x_0=2000000 +y_0=2000000 +k_0=0.994 +datum=WGS84 +units=m +no_defs");
}

TEST(PjCatalogue, FillStartsAfresh) {
  Tvx_pj_proj_defs defs;
  defs.add()->set_caption("stale");
  vx::proj4::fill_catalogue(&defs);
  EXPECT_EQ(defs.get_size(), catalogue().get_size());
  EXPECT_STREQ(defs.get(0)->get_caption(), "Geographic");
}

// Zone n of Gauss-Kruger: central meridian 6n - 3 degrees (taken into -180..180), false easting
// n * 1,000,000 + 500,000 m, scale 1, origin on the equator. The earth is not part of the entry.
TEST(PjCatalogue, GaussKrugerZones) {
  const Tvx_pj_proj_defs& defs = catalogue();
  const Tvx_pj_proj_def* z7 = defs.find_by_caption_and_zone(vx::proj4::GAUSS_KRUGER, 7);
  ASSERT_NE(z7, nullptr);
  EXPECT_EQ(z7->get_index(), kFirstGaussKruger + 6);
  EXPECT_EQ(definition_text(*z7),
            "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +units=m +no_defs");
  EXPECT_EQ(definition_text(*defs.find_by_caption_and_zone("gauss-kruger", 1)),
            "+proj=tmerc +lon_0=3 +lat_0=0 +x_0=1500000 +y_0=0 +k_0=1 +units=m +no_defs");
  EXPECT_EQ(definition_text(*defs.find_by_caption_and_zone("Gauss-Kruger", 30)),
            "+proj=tmerc +lon_0=177 +lat_0=0 +x_0=30500000 +y_0=0 +k_0=1 +units=m +no_defs");
  EXPECT_EQ(definition_text(*defs.find_by_caption_and_zone("Gauss-Kruger", 31)),
            "+proj=tmerc +lon_0=-177 +lat_0=0 +x_0=31500000 +y_0=0 +k_0=1 +units=m +no_defs");
  EXPECT_EQ(definition_text(*defs.find_by_caption_and_zone("Gauss-Kruger", 60)),
            "+proj=tmerc +lon_0=-3 +lat_0=0 +x_0=60500000 +y_0=0 +k_0=1 +units=m +no_defs");
  EXPECT_EQ(defs.find_by_caption_and_zone("Gauss-Kruger", 61), nullptr);
  EXPECT_STREQ(z7->get_zone_name()->get_default(), "7");
}

TEST(PjCatalogue, UtmZonesBothHemispheres) {
  const Tvx_pj_proj_defs& defs = catalogue();
  const Tvx_pj_proj_def* north = defs.find_utm("utm", 37, false);
  const Tvx_pj_proj_def* south = defs.find_utm("UTM", 37, true);
  ASSERT_NE(north, nullptr);
  ASSERT_NE(south, nullptr);
  EXPECT_EQ(north->get_index(), kFirstUtmNorth + 36);
  EXPECT_EQ(south->get_index(), kFirstUtmSouth + 36);
  EXPECT_EQ(definition_text(*north), "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs");
  EXPECT_EQ(definition_text(*south), "+proj=utm +zone=37 +south +datum=WGS84 +units=m +no_defs");
  EXPECT_STREQ(north->get_zone_name()->get_default(), "37N");
  EXPECT_STREQ(south->get_zone_name()->get_default(), "37S");
  EXPECT_EQ(defs.find_by_caption_and_zone("UTM", 37), north);
  EXPECT_EQ(defs.find_by_name_south("utm", true), defs.find_utm("utm", 1, true));
  EXPECT_EQ(defs.find_utm("utm", 0, false), nullptr);
}

// Each entry's defaults make a PROJ string with its own "+proj" that reads back to the same parameters.
TEST(PjCatalogue, EveryEntryComposesAndReadsBack) {
  const Tvx_pj_proj_defs& defs = catalogue();
  std::set<std::string> texts;
  for (unsigned i = 0; i < defs.get_size(); ++i) {
    const Tvx_pj_proj_def* d = defs.get(i);
    const std::string text = definition_text(*d);
    EXPECT_TRUE(texts.insert(text).second) << "two entries make " << text;
    Tvx_proj4_str back;
    back.set(text.c_str());
    back.decompose();
    EXPECT_STREQ(back.get_proj()->get_str(), d->get_prj4_name());
    Tvx_proj4_str direct;
    vx::proj4::apply_definition(*d, &direct);
    EXPECT_TRUE(back.equal(&direct)) << text;
    EXPECT_EQ(text.find("+lon_wrap"), std::string::npos);
  }
}

// A parameter shown to the user also goes into the string, but for a Gauss-Kruger zone's number, which
// a transverse Mercator does not take.
TEST(PjCatalogue, ShownParametersAreWritten) {
  const Tvx_pj_proj_defs& defs = catalogue();
  for (unsigned i = 0; i < defs.get_size(); ++i) {
    const Tvx_pj_proj_def* d = defs.get(i);
    for (const Tvx_pj_dbl_param* p :
         {d->get_lon_0(), d->get_lonc(), d->get_lat_0(), d->get_x_0(), d->get_y_0(), d->get_lat_ts(),
          d->get_lat_1(), d->get_lat_2(), d->get_k_0(), d->get_alpha()})
      EXPECT_TRUE(!p->get_show() || p->get_use_proj4()) << name_of(d);
    const bool gauss_kruger = std::string(d->get_caption()) == vx::proj4::GAUSS_KRUGER;
    EXPECT_TRUE(!d->get_zone()->get_show() || gauss_kruger || d->get_zone()->get_use_proj4()) << name_of(d);
  }
}

TEST(PjCatalogue, ApplyDefinitionKeepsTheEarth) {
  Tvx_proj4_str s;
  s.set("+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +zone=3 +no_defs");
  s.decompose();
  vx::proj4::apply_definition(*catalogue().find_by_caption_and_zone("Gauss-Kruger", 7), &s);
  s.compose();
  EXPECT_STREQ(s.get(),
               "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
               "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs");
}

TEST(PjCatalogue, FindsGaussKrugerByItsParameters) {
  EXPECT_EQ(name_of(found("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
                          "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs")),
            "Gauss-Kruger, zone 7");
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=39 +x_0=7500000")), "Gauss-Kruger, zone 7");
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=183 +x_0=31500000")), "Gauss-Kruger, zone 31");
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=-177 +x_0=31500000")), "Gauss-Kruger, zone 31");
  // Another meridian, easting or scale is a transverse Mercator of its own.
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=40 +x_0=7500000")), "Transverse Mercator");
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=39 +x_0=500000 +k=0.9996")), "Transverse Mercator");
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=39 +x_0=7500000 +k=0.9996")), "Transverse Mercator");
  EXPECT_EQ(name_of(found("+proj=tmerc +lon_0=39 +x_0=7500000 +y_0=-5000000")), "Transverse Mercator");
}

TEST(PjCatalogue, FindsUtmByZoneAndHemisphere) {
  EXPECT_EQ(name_of(found("+proj=utm +zone=37 +datum=WGS84")), "UTM, zone 37, northern hemisphere");
  EXPECT_EQ(name_of(found("+proj=utm +zone=37 +south +ellps=GRS80")), "UTM, zone 37, southern hemisphere");
  EXPECT_EQ(name_of(found("+proj=utm +zone=61")), "(none)");
  EXPECT_EQ(name_of(found("+proj=utm +zone=0")), "(none)");
}

TEST(PjCatalogue, FindsTheFormByItsParameters) {
  EXPECT_EQ(name_of(found("+proj=lcc +lat_1=45 +lon_0=10")),
            "Lambert Conformal Conic, one standard parallel");
  EXPECT_EQ(name_of(found("+proj=lcc +lat_1=33 +lat_2=45")),
            "Lambert Conformal Conic, two standard parallels");
  EXPECT_EQ(name_of(found("+proj=merc +k=0.9")), "Mercator, scale on the equator");
  EXPECT_EQ(name_of(found("+proj=merc +lat_ts=30")), "Mercator, true scale parallel");
  EXPECT_EQ(name_of(found("+proj=merc +lat_ts=30 +k=1")), "Mercator, true scale parallel");
  EXPECT_EQ(name_of(found("+proj=merc")), "Mercator, scale on the equator");
  EXPECT_EQ(name_of(found("+proj=longlat +datum=WGS84")), "Geographic, longitude and latitude");
  EXPECT_EQ(name_of(found("+proj=LONGLAT")), "Geographic, longitude and latitude");
}

TEST(PjCatalogue, FindsThePoleByTheLatitudeOfOrigin) {
  EXPECT_EQ(name_of(found("+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45")),
            "Polar Stereographic, north pole, true scale parallel");
  EXPECT_EQ(name_of(found("+proj=stere +lat_0=90.00005 +k=0.994")),
            "Polar Stereographic, north pole, scale at the pole");
  EXPECT_EQ(name_of(found("+proj=stere +lat_0=-90 +k=0.994")),
            "Polar Stereographic, south pole, scale at the pole");
  EXPECT_EQ(name_of(found("+proj=stere +lat_0=-90")), "Polar Stereographic, south pole, true scale parallel");
  // Without a latitude of origin PROJ puts the centre on the equator, which no polar entry is.
  EXPECT_EQ(name_of(found("+proj=stere +lat_ts=70")), "(none)");
  EXPECT_EQ(name_of(found("+proj=stere +lat_0=89.9")), "(none)");
  // UPS is in the catalogue as the polar stereographic projection it is, after the general entries.
  EXPECT_EQ(name_of(found("+proj=ups +south")), "(none)");
  EXPECT_EQ(name_of(found("+proj=stere +lat_0=-90 +k=0.994 +x_0=2000000 +y_0=2000000 +datum=WGS84")),
            "Polar Stereographic, south pole, scale at the pole");
}

TEST(PjCatalogue, UnknownOrMissingProjectionFindsNothing) {
  EXPECT_EQ(found("+proj=krovak +ellps=bessel"), nullptr);
  EXPECT_EQ(found("+datum=WGS84"), nullptr);
  EXPECT_EQ(found(""), nullptr);
}

TEST(PjCatalogue, RowsHoldTheShownParametersWithDefaultsAndLimits) {
  const Tvx_pj_proj_defs& defs = catalogue();
  EXPECT_EQ(catalogue_row(*defs.get(0)), "1\tGeographic\tlongitude and latitude\t+proj=longlat +no_defs");
  EXPECT_EQ(catalogue_row(*defs.get(4)),
            "5\tLambert Conformal Conic\tone standard parallel\t"
            "+proj=lcc +lon_0=0 +x_0=0 +y_0=0 +lat_1=45 +k_0=1 +units=m +no_defs\t"
            "lon_0=0 [-180,180]\tx_0=0\ty_0=0\tlat_1=45 [-90,90]\tk_0=1 [0.5,1.5]");
  EXPECT_EQ(catalogue_row(*defs.find_utm("utm", 37, false)),
            "126\tUTM\tzone 37, northern hemisphere\t+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs\t"
            "zone=37\tdatum=WGS84");
  EXPECT_EQ(catalogue_row(*defs.find_by_caption_and_zone("Gauss-Kruger", 7)),
            "36\tGauss-Kruger\tzone 7\t+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +units=m "
            "+no_defs\tzone=7");
  EXPECT_EQ(catalogue_row(*defs.get(17)),
            "18\tOblique Mercator\tHotine, azimuth at the centre\t"
            "+proj=omerc +lonc=0 +lat_0=45 +x_0=0 +y_0=0 +k_0=1 +alpha=45 +units=m +no_defs\t"
            "lonc=0 [-180,180]\tlat_0=45 [-90,90]\tx_0=0\ty_0=0\tk_0=1 [0.5,1.5]\talpha=45 [-360,360]");
}

}  // namespace
