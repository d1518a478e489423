// Quarter-turn and half-turn kernels. Whole 4- and 8-byte pixels move through 16-byte
// registers, transposed in tiles; other widths move pixel by pixel. The bytes are the same.

#include "primitives/image/geometry/warp/rotate_kernels.h"

#include "primitives/common/tier_util.h"
#include "primitives/image/geometry/mirror_kernels.h"
#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {
namespace {

constexpr int kBlockColumns = 16;

template <int CopiedBytes>
QV_INLINE void copyPixel(const Ipp8u* from, Ipp8u* to) {
  __builtin_memcpy(to, from, CopiedBytes);
}

QV_INLINE const Ipp8u* offsetBy(const Ipp8u* p, ptrdiff_t bytes) { return p + bytes; }

// The pixels of a 16-byte register in reverse order.
template <int PixelBytes>
QV_INLINE __m128i reversePixels(__m128i v) {
  if constexpr (PixelBytes == 4) return _mm_shuffle_epi32(v, 0x1B);
  if constexpr (PixelBytes == 8) return _mm_shuffle_epi32(v, 0x4E);
  // single bytes: 32-bit groups reversed, then the words in them, then the bytes in the words
  const __m128i words = _mm_shufflehi_epi16(_mm_shufflelo_epi16(_mm_shuffle_epi32(v, 0x1B), 0xB1), 0xB1);
  return _mm_or_si128(_mm_slli_epi16(words, 8), _mm_srli_epi16(words, 8));
}

// The pixels of 16 / PixelBytes source lines (one per destination column, each holding as many
// destination rows) turned into the destination rows.
template <int PixelBytes>
QV_INLINE void transposeLines(const __m128i* lines, __m128i* rows) {
  if constexpr (PixelBytes == 4) {
    const __m128i t0 = _mm_unpacklo_epi32(lines[0], lines[1]), t1 = _mm_unpacklo_epi32(lines[2], lines[3]);
    const __m128i t2 = _mm_unpackhi_epi32(lines[0], lines[1]), t3 = _mm_unpackhi_epi32(lines[2], lines[3]);
    rows[0] = _mm_unpacklo_epi64(t0, t1);
    rows[1] = _mm_unpackhi_epi64(t0, t1);
    rows[2] = _mm_unpacklo_epi64(t2, t3);
    rows[3] = _mm_unpackhi_epi64(t2, t3);
  } else {
    rows[0] = _mm_unpacklo_epi64(lines[0], lines[1]);
    rows[1] = _mm_unpackhi_epi64(lines[0], lines[1]);
  }
}

// The tile of 16 / PixelBytes destination rows from r and as many columns from c, turned into
// destination rows: each of its source lines holds one destination column, in the order of the
// rows (read backward and reversed where the rows run toward the source's first pixel).
template <int PixelBytes>
QV_INLINE void turnedTile(const Ipp8u* src, ptrdiff_t srcStep, int r, int c, int rowDirection, __m128i* rows) {
  constexpr int kTile = 16 / PixelBytes;
  const ptrdiff_t firstPixel = rowDirection > 0 ? r : -(r + kTile - 1);
  const Ipp8u* s = src + c * srcStep + firstPixel * PixelBytes;
  __m128i lines[kTile];
  for (int k = 0; k < kTile; ++k) {
    lines[k] = loadBlock(s + k * srcStep);
    if (rowDirection < 0) lines[k] = reversePixels<PixelBytes>(lines[k]);
  }
  transposeLines<PixelBytes>(lines, rows);
}

template <int PixelBytes>
QV_INLINE void transposeTile(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int r, int c,
                             int rowDirection) {
  constexpr int kTile = 16 / PixelBytes;
  __m128i rows[kTile];
  turnedTile<PixelBytes>(src, srcStep, r, c, rowDirection, rows);
  Ipp8u* d = dst + r * dstStep + static_cast<ptrdiff_t>(c) * PixelBytes;
  for (int j = 0; j < kTile; ++j) storeBlock(d + j * dstStep, rows[j]);
}

template <int PixelBytes, int CopiedBytes>
QV_INLINE void turnPixel(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int r, int c,
                         int rowDirection) {
  copyPixel<CopiedBytes>(src + c * srcStep + static_cast<ptrdiff_t>(r) * rowDirection * PixelBytes,
                         dst + r * dstStep + static_cast<ptrdiff_t>(c) * PixelBytes);
}

// How far ahead along the source rows of a block their lines are fetched, in pixels.
constexpr int kPrefetchPixels = 64;

// Every 16 destination rows, fetches the source lines that the block reads kPrefetchPixels
// rows further on: a block reads its 16 source rows side by side, more streams than the
// processor follows by itself.
QV_INLINE void prefetchBlockSource(const Ipp8u* src, ptrdiff_t srcStep, int r, ptrdiff_t firstPixel, int rowDirection,
                                   int pixelBytes) {
  if (r % 16 != 0) return;
  for (int k = 0; k < kBlockColumns; ++k)
    _mm_prefetch(
        reinterpret_cast<const char*>(src + k * srcStep + (firstPixel + rowDirection * kPrefetchPixels) * pixelBytes),
        _MM_HINT_T0);
}

// A whole block of 16 columns of 4- or 8-byte pixels, kTile rows at a time: the tiles of the
// block's width are transposed first, then each destination row's 64 or 128 bytes are stored
// one after another, around the cache when stream is set (16-byte aligned rows only).
template <int PixelBytes>
QV_INLINE void rotate90WholeBlock(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int rows,
                                  int rowDirection, bool stream, int* done) {
  constexpr int kTile = 16 / PixelBytes;
  constexpr int kTiles = kBlockColumns / kTile;
  int r = 0;
  for (; r + kTile <= rows; r += kTile) {
    __m128i out[kTile][kTiles];
    const ptrdiff_t firstPixel = rowDirection > 0 ? r : -(r + kTile - 1);
    prefetchBlockSource(src, srcStep, r, firstPixel, rowDirection, PixelBytes);
    for (int q = 0; q < kTiles; ++q) {
      __m128i rows[kTile];
      turnedTile<PixelBytes>(src, srcStep, r, q * kTile, rowDirection, rows);
      for (int j = 0; j < kTile; ++j) out[j][q] = rows[j];
    }
    for (int j = 0; j < kTile; ++j) {
      Ipp8u* d = dst + (r + j) * dstStep;
      for (int q = 0; q < kTiles; ++q) {
        if (stream)
          streamBlock(d + 16 * q, out[j][q]);
        else
          storeBlock(d + 16 * q, out[j][q]);
      }
    }
  }
  *done = r;
}

#if QV_TIER_LEVEL >= 4
// The AVX road for 4-byte pixels: 8 x 8 tiles transposed in 32-byte registers, two tiles across
// the block, eight rows at a time.
QV_INLINE __m256 reverse8(__m256 v) {
  const __m256 inLanes = _mm256_permute_ps(v, 0x1B);
  return _mm256_permute2f128_ps(inLanes, inLanes, 1);
}

QV_INLINE void transpose8(__m256 r[8]) {
  __m256 t[8], u[8];
  for (int k = 0; k < 4; ++k) {
    t[2 * k] = _mm256_unpacklo_ps(r[2 * k], r[2 * k + 1]);
    t[2 * k + 1] = _mm256_unpackhi_ps(r[2 * k], r[2 * k + 1]);
  }
  for (int k = 0; k < 2; ++k) {
    u[4 * k] = _mm256_shuffle_ps(t[4 * k], t[4 * k + 2], 0x44);
    u[4 * k + 1] = _mm256_shuffle_ps(t[4 * k], t[4 * k + 2], 0xEE);
    u[4 * k + 2] = _mm256_shuffle_ps(t[4 * k + 1], t[4 * k + 3], 0x44);
    u[4 * k + 3] = _mm256_shuffle_ps(t[4 * k + 1], t[4 * k + 3], 0xEE);
  }
  for (int k = 0; k < 4; ++k) {
    r[k] = _mm256_permute2f128_ps(u[k], u[k + 4], 0x20);
    r[k + 4] = _mm256_permute2f128_ps(u[k], u[k + 4], 0x31);
  }
}

QV_INLINE void rotate90WholeBlockWide(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int rows,
                                      int rowDirection, bool stream, int* done) {
  int r = 0;
  for (; r + 8 <= rows; r += 8) {
    const ptrdiff_t firstPixel = rowDirection > 0 ? r : -(r + 7);
    prefetchBlockSource(src, srcStep, r, firstPixel, rowDirection, 4);
    for (int half = 0; half < 2; ++half) {
      __m256 lines[8];
      const Ipp8u* s = src + half * 8 * srcStep + firstPixel * 4;
      for (int k = 0; k < 8; ++k) {
        lines[k] = _mm256_loadu_ps(reinterpret_cast<const float*>(s + k * srcStep));
        if (rowDirection < 0) lines[k] = reverse8(lines[k]);
      }
      transpose8(lines);
      for (int j = 0; j < 8; ++j) {
        float* d = reinterpret_cast<float*>(dst + (r + j) * dstStep + half * 32);
        if (stream)
          _mm256_stream_ps(d, lines[j]);
        else
          _mm256_storeu_ps(d, lines[j]);
      }
    }
  }
  *done = r;
}
#endif

// ownpi_Rotate90_B: one block of columns, every row.
template <int PixelBytes, int CopiedBytes>
void rotate90Block(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int rows, int columns,
                   int rowDirection, bool stream) {
  int r = 0;
  if constexpr (PixelBytes == CopiedBytes && (PixelBytes == 4 || PixelBytes == 8)) {
    constexpr int kTile = 16 / PixelBytes;
    if (columns == kBlockColumns) {
#if QV_TIER_LEVEL >= 4
      if constexpr (PixelBytes == 4) {
        rotate90WholeBlockWide(src, srcStep, dst, dstStep, rows, rowDirection,
                               stream && isAligned(dst, 32) && dstStep % 32 == 0, &r);
        stream = false;  // the rows left over below go through the cache
      }
#endif
      int rest = 0;
      rotate90WholeBlock<PixelBytes>(src + static_cast<ptrdiff_t>(r) * rowDirection * PixelBytes, srcStep,
                                     dst + r * dstStep, dstStep, rows - r, rowDirection, stream, &rest);
      r += rest;
    } else {
      for (; r + kTile <= rows; r += kTile) {
        int c = 0;
        for (; c + kTile <= columns; c += kTile)
          transposeTile<PixelBytes>(src, srcStep, dst, dstStep, r, c, rowDirection);
        for (; c < columns; ++c)
          for (int k = 0; k < kTile; ++k)
            turnPixel<PixelBytes, CopiedBytes>(src, srcStep, dst, dstStep, r + k, c, rowDirection);
      }
    }
  }
  for (; r < rows; ++r)
    for (int c = 0; c < columns; ++c)
      turnPixel<PixelBytes, CopiedBytes>(src, srcStep, dst, dstStep, r, c, rowDirection);
}

// Whether a turn moving traffic bytes (read and written, as a signed 32-bit number) stores around
// the cache: as the mirror decides, or, where the processor reports no cache size, above
// kUnknownCacheTraffic.
constexpr int kUnknownCacheTraffic = 16 << 20;

bool turnBypassesCache(int traffic) {
  if (owniMirrorBypassesCache(traffic)) return true;
  int cache = 0;
  return ippGetMaxCacheSizeB(&cache) != ippStsNoErr && traffic > kUnknownCacheTraffic;
}

// ownpi_Rotate90: the blocks of 16 destination columns from left to right, the last one holding
// what remains. A turn larger than the cache stores whole rows of a block around it, where the
// destination's rows are 16-byte aligned.
template <int PixelBytes, int CopiedBytes>
void rotate90(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, int rows, int columns, int rowDirection) {
  const int traffic = static_cast<int>(2u * static_cast<uint32_t>(rows) * static_cast<uint32_t>(columns) * PixelBytes);
  const bool stream = isAligned(dst, 16) && dstStep % 16 == 0 && turnBypassesCache(traffic);
  for (int c = 0; c < columns; c += kBlockColumns)
    rotate90Block<PixelBytes, CopiedBytes>(offsetBy(src, static_cast<ptrdiff_t>(c) * srcStep), srcStep,
                                           dst + static_cast<ptrdiff_t>(c) * PixelBytes, dstStep, rows,
                                           minOf(kBlockColumns, columns - c), rowDirection, stream);
  if (stream) _mm_sfence();
}

// ownpi_Rotate180: each destination row forward from the source row backward.
template <int PixelBytes, int CopiedBytes>
void rotate180(const Ipp8u* srcCorner, int srcStep, Ipp8u* dst, int dstStep, int rows, int columns) {
  constexpr bool kWhole = PixelBytes == CopiedBytes && (PixelBytes == 1 || PixelBytes == 4 || PixelBytes == 8);
  constexpr int kPerBlock = 16 / PixelBytes;
  for (int r = 0; r < rows; ++r) {
    const Ipp8u* from = srcCorner - static_cast<ptrdiff_t>(r) * srcStep;
    Ipp8u* to = rowAt(dst, dstStep, r);
    int c = 0;
    if constexpr (kWhole)
      for (; c + kPerBlock <= columns; c += kPerBlock)
        storeBlock(to + c * PixelBytes, reversePixels<PixelBytes>(loadBlock(from - (c + kPerBlock - 1) * PixelBytes)));
    for (; c < columns; ++c) copyPixel<CopiedBytes>(from - c * PixelBytes, to + c * PixelBytes);
  }
}

struct QuarterTurnTables {
  Rotate90Kernel turn90[24];
  Rotate180Kernel turn180[24];
  int pixelBytes[24];
};

// The interleaved members of one depth: C1, C3, AC4 and C4 for a sample of SampleBytes.
template <int SampleBytes>
constexpr void placeDepth(QuarterTurnTables& tables, int depthIndex) {
  const int base = 6 * depthIndex;
  tables.turn90[base + kLayoutC1] = rotate90<SampleBytes, SampleBytes>;
  tables.turn90[base + kLayoutC3] = rotate90<3 * SampleBytes, 3 * SampleBytes>;
  tables.turn90[base + kLayoutAC4] = rotate90<4 * SampleBytes, 3 * SampleBytes>;
  tables.turn90[base + kLayoutC4] = rotate90<4 * SampleBytes, 4 * SampleBytes>;
  tables.turn180[base + kLayoutC1] = rotate180<SampleBytes, SampleBytes>;
  tables.turn180[base + kLayoutC3] = rotate180<3 * SampleBytes, 3 * SampleBytes>;
  tables.turn180[base + kLayoutAC4] = rotate180<4 * SampleBytes, 3 * SampleBytes>;
  tables.turn180[base + kLayoutC4] = rotate180<4 * SampleBytes, 4 * SampleBytes>;
  const int channels[6] = {1, 3, 4, 3, 4, 4};
  for (int layout = 0; layout < 6; ++layout) tables.pixelBytes[base + layout] = channels[layout] * SampleBytes;
}

constexpr QuarterTurnTables makeQuarterTurnTables() {
  QuarterTurnTables tables{};
  placeDepth<1>(tables, kDepth8u / 8);
  placeDepth<4>(tables, kDepth32f / 8);
  placeDepth<2>(tables, kDepth16u / 8);
  placeDepth<8>(tables, kDepth64f / 8);
  return tables;
}

constexpr QuarterTurnTables kQuarterTurns = makeQuarterTurnTables();

}  // namespace

Rotate90Kernel ownpi_rotate90Kernel(int type) { return kQuarterTurns.turn90[kernelRowOf(type)]; }

Rotate180Kernel ownpi_rotate180Kernel(int type) { return kQuarterTurns.turn180[kernelRowOf(type)]; }

int ownpi_pixelBytes(int type) { return kQuarterTurns.pixelBytes[kernelRowOf(type)]; }

}  // namespace QV_TIER
