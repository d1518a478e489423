// The Lanczos weights of a ResizeSpec, from the fraction of each position.

#include "primitives/image/resize/spec/resize_spec.h"

namespace QV_TIER {
namespace {

// The kernel at distance d, by linear interpolation in the table at steps of 1/100; 0 from the
// edge of the kernel on.
QV_INLINE Ipp32f kernelAt(const Ipp32f* table, Ipp32f lobes, Ipp32f d) {
  if (!(d > -lobes && d < lobes)) return 0.0f;
  const Ipp32f t = __builtin_fabsf(d) * 100.0f;
  const int i = static_cast<int>(t);
  return table[i] + (table[i + 1] - table[i]) * (t - static_cast<Ipp32f>(i));
}

// The processor's approximate reciprocal, refined by one Newton step.
QV_INLINE Ipp32f refinedReciprocal(Ipp32f s) {
  const Ipp32f r = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(s)));
  return r + r - s * r * r;
}

// Tap k of a position with fraction f stands at distance d = k - (lobes - 1) - f from it; the
// distances are the first one plus 1, 2, ... Weights are summed in the order of the taps and
// scaled by the reciprocal of the sum, so that they sum to 1.
void lanczosWeights(const Ipp32f* fractions, int count, Ipp32f* weights, const Ipp32f* table, int lobes) {
  const int taps = 2 * lobes;
  const Ipp32f edge = static_cast<Ipp32f>(lobes);
  const Ipp32f firstTap = static_cast<Ipp32f>(1 - lobes);
  for (int p = 0; p < count; ++p) {
    Ipp32f* w = weights + static_cast<ptrdiff_t>(p) * taps;
    const Ipp32f first = firstTap - fractions[p];
    Ipp32f sum = 0.0f;
    for (int k = 0; k < taps; ++k) {
      w[k] = kernelAt(table, edge, k == 0 ? first : first + static_cast<Ipp32f>(k));
      sum += w[k];
    }
    const Ipp32f scale = refinedReciprocal(sum);
    for (int k = 0; k < taps; ++k) w[k] *= scale;
  }
}

}  // namespace

void ownLanczosKernel2(const Ipp32f* fractions, int count, Ipp32f* weights) {
  lanczosWeights(fractions, count, weights, tblL2, 2);
}

void ownLanczosKernel3(const Ipp32f* fractions, int count, Ipp32f* weights) {
  lanczosWeights(fractions, count, weights, tblL3, 3);
}

}  // namespace QV_TIER
