#ifndef QV_PLATFORM_RESAMPLER_H
#define QV_PLATFORM_RESAMPLER_H

// The library's own resampler, standing in for the platform's scaler and drawing layer: a
// separable filter whose kernel may be stretched on reduction so that every source pixel under
// the stretched support takes part. Edges extend: taps past the image repeat its edge pixels.
// Weights are normalised per position, so a constant image stays constant. Channels are
// filtered alike, whatever they hold (premultiplied samples are taken as they stand).

#include <cstdint>

#include "qvimage/QVILTypes.h"

namespace qv::platform {

enum class ResampleKernel {
  Nearest,   // the source pixel under the destination pixel's centre
  Linear,    // the triangle of radius 1
  Lanczos3,  // sinc(x) sinc(x / 3), |x| < 3
  Lanczos5,  // sinc(x) sinc(x / 5), |x| < 5
};

struct ResampleFilter {
  ResampleKernel kernel;
  bool stretchOnReduction;
};

// Resamples the whole source into the whole destination. channels is 1 or 4, bitsPerSample 8 or
// 16; samples are rounded to nearest and clamped to their range.
void resample(const vImage_Buffer* src, const vImage_Buffer* dst, int channels, int bitsPerSample,
              ResampleFilter filter);

}  // namespace qv::platform

#endif
