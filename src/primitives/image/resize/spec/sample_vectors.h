#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SPEC_SAMPLE_VECTORS_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SPEC_SAMPLE_VECTORS_H

// Four-channel pixels of 8 or 16 bits as four f32 lanes, and back. Widening is exact, and the
// way back rounds to nearest with ties to even (the processor's default mode) and saturates to
// the sample range, whether one sample, one pixel or sixteen samples at a time: every form gives
// the same samples.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// The four samples of a pixel as 32-bit integers.
QV_INLINE __m128i pixelToInts(const Ipp8u* p) {
  const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(load32(p)));
#if QV_TIER_LEVEL >= 3
  return _mm_cvtepu8_epi32(bytes);
#else
  const __m128i zero = _mm_setzero_si128();
  return _mm_unpacklo_epi16(_mm_unpacklo_epi8(bytes, zero), zero);
#endif
}

QV_INLINE __m128i pixelToInts(const Ipp16u* p) {
  const __m128i words = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
#if QV_TIER_LEVEL >= 3
  return _mm_cvtepu16_epi32(words);
#else
  return _mm_unpacklo_epi16(words, _mm_setzero_si128());
#endif
}

template <typename T>
QV_INLINE __m128 pixelToFloats(const T* p) {
  return _mm_cvtepi32_ps(pixelToInts(p));
}

#if QV_TIER_LEVEL >= 4
// Two pixels, the first in the low half.
template <typename T>
QV_INLINE __m256 pixelPairToFloats(const T* first, const T* second) {
  return _mm256_cvtepi32_ps(
      _mm256_insertf128_si256(_mm256_castsi128_si256(pixelToInts(first)), pixelToInts(second), 1));
}

QV_INLINE __m256 broadcastPair(Ipp32f first, Ipp32f second) {
  return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_set1_ps(first)), _mm_set1_ps(second), 1);
}
#endif

// Asks for the source bytes a little ahead of p: the row passes read their source rows once and
// in order, faster than the processor fetches them on its own.
template <typename T>
QV_INLINE void prefetchAhead(const T* p) {
  _mm_prefetch(reinterpret_cast<const char*>(p) + 1024, _MM_HINT_T0);
}

// One sample: rounded as the processor rounds, then saturated.
QV_INLINE void storeRoundedSample(Ipp8u* out, Ipp32f value) { *out = roundedSample8u(value); }
QV_INLINE void storeRoundedSample(Ipp16u* out, Ipp32f value) { *out = roundedSample16u(value); }

// One pixel.
QV_INLINE void storeRoundedPixel(Ipp8u* out, __m128 v) {
  const __m128i words = _mm_packs_epi32(_mm_cvtps_epi32(v), _mm_setzero_si128());
  store32(out, static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words))));
}

QV_INLINE void storeRoundedPixel(Ipp16u* out, __m128 v) {
  const __m128i i = _mm_cvtps_epi32(v);
  _mm_storel_epi64(reinterpret_cast<__m128i*>(out), packUnsignedWords(i, i));
}

// Four pixels: sixteen samples.
QV_INLINE void storeRoundedPixels4(Ipp8u* out, __m128 a, __m128 b, __m128 c, __m128 d) {
  const __m128i low = _mm_packs_epi32(_mm_cvtps_epi32(a), _mm_cvtps_epi32(b));
  const __m128i high = _mm_packs_epi32(_mm_cvtps_epi32(c), _mm_cvtps_epi32(d));
  storeBlock(out, _mm_packus_epi16(low, high));
}

QV_INLINE void storeRoundedPixels4(Ipp16u* out, __m128 a, __m128 b, __m128 c, __m128 d) {
  storeBlock(out, packUnsignedWords(_mm_cvtps_epi32(a), _mm_cvtps_epi32(b)));
  storeBlock(out + 8, packUnsignedWords(_mm_cvtps_epi32(c), _mm_cvtps_epi32(d)));
}

#if QV_TIER_LEVEL >= 4
// Four pixels as two pairs: rounded eight samples at a time, packed in halves.
QV_INLINE void storeRoundedPixels4(Ipp8u* out, __m256 first, __m256 second) {
  const __m256i a = _mm256_cvtps_epi32(first), b = _mm256_cvtps_epi32(second);
  const __m128i low = _mm_packs_epi32(_mm256_castsi256_si128(a), _mm256_extractf128_si256(a, 1));
  const __m128i high = _mm_packs_epi32(_mm256_castsi256_si128(b), _mm256_extractf128_si256(b, 1));
  storeBlock(out, _mm_packus_epi16(low, high));
}

QV_INLINE void storeRoundedPixels4(Ipp16u* out, __m256 first, __m256 second) {
  const __m256i a = _mm256_cvtps_epi32(first), b = _mm256_cvtps_epi32(second);
  storeBlock(out, packUnsignedWords(_mm256_castsi256_si128(a), _mm256_extractf128_si256(a, 1)));
  storeBlock(out + 8, packUnsignedWords(_mm256_castsi256_si128(b), _mm256_extractf128_si256(b, 1)));
}
#endif

}  // namespace QV_TIER

#endif
