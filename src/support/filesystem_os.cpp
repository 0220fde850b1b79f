// The system functions of the path algebra, on POSIX. Every path reaches the operating system through
// os_path(), the one gate that turns a wide path text into the narrow path the calls take.
#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "support/ansi_code_page.h"
#include "support/filesystem.h"
#include "support/text_case.h"

namespace vx::filesystem {

namespace {

bool stat_of(const std::wstring& path, struct stat& st) {
  return !path.empty() && ::stat(os_path(path).c_str(), &st) == 0;
}

// Copies the bytes of one open descriptor to another.
bool copy_bytes(int in, int out) {
  char buf[65536];
  for (;;) {
    const ssize_t n = ::read(in, buf, sizeof buf);
    if (n == 0) return true;
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    for (ssize_t done = 0; done < n;) {
      const ssize_t w = ::write(out, buf + done, static_cast<size_t>(n - done));
      if (w < 0 && errno == EINTR) continue;
      if (w <= 0) return false;
      done += w;
    }
  }
}

bool is_link(const std::wstring& path) {
  struct stat st;
  return ::lstat(os_path(path).c_str(), &st) == 0 && S_ISLNK(st.st_mode);
}

bool same_file(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// Names in a folder, "." and ".." left out, in name order.
std::vector<std::wstring> entries(const std::wstring& directory) {
  std::vector<std::wstring> names;
  DIR* dir = ::opendir(os_path(directory.empty() ? L"." : directory).c_str());
  if (!dir) return names;
  while (const dirent* e = ::readdir(dir)) {
    const std::string name = e->d_name;
    if (name != "." && name != "..") names.push_back(vx::strconv::utf8_to_wide(name));
  }
  ::closedir(dir);
  std::sort(names.begin(), names.end());
  return names;
}

// Wildcard match of "*" and "?", without regard to case.
bool matches(const wchar_t* name, const wchar_t* pattern) {
  const wchar_t* star = nullptr;
  const wchar_t* resume = nullptr;
  while (*name) {
    if (*pattern == L'*') {
      star = pattern++;
      resume = name;
    } else if (*pattern == L'?' || (*pattern && vx::text::to_lower(*pattern) == vx::text::to_lower(*name))) {
      ++pattern;
      ++name;
    } else if (star) {
      pattern = star + 1;
      name = ++resume;
    } else {
      return false;
    }
  }
  while (*pattern == L'*') ++pattern;
  return *pattern == 0;
}

void find_internal(const std::wstring& directory, const std::wstring& pattern, unsigned flags,
                   std::vector<std::wstring>& found) {
  for (const std::wstring& name : entries(directory)) {
    const std::wstring path = combine(directory, name);
    const bool folder = is_directory(path);
    const bool wanted = folder ? (flags & find_directories) : (flags & find_files);
    if (wanted && matches(name.c_str(), pattern.c_str())) found.push_back(path);
    if (folder && (flags & find_recursive) && !is_link(path)) find_internal(path, pattern, flags, found);
  }
}

std::wstring env_or(const char* name, const std::wstring& fallback) {
  const char* value = std::getenv(name);
  return value && *value ? vx::strconv::utf8_to_wide(value) : fallback;
}

}  // namespace

std::string os_path(const std::wstring& path) {
  std::wstring posix = path;
  std::replace(posix.begin(), posix.end(), L'\\', L'/');
  return vx::strconv::wide_to_utf8(posix);
}

std::FILE* open_file(const std::wstring& path, const char* mode) {
  return path.empty() ? nullptr : std::fopen(os_path(path).c_str(), mode);
}

int open_descriptor(const std::wstring& path, int flags, unsigned mode) {
  return path.empty() ? -1 : ::open(os_path(path).c_str(), flags | O_CLOEXEC, static_cast<mode_t>(mode));
}

bool path_exist(const std::wstring& path) {
  struct stat st;
  return stat_of(path, st);
}

bool is_directory(const std::wstring& path) {
  struct stat st;
  return stat_of(path, st) && S_ISDIR(st.st_mode);
}

bool is_file(const std::wstring& path) {
  struct stat st;
  return stat_of(path, st) && !S_ISDIR(st.st_mode);
}

std::time_t file_mtime(const std::wstring& path) {
  struct stat st;
  return stat_of(path, st) ? st.st_mtime : 0;
}

uint64_t file_size(const std::wstring& path) {
  struct stat st;
  return stat_of(path, st) ? static_cast<uint64_t>(st.st_size) : 0;
}

bool file_readable(const std::wstring& path) {
  return !path.empty() && ::access(os_path(path).c_str(), R_OK) == 0;
}

bool file_writable(const std::wstring& path) {
  return !path.empty() && ::access(os_path(path).c_str(), W_OK) == 0;
}

bool is_same_file(const std::wstring& a, const std::wstring& b) {
  struct stat sa, sb;
  return stat_of(a, sa) && stat_of(b, sb) && same_file(sa, sb);
}

namespace {

bool refuse(int reason) {
  errno = reason;
  return false;
}

}  // namespace

bool copy_file(const std::wstring& from, const std::wstring& to, bool overwrite) {
  struct stat src, dst;
  if (!stat_of(from, src)) return false;
  if (S_ISDIR(src.st_mode)) return refuse(EISDIR);
  if (stat_of(to, dst)) {
    if (!overwrite) return refuse(EEXIST);
    if (same_file(src, dst)) return refuse(EINVAL);
    if (S_ISDIR(dst.st_mode)) return refuse(EISDIR);
  }
  const int in = open_descriptor(from, O_RDONLY);
  if (in < 0) return false;
  const int out = open_descriptor(to, O_WRONLY | O_CREAT | O_TRUNC, src.st_mode & 0777);
  bool ok = out >= 0 && copy_bytes(in, out);
  const int copy_errno = errno;
  ::close(in);
  if (out >= 0 && ::close(out) != 0 && ok) return false;
  errno = copy_errno;
  return ok;
}

bool move_file(const std::wstring& from, const std::wstring& to, bool overwrite) {
  if (!is_file(from)) return false;
  if (path_exist(to) && (!overwrite || is_directory(to))) return false;
  if (::rename(os_path(from).c_str(), os_path(to).c_str()) == 0) return true;
  if (errno != EXDEV) return false;
  return copy_file(from, to, overwrite) && remove_file(from);
}

bool remove_file(const std::wstring& path) {
  return !path.empty() && !is_directory(path) && ::unlink(os_path(path).c_str()) == 0;
}

bool make_directory(const std::wstring& path) {
  return !path.empty() && ::mkdir(os_path(path).c_str(), 0777) == 0;
}

bool make_path(const std::wstring& path) {
  if (path.empty()) return false;
  std::wstring level = (path[0] == L'\\' || path[0] == L'/') ? L"/" : L"";
  std::wstring part;
  for (size_t i = 0; i <= path.size(); ++i) {
    if (i < path.size() && path[i] != L'\\' && path[i] != L'/') {
      part += path[i];
      continue;
    }
    if (part.empty()) continue;
    level += part + L'/';
    if (!is_directory(level)) make_directory(level);
    part.clear();
  }
  return is_directory(path);
}

bool copy_directory(const std::wstring& from, const std::wstring& to) {
  if (!is_directory(from)) return false;
  // Listed before the target is made, so that a target inside the source is not copied into itself.
  const std::vector<std::wstring> names = entries(from);
  if (!is_directory(to) && !make_directory(to)) return false;
  bool ok = true;
  for (const std::wstring& name : names) {
    const std::wstring src = combine(from, name);
    const std::wstring dst = combine(to, name);
    ok = (is_directory(src) ? copy_directory(src, dst) : copy_file(src, dst, true)) && ok;
  }
  return ok;
}

bool move_directory(const std::wstring& from, const std::wstring& to) {
  if (!is_directory(from) || path_exist(to)) return false;
  if (::rename(os_path(from).c_str(), os_path(to).c_str()) == 0) return true;
  if (errno != EXDEV) return false;
  return copy_directory(from, to) && remove_directory(from);
}

bool remove_directory(const std::wstring& path) {
  struct stat st;
  if (path.empty() || ::lstat(os_path(path).c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) return false;
  bool ok = true;
  for (const std::wstring& name : entries(path)) ok = remove_path(combine(path, name)) && ok;
  return ::rmdir(os_path(path).c_str()) == 0 && ok;
}

bool remove_path(const std::wstring& path) {
  struct stat st;
  if (path.empty() || ::lstat(os_path(path).c_str(), &st) != 0) return false;
  if (S_ISDIR(st.st_mode)) return remove_directory(path);
  return ::unlink(os_path(path).c_str()) == 0;  // a file, or a link that is not followed
}

std::vector<std::wstring> find(const std::wstring& directory, const std::wstring& pattern, unsigned flags) {
  std::vector<std::wstring> found;
  find_internal(directory, pattern.empty() ? L"*" : pattern, flags, found);
  return found;
}

std::vector<std::wstring> find(const std::wstring& pattern, unsigned flags) {
  return find(directory(pattern), filename(pattern), flags);
}

std::wstring current_path() {
  std::string buf(4096, '\0');
  while (!::getcwd(buf.data(), buf.size())) {
    if (errno != ERANGE || buf.size() > (1u << 20)) return std::wstring();
    buf.resize(buf.size() * 2);
  }
  return vx::strconv::utf8_to_wide(buf.c_str());
}

std::wstring username() {
  if (const passwd* pw = ::getpwuid(::geteuid())) return vx::strconv::utf8_to_wide(pw->pw_name);
  return env_or("USER", std::wstring());
}

std::wstring hostname() {
  char buf[256] = {};
  if (::gethostname(buf, sizeof buf - 1) != 0) return std::wstring();
  return vx::strconv::utf8_to_wide(buf);
}

std::wstring temp_directory() {
  return include_directory_separator(env_or("TMPDIR", L"/tmp"));
}

std::wstring temp_filename(const std::wstring& directory, const std::wstring& prefix) {
  const std::wstring pattern =
      combine(directory.empty() ? L"." : directory, prefix.substr(0, 3) + L"XXXXXX.tmp");
  std::string name = os_path(pattern);
  const int fd = ::mkstemps(name.data(), 4);
  if (fd < 0) return std::wstring();
  ::close(fd);
  // The caller's own form of the folder, with the name that was made.
  return change_filename(pattern, filename(vx::strconv::utf8_to_wide(name)));
}

std::wstring real_path(const std::wstring& path) {
  char* resolved = path.empty() ? nullptr : ::realpath(os_path(path).c_str(), nullptr);
  if (!resolved) return path;
  std::wstring out = vx::strconv::utf8_to_wide(resolved);
  std::free(resolved);
  return out;
}

int create_beside(const std::wstring& path, std::wstring& temp) {
  static unsigned counter = 0;
  const std::wstring stem = change_filename(path, L"." + filename(path) + L"." + std::to_wstring(::getpid()));
  for (int attempt = 0; attempt < 1000; ++attempt) {
    temp = stem + L"." + std::to_wstring(++counter) + L".tmp";
    const int fd = open_descriptor(temp, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

}  // namespace vx::filesystem
