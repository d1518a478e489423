// Smooth edges of warped quads.

#include "primitives/image/geometry/warp/smooth_border.h"

#include "primitives/image/geometry/warp/quad.h"
#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {
namespace {

// Where a pixel lies and how a blend reads it: channels blended, channel stride, sample kind.
struct PixelShape {
  int channels;     // channels a pixel has
  int blended;      // channels written (AC4: three)
  int sampleBytes;  // 1, 2, 4 or 8
  bool isFloat;
};

PixelShape shapeOf(int type) {
  static const int kChannels[6] = {1, 3, 4, 3, 4, 4};
  const int layout = layoutOf(type);
  const int depth = depthOf(type);
  const int sampleBytes = depth == kDepth8u ? 1 : depth == kDepth16u ? 2 : depth == kDepth32f ? 4 : 8;
  const int blended = layout == kLayoutAC4 ? 3 : kChannels[layout];
  return {kChannels[layout], blended, sampleBytes, depth == kDepth32f || depth == kDepth64f};
}

template <typename Sample>
QV_INLINE void blendSamples(Sample* written, const Sample* beside, double weightWritten, double weightBeside,
                            bool isInteger) {
  const double value =
      static_cast<double>(loadSample(written)) * weightWritten + static_cast<double>(loadSample(beside)) * weightBeside;
  storeSample(written, isInteger ? static_cast<Sample>(truncToInt(value + 0.5)) : static_cast<Sample>(value));
}

// ownpi_SmoothPel: pixel a becomes a |v - a| + b |v - b|, channel by channel.
void smoothPel(Ipp8u* dst, int dstStep, const PixelShape& shape, int ax, int ay, int bx, int by, double v, double a,
               double b) {
  const int pixelBytes = shape.channels * shape.sampleBytes;
  Ipp8u* written = rowAt(dst, dstStep, ay) + static_cast<ptrdiff_t>(ax) * pixelBytes;
  const Ipp8u* beside = rowAt(dst, dstStep, by) + static_cast<ptrdiff_t>(bx) * pixelBytes;
  const double weightWritten = absOf(v - a), weightBeside = absOf(v - b);
  for (int c = 0; c < shape.blended; ++c) {
    const int offset = c * shape.sampleBytes;
    switch (shape.sampleBytes) {
      case 1:
        blendSamples(written + offset, beside + offset, weightWritten, weightBeside, true);
        break;
      case 2:
        blendSamples(reinterpret_cast<Ipp16u*>(written + offset), reinterpret_cast<const Ipp16u*>(beside + offset),
                     weightWritten, weightBeside, true);
        break;
      case 4:
        blendSamples(reinterpret_cast<Ipp32f*>(written + offset), reinterpret_cast<const Ipp32f*>(beside + offset),
                     weightWritten, weightBeside, false);
        break;
      default:
        blendSamples(reinterpret_cast<Ipp64f*>(written + offset), reinterpret_cast<const Ipp64f*>(beside + offset),
                     weightWritten, weightBeside, false);
    }
  }
}

// The written pixel a and the pixel b read beside it, for an edge position v: the side of the
// edge outside the quad follows from the walk, the winding and the edge's direction.
void sidesOf(double v, bool byRows, bool winding, bool runsForward, double* a, double* b) {
  const bool writeFloor = byRows ? winding != runsForward : winding == runsForward;
  *a = writeFloor ? floorOf(v) : ceilOf(v);
  *b = writeFloor ? ceilOf(v) : floorOf(v);
}

void smoothEdge(Ipp8u* dst, int dstStep, const PixelShape& shape, const double* from, const double* to, bool winding) {
  const double runX = to[0] - from[0], runY = to[1] - from[1];
  if (runX == 0 || runY == 0) return;  // edges along a row or a column stay hard
  const bool byRows = absOf(runY) > absOf(runX);
  const int along = byRows ? 1 : 0, across = 1 - along;
  const double run = byRows ? runY : runX;
  const double slope = (byRows ? runX : runY) / run;
  const int start = truncToInt(ceilOf(minOf(from[along], to[along])));
  const int end = truncToInt(floorOf(maxOf(from[along], to[along])));
  for (int step = start; step <= end; ++step) {
    const double v = from[across] + (step - from[along]) * slope;
    if (v == floorOf(v)) continue;
    double a, b;
    sidesOf(v, byRows, winding, run > 0, &a, &b);
    if (a < 0 || b < 0) continue;
    const int ia = truncToInt(a), ib = truncToInt(b);
    if (byRows)
      smoothPel(dst, dstStep, shape, ia, step, ib, step, v, a, b);
    else
      smoothPel(dst, dstStep, shape, step, ia, step, ib, v, a, b);
  }
}

}  // namespace

void ownpi_SmoothBorder(Ipp8u* dst, int dstStep, int type, const double quad[4][2], IppiPoint first, IppiPoint last,
                        bool winding) {
  double polygon[kMaxPolygonPoints][2];
  const int count = ownpi_ClipPolygon(quad, first.x, first.y, last.x, last.y, polygon);
  if (count < 3) return;
  const PixelShape shape = shapeOf(type);
  for (int i = 0; i < count; ++i) smoothEdge(dst, dstStep, shape, polygon[i], polygon[(i + 1) % count], winding);
}

}  // namespace QV_TIER
