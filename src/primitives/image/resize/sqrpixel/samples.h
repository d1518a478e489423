#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_SAMPLES_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_SAMPLES_H

// Samples of 8 and 16 bits as floats, and floats back to samples: rounded to nearest, ties to
// even, and saturated. The vector and the single forms give the same values, so a kernel may mix
// them within a row.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// One four-channel pixel widened to four floats.
QV_INLINE __m128 widenPixel(const Ipp8u* p) {
#if QV_TIER_LEVEL >= 3
  return _mm_cvtepi32_ps(_mm_cvtepu8_epi32(_mm_cvtsi32_si128(static_cast<int>(load32(p)))));
#else
  const __m128i zero = _mm_setzero_si128();
  const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(load32(p)));
  return _mm_cvtepi32_ps(_mm_unpacklo_epi16(_mm_unpacklo_epi8(bytes, zero), zero));
#endif
}

QV_INLINE __m128 widenPixel(const Ipp16u* p) {
#if QV_TIER_LEVEL >= 3
  return _mm_cvtepi32_ps(_mm_cvtepu16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
#else
  return _mm_cvtepi32_ps(_mm_unpacklo_epi16(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)), _mm_setzero_si128()));
#endif
}

// One sample, rounded and saturated.
QV_INLINE void storeSample(Ipp8u* p, float v) { *p = roundedSample8u(v); }
QV_INLINE void storeSample(Ipp16u* p, float v) { *p = roundedSample16u(v); }

// Eight floats rounded and saturated into eight samples.
QV_INLINE void storeEight(Ipp8u* p, __m128 low, __m128 high) {
  const __m128i words = _mm_packs_epi32(_mm_cvtps_epi32(low), _mm_cvtps_epi32(high));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_packus_epi16(words, words));
}

QV_INLINE void storeEight(Ipp16u* p, __m128 low, __m128 high) {
  storeBlock(p, packUnsignedWords(_mm_cvtps_epi32(low), _mm_cvtps_epi32(high)));
}

// Four floats rounded and saturated into four samples.
QV_INLINE void storeFour(Ipp8u* p, __m128 v) {
  const __m128i words = _mm_packs_epi32(_mm_cvtps_epi32(v), _mm_setzero_si128());
  store32(p, static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words))));
}

QV_INLINE void storeFour(Ipp16u* p, __m128 v) {
  _mm_storel_epi64(reinterpret_cast<__m128i*>(p), packUnsignedWords(_mm_cvtps_epi32(v), _mm_setzero_si128()));
}

QV_INLINE int clampIndex(int i, int last) { return i < 0 ? 0 : i > last ? last : i; }

}  // namespace QV_TIER

#endif
