#include "support/images.h"

#include <cstring>

namespace qvtest {
namespace {
constexpr size_t kGuard = 128;
}

TestImage::TestImage(int width, int height, int bytesPerPixel, int padding, int offset)
    : width_(width), height_(height), bytesPerPixel_(bytesPerPixel), step_(width * bytesPerPixel + padding) {
  const size_t body = static_cast<size_t>(step_) * static_cast<size_t>(height > 0 ? height : 0);
  storage_.assign(body + 2 * kGuard + 64, kCanary);
  const uintptr_t base = reinterpret_cast<uintptr_t>(storage_.data()) + kGuard;
  const uintptr_t aligned = (base + 63) & ~static_cast<uintptr_t>(63);
  firstOffset_ = aligned - reinterpret_cast<uintptr_t>(storage_.data()) + static_cast<size_t>(offset);
  if (firstOffset_ + body + kGuard > storage_.size()) storage_.resize(firstOffset_ + body + kGuard, kCanary);
  first_ = storage_.data() + firstOffset_;
}

void TestImage::fillRandom(uint32_t seed) {
  std::mt19937 generator(seed);
  for (int y = 0; y < height_; ++y)
    for (int x = 0; x < rowBytes(); ++x) row(y)[x] = static_cast<uint8_t>(generator());
}

void TestImage::fill(uint8_t value) {
  for (int y = 0; y < height_; ++y) std::memset(row(y), value, static_cast<size_t>(rowBytes()));
}

std::vector<uint8_t> TestImage::pixels() const {
  std::vector<uint8_t> out;
  out.reserve(static_cast<size_t>(rowBytes()) * static_cast<size_t>(height_ > 0 ? height_ : 0));
  for (int y = 0; y < height_; ++y) out.insert(out.end(), row(y), row(y) + rowBytes());
  return out;
}

bool TestImage::surroundingsIntact() const {
  for (size_t i = 0; i < storage_.size(); ++i) {
    const ptrdiff_t relative = static_cast<ptrdiff_t>(i) - static_cast<ptrdiff_t>(firstOffset_);
    const bool inPixels =
        relative >= 0 && relative < static_cast<ptrdiff_t>(step_) * height_ && relative % step_ < rowBytes();
    if (!inPixels && storage_[i] != kCanary) return false;
  }
  return true;
}

std::vector<uint8_t> randomBytes(size_t count, uint32_t seed) {
  std::mt19937 generator(seed);
  std::vector<uint8_t> out(count);
  for (uint8_t& byte : out) byte = static_cast<uint8_t>(generator());
  return out;
}

}  // namespace qvtest
