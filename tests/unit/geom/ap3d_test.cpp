#include "geom/ap3d.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

static_assert(std::has_virtual_destructor_v<Tvx_ap3d>, "deleted through its virtual destructor");

TEST(Ap3d, ObjectsAddSetSizeClear) {
  Tvx_ap3d ap;
  EXPECT_EQ(ap.get_size(), 0);
  EXPECT_FALSE(ap.get_rect().defined);
  Tvx_op3d* a = ap.add();
  ap.set_size(3);
  EXPECT_EQ(ap.get(0), a);
  EXPECT_EQ(ap.get(2)->get_size(), 0);
  ap.set_size(1);
  EXPECT_EQ(ap.get_size(), 1);
  ap.clear();
  EXPECT_EQ(ap.get_size(), 0);
}

TEST(Ap3d, AddCopyOfAPartMakesAnObject) {
  Tvx_ap3d ap;
  Tvx_pp3d pp;
  pp.add(vx_point3d(1, 2, 3));
  Tvx_op3d* op = ap.add_copy(&pp);
  ASSERT_EQ(op->get_size(), 1);
  EXPECT_NE(op->get(0), &pp);
  EXPECT_EQ(op->get(0)->get(0), vx_point3d(1, 2, 3));
}

TEST(Ap3d, AddCopyAndAssignAreDeep) {
  Tvx_op3d op;
  op.add()->add(vx_point3d(1, 1, 1));
  Tvx_ap3d ap;
  Tvx_op3d* copy = ap.add_copy(&op);
  EXPECT_NE(copy, &op);
  Tvx_ap3d other;
  other.assign(&ap);
  ASSERT_EQ(other.get_size(), 1);
  copy->get(0)->set(0, vx_point3d(5, 5, 5));
  EXPECT_EQ(other.get(0)->get(0)->get(0), vx_point3d(1, 1, 1));
}

TEST(Ap3d, BoxAndDeleteDouble) {
  Tvx_ap3d ap;
  Tvx_pp3d* pp = ap.add()->add();
  pp->add(vx_point3d(0, 0, 0));
  pp->add(vx_point3d(0, 0, 0));
  ap.add()->add()->add(vx_point3d(2, -1, 4));
  const Tvx_rect3d r = ap.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.ymin, -1.0);
  EXPECT_EQ(r.zmax, 4.0);
  ap.delete_double_pnt();
  EXPECT_EQ(pp->get_size(), 1);
}

TEST(Ap3d, DeleteObjDeletesAndNulls) {
  Tvx_ap3d* ap = new Tvx_ap3d();
  ap->add()->add();
  Tvx_ap3d::delete_obj(&ap);
  EXPECT_EQ(ap, nullptr);
}

}  // namespace
