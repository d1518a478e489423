#ifndef QVIMAGE_IPPS_LZSS_H
#define QVIMAGE_IPPS_LZSS_H

/* LZSS encoder and decoder.

   The stream is a sequence of tokens packed most significant bit first, with no header and no
   end marker: a literal is a 1 bit and the byte (9 bits); a match is a 0 bit, the distance back
   (15 bits, 1 to 32767) and the length - 3 (8 bits, lengths 3 to 258). The last byte is filled up
   with 0 bits, too few to form a match token, and that is where a decoder stops.

   Both sides keep their state in one block of 327744 bytes, so that either can stop at a full
   output and resume in a later call. Source and destination are passed as pointers to pointers
   and to counts, which advance and fall as bytes are used. */

#include "ippdefs.h"

QV_BEGIN_C

/* An encoder or a decoder state; which one is fixed by the call that initialised it. */
typedef struct IppLZSSState_8u IppLZSSState_8u;

/* Allocate (with ippsMalloc_8u) and initialise a state. Null gives ippStsNullPtrErr, no memory
   ippStsMemAllocErr. */
QV_API IppStatus ippsEncodeLZSSInitAlloc_8u(IppLZSSState_8u** ppLZSSState);
QV_API IppStatus ippsDecodeLZSSInitAlloc_8u(IppLZSSState_8u** ppLZSSState);
/* Releases a state of either side. */
QV_API IppStatus ippsLZSSFree_8u(IppLZSSState_8u* pLZSSState);

/* Encodes the source; answers ippStsNoErr when it is used up and ippStsDstSizeLessExpected when
   the output filled first (a *pDstLen of 0 gives that at once, before an empty source is seen).
   Bits short of a byte stay in the state until the next call or the flush. */
QV_API IppStatus ippsEncodeLZSS_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u** ppDst, int* pDstLen,
                                   IppLZSSState_8u* pLZSSState);
/* Writes the pending bits, the last byte filled with 0 bits. A *pDstLen below 1 gives
   ippStsSizeErr. The encoder is not to be used after a flush. */
QV_API IppStatus ippsEncodeLZSSFlush_8u(Ipp8u** ppDst, int* pDstLen, IppLZSSState_8u* pLZSSState);

/* Decodes until the input bits run out (ippStsNoErr) or the output is full
   (ippStsDstSizeLessExpected); a match cut by a full output is finished by the next call.
   A *pDstLen below 1 gives ippStsSizeErr. */
QV_API IppStatus ippsDecodeLZSS_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u** ppDst, int* pDstLen,
                                   IppLZSSState_8u* pLZSSState);

/* Whole buffers at once, with messages on the standard streams instead of the log.
   CompressLZSS: *pDstLen is the capacity on entry and the stream's size on return; answers 0, or
   33 when the capacity was too small, or the status of a failed allocation or call.
   DecompressLZSS: the output must hold the whole decoded data; *pDstLen is written with its size
   but never read as a limit. */
QV_API int CompressLZSS(Ipp8u* pSrc, int srcLen, Ipp8u* pDst, int* pDstLen);
QV_API int DecompressLZSS(Ipp8u* pSrc, int srcLen, Ipp8u* pDst, int* pDstLen);

QV_END_C

#endif
