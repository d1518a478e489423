#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_PERSPECTIVE_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_PERSPECTIVE_H

// The perspective warp: fitting a map to a quad, mapping corners, the driver and its row
// kernels.

#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {

// The corners (x0,y0), (x1,y0), (x1,y1), (x0,y1) mapped by the nine coefficients.
void ownpi_WarpPerspectiveRect(const double coeffs[3][3], double x0, double y0, double x1, double y1,
                               double quad[4][2]);

// The map of the unit square's corners (0,0), (1,0), (1,1), (0,1) to the quad's points 0..3.
void ownpi_GetPerspectiveTransform(const double quad[4][2], double unitMap[3][3]);

// The kernel of the table entry (layout code + 6 x depth index) x 3 + filter bit position
// (nearest, linear, cubic). Built for 8u C4; the other entries are null.
WarpRowKernel ownpi_perspectiveKernel(int type, int column);

// The driver behind ippiWarpPerspective_8u_C4R (see that primitive for the order of tests).
IppStatus ownpi_WarpPerspective(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                int dstStep, IppiRect dstRoi, const double coeffs[3][3], int interpolation, int type);

}  // namespace QV_TIER

#endif
