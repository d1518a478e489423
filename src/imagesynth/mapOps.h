#ifndef QV_IMAGESYNTH_MAPOPS_H
#define QV_IMAGESYNTH_MAPOPS_H

// Element access of maps. Indices are computed in 32 bits, as everywhere in synthesis.

#include <cstdint>

#include "qvimage/imageSynth.h"

namespace qv::synth {

inline uint32_t cellIndex(const Map* map, int32_t x, int32_t y) {
  return static_cast<uint32_t>(y) * map->width + static_cast<uint32_t>(x);
}

inline unsigned char* elementAt(const Map* map, int32_t x, int32_t y) {
  return map->data->data + static_cast<uint32_t>(cellIndex(map, x, y) * map->depth);
}

inline unsigned char* elementAt(const Map* map, Point p) { return elementAt(map, p.x, p.y); }

inline bool insideMap(const Map* map, Point p) {
  return p.x >= 0 && p.y >= 0 && static_cast<uint32_t>(p.x) < map->width && static_cast<uint32_t>(p.y) < map->height;
}

inline uint32_t cellCount(const Map* map) { return map->width * map->height; }

}  // namespace qv::synth

#endif
