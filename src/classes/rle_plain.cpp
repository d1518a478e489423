// EncodeRLE and DecodeRLE: whole buffers through the run-length primitives.
//
// EncodeRLE answers 0 whatever the primitive said: an output too small comes back as 0 with the
// stream cut at the capacity, and other failures are printed on standard output first. DecodeRLE
// passes a failure on, after printing it on standard error.

#include <cstdio>

#include "qvimage/ipps_rle.h"

extern "C" {

QV_API int EncodeRLE(Ipp8u* pSrc, int* pSrcLen, Ipp8u* pDst, int* pDstLen) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  Ipp8u* src = pSrc;
  const IppStatus status = ippsEncodeRLE_8u(&src, pSrcLen, pDst, pDstLen);
  if (status != ippStsNoErr && status != ippStsDstSizeLessExpected)
    printf("Error <%d> while trying RLE encoding\n", status);
  return ippStsNoErr;
}

QV_API int DecodeRLE(Ipp8u* pSrc, int srcLen, Ipp8u* pDst, int* pDstLen) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  Ipp8u* src = pSrc;
  int srcLeft = srcLen;
  const IppStatus status = ippsDecodeRLE_8u(&src, &srcLeft, pDst, pDstLen);
  if (status == ippStsNoErr || status == ippStsDstSizeLessExpected) return ippStsNoErr;
  fprintf(stderr, "Error <%d> while trying RLE decoding. Exiting.\n", status);
  return status;
}

}  // extern "C"
