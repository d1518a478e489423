#include "warp/tier_internals.h"

#include <cstring>

namespace warptest {
namespace {

#define QV_WARP_INTERNALS_OF(tier)                                                                                \
  WarpInternals {                                                                                                 \
    tier::ownpi_cubicWeights.entries, tier::ownpi_CheckQuad, tier::ownpi_ClipQuad, tier::ownpi_SmoothBorder,      \
        tier::ownpi_dInterVector_NN_8_C4, tier::ownpi_dInterVector_L_8u_C4, tier::ownpi_dInterVectorClip_C_8u_C1, \
        tier::ownpi_dInterVectorClip_C_8u_C4, tier::ownpi_dInterVectorClip_C_16u_C4, tier::setIndexCR,            \
        tier::ippiGetRotateQuad, tier::ippiGetAffineQuad, tier::ownpi_Rotate, tier::ownpi_WarpAffine              \
  }

const WarpInternals kInternals[4] = {QV_WARP_INTERNALS_OF(m7), QV_WARP_INTERNALS_OF(u8), QV_WARP_INTERNALS_OF(y8),
                                     QV_WARP_INTERNALS_OF(e9)};

}  // namespace

const WarpInternals& internalsOf(const qvtest::Tier& tier) {
  const char* names[4] = {"m7", "u8", "y8", "e9"};
  for (int i = 0; i < 4; ++i)
    if (std::strcmp(tier.name, names[i]) == 0) return kInternals[i];
  return kInternals[0];
}

const WarpInternals& currentInternals() {
  // Slots 0 and 1 hold m7, 2 u8, 3 y8, 4 e9.
  const int slot = ippJumpIndexForMergedLibs;
  return kInternals[slot <= 1 ? 0 : slot - 1];
}

}  // namespace warptest
