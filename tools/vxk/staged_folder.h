// Output that appears whole or not at all: folders written in a temporary folder beside their
// destination and moved into place only when the caller commits. A failed run leaves nothing
// half-written and no folder that it created. A folder of the same name in the destination is replaced
// only when every file in it is one that the caller's rule calls its own output; otherwise the work is
// refused before it starts.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "designation.h"

namespace vxk {

class staged_folder {
 public:
  using own_file_rule = bool (*)(const std::filesystem::path& relative);

  // Prepares the destination: the folders missing above and at it are created (and removed again
  // unless committed), and the temporary folder is made beside it. Throws failure.
  staged_folder(std::filesystem::path destination, std::vector<std::string> tops, own_file_rule own)
      : dest_(std::filesystem::absolute(std::move(destination)).lexically_normal()), tops_(std::move(tops)) {
    if (dest_.filename().empty()) dest_ = dest_.parent_path();
    std::error_code ec;
    fail_if(std::filesystem::exists(dest_, ec) && !std::filesystem::is_directory(dest_, ec),
            "'" + dest_.string() + "' exists and is not a folder");
    for (const std::string& top : tops_) refuse_foreign_files(dest_ / top, own);
    try {
      make_destination();
      std::string pattern =
          (dest_.parent_path() / ("." + dest_.filename().string() + ".vxk-XXXXXX")).string();
      fail_if(!mkdtemp(pattern.data()), "cannot create a temporary folder beside '" + dest_.string() + "'");
      stage_ = pattern;
    } catch (...) {
      clean_up();
      throw;
    }
  }

  ~staged_folder() { clean_up(); }

  staged_folder(const staged_folder&) = delete;
  staged_folder& operator=(const staged_folder&) = delete;

  const std::filesystem::path& path() const { return stage_; }
  const std::filesystem::path& destination() const { return dest_; }

  // Moves each top folder into the destination, the old one of the same name aside first; undoes the
  // moves done so far when one fails, and throws failure.
  void commit() {
    std::vector<std::string> moved;
    for (const std::string& top : tops_) {
      std::error_code ec;
      if (std::filesystem::exists(dest_ / top))
        std::filesystem::rename(dest_ / top, stage_ / (".old-" + top), ec);
      if (!ec) std::filesystem::rename(stage_ / top, dest_ / top, ec);
      if (ec) {
        undo(moved);
        undo_one(top);
        throw failure{"cannot move '" + top + "' into '" + dest_.string() + "': " + ec.message()};
      }
      moved.push_back(top);
    }
    committed_ = true;
  }

 private:
  // The temporary folder goes; so do the folders made for the destination, unless committed.
  void clean_up() {
    std::error_code ec;
    if (!stage_.empty()) std::filesystem::remove_all(stage_, ec);
    if (committed_) return;
    for (auto it = created_.rbegin(); it != created_.rend(); ++it) std::filesystem::remove(*it, ec);
  }

  void refuse_foreign_files(const std::filesystem::path& folder, own_file_rule own) const {
    std::error_code ec;
    if (!std::filesystem::exists(folder, ec)) return;
    fail_if(!std::filesystem::is_directory(folder, ec),
            "'" + folder.string() + "' is in the way and is not a folder");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, ec)) {
      if (entry.is_directory()) continue;
      const auto relative = std::filesystem::relative(entry.path(), dest_);
      fail_if(!entry.is_regular_file() || !own(relative),
              "'" + entry.path().string() +
                  "' was not written by this command; it is left alone, so the output " + "cannot replace '" +
                  folder.string() + "': choose another --out");
    }
    fail_if(static_cast<bool>(ec), "cannot read '" + folder.string() + "': " + ec.message());
  }

  void make_destination() {
    std::vector<std::filesystem::path> missing;
    for (auto p = dest_; !p.empty() && !std::filesystem::exists(p); p = p.parent_path()) {
      missing.push_back(p);
      if (p == p.parent_path()) break;
    }
    for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
      std::error_code ec;
      fail_if(!std::filesystem::create_directory(*it, ec),
              "cannot create '" + it->string() + "': " + ec.message());
      created_.push_back(*it);
    }
  }

  // Puts a moved folder back into the temporary folder and the old one back in its place.
  void undo_one(const std::string& top) {
    std::error_code ec;
    if (std::filesystem::exists(dest_ / top) && !std::filesystem::exists(stage_ / top))
      std::filesystem::rename(dest_ / top, stage_ / top, ec);
    if (std::filesystem::exists(stage_ / (".old-" + top)))
      std::filesystem::rename(stage_ / (".old-" + top), dest_ / top, ec);
  }

  void undo(const std::vector<std::string>& moved) {
    for (const std::string& top : moved) undo_one(top);
  }

  std::filesystem::path dest_;
  std::vector<std::string> tops_;
  std::filesystem::path stage_;
  std::vector<std::filesystem::path> created_;
  bool committed_ = false;
};

}  // namespace vxk
