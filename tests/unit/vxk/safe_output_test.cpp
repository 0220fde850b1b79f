#include "safe_output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "fault_injection.h"
#include "test_paths.h"

namespace {

namespace fs = std::filesystem;

void write(const fs::path& p, const std::string& text) {
  std::ofstream(p, std::ios::binary) << text;
}

using vxk_test::file_bytes;
using vxk_test::snapshot;

class OutputSet : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = vxk_test::scratch_dir(std::string("safe_output_") +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name());
  }
  fs::path dir;
};

TEST_F(OutputSet, NothingIsInPlaceBeforeTheCommit) {
  vxk::output_set out;
  ASSERT_TRUE(out.open((dir / "gk7").string())) << out.error();
  const std::string staged = out.stage("roads.shp");
  write(staged, "shape");
  write(fs::path(staged).replace_extension(".dbf"), "table");
  EXPECT_FALSE(fs::exists(dir / "gk7" / "roads.shp"));
  ASSERT_TRUE(out.commit()) << out.error();
  EXPECT_EQ(snapshot(dir / "gk7"),
            (std::map<std::string, std::string>{{"roads.dbf", "table"}, {"roads.shp", "shape"}}));
}

TEST_F(OutputSet, SetThatIsNotCommittedLeavesNothingAndRemovesTheFoldersItMade) {
  write(dir / "keep.txt", "mine");
  {
    vxk::output_set out;
    ASSERT_TRUE(out.open((dir / "new" / "deeper").string()));
    write(out.stage("roads.shp"), "half");
  }
  EXPECT_EQ(snapshot(dir), (std::map<std::string, std::string>{{"keep.txt", "mine"}}));
}

TEST_F(OutputSet, EarlierResultStaysWhenTheNewOneIsAbandoned) {
  fs::create_directories(dir / "out");
  write(dir / "out" / "roads.shp", "earlier");
  write(dir / "out" / "roads.prj", "earlier system");
  {
    vxk::output_set out;
    ASSERT_TRUE(out.open((dir / "out").string()));
    write(out.stage("roads.shp"), "new");
    out.replace_family("roads.shp", vxk::shape_side_extensions());
  }
  EXPECT_EQ(snapshot(dir / "out"),
            (std::map<std::string, std::string>{{"roads.prj", "earlier system"}, {"roads.shp", "earlier"}}));
}

TEST_F(OutputSet, StaleSideFilesOfTheFamilyGoAndOthersStay) {
  fs::create_directories(dir / "out");
  for (const char* name : {"roads.shp", "roads.shx", "roads.dbf", "roads.PRJ", "roads.qix", "roads.shp.xml",
                           "roads2.dbf", "rivers.prj"})
    write(dir / "out" / name, "old");
  vxk::output_set out;
  ASSERT_TRUE(out.open((dir / "out").string()));
  const std::string staged = out.stage("roads.shp");
  write(staged, "new shape");
  write(fs::path(staged).replace_extension(".shx"), "new index");
  out.replace_family("roads.shp", vxk::shape_side_extensions());
  ASSERT_TRUE(out.commit()) << out.error();
  EXPECT_EQ(snapshot(dir / "out"), (std::map<std::string, std::string>{{"rivers.prj", "old"},
                                                                       {"roads.shp", "new shape"},
                                                                       {"roads.shp.xml", "old"},
                                                                       {"roads.shx", "new index"},
                                                                       {"roads2.dbf", "old"}}));
}

// A tree of results (the sheet generator writes folders of shape files) goes into place as a whole.
TEST_F(OutputSet, TreesGoIntoPlaceWithTheirFolders) {
  vxk::output_set out;
  ASSERT_TRUE(out.open((dir / "sheet").string()));
  write(out.stage("HYPS/Hypsa.shp"), "a");
  write(out.stage("latlong/FRAME/Frame.shp"), "f");
  ASSERT_TRUE(out.commit()) << out.error();
  EXPECT_EQ(file_bytes(dir / "sheet" / "HYPS" / "Hypsa.shp"), "a");
  EXPECT_EQ(file_bytes(dir / "sheet" / "latlong" / "FRAME" / "Frame.shp"), "f");
  EXPECT_EQ(snapshot(dir / "sheet").size(), 5u);  // two files, three folders, no staging folder
}

// A commit that fails half-way (here a file of the new set whose folder is a file at the destination)
// puts back every file it had already replaced or taken away.
TEST_F(OutputSet, CommitThatFailsHalfWayPutsEveryEarlierFileBack) {
  fs::create_directories(dir / "out");
  for (const char* name : {"roads.dbf", "roads.shp", "roads.prj"}) write(dir / "out" / name, "earlier");
  write(dir / "out" / "x", "a file in the way");
  const auto earlier = snapshot(dir / "out");
  {
    vxk::output_set out;
    ASSERT_TRUE(out.open((dir / "out").string()));
    const std::string staged = out.stage("roads.shp");
    write(staged, "new");
    write(fs::path(staged).replace_extension(".dbf"), "new table");
    write(out.stage("x/late.shp"), "cannot go");
    out.replace_family("roads.shp", vxk::shape_side_extensions());
    EXPECT_FALSE(out.commit());
    EXPECT_EQ(out.error().rfind("cannot replace '" + (dir / "out" / "x" / "late.shp").string() + "': ", 0),
              0u)
        << out.error();
    EXPECT_NE(out.error().find("; what was there before is as it was"), std::string::npos) << out.error();
    for (const auto& [name, bytes] : earlier) EXPECT_EQ(file_bytes(dir / "out" / name), bytes) << name;
  }
  EXPECT_EQ(snapshot(dir / "out"), earlier);
}

// The sheet generator's folders: its own files are replaced and its stale ones go; a folder that holds a
// file it did not write is refused before anything is done.
bool sheet_file(const std::string& relative) {
  return relative.rfind("HYPS/", 0) == 0 && fs::path(relative).extension() == ".shp";
}

TEST_F(OutputSet, ReplacedFolderLosesTheCommandsStaleFilesOnly) {
  fs::create_directories(dir / "sheet" / "HYPS");
  write(dir / "sheet" / "HYPS" / "Hypsa.shp", "old");
  write(dir / "sheet" / "HYPS" / "Hypsl.shp", "old");
  write(dir / "sheet" / "notes.txt", "mine");
  vxk::output_set out;
  ASSERT_TRUE(out.open((dir / "sheet").string()));
  ASSERT_TRUE(out.replace_folder("HYPS", sheet_file)) << out.error();
  write(out.stage("HYPS/Hypsa.shp"), "new");
  ASSERT_TRUE(out.commit()) << out.error();
  EXPECT_EQ(snapshot(dir / "sheet"),
            (std::map<std::string, std::string>{
                {"HYPS", "<folder>"}, {"HYPS/Hypsa.shp", "new"}, {"notes.txt", "mine"}}));
}

TEST_F(OutputSet, FolderWithAForeignFileIsRefused) {
  fs::create_directories(dir / "sheet" / "HYPS");
  write(dir / "sheet" / "HYPS" / "Hypsa.shp", "old");
  write(dir / "sheet" / "HYPS" / "my_notes.txt", "mine");
  const auto before = snapshot(dir / "sheet");
  {
    vxk::output_set out;
    ASSERT_TRUE(out.open((dir / "sheet").string()));
    EXPECT_FALSE(out.replace_folder("HYPS", sheet_file));
    EXPECT_EQ(out.error(), "'" + (dir / "sheet" / "HYPS" / "my_notes.txt").string() +
                               "' was not written by this command; it is left alone, so the result cannot "
                               "replace '" +
                               (dir / "sheet" / "HYPS").string() + "'");
  }
  EXPECT_EQ(snapshot(dir / "sheet"), before);
}

TEST_F(OutputSet, FolderThatIsAFileIsAClearFailure) {
  write(dir / "blocker", "x");
  vxk::output_set out;
  EXPECT_FALSE(out.open((dir / "blocker" / "out").string()));
  EXPECT_EQ(out.error(),
            "cannot create the folder '" + (dir / "blocker" / "out").string() + "': Not a directory");
}

TEST_F(OutputSet, FolderWhereNothingCanBeMadeIsAClearFailure) {
  vxk::output_set out;
  EXPECT_FALSE(out.open("/proc"));
  EXPECT_EQ(out.error(), "cannot write in the folder '/proc': No such file or directory");
}

TEST_F(OutputSet, CurrentFolderIsTheEmptyName) {
  const fs::path cwd = fs::current_path();
  fs::current_path(dir);
  {
    vxk::output_set out;
    ASSERT_TRUE(out.open(""));
    const std::string staged = out.stage("x.shp");
    write(staged, "x");
    EXPECT_EQ(out.final_text("Error writing file: \"" + staged + "\": File too large"),
              "Error writing file: \"x.shp\": File too large");
    ASSERT_TRUE(out.commit());
  }
  fs::current_path(cwd);
  EXPECT_EQ(file_bytes(dir / "x.shp"), "x");
}

TEST_F(OutputSet, FinalTextShowsThePathsTheResultWillHave) {
  vxk::output_set out;
  ASSERT_TRUE(out.open((dir / "gk7").string()));
  const std::string staged = out.stage("roads.shp");
  EXPECT_EQ(out.final_text("cannot copy 'a.dbf' to '" + staged + "' and '" + staged + "'"),
            "cannot copy 'a.dbf' to '" + (dir / "gk7" / "roads.shp").string() + "' and '" +
                (dir / "gk7" / "roads.shp").string() + "'");
}

TEST_F(OutputSet, SameFileByIdentity) {
  write(dir / "a.shp", "a");
  fs::create_symlink(dir / "a.shp", dir / "link.shp");
  EXPECT_TRUE(vxk::same_file((dir / "a.shp").string(), (dir / "." / "a.shp").string()));
  EXPECT_TRUE(vxk::same_file((dir / "a.shp").string(), (dir / "link.shp").string()));
  EXPECT_FALSE(vxk::same_file((dir / "a.shp").string(), (dir / "b.shp").string()));
}

}  // namespace
