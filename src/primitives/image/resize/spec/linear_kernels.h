#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SPEC_LINEAR_KERNELS_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SPEC_LINEAR_KERNELS_H

// The two passes of the linear resize. A row pass makes one float row from two taps a pixel;
// a column pass blends two float rows into destination samples. Every lane of every road does
// the same f32 operations in the same order: a + (b - a) * f.

#include "primitives/image/resize/spec/sample_vectors.h"

namespace QV_TIER {

QV_INLINE __m128 blend(__m128 a, __m128 b, __m128 f) { return _mm_add_ps(a, _mm_mul_ps(_mm_sub_ps(b, a), f)); }
#if QV_TIER_LEVEL >= 4
QV_INLINE __m256 blend(__m256 a, __m256 b, __m256 f) { return _mm256_add_ps(a, _mm256_mul_ps(_mm256_sub_ps(b, a), f)); }
#endif

// ownRow4Linear: pixel i of out = p0 + (p1 - p0) * fractions[i], with p0 the source pixel at
// row + columns[i] and p1 the pixel after it. out is aligned to 32 bytes.
template <typename T>
QV_INLINE void ownRow4Linear(const T* row, const Ipp32s* columns, const Ipp32f* fractions, int count, Ipp32f* out) {
  int i = 0;
#if QV_TIER_LEVEL >= 4
  for (; i + 2 <= count; i += 2) {
    const T* a = row + columns[i];
    const T* b = row + columns[i + 1];
    prefetchAhead(a);
    const __m256 left = pixelPairToFloats(a, b);
    const __m256 right = pixelPairToFloats(a + 4, b + 4);
    _mm256_store_ps(out + 4 * i, blend(left, right, broadcastPair(fractions[i], fractions[i + 1])));
  }
#endif
  for (; i < count; ++i) {
    const T* p = row + columns[i];
    _mm_store_ps(out + 4 * i, blend(pixelToFloats(p), pixelToFloats(p + 4), _mm_set1_ps(fractions[i])));
  }
}

// ownColLinear: sample k of out = upper[k] + (lower[k] - upper[k]) * fraction, rounded and
// saturated; count pixels.
template <typename T>
QV_INLINE void ownColLinear(const Ipp32f* upper, const Ipp32f* lower, Ipp32f fraction, int count, T* out) {
  int i = 0;
#if QV_TIER_LEVEL >= 4
  const __m256 f8 = _mm256_set1_ps(fraction);
  for (; i + 4 <= count; i += 4) {
    const Ipp32f* u = upper + 4 * i;
    const Ipp32f* l = lower + 4 * i;
    storeRoundedPixels4(out + 4 * i, blend(_mm256_load_ps(u), _mm256_load_ps(l), f8),
                        blend(_mm256_load_ps(u + 8), _mm256_load_ps(l + 8), f8));
  }
#endif
  const __m128 f = _mm_set1_ps(fraction);
  for (; i + 4 <= count; i += 4) {
    const Ipp32f* u = upper + 4 * i;
    const Ipp32f* l = lower + 4 * i;
    storeRoundedPixels4(
        out + 4 * i, blend(_mm_load_ps(u), _mm_load_ps(l), f), blend(_mm_load_ps(u + 4), _mm_load_ps(l + 4), f),
        blend(_mm_load_ps(u + 8), _mm_load_ps(l + 8), f), blend(_mm_load_ps(u + 12), _mm_load_ps(l + 12), f));
  }
  for (; i < count; ++i)
    storeRoundedPixel(out + 4 * i, blend(_mm_load_ps(upper + 4 * i), _mm_load_ps(lower + 4 * i), f));
}

}  // namespace QV_TIER

#endif
