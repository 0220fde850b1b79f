#include "services/text_list.h"

#include <gtest/gtest.h>

namespace {

TEST(TextData, NewLabelHasOneSizeAndNoPoint) {
  Tvx_text_data t;
  EXPECT_EQ(t.get_type(), 1);
  EXPECT_TRUE(t.points().empty());
  EXPECT_EQ(t.metrics().size(), 1u);
  EXPECT_EQ(t.get_callout(), nullptr);
  EXPECT_EQ(t.color, 0xFF000000u);
}

TEST(TextData, MetricCountFollowsTheType) {
  EXPECT_EQ(Tvx_text_data::metric_count(2, 5), 5u);
  EXPECT_EQ(Tvx_text_data::metric_count(2, 1), 1u);
  EXPECT_EQ(Tvx_text_data::metric_count(2, 0), 1u);
  EXPECT_EQ(Tvx_text_data::metric_count(1, 5), 1u);
  EXPECT_EQ(Tvx_text_data::metric_count(0, 0), 1u);
  EXPECT_EQ(Tvx_text_data::metric_count(-7, 9), 1u);
}

TEST(TextData, TypeTwoGrowsOneMetricPerPoint) {
  Tvx_text_data t;
  t.set_type(2);
  t.set_count(4);
  EXPECT_EQ(t.metrics().size(), 4u);
  t.add_point({1, 2});
  EXPECT_EQ(t.metrics().size(), 5u);
  EXPECT_EQ(t.get_point(4).x, 1);
}

TEST(TextData, LeavingTypeTwoKeepsTheFirstMetric) {
  Tvx_text_data t;
  t.set_type(2);
  t.set_count(3);
  t.metric_at(0)->size = 7;
  t.metric_at(2)->size = 9;
  t.set_type(1);
  ASSERT_EQ(t.metrics().size(), 1u);
  EXPECT_EQ(t.get_metric(0).size, 7);
  EXPECT_EQ(t.metric_at(2), nullptr);
}

TEST(TextData, OutOfRangeReadsZeroAndWritesNothing) {
  Tvx_text_data t;
  t.set_count(1);
  t.set_point(5, {3, 4});
  EXPECT_EQ(t.get_point(5).x, 0);
  EXPECT_EQ(t.get_point(0).x, 0);
  EXPECT_EQ(t.get_metric(3).size, 0);
}

TEST(TextData, AssignGeometryRefusesAWrongMetricCount) {
  Tvx_text_data t;
  t.set_type(2);
  EXPECT_FALSE(t.assign_geometry({{1, 1}, {2, 2}}, std::vector<Tvx_text_metric>(1)));
  EXPECT_TRUE(t.points().empty());
  EXPECT_TRUE(t.assign_geometry({{1, 1}, {2, 2}}, std::vector<Tvx_text_metric>(2)));
  EXPECT_EQ(t.points().size(), 2u);
}

TEST(TextData, AddCalloutGivesBackTheExistingOne) {
  Tvx_text_data t;
  Tvx_callout* c = t.add_callout();
  c->end_points.push_back({1, 1});
  EXPECT_EQ(t.add_callout(), c);
  EXPECT_EQ(t.get_callout()->end_points.size(), 1u);
  t.remove_callout();
  EXPECT_EQ(t.get_callout(), nullptr);
}

TEST(TextList, HandlesSurviveGrowth) {
  Tvx_text_list_base list;
  Tvx_text_data* first = list.add();
  first->text = L"первый";
  for (int i = 0; i < 1000; ++i) list.add();
  EXPECT_EQ(list.at(0), first);
  EXPECT_EQ(first->text, L"первый");
  EXPECT_EQ(list.size(), 1001u);
  EXPECT_EQ(list.at(1001), nullptr);
  list.clear();
  EXPECT_EQ(list.size(), 0u);
}

}  // namespace
