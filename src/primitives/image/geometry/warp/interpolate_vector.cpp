// The vector interpolators: a row of source points to a row of pixels.

#include "primitives/image/geometry/warp/interpolators.h"
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
    for (int j = 0; j < 4; ++j) sum += static_cast<Sum>(row[j * channels]) * wx[j];
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
      dst[i * Channels + c] = cubicChannel<Sample, Sum>(first + c, srcStep, Channels, wx, wy, maximum);
  }
}

}  // namespace

void ownpi_dInterVector_NN_8_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y, int count,
                                int, int) {
  for (int i = 0; i < count; ++i)
    store32(dst + 4 * i, load32(pixelAt(src, srcStep, roundToInt(x[i]), roundToInt(y[i]), 4)));
}

void ownpi_dInterVector_L_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y, int count,
                                int limitX, int limitY) {
  const __m128i bias = _mm_set1_epi32(33);
  for (int i = 0; i < count; ++i) {
    const LinearTap tx = linearTap(x[i], limitX);
    const LinearTap ty = linearTap(y[i], limitY);
    const Ipp8u* top = pixelAt(src, srcStep, tx.index, ty.index, 4);
    storePixel(dst + 4 * i,
               blendLinear(top, rowAt(top, srcStep, 1), linearWeights(tx.fraction), linearWeights(ty.fraction), bias));
  }
}

void ownpi_dInterVectorClip_C_8u_C1(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,
                                    int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY) {
  cubicVectorScalar<Ipp8u, int, 1>(src, srcStep, dst, x, y, count, lowX, lowY, highX, highY, limitX, limitY, 255);
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
