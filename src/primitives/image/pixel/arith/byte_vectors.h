#ifndef QV_PRIMITIVES_IMAGE_PIXEL_ARITH_BYTE_VECTORS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_ARITH_BYTE_VECTORS_H

// Byte arithmetic of the pixel kernels, 16 bytes at a time and one byte at a time. The two forms
// of each operation give the same bytes, so a kernel may mix them freely within a row.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// The product of two bytes scaled back to a byte: (p + 1 + (p >> 8)) >> 8, which stands for
// p / 255. The sum stays below 65536, so 16-bit lanes hold it.
QV_INLINE Ipp8u scaledProduct(Ipp8u a, Ipp8u b) {
  const unsigned p = static_cast<unsigned>(a) * b;
  return static_cast<Ipp8u>((p + 1 + (p >> 8)) >> 8);
}

QV_INLINE __m128i scaledProductWords(__m128i a, __m128i b) {
  const __m128i p = _mm_mullo_epi16(a, b);
  const __m128i sum = _mm_add_epi16(_mm_add_epi16(p, _mm_srli_epi16(p, 8)), _mm_set1_epi16(1));
  return _mm_srli_epi16(sum, 8);
}

QV_INLINE __m128i scaledProductBytes(__m128i a, __m128i b) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i low = scaledProductWords(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero));
  const __m128i high = scaledProductWords(_mm_unpackhi_epi8(a, zero), _mm_unpackhi_epi8(b, zero));
  return _mm_packus_epi16(low, high);
}

QV_INLINE Ipp8u absDiff(Ipp8u a, Ipp8u b) { return static_cast<Ipp8u>(a > b ? a - b : b - a); }

QV_INLINE __m128i absDiffBytes(__m128i a, __m128i b) { return _mm_or_si128(_mm_subs_epu8(a, b), _mm_subs_epu8(b, a)); }

// Picks replacement where mask is all ones, keep where it is zero.
QV_INLINE __m128i selectBytes(__m128i mask, __m128i replacement, __m128i keep) {
#if QV_TIER_LEVEL >= 3
  return _mm_blendv_epi8(keep, replacement, mask);
#else
  return _mm_or_si128(_mm_and_si128(mask, replacement), _mm_andnot_si128(mask, keep));
#endif
}

}  // namespace QV_TIER

#endif
