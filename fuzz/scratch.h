// The scratch folder of a fuzz target: the files that it makes of its input are written there. Made once
// for the process under /tmp and removed, with all it holds, when the process ends.
#pragma once

#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

namespace vxk_fuzz {

inline std::string& scratch_made() {
  static std::string folder;
  return folder;
}

inline void remove_scratch() {
  std::error_code ec;
  if (!scratch_made().empty()) std::filesystem::remove_all(scratch_made(), ec);
}

// The folder, "/tmp/vxk_fuzz_<target>_XXXXXX"; "/tmp" itself when none can be made (and then nothing is
// removed at the end).
inline const std::string& scratch_folder(const char* target) {
  static const std::string folder = [target] {
    std::string pattern = std::string("/tmp/vxk_fuzz_") + target + "_XXXXXX";
    if (!mkdtemp(pattern.data())) return std::string("/tmp");
    scratch_made() = pattern;
    std::atexit(remove_scratch);
    return pattern;
  }();
  return folder;
}

// Writes the bytes as the whole file, replacing it.
inline void write_file(const std::string& path, const uint8_t* data, size_t size) {
  if (std::FILE* f = std::fopen(path.c_str(), "wb")) {
    if (size) std::fwrite(data, 1, size, f);
    std::fclose(f);
  }
}

}  // namespace vxk_fuzz
