// Smallest and largest bytes of a region, one minimum per channel, and the in-place maximum.

#include <gtest/gtest.h>

#include <algorithm>

#include "arith_reference.h"
#include "qvimage/ippi_arith.h"
#include "support/tiers.h"
#include "tier_forms.h"

namespace {

using arithtest::Shape;
using qvtest::TestImage;

struct Extremes {
  uint8_t min[4] = {255, 255, 255, 255};
  uint8_t max = 0;
  uint8_t minAll = 255;
};

Extremes extremesOf(const TestImage& image, int channels) {
  Extremes e;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.rowBytes(); ++x) {
      const uint8_t v = image.row(y)[x];
      e.min[x % channels] = std::min(e.min[x % channels], v);
      e.minAll = std::min(e.minAll, v);
      e.max = std::max(e.max, v);
    }
  return e;
}

// Random bytes kept within [low, high], so that the extremes are not simply 0 and 255.
void fillBetween(TestImage& image, uint32_t seed, int low, int high) {
  image.fillRandom(seed);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.rowBytes(); ++x)
      image.row(y)[x] = static_cast<uint8_t>(low + image.row(y)[x] % (high - low + 1));
}

TEST(MinMax, OneChannelRandomImages) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage image = arithtest::imageOf(shape, 1);
    fillBetween(image, static_cast<uint32_t>(shape.width * 3 + shape.height), 20, 230);
    const Extremes expected = extremesOf(image, 1);
    qvtest::expectSameOnEveryTier([&] {
      uint8_t minimum = 0, maximum = 0;
      EXPECT_EQ(ippiMin_8u_C1R(image.data(), image.step(), image.size(), &minimum), ippStsNoErr);
      EXPECT_EQ(ippiMax_8u_C1R(image.data(), image.step(), image.size(), &maximum), ippStsNoErr);
      EXPECT_EQ(minimum, expected.minAll);
      EXPECT_EQ(maximum, expected.max);
      return std::vector<unsigned char>{minimum, maximum};
    });
  }
}

TEST(MinMax, ExtremesInTheLastBytesOfARow) {
  // A short tail after the last whole block must be folded too, in each lane.
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int width = 1; width <= 40; ++width) {
      TestImage image(width, 3, 1, 5, 1);
      image.fill(100);
      image.row(2)[width - 1] = 3;
      image.row(1)[width - 1] = 250;
      uint8_t minimum = 0, maximum = 0;
      ASSERT_EQ(ippiMin_8u_C1R(image.data(), image.step(), image.size(), &minimum), ippStsNoErr);
      ASSERT_EQ(ippiMax_8u_C1R(image.data(), image.step(), image.size(), &maximum), ippStsNoErr);
      EXPECT_EQ(minimum, 3) << width;
      EXPECT_EQ(maximum, 250) << width;
    }
  });
}

TEST(MinMax, PaddingIsNotRead) {
  // Padding bytes hold values beyond every pixel; they must not count.
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage image(13, 4, 1, 19, 3);
    image.fill(50);
    std::vector<uint8_t> storage(static_cast<size_t>(image.step()) * 4, 0);
    for (int y = 0; y < 4; ++y) {
      std::fill(storage.begin() + y * image.step(), storage.begin() + (y + 1) * image.step(), 1);
      std::fill(storage.begin() + y * image.step(), storage.begin() + y * image.step() + 13, 50);
    }
    uint8_t minimum = 0;
    ASSERT_EQ(ippiMin_8u_C1R(storage.data(), image.step(), {13, 4}, &minimum), ippStsNoErr);
    EXPECT_EQ(minimum, 50);
  });
}

TEST(MinMax, FourChannelMinimumPerChannel) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage image = arithtest::imageOf(shape, 4);
    fillBetween(image, static_cast<uint32_t>(shape.width + 11 * shape.height), 30, 240);
    // Distinct minima in each channel, placed in the last pixel of the last row.
    const uint8_t planted[4] = {4, 9, 2, 17};
    for (int c = 0; c < 4; ++c) image.row(shape.height - 1)[4 * (shape.width - 1) + c] = planted[c];
    const Extremes expected = extremesOf(image, 4);
    qvtest::expectSameOnEveryTier([&] {
      uint8_t minimum[4] = {0, 0, 0, 0};
      EXPECT_EQ(ippiMin_8u_C4R(image.data(), image.step(), image.size(), minimum), ippStsNoErr);
      for (int c = 0; c < 4; ++c) EXPECT_EQ(minimum[c], expected.min[c]) << "channel " << c;
      for (int c = 0; c < 4; ++c) EXPECT_EQ(minimum[c], planted[c]) << "channel " << c;
      return std::vector<unsigned char>(minimum, minimum + 4);
    });
  }
}

TEST(MinMax, FourChannelMinimumOfRandomImages) {
  for (const Shape& shape : arithtest::oddShapes()) {
    TestImage image = arithtest::imageOf(shape, 4);
    fillBetween(image, static_cast<uint32_t>(shape.width * 13 + shape.height), 10, 250);
    const Extremes expected = extremesOf(image, 4);
    qvtest::onEveryTier([&](const qvtest::Tier&) {
      uint8_t minimum[4] = {0, 0, 0, 0};
      EXPECT_EQ(ippiMin_8u_C4R(image.data(), image.step(), image.size(), minimum), ippStsNoErr);
      EXPECT_EQ(std::vector<uint8_t>(minimum, minimum + 4), std::vector<uint8_t>(expected.min, expected.min + 4));
    });
  }
}

TEST(MinMax, StatusesInOrder) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const uint8_t pixels[8] = {5, 6, 7, 8, 9, 10, 11, 12};
    uint8_t result[4] = {77, 77, 77, 77};
    EXPECT_EQ(ippiMin_8u_C1R(nullptr, 8, {0, 0}, result), ippStsNullPtrErr);
    EXPECT_EQ(ippiMin_8u_C1R(pixels, 8, {2, 1}, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippiMin_8u_C1R(pixels, 8, {0, 1}, result), ippStsSizeErr);
    EXPECT_EQ(ippiMin_8u_C1R(pixels, 8, {1, -1}, result), ippStsSizeErr);
    EXPECT_EQ(ippiMax_8u_C1R(nullptr, 8, {0, 0}, result), ippStsNullPtrErr);
    EXPECT_EQ(ippiMax_8u_C1R(pixels, 8, {2, 1}, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippiMax_8u_C1R(pixels, 8, {2, 0}, result), ippStsSizeErr);
    EXPECT_EQ(ippiMin_8u_C4R(nullptr, 8, {0, 0}, result), ippStsNullPtrErr);
    EXPECT_EQ(ippiMin_8u_C4R(pixels, 8, {2, 1}, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippiMin_8u_C4R(pixels, 8, {-2, 1}, result), ippStsSizeErr);
    for (uint8_t r : result) EXPECT_EQ(r, 77);
  });
}

TEST(MinMax, StepsAreNotTested) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const uint8_t pixels[8] = {50, 40, 30, 20, 10, 5, 1, 0};
    uint8_t result = 0;
    // A step of 0 reads the first row again and again.
    EXPECT_EQ(ippiMin_8u_C1R(pixels, 0, {4, 2}, &result), ippStsNoErr);
    EXPECT_EQ(result, 20);
    EXPECT_EQ(ippiMax_8u_C1R(pixels + 4, 0, {4, 3}, &result), ippStsNoErr);
    EXPECT_EQ(result, 10);
    // A negative step walks upwards.
    EXPECT_EQ(ippiMin_8u_C1R(pixels + 4, -4, {3, 2}, &result), ippStsNoErr);
    EXPECT_EQ(result, 1);
    uint8_t minimum[4] = {0, 0, 0, 0};
    EXPECT_EQ(ippiMin_8u_C4R(pixels, -3, {1, 1}, minimum), ippStsNoErr);
    EXPECT_EQ(std::vector<uint8_t>(minimum, minimum + 4), (std::vector<uint8_t>{50, 40, 30, 20}));
  });
}

TEST(MaxEvery, RandomImages) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage src = arithtest::imageOf(shape, 1);
    src.fillRandom(static_cast<uint32_t>(shape.width * 7 + 1));
    TestImage start(shape.width, shape.height, 1, shape.padding + 2, shape.offset + 3);
    start.fillRandom(static_cast<uint32_t>(shape.width * 7 + 2));
    qvtest::expectSameOnEveryTier([&] {
      TestImage dst(shape.width, shape.height, 1, shape.padding + 2, shape.offset + 3);
      arithtest::copyPixels(start, dst);
      EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), src.step(), dst.data(), dst.step(), src.size()), ippStsNoErr);
      for (int y = 0; y < shape.height; ++y)
        for (int x = 0; x < shape.width; ++x) EXPECT_EQ(dst.row(y)[x], std::max(src.row(y)[x], start.row(y)[x]));
      EXPECT_TRUE(dst.surroundingsIntact());
      return arithtest::bytesOf(dst);
    });
  }
}

TEST(MaxEvery, StatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage src(3, 2, 1, 5), dst(3, 2, 1, 5);
    src.fill(200);
    dst.fill(1);
    const std::vector<uint8_t> before = dst.allBytes();
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(nullptr, 0, dst.data(), 8, {0, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), 8, nullptr, 8, {3, 2}), ippStsNullPtrErr);
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), 0, dst.data(), 8, {0, 2}), ippStsSizeErr);
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), 8, dst.data(), 8, {3, 0}), ippStsSizeErr);
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), 0, dst.data(), 8, {3, 2}), ippStsStepErr);
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), 8, dst.data(), 0, {3, 2}), ippStsStepErr);
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src.data(), 8, dst.data(), -8, {3, 2}), ippStsStepErr);
    EXPECT_EQ(dst.allBytes(), before);
  });
}

TEST(MaxEvery, StepOfZeroIsRefusedWhileMinimumAcceptsIt) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    uint8_t src[4] = {1, 2, 3, 4}, dst[4] = {4, 3, 2, 1};
    EXPECT_EQ(ippiMaxEvery_8u_C1IR(src, 0, dst, 4, {4, 1}), ippStsStepErr);
    EXPECT_EQ(std::vector<uint8_t>(dst, dst + 4), (std::vector<uint8_t>{4, 3, 2, 1}));
    uint8_t minimum = 0;
    EXPECT_EQ(ippiMin_8u_C1R(src, 0, {4, 1}, &minimum), ippStsNoErr);
    EXPECT_EQ(minimum, 1);
  });
}

TEST(MaxEvery, VectorFormStatusesAndValues) {
  for (const arithtest::TierForms& tier : arithtest::tierForms()) {
    SCOPED_TRACE(tier.name);
    const std::vector<uint8_t> a = qvtest::randomBytes(77, 3);
    std::vector<uint8_t> b = qvtest::randomBytes(77, 4);
    const std::vector<uint8_t> start = b;
    EXPECT_EQ(tier.maxEvery(nullptr, b.data(), 0), ippStsNullPtrErr);
    EXPECT_EQ(tier.maxEvery(a.data(), nullptr, 77), ippStsNullPtrErr);
    EXPECT_EQ(tier.maxEvery(a.data(), b.data(), 0), ippStsSizeErr);
    EXPECT_EQ(b, start);
    ASSERT_EQ(tier.maxEvery(a.data(), b.data(), 77), ippStsNoErr);
    for (int i = 0; i < 77; ++i) EXPECT_EQ(b[i], std::max(a[i], start[i]));
  }
}

}  // namespace
