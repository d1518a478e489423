#ifndef QV_PRIMITIVES_DATA_RLE_RLE_STREAM_H
#define QV_PRIMITIVES_DATA_RLE_RLE_STREAM_H

// The argument checks and the hand-back that the run-length encoder and decoder share: the
// source advances by what was used, its count falls by as much, and the destination count
// becomes what was written.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

QV_INLINE IppStatus checkRleArguments(Ipp8u** ppSrc, const int* pSrcLen, const Ipp8u* pDst, const int* pDstLen) {
  if (ppSrc == nullptr || pSrcLen == nullptr || pDst == nullptr || pDstLen == nullptr || *ppSrc == nullptr)
    return ippStsNullPtrErr;
  if (*pSrcLen < 1 || *pDstLen < 1) return ippStsSizeErr;
  return ippStsNoErr;
}

QV_INLINE void handBackRleProgress(Ipp8u** ppSrc, int* pSrcLen, int* pDstLen, int used, int written) {
  *ppSrc += used;
  *pSrcLen -= used;
  *pDstLen = written;
}

}  // namespace QV_TIER

#endif
