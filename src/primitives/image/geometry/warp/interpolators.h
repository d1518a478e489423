#ifndef QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_INTERPOLATORS_H
#define QV_PRIMITIVES_IMAGE_GEOMETRY_WARP_INTERPOLATORS_H

// Interpolators: a vector form turns a row of source points (two float arrays, x and y, in
// source pixel coordinates) into a row of destination pixels; a point form writes one pixel.
// The limits are the source's last column and row. The clipping forms skip a point outside
// [lowX, highX] x [lowY, highY] (the destination pixel keeps its value); a point on the box is
// taken. The plain forms assume every point and every tap lies inside the source.

#include "primitives/common/tier.h"

namespace QV_TIER {

// The cubic weights: entry t (0..1536) holds w0 and w1 of the third-order Lagrange rule on the
// nodes 0, 1, 2, 3 at u = t / 512, times 16384, rounded. w2 and w3 at t are entry 1536 - t with
// its halves swapped.
struct CubicWeightTable {
  alignas(64) Ipp16s entries[1537][2];
};
extern const CubicWeightTable ownpi_cubicWeights;

// Nearest: each coordinate rounded to the nearest integer (ties to even), the pixel copied.
void ownpi_dInterVector_NN_8_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y, int count,
                                int limitX, int limitY);

// Linear, 8 bits: 16384-scaled fractions, rows blended with a shift of 8, then columns with a
// bias of 33 and a shift of 20. A position at the limit uses the pixel before it with a
// fraction of 1.
void ownpi_dInterVector_L_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y, int count,
                                int limitX, int limitY);

// Cubic: four taps kept inside the source, 512 steps to the pixel, weights from the table.
void ownpi_dInterVectorClip_C_8u_C1(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,
                                    int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY);
void ownpi_dInterVectorClip_C_8u_C4(const Ipp8u* src, int srcStep, Ipp8u* dst, const float* x, const float* y,
                                    int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY);
void ownpi_dInterVectorClip_C_16u_C4(const Ipp16u* src, int srcStep, Ipp16u* dst, const float* x, const float* y,
                                     int count, int lowX, int lowY, int highX, int highY, int limitX, int limitY);

// Catmull-Rom: the four indices around a coordinate, i-1 .. i+2 with i = trunc(coordinate +
// 1e-7), each kept within [0, size - 1]. Answers i.
int setIndexCR(int size, double coordinate, int index[4]);

// One Catmull-Rom pixel of channels samples from the taps at the four rows and four columns
// given (columns in pixels), with fractions tx and ty, in double precision.
void ownpi_dInterPoint_CR_PixelB_8u(const Ipp8u* src, int srcStep, Ipp8u* dst, int channels, double tx, double ty,
                                    const int xIndex[4], const int yIndex[4]);
void ownpi_dInterPoint_CR_PixelB_16u(const Ipp16u* src, int srcStep, Ipp16u* dst, int channels, double tx, double ty,
                                     const int xIndex[4], const int yIndex[4]);

}  // namespace QV_TIER

#endif
