#ifndef QV_TESTS_ARITH_ARITH_REFERENCE_H
#define QV_TESTS_ARITH_ARITH_REFERENCE_H

// Plain references for the depth conversions and the pixel arithmetic, written from the rules
// one value at a time, and the image shapes the tests run them on.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "support/images.h"

namespace arithtest {

// Floor division by 256, written without shifts so that it does not lean on the kernels' form.
inline int floorDiv256(int v) { return v >= 0 ? v / 256 : -((-v + 255) / 256); }

inline uint16_t widenReference(uint8_t s) { return static_cast<uint16_t>(s * 257); }

// t = x - 32768, u = t - (t >> 8), result (u >> 8) + 128, shifts arithmetic.
inline uint8_t narrowFastReference(uint16_t x) {
  const int t = static_cast<int>(x) - 32768;
  const int u = t - floorDiv256(t);
  return static_cast<uint8_t>(floorDiv256(u) + 128);
}

// x as f32 times the f32 with bits 0x3B7F00FF, rounded to nearest (ties to even), saturated.
inline uint8_t narrowAccurateReference(uint16_t x) {
  const uint32_t bits = 0x3B7F00FF;
  float scale;
  std::memcpy(&scale, &bits, 4);
  const float product = static_cast<float>(x) * scale;
  const double below = std::floor(static_cast<double>(product));
  const double fraction = static_cast<double>(product) - below;
  double rounded = below;
  if (fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2.0) != 0.0)) rounded = below + 1;
  return static_cast<uint8_t>(rounded < 0 ? 0 : rounded > 255 ? 255 : rounded);
}

inline uint8_t scaledProductReference(uint8_t a, uint8_t b) {
  const int p = a * b;
  return static_cast<uint8_t>((p + 1 + p / 256) / 256);
}

inline uint8_t absDiffReference(int a, int b) { return static_cast<uint8_t>(a > b ? a - b : b - a); }

// An image region: width in pixels, rows, padding bytes after each row, and the offset of the
// first pixel past a 64-byte boundary.
struct Shape {
  int width;
  int height;
  int padding;
  int offset;
};

// Odd widths, padded steps and unaligned first pixels. The offsets are even; the odd paddings
// put the later rows of a 16-bit image at odd addresses as well.
inline std::vector<Shape> oddShapes() {
  return {{1, 1, 0, 0},   {3, 2, 5, 2},  {5, 3, 0, 6},   {7, 4, 13, 10},  {17, 3, 3, 2},
          {33, 5, 0, 14}, {67, 3, 9, 4}, {101, 7, 1, 8}, {255, 2, 16, 12}};
}

inline qvtest::TestImage imageOf(const Shape& shape, int bytesPerPixel) {
  return qvtest::TestImage(shape.width, shape.height, bytesPerPixel, shape.padding, shape.offset);
}

inline uint16_t wordAt(const uint8_t* p, int index) {
  uint16_t v;
  std::memcpy(&v, p + 2 * index, 2);
  return v;
}

inline void setWordAt(uint8_t* p, int index, uint16_t v) { std::memcpy(p + 2 * index, &v, 2); }

// Copies the pixels of one image into another of the same size (a TestImage is not copyable:
// its pixel pointer would still point into the original).
inline void copyPixels(const qvtest::TestImage& from, qvtest::TestImage& to) {
  for (int y = 0; y < from.height(); ++y) std::memcpy(to.row(y), from.row(y), static_cast<size_t>(from.rowBytes()));
}

// The pixels of the image followed by the flag of intact surroundings: what a tier produced, for
// the byte comparison across tiers.
inline std::vector<unsigned char> bytesOf(const qvtest::TestImage& image) {
  std::vector<unsigned char> bytes = image.pixels();
  bytes.push_back(image.surroundingsIntact() ? 1 : 0);
  return bytes;
}

}  // namespace arithtest

#endif
