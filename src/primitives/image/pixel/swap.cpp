// Channel reorder of four-channel images: three channels to another image, alpha left alone,
// and all four in place. The two test size and step in opposite orders.

#include "primitives/image/pixel/swap_kernels.h"

namespace QV_TIER {
namespace {

// Elements are read as unsigned, so a negative one counts as too large.
bool orderWithin(const int* order, int count, unsigned highest) {
  for (int c = 0; c < count; ++c)
    if (static_cast<unsigned>(order[c]) > highest) return false;
  return true;
}

}  // namespace

IppStatus ippiSwapChannels_8u_AC4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                   const int dstOrder[3]) {
  if (pSrc == nullptr || pDst == nullptr || dstOrder == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (srcStep < 1 || dstStep < 1) return ippStsStepErr;
  if (!orderWithin(dstOrder, 3, 2)) return ippStsChannelOrderErr;
  owniSwapChannelsAC4(pSrc, srcStep, pDst, dstStep, roiSize, dstOrder);
  return ippStsNoErr;
}

IppStatus ippiSwapChannels_8u_C4IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, const int dstOrder[4]) {
  if (pSrcDst == nullptr || dstOrder == nullptr) return ippStsNullPtrErr;
  if (srcDstStep < 1) return ippStsStepErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (!orderWithin(dstOrder, 4, 3)) return ippStsChannelOrderErr;
  ownpi_SwapChannels_8u_C4IR(pSrcDst, srcDstStep, roiSize, dstOrder);
  return ippStsNoErr;
}

}  // namespace QV_TIER
