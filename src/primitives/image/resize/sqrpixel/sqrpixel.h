#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_SQRPIXEL_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_SQRPIXEL_H

// The square-pixel resize of one tier: the geometry that the prelude hands on, the job that the
// engines run, and the engines themselves.

#include <cstdint>

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// What the prelude worked out: the destination pixels to write and how they map to the source.
struct ResizeGeometry {
  int x0, y0;                                     // first destination pixel written, in destination coordinates
  int width, height;                              // pixels written
  double xInverse, yInverse;                      // 1 / factor
  double xOrigin, yOrigin;                        // -shift / factor: the source position of destination 0
  double area;                                    // x factor * y factor for super, else 0
  double xMin, xMax, yMin, yMax;                  // the real destination rectangle, clipped
  Ipp32u kind;                                    // the filter after the small-source rule
  Ipp32u smoothEdge, subpixelEdge, antialiasing;  // the three flags, masked
};

// One resize for an engine: the whole source image, the destination at pixel (x0, y0), the
// sample layout and the caller's scratch.
struct ResizeJob {
  const Ipp8u* src;
  int srcWidth, srcHeight;
  int srcStep;   // bytes
  Ipp8u* dst;    // pixel (x0, y0)
  int dstStep;   // bytes
  int channels;  // 1 or 4, interleaved
  int dataType;  // 0 u8, 1 u16
  Ipp8u* scratch;
  int64_t scratchBytes;  // what ippiResizeGetBufSize asks for these regions
  ResizeGeometry geometry;
};

constexpr Ipp32u kFilterMask = 0x1FFFFFFFu;
constexpr Ipp32u kSmoothEdge = 0x80000000u;
constexpr Ipp32u kSubpixelEdge = 0x40000000u;
constexpr Ipp32u kAntialiasing = 0x20000000u;

bool ownpiIsResizeFilter(Ipp32u filter);
int ownpiEdgeFlagCount(Ipp32u interpolation);

// The scratch bytes of ippiResizeGetBufSize, before its checks and its limit.
int64_t ownpiResizeScratchBytes(IppiRect srcRoi, IppiRect dstRoi, int64_t channels, Ipp32u interpolation);

// The checks and the geometry of a square-pixel resize; a status other than 0 ends the call.
IppStatus ownpiPreludeToResize(const void* src, IppiSize srcSize, IppiRect srcRoi, const void* dst, IppiRect dstRoi,
                               double xFactor, double yFactor, double xShift, double yShift, Ipp32u interpolation,
                               const Ipp8u* buffer, ResizeGeometry* geometry);

// The engines: tables of positions and weights for every filter but super, and super itself.
IppStatus ownpiResizeSP(const ResizeJob& job);
// Kernels stretched by the reduction factor, one list of taps per position.
IppStatus ownpiResizeAA(const ResizeJob& job);

// The engine parts behind ownpiResizeSP.
void ownpiResizeNearest(const ResizeJob& job);
void ownpiResizeLinear8(const ResizeJob& job);
void ownpiResizeFloat(const ResizeJob& job);
void ownpiDecimate(const ResizeJob& job);

// The inverse factor that super cells and stretched kernels use: as given, but at most 16 times
// the source's larger side, past which a cell or kernel only repeats the edge pixels over and
// over (and its tap count would leave any integer).
QV_INLINE double ownpiBoundedInverse(double inverse, const ResizeJob& job) {
  const double bound = 16.0 * (job.srcWidth > job.srcHeight ? job.srcWidth : job.srcHeight) + 16.0;
  return inverse < bound ? inverse : bound;
}

// Coverage passes over the row and column just outside the written rectangle.
void ownpiEdgePass(const ResizeJob& job, bool smooth);

}  // namespace QV_TIER

#endif
