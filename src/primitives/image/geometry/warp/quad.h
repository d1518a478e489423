#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_QUAD_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_QUAD_H

// The geometry of warped quads: mapping a region's corners, the convexity and winding test,
// clipping to a rectangle, and the per-row spans of destination pixels that a quad covers.
// Points are (x, y) pairs of doubles; a quad's points go around its outline.

#include "primitives/common/tier.h"

namespace QV_TIER {

// Answers of ownpi_CheckQuad.
constexpr int kQuadDegenerate = -5;
constexpr int kQuadNotConvex = -4;
constexpr int kQuadPositive = 1;  // every corner turns the same way, with positive cross products
constexpr int kQuadNegative = 0;

// The most points a quad clipped to a rectangle can have.
constexpr int kMaxPolygonPoints = 16;

// The cross products of consecutive edges at corners 3, 0, 1, 2: any exact zero gives
// kQuadDegenerate; mixed signs (or a NaN) kQuadNotConvex; else the common sign.
int ownpi_CheckQuad(const double quad[4][2]);

// The corners (x0,y0), (x1,y0), (x1,y1), (x0,y1) mapped by the affine coefficients.
void ownpi_WarpAffineRect(const double coeffs[2][3], double x0, double y0, double x1, double y1, double quad[4][2]);

// The region's corners (x, y) and (x+w-1, y+h-1) mapped as above. A negative origin or a size
// below 1 gives ippStsSizeErr; a degenerate or non-convex result ippStsCoeffErr.
IppStatus ippiGetAffineQuad(IppiRect srcRoi, double quad[4][2], const double coeffs[2][3]);

// The quad clipped to the rectangle [x0, x1] x [y0, y1], one side after another (left, right,
// top, bottom); points on a side count as inside. Answers the number of points written.
int ownpi_ClipPolygon(const double quad[4][2], double x0, double y0, double x1, double y1,
                      double polygon[kMaxPolygonPoints][2]);

// The spans of the destination pixels that the quad covers inside the rectangle from first to
// last (corner pixels included): one pair of first and last column for each row from
// *firstRow to *lastRow. winding tells which edges bound the left side. Answers the span list,
// an aligned block (ippsFree), or null when the quad misses the rectangle.
int* ownpi_ClipQuad(const double quad[4][2], IppiPoint first, IppiPoint last, bool winding, int* firstRow,
                    int* lastRow);

}  // namespace QV_TIER

#endif
