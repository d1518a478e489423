#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_AFFINE_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_AFFINE_H

#include "primitives/common/tier.h"

namespace QV_TIER {

// The affine warp driver, shared by ippiWarpAffine_8u_C1R and the rotations. type is a type
// code of 8u C1, 8u C4 or 16u C4. Tests in order: null pointers (ippStsNullPtrErr); source
// size, region origins and region sizes of both sides (ippStsSizeErr); the word without its
// top bit must be 1, 2, 4 or 6 (ippStsInterpolationErr); a (nearly) singular map
// (ippStsCoeffErr); then a source of width or height 1 forces nearest and cubic on a source
// below 4 falls to linear; a region starting outside the source (ippStsWrongIntersectROI);
// the region cut to the source 1 pixel or less wide or high (ippStsRectErr); the region's quad
// degenerate or not convex (ippStsCoeffErr); the quad missing the destination region
// (ippStsWrongIntersectQuad). Then the kernel writes the spans, and with the smooth-edge flag
// the outline is blended. Steps are not tested.
IppStatus ownpi_WarpAffine(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                           IppiRect dstRoi, const double coeffs[2][3], int interpolation, int type);

}  // namespace QV_TIER

#endif
