#ifndef QV_TESTS_REGION_FILL_SUPPORT_H
#define QV_TESTS_REGION_FILL_SUPPORT_H

// Running the fill primitive on a padded, misaligned test image with a scratch block of the
// size that ippiFloodFillGetSize_Grad asks for, followed by a canary.

#include <cstdint>
#include <vector>

#include "qvimage/qvimage.h"
#include "support/images.h"

namespace qvtest {

struct FillRun {
  IppStatus status = ippStsNoErr;
  IppiConnectedComp region{};
  bool scratchCanaryIntact = true;
};

// Fills image in place; the scratch starts scratchOffset bytes past an 8-byte boundary.
FillRun runFill(TestImage& image, IppiPoint seed, uint8_t newVal, uint8_t minDelta, uint8_t maxDelta,
                int scratchOffset = 0);

// The bytes that tiers must agree on: the pixels, the result record and the status.
std::vector<uint8_t> fillBytes(const TestImage& image, const FillRun& run);

// Packed pixels -> test image with padding and offset, and back.
void loadPixels(TestImage& image, const std::vector<uint8_t>& pixels);

}  // namespace qvtest

#endif
