// Helpers of the tests that make files fail: a file size limit for the length of a scope, and
// byte-for-byte snapshots of folders. What the library says of the failures is kept by error_log.h.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
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
