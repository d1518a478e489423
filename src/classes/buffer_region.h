#ifndef QV_CLASSES_BUFFER_REGION_H
#define QV_CLASSES_BUFFER_REGION_H

// How a public operation reads a vImage_Buffer for a primitive: the low 32 bits of width,
// height and rowBytes, without a range test.

#include <cstdint>

#include "qvimage/QVILTypes.h"

namespace qv::frame {

inline IppiSize regionOf(const vImage_Buffer* buffer) {
  return {static_cast<int>(static_cast<uint32_t>(buffer->width)),
          static_cast<int>(static_cast<uint32_t>(buffer->height))};
}

inline int stepOf(const vImage_Buffer* buffer) { return static_cast<int>(static_cast<uint32_t>(buffer->rowBytes)); }

template <typename T = Ipp8u>
inline T* pixelsOf(const vImage_Buffer* buffer) {
  return static_cast<T*>(buffer->data);
}

}  // namespace qv::frame

#endif
