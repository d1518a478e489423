#include "support/bench_support.h"

#include <cstdlib>
#include <cstring>

#include "qvimage/ippcore.h"

namespace qvbench {

const Tier& tierAt(int64_t index) {
  static const Tier tiers[] = {{"m7", 0x00}, {"u8", 0x21}, {"y8", 0x23}, {"e9", 0x46}};
  return tiers[index];
}

void forceTier(benchmark::State& state, int argumentIndex) {
  const Tier& tier = tierAt(state.range(argumentIndex));
  ippInitCpu(tier.cpuCode);
  state.SetLabel(tier.name);
}

AlignedBlock::AlignedBlock(size_t bytes, uint8_t seed)
    : bytes_(static_cast<uint8_t*>(std::aligned_alloc(64, (bytes + 63) & ~static_cast<size_t>(63)))), size_(bytes) {
  for (size_t i = 0; i < bytes; ++i) bytes_.get()[i] = static_cast<uint8_t>(i * 131 + seed);
}

void AlignedBlock::Free::operator()(uint8_t* p) const { std::free(p); }

void countBytes(benchmark::State& state, size_t bytesPerIteration) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytesPerIteration));
}

}  // namespace qvbench
