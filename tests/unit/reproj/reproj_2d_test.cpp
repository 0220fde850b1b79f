#include "reproj/reproj_2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "geom/geom2d.h"
#include "geom/geom3d.h"

namespace {

const char* const kPulkovo =
    "+proj=longlat +ellps=krass +towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +no_defs";
const char* const kGk7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    "+towgs84=23.92,-141.27,-80.9,0,0.35,0.82,-0.12 +units=m +no_defs";
// An orthographic view of the globe centred on Moscow: the far side of the earth is outside its domain.
const char* const kOrtho = "+proj=ortho +lat_0=55 +lon_0=37 +ellps=krass +units=m +no_defs";

// A point on the far side of the globe for kOrtho.
const Tvx_point2d kFarSide{-140.0, -50.0};

// The image of one point through the point engine, the reference for the batch forms.
Tvx_point2d image(const char* from, const char* to, Tvx_point2d p) {
  Tvx_reproj_xy single;
  EXPECT_TRUE(single.init(from, to));
  EXPECT_TRUE(single.apply(&p.x, &p.y));
  return p;
}

class Reproj2d : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(rpj.init(kPulkovo, kGk7)); }

  void expect_image_of(const Tvx_point2d& source, double x, double y) {
    const Tvx_point2d ref = image(kPulkovo, kGk7, source);
    EXPECT_EQ(x, ref.x);
    EXPECT_EQ(y, ref.y);
  }

  Tvx_reproj_2d rpj;
};

TEST_F(Reproj2d, PointGoesThroughTheTransformation) {
  Tvx_point2d p = vx_point2d(37.5, 55.75);
  ASSERT_TRUE(rpj.apply_pnt(&p));
  expect_image_of(vx_point2d(37.5, 55.75), p.x, p.y);
  EXPECT_NEAR(p.x, 7405000, 5000);  // 1.5 degrees west of the zone's meridian, near Moscow
}

TEST_F(Reproj2d, PointVectorKeepsItsOrder) {
  Tvx_pp2d pp;
  const std::vector<Tvx_point2d> src = {{36.0, 50.0}, {37.0, 51.0}, {42.0, 60.0}};
  for (const auto& p : src) pp.add(p);
  ASSERT_TRUE(rpj.apply_pp(&pp));
  ASSERT_EQ(pp.get_size(), 3);
  for (int i = 0; i < 3; ++i) expect_image_of(src[i], pp.get(i).x, pp.get(i).y);
}

TEST_F(Reproj2d, ObjectTakesAllPartsInOrder) {
  Tvx_op2d op;
  const std::vector<std::vector<Tvx_point2d>> src = {{{36, 50}, {36.5, 50.5}},
                                                     {{40, 55}, {41, 56}, {42, 57}}};
  for (const auto& part : src) {
    Tvx_pp2d* pp = op.add();
    for (const auto& p : part) pp->add(p);
  }
  ASSERT_TRUE(rpj.apply_op(&op));
  for (int k = 0; k < 2; ++k)
    for (int i = 0; i < op.get(k)->get_size(); ++i)
      expect_image_of(src[k][i], op.get(k)->get(i).x, op.get(k)->get(i).y);
}

TEST_F(Reproj2d, EmptyObjectsAreABatchOfNothingAndTrue) {
  Tvx_pp2d pp;
  Tvx_op2d op;
  Tvx_multipatch3d mp;
  EXPECT_TRUE(rpj.apply_pp(&pp));
  EXPECT_TRUE(rpj.apply_op(&op));
  EXPECT_TRUE(rpj.apply_mpatch(&mp));
  EXPECT_EQ(pp.get_size(), 0);
  EXPECT_EQ(op.get_size(), 0);
  EXPECT_EQ(mp.get_size(), 0);
}

TEST_F(Reproj2d, EmptyPartsArePassedOverInBothWalks) {
  Tvx_op2d op;
  op.add();
  op.add()->add(vx_point2d(37, 55));
  op.add();
  op.add()->add(vx_point2d(38, 56));
  ASSERT_TRUE(rpj.apply_op(&op));
  ASSERT_EQ(op.get_size(), 4);
  EXPECT_EQ(op.get(0)->get_size(), 0);
  EXPECT_EQ(op.get(2)->get_size(), 0);
  expect_image_of(vx_point2d(37, 55), op.get(1)->get(0).x, op.get(1)->get(0).y);
  expect_image_of(vx_point2d(38, 56), op.get(3)->get(0).x, op.get(3)->get(0).y);
}

TEST(Reproj2dDomain, OneBadVertexInTheSecondRingKeepsTheWholePolygon) {
  Tvx_reproj_2d rpj;
  ASSERT_TRUE(rpj.init(kPulkovo, kOrtho));
  Tvx_op2d op;
  Tvx_pp2d* outer = op.add();
  for (const auto& p : std::vector<Tvx_point2d>{{36, 54}, {36, 56}, {38, 56}, {38, 54}, {36, 54}})
    outer->add(p);
  Tvx_pp2d* inner = op.add();
  for (const auto& p : std::vector<Tvx_point2d>{{36.5, 54.5}, kFarSide, {37.5, 55.5}, {36.5, 54.5}})
    inner->add(p);
  Tvx_op2d before;
  before.assign(&op);

  EXPECT_FALSE(rpj.apply_op(&op));
  for (int k = 0; k < 2; ++k)
    for (int i = 0; i < op.get(k)->get_size(); ++i)
      EXPECT_EQ(op.get(k)->get(i), before.get(k)->get(i)) << k << " " << i;

  // The same polygon without the far vertex goes through.
  inner->del(1);
  EXPECT_TRUE(rpj.apply_op(&op));
  EXPECT_NE(op.get(0)->get(0), before.get(0)->get(0));
}

TEST(Reproj2dDomain, FailingPointStaysAsItWas) {
  Tvx_reproj_2d rpj;
  ASSERT_TRUE(rpj.init(kPulkovo, kOrtho));
  Tvx_point2d p = kFarSide;
  EXPECT_FALSE(rpj.apply_pnt(&p));
  EXPECT_EQ(p, kFarSide);
  Tvx_point3d q = vx_point3d(kFarSide.x, kFarSide.y, 7);
  EXPECT_FALSE(rpj.apply_pnt(&q));
  EXPECT_EQ(q, vx_point3d(kFarSide.x, kFarSide.y, 7));
}

TEST(Reproj2dDomain, UninitialisedObjectFailsOnVerticesButNotOnNothing) {
  Tvx_reproj_2d rpj;
  Tvx_pp2d pp;
  EXPECT_TRUE(rpj.apply_pp(&pp));
  pp.add(vx_point2d(1, 2));
  EXPECT_FALSE(rpj.apply_pp(&pp));
  EXPECT_EQ(pp.get(0), vx_point2d(1, 2));
}

TEST_F(Reproj2d, HeightsOfAPointVectorStayAsTheyAre) {
  Tvx_pp3d pp;
  pp.add(vx_point3d(37, 55, 100));
  pp.add(vx_point3d(38, 56, 200));
  pp.add(vx_point3d(39, 57, 300));
  ASSERT_TRUE(rpj.apply_pp(&pp));
  EXPECT_EQ(pp.get_z(0), 100);
  EXPECT_EQ(pp.get_z(1), 200);
  EXPECT_EQ(pp.get_z(2), 300);
  expect_image_of(vx_point2d(38, 56), pp.get_x(1), pp.get_y(1));
}

TEST_F(Reproj2d, SpatialPointKeepsItsHeight) {
  Tvx_point3d p = vx_point3d(37.5, 55.75, 123.25);
  ASSERT_TRUE(rpj.apply_pnt(&p));
  EXPECT_EQ(p.z, 123.25);
  expect_image_of(vx_point2d(37.5, 55.75), p.x, p.y);
}

TEST_F(Reproj2d, SpatialObjectKeepsHeightsInEveryPart) {
  Tvx_op3d op;
  op.add()->add(vx_point3d(37, 55, -1));
  Tvx_pp3d* second = op.add();
  second->add(vx_point3d(38, 56, 2.5));
  second->add(vx_point3d(39, 57, 1e9));
  ASSERT_TRUE(rpj.apply_op(&op));
  EXPECT_EQ(op.get(0)->get_z(0), -1);
  EXPECT_EQ(op.get(1)->get_z(0), 2.5);
  EXPECT_EQ(op.get(1)->get_z(1), 1e9);
  expect_image_of(vx_point2d(39, 57), op.get(1)->get_x(1), op.get(1)->get_y(1));
}

TEST_F(Reproj2d, MultipatchKeepsPatchesTypesSizesAndHeights) {
  Tvx_multipatch3d mp;
  Tvx_patch3d* strip = mp.add();
  strip->set_type(static_cast<Tvx_patch_3d_type>(1));
  for (int i = 0; i < 4; ++i)
    strip->get_pp_ptr()->add(vx_point3d(37 + 0.1 * i, 55 + 0.1 * (i % 2), 10.0 * i));
  mp.add();  // an empty patch
  Tvx_patch3d* ring = mp.add();
  ring->set_type(static_cast<Tvx_patch_3d_type>(3));
  ring->get_pp_ptr()->add(vx_point3d(38, 56, 5));

  ASSERT_TRUE(rpj.apply_mpatch(&mp));
  ASSERT_EQ(mp.get_size(), 3);
  EXPECT_EQ(mp.get(0)->get_type(), static_cast<Tvx_patch_3d_type>(1));
  EXPECT_EQ(mp.get(2)->get_type(), static_cast<Tvx_patch_3d_type>(3));
  EXPECT_EQ(mp.get(0)->get_pp_ptr()->get_size(), 4);
  EXPECT_EQ(mp.get(1)->get_pp_ptr()->get_size(), 0);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(mp.get(0)->get_pp_ptr()->get_z(i), 10.0 * i);
  expect_image_of(vx_point2d(38, 56), mp.get(2)->get_pp_ptr()->get_x(0), mp.get(2)->get_pp_ptr()->get_y(0));
}

TEST(Reproj2dAffine, ChainActsOnEveryVertexOfEveryPart) {
  Tvx_reproj_2d rpj;
  rpj.set_use_reproj(false);
  rpj.set_affine_after(Tvx_matrix3x3{{2, 0, 1, 0, 3, -4, 0, 0, 1}});
  rpj.set_use_affine_after(true);
  Tvx_op2d op;
  op.add()->add(vx_point2d(1, 2));
  op.add()->add(vx_point2d(3, 4));
  ASSERT_TRUE(rpj.apply_op(&op));
  EXPECT_EQ(op.get(0)->get(0), vx_point2d(3, 2));
  EXPECT_EQ(op.get(1)->get(0), vx_point2d(7, 8));
}

TEST_F(Reproj2d, BufferIsReusedFromLargeToSmallObjects) {
  Tvx_pp2d big, small;
  for (int i = 0; i < 1000; ++i) big.add(vx_point2d(36 + 0.006 * i, 50 + 0.01 * i));
  small.add(vx_point2d(37, 55));
  ASSERT_TRUE(rpj.apply_pp(&big));
  ASSERT_TRUE(rpj.apply_pp(&small));
  expect_image_of(vx_point2d(37, 55), small.get(0).x, small.get(0).y);
  expect_image_of(vx_point2d(36 + 0.006 * 999, 50 + 0.01 * 999), big.get(999).x, big.get(999).y);
  rpj.clear_buffer();
  Tvx_point2d p = vx_point2d(37, 55);
  EXPECT_TRUE(rpj.apply_pnt(&p));
}

}  // namespace
