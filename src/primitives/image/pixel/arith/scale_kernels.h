#ifndef QV_PRIMITIVES_IMAGE_PIXEL_ARITH_SCALE_KERNELS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_ARITH_SCALE_KERNELS_H

// Row kernels of the depth conversions. Each brings the pointer it aligns to 16 bytes one
// channel at a time, works 16 channels a round, and does the rest singly with the same formula.
// count is the number of channels (four a pixel). The 16-bit side may lie at any address: an
// odd step is followed as given.

#include <cstddef>

#include "primitives/common/tier.h"

namespace QV_TIER {

// s becomes s * 257. With streaming, the destination stores bypass the cache (no fence here).
void owniScale_8u16u_M7(const Ipp8u* src, Ipp16u* dst, size_t count, bool streaming);

// x becomes ((u >> 8) + 128) with t = x - 32768 and u = t - (t >> 8), shifts arithmetic.
void owniScale_16u8u_M7_Fast(const Ipp16u* src, Ipp8u* dst, size_t count, bool streaming);

// x becomes x * (255/65535 as f32), converted in the current SSE rounding mode and saturated.
void owniScale_16u8u_M7_Accurate(const Ipp16u* src, Ipp8u* dst, size_t count);

}  // namespace QV_TIER

#endif
