#include "geom/multipatch3d.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <type_traits>

namespace {

static_assert(std::has_virtual_destructor_v<Tvx_patch3d>);
static_assert(std::has_virtual_destructor_v<Tvx_multipatch3d>);
static_assert(std::has_virtual_destructor_v<Tvx_multipatch3d_vec>);

void fill(Tvx_patch3d* patch, Tvx_patch_3d_type type, std::initializer_list<Tvx_point3d> pts) {
  patch->set_type(type);
  patch->get_pp_ptr()->clear();
  for (const Tvx_point3d& p : pts) patch->get_pp_ptr()->add(p);
}

TEST(PatchType, Values) {
  EXPECT_EQ(vx_patch_unknown, 0);
  EXPECT_EQ(vx_patch_triangle_strip, 1);
  EXPECT_EQ(vx_patch_triangle_fan, 2);
  EXPECT_EQ(vx_patch_outer_ring, 3);
  EXPECT_EQ(vx_patch_inner_ring, 4);
  EXPECT_EQ(vx_patch_ring, 6);
}

TEST(Patch3d, NewPatchHasTypeZeroAndEmptyVertices) {
  Tvx_patch3d patch;
  EXPECT_EQ(patch.get_type(), vx_patch_unknown);
  ASSERT_NE(patch.get_pp_ptr(), nullptr);
  EXPECT_EQ(patch.get_pp_ptr()->get_size(), 0);
  EXPECT_FALSE(patch.get_rect().defined);
}

TEST(Patch3d, AssignCopiesTypeAndVertices) {
  Tvx_patch3d src, dst;
  fill(&src, vx_patch_triangle_fan, {{0, 0, 0}, {1, 0, 1}, {0, 1, 2}});
  Tvx_pp3d* own = dst.get_pp_ptr();
  dst.assign(&src);
  EXPECT_EQ(dst.get_type(), vx_patch_triangle_fan);
  EXPECT_EQ(dst.get_pp_ptr(), own);  // the patch keeps its own vertex vector
  EXPECT_EQ(own->get_size(), 3);
  EXPECT_EQ(dst.get_rect().zmax, 2.0);
}

TEST(Patch3d, DeleteObjDeletesAndNulls) {
  Tvx_patch3d* patch = new Tvx_patch3d();
  Tvx_patch3d::delete_obj(&patch);
  EXPECT_EQ(patch, nullptr);
}

TEST(Multipatch3d, SetSizeAddsEmptyPatchesOfTypeZero) {
  Tvx_multipatch3d mp;
  EXPECT_EQ(mp.get_size(), 0);
  Tvx_patch3d* first = mp.add();
  first->set_type(vx_patch_ring);
  mp.set_size(3);
  EXPECT_EQ(mp.get(0), first);
  EXPECT_EQ(mp.get(2)->get_type(), vx_patch_unknown);
  EXPECT_EQ(mp.get(2)->get_pp_ptr()->get_size(), 0);
  mp.set_size(1);
  EXPECT_EQ(mp.get_size(), 1);
  EXPECT_EQ(mp.get(0), first);
  mp.clear();
  EXPECT_EQ(mp.get_size(), 0);
}

TEST(Multipatch3d, AllPatchesEmptyGivesAnUndefinedBox) {
  Tvx_multipatch3d mp;
  EXPECT_FALSE(mp.get_rect().defined);
  mp.set_size(3);
  EXPECT_FALSE(mp.get_rect().defined);
}

TEST(Multipatch3d, BoxIsTheUnionOfThePatches) {
  Tvx_multipatch3d mp;
  fill(mp.add(), vx_patch_outer_ring, {{0, 0, 0}, {1, 1, 1}});
  mp.add();
  fill(mp.add(), vx_patch_inner_ring, {{-2, 0, 5}});
  const Tvx_rect3d r = mp.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmin, -2.0);
  EXPECT_EQ(r.xmax, 1.0);
  EXPECT_EQ(r.zmax, 5.0);
}

TEST(Multipatch3d, AssignFromASmallerOneDropsTheSurplus) {
  Tvx_multipatch3d src, dst;
  fill(src.add(), vx_patch_triangle_strip, {{1, 1, 1}});
  dst.set_size(4);
  Tvx_patch3d* reused = dst.get(0);
  dst.assign(&src);
  ASSERT_EQ(dst.get_size(), 1);
  EXPECT_EQ(dst.get(0), reused);  // existing patches are reused
  EXPECT_EQ(dst.get(0)->get_type(), vx_patch_triangle_strip);
  EXPECT_EQ(dst.get(0)->get_pp_ptr()->get(0), vx_point3d(1, 1, 1));
}

TEST(Multipatch3d, AssignFromALargerOneCarriesTheTypes) {
  Tvx_multipatch3d src, dst;
  fill(src.add(), vx_patch_outer_ring, {{0, 0, 0}});
  fill(src.add(), vx_patch_inner_ring, {{1, 0, 0}});
  fill(src.add(), vx_patch_triangle_fan, {{2, 0, 0}, {3, 0, 0}});
  fill(dst.add(), vx_patch_ring, {{9, 9, 9}});
  dst.assign(&src);
  ASSERT_EQ(dst.get_size(), 3);
  EXPECT_EQ(dst.get(0)->get_type(), vx_patch_outer_ring);
  EXPECT_EQ(dst.get(1)->get_type(), vx_patch_inner_ring);
  EXPECT_EQ(dst.get(2)->get_type(), vx_patch_triangle_fan);
  EXPECT_EQ(dst.get(2)->get_pp_ptr()->get_size(), 2);
  EXPECT_NE(dst.get(2), src.get(2));
}

TEST(Multipatch3d, AddCopy) {
  Tvx_multipatch3d mp, other;
  Tvx_patch3d patch;
  fill(&patch, vx_patch_ring, {{1, 2, 3}});
  Tvx_patch3d* copy = mp.add_copy(&patch);
  EXPECT_NE(copy, &patch);
  EXPECT_EQ(copy->get_type(), vx_patch_ring);
  fill(other.add(), vx_patch_triangle_strip, {});
  fill(other.add(), vx_patch_triangle_fan, {});
  mp.add_copy(&other);
  ASSERT_EQ(mp.get_size(), 3);
  EXPECT_EQ(mp.get(2)->get_type(), vx_patch_triangle_fan);
  mp.add_copy(&mp);
  EXPECT_EQ(mp.get_size(), 6);
}

TEST(Multipatch3d, DeleteObjDeletesAndNulls) {
  Tvx_multipatch3d* mp = new Tvx_multipatch3d();
  mp->add();
  Tvx_multipatch3d::delete_obj(&mp);
  EXPECT_EQ(mp, nullptr);
}

TEST(Multipatch3dVec, SizeBoxAssign) {
  Tvx_multipatch3d_vec vec;
  EXPECT_EQ(vec.get_size(), 0);
  EXPECT_FALSE(vec.get_rect().defined);
  fill(vec.add()->add(), vx_patch_ring, {{0, 0, 0}});
  vec.set_size(3);
  fill(vec.get(2)->add(), vx_patch_outer_ring, {{4, 5, 6}});
  const Tvx_rect3d r = vec.get_rect();
  EXPECT_TRUE(r.defined);
  EXPECT_EQ(r.xmax, 4.0);
  EXPECT_EQ(r.zmax, 6.0);
  Tvx_multipatch3d_vec copy;
  copy.assign(&vec);
  ASSERT_EQ(copy.get_size(), 3);
  EXPECT_EQ(copy.get(1)->get_size(), 0);
  EXPECT_EQ(copy.get(2)->get(0)->get_type(), vx_patch_outer_ring);
  vec.set_size(1);
  EXPECT_EQ(vec.get_size(), 1);
  vec.clear();
  EXPECT_EQ(vec.get_size(), 0);
  EXPECT_EQ(copy.get_size(), 3);
}

TEST(Multipatch3dVec, DeleteObjDeletesAndNulls) {
  Tvx_multipatch3d_vec* vec = new Tvx_multipatch3d_vec();
  vec->add()->add();
  Tvx_multipatch3d_vec::delete_obj(&vec);
  EXPECT_EQ(vec, nullptr);
}

}  // namespace
