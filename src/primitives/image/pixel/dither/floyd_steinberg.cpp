// Floyd-Steinberg error diffusion: the error of a pixel goes 7/16 right, 3/16 down left,
// 5/16 down and 1/16 down right. Channel outermost, then rows top to bottom, then columns left
// to right, without a serpentine walk. The error rows are zeroed once and never cleared between
// channels, so the last row of one channel feeds the first row of the next.

#include "primitives/image/pixel/dither/thresholds.h"
#include "primitives/image/pixel/dither/wavefront.h"

namespace QV_TIER {
namespace {

// A row reads the row above up to column x + 1: two columns of skew leave a round between.
constexpr int kSkew = 2;

template <typename Thresholds>
IppStatus diffuseFloydSteinberg(const DitherImage& image, const DitherLevels levels, const Thresholds thresholds) {
  ErrorRing errors = newErrorRing(image.width, 1);
  if (errors.block == nullptr) return ippStsMemAllocErr;
  // Levels and thresholds are copies held by the kernel: the byte stores cannot alias them.
  walkWavefront(image, errors, kSkew, [levels, thresholds](const DiffusionRow& row, int x) {
    const float* p = row.above;
    const float diffused = (3.0f * p[x + 1] + p[x - 1] + 5.0f * p[x] + 7.0f * row.here[x - 1]) * 0.0625f;
    const float v = static_cast<float>(row.src[4 * x]) + diffused;
    row.dst[4 * x] = quantiseDiffused(v, thresholds.at(x, row.r), levels, row.here[x]);
  });
  freeErrorRing(errors);
  return ippStsNoErr;
}

}  // namespace

IppStatus ownReduceBits_fs_8u(const DitherImage& image, const DitherLevels& levels) {
  return diffuseFloydSteinberg(image, levels, HalfStepThreshold{0.5f * levels.step});
}

IppStatus ownReduceBits_fs_noise_8u(const DitherImage& image, const DitherLevels& levels, int noise) {
  NoiseTables tables;
  IppStatus status = drawDiffusionNoise(noise, levels, tables);
  if (status == ippStsNoErr) status = diffuseFloydSteinberg(image, levels, tables);
  freeNoiseTables(tables);
  return status;
}

}  // namespace QV_TIER
