#ifndef QVIMAGE_IPPI_WARP_H
#define QVIMAGE_IPPI_WARP_H

/* Rotation, affine and perspective warps of images, and the geometry around them.

   Coordinates are pixel centres: a region (x, y, width, height) has its corners at (x, y) and
   (x + width - 1, y + height - 1). A warp maps the source region's corners to a quad in
   destination coordinates, walks every destination pixel of the destination region that lies
   inside that quad (and only those), and reads the source at the point that maps to it. Pixels
   outside the quad keep what they held. Steps are in bytes.

   The interpolation word (ippi_interpolation.h) is IPPI_INTER_NN, IPPI_INTER_LINEAR or
   IPPI_INTER_CUBIC, optionally with IPPI_SMOOTH_EDGE, which afterwards blends the pixels just
   outside the quad's slanted edges with the warped pixels beside them. The affine warp and the
   rotation also take IPPI_INTER_CR (Catmull-Rom). A source of width or height 1 is sampled with
   nearest whatever the word says; cubic on a source narrower or lower than 4 pixels falls back
   to linear. */

#include "ippdefs.h"
#include "ippi_interpolation.h"

QV_BEGIN_C

/* Affine warp of an 8-bit plane: x' = c[0][0] x + c[0][1] y + c[0][2], y' = c[1][0] x +
   c[1][1] y + c[1][2] maps source to destination. Tests in order: null pointer
   (ippStsNullPtrErr); source size, a region origin or a region size out of range on either side
   (ippStsSizeErr); the word (ippStsInterpolationErr); a map that is singular or nearly so
   (ippStsCoeffErr); a source region starting outside the source (ippStsWrongIntersectROI, a
   warning); a source region one pixel wide or high once cut to the source (ippStsRectErr); a
   quad that is not convex (ippStsCoeffErr); a quad that misses the destination region
   (ippStsWrongIntersectQuad, a warning). Steps are not tested. Nothing is written unless the
   answer is ippStsNoErr. */
QV_API IppStatus ippiWarpAffine_8u_C1R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                       int dstStep, IppiRect dstRoi, const double coeffs[2][3], int interpolation);

/* The bounding box of the source region turned by angle degrees and shifted: bound[0] receives
   the least x and y, bound[1] the greatest. A positive angle turns the picture anticlockwise on
   the screen (y grows downward): x' = c x + s y + xShift, y' = -s x + c y + yShift. A negative
   region origin or a size below 1 gives ippStsSizeErr and leaves bound unwritten. */
QV_API IppStatus ippiGetRotateBound(IppiRect srcRoi, double bound[2][2], double angle, double xShift, double yShift);

/* Rotation by angle degrees, then the shift, as in ippiGetRotateBound. The angle is reduced to
   [0, 360). A turn of exactly 90, 180 or 270 degrees with whole shifts copies pixels exactly,
   whatever the interpolation word; every other angle (0 included) warps with interpolation.
   A non-finite angle gives ippStsOutOfRangeErr before anything else; then the statuses of the
   affine warp, or for exact turns: null pointer, sizes, a region starting outside the source,
   and a turned region that misses the destination region (ippStsWrongIntersectROI). */
QV_API IppStatus ippiRotate_8u_C1R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                   int dstStep, IppiRect dstRoi, double angle, double xShift, double yShift,
                                   int interpolation);
QV_API IppStatus ippiRotate_8u_C4R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp8u* pDst,
                                   int dstStep, IppiRect dstRoi, double angle, double xShift, double yShift,
                                   int interpolation);
QV_API IppStatus ippiRotate_16u_C4R(const Ipp16u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi, Ipp16u* pDst,
                                    int dstStep, IppiRect dstRoi, double angle, double xShift, double yShift,
                                    int interpolation);

/* The perspective map (nine coefficients, row by row: x' = (c00 x + c01 y + c02) / d,
   y' = (c10 x + c11 y + c12) / d, d = c20 x + c21 y + c22) that takes the region's corners
   (x, y), (x + w - 1, y), (x + w - 1, y + h - 1), (x, y + h - 1) to quad[0] .. quad[3], a quad
   given around its outline. Tests: a negative origin or a size below 1 (ippStsSizeErr); a
   degenerate or non-convex quad (ippStsQuadErr); a region one pixel wide or high
   (ippStsRectErr). */
QV_API IppStatus ippiGetPerspectiveTransform(IppiRect srcRoi, const double quad[4][2], double coeffs[3][3]);

/* The region's corners mapped by the coefficients, in the order above. A negative origin or a
   size below 1 gives ippStsSizeErr; a quad that comes out degenerate or not convex gives
   ippStsCoeffErr (the quad is written all the same). */
QV_API IppStatus ippiGetPerspectiveQuad(IppiRect srcRoi, double quad[4][2], const double coeffs[3][3]);

/* Perspective warp of an RGBA image of 8 bits a channel: NN, linear or cubic (no Catmull-Rom).
   Tests in order: null pointer; sizes (ippStsSizeErr); steps at or below 0 (ippStsStepErr); the
   word (ippStsInterpolationErr); a singular map or c22 of 0 (ippStsCoeffErr); then as the affine
   warp. */
QV_API IppStatus ippiWarpPerspective_8u_C4R(const Ipp8u* pSrc, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                                            Ipp8u* pDst, int dstStep, IppiRect dstRoi, const double coeffs[3][3],
                                            int interpolation);

QV_END_C

#endif
