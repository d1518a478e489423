#include "imagesynth/engineCost.h"

#include <cstdlib>

#include "imagesynth/engineTypes.h"
#include "imagesynth/mapOps.h"

namespace qv::synth {
namespace {

// The cost of neighbour j against the corpus pixel at q, on the general road.
uint32_t neighbourCost(const EngineState& s, const Neighbour& neighbour, uint32_t j, Point q) {
  if (!insideMap(s.corpus, q)) return s.penalty;
  const unsigned char* corpusPixel = elementAt(s.corpus, q);
  if (corpusPixel[0] != 255) return s.penalty;
  const ImageFormatIndices& ix = *s.indices;
  uint32_t sum = 0;
  if (j != 0) {
    for (uint32_t e = 1; e < ix.colorEnd; ++e) sum += s.colorDiff[256 + neighbour.pixel[e] - corpusPixel[e]];
  }
  if (ix.mapCount != 0) {
    for (uint32_t e = ix.mapStart; e < ix.mapEnd; ++e) sum += s.mapDiff[256 + neighbour.pixel[e] - corpusPixel[e]];
  }
  return sum;
}

bool generalCostBelow(const EngineState& s, Point c, uint32_t best, uint32_t& cost) {
  uint32_t sum = 0;
  for (uint32_t j = 0; j < s.neighbourCount; ++j) {
    const Neighbour& neighbour = s.neighbours[j];
    sum += neighbourCost(s, neighbour, j, add_points(c, neighbour.offset));
    if (sum >= best) return false;
  }
  cost = sum;
  return true;
}

bool reachesPastCorpus(const EngineState& s, Point c) {
  return c.x + s.reachLeft < 0 || c.y + s.reachUp < 0 || c.x + s.reachRight >= static_cast<int32_t>(s.corpus->width) ||
         c.y + s.reachDown >= static_cast<int32_t>(s.corpus->height);
}

// The same sums as the general road for a neighbourhood wholly inside the corpus. Neighbour 0
// costs nothing: it has no colour term, and every candidate is a pixel of mask 255 (random ones
// are corpus points, derived ones are tested before), so its cell is not even read. Padded
// colours are 0 on both sides, and a difference of 0 costs 0.
bool cellCostBelow(const EngineState& s, Point c, uint32_t best, uint32_t& cost) {
  const uint32_t* cells = s.corpusCells + cellIndex(s.corpus, c.x, c.y);
  const uint16_t* diff = s.colorDiff + 256;
  uint32_t sum = 0;
  if (sum >= best) return false;
  for (uint32_t j = 1; j < s.neighbourCount; ++j) {
    const uint32_t cell = cells[s.cellDeltas[j]];
    const unsigned char* colour = s.cellColours[j];
    if ((cell & 1u) != 0) {
      sum += diff[colour[0] - static_cast<int32_t>((cell >> 8) & 0xFFu)] +
             diff[colour[1] - static_cast<int32_t>((cell >> 16) & 0xFFu)] +
             diff[colour[2] - static_cast<int32_t>(cell >> 24)];
    } else {
      sum += s.penalty;
    }
    if (sum >= best) return false;
  }
  cost = sum;
  return true;
}

}  // namespace

void prepareCostCache(EngineState& s) {
  s.corpusCells = nullptr;
  const ImageFormatIndices& ix = *s.indices;
  if (ix.mapCount != 0 || ix.colorCount > 3) return;
  if (ix.colorCount < 3 && s.colorDiff[256] != 0) return;  // padding must cost nothing
  const uint32_t count = cellCount(s.corpus);
  s.corpusCells = static_cast<uint32_t*>(malloc(sizeof(uint32_t) * (count + 1)));
  for (uint32_t i = 0; i < count; ++i) {
    const unsigned char* pixel = s.corpus->data->data + static_cast<size_t>(i) * s.corpus->depth;
    uint32_t cell = pixel[0] == 255 ? 1u : 0u;
    for (uint32_t e = 1; e < ix.colorEnd; ++e) cell |= static_cast<uint32_t>(pixel[e]) << (8 * e);
    s.corpusCells[i] = cell;
  }
}

void freeCostCache(EngineState& s) {
  free(s.corpusCells);
  s.corpusCells = nullptr;
}

void prepareNeighbourhoodCost(EngineState& s) {
  if (s.corpusCells == nullptr) return;
  s.reachLeft = s.reachRight = s.reachUp = s.reachDown = 0;
  const auto width = static_cast<int32_t>(s.corpus->width);
  const uint32_t colours = s.indices->colorCount;
  for (uint32_t j = 0; j < s.neighbourCount; ++j) {
    const Point offset = s.neighbours[j].offset;
    if (offset.x < s.reachLeft) s.reachLeft = offset.x;
    if (offset.x > s.reachRight) s.reachRight = offset.x;
    if (offset.y < s.reachUp) s.reachUp = offset.y;
    if (offset.y > s.reachDown) s.reachDown = offset.y;
    s.cellDeltas[j] = offset.y * width + offset.x;
    for (uint32_t e = 0; e < 3; ++e) s.cellColours[j][e] = e < colours ? s.neighbours[j].pixel[e + 1] : 0;
  }
}

bool costBelow(const EngineState& s, Point c, uint32_t best, uint32_t& cost) {
  if (s.corpusCells == nullptr || reachesPastCorpus(s, c)) return generalCostBelow(s, c, best, cost);
  return cellCostBelow(s, c, best, cost);
}

}  // namespace qv::synth
