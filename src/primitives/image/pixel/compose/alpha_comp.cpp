// Alpha composition of two four-channel 8-bit images by one of the twelve classic types.
// Alpha is computed, not left alone: the result carries the composed alpha and is always
// premultiplied. Steps are not tested.

#include "primitives/common/tier_util.h"
#include "primitives/image/pixel/compose/alpha_lanes.h"

namespace QV_TIER {
namespace {

template <Composition kType, bool kPremultiplied>
QV_INLINE void composePixel(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i first = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(load32(s1))), zero);
  const __m128i second = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(load32(s2))), zero);
  const __m128i lanes = composeLanes<kType, kPremultiplied>(first, second);
  store32(d, static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(lanes, lanes))));
}

// Four pixels: both halves of 16 bytes widened to 16-bit lanes, composed and packed back.
template <Composition kType, bool kPremultiplied>
QV_INLINE __m128i composeFour(__m128i s1, __m128i s2) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i low = composeLanes<kType, kPremultiplied>(_mm_unpacklo_epi8(s1, zero), _mm_unpacklo_epi8(s2, zero));
  const __m128i high = composeLanes<kType, kPremultiplied>(_mm_unpackhi_epi8(s1, zero), _mm_unpackhi_epi8(s2, zero));
  return _mm_packus_epi16(low, high);
}

// One row: single pixels until the destination is aligned to 16 (when its pixels can be),
// four pixels a round, then the rest singly. Each 16 bytes are read before they are written,
// so source 2 may be the destination.
template <Composition kType, bool kPremultiplied>
void composeRow(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width) {
  int x = 0;
  if (isAligned(d, 4)) {
    for (; x < width && !isAligned(d + 4 * x, 16); ++x)
      composePixel<kType, kPremultiplied>(s1 + 4 * x, s2 + 4 * x, d + 4 * x);
  }
  const bool alignedStores = isAligned(d + 4 * x, 16);
  for (; x + 4 <= width; x += 4) {
    _mm_prefetch(reinterpret_cast<const char*>(s1 + 4 * x + 128), _MM_HINT_T0);
    _mm_prefetch(reinterpret_cast<const char*>(s2 + 4 * x + 128), _MM_HINT_T0);
    const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s1 + 4 * x));
    const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s2 + 4 * x));
    const __m128i result = composeFour<kType, kPremultiplied>(first, second);
    if (alignedStores) {
      _mm_store_si128(reinterpret_cast<__m128i*>(d + 4 * x), result);
    } else {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(d + 4 * x), result);
    }
  }
  for (; x < width; ++x) composePixel<kType, kPremultiplied>(s1 + 4 * x, s2 + 4 * x, d + 4 * x);
}

using RowKernel = void (*)(const Ipp8u*, const Ipp8u*, Ipp8u*, int, int);

template <Composition kType>
void composeRowOf(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultipliedFlag) {
  if (premultipliedFlag != 0) {
    composeRow<kType, true>(s1, s2, d, width);
  } else {
    composeRow<kType, false>(s1, s2, d, width);
  }
}

// The row kernels of the family: source 1, source 2, destination, width in pixels, and 1 for
// premultiplied operands or 0 for straight ones.
void ippi_AlphaCompOver_AC4S_8u(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultiplied) {
  composeRowOf<Composition::kOver>(s1, s2, d, width, premultiplied);
}
void ippi_AlphaCompIn_AC4S_8u(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultiplied) {
  composeRowOf<Composition::kIn>(s1, s2, d, width, premultiplied);
}
void ippi_AlphaCompOut_AC4S_8u(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultiplied) {
  composeRowOf<Composition::kOut>(s1, s2, d, width, premultiplied);
}
void ippi_AlphaCompAtop_AC4S_8u(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultiplied) {
  composeRowOf<Composition::kAtop>(s1, s2, d, width, premultiplied);
}
void ippi_AlphaCompXor_AC4S_8u(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultiplied) {
  composeRowOf<Composition::kXor>(s1, s2, d, width, premultiplied);
}
void ippi_AlphaCompPlus_AC4S_8u(const Ipp8u* s1, const Ipp8u* s2, Ipp8u* d, int width, int premultiplied) {
  composeRowOf<Composition::kPlus>(s1, s2, d, width, premultiplied);
}

// Types 0-5 and 6-11 share their kernels; the second half sets the premultiplied flag.
constexpr RowKernel kRowKernels[6] = {ippi_AlphaCompOver_AC4S_8u, ippi_AlphaCompIn_AC4S_8u,
                                      ippi_AlphaCompOut_AC4S_8u,  ippi_AlphaCompAtop_AC4S_8u,
                                      ippi_AlphaCompXor_AC4S_8u,  ippi_AlphaCompPlus_AC4S_8u};
constexpr unsigned kTypeCount = 12;

}  // namespace

IppStatus ippiAlphaComp_8u_AC4R(const Ipp8u* pSrc1, int src1Step, const Ipp8u* pSrc2, int src2Step, Ipp8u* pDst,
                                int dstStep, IppiSize roiSize, IppiAlphaType alphaType) {
  if (pSrc1 == nullptr || pSrc2 == nullptr || pDst == nullptr) return ippStsNullPtrErr;
  if (roiSize.width < 1 || roiSize.height < 1) return ippStsSizeErr;
  const auto type = static_cast<unsigned>(alphaType);
  if (type >= kTypeCount) return ippStsAlphaTypeErr;
  const RowKernel kernel = kRowKernels[type % 6];
  const int premultiplied = type >= 6 ? 1 : 0;
  for (int r = 0; r < roiSize.height; ++r) {
    kernel(rowAt(pSrc1, src1Step, r), rowAt(pSrc2, src2Step, r), rowAt(pDst, dstStep, r), roiSize.width, premultiplied);
  }
  return ippStsNoErr;
}

}  // namespace QV_TIER
