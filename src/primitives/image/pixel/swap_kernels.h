#ifndef QV_PRIMITIVES_IMAGE_PIXEL_SWAP_KERNELS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_SWAP_KERNELS_H

#include "primitives/common/tier.h"
#include "primitives/image/pixel/pixel_roads.h"

namespace QV_TIER {

// The road of the three-channel reorder on this tier, for arguments that passed the checks.
qv::pixel::SwapRoad owniPlanSwapAC4(const void* src, int srcStep, const void* dst, int dstStep, IppiSize roi,
                                    const int order[3]);

// The road of the in-place four-channel reorder on this tier.
qv::pixel::SwapRoad owniPlanSwapC4I(const void* buffer, int step, IppiSize roi);

// Destination channel c of each pixel becomes source channel order[c], c = 0..2; channel 3 of
// the destination keeps its value.
void owniSwapChannelsAC4(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiSize roi, const int order[3]);

// In place: channel c of each pixel becomes the old channel order[c], c = 0..3.
void ownpi_SwapChannels_8u_C4IR(Ipp8u* buffer, int step, IppiSize roi, const int order[4]);

}  // namespace QV_TIER

#endif
