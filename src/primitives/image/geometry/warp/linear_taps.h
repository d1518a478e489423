#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_LINEAR_TAPS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_LINEAR_TAPS_H

// The position rule of the 8-bit linear kernels for several points at once: the truncated
// coordinate, one less where it equals the limit, and the fraction times 16384, rounded to
// nearest, at most 16384. Vector conversions truncate and round exactly as the scalar ones,
// so the weights are those of the rule point by point.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// 32-bit lanes held at most 16384.
QV_INLINE __m128i atMost16384(__m128i v) {
  const __m128i limit = _mm_set1_epi32(16384);
#if QV_TIER_LEVEL >= 3
  return _mm_min_epi32(v, limit);
#else
  return _mm_sub_epi32(v, _mm_and_si128(_mm_cmpgt_epi32(v, limit), _mm_sub_epi32(v, limit)));
#endif
}

// Four fractions to four linear weight pairs, (16384 - f) in the low and f in the high half of
// each 32-bit lane.
QV_INLINE __m128i weightPairsOf(__m128i fractions) {
  const __m128i packed = _mm_packs_epi32(_mm_sub_epi32(_mm_set1_epi32(16384), fractions), fractions);
  return _mm_unpacklo_epi16(packed, _mm_srli_si128(packed, 8));
}

// Lane k of v, for a constant k.
template <int K>
QV_INLINE int laneOf(__m128i v) {
  return _mm_cvtsi128_si32(_mm_shuffle_epi32(v, K * 0x55));
}

template <int K>
QV_INLINE __m128i broadcastLane(__m128i v) {
  return _mm_shuffle_epi32(v, K * 0x55);
}

// Two points in double precision. indices: x0, x1, y0, y1; weights: pairs of x0, x1, y0, y1.
struct LinearTaps2 {
  __m128i indices, weights;
};

QV_INLINE LinearTaps2 linearTaps2(__m128d xs, __m128d ys, __m128i limits) {
  __m128i index = _mm_unpacklo_epi64(_mm_cvttpd_epi32(xs), _mm_cvttpd_epi32(ys));
  index = _mm_add_epi32(index, _mm_cmpeq_epi32(index, limits));
  const __m128d scale = _mm_set1_pd(16384.0);
  const __m128d fx = _mm_mul_pd(_mm_sub_pd(xs, _mm_cvtepi32_pd(index)), scale);
  const __m128d fy = _mm_mul_pd(_mm_sub_pd(ys, _mm_cvtepi32_pd(_mm_srli_si128(index, 8))), scale);
  const __m128i fractions = _mm_unpacklo_epi64(_mm_cvtpd_epi32(fx), _mm_cvtpd_epi32(fy));
  return {index, weightPairsOf(atMost16384(fractions))};
}

// Four points in single precision: indices and weight pairs of x, and of y.
struct LinearTaps4 {
  __m128i xIndices, yIndices, xWeights, yWeights;
};

QV_INLINE void linearTaps4Of(__m128 coordinates, __m128i limit, __m128i* indices, __m128i* weights) {
  __m128i index = _mm_cvttps_epi32(coordinates);
  index = _mm_add_epi32(index, _mm_cmpeq_epi32(index, limit));
  const __m128 fraction = _mm_mul_ps(_mm_sub_ps(coordinates, _mm_cvtepi32_ps(index)), _mm_set1_ps(16384.0f));
  *indices = index;
  *weights = weightPairsOf(atMost16384(_mm_cvtps_epi32(fraction)));
}

QV_INLINE LinearTaps4 linearTaps4(const float* x, const float* y, __m128i limitX, __m128i limitY) {
  LinearTaps4 taps;
  linearTaps4Of(_mm_loadu_ps(x), limitX, &taps.xIndices, &taps.xWeights);
  linearTaps4Of(_mm_loadu_ps(y), limitY, &taps.yIndices, &taps.yWeights);
  return taps;
}

// How far ahead along a row the source lines are fetched, in pixels.
constexpr int kLookAhead = 24;

// Fetches the lines of the pixel at (lane 0, lane 1) of position and of the pixel below it. The
// position may lie outside the image: fetching never faults.
QV_INLINE void prefetchTaps(const Ipp8u* src, int srcStep, int pixelBytes, __m128i position) {
  const uintptr_t at = addressOf(src) +
                       static_cast<intptr_t>(_mm_cvtsi128_si32(_mm_srli_si128(position, 4))) * srcStep +
                       static_cast<intptr_t>(_mm_cvtsi128_si32(position)) * pixelBytes;
  _mm_prefetch(reinterpret_cast<const char*>(at), _MM_HINT_T0);
  _mm_prefetch(reinterpret_cast<const char*>(at + static_cast<uintptr_t>(static_cast<intptr_t>(srcStep))), _MM_HINT_T0);
}

}  // namespace QV_TIER

#endif
