// The flat function of equivalence, through the public header.
#include <gtest/gtest.h>

#include "vxk_proj4_shp.h"

namespace {

TEST(ReprojInfoExport, SameNotTheSameAndUnreadable) {
  EXPECT_EQ(vx_pj4_equivalent_w(L"EPSG:4326", L"+proj=longlat +datum=WGS84 +no_defs +type=crs"), 1);
  EXPECT_EQ(vx_pj4_equivalent_w(L"+init=epsg:32637", L"+proj=utm +zone=37 +datum=WGS84 +units=m +type=crs"),
            1);
  EXPECT_EQ(vx_pj4_equivalent_w(L"EPSG:32637", L"EPSG:32638"), 0);
  EXPECT_EQ(vx_pj4_equivalent_w(L"+proj=utm +zone=37 +datum=WGS84", L"+zone=37 +proj=utm +datum=WGS84"), 0);
  EXPECT_EQ(vx_pj4_equivalent_w(L"garbage", L"EPSG:4326"), -1);
  EXPECT_EQ(vx_pj4_equivalent_w(L"garbage", L"garbage"), -1);
  EXPECT_EQ(vx_pj4_equivalent_w(L"EPSG:4326", L"+proj=nonesuch +type=crs"), -2);
  EXPECT_EQ(vx_pj4_equivalent_w(nullptr, L"EPSG:4326"), -1);
  EXPECT_EQ(vx_pj4_equivalent_w(L"EPSG:4326", nullptr), -2);
}

}  // namespace
