#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_ROTATE_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_ROTATE_H

#include "primitives/common/tier.h"

namespace QV_TIER {

// The region's corners (x, y), (x+w-1, y), (x+w-1, y+h-1), (x, y+h-1) turned by the angle
// (reduced to [0, 360); quarter turns with exact sines) and shifted. A negative origin or a
// size below 1 gives ippStsSizeErr.
IppStatus ippiGetRotateQuad(IppiRect srcRoi, double quad[4][2], double angle, double xShift, double yShift);

// The rotation driver behind the three exported rotations, for interleaved type codes.
IppStatus ownpi_Rotate(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst, int dstStep,
                       IppiRect dstRoi, double angle, double xShift, double yShift, int interpolation, int type);

}  // namespace QV_TIER

#endif
