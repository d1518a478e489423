// Span walks of the flood fill: exact pixel walks, and the 16-pixel right walk whose signed
// comparisons are part of the fill's defined results.

#include "primitives/image/region/span_walk.h"

#include "primitives/common/tier_util.h"

namespace QV_TIER {
namespace {

constexpr int kBlockPixels = 16;

QV_INLINE bool passes(Ipp8u value, FillRange range) { return range.low <= value && value <= range.high; }

// Paints leftward from x - 1 while pixels pass; answers the leftmost painted column.
int walkLeft(Ipp8u* row, int x, FillRange range) {
  int left = x;
  while (left > 0 && passes(row[left - 1], range)) row[--left] = range.newVal;
  return left;
}

// Paints rightward from column from while pixels pass; answers the rightmost painted column.
int walkRightExact(Ipp8u* row, int from, int width, FillRange range) {
  int next = from;
  while (next < width && passes(row[next], range)) row[next++] = range.newVal;
  return next - 1;
}

// Lanes of the block at p that fail the signed test, one bit a lane.
QV_INLINE int failingLanes(const Ipp8u* p, __m128i low, __m128i high) {
  const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  const __m128i outside = _mm_or_si128(_mm_cmpgt_epi8(pixels, high), _mm_cmpgt_epi8(low, pixels));
  return _mm_movemask_epi8(outside);
}

void paintBlocks(Ipp8u* from, int blocks, Ipp8u value) {
  const __m128i fill = _mm_set1_epi8(static_cast<char>(value));
  for (int b = 0; b < blocks; ++b) _mm_storeu_si128(reinterpret_cast<__m128i*>(from + b * kBlockPixels), fill);
}

// The right walk by blocks of 16 from x + 1. The end is found first; then the whole blocks are
// painted, and the passing lanes before the failing one.
int walkRightWide(Ipp8u* row, int x, int width, FillRange range) {
  const __m128i low = _mm_set1_epi8(static_cast<char>(range.low));
  const __m128i high = _mm_set1_epi8(static_cast<char>(range.high));
  int start = x + 1;
  int blocks = 0;
  for (; start + kBlockPixels <= width; start += kBlockPixels, ++blocks) {
    const int failing = failingLanes(row + start, low, high);
    if (failing == 0) continue;
    const int right = start - 1 + __builtin_ctz(static_cast<unsigned>(failing));
    paintBlocks(row + x + 1, blocks, range.newVal);
    for (int column = start; column <= right; ++column) row[column] = range.newVal;
    return right;
  }
  const int right = walkRightExact(row, start, width, range);
  paintBlocks(row + x + 1, blocks, range.newVal);
  return right;
}

}  // namespace

SpanEnds Left_Right_4_8u(Ipp8u* row, int x, int width, FillRange range, int wideWalk, int scanEnd) {
  row[x] = range.newVal;
  const int left = walkLeft(row, x, range);
  const bool wide = wideWalk != 0 && scanEnd - x >= kBlockPixels && x <= width - 17;
  const int right = wide ? walkRightWide(row, x, width, range) : walkRightExact(row, x + 1, width, range);
  return {left, right};
}

}  // namespace QV_TIER
