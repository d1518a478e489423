#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_AFFINE_KERNELS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_AFFINE_KERNELS_H

// The row kernels of the affine warp. Each walks the spans of a WarpRows job with the inverse
// map m0..m5 (source x = m0 x + m1 y + m2, source y = m3 x + m4 y + m5): the row's start
// is m1 and m4 times the first row plus m2 and m5, carried down by adding m1 and m4; a span
// starts at m0 (m3) times its first column plus that, and each next pixel adds m0 and m3.
//
// Nearest: both coordinates plus 0.5, truncated. Linear, 8u C1: coordinates rounded to float,
// truncated (one less at the limit), and a float blend with 0.5 added and truncated. Linear,
// 8u C4: the 16384-scaled fixed-point blend with a final bias of 524288. Linear, 16u C4: float
// fractions, a float blend, rounded to nearest. Cubic: a row's coordinates as floats in the
// scratch, then the clipping cubic vector interpolator. Catmull-Rom: setIndexCR and the point
// interpolator for every pixel.

#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {

// Kernel columns, in the order of the interpolation filters 1, 2, 4, 6.
constexpr int kColumnNearest = 0;
constexpr int kColumnLinear = 1;
constexpr int kColumnCubic = 2;
constexpr int kColumnCatmullRom = 3;

// The kernel of the table entry (layout code + 6 x depth index) x 4 + column. Built for the
// type codes of 8u C1, 8u C4 and 16u C4; the other entries are null.
WarpRowKernel ownpi_affineKernel(int type, int column);

}  // namespace QV_TIER

#endif
