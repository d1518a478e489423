// Every filter of the square-pixel resize, on every layout, against the plain restatement on
// every tier: integer and other reductions and enlargements, factors near 1, tiny destinations,
// shifts that move the image partly out, source and destination regions.

#include <gtest/gtest.h>

#include "sqrpixel/sqrpixel_support.h"

namespace {

using sqrtest::Case;

struct Factors {
  double x, y;
};

const std::vector<Factors>& factorSet() {
  static const std::vector<Factors> all{{1.0, 1.0},   {0.5, 0.5},  {2.0, 2.0},    {1.0 / 3, 2.0 / 3},
                                        {0.37, 0.81}, {1.7, 0.6},  {3.25, 2.5},   {0.999, 1.001},
                                        {0.12, 0.15}, {0.25, 4.0}, {5.0 / 7, 0.9}};
  return all;
}

struct Shift {
  double x, y;
};

const std::vector<Shift>& shiftSet() {
  static const std::vector<Shift> all{{0.0, 0.0}, {0.3, -0.7}, {-2.5, 1.25}};
  return all;
}

const uint32_t kInterpolating[] = {IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC,  IPPI_INTER_BSPLINE,
                                   IPPI_INTER_CR, IPPI_INTER_B05C03, IPPI_INTER_LANCZOS};

// Destination big enough for the mapped source, with a margin the resize must leave alone.
Case caseFor(int srcW, int srcH, IppiRect srcRoi, Factors f, Shift s, uint32_t interpolation, bool dstRegion) {
  const int dstW = static_cast<int>(srcW * f.x + 8), dstH = static_cast<int>(srcH * f.y + 8);
  IppiRect dstRoi{0, 0, dstW, dstH};
  if (dstRegion) dstRoi = {2, 1, dstW * 2 / 3, dstH * 3 / 4};
  return {srcW, srcH, srcRoi, dstW, dstH, dstRoi, f.x, f.y, s.x, s.y, interpolation};
}

void runGrid(uint32_t filter, uint32_t flags, bool reductionsOnly) {
  uint32_t seed = filter * 7919 + (flags >> 29);
  for (const sqrtest::Layout& layout : sqrtest::layouts())
    for (const Factors& f : factorSet()) {
      if (reductionsOnly && (f.x > 1 || f.y > 1)) continue;
      for (const Shift& s : shiftSet())
        for (int shape = 0; shape < 3; ++shape) {
          const int srcW = 17, srcH = 13;
          const IppiRect srcRoi = shape == 1 ? IppiRect{3, 2, 11, 9} : IppiRect{0, 0, srcW, srcH};
          const Case c = caseFor(srcW, srcH, srcRoi, f, s, filter | flags, shape == 2);
          SCOPED_TRACE(testing::Message()
                       << layout.name << " filter " << filter << " flags " << (flags >> 29) << " factors " << f.x << ","
                       << f.y << " shift " << s.x << "," << s.y << " shape " << shape);
          sqrtest::expectMatchesReference(layout, c, ++seed);
        }
    }
}

TEST(SqrPixelFilters, InterpolatingFiltersMatchTheRules) {
  for (uint32_t filter : kInterpolating) runGrid(filter, 0, false);
}

TEST(SqrPixelFilters, SuperMatchesTheRules) { runGrid(IPPI_INTER_SUPER, 0, true); }

TEST(SqrPixelFilters, AntialiasedFiltersMatchTheRules) {
  for (uint32_t filter : kInterpolating) runGrid(filter, IPPI_ANTIALIASING, false);
  runGrid(IPPI_INTER_SUPER, IPPI_ANTIALIASING, true);
}

TEST(SqrPixelFilters, EdgePassesMatchTheRules) {
  for (uint32_t filter :
       std::vector<uint32_t>{IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC, IPPI_INTER_LANCZOS}) {
    runGrid(filter, IPPI_SMOOTH_EDGE, false);
    runGrid(filter, IPPI_SUBPIXEL_EDGE, false);
  }
  runGrid(IPPI_INTER_SUPER, IPPI_SMOOTH_EDGE, true);
  runGrid(IPPI_INTER_SUPER, IPPI_SUBPIXEL_EDGE, true);
}

// Sources under 6 and under 4 pixels on a side, where the filters shorten.
TEST(SqrPixelFilters, SmallSourcesMatchTheRules) {
  uint32_t seed = 99;
  for (const sqrtest::Layout& layout : sqrtest::layouts())
    for (uint32_t filter : kInterpolating)
      for (int w : {1, 2, 3, 4, 5, 6})
        for (const Factors& f : {Factors{2.5, 3.0}, Factors{0.5, 1.0}, Factors{1.0, 1.0}}) {
          SCOPED_TRACE(testing::Message()
                       << layout.name << " filter " << filter << " width " << w << " factors " << f.x << "," << f.y);
          sqrtest::expectMatchesReference(layout, caseFor(w, 7, {0, 0, w, 7}, f, {0.0, 0.0}, filter, false), ++seed);
          sqrtest::expectMatchesReference(
              layout, caseFor(9, w, {0, 0, 9, w}, f, {0.0, 0.0}, filter | IPPI_ANTIALIASING, false), ++seed);
        }
}

// Wider rows, so that the vector roads of every tier run beside the single-sample ones.
TEST(SqrPixelFilters, WideRowsMatchTheRules) {
  uint32_t seed = 7;
  for (const sqrtest::Layout& layout : sqrtest::layouts())
    for (uint32_t filter :
         std::vector<uint32_t>{IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC, IPPI_INTER_CR, IPPI_INTER_LANCZOS,
                               IPPI_INTER_SUPER, IPPI_INTER_LANCZOS | IPPI_ANTIALIASING})
      for (const Factors& f : {Factors{0.5, 0.5}, Factors{1.0 / 3, 1.0 / 3}, Factors{2.0, 2.0}, Factors{0.77, 1.3}}) {
        if ((filter & 0xFF) == IPPI_INTER_SUPER && f.x > 1) continue;
        SCOPED_TRACE(testing::Message() << layout.name << " filter " << filter << " factors " << f.x << "," << f.y);
        sqrtest::expectMatchesReference(layout, caseFor(71, 23, {0, 0, 71, 23}, f, {0.0, 0.0}, filter, false), ++seed);
      }
}

}  // namespace
