#include "scale/scale_support.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace scaletest {

Image::Image(int width, int height, int channels, int bits)
    : width_(width),
      height_(height),
      channels_(channels),
      bits_(bits),
      rowBytes_(static_cast<size_t>(width) * channels * bits / 8 + 12),
      storage_(rowBytes_ * static_cast<size_t>(height) + 8, 0xA5),
      buffer_{storage_.data(), static_cast<size_t>(height), static_cast<size_t>(width), rowBytes_} {}

int Image::at(int x, int y, int c) const {
  const size_t offset = static_cast<size_t>(y) * rowBytes_ + (static_cast<size_t>(x) * channels_ + c) * (bits_ / 8);
  return bits_ == 8 ? storage_[offset] : storage_[offset] | (storage_[offset + 1] << 8);
}

void Image::set(int x, int y, int c, int value) {
  const size_t offset = static_cast<size_t>(y) * rowBytes_ + (static_cast<size_t>(x) * channels_ + c) * (bits_ / 8);
  storage_[offset] = static_cast<uint8_t>(value & 0xFF);
  if (bits_ == 16) storage_[offset + 1] = static_cast<uint8_t>(value >> 8);
}

void Image::fill(int value) {
  for (int y = 0; y < height_; ++y)
    for (int x = 0; x < width_; ++x)
      for (int c = 0; c < channels_; ++c) set(x, y, c, value);
}

void Image::fillRandom(uint32_t seed) {
  std::mt19937 generator(seed);
  const int maximum = bits_ == 8 ? 255 : 65535;
  for (int y = 0; y < height_; ++y)
    for (int x = 0; x < width_; ++x)
      for (int c = 0; c < channels_; ++c) set(x, y, c, static_cast<int>(generator() % (maximum + 1)));
}

std::vector<int> Image::samples() const {
  std::vector<int> out;
  for (int y = 0; y < height_; ++y)
    for (int x = 0; x < width_; ++x)
      for (int c = 0; c < channels_; ++c) out.push_back(at(x, y, c));
  return out;
}

std::vector<uint8_t> Image::padding() const {
  std::vector<uint8_t> out;
  const size_t used = static_cast<size_t>(width_) * channels_ * bits_ / 8;
  for (int y = 0; y < height_; ++y)
    for (size_t b = used; b < rowBytes_; ++b) out.push_back(storage_[static_cast<size_t>(y) * rowBytes_ + b]);
  return out;
}

double distanceFromGrey(const Image& image, int margin) {
  const double maximum = 255.0;
  double largest = 0.0;
  for (int y = margin; y < image.height() - margin; ++y)
    for (int x = margin; x < image.width() - margin; ++x)
      largest = std::max(largest, std::abs(image.at(x, y) - maximum / 2) / (maximum / 2));
  return largest;
}

}  // namespace scaletest
