#ifndef QV_PRIMITIVES_IMAGE_PIXEL_COPY_KERNELS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_COPY_KERNELS_H

#include <cstddef>

#include "primitives/common/tier.h"
#include "primitives/image/pixel/pixel_roads.h"

namespace QV_TIER {

// The shape and road this tier takes for rows of rowBytes bytes: a contiguous image is
// flattened to one long row first, then the road is chosen by row length and total size.
qv::pixel::CopyPlan owniPlanCopy(int srcStep, int dstStep, size_t rowBytes, int rows);

// Copies rows of rowBytes bytes along the plan of owniPlanCopy.
void owniCopyImage(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, size_t rowBytes, int rows);

// Copies a row below 64 bytes: blocks of 32, 16, 8 and 4 bytes by the bits of the length, then
// up to 3 single bytes from the end of what remains.
void owniCopySmallRow(const Ipp8u* src, Ipp8u* dst, size_t length);

}  // namespace QV_TIER

#endif
