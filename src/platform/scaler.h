#ifndef QV_PLATFORM_SCALER_H
#define QV_PLATFORM_SCALER_H

// The image framework's scaling calls and the drawing layer's scaled draw, on the library's own
// resampler. Scaler flags: 8 extends edges (3-lobe Lanczos), 40 adds high quality (5 lobes);
// kernels stretch on reduction. Drawing qualities: 1 none (nearest), 2 low (linear), 4 medium
// (linear stretched on reduction), 3 high (3-lobe Lanczos stretched on reduction).

#include <cstdint>

#include "qvimage/QVILTypes.h"

namespace qv::platform {

constexpr uint32_t kScaleEdgeExtend = 8;
constexpr uint32_t kScaleHighQuality = 32;

// Each scales the whole source into the whole destination and answers 0.
long scaleARGB8888(const vImage_Buffer* src, const vImage_Buffer* dest, void* tempBuffer, uint32_t flags);
long scaleARGB16U(const vImage_Buffer* src, const vImage_Buffer* dest, void* tempBuffer, uint32_t flags);
long scalePlanar8(const vImage_Buffer* src, const vImage_Buffer* dest, void* tempBuffer, uint32_t flags);

// Draws the four-channel source over the whole destination with copy blending. Answers false,
// drawing nothing, for a depth other than 8 or 16 bits a sample, as a bitmap context refuses it.
bool drawScaledImage(const vImage_Buffer* src, const vImage_Buffer* dest, uint64_t bitsPerComponent, int quality);

}  // namespace qv::platform

#endif
