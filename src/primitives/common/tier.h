#ifndef QV_PRIMITIVES_COMMON_TIER_H
#define QV_PRIMITIVES_COMMON_TIER_H

// Included by every kernel source. Kernel sources are compiled once per tier with QV_TIER set to
// the tier's namespace (m7, u8, y8, e9) and QV_TIER_LEVEL to its level (1 SSE3, 2 SSSE3,
// 3 SSE4.1, 4 AVX). Everything a kernel source defines goes inside namespace QV_TIER, so that no
// tier's code can be merged with another's by the linker. For the same reason kernels use no
// templates or inline functions from outside the tier namespace (the standard library's
// included); the helpers they share are in tier_util.h, inside the namespace.

#include <immintrin.h>

#include "qvimage/qvimage.h"

#ifndef QV_TIER
#error "kernel sources are built once per tier, with QV_TIER naming the tier"
#endif

// Declares this tier's own copy of a primitive, so that a kernel calls its sibling directly
// instead of going back through the exported stub.
#define QV_TIER_SIBLING(name) decltype(::name) name;

#endif
