// Run-length encoder. Each source byte c is written; the bytes after it that equal c, up to 256,
// follow as c and their count - 1. Once fewer than three output bytes remain, source bytes are
// copied as they are until the output is full.

#include "primitives/common/tier_util.h"
#include "primitives/data/rle/rle_stream.h"

namespace QV_TIER {
namespace {

constexpr int kLongestRepeat = 256;  // bytes after the first that one run token covers

// How many of the bytes at p (at most limit) equal c, 16 at a time while they last.
QV_INLINE int repeatsOf(Ipp8u c, const Ipp8u* p, int limit) {
  const __m128i pattern = _mm_set1_epi8(static_cast<char>(c));
  int n = 0;
  for (; n + 16 <= limit; n += 16) {
    const __m128i equal = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p + n)), pattern);
    const unsigned differ = ~static_cast<unsigned>(_mm_movemask_epi8(equal)) & 0xFFFF;
    if (differ != 0) return n + __builtin_ctz(differ);
  }
  while (n < limit && p[n] == c) ++n;
  return n;
}

}  // namespace

IppStatus ippsEncodeRLE_8u(Ipp8u** ppSrc, int* pSrcLen, Ipp8u* pDst, int* pDstLen) {
  const IppStatus status = checkRleArguments(ppSrc, pSrcLen, pDst, pDstLen);
  if (status != ippStsNoErr) return status;
  const Ipp8u* src = *ppSrc;
  const int srcLength = *pSrcLen;
  const int capacity = *pDstLen;
  int i = 0;
  int o = 0;
  while (o < capacity - 2 && i < srcLength) {
    const Ipp8u c = src[i++];
    pDst[o++] = c;
    const int repeats = repeatsOf(c, src + i, minOf(kLongestRepeat, srcLength - i));
    if (repeats > 0) {
      pDst[o++] = c;
      pDst[o++] = static_cast<Ipp8u>(repeats - 1);
      i += repeats;
    }
  }
  while (o < capacity && i < srcLength) pDst[o++] = src[i++];
  handBackRleProgress(ppSrc, pSrcLen, pDstLen, i, o);
  return *pSrcLen != 0 ? ippStsDstSizeLessExpected : ippStsNoErr;
}

}  // namespace QV_TIER
