// The two init primitives: linear and Lanczos ResizeSpec records.

#include "primitives/image/resize/spec/resize_spec.h"

namespace QV_TIER {
namespace {

bool anyZero(IppiSize src, IppiSize dst) {
  return src.width == 0 || src.height == 0 || dst.width == 0 || dst.height == 0;
}

bool anyBelowOne(IppiSize src, IppiSize dst) {
  return src.width < 1 || src.height < 1 || dst.width < 1 || dst.height < 1;
}

// Aligns the block and writes the head of the record.
ResizeSpec* startRecord(ResizeSpec* block, Ipp32u interpolation, Ipp32u lobes) {
  ResizeSpec* spec = specRecord(block);
  spec->magic = QV_RESIZE_SPEC_MAGIC;
  spec->interpolation = interpolation;
  spec->lobes = lobes;
  spec->reserved = 0;
  return spec;
}

// Both axis records, with their index arrays right behind the record: vertical, horizontal.
void setAxes(ResizeSpec* spec, IppiSize src, IppiSize dst) {
  Ipp32s* yIndex = reinterpret_cast<Ipp32s*>(spec + 1);
  Ipp32s* xIndex = yIndex + dst.height;
  ownSetAxis(&spec->yFilter, src.height, dst.height, yIndex);
  ownSetAxis(&spec->xFilter, src.width, dst.width, xIndex);
}

void setBorders(ResizeSpec* spec, Ipp32u width) {
  for (Ipp32u& side : spec->border) side = width;
}

bool lanczosSourceLargeEnough(IppiSize src, Ipp32u lobes) {
  const int minimum = lobes == 3 ? 6 : 4;
  return src.width >= minimum && src.height >= minimum;
}

}  // namespace

IppStatus ippiResizeLinearInit_8u(IppiSize srcSize, IppiSize dstSize, ResizeSpec* pSpec) {
  if (pSpec == nullptr) return ippStsNullPtrErr;
  if (anyZero(srcSize, dstSize)) return ippStsNoOperation;
  if (anyBelowOne(srcSize, dstSize) || srcSize.width < 2 || srcSize.height < 2) return ippStsSizeErr;
  ResizeSpec* spec = startRecord(pSpec, kInterpolationLinear, 1);
  setAxes(spec, srcSize, dstSize);
  // The fractions are the weights: packed behind both index arrays, vertical first.
  spec->yFilter.weights = reinterpret_cast<Ipp32f*>(spec->xFilter.index + dstSize.width);
  spec->xFilter.weights = spec->yFilter.weights + dstSize.height;
  ownBuildFilter_32f(&spec->yFilter, spec->yFilter.weights, 1);
  ownBuildFilter_32f(&spec->xFilter, spec->xFilter.weights, 1);
  setBorders(spec, 1);
  return ippStsNoErr;
}

IppStatus ippiResizeLinearInit_16u(IppiSize srcSize, IppiSize dstSize, ResizeSpec* pSpec) {
  return QV_TIER::ippiResizeLinearInit_8u(srcSize, dstSize, pSpec);
}

// The fractions go to the init buffer (vertical axis, then horizontal, from its first multiple
// of 64 bytes); the weights are made from them once the lobes are known to be usable. The head
// of the record is written before the lobes are judged.
IppStatus ippiResizeLanczosInit_8u(IppiSize srcSize, IppiSize dstSize, Ipp32u numLobes, ResizeSpec* pSpec,
                                   Ipp8u* pInitBuf) {
  if (pSpec == nullptr || pInitBuf == nullptr) return ippStsNullPtrErr;
  if (anyZero(srcSize, dstSize)) return ippStsNoOperation;
  if (anyBelowOne(srcSize, dstSize)) return ippStsSizeErr;
  ResizeSpec* spec = startRecord(pSpec, kInterpolationLanczos, numLobes);
  setAxes(spec, srcSize, dstSize);
  Ipp32f* yFractions = reinterpret_cast<Ipp32f*>(alignedUp(pInitBuf, 64));
  Ipp32f* xFractions = yFractions + dstSize.height;
  ownBuildFilter_32f(&spec->yFilter, yFractions, numLobes);
  ownBuildFilter_32f(&spec->xFilter, xFractions, numLobes);
  if (numLobes != 2 && numLobes != 3) return ippStsNotSupportedModeErr;
  if (!lanczosSourceLargeEnough(srcSize, numLobes)) return ippStsSizeErr;
  setBorders(spec, numLobes);
  const int taps = 2 * static_cast<int>(numLobes);
  spec->yFilter.weights = reinterpret_cast<Ipp32f*>(alignedUp(spec->xFilter.index + dstSize.width, 32));
  spec->xFilter.weights = alignedUp(spec->yFilter.weights + static_cast<ptrdiff_t>(taps) * dstSize.height, 32);
  void (*kernel)(const Ipp32f*, int, Ipp32f*) = numLobes == 3 ? ownLanczosKernel3 : ownLanczosKernel2;
  kernel(xFractions, dstSize.width, spec->xFilter.weights);
  kernel(yFractions, dstSize.height, spec->yFilter.weights);
  return ippStsNoErr;
}

IppStatus ippiResizeLanczosInit_16u(IppiSize srcSize, IppiSize dstSize, Ipp32u numLobes, ResizeSpec* pSpec,
                                    Ipp8u* pInitBuf) {
  return QV_TIER::ippiResizeLanczosInit_8u(srcSize, dstSize, numLobes, pSpec, pInitBuf);
}

}  // namespace QV_TIER
