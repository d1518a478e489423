#ifndef QV_PRIMITIVES_IMAGE_PIXEL_DITHER_THRESHOLDS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_DITHER_THRESHOLDS_H

// The thresholds of the diffusing kernels: half a level in the plain forms, a noise table entry
// in the noise forms.

#include "primitives/image/pixel/dither/dither_kernels.h"

namespace QV_TIER {

// The threshold of the plain diffusing kernels: half a level, everywhere.
struct HalfStepThreshold {
  float value;
  QV_INLINE float at(int, int) const { return value; }
};

// The noise tables of a noise kernel, with thresholds from (50 - noise) to (50 + noise) percent
// of a level.
QV_INLINE IppStatus drawDiffusionNoise(int noise, const DitherLevels& levels, NoiseTables& tables) {
  const float low = static_cast<float>(50 - noise) * levels.step / 100.0f;
  const float high = static_cast<float>(50 + noise) * levels.step / 100.0f;
  return drawNoiseTables(low, high, tables);
}

}  // namespace QV_TIER

#endif
