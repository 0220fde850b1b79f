// Writing one wide text to one file in a named encoding: the small text side files of a shape set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/encodings.h"

namespace vx::detail {

// Has no effect: a file opened here lets other processes read it and nothing else.
enum class lock_mode_t { none };

// A small object around an operating system file handle.
class fileio_win {
 public:
  // Writes larger than this go in blocks of exactly this size.
  static constexpr size_t WRITE_BLOCK = 1073741824;

  explicit fileio_win(std::string line_end = "\r\n") : f_line_end(std::move(line_end)) {}
  ~fileio_win() { close(); }
  fileio_win(const fileio_win&) = delete;
  fileio_win& operator=(const fileio_win&) = delete;

  // Mode as fopen's: "w" creates the file anew (replacing an old one), otherwise it must exist; "+", "w"
  // or "a" give read and write access, anything else read only; "a" moves to the end.
  bool open(const std::wstring& path, const wchar_t* mode, lock_mode_t lock = lock_mode_t::none);
  void close();
  bool is_open() const { return f_handle >= 0; }
  const std::string& line_end() const { return f_line_end; }

  // Bytes written, or -1 when a write fails. A short block stops and gives the running total.
  int64_t _write_bytes(const void* pointer, size_t size) { return write_blocks(pointer, size, WRITE_BLOCK); }
  // The same with another block size, so that the splitting can be seen without gigabytes.
  int64_t write_blocks(const void* pointer, size_t size, size_t block);

 private:
  int f_handle = -1;
  std::string f_line_end;
};

}  // namespace vx::detail

namespace vx::fileio {

// Creates or truncates the file and writes the text converted to the encoding, without a byte order
// mark. Line ends are left as they are. True when every byte went to the file.
bool writeall(const std::wstring& path, vx::strconv::encodings encoding, const std::wstring& text);

}  // namespace vx::fileio
