// The four-connected flood fill with a fixed range: a scanline fill over a stack of span
// records held in the caller's scratch. The stack's capacity is width * height / 4 records;
// when a push fills it, its pointer returns to 0 and the records below are abandoned. That is
// the fill's defined behaviour on a full stack, not an error.

#include "primitives/common/tier_util.h"
#include "primitives/image/region/span_walk.h"

namespace QV_TIER {
namespace {

// A span waiting to be worked: its row and columns, the columns of the span it grew from, and
// the direction: the row looked at first is row - direction, the parent's row is row + direction.
struct SpanRecord {
  int row;
  int left;
  int right;
  int parentLeft;
  int parentRight;
  int direction;
};

struct FillState {
  Ipp8u* image;
  int step;
  int width;
  int height;
  FillRange range;
  Ipp8u* records;  // the scratch from its first 8-aligned address
  int capacity;
  int top;
  long long area;
  int minX, maxX, minY, maxY;
};

QV_INLINE bool passes(Ipp8u value, FillRange range) { return range.low <= value && value <= range.high; }

void pushSpan(FillState& fill, const SpanRecord& record) {
  __builtin_memcpy(fill.records + static_cast<size_t>(fill.top) * sizeof(SpanRecord), &record, sizeof record);
  if (++fill.top == fill.capacity) fill.top = 0;
}

SpanRecord popSpan(FillState& fill) {
  --fill.top;
  SpanRecord record;
  __builtin_memcpy(&record, fill.records + static_cast<size_t>(fill.top) * sizeof(SpanRecord), sizeof record);
  return record;
}

void includeInBox(FillState& fill, const SpanRecord& record) {
  fill.minX = minOf(fill.minX, record.left);
  fill.maxX = maxOf(fill.maxX, record.right);
  fill.minY = minOf(fill.minY, record.row);
  fill.maxY = maxOf(fill.maxY, record.row);
}

// Scans row y from column x while x is below limit. Each pixel that passes grows into a span,
// which is counted, pushed with the worked record as its parent, and skipped past plus one.
void scanRow(FillState& fill, int y, int x, int limit, const SpanRecord& worked, int direction) {
  Ipp8u* row = rowAt(fill.image, fill.step, y);
  while (x < limit) {
    if (!passes(row[x], fill.range)) {
      ++x;
      continue;
    }
    const SpanEnds span = Left_Right_4_8u(row, x, fill.width, fill.range, 1, worked.right);
    fill.area += span.right - span.left + 1;
    pushSpan(fill, {y, span.left, span.right, worked.left, worked.right, direction});
    x = span.right + 2;
  }
}

// Pops one record and scans, in this order: the row ahead over the record's columns; then in
// the parent's row the columns left of the parent and those right of it.
void workSpan(FillState& fill) {
  const SpanRecord worked = popSpan(fill);
  includeInBox(fill, worked);
  const int ahead = worked.row - worked.direction;
  if (ahead >= 0 && ahead < fill.height) scanRow(fill, ahead, worked.left, worked.right + 1, worked, worked.direction);
  const int back = worked.row + worked.direction;
  scanRow(fill, back, worked.left, worked.parentLeft, worked, -worked.direction);
  scanRow(fill, back, worked.parentRight + 1, worked.right + 1, worked, -worked.direction);
}

IppStatus checkFill(const Ipp8u* image, int step, IppiSize roi, IppiPoint seed, const IppiConnectedComp* region,
                    const Ipp8u* scratch) {
  if (image == nullptr || region == nullptr || scratch == nullptr) return ippStsNullPtrErr;
  if (roi.width < 1 || roi.height < 1) return ippStsSizeErr;
  if (step < roi.width) return ippStsStepErr;
  if (seed.x < 0 || seed.x >= roi.width || seed.y < 0 || seed.y >= roi.height) return ippStsOutOfRangeErr;
  return ippStsNoErr;
}

FillRange rangeAround(Ipp8u seedValue, Ipp8u newVal, Ipp8u minDelta, Ipp8u maxDelta) {
  const int low = seedValue - minDelta;
  const int high = seedValue + maxDelta;
  return {static_cast<Ipp8u>(maxOf(low, 0)), static_cast<Ipp8u>(minOf(high, 255)), newVal};
}

// width * height / 4 in 32 bits.
int stackCapacity(IppiSize roi) {
  return static_cast<int>(static_cast<uint32_t>(roi.width) * static_cast<uint32_t>(roi.height)) / 4;
}

void report(const FillState& fill, IppiConnectedComp* region) {
  region->area = static_cast<double>(fill.area);
  region->value[0] = fill.range.newVal;
  region->value[1] = 0;
  region->value[2] = 0;
  region->rect = {fill.minX, fill.minY, fill.maxX - fill.minX + 1, fill.maxY - fill.minY + 1};
}

}  // namespace

IppStatus ippiFloodFillGetSize_Grad(IppiSize roiSize, int* pBufSize) {
  if (pBufSize == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  const uint32_t width = static_cast<uint32_t>(roiSize.width);
  const uint32_t height = static_cast<uint32_t>(roiSize.height);
  const int border = static_cast<int>((width + 2) * (height + 2));
  const int records = static_cast<int>(height * 24u * width) >> 2;
  *pBufSize = static_cast<int>(static_cast<uint32_t>(border) + static_cast<uint32_t>(records) + 32u);
  return ippStsNoErr;
}

IppStatus ippiFloodFill_Range4Con_8u_C1IR(Ipp8u* pImage, int imageStep, IppiSize roiSize, IppiPoint seed, Ipp8u newVal,
                                          Ipp8u minDelta, Ipp8u maxDelta, IppiConnectedComp* pRegion, Ipp8u* pBuffer) {
  const IppStatus status = checkFill(pImage, imageStep, roiSize, seed, pRegion, pBuffer);
  if (status != ippStsNoErr) return status;
  Ipp8u* seedRow = rowAt(pImage, imageStep, seed.y);
  if (seedRow[seed.x] == newVal) return ippStsNoErr;

  FillState fill{};
  fill.image = pImage;
  fill.step = imageStep;
  fill.width = roiSize.width;
  fill.height = roiSize.height;
  fill.range = rangeAround(seedRow[seed.x], newVal, minDelta, maxDelta);
  fill.records = reinterpret_cast<Ipp8u*>((addressOf(pBuffer) + 7) & ~static_cast<uintptr_t>(7));
  fill.capacity = stackCapacity(roiSize);

  const SpanEnds seedSpan = Left_Right_4_8u(seedRow, seed.x, fill.width, fill.range, 0, 0);
  fill.area = seedSpan.right - seedSpan.left + 1;
  fill.minX = seedSpan.left;
  fill.maxX = seedSpan.right;
  fill.minY = fill.maxY = seed.y;
  if (fill.height > 1) {
    const int direction = seed.y == fill.height - 1 ? -1 : 1;
    pushSpan(fill, {seed.y, seedSpan.left, seedSpan.right, seedSpan.right + 1, seedSpan.right, direction});
    // A stack of one record ends the fill with the seed's row.
    if (fill.capacity != 1) {
      do {
        workSpan(fill);
      } while (fill.top != 0);
    }
  }
  report(fill, pRegion);
  return ippStsNoErr;
}

}  // namespace QV_TIER
