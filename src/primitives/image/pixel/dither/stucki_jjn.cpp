// Stucki and Jarvis-Judice-Ninke error diffusion over two rows below and two columns on each
// side. The error rows are zeroed once and carried from one channel to the next, like the
// Floyd-Steinberg rows; a row reads the errors of the two rows before it in the walk.

#include "primitives/image/pixel/dither/thresholds.h"
#include "primitives/image/pixel/dither/wavefront.h"

namespace QV_TIER {
namespace {

// Weights of the row two above and the row above (columns x-2 to x+2), of the current row
// (columns x-2 and x-1), and the factor that divides by their sum.
struct DiffusionWeights {
  float twoAbove[5];
  float above[5];
  float left[2];
  float factor;
};

constexpr DiffusionWeights kJarvisJudiceNinke = {{1, 3, 5, 3, 1}, {3, 5, 7, 5, 3}, {5, 7}, 0.020833334f};
constexpr DiffusionWeights kStucki = {{1, 2, 4, 2, 1}, {2, 4, 8, 4, 2}, {4, 8}, 0.023809524f};

// The ten terms of the two rows above, summed from the left of the row two above to the right
// of the row above.
QV_INLINE float sumFromAbove(const float* twoAbove, const float* above, int x, const DiffusionWeights& w) {
  float sum = w.twoAbove[0] * twoAbove[x - 2];
  for (int k = 1; k < 5; ++k) sum = sum + w.twoAbove[k] * twoAbove[x - 2 + k];
  for (int k = 0; k < 5; ++k) sum = sum + w.above[k] * above[x - 2 + k];
  return sum;
}

// A row reads the rows above up to column x + 2: three columns of skew leave a round between.
constexpr int kSkew = 3;

template <typename Thresholds>
IppStatus diffuseWide(const DitherImage& image, const DitherLevels levels, const DiffusionWeights weights,
                      const Thresholds thresholds) {
  ErrorRing errors = newErrorRing(image.width, 2);
  if (errors.block == nullptr) return ippStsMemAllocErr;
  // Levels, weights and thresholds are copies held by the kernel: the byte stores cannot alias them.
  walkWavefront(image, errors, kSkew, [levels, weights, thresholds](const DiffusionRow& row, int x) {
    const float* c = row.here;
    const float sum =
        sumFromAbove(row.twoAbove, row.above, x, weights) + weights.left[0] * c[x - 2] + weights.left[1] * c[x - 1];
    const float v = static_cast<float>(row.src[4 * x]) + sum * weights.factor;
    row.dst[4 * x] = quantiseDiffused(v, thresholds.at(x, row.r), levels, row.here[x]);
  });
  freeErrorRing(errors);
  return ippStsNoErr;
}

QV_INLINE const DiffusionWeights& weightsOf(IppiDitherType type) {
  return type == ippDitherStucki ? kStucki : kJarvisJudiceNinke;
}

}  // namespace

IppStatus ownReduceBits_st_jj_8u(const DitherImage& image, const DitherLevels& levels, IppiDitherType type) {
  return diffuseWide(image, levels, weightsOf(type), HalfStepThreshold{0.5f * levels.step});
}

IppStatus ownReduceBits_st_jj_noise_8u(const DitherImage& image, const DitherLevels& levels, IppiDitherType type,
                                       int noise) {
  NoiseTables tables;
  IppStatus status = drawDiffusionNoise(noise, levels, tables);
  if (status == ippStsNoErr) status = diffuseWide(image, levels, weightsOf(type), tables);
  freeNoiseTables(tables);
  return status;
}

}  // namespace QV_TIER
