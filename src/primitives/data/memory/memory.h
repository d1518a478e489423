#ifndef QV_PRIMITIVES_DATA_MEMORY_MEMORY_H
#define QV_PRIMITIVES_DATA_MEMORY_MEMORY_H

// Allocation, long fills and moves as each tier's kernels call them: the exported ones and
// the forms that exist only inside the tiers.

#include "primitives/common/tier.h"

namespace QV_TIER {

QV_TIER_SIBLING(ippsMalloc_8u)
QV_TIER_SIBLING(ippsMalloc_16u)
QV_TIER_SIBLING(ippsFree)
QV_TIER_SIBLING(ippsSet_32s)
QV_TIER_SIBLING(ippsMove_8u)

Ipp16s* ippsMalloc_16s(int len);
Ipp32s* ippsMalloc_32s(int len);
Ipp32f* ippsMalloc_32f(int len);

IppStatus ippsCopy_8u(const Ipp8u* pSrc, Ipp8u* pDst, int len);
IppStatus ippsCopy_32f(const Ipp32f* pSrc, Ipp32f* pDst, int len);
IppStatus ippsMove_16s(const Ipp16s* pSrc, Ipp16s* pDst, int len);
IppStatus ippsMove_32f(const Ipp32f* pSrc, Ipp32f* pDst, int len);
IppStatus ippsSet_32f(Ipp32f value, Ipp32f* pDst, int len);
IppStatus ippsSet_64f(Ipp64f value, Ipp64f* pDst, int len);

}  // namespace QV_TIER

#endif
