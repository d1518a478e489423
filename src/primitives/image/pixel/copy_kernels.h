#ifndef QV_PRIMITIVES_IMAGE_PIXEL_COPY_KERNELS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_COPY_KERNELS_H

#include <cstddef>

#include "primitives/common/tier.h"

namespace QV_TIER {

// Copies rows of rowBytes bytes, choosing cached or streaming stores the way this tier does.
// A contiguous image (both steps equal to rowBytes) is copied as one long row.
void owniCopyImage(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, size_t rowBytes, int rows);

// Copies a row below 64 bytes: blocks of 32, 16, 8 and 4 bytes by the bits of the length, then
// up to 3 single bytes from the end of what remains.
void owniCopySmallRow(const Ipp8u* src, Ipp8u* dst, size_t length);

}  // namespace QV_TIER

#endif
