#ifndef QV_PRIMITIVES_DATA_LZSS_LZSS_BITS_H
#define QV_PRIMITIVES_DATA_LZSS_LZSS_BITS_H

// The encoder's bit accumulator: tokens go in at the top of a 64-bit value, whole bytes leave
// from the top into the output while it has room.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

struct LzssBitWriter {
  Ipp64u bits;   // pending bits, left-aligned
  Ipp32u count;  // how many
  Ipp8u* out;
  int written;
  int capacity;

  QV_INLINE void put(Ipp32u value, Ipp32u width) {
    bits |= static_cast<Ipp64u>(value) << (64 - count - width);
    count += width;
  }
  QV_INLINE void literal(Ipp8u byte) { put(0x100u | byte, 9); }
  QV_INLINE void match(Ipp32u distance, Ipp32u length) { put(distance << 8 | (length - 3), 24); }

  // Moves whole bytes out; answers whether the output is now full.
  QV_INLINE bool drain() {
    for (; count >= 8 && written < capacity; count -= 8) {
      out[written++] = static_cast<Ipp8u>(bits >> 56);
      bits <<= 8;
    }
    return written == capacity;
  }
};

}  // namespace QV_TIER

#endif
