// Perspective maps: fitting the region's corners to a quad, and mapping them back.

#include "primitives/image/geometry/warp/perspective.h"
#include "primitives/image/geometry/warp/quad.h"

namespace QV_TIER {
namespace {

bool regionSizeValid(IppiRect roi) { return roi.x >= 0 && roi.y >= 0 && roi.width >= 1 && roi.height >= 1; }

// The region's extent from its first to its last column and row must be at least 1.
bool regionHasExtent(IppiRect roi) { return roi.width - 1 >= 1 && roi.height - 1 >= 1; }

}  // namespace

void ownpi_WarpPerspectiveRect(const double coeffs[3][3], double x0, double y0, double x1, double y1,
                               double quad[4][2]) {
  const double corners[4][2] = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
  for (int i = 0; i < 4; ++i) {
    const double x = corners[i][0], y = corners[i][1];
    const double denominator = coeffs[2][0] * x + coeffs[2][1] * y + coeffs[2][2];
    quad[i][0] = (coeffs[0][0] * x + coeffs[0][1] * y + coeffs[0][2]) / denominator;
    quad[i][1] = (coeffs[1][0] * x + coeffs[1][1] * y + coeffs[1][2]) / denominator;
  }
}

void ownpi_GetPerspectiveTransform(const double quad[4][2], double unitMap[3][3]) {
  const double x0 = quad[0][0], y0 = quad[0][1], x1 = quad[1][0], y1 = quad[1][1];
  const double x2 = quad[2][0], y2 = quad[2][1], x3 = quad[3][0], y3 = quad[3][1];
  const double dx1 = x2 - x1, dy1 = y2 - y1, dx2 = x3 - x2, dy2 = y3 - y2;
  const double sx = x0 - x3 + dx1, sy = y0 - y3 + dy1;
  const double d = dx2 * dy1 - dx1 * dy2;
  const double g = (dy2 * sx - dx2 * sy) / d;
  const double h = (dy1 * sx - dx1 * sy) / d;
  unitMap[0][0] = x1 - x0 + g * x1;
  unitMap[0][1] = x3 - x0 + h * x3;
  unitMap[0][2] = x0;
  unitMap[1][0] = y1 - y0 + g * y1;
  unitMap[1][1] = y3 - y0 + h * y3;
  unitMap[1][2] = y0;
  unitMap[2][0] = g;
  unitMap[2][1] = h;
  unitMap[2][2] = 1;
}

IppStatus ippiGetPerspectiveTransform(IppiRect srcRoi, const double quad[4][2], double coeffs[3][3]) {
  if (!regionSizeValid(srcRoi)) return ippStsSizeErr;
  const int check = ownpi_CheckQuad(quad);
  if (check == kQuadDegenerate || check == kQuadNotConvex) return ippStsQuadErr;
  if (!regionHasExtent(srcRoi)) return ippStsRectErr;
  double unit[3][3];
  ownpi_GetPerspectiveTransform(quad, unit);
  // u = (x - L) / W and v = (y - T) / H take the region's corners to the unit square's.
  const double w = srcRoi.width - 1, h = srcRoi.height - 1, left = srcRoi.x, top = srcRoi.y;
  for (int row = 0; row < 3; ++row) {
    coeffs[row][0] = unit[row][0] / w;
    coeffs[row][1] = unit[row][1] / h;
    coeffs[row][2] = unit[row][2] - left * coeffs[row][0] - top * coeffs[row][1];
  }
  return ippStsNoErr;
}

IppStatus ippiGetPerspectiveQuad(IppiRect srcRoi, double quad[4][2], const double coeffs[3][3]) {
  if (!regionSizeValid(srcRoi)) return ippStsSizeErr;
  if (!regionHasExtent(srcRoi)) return ippStsRectErr;
  ownpi_WarpPerspectiveRect(coeffs, srcRoi.x, srcRoi.y, static_cast<double>(srcRoi.x) + srcRoi.width - 1,
                            static_cast<double>(srcRoi.y) + srcRoi.height - 1, quad);
  const int check = ownpi_CheckQuad(quad);
  if (check == kQuadDegenerate || check == kQuadNotConvex) return ippStsCoeffErr;
  return ippStsNoErr;
}

}  // namespace QV_TIER
