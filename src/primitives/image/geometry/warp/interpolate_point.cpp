// The Catmull-Rom point interpolators, in double precision.

#include "primitives/image/geometry/warp/interpolators.h"
#include "primitives/image/geometry/warp/warp_types.h"

namespace QV_TIER {
namespace {

// The weights of the taps at -1, 0, 1, 2 for the fraction t.
QV_INLINE void catmullRomWeights(double t, double w[4]) {
  const double t2 = t * t;
  const double t3 = t2 * t;
  w[0] = -0.5 * t3 + t2 - 0.5 * t;
  w[1] = 1.5 * t3 - 2.5 * t2 + 1;
  w[2] = -1.5 * t3 + 2 * t2 + 0.5 * t;
  w[3] = 0.5 * t3 - 0.5 * t2;
}

// Each row combined in x, then the rows in y; above maximum gives maximum, below 0 gives 0,
// otherwise 0.5 is added and the sum truncated.
template <typename Sample>
void catmullRomPixel(const Sample* src, int srcStep, Sample* dst, int channels, double tx, double ty,
                     const int xIndex[4], const int yIndex[4], double maximum) {
  double wx[4], wy[4];
  catmullRomWeights(tx, wx);
  catmullRomWeights(ty, wy);
  for (int c = 0; c < channels; ++c) {
    double sum = 0;
    for (int k = 0; k < 4; ++k) {
      const Sample* row = rowAt(src, srcStep, yIndex[k]);
      double across = 0;
      for (int j = 0; j < 4; ++j) across += loadSample(row + xIndex[j] * channels + c) * wx[j];
      sum += across * wy[k];
    }
    Sample value;
    if (sum > maximum)
      value = static_cast<Sample>(maximum);
    else if (sum < 0.0)
      value = 0;
    else
      value = static_cast<Sample>(truncToInt(sum + 0.5));
    storeSample(dst + c, value);
  }
}

}  // namespace

int setIndexCR(int size, double coordinate, int index[4]) {
  const int i = truncToInt(coordinate + 1e-7);
  for (int k = 0; k < 4; ++k) index[k] = minOf(maxOf(i - 1 + k, 0), size - 1);
  return i;
}

void ownpi_dInterPoint_CR_PixelB_8u(const Ipp8u* src, int srcStep, Ipp8u* dst, int channels, double tx, double ty,
                                    const int xIndex[4], const int yIndex[4]) {
  catmullRomPixel(src, srcStep, dst, channels, tx, ty, xIndex, yIndex, 255.0);
}

void ownpi_dInterPoint_CR_PixelB_16u(const Ipp16u* src, int srcStep, Ipp16u* dst, int channels, double tx, double ty,
                                     const int xIndex[4], const int yIndex[4]) {
  catmullRomPixel(src, srcStep, dst, channels, tx, ty, xIndex, yIndex, 65535.0);
}

}  // namespace QV_TIER
