// Row kernels of the mirror. The m7, u8 and y8 tiers move 16-byte blocks; e9 moves 32-byte
// blocks with AVX permutes. Stores that bypass the cache are 16-byte streaming stores on a
// 16-aligned destination, reached pixel by pixel; where pixel steps cannot reach that
// alignment, the ordinary stores are used. All roads write the same bytes.

#include "primitives/image/geometry/mirror_kernels.h"

#include "primitives/common/tier_util.h"

namespace QV_TIER {
namespace {

constexpr int kBypassStart = 1048576;  // traffic in bytes above which bypassing is considered

// The pixels of a 16-byte block in reverse order: four 4-byte pixels, or two 8-byte pixels.
template <int PixelBytes>
QV_INLINE __m128i reverse16Bytes(__m128i v) {
  if constexpr (PixelBytes == 4) return _mm_shuffle_epi32(v, 0x1B);
  return _mm_shuffle_epi32(v, 0x4E);
}

#if QV_TIER_LEVEL >= 4

using Block = __m256;
constexpr size_t kBlockBytes = 32;

QV_INLINE Block loadRowBlock(const Ipp8u* p) { return _mm256_loadu_ps(reinterpret_cast<const float*>(p)); }
QV_INLINE void storeRowBlock(Ipp8u* p, Block v) { _mm256_storeu_ps(reinterpret_cast<float*>(p), v); }

// Permutes move bits unchanged, whatever the float lanes hold.
template <int PixelBytes>
QV_INLINE Block reverseBlock(Block v) {
  if constexpr (PixelBytes == 4) {
    const Block inLanes = _mm256_permute_ps(v, 0x1B);
    return _mm256_permute2f128_ps(inLanes, inLanes, 1);
  }
  const __m256d pairs = _mm256_permute_pd(_mm256_castps_pd(v), 5);
  return _mm256_castpd_ps(_mm256_permute2f128_pd(pairs, pairs, 1));
}

#else

using Block = __m128i;
constexpr size_t kBlockBytes = 16;

QV_INLINE Block loadRowBlock(const Ipp8u* p) { return loadBlock(p); }
QV_INLINE void storeRowBlock(Ipp8u* p, Block v) { storeBlock(p, v); }

template <int PixelBytes>
QV_INLINE Block reverseBlock(Block v) {
  return reverse16Bytes<PixelBytes>(v);
}

#endif

template <int PixelBytes>
QV_INLINE void copyPixel(const Ipp8u* src, Ipp8u* dst) {
  if constexpr (PixelBytes == 4)
    store32(dst, load32(src));
  else
    store64(dst, load64(src));
}

template <int PixelBytes>
QV_INLINE void swapPixels(Ipp8u* a, Ipp8u* b) {
  if constexpr (PixelBytes == 4) {
    const uint32_t first = load32(a);
    store32(a, load32(b));
    store32(b, first);
  } else {
    const uint64_t first = load64(a);
    store64(a, load64(b));
    store64(b, first);
  }
}

// Bytes of src written backward from dstEnd with streaming stores, 64 at a time, once the
// destination is aligned; answers how many source bytes were consumed.
template <int PixelBytes>
size_t flipRowBypassing(const Ipp8u* src, Ipp8u* dstEnd, size_t bytes) {
  if (addressOf(dstEnd) % PixelBytes != 0) return 0;
  size_t done = 0;
  for (; done < bytes && !isAligned(dstEnd - done, 16); done += PixelBytes)
    copyPixel<PixelBytes>(src + done, dstEnd - done - PixelBytes);
  for (; done + 64 <= bytes; done += 64)
    for (size_t k = 0; k < 64; k += 16)
      streamBlock(dstEnd - done - k - 16, reverse16Bytes<PixelBytes>(loadBlock(src + done + k)));
  return done;
}

template <int PixelBytes>
void flipRow(const Ipp8u* src, Ipp8u* dstEnd, size_t pixels, bool bypassCache) {
  const size_t bytes = pixels * PixelBytes;
  size_t done = bypassCache ? flipRowBypassing<PixelBytes>(src, dstEnd, bytes) : 0;
  for (; done + 4 * kBlockBytes <= bytes; done += 4 * kBlockBytes)
    for (size_t k = 0; k < 4 * kBlockBytes; k += kBlockBytes)
      storeRowBlock(dstEnd - done - k - kBlockBytes, reverseBlock<PixelBytes>(loadRowBlock(src + done + k)));
  for (; done + kBlockBytes <= bytes; done += kBlockBytes)
    storeRowBlock(dstEnd - done - kBlockBytes, reverseBlock<PixelBytes>(loadRowBlock(src + done)));
  for (; done < bytes; done += PixelBytes) copyPixel<PixelBytes>(src + done, dstEnd - done - PixelBytes);
}

// Swaps the first pairs pixels with the last pairs pixels, mirrored: blocks from both ends
// while a whole block of the left part remains, then single pixels.
template <int PixelBytes>
void flipRowInPlace(Ipp8u* row, size_t pixels, size_t pairs) {
  const size_t bytes = pixels * PixelBytes;
  const size_t leftBytes = pairs * PixelBytes;
  size_t left = 0;
  for (; left + kBlockBytes <= leftBytes; left += kBlockBytes) {
    Ipp8u* right = row + bytes - left - kBlockBytes;
    const Block fromLeft = loadRowBlock(row + left);
    const Block fromRight = loadRowBlock(right);
    storeRowBlock(row + left, reverseBlock<PixelBytes>(fromRight));
    storeRowBlock(right, reverseBlock<PixelBytes>(fromLeft));
  }
  for (; left < leftBytes; left += PixelBytes) swapPixels<PixelBytes>(row + left, row + bytes - left - PixelBytes);
}

template <int PixelBytes>
void exchangeFlipRows(Ipp8u* a, Ipp8u* b, size_t pixels) {
  const size_t bytes = pixels * PixelBytes;
  size_t done = 0;
  for (; done + kBlockBytes <= bytes; done += kBlockBytes) {
    Ipp8u* mirrored = b + bytes - done - kBlockBytes;
    const Block fromA = loadRowBlock(a + done);
    const Block fromB = loadRowBlock(mirrored);
    storeRowBlock(a + done, reverseBlock<PixelBytes>(fromB));
    storeRowBlock(mirrored, reverseBlock<PixelBytes>(fromA));
  }
  for (; done < bytes; done += PixelBytes) swapPixels<PixelBytes>(a + done, b + bytes - done - PixelBytes);
}

// Streaming stores of 64 bytes a round once dst is 16-aligned; answers the bytes done.
size_t copyRowBypassing(const Ipp8u* src, Ipp8u* dst, size_t bytes) {
  size_t done = 0;
  for (; done < bytes && !isAligned(dst + done, 16); ++done) dst[done] = src[done];
  for (; done + 64 <= bytes; done += 64)
    for (size_t k = 0; k < 64; k += 16) streamBlock(dst + done + k, loadBlock(src + done + k));
  return done;
}

}  // namespace

bool owniMirrorBypassesCache(int traffic) {
  if (traffic <= kBypassStart) return false;
  int cache = 0;
  if (ippGetMaxCacheSizeB(&cache) != ippStsNoErr) return false;
  return traffic >= cache;
}

void owniMirrorCopyRow(const Ipp8u* src, Ipp8u* dst, size_t bytes, bool bypassCache) {
  size_t done = bypassCache ? copyRowBypassing(src, dst, bytes) : 0;
  for (; done + 4 * kBlockBytes <= bytes; done += 4 * kBlockBytes)
    for (size_t k = 0; k < 4 * kBlockBytes; k += kBlockBytes)
      storeRowBlock(dst + done + k, loadRowBlock(src + done + k));
  for (; done + kBlockBytes <= bytes; done += kBlockBytes) storeRowBlock(dst + done, loadRowBlock(src + done));
  for (; done < bytes; ++done) dst[done] = src[done];
}

void owniFlipRow_8u_C4(const Ipp8u* src, Ipp8u* dstEnd, size_t pixels, bool bypassCache) {
  flipRow<4>(src, dstEnd, pixels, bypassCache);
}

void owniFlipRow_16u_C4(const Ipp8u* src, Ipp8u* dstEnd, size_t pixels, bool bypassCache) {
  flipRow<8>(src, dstEnd, pixels, bypassCache);
}

void owniExchangeRows(Ipp8u* a, Ipp8u* b, size_t bytes) {
  size_t done = 0;
  for (; done + kBlockBytes <= bytes; done += kBlockBytes) {
    const Block fromA = loadRowBlock(a + done);
    storeRowBlock(a + done, loadRowBlock(b + done));
    storeRowBlock(b + done, fromA);
  }
  for (; done < bytes; ++done) {
    const Ipp8u first = a[done];
    a[done] = b[done];
    b[done] = first;
  }
}

void owniFlipRowInPlace_8u_C4(Ipp8u* row, size_t pixels, size_t pairs) { flipRowInPlace<4>(row, pixels, pairs); }

void owniFlipRowInPlace_16u_C4(Ipp8u* row, size_t pixels, size_t pairs) { flipRowInPlace<8>(row, pixels, pairs); }

void owniExchangeFlipRows_8u_C4(Ipp8u* a, Ipp8u* b, size_t pixels) { exchangeFlipRows<4>(a, b, pixels); }

void owniExchangeFlipRows_16u_C4(Ipp8u* a, Ipp8u* b, size_t pixels) { exchangeFlipRows<8>(a, b, pixels); }

}  // namespace QV_TIER
