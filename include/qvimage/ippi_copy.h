#ifndef QVIMAGE_IPPI_COPY_H
#define QVIMAGE_IPPI_COPY_H

/* Whole-image copies, constant fills and channel reordering. Steps are in bytes. */

#include "ippdefs.h"

QV_BEGIN_C

QV_API IppStatus ippiCopy_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize);
QV_API IppStatus ippiCopy_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize);
QV_API IppStatus ippiCopy_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiSize roiSize);
/* Copies byte 4i of each source row to byte i of the destination row: one channel of four. */
QV_API IppStatus ippiCopy_8u_C4C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize);

QV_API IppStatus ippiSet_8u_C1R(Ipp8u value, Ipp8u* pDst, int dstStep, IppiSize roiSize);
QV_API IppStatus ippiSet_8u_C4R(const Ipp8u value[4], Ipp8u* pDst, int dstStep, IppiSize roiSize);

/* Destination channel c takes source channel dstOrder[c], c = 0..2; channel 3 is left alone. */
QV_API IppStatus ippiSwapChannels_8u_AC4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                          const int dstOrder[3]);
/* In place: channel c becomes the old channel dstOrder[c], c = 0..3. */
QV_API IppStatus ippiSwapChannels_8u_C4IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, const int dstOrder[4]);

QV_END_C

#endif
