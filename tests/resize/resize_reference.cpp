#include "resize/resize_reference.h"

#include <immintrin.h>

#include <cmath>
#include <numeric>
#include <random>

namespace resizetest {

Axis referenceAxis(int srcLength, int dstLength, int lobes) {
  Axis axis;
  axis.srcLength = srcLength;
  axis.dstLength = dstLength;
  const uint32_t divisor = std::gcd(static_cast<uint32_t>(srcLength), static_cast<uint32_t>(dstLength));
  axis.srcReduced = static_cast<uint32_t>(srcLength) / divisor;
  axis.dstReduced = static_cast<uint32_t>(dstLength) / divisor;
  const double ratio = static_cast<double>(axis.srcReduced) / static_cast<double>(axis.dstReduced);
  for (int i = 0; i < dstLength; ++i) {
    const double x = (i + 0.5) * ratio - 0.5;
    const int32_t whole = static_cast<int32_t>(std::floor(x));
    axis.index.push_back(whole);
    axis.fractions.push_back(static_cast<float>(x - whole));
    if (x < lobes - 1) ++axis.leading;
    if (x >= srcLength - lobes) ++axis.trailing;
  }
  return axis;
}

std::vector<float> referenceKernelTable(int lobes, int length) {
  std::vector<float> table(static_cast<size_t>(length), 0.0f);
  const double pi = std::acos(-1.0);
  table[0] = 1.0f;
  for (int k = 1; k < 100 * lobes; ++k) {
    if (k % 100 == 0) continue;  // sinc vanishes at the whole numbers
    const double x = k / 100.0;
    const double value = (std::sin(pi * x) / (pi * x)) * (std::sin(pi * x / lobes) / (pi * x / lobes));
    table[static_cast<size_t>(k)] = static_cast<float>(value);
  }
  return table;
}

std::vector<float> referenceLanczosWeights(const std::vector<float>& fractions, int lobes) {
  const std::vector<float> table = referenceKernelTable(lobes, 100 * lobes + 4);
  const int taps = 2 * lobes;
  std::vector<float> weights;
  for (float f : fractions) {
    const float first = static_cast<float>(1 - lobes) - f;
    float w[6] = {};
    float sum = 0.0f;
    for (int k = 0; k < taps; ++k) {
      const float d = k == 0 ? first : first + static_cast<float>(k);
      w[k] = 0.0f;
      if (d > -lobes && d < lobes) {
        const float t = std::fabs(d) * 100.0f;
        const int i = static_cast<int>(t);
        w[k] = table[i] + (table[i + 1] - table[i]) * (t - static_cast<float>(i));
      }
      sum += w[k];
    }
    const float r = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(sum)));
    const float scale = r + r - sum * r * r;
    for (int k = 0; k < taps; ++k) weights.push_back(w[k] * scale);
  }
  return weights;
}

namespace {

int64_t up32(int64_t x) { return (x + 31) / 32 * 32; }

int64_t superLength(int src, int dst) {
  const int64_t g = std::gcd(src, dst), s = src / g, d = dst / g;
  const int64_t e = s % d == 0 ? 0 : (s % d == 1 ? 1 : 2);
  return d * (s / d + e);
}

}  // namespace

SpecSizes referenceSpecSizes(IppiSize src, IppiSize dst, int interpolation) {
  const int64_t dw = dst.width, dh = dst.height, a = up32(dw) + up32(dh);
  switch (interpolation) {
    case 1:
      return {4 * a + 176 + 64, 64};
    case 2:
      return {8 * a + 176 + 64, 64};
    case 6:
      return {4 * a + 176 + 4 * ((4 * dw + 127) / 32 * 32 + (4 * dh + 127) / 32 * 32) + 64, 4 * a + 64};
    case 8: {
      const int64_t tx = superLength(src.width, dst.width), ty = superLength(src.height, dst.height);
      return {4 * (up32(tx) + tx + ty + up32(ty)) + 176 + 64, 64};
    }
    case 16:
      return {4 * a + 176 + 4 * ((6 * dw + 193) / 32 * 32 + (6 * dh + 193) / 32 * 32) + 64, 4 * a + 64};
    default:
      return {0, 0};
  }
}

int64_t referenceBufferSize(IppiSize specDst, IppiSize region, int channels, int lobes) {
  const int64_t w = std::min(region.width, specDst.width), h = std::min(region.height, specDst.height);
  const int64_t tables = 4 * (up32(w) + up32(h));
  int64_t rows = 0;
  if (lobes == 1) rows = 4 * channels * ((2 * w + 63) / 32 * 32);
  if (lobes == 2) rows = 4 * channels * ((4 * w + 127) / 32 * 32);
  if (lobes == 3) rows = 4 * channels * ((6 * w + 191) / 32 * 32);
  return tables + rows + 64;
}

Filters referenceFilters(IppiSize src, IppiSize dst, int lobes) {
  Filters filters{
      lobes, referenceAxis(src.width, dst.width, lobes), referenceAxis(src.height, dst.height, lobes), {}, {}};
  if (lobes == 1) {
    filters.xWeights = filters.x.fractions;
    filters.yWeights = filters.y.fractions;
  } else {
    filters.xWeights = referenceLanczosWeights(filters.x.fractions, lobes);
    filters.yWeights = referenceLanczosWeights(filters.y.fractions, lobes);
  }
  return filters;
}

SourceWorld::SourceWorld(int width, int height, int bits, int margin, uint32_t seed, bool bottomUp, int padding)
    : width_(width),
      height_(height),
      bits_(bits),
      margin_(margin),
      rowBytes_((width + 2 * margin) * 4 * (bits / 8) + padding),
      bottomUp_(bottomUp),
      memory_(static_cast<size_t>(rowBytes_) * (height + 2 * margin)) {
  std::mt19937 random(seed);
  const uint32_t limit = bits == 8 ? 255 : 65535;
  for (int row = -margin; row < height + margin; ++row)
    for (int column = -margin; column < width + margin; ++column)
      for (int c = 0; c < 4; ++c) setSample(row, column, c, random() % (limit + 1));
}

size_t SourceWorld::offsetOf(int row, int column) const {
  const int memoryRow = bottomUp_ ? height_ + margin_ - 1 - row : row + margin_;
  return static_cast<size_t>(memoryRow) * rowBytes_ + static_cast<size_t>(column + margin_) * 4 * (bits_ / 8);
}

uint32_t SourceWorld::sample(int row, int column, int c) const {
  const uint8_t* p = &memory_[offsetOf(row, column)];
  if (bits_ == 8) return p[c];
  return static_cast<uint32_t>(p[2 * c] | (p[2 * c + 1] << 8));
}

void SourceWorld::setSample(int row, int column, int c, uint32_t value) {
  uint8_t* p = &memory_[offsetOf(row, column)];
  if (bits_ == 8) {
    p[c] = static_cast<uint8_t>(value);
  } else {
    p[2 * c] = static_cast<uint8_t>(value);
    p[2 * c + 1] = static_cast<uint8_t>(value >> 8);
  }
}

const uint8_t* SourceWorld::pixelAddress(int row, int column) const { return &memory_[offsetOf(row, column)]; }

namespace {

// Which sides move their taps to the edge.
struct Clamps {
  bool top, bottom, left, right;
};

Clamps clampsOf(uint32_t border) {
  const bool replicate = (border & 7) == 1 && (border & 0xF0) != 0xF0;
  return {replicate && !(border & 16), replicate && !(border & 32), replicate && !(border & 64),
          replicate && !(border & 128)};
}

int clampTap(int tap, int length, bool low, bool high) {
  if (low && tap < 0) return 0;
  if (high && tap > length - 1) return length - 1;
  return tap;
}

uint32_t roundAndSaturate(float value, int bits) {
  const float rounded = std::nearbyint(value);
  const float limit = bits == 8 ? 255.0f : 65535.0f;
  return static_cast<uint32_t>(rounded < 0.0f ? 0.0f : (rounded > limit ? limit : rounded));
}

float pairedSum(const float* t, int taps) {
  const float four = (t[0] + t[1]) + (t[2] + t[3]);
  return taps == 4 ? four : four + (t[4] + t[5]);
}

float sequentialSum(const float* t, int taps) {
  float sum = t[0];
  for (int k = 1; k < taps; ++k) sum += t[k];
  return sum;
}

// p0 + (p1 - p0) * fx on the row, then the same vertically.
float linearSample(const SourceWorld& source, const Filters& f, int dx, int dy, int c, Clamps clamps) {
  const int x0 = clampTap(f.x.index[dx], source.width(), clamps.left, clamps.right);
  const int x1 = clampTap(f.x.index[dx] + 1, source.width(), clamps.left, clamps.right);
  const int y0 = clampTap(f.y.index[dy], source.height(), clamps.top, clamps.bottom);
  const int y1 = clampTap(f.y.index[dy] + 1, source.height(), clamps.top, clamps.bottom);
  const float fx = f.xWeights[dx], fy = f.yWeights[dy];
  auto across = [&](int row) {
    const float p0 = static_cast<float>(source.sample(row, x0, c));
    const float p1 = static_cast<float>(source.sample(row, x1, c));
    return p0 + (p1 - p0) * fx;
  };
  const float r0 = across(y0), r1 = across(y1);
  return r0 + (r1 - r0) * fy;
}

float lanczosSample(const SourceWorld& source, const Filters& f, int dx, int dy, int c, Clamps clamps,
                    float (*sum)(const float*, int)) {
  const int taps = 2 * f.lobes;
  const float* wx = &f.xWeights[static_cast<size_t>(taps) * dx];
  const float* wy = &f.yWeights[static_cast<size_t>(taps) * dy];
  float columnTerms[6] = {};
  for (int k = 0; k < taps; ++k) {
    const int row = clampTap(f.y.index[dy] - f.lobes + 1 + k, source.height(), clamps.top, clamps.bottom);
    float rowTerms[6] = {};
    for (int m = 0; m < taps; ++m) {
      const int column = clampTap(f.x.index[dx] - f.lobes + 1 + m, source.width(), clamps.left, clamps.right);
      rowTerms[m] = wx[m] * static_cast<float>(source.sample(row, column, c));
    }
    columnTerms[k] = wy[k] * sum(rowTerms, taps);
  }
  return sum(columnTerms, taps);
}

std::vector<uint32_t> region(const SourceWorld& source, const Filters& filters, IppiPoint offset, IppiSize size,
                             uint32_t border, int bits, float (*sum)(const float*, int)) {
  const Clamps clamps = clampsOf(border);
  std::vector<uint32_t> samples;
  for (int r = 0; r < size.height; ++r)
    for (int column = 0; column < size.width; ++column)
      for (int c = 0; c < 4; ++c) {
        const int dx = offset.x + column, dy = offset.y + r;
        const float value = filters.lobes == 1 ? linearSample(source, filters, dx, dy, c, clamps)
                                               : lanczosSample(source, filters, dx, dy, c, clamps, sum);
        samples.push_back(roundAndSaturate(value, bits));
      }
  return samples;
}

}  // namespace

std::vector<uint32_t> referenceRegion(const SourceWorld& source, const Filters& filters, IppiPoint offset,
                                      IppiSize size, uint32_t border, int bits) {
  return region(source, filters, offset, size, border, bits, pairedSum);
}

std::vector<uint32_t> referenceRegionSequential(const SourceWorld& source, const Filters& filters, IppiPoint offset,
                                                IppiSize size, uint32_t border, int bits) {
  return region(source, filters, offset, size, border, bits, sequentialSum);
}

}  // namespace resizetest
