// Locations handed to the tests by CTest through the environment.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#ifndef VXK_TEST_DATA_DEFAULT
#define VXK_TEST_DATA_DEFAULT "tests/data"
#endif
#ifndef VXK_TEST_TMP_DEFAULT
#define VXK_TEST_TMP_DEFAULT "/tmp"
#endif
#ifndef VXK_BIN_DIR_DEFAULT
#define VXK_BIN_DIR_DEFAULT "."
#endif

namespace vxk_test {

inline std::string env_or(const char* name, const char* fallback) {
  const char* v = std::getenv(name);
  return v && *v ? std::string(v) : std::string(fallback);
}

// Folder of the checked-in test data (tests/data).
inline std::filesystem::path data_dir() {
  return env_or("VXK_TEST_DATA", VXK_TEST_DATA_DEFAULT);
}

// A fresh, empty scratch folder for one test; the name should be unique to the test.
inline std::filesystem::path scratch_dir(const std::string& name) {
  std::filesystem::path p = std::filesystem::path(env_or("VXK_TEST_TMP", VXK_TEST_TMP_DEFAULT)) / name;
  std::filesystem::remove_all(p);
  std::filesystem::create_directories(p);
  return p;
}

// Folder of the built programs (vxk and friends).
inline std::filesystem::path bin_dir() {
  return env_or("VXK_BIN_DIR", VXK_BIN_DIR_DEFAULT);
}

}  // namespace vxk_test
