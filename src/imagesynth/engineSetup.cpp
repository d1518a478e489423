// The engine's lists built before the passes: the corpus points and the sorted neighbour offsets.

#include "imagesynth/mapOps.h"
#include "imagesynth/synthAssert.h"

extern "C" {

// In row order, every corpus pixel of mask 255 that, where the corpus reads alpha, is not transparent.
void prepareCorpusPoints(const ImageFormatIndices* indices, const Map* corpus, SArray** result) {
  *result = s_array_sized_new(0, 1, sizeof(Point), corpus->width * corpus->height);
  for (uint32_t y = 0; y < corpus->height; ++y) {
    for (uint32_t x = 0; x < corpus->width; ++x) {
      const unsigned char* pixel = qv::synth::elementAt(corpus, static_cast<int32_t>(x), static_cast<int32_t>(y));
      if (pixel[0] != 255) continue;
      if (indices->corpusHasAlpha != 0 && pixel[indices->alphaIndex] == 0) continue;
      const Point point{static_cast<int32_t>(x), static_cast<int32_t>(y)};
      s_array_append_vals(*result, &point, 1);
    }
  }
}

// Every offset that can reach from one pixel to another within the smaller of the two maps,
// nearest first; (0, 0) alone has distance 0 and stands first.
void prepareSortedOffsets(const Map* target, const Map* corpus, SArray** sortedOffsets) {
  const auto w = static_cast<int32_t>(target->width < corpus->width ? target->width : corpus->width);
  const auto h = static_cast<int32_t>(target->height < corpus->height ? target->height : corpus->height);
  const uint32_t allocatedSize = static_cast<uint32_t>(2 * h - 1) * static_cast<uint32_t>(2 * w - 1);
  *sortedOffsets = s_array_sized_new(0, 1, sizeof(Point), allocatedSize);
  for (int32_t y = 1 - h; y < h; ++y) {
    for (int32_t x = 1 - w; x < w; ++x) {
      const Point offset{x, y};
      s_array_append_vals(*sortedOffsets, &offset, 1);
    }
  }
  qv::synth::synthAssert((*sortedOffsets)->len == allocatedSize, "(*sortedOffsets)->len == allocatedSize");
  s_array_sort(*sortedOffsets, lessCartesian);
}

}  // extern "C"
