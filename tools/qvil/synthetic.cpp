#include "synthetic.h"

#include <cmath>

namespace qvil {

Image gradientImage(int width, int height) {
  Image image(width, height, 4, 8);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      uint8_t* p = &image.pixels[(static_cast<size_t>(y) * width + x) * 4];
      const double dx = x - width / 2.0;
      const double dy = y - height / 2.0;
      const double ring = 0.5 + 0.5 * std::sin(std::sqrt(dx * dx + dy * dy) / 6.0);
      p[0] = static_cast<uint8_t>(255.0 * x / (width > 1 ? width - 1 : 1));
      p[1] = static_cast<uint8_t>(255.0 * y / (height > 1 ? height - 1 : 1));
      p[2] = static_cast<uint8_t>(255.0 * ring);
      p[3] = 255;
    }
  return image;
}

Image mazeImage(int width, int height) {
  Image image(width, height, 1, 8);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const bool wall = (x % 16 == 0 && (y / 16) % 3 != 1) || (y % 16 == 0 && (x / 16) % 3 != 2);
      image.pixels[static_cast<size_t>(y) * width + x] = wall ? 20 : static_cast<uint8_t>(200 + (x * 7 + y * 3) % 40);
    }
  return image;
}

}  // namespace qvil
