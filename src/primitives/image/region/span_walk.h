#ifndef QV_PRIMITIVES_IMAGE_REGION_SPAN_WALK_H
#define QV_PRIMITIVES_IMAGE_REGION_SPAN_WALK_H

// The walk that turns one pixel of a flood fill into a painted span of its row.

#include "primitives/common/tier.h"

namespace QV_TIER {

// The fixed range of a fill and the value it paints with. A pixel passes when
// low <= value <= high; painted pixels are tested again like any other.
struct FillRange {
  Ipp8u low;
  Ipp8u high;
  Ipp8u newVal;
};

struct SpanEnds {
  int left;
  int right;
};

// Paints pixel x of row, then walks left from x - 1 to column 0 and right from x + 1 to the last
// column, painting while the pixels pass, and answers the span. The left walk is always exact.
// With wideWalk set, when scanEnd - x is at least 16 and x is at most width - 17, the right walk
// tests blocks of 16 pixels from x + 1 with signed byte comparisons: the span ends before the
// first lane whose byte, read as signed, lies above high or below low read as signed. So a range
// with low at or below 127 and high at or above 128 ends the span at x itself. After the last
// whole block the walk goes on pixel by pixel with the exact test.
SpanEnds Left_Right_4_8u(Ipp8u* row, int x, int width, FillRange range, int wideWalk, int scanEnd);

}  // namespace QV_TIER

#endif
