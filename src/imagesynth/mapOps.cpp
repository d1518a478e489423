// Maps: row-major grids of fixed-size elements over an SArray.

#include <cstring>

#include "imagesynth/mapOps.h"
#include "imagesynth/synthAssert.h"

namespace {

void newMap(Map* map, uint32_t width, uint32_t height, uint32_t depth) {
  map->width = width;
  map->height = height;
  map->depth = depth;
  map->data = s_array_sized_new(0, 1, depth, width * height);
}

}  // namespace

extern "C" {

void new_bytemap(Map* map, uint32_t width, uint32_t height) { newMap(map, width, height, 1); }
void new_intmap(Map* map, uint32_t width, uint32_t height) { newMap(map, width, height, 4); }
void new_coordmap(Map* map, uint32_t width, uint32_t height) { newMap(map, width, height, sizeof(Point)); }
void new_pixmap(Map* map, uint32_t width, uint32_t height, uint32_t depth) { newMap(map, width, height, depth); }

void free_map(Map* map) {
  s_array_free(map->data, 1);
  map->data = nullptr;
}

void set_bytemap(Map* map, uint8_t value) { memset(map->data->data, value, qv::synth::cellCount(map)); }

void invert_bytemap(Map* map) {
  unsigned char* bytes = map->data->data;
  const uint32_t count = qv::synth::cellCount(map);
  for (uint32_t i = 0; i < count; ++i) bytes[i] = static_cast<unsigned char>(~bytes[i]);
}

// Copies the first byte of every mask element into the first byte of the pixmap element.
void interleave_mask(Map* pixmap, const Map* mask) {
  const uint32_t size = qv::synth::cellCount(pixmap);
  qv::synth::synthAssert(size == mask->height * mask->width, "size == mask->height * mask->width");
  for (uint32_t i = 0; i < size; ++i) {
    pixmap->data->data[static_cast<size_t>(i) * pixmap->depth] = mask->data->data[static_cast<size_t>(i) * mask->depth];
  }
}

}  // extern "C"
