#include "safe_output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>
#include <system_error>

namespace vxk {

namespace {

namespace fs = std::filesystem;

std::string join(const std::string& folder, const std::string& relative) {
  return folder.empty() ? relative : folder + "/" + relative;
}

std::string lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// The main files of a set go into place last, so that a reader that opens the set while it is being
// replaced finds the new main file with its new side files.
bool goes_later(const std::string& a, const std::string& b) {
  const bool a_main = lower(fs::path(a).extension().string()) == ".shp";
  const bool b_main = lower(fs::path(b).extension().string()) == ".shp";
  return a_main != b_main ? b_main : a < b;
}

// Flushes a file (or a folder's entries) to the disk; errno tells why when it cannot.
bool sync_path(const std::string& path, int flags) {
  const int fd = ::open(path.c_str(), flags | O_CLOEXEC);
  if (fd < 0) return false;
  const bool synced = ::fsync(fd) == 0 || ((flags & O_DIRECTORY) != 0 && errno == EINVAL);
  const int sync_errno = errno;
  const bool closed = ::close(fd) == 0;
  if (!synced) errno = sync_errno;
  return synced && closed;
}

// The files under a folder, as paths relative to it, main files last.
std::vector<std::string> files_under(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code ec;
  for (fs::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (it->is_regular_file(ec)) files.push_back(fs::relative(it->path(), folder, ec).string());
  }
  std::sort(files.begin(), files.end(), goes_later);
  return files;
}

}  // namespace

bool same_file(const std::string& a, const std::string& b) {
  struct stat sa {
  }, sb{};
  return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
         sa.st_ino == sb.st_ino;
}

const std::vector<std::string>& shape_side_extensions() {
  // A ".shp.xml" holds metadata that people write; it is not derived from the data and stays.
  static const std::vector<std::string> extensions = {".shp", ".shx", ".dbf", ".cpg", ".prj", ".pj4",
                                                      ".qix", ".sbn", ".sbx", ".fbn", ".fbx", ".ain",
                                                      ".aih", ".atx", ".ixs", ".mxs"};
  return extensions;
}

output_set::~output_set() {
  if (!committed_) abandon();
}

bool output_set::fail(const std::string& what, const std::string& path, int error_number) {
  error_ = what + " '" + path + "': " + std::strerror(error_number);
  return false;
}

bool output_set::fail_after(const char* outcome) {
  error_ += outcome;
  return false;
}

// Makes every missing level of the folder, outermost first, and remembers what it made.
bool output_set::make_folder(const std::string& folder) {
  std::vector<std::string> missing;
  for (fs::path p = folder; !p.empty(); p = p.parent_path()) {
    struct stat st {};
    if (::stat(p.c_str(), &st) == 0) {
      if (!S_ISDIR(st.st_mode)) return fail("cannot create the folder", folder, ENOTDIR);
      break;
    }
    missing.push_back(p.string());
    if (p == p.parent_path()) break;
  }
  for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
    if (::mkdir(it->c_str(), 0777) != 0) return fail("cannot create the folder", *it, errno);
    created_.push_back(*it);
  }
  return true;
}

bool output_set::open(const std::string& folder) {
  folder_ = folder;
  if (!make_folder(folder)) return false;
  std::string pattern = join(folder, ".vxk-XXXXXX");
  if (!::mkdtemp(pattern.data())) {
    return fail("cannot write in the folder", folder.empty() ? "." : folder, errno);
  }
  staging_ = pattern;
  return true;
}

std::string output_set::stage(const std::string& relative) {
  const std::string path = join(staging_, relative);
  std::error_code ec;
  fs::create_directories(fs::path(path).parent_path(), ec);
  return path;
}

void output_set::replace_family(const std::string& relative, const std::vector<std::string>& extensions) {
  families_.push_back(fs::path(relative).replace_extension().string());
  family_extensions_.push_back(extensions);
}

bool output_set::replace_folder(const std::string& relative, own_file_rule own) {
  const std::string folder = join(folder_, relative);
  std::error_code ec;
  if (!fs::exists(folder, ec)) {
    folders_.emplace_back(relative, own);
    return true;
  }
  if (!fs::is_directory(folder, ec)) return fail("cannot replace", folder, ENOTDIR);
  for (fs::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (it->is_directory(ec)) continue;
    const std::string mine = fs::relative(it->path(), folder_.empty() ? "." : folder_, ec).string();
    if (!it->is_regular_file(ec) || !own(mine)) {
      error_ = "'" + it->path().string() + "' was not written by this command; it is left alone, so the " +
               "result cannot replace '" + folder + "'";
      return false;
    }
  }
  if (ec) return fail("cannot read the folder", folder, ec.value());
  folders_.emplace_back(relative, own);
  return true;
}

bool output_set::sync_staged(const std::vector<std::string>& files) {
  for (const std::string& f : files) {
    if (!sync_path(join(staging_, f), O_RDONLY)) return fail("cannot write", join(folder_, f), errno);
  }
  return true;
}

// Where the files that the commit replaces or removes wait until it is complete, so that a failed
// commit can put them back.
std::string output_set::aside(const std::string& relative) const {
  return join(join(staging_, ".replaced"), relative);
}

// Makes the folders missing above a file of the destination; those made are removed by undo().
bool output_set::make_parents(const std::string& path, std::vector<std::string>& made) {
  std::vector<std::string> missing;
  for (fs::path p = fs::path(path).parent_path(); !p.empty() && !fs::exists(p); p = p.parent_path())
    missing.push_back(p.string());
  for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
    if (::mkdir(it->c_str(), 0777) != 0 && errno != EEXIST)
      return fail("cannot create the folder", *it, errno);
    made.push_back(*it);
  }
  return true;
}

// Keeps the file at <folder>/<relative> aside: a hard link where the file system has them, so that the
// file stays in place until the new one replaces it in one step; otherwise it is moved aside.
bool output_set::keep_aside(const std::string& relative, bool keep_in_place, std::vector<std::string>& made) {
  const std::string from = join(folder_, relative), to = aside(relative);
  if (!make_parents(to, made)) return false;
  if (keep_in_place && ::link(from.c_str(), to.c_str()) == 0) return true;
  if (::rename(from.c_str(), to.c_str()) == 0) return true;
  return fail("cannot replace", from, errno);
}

// Each staged file goes into place; what it replaces is kept aside first.
bool output_set::move_into_place(const std::vector<std::string>& files) {
  for (const std::string& f : files) {
    const std::string target = join(folder_, f);
    struct stat st {};
    const bool had = ::lstat(target.c_str(), &st) == 0;
    if (!make_parents(target, placed_folders_) || (had && !keep_aside(f, true, placed_folders_)))
      return false;
    if (::rename(join(staging_, f).c_str(), target.c_str()) != 0) {
      const int e = errno;
      if (had) ::rename(aside(f).c_str(), target.c_str());
      return fail("cannot replace", target, e);
    }
    placed_.push_back({f, had});
  }
  return true;
}

// Stale files go aside with the files that were replaced.
bool output_set::remove_stale(const std::vector<std::string>& stale) {
  for (const std::string& f : stale) {
    if (!keep_aside(f, false, placed_folders_)) return false;
    placed_.push_back({f, true});
  }
  return true;
}

// Puts back what the commit changed so far: old files back in one step each, new files without an old
// one removed, folders it made removed.
void output_set::undo() {
  for (auto it = placed_.rbegin(); it != placed_.rend(); ++it) {
    const std::string target = join(folder_, it->relative);
    if (it->had)
      ::rename(aside(it->relative).c_str(), target.c_str());
    else
      ::unlink(target.c_str());
  }
  placed_.clear();
  for (auto it = placed_folders_.rbegin(); it != placed_folders_.rend(); ++it) ::rmdir(it->c_str());
  placed_folders_.clear();
}

// The renames and removals reach the disk with the folders that hold them.
bool output_set::sync_folders(const std::vector<std::string>& files) {
  std::set<std::string> folders;
  for (const std::string& f : files) {
    const std::string parent = fs::path(join(folder_, f)).parent_path().string();
    folders.insert(parent.empty() ? "." : parent);
  }
  for (const std::string& folder : folders) {
    if (!sync_path(folder, O_RDONLY | O_DIRECTORY)) return fail("cannot write the folder", folder, errno);
  }
  return true;
}

// A side file of a replaced shape file that the new result does not have would describe the old data.
void output_set::stale_of_families(const std::vector<std::string>& files,
                                   std::vector<std::string>& stale) const {
  for (size_t k = 0; k < families_.size(); ++k) {
    const fs::path stem = join(folder_, families_[k]);
    const std::string folder = stem.parent_path().empty() ? "." : stem.parent_path().string();
    const std::string name = stem.filename().string();
    std::error_code ec;
    for (const fs::directory_entry& e : fs::directory_iterator(folder, ec)) {
      const std::string entry = e.path().filename().string();
      if (e.is_directory(ec) || entry.size() <= name.size() || entry.compare(0, name.size(), name) != 0)
        continue;
      const std::string ext = lower(entry.substr(name.size()));
      const auto& wanted = family_extensions_[k];
      if (std::find(wanted.begin(), wanted.end(), ext) == wanted.end()) continue;
      const std::string relative = join(fs::path(families_[k]).parent_path().string(), entry);
      if (std::find(files.begin(), files.end(), relative) == files.end()) stale.push_back(relative);
    }
  }
}

// The command's files in a replaced folder that the new result does not have would mix two results.
void output_set::stale_of_folders(const std::vector<std::string>& files,
                                  std::vector<std::string>& stale) const {
  const std::string base = folder_.empty() ? "." : folder_;
  for (const auto& [relative, own] : folders_) {
    std::error_code ec;
    for (fs::recursive_directory_iterator it(join(folder_, relative), ec), end; !ec && it != end;
         it.increment(ec)) {
      const std::string mine = fs::relative(it->path(), base, ec).string();
      if (it->is_regular_file(ec) && own(mine) && std::find(files.begin(), files.end(), mine) == files.end())
        stale.push_back(mine);
    }
  }
}

bool output_set::commit() {
  if (staging_.empty()) return fail("nothing to write in", folder_, EINVAL);
  const std::vector<std::string> files = files_under(staging_);
  std::vector<std::string> stale;
  stale_of_families(files, stale);
  stale_of_folders(files, stale);
  const char* const kept = "; what was there before is as it was";
  if (!sync_staged(files)) return fail_after(kept);
  if (!move_into_place(files) || !remove_stale(stale)) {
    undo();
    return fail_after(kept);
  }
  if (!sync_folders(files))
    return fail_after("; the new result is in place but may not have reached the disk");
  std::error_code ec;
  fs::remove_all(staging_, ec);
  committed_ = true;
  return true;
}

void output_set::abandon() {
  std::error_code ec;
  if (!staging_.empty()) fs::remove_all(staging_, ec);
  for (auto it = created_.rbegin(); it != created_.rend(); ++it) ::rmdir(it->c_str());
}

std::string output_set::final_text(std::string text) const {
  if (staging_.empty()) return text;
  const std::string from = staging_ + "/";
  const std::string to = folder_.empty() ? std::string() : folder_ + "/";
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

}  // namespace vxk
