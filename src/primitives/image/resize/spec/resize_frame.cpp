// The frame shared by the linear and Lanczos resize primitives.

#include "primitives/image/resize/spec/resize_frame.h"

namespace QV_TIER {
namespace {

// A zone of count leading or trailing positions, of which before lie ahead of the region: what
// remains of it inside the region, cut to the region's length.
int zoneWidth(Ipp32u count, int64_t before, int length) {
  const int64_t width = static_cast<int64_t>(count) - before;
  return width <= 0 ? 0 : static_cast<int>(minOf<int64_t>(width, length));
}

Ipp32f* alignedFloats(void* p) { return static_cast<Ipp32f*>(alignedUp(p, 32)); }

}  // namespace

IppStatus ownCheckResizeCall(const void* pSrc, int srcStep, const void* pDst, int dstStep, IppiPoint dstOffset,
                             IppiSize dstSize, Ipp32u border, const ResizeSpec* pSpec, const Ipp8u* pBuffer,
                             bool sixteenBit, ResizeRegion* region) {
  if (pSrc == nullptr || pDst == nullptr || pSpec == nullptr || pBuffer == nullptr) return ippStsNullPtrErr;
  if (dstSize.width == 0 || dstSize.height == 0) return ippStsNoOperation;
  const ResizeSpec* spec = specRecord(pSpec);
  if (spec->magic != QV_RESIZE_SPEC_MAGIC) return ippStsContextMatchErr;
  if (dstSize.width < 1 || dstSize.height < 1) return ippStsSizeErr;
  if (sixteenBit && ((srcStep & 1) != 0 || (dstStep & 1) != 0)) return ippStsStepErr;
  const int width = spec->xFilter.dstLength, height = spec->yFilter.dstLength;
  if (dstOffset.x < 0 || dstOffset.y < 0 || dstOffset.x >= width || dstOffset.y >= height) return ippStsOutOfRangeErr;
  if ((border & ~kBorderValidBits) != 0) return ippStsBorderErr;
  const Ipp32u type = border & kBorderTypeMask;
  if (type != ippBorderRepl && type != ippBorderInMem) return ippStsNotSupportedModeErr;
  const int64_t right = static_cast<int64_t>(dstOffset.x) + dstSize.width;
  const int64_t bottom = static_cast<int64_t>(dstOffset.y) + dstSize.height;
  region->spec = spec;
  region->offset = dstOffset;
  region->size = {minOf(dstSize.width, width - dstOffset.x), minOf(dstSize.height, height - dstOffset.y)};
  region->exceeded = right > width || bottom > height;
  return ippStsNoErr;
}

EdgeZones ownEdgeZones(const ResizeRegion& region, Ipp32u border) {
  if ((border & kBorderTypeMask) == ippBorderInMem || (border & kBorderAllInMemory) == kBorderAllInMemory)
    return {0, 0, 0, 0};
  const ResizeAxisFilter& x = region.spec->xFilter;
  const ResizeAxisFilter& y = region.spec->yFilter;
  const IppiPoint at = region.offset;
  const IppiSize size = region.size;
  EdgeZones zones{0, 0, 0, 0};
  if ((border & ippBorderInMemTop) == 0) zones.top = zoneWidth(y.leadingCount, at.y, size.height);
  if ((border & ippBorderInMemBottom) == 0)
    zones.bottom = zoneWidth(y.trailingCount, static_cast<int64_t>(y.dstLength) - at.y - size.height, size.height);
  if ((border & ippBorderInMemLeft) == 0) zones.left = zoneWidth(x.leadingCount, at.x, size.width);
  if ((border & ippBorderInMemRight) == 0)
    zones.right = zoneWidth(x.trailingCount, static_cast<int64_t>(x.dstLength) - at.x - size.width, size.width);
  return zones;
}

ResizeScratch ownLinearScratch(Ipp8u* buffer, IppiSize region) {
  ResizeScratch scratch{};
  scratch.columnOffsets = reinterpret_cast<Ipp32s*>(buffer);
  scratch.rowOffsets = scratch.columnOffsets + region.width;
  scratch.rows[0] = alignedFloats(scratch.rowOffsets + region.height);
  scratch.rows[1] = alignedFloats(scratch.rows[0] + static_cast<ptrdiff_t>(4) * region.width);
  return scratch;
}

ResizeScratch ownLanczosScratch(Ipp8u* buffer, IppiSize region, int lobes) {
  ResizeScratch scratch{};
  scratch.columnOffsets = reinterpret_cast<Ipp32s*>(alignedUp(buffer, 64));
  scratch.rowOffsets = reinterpret_cast<Ipp32s*>(alignedUp(scratch.columnOffsets + region.width, 32));
  Ipp32f* next = alignedFloats(scratch.rowOffsets + region.height);
  for (int k = 0; k < 2 * lobes; ++k) {
    scratch.rows[k] = next;
    next = alignedFloats(next + static_cast<ptrdiff_t>(4) * region.width);
  }
  return scratch;
}

void ownFillOffsetTables(const ResizeRegion& region, int stepInSamples, Ipp32s* columnOffsets, Ipp32s* rowOffsets) {
  const Ipp32s* xIndex = region.spec->xFilter.index + region.offset.x;
  const Ipp32s* yIndex = region.spec->yFilter.index + region.offset.y;
  for (int i = 0; i < region.size.width; ++i) columnOffsets[i] = xIndex[i] * 4;
  // The products wrap as 32-bit values, as the table holds them.
  const uint32_t step = static_cast<uint32_t>(stepInSamples);
  for (int j = 0; j < region.size.height; ++j)
    rowOffsets[j] = static_cast<Ipp32s>(static_cast<uint32_t>(yIndex[j]) * step);
}

}  // namespace QV_TIER
