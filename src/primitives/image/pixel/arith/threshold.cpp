// Threshold with a replacement value: comparison 4 replaces pixels strictly greater than the
// threshold, comparison 0 pixels strictly less; a pixel equal to it always stays. The
// comparison is tested before anything else, pointers included.

#include "primitives/image/pixel/arith/arith.h"
#include "primitives/image/pixel/arith/byte_vectors.h"

namespace QV_TIER {
namespace {

constexpr int kLess = 0;
constexpr int kGreater = 4;

// All ones where the pixel is to be replaced.
QV_INLINE __m128i replacedLanes(__m128i pixels, __m128i thresholds, bool greater) {
  const __m128i bound = greater ? _mm_min_epu8(pixels, thresholds) : _mm_max_epu8(pixels, thresholds);
  const __m128i kept = _mm_cmpeq_epi8(pixels, bound);  // pixel <= threshold (greater) or >= (less)
  return _mm_xor_si128(kept, _mm_set1_epi8(-1));
}

void thresholdRow(const Ipp8u* src, Ipp8u* dst, size_t length, Ipp8u threshold, Ipp8u value, bool greater) {
  const __m128i thresholds = _mm_set1_epi8(static_cast<char>(threshold));
  const __m128i values = _mm_set1_epi8(static_cast<char>(value));
  size_t i = 0;
  for (; i + 16 <= length; i += 16) {
    const __m128i pixels = loadBlock(src + i);
    storeBlock(dst + i, selectBytes(replacedLanes(pixels, thresholds, greater), values, pixels));
  }
  for (; i < length; ++i) {
    const bool replace = greater ? src[i] > threshold : src[i] < threshold;
    dst[i] = replace ? value : src[i];
  }
}

}  // namespace

IppStatus ippiThreshold_Val_8u_C1R(const Ipp8u* pSrc, int srcStep, Ipp8u* pDst, int dstStep, IppiSize roiSize,
                                   Ipp8u threshold, Ipp8u value, int ippCmpOp) {
  if (ippCmpOp != kLess && ippCmpOp != kGreater) return ippStsNotSupportedModeErr;
  if (pSrc == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  if (srcStep < 1 || dstStep < 1) return ippStsStepErr;
  const size_t length = static_cast<size_t>(roiSize.width);
  for (int r = 0; r < roiSize.height; ++r)
    thresholdRow(rowAt(pSrc, srcStep, r), rowAt(pDst, dstStep, r), length, threshold, value, ippCmpOp == kGreater);
  return ippStsNoErr;
}

IppStatus ippiThreshold_Val_8u_C1IR(Ipp8u* pSrcDst, int srcDstStep, IppiSize roiSize, Ipp8u threshold, Ipp8u value,
                                    int ippCmpOp) {
  return ippiThreshold_Val_8u_C1R(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, threshold, value, ippCmpOp);
}

}  // namespace QV_TIER
