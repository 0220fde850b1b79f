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
// commit() flushes every staged file to the disk and checks it, renames each into place (each file is
// replaced atomically; the main files, ".shp", last), removes the members of a replaced family that the
// new result does not have (a stale ".prj" would describe the wrong system), flushes the folders, and
// removes the staging folder. A set that is destroyed without a successful commit removes its staging folder
// and every folder that open() created. Every failure is told by error(): what failed, the path, and the
// system's reason (strerror).
//
// Both names given to stage() and replace_family() are relative to the destination folder and may hold
// subfolders ("HYPS/Hypsa.shp"), which are made in the destination at commit when missing.
#pragma once

#include <string>
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

  // Puts the set into place; false, with error() set, when a step fails.
  bool commit();

  const std::string& error() const { return error_; }

  // A text (a library's message) in which staged paths are replaced by the paths they will have.
  std::string final_text(std::string text) const;

 private:
  bool make_folder(const std::string& folder);
  bool sync_staged(const std::vector<std::string>& files);
  bool move_into_place(const std::vector<std::string>& files);
  bool remove_stale(const std::vector<std::string>& files);
  bool sync_folders(const std::vector<std::string>& files);
  void abandon();
  bool fail(const std::string& what, const std::string& path, int error_number);

  std::string folder_;                 // as given, "" for the current folder
  std::string staging_;                // the staging folder, "" before open
  std::vector<std::string> created_;   // folders made by open, outermost first
  std::vector<std::string> families_;  // relative paths without extension
  std::vector<std::vector<std::string>> family_extensions_;
  bool committed_ = false;
  std::string error_;
};

}  // namespace vxk
