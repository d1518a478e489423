// The particular cases of the linear and Lanczos resize: 1:1, halving, the rows before the
// first source centre, regions made only of edge zones, in-memory sides, full-range samples,
// overshoot, the smallest sources, the clamped taps at index -1, and strong reductions.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_reference.h"
#include "resize/resize_support.h"
#include "support/tiers.h"

namespace {

using resizetest::kLinear;
using resizetest::SourceWorld;
using resizetest::SpecBlock;

std::vector<uint32_t> sourceSamples(const SourceWorld& source) {
  std::vector<uint32_t> samples;
  for (int y = 0; y < source.height(); ++y)
    for (int x = 0; x < source.width(); ++x)
      for (int c = 0; c < 4; ++c) samples.push_back(source.sample(y, x, c));
  return samples;
}

resizetest::RegionRun wholeImage(const SourceWorld& source, IppiSize dst, int lobes, int bits,
                                 uint32_t border = ippBorderRepl) {
  SpecBlock block({source.width(), source.height()}, dst, lobes);
  EXPECT_EQ(block.initStatus(), ippStsNoErr);
  return resizetest::runRegion(source, block.spec(), lobes, bits, {0, 0}, dst, border);
}

TEST(ResizeEdges, SameSizeGivesTheSourceBackWithARightZone) {
  for (int lobes : {kLinear, 2, 3})
    for (int bits : {8, 16}) {
      const SourceWorld source(23, 17, bits, 4, 8);
      SpecBlock block({23, 17}, {23, 17}, lobes);
      const ResizeAxisFilter& x = block.record().xFilter;
      for (int i = 0; i < 23; ++i) {
        EXPECT_EQ(x.index[i], i);
        if (lobes == kLinear) {
          EXPECT_EQ(x.weights[i], 0.0f);
        }
      }
      if (lobes == kLinear) {
        EXPECT_EQ(x.trailingCount, 1u);  // x = 22 >= 23 - 1: the last position
      }
      qvtest::expectSameOnEveryTier([&] {
        const resizetest::RegionRun run = wholeImage(source, {23, 17}, lobes, bits);
        EXPECT_EQ(run.samples, sourceSamples(source)) << "lobes " << lobes << ", " << bits << " bits";
        return resizetest::asBytes(run.samples);
      });
    }
}

TEST(ResizeEdges, HalvingOneAxisAveragesPairsRoundingHalfToEven) {
  // Columns 1, 2 and 2, 3: halves 1.5 and 2.5 both round to 2.
  SourceWorld source(4, 3, 8, 4, 1);
  const uint32_t values[] = {1, 2, 2, 3};
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 4; ++x)
      for (int c = 0; c < 4; ++c) source.setSample(y, x, c, values[x] + 100 * static_cast<uint32_t>(c == 3));
  qvtest::expectSameOnEveryTier([&] {
    const resizetest::RegionRun run = wholeImage(source, {2, 3}, kLinear, 8);
    for (int y = 0; y < 3; ++y) {
      EXPECT_EQ(run.samples[y * 8 + 0], 2u);
      EXPECT_EQ(run.samples[y * 8 + 4], 2u);
      EXPECT_EQ(run.samples[y * 8 + 3], 102u);  // alpha is averaged too
    }
    return resizetest::asBytes(run.samples);
  });
}

TEST(ResizeEdges, EnlargedRowsBeforeTheFirstCentreRepeatRowZeroInterpolatedAcross) {
  for (int bits : {8, 16}) {
    const SourceWorld source(7, 5, bits, 4, 2);
    const IppiSize dst{20, 16};
    const resizetest::Filters f = resizetest::referenceFilters({7, 5}, dst, kLinear);
    ASSERT_EQ(f.y.index[0], -1);
    qvtest::expectSameOnEveryTier([&] {
      const resizetest::RegionRun run = wholeImage(source, dst, kLinear, bits);
      for (int y = 0; y < dst.height && f.y.index[y] < 0; ++y)
        for (int x = 0; x < dst.width; ++x)
          for (int c = 0; c < 4; ++c) {
            const int x0 = std::max(f.x.index[x], 0), x1 = std::min(f.x.index[x] + 1, 6);
            const float p0 = static_cast<float>(source.sample(0, x0, c));
            const float p1 = static_cast<float>(source.sample(0, x1, c));
            EXPECT_EQ(run.samples[(y * dst.width + x) * 4 + c],
                      static_cast<uint32_t>(std::nearbyint(p0 + (p1 - p0) * f.x.fractions[x])));
          }
      return resizetest::asBytes(run.samples);
    });
  }
}

TEST(ResizeEdges, ARegionOfZonesOnlyLeavesTheRowBuffersAlone) {
  for (int lobes : {kLinear, 3}) {
    // 6 x 6 to 40 x 40: the first rows are all top zone.
    const SourceWorld source(6, 6, 8, 4, 6);
    SpecBlock block({6, 6}, {40, 40}, lobes);
    const IppiSize region{40, 2};
    int size = 0;
    ASSERT_EQ(ippiResizeGetBufferSize_8u(block.spec(), region, 4, &size), ippStsNoErr);
    std::vector<uint8_t> scratch(static_cast<size_t>(size), 0x3C);
    std::vector<uint8_t> destination(40 * 2 * 4);
    const resizetest::Filters f = resizetest::referenceFilters({6, 6}, {40, 40}, lobes);
    ASSERT_GE(f.y.leading, 2u);
    const IppStatus status =
        resizetest::callResize(lobes, 8, source.pixelAddress(0, 0), source.step(), destination.data(), 160, {0, 0},
                               region, 1, block.spec(), scratch.data());
    EXPECT_EQ(status, ippStsNoErr);
    // Past the offset tables (and the alignment of the Lanczos tables), nothing was written.
    const size_t tables = lobes == kLinear ? 4 * (40 + 2) : 64 + 4 * 40 + 32 + 4 * 2;
    for (size_t i = tables; i < scratch.size(); ++i) ASSERT_EQ(scratch[i], 0x3C) << i;
    const std::vector<uint32_t> expected = resizetest::referenceRegion(source, f, {0, 0}, region, 1, 8);
    for (size_t i = 0; i < expected.size(); ++i) ASSERT_EQ(destination[i], expected[i]) << i;
  }
}

TEST(ResizeEdges, TopAndLeftInMemoryReadThePixelBeforeTheRegion) {
  for (int lobes : {kLinear, 3}) {
    const SourceWorld source(9, 8, 8, 4, 12);
    const IppiSize dst{19, 17};
    const resizetest::Filters f = resizetest::referenceFilters({9, 8}, dst, lobes);
    const uint32_t border = ippBorderRepl | ippBorderInMemTop | ippBorderInMemLeft;
    const resizetest::RegionRun inMemory = wholeImage(source, dst, lobes, 8, border);
    const resizetest::RegionRun replicated = wholeImage(source, dst, lobes, 8);
    EXPECT_EQ(inMemory.samples, resizetest::referenceRegion(source, f, {0, 0}, dst, border, 8));
    // The first pixel takes taps from the row above and the column before the image.
    for (int c = 0; c < 4; ++c) EXPECT_NE(inMemory.samples[c], replicated.samples[c]) << c;
    // The bottom right corner is replicated in both.
    const size_t last = inMemory.samples.size() - 4;
    for (int c = 0; c < 4; ++c) EXPECT_EQ(inMemory.samples[last + c], replicated.samples[last + c]);
  }
}

TEST(ResizeEdges, FullRangeSamplesStayInRangeAndAlphaIsFiltered) {
  for (int lobes : {kLinear, 3})
    for (int bits : {8, 16}) {
      const uint32_t full = bits == 8 ? 255 : 65535;
      SourceWorld flat(11, 9, bits, 4, 1);
      SourceWorld alpha(11, 9, bits, 4, 1);
      for (int y = -4; y < 13; ++y)
        for (int x = -4; x < 15; ++x)
          for (int c = 0; c < 4; ++c) {
            flat.setSample(y, x, c, full);
            alpha.setSample(y, x, c, c == 3 ? (x % 2 == 0 ? full : 0) : full);
          }
      for (IppiSize dst : {IppiSize{5, 4}, IppiSize{23, 31}, IppiSize{7, 9}}) {
        for (uint32_t s : wholeImage(flat, dst, lobes, bits).samples) ASSERT_EQ(s, full);
        const resizetest::RegionRun run = wholeImage(alpha, dst, lobes, bits);
        bool between = false;
        for (size_t i = 3; i < run.samples.size(); i += 4) between |= run.samples[i] != 0 && run.samples[i] != full;
        EXPECT_TRUE(between) << "alpha is filtered like colour";
      }
    }
}

TEST(ResizeEdges, OvershootOfAStepIsClampedToTheRange) {
  for (int bits : {8, 16}) {
    const uint32_t full = bits == 8 ? 255 : 65535;
    SourceWorld step(16, 6, bits, 4, 1);
    for (int y = -4; y < 10; ++y)
      for (int x = -4; x < 20; ++x)
        for (int c = 0; c < 4; ++c) step.setSample(y, x, c, x < 8 ? 0 : full);
    const IppiSize dst{37, 6};
    const resizetest::Filters f = resizetest::referenceFilters({16, 6}, dst, 3);
    // The sums themselves leave the range on both sides of the step.
    float lowest = 0, highest = 0;
    for (int x = 0; x < dst.width; ++x) {
      float sum = 0;
      for (int k = 0; k < 6; ++k) {
        const int column = std::clamp(f.x.index[x] - 2 + k, 0, 15);
        sum += f.xWeights[6 * x + k] * (column < 8 ? 0.0f : static_cast<float>(full));
      }
      lowest = std::min(lowest, sum);
      highest = std::max(highest, sum);
    }
    EXPECT_LT(lowest, -0.5f);
    EXPECT_GT(highest, full + 0.5f);
    qvtest::expectSameOnEveryTier([&] {
      const resizetest::RegionRun run = wholeImage(step, dst, 3, bits);
      EXPECT_EQ(run.samples, resizetest::referenceRegion(step, f, {0, 0}, dst, 1, bits));
      return resizetest::asBytes(run.samples);
    });
  }
}

TEST(ResizeEdges, SixBySixEnlargedByTwoIsNearlyAllZones) {
  const SourceWorld source(6, 6, 8, 4, 21);
  const IppiSize dst{12, 12};
  const resizetest::Filters f = resizetest::referenceFilters({6, 6}, dst, 3);
  // x < 2 for positions 0..4 and x >= 3 for positions 7..11: only 5 and 6 are inside.
  EXPECT_EQ(f.x.leading, 5u);
  EXPECT_EQ(f.x.trailing, 5u);
  qvtest::expectSameOnEveryTier([&] {
    const resizetest::RegionRun run = wholeImage(source, dst, 3, 8);
    EXPECT_EQ(run.samples, resizetest::referenceRegion(source, f, {0, 0}, dst, 1, 8));
    return resizetest::asBytes(run.samples);
  });
}

TEST(ResizeEdges, TapsOfIndexMinusOneClampToZeroZeroZeroZeroOneTwo) {
  SourceWorld source(8, 8, 8, 4, 5);
  const IppiSize dst{16, 16};
  const resizetest::Filters f = resizetest::referenceFilters({8, 8}, dst, 3);
  ASSERT_EQ(f.x.index[0], -1);
  ASSERT_EQ(f.y.index[0], -1);
  const resizetest::RegionRun run = wholeImage(source, dst, 3, 8);
  const int taps[6] = {0, 0, 0, 0, 1, 2};
  for (int c = 0; c < 4; ++c) {
    float rows[6];
    for (int k = 0; k < 6; ++k) {
      float t[6];
      for (int m = 0; m < 6; ++m) t[m] = f.xWeights[m] * static_cast<float>(source.sample(taps[k], taps[m], c));
      rows[k] = f.yWeights[k] * (((t[0] + t[1]) + (t[2] + t[3])) + (t[4] + t[5]));
    }
    const float value = ((rows[0] + rows[1]) + (rows[2] + rows[3])) + (rows[4] + rows[5]);
    EXPECT_EQ(run.samples[c], static_cast<uint32_t>(std::clamp(std::nearbyint(value), 0.0f, 255.0f)));
  }
}

TEST(ResizeEdges, ReductionByTenRefillsTheRing) {
  for (int lobes : {kLinear, 2, 3})
    for (int bits : {8, 16}) {
      const SourceWorld source(120, 90, bits, 4, 33);
      const IppiSize dst{12, 9};
      const resizetest::Filters f = resizetest::referenceFilters({120, 90}, dst, lobes);
      for (int i = 1; i < dst.height; ++i) ASSERT_EQ(f.y.index[i] - f.y.index[i - 1], 10);
      qvtest::expectSameOnEveryTier([&] {
        const resizetest::RegionRun run = wholeImage(source, dst, lobes, bits);
        EXPECT_EQ(run.samples, resizetest::referenceRegion(source, f, {0, 0}, dst, 1, bits));
        return resizetest::asBytes(run.samples);
      });
    }
}

}  // namespace
