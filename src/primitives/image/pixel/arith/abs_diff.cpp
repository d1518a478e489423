// Absolute differences: of two images, and of an image and a constant clamped to 0..255
// (255 makes it the inversion 255 - x). A step below the row's width is refused.

#include "primitives/image/pixel/arith/arith.h"
#include "primitives/image/pixel/arith/byte_vectors.h"

namespace QV_TIER {
namespace {

void absDiffRow(const Ipp8u* a, const Ipp8u* b, Ipp8u* dst, size_t length) {
  size_t i = 0;
  for (; i + 16 <= length; i += 16) storeBlock(dst + i, absDiffBytes(loadBlock(a + i), loadBlock(b + i)));
  for (; i < length; ++i) dst[i] = absDiff(a[i], b[i]);
}

void absDiffConstantRow(const Ipp8u* src, Ipp8u value, Ipp8u* dst, size_t length) {
  const __m128i values = _mm_set1_epi8(static_cast<char>(value));
  size_t i = 0;
  for (; i + 16 <= length; i += 16) storeBlock(dst + i, absDiffBytes(loadBlock(src + i), values));
  for (; i < length; ++i) dst[i] = absDiff(src[i], value);
}

Ipp8u clampToByte(int value) { return static_cast<Ipp8u>(value < 0 ? 0 : value > 255 ? 255 : value); }

}  // namespace

IppStatus ippiAbsDiff_8u_C1R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                             int dstStep, IppiSize roiSize) {
  if (pSrc1 == nullptr || pSrc2 == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (src1Step < roiSize.width || src2Step < roiSize.width || dstStep < roiSize.width) return ippStsStepErr;
  const size_t length = static_cast<size_t>(roiSize.width);
  for (int r = 0; r < roiSize.height; ++r)
    absDiffRow(rowAt(pSrc1, src1Step, r), rowAt(pSrc2, src2Step, r), rowAt(pDst, dstStep, r), length);
  return ippStsNoErr;
}

IppStatus ippiAbsDiffC_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize, int value) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (srcStep < roiSize.width || dstStep < roiSize.width) return ippStsStepErr;
  const Ipp8u clamped = clampToByte(value);
  const size_t length = static_cast<size_t>(roiSize.width);
  for (int r = 0; r < roiSize.height; ++r)
    absDiffConstantRow(rowAt(pSrc, srcStep, r), clamped, rowAt(pDst, dstStep, r), length);
  return ippStsNoErr;
}

}  // namespace QV_TIER
