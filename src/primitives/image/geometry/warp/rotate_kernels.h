#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_ROTATE_KERNELS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_ROTATE_KERNELS_H

// The quarter-turn kernels: pure pixel copies, no arithmetic on samples.

#include "primitives/common/tier.h"

namespace QV_TIER {

// Quarter turn (90, and 270 with the source step negated): destination pixel (r, c) of the
// rows x columns box is the source pixel at src + c source steps + r x rowDirection pixels.
// The destination is walked in blocks of 16 columns, each block for all rows before the next.
using Rotate90Kernel = void (*)(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, int rows, int columns,
                                int rowDirection);

// Half turn: destination pixel (r, c) is the source pixel at srcCorner - c pixels - r source
// steps.
using Rotate180Kernel = void (*)(const Ipp8u* srcCorner, int srcStep, Ipp8u* dst, int dstStep, int rows, int columns);

// The kernels of the table entry layout code + 6 x (depth code / 8). Interleaved layouts of
// every depth are built (AC4 copies three channels and leaves the fourth of the destination as
// it was); the planar entries are null.
Rotate90Kernel ownpi_rotate90Kernel(int type);
Rotate180Kernel ownpi_rotate180Kernel(int type);

// The bytes of one pixel of the type code.
int ownpi_pixelBytes(int type);

}  // namespace QV_TIER

#endif
