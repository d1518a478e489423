// Multiplication with scaling: pixel by pixel (MulScale) and by a constant (MulCScale). Every
// product of two bytes becomes (p + 1 + (p >> 8)) >> 8. The four-channel forms treat all four
// channels alike, alpha included.

#include "primitives/image/pixel/arith/arith.h"
#include "primitives/image/pixel/arith/byte_vectors.h"

namespace QV_TIER {
namespace {

void mulScaleRow(const Ipp8u* a, const Ipp8u* b, Ipp8u* dst, size_t length) {
  size_t i = 0;
  for (; i + 16 <= length; i += 16) storeBlock(dst + i, scaledProductBytes(loadBlock(a + i), loadBlock(b + i)));
  for (; i < length; ++i) dst[i] = scaledProduct(a[i], b[i]);
}

// The constant is a 16-byte pattern that repeats from the start of the row: one value for one
// channel, the four channel values four times for four channels.
void mulByPatternRow(const Ipp8u* src, const Ipp8u pattern[16], Ipp8u* dst, size_t length) {
  const __m128i factors = loadBlock(pattern);
  size_t i = 0;
  for (; i + 16 <= length; i += 16) storeBlock(dst + i, scaledProductBytes(loadBlock(src + i), factors));
  for (; i < length; ++i) dst[i] = scaledProduct(src[i], pattern[i & 15]);
}

void mulByPattern(const Ipp8u* src, int srcStep, const Ipp8u pattern[16], Ipp8u* dst, int dstStep, IppiSize roi,
                  size_t channels) {
  const size_t length = static_cast<size_t>(roi.width) * channels;
  for (int r = 0; r < roi.height; ++r) mulByPatternRow(rowAt(src, srcStep, r), pattern, rowAt(dst, dstStep, r), length);
}

bool allEqual(const Ipp8u value[4]) { return value[0] == value[1] && value[1] == value[2] && value[2] == value[3]; }

// Four times the width, in 32-bit arithmetic: a width that overflows fails the size test there.
int fourTimes(int width) { return static_cast<int>(4u * static_cast<unsigned>(width)); }

}  // namespace

IppStatus ippiMulScale_8u_C1R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                              int dstStep, IppiSize roiSize) {
  if (pSrc1 == nullptr || pSrc2 == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (src1Step < 1 || src2Step < 1 || dstStep < 1) return ippStsStepErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  const size_t length = static_cast<size_t>(roiSize.width);
  for (int r = 0; r < roiSize.height; ++r)
    mulScaleRow(rowAt(pSrc1, src1Step, r), rowAt(pSrc2, src2Step, r), rowAt(pDst, dstStep, r), length);
  return ippStsNoErr;
}

// Tests the size itself, then hands the rest, pointer and step tests included, to the
// one-channel form.
IppStatus ippiMulScale_8u_C4R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                              int dstStep, IppiSize roiSize) {
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  return ippiMulScale_8u_C1R(pSrc1, src1Step, pSrc2, src2Step, pDst, dstStep,
                             {fourTimes(roiSize.width), roiSize.height});
}

IppStatus ippiMulScale_8u_C1IR(const Ipp8u* pSrc, int srcStep, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize) {
  return ippiMulScale_8u_C1R(pSrc, srcStep, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}

IppStatus ippiMulScale_8u_C4IR(const Ipp8u* pSrc, int srcStep, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize) {
  return ippiMulScale_8u_C4R(pSrc, srcStep, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}

// The value is a byte: only its low 8 bits take part.
IppStatus ippiMulCScale_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u value, Ipp8u* pDst, int dstStep,
                               IppiSize roiSize) {
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (srcStep < 1 || dstStep < 1) return ippStsStepErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  Ipp8u pattern[16];
  for (Ipp8u& factor : pattern) factor = value;
  mulByPattern(pSrc, srcStep, pattern, pDst, dstStep, roiSize, 1);
  return ippStsNoErr;
}

// Four equal values make it the one-channel form over four times the width.
IppStatus ippiMulCScale_8u_C4R(const Ipp8u* pSrc, int srcStep, const Ipp8u value[4], Ipp8u* pDst, int dstStep,
                               IppiSize roiSize) {
  if (pSrc == nullptr || value == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (srcStep < 1 || dstStep < 1) return ippStsStepErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (allEqual(value))
    return ippiMulCScale_8u_C1R(pSrc, srcStep, value[0], pDst, dstStep, {fourTimes(roiSize.width), roiSize.height});
  Ipp8u pattern[16];
  for (int i = 0; i < 16; ++i) pattern[i] = value[i & 3];
  mulByPattern(pSrc, srcStep, pattern, pDst, dstStep, roiSize, 4);
  return ippStsNoErr;
}

IppStatus ippiMulCScale_8u_C1IR(Ipp8u value, Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize) {
  return ippiMulCScale_8u_C1R(pSrcDst, srcDstStep, value, pSrcDst, srcDstStep, roiSize);
}

IppStatus ippiMulCScale_8u_C4IR(const Ipp8u value[4], Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize) {
  return ippiMulCScale_8u_C4R(pSrcDst, srcDstStep, value, pSrcDst, srcDstStep, roiSize);
}

}  // namespace QV_TIER
