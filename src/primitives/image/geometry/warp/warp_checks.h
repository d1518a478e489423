#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_CHECKS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_CHECKS_H

// The argument tests and region handling that the affine and perspective drivers share.

#include "primitives/image/geometry/warp/affine_kernels.h"

namespace QV_TIER {

// Source size above 0, region origins not negative and region sizes above 0, on both sides.
QV_INLINE bool warpSizesValid(IppiSize srcSize, IppiRect srcRoi, IppiRect dstRoi) {
  return srcSize.width > 0 && srcSize.height > 0 && srcRoi.x >= 0 && srcRoi.y >= 0 && srcRoi.width > 0 &&
         srcRoi.height > 0 && dstRoi.x >= 0 && dstRoi.y >= 0 && dstRoi.width > 0 && dstRoi.height > 0;
}

// The kernel column of the word's filter: nearest, linear, cubic, and Catmull-Rom where the
// family has it; -1 for any other filter.
QV_INLINE int columnOfFilter(unsigned filter, bool withCatmullRom) {
  switch (filter) {
    case IPPI_INTER_NN:
      return kColumnNearest;
    case IPPI_INTER_LINEAR:
      return kColumnLinear;
    case IPPI_INTER_CUBIC:
      return kColumnCubic;
    case IPPI_INTER_CR:
      return withCatmullRom ? kColumnCatmullRom : -1;
    default:
      return -1;
  }
}

// A source one pixel wide or high is sampled with nearest; cubic needs 4 pixels each way and
// falls to linear below that. Catmull-Rom is kept.
QV_INLINE int lowerColumnForSource(int column, IppiSize srcSize) {
  if (srcSize.width == 1 || srcSize.height == 1) return kColumnNearest;
  if (column == kColumnCubic && (srcSize.width < 4 || srcSize.height < 4)) return kColumnLinear;
  return column;
}

// The region cut to the source: ippStsWrongIntersectROI if it starts outside, ippStsRectErr if
// what remains is 1 pixel or less wide or high.
QV_INLINE IppStatus cutRegionToSource(IppiRect srcRoi, IppiSize srcSize, IppiRect* region) {
  if (srcRoi.x >= srcSize.width || srcRoi.y >= srcSize.height) return ippStsWrongIntersectROI;
  *region = {srcRoi.x, srcRoi.y, minOf(srcRoi.width, srcSize.width - srcRoi.x),
             minOf(srcRoi.height, srcSize.height - srcRoi.y)};
  if (region->width <= 1 || region->height <= 1) return ippStsRectErr;
  return ippStsNoErr;
}

QV_INLINE IppiPoint firstCornerOf(IppiRect rect) { return {rect.x, rect.y}; }
// The last column and row, in 64 bits so that no sum can wrap, kept within int.
QV_INLINE IppiPoint lastCornerOf(IppiRect rect) {
  const long long x = static_cast<long long>(rect.x) + rect.width - 1;
  const long long y = static_cast<long long>(rect.y) + rect.height - 1;
  return {static_cast<int>(minOf(x, 2147483647LL)), static_cast<int>(minOf(y, 2147483647LL))};
}

}  // namespace QV_TIER

#endif
