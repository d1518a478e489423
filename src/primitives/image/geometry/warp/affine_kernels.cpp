// Row kernels of the affine warp.

#include "primitives/image/geometry/warp/affine_kernels.h"

#include "primitives/image/geometry/warp/interpolators.h"
#include "primitives/image/geometry/warp/pixel_blend.h"

namespace QV_TIER {
namespace {

// Calls row(out, first, last, x, y) for every non-empty span, with the destination row and the
// source coordinates of the span's first pixel.
template <typename RowFn>
QV_INLINE void walkSpans(const WarpRows& job, RowFn&& row) {
  const double* m = job.inverse;
  double baseX = m[1] * job.firstRow + m[2];
  double baseY = m[4] * job.firstRow + m[5];
  for (int y = job.firstRow; y <= job.lastRow; ++y, baseX += m[1], baseY += m[4]) {
    const int* span = job.spans + 2 * (y - job.firstRow);
    if (span[0] > span[1]) continue;
    row(rowAt(job.dst, job.dstStep, y - job.firstRow), span[0], span[1], m[0] * span[0] + baseX,
        m[3] * span[0] + baseY);
  }
}

template <int PixelBytes>
QV_INLINE const Ipp8u* sourcePixel(const WarpRows& job, int column, int row) {
  return rowAt(job.src, job.srcStep, row) + static_cast<ptrdiff_t>(column) * PixelBytes;
}

template <int PixelBytes>
QV_INLINE void copyPixel(const Ipp8u* from, Ipp8u* to) {
  __builtin_memcpy(to, from, PixelBytes);
}

template <int PixelBytes>
void warpNearest(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans(job, [&](Ipp8u* out, int first, int last, double x, double y) {
    for (int c = first; c <= last; ++c, x += dx, y += dy)
      copyPixel<PixelBytes>(sourcePixel<PixelBytes>(job, truncToInt(x + 0.5), truncToInt(y + 0.5)),
                            out + static_cast<ptrdiff_t>(c) * PixelBytes);
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

void warpLinear8uC4(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  const __m128i bias = _mm_set1_epi32(524288);
  walkSpans(job, [&](Ipp8u* out, int first, int last, double x, double y) {
    for (int c = first; c <= last; ++c, x += dx, y += dy) {
      const int ix = linearIndex(x, job.limitX), iy = linearIndex(y, job.limitY);
      const Ipp8u* top = sourcePixel<4>(job, ix, iy);
      storePixel(out + 4 * c, blendLinear(top, rowAt(top, job.srcStep, 1), linearWeights(fixedFraction(x, ix)),
                                          linearWeights(fixedFraction(y, iy)), bias));
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

void warpLinear8uC1(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans(job, [&](Ipp8u* out, int first, int last, double x, double y) {
    for (int c = first; c <= last; ++c, x += dx, y += dy) {
      const FloatTap tx = floatTap(x, job.limitX), ty = floatTap(y, job.limitY);
      const Ipp8u* top = sourcePixel<1>(job, tx.index, ty.index);
      const Ipp8u* bottom = rowAt(top, job.srcStep, 1);
      const float upper = top[0] + (static_cast<float>(top[1]) - top[0]) * tx.fraction;
      const float lower = bottom[0] + (static_cast<float>(bottom[1]) - bottom[0]) * tx.fraction;
      const int value = truncToInt(upper + (lower - upper) * ty.fraction + 0.5f);
      out[c] = static_cast<Ipp8u>(minOf(maxOf(value, 0), 255));
    }
  });
}

void warpLinear16uC4(const WarpRows& job) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans(job, [&](Ipp8u* out, int first, int last, double x, double y) {
    for (int c = first; c <= last; ++c, x += dx, y += dy) {
      const int ix = linearIndex(x, job.limitX), iy = linearIndex(y, job.limitY);
      const float fx = static_cast<float>(x - ix), fy = static_cast<float>(y - iy);
      const Ipp16u* top = reinterpret_cast<const Ipp16u*>(sourcePixel<8>(job, ix, iy));
      const Ipp16u* bottom = rowAt(top, job.srcStep, 1);
      Ipp16u* to = reinterpret_cast<Ipp16u*>(out + 8 * c);
      for (int k = 0; k < 4; ++k) {
        const float upper = top[k] + (static_cast<float>(top[k + 4]) - top[k]) * fx;
        const float lower = bottom[k] + (static_cast<float>(bottom[k + 4]) - bottom[k]) * fx;
        to[k] = static_cast<Ipp16u>(roundToInt(upper + (lower - upper) * fy));
      }
    }
  });
}

// Cubic: a row's coordinates to the scratch, then the vector interpolator over the row.
template <typename Vector>
QV_INLINE void warpCubic(const WarpRows& job, int pixelBytes, Vector&& interpolate) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans(job, [&](Ipp8u* out, int first, int last, double x, double y) {
    const int count = last - first + 1;
    float* xs = job.scratch;
    float* ys = job.scratch + count;
    for (int i = 0; i < count; ++i, x += dx, y += dy) {
      xs[i] = static_cast<float>(x);
      ys[i] = static_cast<float>(y);
    }
    interpolate(out + static_cast<ptrdiff_t>(first) * pixelBytes, xs, ys, count);
  });
}

void warpCubic8uC1(const WarpRows& job) {
  warpCubic(job, 1, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_8u_C1(job.src, job.srcStep, out, xs, ys, count, -1, -1, job.limitX + 1, job.limitY + 1,
                                   job.limitX, job.limitY);
  });
}

void warpCubic8uC4(const WarpRows& job) {
  warpCubic(job, 4, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_8u_C4(job.src, job.srcStep, out, xs, ys, count, -1, -1, job.limitX + 1, job.limitY + 1,
                                   job.limitX, job.limitY);
  });
}

void warpCubic16uC4(const WarpRows& job) {
  warpCubic(job, 8, [&](Ipp8u* out, const float* xs, const float* ys, int count) {
    ownpi_dInterVectorClip_C_16u_C4(reinterpret_cast<const Ipp16u*>(job.src), job.srcStep,
                                    reinterpret_cast<Ipp16u*>(out), xs, ys, count, -1, -1, job.limitX + 1,
                                    job.limitY + 1, job.limitX, job.limitY);
  });
}

// Catmull-Rom: the indices of the four taps kept within the source, for every pixel.
template <typename Sample, int Channels, typename Point>
QV_INLINE void warpCatmullRom(const WarpRows& job, Point&& point) {
  const double dx = job.inverse[0], dy = job.inverse[3];
  walkSpans(job, [&](Ipp8u* out, int first, int last, double x, double y) {
    for (int c = first; c <= last; ++c, x += dx, y += dy) {
      int xIndex[4], yIndex[4];
      const double tx = x - setIndexCR(job.limitX + 1, x, xIndex);
      const double ty = y - setIndexCR(job.limitY + 1, y, yIndex);
      point(reinterpret_cast<const Sample*>(job.src), job.srcStep,
            reinterpret_cast<Sample*>(out) + static_cast<ptrdiff_t>(c) * Channels, Channels, tx, ty, xIndex, yIndex);
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
