#ifndef QV_PRIMITIVES_COMMON_TIER_UTIL_H
#define QV_PRIMITIVES_COMMON_TIER_UTIL_H

// Small helpers shared by the kernels of one tier. Inside the tier namespace, always inlined.

#include <cstddef>
#include <cstdint>

#include "primitives/common/tier.h"

namespace QV_TIER {

#define QV_INLINE inline __attribute__((always_inline))

template <typename T>
QV_INLINE T minOf(T a, T b) {
  return b < a ? b : a;
}

template <typename T>
QV_INLINE T maxOf(T a, T b) {
  return a < b ? b : a;
}

QV_INLINE uintptr_t addressOf(const void* p) { return reinterpret_cast<uintptr_t>(p); }

QV_INLINE bool isAligned(const void* p, uintptr_t alignment) { return (addressOf(p) & (alignment - 1)) == 0; }

// Row r of an image with the given step in bytes.
template <typename T>
QV_INLINE T* rowAt(T* base, int step, int r) {
  return reinterpret_cast<T*>(reinterpret_cast<uintptr_t>(base) + static_cast<intptr_t>(step) * r);
}

// 16-byte blocks: unaligned and aligned loads and stores, and stores that bypass the cache.
QV_INLINE __m128i loadBlock(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
QV_INLINE __m128i loadAlignedBlock(const void* p) { return _mm_load_si128(static_cast<const __m128i*>(p)); }
QV_INLINE void storeBlock(void* p, __m128i v) { _mm_storeu_si128(static_cast<__m128i*>(p), v); }
QV_INLINE void storeAlignedBlock(void* p, __m128i v) { _mm_store_si128(static_cast<__m128i*>(p), v); }
QV_INLINE void streamBlock(void* p, __m128i v) { _mm_stream_si128(static_cast<__m128i*>(p), v); }

// Unaligned loads and stores of 2, 4 and 8 bytes.
QV_INLINE uint16_t load16(const void* p) {
  uint16_t v;
  __builtin_memcpy(&v, p, 2);
  return v;
}
QV_INLINE uint32_t load32(const void* p) {
  uint32_t v;
  __builtin_memcpy(&v, p, 4);
  return v;
}
QV_INLINE uint64_t load64(const void* p) {
  uint64_t v;
  __builtin_memcpy(&v, p, 8);
  return v;
}
QV_INLINE void store16(void* p, uint16_t v) { __builtin_memcpy(p, &v, 2); }
QV_INLINE void store32(void* p, uint32_t v) { __builtin_memcpy(p, &v, 4); }
QV_INLINE void store64(void* p, uint64_t v) { __builtin_memcpy(p, &v, 8); }

}  // namespace QV_TIER

#endif
