#include "codec/checksum_roads.h"

#include <gtest/gtest.h>

#include "codec/codec_support.h"
#include "qvimage/ippcore.h"
#include "support/tiers.h"

namespace codectest {

namespace {
constexpr Ipp64u kPclmulqdq = 0x800;
}  // namespace

void onEveryRoad(const std::function<void(const Road&)>& body) {
  const bool pclmul = processorHasPclmul();
  for (const qvtest::Tier& tier : qvtest::allTiers()) {
    const bool choosesRoad = tier.slot >= 3;
    for (int withPclmul = 0; withPclmul <= (choosesRoad ? 1 : 0); ++withPclmul) {
      if (withPclmul && !pclmul) continue;
      qvtest::ForcedTier forced(tier);
      Road road{tier.name, false};
      if (choosesRoad) {
        const Ipp64u enabled = ippGetEnabledCpuFeatures();
        ippSetCpuFeaturesMask(withPclmul ? enabled | kPclmulqdq : enabled & ~kPclmulqdq);
        road.name += withPclmul ? "+pclmul" : "-pclmul";
        road.folding = withPclmul != 0;
      }
      SCOPED_TRACE("road " + road.name);
      body(road);
    }
  }
}

}  // namespace codectest
