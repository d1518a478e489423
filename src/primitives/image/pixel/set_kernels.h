#ifndef QV_PRIMITIVES_IMAGE_PIXEL_SET_KERNELS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_SET_KERNELS_H

#include <cstddef>

#include "primitives/common/tier.h"

namespace QV_TIER {

// Bytes of a fill pattern: the value repeated, long enough that a 16-byte block can be read from
// any offset up to 15 and still start on the channel of that offset.
constexpr int kSetPatternBytes = 32;

// Whether a fill of total bytes uses non-temporal stores: only above 524288 bytes, and only when
// the cache size is known and, by a signed comparison, not above the total.
bool owniSetStreams(int total);

// Fills length bytes at dst from the pattern. Rows of 64 bytes or more are first brought to a
// 16-byte boundary by one unaligned block, then filled 64 bytes a round (non-temporal and fenced
// when streaming), then by up to three 16-byte blocks; the last bytes singly.
void owniSet_8u_C1_M7(const Ipp8u* pattern, Ipp8u* dst, size_t length, bool streaming);

// The same for four channels; length is a multiple of 4. After the unaligned head block the
// pattern is reloaded at offset 16 minus the misalignment so that the channels keep their places,
// and the last bytes are whole pixels stored from the end of what remains back to its start.
void owniSet_8u_C4_M7(const Ipp8u* pattern, Ipp8u* dst, size_t length, bool streaming);

}  // namespace QV_TIER

#endif
