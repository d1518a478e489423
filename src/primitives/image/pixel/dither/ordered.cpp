// The kernels without error carry: ordered dithering by the 4x4 Bayer matrix, with or without
// random thresholds, and the plain reduction to the nearest level.

#include "primitives/data/memory/memory.h"
#include "primitives/image/pixel/dither/dither_kernels.h"

namespace QV_TIER {
namespace {

// Bayer matrix in sixteenths of fifteen: entry [y & 3][x & 3], to be divided by 15.
constexpr int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

QV_INLINE float bayerFraction(int x, int y) { return static_cast<float>(kBayer[y & 3][x & 3]) / 15.0f; }

// One pixel, its four channels in the lanes of one vector: q = float(truncate(p * scale)) * step;
// q + step where p - q exceeds the threshold, else q; truncated and saturated to a byte.
QV_INLINE uint32_t orderedPixel(uint32_t pixel, float threshold, const DitherLevels& levels) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i words = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(pixel)), zero);
  const __m128 p = _mm_cvtepi32_ps(_mm_unpacklo_epi16(words, zero));
  const __m128 step = _mm_set1_ps(levels.step);
  const __m128 q = _mm_mul_ps(_mm_cvtepi32_ps(_mm_cvttps_epi32(_mm_mul_ps(p, _mm_set1_ps(levels.scale)))), step);
  const __m128 above = _mm_cmpgt_ps(_mm_sub_ps(p, q), _mm_set1_ps(threshold));
  const __m128 r = _mm_add_ps(q, _mm_and_ps(above, step));
  const __m128i wide = _mm_cvttps_epi32(r);
  const __m128i narrow = _mm_packs_epi32(wide, wide);
  return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(narrow, narrow)));
}

// Walks the pixels with threshold(x, y) in levels' units. Levels and thresholds are copies held
// here, so that the byte stores cannot alias them.
template <typename Threshold>
void orderedDither(const DitherImage& image, const DitherLevels levels, const Threshold threshold) {
  for (int y = 0; y < image.height; ++y) {
    const Ipp8u* src = rowAt(image.src, image.srcStep, y);
    Ipp8u* dst = rowAt(image.dst, image.dstStep, y);
    for (int x = 0; x < image.width; ++x)
      store32(dst + 4 * x, orderedPixel(load32(src + 4 * x), threshold(x, y), levels));
  }
}

// The plain reduction in unit floats, for one byte value.
QV_INLINE Ipp8u nearestLevel(int p, int lastLevel) {
  const float l = static_cast<float>(lastLevel);
  const float inverse = 1.0f / l;
  const float u = static_cast<float>(p) * 0.003921569f;
  const float q = static_cast<float>(static_cast<int>(l * u)) * inverse;
  const float r = u - q > 0.5f * inverse ? q + inverse : q;
  return saturatedByte(static_cast<int>(r * 255.0f));
}

}  // namespace

IppStatus ownReduceBits_bayer_8u_c4(const DitherImage& image, const DitherLevels& levels) {
  float thresholds[4][4];
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 4; ++x) thresholds[y][x] = bayerFraction(x, y) * levels.step;
  }
  orderedDither(image, levels, [thresholds](int x, int y) { return thresholds[y & 3][x & 3]; });
  return ippStsNoErr;
}

IppStatus ownReduceBits_bayer_noise_8u_c4(const DitherImage& image, const DitherLevels& levels, int noise) {
  NoiseTables tables;
  const IppStatus status =
      drawNoiseTables(static_cast<float>(-noise) / 100.0f, static_cast<float>(noise) / 100.0f, tables);
  if (status != ippStsNoErr) return status;
  orderedDither(image, levels,
                [tables, step = levels.step](int x, int y) { return (bayerFraction(x, y) + tables.at(x, y)) * step; });
  freeNoiseTables(tables);
  return ippStsNoErr;
}

// The result depends on the byte value alone, so the 256 results are worked out once and every
// byte of the region (all four channels) is looked up.
IppStatus ownNo_8u_PX(const DitherImage& image, const DitherLevels& levels) {
  Ipp8u table[256];
  for (int p = 0; p < 256; ++p) table[p] = nearestLevel(p, levels.lastLevel);
  const int rowBytes = 4 * image.width;
  for (int y = 0; y < image.height; ++y) {
    const Ipp8u* src = rowAt(image.src, image.srcStep, y);
    Ipp8u* dst = rowAt(image.dst, image.dstStep, y);
    for (int i = 0; i < rowBytes; ++i) dst[i] = table[src[i]];
  }
  return ippStsNoErr;
}

}  // namespace QV_TIER
