// Questions a ResizeSpec record answers: the scratch size of a region, the border widths,
// and the source rows and columns a destination region starts from.

#include "primitives/image/resize/spec/resize_spec.h"

namespace QV_TIER {
namespace {

bool hasMagic(const ResizeSpec* spec) { return spec->magic == QV_RESIZE_SPEC_MAGIC; }

// 0, 1 or 2 as value % divisor is 0, 1 or more.
int64_t remainderClass(int64_t value, int64_t divisor) {
  const int64_t remainder = value % divisor;
  return remainder == 0 ? 0 : (remainder == 1 ? 1 : 2);
}

// The supersampling scratch for w columns and c channels: per period of d destination rows, the
// vertical table and c rows of the source columns that w destination columns cover.
int64_t superBufferSize(const ResizeSpec* spec, int64_t w, int64_t c) {
  const int64_t s = spec->yFilter.srcReduced, d = spec->yFilter.dstReduced;
  const int64_t sx = spec->xFilter.srcReduced, dx = spec->xFilter.dstReduced;
  const int64_t columns = minOf<int64_t>(spec->xFilter.srcLength, sx * (w / dx + remainderClass(w, dx)));
  return (4 * (s / d + remainderClass(s, d) + c * roundUp32(columns)) + 8) * d;
}

}  // namespace

// B = 4 * (a(w) + a(h)) holds the column and row offset tables; the rest holds 2 * lobes float
// rows of w pixels of c samples.
IppStatus ippiResizeGetBufferSize_8u(const ResizeSpec* pSpec, IppiSize dstSize, Ipp32u numChannels, int* pBufSize) {
  if (pSpec == nullptr || pBufSize == nullptr) return ippStsNullPtrErr;
  if (dstSize.width == 0 || dstSize.height == 0) return ippStsNoOperation;
  const ResizeSpec* spec = specRecord(pSpec);
  if (!hasMagic(spec)) return ippStsContextMatchErr;
  if (numChannels != 1 && numChannels != 3 && numChannels != 4) return ippStsNumChannelsErr;
  if (dstSize.width < 0 || dstSize.height < 0) return ippStsSizeErr;
  const int64_t w = minOf(dstSize.width, spec->xFilter.dstLength);
  const int64_t h = minOf(dstSize.height, spec->yFilter.dstLength);
  const int64_t c = numChannels;
  const int64_t tables = 4 * (roundUp32(w) + roundUp32(h));
  int64_t size;
  switch (spec->interpolation) {
    case 0:
      return ippStsNotSupportedModeErr;
    case kInterpolationLinear:
      size = tables + 4 * c * ((2 * w + 63) & ~31);
      break;
    case kInterpolationCubic:
      size = tables + 4 * c * ((4 * w + 127) & ~31);
      break;
    case kInterpolationSuper:
      // Only a hand-made record has these lengths: no init of this family makes one.
      if (spec->yFilter.dstReduced == 0 || spec->xFilter.dstReduced == 0) return ippStsContextMatchErr;
      size = superBufferSize(spec, w, c);
      break;
    case kInterpolationLanczos:
      if (spec->lobes == 2)
        size = tables + 4 * c * ((4 * w + 127) & ~31);
      else if (spec->lobes == 3)
        size = tables + 4 * c * ((6 * w + 191) & ~31);
      else
        return ippStsNotSupportedModeErr;
      break;
    default:  // nearest, and any value no init makes
      size = tables;
      break;
  }
  size += kSpecSlack;
  if (size >= kSizeLimit) return ippStsSizeErr;
  *pBufSize = static_cast<int>(size);
  const bool larger = dstSize.width > spec->xFilter.dstLength || dstSize.height > spec->yFilter.dstLength;
  return larger ? ippStsSizeWrn : ippStsNoErr;
}

IppStatus ippiResizeGetBufferSize_16u(const ResizeSpec* pSpec, IppiSize dstSize, Ipp32u numChannels, int* pBufSize) {
  return QV_TIER::ippiResizeGetBufferSize_8u(pSpec, dstSize, numChannels, pBufSize);
}

IppStatus ippiResizeGetBorderSize_8u(const ResizeSpec* pSpec, Ipp32u borderSize[4]) {
  if (pSpec == nullptr || borderSize == nullptr) return ippStsNullPtrErr;
  const ResizeSpec* spec = specRecord(pSpec);
  if (!hasMagic(spec)) return ippStsContextMatchErr;
  for (int side = 0; side < 4; ++side) borderSize[side] = spec->border[side];
  return ippStsNoErr;
}

IppStatus ippiResizeGetBorderSize_16u(const ResizeSpec* pSpec, Ipp32u borderSize[4]) {
  return QV_TIER::ippiResizeGetBorderSize_8u(pSpec, borderSize);
}

// The region is clamped to the destination; the source region runs from floor(offset * ratio)
// to the whole part of the region's last position. Taps reach beyond it by up to lobes pixels,
// and at the top of an enlargement its size may be 0 or less: the resize does not use it.
IppStatus ippiResizeGetSrcRoi_8u(const ResizeSpec* pSpec, IppiPoint dstOffset, IppiSize dstSize, IppiPoint* srcOffset,
                                 IppiSize* srcSize) {
  if (pSpec == nullptr || srcOffset == nullptr || srcSize == nullptr) return ippStsNullPtrErr;
  if (dstSize.width < 1 || dstSize.height < 1) return ippStsSizeErr;
  const ResizeSpec* spec = specRecord(pSpec);
  if (!hasMagic(spec)) return ippStsContextMatchErr;
  const ResizeAxisFilter& x = spec->xFilter;
  const ResizeAxisFilter& y = spec->yFilter;
  if (dstOffset.x < 0 || dstOffset.y < 0 || dstOffset.x >= x.dstLength || dstOffset.y >= y.dstLength)
    return ippStsOutOfRangeErr;
  const int width = minOf(dstSize.width, x.dstLength - dstOffset.x);
  const int height = minOf(dstSize.height, y.dstLength - dstOffset.y);
  const IppiPoint start{sourceStartOf(x, dstOffset.x), sourceStartOf(y, dstOffset.y)};
  *srcOffset = start;
  *srcSize = {x.index[dstOffset.x + width - 1] - start.x + 1, y.index[dstOffset.y + height - 1] - start.y + 1};
  const bool larger = dstSize.width > x.dstLength || dstSize.height > y.dstLength;
  return larger ? ippStsSizeWrn : ippStsNoErr;
}

IppStatus ippiResizeGetSrcRoi_16u(const ResizeSpec* pSpec, IppiPoint dstOffset, IppiSize dstSize, IppiPoint* srcOffset,
                                  IppiSize* srcSize) {
  return QV_TIER::ippiResizeGetSrcRoi_8u(pSpec, dstOffset, dstSize, srcOffset, srcSize);
}

}  // namespace QV_TIER
