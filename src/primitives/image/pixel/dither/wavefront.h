#ifndef QV_PRIMITIVES_IMAGE_PIXEL_DITHER_WAVEFRONT_H
#define QV_PRIMITIVES_IMAGE_PIXEL_DITHER_WAVEFRONT_H

// The walk of the diffusing kernels. Their order is channel outermost, then rows top to bottom,
// then columns left to right, with the error rows carried from one channel into the next: one
// sequence of global rows g (channel g / height, row g % height). The error of a pixel depends
// on the pixel before it, so one row is a single chain of dependent float operations. To keep
// the processor busy, several consecutive rows run at once as a wavefront: row g + 1 runs
// `skew` columns behind row g, far enough that every error it reads from the rows above was
// written in an earlier round. Each pixel still computes exactly what the plain order computes.

#include "primitives/data/memory/memory.h"
#include "primitives/image/pixel/dither/dither_kernels.h"

namespace QV_TIER {

constexpr int kRowsInFlight = 4;
// Rows in flight, plus the two rows above the first of them.
constexpr int kErrorRing = kRowsInFlight + 2;

// The error rows, zeroed once: global row g keeps its errors in ring row g mod kErrorRing, so
// row -1 and row -2 (above the first row) read zeros. Each row has `guard` zeros on both sides.
// A plain record, released with freeErrorRing: no destructor, so no unwinding code in the tier.
struct ErrorRing {
  Ipp32f* block;
  int stride;
  int guard;

  QV_INLINE float* row(int g) const { return block + ((g + kErrorRing) % kErrorRing) * stride + guard; }
};

// block is null when the allocation failed.
QV_INLINE ErrorRing newErrorRing(int width, int guard) {
  const int stride = width + 2 * guard;
  const int count = kErrorRing * stride;
  Ipp32f* block = ippsMalloc_32f(count);
  if (block != nullptr) __builtin_memset(block, 0, static_cast<size_t>(count) * sizeof(Ipp32f));
  return {block, stride, guard};
}

QV_INLINE void freeErrorRing(ErrorRing& errors) {
  ippsFree(errors.block);
  errors.block = nullptr;
}

// One row of the wavefront: its samples (one channel, every fourth byte), its row number within
// the channel, and its error rows.
struct DiffusionRow {
  const Ipp8u* src;
  Ipp8u* dst;
  int r;
  float* here;
  const float* above;
  const float* twoAbove;
};

QV_INLINE DiffusionRow diffusionRow(const DitherImage& image, const ErrorRing& errors, int g) {
  const int channel = g / image.height;
  const int r = g % image.height;
  return {rowAt(image.src, image.srcStep, r) + channel,
          rowAt(image.dst, image.dstStep, r) + channel,
          r,
          errors.row(g),
          errors.row(g - 1),
          errors.row(g - 2)};
}

// Calls pixel(row, x) for every pixel of every channel, rows in flight interleaved.
template <typename PixelFunction>
void walkWavefront(const DitherImage& image, const ErrorRing& errors, int skew, const PixelFunction& pixel) {
  const int total = 4 * image.height;
  DiffusionRow rows[kRowsInFlight];
  for (int first = 0; first < total; first += kRowsInFlight) {
    const int count = minOf(kRowsInFlight, total - first);
    for (int k = 0; k < count; ++k) rows[k] = diffusionRow(image, errors, first + k);
    const int span = image.width + (count - 1) * skew;
    for (int t = 0; t < span; ++t) {
      for (int k = 0; k < count; ++k) {
        const int x = t - k * skew;
        if (x >= 0 && x < image.width) pixel(rows[k], x);
      }
    }
  }
}

}  // namespace QV_TIER

#endif
