// The older narrow path family: paths as narrow UTF-8 texts, pieces kept in static buffers, so that
// every result lasts until the next call. Either "\" or "/" separates folders.
#pragma once

#include <cstdint>
#include <cstdio>

// Longest piece, and longest merged path, that the narrow family handles (buffers hold one more byte
// for the terminator).
constexpr int VX_NARROW_PATH_MAX = 1024;

// Splits a path into drive ("C:"), directory (with its last separator), name, and extension (from the last
// "." after the last separator, dot included). Any output may be null; each holds VX_NARROW_PATH_MAX bytes
// and gets at most VX_NARROW_PATH_MAX - 1 characters.
void vx_split_path(const char* path, char* drive, char* directory, char* name, char* extension);

// The inverse: drive letter and ":", the directory with "\" unless it ends in a separator, the name, and
// the extension with "." unless it has one. `out` holds VX_NARROW_PATH_MAX bytes.
void vx_make_path(char* out, const char* drive, const char* directory, const char* name,
                  const char* extension);

class Tvx_path {
 public:
  static const char* change_file_ext(const char* path, const char* extension);
  static const char* change_file_name(const char* path, const char* name);  // keeps drive and directory
  static const char* get_file_drive(const char* path);
  static const char* get_file_dir(const char* path);
  static const char* get_file_name(const char* path);
  static const char* get_file_ext(const char* path);   // without its dot
  static const char* get_file_path(const char* path);  // drive and directory
  static const char* make_file_path(const char* drive, const char* directory, const char* name,
                                    const char* extension);
  // A fresh name for a temporary file beside the path (the file is made empty).
  static const char* make_tmp_filename(const char* path);

 private:
  static void split(const char* path);
  static char f_path[VX_NARROW_PATH_MAX];
  static char f_buffer[VX_NARROW_PATH_MAX];
  static char f_drive[VX_NARROW_PATH_MAX];
  static char f_dir[VX_NARROW_PATH_MAX];
  static char f_fname[VX_NARROW_PATH_MAX];
  static char f_ext[VX_NARROW_PATH_MAX];
  static char f_tmp_filename[VX_NARROW_PATH_MAX];
};

// Small whole-file operations on narrow paths, by standard streams through the path gate.
class Tvx_file_func {
 public:
  // False if the file exists (opens by "rb"); otherwise whether it can be created by "wb" (the probe
  // file is removed again).
  static bool can_create_new(const char* path);
  static bool can_read(const char* path);
  // 32-bit size; 0 when the file cannot be opened. The stream form keeps the stream's position.
  static uint32_t file_size(const char* path);
  static uint32_t file_size(std::FILE* stream);
  // Copies in blocks of 2048 bytes. Always 0, as callers have always taken it; a file that cannot be
  // opened copies nothing.
  static int copy(const char* from, const char* to);
  // copy, then removal of the source. Always 0.
  static int move(const char* from, const char* to);
  // Cuts or extends (with zero bytes) the file to the size, through a temporary file. 0 on success.
  static int resize(const char* path, uint32_t size);
};
