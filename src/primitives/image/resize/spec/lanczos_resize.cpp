// ippiResizeLanczos_8u_C4R and ippiResizeLanczos_16u_C4R: separable Lanczos filtering of 2 or 3
// lobes, in f32, from a Lanczos ResizeSpec. The kernel keeps unit source spacing whatever the
// ratio: 2 * lobes taps, also for reductions.

#include "primitives/image/resize/spec/lanczos_kernels.h"
#include "primitives/image/resize/spec/resize_frame.h"

namespace QV_TIER {
namespace {

template <typename T>
struct LanczosJob {
  ResizeRegion region;
  EdgeZones zones;
  ResizeScratch scratch;
  SourceImage<T> source;
  T* dst;
  int dstStep;  // in bytes
  int lobes;

  const ResizeAxisFilter& x() const { return region.spec->xFilter; }
  const ResizeAxisFilter& y() const { return region.spec->yFilter; }
  T* target(int r, int column) const { return destinationRow(dst, dstStep, r) + 4 * column; }
};

// The taps of one axis at a position: index - lobes + 1 + k, moved into [0, length - 1] on the
// sides where the call has a zone.
void tapsOf(int index, int lobes, int length, bool clampLow, bool clampHigh, int* taps) {
  for (int k = 0; k < 2 * lobes; ++k) {
    int tap = index - lobes + 1 + k;
    if (clampLow && tap < 0) tap = 0;
    if (clampHigh && tap > length - 1) tap = length - 1;
    taps[k] = tap;
  }
}

// A zone pixel, from all taps directly: each tap row summed with the horizontal weights, and
// these sums with the vertical weights. A tap moved to the edge keeps its weight.
template <typename T, int Taps>
void zonePixel(const LanczosJob<T>& job, int r, int column, T* out) {
  const EdgeZones& zones = job.zones;
  const int row = job.region.offset.y + r, position = job.region.offset.x + column;
  int tapRows[Taps], tapColumns[Taps];
  tapsOf(job.y().index[row], Taps / 2, job.source.height, zones.top > 0, zones.bottom > 0, tapRows);
  tapsOf(job.x().index[position], Taps / 2, job.source.width, zones.left > 0, zones.right > 0, tapColumns);
  const Ipp32f* wy = job.y().weights + static_cast<ptrdiff_t>(Taps) * row;
  const Ipp32f* wx = job.x().weights + static_cast<ptrdiff_t>(Taps) * position;
  for (int c = 0; c < 4; ++c) {
    Ipp32f columnTerms[Taps];
    for (int k = 0; k < Taps; ++k) {
      Ipp32f rowTerms[Taps];
      for (int m = 0; m < Taps; ++m)
        rowTerms[m] = wx[m] * static_cast<Ipp32f>(job.source.pixelAt(tapRows[k], tapColumns[m])[c]);
      columnTerms[k] = wy[k] * sumOfTaps(rowTerms, Taps);
    }
    storeRoundedSample(out + c, sumOfTaps(columnTerms, Taps));
  }
}

template <typename T, int Taps>
void zoneBlock(const LanczosJob<T>& job, int firstRow, int rows, int firstColumn, int columns) {
  for (int r = firstRow; r < firstRow + rows; ++r)
    for (int column = firstColumn; column < firstColumn + columns; ++column)
      zonePixel<T, Taps>(job, r, column, job.target(r, column));
}

// ownCalcBorderR4Lanczos2 / 3: top rows, left columns, right columns, bottom rows.
template <typename T, int Taps>
void ownCalcBorderR4Lanczos(const LanczosJob<T>& job) {
  const EdgeZones& zones = job.zones;
  const IppiSize size = job.region.size;
  const int middle = size.height - zones.top - zones.bottom;
  zoneBlock<T, Taps>(job, 0, zones.top, 0, size.width);
  zoneBlock<T, Taps>(job, zones.top, middle, 0, zones.left);
  zoneBlock<T, Taps>(job, zones.top, middle, size.width - zones.right, zones.right);
  zoneBlock<T, Taps>(job, size.height - zones.bottom, zones.bottom, 0, size.width);
}

// ownResize4Lanczos2 / 3: the interior, with a ring of 2 * lobes float rows in tap order and the
// row offset they stand for. Before the first row the ring holds the rows from lobes - 1 steps
// before the first offset to lobes - 1 after it, behind one free place, and the held offset is
// one less (for a negative step one more), so that the first row counts as a move. A move of m
// steps rotates the ring by m places and makes the m rows that came into the window, from the
// last (offset + lobes steps) backwards; a move of 2 * lobes steps or more makes them all.
template <typename T, int Taps>
void ownResize4Lanczos(const LanczosJob<T>& job) {
  constexpr int kLobes = Taps / 2;
  const EdgeZones& zones = job.zones;
  const int rows = job.region.size.height - zones.bottom - zones.top;
  const int columns = job.region.size.width - zones.right - zones.left;
  const Ipp32s* rowOffsets = job.scratch.rowOffsets + zones.top;
  const Ipp32s* columnOffsets = job.scratch.columnOffsets + zones.left;
  const Ipp32f* xWeights = job.x().weights + static_cast<ptrdiff_t>(Taps) * (job.region.offset.x + zones.left);
  const Ipp32f* yWeights = job.y().weights + static_cast<ptrdiff_t>(Taps) * (job.region.offset.y + zones.top);
  const intptr_t step = job.source.step;
  const intptr_t direction = step < 0 ? -1 : 1;
  const intptr_t stepLength = step * direction;
  Ipp32f* ring[Taps];
  for (int k = 0; k < Taps; ++k) ring[k] = job.scratch.rows[k];
  auto makeRow = [&](intptr_t offset, Ipp32f* out) {
    ownRow4Lanczos<T, Taps>(job.source.rowAt(offset), columnOffsets, xWeights, columns, out);
  };
  for (int k = 1; k < Taps; ++k) makeRow(rowOffsets[0] + (k - kLobes) * step, ring[k]);
  intptr_t held = rowOffsets[0] - direction;
  for (int r = 0; r < rows; ++r) {
    const intptr_t offset = rowOffsets[r];
    const intptr_t moved = (offset - held) * direction;
    if (moved > 0) {
      int fresh = 1;
      while (fresh < Taps && moved >= (fresh + 1) * stepLength) ++fresh;
      Ipp32f* rotated[Taps];
      for (int k = 0; k < Taps; ++k) rotated[k] = ring[(k + fresh) % Taps];
      for (int k = 0; k < Taps; ++k) ring[k] = rotated[k];
      for (int made = 0; made < fresh; ++made) makeRow(offset + (kLobes - made) * step, ring[Taps - 1 - made]);
      held = offset;
    }
    ownColLanczos<T, Taps>(ring, yWeights + static_cast<ptrdiff_t>(Taps) * r, columns,
                           job.target(zones.top + r, zones.left));
  }
}

// The zones, then the interior if anything lies between them.
template <typename T, int Taps>
void resizeRegion(const LanczosJob<T>& job) {
  ownCalcBorderR4Lanczos<T, Taps>(job);
  const EdgeZones& zones = job.zones;
  if (zones.top + zones.bottom < job.region.size.height && zones.left + zones.right < job.region.size.width)
    ownResize4Lanczos<T, Taps>(job);
}

template <typename T>
IppStatus resizeLanczos(const T* pSrc, int srcStep, T* pDst, int dstStep, IppiPoint dstOffset, IppiSize dstSize,
                        Ipp32u border, const ResizeSpec* pSpec, Ipp8u* pBuffer) {
  LanczosJob<T> job;
  const IppStatus status = ownCheckResizeCall(pSrc, srcStep, pDst, dstStep, dstOffset, dstSize, border, pSpec, pBuffer,
                                              sizeof(T) == 2, &job.region);
  if (status != ippStsNoErr) return status;
  const Ipp32u lobes = job.region.spec->lobes;
  if (lobes != 2 && lobes != 3) return ippStsNotSupportedModeErr;
  const int stepInSamples = srcStep / static_cast<int>(sizeof(T));
  job.lobes = static_cast<int>(lobes);
  job.zones = ownEdgeZones(job.region, border);
  job.scratch = ownLanczosScratch(pBuffer, job.region.size, job.lobes);
  ownFillOffsetTables(job.region, stepInSamples, job.scratch.columnOffsets, job.scratch.rowOffsets);
  job.source = ownSourceImage(pSrc, stepInSamples, job.region);
  job.dst = pDst;
  job.dstStep = dstStep;
  if (lobes == 3)
    resizeRegion<T, 6>(job);
  else
    resizeRegion<T, 4>(job);
  return job.region.exceeded ? ippStsSizeWrn : ippStsNoErr;
}

}  // namespace

IppStatus ippiResizeLanczos_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiPoint dstOffset,
                                   IppiSize dstSize, Ipp32u border, const Ipp8u*, const ResizeSpec* pSpec,
                                   Ipp8u* pBuffer) {
  return resizeLanczos(pSrc, srcStep, pDst, dstStep, dstOffset, dstSize, border, pSpec, pBuffer);
}

IppStatus ippiResizeLanczos_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiPoint dstOffset,
                                    IppiSize dstSize, Ipp32u border, const Ipp16u*, const ResizeSpec* pSpec,
                                    Ipp8u* pBuffer) {
  return resizeLanczos(pSrc, srcStep, pDst, dstStep, dstOffset, dstSize, border, pSpec, pBuffer);
}

}  // namespace QV_TIER
