// The affine warp driver and ippiWarpAffine_8u_C1R.

#include "primitives/image/geometry/warp/warp_affine.h"

#include "primitives/image/geometry/warp/affine_kernels.h"
#include "primitives/image/geometry/warp/quad.h"
#include "primitives/image/geometry/warp/warp_checks.h"
#include "primitives/image/geometry/warp/warp_rows.h"

namespace QV_TIER {
namespace {

// The inverse map from the quad's first three corners: with A = q1x - q0x, B = q2x - q1x,
// C = q1y - q0y, D = q2y - q1y and r = 1 / (A D - B C), over the region's extent w x h.
// Answers the winding: r > 0.
bool inverseFromQuad(const double quad[4][2], IppiRect region, double m[6]) {
  const double a = quad[1][0] - quad[0][0], b = quad[2][0] - quad[1][0];
  const double c = quad[1][1] - quad[0][1], d = quad[2][1] - quad[1][1];
  const double r = 1 / (a * d - b * c);
  const double w = region.width - 1, h = region.height - 1;
  m[0] = d * w * r;
  m[1] = -b * w * r;
  m[3] = -c * h * r;
  m[4] = a * h * r;
  m[2] = region.x - m[0] * quad[0][0] - m[1] * quad[0][1];
  m[5] = region.y - m[3] * quad[0][0] - m[4] * quad[0][1];
  return r > 0;
}

}  // namespace

IppStatus ownpi_WarpAffine(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                           IppiRect dstRoi, const double coeffs[2][3], int interpolation, int type) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (!warpSizesValid(srcSize, srcRoi, dstRoi)) return ippStsSizeErr;
  int column = columnOfFilter(filterOf(interpolation), true);
  if (column < 0) return ippStsInterpolationErr;
  if (isNearlySingular(coeffs[0][0], coeffs[0][1], coeffs[1][0], coeffs[1][1])) return ippStsCoeffErr;
  column = lowerColumnForSource(column, srcSize);
  IppiRect region;
  const IppStatus cut = cutRegionToSource(srcRoi, srcSize, &region);
  if (cut != ippStsNoErr) return cut;
  double quad[4][2];
  if (ippiGetAffineQuad(region, quad, coeffs) != ippStsNoErr) return ippStsCoeffErr;

  double inverse[9] = {};
  const bool winding = inverseFromQuad(quad, region, inverse);
  return ownpi_WarpRows(pSrc, srcSize, srcStep, pDst, dstStep, dstRoi, quad, winding, inverse,
                        ownpi_affineKernel(type, column), column == kColumnCubic, interpolation, type);
}

IppStatus ippiWarpAffine_8u_C1R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                int dstStep, IppiRect dstRoi, const double coeffs[2][3], int interpolation) {
  return ownpi_WarpAffine(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, coeffs, interpolation, kType8uC1);
}

}  // namespace QV_TIER
