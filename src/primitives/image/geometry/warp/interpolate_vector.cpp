// The vector interpolators: a row of source points to a row of pixels.

#include "primitives/image/geometry/warp/interpolators.h"
#include "primitives/image/geometry/warp/linear_taps.h"
#include "primitives/image/geometry/warp/pixel_blend.h"
#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {
namespace {

// The linear position rule: the truncated coordinate, one less at the limit, and the fraction
// times 16384, rounded, at most 16384.
struct LinearTap {
  int index;
  int fraction;
};

QV_INLINE LinearTap linearTap(float coordinate, int limit) {
  int index = truncToInt(coordinate);
  if (index == limit) --index;
  const int fraction = roundToInt((coordinate - static_cast<float>(index)) * 16384.0f);
  return {index, minOf(fraction, 16384)};
}

// The cubic position rule: four taps from index, kept inside the source, and t = the offset
// from the first tap times 512, rounded (0..1536 for points inside the source).
struct CubicTap {
  int index;
  int t;
};

QV_INLINE CubicTap cubicTap(float coordinate, int limit) {
  int index = minOf(truncToInt(coordinate), limit - 2);
  if (index > 0) --index;
  const int t = roundToInt((coordinate - static_cast<float>(index)) * 512.0f);
  return {index, minOf(maxOf(t, 0), 1536)};
}

QV_INLINE bool outsideBox(float x, float y, int lowX, int lowY, int highX, int highY) {
  return x < static_cast<float>(lowX) || x > static_cast<float>(highX) || y < static_cast<float>(lowY) ||
         y > static_cast<float>(highY);
}

template <typename Sample>
QV_INLINE const Sample* pixelAt(const Sample* src, int srcStep, int column, int row, int channels) {
  return rowAt(src, srcStep, row) + static_cast<ptrdiff_t>(column) * channels;
}

// The scalar cubic of one channel: rows (sum of sample times weight) >> 8, then the rows
// weighted, 524288 added, >> 20, clamped to 0..maximum.
template <typename Sample, typename Sum>
QV_INLINE Sample cubicChannel(const Sample* first, int srcStep, int channels, const int wx[4], const int wy[4],
                              int maximum) {
  Sum total = 0;
  for (int k = 0; k < 4; ++k) {
    const Sample* row = rowAt(first, srcStep, k);
    Sum sum = 0;
    for (int j = 0; j < 4; ++j) sum += static_cast<Sum>(loadSample(row + j * channels)) * wx[j];
    total += (sum >> 8) * wy[k];
  }
  const Sum value = (total + 524288) >> 20;
  return static_cast<Sample>(minOf<Sum>(maxOf<Sum>(value, 0), maximum));
}

QV_INLINE void cubicWeights(int t, int w[4]) {
  const Ipp16s* entry = ownpi_cubicWeights.entries[t];
  const Ipp16s* mirrored = ownpi_cubicWeights.entries[1536 - t];
  w[0] = entry[0];
  w[1] = entry[1];
  w[2] = mirrored[1];
  w[3] = mirrored[0];
}

template <typename Sample, typename Sum, int Channels>
void cubicVectorScalar(const Sample* src, int srcStep, Sample* dst, const float* x, const float* y, int count, int lowX,
                       int lowY, int highX, int highY, int limitX, int limitY, int maximum) {
  for (int i = 0; i < count; ++i) {
    if (outsideBox(x[i], y[i], lowX, lowY, highX, highY)) continue;
    const CubicTap tx = cubicTap(x[i], limitX);
    const CubicTap ty = cubicTap(y[i], limitY);
    int wx[4], wy[4];
    cubicWeights(tx.t, wx);
    cubicWeights(ty.t, wy);
    const Sample* first = pixelAt(src, srcStep, tx.index, ty.index, Channels);
    for (int c = 0; c < Channels; ++c)
      storeSample(dst + i * Channels + c, cubicChannel<Sample, Sum>(first + c, srcStep, Channels, wx, wy, maximum));
  }
}

}  // namespace

void ownpi_dInterVector_NN_8_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y, int count,
                                int, int) {
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const __m128i columns = _mm_cvtps_epi32(_mm_loadu_ps(x + i));
    const __m128i rows = _mm_cvtps_epi32(_mm_loadu_ps(y + i));
    store32(dst + 4 * i, load32(pixelAt(src, srcStep, laneOf<0>(columns), laneOf<0>(rows), 4)));
    store32(dst + 4 * i + 4, load32(pixelAt(src, srcStep, laneOf<1>(columns), laneOf<1>(rows), 4)));
    store32(dst + 4 * i + 8, load32(pixelAt(src, srcStep, laneOf<2>(columns), laneOf<2>(rows), 4)));
    store32(dst + 4 * i + 12, load32(pixelAt(src, srcStep, laneOf<3>(columns), laneOf<3>(rows), 4)));
  }
  for (; i < count; ++i) store32(dst + 4 * i, load32(pixelAt(src, srcStep, roundToInt(x[i]), roundToInt(y[i]), 4)));
}

// Four points a turn, blended two by two.
void ownpi_dInterVector_L_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y, int count,
                                int limitX, int limitY) {
  const __m128i bias = _mm_set1_epi32(33);
  const __m128i limitsX = _mm_set1_epi32(limitX), limitsY = _mm_set1_epi32(limitY);
  int i = 0;
  for (; i + 4 <= count; i += 4) {
    const LinearTaps4 taps = linearTaps4(x + i, y + i, limitsX, limitsY);
    const Ipp8u* top0 = pixelAt(src, srcStep, laneOf<0>(taps.xIndices), laneOf<0>(taps.yIndices), 4);
    const Ipp8u* top1 = pixelAt(src, srcStep, laneOf<1>(taps.xIndices), laneOf<1>(taps.yIndices), 4);
    const Ipp8u* top2 = pixelAt(src, srcStep, laneOf<2>(taps.xIndices), laneOf<2>(taps.yIndices), 4);
    const Ipp8u* top3 = pixelAt(src, srcStep, laneOf<3>(taps.xIndices), laneOf<3>(taps.yIndices), 4);
    blendLinearPair(dst + 4 * i, top0, rowAt(top0, srcStep, 1), broadcastLane<0>(taps.xWeights),
                    broadcastLane<0>(taps.yWeights), top1, rowAt(top1, srcStep, 1), broadcastLane<1>(taps.xWeights),
                    broadcastLane<1>(taps.yWeights), bias);
    blendLinearPair(dst + 4 * i + 8, top2, rowAt(top2, srcStep, 1), broadcastLane<2>(taps.xWeights),
                    broadcastLane<2>(taps.yWeights), top3, rowAt(top3, srcStep, 1), broadcastLane<3>(taps.xWeights),
                    broadcastLane<3>(taps.yWeights), bias);
  }
  for (; i < count; ++i) {
    const LinearTap tx = linearTap(x[i], limitX);
    const LinearTap ty = linearTap(y[i], limitY);
    const Ipp8u* top = pixelAt(src, srcStep, tx.index, ty.index, 4);
    storePixel(dst + 4 * i,
               blendLinear(top, rowAt(top, srcStep, 1), linearWeights(tx.fraction), linearWeights(ty.fraction), bias));
  }
}

// The sixteen taps of one plane pixel in one register: row sums from multiply-adds of the 16-bit
// samples with w0..w3, then the rows (within 16 bits) with their weights.
void ownpi_dInterVectorClip_C_8u_C1(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,
                                    int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY) {
  const __m128i zero = _mm_setzero_si128();
  for (int i = 0; i < count; ++i) {
    if (outsideBox(x[i], y[i], lowX, lowY, highX, highY)) continue;
    const CubicTap tx = cubicTap(x[i], limitX);
    const CubicTap ty = cubicTap(y[i], limitY);
    const uint32_t near = load32(ownpi_cubicWeights.entries[tx.t]);
    const uint32_t far = load32(ownpi_cubicWeights.entries[1536 - tx.t]);
    const __m128i wx = _mm_set1_epi64x(
        static_cast<long long>(static_cast<uint64_t>(near) | static_cast<uint64_t>((far >> 16) | (far << 16)) << 32));
    const uint32_t nearY = load32(ownpi_cubicWeights.entries[ty.t]);
    const uint32_t farY = load32(ownpi_cubicWeights.entries[1536 - ty.t]);
    const __m128i wy = _mm_setr_epi32(static_cast<int>(nearY), static_cast<int>((farY >> 16) | (farY << 16)), 0, 0);
    const Ipp8u* first = pixelAt(src, srcStep, tx.index, ty.index, 1);
    const __m128i taps = _mm_setr_epi32(
        static_cast<int>(load32(first)), static_cast<int>(load32(rowAt(first, srcStep, 1))),
        static_cast<int>(load32(rowAt(first, srcStep, 2))), static_cast<int>(load32(rowAt(first, srcStep, 3))));
    const __m128i upper = _mm_madd_epi16(_mm_unpacklo_epi8(taps, zero), wx);  // rows 0, 1: two halves each
    const __m128i lower = _mm_madd_epi16(_mm_unpackhi_epi8(taps, zero), wx);  // rows 2, 3
    const __m128i rows = _mm_srai_epi32(
        _mm_add_epi32(_mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(upper), _mm_castsi128_ps(lower), 0x88)),
                      _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(upper), _mm_castsi128_ps(lower), 0xDD))),
        8);
    const __m128i halves = _mm_madd_epi16(_mm_packs_epi32(rows, rows), wy);
    const int total = _mm_cvtsi128_si32(_mm_add_epi32(halves, _mm_shuffle_epi32(halves, 1)));
    dst[i] = static_cast<Ipp8u>(minOf(maxOf((total + 524288) >> 20, 0), 255));
  }
}

void ownpi_dInterVectorClip_C_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,
                                    int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY) {
  for (int i = 0; i < count; ++i) {
    if (outsideBox(x[i], y[i], lowX, lowY, highX, highY)) continue;
    const CubicTap tx = cubicTap(x[i], limitX);
    const CubicTap ty = cubicTap(y[i], limitY);
    const CubicPairs wx = cubicPairs(tx.t);
    const Ipp8u* first = pixelAt(src, srcStep, tx.index, ty.index, 4);
    const __m128i r0 = cubicRow(first, wx);
    const __m128i r1 = cubicRow(rowAt(first, srcStep, 1), wx);
    const __m128i r2 = cubicRow(rowAt(first, srcStep, 2), wx);
    const __m128i r3 = cubicRow(rowAt(first, srcStep, 3), wx);
    storePixel(dst + 4 * i, cubicColumns(r0, r1, r2, r3, cubicPairs(ty.t)));
  }
}

void ownpi_dInterVectorClip_C_16u_C4(const Ipp16u* src, int srcStep, Ipp16u* dst, const float* x, const float* y,
                                     int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY) {
  cubicVectorScalar<Ipp16u, int64_t, 4>(src, srcStep, dst, x, y, count, lowX, lowY, highX, highY, limitX, limitY,
                                        65535);
}

}  // namespace QV_TIER
