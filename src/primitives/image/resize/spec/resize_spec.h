#ifndef QV_PRIMITIVES_IMAGE_RESIZE_SPEC_RESIZE_SPEC_H
#define QV_PRIMITIVES_IMAGE_RESIZE_SPEC_RESIZE_SPEC_H

// The ResizeSpec record as the kernels of one tier see it: where the record stands in the
// caller's block, its constants, the builders of its arrays and the kernel tables.

#include "primitives/common/tier_util.h"

namespace QV_TIER {

constexpr Ipp32u kInterpolationNearest = 1;
constexpr Ipp32u kInterpolationLinear = 2;
constexpr Ipp32u kInterpolationCubic = 6;
constexpr Ipp32u kInterpolationSuper = 8;
constexpr Ipp32u kInterpolationLanczos = 16;

// Every size of the family carries this much slack for the alignment of the record.
constexpr int64_t kSpecSlack = 64;
// A size must stay below 2^31 once the slack is added.
constexpr int64_t kSizeLimit = 0x80000000LL;

constexpr int kLanczos2TableLength = 204;
constexpr int kLanczos3TableLength = 304;
extern const Ipp32f tblL2[kLanczos2TableLength];
extern const Ipp32f tblL3[kLanczos3TableLength];

// The first multiple of the alignment at or after p.
template <typename T>
QV_INLINE T* alignedUp(T* p, uintptr_t alignment) {
  return reinterpret_cast<T*>((addressOf(p) + alignment - 1) & ~(alignment - 1));
}

// The record inside the caller's block: at the next multiple of 64 bytes.
QV_INLINE ResizeSpec* specRecord(ResizeSpec* block) { return alignedUp(block, 64); }
QV_INLINE const ResizeSpec* specRecord(const ResizeSpec* block) { return alignedUp(block, 64); }

// x rounded up to a multiple of 32.
QV_INLINE int64_t roundUp32(int64_t x) { return (x + 31) & ~int64_t{31}; }

QV_INLINE uint32_t greatestCommonDivisor(uint32_t a, uint32_t b) {
  while (b != 0) {
    const uint32_t r = a % b;
    a = b;
    b = r;
  }
  return a;
}

// srcReduced / dstReduced as a double: correctly rounded however large the lengths.
QV_INLINE double axisRatio(const ResizeAxisFilter& axis) {
  return static_cast<double>(axis.srcReduced) / static_cast<double>(axis.dstReduced);
}

// floor(position * ratio): the first source row or column of a region starting at position.
QV_INLINE int sourceStartOf(const ResizeAxisFilter& axis, int position) {
  return static_cast<int>(__builtin_floor(static_cast<double>(position) * axisRatio(axis)));
}

// Sets the lengths and their gcd-reduced forms, the index array and no weights yet.
void ownSetAxis(ResizeAxisFilter* axis, int srcLength, int dstLength, Ipp32s* index);

// Positions of an axis: index, the fraction of each position written to fractions, and the
// leading and trailing counts for the given lobes (1 to 4; other lobes leave both counts 0 and
// write nothing else).
void ownBuildFilter_32f(ResizeAxisFilter* axis, Ipp32f* fractions, Ipp32u lobes);

// Lanczos weights of 2 and 3 lobes, 4 or 6 a position, from each position's fraction.
void ownLanczosKernel2(const Ipp32f* fractions, int count, Ipp32f* weights);
void ownLanczosKernel3(const Ipp32f* fractions, int count, Ipp32f* weights);

}  // namespace QV_TIER

#endif
