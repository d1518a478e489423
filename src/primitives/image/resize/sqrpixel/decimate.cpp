// Supersampling: each destination pixel is the mean of the source cell it covers. The cell of
// destination pixel i spans inverse source pixels from x0 * inverse + origin on. Cells of a whole
// number of pixels that start on a pixel boundary add samples in 32-bit integers; all others weigh
// the partly covered rows and columns by their coverage, adding rows first, in floats. Cells that
// reach past the image repeat its edge rows and columns. Every sample is then
// truncate(sum * area + 0.5), area being the reciprocal of the cell's size.

#include "primitives/image/resize/sqrpixel/samples.h"
#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

double fractionOf(double v) { return v - __builtin_floor(v); }

// The first source pixel of the first cell and how much of it the cell covers.
struct CellStart {
  int index;
  double cover;
};

CellStart cellStart(int first, double inverse, double origin) {
  const double s = first * inverse + origin;
  const double whole = s >= 0.0 ? __builtin_floor(s + 1e-10) : __builtin_floor(s - 1e-10);
  return {static_cast<int>(whole), 1.0 - s + whole};
}

// Walks the cells of one axis in order: a partly covered first pixel, whole pixels, and a partly
// covered last pixel that the next cell starts with.
class CellWalker {
 public:
  CellWalker(CellStart start, double inverse) : next_(start.index), cover_(start.cover), inverse_(inverse) {}

  // Calls add(source index, weight) for each pixel of the next cell, in order.
  template <typename Add>
  QV_INLINE void cell(Add&& add) {
    const double c = cover_;
    if (c > 1e-10) add(next_++, c);
    const int whole = static_cast<int>(__builtin_floor(1e-7 + inverse_ - c));
    for (int t = 0; t < whole; ++t) add(next_++, 1.0);
    const double rest = inverse_ - c - whole;
    if (rest >= 1e-7) {
      add(next_, rest);
      cover_ = 1.0 - rest;
    } else {
      cover_ = 0.0;
    }
  }

 private:
  int next_;
  double cover_;
  double inverse_;
};

QV_INLINE int truncateSample(double v, int maximum) {
  const int t = static_cast<int>(v);
  return t < 0 ? 0 : t > maximum ? maximum : t;
}

// ---- Whole cells: integer sums ----

template <typename T, int kChannels>
void decimateWholeCells(const ResizeJob& job, CellStart xs, CellStart ys, int kx, int ky) {
  const ResizeGeometry& g = job.geometry;
  const int maximum = sizeof(T) == 1 ? 255 : 65535;
  const int lastColumn = job.srcWidth - 1;
  Ipp32u* sums = reinterpret_cast<Ipp32u*>((addressOf(job.scratch) + 15) & ~uintptr_t{15});
  const int length = g.width * kChannels;
  for (int j = 0; j < g.height; ++j) {
    for (int s = 0; s < length; ++s) sums[s] = 0;
    for (int t = 0; t < ky; ++t) {
      const int row = clampIndex(ys.index + j * ky + t, job.srcHeight - 1);
      const T* src = reinterpret_cast<const T*>(rowAt(job.src, job.srcStep, row));
      for (int i = 0; i < g.width; ++i) {
        const int first = xs.index + i * kx;
        Ipp32u* sum = sums + i * kChannels;
        if (first >= 0 && first + kx - 1 <= lastColumn) {
          const T* p = src + first * kChannels;
          for (int u = 0; u < kx * kChannels; u += kChannels)
            for (int c = 0; c < kChannels; ++c) sum[c] += p[u + c];
        } else {
          for (int u = 0; u < kx; ++u) {
            const T* p = src + clampIndex(first + u, lastColumn) * kChannels;
            for (int c = 0; c < kChannels; ++c) sum[c] += p[c];
          }
        }
      }
    }
    T* out = reinterpret_cast<T*>(rowAt(job.dst, job.dstStep, j));
    for (int s = 0; s < length; ++s)
      out[s] = static_cast<T>(truncateSample(static_cast<double>(sums[s]) * g.area + 0.5, maximum));
  }
}

// ---- Other cells: coverage weights, rows first ----

// A sample times a weight, the product taken in double and kept as a float.
QV_INLINE float weighted(double w, float v) { return static_cast<float>(w * static_cast<double>(v)); }

// One destination pixel: for each column of its cell the weighted rows of the cell, then the
// weighted columns. rows stands at the first row of the cell, columns at its first column.
template <typename T, int kChannels>
void decimatePixel(const ResizeJob& job, const CellWalker& rows, CellWalker* columns, T* out) {
  float total[kChannels];
  for (int c = 0; c < kChannels; ++c) total[c] = 0.0f;
  const int lastColumn = job.srcWidth - 1;
  const int lastRow = job.srcHeight - 1;
  columns->cell([&](int index, double wx) {
    const int x = clampIndex(index, lastColumn) * kChannels;
    float column[kChannels];
    for (int c = 0; c < kChannels; ++c) column[c] = 0.0f;
    CellWalker cellRows = rows;
    cellRows.cell([&](int row, double wy) {
      const T* p = reinterpret_cast<const T*>(rowAt(job.src, job.srcStep, clampIndex(row, lastRow))) + x;
      for (int c = 0; c < kChannels; ++c) column[c] += weighted(wy, static_cast<float>(p[c]));
    });
    for (int c = 0; c < kChannels; ++c) total[c] += weighted(wx, column[c]);
  });
  const int maximum = sizeof(T) == 1 ? 255 : 65535;
  for (int c = 0; c < kChannels; ++c)
    out[c] = static_cast<T>(truncateSample(static_cast<double>(total[c]) * job.geometry.area + 0.5, maximum));
}

// Four samples times a weight, each product taken in double and kept as a float.
QV_INLINE __m128 weightedFour(double w, __m128 v) {
  const __m128d weight = _mm_set1_pd(w);
  const __m128 low = _mm_cvtpd_ps(_mm_mul_pd(weight, _mm_cvtps_pd(v)));
  const __m128 high = _mm_cvtpd_ps(_mm_mul_pd(weight, _mm_cvtps_pd(_mm_movehl_ps(v, v))));
  return _mm_movelh_ps(low, high);
}

// Four sums times area plus 0.5, in double, truncated and saturated into four samples.
template <typename T>
QV_INLINE void storeMeans(T* out, __m128 total, double area) {
  const __m128d scale = _mm_set1_pd(area), half = _mm_set1_pd(0.5);
  const __m128i low = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(_mm_cvtps_pd(total), scale), half));
  const __m128i high = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(_mm_cvtps_pd(_mm_movehl_ps(total, total)), scale), half));
  const __m128i values = _mm_unpacklo_epi64(low, high);
  if constexpr (sizeof(T) == 1) {
    const __m128i words = _mm_packs_epi32(values, values);
    store32(out, static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words))));
  } else {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out), packUnsignedWords(values, values));
  }
}

// The four-channel form of decimatePixel, all four samples in one vector, the same sums.
template <typename T>
void decimatePixelFour(const ResizeJob& job, const CellWalker& rows, CellWalker* columns, T* out) {
  __m128 total = _mm_setzero_ps();
  const int lastColumn = job.srcWidth - 1;
  const int lastRow = job.srcHeight - 1;
  columns->cell([&](int index, double wx) {
    const int x = clampIndex(index, lastColumn) * 4;
    __m128 column = _mm_setzero_ps();
    CellWalker cellRows = rows;
    cellRows.cell([&](int row, double wy) {
      const __m128 v =
          widenPixel(reinterpret_cast<const T*>(rowAt(job.src, job.srcStep, clampIndex(row, lastRow))) + x);
      column = _mm_add_ps(column, wy == 1.0 ? v : weightedFour(wy, v));
    });
    total = _mm_add_ps(total, wx == 1.0 ? column : weightedFour(wx, column));
  });
  storeMeans(out, total, job.geometry.area);
}

template <typename T, int kChannels>
void decimatePartCells(const ResizeJob& job, CellStart xs, CellStart ys) {
  const ResizeGeometry& g = job.geometry;
  CellWalker rows(ys, g.yInverse);
  for (int j = 0; j < g.height; ++j) {
    T* out = reinterpret_cast<T*>(rowAt(job.dst, job.dstStep, j));
    CellWalker columns(xs, g.xInverse);
    for (int i = 0; i < g.width; ++i) {
      if constexpr (kChannels == 4)
        decimatePixelFour<T>(job, rows, &columns, out + i * 4);
      else
        decimatePixel<T, kChannels>(job, rows, &columns, out + i);
    }
    rows.cell([](int, double) {});
  }
}

template <typename T, int kChannels>
void decimate(const ResizeJob& job) {
  ResizeJob bounded = job;
  ResizeGeometry& g = bounded.geometry;
  g.xInverse = ownpiBoundedInverse(g.xInverse, job);
  g.yInverse = ownpiBoundedInverse(g.yInverse, job);
  if (g.xInverse != job.geometry.xInverse || g.yInverse != job.geometry.yInverse)
    g.area = 1.0 / (g.xInverse * g.yInverse);  // the mean of the bounded cell
  const CellStart xs = cellStart(g.x0, g.xInverse, g.xOrigin);
  const CellStart ys = cellStart(g.y0, g.yInverse, g.yOrigin);
  const bool wholeCells = fractionOf(g.xInverse) <= 1e-7 && fractionOf(g.yInverse) <= 1e-7 &&
                          fractionOf(xs.cover) <= 1e-7 && fractionOf(ys.cover) <= 1e-7;
  if (wholeCells)
    decimateWholeCells<T, kChannels>(bounded, xs, ys, static_cast<int>(g.xInverse), static_cast<int>(g.yInverse));
  else
    decimatePartCells<T, kChannels>(bounded, xs, ys);
}

}  // namespace

void ownpiDecimate(const ResizeJob& job) {
  if (job.dataType == 1)
    decimate<Ipp16u, 4>(job);
  else if (job.channels == 4)
    decimate<Ipp8u, 4>(job);
  else
    decimate<Ipp8u, 1>(job);
}

}  // namespace QV_TIER
