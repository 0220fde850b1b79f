#include "reproj/reproj_xy_exec.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "cs2cs.h"
#include "kruger_tm.h"
#include "reproj/proj_log.h"
#include "reproj/xy_array.h"

namespace {

const char* const kWgs84 = "+proj=longlat +datum=WGS84 +no_defs";
const char* const kPulkovo =
    "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs";
const char* const kGkZone7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";
const char* const kKrassGeo = "+proj=longlat +ellps=krass +no_defs";
const char* const kKrassGk7 = "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m";
const char* const kWgsGeo = "+proj=longlat +ellps=WGS84 +no_defs";
const char* const kUtm37 = "+proj=utm +zone=37 +ellps=WGS84 +units=m +no_defs";

const vxk_test::tm_params kKrassGk7Params{6378245.0, 298.3, 39, 0, 1.0, 7500000, 0};
const vxk_test::tm_params kUtm37Params{6378137.0, 298.257223563, 39, 0, 0.9996, 500000, 0};

constexpr double kMetre = 1e-3;   // a millimetre
constexpr double kDegree = 1e-9;  // about 0.1 mm on the ground

// What PROJ sees for a projection text, as blank-separated arguments for cs2cs.
std::string proj_text(const char* text) {
  return Tvx_reproj_xy_exec::verify_pj4str(text, nullptr);
}

void expect_like_cs2cs(const char* src, const char* dst, double x, double y, double tol) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(src, dst));
  const vxk_test::cs2cs_result want = vxk_test::run_cs2cs(proj_text(src), proj_text(dst), x, y);
  ASSERT_TRUE(want.ok) << "cs2cs did not run";
  double gx = x, gy = y;
  ASSERT_TRUE(e.apply(&gx, &gy));
  EXPECT_NEAR(gx, want.x, tol) << x << " " << y;
  EXPECT_NEAR(gy, want.y, tol) << x << " " << y;
}

// Counts PROJ's log messages while alive, at the most detailed level. The library's own logging
// function on PROJ's default context keeps them (reproj/proj_log.h); they are taken from there.
class proj_log_counter {
 public:
  proj_log_counter() {
    vx::proj_log::take();
    previous_ = proj_log_level(nullptr, PJ_LOG_TRACE);
  }
  ~proj_log_counter() { proj_log_level(nullptr, previous_); }
  unsigned count() {
    unsigned n = 0;
    for (const auto& r : vx::proj_log::take()) n += r.count;
    return n;
  }

 private:
  PJ_LOG_LEVEL previous_;
};

TEST(ReprojXyExec, TextWithoutKnownParameterFailsWithoutCallingProj) {
  Tvx_reproj_xy_exec e;
  {
    proj_log_counter log;
    EXPECT_FALSE(e.init("/home/user/maps/zone7.prj", kWgs84));
    EXPECT_FALSE(e.init(kWgs84, "C:\\maps\\zone7.prj"));
    EXPECT_FALSE(e.init("", ""));
    EXPECT_EQ(log.count(), 0u);
  }
  double x = 37, y = 55;
  EXPECT_FALSE(e.apply(&x, &y));
}

TEST(ReprojXyExec, ProjLogCounterSeesProjAtWork) {
  // The check above means something only if building a transformation does write to the log.
  proj_log_counter log;
  Tvx_reproj_xy_exec e;
  EXPECT_TRUE(e.init(kWgs84, kPulkovo));
  EXPECT_GT(log.count(), 0u);
}

TEST(ReprojXyExec, TextThatProjRefusesFails) {
  Tvx_reproj_xy_exec e;
  EXPECT_FALSE(e.init("+proj=no_such_projection +ellps=WGS84", kWgs84));
  double x = 1, y = 2;
  EXPECT_FALSE(e.apply(&x, &y));
  EXPECT_TRUE(e.init(kWgs84, kPulkovo));
}

// ---- why a transformation cannot be built

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(ReprojXyExec, ErrorNamesTheRefusedTextAndProjsReason) {
  Tvx_reproj_xy_exec e;
  EXPECT_FALSE(e.init("+proj=no_such_projection +ellps=WGS84", kWgs84));
  EXPECT_TRUE(
      has(e.get_error(), "PROJ refused the source system \"+proj=no_such_projection +ellps=WGS84\": "))
      << e.get_error();
  EXPECT_TRUE(has(e.get_error(), "Unknown projection")) << e.get_error();
  EXPECT_FALSE(e.init(kWgs84, "+proj=utm +zone=99 +ellps=WGS84"));
  EXPECT_TRUE(has(e.get_error(), "PROJ refused the destination system \"+proj=utm +zone=99 +ellps=WGS84\": "))
      << e.get_error();
  EXPECT_TRUE(has(e.get_error(), "zone")) << e.get_error();
  EXPECT_TRUE(e.init(kWgs84, kPulkovo));
  EXPECT_EQ(e.get_error(), "");
}

TEST(ReprojXyExec, ErrorOfATextWithoutParametersSaysItIsNoProjString) {
  Tvx_reproj_xy_exec e;
  EXPECT_FALSE(e.init(kWgs84, "/home/user/maps/zone7.prj"));
  EXPECT_TRUE(has(e.get_error(),
                  "the destination system \"/home/user/maps/zone7.prj\" has no parameter of a PROJ "
                  "string"))
      << e.get_error();
  EXPECT_FALSE(e.init("", kWgs84));
  EXPECT_EQ(e.get_error(), "the source system is empty");
}

// A text of 100 KB with control bytes is quoted cut short and clean, so a message stays one sane line.
TEST(ReprojXyExec, ErrorQuotesAHostileTextCutAndClean) {
  std::string hostile = "+proj=foo";
  while (hostile.size() < 100000) hostile += " +x=\x01\x1b[2J\n";
  Tvx_reproj_xy_exec e;
  EXPECT_FALSE(e.init(kWgs84, hostile.c_str()));
  const std::string& error = e.get_error();
  EXPECT_LT(error.size(), 1000u);
  for (char c : error) EXPECT_GE(static_cast<unsigned char>(c), 0x20u) << error;
  EXPECT_TRUE(has(error, "PROJ refused the destination system \"+proj=foo +x=??[2J? +x=")) << error;
  EXPECT_TRUE(has(error, "bytes)")) << error;
}

// PROJ prints nothing of its own accord: neither when it refuses a text nor for a point it cannot
// transform. What it says is kept for the library to pass on.
TEST(ReprojXyExec, ProjPrintsNothingOnStandardError) {
  vx::proj_log::take();
  testing::internal::CaptureStderr();
  Tvx_reproj_xy_exec e;
  EXPECT_FALSE(e.init("+proj=no_such_projection", kWgs84));
  ASSERT_TRUE(e.init(kKrassGeo, kKrassGk7));
  for (int i = 0; i < 5; ++i) {
    double x = 37, y = 95 + i;
    EXPECT_FALSE(e.apply(&x, &y));
  }
  const std::string printed = testing::internal::GetCapturedStderr();
  EXPECT_EQ(printed, "");
  const std::vector<vx::proj_log::report> reports = vx::proj_log::take();
  ASSERT_FALSE(reports.empty());
  EXPECT_EQ(reports.back().count, 5u);
  EXPECT_TRUE(has(reports.back().text, "Invalid latitude")) << reports.back().text;
}

TEST(ReprojXyExec, VerifyGivesTheTextForProj) {
  bool long_lat = false;
  EXPECT_EQ(Tvx_reproj_xy_exec::verify_pj4str(kWgs84, &long_lat),
            "+proj=longlat +datum=WGS84 +lon_wrap=45 +no_defs");
  EXPECT_TRUE(long_lat);
  EXPECT_EQ(Tvx_reproj_xy_exec::verify_pj4str(kKrassGk7, &long_lat),
            "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +ellps=krass +units=m "
            "+lon_wrap=45 +no_defs");
  EXPECT_FALSE(long_lat);
  EXPECT_EQ(Tvx_reproj_xy_exec::verify_pj4str("+R=6371000 +proj=longlat", &long_lat),
            "+proj=longlat +R=6371000 +lon_wrap=45 +no_defs");
  EXPECT_EQ(Tvx_reproj_xy_exec::verify_pj4str("not a projection", &long_lat), "");
  EXPECT_FALSE(long_lat);
}

TEST(ReprojXyExec, GeographicToGeographicKeepsDegreesLongitudeFirst) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kWgs84, kPulkovo));
  double x = 37.6173, y = 55.7558;
  ASSERT_TRUE(e.apply(&x, &y));
  // Pulkovo 1942 lies some metres off WGS 84 here: thousandths of a degree, in the same order.
  EXPECT_NEAR(x, 37.6173, 0.01);
  EXPECT_NEAR(y, 55.7558, 0.01);
  EXPECT_NE(x, 37.6173);
  ASSERT_TRUE(e.init(kPulkovo, kWgs84));
  double bx = x, by = y;
  ASSERT_TRUE(e.apply(&bx, &by));
  // The shift goes through geocentric coordinates at height 0 both ways, so the way back misses by
  // about 1e-9 degree: close, but not closer.
  EXPECT_NEAR(bx, 37.6173, 1e-8);
  EXPECT_NEAR(by, 55.7558, 1e-8);
}

TEST(ReprojXyExec, GeographicShiftAgreesWithCs2cs) {
  for (auto [x, y] :
       {std::pair{37.6173, 55.7558}, {30.3141, 59.9386}, {131.8869, 43.1155}, {-10.5, -33.25}}) {
    expect_like_cs2cs(kWgs84, kPulkovo, x, y, kDegree);
    expect_like_cs2cs(kPulkovo, kWgs84, x, y, kDegree);
  }
}

TEST(ReprojXyExec, GaussKrugerWithDatumShiftAgreesWithCs2cs) {
  for (auto [x, y] : {std::pair{37.6173, 55.7558}, {36.0, 50.0}, {41.9, 66.5}}) {
    expect_like_cs2cs(kPulkovo, kGkZone7, x, y, kMetre);
    expect_like_cs2cs(kWgs84, kGkZone7, x, y, kMetre);
  }
  expect_like_cs2cs(kGkZone7, kWgs84, 7413187.972, 6182348.166, kDegree);
}

TEST(ReprojXyExec, UtmAgreesWithCs2cs) {
  expect_like_cs2cs(kWgsGeo, kUtm37, 37.6173, 55.7558, kMetre);
  expect_like_cs2cs(kUtm37, kWgsGeo, 412345.678, 6123456.789, kDegree);
}

// Forward against the independent series to a millimetre, and back to 1e-9 degree.
void expect_tm_reference(const char* geo, const char* tm, const vxk_test::tm_params& p, double lon,
                         double lat) {
  double e_ref, n_ref;
  vxk_test::kruger_forward(p, lon, lat, &e_ref, &n_ref);
  Tvx_reproj_xy_exec fwd, inv;
  ASSERT_TRUE(fwd.init(geo, tm));
  ASSERT_TRUE(inv.init(tm, geo));
  double x = lon, y = lat;
  ASSERT_TRUE(fwd.apply(&x, &y));
  EXPECT_NEAR(x, e_ref, kMetre) << lon << " " << lat;
  EXPECT_NEAR(y, n_ref, kMetre) << lon << " " << lat;
  ASSERT_TRUE(inv.apply(&x, &y));
  EXPECT_NEAR(x, lon, kDegree);
  EXPECT_NEAR(y, lat, kDegree);
}

TEST(ReprojXyExec, GaussKrugerZoneOnKrasovskyMatchesKrugerSeries) {
  for (auto [lon, lat] :
       {std::pair{37.6173, 55.7558}, {39.0, 0.0}, {42.0, 40.0}, {36.0, 72.5}, {41.5, 45.25}})
    expect_tm_reference(kKrassGeo, kKrassGk7, kKrassGk7Params, lon, lat);
}

TEST(ReprojXyExec, UtmOnWgs84MatchesKrugerSeries) {
  for (auto [lon, lat] : {std::pair{37.6173, 55.7558}, {36.1, 70.2}, {41.99, 0.5}, {38.25, 12.75}})
    expect_tm_reference(kWgsGeo, kUtm37, kUtm37Params, lon, lat);
}

TEST(ReprojXyExec, PublishedTransverseMercatorExamples) {
  // British National Grid example of the EPSG guidance note on coordinate operations (Airy 1830):
  // 50°30'N 0°30'E gives E 577274.99 m, N 69740.50 m, published to the centimetre.
  Tvx_reproj_xy_exec bng;
  ASSERT_TRUE(
      bng.init("+proj=longlat +ellps=airy",
               "+proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=airy"));
  double x = 0.5, y = 50.5;
  ASSERT_TRUE(bng.apply(&x, &y));
  EXPECT_NEAR(x, 577274.99, 0.015);
  EXPECT_NEAR(y, 69740.50, 0.015);
  // Snyder, Map Projections: A Working Manual (1987), UTM on Clarke 1866: 40°30'N 73°30'W in zone 18
  // gives x = 127106.5 m, y = 4484124.4 m from the central meridian and the equator.
  Tvx_reproj_xy_exec utm;
  ASSERT_TRUE(utm.init("+proj=longlat +ellps=clrk66", "+proj=utm +zone=18 +ellps=clrk66"));
  x = -73.5;
  y = 40.5;
  ASSERT_TRUE(utm.apply(&x, &y));
  EXPECT_NEAR(x - 500000, 127106.5, 0.05);
  EXPECT_NEAR(y, 4484124.4, 0.05);
}

TEST(ReprojXyExec, KrugerSeriesReproducesThePublishedExamples) {
  // The reference of the millimetre tests, checked against the same published numbers.
  double e, n;
  vxk_test::kruger_forward({6377563.396, 299.3249646, -2, 49, 0.9996012717, 400000, -100000}, 0.5, 50.5, &e,
                           &n);
  EXPECT_NEAR(e, 577274.99, 0.015);
  EXPECT_NEAR(n, 69740.50, 0.015);
  vxk_test::kruger_forward({6378206.4, 294.9786982, -75, 0, 0.9996, 500000, 0}, -73.5, 40.5, &e, &n);
  EXPECT_NEAR(e - 500000, 127106.5, 0.05);
  EXPECT_NEAR(n, 4484124.4, 0.05);
}

TEST(ReprojXyExec, LongitudesAreWrappedAroundMeridian45) {
  // Every text given to PROJ ends in +lon_wrap=45, so a geographic result lies in [-135, 225].
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kWgs84, kPulkovo));
  double x = -170, y = 10;
  ASSERT_TRUE(e.apply(&x, &y));
  EXPECT_NEAR(x, 190, 0.01);
  expect_like_cs2cs(kWgs84, kPulkovo, -170, 10, kDegree);
}

TEST(ReprojXyExec, EqualSystemsStillTransform) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kGkZone7, kGkZone7));
  double x = 7413187.972, y = 6182348.166;
  ASSERT_TRUE(e.apply(&x, &y));
  EXPECT_NEAR(x, 7413187.972, kMetre);
  EXPECT_NEAR(y, 6182348.166, kMetre);
  ASSERT_TRUE(e.init(kWgs84, kWgs84));
  x = 37.5;
  y = 55.5;
  ASSERT_TRUE(e.apply(&x, &y));
  EXPECT_NEAR(x, 37.5, kDegree);
  EXPECT_NEAR(y, 55.5, kDegree);
}

TEST(ReprojXyExec, PointOutsideTheDomainFailsWithInfinities) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kKrassGeo, kKrassGk7));
  double x = 129, y = 0;  // a quarter of the globe east of the central meridian
  EXPECT_FALSE(e.apply(&x, &y));
  EXPECT_TRUE(std::isinf(x));
  EXPECT_TRUE(std::isinf(y));
}

TEST(ReprojXyExec, OneBadPointFailsTheWholeBatch) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kKrassGeo, kKrassGk7));
  std::vector<double> x(1000), y(1000);
  for (unsigned i = 0; i < 1000; ++i) {
    x[i] = 36 + i * 0.005;
    y[i] = 40 + i * 0.01;
  }
  x[999] = 129;
  y[999] = 0;
  EXPECT_FALSE(e.apply(1000, x.data(), y.data()));
  // The good points were transformed all the same; the caller must treat them as lost.
  EXPECT_GT(x[0], 7000000);
  EXPECT_TRUE(std::isinf(x[999]));
}

TEST(ReprojXyExec, BatchMatchesSinglePoints) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kWgs84, kGkZone7));
  std::vector<double> x{36.5, 37.6173, 41.25}, y{50.0, 55.7558, 66.0};
  std::vector<double> bx = x, by = y;
  ASSERT_TRUE(e.apply(3, bx.data(), by.data()));
  for (unsigned i = 0; i < 3; ++i) {
    ASSERT_TRUE(e.apply(&x[i], &y[i]));
    EXPECT_DOUBLE_EQ(bx[i], x[i]);
    EXPECT_DOUBLE_EQ(by[i], y[i]);
  }
}

TEST(ReprojXyExec, ArrayFormUsesItsSize) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kKrassGeo, kKrassGk7));
  Tvx_xy_array a;
  a.set_size(2);
  a.set_xy(0, 39, 0);
  a.set_xy(1, 129, 0);  // outside the domain, but beyond the size
  a.set_size(1);
  ASSERT_TRUE(e.apply(&a));
  EXPECT_NEAR(a.get_x(0), 7500000, kMetre);
  EXPECT_NEAR(a.get_y(0), 0, kMetre);
  EXPECT_EQ(a.get_x(1), 129);
}

TEST(ReprojXyExec, EmptyArrayPassesOnAnInitialisedObject) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kWgs84, kPulkovo));
  Tvx_xy_array a;
  EXPECT_TRUE(e.apply(&a));
  EXPECT_TRUE(e.apply(0u, nullptr, nullptr));
}

TEST(ReprojXyExec, UninitialisedFailsButForAnEmptyBatch) {
  Tvx_reproj_xy_exec e;
  double x = 1, y = 2;
  EXPECT_FALSE(e.apply(&x, &y));
  EXPECT_FALSE(e.apply(1, &x, &y));
  EXPECT_TRUE(e.apply(0u, &x, &y));
  Tvx_xy_array a;
  EXPECT_TRUE(e.apply(&a));
}

TEST(ReprojXyExec, ClearEmptiesAndInitStartsAgain) {
  Tvx_reproj_xy_exec e;
  ASSERT_TRUE(e.init(kWgs84, kPulkovo));
  e.clear();
  double x = 1, y = 2;
  EXPECT_FALSE(e.apply(&x, &y));
  EXPECT_FALSE(e.init("nothing", kPulkovo));
  EXPECT_FALSE(e.apply(&x, &y));
  ASSERT_TRUE(e.init(kKrassGeo, kKrassGk7));
  ASSERT_TRUE(e.init(kKrassGeo, kKrassGk7));
  x = 39;
  y = 0;
  EXPECT_TRUE(e.apply(&x, &y));
  EXPECT_NEAR(x, 7500000, kMetre);
}

}  // namespace
