#ifndef QV_PRIMITIVES_DATA_RANDOM_RANDOM_H
#define QV_PRIMITIVES_DATA_RANDOM_RANDOM_H

// Uniform generators of each tier. They have no exported entry: the bit reduction's noise
// kernels draw their tables with them, inside their own tier.
//
// A state is made by the InitAlloc form (low, high and seed; the 16-bit form cuts low and high
// to signed 16 bits), continued by each draw and released by the Free form. A state handed to
// the other form's functions answers ippStsContextMatchErr.

#include "primitives/common/tier.h"
#include "qvimage/ipps_random.h"

namespace QV_TIER {

IppStatus ippsRandUniformInitAlloc_16s(IppsRandUniState_16s** ppState, Ipp16s low, Ipp16s high, unsigned int seed);
IppStatus ippsRandUniformInitAlloc_32f(IppsRandUniState_32f** ppState, Ipp32f low, Ipp32f high, unsigned int seed);
IppStatus ippsRandUniform_16s(Ipp16s* pDst, int len, IppsRandUniState_16s* pState);
IppStatus ippsRandUniform_32f(Ipp32f* pDst, int len, IppsRandUniState_32f* pState);
IppStatus ippsRandUniformFree_16s(IppsRandUniState_16s* pState);
IppStatus ippsRandUniformFree_32f(IppsRandUniState_32f* pState);

}  // namespace QV_TIER

#endif
