// Row kernels of the affine warp.

#include "primitives/image/geometry/warp/affine_kernels.h"

#include "primitives/image/geometry/warp/interpolators.h"
#include "primitives/image/geometry/warp/linear_taps.h"
#include "primitives/image/geometry/warp/pixel_blend.h"
#include "primitives/image/geometry/warp/warp_tiles.h"

namespace QV_TIER {
namespace {

constexpr int kSegmentPixels = 64;

// Calls pixels(out, count, x, y) for runs of up to kSegmentPixels pixels of every span, in the
// order of walkTiles; out is the run's first destination pixel and x, y its source coordinates,
// which pixels carries along the run by adding m0 and m3 and leaves at the pixel after it.
template <int PixelBytes, typename Pixels>
QV_INLINE void walkSpans(const WarpRows& job, Pixels&& pixels) {
  const double* m = job.inverse;
  double baseX = m[1] * job.firstRow + m[2];
  double baseY = m[4] * job.firstRow + m[5];
  walkTiles(
      job, kSegmentPixels,
      [&](int, const int* span) {
        const RowCursor cursor{m[0] * span[0] + baseX, m[3] * span[0] + baseY, 0, span[0], span[1]};
        baseX += m[1];
        baseY += m[4];
        return cursor;
      },
      [&](Ipp8u* row, RowCursor& cursor, int count) {
        pixels(row + static_cast<ptrdiff_t>(cursor.next) * PixelBytes, count, cursor.first, cursor.second);
      });
}

template <int PixelBytes>
QV_INLINE const Ipp8u* sourcePixel(const WarpRows& job, int column, int row) {
  return rowAt(job.src, job.srcStep, row) + static_cast<ptrdiff_t>(column) * PixelBytes;
}

template <int PixelBytes>
QV_INLINE void copyPixel(const Ipp8u* from, Ipp8u* to) {
  __builtin_memcpy(to, from, PixelBytes);
}

// Fetches the source lines around the point kLookAhead pixels on along the row.
QV_INLINE void prefetchAhead(const WarpRows& job, int pixelBytes, double x, double y) {
  prefetchTaps(
      job.src, job.srcStep, pixelBytes,
      _mm_setr_epi32(truncToInt(x + kLookAhead * job.inverse[0]), truncToInt(y + kLookAhead * job.inverse[3]), 0, 0));
}

template <int PixelBytes>
void warpNearest(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans<PixelBytes>(job, [&](Ipp8u* out, int count, double& x, double& y) {
    for (int i = 0; i < count; ++i, x += dx, y += dy) {
      prefetchAhead(job, PixelBytes, x, y);
      copyPixel<PixelBytes>(sourcePixel<PixelBytes>(job, truncToInt(x + 0.5), truncToInt(y + 0.5)),
                            out + static_cast<ptrdiff_t>(i) * PixelBytes);
    }
  });
}

// The double-precision position rule of the linear kernels: truncated, one less at the limit.
QV_INLINE int linearIndex(double coordinate, int limit) {
  const int index = truncToInt(coordinate);
  return index == limit ? index - 1 : index;
}

QV_INLINE int fixedFraction(double coordinate, int index) {
  return minOf(roundToInt((coordinate - index) * 16384.0), 16384);
}

// Two pixels a turn: the coordinates stay in one register, carried by the same additions. The
// source lines of the pixel kLookAhead pixels on are fetched early: a turned row meets a new
// source line every few pixels, in an order the processor cannot foresee.
void warpLinear8uC4(const WarpRows& job) {
  const __m128d step = _mm_setr_pd(job.inverse[0], job.inverse[3]);
  const __m128d ahead = _mm_mul_pd(step, _mm_set1_pd(kLookAhead));
  const __m128i limits = _mm_setr_epi32(job.limitX, job.limitX, job.limitY, job.limitY);
  const __m128i bias = _mm_set1_epi32(524288);
  walkSpans<4>(job, [&](Ipp8u* out, int count, double& x, double& y) {
    __m128d at = _mm_setr_pd(x, y);
    int i = 0;
    for (; i + 2 <= count; i += 2) {
      prefetchTaps(job.src, job.srcStep, 4, _mm_cvttpd_epi32(_mm_add_pd(at, ahead)));
      const __m128d next = _mm_add_pd(at, step);
      const LinearTaps2 taps = linearTaps2(_mm_unpacklo_pd(at, next), _mm_unpackhi_pd(at, next), limits);
      at = _mm_add_pd(next, step);
      const Ipp8u* topA = sourcePixel<4>(job, laneOf<0>(taps.indices), laneOf<2>(taps.indices));
      const Ipp8u* topB = sourcePixel<4>(job, laneOf<1>(taps.indices), laneOf<3>(taps.indices));
      blendLinearPair(out + 4 * i, topA, rowAt(topA, job.srcStep, 1), broadcastLane<0>(taps.weights),
                      broadcastLane<2>(taps.weights), topB, rowAt(topB, job.srcStep, 1), broadcastLane<1>(taps.weights),
                      broadcastLane<3>(taps.weights), bias);
    }
    x = _mm_cvtsd_f64(at);
    y = _mm_cvtsd_f64(_mm_unpackhi_pd(at, at));
    if (i < count) {
      const int ix = linearIndex(x, job.limitX), iy = linearIndex(y, job.limitY);
      const Ipp8u* top = sourcePixel<4>(job, ix, iy);
      storePixel(out + 4 * i, blendLinear(top, rowAt(top, job.srcStep, 1), linearWeights(fixedFraction(x, ix)),
                                          linearWeights(fixedFraction(y, iy)), bias));
      x += job.inverse[0];
      y += job.inverse[3];
    }
  });
}

// The float position rule of the one-channel kernel: the coordinate rounded to float first.
struct FloatTap {
  int index;
  float fraction;
};

QV_INLINE FloatTap floatTap(double coordinate, int limit) {
  const float narrowed = static_cast<float>(coordinate);
  int index = truncToInt(narrowed);
  if (index == limit) --index;
  return {index, narrowed - static_cast<float>(index)};
}

QV_INLINE float blendFloat(const Ipp8u* top, const Ipp8u* bottom, float fx, float fy) {
  const float upper = top[0] + (static_cast<float>(top[1]) - top[0]) * fx;
  const float lower = bottom[0] + (static_cast<float>(bottom[1]) - bottom[0]) * fx;
  return upper + (lower - upper) * fy + 0.5f;
}

// The same for four coordinates at once (lanes of one register): truncated, one less at the
// limit, and the fraction left in float.
QV_INLINE __m128 floatFractions(__m128 coordinates, __m128i limit, __m128i* indices) {
  __m128i index = _mm_cvttps_epi32(coordinates);
  index = _mm_add_epi32(index, _mm_cmpeq_epi32(index, limit));
  *indices = index;
  return _mm_sub_ps(coordinates, _mm_cvtepi32_ps(index));
}

// Four pixels a turn: the float blend lane by lane, as the scalar rule computes it.
void warpLinear8uC1(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  const __m128d step = _mm_setr_pd(dx, dy);
  const __m128i limitX = _mm_set1_epi32(job.limitX), limitY = _mm_set1_epi32(job.limitY);
  const int srcStep = job.srcStep;
  walkSpans<1>(job, [&](Ipp8u* out, int count, double& x, double& y) {
    __m128d at = _mm_setr_pd(x, y);
    int i = 0;
    for (; i + 4 <= count; i += 4) {
      prefetchTaps(job.src, srcStep, 1, _mm_cvttpd_epi32(_mm_add_pd(at, _mm_mul_pd(step, _mm_set1_pd(kLookAhead)))));
      const __m128d p1 = _mm_add_pd(at, step), p2 = _mm_add_pd(p1, step), p3 = _mm_add_pd(p2, step);
      const __m128 xs = _mm_movelh_ps(_mm_cvtpd_ps(_mm_unpacklo_pd(at, p1)), _mm_cvtpd_ps(_mm_unpacklo_pd(p2, p3)));
      const __m128 ys = _mm_movelh_ps(_mm_cvtpd_ps(_mm_unpackhi_pd(at, p1)), _mm_cvtpd_ps(_mm_unpackhi_pd(p2, p3)));
      at = _mm_add_pd(p3, step);
      __m128i ix, iy;
      const __m128 fx = floatFractions(xs, limitX, &ix);
      const __m128 fy = floatFractions(ys, limitY, &iy);
      alignas(16) int columns[4], rows[4];
      _mm_store_si128(reinterpret_cast<__m128i*>(columns), ix);
      _mm_store_si128(reinterpret_cast<__m128i*>(rows), iy);
      alignas(16) int p00[4], p01[4], p10[4], p11[4];
      for (int k = 0; k < 4; ++k) {
        const Ipp8u* top = sourcePixel<1>(job, columns[k], rows[k]);
        p00[k] = top[0], p01[k] = top[1], p10[k] = top[srcStep], p11[k] = top[srcStep + 1];
      }
      const __m128 a = _mm_cvtepi32_ps(_mm_load_si128(reinterpret_cast<const __m128i*>(p00)));
      const __m128 b = _mm_cvtepi32_ps(_mm_load_si128(reinterpret_cast<const __m128i*>(p01)));
      const __m128 c = _mm_cvtepi32_ps(_mm_load_si128(reinterpret_cast<const __m128i*>(p10)));
      const __m128 d = _mm_cvtepi32_ps(_mm_load_si128(reinterpret_cast<const __m128i*>(p11)));
      const __m128 upper = _mm_add_ps(a, _mm_mul_ps(_mm_sub_ps(b, a), fx));
      const __m128 lower = _mm_add_ps(c, _mm_mul_ps(_mm_sub_ps(d, c), fx));
      const __m128 value = _mm_add_ps(_mm_add_ps(upper, _mm_mul_ps(_mm_sub_ps(lower, upper), fy)), _mm_set1_ps(0.5f));
      const __m128i words = _mm_packs_epi32(_mm_cvttps_epi32(value), _mm_setzero_si128());
      store32(out + i, static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words))));
    }
    x = _mm_cvtsd_f64(at);
    y = _mm_cvtsd_f64(_mm_unpackhi_pd(at, at));
    for (; i < count; ++i, x += dx, y += dy) {
      const FloatTap tx = floatTap(x, job.limitX), ty = floatTap(y, job.limitY);
      const Ipp8u* top = sourcePixel<1>(job, tx.index, ty.index);
      const int value = truncToInt(blendFloat(top, rowAt(top, srcStep, 1), tx.fraction, ty.fraction));
      out[i] = static_cast<Ipp8u>(minOf(maxOf(value, 0), 255));
    }
  });
}

void warpLinear16uC4(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans<8>(job, [&](Ipp8u* out, int count, double& x, double& y) {
    for (int i = 0; i < count; ++i, x += dx, y += dy) {
      prefetchAhead(job, 8, x, y);
      const int ix = linearIndex(x, job.limitX), iy = linearIndex(y, job.limitY);
      const float fx = static_cast<float>(x - ix), fy = static_cast<float>(y - iy);
      const Ipp16u* top = reinterpret_cast<const Ipp16u*>(sourcePixel<8>(job, ix, iy));
      const Ipp16u* bottom = rowAt(top, job.srcStep, 1);
      Ipp16u* to = reinterpret_cast<Ipp16u*>(out + 8 * i);
      for (int k = 0; k < 4; ++k) {
        const float p00 = loadSample(top + k), p01 = loadSample(top + k + 4);
        const float p10 = loadSample(bottom + k), p11 = loadSample(bottom + k + 4);
        const float upper = p00 + (p01 - p00) * fx;
        const float lower = p10 + (p11 - p10) * fx;
        storeSample(to + k, static_cast<Ipp16u>(roundToInt(upper + (lower - upper) * fy)));
      }
    }
  });
}

// Cubic: the coordinates of a run to the scratch as floats, x then y, then the vector
// interpolator over the run.
template <int PixelBytes, typename Vector>
QV_INLINE void warpCubic(const WarpRows& job, Vector&& interpolate) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans<PixelBytes>(job, [&](Ipp8u* out, int count, double& x, double& y) {
    float* xs = job.scratch;
    float* ys = job.scratch + count;
    for (int i = 0; i < count; ++i, x += dx, y += dy) {
      xs[i] = static_cast<float>(x);
      ys[i] = static_cast<float>(y);
    }
    interpolate(out, xs, ys, count);
  });
}

void warpCubic8uC1(const WarpRows& job) {
  warpCubic<1>(job, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_8u_C1(job.src, job.srcStep, out, xs, ys, count, -1, -1, job.limitX + 1, job.limitY + 1,
                                   job.limitX, job.limitY);
  });
}

void warpCubic8uC4(const WarpRows& job) {
  warpCubic<4>(job, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_8u_C4(job.src, job.srcStep, out, xs, ys, count, -1, -1, job.limitX + 1, job.limitY + 1,
                                   job.limitX, job.limitY);
  });
}

void warpCubic16uC4(const WarpRows& job) {
  warpCubic<8>(job, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_16u_C4(reinterpret_cast<const Ipp16u*>(job.src), job.srcStep,
                                    reinterpret_cast<Ipp16u*>(out), xs, ys, count, -1, -1, job.limitX + 1,
                                    job.limitY + 1, job.limitX, job.limitY);
  });
}

// Catmull-Rom: the indices of the four taps kept within the source, for every pixel.
template <typename Sample, int Channels, typename Point>
QV_INLINE void warpCatmullRom(const WarpRows& job, Point&& point) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans<Channels * sizeof(Sample)>(job, [&](Ipp8u* out, int count, double& x, double& y) {
    for (int i = 0; i < count; ++i, x += dx, y += dy) {
      int xIndex[4], yIndex[4];
      const double tx = x - setIndexCR(job.limitX + 1, x, xIndex);
      const double ty = y - setIndexCR(job.limitY + 1, y, yIndex);
      point(reinterpret_cast<const Sample*>(job.src), job.srcStep,
            reinterpret_cast<Sample*>(out) + static_cast<ptrdiff_t>(i) * Channels, Channels, tx, ty, xIndex, yIndex);
    }
  });
}

void warpCatmullRom8uC1(const WarpRows& job) { warpCatmullRom<Ipp8u, 1>(job, ownpi_dInterPoint_CR_PixelB_8u); }
void warpCatmullRom8uC4(const WarpRows& job) { warpCatmullRom<Ipp8u, 4>(job, ownpi_dInterPoint_CR_PixelB_8u); }
void warpCatmullRom16uC4(const WarpRows& job) { warpCatmullRom<Ipp16u, 4>(job, ownpi_dInterPoint_CR_PixelB_16u); }

struct AffineKernelTable {
  WarpRowKernel entries[24 * 4];
};

constexpr void place(AffineKernelTable& table, int type, WarpRowKernel nearest, WarpRowKernel linear,
                     WarpRowKernel cubic, WarpRowKernel catmullRom) {
  WarpRowKernel* row = table.entries + kernelRowOf(type) * 4;
  row[kColumnNearest] = nearest;
  row[kColumnLinear] = linear;
  row[kColumnCubic] = cubic;
  row[kColumnCatmullRom] = catmullRom;
}

constexpr AffineKernelTable makeAffineKernelTable() {
  AffineKernelTable table{};
  place(table, kType8uC1, warpNearest<1>, warpLinear8uC1, warpCubic8uC1, warpCatmullRom8uC1);
  place(table, kType8uC4, warpNearest<4>, warpLinear8uC4, warpCubic8uC4, warpCatmullRom8uC4);
  place(table, kType16uC4, warpNearest<8>, warpLinear16uC4, warpCubic16uC4, warpCatmullRom16uC4);
  return table;
}

constexpr AffineKernelTable kAffineKernels = makeAffineKernelTable();

}  // namespace

WarpRowKernel ownpi_affineKernel(int type, int column) {
  return kAffineKernels.entries[kernelRowOf(type) * 4 + column];
}

}  // namespace QV_TIER
