#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_ROWS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_ROWS_H

#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {

// The last steps that the affine and perspective drivers share, once the quad, its winding and
// the inverse map are known: the spans of the quad inside the destination region
// (ippStsWrongIntersectQuad when there are none), the row kernel over them with a scratch of
// 8 x the region's width bytes when asked for, and the smooth edges when the word has the flag.
IppStatus ownpi_WarpRows(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, Ipp8u* pDst, int dstStep, IppiRect dstRoi,
                         const double quad[4][2], bool winding, const double inverse[9], WarpRowKernel kernel,
                         bool needsScratch, int interpolation, int type);

}  // namespace QV_TIER

#endif
