#include "support/tiers.h"

#include "core/cpu_state.h"
#include "qvimage/ippcore.h"

namespace qvtest {

const std::vector<Tier>& allTiers() {
  static const std::vector<Tier> tiers{{"m7", 0x00, 1}, {"u8", 0x21, 2}, {"y8", 0x23, 3}, {"e9", 0x46, 4}};
  return tiers;
}

ForcedTier::ForcedTier(const Tier& tier)
    : savedSlot_(ippJumpIndexForMergedLibs),
      savedLowPower_(ippJumpIndexForMergedLibsLP),
      savedMask_(ownFeaturesMask),
      savedFeatures_(ownFeatures),
      savedFeaturesValid_(ownFeaturesAreValid) {
  EXPECT_EQ(ippInitCpu(tier.cpuCode), ippStsNoErr);
  EXPECT_EQ(ippJumpIndexForMergedLibs, tier.slot);
}

ForcedTier::~ForcedTier() {
  ippJumpIndexForMergedLibs = savedSlot_;
  ippJumpIndexForMergedLibsLP = savedLowPower_;
  ownFeaturesMask = savedMask_;
  ownFeatures = savedFeatures_;
  ownFeaturesAreValid = savedFeaturesValid_;
}

void onEveryTier(const std::function<void(const Tier&)>& body) {
  for (const Tier& tier : allTiers()) {
    SCOPED_TRACE(std::string("tier ") + tier.name);
    ForcedTier forced(tier);
    body(tier);
  }
}

void expectSameOnEveryTier(const std::function<std::vector<unsigned char>()>& body) {
  std::vector<unsigned char> first;
  onEveryTier([&](const Tier& tier) {
    std::vector<unsigned char> bytes = body();
    if (tier.slot == allTiers().front().slot) {
      first = std::move(bytes);
      return;
    }
    ASSERT_EQ(bytes.size(), first.size());
    for (size_t i = 0; i < bytes.size(); ++i)
      ASSERT_EQ(bytes[i], first[i]) << "first difference from tier m7 at byte " << i;
  });
}

}  // namespace qvtest
