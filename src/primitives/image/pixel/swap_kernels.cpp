// Channel reorder kernels. Every road writes the same bytes:
//  - u8, y8, e9: a byte shuffle built from the order, four pixels at a time. The in-place form
//    takes it when the base and the step are aligned to 4 and the row has at least 8 pixels.
//  - m7: pixel by pixel (owniSwap_8u_AC4_M7), except the order 2, 1, 0 on an image below
//    160000 bytes whose pointers and steps are aligned to 4 (owniSwap_8u_210_AC4_M7).

#include "primitives/image/pixel/swap_kernels.h"

#include "primitives/common/tier_util.h"

namespace QV_TIER {
namespace {

using qv::pixel::SwapRoad;

// One pixel of the three-channel form: all source bytes read before the destination is written,
// so that a call with the destination on the source is well defined.
QV_INLINE void swapPixelAC4(const Ipp8u* src, Ipp8u* dst, const int order[3]) {
  Ipp8u pixel[4];
  store32(pixel, load32(src));
  dst[0] = pixel[order[0]];
  dst[1] = pixel[order[1]];
  dst[2] = pixel[order[2]];
}

QV_INLINE void swapPixelC4I(Ipp8u* p, const int order[4]) {
  Ipp8u pixel[4];
  store32(pixel, load32(p));
  p[0] = pixel[order[0]];
  p[1] = pixel[order[1]];
  p[2] = pixel[order[2]];
  p[3] = pixel[order[3]];
}

void swapRowPixelsAC4(const Ipp8u* src, Ipp8u* dst, size_t pixels, const int order[3]) {
  for (size_t x = 0; x < pixels; ++x) swapPixelAC4(src + 4 * x, dst + 4 * x, order);
}

void swapRowPixelsC4I(Ipp8u* p, size_t pixels, const int order[4]) {
  for (size_t x = 0; x < pixels; ++x) swapPixelC4I(p + 4 * x, order);
}

#if QV_TIER_LEVEL >= 2

// The shuffle control of four pixels: byte 4p + c takes byte 4p + order[c]. With three
// channels, byte 3 of each pixel is left out (-128 zeroes it) and kept from the destination.
__m128i shuffleControl(const int* order, int channels) {
  alignas(16) Ipp8u control[16];
  for (int p = 0; p < 4; ++p)
    for (int c = 0; c < 4; ++c) control[4 * p + c] = c < channels ? static_cast<Ipp8u>(4 * p + order[c]) : 0x80;
  return _mm_load_si128(reinterpret_cast<const __m128i*>(control));
}

void shuffleRowAC4(const Ipp8u* src, Ipp8u* dst, size_t pixels, __m128i control, const int order[3]) {
  const __m128i alpha = _mm_set1_epi32(static_cast<int>(0xFF000000u));
  size_t x = 0;
  for (; x + 4 <= pixels; x += 4) {
    const __m128i moved = _mm_shuffle_epi8(loadBlock(src + 4 * x), control);
    const __m128i kept = _mm_and_si128(loadBlock(dst + 4 * x), alpha);
    storeBlock(dst + 4 * x, _mm_or_si128(moved, kept));
  }
  swapRowPixelsAC4(src + 4 * x, dst + 4 * x, pixels - x, order);
}

void shuffleRowC4I(Ipp8u* p, size_t pixels, __m128i control, const int order[4]) {
  size_t x = 0;
  for (; x + 8 <= pixels; x += 8) {
    const __m128i a = _mm_shuffle_epi8(loadBlock(p + 4 * x), control);
    const __m128i b = _mm_shuffle_epi8(loadBlock(p + 4 * x + 16), control);
    storeBlock(p + 4 * x, a);
    storeBlock(p + 4 * x + 16, b);
  }
  if (x + 4 <= pixels) {
    storeBlock(p + 4 * x, _mm_shuffle_epi8(loadBlock(p + 4 * x), control));
    x += 4;
  }
  swapRowPixelsC4I(p + 4 * x, pixels - x, order);
}

#else

constexpr long kDedicated210Limit = 160000;

// Three channels, one pixel at a time.
void owniSwap_8u_AC4_M7(const Ipp8u* src, Ipp8u* dst, size_t pixels, const int order[3]) {
  swapRowPixelsAC4(src, dst, pixels, order);
}

// The order 2, 1, 0: bytes 0 and 2 of each pixel change places, byte 1 stays, and byte 3 is
// kept from the destination. Four pixels a round with shifts and masks.
void owniSwap_8u_210_AC4_M7(const Ipp8u* src, Ipp8u* dst, size_t pixels) {
  const __m128i low = _mm_set1_epi32(0xFF);
  const __m128i middle = _mm_set1_epi32(0xFF00);
  const __m128i alpha = _mm_set1_epi32(static_cast<int>(0xFF000000u));
  size_t x = 0;
  for (; x + 4 <= pixels; x += 4) {
    const __m128i s = loadBlock(src + 4 * x);
    const __m128i toLow = _mm_and_si128(_mm_srli_epi32(s, 16), low);
    const __m128i toHigh = _mm_slli_epi32(_mm_and_si128(s, low), 16);
    const __m128i kept = _mm_or_si128(_mm_and_si128(s, middle), _mm_and_si128(loadBlock(dst + 4 * x), alpha));
    storeBlock(dst + 4 * x, _mm_or_si128(_mm_or_si128(toLow, toHigh), kept));
  }
  static const int kOrder210[3] = {2, 1, 0};
  swapRowPixelsAC4(src + 4 * x, dst + 4 * x, pixels - x, kOrder210);
}

bool isOrder210(const int order[3]) { return order[0] == 2 && order[1] == 1 && order[2] == 0; }

#endif

}  // namespace

SwapRoad owniPlanSwapAC4(const void* src, int srcStep, const void* dst, int dstStep, IppiSize roi, const int order[3]) {
#if QV_TIER_LEVEL >= 2
  (void)src, (void)srcStep, (void)dst, (void)dstStep, (void)order;
  return roi.width >= 4 ? SwapRoad::kShuffle : SwapRoad::kPixels;
#else
  const long total = 4L * roi.width * roi.height;
  const bool aligned = isAligned(src, 4) && isAligned(dst, 4) && srcStep % 4 == 0 && dstStep % 4 == 0;
  return isOrder210(order) && total < kDedicated210Limit && aligned ? SwapRoad::kDedicated210 : SwapRoad::kPixels;
#endif
}

SwapRoad owniPlanSwapC4I(const void* buffer, int step, IppiSize roi) {
#if QV_TIER_LEVEL >= 2
  const bool aligned = isAligned(buffer, 4) && step % 4 == 0;
  return aligned && roi.width >= 8 ? SwapRoad::kShuffle : SwapRoad::kPixels;
#else
  (void)buffer, (void)step, (void)roi;
  return SwapRoad::kPixels;
#endif
}

void owniSwapChannelsAC4(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiSize roi, const int order[3]) {
  const SwapRoad road = owniPlanSwapAC4(src, srcStep, dst, dstStep, roi, order);
  size_t pixels = static_cast<size_t>(roi.width);
  int rows = roi.height;
#if QV_TIER_LEVEL >= 2
  (void)road;
  const __m128i control = shuffleControl(order, 3);
  for (int r = 0; r < rows; ++r) shuffleRowAC4(rowAt(src, srcStep, r), rowAt(dst, dstStep, r), pixels, control, order);
#else
  if (srcStep == dstStep && static_cast<long>(srcStep) == 4L * roi.width) {
    pixels *= static_cast<size_t>(rows);
    rows = 1;
  }
  for (int r = 0; r < rows; ++r) {
    if (road == SwapRoad::kDedicated210)
      owniSwap_8u_210_AC4_M7(rowAt(src, srcStep, r), rowAt(dst, dstStep, r), pixels);
    else
      owniSwap_8u_AC4_M7(rowAt(src, srcStep, r), rowAt(dst, dstStep, r), pixels, order);
  }
#endif
}

void ownpi_SwapChannels_8u_C4IR(Ipp8u* buffer, int step, IppiSize roi, const int order[4]) {
  const size_t pixels = static_cast<size_t>(roi.width);
#if QV_TIER_LEVEL >= 2
  if (owniPlanSwapC4I(buffer, step, roi) == SwapRoad::kShuffle) {
    const __m128i control = shuffleControl(order, 4);
    for (int r = 0; r < roi.height; ++r) shuffleRowC4I(rowAt(buffer, step, r), pixels, control, order);
    return;
  }
#endif
  for (int r = 0; r < roi.height; ++r) swapRowPixelsC4I(rowAt(buffer, step, r), pixels, order);
}

}  // namespace QV_TIER
