#ifndef QVIMAGE_IPPS_RLE_H
#define QVIMAGE_IPPS_RLE_H

/* Run-length encoder and decoder.

   The stream has no header and no end marker. A byte c followed by a different byte stands for
   one c; two equal bytes c, c are always followed by a count n, and the three stand for n + 2
   copies of c (2 to 257). So a, a, b encodes as a, a, 0, b, and data made of pairs grows. */

#include "ippdefs.h"

QV_BEGIN_C

/* *ppSrc advances and *pSrcLen falls by the source bytes used; *pDstLen is the capacity on entry
   and the bytes written on return. Answers ippStsNoErr when the whole source was used and
   ippStsDstSizeLessExpected when source bytes remain, for a later call at a fresh destination.
   Null pointers (a null *ppSrc included) give ippStsNullPtrErr; a *pSrcLen or *pDstLen below 1
   gives ippStsSizeErr.
   With fewer than three output bytes left the encoder copies source bytes as they are, so a
   stream stopped there and resumed is not a clean token sequence at the seam. */
QV_API IppStatus ippsEncodeRLE_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u* pDst, int* pDstLen);
/* The same shape. A run is never split across calls: it fits whole or stays for the next one.
   The last two bytes of a source are taken as literals unless a run token began before them. */
QV_API IppStatus ippsDecodeRLE_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u* pDst, int* pDstLen);

/* Whole buffers at once, with messages on the standard streams instead of the log.
   EncodeRLE answers -8 for a null source or destination and 0 otherwise, whatever the primitive
   said: an output too small comes back as 0 with the stream cut at the capacity, and any other
   failure prints "Error <status> while trying RLE encoding" on standard output first.
   DecodeRLE answers -8 for null pointers, 0 for a complete or a cut decode, and otherwise the
   primitive's status after printing it on standard error. */
QV_API int EncodeRLE(Ipp8u* pSrc, int* pSrcLen, Ipp8u* pDst, int* pDstLen);
QV_API int DecodeRLE(Ipp8u* pSrc, int srcLen, Ipp8u* pDst, int* pDstLen);

QV_END_C

#endif
