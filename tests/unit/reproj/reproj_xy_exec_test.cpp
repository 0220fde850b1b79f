#include "reproj/reproj_xy_exec.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "cs2cs.h"
#include "kruger_tm.h"
#include "reproj/proj_log.h"
#include "reproj/reproj_xy.h"
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

// ---- Equivalence with the plain way of joining two systems ------------------------------------------
//
// Two systems on one datum are joined without their datum shift, which cancels. These tests hold the
// engine to the plain way, each system's full text handed to PROJ with its shift, over many points of
// each pair's area: the same coordinates to 1e-6 in metres and 1e-11 in degrees, and the same points
// refused. VXK_EQUIVALENCE_POINTS sets the number of points per pair (bench/reproj_equivalence.sh runs a
// million).

namespace {

// The plain way, as the engine joined every pair before shared datums were recognised.
class plain_engine {
 public:
  ~plain_engine() {
    if (norm_) proj_destroy(norm_);
    if (pj_) proj_destroy(pj_);
  }
  bool init(const char* src, const char* dst) {
    bool unused = false;
    const std::string s = Tvx_reproj_xy_exec::verify_pj4str(src, &unused);
    const std::string d = Tvx_reproj_xy_exec::verify_pj4str(dst, &unused);
    if (s.empty() || d.empty()) return false;
    pj_ = proj_create_crs_to_crs(nullptr, s.c_str(), d.c_str(), nullptr);
    if (pj_) norm_ = proj_normalize_for_visualization(nullptr, pj_);
    if (!norm_) return false;
    in_radians_ = proj_angular_input(norm_, PJ_FWD) != 0;
    out_radians_ = proj_angular_output(norm_, PJ_FWD) != 0;
    return true;
  }
  bool apply(unsigned n, double* x, double* y) const {
    for (unsigned i = 0; in_radians_ && i < n; ++i)
      x[i] *= 0.017453292519943295, y[i] *= 0.017453292519943295;
    if (proj_trans_generic(norm_, PJ_FWD, x, 8, n, y, 8, n, nullptr, 0, 0, nullptr, 0, 0) != n) return false;
    for (unsigned i = 0; i < n; ++i)
      if (!std::isfinite(x[i]) || !std::isfinite(y[i])) return false;
    for (unsigned i = 0; out_radians_ && i < n; ++i) x[i] *= 57.29577951308232, y[i] *= 57.29577951308232;
    return true;
  }
  std::string definition() const { return proj_pj_info(norm_).definition; }

 private:
  PJ* pj_ = nullptr;
  PJ* norm_ = nullptr;
  bool in_radians_ = false;
  bool out_radians_ = false;
};

// A pair of systems, and the area of its points as a box of longitudes and latitudes on the source's
// own datum.
struct system_pair {
  const char* name;
  const char* src;
  const char* dst;
  double lon0, lon1, lat0, lat1;
  // For a geographic source and a transverse Mercator destination reaching far from its central
  // meridian (given here), where the projection stretches the ground many times: the tolerance is then
  // 1e-6 m on the ground, that is times the scale of the projection at the point.
  double far_meridian = NAN;
};

// The scale of a transverse Mercator at a point, on the sphere: 1 / sqrt(1 - (cos(lat) sin(dlon))^2).
double tm_scale(const system_pair& p, double lon, double lat) {
  if (std::isnan(p.far_meridian)) return 1.0;
  const double deg = 0.017453292519943295;
  const double b = std::cos(lat * deg) * std::sin((lon - p.far_meridian) * deg);
  return 1.0 / std::sqrt(std::max(1e-30, 1.0 - b * b));
}

#define VXK_SHIFT "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 "
const char* const kP42 = "+proj=longlat +ellps=krass " VXK_SHIFT "+no_defs";
const char* const kP42Gk7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass " VXK_SHIFT "+units=m";
const char* const kP42Gk8 =
    "+proj=tmerc +lat_0=0 +lon_0=45 +k=1 +x_0=8500000 +y_0=0 +ellps=krass " VXK_SHIFT "+units=m";
const char* const kP42Gk30 =
    "+proj=tmerc +lat_0=0 +lon_0=177 +k=1 +x_0=30500000 +y_0=0 +ellps=krass " VXK_SHIFT "+units=m";
const char* const kP42Stere =
    "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=45 +x_0=0 +y_0=0 +ellps=krass " VXK_SHIFT;
const char* const kP42Aea =
    "+proj=aea +lat_1=52 +lat_2=64 +lat_0=0 +lon_0=105 +x_0=18500000 +ellps=krass " VXK_SHIFT;
const char* const kP42ARf = "+proj=longlat +a=6378245 +rf=298.3 " VXK_SHIFT;
const char* const kIntlSameShift = "+proj=longlat +ellps=intl " VXK_SHIFT;
const char* const kP95 = "+proj=longlat +ellps=krass +towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22";
const char* const kKrass3 = "+proj=longlat +ellps=krass +towgs84=28,-130,-95";
const char* const kKrass3Gk7 = "+proj=tmerc +lon_0=39 +k=1 +x_0=7500000 +ellps=krass +towgs84=28,-130,-95";
const char* const kKrass = "+proj=longlat +ellps=krass";
const char* const kKrassGk7NoShift = "+proj=tmerc +lon_0=39 +k=1 +x_0=7500000 +ellps=krass";
const char* const kWgs = "+proj=longlat +datum=WGS84 +no_defs";
const char* const kWgsUtm37 = "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs";
const char* const kWgsZeroShift = "+proj=longlat +ellps=WGS84 +towgs84=0,0,0,0,0,0,0";
const char* const kUtm37South = "+proj=utm +zone=37 +south +ellps=WGS84 +towgs84=0,0,0,0,0,0,0 +units=m";
const char* const kSphereMerc = "+proj=merc +a=6378137 +b=6378137 +lat_ts=0 +lon_0=0 +units=m " VXK_SHIFT;
const char* const kSphereGeo = "+proj=longlat +a=6378137 +b=6378137";
const char* const kGrs80 = "+proj=longlat +ellps=GRS80 +towgs84=0,0,0";
const char* const kGrs80Lcc =
    "+proj=lcc +lat_1=49 +lat_2=44 +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000 +ellps=GRS80 +towgs84=0,0,0";
const char* const kNtfGrid = "+proj=longlat +ellps=clrk80ign +nadgrids=ntf_r93.gsb";
const char* const kNtfGridLcc =
    "+proj=lcc +lat_1=46.8 +lat_0=46.8 +lon_0=2.337 +k_0=0.99987742 +x_0=600000 +y_0=2200000 "
    "+ellps=clrk80ign "
    "+nadgrids=ntf_r93.gsb";
const char* const kUnbuildable = "+proj=nosuchprojection +ellps=krass " VXK_SHIFT;
#undef VXK_SHIFT

const system_pair kPairs[] = {
    {"pulkovo geographic to zone 7", kP42, kP42Gk7, 30, 48, 35, 80},
    {"zone 7 to pulkovo geographic", kP42Gk7, kP42, 30, 48, 35, 80},
    {"zone 7 to zone 8", kP42Gk7, kP42Gk8, 36, 48, 40, 70},
    {"pulkovo geographic to itself", kP42, kP42, -180, 180, -89.9, 89.9},
    {"zone 7 to itself", kP42Gk7, kP42Gk7, 30, 48, 35, 80},
    {"pulkovo geographic across 180 to zone 30", kP42, kP42Gk30, 168, 186, 50, 72},
    {"zone 30 to pulkovo geographic, wrapped", kP42Gk30, kP42, 168, 186, 50, 72},
    // Up to 84 degrees from the central meridian, where the projection's scale reaches about 10; closer
    // to and beyond 90 degrees its coordinates run to hundreds of thousands of kilometres and the two
    // ways differ there by their rounding alone (some 1e-13 of the coordinate).
    {"pulkovo geographic to far parts of zone 7", kP42, kP42Gk7, -45, 123, -80, 85, 39},
    {"pulkovo geographic to polar stereographic", kP42, kP42Stere, -180, 180, -30, 90},
    {"pulkovo geographic to albers", kP42, kP42Aea, 20, 190, 40, 80},
    {"pulkovo by semi-axis and flattening to zone 7", kP42ARf, kP42Gk7, 30, 48, 35, 80},
    {"three-value shift, geographic to zone 7", kKrass3, kKrass3Gk7, 30, 48, 35, 80},
    {"krasovsky without shift to zone 7", kKrass, kKrassGk7NoShift, 30, 48, 35, 80},
    {"pulkovo to another pulkovo shift", kP42, kP95, 20, 60, 40, 70},
    {"same shift on another ellipsoid", kIntlSameShift, kP42Gk7, 30, 48, 35, 80},
    {"pulkovo to WGS 84", kP42, kWgs, 20, 190, 40, 80},
    {"zone 7 to UTM 37", kP42Gk7, kWgsUtm37, 33, 45, 35, 80},
    {"UTM 37 to WGS 84 geographic", kWgsUtm37, kWgs, 33, 45, 0, 80},
    {"WGS 84 with zero shift to UTM 37 south", kWgsZeroShift, kUtm37South, 33, 45, -80, 0},
    {"sphere mercator to sphere geographic", kSphereMerc, kSphereGeo, -180, 180, -85, 85},
    {"GRS 80 geographic to lambert conic", kGrs80, kGrs80Lcc, -6, 10, 41, 52},
    {"NTF grid shift to GRS 80", kNtfGrid, kGrs80, -6, 12, 40, 53},
    {"NTF grid shift to its own lambert conic", kNtfGrid, kNtfGridLcc, -6, 12, 40, 53},
    {"lambert conic to pulkovo zone 7", kGrs80Lcc, kP42Gk7, -6, 10, 41, 52},
    {"a system PROJ cannot build", kP42, kUnbuildable, 30, 48, 35, 80},
};

unsigned equivalence_points() {
  const char* text = std::getenv("VXK_EQUIVALENCE_POINTS");
  const long n = text ? std::atol(text) : 0;
  return n > 0 ? static_cast<unsigned>(n) : 40000;
}

constexpr unsigned kChunk = 1000;

// Points spread at random over the pair's box, in the source's own coordinates. Every seventh batch
// holds a point that no system can take, and one with a latitude far beyond a pole, so that refusals
// are compared as well as results.
void make_points(const system_pair& p, unsigned n, std::vector<double>& x, std::vector<double>& y) {
  std::mt19937_64 random(20261123);
  std::uniform_real_distribution<double> lon(p.lon0, p.lon1), lat(p.lat0, p.lat1);
  x.resize(n);
  y.resize(n);
  for (unsigned i = 0; i < n; ++i) x[i] = lon(random), y[i] = lat(random);
  bool geographic = false;
  Tvx_reproj_xy_exec::verify_pj4str(p.src, &geographic);
  if (!geographic) {
    // Each point goes on its own, so that one outside the source projection's domain stays behind as
    // a far point of the source's plane rather than failing its neighbours.
    Tvx_reproj_xy_exec to_src;
    ASSERT_TRUE(to_src.init(Tvx_reproj_xy::convert_to_latlong(p.src).c_str(), p.src)) << p.name;
    for (unsigned i = 0; i < n; ++i)
      if (!to_src.apply(&x[i], &y[i])) x[i] = y[i] = 1e20;
  }
  for (unsigned i = kChunk / 2; i + 1 < n; i += 7 * kChunk) {
    x[i] = y[i] = geographic ? HUGE_VAL : 1e20;
    x[i + 1] = y[i + 1] = geographic ? 1e3 : 1e20;  // a latitude far beyond the pole
  }
}

struct equivalence_count {
  unsigned batches_refused = 0;
  unsigned points_refused = 0;
};

// One batch through both ways: the same verdict, and on success the same coordinates. A refused batch
// is then compared point by point, so that the very points refused are the same.
void compare_batch(const system_pair& p, Tvx_reproj_xy_exec& engine, const plain_engine& plain, unsigned n,
                   const double* x0, const double* y0, double tol, equivalence_count& count) {
  std::vector<double> ex(x0, x0 + n), ey(y0, y0 + n), px(x0, x0 + n), py(y0, y0 + n);
  const bool engine_ok = engine.apply(n, ex.data(), ey.data());
  ASSERT_EQ(engine_ok, plain.apply(n, px.data(), py.data())) << p.name << " near " << x0[0] << " " << y0[0];
  if (engine_ok) {
    for (unsigned i = 0; i < n; ++i) {
      const double at_tol = tol * tm_scale(p, x0[i], y0[i]);
      ASSERT_NEAR(ex[i], px[i], at_tol) << p.name << " at " << x0[i] << " " << y0[i];
      ASSERT_NEAR(ey[i], py[i], at_tol) << p.name << " at " << x0[i] << " " << y0[i];
    }
    return;
  }
  ++count.batches_refused;
  for (unsigned i = 0; i < n; ++i) {
    double exi = x0[i], eyi = y0[i], pxi = x0[i], pyi = y0[i];
    const bool one_ok = engine.apply(1, &exi, &eyi);
    ASSERT_EQ(one_ok, plain.apply(1, &pxi, &pyi)) << p.name << " at " << x0[i] << " " << y0[i];
    if (!one_ok) ++count.points_refused;
    if (!one_ok) continue;
    ASSERT_NEAR(exi, pxi, tol * tm_scale(p, x0[i], y0[i])) << p.name << " at " << x0[i] << " " << y0[i];
    ASSERT_NEAR(eyi, pyi, tol * tm_scale(p, x0[i], y0[i])) << p.name << " at " << x0[i] << " " << y0[i];
  }
}

void expect_equivalent(const system_pair& p, unsigned n) {
  Tvx_reproj_xy_exec engine;
  plain_engine plain;
  const bool built = engine.init(p.src, p.dst);
  ASSERT_EQ(built, plain.init(p.src, p.dst)) << p.name;
  if (!built) return;
  bool geographic = false;
  Tvx_reproj_xy_exec::verify_pj4str(p.dst, &geographic);
  const double tol = geographic ? 1e-11 : 1e-6;
  std::vector<double> x, y;
  make_points(p, n, x, y);
  equivalence_count count;
  for (unsigned at = 0; at < n; at += kChunk) {
    compare_batch(p, engine, plain, std::min(kChunk, n - at), &x[at], &y[at], tol, count);
    if (::testing::Test::HasFatalFailure()) return;
  }
  std::printf("%-48s %8u points, %5u refused\n", p.name, n, count.points_refused);
}

}  // namespace

TEST(ReprojXyExecEquivalence, EveryPairAgreesWithThePlainWay) {
  const unsigned n = equivalence_points();
  for (const system_pair& p : kPairs) {
    expect_equivalent(p, n);
    if (HasFatalFailure()) return;
  }
}

TEST(ReprojXyExecEquivalence, AnUnbuildablePairFailsBothWays) {
  Tvx_reproj_xy_exec engine;
  plain_engine plain;
  EXPECT_FALSE(engine.init(kP42, kUnbuildable));
  EXPECT_FALSE(plain.init(kP42, kUnbuildable));
  EXPECT_FALSE(engine.get_error().empty());
}

TEST(ReprojXyExecEquivalence, OneDatumIsJoinedWithoutItsShift) {
  Tvx_reproj_xy_exec engine;
  ASSERT_TRUE(engine.init(kP42, kP42Gk7));
  EXPECT_EQ(engine.get_definition().find("towgs84"), std::string::npos) << engine.get_definition();
  EXPECT_EQ(engine.get_definition().find("cart"), std::string::npos) << engine.get_definition();
  EXPECT_NE(engine.get_definition().find("lon_wrap=45"), std::string::npos) << engine.get_definition();
  plain_engine plain;
  ASSERT_TRUE(plain.init(kP42, kP42Gk7));
  EXPECT_NE(plain.definition().find("towgs84"), std::string::npos) << plain.definition();
}

TEST(ReprojXyExecEquivalence, DifferentDatumsKeepTheirShifts) {
  for (const auto& [src, dst] : {std::pair{kP42, kP95},
                                 {kIntlSameShift, kP42Gk7},
                                 {kP42ARf, kP42Gk7},
                                 {kP42, kWgs},
                                 {kNtfGrid, kNtfGridLcc}}) {
    Tvx_reproj_xy_exec engine;
    plain_engine plain;
    ASSERT_TRUE(engine.init(src, dst)) << src << " " << dst;
    ASSERT_TRUE(plain.init(src, dst));
    EXPECT_EQ(engine.get_definition(), plain.definition()) << src << " " << dst;
  }
}
