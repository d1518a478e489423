// ippiResizeLinear_8u_C4R and ippiResizeLinear_16u_C4R: two-tap interpolation along each axis,
// in f32, from a linear ResizeSpec.

#include "primitives/image/resize/spec/halving_kernels.h"
#include "primitives/image/resize/spec/linear_kernels.h"
#include "primitives/image/resize/spec/resize_frame.h"

namespace QV_TIER {
namespace {

// One call, prepared: the region, its zones, the scratch tables and the source as they address it.
template <typename T>
struct LinearJob {
  ResizeRegion region;
  EdgeZones zones;
  ResizeScratch scratch;
  SourceImage<T> source;
  T* dst;
  int dstStep;  // in bytes

  const ResizeAxisFilter& x() const { return region.spec->xFilter; }
  const ResizeAxisFilter& y() const { return region.spec->yFilter; }
  T* target(int r, int column) const { return destinationRow(dst, dstStep, r) + 4 * column; }
};

// a + (b - a) * f on one sample.
QV_INLINE Ipp32f blendSample(Ipp32f a, Ipp32f b, Ipp32f f) { return a + (b - a) * f; }

// A pixel of the top or bottom zone: the given source row alone, interpolated horizontally.
// Before the first source column, with a left zone, both taps are the first column; past the
// last-but-one, with a right zone, both are the last.
template <typename T>
void edgeRowPixel(const LinearJob<T>& job, int sourceRow, int column, T* out) {
  const int position = job.region.offset.x + column;
  int first = job.x().index[position], second = first + 1;
  if (job.zones.left > 0 && first < 0) first = second = 0;
  if (job.zones.right > 0 && first > job.source.width - 2) first = second = job.source.width - 1;
  const T* p0 = job.source.pixelAt(sourceRow, first);
  const T* p1 = job.source.pixelAt(sourceRow, second);
  const Ipp32f f = job.x().weights[position];
  for (int c = 0; c < 4; ++c)
    storeRoundedSample(out + c, blendSample(static_cast<Ipp32f>(p0[c]), static_cast<Ipp32f>(p1[c]), f));
}

// A pixel of the left or right zone: the given source column alone, interpolated vertically
// between the row of the row table and the one after it.
template <typename T>
void edgeColumnPixel(const LinearJob<T>& job, int r, int sourceColumn, T* out) {
  const intptr_t rowOffset = job.scratch.rowOffsets[r];
  const T* p0 = job.source.rowAt(rowOffset + 4 * static_cast<intptr_t>(sourceColumn));
  const T* p1 = job.source.rowAt(rowOffset + job.source.step + 4 * static_cast<intptr_t>(sourceColumn));
  const Ipp32f f = job.y().weights[job.region.offset.y + r];
  for (int c = 0; c < 4; ++c)
    storeRoundedSample(out + c, blendSample(static_cast<Ipp32f>(p0[c]), static_cast<Ipp32f>(p1[c]), f));
}

template <typename T>
void edgeRows(const LinearJob<T>& job, int firstRow, int rows, int sourceRow) {
  for (int r = firstRow; r < firstRow + rows; ++r)
    for (int column = 0; column < job.region.size.width; ++column)
      edgeRowPixel(job, sourceRow, column, job.target(r, column));
}

template <typename T>
void edgeColumns(const LinearJob<T>& job, int firstColumn, int columns, int sourceColumn) {
  const EdgeZones& zones = job.zones;
  for (int r = zones.top; r < job.region.size.height - zones.bottom; ++r)
    for (int column = firstColumn; column < firstColumn + columns; ++column)
      edgeColumnPixel(job, r, sourceColumn, job.target(r, column));
}

// ownCalcBorderR4Linear: top rows at full width, the left and right columns of the rows
// between, bottom rows at full width. The top takes the first source row, the bottom the last.
template <typename T>
void ownCalcBorderR4Linear(const LinearJob<T>& job) {
  const EdgeZones& zones = job.zones;
  const IppiSize size = job.region.size;
  edgeRows(job, 0, zones.top, 0);
  edgeColumns(job, 0, zones.left, 0);
  edgeColumns(job, size.width - zones.right, zones.right, job.source.width - 1);
  edgeRows(job, size.height - zones.bottom, zones.bottom, job.source.height - 1);
}

// ownResize4Linear: the interior, with two float rows, upper and lower, and the row offset that
// they hold. A destination row whose offset moved past the held one (in the direction of the
// step) swaps them and makes the row after it into the lower one, and the row itself into the
// upper one as well when it moved by more than one step; other rows reuse both.
template <typename T>
void ownResize4Linear(const LinearJob<T>& job) {
  const EdgeZones& zones = job.zones;
  const int rows = job.region.size.height - zones.bottom - zones.top;
  const int columns = job.region.size.width - zones.right - zones.left;
  const Ipp32s* rowOffsets = job.scratch.rowOffsets + zones.top;
  const Ipp32s* columnOffsets = job.scratch.columnOffsets + zones.left;
  const Ipp32f* xFractions = job.x().weights + job.region.offset.x + zones.left;
  const Ipp32f* yFractions = job.y().weights + job.region.offset.y + zones.top;
  const intptr_t step = job.source.step;
  const intptr_t direction = step < 0 ? -1 : 1;
  const intptr_t stepLength = step * direction;
  Ipp32f* upper = job.scratch.rows[0];
  Ipp32f* lower = job.scratch.rows[1];
  auto makeRow = [&](intptr_t offset, Ipp32f* out) {
    ownRow4Linear(job.source.rowAt(offset), columnOffsets, xFractions, columns, out);
  };
  makeRow(rowOffsets[0], lower);
  intptr_t held = rowOffsets[0] - direction;
  for (int r = 0; r < rows; ++r) {
    const intptr_t offset = rowOffsets[r];
    const intptr_t moved = (offset - held) * direction;
    if (moved > 0) {
      Ipp32f* swap = upper;
      upper = lower;
      lower = swap;
      makeRow(offset + step, lower);
      if (moved > stepLength) makeRow(offset, upper);
      held = offset;
    }
    ownColLinear(upper, lower, yFractions[r], columns, job.target(zones.top + r, zones.left));
  }
}

// Both axes halve exactly (ratio 2 / 1): no position is leading or trailing, every fraction is
// 0.5, and destination pixel (i, j) takes the 2 x 2 block from row offset j and column offset i.
bool halvesBothAxes(const ResizeSpec& spec) {
  return spec.xFilter.srcReduced == 2 && spec.xFilter.dstReduced == 1 && spec.yFilter.srcReduced == 2 &&
         spec.yFilter.dstReduced == 1;
}

// The interior of an exact halving, by integer sums that give the samples of the two passes.
template <typename T>
void ownHalve4Linear(const LinearJob<T>& job) {
  const Ipp32s* rowOffsets = job.scratch.rowOffsets;
  const Ipp32s first = job.scratch.columnOffsets[0];
  for (int r = 0; r < job.region.size.height; ++r) {
    const T* upper = job.source.rowAt(rowOffsets[r] + first);
    const T* lower = job.source.rowAt(rowOffsets[r] + job.source.step + first);
    ownHalveRow4Linear(upper, lower, job.region.size.width, job.target(r, 0));
  }
}

template <typename T>
IppStatus resizeLinear(const T* pSrc, int srcStep, T* pDst, int dstStep, IppiPoint dstOffset, IppiSize dstSize,
                       Ipp32u border, const ResizeSpec* pSpec, Ipp8u* pBuffer) {
  LinearJob<T> job;
  const IppStatus status = ownCheckResizeCall(pSrc, srcStep, pDst, dstStep, dstOffset, dstSize, border, pSpec, pBuffer,
                                              sizeof(T) == 2, &job.region);
  if (status != ippStsNoErr) return status;
  const int stepInSamples = srcStep / static_cast<int>(sizeof(T));
  job.zones = ownEdgeZones(job.region, border);
  job.scratch = ownLinearScratch(pBuffer, job.region.size);
  ownFillOffsetTables(job.region, stepInSamples, job.scratch.columnOffsets, job.scratch.rowOffsets);
  job.source = ownSourceImage(pSrc, stepInSamples, job.region);
  job.dst = pDst;
  job.dstStep = dstStep;
  if (halvesBothAxes(*job.region.spec)) {
    ownHalve4Linear(job);
    return job.region.exceeded ? ippStsSizeWrn : ippStsNoErr;
  }
  ownCalcBorderR4Linear(job);
  const EdgeZones& zones = job.zones;
  if (zones.top + zones.bottom < job.region.size.height && zones.left + zones.right < job.region.size.width)
    ownResize4Linear(job);
  return job.region.exceeded ? ippStsSizeWrn : ippStsNoErr;
}

}  // namespace

IppStatus ippiResizeLinear_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiPoint dstOffset,
                                  IppiSize dstSize, Ipp32u border, const Ipp8u*, const ResizeSpec* pSpec,
                                  Ipp8u* pBuffer) {
  return resizeLinear(pSrc, srcStep, pDst, dstStep, dstOffset, dstSize, border, pSpec, pBuffer);
}

IppStatus ippiResizeLinear_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiPoint dstOffset,
                                   IppiSize dstSize, Ipp32u border, const Ipp16u*, const ResizeSpec* pSpec,
                                   Ipp8u* pBuffer) {
  return resizeLinear(pSrc, srcStep, pDst, dstStep, dstOffset, dstSize, border, pSpec, pBuffer);
}

}  // namespace QV_TIER
