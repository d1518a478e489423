#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_POSITIONS_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SQRPIXEL_POSITIONS_H

// Where each destination pixel of an axis falls in the source, and the weights of its taps, for
// the filters with a fixed number of taps.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

// The 3-lobe Lanczos kernel at steps of 1/100: entry k is L(k / 100), zero from entry 300 on.
extern const float tblLanczos3[304];

// The source position of destination pixel i, in pixel-centre terms.
QV_INLINE double sourcePosition(int i, double inverse, double origin) { return (i + 0.5) * inverse + (origin - 0.5); }

// The source pixel that nearest takes for destination pixel i, kept inside [0, last].
int nearestIndex(int i, double inverse, double origin, int last);

// Taps of a filter with a fixed count: the first sits `before` pixels ahead of the index.
struct TapShape {
  int taps;
  int before;
};
TapShape tapShapeOf(Ipp32u kind);

// The cubic of the kind (4 to 7) at distance x, zero from 2 on.
double cubicKernel(Ipp32u kind, double x);

// The four weights of the cubic of the kind (4 to 7) for fraction f, unnormalised.
void cubicWeights(Ipp32u kind, float f, float* weights);
// The six Lanczos weights for fraction f, divided by their sum.
void lanczosWeights(float f, float* weights);

// For `count` destination pixels from `start`: the index floor(x) and the float weights of the
// kind (linear keeps its fraction alone).
void fillFloatAxis(Ipp32u kind, int start, int count, double inverse, double origin, int* index, float* weights);

// For the 8-bit linear filter: the index and the Q14 weight of the second tap.
void fillFixedAxis(int start, int count, double inverse, double origin, int* index, int* weight);

// The destination pixels [lead, end) of an axis whose taps all lie inside [0, length - 1].
void interiorRange(const int* index, int count, TapShape shape, int length, int* lead, int* end);

}  // namespace QV_TIER

#endif
