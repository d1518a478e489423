#ifndef QV_PRIMITIVES_DATA_MEMORY_FILL_KERNELS_H
#define QV_PRIMITIVES_DATA_MEMORY_FILL_KERNELS_H

// The kernels under the long fills and moves, shared by the primitives of this family.

#include <cstddef>

#include "primitives/common/tier.h"

namespace QV_TIER {

// Whether this tier fills len 32-bit elements at dst with non-temporal stores.
bool ownsSet32sStreams(const void* dst, int len);

// Fills len 32-bit elements with the bits of value, along the road of this tier.
void ownsSetWords(Ipp32u value, Ipp32s* dst, int len);

// Fills len 64-bit elements with the bits of value.
void ownsSetDoubleWords(Ipp64u value, Ipp64s* dst, int len);

// Moves len bytes; source and destination may overlap. Nothing happens when they are equal;
// a source below the destination is copied from the end to the start, otherwise from the start.
void ownsMove_8u(const Ipp8u* src, Ipp8u* dst, size_t len);

}  // namespace QV_TIER

#endif
