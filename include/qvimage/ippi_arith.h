#ifndef QVIMAGE_IPPI_ARITH_H
#define QVIMAGE_IPPI_ARITH_H

/* Depth conversion and pixel arithmetic. Steps are in bytes. */

#include "ippdefs.h"

QV_BEGIN_C

/* Hint values of ippiScale_16u8u_C4R: ippAlgHintAccurate selects the accurate form. */
enum { ippAlgHintNone = 0, ippAlgHintFast = 1, ippAlgHintAccurate = 2 };
/* Comparisons of the threshold primitives. */
enum { ippCmpLess = 0, ippCmpLessEq = 1, ippCmpEq = 2, ippCmpGreaterEq = 3, ippCmpGreater = 4 };

QV_API IppStatus ippiScale_8u16u_C4R(const Ipp8u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiSize roiSize);
QV_API IppStatus ippiScale_16u8u_C4R(const Ipp16u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                     int hint);

QV_API IppStatus ippiMulScale_8u_C1IR(const Ipp8u* pSrc, int srcStep, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize);
QV_API IppStatus ippiMulScale_8u_C4IR(const Ipp8u* pSrc, int srcStep, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize);
QV_API IppStatus ippiMulCScale_8u_C1IR(Ipp8u value, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize);
QV_API IppStatus ippiMulCScale_8u_C4IR(const Ipp8u value[4], Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize);

QV_API IppStatus ippiMin_8u_C1R(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u* pMin);
QV_API IppStatus ippiMin_8u_C4R(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u min[4]);
QV_API IppStatus ippiMax_8u_C1R(const Ipp8u* pSrc, int srcStep, IppiSize roiSize, Ipp8u* pMax);
QV_API IppStatus ippiMaxEvery_8u_C1IR(const Ipp8u* pSrc, int srcStep, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize);

QV_API IppStatus ippiAbsDiff_8u_C1R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                                    int dstStep, IppiSize roiSize);
QV_API IppStatus ippiAbsDiffC_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                     int value);

QV_API IppStatus ippiThreshold_Val_8u_C1IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp8u threshold,
                                           Ipp8u value, int ippCmpOp);

QV_END_C

#endif
