#ifndef QVIL_IMAGE_IO_H
#define QVIL_IMAGE_IO_H

// Images as the tool reads and writes them: PNG (8 or 16 bits a channel, through stb) and PAM
// (8 or 16 bits, written here, so that 16-bit results can be saved). Failures throw RunError.

#include <cstdint>
#include <string>
#include <vector>

#include "qvimage/QVILTypes.h"

namespace qvil {

struct Image {
  int width = 0;
  int height = 0;
  int channels = 4;        // 1 (grey) or 4 (RGBA)
  int bitsPerChannel = 8;  // 8 or 16
  std::vector<uint8_t> pixels;

  Image() = default;
  Image(int width, int height, int channels, int bitsPerChannel);
  size_t rowBytes() const { return static_cast<size_t>(width) * channels * (bitsPerChannel / 8); }
  // A vImage_Buffer over the pixels, rows packed.
  vImage_Buffer buffer();
};

// Reads a PNG or PAM file, converted to the number of channels asked (1 or 4). With
// keepSixteenBits, a 16-bit file stays 16-bit; otherwise every image is read as 8-bit.
Image readImage(const std::string& path, int channels, bool keepSixteenBits = false);
// Writes by the file's extension: .png (8-bit only) or .pam.
void writeImage(const std::string& path, const Image& image);

}  // namespace qvil

#endif
