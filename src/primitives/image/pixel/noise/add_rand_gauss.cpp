// Gaussian noise on channels 0-2 of a four-channel image, in place. Normal values come in pairs
// from the polar method over the library's random generator; the walk goes row by row, pixel by
// pixel, channels 0, 1, 2, and the fourth channel is never read or written. A pair may straddle
// two pixels or a row's end: the spare value waits for the next channel. At the end the seed
// receives the newest lagged value of the generator.

#include <math.h>

#include "primitives/common/tier_util.h"
#include "primitives/data/random/generator.h"

namespace QV_TIER {
namespace {

constexpr double kUnitScale = 4.656612873077e-10;  // about 2^-31: outputs to [-1, 1)

class NormalSource {
 public:
  NormalSource(uint32_t seed, double mean, double deviation)
      : generator_(seededGenerator(seed)), mean_(mean), deviation_(deviation) {}

  double next() {
    if (hasSpare_) {
      hasSpare_ = false;
      return spare_;
    }
    double u1, u2, s;
    do {
      u1 = static_cast<double>(nextRandom(generator_)) * kUnitScale;
      u2 = static_cast<double>(nextRandom(generator_)) * kUnitScale;
      s = u1 * u1 + u2 * u2;
    } while (s >= 1.0 || s == 0.0);
    const double f = sqrt(-2.0 * log(s) / s);
    spare_ = u2 * deviation_ * f + mean_;
    hasSpare_ = true;
    return u1 * deviation_ * f + mean_;
  }

  uint32_t newestLagged() const { return generator_.a; }

 private:
  RandomGenerator generator_;
  double mean_;
  double deviation_;
  double spare_ = 0.0;
  bool hasSpare_ = false;
};

// Integer samples: the noise is truncated toward zero, added, and saturated to [0, maximum].
template <typename Sample, int kMaximum>
QV_INLINE Sample addTruncated(Sample sample, double noise) {
  const int sum = static_cast<int>(sample) + static_cast<int>(noise);
  return static_cast<Sample>(minOf(maxOf(sum, 0), kMaximum));
}

QV_INLINE Ipp8u addNoise(Ipp8u sample, double noise) { return addTruncated<Ipp8u, 255>(sample, noise); }
QV_INLINE Ipp16u addNoise(Ipp16u sample, double noise) { return addTruncated<Ipp16u, 65535>(sample, noise); }
// Float samples: the noise is rounded to float and added, without a clamp.
QV_INLINE Ipp32f addNoise(Ipp32f sample, double noise) { return sample + static_cast<Ipp32f>(noise); }

template <typename Sample>
IppStatus addGaussianNoise(Sample* image, int step, IppiSize size, double mean, double deviation, unsigned int* seed) {
  if (image == nullptr || seed == nullptr) return ippStsNullPtrErr;
  if (size.width < 1 || size.height < 1) return ippStsSizeErr;
  if (step < 1) return ippStsStepErr;
  NormalSource normal(*seed, mean, deviation);
  for (int r = 0; r < size.height; ++r) {
    Sample* pixel = rowAt(image, step, r);
    for (int x = 0; x < size.width; ++x, pixel += 4) {
      pixel[0] = addNoise(pixel[0], normal.next());
      pixel[1] = addNoise(pixel[1], normal.next());
      pixel[2] = addNoise(pixel[2], normal.next());
    }
  }
  *seed = normal.newestLagged();
  return ippStsNoErr;
}

}  // namespace

IppStatus ippiAddRandGauss_Direct_8u_AC4IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp8u mean, Ipp8u stDev,
                                           unsigned int* pSeed) {
  return addGaussianNoise(pSrcDst, srcDstStep, roiSize, mean, stDev, pSeed);
}

IppStatus ippiAddRandGauss_Direct_16u_AC4IR(Ipp16u* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp16u mean,
                                            Ipp16u stDev, unsigned int* pSeed) {
  return addGaussianNoise(pSrcDst, srcDstStep, roiSize, mean, stDev, pSeed);
}

IppStatus ippiAddRandGauss_Direct_32f_AC4IR(Ipp32f* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp32f mean,
                                            Ipp32f stDev, unsigned int* pSeed) {
  return addGaussianNoise(pSrcDst, srcDstStep, roiSize, mean, stDev, pSeed);
}

}  // namespace QV_TIER
