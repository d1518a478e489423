#ifndef QV_TESTS_SCALE_SCALE_SUPPORT_H
#define QV_TESTS_SCALE_SCALE_SUPPORT_H

// Images for the scale operations: owned pixels behind a vImage_Buffer, with padded rows.

#include <cstdint>
#include <vector>

#include "qvimage/QVILTypes.h"

namespace scaletest {

class Image {
 public:
  // width x height pixels of `channels` samples of `bits` bits, rows padded by 12 bytes.
  Image(int width, int height, int channels, int bits);

  int width() const { return width_; }
  int height() const { return height_; }
  vImage_Buffer* buffer() { return &buffer_; }
  // Sample c of pixel (x, y).
  int at(int x, int y, int c = 0) const;
  void set(int x, int y, int c, int value);
  void fill(int value);
  void fillRandom(uint32_t seed);
  // Every sample, row after row.
  std::vector<int> samples() const;
  // The bytes of the rows' padding, which no operation may change.
  std::vector<uint8_t> padding() const;

 private:
  int width_, height_, channels_, bits_;
  size_t rowBytes_;
  std::vector<uint8_t> storage_;
  vImage_Buffer buffer_;
};

// For an 8-bit image: the largest distance of channel 0 from mid-grey over the pixels at least
// margin away from the edges, as a fraction: 0 for an even grey, 1 for black or white.
double distanceFromGrey(const Image& image, int margin);

}  // namespace scaletest

#endif
