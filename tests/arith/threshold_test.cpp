// Threshold with a replacement value: strictly greater (4) or strictly less (0); the comparison
// is tested before everything else.

#include <gtest/gtest.h>

#include "arith_reference.h"
#include "qvimage/ippi_arith.h"
#include "support/tiers.h"
#include "tier_forms.h"

namespace {

using arithtest::Shape;
using qvtest::TestImage;

uint8_t thresholdReference(uint8_t pixel, uint8_t threshold, uint8_t value, int comparison) {
  const bool replace = comparison == ippCmpGreater ? pixel > threshold : pixel < threshold;
  return replace ? value : pixel;
}

TEST(Threshold, EveryPixelAgainstEveryThreshold) {
  std::vector<uint8_t> every(256);
  for (int i = 0; i < 256; ++i) every[i] = static_cast<uint8_t>(i);
  for (int comparison : {ippCmpLess, ippCmpGreater}) {
    qvtest::expectSameOnEveryTier([&] {
      std::vector<uint8_t> all;
      for (int threshold = 0; threshold < 256; ++threshold) {
        std::vector<uint8_t> image = every;
        const uint8_t value = static_cast<uint8_t>(threshold * 7 + 3);
        EXPECT_EQ(
            ippiThreshold_Val_8u_C1IR(image.data(), 16, {16, 16}, static_cast<uint8_t>(threshold), value, comparison),
            ippStsNoErr);
        for (int p = 0; p < 256; ++p)
          EXPECT_EQ(image[p],
                    thresholdReference(static_cast<uint8_t>(p), static_cast<uint8_t>(threshold), value, comparison));
        all.insert(all.end(), image.begin(), image.end());
      }
      return all;
    });
  }
}

TEST(Threshold, EqualPixelIsNeverReplaced) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int comparison : {ippCmpLess, ippCmpGreater}) {
      std::vector<uint8_t> image(40, 128);
      ASSERT_EQ(ippiThreshold_Val_8u_C1IR(image.data(), 40, {40, 1}, 128, 0, comparison), ippStsNoErr);
      EXPECT_EQ(image, std::vector<uint8_t>(40, 128));
    }
  });
}

TEST(Threshold, RandomImagesInPlace) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage start = arithtest::imageOf(shape, 1);
    start.fillRandom(static_cast<uint32_t>(shape.width * 9 + shape.height));
    for (int comparison : {ippCmpLess, ippCmpGreater}) {
      qvtest::expectSameOnEveryTier([&] {
        TestImage image = arithtest::imageOf(shape, 1);
        arithtest::copyPixels(start, image);
        EXPECT_EQ(ippiThreshold_Val_8u_C1IR(image.data(), image.step(), image.size(), 99, 7, comparison), ippStsNoErr);
        for (int y = 0; y < shape.height; ++y)
          for (int x = 0; x < shape.width; ++x)
            EXPECT_EQ(image.row(y)[x], thresholdReference(start.row(y)[x], 99, 7, comparison));
        EXPECT_TRUE(image.surroundingsIntact());
        return arithtest::bytesOf(image);
      });
    }
  }
}

TEST(Threshold, SeparateDestination) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    for (int comparison : {ippCmpLess, ippCmpGreater}) {
      TestImage src(45, 3, 1, 3, 1), dst(45, 3, 1, 6, 2);
      src.fillRandom(44);
      const std::vector<uint8_t> srcBefore = src.allBytes();
      ASSERT_EQ(tier.threshold(src.data(), src.step(), dst.data(), dst.step(), src.size(), 150, 255, comparison),
                ippStsNoErr);
      EXPECT_EQ(src.allBytes(), srcBefore);
      for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 45; ++x) EXPECT_EQ(dst.row(y)[x], thresholdReference(src.row(y)[x], 150, 255, comparison));
      EXPECT_TRUE(dst.surroundingsIntact());
    }
  }
}

TEST(Threshold, ComparisonIsTestedBeforePointers) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    for (int comparison : {1, 2, 3, 5, -1}) {
      EXPECT_EQ(tier.threshold(nullptr, 0, nullptr, 0, {0, 0}, 1, 2, comparison), ippStsNotSupportedModeErr);
    }
  }
  qvtest::onEveryTier([](const qvtest::Tier&) {
    EXPECT_EQ(ippiThreshold_Val_8u_C1IR(nullptr, 0, {0, 0}, 1, 2, 1), ippStsNotSupportedModeErr);
  });
}

TEST(Threshold, StatusesInOrderWriteNothing) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    TestImage src(4, 2, 1, 4), dst(4, 2, 1, 4);
    src.fill(200);
    const std::vector<uint8_t> before = dst.allBytes();
    EXPECT_EQ(tier.threshold(src.data(), 8, dst.data(), 8, {4, 2}, 1, 2, 1), ippStsNotSupportedModeErr);
    EXPECT_EQ(tier.threshold(nullptr, 0, dst.data(), 8, {0, 2}, 1, 2, 4), ippStsNullPtrErr);
    EXPECT_EQ(tier.threshold(src.data(), 8, nullptr, 8, {4, 2}, 1, 2, 0), ippStsNullPtrErr);
    EXPECT_EQ(tier.threshold(src.data(), 0, dst.data(), 8, {0, 2}, 1, 2, 4), ippStsSizeErr);
    EXPECT_EQ(tier.threshold(src.data(), 8, dst.data(), 8, {4, 0}, 1, 2, 4), ippStsSizeErr);
    EXPECT_EQ(tier.threshold(src.data(), 0, dst.data(), 8, {4, 2}, 1, 2, 4), ippStsStepErr);
    EXPECT_EQ(tier.threshold(src.data(), 8, dst.data(), -8, {4, 2}, 1, 2, 0), ippStsStepErr);
    EXPECT_EQ(dst.allBytes(), before);
  }
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage image(4, 2, 1, 4);
    image.fill(200);
    const std::vector<uint8_t> before = image.allBytes();
    EXPECT_EQ(ippiThreshold_Val_8u_C1IR(image.data(), 8, {4, 2}, 1, 2, 3), ippStsNotSupportedModeErr);
    EXPECT_EQ(ippiThreshold_Val_8u_C1IR(nullptr, 0, {0, 2}, 1, 2, 4), ippStsNullPtrErr);
    EXPECT_EQ(ippiThreshold_Val_8u_C1IR(image.data(), 0, {0, 2}, 1, 2, 4), ippStsSizeErr);
    EXPECT_EQ(ippiThreshold_Val_8u_C1IR(image.data(), 0, {4, 2}, 1, 2, 4), ippStsStepErr);
    EXPECT_EQ(image.allBytes(), before);
  });
}

}  // namespace
