#ifndef QV_PRIMITIVES_IMAGE_PIXEL_DITHER_DITHER_KERNELS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_DITHER_DITHER_KERNELS_H

// The kernels of the bit reduction and what they share: the level spacing, the quantising step
// of error diffusion and the random threshold tables of the noise forms. All arithmetic is in
// 32-bit floats, in one fixed order, so that every tier writes the same bytes.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// The region and its two images: four-channel pixels, all four channels processed (alpha
// included), the only layout the primitive hands its kernels.
struct DitherImage {
  const Ipp8u* src;
  int srcStep;
  Ipp8u* dst;
  int dstStep;
  int width;
  int height;
};

// Derived from the number of levels; lastLevel is levels - 1.
struct DitherLevels {
  int lastLevel;
  float step;   // distance between levels, 255 / lastLevel
  float scale;  // lastLevel / 255
};

QV_INLINE DitherLevels ditherLevels(int levels) {
  const int lastLevel = levels - 1;
  const float l = static_cast<float>(lastLevel);
  return {lastLevel, (65280.0f / l) * 0.00390625f, l / 255.0f};
}

QV_INLINE Ipp8u saturatedByte(int value) { return static_cast<Ipp8u>(minOf(maxOf(value, 0), 255)); }

// The quantising step of error diffusion: the output byte for v, and the error it leaves.
// Values at or above 255 and below 0 are clamped and leave no error, so saturated areas stop
// the diffusion.
QV_INLINE Ipp8u quantiseDiffused(float v, float threshold, const DitherLevels& levels, float& error) {
  if (v >= 255.0f) {
    error = 0.0f;
    return 255;
  }
  if (v < 0.0f) {
    error = 0.0f;
    return 0;
  }
  const float q = static_cast<float>(static_cast<int>(v * levels.scale)) * levels.step;
  // q + 0 is q exactly; the form without a branch suits thresholds that change at random.
  const float r = q + (v - q > threshold ? levels.step : 0.0f);
  error = v - r;
  return saturatedByte(static_cast<int>(r));
}

constexpr int kNoiseTableSize = 1024;

// The random thresholds of the noise kernels: 1024 indices drawn uniformly from [0, 1024) and
// 1024 floats drawn uniformly from [low, high), both with seed 0, so that every call draws the
// same tables.
struct NoiseTables {
  Ipp16s* index = nullptr;
  Ipp32f* value = nullptr;

  // The table entry of column x in row r.
  QV_INLINE float at(int x, int r) const {
    return value[(index[x & (kNoiseTableSize - 1)] + 2 * r + x) & (kNoiseTableSize - 1)];
  }
};

// ippStsMemAllocErr when a table cannot be allocated; nothing is left allocated then.
IppStatus drawNoiseTables(float low, float high, NoiseTables& tables);
void freeNoiseTables(NoiseTables& tables);

IppStatus ownNo_8u_PX(const DitherImage& image, const DitherLevels& levels);
IppStatus ownReduceBits_fs_8u(const DitherImage& image, const DitherLevels& levels);
IppStatus ownReduceBits_fs_noise_8u(const DitherImage& image, const DitherLevels& levels, int noise);
IppStatus ownReduceBits_st_jj_8u(const DitherImage& image, const DitherLevels& levels, IppiDitherType type);
IppStatus ownReduceBits_st_jj_noise_8u(const DitherImage& image, const DitherLevels& levels, IppiDitherType type,
                                       int noise);
IppStatus ownReduceBits_bayer_8u_c4(const DitherImage& image, const DitherLevels& levels);
IppStatus ownReduceBits_bayer_noise_8u_c4(const DitherImage& image, const DitherLevels& levels, int noise);

}  // namespace QV_TIER

#endif
