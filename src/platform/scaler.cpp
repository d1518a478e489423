#include "platform/scaler.h"

#include "platform/resampler.h"

namespace qv::platform {
namespace {

ResampleFilter scalerFilter(uint32_t flags) {
  return {(flags & kScaleHighQuality) != 0 ? ResampleKernel::Lanczos5 : ResampleKernel::Lanczos3, true};
}

ResampleFilter drawingFilter(int quality) {
  switch (quality) {
    case 1:
      return {ResampleKernel::Nearest, false};
    case 2:
      return {ResampleKernel::Linear, false};
    case 4:
      return {ResampleKernel::Linear, true};
    default:  // 3, high, and the default quality
      return {ResampleKernel::Lanczos3, true};
  }
}

}  // namespace

long scaleARGB8888(const vImage_Buffer* src, const vImage_Buffer* dest, void*, uint32_t flags) {
  resample(src, dest, 4, 8, scalerFilter(flags));
  return 0;
}

long scaleARGB16U(const vImage_Buffer* src, const vImage_Buffer* dest, void*, uint32_t flags) {
  resample(src, dest, 4, 16, scalerFilter(flags));
  return 0;
}

long scalePlanar8(const vImage_Buffer* src, const vImage_Buffer* dest, void*, uint32_t flags) {
  resample(src, dest, 1, 8, scalerFilter(flags));
  return 0;
}

bool drawScaledImage(const vImage_Buffer* src, const vImage_Buffer* dest, uint64_t bitsPerComponent, int quality) {
  if (bitsPerComponent != 8 && bitsPerComponent != 16) return false;
  resample(src, dest, 4, static_cast<int>(bitsPerComponent), drawingFilter(quality));
  return true;
}

}  // namespace qv::platform
