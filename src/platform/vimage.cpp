#include "platform/vimage.h"

#include <cstring>

namespace qv::platform {
namespace {

const uint8_t* rowOf(const vImage_Buffer* buffer, size_t y) {
  return static_cast<const uint8_t*>(buffer->data) + y * buffer->rowBytes;
}

uint8_t* mutableRowOf(const vImage_Buffer* buffer, size_t y) {
  return static_cast<uint8_t*>(buffer->data) + y * buffer->rowBytes;
}

}  // namespace

long convertPlanar8ToARGB8888(const vImage_Buffer* plane0, const vImage_Buffer* plane1, const vImage_Buffer* plane2,
                              const vImage_Buffer* plane3, const vImage_Buffer* dest, uint32_t) {
  const vImage_Buffer* planes[4] = {plane0, plane1, plane2, plane3};
  for (size_t y = 0; y < dest->height; ++y) {
    uint8_t* out = mutableRowOf(dest, y);
    for (size_t x = 0; x < dest->width; ++x)
      for (int c = 0; c < 4; ++c) out[4 * x + c] = rowOf(planes[c], y)[x];
  }
  return 0;
}

long permuteChannelsARGB8888(const vImage_Buffer* src, const vImage_Buffer* dest, const uint8_t map[4], uint32_t) {
  for (size_t y = 0; y < dest->height; ++y) {
    const uint8_t* in = rowOf(src, y);
    uint8_t* out = mutableRowOf(dest, y);
    for (size_t x = 0; x < dest->width; ++x) {
      uint8_t pixel[4];
      std::memcpy(pixel, in + 4 * x, 4);  // all read before any is written: in place is allowed
      for (int c = 0; c < 4; ++c) out[4 * x + c] = pixel[map[c] & 3];
    }
  }
  return 0;
}

}  // namespace qv::platform
