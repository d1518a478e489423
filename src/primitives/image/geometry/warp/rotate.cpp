// Rotation: the angle's reduction, the rotated quad and bound, and ownpi_Rotate with its exact
// path for quarter turns.

#include <math.h>

#include "primitives/image/geometry/warp/rotate.h"

#include "primitives/image/geometry/warp/quad.h"
#include "primitives/image/geometry/warp/rotate_kernels.h"
#include "primitives/image/geometry/warp/warp_affine.h"
#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {
namespace {

// The angle reduced to [0, 360): angle - t x 360, with t = angle / 360 truncated to 32 bits.
double normalisedAngle(double angle) {
  const int turns = truncToInt(angle / 360);
  const double a = angle - turns * 360.0;
  return a < 0 ? a + 360 : a;
}

// x' = c x + s y + xShift, y' = -s x + c y + yShift; quarter turns take exact values.
void rotationCoefficients(double a, double xShift, double yShift, double coeffs[2][3]) {
  double c, s;
  if (a == 90) {
    c = 0, s = 1;
  } else if (a == 180) {
    c = -1, s = 0;
  } else if (a == 270) {
    c = 0, s = -1;
  } else {
    const double radians = a / 180 * 3.141592653589793;
    c = cos(radians);
    s = sin(radians);
  }
  coeffs[0][0] = c, coeffs[0][1] = s, coeffs[0][2] = xShift;
  coeffs[1][0] = -s, coeffs[1][1] = c, coeffs[1][2] = yShift;
}

IppStatus getRotateQuad(IppiRect srcRoi, double quad[4][2], double angle, double xShift, double yShift) {
  if (srcRoi.x < 0 || srcRoi.y < 0 || srcRoi.width < 1 || srcRoi.height < 1) return ippStsSizeErr;
  double coeffs[2][3];
  rotationCoefficients(normalisedAngle(angle), xShift, yShift, coeffs);
  ownpi_WarpAffineRect(coeffs, srcRoi.x, srcRoi.y, static_cast<double>(srcRoi.x) + srcRoi.width - 1,
                       static_cast<double>(srcRoi.y) + srcRoi.height - 1, quad);
  return ippStsNoErr;
}

// A whole-number shift as a 64-bit integer, kept far from overflow.
long long shiftOf(double shift) {
  constexpr double kFar = 4611686018427387904.0;  // 2^62
  if (shift >= kFar) return static_cast<long long>(kFar);
  if (shift <= -kFar) return -static_cast<long long>(kFar);
  return static_cast<long long>(shift);
}

struct Box {
  long long x0, x1, y0, y1;
  bool empty() const { return x1 < x0 || y1 < y0; }
};

Box intersection(const Box& a, const Box& b) {
  return {maxOf(a.x0, b.x0), minOf(a.x1, b.x1), maxOf(a.y0, b.y0), minOf(a.y1, b.y1)};
}

// The exact path: the region cut to the source, turned, shifted, cut to the destination region;
// then the kernel copies the pixels. The interpolation word is not looked at.
IppStatus rotateExactly(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                        IppiRect dstRoi, int turn, double xShift, double yShift, int type) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (srcSize.width < 1 || srcSize.height < 1 || srcRoi.x < 0 || srcRoi.y < 0 || srcRoi.width < 1 ||
      srcRoi.height < 1 || dstRoi.x < 0 || dstRoi.y < 0 || dstRoi.width < 1 || dstRoi.height < 1)
    return ippStsSizeErr;
  if (srcRoi.x >= srcSize.width || srcRoi.y >= srcSize.height) return ippStsWrongIntersectROI;
  const long long x0 = srcRoi.x, y0 = srcRoi.y;
  const long long x1 = x0 + minOf(srcRoi.width, srcSize.width - srcRoi.x) - 1;
  const long long y1 = y0 + minOf(srcRoi.height, srcSize.height - srcRoi.y) - 1;
  const long long xs = shiftOf(xShift), ys = shiftOf(yShift);
  Box turned;
  if (turn == 90)
    turned = {y0 + xs, y1 + xs, ys - x1, ys - x0};
  else if (turn == 180)
    turned = {xs - x1, xs - x0, ys - y1, ys - y0};
  else
    turned = {xs - y1, xs - y0, ys + x0, ys + x1};
  const Box region{dstRoi.x, static_cast<long long>(dstRoi.x) + dstRoi.width - 1, dstRoi.y,
                   static_cast<long long>(dstRoi.y) + dstRoi.height - 1};
  const Box box = intersection(turned, region);
  if (box.empty()) return ippStsWrongIntersectROI;

  const int pixelBytes = ownpi_pixelBytes(type);
  const long long u = xs - box.x0, v = box.y0 - ys;
  const int rows = static_cast<int>(box.y1 - box.y0 + 1), columns = static_cast<int>(box.x1 - box.x0 + 1);
  Ipp8u* to = rowAt(pDst, dstStep, static_cast<int>(box.y0)) + box.x0 * pixelBytes;
  const auto from = [&](long long column, long long row) {
    return rowAt(pSrc, srcStep, static_cast<int>(row)) + column * pixelBytes;
  };
  if (turn == 90)
    ownpi_rotate90Kernel(type)(from(-v, -u), srcStep, to, dstStep, rows, columns, -1);
  else if (turn == 180)
    ownpi_rotate180Kernel(type)(from(u, -v), srcStep, to, dstStep, rows, columns);
  else
    ownpi_rotate90Kernel(type)(from(v, u), -srcStep, to, dstStep, rows, columns, 1);
  return ippStsNoErr;
}

}  // namespace

// A non-finite angle is refused first; exact quarter turns with whole shifts copy pixels;
// everything else goes through the affine warp.
IppStatus ownpi_Rotate(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                       IppiRect dstRoi, double angle, double xShift, double yShift, int interpolation, int type) {
  if (!ipp_finite(angle) || ipp_isnan(angle)) return ippStsOutOfRangeErr;
  const double a = normalisedAngle(angle);
  const bool quarterTurn = a == 90 || a == 180 || a == 270;
  if (quarterTurn && xShift == floorOf(xShift) && yShift == floorOf(yShift))
    return rotateExactly(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, truncToInt(a + 0.1), xShift, yShift,
                         type);
  double coeffs[2][3];
  rotationCoefficients(a, xShift, yShift, coeffs);
  return ownpi_WarpAffine(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, coeffs, interpolation, type);
}

IppStatus ippiGetRotateQuad(IppiRect srcRoi, double quad[4][2], double angle, double xShift, double yShift) {
  return getRotateQuad(srcRoi, quad, angle, xShift, yShift);
}

IppStatus ippiGetRotateBound(IppiRect srcRoi, double bound[2][2], double angle, double xShift, double yShift) {
  double quad[4][2];
  const IppStatus status = ippiGetRotateQuad(srcRoi, quad, angle, xShift, yShift);
  if (status != ippStsNoErr) return status;
  bound[0][0] = bound[1][0] = quad[0][0];
  bound[0][1] = bound[1][1] = quad[0][1];
  for (int i = 1; i < 4; ++i) {
    bound[0][0] = minOf(bound[0][0], quad[i][0]);
    bound[0][1] = minOf(bound[0][1], quad[i][1]);
    bound[1][0] = maxOf(bound[1][0], quad[i][0]);
    bound[1][1] = maxOf(bound[1][1], quad[i][1]);
  }
  return ippStsNoErr;
}

IppStatus ippiRotate_8u_C1R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                            IppiRect dstRoi, double angle, double xShift, double yShift, int interpolation) {
  return ownpi_Rotate(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, angle, xShift, yShift, interpolation,
                      kType8uC1);
}

IppStatus ippiRotate_8u_C4R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                            IppiRect dstRoi, double angle, double xShift, double yShift, int interpolation) {
  return ownpi_Rotate(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, angle, xShift, yShift, interpolation,
                      kType8uC4);
}

IppStatus ippiRotate_16u_C4R(const Ipp16u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp16u* pDst,
                             int dstStep, IppiRect dstRoi, double angle, double xShift, double yShift,
                             int interpolation) {
  return ownpi_Rotate(reinterpret_cast<const Ipp8u*>(pSrc), srcSize, srcStep, srcRoi, reinterpret_cast<Ipp8u*>(pDst),
                      dstStep, dstRoi, angle, xShift, yShift, interpolation, kType16uC4);
}

}  // namespace QV_TIER
