// Safe output of vxk's commands: a user's files are never lost.
//
// A command writes its whole result (one file, a shape file with its side files, or a tree of them)
// under temporary names in a staging folder inside the destination folder, and puts it into place only
// when the whole set is complete. So a run that fails (a full disk, a file size limit, a folder where
// nothing can be written, a damaged source) leaves neither a half-written result nor a destroyed
// earlier one, and a folder that the run had to create is removed again.
//
//   vxk::output_set out;
//   if (!out.open("gk7")) return fail(out.error());   // makes missing folders, and the staging folder
//   const std::string tmp = out.stage("roads.shp");    // where to write what becomes gk7/roads.shp
//   ... write tmp; side files beside it (tmp's stem with other extensions) belong to the set too ...
//   out.replace_family("roads.shp", vxk::shape_side_extensions());  // stale side files go at commit
//   if (!out.commit()) return fail(out.error());
//
// A command that writes a whole tree of its own files ("HYPS/", "FRAME/") claims each top folder with
// replace_folder(): a folder that holds a file the command did not write is refused before any work is
// done, and at commit the command's files in it that the new result does not have are removed.
//
// commit() flushes every staged file to the disk and checks it, renames each into place (each file is
// replaced atomically; the main files, ".shp", last), takes away the members of a replaced family and
// the files of a replaced folder that the new result does not have (a stale ".prj" would describe the
// wrong system), flushes the folders, and removes the staging folder. What it replaces or takes away
// waits in the staging folder until the end, so that a commit that fails half-way puts every earlier
// file back. A set that is destroyed without a successful commit removes its staging folder and every
// folder that open() created. Every failure is told by error(): what failed, the path, and the system's
// reason (strerror).
//
// The names given to stage(), replace_family() and replace_folder() are relative to the destination
// folder and may hold subfolders ("HYPS/Hypsa.shp"), which are made in the destination at commit when
// missing. replace_folder() is called after open().
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vxk {

// True when both paths name an existing file and it is the same file (device and inode, links
// followed), however the paths are spelled.
bool same_file(const std::string& a, const std::string& b);

// The extensions of the files that make up a shape file beside its ".shp": index, table, code page,
// projection files and the spatial indexes of other programs, all of which describe that one ".shp".
const std::vector<std::string>& shape_side_extensions();

class output_set {
 public:
  // Which files under a replaced folder (paths relative to the destination folder) the command writes.
  using own_file_rule = bool (*)(const std::string& relative);

  output_set() = default;
  ~output_set();
  output_set(const output_set&) = delete;
  output_set& operator=(const output_set&) = delete;

  // Makes the destination folder (every missing level; "" is the current folder) and the staging folder
  // inside it. False, with error() set, when either cannot be made.
  bool open(const std::string& folder);

  // The path under which to write the file that becomes <folder>/<relative>; its subfolders in the
  // staging folder are made. Everything written into the staging folder belongs to the set.
  std::string stage(const std::string& relative);

  // At commit, every file <folder>/<stem of relative><ext> (ext from extensions, matched without regard
  // to case) that the staged set does not hold is removed.
  void replace_family(const std::string& relative, const std::vector<std::string>& extensions);

  // Claims <folder>/<relative> for the set: false, with error() set, when it holds a file that own
  // does not call the command's (nothing is touched then); at commit, the files there that own calls
  // the command's and the staged set does not hold are removed.
  bool replace_folder(const std::string& relative, own_file_rule own);

  // The staging folder, where a library that writes a whole tree is told to write it.
  const std::string& staging() const { return staging_; }

  // Puts the set into place; false, with error() set, when a step fails.
  bool commit();

  const std::string& error() const { return error_; }

  // A text (a library's message) in which staged paths are replaced by the paths they will have.
  std::string final_text(std::string text) const;

 private:
  bool make_folder(const std::string& folder);
  bool sync_staged(const std::vector<std::string>& files);
  std::string aside(const std::string& relative) const;
  bool make_parents(const std::string& path, std::vector<std::string>& made);
  bool keep_aside(const std::string& relative, bool keep_in_place, std::vector<std::string>& made);
  bool move_into_place(const std::vector<std::string>& files);
  bool remove_stale(const std::vector<std::string>& stale);
  void undo();
  bool sync_folders(const std::vector<std::string>& files);
  void stale_of_families(const std::vector<std::string>& files, std::vector<std::string>& stale) const;
  void stale_of_folders(const std::vector<std::string>& files, std::vector<std::string>& stale) const;
  void abandon();
  bool fail(const std::string& what, const std::string& path, int error_number);
  bool fail_after(const char* outcome);

  std::string folder_;                 // as given, "" for the current folder
  std::string staging_;                // the staging folder, "" before open
  std::vector<std::string> created_;   // folders made by open, outermost first
  std::vector<std::string> families_;  // relative paths without extension
  std::vector<std::vector<std::string>> family_extensions_;
  std::vector<std::pair<std::string, own_file_rule>> folders_;  // claimed by replace_folder
  struct placed {
    std::string relative;
    bool had;  // an earlier file of that name was kept aside
  };
  std::vector<placed> placed_;               // what commit changed so far, to undo on failure
  std::vector<std::string> placed_folders_;  // folders commit made, outermost first
  bool committed_ = false;
  std::string error_;
};

}  // namespace vxk
