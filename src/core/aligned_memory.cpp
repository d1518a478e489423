// 64-byte aligned blocks over replaceable allocator hooks. The 8 bytes before a block hold the
// address that i_malloc returned; a block does not know its size.

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "qvimage/ippcore.h"

extern "C" {

void* (*i_malloc)(size_t) = malloc;
void* (*i_calloc)(size_t, size_t) = calloc;
void* (*i_realloc)(void*, size_t) = realloc;
void (*i_free)(void*) = free;
Ipp64s i_version = 1;
Ipp64s i_min_version = 0;

QV_API void* ippMalloc(int length) {
  if (length <= 0) return nullptr;
  void* raw = i_malloc(static_cast<size_t>(static_cast<int64_t>(length)) + 72);
  if (raw == nullptr) return nullptr;
  const uintptr_t block = (reinterpret_cast<uintptr_t>(raw) + 71) & ~static_cast<uintptr_t>(63);
  memcpy(reinterpret_cast<void*>(block - 8), &raw, sizeof raw);
  return reinterpret_cast<void*>(block);
}

QV_API void ippFree(void* ptr) {
  if (ptr == nullptr) return;
  void* raw = nullptr;
  memcpy(&raw, static_cast<char*>(ptr) - 8, sizeof raw);
  i_free(raw);
}

}  // extern "C"
