#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SPEC_HALVING_KERNELS_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SPEC_HALVING_KERNELS_H

// The linear resize of an exact halving on both axes, with integer sums. There every fraction
// is 0.5 and each destination pixel stands on the centre of a 2 x 2 block of source pixels a, b
// (upper row) and c, d (lower row). In f32, p0 + (p1 - p0) * 0.5 is (p0 + p1) / 2 exactly for
// samples of up to 16 bits, and the vertical pass then gives (a + b + c + d) / 4 exactly; its
// rounding to nearest even is (s + 1 + ((s >> 2) & 1)) >> 2 of the sum s. So these kernels write
// the samples of the two float passes, without the passes.

#include "primitives/image/resize/spec/sample_vectors.h"

namespace QV_TIER {

QV_INLINE uint32_t quarterRoundedToEven(uint32_t sum) { return (sum + 1 + ((sum >> 2) & 1)) >> 2; }

// The same on 16-bit or 32-bit lanes.
QV_INLINE __m128i quarterRoundedToEvenWords(__m128i sum) {
  const __m128i odd = _mm_and_si128(_mm_srli_epi16(sum, 2), _mm_set1_epi16(1));
  return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(sum, _mm_set1_epi16(1)), odd), 2);
}

QV_INLINE __m128i quarterRoundedToEvenDwords(__m128i sum) {
  const __m128i odd = _mm_and_si128(_mm_srli_epi32(sum, 2), _mm_set1_epi32(1));
  return _mm_srli_epi32(_mm_add_epi32(_mm_add_epi32(sum, _mm_set1_epi32(1)), odd), 2);
}

// Sums of the two pixels of each pair in 16 bytes of 8-bit pixels (four pixels), per channel:
// eight 16-bit lanes, the first pair's four channels, then the second's.
QV_INLINE __m128i pairSums8u(__m128i pixels) {
#if QV_TIER_LEVEL >= 2
  const __m128i channelPairs = _mm_setr_epi8(0, 4, 1, 5, 2, 6, 3, 7, 8, 12, 9, 13, 10, 14, 11, 15);
  return _mm_maddubs_epi16(_mm_shuffle_epi8(pixels, channelPairs), _mm_set1_epi8(1));
#else
  const __m128i zero = _mm_setzero_si128();
  const __m128i first = _mm_unpacklo_epi8(pixels, zero), second = _mm_unpackhi_epi8(pixels, zero);
  return _mm_add_epi16(_mm_unpacklo_epi64(first, second), _mm_unpackhi_epi64(first, second));
#endif
}

// Destination pixels from count 2 x 2 blocks of the rows upper and lower.
QV_INLINE void ownHalveRow4Linear(const Ipp8u* upper, const Ipp8u* lower, int count, Ipp8u* out) {
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const Ipp8u* a = upper + 8 * i;
    const Ipp8u* c = lower + 8 * i;
    prefetchAhead(a);
    prefetchAhead(c);
    const __m128i first = _mm_add_epi16(pairSums8u(loadBlock(a)), pairSums8u(loadBlock(c)));
    const __m128i second = _mm_add_epi16(pairSums8u(loadBlock(a + 16)), pairSums8u(loadBlock(c + 16)));
    storeBlock(out + 4 * i, _mm_packus_epi16(quarterRoundedToEvenWords(first), quarterRoundedToEvenWords(second)));
  }
  for (; i < count; ++i)
    for (int s = 0; s < 4; ++s) {
      const Ipp8u* a = upper + 8 * i + s;
      const Ipp8u* c = lower + 8 * i + s;
      out[4 * i + s] = static_cast<Ipp8u>(quarterRoundedToEven(uint32_t{a[0]} + a[4] + c[0] + c[4]));
    }
}

// The same for 16-bit pixels: 16 bytes hold one pair; the sums take 32-bit lanes.
QV_INLINE __m128i pairSums16u(__m128i pixels) {
  const __m128i zero = _mm_setzero_si128();
  return _mm_add_epi32(_mm_unpacklo_epi16(pixels, zero), _mm_unpackhi_epi16(pixels, zero));
}

QV_INLINE void ownHalveRow4Linear(const Ipp16u* upper, const Ipp16u* lower, int count, Ipp16u* out) {
  int i = 0;
  for (; i + 2 <= count; i += 2) {
    const Ipp16u* a = upper + 8 * i;
    const Ipp16u* c = lower + 8 * i;
    const __m128i first = _mm_add_epi32(pairSums16u(loadBlock(a)), pairSums16u(loadBlock(c)));
    const __m128i second = _mm_add_epi32(pairSums16u(loadBlock(a + 8)), pairSums16u(loadBlock(c + 8)));
    storeBlock(out + 4 * i, packUnsignedWords(quarterRoundedToEvenDwords(first), quarterRoundedToEvenDwords(second)));
  }
  for (; i < count; ++i)
    for (int s = 0; s < 4; ++s) {
      const Ipp16u* a = upper + 8 * i + s;
      const Ipp16u* c = lower + 8 * i + s;
      out[4 * i + s] = static_cast<Ipp16u>(quarterRoundedToEven(uint32_t{a[0]} + a[4] + c[0] + c[4]));
    }
}

}  // namespace QV_TIER

#endif
