// What the steps share to write: the pair of files closed together, polylines of one part, records that
// grow with their ID, and the table of labels.
#include "stdlist/generate/11_step_files.h"

#include <gtest/gtest.h>

#include "generate_fixture.h"
#include "generate_readback.h"

namespace {

namespace fs = std::filesystem;
using namespace vx::stdlist;

TEST(StepFiles, BothFilesAreClosedWhenTheStepEnds) {
  const std::wstring path = vxk_test::output_dir("step_files", {}) + L"Lines.shp";
  {
    step_files files;
    files.shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POLYLINE);
    Tvx_dbf_field fields[LABEL_COLUMNS];
    init_label_fields(fields);
    files.table = vx_dbf_create_w(traits::dbf_path(path).c_str(), LABEL_COLUMNS, 0, fields, 0);
    ASSERT_TRUE(files.shp && files.table);
    EXPECT_TRUE(add_polyline(files.shp, {{1, 2}, {3, 4}, {3, 4}}));
    append_label(files.table, 400912, L"55\u00B0 ", traits::FONT_SIZE);
    append_label(files.table, 400911, L"N-37-V", traits::FONT_SIZE_ADJ);
  }
  const auto lines = vxk_test::written_lines(path);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0], (vxk_test::line{{1, 2}, {3, 4}, {3, 4}}));  // a repeated vertex stays
  const auto t = vxk_test::written_table(path);
  EXPECT_EQ(t.columns, (std::vector<std::string>{"ID", "L_CODE", "TEXT", "FONT", "SIZE"}));
  ASSERT_EQ(t.rows.size(), 2u);
  EXPECT_EQ(t.rows[0],
            (std::vector<std::string>{"1", "400912", vxk_test::cp1251("55°"), "Times New Roman", "8.00"}));
  EXPECT_EQ(t.rows[1], (std::vector<std::string>{"2", "400911", "N-37-V", "Times New Roman", "6.50"}));
}

TEST(StepFiles, ANewRecordGetsTheNextIdAfterThoseCreatedWithTheTable) {
  const std::wstring path = vxk_test::output_dir("step_records", {}) + L"Table.shp";
  Tvx_dbf_field fields[2];
  vx_dbf_field_init(&fields[0], "ID", VX_DBF_NUMERIC, 6, 0);
  vx_dbf_field_init(&fields[1], "L_CODE", VX_DBF_NUMERIC, 8, 0);
  void* table = vx_dbf_create_w(traits::dbf_path(path).c_str(), 2, 3, fields, 0);
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(append_record(table), 3);
  EXPECT_EQ(append_record(table), 4);
  vx_dbf_close(table);
  const auto t = vxk_test::written_table(path);
  ASSERT_EQ(t.rows.size(), 5u);
  EXPECT_EQ(t.at(3, "ID"), "4");
  EXPECT_EQ(t.at(4, "ID"), "5");
  EXPECT_EQ(t.at(0, "ID"), "");
}

TEST(StepFiles, APolylineThatTheFileRefusesIsFalse) {
  const std::wstring path = vxk_test::output_dir("step_refused", {}) + L"Points.shp";
  step_files files;
  files.shp = vx_shp_file_create_w(path.c_str(), VX_SHP_POINT);
  ASSERT_NE(files.shp, nullptr);
  EXPECT_FALSE(add_polyline(files.shp, {{1, 2}, {3, 4}}));
}

TEST(StepFiles, ALabelTheCodePageCannotHoldIsEmpty) {
  const std::wstring path = vxk_test::output_dir("step_label_empty", {}) + L"Labels.shp";
  Tvx_dbf_field fields[LABEL_COLUMNS];
  init_label_fields(fields);
  void* table = vx_dbf_create_w(traits::dbf_path(path).c_str(), LABEL_COLUMNS, 0, fields, 0);
  ASSERT_NE(table, nullptr);
  append_label(table, 400912, L"\x4E2D", traits::FONT_SIZE);
  vx_dbf_close(table);
  EXPECT_EQ(vxk_test::written_table(path).at(0, "TEXT"), "");
}

}  // namespace
