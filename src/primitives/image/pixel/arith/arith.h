#ifndef QV_PRIMITIVES_IMAGE_PIXEL_ARITH_ARITH_H
#define QV_PRIMITIVES_IMAGE_PIXEL_ARITH_ARITH_H

// The arithmetic primitives that exist only inside the tiers: the forms with a separate
// destination, of which the exported in-place forms are calls, and the long-vector maximum
// that the in-place image maximum runs row by row.

#include "primitives/common/tier.h"

namespace QV_TIER {

IppStatus ippiMulScale_8u_C1R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                              int dstStep, IppiSize roiSize);
IppStatus ippiMulScale_8u_C4R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                              int dstStep, IppiSize roiSize);
IppStatus ippiMulCScale_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u value, Ipp8u* pDst, int dstStep, IppiSize roiSize);
IppStatus ippiMulCScale_8u_C4R(const Ipp8u* pSrc, int srcStep, const Ipp8u value[4], Ipp8u* pDst, int dstStep,
                               IppiSize roiSize);
IppStatus ippiThreshold_Val_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                   Ipp8u threshold, Ipp8u value, int ippCmpOp);
IppStatus ippsMaxEvery_8u_I(const Ipp8u* pSrc, Ipp8u* pSrcDst, int len);

}  // namespace QV_TIER

#endif
