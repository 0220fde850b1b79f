#include "geom/pp3d.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

namespace {

Tvx_pp3d make(std::initializer_list<Tvx_point3d> pts) {
  Tvx_pp3d pp;
  for (const Tvx_point3d& p : pts) pp.add(p);
  return pp;
}

void expect_vertices(const Tvx_pp3d& pp, std::initializer_list<Tvx_point3d> want) {
  ASSERT_EQ(pp.get_size(), static_cast<int>(want.size()));
  int i = 0;
  for (const Tvx_point3d& p : want) {
    EXPECT_NEAR(pp.get_x(i), p.x, 1e-12) << "vertex " << i;
    EXPECT_NEAR(pp.get_y(i), p.y, 1e-12) << "vertex " << i;
    EXPECT_NEAR(pp.get_z(i), p.z, 1e-12) << "vertex " << i;
    ++i;
  }
}

std::unique_ptr<Tvx_pp3d> own(Tvx_pp3d* p) {
  return std::unique_ptr<Tvx_pp3d>(p);
}

TEST(Pp3d, NewVectorIsEmpty) {
  Tvx_pp3d pp;
  EXPECT_EQ(pp.get_size(), 0);
  EXPECT_FALSE(pp.get_rect().defined);
  EXPECT_EQ(pp.get_first(), vx_point3d());
  EXPECT_EQ(pp.get_last(), vx_point3d());
}

TEST(Pp3d, CoordinateAccessors) {
  Tvx_pp3d pp;
  pp.set_size(2);
  expect_vertices(pp, {{0, 0, 0}, {0, 0, 0}});
  pp.set_x(1, 4);
  pp.set_y(1, 5);
  pp.set_z(1, 6);
  pp.set(0, vx_point3d(1, 2, 3));
  EXPECT_EQ(pp.get(1), vx_point3d(4, 5, 6));
  EXPECT_EQ(pp.get_first(), vx_point3d(1, 2, 3));
  EXPECT_EQ(pp.get_last(), vx_point3d(4, 5, 6));
  const Tvx_rect3d r = pp.get_rect();
  EXPECT_EQ(r.zmin, 3.0);
  EXPECT_EQ(r.zmax, 6.0);
  pp.set_z(0, 10);
  EXPECT_EQ(pp.get_rect().zmax, 10.0);
}

TEST(Pp3d, AddSegmentOtherAndReversed) {
  Tvx_pp3d pp;
  pp.add(vx_segment3d(0, 0, 0, 1, 1, 1));
  const Tvx_pp3d other = make({{2, 2, 2}, {3, 3, 3}});
  pp.add(&other, true);
  pp.add(&other, false);
  expect_vertices(pp, {{0, 0, 0}, {1, 1, 1}, {3, 3, 3}, {2, 2, 2}, {2, 2, 2}, {3, 3, 3}});
  pp.add(&pp, false);
  EXPECT_EQ(pp.get_size(), 12);
}

TEST(Pp3d, AssignClearSortReverse) {
  Tvx_pp3d pp;
  const Tvx_pp3d src = make({{1, 1, 2}, {0, 5, 5}, {1, 1, 1}});
  pp.assign(&src);
  pp.sort();
  expect_vertices(pp, {{0, 5, 5}, {1, 1, 1}, {1, 1, 2}});
  pp.reverse();
  expect_vertices(pp, {{1, 1, 2}, {1, 1, 1}, {0, 5, 5}});
  pp.clear();
  EXPECT_EQ(pp.get_size(), 0);
  EXPECT_FALSE(pp.get_rect().defined);
}

TEST(Pp3d, RingDifferingInZAloneIsNotClosed) {
  Tvx_pp3d pp = make({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 1}});
  EXPECT_FALSE(pp.is_closed());
  EXPECT_TRUE(pp.close());
  EXPECT_EQ(pp.get_size(), 5);
  EXPECT_EQ(pp.get_last(), vx_point3d(0, 0, 0));
  EXPECT_TRUE(pp.is_closed());
  EXPECT_TRUE(pp.close());
  EXPECT_EQ(pp.get_size(), 5);
}

TEST(Pp3d, CloseNeedsTwoVertices) {
  Tvx_pp3d one = make({{1, 1, 1}});
  EXPECT_FALSE(one.close());
  Tvx_pp3d two = make({{0, 0, 0}, {1, 1, 1}});
  EXPECT_TRUE(two.close());
  expect_vertices(two, {{0, 0, 0}, {1, 1, 1}, {0, 0, 0}});
}

TEST(Pp3d, DeleteDoubleKeepsVerticesThatDifferInZ) {
  Tvx_pp3d pp = make({{1, 1, 1}, {1, 1, 1}, {1, 1, 2}, {1, 1, 2}, {1, 1, 1}});
  pp.delete_double();
  expect_vertices(pp, {{1, 1, 1}, {1, 1, 2}, {1, 1, 1}});
}

TEST(Pp3d, DelLastLeavesTheOldBox) {
  Tvx_pp3d pp = make({{0, 0, 0}, {5, 5, 5}});
  EXPECT_EQ(pp.get_rect().xmax, 5.0);
  pp.del_last();
  EXPECT_EQ(pp.get_size(), 1);
  EXPECT_EQ(pp.get_rect().xmax, 5.0);
  EXPECT_EQ(pp.get_rect().zmax, 5.0);
  pp.del_last();
  pp.del_last();  // on an empty vector: nothing
  EXPECT_EQ(pp.get_size(), 0);
}

TEST(Pp3d, LengthInThreeDimensions) {
  const Tvx_pp3d pp = make({{0, 0, 0}, {1, 2, 2}, {1, 2, 6}});
  EXPECT_EQ(pp.calc_length(), 7.0);
  EXPECT_EQ(Tvx_pp3d().calc_length(), 0.0);
}

TEST(Pp3d, EqualDistWalksInThreeDimensions) {
  // Segment lengths 3 and 4.
  auto r = own(make({{0, 0, 0}, {1, 2, 2}, {1, 2, 6}}).make_equal_dist(2));
  expect_vertices(*r, {{0, 0, 0}, {2.0 / 3, 4.0 / 3, 4.0 / 3}, {1, 2, 3}, {1, 2, 5}});
  EXPECT_EQ(r->get_rect().zmax, 5.0);
}

TEST(Pp3d, EqualDistShortAndClosed) {
  auto short_line = own(make({{0, 0, 0}, {0, 0, 1}}).make_equal_dist(5));
  expect_vertices(*short_line, {{0, 0, 0}});
  auto ring = own(make({{0, 0, 0}, {0, 0, 2}, {0, 2, 2}, {0, 2, 0}, {0, 0, 0}}).make_equal_dist(3));
  expect_vertices(*ring, {{0, 0, 0}, {0, 1, 2}, {0, 2, 0}, {0, 0, 0}});
  auto copy = own(make({{0, 0, 0}, {0, 0, 2}}).make_equal_dist(0));
  expect_vertices(*copy, {{0, 0, 0}, {0, 0, 2}});
}

TEST(Pp3d, MiddleSides) {
  const Tvx_pp3d pp = make({{0, 0, 0}, {2, 0, 2}, {2, 2, 4}});
  auto both = own(pp.make_middle_sides(true, true));
  expect_vertices(*both, {{0, 0, 0}, {1, 0, 1}, {2, 1, 3}, {2, 2, 4}});
  auto none = own(pp.make_middle_sides(false, false));
  expect_vertices(*none, {{1, 0, 1}, {2, 1, 3}});
  auto empty = own(Tvx_pp3d().make_middle_sides(true, false));
  expect_vertices(*empty, {{0, 0, 0}});
}

TEST(Pp3d, DeleteObjDeletesAndNulls) {
  Tvx_pp3d* pp = new Tvx_pp3d();
  Tvx_pp3d::delete_obj(&pp);
  EXPECT_EQ(pp, nullptr);
}

}  // namespace
