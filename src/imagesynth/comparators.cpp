// The comparators behind every visiting order. Each answers -1 when a goes first and +1
// otherwise, never 0: equal keys give +1 under a "less" comparator and -1 under a "more" one.
// Squares wrap in signed 32 bits, and the comparison is signed.

#include <cstdint>

#include "qvimage/imageSynth.h"

namespace {

int32_t wrappedSquare(int32_t v) {
  const auto u = static_cast<uint32_t>(v);
  return static_cast<int32_t>(u * u);
}

int32_t wrappedSum(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

int32_t cartesianKey(const void* p) {
  const auto* point = static_cast<const Point*>(p);
  return wrappedSum(wrappedSquare(point->x), wrappedSquare(point->y));
}

int32_t horizontalKey(const void* p) { return wrappedSquare(static_cast<const Point*>(p)->x); }
int32_t verticalKey(const void* p) { return wrappedSquare(static_cast<const Point*>(p)->y); }
float ratioOf(const void* p) { return static_cast<const SortPoint*>(p)->ratio; }

int firstWhen(bool aFirst) { return aFirst ? -1 : 1; }

}  // namespace

extern "C" {

int lessCartesian(const void* a, const void* b) { return firstWhen(cartesianKey(a) < cartesianKey(b)); }
int moreCartesian(const void* a, const void* b) { return firstWhen(cartesianKey(a) >= cartesianKey(b)); }
int lessHorizontal(const void* a, const void* b) { return firstWhen(horizontalKey(a) < horizontalKey(b)); }
int moreHorizontal(const void* a, const void* b) { return firstWhen(horizontalKey(a) >= horizontalKey(b)); }
int lessVertical(const void* a, const void* b) { return firstWhen(verticalKey(a) < verticalKey(b)); }
int moreVertical(const void* a, const void* b) { return firstWhen(verticalKey(a) >= verticalKey(b)); }

// A ratio that is not a number puts a ahead: the negated >= is true for unordered values.
int lessInward(const void* a, const void* b) { return firstWhen(!(ratioOf(a) >= ratioOf(b))); }
int moreInward(const void* a, const void* b) { return firstWhen(ratioOf(a) >= ratioOf(b)); }

}  // extern "C"
