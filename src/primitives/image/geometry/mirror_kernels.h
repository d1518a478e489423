#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_MIRROR_KERNELS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_MIRROR_KERNELS_H

// The row kernels of the mirror and the in-place mirrors, which exist only inside the tiers.
// A pixel is 4 bytes (8u C4) or 8 bytes (16u C4); every kernel moves whole pixels and keeps the
// byte order inside a pixel. Every road writes the same bytes.

#include <cstddef>

#include "primitives/common/tier.h"

namespace QV_TIER {

// Whether the out-of-place mirror bypasses the cache for its stores: the traffic (bytes read
// plus bytes written, as a signed 32-bit number) passes 1 MiB and is at least the cache size
// that ippGetMaxCacheSizeB reports with status 0.
bool owniMirrorBypassesCache(int traffic);

// Copies a row of bytes bytes; with bypassCache, the stores go around the cache (the caller
// fences after the last row).
void owniMirrorCopyRow(const Ipp8u* src, Ipp8u* dst, size_t bytes, bool bypassCache);

// Reads the pixels of src forward and writes them backward, ending just before dstEnd.
void owniFlipRow_8u_C4(const Ipp8u* src, Ipp8u* dstEnd, size_t pixels, bool bypassCache);
void owniFlipRow_16u_C4(const Ipp8u* src, Ipp8u* dstEnd, size_t pixels, bool bypassCache);

// Exchanges two rows of bytes bytes.
void owniExchangeRows(Ipp8u* a, Ipp8u* b, size_t bytes);

// Reverses a row in place: pixel j and pixel pixels-1-j change places for j below pairs.
void owniFlipRowInPlace_8u_C4(Ipp8u* row, size_t pixels, size_t pairs);
void owniFlipRowInPlace_16u_C4(Ipp8u* row, size_t pixels, size_t pairs);

// Exchanges two rows with reversal: pixel j of a and pixel pixels-1-j of b change places.
void owniExchangeFlipRows_8u_C4(Ipp8u* a, Ipp8u* b, size_t pixels);
void owniExchangeFlipRows_16u_C4(Ipp8u* a, Ipp8u* b, size_t pixels);

// The in-place mirrors. Tests in order: null pointer, width or height below 1, axis outside
// 0..2, height below 2 for axes 0 and 2, width below 2 for axes 1 and 2.
IppStatus ippiMirror_8u_C4IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, IppiAxis flip);
IppStatus ippiMirror_16u_C4IR(Ipp16u* pSrcDst, int srcDstStep, IppiSize roiSize, IppiAxis flip);

}  // namespace QV_TIER

#endif
