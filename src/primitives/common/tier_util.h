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

// Floats to integers as the processor converts them under its default mode: to nearest, ties to
// even. Out of range, they give INT_MIN.
QV_INLINE int roundToInt(double v) { return _mm_cvtsd_si32(_mm_set_sd(v)); }
QV_INLINE int roundToInt(float v) { return _mm_cvtss_si32(_mm_set_ss(v)); }

// One float rounded that way and saturated to the range of a sample.
QV_INLINE Ipp8u roundedSample8u(Ipp32f value) {
  const int rounded = roundToInt(value);
  return static_cast<Ipp8u>(rounded < 0 ? 0 : (rounded > 255 ? 255 : rounded));
}
QV_INLINE Ipp16u roundedSample16u(Ipp32f value) {
  const int rounded = roundToInt(value);
  return static_cast<Ipp16u>(rounded < 0 ? 0 : (rounded > 65535 ? 65535 : rounded));
}

// Eight 32-bit integers saturated to unsigned 16 bits, low half first.
QV_INLINE __m128i packUnsignedWords(__m128i low, __m128i high) {
#if QV_TIER_LEVEL >= 3
  return _mm_packus_epi32(low, high);
#else
  // Shifted into the signed range, packed with signed saturation, and shifted back.
  const __m128i bias = _mm_set1_epi32(32768);
  const __m128i packed = _mm_packs_epi32(_mm_sub_epi32(low, bias), _mm_sub_epi32(high, bias));
  return _mm_xor_si128(packed, _mm_set1_epi16(static_cast<short>(0x8000)));
#endif
}

}  // namespace QV_TIER

#endif
