// Region copies: one channel, four channels of 8 or 16 bits, and one channel out of four.
// Steps are not tested: a zero or negative step is followed as given.

#include "primitives/common/tier_util.h"
#include "primitives/image/pixel/copy_kernels.h"

namespace QV_TIER {
namespace {

IppStatus copyRegion(const void* src, int srcStep, void* dst, int dstStep, IppiSize roi, size_t bytesPerPixel) {
  if (src == nullptr || dst == nullptr) return ippStsNullPtrErr;
  if (roi.width < 1 || roi.height < 1) return ippStsSizeErr;
  owniCopyImage(static_cast<const Ipp8u*>(src), srcStep, static_cast<Ipp8u*>(dst), dstStep,
                static_cast<size_t>(roi.width) * bytesPerPixel, roi.height);
  return ippStsNoErr;
}

// Single pixels until the destination is aligned to 4, then 8 pixels a round as two 32-bit
// stores, then the rest singly.
void owniCopy8u_C4C1_M7(const Ipp8u* src, Ipp8u* dst, size_t width) {
  size_t x = 0;
  for (; x < width && !isAligned(dst + x, 4); ++x) dst[x] = src[4 * x];
  for (; x + 8 <= width; x += 8) {
    const Ipp8u* s = src + 4 * x;
    store32(dst + x, s[0] | s[4] << 8 | s[8] << 16 | static_cast<uint32_t>(s[12]) << 24);
    store32(dst + x + 4, s[16] | s[20] << 8 | s[24] << 16 | static_cast<uint32_t>(s[28]) << 24);
  }
  for (; x < width; ++x) dst[x] = src[4 * x];
}

}  // namespace

IppStatus ippiCopy_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize) {
  return copyRegion(pSrc, srcStep, pDst, dstStep, roiSize, 1);
}

IppStatus ippiCopy_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize) {
  return copyRegion(pSrc, srcStep, pDst, dstStep, roiSize, 4);
}

// Copies bits: the same as a signed 16-bit copy.
IppStatus ippiCopy_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiSize roiSize) {
  return copyRegion(pSrc, srcStep, pDst, dstStep, roiSize, 8);
}

IppStatus ippiCopy_8u_C4C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  size_t width = static_cast<size_t>(roiSize.width);
  int height = roiSize.height;
  // 32-bit arithmetic as the steps are given: a step that wraps simply does not match.
  const int fourDstSteps = static_cast<int>(4u * static_cast<unsigned>(dstStep));
  if (srcStep == fourDstSteps && dstStep == roiSize.width) {
    width *= static_cast<size_t>(height);
    height = 1;
  }
  for (int r = 0; r < height; ++r) owniCopy8u_C4C1_M7(rowAt(pSrc, srcStep, r), rowAt(pDst, dstStep, r), width);
  return ippStsNoErr;
}

}  // namespace QV_TIER
