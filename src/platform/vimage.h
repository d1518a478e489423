#ifndef QV_PLATFORM_VIMAGE_H
#define QV_PLATFORM_VIMAGE_H

// The two image-framework conversions that the public operations use, as kernels of the library.

#include <cstdint>

#include "qvimage/QVILTypes.h"

namespace qv::platform {

// Interleaves four planes into one four-channel image: channel c of each pixel from plane c.
// The region is the destination's. Answers 0.
long convertPlanar8ToARGB8888(const vImage_Buffer* plane0, const vImage_Buffer* plane1, const vImage_Buffer* plane2,
                              const vImage_Buffer* plane3, const vImage_Buffer* dest, uint32_t flags);

// Channel c of each destination pixel becomes channel map[c] of the source pixel; source and
// destination may be the same buffer. The region is the destination's. Answers 0.
long permuteChannelsARGB8888(const vImage_Buffer* src, const vImage_Buffer* dest, const uint8_t map[4], uint32_t flags);

}  // namespace qv::platform

#endif
