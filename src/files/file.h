// Tvx_file: the library's one wrapper of a binary file. Failures are not returned by read and write;
// they are reported through the environment with the texts of the message table, each with the file's
// name and the system's reason. The file also counts its failures, so that a caller that must not
// report success after a lost write can ask.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

class Tvx_file {
 public:
  Tvx_file() = default;
  ~Tvx_file();
  Tvx_file(const Tvx_file&) = delete;
  Tvx_file& operator=(const Tvx_file&) = delete;

  // Narrow paths are UTF-8, the file system's own encoding.
  static std::wstring widen_path(const char* path);

  int open(const char* path, bool read_only);
  int open(const std::wstring& path, bool read_only);
  int create(const char* path);
  int create(const std::wstring& path);
  void close();
  bool is_open() const { return f_stream != nullptr; }
  const std::wstring& get_name() const { return f_name; }

  // A seek flushes what was written before it: a seek that fails is reported as a write error.
  void seek(uint32_t position);
  void seek_from_end(long position);
  uint32_t get_size();
  int read(void* data, uint32_t count);
  int write(const void* data, uint32_t count);

  void err_open();
  void err_read();
  void err_write();

  // Reports through the environment that the file at path is not what its reader needs: "'path' "
  // followed by what, which says what is wrong with it.
  static void report_content(const std::wstring& path, const std::string& what);

  // Failures (open, read, write, seek, close) since the object was made; each has been reported.
  unsigned get_failures() const { return f_failures; }

 private:
  int open_mode(const std::wstring& path, const char* mode);
  void position(long offset, int whence);
  void report(int index, const std::string& reason);
  std::string read_failure_reason() const;

  std::wstring f_name;
  bool f_read_only = false;
  std::FILE* f_stream = nullptr;
  unsigned f_failures = 0;
};
