#include "platform/resampler.h"

#include <emmintrin.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace qv::platform {
namespace {

double radiusOf(ResampleKernel kernel) {
  switch (kernel) {
    case ResampleKernel::Linear:
      return 1.0;
    case ResampleKernel::Lanczos3:
      return 3.0;
    case ResampleKernel::Lanczos5:
      return 5.0;
    default:
      return 0.5;
  }
}

double sinc(double x) { return x == 0.0 ? 1.0 : std::sin(M_PI * x) / (M_PI * x); }

double kernelAt(ResampleKernel kernel, double d) {
  const double r = radiusOf(kernel);
  if (d >= r) return 0.0;
  if (kernel == ResampleKernel::Linear) return 1.0 - d;
  return sinc(d) * sinc(d / r);
}

// The taps of every destination position of one axis: the first source index of each position's
// run (edges repeat through clamped indices) and its weights, `taps` a position.
struct AxisTaps {
  int taps = 0;
  std::vector<int> index;      // count * taps, clamped source indices
  std::vector<float> weights;  // count * taps, summing to 1 per position
};

AxisTaps axisTaps(int srcLength, int dstLength, ResampleFilter filter) {
  const double inverse = static_cast<double>(srcLength) / dstLength;
  const bool stretch = filter.stretchOnReduction && inverse > 1.0;
  const double scale = stretch ? 1.0 / inverse : 1.0;
  const double radius = radiusOf(filter.kernel) / scale;
  AxisTaps a;
  a.taps = static_cast<int>(std::floor(2.0 * radius)) + 1;
  a.index.resize(static_cast<size_t>(dstLength) * a.taps);
  a.weights.resize(static_cast<size_t>(dstLength) * a.taps);
  std::vector<double> raw(a.taps);
  for (int i = 0; i < dstLength; ++i) {
    const double c = (i + 0.5) * inverse - 0.5;
    const int first = static_cast<int>(std::ceil(c - radius));
    double sum = 0.0;
    for (int t = 0; t < a.taps; ++t) {
      raw[t] = kernelAt(filter.kernel, std::fabs(first + t - c) * scale);
      sum += raw[t];
    }
    for (int t = 0; t < a.taps; ++t) {
      a.index[static_cast<size_t>(i) * a.taps + t] = std::clamp(first + t, 0, srcLength - 1);
      a.weights[static_cast<size_t>(i) * a.taps + t] = static_cast<float>(raw[t] / sum);
    }
  }
  return a;
}

template <typename T>
const T* sourceRow(const vImage_Buffer* b, int y) {
  return reinterpret_cast<const T*>(static_cast<const uint8_t*>(b->data) + static_cast<size_t>(y) * b->rowBytes);
}

template <typename T>
T* destinationRow(const vImage_Buffer* b, int y) {
  return reinterpret_cast<T*>(static_cast<uint8_t*>(b->data) + static_cast<size_t>(y) * b->rowBytes);
}

__m128 widen(const uint8_t* p) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i bytes = _mm_cvtsi32_si128(*reinterpret_cast<const int*>(p));
  return _mm_cvtepi32_ps(_mm_unpacklo_epi16(_mm_unpacklo_epi8(bytes, zero), zero));
}

__m128 widen(const uint16_t* p) {
  return _mm_cvtepi32_ps(_mm_unpacklo_epi16(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)), _mm_setzero_si128()));
}

template <typename T>
T toSample(float v) {
  const float maximum = sizeof(T) == 1 ? 255.0f : 65535.0f;
  return static_cast<T>(std::lrint(std::clamp(v, 0.0f, maximum)));
}

template <typename T, int kChannels>
class Resampler {
 public:
  Resampler(const vImage_Buffer* src, const vImage_Buffer* dst, ResampleFilter filter)
      : src_(src),
        dst_(dst),
        srcWidth_(static_cast<int>(src->width)),
        srcHeight_(static_cast<int>(src->height)),
        dstWidth_(static_cast<int>(dst->width)),
        dstHeight_(static_cast<int>(dst->height)),
        x_(axisTaps(srcWidth_, dstWidth_, filter)),
        y_(axisTaps(srcHeight_, dstHeight_, filter)) {}

  void run() {
    // A source row is filtered across once and kept while later destination rows need it.
    const int slots = std::min(y_.taps, srcHeight_);
    const size_t rowLength = static_cast<size_t>(dstWidth_) * kChannels;
    std::vector<float> ring(static_cast<size_t>(slots) * rowLength + 4);
    std::vector<int> held(slots, -1);
    std::vector<const float*> rows(y_.taps);
    for (int j = 0; j < dstHeight_; ++j) {
      const int* index = &y_.index[static_cast<size_t>(j) * y_.taps];
      for (int t = 0; t < y_.taps; ++t) {
        const int slot = index[t] % slots;
        float* row = &ring[static_cast<size_t>(slot) * rowLength];
        if (held[slot] != index[t]) {
          filterRow(sourceRow<T>(src_, index[t]), row);
          held[slot] = index[t];
        }
        rows[t] = row;
      }
      combineRows(rows.data(), &y_.weights[static_cast<size_t>(j) * y_.taps], rowLength, destinationRow<T>(dst_, j));
    }
  }

 private:
  void filterRow(const T* src, float* out) const {
    for (int i = 0; i < dstWidth_; ++i) {
      const int* index = &x_.index[static_cast<size_t>(i) * x_.taps];
      const float* w = &x_.weights[static_cast<size_t>(i) * x_.taps];
      if constexpr (kChannels == 4) {
        __m128 sum = _mm_setzero_ps();
        for (int t = 0; t < x_.taps; ++t)
          sum = _mm_add_ps(sum, _mm_mul_ps(widen(src + index[t] * 4), _mm_set1_ps(w[t])));
        _mm_storeu_ps(out + 4 * i, sum);
      } else {
        float sum = 0.0f;
        for (int t = 0; t < x_.taps; ++t) sum += static_cast<float>(src[index[t]]) * w[t];
        out[i] = sum;
      }
    }
  }

  void combineRows(const float* const* rows, const float* w, size_t length, T* out) const {
    size_t s = 0;
    for (; s + 4 <= length; s += 4) {
      __m128 sum = _mm_setzero_ps();
      for (int t = 0; t < y_.taps; ++t) sum = _mm_add_ps(sum, _mm_mul_ps(_mm_loadu_ps(rows[t] + s), _mm_set1_ps(w[t])));
      float lanes[4];
      _mm_storeu_ps(lanes, sum);
      for (int k = 0; k < 4; ++k) out[s + k] = toSample<T>(lanes[k]);
    }
    for (; s < length; ++s) {
      float sum = 0.0f;
      for (int t = 0; t < y_.taps; ++t) sum += rows[t][s] * w[t];
      out[s] = toSample<T>(sum);
    }
  }

  const vImage_Buffer* src_;
  const vImage_Buffer* dst_;
  int srcWidth_, srcHeight_, dstWidth_, dstHeight_;
  AxisTaps x_, y_;
};

// Nearest: the source pixel under each destination centre, whole pixels copied.
template <typename Pixel>
void nearest(const vImage_Buffer* src, const vImage_Buffer* dst) {
  const double xInverse = static_cast<double>(src->width) / dst->width;
  const double yInverse = static_cast<double>(src->height) / dst->height;
  std::vector<int> columns(dst->width);
  for (size_t i = 0; i < dst->width; ++i)
    columns[i] = std::min(static_cast<int>((i + 0.5) * xInverse), static_cast<int>(src->width) - 1);
  for (size_t j = 0; j < dst->height; ++j) {
    const int row = std::min(static_cast<int>((j + 0.5) * yInverse), static_cast<int>(src->height) - 1);
    const Pixel* from = sourceRow<Pixel>(src, row);
    Pixel* to = destinationRow<Pixel>(dst, static_cast<int>(j));
    for (size_t i = 0; i < dst->width; ++i) to[i] = from[columns[i]];
  }
}

struct Pixel64 {
  uint16_t v[4];
};

}  // namespace

void resample(const vImage_Buffer* src, const vImage_Buffer* dst, int channels, int bitsPerSample,
              ResampleFilter filter) {
  if (src->width == 0 || src->height == 0 || dst->width == 0 || dst->height == 0) return;
  if (filter.kernel == ResampleKernel::Nearest) {
    if (channels == 1)
      nearest<uint8_t>(src, dst);
    else if (bitsPerSample == 8)
      nearest<uint32_t>(src, dst);
    else
      nearest<Pixel64>(src, dst);
    return;
  }
  if (channels == 1)
    Resampler<uint8_t, 1>(src, dst, filter).run();
  else if (bitsPerSample == 8)
    Resampler<uint8_t, 4>(src, dst, filter).run();
  else
    Resampler<uint16_t, 4>(src, dst, filter).run();
}

}  // namespace qv::platform
