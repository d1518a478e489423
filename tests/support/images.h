#ifndef QV_TESTS_SUPPORT_IMAGES_H
#define QV_TESTS_SUPPORT_IMAGES_H

// Test images with padded rows, a chosen misalignment and a canary around and between rows, so
// that a test can see both the pixels written and anything written where it should not be.

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "qvimage/QVILTypes.h"

namespace qvtest {

constexpr uint8_t kCanary = 0xA5;

class TestImage {
 public:
  // width x height pixels of bytesPerPixel bytes; rows padded by padding bytes; the first pixel
  // lies offset bytes past a 64-byte boundary. Everything starts as the canary.
  TestImage(int width, int height, int bytesPerPixel, int padding = 0, int offset = 0);

  int width() const { return width_; }
  int height() const { return height_; }
  int step() const { return step_; }
  int rowBytes() const { return width_ * bytesPerPixel_; }
  uint8_t* data() { return first_; }
  const uint8_t* data() const { return first_; }
  uint8_t* row(int y) { return first_ + static_cast<ptrdiff_t>(y) * step_; }
  const uint8_t* row(int y) const { return first_ + static_cast<ptrdiff_t>(y) * step_; }
  IppiSize size() const { return {width_, height_}; }
  vImage_Buffer buffer() {
    return {first_, static_cast<size_t>(height_), static_cast<size_t>(width_), static_cast<size_t>(step_)};
  }

  // Random pixel bytes from the seed; padding and surroundings keep the canary.
  void fillRandom(uint32_t seed);
  void fill(uint8_t value);
  // The pixel bytes, row after row, without padding.
  std::vector<uint8_t> pixels() const;
  // Every byte of the allocation, padding and surroundings included.
  std::vector<uint8_t> allBytes() const { return storage_; }
  // True when nothing outside the pixels differs from the canary.
  bool surroundingsIntact() const;

 private:
  int width_, height_, bytesPerPixel_, step_;
  std::vector<uint8_t> storage_;
  uint8_t* first_;
  size_t firstOffset_;
};

std::vector<uint8_t> randomBytes(size_t count, uint32_t seed);

}  // namespace qvtest

#endif
