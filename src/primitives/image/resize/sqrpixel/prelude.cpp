// The checks of a square-pixel resize, in their order, and the destination rectangle: the source
// region mapped by factor and shift, cut to the destination region, rounded to whole pixels.

#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {

bool ownpiIsResizeFilter(Ipp32u filter) {
  switch (filter) {
    case IPPI_INTER_NN:
    case IPPI_INTER_LINEAR:
    case IPPI_INTER_CUBIC:
    case IPPI_INTER_BSPLINE:
    case IPPI_INTER_CR:
    case IPPI_INTER_B05C03:
    case IPPI_INTER_SUPER:
    case IPPI_INTER_LANCZOS:
      return true;
    default:
      return false;
  }
}

int ownpiEdgeFlagCount(Ipp32u interpolation) {
  return ((interpolation & kSmoothEdge) != 0) + ((interpolation & kSubpixelEdge) != 0) +
         ((interpolation & kAntialiasing) != 0);
}

namespace {

bool isFourTapOrMore(Ipp32u filter) {
  return filter == IPPI_INTER_CUBIC || filter == IPPI_INTER_BSPLINE || filter == IPPI_INTER_CR ||
         filter == IPPI_INTER_B05C03 || filter == IPPI_INTER_LANCZOS;
}

// A source too small for the kernel takes a shorter one, without a word.
Ipp32u kindForSource(Ipp32u filter, IppiSize srcSize) {
  const int smaller = minOf(srcSize.width, srcSize.height);
  if (smaller >= 6) return filter;
  if (smaller >= 4) return filter == IPPI_INTER_LANCZOS ? static_cast<Ipp32u>(IPPI_INTER_CUBIC) : filter;
  return isFourTapOrMore(filter) ? static_cast<Ipp32u>(IPPI_INTER_LINEAR) : filter;
}

bool emptyOrNegative(IppiRect r) { return r.x < 0 || r.y < 0 || r.width <= 0 || r.height <= 0; }

// Truncation to an int, held inside the int's range (factors and shifts far out of proportion
// give positions no int holds).
int truncateToInt(double v) {
  if (v <= -2147483648.0) return -2147483647 - 1;
  if (v >= 2147483647.0) return 2147483647;
  return static_cast<int>(v);
}

// Whole pixels of [low, high): with an edge flag only the pixels wholly inside, else the pixels
// whose centres are inside. An edge that is not a number gives no pixel.
void wholePixels(double low, double high, bool edgeFlag, int* first, int* end) {
  if (low != low || high != high) {
    *first = *end = 0;
  } else if (edgeFlag) {
    *first = truncateToInt(__builtin_ceil(low - 1e-10));
    *end = truncateToInt(__builtin_floor(high + 1e-10));
  } else {
    *first = truncateToInt(low + 0.4999999999);
    *end = truncateToInt(high + 0.5000000001);
  }
}

}  // namespace

IppStatus ownpiPreludeToResize(const void* src, IppiSize srcSize, IppiRect srcRoi, const void* dst, IppiRect dstRoi,
                               double xFactor, double yFactor, double xShift, double yShift, Ipp32u interpolation,
                               const Ipp8u* buffer, ResizeGeometry* geometry) {
  if (src == nullptr || dst == nullptr || buffer == nullptr) return ippStsNullPtrErr;
  if (srcSize.width <= 0 || srcSize.height <= 0 || emptyOrNegative(srcRoi) || emptyOrNegative(dstRoi))
    return ippStsSizeErr;
  if (xFactor <= 0.0 || yFactor <= 0.0) return ippStsResizeFactorErr;
  const Ipp32u filter = interpolation & kFilterMask;
  if (!ownpiIsResizeFilter(filter)) return ippStsInterpolationErr;
  if (ownpiEdgeFlagCount(interpolation) >= 2) return ippStsInterpolationErr;
  double area = 0.0;
  if (filter == IPPI_INTER_SUPER) {
    if (xFactor > 1.0 || yFactor > 1.0) return ippStsResizeFactorErr;
    area = xFactor * yFactor;
  }
  const Ipp32u kind = kindForSource(filter, srcSize);
  if (srcRoi.x >= srcSize.width || srcRoi.y >= srcSize.height) return ippStsWrongIntersectROI;

  const int roiWidth = minOf(srcRoi.width, srcSize.width - srcRoi.x);
  const int roiHeight = minOf(srcRoi.height, srcSize.height - srcRoi.y);
  const double xMin = maxOf(srcRoi.x * xFactor + xShift, static_cast<double>(dstRoi.x));
  const double xMax = minOf((srcRoi.x + roiWidth) * xFactor + xShift, static_cast<double>(dstRoi.x) + dstRoi.width);
  const double yMin = maxOf(srcRoi.y * yFactor + yShift, static_cast<double>(dstRoi.y));
  const double yMax = minOf((srcRoi.y + roiHeight) * yFactor + yShift, static_cast<double>(dstRoi.y) + dstRoi.height);

  const bool edgeFlag = (interpolation & (kSmoothEdge | kSubpixelEdge)) != 0;
  int x0, x1, y0, y1;
  wholePixels(xMin, xMax, edgeFlag, &x0, &x1);
  wholePixels(yMin, yMax, edgeFlag, &y0, &y1);
  if (x0 >= x1 || y0 >= y1) return ippStsNoOperation;

  geometry->x0 = x0;
  geometry->y0 = y0;
  geometry->width = x1 - x0;
  geometry->height = y1 - y0;
  geometry->xInverse = 1.0 / xFactor;
  geometry->yInverse = 1.0 / yFactor;
  geometry->xOrigin = 0.0 - xShift / xFactor;
  geometry->yOrigin = 0.0 - yShift / yFactor;
  geometry->area = area;
  geometry->xMin = xMin;
  geometry->xMax = xMax;
  geometry->yMin = yMin;
  geometry->yMax = yMax;
  geometry->kind = kind;
  geometry->smoothEdge = interpolation & kSmoothEdge;
  geometry->subpixelEdge = interpolation & kSubpixelEdge;
  geometry->antialiasing = interpolation & kAntialiasing;
  return ippStsNoErr;
}

}  // namespace QV_TIER
