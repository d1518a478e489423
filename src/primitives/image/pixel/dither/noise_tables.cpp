// The random threshold tables of the noise kernels, drawn with the tier's own uniform generators.

#include "primitives/data/memory/memory.h"
#include "primitives/data/random/random.h"
#include "primitives/image/pixel/dither/dither_kernels.h"

namespace QV_TIER {
namespace {

IppStatus drawIndices(Ipp16s* index) {
  IppsRandUniState_16s* state = nullptr;
  if (ippsRandUniformInitAlloc_16s(&state, 0, kNoiseTableSize, 0) != ippStsNoErr) return ippStsMemAllocErr;
  ippsRandUniform_16s(index, kNoiseTableSize, state);
  ippsRandUniformFree_16s(state);
  return ippStsNoErr;
}

IppStatus drawValues(Ipp32f* value, float low, float high) {
  IppsRandUniState_32f* state = nullptr;
  if (ippsRandUniformInitAlloc_32f(&state, low, high, 0) != ippStsNoErr) return ippStsMemAllocErr;
  ippsRandUniform_32f(value, kNoiseTableSize, state);
  ippsRandUniformFree_32f(state);
  return ippStsNoErr;
}

}  // namespace

IppStatus drawNoiseTables(float low, float high, NoiseTables& tables) {
  tables.index = ippsMalloc_16s(kNoiseTableSize);
  tables.value = ippsMalloc_32f(kNoiseTableSize);
  IppStatus status = ippStsMemAllocErr;
  if (tables.index != nullptr && tables.value != nullptr) {
    status = drawIndices(tables.index);
    if (status == ippStsNoErr) status = drawValues(tables.value, low, high);
  }
  if (status != ippStsNoErr) freeNoiseTables(tables);
  return status;
}

void freeNoiseTables(NoiseTables& tables) {
  ippsFree(tables.index);
  ippsFree(tables.value);
  tables.index = nullptr;
  tables.value = nullptr;
}

}  // namespace QV_TIER
