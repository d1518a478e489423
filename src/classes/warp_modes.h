#ifndef QV_CLASSES_WARP_MODES_H
#define QV_CLASSES_WARP_MODES_H

// What the rotation and warp operations share: the whole buffer as a region, and the table of
// the planar operations from the public mode to the interpolation word.

#include <cstdint>

#include "classes/buffer_region.h"
#include "qvimage/ippi_interpolation.h"

namespace qv::frame {

// (0, 0, width, height), from the low 32 bits of the buffer's fields.
inline IppiRect wholeRegionOf(const vImage_Buffer* buffer) {
  const IppiSize size = regionOf(buffer);
  return {0, 0, size.width, size.height};
}

// Mode 0, 1, 2 (compared as an unsigned number) to nearest, linear, cubic, each with smooth
// edges; any other mode gives the smooth-edge flag alone, which the primitives refuse.
inline int planarInterpolationOf(int32_t mode) {
  static const int kWords[3] = {IPPI_INTER_NN | IPPI_SMOOTH_EDGE, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE,
                                IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE};
  return static_cast<uint32_t>(mode) < 3 ? kWords[mode] : IPPI_SMOOTH_EDGE;
}

}  // namespace qv::frame

#endif
