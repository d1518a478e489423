// Bit reduction of a four-channel 8-bit image: the checks, then one of eight kernels chosen by
// dither type and by whether noise is asked for.

#include "primitives/image/pixel/dither/dither_kernels.h"

namespace QV_TIER {
namespace {

constexpr unsigned kMaximumNoise = 100;
constexpr int kFewestLevels = 2;
constexpr int kMostLevels = 256;

IppStatus runPlainKernel(const DitherImage& image, const DitherLevels& levels, IppiDitherType type) {
  switch (type) {
    case ippDitherFS:
      return ownReduceBits_fs_8u(image, levels);
    case ippDitherJJN:
    case ippDitherStucki:
      return ownReduceBits_st_jj_8u(image, levels, type);
    case ippDitherBayer:
      return ownReduceBits_bayer_8u_c4(image, levels);
    default:
      return ownNo_8u_PX(image, levels);
  }
}

IppStatus runNoiseKernel(const DitherImage& image, const DitherLevels& levels, IppiDitherType type, int noise) {
  switch (type) {
    case ippDitherFS:
      return ownReduceBits_fs_noise_8u(image, levels, noise);
    case ippDitherJJN:
    case ippDitherStucki:
      return ownReduceBits_st_jj_noise_8u(image, levels, type, noise);
    case ippDitherBayer:
      return ownReduceBits_bayer_noise_8u_c4(image, levels, noise);
    default:
      return ownNo_8u_PX(image, levels);  // no noise form
  }
}

}  // namespace

IppStatus ippiReduceBits_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize, int noise,
                                IppiDitherType ditherType, int levels) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width <= 0 || roiSize.height <= 0) return ippStsSizeErr;
  if (static_cast<unsigned>(noise) > kMaximumNoise) return ippStsNoiseValErr;
  if (levels < kFewestLevels || levels > kMostLevels) return ippStsDitherLevelsErr;
  if (static_cast<unsigned>(ditherType) > static_cast<unsigned>(ippDitherBayer)) return ippStsNoErr;
  const DitherImage image{pSrc, srcStep, pDst, dstStep, roiSize.width, roiSize.height};
  const DitherLevels derived = ditherLevels(levels);
  if (noise == 0) return runPlainKernel(image, derived, ditherType);
  return runNoiseKernel(image, derived, ditherType, noise);
}

}  // namespace QV_TIER
