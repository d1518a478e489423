#ifndef QV_PRIMITIVES_IMAGE_PIXEL_PIXEL_ROADS_H
#define QV_PRIMITIVES_IMAGE_PIXEL_PIXEL_ROADS_H

// The roads that the copy, fill and channel kernels choose between. Every road writes the same
// bytes; they differ in memory traffic only. Each tier answers its choice through a plan
// function, so that the decisions can be checked without timing anything. Plain types only: no
// code here, so nothing of this header can be merged across tiers.

#include <cstddef>

namespace qv::pixel {

enum class CopyRoad : int {
  kSmall,      // rows below 64 bytes: blocks by the bits of the length
  kCached,     // ordinary stores through the cache
  kStreaming,  // non-temporal stores, fenced at the end of the call
};

// How a tier copies an image: the row shape after flattening a contiguous image, and the road.
struct CopyPlan {
  size_t rowBytes;
  int rows;
  CopyRoad road;
};

enum class SwapRoad : int {
  kPixels,        // one pixel at a time
  kShuffle,       // a byte shuffle built from the order, 16 bytes at a time
  kDedicated210,  // the m7 kernel for the order 2, 1, 0 on small aligned images
};

}  // namespace qv::pixel

#endif
