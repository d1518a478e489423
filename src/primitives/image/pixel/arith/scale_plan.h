#ifndef QV_PRIMITIVES_IMAGE_PIXEL_ARITH_SCALE_PLAN_H
#define QV_PRIMITIVES_IMAGE_PIXEL_ARITH_SCALE_PLAN_H

// How the depth conversions walk an image: the row shape after flattening a contiguous image
// into one row, and whether the stores bypass the cache. Each tier answers it through its plan
// functions, so that the decision can be checked without timing anything. Plain types only.

#include <cstdint>

namespace qv::arith {

struct ScalePlan {
  int64_t channelsPerRow;
  int rows;
  bool streaming;
};

}  // namespace qv::arith

#endif
