#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SPEC_LANCZOS_KERNELS_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SPEC_LANCZOS_KERNELS_H

// The two passes of the Lanczos resize, for 4 taps (2 lobes) and 6 taps (3 lobes). Products of a
// weight and a sample are summed in one fixed grouping, on every road and in the edge zones:
// (t0 + t1) + (t2 + t3) for 4 taps, ((t0 + t1) + (t2 + t3)) + (t4 + t5) for 6.

#include "primitives/image/resize/spec/sample_vectors.h"

namespace QV_TIER {

QV_INLINE Ipp32f sumOfTaps(const Ipp32f* t, int taps) {
  const Ipp32f four = (t[0] + t[1]) + (t[2] + t[3]);
  return taps == 4 ? four : four + (t[4] + t[5]);
}

QV_INLINE __m128 addLanes(__m128 a, __m128 b) { return _mm_add_ps(a, b); }
#if QV_TIER_LEVEL >= 4
QV_INLINE __m256 addLanes(__m256 a, __m256 b) { return _mm256_add_ps(a, b); }
#endif

template <typename V>
QV_INLINE V groupedSum(const V* t, int taps) {
  const V four = addLanes(addLanes(t[0], t[1]), addLanes(t[2], t[3]));
  return taps == 4 ? four : addLanes(four, addLanes(t[4], t[5]));
}

// ownRow4Lanczos2 / ownRow4Lanczos3: pixel i of out sums weights[Taps * i + k] times the source
// pixel k - (Taps / 2 - 1) places from row + columns[i], for all four samples at once.
template <typename T, int Taps>
QV_INLINE void ownRow4Lanczos(const T* row, const Ipp32s* columns, const Ipp32f* weights, int count, Ipp32f* out) {
  constexpr int kBefore = Taps / 2 - 1;
  int i = 0;
#if QV_TIER_LEVEL >= 4
  for (; i + 2 <= count; i += 2) {
    const T* a = row + columns[i] - 4 * kBefore;
    const T* b = row + columns[i + 1] - 4 * kBefore;
    prefetchAhead(a);
    const Ipp32f* wa = weights + Taps * i;
    const Ipp32f* wb = wa + Taps;
    __m256 terms[Taps];
    for (int k = 0; k < Taps; ++k)
      terms[k] = _mm256_mul_ps(broadcastPair(wa[k], wb[k]), pixelPairToFloats(a + 4 * k, b + 4 * k));
    _mm256_store_ps(out + 4 * i, groupedSum(terms, Taps));
  }
#endif
  for (; i < count; ++i) {
    const T* p = row + columns[i] - 4 * kBefore;
    const Ipp32f* w = weights + Taps * i;
    __m128 terms[Taps];
    for (int k = 0; k < Taps; ++k) terms[k] = _mm_mul_ps(_mm_set1_ps(w[k]), pixelToFloats(p + 4 * k));
    _mm_store_ps(out + 4 * i, groupedSum(terms, Taps));
  }
}

// ownColLanczos2 / ownColLanczos3: sample s of out sums weights[k] times rows[k][s], rounded and
// saturated; count pixels.
template <typename T, int Taps>
QV_INLINE void ownColLanczos(const Ipp32f* const* rows, const Ipp32f* weights, int count, T* out) {
  int i = 0;
#if QV_TIER_LEVEL >= 4
  __m256 w8[Taps];
  for (int k = 0; k < Taps; ++k) w8[k] = _mm256_set1_ps(weights[k]);
  for (; i + 4 <= count; i += 4) {
    __m256 halves[2];
    for (int h = 0; h < 2; ++h) {
      __m256 terms[Taps];
      for (int k = 0; k < Taps; ++k) terms[k] = _mm256_mul_ps(w8[k], _mm256_load_ps(rows[k] + 4 * i + 8 * h));
      halves[h] = groupedSum(terms, Taps);
    }
    storeRoundedPixels4(out + 4 * i, halves[0], halves[1]);
  }
#endif
  __m128 w4[Taps];
  for (int k = 0; k < Taps; ++k) w4[k] = _mm_set1_ps(weights[k]);
  auto pixel = [&](int p) {
    __m128 terms[Taps];
    for (int k = 0; k < Taps; ++k) terms[k] = _mm_mul_ps(w4[k], _mm_load_ps(rows[k] + 4 * p));
    return groupedSum(terms, Taps);
  };
  for (; i + 4 <= count; i += 4) storeRoundedPixels4(out + 4 * i, pixel(i), pixel(i + 1), pixel(i + 2), pixel(i + 3));
  for (; i < count; ++i) storeRoundedPixel(out + 4 * i, pixel(i));
}

}  // namespace QV_TIER

#endif
