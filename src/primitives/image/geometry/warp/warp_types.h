#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_TYPES_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_TYPES_H

// What the warps, the rotation and their row kernels share: the type code that names sample
// depth and layout, the interpolation word, the rows job handed to a row kernel, and the
// number conversions whose rounding the results depend on.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// A type code is a depth code plus a layout code.
constexpr int kDepth8u = 0;
constexpr int kDepth32f = 8;
constexpr int kDepth16u = 16;
constexpr int kDepth64f = 24;

constexpr int kLayoutC1 = 0;
constexpr int kLayoutC3 = 1;
constexpr int kLayoutAC4 = 2;
constexpr int kLayoutP3 = 3;
constexpr int kLayoutC4 = 4;
constexpr int kLayoutP4 = 5;

constexpr int kType8uC1 = kDepth8u + kLayoutC1;
constexpr int kType8uC4 = kDepth8u + kLayoutC4;
constexpr int kType16uC4 = kDepth16u + kLayoutC4;

constexpr int layoutOf(int type) { return type & 7; }
constexpr int depthOf(int type) { return type & ~7; }
// Index of a kernel table row: layout code plus 6 times the depth index (depth code / 8).
constexpr int kernelRowOf(int type) { return layoutOf(type) + 6 * (depthOf(type) / 8); }

// The interpolation word: the filter in the low bits, the smooth-edge flag in the top bit.
constexpr unsigned kSmoothEdgeFlag = 0x80000000u;
QV_INLINE unsigned filterOf(int interpolation) { return static_cast<unsigned>(interpolation) & ~kSmoothEdgeFlag; }
QV_INLINE bool smoothsEdges(int interpolation) { return (static_cast<unsigned>(interpolation) & kSmoothEdgeFlag) != 0; }

// One warp job for a row kernel: the destination rows firstRow..lastRow, each with its span of
// columns [spans[2i], spans[2i+1]] (an empty span has first > last), the inverse map from
// destination to source, and the source's last column and row.
struct WarpRows {
  const Ipp8u* src;  // the source image's first pixel; source coordinates are absolute
  int srcStep;
  Ipp8u* dst;  // the destination row firstRow; destination columns are absolute
  int dstStep;
  int firstRow, lastRow;
  const int* spans;
  double inverse[9];  // affine: m0..m5; perspective: i0..i8
  int limitX, limitY;
  float* scratch;  // two float arrays of the destination region's width: x, then y
};

using WarpRowKernel = void (*)(const WarpRows& job);

// Samples of a caller's image, read and written whole whatever the address's alignment (16-bit
// images need not be aligned to 2 bytes).
template <typename Sample>
QV_INLINE Sample loadSample(const Sample* p) {
  Sample v;
  __builtin_memcpy(&v, p, sizeof v);
  return v;
}

template <typename Sample>
QV_INLINE void storeSample(Sample* p, Sample v) {
  __builtin_memcpy(p, &v, sizeof v);
}

// Conversions as the processor makes them: truncation toward zero (out of range, INT_MIN).
// Rounding to nearest is roundToInt of the tier helpers.
QV_INLINE int truncToInt(double v) { return _mm_cvttsd_si32(_mm_set_sd(v)); }
QV_INLINE int truncToInt(float v) { return _mm_cvttss_si32(_mm_set_ss(v)); }

QV_INLINE double floorOf(double v) { return __builtin_floor(v); }
QV_INLINE double ceilOf(double v) { return __builtin_ceil(v); }
QV_INLINE double absOf(double v) { return __builtin_fabs(v); }

// The singular-map test of the warp drivers on the 2 x 2 part of the map.
QV_INLINE bool isNearlySingular(double c0, double c1, double c3, double c4) {
  const double p = c0 * c4;
  const double q = c1 * c3;
  if (absOf(p) <= 1e-200) return absOf(q) <= 1e-10;
  return absOf((p - q) / p) <= 1e-10;
}

}  // namespace QV_TIER

#endif
