// The interpolating engine in floats: linear on 16 bits, the four cubics and Lanczos on 8 and 16
// bits. Each source row that a tap needs is filtered across once into a ring of float rows;
// each destination row combines the ring's rows with its vertical weights, rounds once to
// nearest even and saturates. Taps that fall outside the source image are moved to its edge, so
// the pixels near the edges take the same sums with repeated edge pixels.

#include "primitives/image/resize/sqrpixel/positions.h"
#include "primitives/image/resize/sqrpixel/samples.h"
#include "primitives/image/resize/sqrpixel/scratch.h"
#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

// The sums of the taps, in one grouping for every road: linear as a + (b - a) f, four taps in
// pairs, six taps as two pairs and then the third pair.
template <int kTaps, typename V>
QV_INLINE V combine(const V* p, const float* w) {
  if constexpr (kTaps == 2) {
    return p[0] + (p[1] - p[0]) * w[0];
  } else if constexpr (kTaps == 4) {
    return (p[0] * w[0] + p[1] * w[1]) + (p[2] * w[2] + p[3] * w[3]);
  } else {
    return ((p[0] * w[0] + p[1] * w[1]) + (p[2] * w[2] + p[3] * w[3])) + (p[4] * w[4] + p[5] * w[5]);
  }
}

template <int kTaps>
constexpr int weightsPerPosition() {
  return kTaps == 2 ? 1 : kTaps;
}

struct Axis {
  int* index;
  float* weights;
  int lead, end;  // positions whose taps all lie inside the image
};

template <typename T, int kChannels, int kTaps, int kBefore>
class FloatResize {
 public:
  explicit FloatResize(const ResizeJob& job) : job_(job), g_(job.geometry) {}

  void run() {
    carve();
    const int rowLength = g_.width * kChannels;
    for (int j = 0; j < g_.height; ++j) {
      const float* rows[kTaps];
      gatherRows(j, rows);
      T* out = reinterpret_cast<T*>(rowAt(job_.dst, job_.dstStep, j));
      combineColumns(rows, rows_.weights + static_cast<size_t>(j) * kPer, rowLength, out);
    }
  }

 private:
  static constexpr int kPer = weightsPerPosition<kTaps>();

  void carve() {
    ScratchCarver carver(job_.scratch);
    cols_.index = carver.take<int>(g_.width, 16);
    rows_.index = carver.take<int>(g_.height, 16);
    cols_.weights = carver.take<float>(static_cast<size_t>(g_.width) * kPer, 32);
    rows_.weights = carver.take<float>(static_cast<size_t>(g_.height) * kPer, 32);
    for (int k = 0; k < kTaps; ++k) {
      ring_[k] = carver.take<float>(static_cast<size_t>(g_.width) * kChannels, 64);
      ringKey_[k] = -0x7FFFFFFF;
    }
    fillFloatAxis(g_.kind, g_.x0, g_.width, g_.xInverse, g_.xOrigin, cols_.index, cols_.weights);
    fillFloatAxis(g_.kind, g_.y0, g_.height, g_.yInverse, g_.yOrigin, rows_.index, rows_.weights);
    const TapShape shape{kTaps, kBefore};
    interiorRange(cols_.index, g_.width, shape, job_.srcWidth, &cols_.lead, &cols_.end);
  }

  // The filtered source rows of destination row j, in tap order; a row is filtered when a tap
  // first needs it and kept in the ring while later rows need it.
  void gatherRows(int j, const float** rows) {
    const int first = rows_.index[j] - kBefore;
    for (int k = 0; k < kTaps; ++k) {
      const int key = first + k;
      const int slot = ((key % kTaps) + kTaps) % kTaps;
      if (ringKey_[slot] != key) {
        const int row = clampIndex(key, job_.srcHeight - 1);
        filterRow(reinterpret_cast<const T*>(rowAt(job_.src, job_.srcStep, row)), ring_[slot]);
        ringKey_[slot] = key;
      }
      rows[k] = ring_[slot];
    }
  }

  void filterRow(const T* src, float* out) const {
    for (int i = 0; i < cols_.lead; ++i) filterEdgePixel(src, i, out);
    for (int i = cols_.lead; i < cols_.end; ++i) filterPixel(src, i, out);
    for (int i = maxOf(cols_.end, cols_.lead); i < g_.width; ++i) filterEdgePixel(src, i, out);
  }

  // A pixel whose taps are all inside the row.
  QV_INLINE void filterPixel(const T* src, int i, float* out) const {
    const T* p = src + static_cast<ptrdiff_t>(cols_.index[i] - kBefore) * kChannels;
    const float* w = cols_.weights + static_cast<size_t>(i) * kPer;
    if constexpr (kChannels == 4) {
      __m128 taps[kTaps];
      for (int k = 0; k < kTaps; ++k) taps[k] = widenPixel(p + 4 * k);
      _mm_storeu_ps(out + 4 * i, combine<kTaps>(taps, w));
    } else {
      float taps[kTaps];
      for (int k = 0; k < kTaps; ++k) taps[k] = static_cast<float>(p[k]);
      out[i] = combine<kTaps>(taps, w);
    }
  }

  // A pixel with taps past the row's ends, moved to the end pixels.
  void filterEdgePixel(const T* src, int i, float* out) const {
    const int first = cols_.index[i] - kBefore;
    const float* w = cols_.weights + static_cast<size_t>(i) * kPer;
    for (int c = 0; c < kChannels; ++c) {
      float taps[kTaps];
      for (int k = 0; k < kTaps; ++k)
        taps[k] = static_cast<float>(src[clampIndex(first + k, job_.srcWidth - 1) * kChannels + c]);
      out[i * kChannels + c] = combine<kTaps>(taps, w);
    }
  }

  static void combineColumns(const float** rows, const float* w, int length, T* out) {
    int s = 0;
    for (; s + 8 <= length; s += 8) {
      __m128 low[kTaps], high[kTaps];
      for (int k = 0; k < kTaps; ++k) {
        low[k] = _mm_loadu_ps(rows[k] + s);
        high[k] = _mm_loadu_ps(rows[k] + s + 4);
      }
      storeEight(out + s, combine<kTaps>(low, w), combine<kTaps>(high, w));
    }
    for (; s < length; ++s) {
      float taps[kTaps];
      for (int k = 0; k < kTaps; ++k) taps[k] = rows[k][s];
      storeSample(out + s, combine<kTaps>(taps, w));
    }
  }

  const ResizeJob& job_;
  const ResizeGeometry& g_;
  Axis cols_{}, rows_{};
  float* ring_[kTaps];
  int ringKey_[kTaps];
};

template <typename T, int kChannels>
void resizeByKind(const ResizeJob& job) {
  switch (job.geometry.kind) {
    case IPPI_INTER_LINEAR:
      FloatResize<T, kChannels, 2, 0>(job).run();
      break;
    case IPPI_INTER_LANCZOS:
      FloatResize<T, kChannels, 6, 2>(job).run();
      break;
    default:
      FloatResize<T, kChannels, 4, 1>(job).run();
      break;
  }
}

}  // namespace

void ownpiResizeFloat(const ResizeJob& job) {
  if (job.dataType == 1)
    resizeByKind<Ipp16u, 4>(job);
  else if (job.channels == 4)
    resizeByKind<Ipp8u, 4>(job);
  else
    resizeByKind<Ipp8u, 1>(job);
}

}  // namespace QV_TIER
