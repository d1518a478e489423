#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_TILES_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_WARP_TILES_H

// The order in which the warp kernels visit the spans: bands of rows, and within a band the
// rows take turns at a few dozen pixels each, so that the pixels done together read the same
// small part of the source (a turned or tilted row crosses hundreds of source rows, each on
// its own memory pages). Each row's pixels are still done in order from its first column, and
// its coordinates are carried by the same additions as in a walk row after row, so the results
// are those of that walk.

#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {

constexpr int kBandRows = 32;

// What a row's walk carries from one turn to the next: three sums (the affine kernels use the
// first two for the source x and y; the perspective kernels the two numerators and the
// denominator) at the row's next pixel, that pixel's column and the row's last column.
struct RowCursor {
  double first, second, third;
  int next, last;
};

// startRow(y, span) is called once for every row from the first to the last, in order, and
// answers the row's cursor at the first column of its span (an empty span has first > last).
// segment(row, cursor, count) does count pixels from cursor.next of the destination row and
// leaves the sums at the pixel after them; count is segmentPixels except at a span's end.
template <typename StartRow, typename Segment>
QV_INLINE void walkTiles(const WarpRows& job, int segmentPixels, StartRow&& startRow, Segment&& segment) {
  RowCursor cursors[kBandRows];
  for (int band = job.firstRow; band <= job.lastRow; band += kBandRows) {
    const int rows = minOf(kBandRows, job.lastRow - band + 1);
    for (int r = 0; r < rows; ++r) cursors[r] = startRow(band + r, job.spans + 2 * (band + r - job.firstRow));
    for (bool more = true; more;) {
      more = false;
      for (int r = 0; r < rows; ++r) {
        RowCursor& cursor = cursors[r];
        if (cursor.next > cursor.last) continue;
        const int count = minOf(segmentPixels, cursor.last - cursor.next + 1);
        segment(rowAt(job.dst, job.dstStep, band + r - job.firstRow), cursor, count);
        cursor.next += count;
        more = more || cursor.next <= cursor.last;
      }
    }
  }
}

}  // namespace QV_TIER

#endif
