// Adler-32: the byte sum s1 and the sum of sums s2, both modulo 65521.
//
// Inputs of 31 bytes or more are aligned to 16 with single bytes and then go in 16-byte blocks,
// 346 blocks (5536 bytes) a run. The sums stay in 32 bits for a whole run and are reduced once
// after it: a run is the longest whole number of blocks below the 5552 bytes that 32 bits allow.

#include "primitives/common/tier_util.h"

namespace QV_TIER {
namespace {

constexpr Ipp32u kModulus = 65521;
constexpr int kBlocksPerRun = 346;

struct AdlerSums {
  Ipp32u s1;
  Ipp32u s2;
};

QV_INLINE Ipp32u horizontalSum32(__m128i v) {
  v = _mm_add_epi32(v, _mm_shuffle_epi32(v, 0x4E));
  v = _mm_add_epi32(v, _mm_shuffle_epi32(v, 0xB1));
  return static_cast<Ipp32u>(_mm_cvtsi128_si32(v));
}

// The 16 bytes weighted 16, 15, ... 1, summed into four 32-bit lanes.
QV_INLINE __m128i weightedBlockSum(__m128i block) {
#if QV_TIER_LEVEL >= 2
  const __m128i weights = _mm_setr_epi8(16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1);
  return _mm_madd_epi16(_mm_maddubs_epi16(block, weights), _mm_set1_epi16(1));
#else
  const __m128i zero = _mm_setzero_si128();
  const __m128i front = _mm_unpacklo_epi8(block, zero);
  const __m128i back = _mm_unpackhi_epi8(block, zero);
  return _mm_add_epi32(_mm_madd_epi16(front, _mm_setr_epi16(16, 15, 14, 13, 12, 11, 10, 9)),
                       _mm_madd_epi16(back, _mm_setr_epi16(8, 7, 6, 5, 4, 3, 2, 1)));
#endif
}

// Sums of the bytes of a block, in the low 32 bits of two 64-bit lanes.
QV_INLINE __m128i byteSumOf(__m128i block) { return _mm_sad_epu8(block, _mm_setzero_si128()); }

// What a stretch of blocks adds to the sums, gathered in vectors. Per block s2 grows by 16 s1
// plus the weighted bytes and s1 by the bytes; the s1 terms are kept as sums over blocks of the
// bytes before them. The true s2 of a run fits 32 bits, so wrapping lane arithmetic gives it.
struct BlockSums {
  __m128i bytes = _mm_setzero_si128();           // all bytes so far
  __m128i earlier = _mm_setzero_si128();         // per group of four blocks: the bytes before the group
  __m128i inGroup = _mm_setzero_si128();         // per group: bytes of its blocks before each block
  __m128i weighted = _mm_setzero_si128();        // bytes weighted 16 .. 1 within their block
  __m128i earlierSingles = _mm_setzero_si128();  // per single block: the bytes before it
};

// Four blocks a round: their byte sums feed three running totals, their weighted sums are added
// in 16 bits (at most 4 x 7905) before one widening.
QV_INLINE void addFourBlocks(BlockSums& sums, const Ipp8u* src) {
  const __m128i b0 = loadAlignedBlock(src), b1 = loadAlignedBlock(src + 16), b2 = loadAlignedBlock(src + 32),
                b3 = loadAlignedBlock(src + 48);
  sums.earlier = _mm_add_epi32(sums.earlier, sums.bytes);
  const __m128i first = byteSumOf(b0);
  const __m128i firstTwo = _mm_add_epi32(first, byteSumOf(b1));
  const __m128i firstThree = _mm_add_epi32(firstTwo, byteSumOf(b2));
  sums.inGroup = _mm_add_epi32(sums.inGroup, _mm_add_epi32(first, _mm_add_epi32(firstTwo, firstThree)));
  sums.bytes = _mm_add_epi32(sums.bytes, _mm_add_epi32(firstThree, byteSumOf(b3)));
#if QV_TIER_LEVEL >= 2
  const __m128i weights = _mm_setr_epi8(16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1);
  const __m128i pairs = _mm_add_epi16(_mm_add_epi16(_mm_maddubs_epi16(b0, weights), _mm_maddubs_epi16(b1, weights)),
                                      _mm_add_epi16(_mm_maddubs_epi16(b2, weights), _mm_maddubs_epi16(b3, weights)));
  sums.weighted = _mm_add_epi32(sums.weighted, _mm_madd_epi16(pairs, _mm_set1_epi16(1)));
#else
  sums.weighted =
      _mm_add_epi32(sums.weighted, _mm_add_epi32(_mm_add_epi32(weightedBlockSum(b0), weightedBlockSum(b1)),
                                                 _mm_add_epi32(weightedBlockSum(b2), weightedBlockSum(b3))));
#endif
}

QV_INLINE void addOneBlock(BlockSums& sums, const Ipp8u* src) {
  const __m128i block = loadAlignedBlock(src);
  sums.earlierSingles = _mm_add_epi32(sums.earlierSingles, sums.bytes);
  sums.bytes = _mm_add_epi32(sums.bytes, byteSumOf(block));
  sums.weighted = _mm_add_epi32(sums.weighted, weightedBlockSum(block));
}

// One run of whole aligned blocks.
AdlerSums addBlocks(const Ipp8u* src, int blocks, AdlerSums sums) {
  BlockSums vectors;
  int b = 0;
  for (; b + 4 <= blocks; b += 4) addFourBlocks(vectors, src + 16 * b);
  for (; b < blocks; ++b) addOneBlock(vectors, src + 16 * b);
  sums.s2 += 16u * static_cast<Ipp32u>(blocks) * sums.s1 + 64u * horizontalSum32(vectors.earlier) +
             16u * horizontalSum32(vectors.inGroup) + 16u * horizontalSum32(vectors.earlierSingles) +
             horizontalSum32(vectors.weighted);
  sums.s1 += horizontalSum32(vectors.bytes);
  return sums;
}

AdlerSums ownsAdler32_8u(const Ipp8u* src, int len, AdlerSums sums) {
  if (len >= 31) {
    for (; !isAligned(src, 16); ++src, --len) {
      sums.s1 += *src;
      sums.s2 += sums.s1;
    }
    for (int blocks = len / 16; blocks > 0;) {
      const int run = minOf(blocks, kBlocksPerRun);
      sums = addBlocks(src, run, sums);
      sums.s1 %= kModulus;
      sums.s2 %= kModulus;
      src += 16 * run;
      blocks -= run;
    }
    len &= 15;
  }
  for (; len >= 2; src += 2, len -= 2) {
    sums.s1 += src[0];
    sums.s2 += sums.s1;
    sums.s1 += src[1];
    sums.s2 += sums.s1;
  }
  if (len == 1) {
    sums.s1 += *src;
    sums.s2 += sums.s1;
  }
  return sums;
}

}  // namespace

IppStatus ippsAdler32_8u(const Ipp8u* pSrc, Ipp32u len, Ipp32u* pAdler32) {
  if (pAdler32 == nullptr) return ippStsNullPtrErr;
  if (pSrc == nullptr) {
    *pAdler32 = 1;
    return ippStsNoErr;
  }
  AdlerSums sums{*pAdler32 & 0xFFFF, *pAdler32 >> 16};
  sums = ownsAdler32_8u(pSrc, static_cast<int>(len), sums);
  *pAdler32 = (sums.s2 % kModulus) << 16 | (sums.s1 % kModulus);
  return ippStsNoErr;
}

}  // namespace QV_TIER
