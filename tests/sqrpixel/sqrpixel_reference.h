#ifndef QV_TESTS_SQRPIXEL_SQRPIXEL_REFERENCE_H
#define QV_TESTS_SQRPIXEL_SQRPIXEL_REFERENCE_H

// A plain restatement of the square-pixel resize: every destination sample computed on its own
// from the rules, with no tables, rings or vectors.

#include <cstdint>
#include <vector>

#include "qvimage/qvimage.h"

namespace sqrref {

// Samples of one image, interleaved, without padding.
struct Samples {
  int width = 0, height = 0, channels = 0, maximum = 255;
  std::vector<int> v;

  Samples() = default;
  Samples(int w, int h, int c, int bits) : width(w), height(h), channels(c), maximum(bits == 8 ? 255 : 65535) {
    v.assign(static_cast<size_t>(w) * h * c, 0);
  }
  int& at(int x, int y, int c) { return v[(static_cast<size_t>(y) * width + x) * channels + c]; }
  int at(int x, int y, int c) const { return v[(static_cast<size_t>(y) * width + x) * channels + c]; }
  // The sample with the position moved inside the image.
  int clamped(int x, int y, int c) const;
};

struct Call {
  IppiSize srcSize;
  IppiRect srcRoi, dstRoi;
  double xFactor, yFactor, xShift, yShift;
  uint32_t interpolation;
};

struct Geometry {
  int x0, y0, width, height;
  double xInverse, yInverse, xOrigin, yOrigin, area;
  double xMin, xMax, yMin, yMax;
  uint32_t kind;
  bool smooth, subpixel, antialiasing;
};

// The checks after the null pointers, and the rectangle.
IppStatus prelude(const Call& call, Geometry* g);

// Resizes src into dst (the whole destination image) and answers the status.
IppStatus resize(const Samples& src, Samples& dst, const Call& call);

// What ippiResizeGetBufSize answers.
IppStatus bufferSize(IppiRect srcRoi, IppiRect dstRoi, uint32_t channels, uint32_t interpolation, int* size);

// The 3-lobe kernel table of the m7 tier, which the library's tiers share.
const float* lanczosTable();

}  // namespace sqrref

#endif
