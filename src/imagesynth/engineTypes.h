#ifndef QV_IMAGESYNTH_ENGINETYPES_H
#define QV_IMAGESYNTH_ENGINETYPES_H

// Point arithmetic, bounding boxes and the checked swap of two points of an array.

#include <cstdint>

#include "imagesynth/synthAssert.h"
#include "qvimage/imageSynth.h"

namespace qv::synth {

// Least and greatest coordinates of a list of points.
struct Bounds {
  int32_t minX;
  int32_t minY;
  int32_t maxX;
  int32_t maxY;
};

inline bool equal_points(Point a, Point b) { return a.x == b.x && a.y == b.y; }

// Per coordinate, wrapping in 32 bits.
inline Point add_points(Point a, Point b) {
  return {static_cast<int32_t>(static_cast<uint32_t>(a.x) + static_cast<uint32_t>(b.x)),
          static_cast<int32_t>(static_cast<uint32_t>(a.y) + static_cast<uint32_t>(b.y))};
}

inline Point subtract_points(Point a, Point b) {
  return {static_cast<int32_t>(static_cast<uint32_t>(a.x) - static_cast<uint32_t>(b.x)),
          static_cast<int32_t>(static_cast<uint32_t>(a.y) - static_cast<uint32_t>(b.y))};
}

inline Point* pointsOf(const SArray* array) { return reinterpret_cast<Point*>(array->data); }

// The least values start from 0x7fffffff and the greatest from 0, so an empty list gives
// (0x7fffffff, 0x7fffffff, 0, 0); the callers' points are never negative.
inline Bounds get_bounds(const Point* points, uint32_t count) {
  Bounds bounds{0x7fffffff, 0x7fffffff, 0, 0};
  for (uint32_t i = 0; i < count; ++i) {
    if (points[i].x < bounds.minX) bounds.minX = points[i].x;
    if (points[i].y < bounds.minY) bounds.minY = points[i].y;
    if (points[i].x > bounds.maxX) bounds.maxX = points[i].x;
    if (points[i].y > bounds.maxY) bounds.maxY = points[i].y;
  }
  return bounds;
}

// The middle of the bounding box, halving with truncation toward zero; 0x40000000 on both
// axes for an empty list.
inline Point get_center(const Point* points, uint32_t count) {
  const Bounds b = get_bounds(points, count);
  const int64_t x = (static_cast<int64_t>(b.maxX) - b.minX) / 2 + b.minX;
  const int64_t y = (static_cast<int64_t>(b.maxY) - b.minY) / 2 + b.minY;
  return {static_cast<int32_t>(x), static_cast<int32_t>(y)};
}

inline void swap_vector_elements(SArray* array, uint32_t i, uint32_t j) {
  const uint32_t size = array->len;
  synthAssert(i < size, "i<size");
  synthAssert(j < size, "j<size");
  Point* points = pointsOf(array);
  const Point kept = points[i];
  points[i] = points[j];
  points[j] = kept;
}

}  // namespace qv::synth

#endif
