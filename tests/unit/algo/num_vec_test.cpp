#include "algo/num_vec.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <vector>

namespace {

template <class V>
std::vector<decltype(V().get(0))> items(const V& v) {
  std::vector<decltype(V().get(0))> out;
  for (unsigned i = 0; i < v.get_size(); ++i) out.push_back(v.get(i));
  return out;
}

TEST(NumVec, IntSortAndDeleteDouble) {
  Tvx_int_vec v;
  v.add(3);
  v.add(1);
  v.add(3);
  Tvx_int_vec unsorted;
  unsorted.assign(&v);
  unsorted.delete_double();  // no neighbours are equal: all three stay
  EXPECT_EQ(items(unsorted), (std::vector<int32_t>{3, 1, 3}));
  v.sort();
  v.delete_double();
  EXPECT_EQ(items(v), (std::vector<int32_t>{1, 3}));
}

TEST(NumVec, SetSizeZeroesNewElementsAndKeepsOld) {
  Tvx_dbl_vec v;
  v.add(2.5);
  v.set_size(3);
  EXPECT_EQ(items(v), (std::vector<double>{2.5, 0.0, 0.0}));
  v.set(2, -1.0);
  EXPECT_EQ(v.get(2), -1.0);
  v.set_size(1);
  EXPECT_EQ(items(v), (std::vector<double>{2.5}));
  v.clear();
  EXPECT_EQ(v.get_size(), 0u);
}

TEST(NumVec, AssignCopiesAndSelfAssignKeeps) {
  Tvx_flt_vec a, b;
  a.add(1.5f);
  a.add(-2.0f);
  b.assign(&a);
  EXPECT_EQ(items(b), (std::vector<float>{1.5f, -2.0f}));
  b.assign(&b);
  EXPECT_EQ(b.get_size(), 2u);
}

TEST(NumVec, NanSortsLastAndEveryNanStays) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Tvx_dbl_vec v;
  for (double x : {nan, 2.0, nan, -1.0, 2.0}) v.add(x);
  v.sort();
  v.delete_double();
  ASSERT_EQ(v.get_size(), 4u);
  EXPECT_EQ(v.get(0), -1.0);
  EXPECT_EQ(v.get(1), 2.0);
  EXPECT_TRUE(std::isnan(v.get(2)));
  EXPECT_TRUE(std::isnan(v.get(3)));
}

TEST(NumVec, UintEqualAndAddVec) {
  Tvx_uint_vec a, b;
  a.add(1);
  a.add(2);
  b.add(1);
  EXPECT_FALSE(a.equal(&b));
  b.add(2);
  EXPECT_TRUE(a.equal(&b));
  a.add_vec(&b);
  EXPECT_EQ(items(a), (std::vector<uint32_t>{1, 2, 1, 2}));
  a.add_vec(&a);  // itself: doubled, not endless
  EXPECT_EQ(a.get_size(), 8u);
  EXPECT_FALSE(a.equal(&b));
}

TEST(NumVec, AbsurdSizeIsRefusedAsAFailedAllocation) {
  Tvx_dbl_vec v;
  v.add(1.0);
  EXPECT_THROW(v.set_size(std::numeric_limits<unsigned>::max()), std::bad_alloc);
  EXPECT_EQ(items(v), (std::vector<double>{1.0}));  // unchanged
  Tvx_bit_vec bits;
  EXPECT_THROW(bits.set_size(std::numeric_limits<unsigned>::max()), std::bad_alloc);
  EXPECT_EQ(bits.get_size(), 0u);
}

TEST(BitVec, PackedBitsAcrossWords) {
  Tvx_bit_vec v;
  for (int i = 0; i < 70; ++i) v.add(i % 3 == 0);
  ASSERT_EQ(v.get_size(), 70u);
  for (unsigned i = 0; i < 70; ++i) EXPECT_EQ(v.get(i), i % 3 == 0) << i;
  v.set(31, true);
  v.set(32, true);
  v.set(0, false);
  EXPECT_TRUE(v.get(31));
  EXPECT_TRUE(v.get(32));
  EXPECT_FALSE(v.get(0));
}

TEST(BitVec, ShrinkThenGrowGivesFalseBits) {
  Tvx_bit_vec v;
  v.set_size(40);
  for (unsigned i = 0; i < 40; ++i) v.set(i, true);
  v.set_size(5);
  v.set_size(40);
  for (unsigned i = 0; i < 5; ++i) EXPECT_TRUE(v.get(i));
  for (unsigned i = 5; i < 40; ++i) EXPECT_FALSE(v.get(i)) << i;
  Tvx_bit_vec copy;
  copy.assign(&v);
  EXPECT_EQ(copy.get_size(), 40u);
  EXPECT_TRUE(copy.get(4));
  copy.clear();
  EXPECT_EQ(copy.get_size(), 0u);
}

}  // namespace
