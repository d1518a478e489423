#ifndef QV_IMAGESYNTH_OFFSETTABLE_H
#define QV_IMAGESYNTH_OFFSETTABLE_H

// The neighbour offsets nearest first, built only as far out as the neighbour walks reach.
//
// The full list is every (x, y) with |x| < w and |y| < h, appended row by row and sorted with
// lessCartesian by the C library's qsort. That comparator answers +1 on equal distances, and the
// library's merge sort then takes the later element first on every tie, so equal distances come
// out in the reverse of their appending order: greater y first, then greater x. This table gives
// that same order as a total one (distance, then y descending, then x descending) and builds it a
// disc at a time, doubling the radius whenever a walk runs past the disc. A walk rarely needs more
// than a few hundred offsets, while the full list costs 8 bytes and a sort per image pixel.
// Where the distances would wrap in 32 bits, the table is the full sorted list from the start.

#include <cstdint>

#include "qvimage/imageSynth.h"

namespace qv::synth {

struct OffsetTable {
  Point* points;  // the first count offsets of the full list
  uint32_t count;
  uint32_t total;  // length of the full list, (2h - 1)(2w - 1)
  int32_t radius;  // every offset within this distance is in points
  int32_t width;   // w and h: the lesser width and height of target and corpus
  int32_t height;
};

void prepareOffsetTable(OffsetTable& table, const Map* target, const Map* corpus);
// Adds the next ring of offsets; false when the table already holds the full list.
bool extendOffsetTable(OffsetTable& table);
void freeOffsetTable(OffsetTable& table);

}  // namespace qv::synth

#endif
