#include "reproj/reproj_info.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace {

const char* const kUtm37Crs = "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs +type=crs";
const char* const kWgs84Crs = "+proj=longlat +datum=WGS84 +no_defs +type=crs";
const char* const kPulkovoShift = "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12";

// ---- the edge cases

TEST(ReprojInfo, EqualTextsThatProjReadsAreEquivalent) {
  EXPECT_TRUE(Tvx_reproj_info::equivalent(kUtm37Crs, kUtm37Crs));
  EXPECT_TRUE(Tvx_reproj_info::equivalent("EPSG:4326", "EPSG:4326"));
  // A PROJ string without "+type=crs" is an operation to PROJ; the same text is still the same one.
  EXPECT_TRUE(
      Tvx_reproj_info::equivalent("+proj=utm +zone=37 +datum=WGS84", "+proj=utm +zone=37 +datum=WGS84"));
}

TEST(ReprojInfo, TextProjRefusesIsEquivalentToNothing) {
  EXPECT_FALSE(Tvx_reproj_info::equivalent("garbage", "garbage"));
  EXPECT_FALSE(Tvx_reproj_info::equivalent("garbage", kWgs84Crs));
  EXPECT_FALSE(Tvx_reproj_info::equivalent(kWgs84Crs, "+proj=nonesuch +type=crs"));
  EXPECT_FALSE(Tvx_reproj_info::equivalent("", ""));
  EXPECT_FALSE(Tvx_reproj_info::equivalent(static_cast<const char*>(nullptr), nullptr));
  EXPECT_EQ(Tvx_reproj_info::compare("garbage", "garbage"), Tvx_reproj_info::verdict::first_unreadable);
  EXPECT_EQ(Tvx_reproj_info::compare(kWgs84Crs, "garbage"), Tvx_reproj_info::verdict::second_unreadable);
  EXPECT_EQ(Tvx_reproj_info::compare(kWgs84Crs, kUtm37Crs), Tvx_reproj_info::verdict::different);
  EXPECT_EQ(Tvx_reproj_info::compare(kWgs84Crs, "EPSG:4326"), Tvx_reproj_info::verdict::same);
}

TEST(ReprojInfo, WideTextsAreNarrowedToUtf8) {
  EXPECT_TRUE(Tvx_reproj_info::equivalent(L"EPSG:4326", L"+proj=longlat +datum=WGS84 +type=crs"));
  EXPECT_FALSE(Tvx_reproj_info::equivalent(L"EPSG:4326", L"EPSG:4258"));
  EXPECT_FALSE(Tvx_reproj_info::equivalent(L"+proj=longlat +datum=WGS84 +type=crs +title=Москва", nullptr));
  EXPECT_TRUE(Tvx_reproj_info::equivalent(L"+proj=longlat +datum=WGS84 +type=crs +title=Москва",
                                          L"+proj=longlat +datum=WGS84 +type=crs"));
}

TEST(ReprojInfo, ExpandEpsgLeavesTextsWithoutInitAlone) {
  EXPECT_EQ(Tvx_reproj_info::expand_epsg("+proj=utm +zone=37"), "+proj=utm +zone=37");
  // EPSG codes in other spellings are not "+init=": they stay as they are here.
  EXPECT_EQ(Tvx_reproj_info::expand_epsg("EPSG:4326"), "EPSG:4326");
  EXPECT_EQ(Tvx_reproj_info::expand_epsg(""), "");
}

TEST(ReprojInfo, ExpandEpsgSpellsOutInit) {
  EXPECT_EQ(Tvx_reproj_info::expand_epsg("+init=epsg:4326"), kWgs84Crs);
  EXPECT_EQ(Tvx_reproj_info::expand_epsg("+init=epsg:32637"), kUtm37Crs);
  // The old PROJ.4 reading of Pulkovo 1942 / Gauss-Kruger zone 7 carries the ellipsoid, not the datum.
  EXPECT_EQ(
      Tvx_reproj_info::expand_epsg("+init=epsg:28407"),
      "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs +type=crs");
  // "+init=" anywhere in the text counts.
  EXPECT_EQ(Tvx_reproj_info::expand_epsg("+proj=longlat +init=epsg:4326"),
            Tvx_reproj_info::expand_any("+proj=longlat +init=epsg:4326"));
}

TEST(ReprojInfo, ExpandAnyGivesThePROJ4Form) {
  EXPECT_EQ(Tvx_reproj_info::expand_any("EPSG:32637"), kUtm37Crs);
  EXPECT_EQ(Tvx_reproj_info::expand_any("+zone=37 +proj=utm +datum=WGS84 +type=crs"), kUtm37Crs);
  EXPECT_EQ(Tvx_reproj_info::expand_any(
                "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
                "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]"),
            kWgs84Crs);
  // An operation keeps its own spelling.
  EXPECT_EQ(Tvx_reproj_info::expand_any("+proj=utm +zone=37"), "+proj=utm +zone=37");
}

TEST(ReprojInfo, ExpandAnyOfWhatProjRefusesGivesTheTextBack) {
  EXPECT_EQ(Tvx_reproj_info::expand_any("garbage"), "garbage");
  EXPECT_EQ(Tvx_reproj_info::expand_any(""), "");
  EXPECT_EQ(Tvx_reproj_info::expand_epsg("+init=nonesuch:1"), "+init=nonesuch:1");
}

// A datum alone has no PROJ.4 form: the text comes back.
TEST(ReprojInfo, ExpandAnyWithoutAProj4FormGivesTheTextBack) {
  EXPECT_EQ(Tvx_reproj_info::expand_any("EPSG:6326"), "EPSG:6326");
}

// ---- the table

// PROJ's own command-line tool as a second judge: two texts are the same to projinfo when it spells
// both out to the same PROJ string. It reads "+init=" by the same PROJ.4 rules as the library.
struct projinfo_result {
  bool ok = false;
  std::string text;
};

std::string shell_quote(const std::string& s) {
  std::string out = "'";
  for (char c : s) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

projinfo_result projinfo(const std::string& text) {
  const std::string cmd =
      "PROJ_USE_PROJ4_INIT_RULES=YES projinfo -q -o PROJ " + shell_quote(text) + " 2>/dev/null";
  projinfo_result r;
  FILE* pipe = popen(cmd.c_str(), "r");
  if (!pipe) return r;
  std::array<char, 1024> buf{};
  while (fgets(buf.data(), static_cast<int>(buf.size()), pipe)) r.text += buf.data();
  r.ok = pclose(pipe) == 0 && !r.text.empty();
  return r;
}

bool projinfo_same(const std::string& a, const std::string& b) {
  const projinfo_result ra = projinfo(a);
  const projinfo_result rb = projinfo(b);
  return ra.ok && rb.ok && ra.text == rb.text;
}

struct pair_case {
  const char* a;
  const char* b;
  bool same;             // the answer worked out below
  bool projinfo_agrees;  // whether projinfo's spelled-out strings give the same answer
  const char* why;
};

std::string with_shift(const std::string& text) {
  return text + " " + kPulkovoShift;
}

const std::string kGk7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +type=crs";
const std::string kGk7Shifted = with_shift(kGk7);

const pair_case kPairs[] = {
    // The same system spelled differently.
    {"+proj=utm +zone=37 +datum=WGS84 +units=m +type=crs",
     "+type=crs +units=m +datum=WGS84 +zone=37 +proj=utm", true, true,
     "parameter order does not matter to a system"},
    {kGk7.c_str(), "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +type=crs", true, true,
     "lat_0=0, k=1, y_0=0 and metres are PROJ's defaults"},
    {"+proj=tmerc +lon_0=39 +k_0=0.9996 +ellps=WGS84 +type=crs",
     "+proj=tmerc +lon_0=39 +k=0.9996 +ellps=WGS84 +type=crs", true, true, "k_0 and k are one parameter"},
    {"+proj=utm +zone=37 +datum=WGS84 +units=m +type=crs",
     "+proj=utm +zone=37 +datum=WGS84 +to_meter=1 +type=crs", true, true, "metres spelled out as a factor"},
    {"+proj=tmerc +lon_0=39 +ellps=krass +units=km +type=crs",
     "+proj=tmerc +lon_0=39 +ellps=krass +to_meter=1000 +type=crs", true, true, "kilometres spelled out"},
    {"+proj=utm +zone=37 +datum=WGS84 +units=ft +type=crs",
     "+proj=utm +zone=37 +datum=WGS84 +to_meter=0.3048 +type=crs", true, true,
     "the international foot is 0.3048 m"},
    {"+proj=utm +zone=37 +datum=WGS84 +units=us-ft +type=crs",
     "+proj=utm +zone=37 +datum=WGS84 +to_meter=0.3048006096012192 +type=crs", true, true,
     "the US survey foot is 1200/3937 m"},
    {"+init=epsg:4326", "EPSG:4326", true, true,
     "the same WGS 84; the PROJ.4 reading puts longitude first, which does not count for geographic systems"},
    {"+init=epsg:32637", kUtm37Crs, true, true, "+init= against its expanded text"},
    {"+init=epsg:4326", kWgs84Crs, true, true, "+init= against its expanded text"},
    {"EPSG:4326", "+proj=longlat +datum=WGS84 +type=crs", true, true,
     "EPSG's latitude-first order against PROJ's longitude-first: axis order is ignored for geographic "
     "systems"},
    {"EPSG:32637", "+proj=utm +zone=37 +datum=WGS84 +type=crs", true, true,
     "the EPSG code and its PROJ string"},
    {"GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS "
     "84\",6378137,298.257223563]],PRIMEM[\"Greenwich\",0],"
     "UNIT[\"degree\",0.0174532925199433]]",
     "EPSG:4326", true, true, "WKT and an EPSG code"},
    {"+proj=longlat +datum=WGS84 +type=crs", "+proj=latlong +datum=WGS84 +type=crs", true, true,
     "latlong is another name of longlat"},
    {"+proj=longlat +datum=WGS84 +type=crs", "+proj=longlat +datum=WGS84 +axis=neu +type=crs", true, true,
     "axis order is ignored for geographic systems"},
    {"+proj=longlat +R=6371000 +type=crs", "+proj=longlat +a=6371000 +b=6371000 +type=crs", true, true,
     "a sphere by its radius or by two equal semi-axes"},
    {"+proj=tmerc +lon_0=39 +ellps=krass +type=crs",
     "+proj=tmerc +lon_0=39.00000000001 +ellps=krass +type=crs", true, true,
     "PROJ allows a relative difference of about 1e-10; projinfo writes both as 39"},
    {"+proj=longlat +datum=WGS84 +no_defs", "+proj=longlat +datum=WGS84 +no_defs", true, true,
     "the same operation text"},
    // Spelled differently, and PROJ does not take them for the same; projinfo's strings do.
    {"+proj=utm +zone=37 +datum=WGS84", "+zone=37 +proj=utm +datum=WGS84", false, false,
     "without +type=crs PROJ reads an operation and compares operations by their text; projinfo puts +proj "
     "first"},
    {"+proj=longlat +a=6378137 +rf=298.257223563 +type=crs", "+proj=longlat +ellps=WGS84 +type=crs", false,
     false,
     "PROJ compares datum names: the first datum is 'unknown', the second 'Unknown based on WGS84 "
     "ellipsoid', "
     "though projinfo spells the axes of the first as +ellps=WGS84"},
    {"+init=epsg:28407",
     "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs +type=crs",
     false, false,
     "+init= against its expanded text: the +init= reading keeps the datum Pulkovo 1942 by name, the "
     "expanded "
     "text names only its ellipsoid"},
    {"+init=epsg:28407", "EPSG:28407", false, false,
     "the PROJ.4 reading puts the easting first, EPSG's Gauss-Kruger the northing: axis order counts for "
     "projected systems"},
    {"+proj=longlat +ellps=WGS84 +towgs84=1,2,3 +type=crs",
     "+proj=longlat +ellps=WGS84 +towgs84=1,2,3,0,0,0,0 +type=crs", false, false,
     "three shifts are a translation to PROJ, seven values a Helmert transformation: two methods, though "
     "projinfo writes both with seven values"},
    // Different forms, different to both judges.
    {"+proj=utm +zone=37 +datum=WGS84", kUtm37Crs, false, true, "an operation is not a system"},
    {kGk7Shifted.c_str(), "EPSG:28407", false, true,
     "a datum shift makes a system bound to WGS 84, which the named Pulkovo 1942 is not"},
    {"+proj=longlat +datum=WGS84 +type=crs", "+proj=longlat +ellps=WGS84 +towgs84=0,0,0 +type=crs", false,
     true, "a zero shift to WGS 84 is a bound system, not the datum WGS 84"},
    {"+proj=longlat +datum=WGS84 +type=crs", "+proj=longlat +datum=WGS84 +lon_wrap=45 +type=crs", false, true,
     "+lon_wrap, which the library appends to what it gives PROJ, makes another system for PROJ"},
    {"+proj=lcc +lat_1=45 +lon_0=10 +ellps=GRS80 +type=crs",
     "+proj=lcc +lon_0=10 +lat_0=45 +lat_1=45 +lat_2=45 +ellps=GRS80 +type=crs", false, true,
     "a one-parallel conic and its GDAL form map alike, but PROJ compares methods (1SP against 2SP)"},
    {"+proj=merc +lat_ts=10 +datum=WGS84 +type=crs", "+proj=merc +lat_ts=-10 +datum=WGS84 +type=crs", false,
     true, "true scale at 10 N and at 10 S map alike, but PROJ compares parameters"},
    // Different systems that differ in one parameter.
    {"+proj=utm +zone=37 +datum=WGS84 +type=crs", "+proj=utm +zone=38 +datum=WGS84 +type=crs", false, true,
     "zone"},
    {"+proj=utm +zone=37 +datum=WGS84 +type=crs", "+proj=utm +zone=37 +south +datum=WGS84 +type=crs", false,
     true, "hemisphere"},
    {kGk7.c_str(), "+proj=tmerc +lat_0=0 +lon_0=45 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +type=crs",
     false, true, "central meridian"},
    {kGk7.c_str(), "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500001 +y_0=0 +ellps=krass +units=m +type=crs",
     false, true, "false easting by one metre"},
    {kGk7.c_str(),
     "+proj=tmerc +lat_0=0 +lon_0=39 +k=0.9996 +x_0=7500000 +y_0=0 +ellps=krass +units=m +type=crs", false,
     true, "scale factor"},
    {kGk7.c_str(), "+proj=tmerc +lat_0=10 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +type=crs",
     false, true, "latitude of origin"},
    {kGk7.c_str(), "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=WGS84 +units=m +type=crs",
     false, true, "ellipsoid"},
    {kGk7.c_str(), "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=km +type=crs",
     false, true, "units"},
    {"+proj=tmerc +lon_0=39 +ellps=krass +type=crs", "+proj=tmerc +lon_0=39.000001 +ellps=krass +type=crs",
     false, true, "central meridian by a millionth of a degree"},
    {kGk7Shifted.c_str(),
     "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +type=crs "
     "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.11",
     false, true, "one value of the datum shift"},
    {"+proj=lcc +lat_0=40 +lat_1=45 +lat_2=50 +lon_0=10 +ellps=GRS80 +type=crs",
     "+proj=lcc +lat_0=40 +lat_1=45 +lat_2=55 +lon_0=10 +ellps=GRS80 +type=crs", false, true,
     "second parallel"},
    {"+proj=longlat +datum=WGS84 +type=crs", "+proj=longlat +datum=NAD27 +type=crs", false, true, "datum"},
    {"EPSG:4326", "EPSG:4258", false, true, "WGS 84 against ETRS89"},
    {"EPSG:32637", "EPSG:32638", false, true, "zone, by EPSG code"},
};

TEST(ReprojInfo, TableOfPairs) {
  EXPECT_GE(std::size(kPairs), 30u);
  for (const pair_case& c : kPairs) {
    EXPECT_EQ(Tvx_reproj_info::equivalent(c.a, c.b), c.same) << c.a << " | " << c.b << ": " << c.why;
    EXPECT_EQ(Tvx_reproj_info::equivalent(c.b, c.a), c.same) << "reversed: " << c.a << " | " << c.b;
  }
}

TEST(ReprojInfo, TableAgainstProjinfo) {
  for (const pair_case& c : kPairs) {
    const bool projinfo_says_same = projinfo_same(c.a, c.b);
    EXPECT_EQ(projinfo_says_same == c.same, c.projinfo_agrees)
        << c.a << " | " << c.b << ": projinfo says " << (projinfo_says_same ? "same" : "different") << "; "
        << c.why;
  }
}

}  // namespace
