#ifndef QV_TESTS_SQRPIXEL_SQRPIXEL_SUPPORT_H
#define QV_TESTS_SQRPIXEL_SQRPIXEL_SUPPORT_H

// Running the square-pixel primitives on test images of each layout, and checking them against
// the plain restatement on every tier.

#include <cstdint>
#include <vector>

#include "sqrpixel/sqrpixel_reference.h"
#include "support/images.h"

namespace sqrtest {

struct Layout {
  const char* name;
  int channels;
  int bits;
  int pixelBytes() const { return channels * bits / 8; }
};

// 8u C1, 8u C4, 16u C4.
const std::vector<Layout>& layouts();

// Calls the primitive of the layout.
IppStatus callResize(const Layout& layout, const uint8_t* src, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                     uint8_t* dst, int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,
                     double yShift, uint32_t interpolation, uint8_t* buffer);

sqrref::Samples samplesOf(const qvtest::TestImage& image, const Layout& layout);
std::vector<uint8_t> bytesOf(const sqrref::Samples& samples, const Layout& layout);

// One resize case: the source and destination image sizes, the regions, the factors, shifts
// and the interpolation word.
struct Case {
  int srcWidth, srcHeight;
  IppiRect srcRoi;
  int dstWidth, dstHeight;
  IppiRect dstRoi;
  double xFactor, yFactor, xShift, yShift;
  uint32_t interpolation;
};

// Runs the case on every tier into a destination full of random samples, with a scratch block
// of exactly the size the size query gives: the status and every destination byte must equal
// the restatement's, nothing around the images may change, and the tiers must agree.
void expectMatchesReference(const Layout& layout, const Case& c, uint32_t seed);

}  // namespace sqrtest

#endif
