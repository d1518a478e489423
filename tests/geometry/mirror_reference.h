#ifndef QV_TESTS_GEOMETRY_MIRROR_REFERENCE_H
#define QV_TESTS_GEOMETRY_MIRROR_REFERENCE_H

// Plain mirrors of packed pixels, written from the definition of each axis: the destination
// pixel (x, y) is the source pixel at the mirrored position.

#include <cstdint>
#include <cstring>
#include <vector>

namespace qvtest {

// pixels holds width * height pixels of pixelBytes bytes, rows packed.
inline std::vector<uint8_t> mirroredPixels(const std::vector<uint8_t>& pixels, int width, int height, int pixelBytes,
                                           int axis) {
  std::vector<uint8_t> out(pixels.size());
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const int fromX = axis == 0 ? x : width - 1 - x;
      const int fromY = axis == 1 ? y : height - 1 - y;
      const size_t to = (static_cast<size_t>(y) * width + x) * pixelBytes;
      const size_t from = (static_cast<size_t>(fromY) * width + fromX) * pixelBytes;
      std::memcpy(&out[to], &pixels[from], pixelBytes);
    }
  return out;
}

// A turn of 180 degrees about the image centre: the pixel at (x, y) moves to
// (width - 1 - x, height - 1 - y), written as a rotation of each pixel position.
inline std::vector<uint8_t> turnedHalfway(const std::vector<uint8_t>& pixels, int width, int height, int pixelBytes) {
  std::vector<uint8_t> out(pixels.size());
  const double cx = (width - 1) / 2.0;
  const double cy = (height - 1) / 2.0;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      // (x - cx, y - cy) rotated by pi is (-(x - cx), -(y - cy)).
      const int toX = static_cast<int>(cx - (x - cx) + 0.5);
      const int toY = static_cast<int>(cy - (y - cy) + 0.5);
      std::memcpy(&out[(static_cast<size_t>(toY) * width + toX) * pixelBytes],
                  &pixels[(static_cast<size_t>(y) * width + x) * pixelBytes], pixelBytes);
    }
  return out;
}

}  // namespace qvtest

#endif
