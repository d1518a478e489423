// The perspective warp driver and ippiWarpPerspective_8u_C4R.

#include "primitives/image/geometry/warp/perspective.h"
#include "primitives/image/geometry/warp/quad.h"
#include "primitives/image/geometry/warp/warp_checks.h"
#include "primitives/image/geometry/warp/warp_rows.h"

namespace QV_TIER {
namespace {

// The adjugate of the nine coefficients: the inverse map up to a factor that the division by
// the denominator cancels.
void adjugateOf(const double c[3][3], double i[9]) {
  i[0] = c[1][1] * c[2][2] - c[1][2] * c[2][1];
  i[1] = c[0][2] * c[2][1] - c[0][1] * c[2][2];
  i[2] = c[0][1] * c[1][2] - c[0][2] * c[1][1];
  i[3] = c[1][2] * c[2][0] - c[1][0] * c[2][2];
  i[4] = c[0][0] * c[2][2] - c[0][2] * c[2][0];
  i[5] = c[0][2] * c[1][0] - c[0][0] * c[1][2];
  i[6] = c[1][0] * c[2][1] - c[1][1] * c[2][0];
  i[7] = c[0][1] * c[2][0] - c[0][0] * c[2][1];
  i[8] = c[0][0] * c[1][1] - c[0][1] * c[1][0];
}

// The winding from the quad's last corner.
bool windingAtLastCorner(const double q[4][2]) {
  return (q[3][0] - q[2][0]) * (q[0][1] - q[3][1]) - (q[0][0] - q[3][0]) * (q[3][1] - q[2][1]) > 0;
}

}  // namespace

IppStatus ownpi_WarpPerspective(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                int dstStep, IppiRect dstRoi, const double coeffs[3][3], int interpolation, int type) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (!warpSizesValid(srcSize, srcRoi, dstRoi)) return ippStsSizeErr;
  if (srcStep <= 0 || dstStep <= 0) return ippStsStepErr;
  int column = columnOfFilter(filterOf(interpolation), false);
  if (column < 0) return ippStsInterpolationErr;
  if (isNearlySingular(coeffs[0][0], coeffs[0][1], coeffs[1][0], coeffs[1][1]) || absOf(coeffs[2][2]) <= 1e-200)
    return ippStsCoeffErr;
  column = lowerColumnForSource(column, srcSize);
  IppiRect region;
  const IppStatus cut = cutRegionToSource(srcRoi, srcSize, &region);
  if (cut != ippStsNoErr) return cut;
  double quad[4][2];
  ownpi_WarpPerspectiveRect(coeffs, region.x, region.y, static_cast<double>(region.x) + region.width - 1,
                            static_cast<double>(region.y) + region.height - 1, quad);
  const int check = ownpi_CheckQuad(quad);
  if (check == kQuadDegenerate || check == kQuadNotConvex) return ippStsCoeffErr;

  double inverse[9];
  adjugateOf(coeffs, inverse);
  return ownpi_WarpRows(pSrc, srcSize, srcStep, pDst, dstStep, dstRoi, quad, windingAtLastCorner(quad), inverse,
                        ownpi_perspectiveKernel(type, column), true, interpolation, type);
}

IppStatus ippiWarpPerspective_8u_C4R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                     int dstStep, IppiRect dstRoi, const double coeffs[3][3], int interpolation) {
  return ownpi_WarpPerspective(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, coeffs, interpolation, kType8uC4);
}

}  // namespace QV_TIER
