#include <gtest/gtest.h>

#include "vxk_proj4_shp.h"

namespace {

TEST(Language, DefaultIsEnglishAndSetterStores) {
  EXPECT_EQ(vx_res_get_lng(), 1);
  vx_res_set_lng(0);
  EXPECT_EQ(vx_res_get_lng(), 0);
  vx_res_set_lng(419);
  EXPECT_EQ(vx_res_get_lng(), 419);
}

}  // namespace
