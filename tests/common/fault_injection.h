// Helpers of the tests that make files fail: a file size limit for the length of a scope, a run as a
// user for whom a read-only folder is read-only (root writes in any folder), and byte-for-byte
// snapshots of folders. What the library says of the failures is kept by error_log.h.
#pragma once

#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>

#include "error_log.h"

namespace vxk_test {

// A limit on the size of files this process writes, for the length of the scope: a write past it fails
// with EFBIG (the signal it would raise is ignored meanwhile).
class file_size_limit {
 public:
  explicit file_size_limit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &saved_);
    old_handler_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limited = saved_;
    limited.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limited);
  }
  ~file_size_limit() {
    setrlimit(RLIMIT_FSIZE, &saved_);
    std::signal(SIGXFSZ, old_handler_);
  }
  file_size_limit(const file_size_limit&) = delete;
  file_size_limit& operator=(const file_size_limit&) = delete;

 private:
  rlimit saved_{};
  void (*old_handler_)(int) = nullptr;
};

// A user without privileges: root ignores the modes of folders, so a read-only folder does not stop it.
constexpr uid_t kNobody = 65534;

// True when users other than the owner may pass through every folder above path.
inline bool reachable_by_others(const std::filesystem::path& path) {
  for (auto p = std::filesystem::absolute(path).parent_path(); !p.empty(); p = p.parent_path()) {
    struct stat st {};
    if (::stat(p.c_str(), &st) != 0 || !(st.st_mode & S_IXOTH)) return false;
    if (p == p.parent_path()) break;
  }
  return true;
}

// A fresh folder that the user kNobody can reach: the given one when it can, otherwise a new one under
// the system's temporary folder (a test folder under a home folder closed to others).
inline std::filesystem::path folder_others_reach(const std::filesystem::path& preferred) {
  if (reachable_by_others(preferred)) return preferred;
  std::string pattern = "/tmp/vxk_test_XXXXXX";
  if (!::mkdtemp(pattern.data())) return preferred;
  ::chmod(pattern.c_str(), 0755);
  return pattern;
}

// Runs work in a child process, as kNobody when this process is root, and gives what work returned
// (empty when the child could not drop its privileges or did not end normally).
inline std::string run_unprivileged(const std::function<std::string()>& work) {
  int fds[2];
  if (::pipe(fds) != 0) return {};
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::close(fds[0]);
    const bool dropped = ::geteuid() != 0 ||
                         (::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
    const std::string said = dropped ? work() : std::string();
    const bool sent = ::write(fds[1], said.data(), said.size()) == static_cast<ssize_t>(said.size());
    ::_exit(sent ? 0 : 1);
  }
  ::close(fds[1]);
  std::string said;
  char buffer[4096];
  for (ssize_t n; pid > 0 && (n = ::read(fds[0], buffer, sizeof buffer)) > 0;) said.append(buffer, n);
  ::close(fds[0]);
  int status = 0;
  if (pid <= 0 || ::waitpid(pid, &status, 0) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return {};
  return said;
}

inline std::string file_bytes(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// Every entry under a folder with its bytes ("<folder>" for folders): what a run must leave alone.
inline std::map<std::string, std::string> snapshot(const std::filesystem::path& folder) {
  std::map<std::string, std::string> found;
  for (const auto& e : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string rel = std::filesystem::relative(e.path(), folder).string();
    found[rel] = e.is_directory() ? std::string("<folder>") : file_bytes(e.path());
  }
  return found;
}

}  // namespace vxk_test
