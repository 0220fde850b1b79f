// Reprojection of text labels: the points at which they stand, the end points of their callouts, and
// the sizes and offsets of their texts, which are lengths in map units and are rescaled.
#pragma once

struct Tvx_text_list_base;

class Tvx_reproj_tld {
 public:
  // The list is changed in place. 0 on success; 1 when the transformation cannot be built, and the
  // list is then untouched. A point that cannot be transformed keeps its source position.
  static int execute(Tvx_text_list_base* list, const wchar_t* src_proj, const wchar_t* dst_proj);
  // A TLD file to another. The destination is written also when the transformation cannot be built:
  // it then receives the source's labels unchanged, and the result is 1. 1 as well when a file
  // cannot be opened.
  static int execute(const wchar_t* src_file, const wchar_t* src_proj, const wchar_t* dst_file,
                     const wchar_t* dst_proj);
  // The same with UTF-8 texts; a null pointer is the empty text.
  static int execute(const char* src_file, const char* src_proj, const char* dst_file, const char* dst_proj);
};

// Reserved: an operation of the same shape with nothing behind it. Always 1.
class Tvx_reproj_xsp {
 public:
  static int execute(const char* src_file, const char* src_proj, const char* dst_file, const char* dst_proj);
};
