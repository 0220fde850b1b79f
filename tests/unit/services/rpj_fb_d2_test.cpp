// The batch reprojector of point vectors.
#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>

#include "geom/pp2d.h"
#include "services/flat_types.h"

namespace {

const wchar_t* const PULKOVO = L"+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12";
const wchar_t* const GK7 = L"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 +ellps=krass +units=m";
const wchar_t* const WGS84 = L"+proj=longlat +datum=WGS84";
const wchar_t* const ORTHO = L"+proj=ortho +lat_0=0 +lon_0=0 +datum=WGS84 +units=m";

// The same projection straight through PROJ, for comparison.
PJ_COORD bare(const char* src, const char* dst, double lon, double lat) {
  PJ* pj = proj_create_crs_to_crs(nullptr, src, dst, nullptr);
  PJ* norm = proj_normalize_for_visualization(nullptr, pj);
  PJ_COORD c = proj_trans(norm, PJ_FWD, proj_coord(lon, lat, 0, HUGE_VAL));
  proj_destroy(norm);
  proj_destroy(pj);
  return c;
}

struct reprojector {
  Tvx_rpj_fb_d2* r = vx_rpj_fb_d2_create();
  ~reprojector() { vx_rpj_fb_d2_destroy(r); }
};

TEST(RpjFbD2, WholeVectorInOneGo) {
  reprojector rp;
  ASSERT_TRUE(vx_rpj_fb_d2_init_w(rp.r, PULKOVO, GK7));
  Tvx_pp2d pv;
  for (int i = 0; i < 100; ++i) pv.add(36 + 0.06 * i, 54 + 0.01 * i);
  ASSERT_TRUE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 1));
  for (int i = 0; i < 100; i += 33) {
    // The texts as the library hands them to PROJ, with its tail.
    const PJ_COORD c = bare(
        "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +lon_wrap=45 +no_defs",
        "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass +units=m +lon_wrap=45 +no_defs", 36 + 0.06 * i,
        54 + 0.01 * i);
    EXPECT_NEAR(pv.get(i).x, c.xy.x, 1e-6);
    EXPECT_NEAR(pv.get(i).y, c.xy.y, 1e-6);
  }
}

TEST(RpjFbD2, CentralMeridianGoesToTheFalseEasting) {
  reprojector rp;
  ASSERT_TRUE(vx_rpj_fb_d2_init_w(rp.r, L"+proj=longlat +ellps=krass", GK7));
  Tvx_pp2d pv;
  pv.add(39, 0);
  pv.add(39, 55);
  ASSERT_TRUE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 1));
  EXPECT_NEAR(pv.get(0).x, 7500000, 1e-6);
  EXPECT_NEAR(pv.get(0).y, 0, 1e-6);
  EXPECT_NEAR(pv.get(1).x, 7500000, 1e-6);
  EXPECT_NEAR(pv.get(1).y, 6097337.1916, 1e-4);  // meridian arc to 55 degrees on Krasovsky, by cs2cs
}

TEST(RpjFbD2, AVertexThatFailsKeepsItsSourceAndTheOthersMove) {
  reprojector rp;
  ASSERT_TRUE(vx_rpj_fb_d2_init_w(rp.r, WGS84, ORTHO));
  Tvx_pp2d pv;
  pv.add(10, 10);
  pv.add(170, 0);  // the far side of the globe: no image in an orthographic view from (0, 0)
  pv.add(-20, 5);
  EXPECT_FALSE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 1));
  EXPECT_EQ(pv.get(1).x, 170);
  EXPECT_EQ(pv.get(1).y, 0);
  const PJ_COORD a =
      bare("+proj=longlat +datum=WGS84 +type=crs", "+proj=ortho +datum=WGS84 +type=crs", 10, 10);
  EXPECT_NEAR(pv.get(0).x, a.xy.x, 1e-6);
  EXPECT_NEAR(pv.get(0).y, a.xy.y, 1e-6);
  EXPECT_LT(pv.get(2).x, -1e6);
}

TEST(RpjFbD2, FailedInitChangesNothing) {
  reprojector rp;
  EXPECT_FALSE(vx_rpj_fb_d2_init_w(rp.r, L"/style/std_list/proj0.pj4", GK7));
  Tvx_pp2d pv;
  pv.add(37, 55);
  EXPECT_FALSE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 1));
  EXPECT_EQ(pv.get(0).x, 37);
  EXPECT_EQ(pv.get(0).y, 55);
  EXPECT_FALSE(vx_rpj_fb_d2_init_w(rp.r, nullptr, nullptr));
}

TEST(RpjFbD2, UninitialisedReprojectorChangesNothing) {
  reprojector rp;
  Tvx_pp2d pv;
  pv.add(37, 55);
  EXPECT_FALSE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 1));
  EXPECT_EQ(pv.get(0).x, 37);
}

TEST(RpjFbD2, OtherModesAreRefused) {
  reprojector rp;
  ASSERT_TRUE(vx_rpj_fb_d2_init_w(rp.r, PULKOVO, GK7));
  Tvx_pp2d pv;
  pv.add(37, 55);
  EXPECT_FALSE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 0));
  EXPECT_FALSE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 2));
  EXPECT_EQ(pv.get(0).x, 37);
}

TEST(RpjFbD2, EmptyVectorGoesThrough) {
  reprojector rp;
  ASSERT_TRUE(vx_rpj_fb_d2_init_w(rp.r, PULKOVO, GK7));
  Tvx_pp2d pv;
  EXPECT_TRUE(vx_rpj_fb_d2_apply_pv(rp.r, &pv, 1));
  EXPECT_EQ(pv.get_size(), 0);
}

TEST(RpjFbD2, DestroyAcceptsNull) {
  vx_rpj_fb_d2_destroy(nullptr);
}

}  // namespace
