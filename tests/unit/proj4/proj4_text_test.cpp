#include <gtest/gtest.h>

#include <string>

#include "proj4/proj4_str.h"
#include "support/ansi_code_page.h"
#include "support/rc.h"

namespace {

// The message table's language for one test; the host's choice is fixed first so that it cannot
// replace this one at the first text.
class Proj4Text : public ::testing::Test {
 protected:
  void SetUp() override {
    Tvx_rc::get_auto_lang();
    saved_ = Tvx_rc::get_lang();
    Tvx_rc::set_lang(0);
  }
  void TearDown() override { Tvx_rc::set_lang(saved_); }
  static void russian() { Tvx_rc::set_lang(1); }

  static std::string describe(const char* text) {
    Tvx_proj4_str s;
    s.set(text);
    s.decompose();
    return s.get_text();
  }
  // Russian expectations are written here in UTF-8; the description is in the narrow code page.
  static std::string cp1251(const char* utf8) {
    return vx::strconv::wide_to_ansi(vx::strconv::utf8_to_wide(utf8));
  }

 private:
  int saved_ = 0;
};

TEST_F(Proj4Text, TransverseMercatorInThreeLines) {
  EXPECT_EQ(describe("+proj=tmerc +lon_0=39 +ellps=krass"),
            "Projection = tmerc\r\n"
            "Central Meridian = 39\r\n"
            "Spheroid = krass\r\n");
}

TEST_F(Proj4Text, OrderIsTheTablesWhateverTheText) {
  EXPECT_EQ(describe("+ellps=krass +lon_0=39 +proj=tmerc"), describe("+proj=tmerc +lon_0=39 +ellps=krass"));
  EXPECT_EQ(describe("+b=2 +a=1 +y_0=5 +x_0=4 +proj=x"),
            "Projection = x\r\n"
            "False Easting = 4\r\n"
            "False Northing = 5\r\n"
            "Semimajor axis = 1\r\n"
            "Semiminor axis = 2\r\n");
}

TEST_F(Proj4Text, NothingToDescribeIsAnUnknownProjection) {
  EXPECT_EQ(describe("+units=m"), "Projection = Unknown\r\n");
  EXPECT_EQ(describe("+south"), "Projection = Unknown\r\n");
  EXPECT_EQ(describe("+nadgrids=@null +units=m +south +no_defs"), "Projection = Unknown\r\n");
  EXPECT_EQ(describe(""), "Projection = Unknown\r\n");
  russian();
  EXPECT_EQ(describe("+units=m"), cp1251("Проекция = Не определена\r\n"));
}

TEST_F(Proj4Text, TwoCallsGiveTheSameTextAtTheSamePlace) {
  Tvx_proj4_str s;
  s.set("+proj=utm +zone=37 +datum=WGS84");
  s.decompose();
  const char* first = s.get_text();
  const std::string copy = first;
  const char* second = s.get_text();
  EXPECT_EQ(first, second);
  EXPECT_EQ(copy, second);
}

// Every line there is, in English: the label, " = ", the value as the parameter writes it.
TEST_F(Proj4Text, EveryLineInEnglish) {
  const char* all =
      "+nadgrids=@null +units=m +ellps=krass +rf=298.3 +b=6356863.019 +a=6378245 "
      "+towgs84=23.92,-141.27,-80.9 +datum=WGS84 +alpha=30.5 +k_0=0.9996 +south +lat_2=60 +lat_ts=45 "
      "+lat_1=50 +y_0=-10 +x_0=1234567.123456789 +lat_0=5 +lonc=7 +lon_0=40.123456789012 +zone=3 +proj=omerc";
  EXPECT_EQ(describe(all),
            "Projection = omerc\r\n"
            "Zone = 3\r\n"
            "Central Meridian = 40.123456789\r\n"
            "Central Meridian = 7\r\n"
            "Latitude of Origin = 5\r\n"
            "False Easting = 1234567.12346\r\n"
            "False Northing = -10\r\n"
            "1st Standart Parallel = 50\r\n"
            "1st Standart Parallel = 45\r\n"
            "2nd Standart Parallel = 60\r\n"
            "Scale Factor = 0.9996\r\n"
            "Alpha = 30.5\r\n"
            "Datum = WGS84\r\n"
            "Datum parameters = 23.92,-141.27,-80.9,0,0,0,0\r\n"
            "Spheroid = krass\r\n"
            "Semimajor axis = 6378245\r\n"
            "Semiminor axis = 6356863.019\r\n"
            "Inverse flattering = 298.3\r\n");
}

TEST_F(Proj4Text, EveryLineInRussian) {
  russian();
  const char* all =
      "+proj=omerc +zone=3 +lon_0=40 +lonc=7 +lat_0=5 +x_0=500000 +y_0=0 +lat_1=50 +lat_ts=45 +lat_2=60 "
      "+k_0=1 +alpha=30 +datum=WGS84 +towgs84=1,2,3,4,5,6,7 +a=6378245 +b=6356863 +rf=298.3 +ellps=krass";
  EXPECT_EQ(describe(all), cp1251("Проекция = omerc\r\n"
                                  "Номер зоны = 3\r\n"
                                  "Центральный меридиан = 40\r\n"
                                  "Меридиан центра проекции = 7\r\n"
                                  "Широта начала коорд. = 5\r\n"
                                  "Сдвиг к востоку = 500000\r\n"
                                  "Сдвиг к северу = 0\r\n"
                                  "1я стандартная параллель = 50\r\n"
                                  "1я стандартная параллель = 45\r\n"
                                  "2я стандартная параллель = 60\r\n"
                                  "Масштабный коэфф. = 1\r\n"
                                  "Альфа = 30\r\n"
                                  "Датум = WGS84\r\n"
                                  "Параметры датума = 1,2,3,4,5,6,7\r\n"
                                  "Эллипсоид = krass\r\n"
                                  "Большая полуось = 6378245\r\n"
                                  "Малая полуось = 6356863\r\n"
                                  "Обратный коэфф. сжатия = 298.3\r\n"));
}

// The systems the library works in most, line by line.
TEST_F(Proj4Text, GaussKrugerZoneSevenOnPulkovo) {
  EXPECT_EQ(describe("+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
                     "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs"),
            "Projection = tmerc\r\n"
            "Central Meridian = 39\r\n"
            "Latitude of Origin = 0\r\n"
            "False Easting = 7500000\r\n"
            "False Northing = 0\r\n"
            "Scale Factor = 1\r\n"
            "Datum parameters = 23.92,-141.27,-80.9,0,0.35,0.82,-0.12\r\n"
            "Spheroid = krass\r\n");
}

TEST_F(Proj4Text, UtmSouthHasNoLineForTheHemisphere) {
  russian();
  EXPECT_EQ(describe("+proj=utm +zone=37 +south +datum=WGS84 +units=m +no_defs"),
            cp1251("Проекция = utm\r\n"
                   "Номер зоны = 37\r\n"
                   "Датум = WGS84\r\n"));
}

// "+R" fills both semi-axes, so a sphere is described by two equal axes.
TEST_F(Proj4Text, SphereByItsRadius) {
  EXPECT_EQ(describe("+proj=longlat +R=6371000"),
            "Projection = longlat\r\n"
            "Semimajor axis = 6371000\r\n"
            "Semiminor axis = 6371000\r\n");
}

TEST_F(Proj4Text, ValuesThatDoNotParseHaveNoLine) {
  EXPECT_EQ(describe("+proj=merc +lon_0=x +zone=y +lat_ts=12d30"),
            "Projection = merc\r\n"
            "1st Standart Parallel = 12\r\n");
}

// A string value is written as it stands, however PROJ would take it.
TEST_F(Proj4Text, StringsAsTheyStand) {
  EXPECT_EQ(describe("+proj=LongLat +datum=wgs84 +ellps= GRS80 "),
            "Projection = LongLat\r\n"
            "Datum = wgs84\r\n"
            "Spheroid = GRS80\r\n");
}

}  // namespace
