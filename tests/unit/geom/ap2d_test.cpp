#include "geom/ap2d.h"

#include <gtest/gtest.h>

namespace {

TEST(Ap2d, NewArrayIsEmpty) {
  Tvx_ap2d ap;
  EXPECT_EQ(ap.get_size(), 0);
  EXPECT_EQ(ap.get_vector_type(), 0xFFFFFFFFu);
  EXPECT_EQ(ap.get_attached(), nullptr);
  EXPECT_FALSE(ap.get_rect().defined);
}

TEST(Ap2d, AddInsDelSetSize) {
  Tvx_ap2d ap;
  Tvx_op2d* a = ap.add();
  Tvx_op2d* b = ap.ins(0);
  EXPECT_EQ(ap.get(0), b);
  EXPECT_EQ(ap.get(1), a);
  EXPECT_EQ(a->get_vector_type(), 0xFFFFFFFFu);
  ap.set_size(5);
  EXPECT_EQ(ap.get_size(), 5);
  EXPECT_EQ(ap.get(1), a);
  EXPECT_EQ(ap.get(4)->get_size(), 0);
  ap.del(0);
  EXPECT_EQ(ap.get(0), a);
  ap.set_size(1);
  EXPECT_EQ(ap.get_size(), 1);
  ap.clear();
  EXPECT_EQ(ap.get_size(), 0);
}

TEST(Ap2d, TypeCodeAndAttachedPointer) {
  Tvx_ap2d ap;
  int tag = 0;
  ap.set_vector_type(7);
  ap.set_attached(&tag);
  EXPECT_EQ(ap.get_vector_type(), 7u);
  EXPECT_EQ(ap.get_attached(), &tag);
}

TEST(Ap2d, AddCopyAndAssignAreDeep) {
  Tvx_op2d op;
  op.add()->add(1, 1);
  op.set_vector_type(5);
  Tvx_ap2d ap;
  Tvx_op2d* copy = ap.add_copy(&op);
  EXPECT_NE(copy, &op);
  EXPECT_EQ(copy->get_vector_type(), 5u);
  EXPECT_EQ(copy->get(0)->get(0), vx_point2d(1, 1));
  ap.set_vector_type(2);
  Tvx_ap2d other;
  other.assign(&ap);
  ASSERT_EQ(other.get_size(), 1);
  EXPECT_NE(other.get(0), copy);
  EXPECT_EQ(other.get_vector_type(), 2u);
  copy->get(0)->set(0, vx_point2d(8, 8));
  EXPECT_EQ(other.get(0)->get(0)->get(0), vx_point2d(1, 1));
}

TEST(Ap2d, RectangleIsTheUnionOfTheObjects) {
  Tvx_ap2d ap;
  ap.add()->add()->add(1, 2);
  ap.add();
  ap.add()->add()->add(-3, 4);
  const Tvx_rect2d r = ap.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, -3.0);
  EXPECT_EQ(r.ymin, 2.0);
  EXPECT_EQ(r.xmax, 1.0);
  EXPECT_EQ(r.ymax, 4.0);
}

TEST(Ap2d, DeleteObjDeletesAndNulls) {
  Tvx_ap2d* ap = new Tvx_ap2d();
  ap->add()->add()->add(1, 1);
  Tvx_ap2d::delete_obj(&ap);
  EXPECT_EQ(ap, nullptr);
}

}  // namespace
