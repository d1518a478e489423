// Quarter-turn and half-turn kernels. Whole 4- and 8-byte pixels move through 16-byte
// registers, transposed in tiles; other widths move pixel by pixel. The bytes are the same.

#include "primitives/image/geometry/warp/rotate_kernels.h"

#include "primitives/common/tier_util.h"
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

// A tile of 16 / PixelBytes destination rows and as many columns, from r, c.
template <int PixelBytes>
QV_INLINE void transposeTile(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int r, int c,
                             int rowDirection) {
  constexpr int kTile = 16 / PixelBytes;
  const ptrdiff_t firstPixel = rowDirection > 0 ? r : -(r + kTile - 1);
  const Ipp8u* s = src + c * srcStep + firstPixel * PixelBytes;
  Ipp8u* d = dst + r * dstStep + static_cast<ptrdiff_t>(c) * PixelBytes;
  __m128i lines[kTile];
  for (int k = 0; k < kTile; ++k) {
    lines[k] = loadBlock(s + k * srcStep);
    if (rowDirection < 0) lines[k] = reversePixels<PixelBytes>(lines[k]);
  }
  if constexpr (PixelBytes == 4) {
    const __m128i t0 = _mm_unpacklo_epi32(lines[0], lines[1]), t1 = _mm_unpacklo_epi32(lines[2], lines[3]);
    const __m128i t2 = _mm_unpackhi_epi32(lines[0], lines[1]), t3 = _mm_unpackhi_epi32(lines[2], lines[3]);
    storeBlock(d, _mm_unpacklo_epi64(t0, t1));
    storeBlock(d + dstStep, _mm_unpackhi_epi64(t0, t1));
    storeBlock(d + 2 * dstStep, _mm_unpacklo_epi64(t2, t3));
    storeBlock(d + 3 * dstStep, _mm_unpackhi_epi64(t2, t3));
  } else {
    storeBlock(d, _mm_unpacklo_epi64(lines[0], lines[1]));
    storeBlock(d + dstStep, _mm_unpackhi_epi64(lines[0], lines[1]));
  }
}

template <int PixelBytes, int CopiedBytes>
QV_INLINE void turnPixel(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int r, int c,
                         int rowDirection) {
  copyPixel<CopiedBytes>(src + c * srcStep + static_cast<ptrdiff_t>(r) * rowDirection * PixelBytes,
                         dst + r * dstStep + static_cast<ptrdiff_t>(c) * PixelBytes);
}

// ownpi_Rotate90_B: one block of columns, every row.
template <int PixelBytes, int CopiedBytes>
void rotate90Block(const Ipp8u* src, ptrdiff_t srcStep, Ipp8u* dst, ptrdiff_t dstStep, int rows, int columns,
                   int rowDirection) {
  int r = 0;
  if constexpr (PixelBytes == CopiedBytes && (PixelBytes == 4 || PixelBytes == 8)) {
    constexpr int kTile = 16 / PixelBytes;
    for (; r + kTile <= rows; r += kTile) {
      int c = 0;
      for (; c + kTile <= columns; c += kTile)
        transposeTile<PixelBytes>(src, srcStep, dst, dstStep, r, c, rowDirection);
      for (; c < columns; ++c)
        for (int k = 0; k < kTile; ++k)
          turnPixel<PixelBytes, CopiedBytes>(src, srcStep, dst, dstStep, r + k, c, rowDirection);
    }
  }
  for (; r < rows; ++r)
    for (int c = 0; c < columns; ++c)
      turnPixel<PixelBytes, CopiedBytes>(src, srcStep, dst, dstStep, r, c, rowDirection);
}

// ownpi_Rotate90: the blocks of 16 destination columns from left to right, the last one holding
// what remains.
template <int PixelBytes, int CopiedBytes>
void rotate90(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, int rows, int columns, int rowDirection) {
  for (int c = 0; c < columns; c += kBlockColumns)
    rotate90Block<PixelBytes, CopiedBytes>(offsetBy(src, static_cast<ptrdiff_t>(c) * srcStep), srcStep,
                                           dst + static_cast<ptrdiff_t>(c) * PixelBytes, dstStep, rows,
                                           minOf(kBlockColumns, columns - c), rowDirection);
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
