// The init primitives: statuses in the order of their checks with the block untouched, the
// record's layout, and the positions, fractions, counts and weights of both axes against the
// plain rules, for many pairs of sizes.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_reference.h"
#include "resize/resize_support.h"
#include "support/tiers.h"

namespace {

using resizetest::kLinear;
using resizetest::SpecBlock;

static_assert(sizeof(ResizeAxisFilter) == 40);
static_assert(offsetof(ResizeAxisFilter, index) == 16 && offsetof(ResizeAxisFilter, weights) == 24);
static_assert(offsetof(ResizeAxisFilter, leadingCount) == 32 && offsetof(ResizeAxisFilter, trailingCount) == 36);
static_assert(offsetof(ResizeSpec, border) == 16 && offsetof(ResizeSpec, yFilter) == 32);
static_assert(offsetof(ResizeSpec, xFilter) == 72 && sizeof(ResizeSpec) == 112);

const uint8_t* bytesOf(const void* p) { return static_cast<const uint8_t*>(p); }

uintptr_t roundUp(uintptr_t p, uintptr_t to) { return (p + to - 1) / to * to; }

// A block of spare bytes, of which a test watches every one.
struct Block {
  std::vector<uint8_t> bytes = std::vector<uint8_t>(4096, 0xEE);
  ResizeSpec* spec(size_t misalignment = 0) {
    const uintptr_t base = reinterpret_cast<uintptr_t>(bytes.data());
    return reinterpret_cast<ResizeSpec*>(roundUp(base, 64) + misalignment);
  }
  bool untouched() const {
    for (uint8_t b : bytes)
      if (b != 0xEE) return false;
    return true;
  }
};

TEST(ResizeInit, LinearStatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (auto init : {ippiResizeLinearInit_8u, ippiResizeLinearInit_16u}) {
      Block block;
      EXPECT_EQ(init({0, -1}, {0, 0}, nullptr), ippStsNullPtrErr);
      EXPECT_EQ(init({-1, 4}, {0, 4}, block.spec()), ippStsNoOperation);
      EXPECT_EQ(init({4, 4}, {4, 0}, block.spec()), ippStsNoOperation);  // a destination width of 0
      EXPECT_EQ(init({-4, 4}, {4, 4}, block.spec()), ippStsSizeErr);
      EXPECT_EQ(init({4, 4}, {4, -4}, block.spec()), ippStsSizeErr);
      EXPECT_EQ(init({1, 100}, {50, 50}, block.spec()), ippStsSizeErr);  // a source side under 2
      EXPECT_EQ(init({100, 1}, {50, 50}, block.spec()), ippStsSizeErr);
      EXPECT_TRUE(block.untouched());
      EXPECT_EQ(init({2, 2}, {1, 1}, block.spec()), ippStsNoErr);  // a destination of 1 is fine
    }
  });
}

TEST(ResizeInit, LanczosStatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (auto init : {ippiResizeLanczosInit_8u, ippiResizeLanczosInit_16u}) {
      Block block;
      std::vector<uint8_t> initBuffer(1024, 0xEE);
      EXPECT_EQ(init({0, 0}, {0, 0}, 3, nullptr, initBuffer.data()), ippStsNullPtrErr);
      EXPECT_EQ(init({0, 0}, {0, 0}, 3, block.spec(), nullptr), ippStsNullPtrErr);
      EXPECT_EQ(init({-1, 8}, {0, 8}, 9, block.spec(), initBuffer.data()), ippStsNoOperation);
      EXPECT_EQ(init({8, 8}, {0, 8}, 3, block.spec(), initBuffer.data()), ippStsNoOperation);
      EXPECT_EQ(init({8, -8}, {8, 8}, 9, block.spec(), initBuffer.data()), ippStsSizeErr);
      EXPECT_TRUE(block.untouched());
      for (uint8_t b : initBuffer) ASSERT_EQ(b, 0xEE);
    }
  });
}

TEST(ResizeInit, LanczosOfThreeLobesNeedsSixBySixAndTwoLobesFourByFour) {
  // Interpolation 16 sizes a 5 by 5 source.
  int specSize = 0, initSize = 0;
  EXPECT_EQ(ippiResizeGetSize_8u({5, 5}, {9, 9}, 16, 0, &specSize, &initSize), ippStsNoErr);
  qvtest::onEveryTier([](const qvtest::Tier&) {
    SpecBlock three({5, 5}, {9, 9}, 3);
    EXPECT_EQ(three.initStatus(), ippStsSizeErr);
    // The head was written before the lobes were judged: a good mark on an unusable block.
    EXPECT_EQ(three.record().magic, QV_RESIZE_SPEC_MAGIC);
    EXPECT_EQ(three.record().interpolation, 16u);
    EXPECT_EQ(three.record().lobes, 3u);
    EXPECT_EQ(SpecBlock({5, 5}, {9, 9}, 2).initStatus(), ippStsNoErr);
    EXPECT_EQ(SpecBlock({6, 5}, {9, 9}, 3).initStatus(), ippStsSizeErr);
    EXPECT_EQ(SpecBlock({6, 6}, {9, 9}, 3).initStatus(), ippStsNoErr);
    // The size query refuses a source under 4 by 4 already; the init refuses it on its own.
    Block block;
    std::vector<uint8_t> initBuffer(1024);
    EXPECT_EQ(ippiResizeLanczosInit_8u({4, 3}, {9, 9}, 2, block.spec(), initBuffer.data()), ippStsSizeErr);
  });
}

TEST(ResizeInit, OtherLobesAreRefusedAfterTheAxesWereBuilt) {
  const IppiSize src{20, 10}, dst{7, 13};
  // Lobes 4 builds both axes with its own counts, then is refused.
  SpecBlock four(src, dst, 4);
  EXPECT_EQ(four.initStatus(), ippStsNotSupportedModeErr);
  const ResizeSpec& r4 = four.record();
  EXPECT_EQ(r4.magic, QV_RESIZE_SPEC_MAGIC);
  EXPECT_EQ(r4.lobes, 4u);
  const resizetest::Axis x4 = resizetest::referenceAxis(src.width, dst.width, 4);
  const resizetest::Axis y4 = resizetest::referenceAxis(src.height, dst.height, 4);
  EXPECT_EQ(r4.xFilter.leadingCount, x4.leading);
  EXPECT_EQ(r4.xFilter.trailingCount, x4.trailing);
  EXPECT_EQ(r4.yFilter.leadingCount, y4.leading);
  EXPECT_EQ(r4.yFilter.trailingCount, y4.trailing);
  EXPECT_EQ(std::vector<int32_t>(r4.xFilter.index, r4.xFilter.index + dst.width), x4.index);
  // Lobes 5 leaves the counts 0 and the index unset.
  SpecBlock five(src, dst, 5);
  EXPECT_EQ(five.initStatus(), ippStsNotSupportedModeErr);
  const ResizeSpec& r5 = five.record();
  EXPECT_EQ(r5.lobes, 5u);
  EXPECT_EQ(r5.xFilter.leadingCount + r5.xFilter.trailingCount + r5.yFilter.leadingCount, 0u);
  for (int i = 0; i < dst.width; ++i) EXPECT_EQ(static_cast<uint32_t>(r5.xFilter.index[i]), 0xEEEEEEEEu);
  // Both are refused by the resize too, after its other checks.
  std::vector<uint8_t> image(4096), scratch(4096);
  EXPECT_EQ(ippiResizeLanczos_8u_C4R(image.data(), 80, image.data(), 28, {0, 0}, dst, 1, nullptr, four.spec(),
                                     scratch.data()),
            ippStsNotSupportedModeErr);
  EXPECT_EQ(ippiResizeLanczos_8u_C4R(image.data(), 80, image.data(), 28, {0, 0}, dst, 6, nullptr, four.spec(),
                                     scratch.data()),
            ippStsNotSupportedModeErr);
  EXPECT_EQ(ippiResizeLanczos_8u_C4R(image.data(), 80, image.data(), 28, {0, 0}, dst, 8, nullptr, four.spec(),
                                     scratch.data()),
            ippStsBorderErr);
}

TEST(ResizeInit, LinearRecordStandsAtTheFirst64ByteBoundaryWithPackedArrays) {
  const IppiSize src{19, 11}, dst{37, 5};
  for (int misalignment : {0, 1, 8, 33, 63}) {
    SpecBlock block(src, dst, kLinear, misalignment);
    ASSERT_EQ(block.initStatus(), ippStsNoErr);
    const ResizeSpec& r = block.record();
    const uintptr_t given = reinterpret_cast<uintptr_t>(block.spec());
    EXPECT_EQ(reinterpret_cast<uintptr_t>(&r), roundUp(given, 64));
    EXPECT_EQ(r.magic, QV_RESIZE_SPEC_MAGIC);
    EXPECT_EQ(r.interpolation, 2u);
    EXPECT_EQ(r.lobes, 1u);
    EXPECT_EQ(r.reserved, 0u);
    for (Ipp32u side : r.border) EXPECT_EQ(side, 1u);
    EXPECT_EQ(bytesOf(r.yFilter.index), bytesOf(&r) + sizeof(ResizeSpec));
    EXPECT_EQ(r.xFilter.index, r.yFilter.index + dst.height);
    EXPECT_EQ(bytesOf(r.yFilter.weights), bytesOf(r.xFilter.index + dst.width));
    EXPECT_EQ(r.xFilter.weights, r.yFilter.weights + dst.height);
    EXPECT_EQ(r.yFilter.srcLength, src.height);
    EXPECT_EQ(r.yFilter.dstLength, dst.height);
    EXPECT_EQ(r.xFilter.srcLength, src.width);
    EXPECT_EQ(r.xFilter.dstLength, dst.width);
  }
}

TEST(ResizeInit, LanczosWeightArraysStartAtMultiplesOf32) {
  for (int lobes : {2, 3})
    for (IppiSize dst : {IppiSize{37, 5}, IppiSize{8, 8}, IppiSize{1, 3}}) {
      SpecBlock block({19, 11}, dst, lobes, 5);
      ASSERT_EQ(block.initStatus(), ippStsNoErr);
      const ResizeSpec& r = block.record();
      for (Ipp32u side : r.border) EXPECT_EQ(side, static_cast<Ipp32u>(lobes));
      EXPECT_EQ(bytesOf(r.yFilter.index), bytesOf(&r) + sizeof(ResizeSpec));
      EXPECT_EQ(r.xFilter.index, r.yFilter.index + dst.height);
      const uintptr_t xIndexEnd = reinterpret_cast<uintptr_t>(r.xFilter.index + dst.width);
      EXPECT_EQ(reinterpret_cast<uintptr_t>(r.yFilter.weights), roundUp(xIndexEnd, 32));
      const uintptr_t yWeightsEnd = reinterpret_cast<uintptr_t>(r.yFilter.weights + 2 * lobes * dst.height);
      EXPECT_EQ(reinterpret_cast<uintptr_t>(r.xFilter.weights), roundUp(yWeightsEnd, 32));
      // The fractions went to the init buffer from its first multiple of 64: vertical, horizontal.
      const resizetest::Axis x = resizetest::referenceAxis(19, dst.width, lobes);
      const resizetest::Axis y = resizetest::referenceAxis(11, dst.height, lobes);
      const uintptr_t initStart = reinterpret_cast<uintptr_t>(block.initBuffer().data());
      const float* fractions = reinterpret_cast<const float*>(roundUp(initStart, 64));
      EXPECT_EQ(std::vector<float>(fractions, fractions + dst.height), y.fractions);
      EXPECT_EQ(std::vector<float>(fractions + dst.height, fractions + dst.height + dst.width), x.fractions);
    }
}

void expectAxis(const ResizeAxisFilter& got, const resizetest::Axis& expected, int lobes) {
  EXPECT_EQ(got.srcLength, expected.srcLength);
  EXPECT_EQ(got.dstLength, expected.dstLength);
  EXPECT_EQ(got.srcReduced, expected.srcReduced);
  EXPECT_EQ(got.dstReduced, expected.dstReduced);
  EXPECT_EQ(got.leadingCount, expected.leading);
  EXPECT_EQ(got.trailingCount, expected.trailing);
  ASSERT_EQ(std::vector<int32_t>(got.index, got.index + got.dstLength), expected.index);
  if (lobes == kLinear) {
    ASSERT_EQ(std::vector<float>(got.weights, got.weights + got.dstLength), expected.fractions);
  } else {
    const std::vector<float> weights = resizetest::referenceLanczosWeights(expected.fractions, lobes);
    ASSERT_EQ(std::vector<float>(got.weights, got.weights + weights.size()), weights);
  }
}

std::vector<int> axisLengths() {
  return {6, 7, 8, 9, 12, 31, 64, 100, 333, 360, 500, 719, 1000, 1080, 2048, 2520, 7919, 20000};
}

TEST(ResizeInit, AxesEqualThePlainRulesForManyPairs) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const std::vector<int> lengths = axisLengths();
    for (size_t a = 0; a < lengths.size(); ++a)
      for (size_t b = 0; b < lengths.size(); ++b) {
        const IppiSize src{lengths[a], lengths[b]}, dst{lengths[b], lengths[(a + b) % lengths.size()]};
        for (int lobes : {kLinear, 2, 3}) {
          SCOPED_TRACE(testing::Message() << src.width << "x" << src.height << " to " << dst.width << "x" << dst.height
                                          << " lobes " << lobes);
          SpecBlock block(src, dst, lobes, static_cast<int>(a + b) % 64);
          ASSERT_EQ(block.initStatus(), ippStsNoErr);
          expectAxis(block.record().xFilter, resizetest::referenceAxis(src.width, dst.width, lobes), lobes);
          expectAxis(block.record().yFilter, resizetest::referenceAxis(src.height, dst.height, lobes), lobes);
        }
      }
  });
}

TEST(ResizeInit, LanczosWeightsSumToOne) {
  SpecBlock block({1000, 7919}, {333, 20000}, 3);
  ASSERT_EQ(block.initStatus(), ippStsNoErr);
  const ResizeAxisFilter& y = block.record().yFilter;
  for (int i = 0; i < y.dstLength; ++i) {
    const float* w = y.weights + 6 * i;
    EXPECT_NEAR(((w[0] + w[1]) + (w[2] + w[3])) + (w[4] + w[5]), 1.0f, 1e-6f) << i;
  }
}

TEST(ResizeInit, ThousandToThreeHundredThirtyThreeKeepsTheRatioUnreduced) {
  SpecBlock block({1000, 1000}, {333, 500}, kLinear);
  const ResizeSpec& r = block.record();
  EXPECT_EQ(r.xFilter.srcReduced, 1000u);
  EXPECT_EQ(r.xFilter.dstReduced, 333u);
  const double ratio = 1000.0 / 333.0;
  for (int i = 0; i < 333; ++i) EXPECT_EQ(r.xFilter.index[i], static_cast<int>(std::floor((i + 0.5) * ratio - 0.5)));
  // 1000 to 500: gcd 500, ratio 2 exactly, index 2i and fraction 0.5 throughout.
  EXPECT_EQ(r.yFilter.srcReduced, 2u);
  EXPECT_EQ(r.yFilter.dstReduced, 1u);
  for (int i = 0; i < 500; ++i) {
    EXPECT_EQ(r.yFilter.index[i], 2 * i);
    EXPECT_EQ(r.yFilter.weights[i], 0.5f);
  }
}

TEST(ResizeInit, EnlargementByTwoStartsBeforeTheFirstCentre) {
  SpecBlock block({50, 50}, {100, 100}, kLinear);
  const ResizeAxisFilter& x = block.record().xFilter;
  EXPECT_EQ(x.index[0], -1);
  EXPECT_EQ(x.weights[0], 0.75f);
  for (int i = 0; i < 100; ++i) {
    const double position = i / 2.0 - 0.25;
    EXPECT_EQ(x.index[i], static_cast<int>(std::floor(position)));
    EXPECT_EQ(x.weights[i], static_cast<float>(position - std::floor(position)));
  }
  EXPECT_EQ(x.leadingCount, 1u);   // x < 0: position 0 only
  EXPECT_EQ(x.trailingCount, 1u);  // x >= 49: position 99 (49.25) only
}

TEST(ResizeInit, SixteenBitInitsMakeTheSameArrays) {
  for (int lobes : {kLinear, 3}) {
    const IppiSize src{77, 41}, dst{129, 20};
    SpecBlock eight(src, dst, lobes);
    std::vector<uint8_t> block(8192), init(2048);
    ResizeSpec* spec = reinterpret_cast<ResizeSpec*>(block.data());
    const IppStatus status = lobes == kLinear ? ippiResizeLinearInit_16u(src, dst, spec)
                                              : ippiResizeLanczosInit_16u(src, dst, 3, spec, init.data());
    ASSERT_EQ(status, ippStsNoErr);
    const ResizeSpec& a = eight.record();
    const ResizeSpec& b = *reinterpret_cast<const ResizeSpec*>(roundUp(reinterpret_cast<uintptr_t>(spec), 64));
    EXPECT_EQ(std::vector<int32_t>(a.xFilter.index, a.xFilter.index + dst.width),
              std::vector<int32_t>(b.xFilter.index, b.xFilter.index + dst.width));
    const size_t weights = static_cast<size_t>(dst.height) * (lobes == kLinear ? 1 : 6);
    EXPECT_EQ(std::vector<float>(a.yFilter.weights, a.yFilter.weights + weights),
              std::vector<float>(b.yFilter.weights, b.yFilter.weights + weights));
  }
}

}  // namespace
