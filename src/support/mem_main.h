// The allocator front of the C-style containers: a failed allocation is reported through the
// environment ("Not enough memory. Size to alloc: %d") and answered with null.
#pragma once

#include <cstddef>

class Tvx_mem_main {
 public:
  // A zeroed block, or null after the report.
  static void* mem_calloc(size_t count, size_t size);
  // Size 0 frees and gives null; otherwise reallocates, and on failure reports and gives null (the old
  // block is then still the caller's).
  static void* mem_realloc(void* pointer, size_t size);
  // Frees a non-null block and nulls the pointer.
  template <typename T>
  static void free_and_null(T*& pointer) {
    free_block(pointer);
    pointer = nullptr;
  }
  static void err_alloc(size_t size);

 private:
  static void free_block(void* pointer);
};
