#ifndef QV_TESTS_RESIZE_RESIZE_REFERENCE_H
#define QV_TESTS_RESIZE_RESIZE_REFERENCE_H

// A plain restatement of the resize rules, written for the tests: the positions and weights of
// an axis, the sizes the queries give, and every destination sample computed directly from its
// taps, with taps moved to the edge on the replicated sides.

#include <cstdint>
#include <vector>

#include "qvimage/qvimage.h"

namespace resizetest {

// One axis: x = (i + 0.5) * s / d - 0.5 in double with s, d the lengths over their gcd.
struct Axis {
  int srcLength = 0, dstLength = 0;
  uint32_t srcReduced = 0, dstReduced = 0;
  std::vector<int32_t> index;
  std::vector<float> fractions;
  uint32_t leading = 0, trailing = 0;  // x < lobes - 1; x >= srcLength - lobes
};

Axis referenceAxis(int srcLength, int dstLength, int lobes);

// The kernel table of 2 or 3 lobes by its rule: L(k / 100) rounded to f32, 0 at the whole
// numbers past 0 and from 100 * lobes on.
std::vector<float> referenceKernelTable(int lobes, int length);

// 2 * lobes weights a position: the table at |d| for the distances d = k - (lobes - 1) - f,
// scaled by the refined reciprocal of their sum.
std::vector<float> referenceLanczosWeights(const std::vector<float>& fractions, int lobes);

// The size query's results, the slack included; 0 where the query refuses.
struct SpecSizes {
  int64_t spec, init;
};
SpecSizes referenceSpecSizes(IppiSize src, IppiSize dst, int interpolation);
// The scratch size of a region for a linear (lobes 1) or Lanczos ResizeSpec, slack included.
int64_t referenceBufferSize(IppiSize specDst, IppiSize region, int channels, int lobes);

// Both axes of a job and their weights: the fractions for linear (lobes 1), 2 * lobes weights a
// position for Lanczos.
struct Filters {
  int lobes;
  Axis x, y;
  std::vector<float> xWeights, yWeights;
};
Filters referenceFilters(IppiSize src, IppiSize dst, int lobes);

// The source image with a margin of pixels around it, which the in-memory sides may read.
// Samples of 8 or 16 bits; rows in memory top-down, or bottom-up for a negative step.
class SourceWorld {
 public:
  SourceWorld(int width, int height, int bits, int margin, uint32_t seed, bool bottomUp = false, int padding = 8);
  int width() const { return width_; }
  int height() const { return height_; }
  // Sample c of the pixel at (row, column) of the source image; the margin lies at negative
  // positions and past the size.
  uint32_t sample(int row, int column, int c) const;
  void setSample(int row, int column, int c, uint32_t value);
  // The address of that pixel and the step between rows, as a primitive takes them.
  const uint8_t* pixelAddress(int row, int column) const;
  int step() const { return bottomUp_ ? -rowBytes_ : rowBytes_; }

 private:
  size_t offsetOf(int row, int column) const;
  int width_, height_, bits_, margin_, rowBytes_;
  bool bottomUp_;
  std::vector<uint8_t> memory_;
};

// The samples of a destination region (offset and clamped size), row after row, four a pixel:
// each the specified f32 arithmetic on its taps, rounded to nearest even and saturated. Taps are
// moved to the edge on the sides that the border word replicates.
std::vector<uint32_t> referenceRegion(const SourceWorld& source, const Filters& filters, IppiPoint offset,
                                      IppiSize size, uint32_t border, int bits);

// The same with the sums of a Lanczos tap taken one after another instead of in pairs: the
// other reading of the grouping in the edge zones.
std::vector<uint32_t> referenceRegionSequential(const SourceWorld& source, const Filters& filters, IppiPoint offset,
                                                IppiSize size, uint32_t border, int bits);

}  // namespace resizetest

#endif
