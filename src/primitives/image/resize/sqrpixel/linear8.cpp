// Linear resizing of 8-bit samples in integers. Weights are Q14: the second tap of a pair weighs
// w = truncate(fraction * 16384 + 1e-7), the first 16384 - w. Across, a row keeps six fraction
// bits in 16-bit samples: (p0 (16384 - w) + p1 w + 128) >> 8. Down, two such rows make a sample:
// (r0 (16384 - wy) + r1 wy + 0x80000) >> 20. Pixels whose taps leave the image on one axis
// interpolate along the other one only, directly in Q14: (w0 p0 + w1 p1 + 8192) >> 14, with the
// taps moved to the edge; where they leave it on both axes the edge pixel is copied.

#include "primitives/image/resize/sqrpixel/positions.h"
#include "primitives/image/resize/sqrpixel/samples.h"
#include "primitives/image/resize/sqrpixel/scratch.h"
#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

QV_INLINE int blendQ14(int p0, int p1, int w) { return (p0 * (16384 - w) + p1 * w + 8192) >> 14; }

struct FixedAxis {
  int* index;
  int* weight;
  int lead, end;  // positions whose two taps lie inside the image
};

template <int kChannels>
class LinearResize8 {
 public:
  explicit LinearResize8(const ResizeJob& job) : job_(job), g_(job.geometry) {}

  void run() {
    carve();
    for (int j = 0; j < g_.height; ++j) {
      Ipp8u* out = rowAt(job_.dst, job_.dstStep, j);
      if (j < rows_.lead || j >= rows_.end)
        edgeRow(j, out);
      else
        interiorRow(j, out);
    }
  }

 private:
  void carve() {
    ScratchCarver carver(job_.scratch);
    cols_.index = carver.take<int>(g_.width, 16);
    rows_.index = carver.take<int>(g_.height, 16);
    cols_.weight = carver.take<int>(g_.width, 64);
    rows_.weight = carver.take<int>(g_.height, 64);
    for (int k = 0; k < 2; ++k) {
      ring_[k] = carver.take<Ipp16s>(static_cast<size_t>(g_.width) * kChannels, 64);
      ringKey_[k] = -0x7FFFFFFF;
    }
    fillFixedAxis(g_.x0, g_.width, g_.xInverse, g_.xOrigin, cols_.index, cols_.weight);
    fillFixedAxis(g_.y0, g_.height, g_.yInverse, g_.yOrigin, rows_.index, rows_.weight);
    interiorRange(cols_.index, g_.width, {2, 0}, job_.srcWidth, &cols_.lead, &cols_.end);
    interiorRange(rows_.index, g_.height, {2, 0}, job_.srcHeight, &rows_.lead, &rows_.end);
    halving_ = interiorColumnsHalve();
  }

  const Ipp8u* sourceRow(int r) const { return rowAt(job_.src, job_.srcStep, clampIndex(r, job_.srcHeight - 1)); }

  // A row above or below the image's taps: one source row, interpolated across only.
  void edgeRow(int j, Ipp8u* out) const {
    const Ipp8u* src = sourceRow(rows_.index[j]);
    const int last = job_.srcWidth - 1;
    for (int i = 0; i < g_.width; ++i) {
      const int x = cols_.index[i];
      const Ipp8u* p0 = src + clampIndex(x, last) * kChannels;
      const Ipp8u* p1 = src + clampIndex(x + 1, last) * kChannels;
      for (int c = 0; c < kChannels; ++c)
        out[i * kChannels + c] = static_cast<Ipp8u>(blendQ14(p0[c], p1[c], cols_.weight[i]));
    }
  }

  void interiorRow(int j, Ipp8u* out) {
    const int y = rows_.index[j];
    const int wy = rows_.weight[j];
    const Ipp8u* upper = sourceRow(y);
    const Ipp8u* lower = sourceRow(y + 1);
    // Columns left and right of the image's taps: down the edge column only.
    for (int i = 0; i < cols_.lead; ++i) edgeColumnPixel(i, upper, lower, wy, out);
    for (int i = maxOf(cols_.end, cols_.lead); i < g_.width; ++i) edgeColumnPixel(i, upper, lower, wy, out);
    if (cols_.end <= cols_.lead) return;
    if constexpr (kChannels == 4) {
      if (halving_ && wy == 8192) {
        averageBlocks(upper, lower, out);
        return;
      }
    }
    const Ipp16s* r0 = filteredRow(y);
    const Ipp16s* r1 = filteredRow(y + 1);
    blendRows(r0, r1, wy, out);
  }

  void edgeColumnPixel(int i, const Ipp8u* upper, const Ipp8u* lower, int wy, Ipp8u* out) const {
    const int x = clampIndex(cols_.index[i], job_.srcWidth - 1) * kChannels;
    for (int c = 0; c < kChannels; ++c)
      out[i * kChannels + c] = static_cast<Ipp8u>(blendQ14(upper[x + c], lower[x + c], wy));
  }

  const Ipp16s* filteredRow(int y) {
    const int slot = y & 1;
    if (ringKey_[slot] != y) {
      filterRow(sourceRow(y), ring_[slot]);
      ringKey_[slot] = y;
    }
    return ring_[slot];
  }

  // The interior columns of one source row, with six fraction bits.
  void filterRow(const Ipp8u* src, Ipp16s* out) const {
    int i = cols_.lead;
    if constexpr (kChannels == 4) {
      if (halving_) i = halveRow(src, out);
      for (; i + 2 <= cols_.end; i += 2) {
        const __m128i a = pairOf(src + cols_.index[i] * 4, cols_.weight[i]);
        const __m128i b = pairOf(src + cols_.index[i + 1] * 4, cols_.weight[i + 1]);
        storeBlock(out + i * 4, _mm_packs_epi32(a, b));
      }
    }
    for (; i < cols_.end; ++i) {
      const Ipp8u* p = src + cols_.index[i] * kChannels;
      const int w = cols_.weight[i];
      for (int c = 0; c < kChannels; ++c)
        out[i * kChannels + c] = static_cast<Ipp16s>((p[c] * (16384 - w) + p[c + kChannels] * w + 128) >> 8);
    }
  }

  // Columns that each take two neighbouring pixels with weight 8192, two pixels apart: then
  // (p0 8192 + p1 8192 + 128) >> 8 is (p0 + p1) * 32, made from sums alone. Answers the first
  // column not done.
  int halveRow(const Ipp8u* src, Ipp16s* out) const {
    int i = cols_.lead;
    const __m128i zero = _mm_setzero_si128();
    for (; i + 2 <= cols_.end; i += 2) {
      const __m128i pixels = loadBlock(src + cols_.index[i] * 4);
      const __m128i low = _mm_unpacklo_epi8(pixels, zero), high = _mm_unpackhi_epi8(pixels, zero);
      const __m128i sums =
          _mm_unpacklo_epi64(_mm_add_epi16(low, _mm_srli_si128(low, 8)), _mm_add_epi16(high, _mm_srli_si128(high, 8)));
      storeBlock(out + i * 4, _mm_slli_epi16(sums, 5));
    }
    return i;
  }

  // A destination row of halvings on both axes: each interior pixel is (S + 2) >> 2 for S the sum
  // of its 2 x 2 source block, which is what the two passes give for weights of 8192 throughout.
  void averageBlocks(const Ipp8u* upper, const Ipp8u* lower, Ipp8u* out) const {
    const __m128i zero = _mm_setzero_si128(), two = _mm_set1_epi16(2);
    int i = cols_.lead;
    for (; i + 2 <= cols_.end; i += 2) {
      const int x = cols_.index[i] * 4;
      const __m128i a = loadBlock(upper + x), b = loadBlock(lower + x);
      const __m128i low = _mm_add_epi16(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero));
      const __m128i high = _mm_add_epi16(_mm_unpackhi_epi8(a, zero), _mm_unpackhi_epi8(b, zero));
      const __m128i sums =
          _mm_unpacklo_epi64(_mm_add_epi16(low, _mm_srli_si128(low, 8)), _mm_add_epi16(high, _mm_srli_si128(high, 8)));
      const __m128i means = _mm_srli_epi16(_mm_add_epi16(sums, two), 2);
      _mm_storel_epi64(reinterpret_cast<__m128i*>(out + i * 4), _mm_packus_epi16(means, means));
    }
    for (; i < cols_.end; ++i) {
      const int x = cols_.index[i] * 4;
      for (int c = 0; c < 4; ++c)
        out[i * 4 + c] =
            static_cast<Ipp8u>((upper[x + c] + upper[x + 4 + c] + lower[x + c] + lower[x + 4 + c] + 2) >> 2);
    }
  }

  // True when every interior column weighs its pair 8192 / 8192 and steps two pixels on.
  bool interiorColumnsHalve() const {
    for (int i = cols_.lead; i < cols_.end; ++i) {
      if (cols_.weight[i] != 8192) return false;
      if (i > cols_.lead && cols_.index[i] != cols_.index[i - 1] + 2) return false;
    }
    return true;
  }

  // The four samples of the pixel at p blended with the pixel after it, as 32-bit lanes.
  static QV_INLINE __m128i pairOf(const Ipp8u* p, int w) {
    const __m128i words = _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)), _mm_setzero_si128());
    const __m128i pairs = _mm_unpacklo_epi16(words, _mm_srli_si128(words, 8));
    const __m128i weights = _mm_set1_epi32((16384 - w) | (w << 16));
    const __m128i sums = _mm_add_epi32(_mm_madd_epi16(pairs, weights), _mm_set1_epi32(128));
    return _mm_srai_epi32(sums, 8);
  }

  // Down: two filtered rows into the destination's interior columns.
  void blendRows(const Ipp16s* r0, const Ipp16s* r1, int wy, Ipp8u* out) const {
    const int first = cols_.lead * kChannels;
    const int end = cols_.end * kChannels;
    const __m128i weights = _mm_set1_epi32((16384 - wy) | (wy << 16));
    const __m128i bias = _mm_set1_epi32(0x80000);
    auto blendEight = [&](int at) {
      const __m128i a = loadBlock(r0 + at);
      const __m128i b = loadBlock(r1 + at);
      const __m128i low = _mm_srai_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(a, b), weights), bias), 20);
      const __m128i high = _mm_srai_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(a, b), weights), bias), 20);
      return _mm_packs_epi32(low, high);
    };
    int s = first;
    for (; s + 16 <= end; s += 16) storeBlock(out + s, _mm_packus_epi16(blendEight(s), blendEight(s + 8)));
    for (; s + 8 <= end; s += 8) {
      const __m128i words = blendEight(s);
      _mm_storel_epi64(reinterpret_cast<__m128i*>(out + s), _mm_packus_epi16(words, words));
    }
    for (; s < end; ++s) {
      const int v = (r0[s] * (16384 - wy) + r1[s] * wy + 0x80000) >> 20;
      out[s] = static_cast<Ipp8u>(v < 0 ? 0 : v > 255 ? 255 : v);
    }
  }

  const ResizeJob& job_;
  const ResizeGeometry& g_;
  FixedAxis cols_{}, rows_{};
  Ipp16s* ring_[2];
  int ringKey_[2];
  bool halving_ = false;
};

}  // namespace

void ownpiResizeLinear8(const ResizeJob& job) {
  if (job.channels == 4)
    LinearResize8<4>(job).run();
  else
    LinearResize8<1>(job).run();
}

}  // namespace QV_TIER
