#ifndef QV_PRIMITIVES_IMAGE_PIXEL_COMPOSE_ALPHA_LANES_H
#define QV_PRIMITIVES_IMAGE_PIXEL_COMPOSE_ALPHA_LANES_H

// The arithmetic of composition on two pixels held as eight 16-bit lanes (c0 c1 c2 alpha,
// twice). Every product is the scaled product M(x, y) = (p + 1 + (p >> 8)) >> 8 with p = x * y,
// which stands for p / 255 without a division; sums are left in 16 bits (at most 510) and are
// saturated to 255 when the lanes are packed back to bytes.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

enum class Composition { kOver, kIn, kOut, kAtop, kXor, kPlus };

QV_INLINE __m128i scaledProduct(__m128i x, __m128i y) {
  const __m128i p = _mm_mullo_epi16(x, y);
  const __m128i rounded = _mm_add_epi16(_mm_add_epi16(p, _mm_set1_epi16(1)), _mm_srli_epi16(p, 8));
  return _mm_srli_epi16(rounded, 8);
}

// The alpha lane (3 of each pixel) spread over the pixel's four lanes.
QV_INLINE __m128i spreadAlpha(__m128i lanes) { return _mm_shufflehi_epi16(_mm_shufflelo_epi16(lanes, 0xFF), 0xFF); }

QV_INLINE __m128i alphaLanes() { return _mm_set_epi16(-1, 0, 0, 0, -1, 0, 0, 0); }

// factor with its alpha lanes replaced by value (0 or 255).
QV_INLINE __m128i withAlphaLane(__m128i factor, short value) {
  const __m128i mask = alphaLanes();
  return _mm_or_si128(_mm_andnot_si128(mask, factor), _mm_and_si128(mask, _mm_set1_epi16(value)));
}

QV_INLINE __m128i complement(__m128i lanes) { return _mm_sub_epi16(_mm_set1_epi16(255), lanes); }

// Premultiplies the colour lanes by the pixel's alpha; the alpha lane is multiplied by 255,
// which keeps it as it is.
QV_INLINE __m128i premultiplied(__m128i lanes, __m128i alpha) {
  return scaledProduct(lanes, withAlphaLane(alpha, 255));
}

// Composes the lanes of source 1 (s1) and source 2 (s2); the result is premultiplied.
template <Composition kType, bool kPremultiplied>
QV_INLINE __m128i composeLanes(__m128i s1, __m128i s2) {
  const __m128i a = spreadAlpha(s1);
  const __m128i b = spreadAlpha(s2);
  if (!kPremultiplied) {
    s1 = premultiplied(s1, a);
    s2 = premultiplied(s2, b);
  }
  switch (kType) {
    case Composition::kOver:
      return _mm_add_epi16(s1, scaledProduct(complement(a), s2));
    case Composition::kIn:
      return scaledProduct(b, s1);
    case Composition::kOut:
      return scaledProduct(complement(b), s1);
    case Composition::kAtop:
      // The alpha lane comes out as M(0, A) + M(255, B) = B.
      return _mm_add_epi16(scaledProduct(withAlphaLane(b, 0), s1),
                           scaledProduct(withAlphaLane(complement(a), 255), s2));
    case Composition::kXor:
      return _mm_add_epi16(scaledProduct(complement(b), s1), scaledProduct(complement(a), s2));
    case Composition::kPlus:
      return _mm_add_epi16(s1, s2);
  }
  return s1;
}

}  // namespace QV_TIER

#endif
