// The scratch size and every status of the fill, in the order of the tests, with nothing written
// after a refusal.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "qvimage/qvimage.h"
#include "region/fill_support.h"
#include "support/images.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

int expectedSize(long long width, long long height) {
  return static_cast<int>((width + 2) * (height + 2) + ((height * 24 * width) >> 2) + 32);
}

TEST(FloodFillSize, BorderPlusRecordsPlusSlack) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int width : {1, 2, 3, 7, 64, 641, 4096})
      for (int height : {1, 2, 5, 480, 4096}) {
        int size = -1;
        ASSERT_EQ(ippiFloodFillGetSize_Grad({width, height}, &size), ippStsNoErr);
        EXPECT_EQ(size, expectedSize(width, height)) << width << "x" << height;
      }
    int size = -1;
    ASSERT_EQ(ippiFloodFillGetSize_Grad({1, 1}, &size), ippStsNoErr);
    EXPECT_EQ(size, 9 + 6 + 32);
  });
}

TEST(FloodFillSize, StatusesInOrder) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    EXPECT_EQ(ippiFloodFillGetSize_Grad({0, 0}, nullptr), ippStsNullPtrErr);
    int size = 1234;
    EXPECT_EQ(ippiFloodFillGetSize_Grad({0, 5}, &size), ippStsSizeErr);
    EXPECT_EQ(ippiFloodFillGetSize_Grad({5, 0}, &size), ippStsSizeErr);
    EXPECT_EQ(ippiFloodFillGetSize_Grad({-3, 5}, &size), ippStsSizeErr);
    EXPECT_EQ(size, 1234);
  });
}

struct Call {
  bool nullImage = false, nullRegion = false, nullScratch = false;
  IppiSize size{6, 5};
  int step = 8;
  IppiPoint seed{2, 2};
};

// A refused fill: its status, and neither the image, the record nor the scratch changed.
void expectRefused(const Call& call, IppStatus expected) {
  TestImage image(6, 5, 1, 2, 3);
  image.fill(50);
  const std::vector<uint8_t> imageBefore = image.allBytes();
  IppiConnectedComp region;
  std::memset(&region, 0x3C, sizeof region);
  std::vector<uint8_t> scratch(256, qvtest::kCanary);
  const IppStatus status = ippiFloodFill_Range4Con_8u_C1IR(
      call.nullImage ? nullptr : image.data(), call.step, call.size, call.seed, 9, 10, 10,
      call.nullRegion ? nullptr : &region, call.nullScratch ? nullptr : scratch.data());
  EXPECT_EQ(status, expected);
  EXPECT_EQ(image.allBytes(), imageBefore);
  for (uint8_t byte : scratch) ASSERT_EQ(byte, qvtest::kCanary);
  const auto* recordBytes = reinterpret_cast<const uint8_t*>(&region);
  for (size_t i = 0; i < sizeof region; ++i) ASSERT_EQ(recordBytes[i], 0x3C);
}

TEST(FloodFillStatus, EveryStatusInTheOrderOfItsTest) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const IppiSize empty{0, 5};
    const IppiPoint outside{-1, 9};
    // Null pointers first, each one alone, even with a bad size, step and seed.
    expectRefused({true, false, false, empty, 0, outside}, ippStsNullPtrErr);
    expectRefused({false, true, false, empty, 0, outside}, ippStsNullPtrErr);
    expectRefused({false, false, true, empty, 0, outside}, ippStsNullPtrErr);
    // Then the size, before the step and the seed.
    expectRefused({false, false, false, {0, 5}, 0, outside}, ippStsSizeErr);
    expectRefused({false, false, false, {6, 0}, 0, outside}, ippStsSizeErr);
    expectRefused({false, false, false, {6, -2}, 0, outside}, ippStsSizeErr);
    // Then the step, before the seed.
    expectRefused({false, false, false, {6, 5}, 5, outside}, ippStsStepErr);
    expectRefused({false, false, false, {6, 5}, -8, {2, 2}}, ippStsStepErr);
    // Then the seed, on each side.
    expectRefused({false, false, false, {6, 5}, 6, {-1, 0}}, ippStsOutOfRangeErr);
    expectRefused({false, false, false, {6, 5}, 8, {6, 0}}, ippStsOutOfRangeErr);
    expectRefused({false, false, false, {6, 5}, 8, {0, -1}}, ippStsOutOfRangeErr);
    expectRefused({false, false, false, {6, 5}, 8, {0, 5}}, ippStsOutOfRangeErr);
  });
}

TEST(FloodFillStatus, SeedHoldingTheNewValueTouchesNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage image(6, 5, 1, 2, 3);
    image.fill(77);
    const std::vector<uint8_t> before = image.allBytes();
    IppiConnectedComp region;
    std::memset(&region, 0x3C, sizeof region);
    std::vector<uint8_t> scratch(256, qvtest::kCanary);
    EXPECT_EQ(ippiFloodFill_Range4Con_8u_C1IR(image.data(), image.step(), image.size(), {3, 4}, 77, 255, 255, &region,
                                              scratch.data()),
              ippStsNoErr);
    EXPECT_EQ(image.allBytes(), before);
    const auto* recordBytes = reinterpret_cast<const uint8_t*>(&region);
    for (size_t i = 0; i < sizeof region; ++i) ASSERT_EQ(recordBytes[i], 0x3C);
    for (uint8_t byte : scratch) ASSERT_EQ(byte, qvtest::kCanary);
  });
}

TEST(FloodFillStatus, StepEqualToWidthIsAccepted) {
  TestImage image(6, 5, 1);
  image.fill(10);
  const qvtest::FillRun run = qvtest::runFill(image, {0, 0}, 99, 0, 0);
  EXPECT_EQ(run.status, ippStsNoErr);
  EXPECT_EQ(run.region.area, 30.0);
}

}  // namespace
