// Scratch folders of the support tests: unique to the process, so that two test runs at the same time
// (a normal and a sanitizer build, or two worktrees) never share one, and removed when the process ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "test_paths.h"

namespace support_test {

class scratch_folders {
 public:
  ~scratch_folders() {
    std::error_code ignored;
    for (const auto& p : made_) std::filesystem::remove_all(p, ignored);
  }
  std::filesystem::path make(const std::string& name) {
    made_.push_back(vxk_test::scratch_dir("support_" + name + "_" + std::to_string(::getpid())));
    return made_.back();
  }

 private:
  std::vector<std::filesystem::path> made_;
};

inline std::filesystem::path scratch(const std::string& name) {
  static scratch_folders folders;
  return folders.make(name);
}

}  // namespace support_test
