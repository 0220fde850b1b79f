#include "support/mem_main.h"

#include <cstdlib>

#include "support/env.h"

void* Tvx_mem_main::mem_calloc(size_t count, size_t size) {
  void* block = std::calloc(count, size);
  if (!block) err_alloc(count * size);
  return block;
}

void* Tvx_mem_main::mem_realloc(void* pointer, size_t size) {
  if (size == 0) {
    std::free(pointer);
    return nullptr;
  }
  void* block = std::realloc(pointer, size);
  if (!block) err_alloc(size);
  return block;
}

void Tvx_mem_main::free_block(void* pointer) {
  if (pointer) std::free(pointer);
}

// The message prints the size by "%d", as an int.
void Tvx_mem_main::err_alloc(size_t size) {
  Tvx_env_main::error_rc(10, 0, static_cast<int>(size));
}
