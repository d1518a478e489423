// The antialiased engine: on a reduction the kernel is stretched by the reduction factor, so that
// every source pixel under the stretched support takes part. Each destination position has its
// own list of taps: source offsets (moved inside the image, so that edges repeat) and weights
// that sum to 1. Sums take three taps first and then two at a time, in floats, and are rounded
// once to nearest even and saturated.

#include "primitives/image/resize/sqrpixel/positions.h"
#include "primitives/image/resize/sqrpixel/samples.h"
#include "primitives/image/resize/sqrpixel/scratch.h"
#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

constexpr double kPi = 3.14159265358979323846;

double baseRadiusOf(Ipp32u kind) {
  if (kind == IPPI_INTER_LINEAR) return 1.0;
  if (kind == IPPI_INTER_LANCZOS) return 3.0;
  return 2.0;
}

// The kernel of the kind at distance d, zero from its radius on.
double kernelAt(Ipp32u kind, double d) {
  if (d >= baseRadiusOf(kind)) return 0.0;
  if (kind == IPPI_INTER_LINEAR) return 1.0 - d;
  if (kind == IPPI_INTER_LANCZOS) {
    if (d == 0.0) return 1.0;
    const double x = kPi * d;
    return (__builtin_sin(x) / x) * (__builtin_sin(x / 3.0) / (x / 3.0));
  }
  return cubicKernel(kind, d);
}

// The stretched kernel of one axis.
struct AxisKernel {
  Ipp32u kind;
  double inverse, origin;
  double radius, scale;
  int taps;    // the same for every position
  int length;  // of the source axis
};

AxisKernel axisKernel(Ipp32u kind, double inverse, double origin, int length) {
  const double base = baseRadiusOf(kind);
  AxisKernel a{kind, inverse, origin, base, 1.0, 0, length};
  if (inverse >= 1.0) {
    a.radius = base * inverse;
    a.scale = 1.0 / inverse;
  }
  a.taps = static_cast<int>(__builtin_floor(2.0 * a.radius)) + 1;
  return a;
}

// Where position i of the axis falls in the source, its first tap and its last non-zero one.
struct Position {
  double c;
  int first, last;
};

Position positionOf(const AxisKernel& a, int i) {
  const double c = (i + 0.5) * a.inverse + a.origin - 0.5;
  return {c, static_cast<int>(__builtin_ceil(c - a.radius)), static_cast<int>(c + a.radius)};
}

double rawWeight(const AxisKernel& a, const Position& p, int t) {
  const int k = p.first + t;
  if (k > p.last) return 0.0;
  const double d = (p.c > k ? p.c - k : k - p.c) * a.scale;
  return kernelAt(a.kind, d);
}

double weightSum(const AxisKernel& a, const Position& p) {
  double sum = 0.0;
  for (int t = 0; t < a.taps; ++t) sum += rawWeight(a, p, t);
  return sum;
}

QV_INLINE float tapWeight(const AxisKernel& a, const Position& p, double sum, int t) {
  return static_cast<float>(rawWeight(a, p, t) / sum);
}

QV_INLINE int tapIndex(const AxisKernel& a, const Position& p, int t) { return clampIndex(p.first + t, a.length - 1); }

// The taps of position i: source indices (inside the image) and weights summing to 1.
void tapsAt(const AxisKernel& a, int i, int* index, float* weights) {
  const Position p = positionOf(a, i);
  const double sum = weightSum(a, p);
  for (int t = 0; t < a.taps; ++t) {
    weights[t] = tapWeight(a, p, sum, t);
    index[t] = tapIndex(a, p, t);
  }
}

// The weighted taps added three first, then two at a time, then the odd one; term(k) is the
// sample of tap k times its weight.
template <typename V, typename Term>
QV_INLINE V sumTaps(int taps, Term&& term) {
  V s = (term(0) + term(1)) + term(2);
  int k = 3;
  for (; k + 1 < taps; k += 2) s = s + (term(k) + term(k + 1));
  if (k < taps) s = s + term(k);
  return s;
}

template <typename T, int kChannels>
class AntialiasedResize {
 public:
  explicit AntialiasedResize(const ResizeJob& job)
      : job_(job),
        g_(job.geometry),
        x_(axisKernel(g_.kind, ownpiBoundedInverse(g_.xInverse, job), g_.xOrigin, job.srcWidth)),
        y_(axisKernel(g_.kind, ownpiBoundedInverse(g_.yInverse, job), g_.yOrigin, job.srcHeight)) {}

  void run() {
    if (tableBytes() <= job_.scratchBytes)
      runWithTables();
    else
      runPixelByPixel();
  }

 private:
  int ringSize() const { return minOf(y_.taps, job_.srcHeight); }

  // The tap tables, the ring of filtered rows and its bookkeeping, with room for alignment.
  int64_t tableBytes() const {
    const int64_t across = int64_t{8} * x_.taps * g_.width + 32;
    const int64_t down = int64_t{16} * y_.taps + 32;
    const int64_t ring = ringSize() * (int64_t{4} * g_.width * kChannels + 64 + 16);
    return across + down + ring + 64;
  }

  void runWithTables() {
    ScratchCarver carver(job_.scratch);
    columns_ = carver.take<int>(static_cast<size_t>(x_.taps) * g_.width, 16);
    columnWeights_ = carver.take<float>(static_cast<size_t>(x_.taps) * g_.width, 16);
    int* rows = carver.take<int>(y_.taps, 16);
    float* rowWeights = carver.take<float>(y_.taps, 16);
    const float** filtered = carver.take<const float*>(y_.taps, 16);
    const int slots = ringSize();
    ring_ = carver.take<float*>(slots, 16);
    ringRow_ = carver.take<int>(slots, 16);
    for (int k = 0; k < slots; ++k) {
      ring_[k] = carver.take<float>(static_cast<size_t>(g_.width) * kChannels, 64);
      ringRow_[k] = -1;
    }
    // With room for it, each source row is widened to floats once before its taps are summed.
    if (tableBytes() + widenedBytes() <= job_.scratchBytes)
      widened_ = carver.take<float>(static_cast<size_t>(job_.srcWidth) * kChannels, 64);
    for (int i = 0; i < g_.width; ++i)
      tapsAt(x_, g_.x0 + i, columns_ + static_cast<size_t>(i) * x_.taps,
             columnWeights_ + static_cast<size_t>(i) * x_.taps);
    for (int j = 0; j < g_.height; ++j) {
      tapsAt(y_, g_.y0 + j, rows, rowWeights);
      gatherRows(rows, filtered);
      combineRows(filtered, rowWeights, reinterpret_cast<T*>(rowAt(job_.dst, job_.dstStep, j)));
    }
  }

  // The filtered rows of one destination row's taps. A source row is filtered once and kept
  // while the following destination rows need it: the rows of one list form a run without gaps
  // no longer than the ring, so the row number modulo the ring's size is a free slot.
  void gatherRows(const int* rows, const float** filtered) {
    const int slots = ringSize();
    for (int t = 0; t < y_.taps; ++t) {
      const int slot = rows[t] % slots;
      if (ringRow_[slot] != rows[t]) {
        filterRow(reinterpret_cast<const T*>(rowAt(job_.src, job_.srcStep, rows[t])), ring_[slot]);
        ringRow_[slot] = rows[t];
      }
      filtered[t] = ring_[slot];
    }
  }

  int64_t widenedBytes() const { return int64_t{4} * job_.srcWidth * kChannels + 64; }

  void filterRow(const T* src, float* out) const {
    if (widened_ != nullptr) {
      widenRow(src);
      filterWidenedRow(out);
      return;
    }
    for (int i = 0; i < g_.width; ++i) {
      const int* index = columns_ + static_cast<size_t>(i) * x_.taps;
      const float* w = columnWeights_ + static_cast<size_t>(i) * x_.taps;
      if constexpr (kChannels == 4) {
        const __m128 v = sumTaps<__m128>(x_.taps, [&](int k) { return widenPixel(src + index[k] * 4) * w[k]; });
        _mm_storeu_ps(out + 4 * i, v);
      } else {
        out[i] = sumTaps<float>(x_.taps, [&](int k) { return static_cast<float>(src[index[k]]) * w[k]; });
      }
    }
  }

  void widenRow(const T* src) const {
    const int length = job_.srcWidth * kChannels;
    int s = 0;
    for (; s + 4 <= length; s += 4) _mm_store_ps(widened_ + s, widenPixel(src + s));
    for (; s < length; ++s) widened_[s] = static_cast<float>(src[s]);
  }

  // The same sums as filterRow, from the widened row.
  void filterWidenedRow(float* out) const {
    for (int i = 0; i < g_.width; ++i) {
      const int* index = columns_ + static_cast<size_t>(i) * x_.taps;
      const float* w = columnWeights_ + static_cast<size_t>(i) * x_.taps;
      if constexpr (kChannels == 4) {
        const __m128 v = sumTaps<__m128>(x_.taps, [&](int k) { return _mm_load_ps(widened_ + index[k] * 4) * w[k]; });
        _mm_storeu_ps(out + 4 * i, v);
      } else {
        out[i] = sumTaps<float>(x_.taps, [&](int k) { return widened_[index[k]] * w[k]; });
      }
    }
  }

  void combineRows(const float* const* rows, const float* w, T* out) const {
    const int length = g_.width * kChannels;
    int s = 0;
    for (; s + 8 <= length; s += 8) {
      const __m128 low = sumTaps<__m128>(y_.taps, [&](int k) { return _mm_loadu_ps(rows[k] + s) * w[k]; });
      const __m128 high = sumTaps<__m128>(y_.taps, [&](int k) { return _mm_loadu_ps(rows[k] + s + 4) * w[k]; });
      storeEight(out + s, low, high);
    }
    for (; s < length; ++s) storeSample(out + s, sumTaps<float>(y_.taps, [&](int k) { return rows[k][s] * w[k]; }));
  }

  // Without room for the tables: every destination sample sums its taps directly, with the same
  // weights in the same order; slow, and only for factors far from the regions' own ratio.
  void runPixelByPixel() const {
    for (int j = 0; j < g_.height; ++j) {
      const Position py = positionOf(y_, g_.y0 + j);
      const double sumY = weightSum(y_, py);
      T* out = reinterpret_cast<T*>(rowAt(job_.dst, job_.dstStep, j));
      for (int i = 0; i < g_.width; ++i) {
        const Position px = positionOf(x_, g_.x0 + i);
        const double sumX = weightSum(x_, px);
        for (int c = 0; c < kChannels; ++c) {
          const float v = sumTaps<float>(y_.taps, [&](int t) {
            const T* src = reinterpret_cast<const T*>(rowAt(job_.src, job_.srcStep, tapIndex(y_, py, t)));
            const float across = sumTaps<float>(x_.taps, [&](int k) {
              return static_cast<float>(src[tapIndex(x_, px, k) * kChannels + c]) * tapWeight(x_, px, sumX, k);
            });
            return across * tapWeight(y_, py, sumY, t);
          });
          storeSample(out + i * kChannels + c, v);
        }
      }
    }
  }

  const ResizeJob& job_;
  const ResizeGeometry& g_;
  AxisKernel x_, y_;
  int* columns_ = nullptr;
  float* columnWeights_ = nullptr;
  float** ring_ = nullptr;
  int* ringRow_ = nullptr;
  float* widened_ = nullptr;
};

}  // namespace

IppStatus ownpiResizeAA(const ResizeJob& job) {
  if (job.dataType == 1)
    AntialiasedResize<Ipp16u, 4>(job).run();
  else if (job.channels == 4)
    AntialiasedResize<Ipp8u, 4>(job).run();
  else
    AntialiasedResize<Ipp8u, 1>(job).run();
  return ippStsNoErr;
}

}  // namespace QV_TIER
