#include "files/bin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "files/file.h"
#include "test_paths.h"

namespace {

// An independent decoder: plain byte arithmetic on the buffer, no shared code with Tvx_bin.
std::vector<uint8_t> bytes_of(const Tvx_bin& b) {
  return std::vector<uint8_t>(b.get_buffer_ptr(), b.get_buffer_ptr() + b.get_size());
}

uint64_t le(const std::vector<uint8_t>& v, size_t at, int n) {
  uint64_t r = 0;
  for (int i = n - 1; i >= 0; --i) r = r * 256 + v[at + i];
  return r;
}

uint64_t be(const std::vector<uint8_t>& v, size_t at, int n) {
  uint64_t r = 0;
  for (int i = 0; i < n; ++i) r = r * 256 + v[at + i];
  return r;
}

double as_double(uint64_t bits) {
  double d;
  std::memcpy(&d, &bits, 8);
  return d;
}

TEST(Bin, NewBufferIsEmpty) {
  Tvx_bin b;
  EXPECT_EQ(b.get_size(), 0u);
  EXPECT_EQ(b.get_offset(), 0u);
  EXPECT_EQ(b.get_buffer_ptr(), nullptr);
}

TEST(Bin, SetOffsetBeyondSizeRaisesSize) {
  Tvx_bin b;
  b.put_int(7);
  b.set_offset(40);
  EXPECT_EQ(b.get_size(), 40u);
  EXPECT_EQ(b.get_offset(), 40u);
}

TEST(Bin, SetSizeBelowOffsetLowersOffset) {
  Tvx_bin b;
  b.put_double(1.0);
  b.put_double(2.0);
  ASSERT_EQ(b.get_offset(), 16u);
  b.set_size(5);
  EXPECT_EQ(b.get_size(), 5u);
  EXPECT_EQ(b.get_offset(), 5u);
}

TEST(Bin, SetSizeGrowsCapacityByTheStep) {
  Tvx_bin b;
  b.set_size(10);
  EXPECT_EQ(b.get_capacity(), 10u + Tvx_bin::GROWTH_STEP);
  b.set_size(20);
  EXPECT_EQ(b.get_capacity(), 10u + Tvx_bin::GROWTH_STEP);
}

TEST(Bin, SetCapacityExactAndZeroClears) {
  Tvx_bin b;
  b.put_int(1);
  b.put_int(2);
  b.set_capacity(6);
  EXPECT_EQ(b.get_capacity(), 6u);
  EXPECT_EQ(b.get_size(), 6u);
  EXPECT_EQ(b.get_offset(), 6u);
  b.set_capacity(0);
  EXPECT_EQ(b.get_capacity(), 0u);
  EXPECT_EQ(b.get_size(), 0u);
  EXPECT_EQ(b.get_buffer_ptr(), nullptr);
}

TEST(Bin, PutStrWritesLengthTextAndTerminator) {
  Tvx_bin b;
  EXPECT_EQ(b.put_str("ab"), 7u);
  const std::vector<uint8_t> expected = {3, 0, 0, 0, 'a', 'b', 0};
  EXPECT_EQ(bytes_of(b), expected);
  b.set_offset(0);
  EXPECT_STREQ(b.get_str(), "ab");
  EXPECT_EQ(b.get_offset(), 7u);
}

TEST(Bin, GetStrStopsAtFirstTerminatorAndAdvancesByLength) {
  Tvx_bin b;
  b.put_uint(5);
  b.put_data(5, "a\0bcd");
  b.put_int(99);
  b.set_offset(0);
  EXPECT_STREQ(b.get_str(), "a");
  EXPECT_EQ(b.get_offset(), 9u);
  EXPECT_EQ(b.get_int(), 99);
}

TEST(Bin, GetStrWithLyingLengthStaysInsideTheData) {
  Tvx_bin b;
  b.put_uint(0xFFFFFFF0u);
  b.put_data(3, "xyz");
  b.set_offset(0);
  EXPECT_STREQ(b.get_str(), "xyz");
  EXPECT_EQ(b.get_offset(), 7u);
  EXPECT_EQ(b.get_size(), 7u);
}

TEST(Bin, PutInvertIntOneIsBigEndian) {
  Tvx_bin b;
  b.put_invert_int(1);
  const std::vector<uint8_t> expected = {0, 0, 0, 1};
  EXPECT_EQ(bytes_of(b), expected);
}

TEST(Bin, GetIntAtTheEndGrowsSizeByFour) {
  Tvx_bin b;
  b.put_int(5);
  EXPECT_EQ(b.get_size(), 4u);
  b.get_int();
  EXPECT_EQ(b.get_size(), 8u);
  EXPECT_EQ(b.get_offset(), 8u);
}

TEST(Bin, ReadPastCapacityReallocatesByTheStep) {
  Tvx_bin b;
  b.set_capacity(4);
  b.set_size(4);
  b.set_offset(4);
  b.get_double();
  EXPECT_EQ(b.get_size(), 12u);
  EXPECT_EQ(b.get_capacity(), 12u + Tvx_bin::GROWTH_STEP);
}

TEST(Bin, EveryLittleEndianPutDecodesIndependently) {
  Tvx_bin b;
  b.put_bool(true);
  b.put_char(static_cast<char>(0xFE));
  b.put_int(-2);
  b.put_uint(0x01020304u);
  b.put_float(1.5f);
  b.put_double(-2.25);
  b.put_int_byte_order(0x11223344, false);
  b.put_uint_byte_order(0xA1B2C3D4u, false);
  b.put_double_byte_order(1e300, false);
  const auto v = bytes_of(b);
  ASSERT_EQ(v.size(), 1u + 1 + 4 + 4 + 4 + 8 + 4 + 4 + 8);
  EXPECT_EQ(v[0], 1);
  EXPECT_EQ(v[1], 0xFE);
  EXPECT_EQ(le(v, 2, 4), 0xFFFFFFFEu);
  EXPECT_EQ(le(v, 6, 4), 0x01020304u);
  EXPECT_EQ(le(v, 10, 4), 0x3FC00000u);  // 1.5f
  EXPECT_EQ(as_double(le(v, 14, 8)), -2.25);
  EXPECT_EQ(le(v, 22, 4), 0x11223344u);
  EXPECT_EQ(le(v, 26, 4), 0xA1B2C3D4u);
  EXPECT_EQ(as_double(le(v, 30, 8)), 1e300);
}

TEST(Bin, EveryBigEndianPutDecodesIndependently) {
  Tvx_bin b;
  b.put_invert_int(-9994);
  b.put_invert_uint(0x01020304u);
  b.put_invert_double(-1.1e38);
  b.put_int_byte_order(9994, true);
  b.put_uint_byte_order(0xA1B2C3D4u, true);
  b.put_double_byte_order(3.5, true);
  const auto v = bytes_of(b);
  ASSERT_EQ(v.size(), 4u + 4 + 8 + 4 + 4 + 8);
  EXPECT_EQ(be(v, 0, 4), static_cast<uint32_t>(-9994));
  EXPECT_EQ(be(v, 4, 4), 0x01020304u);
  EXPECT_EQ(as_double(be(v, 8, 8)), -1.1e38);
  EXPECT_EQ(be(v, 16, 4), 9994u);
  EXPECT_EQ(be(v, 20, 4), 0xA1B2C3D4u);
  EXPECT_EQ(as_double(be(v, 24, 8)), 3.5);
}

TEST(Bin, GetFormsMirrorPutForms) {
  Tvx_bin b;
  b.put_bool(false);
  b.put_char(static_cast<char>(-3));
  b.put_int(-123456);
  b.put_uint(4000000000u);
  b.put_float(0.25f);
  b.put_double(M_PI);
  b.put_invert_int(-7);
  b.put_invert_uint(3000000000u);
  b.put_invert_double(6.02e23);
  b.put_int_byte_order(42, true);
  b.put_uint_byte_order(43, false);
  b.put_double_byte_order(44.5, true);
  b.set_offset(0);
  EXPECT_FALSE(b.get_bool());
  EXPECT_EQ(b.get_char(), -3);
  EXPECT_EQ(b.get_int(), -123456);
  EXPECT_EQ(b.get_uint(), 4000000000u);
  EXPECT_EQ(b.get_float(), 0.25f);
  EXPECT_EQ(b.get_double(), M_PI);
  EXPECT_EQ(b.get_invert_int(), -7);
  EXPECT_EQ(b.get_invert_uint(), 3000000000u);
  EXPECT_EQ(b.get_invert_double(), 6.02e23);
  EXPECT_EQ(b.get_int_byte_order(true), 42);
  EXPECT_EQ(b.get_uint_byte_order(false), 43u);
  EXPECT_EQ(b.get_double_byte_order(true), 44.5);
  EXPECT_EQ(b.get_offset(), b.get_size());
}

TEST(Bin, PutsReturnTheNewOffset) {
  Tvx_bin b;
  EXPECT_EQ(b.put_char('a'), 1u);
  EXPECT_EQ(b.put_double(0), 9u);
  EXPECT_EQ(b.put_invert_int(0), 13u);
  b.set_offset(1);
  EXPECT_EQ(b.put_int(0), 5u);
  EXPECT_EQ(b.get_size(), 13u);
}

TEST(Bin, SaveAndLoadFileRoundTrip) {
  const auto dir = vxk_test::scratch_dir("bin_save_load");
  const std::string path = (dir / "b.bin").string();
  Tvx_bin b;
  b.put_str("hello");
  b.put_invert_double(1.25);
  EXPECT_EQ(b.save_to_file(path.c_str()), 0);

  Tvx_bin c;
  EXPECT_EQ(c.load_from_file(path.c_str()), 0);
  EXPECT_EQ(c.get_size(), b.get_size());
  EXPECT_EQ(c.get_capacity(), b.get_size());
  EXPECT_EQ(c.get_offset(), 0u);
  EXPECT_STREQ(c.get_str(), "hello");
  EXPECT_EQ(c.get_invert_double(), 1.25);
}

TEST(Bin, LoadFromMissingFileGivesTheOpenResult) {
  const auto dir = vxk_test::scratch_dir("bin_missing");
  Tvx_bin b;
  EXPECT_EQ(b.load_from_file((dir / "none.bin").string().c_str()), 1);
  EXPECT_EQ(b.get_size(), 0u);
}

TEST(Bin, FilePartsAndWholeFile) {
  const auto dir = vxk_test::scratch_dir("bin_parts");
  const std::string path = (dir / "p.bin").string();
  Tvx_file f;
  ASSERT_EQ(f.create(path.c_str()), 0);
  Tvx_bin b;
  for (int i = 0; i < 4; ++i) b.put_int(i);
  b.save_file_all(&f);
  f.seek(8);
  Tvx_bin part;
  part.load_file_part(&f, 8);
  EXPECT_EQ(part.get_size(), 8u);
  EXPECT_EQ(part.get_offset(), 0u);
  EXPECT_EQ(part.get_int(), 2);
  EXPECT_EQ(part.get_int(), 3);
  Tvx_bin all;
  all.load_file_all(&f);
  EXPECT_EQ(all.get_size(), 16u);
  EXPECT_EQ(all.get_int(), 0);
  f.seek(16);
  part.save_file_part(&f);
  EXPECT_EQ(f.get_size(), 24u);
}

}  // namespace
