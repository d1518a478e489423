#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_PIXEL_BLEND_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_PIXEL_BLEND_H

// The fixed-point blends of 8-bit four-channel pixels, one pixel in the four 32-bit lanes of a
// vector. Multiply-adds of 16-bit lanes give exactly the integer sums of the scalar rule, so
// every tier produces the same bytes; u8 and above pair channels with one byte shuffle.

#include "primitives/common/tier_util.h"
#include "primitives/image/geometry/warp/interpolators.h"

namespace QV_TIER {

// A pair of 16-bit weights (first in the low half) in every 32-bit lane.
QV_INLINE __m128i weightPair(int first, int second) {
  return _mm_set1_epi32(
      static_cast<int>((static_cast<uint32_t>(second) << 16) | (static_cast<uint32_t>(first) & 0xFFFF)));
}

// The linear weights (16384 - f, f).
QV_INLINE __m128i linearWeights(int fraction) { return weightPair(16384 - fraction, fraction); }

// The channels of the two pixels in the low 8 bytes of v, interleaved as 16-bit lanes:
// a0 b0 a1 b1 a2 b2 a3 b3.
QV_INLINE __m128i pairChannels(__m128i v) {
#if QV_TIER_LEVEL >= 2
  return _mm_shuffle_epi8(v, _mm_setr_epi8(0, -1, 4, -1, 1, -1, 5, -1, 2, -1, 6, -1, 3, -1, 7, -1));
#else
  return _mm_unpacklo_epi8(_mm_unpacklo_epi8(v, _mm_srli_si128(v, 4)), _mm_setzero_si128());
#endif
}

QV_INLINE __m128i loadPixelPair(const Ipp8u* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }

// The column blend of two 32-bit rows a and b of four channels, packed to signed 16 bits with
// saturation: (a (16384 - f) + b f + bias) >> 20 in each lane, as 32-bit results.
QV_INLINE __m128i blendColumns(__m128i a, __m128i b, __m128i pair, __m128i bias) {
  const __m128i packed = _mm_packs_epi32(a, b);
  const __m128i interleaved = _mm_unpacklo_epi16(packed, _mm_srli_si128(packed, 8));
  return _mm_srai_epi32(_mm_add_epi32(_mm_madd_epi16(interleaved, pair), bias), 20);
}

// Linear blend of one pixel: the pixels at top and top + 4, and at bottom and bottom + 4.
// Each row is (p0 (16384 - fx) + p1 fx) >> 8; the result (top (16384 - fy) + bottom fy +
// bias) >> 20, four 32-bit lanes, not yet saturated.
QV_INLINE __m128i blendLinear(const Ipp8u* top, const Ipp8u* bottom, __m128i xWeights, __m128i yWeights, __m128i bias) {
  const __m128i upper = _mm_srai_epi32(_mm_madd_epi16(pairChannels(loadPixelPair(top)), xWeights), 8);
  const __m128i lower = _mm_srai_epi32(_mm_madd_epi16(pairChannels(loadPixelPair(bottom)), xWeights), 8);
  return blendColumns(upper, lower, yWeights, bias);
}

// One row of a linear blend: (p0 (16384 - fx) + p1 fx) >> 8 per channel, from the two pixels
// at p.
QV_INLINE __m128i blendRow(const Ipp8u* p, __m128i xWeights) {
  return _mm_srai_epi32(_mm_madd_epi16(pairChannels(loadPixelPair(p)), xWeights), 8);
}

// Linear blends of two pixels, a and b, stored together at out.
QV_INLINE void blendLinearPair(Ipp8u* out, const Ipp8u* topA, const Ipp8u* bottomA, __m128i xA, __m128i yA,
                               const Ipp8u* topB, const Ipp8u* bottomB, __m128i xB, __m128i yB, __m128i bias) {
  const __m128i tops = _mm_packs_epi32(blendRow(topA, xA), blendRow(topB, xB));
  const __m128i bottoms = _mm_packs_epi32(blendRow(bottomA, xA), blendRow(bottomB, xB));
  const __m128i a = _mm_srai_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(tops, bottoms), yA), bias), 20);
  const __m128i b = _mm_srai_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(tops, bottoms), yB), bias), 20);
  const __m128i words = _mm_packs_epi32(a, b);
  _mm_storel_epi64(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(words, words));
}

// The cubic weights at t as two pairs: (w0, w1) and (w2, w3).
struct CubicPairs {
  __m128i first, second;
};

QV_INLINE CubicPairs cubicPairs(int t) {
  const Ipp16s* entry = ownpi_cubicWeights.entries[t];
  const Ipp16s* mirrored = ownpi_cubicWeights.entries[1536 - t];
  return {weightPair(entry[0], entry[1]), weightPair(mirrored[1], mirrored[0])};
}

// One row of four taps of four channels: (sum of sample times weight) >> 8 per channel.
QV_INLINE __m128i cubicRow(const Ipp8u* p, const CubicPairs& x) {
  const __m128i taps = loadBlock(p);
  const __m128i near = _mm_madd_epi16(pairChannels(taps), x.first);
  const __m128i far = _mm_madd_epi16(pairChannels(_mm_srli_si128(taps, 8)), x.second);
  return _mm_srai_epi32(_mm_add_epi32(near, far), 8);
}

// The four rows combined: (sum of row times weight + 524288) >> 20 per channel. Row values
// stay within 16 bits: the positive weights of a row sum to at most 1.32, the negative ones to
// at least -0.32, so a row lies within -5200..21500.
QV_INLINE __m128i cubicColumns(__m128i r0, __m128i r1, __m128i r2, __m128i r3, const CubicPairs& y) {
  const __m128i p01 = _mm_packs_epi32(r0, r1);
  const __m128i p23 = _mm_packs_epi32(r2, r3);
  const __m128i near = _mm_madd_epi16(_mm_unpacklo_epi16(p01, _mm_srli_si128(p01, 8)), y.first);
  const __m128i far = _mm_madd_epi16(_mm_unpacklo_epi16(p23, _mm_srli_si128(p23, 8)), y.second);
  return _mm_srai_epi32(_mm_add_epi32(_mm_add_epi32(near, far), _mm_set1_epi32(524288)), 20);
}

// Four 32-bit lanes saturated to 0..255, stored as one pixel.
QV_INLINE void storePixel(Ipp8u* p, __m128i lanes) {
  const __m128i words = _mm_packs_epi32(lanes, lanes);
  store32(p, static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words))));
}

}  // namespace QV_TIER

#endif
