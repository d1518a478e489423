// Run-length decoder. A byte followed by a different one is a literal; two equal bytes and a
// count n are n + 2 copies. A run is written whole or left for a later call. The last two source
// bytes are literals unless a run token began before them.

#include "primitives/common/tier_util.h"
#include "primitives/data/rle/rle_stream.h"

namespace QV_TIER {
namespace {

constexpr int kVectorRunCount = 15;  // counts from this on fill with 16-byte stores

// n + 2 copies of c. Long runs go single bytes until the output is aligned, then whole vectors,
// then single bytes; the bytes are those of the plain loop.
QV_INLINE void writeRun(Ipp8u* to, Ipp8u c, int n) {
  int count = n + 2;
  if (n >= kVectorRunCount) {
    for (; !isAligned(to, 16); --count) *to++ = c;
    const __m128i pattern = _mm_set1_epi8(static_cast<char>(c));
    for (; count >= 16; count -= 16, to += 16) _mm_store_si128(reinterpret_cast<__m128i*>(to), pattern);
  }
  for (; count > 0; --count) *to++ = c;
}

}  // namespace

IppStatus ippsDecodeRLE_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u* pDst, int* pDstLen) {
  const IppStatus status = checkRleArguments(ppSrc, pSrcLen, pDst, pDstLen);
  if (status != ippStsNoErr) return status;
  const Ipp8u* src = *ppSrc;
  const int srcLength = *pSrcLen;
  const int capacity = *pDstLen;
  int i = 0;
  int o = 0;
  while (i < srcLength - 2 && o < capacity) {
    const Ipp8u c = src[i];
    if (src[i + 1] != c) {
      pDst[o++] = c;
      ++i;
      continue;
    }
    const int n = src[i + 2];
    if (o + n + 1 >= capacity) break;
    writeRun(pDst + o, c, n);
    o += n + 2;
    i += 3;
  }
  if (i >= srcLength - 2)
    for (; i < srcLength && o < capacity; ++i) pDst[o++] = src[i];
  handBackRleProgress(ppSrc, pSrcLen, pDstLen, i, o);
  return *pSrcLen != 0 ? ippStsDstSizeLessExpected : ippStsNoErr;
}

}  // namespace QV_TIER
