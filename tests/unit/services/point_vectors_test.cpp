// Point vectors and object vectors through their flat functions.
#include <gtest/gtest.h>

#include "vxk_proj4_shp.h"

namespace {

Tvx_vtx_d2 v(double x, double y) {
  return Tvx_vtx_d2{x, y};
}

struct pv {
  Tvx_pp2d* h = vx_pv_d2_create();
  ~pv() { vx_pv_d2_destroy(h); }
};

TEST(PointVectors, AddingTheSameVertexTwiceKeepsBoth) {
  pv a;
  vx_pv_d2_add_vtx(a.h, v(1, 2));
  vx_pv_d2_add_vtx(a.h, v(1, 2));
  ASSERT_EQ(vx_pv_d2_get_size(a.h), 2u);
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 1).x, 1.0);
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 1).y, 2.0);
}

TEST(PointVectors, AddPvFromAnEmptyVectorAddsNothing) {
  pv a, empty;
  vx_pv_d2_add_vtx(a.h, v(1, 2));
  vx_pv_d2_add_pv(a.h, empty.h);
  EXPECT_EQ(vx_pv_d2_get_size(a.h), 1u);
}

TEST(PointVectors, AddPvAppendsACopyInOrderAlsoOfItself) {
  pv a, b;
  vx_pv_d2_add_vtx(b.h, v(1, 1));
  vx_pv_d2_add_vtx(b.h, v(2, 2));
  vx_pv_d2_add_pv(a.h, b.h);
  vx_pv_d2_add_pv(a.h, a.h);
  ASSERT_EQ(vx_pv_d2_get_size(a.h), 4u);
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 2).x, 1.0);
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 3).y, 2.0);
  vx_pv_d2_set_vtx(b.h, 0, v(9, 9));
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 0).x, 1.0);  // a copy, not a view
}

TEST(PointVectors, SetSizeClearAssignAndLength) {
  pv a, b;
  vx_pv_d2_set_size(a.h, 3);
  EXPECT_EQ(vx_pv_d2_get_size(a.h), 3u);
  vx_pv_d2_set_vtx(a.h, 1, v(3, 4));
  EXPECT_DOUBLE_EQ(vx_pv_d2_get_length(a.h), 10.0);  // (0,0) (3,4) (0,0)
  vx_pv_d2_assign(b.h, a.h);
  EXPECT_EQ(vx_pv_d2_get_size(b.h), 3u);
  EXPECT_EQ(vx_pv_d2_get_vtx(b.h, 1).y, 4.0);
  vx_pv_d2_clear(a.h);
  EXPECT_EQ(vx_pv_d2_get_size(a.h), 0u);
  EXPECT_EQ(vx_pv_d2_get_length(a.h), 0.0);
  vx_pv_d2_set_size(b.h, 1);
  EXPECT_EQ(vx_pv_d2_get_size(b.h), 1u);
}

TEST(PointVectors, IndicesOutOfRangeReadZerosAndWriteNothing) {
  pv a;
  vx_pv_d2_add_vtx(a.h, v(5, 6));
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 1).x, 0.0);
  EXPECT_EQ(vx_pv_d2_get_vtx(a.h, 0xFFFFFFFFu).y, 0.0);
  vx_pv_d2_set_vtx(a.h, 7, v(1, 1));
  EXPECT_EQ(vx_pv_d2_get_size(a.h), 1u);
}

TEST(PointVectors, AnAbsurdSizeLeavesTheVectorAsItWas) {
  pv a;
  vx_pv_d2_add_vtx(a.h, v(5, 6));
  vx_pv_d2_set_size(a.h, 0xFFFFFFFFu);
  EXPECT_EQ(vx_pv_d2_get_size(a.h), 1u);
}

TEST(ObjectVectors, PartsAreOwnedAndCleared) {
  Tvx_op2d* o = vx_ov_d2_create();
  Tvx_pp2d* p1 = vx_ov_d2_add(o);
  Tvx_pp2d* p2 = vx_ov_d2_add(o);
  ASSERT_NE(p1, nullptr);
  ASSERT_NE(p2, p1);
  vx_pv_d2_add_vtx(p1, v(1, 1));
  vx_pv_d2_add_vtx(p2, v(2, 2));
  EXPECT_EQ(vx_pv_d2_get_size(p1), 1u);
  vx_ov_d2_clear(o);
  Tvx_pp2d* p3 = vx_ov_d2_add(o);
  EXPECT_EQ(vx_pv_d2_get_size(p3), 0u);
  vx_ov_d2_destroy(o);
}

TEST(VectorsDestroy, NullIsAllowed) {
  vx_pv_d2_destroy(nullptr);
  vx_ov_d2_destroy(nullptr);
}

}  // namespace
