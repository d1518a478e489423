// The mirror primitives: out of place (exported) and in place (inside the tiers). Both test
// every argument before the first write, so a refused call leaves the image as it was.

#include "primitives/common/tier_util.h"
#include "primitives/image/geometry/mirror_kernels.h"

namespace QV_TIER {
namespace {

// The kernels of one pixel size: 4 bytes for 8u C4, 8 bytes for 16u C4.
struct PixelKernels {
  size_t pixelBytes;
  void (*flipRow)(const Ipp8u* src, Ipp8u* dstEnd, size_t pixels, bool bypassCache);
  void (*flipRowInPlace)(Ipp8u* row, size_t pixels, size_t pairs);
  void (*exchangeFlipRows)(Ipp8u* a, Ipp8u* b, size_t pixels);
};

const PixelKernels kKernels8u{4, owniFlipRow_8u_C4, owniFlipRowInPlace_8u_C4, owniExchangeFlipRows_8u_C4};
const PixelKernels kKernels16u{8, owniFlipRow_16u_C4, owniFlipRowInPlace_16u_C4, owniExchangeFlipRows_16u_C4};

bool flipsRows(IppiAxis axis) { return axis == ippAxsHorizontal || axis == ippAxsBoth; }
bool flipsColumns(IppiAxis axis) { return axis == ippAxsVertical || axis == ippAxsBoth; }

// The tests shared by both forms, after the pointer test.
IppStatus checkShape(IppiSize roi, IppiAxis axis) {
  if (roi.width < 1 || roi.height < 1) return ippStsSizeErr;
  if (axis != ippAxsHorizontal && axis != ippAxsVertical && axis != ippAxsBoth) return ippStsMirrorFlipErr;
  if (flipsRows(axis) && roi.height < 2) return ippStsSizeErr;
  if (flipsColumns(axis) && roi.width < 2) return ippStsSizeErr;
  return ippStsNoErr;
}

// Reads bytes + writes bytes, in 32 bits as the decision takes it: a wrap may read negative.
int trafficOf(IppiSize roi, const PixelKernels& kernels) {
  const uint32_t perPixel = 2 * static_cast<uint32_t>(kernels.pixelBytes);
  return static_cast<int>(static_cast<uint32_t>(roi.width) * perPixel * static_cast<uint32_t>(roi.height));
}

// Walks the source rows from the top. Axis 0 copies each row to the mirrored row; axis 1
// reverses each row into the same row; axis 2 reverses each row into the mirrored row.
void mirrorRows(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiSize roi, IppiAxis axis,
                const PixelKernels& kernels, bool bypassCache) {
  const size_t pixels = static_cast<size_t>(roi.width);
  const size_t rowBytes = pixels * kernels.pixelBytes;
  for (int r = 0; r < roi.height; ++r) {
    const Ipp8u* from = rowAt(src, srcStep, r);
    const int target = axis == ippAxsVertical ? r : roi.height - 1 - r;
    Ipp8u* to = rowAt(dst, dstStep, target);
    if (axis == ippAxsHorizontal)
      owniMirrorCopyRow(from, to, rowBytes, bypassCache);
    else
      kernels.flipRow(from, to + rowBytes, pixels, bypassCache);
  }
  if (bypassCache) _mm_sfence();
}

IppStatus mirrorOutOfPlace(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiSize roi, IppiAxis axis,
                           const PixelKernels& kernels) {
  if (src == nullptr || dst == nullptr) return ippStsNullPtrErr;
  const IppStatus shape = checkShape(roi, axis);
  if (shape != ippStsNoErr) return shape;
  const bool bypassCache = owniMirrorBypassesCache(trafficOf(roi, kernels));
  mirrorRows(src, srcStep, dst, dstStep, roi, axis, kernels, bypassCache);
  return ippStsNoErr;
}

// Axis 0 exchanges rows i and height-1-i; axis 1 reverses each row over width/2 pairs; axis 2
// exchanges those rows with reversal, and reverses the middle row of an odd height by itself.
IppStatus mirrorInPlace(Ipp8u* image, int step, IppiSize roi, IppiAxis axis, const PixelKernels& kernels) {
  if (image == nullptr) return ippStsNullPtrErr;
  const IppStatus shape = checkShape(roi, axis);
  if (shape != ippStsNoErr) return shape;
  const size_t pixels = static_cast<size_t>(roi.width);
  if (axis == ippAxsVertical) {
    for (int r = 0; r < roi.height; ++r) kernels.flipRowInPlace(rowAt(image, step, r), pixels, pixels / 2);
    return ippStsNoErr;
  }
  for (int r = 0; r < roi.height / 2; ++r) {
    Ipp8u* top = rowAt(image, step, r);
    Ipp8u* bottom = rowAt(image, step, roi.height - 1 - r);
    if (axis == ippAxsHorizontal)
      owniExchangeRows(top, bottom, pixels * kernels.pixelBytes);
    else
      kernels.exchangeFlipRows(top, bottom, pixels);
  }
  if (axis == ippAxsBoth && roi.height % 2 == 1)
    kernels.flipRowInPlace(rowAt(image, step, roi.height / 2), pixels, pixels / 2);
  return ippStsNoErr;
}

}  // namespace

IppStatus ippiMirror_8u_C4IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, IppiAxis flip) {
  return mirrorInPlace(pSrcDst, srcDstStep, roiSize, flip, kKernels8u);
}

IppStatus ippiMirror_16u_C4IR(Ipp16u* pSrcDst, int srcDstStep, IppiSize roiSize, IppiAxis flip) {
  return mirrorInPlace(reinterpret_cast<Ipp8u*>(pSrcDst), srcDstStep, roiSize, flip, kKernels16u);
}

IppStatus ippiMirror_8u_C4R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize, IppiAxis flip) {
  if (pSrc == pDst && srcStep == dstStep) return ippiMirror_8u_C4IR(pDst, dstStep, roiSize, flip);
  return mirrorOutOfPlace(pSrc, srcStep, pDst, dstStep, roiSize, flip, kKernels8u);
}

IppStatus ippiMirror_16u_C4R(const Ipp16u* pSrc, int srcStep, Ipp16u* pDst, int dstStep, IppiSize roiSize,
                             IppiAxis flip) {
  if (pSrc == pDst && srcStep == dstStep) return ippiMirror_16u_C4IR(pDst, dstStep, roiSize, flip);
  return mirrorOutOfPlace(reinterpret_cast<const Ipp8u*>(pSrc), srcStep, reinterpret_cast<Ipp8u*>(pDst), dstStep,
                          roiSize, flip, kKernels16u);
}

}  // namespace QV_TIER
