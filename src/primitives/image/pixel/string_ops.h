#ifndef QV_PRIMITIVES_IMAGE_PIXEL_STRING_OPS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_STRING_OPS_H

// The processor's string moves and stores, for the long stretches of the cached roads. They are
// ordinary stores through the cache, available at every level, and on processors with fast
// string operations they move long runs faster than a loop of vector stores. Inside the tier
// namespace, always inlined.

#include <cstddef>
#include <cstdint>

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// Rows at least this long take the string operations on the cached roads.
constexpr size_t kStringOpStart = 1024;

// Copies length bytes forward.
QV_INLINE void stringCopy(const Ipp8u* src, Ipp8u* dst, size_t length) {
  asm volatile("rep movsb" : "+S"(src), "+D"(dst), "+c"(length) : : "memory");
}

// Stores the 4-byte value count times from dst on.
QV_INLINE void stringFill32(Ipp8u* dst, uint32_t value, size_t count) {
  asm volatile("rep stosl" : "+D"(dst), "+c"(count) : "a"(value) : "memory");
}

}  // namespace QV_TIER

#endif
