#include "copy/copy_support.h"

#include <cstring>
#include <string>

namespace qvtest {

// clang-format off
#define QVTEST_TIER_ENTRIES(tier)                                                                     \
  TierInternals{#tier, tier::owniPlanCopy, tier::owniSetStreams, tier::owniPlanSwapAC4,              \
                tier::owniPlanSwapC4I, tier::ownsSet32sStreams, tier::ippsCopy_8u, tier::ippsCopy_32f, \
                tier::ippsMove_16s, tier::ippsMove_32f, tier::ippsSet_32f, tier::ippsSet_64f}
// clang-format on

const std::vector<TierInternals>& tierInternals() {
  static const std::vector<TierInternals> tiers{QVTEST_TIER_ENTRIES(m7), QVTEST_TIER_ENTRIES(u8),
                                                QVTEST_TIER_ENTRIES(y8), QVTEST_TIER_ENTRIES(e9)};
  return tiers;
}

const TierInternals& internalsOf(const char* tierName) {
  for (const TierInternals& tier : tierInternals())
    if (std::string(tier.name) == tierName) return tier;
  return tierInternals().front();
}

void referenceCopy(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, size_t rowBytes, int rows) {
  for (int r = 0; r < rows; ++r)
    for (size_t i = 0; i < rowBytes; ++i) rowOf(dst, dstStep, r)[i] = rowOf(src, srcStep, r)[i];
}

void referenceCopyChannel(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, int width, int height) {
  for (int r = 0; r < height; ++r)
    for (int x = 0; x < width; ++x) rowOf(dst, dstStep, r)[x] = rowOf(src, srcStep, r)[4 * x];
}

void referenceFill(const uint8_t* value, int channels, uint8_t* dst, int step, int width, int height) {
  for (int r = 0; r < height; ++r)
    for (int i = 0; i < width * channels; ++i) rowOf(dst, step, r)[i] = value[i % channels];
}

void referenceSwap(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, int width, int height, const int* order,
                   int channels) {
  for (int r = 0; r < height; ++r)
    for (int x = 0; x < width; ++x) {
      uint8_t pixel[4];
      for (int c = 0; c < 4; ++c) pixel[c] = rowOf(src, srcStep, r)[4 * x + c];
      for (int c = 0; c < channels; ++c) rowOf(dst, dstStep, r)[4 * x + c] = pixel[order[c]];
    }
}

void answerLeaf2(PlaybackProcessor& cpu, uint32_t descriptor) { cpu.answer(2, 0, {0x00000001u, descriptor, 0, 0}); }

void answerLeaf4(PlaybackProcessor& cpu, uint32_t bytes) {
  // Type 1 (data), line size 1, one partition, one way: the size is the number of sets.
  cpu.answer(4, 0, {0x00000001u, 0, bytes - 1, 0});
}

}  // namespace qvtest
