// Row kernels of the 8-to-16 and 16-to-8 bit conversions.

#include "primitives/image/pixel/arith/scale_kernels.h"

#include "primitives/image/pixel/arith/byte_vectors.h"

namespace QV_TIER {
namespace {

constexpr int kScale16To8Bits = 0x3B7F00FF;  // 255/65535 as f32

QV_INLINE Ipp16u widen(Ipp8u s) { return static_cast<Ipp16u>(s << 8 | s); }

QV_INLINE Ipp8u narrowFast(Ipp16u x) {
  const int t = static_cast<int>(x) - 32768;
  const int u = t - (t >> 8);
  return static_cast<Ipp8u>((u >> 8) + 128);
}

QV_INLINE __m128 scale16To8() { return _mm_castsi128_ps(_mm_set1_epi32(kScale16To8Bits)); }

QV_INLINE Ipp8u narrowAccurate(Ipp16u x) {
  const __m128 product = _mm_mul_ss(_mm_cvtsi32_ss(_mm_setzero_ps(), x), scale16To8());
  const int rounded = _mm_cvtss_si32(product);  // in the current rounding mode
  return static_cast<Ipp8u>(rounded < 0 ? 0 : rounded > 255 ? 255 : rounded);
}

// Channels to do singly before dst + head is 16-aligned; 0 when elements of this size can never
// reach the alignment (an odd address for 2-byte elements).
QV_INLINE size_t headToAlign(const void* dst, size_t elementSize, size_t count) {
  const uintptr_t misalignment = addressOf(dst) & 15;
  if (misalignment % elementSize != 0) return 0;
  return minOf(count, ((16 - misalignment) & 15) / elementSize);
}

QV_INLINE void storeBlockOrStream(void* p, __m128i v, bool streaming) {
  if (streaming)
    streamBlock(p, v);
  else
    storeBlock(p, v);
}

// Eight 16-bit values to (u >> 8) in [-128, 127]; adding 128 is done on the packed bytes.
QV_INLINE __m128i narrowFastWords(__m128i x) {
  const __m128i t = _mm_xor_si128(x, _mm_set1_epi16(static_cast<short>(0x8000)));
  const __m128i u = _mm_sub_epi16(t, _mm_srai_epi16(t, 8));
  return _mm_srai_epi16(u, 8);
}

QV_INLINE __m128i narrowFastBlock(const Ipp16u* src) {
  const __m128i packed = _mm_packs_epi16(narrowFastWords(loadBlock(src)), narrowFastWords(loadBlock(src + 8)));
  return _mm_xor_si128(packed, _mm_set1_epi8(static_cast<char>(0x80)));
}

#if QV_TIER_LEVEL >= 4
// Eight values at a time through 256-bit float arithmetic.
QV_INLINE __m128i narrowAccurateWords(__m128i x) {
  const __m128i zero = _mm_setzero_si128();
  const __m256i wide = _mm256_set_m128i(_mm_unpackhi_epi16(x, zero), _mm_unpacklo_epi16(x, zero));
  const __m256 scale = _mm256_castsi256_ps(_mm256_set1_epi32(kScale16To8Bits));
  const __m256i rounded = _mm256_cvtps_epi32(_mm256_mul_ps(_mm256_cvtepi32_ps(wide), scale));
  return _mm_packs_epi32(_mm256_castsi256_si128(rounded), _mm256_extractf128_si256(rounded, 1));
}
#else
QV_INLINE __m128i narrowAccurateQuad(__m128i x32) {
  return _mm_cvtps_epi32(_mm_mul_ps(_mm_cvtepi32_ps(x32), scale16To8()));
}

QV_INLINE __m128i narrowAccurateWords(__m128i x) {
  const __m128i zero = _mm_setzero_si128();
  return _mm_packs_epi32(narrowAccurateQuad(_mm_unpacklo_epi16(x, zero)),
                         narrowAccurateQuad(_mm_unpackhi_epi16(x, zero)));
}
#endif

QV_INLINE __m128i narrowAccurateBlock(const Ipp16u* src) {
  return _mm_packus_epi16(narrowAccurateWords(loadBlock(src)), narrowAccurateWords(loadBlock(src + 8)));
}

}  // namespace

void owniScale_8u16u_M7(const Ipp8u* src, Ipp16u* dst, size_t count, bool streaming) {
  const size_t head = headToAlign(dst, sizeof(Ipp16u), count);
  const bool aligned = isAligned(dst + head, 16);
  const bool stream = streaming && aligned;
  size_t i = 0;
  for (; i < head; ++i) store16(dst + i, widen(src[i]));
  for (; i + 16 <= count; i += 16) {
    const __m128i bytes = loadBlock(src + i);
    storeBlockOrStream(dst + i, _mm_unpacklo_epi8(bytes, bytes), stream);
    storeBlockOrStream(dst + i + 8, _mm_unpackhi_epi8(bytes, bytes), stream);
  }
  for (; i < count; ++i) store16(dst + i, widen(src[i]));
}

void owniScale_16u8u_M7_Fast(const Ipp16u* src, Ipp8u* dst, size_t count, bool streaming) {
  const size_t head = headToAlign(dst, sizeof(Ipp8u), count);
  size_t i = 0;
  for (; i < head; ++i) dst[i] = narrowFast(load16(src + i));
  for (; i + 16 <= count; i += 16) storeBlockOrStream(dst + i, narrowFastBlock(src + i), streaming);
  for (; i < count; ++i) dst[i] = narrowFast(load16(src + i));
}

void owniScale_16u8u_M7_Accurate(const Ipp16u* src, Ipp8u* dst, size_t count) {
  const size_t head = headToAlign(dst, sizeof(Ipp8u), count);
  size_t i = 0;
  for (; i < head; ++i) dst[i] = narrowAccurate(load16(src + i));
  for (; i + 16 <= count; i += 16) storeBlock(dst + i, narrowAccurateBlock(src + i));
  for (; i < count; ++i) dst[i] = narrowAccurate(load16(src + i));
}

}  // namespace QV_TIER
