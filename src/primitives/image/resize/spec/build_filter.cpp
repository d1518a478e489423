// The positions of one axis of a ResizeSpec record.

#include "primitives/image/resize/spec/resize_spec.h"

namespace QV_TIER {

void ownSetAxis(ResizeAxisFilter* axis, int srcLength, int dstLength, Ipp32s* index) {
  const uint32_t divisor = greatestCommonDivisor(static_cast<uint32_t>(srcLength), static_cast<uint32_t>(dstLength));
  axis->srcLength = srcLength;
  axis->dstLength = dstLength;
  axis->srcReduced = static_cast<uint32_t>(srcLength) / divisor;
  axis->dstReduced = static_cast<uint32_t>(dstLength) / divisor;
  axis->index = index;
  axis->weights = nullptr;
  axis->leadingCount = 0;
  axis->trailingCount = 0;
}

// Destination position i stands at source position x = (i + 0.5) * r - 0.5, in double, with r
// the reduced ratio: the centres of source and destination pixels line up. The whole part of x
// is the index, and x minus it the fraction. A position is leading when a tap of the kernel
// falls before the first source sample (x < lobes - 1), trailing when one falls past the last
// (x >= srcLength - lobes).
void ownBuildFilter_32f(ResizeAxisFilter* axis, Ipp32f* fractions, Ipp32u lobes) {
  axis->leadingCount = 0;
  axis->trailingCount = 0;
  if (lobes < 1 || lobes > 4) return;
  const double ratio = axisRatio(*axis);
  const double leadingBelow = static_cast<double>(lobes) - 1.0;
  const double trailingFrom = static_cast<double>(axis->srcLength) - static_cast<double>(lobes);
  uint32_t leading = 0, trailing = 0;
  for (int i = 0; i < axis->dstLength; ++i) {
    const double x = (static_cast<double>(i) + 0.5) * ratio - 0.5;
    const double whole = __builtin_floor(x);
    axis->index[i] = static_cast<Ipp32s>(whole);
    fractions[i] = static_cast<Ipp32f>(x - whole);
    if (x < leadingBelow) ++leading;
    if (x >= trailingFrom) ++trailing;
  }
  axis->leadingCount = leading;
  axis->trailingCount = trailing;
}

}  // namespace QV_TIER
