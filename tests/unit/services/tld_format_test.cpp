#include "services/tld_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

#include "services/text_list.h"
#include "text_list_samples.h"

namespace {

using bytes_t = std::vector<uint8_t>;

struct list_deleter {
  void operator()(Tvx_text_list_base* l) const { vx_text_list_destroy(l); }
};
using list_ptr = std::unique_ptr<Tvx_text_list_base, list_deleter>;

bytes_t encoded(const Tvx_text_list_base& list) {
  bytes_t out;
  EXPECT_EQ(vx::tld::encode(list, out), L"");
  return out;
}

std::wstring decode(const bytes_t& b, Tvx_text_list_base& list) {
  return vx::tld::decode(b.data(), b.size(), list);
}

// Little-endian pieces written by hand, independent of the encoder.
void put32(bytes_t& b, uint32_t v) {
  for (int i = 0; i < 4; ++i) b.push_back(static_cast<uint8_t>(v >> (8 * i)));
}
void put64(bytes_t& b, double d) {
  uint64_t v;
  std::memcpy(&v, &d, 8);
  for (int i = 0; i < 8; ++i) b.push_back(static_cast<uint8_t>(v >> (8 * i)));
}
uint32_t get32(const bytes_t& b, size_t at) {
  return b[at] | b[at + 1] << 8 | b[at + 2] << 16 | static_cast<uint32_t>(b[at + 3]) << 24;
}

// The record of one label of type 1 at (1, 2), size 3, text "A", font "", no callout, by hand.
bytes_t one_label_file(uint32_t callout_flag = 0) {
  bytes_t rec;
  put32(rec, 1);           // type
  put32(rec, 0xFF000000);  // colour
  put32(rec, 0);           // style
  put32(rec, 0);           // align
  put64(rec, 0);           // angle
  put32(rec, 1);           // points
  put64(rec, 1);
  put64(rec, 2);
  put32(rec, 1);  // metrics
  put64(rec, 3);
  put64(rec, 0);
  put64(rec, 0);
  put32(rec, 1);  // text
  put32(rec, 'A');
  put32(rec, 0);  // font name
  put32(rec, callout_flag);
  bytes_t file = {'V', 'X', 'T', 'L'};
  put32(file, 1);
  put32(file, 1);
  put32(file, static_cast<uint32_t>(rec.size()));
  file.insert(file.end(), rec.begin(), rec.end());
  return file;
}

TEST(TldFormat, EncoderWritesTheDocumentedBytes) {
  Tvx_text_list_base list;
  Tvx_text_data* t = list.add();
  t->add_point({1, 2});
  t->metric_at(0)->size = 3;
  t->text = L"A";
  EXPECT_EQ(encoded(list), one_label_file());
}

TEST(TldFormat, HandWrittenFileDecodes) {
  Tvx_text_list_base list;
  ASSERT_EQ(decode(one_label_file(), list), L"");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list.at(0)->get_point(0).y, 2);
  EXPECT_EQ(list.at(0)->get_metric(0).size, 3);
  EXPECT_EQ(list.at(0)->text, L"A");
}

TEST(TldFormat, EmptyListIsTwelveBytes) {
  Tvx_text_list_base list;
  const bytes_t b = encoded(list);
  ASSERT_EQ(b.size(), 12u);
  EXPECT_EQ(get32(b, 4), 1u);
  EXPECT_EQ(get32(b, 8), 0u);
  Tvx_text_list_base back;
  back.add();
  EXPECT_EQ(decode(b, back), L"");
  EXPECT_EQ(back.size(), 0u);
}

TEST(TldFormat, EveryFieldSurvivesARoundTrip) {
  list_ptr list(vxk_test::make_full_list());
  const bytes_t b = encoded(*list);
  list_ptr back(vx_text_list_create());
  ASSERT_EQ(decode(b, *back), L"");
  vxk_test::expect_same_lists(list.get(), back.get());
  EXPECT_EQ(encoded(*back), b);
}

TEST(TldFormat, NotANumberAndInfinitiesAreCarriedBitForBit) {
  Tvx_text_list_base list;
  Tvx_text_data* t = list.add();
  t->add_point({std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()});
  t->angle = -0.0;
  Tvx_text_list_base back;
  ASSERT_EQ(decode(encoded(list), back), L"");
  EXPECT_TRUE(std::isnan(back.at(0)->get_point(0).x));
  EXPECT_TRUE(std::isinf(back.at(0)->get_point(0).y));
  EXPECT_TRUE(std::signbit(back.at(0)->angle));
}

TEST(TldFormat, EveryTruncationIsRefusedWithWholeLabelsKept) {
  list_ptr list(vxk_test::make_full_list());
  const bytes_t full = encoded(*list);
  for (size_t n = 0; n < full.size(); ++n) {
    bytes_t cut(full.begin(), full.begin() + static_cast<std::ptrdiff_t>(n));
    Tvx_text_list_base back;
    const std::wstring error = decode(cut, back);
    ASSERT_FALSE(error.empty()) << n;
    ASSERT_LT(back.size(), 4u) << n;
  }
}

TEST(TldFormat, TruncationInTheSecondLabelKeepsTheFirst) {
  list_ptr list(vxk_test::make_full_list());
  bytes_t b = encoded(*list);
  const size_t second = 12 + 4 + get32(b, 12);
  b.resize(second + 10);
  list_ptr back(vx_text_list_create());
  const std::wstring error = decode(b, *back);
  EXPECT_NE(error.find(L"label 1 of 4"), std::wstring::npos) << error;
  EXPECT_NE(error.find(L"truncated"), std::wstring::npos) << error;
  ASSERT_EQ(vx_text_list_get_size(back.get()), 1u);
  EXPECT_STREQ(vx_text_data_get_text(vx_text_list_at(back.get(), 0)), L"Москва-река");
}

TEST(TldFormat, WrongMagicIsRefused) {
  bytes_t b = one_label_file();
  b[0] = 'X';
  Tvx_text_list_base back;
  EXPECT_NE(decode(b, back).find(L"magic"), std::wstring::npos);
  EXPECT_EQ(back.size(), 0u);
}

TEST(TldFormat, OtherVersionIsRefused) {
  bytes_t b = one_label_file();
  b[4] = 2;
  Tvx_text_list_base back;
  EXPECT_NE(decode(b, back).find(L"version 2"), std::wstring::npos);
}

TEST(TldFormat, LyingLabelCountIsRefusedWithoutAllocating) {
  bytes_t b = one_label_file();
  b[8] = b[9] = b[10] = b[11] = 0xFF;  // 4,294,967,295 labels in a file that holds one
  Tvx_text_list_base back;
  const std::wstring error = decode(b, back);
  EXPECT_NE(error.find(L"label 1 of 4294967295"), std::wstring::npos) << error;
  EXPECT_EQ(back.size(), 1u);
}

TEST(TldFormat, LyingRecordLengthIsRefused) {
  bytes_t b = one_label_file();
  b[12] = 0xF0;
  b[13] = 0xFF;
  Tvx_text_list_base back;
  EXPECT_NE(decode(b, back).find(L"claims"), std::wstring::npos);
  EXPECT_EQ(back.size(), 0u);
}

TEST(TldFormat, LyingPointCountIsRefused) {
  bytes_t b = one_label_file();
  const size_t points = 16 + 24;
  b[points] = b[points + 1] = b[points + 2] = b[points + 3] = 0xFF;
  Tvx_text_list_base back;
  EXPECT_NE(decode(b, back).find(L"point count does not fit"), std::wstring::npos);
}

TEST(TldFormat, MetricCountThatContradictsTheTypeIsRefused) {
  bytes_t b = one_label_file();
  b[16] = 2;  // type 2 with one point must have one metric: still consistent
  Tvx_text_list_base back;
  EXPECT_EQ(decode(b, back), L"");
  const size_t metrics = 16 + 24 + 4 + 16;
  b[metrics] = 2;  // two metrics for one point
  EXPECT_NE(decode(b, back).find(L"holds 2 sizes"), std::wstring::npos);
}

TEST(TldFormat, ZeroCharacterInATextIsRefused) {
  bytes_t b = one_label_file();
  const size_t text = 16 + 24 + 4 + 16 + 4 + 24 + 4;
  b[text] = 0;
  Tvx_text_list_base back;
  EXPECT_NE(decode(b, back).find(L"zero character"), std::wstring::npos);
}

TEST(TldFormat, CalloutFlagMustBeZeroOrOne) {
  Tvx_text_list_base back;
  EXPECT_NE(decode(one_label_file(2), back).find(L"callout flag 2"), std::wstring::npos);
  // Flag 1 without the end point count behind it: the record is too short.
  EXPECT_NE(decode(one_label_file(1), back).find(L"callout end point count"), std::wstring::npos);
}

TEST(TldFormat, BytesLeftInARecordOrAfterTheLastAreRefused) {
  bytes_t b = one_label_file();
  b.push_back(0);
  Tvx_text_list_base back;
  EXPECT_NE(decode(b, back).find(L"after the last label"), std::wstring::npos);
  EXPECT_EQ(back.size(), 1u);
  bytes_t longer = one_label_file();
  longer[12] += 4;
  put32(longer, 0);
  EXPECT_NE(decode(longer, back).find(L"left over in the record"), std::wstring::npos);
}

TEST(TldFormat, DecodeReplacesTheListContent) {
  Tvx_text_list_base list;
  list.add();
  list.add();
  ASSERT_EQ(decode(one_label_file(), list), L"");
  EXPECT_EQ(list.size(), 1u);
}

}  // namespace
