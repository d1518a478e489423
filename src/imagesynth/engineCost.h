#ifndef QV_IMAGESYNTH_ENGINECOST_H
#define QV_IMAGESYNTH_ENGINECOST_H

// The cost of a candidate corpus point against the current neighbourhood, with early exit.

#include <cstdint>

#include "imagesynth/engineState.h"

namespace qv::synth {

// For layouts without map pixelels and with at most three colours, the corpus is also kept as
// one word a pixel (byte 0: 1 where the mask pixelel is 255; bytes 1 to 3: the colours, zeros
// past colorCount), so that a neighbourhood that lies wholly inside the corpus costs one load a
// neighbour. Other layouts, and neighbourhoods reaching past the corpus edge, take the general
// road. Both give the same sums.
void prepareCostCache(EngineState& s);
void freeCostCache(EngineState& s);
// Called once the neighbours of a target point are gathered.
void prepareNeighbourhoodCost(EngineState& s);
// False as soon as the running cost of c reaches best; otherwise true with the whole cost.
bool costBelow(const EngineState& s, Point c, uint32_t best, uint32_t& cost);

}  // namespace qv::synth

#endif
