// Nearest: each destination pixel copies the source pixel under its centre. A centre that falls
// exactly on a boundary between two pixels takes the one before it.

#include "primitives/image/resize/sqrpixel/positions.h"
#include "primitives/image/resize/sqrpixel/scratch.h"
#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

template <typename Pixel>
void copyPixels(const Ipp8u* src, const int* columns, int width, Ipp8u* out) {
  Pixel* to = reinterpret_cast<Pixel*>(out);
  const Pixel* from = reinterpret_cast<const Pixel*>(src);
  for (int i = 0; i < width; ++i) __builtin_memcpy(to + i, from + columns[i], sizeof(Pixel));
}

struct Pixel8 {
  Ipp8u bytes[8];
};

}  // namespace

void ownpiResizeNearest(const ResizeJob& job) {
  const ResizeGeometry& g = job.geometry;
  ScratchCarver carver(job.scratch);
  int* columns = carver.take<int>(g.width, 16);
  int* rows = carver.take<int>(g.height, 16);
  for (int i = 0; i < g.width; ++i) columns[i] = nearestIndex(g.x0 + i, g.xInverse, g.xOrigin, job.srcWidth - 1);
  for (int j = 0; j < g.height; ++j) rows[j] = nearestIndex(g.y0 + j, g.yInverse, g.yOrigin, job.srcHeight - 1);

  const int pixelBytes = job.channels << job.dataType;
  const size_t rowBytes = static_cast<size_t>(g.width) * pixelBytes;
  for (int j = 0; j < g.height; ++j) {
    Ipp8u* out = rowAt(job.dst, job.dstStep, j);
    if (j > 0 && rows[j] == rows[j - 1]) {
      __builtin_memmove(out, rowAt(job.dst, job.dstStep, j - 1), rowBytes);
      continue;
    }
    const Ipp8u* src = rowAt(job.src, job.srcStep, rows[j]);
    if (pixelBytes == 1)
      copyPixels<Ipp8u>(src, columns, g.width, out);
    else if (pixelBytes == 4)
      copyPixels<Ipp32u>(src, columns, g.width, out);
    else
      copyPixels<Pixel8>(src, columns, g.width, out);
  }
}

}  // namespace QV_TIER
