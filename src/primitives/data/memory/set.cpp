// Long fills of 32-bit and 64-bit elements. Tiers up to y8 fill 32-bit elements with
// ownsSet_32s_M7; e9 has its own ownsSet_32s, which streams only for long fills that exceed a
// known cache.

#include "primitives/common/tier_util.h"
#include "primitives/data/memory/fill_kernels.h"
#include "primitives/data/memory/memory.h"

namespace QV_TIER {
namespace {

// Fills whole 16-byte blocks at a 16-aligned destination: non-temporal and fenced, or cached.
void fillAlignedBlocks(__m128i block, Ipp8u* dst, size_t blocks, bool streaming) {
  if (streaming) {
    for (size_t i = 0; i < blocks; ++i) _mm_stream_si128(reinterpret_cast<__m128i*>(dst + 16 * i), block);
    _mm_sfence();
    return;
  }
  for (size_t i = 0; i < blocks; ++i) _mm_store_si128(reinterpret_cast<__m128i*>(dst + 16 * i), block);
}

// Elements one by one until the destination is 16-aligned, blocks of four, then the rest.
void fillWordsAligned(Ipp32u value, Ipp32s* dst, size_t len, bool streaming) {
  size_t done = 0;
  for (; done < len && !isAligned(dst + done, 16); ++done) dst[done] = static_cast<Ipp32s>(value);
  const size_t blocks = (len - done) / 4;
  fillAlignedBlocks(_mm_set1_epi32(static_cast<int>(value)), reinterpret_cast<Ipp8u*>(dst + done), blocks, streaming);
  for (done += 4 * blocks; done < len; ++done) dst[done] = static_cast<Ipp32s>(value);
}

// A destination not aligned to 4: unaligned blocks, then the rest by unaligned words.
void fillWordsUnaligned(Ipp32u value, Ipp32s* dst, size_t len) {
  const __m128i block = _mm_set1_epi32(static_cast<int>(value));
  Ipp8u* bytes = reinterpret_cast<Ipp8u*>(dst);
  size_t done = 0;
  for (; done + 4 <= len; done += 4) storeBlock(bytes + 4 * done, block);
  for (; done < len; ++done) store32(bytes + 4 * done, value);
}

#if QV_TIER_LEVEL < 4

constexpr int kLongFillElements = 0x40000;

// A destination not aligned to 4, and a length above 0x40000 elements, take their own paths:
// the first unaligned stores, the second non-temporal stores.
void ownsSet_32s_M7(Ipp32u value, Ipp32s* dst, int len) {
  if (!isAligned(dst, 4))
    fillWordsUnaligned(value, dst, static_cast<size_t>(len));
  else
    fillWordsAligned(value, dst, static_cast<size_t>(len), len > kLongFillElements);
}

#else

constexpr size_t kLongFillBytes = 2097153;

void ownsSet_32s(Ipp32u value, Ipp32s* dst, int len) {
  if (!isAligned(dst, 4))
    fillWordsUnaligned(value, dst, static_cast<size_t>(len));
  else
    fillWordsAligned(value, dst, static_cast<size_t>(len), ownsSet32sStreams(dst, len));
}

#endif

}  // namespace

bool ownsSet32sStreams(const void* dst, int len) {
#if QV_TIER_LEVEL < 4
  return isAligned(dst, 4) && len > kLongFillElements;
#else
  const size_t bytes = 4 * static_cast<size_t>(len);
  if (bytes < kLongFillBytes || !isAligned(dst, 4)) return false;
  int cache = 0;
  if (ippGetMaxCacheSizeB(&cache) != ippStsNoErr) return false;
  return cache > 0 && static_cast<size_t>(cache) < bytes;
#endif
}

void ownsSetWords(Ipp32u value, Ipp32s* dst, int len) {
#if QV_TIER_LEVEL < 4
  ownsSet_32s_M7(value, dst, len);
#else
  ownsSet_32s(value, dst, len);
#endif
}

void ownsSetDoubleWords(Ipp64u value, Ipp64s* dst, int len) {
  const __m128i block = _mm_set1_epi64x(static_cast<long long>(value));
  Ipp8u* bytes = reinterpret_cast<Ipp8u*>(dst);
  const size_t count = static_cast<size_t>(len);
  size_t done = 0;
  for (; done + 2 <= count; done += 2) storeBlock(bytes + 8 * done, block);
  if (done < count) store64(bytes + 8 * done, value);
}

IppStatus ippsSet_32s(Ipp32s value, Ipp32s* pDst, int len) {
  if (pDst == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  ownsSetWords(static_cast<Ipp32u>(value), pDst, len);
  return ippStsNoErr;
}

IppStatus ippsSet_32f(Ipp32f value, Ipp32f* pDst, int len) {
  if (pDst == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  Ipp32u bits;
  __builtin_memcpy(&bits, &value, 4);
  ownsSetWords(bits, reinterpret_cast<Ipp32s*>(pDst), len);
  return ippStsNoErr;
}

IppStatus ippsSet_64f(Ipp64f value, Ipp64f* pDst, int len) {
  if (pDst == nullptr) return ippStsNullPtrErr;
  if (len < 1) return ippStsSizeErr;
  Ipp64u bits;
  __builtin_memcpy(&bits, &value, 8);
  ownsSetDoubleWords(bits, reinterpret_cast<Ipp64s*>(pDst), len);
  return ippStsNoErr;
}

}  // namespace QV_TIER
