#include "geom/op3d.h"

#include <gtest/gtest.h>

namespace {

TEST(Op3d, NewObjectHasNoParts) {
  Tvx_op3d op;
  EXPECT_EQ(op.get_size(), 0);
  EXPECT_FALSE(op.get_rect().defined);
  EXPECT_FALSE(op.is_closed());
  EXPECT_FALSE(op.close());
}

TEST(Op3d, PartsAddSetSizeClear) {
  Tvx_op3d op;
  Tvx_pp3d* a = op.add();
  a->add(vx_point3d(1, 2, 3));
  op.set_size(3);
  EXPECT_EQ(op.get(0), a);
  EXPECT_EQ(op.get(2)->get_size(), 0);
  op.set_size(1);
  EXPECT_EQ(op.get_size(), 1);
  op.clear();
  EXPECT_EQ(op.get_size(), 0);
}

TEST(Op3d, BoxIsTheUnionOfTheParts) {
  Tvx_op3d op;
  op.add()->add(vx_point3d(1, 1, 1));
  op.add();
  op.add()->add(vx_point3d(-1, 3, 7));
  const Tvx_rect3d r = op.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, -1.0);
  EXPECT_EQ(r.ymax, 3.0);
  EXPECT_EQ(r.zmin, 1.0);
  EXPECT_EQ(r.zmax, 7.0);
}

TEST(Op3d, CopiesAreDeep) {
  Tvx_op3d src;
  src.add()->add(vx_point3d(1, 1, 1));
  src.add()->add(vx_point3d(2, 2, 2));
  Tvx_op3d dst;
  dst.add()->add(vx_point3d(9, 9, 9));
  dst.assign(&src);
  ASSERT_EQ(dst.get_size(), 2);
  EXPECT_NE(dst.get(0), src.get(0));
  src.get(0)->set(0, vx_point3d(0, 0, 0));
  EXPECT_EQ(dst.get(0)->get(0), vx_point3d(1, 1, 1));
  Tvx_pp3d* part = dst.add_copy(src.get(1));
  EXPECT_EQ(part->get(0), vx_point3d(2, 2, 2));
  dst.add_copy(&dst);
  EXPECT_EQ(dst.get_size(), 6);
}

TEST(Op3d, ClosingFollowsThePlaneObject) {
  Tvx_op3d op;
  Tvx_pp3d* a = op.add();
  a->add(vx_point3d(0, 0, 0));
  a->add(vx_point3d(1, 0, 0));
  a->add(vx_point3d(1, 1, 0));
  Tvx_pp3d* b = op.add();
  b->add(vx_point3d(5, 5, 5));
  Tvx_pp3d* c = op.add();
  c->add(vx_point3d(0, 0, 0));
  c->add(vx_point3d(0, 1, 0));
  EXPECT_FALSE(op.is_closed());
  EXPECT_FALSE(op.close());  // stops at the one-vertex part
  EXPECT_TRUE(a->is_closed());
  EXPECT_FALSE(c->is_closed());
  op.get(1)->add(vx_point3d(6, 6, 6));
  EXPECT_TRUE(op.close());
  EXPECT_TRUE(op.is_closed());
}

TEST(Op3d, DeleteDoublePntOnEveryPart) {
  Tvx_op3d op;
  for (int i = 0; i < 2; ++i) {
    Tvx_pp3d* pp = op.add();
    pp->add(vx_point3d(i, 0, 0));
    pp->add(vx_point3d(i, 0, 0));
    pp->add(vx_point3d(i, 0, 1));
  }
  op.delete_double_pnt();
  EXPECT_EQ(op.get(0)->get_size(), 2);
  EXPECT_EQ(op.get(1)->get_size(), 2);
}

TEST(Op3d, DeleteObjDeletesAndNulls) {
  Tvx_op3d* op = new Tvx_op3d();
  op->add()->add(vx_point3d(1, 1, 1));
  Tvx_op3d::delete_obj(&op);
  EXPECT_EQ(op, nullptr);
}

}  // namespace
