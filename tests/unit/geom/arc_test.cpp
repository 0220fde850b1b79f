#include "geom/arc.h"

#include <gtest/gtest.h>

namespace {

TEST(Arc, ValueConstructorsAndReverse) {
  const Tvx_arc zero = vx_arc();
  EXPECT_EQ(zero.index, 0u);
  EXPECT_FALSE(zero.reversed);
  Tvx_arc a = vx_arc(7, false);
  EXPECT_EQ(a.index, 7u);
  vx_arc_reverse(&a);
  EXPECT_TRUE(a.reversed);
  vx_arc_reverse(&a);
  EXPECT_FALSE(a.reversed);
}

TEST(Arc, RingListSetGetAndReverseTurnsOrderAndFlags) {
  Tvx_p_arc_t p;
  p.add(vx_arc(1, false));
  p.add(vx_arc(2, true));
  p.add(vx_arc(3, false));
  p.set(0, vx_arc(10, false));
  p.reverse();
  ASSERT_EQ(p.get_size(), 3);
  EXPECT_EQ(p.get(0).index, 3u);
  EXPECT_TRUE(p.get(0).reversed);
  EXPECT_EQ(p.get(1).index, 2u);
  EXPECT_FALSE(p.get(1).reversed);
  EXPECT_EQ(p.get(2).index, 10u);
  EXPECT_TRUE(p.get(2).reversed);

  Tvx_p_arc_t q;
  q.assign(&p);
  EXPECT_EQ(q.get_size(), 3);
  EXPECT_EQ(q.get(2).index, 10u);
  q.set_size(1);
  EXPECT_EQ(q.get_size(), 1);
  q.set_size(2);
  EXPECT_EQ(q.get(1).index, 0u);  // new arcs are zero
  q.clear();
  EXPECT_EQ(q.get_size(), 0);
}

TEST(Arc, BadIndexThrowsTheIntOne) {
  Tvx_p_arc_t p;
  p.add(vx_arc(1, false));
  EXPECT_NO_THROW(p.test_idx(0));
  for (int bad : {-1, 1, 100}) {
    try {
      p.get(bad);
      ADD_FAILURE() << "no throw for " << bad;
    } catch (int e) {
      EXPECT_EQ(e, 1);
    }
  }
  EXPECT_THROW(p.set(1, vx_arc()), int);

  Tvx_a_arc a;
  EXPECT_THROW(a.get(0), int);
  a.add();
  EXPECT_THROW(a.get(0)->get(0), int);
  EXPECT_THROW(a.test_idx(1), int);
}

TEST(Arc, OwnedListsGrowShrinkAndCopyDeep) {
  Tvx_a_arc a;
  Tvx_o_arc_t* o = a.add();
  o->add()->add(vx_arc(4, true));
  o->add()->add(vx_arc(5, false));
  a.set_size(3);
  ASSERT_EQ(a.get_size(), 3);
  EXPECT_EQ(a.get(0), o);  // existing items are kept
  EXPECT_EQ(a.get(2)->get_size(), 0);

  Tvx_a_arc b;
  b.assign(&a);
  ASSERT_EQ(b.get_size(), 3);
  ASSERT_EQ(b.get(0)->get_size(), 2);
  EXPECT_NE(b.get(0), a.get(0));
  EXPECT_EQ(b.get(0)->get(1)->get(0).index, 5u);
  EXPECT_TRUE(b.get(0)->get(0)->get(0).reversed);

  a.set_size(1);
  EXPECT_EQ(a.get_size(), 1);
  a.clear();
  EXPECT_EQ(a.get_size(), 0);
  EXPECT_EQ(b.get_size(), 3);
}

}  // namespace
