// CompressLZSS and DecompressLZSS: whole buffers through the LZSS primitives, with messages on
// standard output. Their odd paths are kept as callers know them: a failed encode or decode
// other than a full output returns without releasing the state, a failed flush is reported and
// passed over, and the decoder's output size is written but never read as a limit.

#include <cstdio>

#include "qvimage/ipps_lzss.h"

namespace {

constexpr int kDecodeBudget = 1048576;  // output bytes per decoder call

}  // namespace

extern "C" {

QV_API int CompressLZSS(Ipp8u* pSrc, int srcLen, Ipp8u* pDst, int* pDstLen) {
  IppLZSSState_8u* state = nullptr;
  IppStatus status = ippsEncodeLZSSInitAlloc_8u(&state);
  if (status != ippStsNoErr) {
    printf("Error while encode lz77.exiting...");
    return status;
  }
  Ipp8u* src = pSrc;
  Ipp8u* dst = pDst;
  int srcLeft = srcLen;
  int dstLeft = *pDstLen;
  status = ippsEncodeLZSS_8u(&src, &srcLeft, &dst, &dstLeft, state);
  if (status == ippStsDstSizeLessExpected) {
    ippsLZSSFree_8u(state);
    return status;
  }
  if (status != ippStsNoErr) {
    printf("Error while encode lz77.exiting...");
    return status;
  }
  *pDstLen = static_cast<int>(dst - pDst);
  const Ipp8u* flushStart = dst;
  status = ippsEncodeLZSSFlush_8u(&dst, &dstLeft, state);
  if (status != ippStsNoErr) printf("Error <%d> while flushing LZSS endings. Exiting.\n", status);
  *pDstLen += static_cast<int>(dst - flushStart);
  ippsLZSSFree_8u(state);
  return ippStsNoErr;
}

QV_API int DecompressLZSS(Ipp8u* pSrc, int srcLen, Ipp8u* pDst, int* pDstLen) {
  IppLZSSState_8u* state = nullptr;
  IppStatus status = ippsDecodeLZSSInitAlloc_8u(&state);
  if (status != ippStsNoErr) {
    printf("Error while initalloc 4 decode lz77.exiting...");
    return status;
  }
  Ipp8u* src = pSrc;
  Ipp8u* dst = pDst;
  int srcLeft = srcLen;
  int total = 0;
  do {
    int budget = kDecodeBudget;
    status = ippsDecodeLZSS_8u(&src, &srcLeft, &dst, &budget, state);
    total += kDecodeBudget - budget;
    if (status != ippStsNoErr && status != ippStsDstSizeLessExpected) {
      printf("Error %d while decode lz77.exiting...\n", status);
      return status;
    }
  } while (status == ippStsDstSizeLessExpected);
  *pDstLen = total;
  ippsLZSSFree_8u(state);
  return ippStsNoErr;
}

}  // extern "C"
