#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SPEC_RESIZE_FRAME_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SPEC_RESIZE_FRAME_H

// What the linear and Lanczos resize primitives share: the checks of their arguments, the
// region clamped to the destination, the replicate zones at the image's edges, the offset tables
// and row buffers in the caller's scratch, and the source image as the tables address it.

#include "primitives/image/resize/spec/resize_spec.h"

namespace QV_TIER {

// The border word: type in bits 0-2, in-memory flags in bits 4-7.
constexpr Ipp32u kBorderTypeMask = 7;
constexpr Ipp32u kBorderValidBits = 0xF7;
constexpr Ipp32u kBorderAllInMemory = 0xF0;

// Everything a call needs once its arguments have passed the checks.
struct ResizeRegion {
  const ResizeSpec* spec;  // the record inside the caller's block
  IppiPoint offset;        // of the region, in the destination image
  IppiSize size;           // the region clamped to the destination
  bool exceeded;           // the region given reached past the destination
};

// The replicate zones of a call, in rows or columns of the region. The interior lies between:
// rows top to height - bottom, columns left to width - right.
struct EdgeZones {
  int top, bottom, left, right;
};

// The checks of both resize primitives, in their order. On success fills region.
IppStatus ownCheckResizeCall(const void* pSrc, int srcStep, const void* pDst, int dstStep, IppiPoint dstOffset,
                             IppiSize dstSize, Ipp32u border, const ResizeSpec* pSpec, const Ipp8u* pBuffer,
                             bool sixteenBit, ResizeRegion* region);

// The zones that the border word leaves to replicate: none in memory (type 6 or all four flags),
// else the leading and trailing positions that the region holds, less the flagged sides.
EdgeZones ownEdgeZones(const ResizeRegion& region, Ipp32u border);

// The scratch of a call: column offsets (region width, in samples), row offsets (region height,
// in samples of the source step), then the float row buffers, each of region width pixels.
struct ResizeScratch {
  Ipp32s* columnOffsets;
  Ipp32s* rowOffsets;
  Ipp32f* rows[6];
};

// Linear: the tables from the buffer's start, two row buffers at multiples of 32 bytes.
ResizeScratch ownLinearScratch(Ipp8u* buffer, IppiSize region);
// Lanczos: column offsets from the buffer's first multiple of 64, the rest at multiples of 32.
ResizeScratch ownLanczosScratch(Ipp8u* buffer, IppiSize region, int lobes);

// Column offset i = xFilter.index[offset x + i] * 4; row offset j = yFilter.index[offset y + j]
// * the step in samples. 32-bit, as the tables hold them.
void ownFillOffsetTables(const ResizeRegion& region, int stepInSamples, Ipp32s* columnOffsets, Ipp32s* rowOffsets);

// The source image as the tables address it: sample (row offset + column offset + channel) from
// base, which is the given pointer moved back by the origin of the region.
template <typename T>
struct SourceImage {
  const T* base;
  intptr_t step;  // in samples
  int width, height;

  const T* rowAt(intptr_t rowOffset) const {
    return reinterpret_cast<const T*>(addressOf(base) + static_cast<uintptr_t>(rowOffset * sizeof(T)));
  }
  // The pixel at (row, column) of the source image.
  const T* pixelAt(int row, int column) const { return rowAt(row * step + static_cast<intptr_t>(column) * 4); }
};

// The origin of a region: floor(offset y * y ratio) rows and floor(offset x * x ratio) columns,
// where the given source pointer stands.
template <typename T>
SourceImage<T> ownSourceImage(const T* pSrc, intptr_t stepInSamples, const ResizeRegion& region) {
  const ResizeSpec& spec = *region.spec;
  const intptr_t origin = static_cast<intptr_t>(sourceStartOf(spec.yFilter, region.offset.y)) * stepInSamples +
                          static_cast<intptr_t>(sourceStartOf(spec.xFilter, region.offset.x)) * 4;
  const T* base = reinterpret_cast<const T*>(addressOf(pSrc) - static_cast<uintptr_t>(origin * sizeof(T)));
  return {base, stepInSamples, spec.xFilter.srcLength, spec.yFilter.srcLength};
}

// Row r of the destination region, column 0.
template <typename T>
QV_INLINE T* destinationRow(T* pDst, int dstStep, int r) {
  return rowAt(pDst, dstStep, r);
}

}  // namespace QV_TIER

#endif
